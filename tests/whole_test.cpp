/// The drivers over whole records: what the modes have in common, and that any record renders the same on every host.
#include "random_stores.h"
#include "stores.h"

#include "app/drivers.h"
#include "platform/host/factory.h"

#include <cstring>
#include <memory>

namespace {

/// The text that `driver` writes for the images as they are set.
std::string textOf(void (*driver)()) {
    clearText();
    driver();
    return Temp_Configuration;
}

/// Digest of a text (FNV-1a).
std::uint64_t digest(std::uint64_t of, const char *text) {
    for (; *text != '\0'; ++text) of = (of ^ static_cast<unsigned char>(*text)) * 0x100000001b3U;
    return of;
}

} // namespace

TEST(Whole, BothHeadersGiveTheSameText) {
    resetAll();
    composeBuiltIn();
    const std::string text = textOf(convConfig);
    EXPECT_EQ(text, textOf(convDefConfig));
    const std::string delta = textOf(convDeltaConfig);
    EXPECT_EQ(delta, textOf(convDeltaDefConfig));
    EXPECT_NE(text, delta);
}

TEST(Whole, APageIsTheTextWithoutItsFirstLine) {
    resetAll();
    composeBuiltIn();
    const std::string versionLine = "# VERSION 5036 6000 V2.4.1 MAC 00:00:5e:00:53:01\n";
    EXPECT_EQ(textOf(convConfig), versionLine + textOf(convHtmlConfig));
    EXPECT_EQ(textOf(convDeltaConfig), versionLine + textOf(convDeltaHtmlConfig));
}

TEST(Whole, DeltaOfEqualImagesIsWhatIsNeverCompared) {
    resetAll();
    for (ConfigImage *image : {gSysConfig, gDefConfig}) {
        factory::composeDefault(*image);
        image->acl[0].valid = 1;
        image->acl[0].number = 7;
        image->acl[191].valid = 1;
        image->acl[191].number = 130;
        image->trunks[13].inUse = 1;
        image->trunks[13].name = "spare";
        image->multicastSegments[399].valid = 1;
        image->multicastSegments[399].id = 400;
        image->multicastProfiles[59].valid = 1;
        image->multicastProfiles[59].name = "films";
        image->multicastProfiles[59].segments[0] = 400;
        image->qinq.ethertype = 0x88a8;
    }
    g_EEPROM.capabilities = 0x150;
    platform.passwordMethod = 1;
    const char *const unconditional = "configure\n"
                                      "acl 7\n"
                                      "apply\n"
                                      "exit\n"
                                      "acl 130\n"
                                      "apply\n"
                                      "exit\n"
                                      "channel-group trunking spare\n"
                                      "ip igmp segment 400\n"
                                      "exit\n"
                                      "ip igmp profile films\n"
                                      "exit\n"
                                      "user password-encryption md5\n"
                                      "vlan dot1q-tunnel ethertype 88A8\n";
    EXPECT_EQ(unconditional, textOf(convDeltaHtmlConfig));
    EXPECT_EQ(std::string("# VERSION 5036 6000  MAC 00:00:00:00:00:00\n") + unconditional, textOf(convDeltaConfig));
}

TEST(Whole, RandomRecordsRenderAlikeEverywhere) {
    // Digests of the texts of ten records each, in full and in delta mode. They protect every byte of the text while
    // the program is reworked: a change of the sources leaves them as they are. When the format itself changes, as
    // reviewed line by line in the golden texts, the new digests are those that this test reports for each group; they
    // are recorded in the same commit as the golden texts, and its message names the lines that differ.
    constexpr struct {
        std::uint64_t full;
        std::uint64_t delta;
    } expected[20] = {
        {0x75086460eb34bbe5U, 0xf8d2c056f1c3e172U}, {0xf054a4f3c709eaa6U, 0x8017db5eb14fdb6cU},
        {0x4bac028fe7cc6c29U, 0x068d3853a226b32dU}, {0x57afe89177cba643U, 0x3a1b5375915778e0U},
        {0x20b7b1d82f7c084bU, 0x898612badd57c7f1U}, {0x41f222362465b4dcU, 0x1c6ee1795449bdfcU},
        {0x91f7c25e42f52fbcU, 0x7c877feb22c88978U}, {0xfd6e8b95737a592dU, 0xa2f6dc71e1732daeU},
        {0x827388cf199b7040U, 0x73294425e9d2a67bU}, {0x552c9fa2448dcad7U, 0xf0d98705ca647a9cU},
        {0x4c919c71f6d2d5daU, 0x485d4beb2c9b2d2cU}, {0xd39726b44c3affb4U, 0x3bb470e3e8cac6bbU},
        {0xd0952759c8175e62U, 0x6e2e26a15a133936U}, {0x9c2eb893fe936bc5U, 0x7aa2745d7cc3ee02U},
        {0x6f880228bd71be6cU, 0xfb07e038acb100a3U}, {0xd3161b8a25285abaU, 0x9616f40acdf33664U},
        {0x33dacd8388abcb56U, 0x511d5425e3af2e4cU}, {0xa0efc17f06d0fb0dU, 0x9d0cdb4c3da39584U},
        {0xbb16d56fa2e50572U, 0x7d4284f3741d9992U}, {0x9e21390fc514b7c8U, 0x604065ad0b60943dU},
    };
    for (std::uint32_t group = 0; group < 20; ++group) {
        std::uint64_t full = 0xcbf29ce484222325U;
        std::uint64_t delta = full;
        for (std::uint32_t seed = group * 10; seed < group * 10 + 10; ++seed) {
            composeRandom(seed);
            full = digest(full, textOf(convConfig).c_str());
            EXPECT_FALSE(textOverflowed());
            composeRandom(seed);
            delta = digest(delta, textOf(convDeltaConfig).c_str());
        }
        EXPECT_EQ(expected[group].full, full) << "group " << group << std::hex << ", full mode: 0x" << full;
        EXPECT_EQ(expected[group].delta, delta) << "group " << group << std::hex << ", delta mode: 0x" << delta;
    }
}
