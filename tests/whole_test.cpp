/// The drivers over whole records: what the modes have in common, and that any record renders alike on every host.
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

/// A generator that gives the same numbers everywhere (xorshift).
class Numbers {
public:
    explicit Numbers(std::uint32_t seed) : state_(seed * 2654435761U + 1) {}

    std::uint32_t next() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return state_;
    }
    std::uint32_t below(std::uint32_t limit) { return next() / 7 % limit; }
    bool oneIn(std::uint32_t count) { return below(count) == 0; }
    u8 flag() {
        constexpr u8 flags[] = {0, 1, 1, 0, 2, 255};
        return flags[below(6)];
    }
    std::uint32_t word() {
        constexpr std::uint32_t words[] = {0, 1, 2, 3, 4, 7, 9, 100, 256, 65535, 0x7fffffff, 0x80000000, 0xffffffff};
        return words[below(13)];
    }
    u8 byte() { return static_cast<u8>(next() >> 11); }

private:
    std::uint32_t state_;
};

template <std::size_t Width> void randomText(Numbers &numbers, Text<Width> &text) {
    constexpr const char *texts[] = {"", " ", "core", "uplink 1", "a,b", "08:00,1,5,2026", "1,08:00", "50% \"quoted\""};
    text = texts[numbers.below(8)];
    if (numbers.oneIn(6))
        for (char &character : text.characters) character = static_cast<char>('A' + numbers.below(26));
}

template <std::size_t Count> void randomBytes(Numbers &numbers, u8 (&bytes)[Count]) {
    for (u8 &byte : bytes) byte = numbers.oneIn(3) ? numbers.byte() : 0;
}

template <std::size_t Bytes> void randomBitmap(Numbers &numbers, Bitmap<Bytes> &bitmap) {
    const std::uint32_t kind = numbers.below(4);
    for (u8 &byte : bitmap.bytes) byte = kind == 0 ? 0 : kind == 1 ? 0xff : numbers.byte();
}

void randomAddress(Numbers &numbers, Ipv4 &address) {
    address = {};
    if (numbers.oneIn(2)) address = {{192, 0, 2, numbers.byte()}};
}

void randomAddress(Numbers &numbers, Ipv6 &address) {
    address = {};
    if (numbers.oneIn(2)) randomBytes(numbers, address.octets);
    if (numbers.oneIn(4)) address = {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 192, 0, 2, numbers.byte()}};
}

void randomSystem(Numbers &numbers, ConfigImage &image) {
    image.time.ntpEnabled = numbers.word();
    image.time.daylightSaving = numbers.below(4);
    randomText(numbers, image.time.offset);
    if (numbers.oneIn(2)) image.time.offset = "M3.2.0-M11.1.0";
    randomAddress(numbers, image.time.server1);
    randomAddress(numbers, image.time.server2Ipv6);
    image.time.timeZone = static_cast<std::int32_t>(numbers.word());
    image.ipv4.dhcpMode = static_cast<u8>(numbers.below(4));
    randomAddress(numbers, image.ipv4.gateway);
    image.ipv6.dhcpMode = static_cast<u8>(numbers.below(4));
    randomAddress(numbers, image.ipv6.global);
    randomText(numbers, image.company.hostName);
    randomText(numbers, image.company.dhcpVendorId);
    image.service.remoteLogin = numbers.below(4);
    image.console.timeoutInMinutes = numbers.word();
    image.console.webTimeout = static_cast<std::int32_t>(numbers.word());
    image.cpuLoadingThreshold = static_cast<std::uint16_t>(numbers.word());
    image.logTerminalHistory = numbers.word();
    randomAddress(numbers, image.log.serverIpv6[2]);
    image.backup.protocol = numbers.below(3);
    image.backup.serverIsIpv6 = numbers.flag();
    randomText(numbers, image.backup.password);
    for (TimeRange &range : image.timeRanges) {
        randomText(numbers, range.name);
        randomText(numbers, range.absoluteStart);
        randomText(numbers, range.periodic[0].start);
        randomText(numbers, range.periodic[1].end);
        randomText(numbers, range.list[1].start);
        randomBitmap(numbers, range.list[1].weekdays);
    }
    for (User &user : image.users) {
        user.inUse = numbers.flag();
        user.active = numbers.flag();
        user.level = static_cast<u8>(numbers.below(5));
        randomText(numbers, user.name);
        randomText(numbers, user.password);
        randomText(numbers, user.passwordMd5);
        randomText(numbers, user.description);
    }
    for (AuthenticationClient *client : {&image.radius, &image.tacacs}) {
        client->retryTime = static_cast<i8>(numbers.byte());
        randomText(numbers, client->secret);
        randomAddress(numbers, client->server[0]);
        randomAddress(numbers, client->serverIpv6[1]);
    }
}

void randomSnmp(Numbers &numbers, ConfigImage &image) {
    for (Community &community : image.communities) {
        community.inUse = numbers.flag();
        community.active = numbers.flag();
        community.level = static_cast<u8>(numbers.below(6));
        randomText(numbers, community.name);
        randomText(numbers, community.description);
    }
    for (TrapDestination &destination : image.trapDestinations) {
        destination.inUse = numbers.flag();
        randomText(numbers, destination.community);
        randomAddress(numbers, destination.address);
        randomAddress(numbers, destination.addressIpv6);
    }
    image.traps.coldStart = numbers.flag();
    randomBitmap(numbers, image.traps.portLink);
    image.traps.batteryMode = numbers.flag();
    image.poe.traps = numbers.flag();
}

void randomPorts(Numbers &numbers, ConfigImage &image) {
    for (std::size_t i = 0; i < portCount; ++i) {
        image.ports[i].administrativeState = numbers.below(3);
        image.ports[i].speed = numbers.below(5);
        randomText(numbers, image.ports[i].description);
        image.vlanPorts[i].mode = static_cast<u8>(numbers.below(5));
        image.vlanPorts[i].accessVlan = static_cast<std::uint16_t>(numbers.below(4));
        image.lacp.key[i] = static_cast<u8>(numbers.word());
        image.lacp.role[i] = static_cast<u8>(numbers.below(3));
        image.macLearning.off[i] = numbers.below(3);
        image.macLimit.portMaximum[i] = numbers.word();
        image.rateLimits.ingress[i] = numbers.word();
        image.rateLimits.egress[i] = numbers.word();
        image.priority.userPriority[i] = static_cast<u8>(numbers.below(10));
        image.stpPorts.cost[i] = static_cast<std::int32_t>(numbers.word());
        image.stpPorts.pointToPoint[i] = numbers.below(4);
        image.dhcpSnoopingPorts.trust[i] = numbers.flag();
        image.sourceGuard[i] = static_cast<u8>(numbers.below(4));
        image.dot1x.portControl[i] = static_cast<u8>(numbers.below(4));
        image.portFilters.port[i].maxGroups = static_cast<std::uint16_t>(numbers.word());
        image.portFilters.port[i].enabled = static_cast<u8>(numbers.below(3));
        for (Text<24> &profile : image.portFilters.port[i].profile) randomText(numbers, profile);
        randomText(numbers, image.circuitIds.text[i]);
    }
    for (PoePort &port : image.poePorts) {
        randomText(numbers, port.deviceName);
        randomText(numbers, port.scheduleName);
        port.priority = static_cast<u8>(numbers.below(4));
        port.budget = static_cast<std::int32_t>(numbers.word());
    }
    randomBitmap(numbers, image.loopDetection.ports);
    randomBitmap(numbers, image.lldp.ports);
    randomBitmap(numbers, image.rateLimits.egressPorts);
    randomBitmap(numbers, image.mirror.sources);
    randomBitmap(numbers, image.isolation.uplinks);
    randomBitmap(numbers, image.circuitIds.inserted);
    randomBitmap(numbers, image.dhcpSnooping.serverPorts);
    randomBitmap(numbers, image.igmp.routerPorts);
    randomBitmap(numbers, image.pppoe.trusted);
}

void randomTables(Numbers &numbers, ConfigImage &image) {
    for (std::size_t i = 0; i < 20; ++i) {
        TagVlan &vlan = image.tagVlans[i == 19 ? 2076 : i];
        vlan.inUse = i < 6 || numbers.oneIn(2) ? 1 : 0;
        vlan.id = static_cast<std::uint16_t>(numbers.below(5));
        randomText(numbers, vlan.name);
        randomBitmap(numbers, vlan.members);
        MacEntry &entry = image.macTable[numbers.below(128)];
        entry.inUse = numbers.word();
        randomBytes(numbers, entry.address.octets);
        entry.port = numbers.byte();
        SourceGuardEntry &guard = image.sourceGuardTable[numbers.below(48)];
        guard.valid = numbers.flag();
        randomAddress(numbers, guard.address);
        randomAddress(numbers, guard.addressIpv6);
        MulticastEntry &group = image.multicastTable[numbers.below(128)];
        group.valid = numbers.word();
        randomAddress(numbers, group.address);
        randomAddress(numbers, group.addressIpv6);
        MulticastSegment &segment = image.multicastSegments[numbers.below(400)];
        segment.valid = numbers.flag();
        randomText(numbers, segment.name);
        randomAddress(numbers, segment.last);
        MulticastProfile &profile = image.multicastProfiles[numbers.below(60)];
        profile.valid = numbers.flag();
        randomText(numbers, profile.name);
        profile.segments[numbers.below(10)] = static_cast<std::uint16_t>(numbers.word());
        const std::uint32_t id = numbers.below(4096);
        image.igmpVlans.inUse.set(id);
        if (id < 4095) image.igmpVlans.vlan[id].querier = numbers.flag();
    }
    for (PortVlan &vlan : image.portVlans) {
        vlan.inUse = numbers.flag();
        randomText(numbers, vlan.name);
        randomBitmap(numbers, vlan.members);
    }
    for (TrunkGroup &trunk : image.trunks) {
        trunk.inUse = numbers.word();
        randomText(numbers, trunk.name);
        randomBitmap(numbers, trunk.members);
    }
    for (SourceBinding &binding : image.sourceBindings) {
        binding.valid = numbers.flag();
        binding.enabled = numbers.flag();
        randomAddress(numbers, binding.address);
    }
    for (std::size_t i = 0; i < 192; i += 11) {
        AclRule &rule = image.acl[i];
        rule.valid = numbers.flag();
        rule.number = static_cast<std::int32_t>(numbers.oneIn(4) ? numbers.word() : 120 + numbers.below(20));
        rule.action = static_cast<u8>(numbers.below(6));
        rule.actionPort = numbers.byte();
        rule.rateLimit = static_cast<std::int32_t>(numbers.word());
        randomBitmap(numbers, rule.match);
        randomBitmap(numbers, rule.ingressPorts);
        randomText(numbers, rule.tos);
        randomAddress(numbers, rule.source);
        randomAddress(numbers, rule.destinationIpv6);
        randomBytes(numbers, rule.destinationMac.octets);
    }
    for (u8 &queue : image.priority.queueOfDscp) queue = static_cast<u8>(numbers.below(9));
    for (RemarkDscp &entry : image.remarking.dscp) entry = {numbers.byte(), {{numbers.byte()}}, numbers.byte(), 0};
    image.priority.queues.following[numbers.below(864)] = numbers.flag();
}

/// A record of its own for each seed: a current image, and a default image that is another or has some sections of it.
void composeRandom(std::uint32_t seed) {
    resetAll();
    Numbers numbers(seed);
    constexpr void (*areas[])(Numbers &, ConfigImage &) = {randomSystem, randomSnmp, randomPorts, randomTables};
    for (const auto area : areas) area(numbers, *gSysConfig);
    std::memcpy(static_cast<void *>(gDefConfig), gSysConfig, sizeof *gDefConfig);
    for (const auto area : areas)
        if (numbers.oneIn(2)) area(numbers, *gDefConfig);
    g_EEPROM.boardType = numbers.oneIn(3) ? 5027 : 5028;
    g_EEPROM.capabilities = numbers.oneIn(3) ? 0 : 0x110;
    platform.passwordMethod = numbers.oneIn(2) ? 1 : 0;
    platform.md5 = [](const char *password, char *md5) { std::strcpy(md5, password[0] == '\0' ? "" : "d41d8cd98f"); };
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
