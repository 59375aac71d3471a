/// Values: as people read them, as JSON, and back.
#include "inspect/sha256.h"
#include "inspect/values.h"
#include "platform/host/factory.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstring>
#include <memory>

namespace {

using namespace inspect;

std::unique_ptr<ConfigImage> zeros() {
    auto image = std::make_unique<ConfigImage>();
    std::memset(image.get(), 0, sizeof *image);
    return image;
}

TEST(Values, AreReadAsPeopleReadThem) {
    const auto image = zeros();
    image->ports[2].speed = 3;
    image->time.daylightSaving = 7;
    image->time.timeZone = -5;
    image->radius.retryTime = -2;
    image->storm.broadcast = 11;
    image->macTable[0].port = 4;
    image->macTable[1].port = 28;
    image->vlanPorts[0].mode = 9;
    image->loopDetection.enabled = 2;
    image->loopDetection.vlans[1] = 30;
    image->tagVlans[0].members.set(0).set(1).set(2).set(6).set(28).set(29);
    image->timeRanges[0].list[0].weekdays.set(0).set(1).set(6).set(9);
    image->acl[0].match.set(AclMatch::ingressPort).set(AclMatch::destinationIpv6);
    image->acl[0].etherType[0] = 0x08;
    image->igmpVlans.inUse.set(1).set(4094);
    image->company.hostName = "a\"b\\c\n";
    image->ipv4.address = {{192, 0, 2, 1}};
    image->ipv6.global = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}};
    image->macTable[0].address = {{0, 0, 0x5e, 0, 0x53, 0xff}};
    const auto shown = [&](const char *path) { return displayOf(*leafOf(path), image.get()); };
    EXPECT_EQ(shown("ports[3].speed"), "3 automatic");
    EXPECT_EQ(shown("ports[1].speed"), "0 10 Mb/s");
    EXPECT_EQ(shown("time.daylightSaving"), "7 by date");
    EXPECT_EQ(shown("time.timeZone"), "-5");
    EXPECT_EQ(shown("radius.retryTime"), "-2");
    EXPECT_EQ(shown("storm.broadcast"), "11 1k");
    EXPECT_EQ(shown("macTable[1].port"), "4 port 5");
    EXPECT_EQ(shown("macTable[2].port"), "28");
    EXPECT_EQ(shown("vlanPorts[1].mode"), "9");
    EXPECT_EQ(shown("vlanPorts[1].accessVlan"), "0 none");
    EXPECT_EQ(shown("loopDetection.enabled"), "2 on");
    EXPECT_EQ(shown("loopDetection.vlans[1]"), "0 empty slot");
    EXPECT_EQ(shown("loopDetection.vlans[2]"), "30");
    EXPECT_EQ(shown("tagVlans[1].members"), "1-3,7,cpu,30");
    EXPECT_EQ(shown("tagVlans[2].members"), "-");
    EXPECT_EQ(shown("timeRanges[1].list[1].weekdays"), "sun,mon,sat,9");
    EXPECT_EQ(shown("acl[1].match"), "ingress-port,destination-ipv6");
    EXPECT_EQ(shown("acl[1].etherType"), "0800");
    EXPECT_EQ(shown("igmpVlans.inUse"), "1,4094");
    EXPECT_EQ(shown("company.hostName"), "\"a\"b\\\\c\\x0a\"");
    EXPECT_EQ(shown("ipv4.address"), "192.0.2.1");
    EXPECT_EQ(shown("ipv6.global"), "2001:db8::1");
    EXPECT_EQ(shown("macTable[1].address"), "00:00:5e:00:53:ff");
    EXPECT_EQ(shown("time.reserved12"), "61 x 00");
}

TEST(Values, OfTheBoard) {
    BoardRecord board = {};
    board.capabilities = 0x150;
    EXPECT_EQ(displayOf(*leafOf("board.capabilities"), &board), "battery (0x10),battery (0x40),PoE");
    board.capabilities = 0x80000001;
    EXPECT_EQ(jsonOf(*leafOf("board.capabilities"), &board), (Json{0, 31}));
}

TEST(Values, AreTyped) {
    const auto image = zeros();
    image->users[0].name = "ann";
    image->users[0].name.characters[5] = 'x';
    image->mirror.sources.set(3);
    const TextValue name = std::get<TextValue>(valueOf(*leafOf("users[1].name"), image.get()));
    EXPECT_EQ(name.text, "ann");
    EXPECT_EQ(name.hidden, std::string("\0x", 2));
    EXPECT_TRUE(name.isTerminated);
    image->users[0].name = "abcdefghijklmnopqrstuvwxyz";
    EXPECT_FALSE(std::get<TextValue>(valueOf(*leafOf("users[1].name"), image.get())).isTerminated);
    EXPECT_EQ(std::get<BitNumbers>(valueOf(*leafOf("mirror.sources"), image.get())), BitNumbers{3});
    EXPECT_EQ(std::get<Bytes>(valueOf(*leafOf("acl[1].etherType"), image.get())), (Bytes{0, 0}));
}

TEST(Values, TextsAreEscapedSoThatTheyCanBeReadBack) {
    const std::string all = [] {
        std::string bytes;
        for (int byte = 255; byte >= 0; --byte) bytes += static_cast<char>(byte);
        return bytes + "end";
    }();
    EXPECT_EQ(escapeText("plain \xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80"),
              "plain \xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80");
    EXPECT_EQ(escapeText(std::string("a\0b\0\0", 5)), "a\\0b");
    EXPECT_EQ(escapeText("\\0\t\x7f\x1b"), "\\\\0\\x09\\x7f\\x1b");
    EXPECT_EQ(escapeText("\xc2\x9b|\xff|\xc3"), "\\xc2\\x9b|\\xff|\\xc3");
    EXPECT_EQ(escapeText("\xc0\x80|\xed\xa0\x80|\xf4\x90\x80\x80"), "\\xc0\\x80|\\xed\\xa0\\x80|\\xf4\\x90\\x80\\x80");
    EXPECT_EQ(escapeText("\xe2\x80\xae"), "\\xe2\\x80\\xae") << "turns the direction of the line";
    EXPECT_EQ(unescapeText(escapeText(all)), all);
    for (const char *wrong : {"\\", "\\y", "\\x", "\\x1", "\\xG0"}) EXPECT_FALSE(unescapeText(wrong)) << wrong;
}

TEST(Values, EveryLeafIsReadBackFromJson) {
    // Bytes without rule, so that sets, texts and codes hold what nobody stores.
    ConfigImage image;
    ConfigImage copy;
    unsigned char *const bytes = reinterpret_cast<unsigned char *>(&image);
    unsigned state = 1;
    for (std::size_t i = 0; i < sizeof image; ++i) {
        state = state * 1664525 + 1013904223;
        bytes[i] = static_cast<unsigned char>(state >> 24);
    }
    std::memset(static_cast<void *>(&copy), 0x55, sizeof copy);
    forEachLeaf(Part::image, [&](const Leaf &leaf) {
        const Json json = Json::parse(jsonOf(leaf, &image).dump());
        ASSERT_TRUE(storeJson(leaf, json, &copy)) << leaf.path() << ' ' << json;
    });
    EXPECT_EQ(std::memcmp(&image, &copy, sizeof image), 0);
}

TEST(Values, JsonThatIsNotOfTheLeafIsRefused) {
    const auto image = zeros();
    const auto stored = [&](const char *path, const Json &json) { return storeJson(*leafOf(path), json, image.get()); };
    EXPECT_TRUE(stored("vlanMode", 255));
    for (const Json &json : {Json(256), Json(-1), Json("1"), Json(1.5), Json(), Json::array()})
        EXPECT_FALSE(stored("vlanMode", json)) << json;
    EXPECT_EQ(image->vlanMode, 255);
    EXPECT_TRUE(stored("mirror.sources", {1, "cpu", 32}));
    EXPECT_EQ(image->mirror.sources.bytes[0], 0x01);
    EXPECT_EQ(image->mirror.sources.bytes[3], 0x90);
    EXPECT_FALSE(stored("mirror.sources", {29}));
    EXPECT_FALSE(stored("mirror.sources", {0}));
    EXPECT_FALSE(stored("mirror.sources", {33}));
    EXPECT_FALSE(stored("users[1].name", "twenty-five characters..."));
    EXPECT_FALSE(stored("ipv4.address", "192.0.2"));
    EXPECT_FALSE(stored("macTable[1].address", "00:00:5e:00:53"));
    EXPECT_FALSE(stored("acl[1].etherType", "08"));
}

TEST(Values, Sha256) {
    EXPECT_EQ(sha256("", 0), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256("abc", 3), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(sha256("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq", 56),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

} // namespace
