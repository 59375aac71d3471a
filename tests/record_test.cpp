/// The layout of the records: raw bytes are stored at the offsets that the switch uses, and read through the types.
#include "rows.h"

#include "platform/util.h"

#include <cstring>
#include <iterator>
#include <sstream>

namespace {

// ----------------------------------------------------------------------------------------------------------- read back

std::string shown(u8 number) { return std::to_string(number); }
std::string shown(i8 number) { return std::to_string(number); }
std::string shown(be16 number) { return std::to_string(number.value()); }
std::string shown(be32 number) { return std::to_string(number.value()); }
std::string shown(be_i32 number) { return std::to_string(number.value()); }

std::string shownBytes(const u8 *bytes, std::size_t size) {
    std::string text;
    char two[4];
    for (std::size_t i = 0; i < size; ++i) {
        std::snprintf(two, sizeof two, "%02x", bytes[i]);
        text += two;
    }
    return text;
}
std::string shown(const Mac &address) { return shownBytes(address.octets, sizeof address.octets); }
std::string shown(const Ipv4 &address) { return shownBytes(address.octets, sizeof address.octets); }
std::string shown(const Ipv6 &address) { return shownBytes(address.octets, sizeof address.octets); }
std::string shown(const u8 (&bytes)[2]) { return shownBytes(bytes, 2); }

template <std::size_t Width> std::string shown(const Text<Width> &text) {
    return {text.characters, strnlen(text.characters, Width)};
}

template <std::size_t Bytes> std::string shown(const Bitmap<Bytes> &bitmap) {
    std::string text;
    for (int bit = 0; bit < static_cast<int>(Bytes) * 8; ++bit)
        if (utilBitmapCheck(bitmap.bytes, bit) == 1) text += " " + std::to_string(bit);
    return text;
}

/// What is stored, and what must be read.
struct Sample {
    std::string bytes;
    std::string text;
};

std::string bytes(std::initializer_list<int> values) {
    std::string text;
    for (const int value : values) text += static_cast<char>(value);
    return text;
}

/// How a sample is made. The table of fields is long, and a constant: that compiles in a fraction of the time.
struct SampleOf {
    Sample (*make)(std::size_t size);
    std::size_t size;
};

constexpr SampleOf u8s = {[](std::size_t) { return Sample{bytes({0xc8}), "200"}; }, 1};
constexpr SampleOf i8s = {[](std::size_t) { return Sample{bytes({0x9c}), "-100"}; }, 1};
constexpr SampleOf u16s = {[](std::size_t) { return Sample{bytes({0xfe, 0xdc}), "65244"}; }, 2};
constexpr SampleOf u32s = {[](std::size_t) { return Sample{bytes({0xfe, 0xdc, 0xba, 0x98}), "4275878552"}; }, 4};
constexpr SampleOf i32s = {[](std::size_t) { return Sample{bytes({0xfe, 0xdc, 0xba, 0x98}), "-19088744"}; }, 4};
constexpr SampleOf pair = {[](std::size_t) { return Sample{bytes({0xab, 0x0c}), "ab0c"}; }, 2};
constexpr SampleOf mac = {[](std::size_t) {
                              return Sample{bytes({0x0a, 0x1b, 0x2c, 0x3d, 0x4e, 0x5f}), "0a1b2c3d4e5f"};
                          },
                          6};
constexpr SampleOf ipv4 = {[](std::size_t) { return Sample{bytes({192, 0, 2, 7}), "c0000207"}; }, 4};
constexpr SampleOf ipv6 = {[](std::size_t) {
                               return Sample{bytes({0x20, 0x01, 0x0d, 0xb8, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}),
                                             "20010db80102030405060708090a0b0c"};
                           },
                           16};

/// A text that fills its field.
constexpr SampleOf text(std::size_t width) {
    return {[](std::size_t size) { return Sample{letters(size), letters(size)}; }, width};
}

/// A set whose first byte holds bit 1 and whose last byte holds its last bit.
constexpr SampleOf set(std::size_t size) {
    return {[](std::size_t count) {
                Sample sample = {std::string(count, '\0'), " 1 " + std::to_string(count * 8 - 1)};
                sample.bytes[0] = 2;
                sample.bytes[count - 1] = static_cast<char>(0x80);
                return sample;
            },
            size};
}

template <class Record> struct Field {
    const char *name;
    std::size_t offset;
    SampleOf sample;
    std::string (*read)(const Record &record);
};

template <class Record> void expectField(const Field<Record> &field) {
    static Record record;
    const Sample sample = field.sample.make(field.sample.size);
    ASSERT_EQ(field.sample.size, sample.bytes.size());
    ASSERT_LE(field.offset + sample.bytes.size(), sizeof record);
    for (const int around : {0x00, 0xff, 0x7a}) { // what lies around the field must not be read
        std::memset(static_cast<void *>(&record), around, sizeof record);
        std::memcpy(reinterpret_cast<unsigned char *>(&record) + field.offset, sample.bytes.data(),
                    sample.bytes.size());
        EXPECT_EQ(sample.text, field.read(record)) << field.name << " at " << field.offset;
    }
}

#define IMAGE(offset, sample, field)                                                                                   \
    {                                                                                                                  \
#field, offset, sample, [](const ConfigImage &image) { return shown(image.field); }                            \
    }
#define BOARD(offset, sample, field)                                                                                   \
    {                                                                                                                  \
#field, offset, sample, [](const BoardRecord &board) { return shown(board.field); }                            \
    }

// ------------------------------------------------------------------------------------------------------------ sections

TEST(Layout, Sections) {
    EXPECT_EQ(262144U, sizeof(ConfigImage));
    EXPECT_EQ(244U, sizeof(BoardRecord));
    const struct {
        const char *name;
        std::size_t expected;
        std::size_t offset;
    } sections[] = {
#define SECTION(offset, field) {#field, offset, offsetof(ConfigImage, field)}
        SECTION(0, time),
        SECTION(376, ipv4),
        SECTION(492, ipv6),
        SECTION(696, company),
        SECTION(1612, service),
        SECTION(1632, console),
        SECTION(1724, users),
        SECTION(4776, ports),
        SECTION(7856, vlanMode),
        SECTION(7862, vlanPorts),
        SECTION(8216, portVlans),
        SECTION(8860, tagVlans),
        SECTION(121028, lacp),
        SECTION(121120, trunks),
        SECTION(121512, distribution),
        SECTION(121556, macTable),
        SECTION(124628, macLearning),
        SECTION(124744, macLimit),
        SECTION(125092, mirror),
        SECTION(125404, loopDetection),
        SECTION(125424, rateLimits),
        SECTION(126116, storm),
        SECTION(126280, dhcpSnooping),
        SECTION(126372, switchConfig),
        SECTION(126432, communities),
        SECTION(127724, trapDestinations),
        SECTION(128244, traps),
        SECTION(128284, priority),
        SECTION(129356, remarking),
        SECTION(129424, qinq),
        SECTION(129624, igmp),
        SECTION(129656, igmpVlans),
        SECTION(146552, log),
        SECTION(146624, radius),
        SECTION(146760, stp),
        SECTION(146808, stpPorts),
        SECTION(147404, dhcpSnoopingPorts),
        SECTION(147488, sourceGuard),
        SECTION(147520, sourceGuardTable),
        SECTION(149440, circuitIds),
        SECTION(151360, ipSource),
        SECTION(151362, sourceBindings),
        SECTION(151592, multicastTable),
        SECTION(156712, multicastSegments),
        SECTION(174312, multicastProfiles),
        SECTION(177432, portFilters),
        SECTION(180296, lldp),
        SECTION(180314, dot1x),
        SECTION(180414, poe),
        SECTION(180428, acl),
        SECTION(202700, isolation),
        SECTION(202712, statisticsPolling),
        SECTION(202720, tacacs),
        SECTION(202992, timeRanges),
        SECTION(205032, poePorts),
        SECTION(206956, pppoe),
        SECTION(206964, logTerminalHistory),
        SECTION(207004, cpuLoadingThreshold),
        SECTION(207008, backup),
#undef SECTION
    };
    for (const auto &section : sections) EXPECT_EQ(section.expected, section.offset) << section.name;
}

TEST(Layout, TablesHaveTheirEntries) {
    static ConfigImage image;
    EXPECT_EQ(10U, std::size(image.users));
    EXPECT_EQ(28U, std::size(image.ports));
    EXPECT_EQ(28U, std::size(image.vlanPorts));
    EXPECT_EQ(28U, std::size(image.portVlans));
    EXPECT_EQ(2077U, std::size(image.tagVlans));
    EXPECT_EQ(28U, std::size(image.lacp.enabled));
    EXPECT_EQ(28U, std::size(image.lacp.key));
    EXPECT_EQ(28U, std::size(image.lacp.role));
    EXPECT_EQ(14U, std::size(image.trunks));
    EXPECT_EQ(128U, std::size(image.macTable));
    EXPECT_EQ(28U, std::size(image.macLearning.off));
    EXPECT_EQ(116U, sizeof image.macLearning);
    EXPECT_EQ(28U, std::size(image.macLimit.portEnabled));
    EXPECT_EQ(28U, std::size(image.macLimit.portMaximum));
    EXPECT_EQ(4U, std::size(image.loopDetection.vlans));
    EXPECT_EQ(28U, std::size(image.rateLimits.ingress));
    EXPECT_EQ(28U, std::size(image.rateLimits.egress));
    EXPECT_EQ(4U, std::size(image.dhcpSnooping.servers));
    EXPECT_EQ(10U, std::size(image.communities));
    EXPECT_EQ(10U, std::size(image.trapDestinations));
    EXPECT_EQ(40U, sizeof image.traps);
    EXPECT_EQ(8U, std::size(image.priority.queueOf8021p));
    EXPECT_EQ(64U, std::size(image.priority.queueOfDscp));
    EXPECT_EQ(28U, std::size(image.priority.userPriority));
    EXPECT_EQ(8U, std::size(image.priority.queues.weight));
    EXPECT_EQ(896U, sizeof image.priority.queues);
    EXPECT_EQ(8U, std::size(image.remarking.priority));
    EXPECT_EQ(8U, std::size(image.remarking.dscp));
    EXPECT_EQ(4095U, std::size(image.igmpVlans.vlan));
    EXPECT_EQ(3U, std::size(image.log.server));
    EXPECT_EQ(3U, std::size(image.log.serverIpv6));
    EXPECT_EQ(2U, std::size(image.radius.server));
    EXPECT_EQ(2U, std::size(image.radius.serverIpv6));
    EXPECT_EQ(28U, std::size(image.stpPorts.enabled));
    EXPECT_EQ(28U, std::size(image.stpPorts.cost));
    EXPECT_EQ(28U, std::size(image.stpPorts.priority));
    EXPECT_EQ(28U, std::size(image.stpPorts.edge));
    EXPECT_EQ(28U, std::size(image.stpPorts.pointToPoint));
    EXPECT_EQ(28U, std::size(image.dhcpSnoopingPorts.portOption));
    EXPECT_EQ(28U, std::size(image.dhcpSnoopingPorts.trust));
    EXPECT_EQ(28U, std::size(image.sourceGuard));
    EXPECT_EQ(48U, std::size(image.sourceGuardTable));
    EXPECT_EQ(28U, std::size(image.circuitIds.text));
    EXPECT_EQ(12U, std::size(image.sourceBindings));
    EXPECT_EQ(128U, std::size(image.multicastTable));
    EXPECT_EQ(400U, std::size(image.multicastSegments));
    EXPECT_EQ(60U, std::size(image.multicastProfiles));
    EXPECT_EQ(10U, std::size(image.multicastProfiles[0].segments));
    EXPECT_EQ(28U, std::size(image.portFilters.port));
    EXPECT_EQ(4U, std::size(image.portFilters.port[0].profile));
    EXPECT_EQ(28U, std::size(image.dot1x.portControl));
    EXPECT_EQ(192U, std::size(image.acl));
    EXPECT_EQ(10U, std::size(image.timeRanges));
    EXPECT_EQ(2U, std::size(image.timeRanges[0].periodic));
    EXPECT_EQ(2U, std::size(image.timeRanges[0].list));
    EXPECT_EQ(24U, std::size(image.poePorts));
    EXPECT_EQ(28, portCount);
    EXPECT_EQ(24, poePortCount);
    EXPECT_EQ(28, cpuPort);
}

TEST(Layout, WidthsThatComparisonsTake) {
    EXPECT_EQ(36U, User::comparedDescription);
    EXPECT_EQ(104U, User::comparedHead);
    EXPECT_EQ(36U, Community::comparedDescription);
    EXPECT_EQ(31U, Dot1xConfig::comparedSecret);
}

// -------------------------------------------------------------------------------------------------------------- fields

/// Every field that the program reads: where it lies, counted from the section's place, and what is read there. Of a
/// table the first and the last entry.
constexpr Field<ConfigImage> fields[] = {
    IMAGE(0 + 0, u32s, time.ntpEnabled),
    IMAGE(0 + 4, i32s, time.syncInterval),
    IMAGE(0 + 8, ipv4, time.server1),
    IMAGE(0 + 73, ipv4, time.server2),
    IMAGE(0 + 172, i32s, time.timeZone),
    IMAGE(0 + 180, u32s, time.daylightSaving),
    IMAGE(0 + 184, text(32), time.offset),
    IMAGE(0 + 216, ipv6, time.server1Ipv6),
    IMAGE(0 + 281, ipv6, time.server2Ipv6),

    IMAGE(376 + 0, u8s, ipv4.enabled),
    IMAGE(376 + 1, ipv4, ipv4.address),
    IMAGE(376 + 5, ipv4, ipv4.mask),
    IMAGE(376 + 9, ipv4, ipv4.gateway),
    IMAGE(376 + 19, u8s, ipv4.dhcpMode),

    IMAGE(492 + 0, u8s, ipv6.enabled),
    IMAGE(492 + 1, u8s, ipv6.autoconfiguration),
    IMAGE(492 + 2, u8s, ipv6.dhcpMode),
    IMAGE(492 + 3, u8s, ipv6.rapidCommit),
    IMAGE(492 + 4, ipv6, ipv6.linkLocal),
    IMAGE(492 + 20, u8s, ipv6.linkLocalPrefixLength),
    IMAGE(492 + 21, ipv6, ipv6.global),
    IMAGE(492 + 37, u8s, ipv6.globalPrefixLength),
    IMAGE(492 + 38, ipv6, ipv6.gateway),

    IMAGE(696 + 0, text(120), company.companyName),
    IMAGE(696 + 120, text(56), company.systemContact),
    IMAGE(696 + 176, text(56), company.systemName),
    IMAGE(696 + 232, text(56), company.systemLocation),
    IMAGE(696 + 288, text(32), company.hostName),
    IMAGE(696 + 320, text(1612 - 696 - 320), company.dhcpVendorId),

    IMAGE(1612 + 4, u32s, service.remoteLogin),
    IMAGE(1612 + 9, u8s, service.snmpEnabled),
    IMAGE(1612 + 10, u8s, service.webEnabled),
    IMAGE(1612 + 68, i32s, console.webTimeout),

    IMAGE(1632 + 4, i32s, console.telnetPort),
    IMAGE(1632 + 12, i32s, console.timeout),
    IMAGE(1632 + 44, u32s, console.timeoutInMinutes),

    IMAGE(1724 + 0, u8s, users[0].active),
    IMAGE(1724 + 1, u8s, users[0].inUse),
    IMAGE(1724 + 4, text(24), users[0].name),
    IMAGE(1724 + 28, text(24), users[0].password),
    IMAGE(1724 + 52, text(24), users[0].passwordMd5),
    IMAGE(1724 + 76, text(48), users[0].description),
    IMAGE(1724 + 124, u8s, users[0].level),
    IMAGE(1724 + 9 * 152 + 0, u8s, users[9].active),
    IMAGE(1724 + 9 * 152 + 124, u8s, users[9].level),

    IMAGE(4776 + 0, u32s, ports[0].administrativeState),
    IMAGE(4776 + 4, u32s, ports[0].mediaType),
    IMAGE(4776 + 8, u32s, ports[0].autoNegotiation),
    IMAGE(4776 + 12, u32s, ports[0].speed),
    IMAGE(4776 + 16, u32s, ports[0].duplex),
    IMAGE(4776 + 20, u32s, ports[0].flowControl),
    IMAGE(4776 + 24, text(36), ports[0].description),
    IMAGE(6828 + 0, u32s, ports[27].administrativeState),
    IMAGE(6828 + 24, text(36), ports[27].description),

    IMAGE(7856, u8s, vlanMode),
    IMAGE(7862 + 1, u8s, vlanPorts[0].mode),
    IMAGE(7862 + 4, u16s, vlanPorts[0].accessVlan),
    IMAGE(7862 + 27 * 12 + 1, u8s, vlanPorts[27].mode),
    IMAGE(7862 + 27 * 12 + 4, u16s, vlanPorts[27].accessVlan),
    IMAGE(8216 + 0, u8s, portVlans[0].inUse),
    IMAGE(8216 + 1, text(16), portVlans[0].name),
    IMAGE(8216 + 17, set(5), portVlans[0].members),
    IMAGE(8216 + 27 * 22 + 0, u8s, portVlans[27].inUse),
    IMAGE(8216 + 27 * 22 + 17, set(5), portVlans[27].members),
    IMAGE(8860 + 0, u8s, tagVlans[0].inUse),
    IMAGE(8860 + 1, set(4), tagVlans[0].members),
    IMAGE(8860 + 6, u16s, tagVlans[0].id),
    IMAGE(8860 + 8, text(46), tagVlans[0].name),
    IMAGE(8860 + 2076 * 54 + 0, u8s, tagVlans[2076].inUse),
    IMAGE(8860 + 2076 * 54 + 8, text(46), tagVlans[2076].name),

    IMAGE(121028 + 4, u8s, lacp.enabled[0]),
    IMAGE(121028 + 31, u8s, lacp.enabled[27]),
    IMAGE(121028 + 32, u8s, lacp.key[0]),
    IMAGE(121028 + 59, u8s, lacp.key[27]),
    IMAGE(121028 + 60, u8s, lacp.role[0]),
    IMAGE(121028 + 87, u8s, lacp.role[27]),
    IMAGE(121120 + 0, u32s, trunks[0].inUse),
    IMAGE(121120 + 4, text(16), trunks[0].name),
    IMAGE(121120 + 20, set(8), trunks[0].members),
    IMAGE(121120 + 13 * 28 + 0, u32s, trunks[13].inUse),
    IMAGE(121120 + 13 * 28 + 20, set(8), trunks[13].members),
    IMAGE(121512 + 0, u32s, distribution.sourceMac),
    IMAGE(121512 + 4, u32s, distribution.destinationMac),
    IMAGE(121512 + 8, u32s, distribution.sourceIp),
    IMAGE(121512 + 12, u32s, distribution.destinationIp),
    IMAGE(121512 + 16, u32s, distribution.sourceL4Port),
    IMAGE(121512 + 20, u32s, distribution.destinationL4Port),
    IMAGE(121556 + 0, u32s, macTable[0].inUse),
    IMAGE(121556 + 4, mac, macTable[0].address),
    IMAGE(121556 + 10, u8s, macTable[0].port),
    IMAGE(121556 + 12, u32s, macTable[0].vlan),
    IMAGE(121556 + 127 * 24 + 0, u32s, macTable[127].inUse),
    IMAGE(121556 + 127 * 24 + 12, u32s, macTable[127].vlan),
    IMAGE(124628 + 0, u32s, macLearning.off[0]),
    IMAGE(124628 + 108, u32s, macLearning.off[27]),
    IMAGE(124628 + 112, u32s, macLearning.following),
    IMAGE(124744 + 0, u32s, macLimit.enabled),
    IMAGE(124744 + 4, u32s, macLimit.portEnabled[0]),
    IMAGE(124744 + 112, u32s, macLimit.portEnabled[27]),
    IMAGE(124744 + 116, u32s, macLimit.portMaximum[0]),
    IMAGE(124744 + 224, u32s, macLimit.portMaximum[27]),
    IMAGE(124744 + 344, i32s, macLimit.notificationInterval),
    IMAGE(125092 + 4, u32s, mirror.destinationSet),
    IMAGE(125092 + 8, u32s, mirror.destinationPort),
    IMAGE(125092 + 12, set(4), mirror.sources),
    IMAGE(125404 + 0, u8s, loopDetection.enabled),
    IMAGE(125404 + 1, set(4), loopDetection.ports),
    IMAGE(125404 + 6, u16s, loopDetection.interval),
    IMAGE(125404 + 8, u16s, loopDetection.unlockInterval),
    IMAGE(125404 + 10, u16s, loopDetection.vlans[0]),
    IMAGE(125404 + 16, u16s, loopDetection.vlans[3]),
    IMAGE(125404 + 18, u8s, loopDetection.allVlans),

    IMAGE(125424 + 4, u32s, rateLimits.ingress[0]),
    IMAGE(125424 + 112, u32s, rateLimits.ingress[27]),
    IMAGE(125424 + 116, u32s, rateLimits.egress[0]),
    IMAGE(125424 + 224, u32s, rateLimits.egress[27]),
    IMAGE(125424 + 228, set(4), rateLimits.ingressPorts),
    IMAGE(125424 + 232, set(4), rateLimits.egressPorts),
    IMAGE(126116 + 140, u32s, storm.broadcast),
    IMAGE(126116 + 144, u32s, storm.multicast),
    IMAGE(126116 + 148, u32s, storm.unicast),
    IMAGE(126116 + 160, i32s, storm.notificationInterval),
    IMAGE(126280 + 0, u8s, dhcpSnooping.enabled),
    IMAGE(126280 + 1, set(4), dhcpSnooping.serverPorts),
    IMAGE(126280 + 6, u16s, dhcpSnooping.initiated),
    IMAGE(126280 + 8, i32s, dhcpSnooping.leased),
    IMAGE(126280 + 16, ipv6, dhcpSnooping.servers[0]),
    IMAGE(126280 + 64, ipv6, dhcpSnooping.servers[3]),
    IMAGE(126280 + 84, u8s, dhcpSnooping.checkServerAddress),
    IMAGE(126372 + 0, i32s, switchConfig.mtu),
    IMAGE(126372 + 4, i32s, switchConfig.macAgingTime),
    IMAGE(126372 + 48, u8s, switchConfig.blockBpdu20to2F),
    IMAGE(126372 + 49, u8s, switchConfig.blockBpdu00to0F),
    IMAGE(126372 + 50, u8s, switchConfig.blockBpdu10),
    IMAGE(126372 + 52, i32s, switchConfig.terminalLength),

    IMAGE(126432 + 0, u8s, communities[0].inUse),
    IMAGE(126432 + 1, u8s, communities[0].active),
    IMAGE(126432 + 2, text(24), communities[0].name),
    IMAGE(126432 + 26, text(57), communities[0].description),
    IMAGE(126432 + 83, u8s, communities[0].level),
    IMAGE(126432 + 9 * 104 + 0, u8s, communities[9].inUse),
    IMAGE(126432 + 9 * 104 + 83, u8s, communities[9].level),
    IMAGE(127724 + 0, u8s, trapDestinations[0].inUse),
    IMAGE(127724 + 1, u8s, trapDestinations[0].active),
    IMAGE(127724 + 2, text(24), trapDestinations[0].community),
    IMAGE(127724 + 26, ipv4, trapDestinations[0].address),
    IMAGE(127724 + 30, ipv6, trapDestinations[0].addressIpv6),
    IMAGE(127724 + 9 * 52 + 0, u8s, trapDestinations[9].inUse),
    IMAGE(127724 + 9 * 52 + 30, ipv6, trapDestinations[9].addressIpv6),
    IMAGE(128244 + 0, u8s, traps.coldStart),
    IMAGE(128244 + 1, u8s, traps.warmStart),
    IMAGE(128244 + 2, u8s, traps.authFail),
    IMAGE(128244 + 4, set(20), traps.portLink),
    IMAGE(128244 + 24, u8s, traps.caseFan),
    IMAGE(128244 + 27, u8s, traps.batteryMode),
    IMAGE(128244 + 30, u8s, traps.cpuLoad),
    IMAGE(128244 + 36, u8s, traps.macLimit),
    IMAGE(128244 + 37, u8s, traps.stormControl),
    IMAGE(128244 + 38, u8s, traps.autoBackup),

    IMAGE(128284 + 0, u32s, priority.mode),
    IMAGE(128284 + 4, u32s, priority.queuingMode),
    IMAGE(128284 + 37, u8s, priority.queueOf8021p[0]),
    IMAGE(128284 + 44, u8s, priority.queueOf8021p[7]),
    IMAGE(128284 + 45, u8s, priority.queueOfDscp[0]),
    IMAGE(128284 + 108, u8s, priority.queueOfDscp[63]),
    IMAGE(128284 + 137, u8s, priority.userPriority[0]),
    IMAGE(128284 + 164, u8s, priority.userPriority[27]),
    IMAGE(128284 + 165, u8s, priority.managementPriority),
    IMAGE(128284 + 172, i32s, priority.queues.weight[0]),
    IMAGE(128284 + 200, i32s, priority.queues.weight[7]),
    IMAGE(128284 + 204, u8s, priority.queues.following[0]),
    IMAGE(128284 + 1067, u8s, priority.queues.following[863]),
    IMAGE(129356 + 0, u8s, remarking.dscpMode),
    IMAGE(129356 + 1, u8s, remarking.remark8021p),
    IMAGE(129356 + 4, u8s, remarking.priority[0].marker),
    IMAGE(129356 + 7, u8s, remarking.priority[0].newPriority),
    IMAGE(129356 + 32, u8s, remarking.priority[7].marker),
    IMAGE(129356 + 35, u8s, remarking.priority[7].newPriority),
    IMAGE(129356 + 36, u8s, remarking.dscp[0].marker),
    IMAGE(129356 + 38, u8s, remarking.dscp[0].receivedDscp),
    IMAGE(129356 + 39, u8s, remarking.dscp[0].newDscp),
    IMAGE(129356 + 64, u8s, remarking.dscp[7].marker),
    IMAGE(129356 + 66, u8s, remarking.dscp[7].receivedDscp),
    IMAGE(129356 + 67, u8s, remarking.dscp[7].newDscp),
    IMAGE(129424 + 36, u32s, qinq.ethertype),

    IMAGE(129624 + 0, u8s, igmp.enabled),
    IMAGE(129624 + 2, u16s, igmp.maxResponseTime),
    IMAGE(129624 + 4, u16s, igmp.queryInterval),
    IMAGE(129624 + 7, u8s, igmp.immediateLeave),
    IMAGE(129624 + 8, set(4), igmp.routerPorts),
    IMAGE(129624 + 12, u8s, igmp.flooding),
    IMAGE(129624 + 16, u32s, igmp.version3),
    IMAGE(129656 + 1, set(512), igmpVlans.inUse),
    IMAGE(129656 + 516, u8s, igmpVlans.vlan[0].snooping),
    IMAGE(129656 + 517, u8s, igmpVlans.vlan[0].querier),
    IMAGE(129656 + 516 + 4 * 4094, u8s, igmpVlans.vlan[4094].snooping),
    IMAGE(129656 + 517 + 4 * 4094, u8s, igmpVlans.vlan[4094].querier),

    IMAGE(146552 + 0, u8s, log.enabled),
    IMAGE(146552 + 2, ipv4, log.server[0]),
    IMAGE(146552 + 6, ipv4, log.server[1]),
    IMAGE(146552 + 10, ipv4, log.server[2]),
    IMAGE(146552 + 20, ipv6, log.serverIpv6[0]),
    IMAGE(146552 + 36, ipv6, log.serverIpv6[1]),
    IMAGE(146552 + 52, ipv6, log.serverIpv6[2]),
    IMAGE(146624 + 0, u32s, radius.enabled),
    IMAGE(146624 + 4, text(32), radius.secret),
    IMAGE(146624 + 36, i32s, radius.port),
    IMAGE(146624 + 40, i8s, radius.retryTime),
    IMAGE(146624 + 41, ipv4, radius.server[0]),
    IMAGE(146624 + 45, ipv4, radius.server[1]),
    IMAGE(146624 + 49, ipv6, radius.serverIpv6[0]),
    IMAGE(146624 + 65, ipv6, radius.serverIpv6[1]),
    IMAGE(146760 + 0, i32s, stp.priority),
    IMAGE(146760 + 4, i32s, stp.maxAge),
    IMAGE(146760 + 8, i32s, stp.helloTime),
    IMAGE(146760 + 12, i32s, stp.forwardDelay),
    IMAGE(146760 + 16, u32s, stp.version),
    IMAGE(146760 + 24, u32s, stp.aggregated),
    IMAGE(146760 + 28, i32s, stp.aggregatedCost),
    IMAGE(146760 + 32, i32s, stp.aggregatedPriority),
    IMAGE(146760 + 36, u32s, stp.aggregatedEdge),
    IMAGE(146760 + 40, u32s, stp.aggregatedPointToPoint),
    IMAGE(146808 + 0, u32s, stpPorts.enabled[0]),
    IMAGE(146808 + 108, u32s, stpPorts.enabled[27]),
    IMAGE(146808 + 112, i32s, stpPorts.cost[0]),
    IMAGE(146808 + 220, i32s, stpPorts.cost[27]),
    IMAGE(146808 + 224, i32s, stpPorts.priority[0]),
    IMAGE(146808 + 332, i32s, stpPorts.priority[27]),
    IMAGE(146808 + 336, u32s, stpPorts.edge[0]),
    IMAGE(146808 + 444, u32s, stpPorts.edge[27]),
    IMAGE(146808 + 448, u32s, stpPorts.pointToPoint[0]),
    IMAGE(146808 + 556, u32s, stpPorts.pointToPoint[27]),

    IMAGE(147404 + 0, u32s, dhcpSnoopingPorts.option),
    IMAGE(147404 + 4, u8s, dhcpSnoopingPorts.portOption[0]),
    IMAGE(147404 + 31, u8s, dhcpSnoopingPorts.portOption[27]),
    IMAGE(147404 + 32, u8s, dhcpSnoopingPorts.trust[0]),
    IMAGE(147404 + 59, u8s, dhcpSnoopingPorts.trust[27]),
    IMAGE(147488 + 0, u8s, sourceGuard[0]),
    IMAGE(147488 + 27, u8s, sourceGuard[27]),
    IMAGE(147520 + 0, u8s, sourceGuardTable[0].valid),
    IMAGE(147520 + 1, ipv4, sourceGuardTable[0].address),
    IMAGE(147520 + 10, u16s, sourceGuardTable[0].vlan),
    IMAGE(147520 + 12, u8s, sourceGuardTable[0].port),
    IMAGE(147520 + 20, ipv6, sourceGuardTable[0].addressIpv6),
    IMAGE(147520 + 47 * 40 + 0, u8s, sourceGuardTable[47].valid),
    IMAGE(147520 + 47 * 40 + 20, ipv6, sourceGuardTable[47].addressIpv6),
    IMAGE(149440, set(4), circuitIds.inserted),
    IMAGE(149444, text(64), circuitIds.text[0]),
    IMAGE(149444 + 27 * 64, text(64), circuitIds.text[27]),
    IMAGE(151236, u8s, circuitIds.remoteInserted),
    IMAGE(151237, text(64), circuitIds.remoteId),
    IMAGE(151301, set(4), circuitIds.formatted),
    IMAGE(151305, u8s, circuitIds.remoteFormatted),
    IMAGE(151360, u8s, ipSource),
    IMAGE(151362 + 0, u8s, sourceBindings[0].valid),
    IMAGE(151362 + 1, u8s, sourceBindings[0].enabled),
    IMAGE(151362 + 2, ipv6, sourceBindings[0].address),
    IMAGE(151362 + 11 * 19 + 0, u8s, sourceBindings[11].valid),
    IMAGE(151362 + 11 * 19 + 2, ipv6, sourceBindings[11].address),

    IMAGE(151592 + 0, u32s, multicastTable[0].valid),
    IMAGE(151592 + 4, ipv4, multicastTable[0].address),
    IMAGE(151592 + 8, u8s, multicastTable[0].port),
    IMAGE(151592 + 12, i32s, multicastTable[0].vlan),
    IMAGE(151592 + 16, ipv6, multicastTable[0].addressIpv6),
    IMAGE(151592 + 127 * 40 + 0, u32s, multicastTable[127].valid),
    IMAGE(151592 + 127 * 40 + 16, ipv6, multicastTable[127].addressIpv6),
    IMAGE(156712 + 0, u8s, multicastSegments[0].valid),
    IMAGE(156712 + 2, u16s, multicastSegments[0].id),
    IMAGE(156712 + 4, text(24), multicastSegments[0].name),
    IMAGE(156712 + 28, ipv4, multicastSegments[0].first),
    IMAGE(156712 + 32, ipv4, multicastSegments[0].last),
    IMAGE(156712 + 399 * 44 + 0, u8s, multicastSegments[399].valid),
    IMAGE(156712 + 399 * 44 + 32, ipv4, multicastSegments[399].last),
    IMAGE(174312 + 0, u8s, multicastProfiles[0].valid),
    IMAGE(174312 + 1, text(25), multicastProfiles[0].name),
    IMAGE(174312 + 26, u16s, multicastProfiles[0].segments[0]),
    IMAGE(174312 + 44, u16s, multicastProfiles[0].segments[9]),
    IMAGE(174312 + 59 * 52 + 0, u8s, multicastProfiles[59].valid),
    IMAGE(174312 + 59 * 52 + 44, u16s, multicastProfiles[59].segments[9]),
    IMAGE(177432, u8s, portFilters.filterSwitch()),
    IMAGE(177432, u8s, portFilters.port[0].filterSwitch),
    IMAGE(177432 + 2, text(24), portFilters.port[0].profile[0]),
    IMAGE(177432 + 2 + 24, text(24), portFilters.port[0].profile[1]),
    IMAGE(177432 + 2 + 24 * 3, text(24), portFilters.port[0].profile[3]),
    IMAGE(177432 + 98, u16s, portFilters.port[0].maxGroups),
    IMAGE(177432 + 100, u8s, portFilters.port[0].enabled),
    IMAGE(177432 + 27 * 102 + 2, text(24), portFilters.port[27].profile[0]),
    IMAGE(177432 + 27 * 102 + 98, u16s, portFilters.port[27].maxGroups),
    IMAGE(177432 + 27 * 102 + 100, u8s, portFilters.port[27].enabled),

    IMAGE(180296 + 0, set(4), lldp.ports),
    IMAGE(180296 + 4, u16s, lldp.holdTime),
    IMAGE(180296 + 6, u16s, lldp.interval),
    IMAGE(180296 + 8, u16s, lldp.packets),
    IMAGE(180296 + 12, u8s, lldp.portDescription),
    IMAGE(180296 + 13, u8s, lldp.systemName),
    IMAGE(180296 + 14, u8s, lldp.systemDescription),
    IMAGE(180296 + 15, u8s, lldp.capability),
    IMAGE(180296 + 16, u8s, lldp.managementAddress),
    IMAGE(180314 + 0, u8s, dot1x.enabled),
    IMAGE(180314 + 1, ipv4, dot1x.server),
    IMAGE(180314 + 5, text(33), dot1x.secret),
    IMAGE(180314 + 38, u8s, dot1x.reauthentication),
    IMAGE(180314 + 40, u16s, dot1x.reauthPeriod),
    IMAGE(180314 + 42, u8s, dot1x.timeout),
    IMAGE(180314 + 43, u8s, dot1x.portControl[0]),
    IMAGE(180314 + 70, u8s, dot1x.portControl[27]),
    IMAGE(180414 + 0, u8s, poe.enabled),
    IMAGE(180414 + 8, u8s, poe.fixedBudget),
    IMAGE(180414 + 9, u8s, poe.traps),
    IMAGE(180414 + 10, u8s, poe.eventLog),
    IMAGE(180414 + 11, u8s, poe.syslog),
    IMAGE(180414 + 12, u8s, poe.alarmThreshold),

    IMAGE(180428 + 0, i32s, acl[0].number),
    IMAGE(180428 + 4, set(4), acl[0].ingressPorts),
    IMAGE(180428 + 8, pair, acl[0].etherType),
    IMAGE(180428 + 10, u16s, acl[0].vlan),
    IMAGE(180428 + 12, mac, acl[0].sourceMac),
    IMAGE(180428 + 18, mac, acl[0].sourceMacMask),
    IMAGE(180428 + 24, mac, acl[0].destinationMac),
    IMAGE(180428 + 30, mac, acl[0].destinationMacMask),
    IMAGE(180428 + 36, text(3), acl[0].tos),
    IMAGE(180428 + 39, text(3), acl[0].protocol),
    IMAGE(180428 + 42, ipv4, acl[0].source),
    IMAGE(180428 + 46, ipv4, acl[0].sourceMask),
    IMAGE(180428 + 50, ipv4, acl[0].destination),
    IMAGE(180428 + 54, ipv4, acl[0].destinationMask),
    IMAGE(180428 + 58, ipv6, acl[0].sourceIpv6),
    IMAGE(180428 + 74, u8s, acl[0].sourcePrefixLength),
    IMAGE(180428 + 75, ipv6, acl[0].destinationIpv6),
    IMAGE(180428 + 91, u8s, acl[0].destinationPrefixLength),
    IMAGE(180428 + 92, u16s, acl[0].sourceL4Port),
    IMAGE(180428 + 94, pair, acl[0].sourceL4Mask),
    IMAGE(180428 + 96, u16s, acl[0].destinationL4Port),
    IMAGE(180428 + 98, pair, acl[0].destinationL4Mask),
    IMAGE(180428 + 100, u8s, acl[0].action),
    IMAGE(180428 + 101, u8s, acl[0].actionPort),
    IMAGE(180428 + 104, i32s, acl[0].rateLimit),
    IMAGE(180428 + 108, u8s, acl[0].valid),
    IMAGE(180428 + 110, set(2), acl[0].match),
    IMAGE(180428 + 191 * 116 + 0, i32s, acl[191].number),
    IMAGE(180428 + 191 * 116 + 110, set(2), acl[191].match),

    IMAGE(202700 + 0, u8s, isolation.enabled),
    IMAGE(202700 + 1, set(4), isolation.uplinks),
    IMAGE(202712 + 0, i32s, statisticsPolling.interval),
    IMAGE(202712 + 4, i32s, statisticsPolling.ports),
    IMAGE(202720 + 0, u32s, tacacs.enabled),
    IMAGE(202720 + 4, text(32), tacacs.secret),
    IMAGE(202720 + 36, i32s, tacacs.port),
    IMAGE(202720 + 40, i8s, tacacs.retryTime),
    IMAGE(202720 + 41, ipv4, tacacs.server[0]),
    IMAGE(202720 + 45, ipv4, tacacs.server[1]),
    IMAGE(202720 + 49, ipv6, tacacs.serverIpv6[0]),
    IMAGE(202720 + 65, ipv6, tacacs.serverIpv6[1]),
    IMAGE(202992 + 0, text(32), timeRanges[0].absoluteStart),
    IMAGE(202992 + 32, text(32), timeRanges[0].absoluteEnd),
    IMAGE(202992 + 64, text(16), timeRanges[0].periodic[0].start),
    IMAGE(202992 + 80, text(16), timeRanges[0].periodic[0].end),
    IMAGE(202992 + 96, text(16), timeRanges[0].periodic[1].start),
    IMAGE(202992 + 112, text(16), timeRanges[0].periodic[1].end),
    IMAGE(202992 + 128, set(2), timeRanges[0].list[0].weekdays),
    IMAGE(202992 + 130, text(8), timeRanges[0].list[0].start),
    IMAGE(202992 + 138, text(8), timeRanges[0].list[0].end),
    IMAGE(202992 + 146, set(2), timeRanges[0].list[1].weekdays),
    IMAGE(202992 + 148, text(8), timeRanges[0].list[1].start),
    IMAGE(202992 + 156, text(8), timeRanges[0].list[1].end),
    IMAGE(202992 + 164, text(40), timeRanges[0].name),
    IMAGE(202992 + 9 * 204 + 0, text(32), timeRanges[9].absoluteStart),
    IMAGE(202992 + 9 * 204 + 164, text(40), timeRanges[9].name),
    IMAGE(205032 + 0, text(33), poePorts[0].deviceName),
    IMAGE(205032 + 33, u8s, poePorts[0].enabled),
    IMAGE(205032 + 34, u8s, poePorts[0].priority),
    IMAGE(205032 + 35, u8s, poePorts[0].scheduleEnabled),
    IMAGE(205032 + 36, text(33), poePorts[0].scheduleName),
    IMAGE(205032 + 72, i32s, poePorts[0].budget),
    IMAGE(205032 + 23 * 80 + 0, text(33), poePorts[23].deviceName),
    IMAGE(205032 + 23 * 80 + 72, i32s, poePorts[23].budget),
    IMAGE(206956 + 0, u32s, pppoe.enabled),
    IMAGE(206956 + 4, set(4), pppoe.trusted),
    IMAGE(206964, u32s, logTerminalHistory),
    IMAGE(207004, u16s, cpuLoadingThreshold),
    IMAGE(207008 + 0, u8s, backup.enabled),
    IMAGE(207008 + 1, u8s, backup.time),
    IMAGE(207008 + 4, u32s, backup.protocol),
    IMAGE(207008 + 8, ipv4, backup.server),
    IMAGE(207008 + 12, ipv6, backup.serverIpv6),
    IMAGE(207008 + 28, u8s, backup.serverIsIpv6),
    IMAGE(207008 + 29, text(24), backup.user),
    IMAGE(207008 + 53, text(24), backup.password),
    IMAGE(207008 + 77, text(56), backup.path),
};

TEST(Layout, FieldsOfTheImage) {
    for (const Field<ConfigImage> &field : fields) expectField(field);
}

TEST(Layout, FieldsOfTheBoard) {
    const Field<BoardRecord> boardFields[] = {
        BOARD(4, u32s, boardType),
        BOARD(168, mac, macAddress),
        BOARD(176, u32s, capabilities),
        BOARD(204, text(10), versionOfBank1),
        BOARD(214, text(10), versionOfBank2),
    };
    for (const Field<BoardRecord> &field : boardFields) expectField(field);
}

// ----------------------------------------------------------------------------------------------- what records answer

TEST(Record, CapabilitiesOfTheBoard) {
    const struct {
        std::uint32_t word;
        bool poe;
        bool battery;
    } rows[] = {{0, false, false},         {0x100, true, false},       {0x40, false, true},
                {0x10, false, true},       {0x50, false, true},        {0x150, true, true},
                {0xfffffeff, false, true}, {0xffffffaf, true, false},  {0x200, false, false},
                {0x80, false, false},      {0x20, false, false},       {0x8, false, false},
                {0x10000, false, false},   {0xfffffeaf, false, false}, {UINT32_MAX, true, true}};
    for (const auto &row : rows) {
        BoardRecord board = {};
        board.capabilities = row.word;
        EXPECT_EQ(row.poe, board.hasPoe()) << row.word;
        EXPECT_EQ(row.battery, board.hasBattery()) << row.word;
    }
}

TEST(Record, TypeOfTheBoard) {
    BoardRecord board = {};
    for (const std::uint32_t type : {0U, 5026U, 5028U, 5027U + 65536, 0x13a3U << 16}) {
        board.boardType = type;
        EXPECT_FALSE(board.isType5027()) << type;
    }
    board.boardType = 5027;
    EXPECT_TRUE(board.isType5027());
}

TEST(Record, MaskedWordOfTheServerPorts) {
    DhcpSnooping section = {};
    EXPECT_TRUE(section.noServerOnFirstSixteenPorts());
    section.enabled = 0xff;
    section.serverPorts.bytes[2] = section.serverPorts.bytes[3] = 0xff;
    EXPECT_TRUE(section.noServerOnFirstSixteenPorts()) << "ports from 17 on and the first byte do not count";
    for (unsigned port = 0; port < 16; ++port) {
        section.serverPorts.set(port);
        EXPECT_FALSE(section.noServerOnFirstSixteenPorts()) << port;
        section.serverPorts.clear(port);
    }
}

TEST(Record, KindOfAnAclRule) {
    AclRule rule = {};
    for (const std::int32_t number : {INT32_MIN, -1, 0, 1, 128}) {
        rule.number = number;
        EXPECT_FALSE(rule.isIpv6Rule()) << number;
    }
    for (const std::int32_t number : {129, 130, 256, INT32_MAX}) {
        rule.number = number;
        EXPECT_TRUE(rule.isIpv6Rule()) << number;
    }
}

TEST(Record, FieldsOfAnAclRule) {
    EXPECT_EQ(0, AclMatch::ingressPort);
    EXPECT_EQ(1, AclMatch::vlanId);
    EXPECT_EQ(2, AclMatch::sourceMac);
    EXPECT_EQ(3, AclMatch::destinationMac);
    EXPECT_EQ(4, AclMatch::etherType);
    EXPECT_EQ(5, AclMatch::tos);
    EXPECT_EQ(6, AclMatch::protocol);
    EXPECT_EQ(7, AclMatch::sourceL4Port);
    EXPECT_EQ(8, AclMatch::destinationL4Port);
    EXPECT_EQ(9, AclMatch::sourceIpv4);
    EXPECT_EQ(10, AclMatch::destinationIpv4);
    EXPECT_EQ(11, AclMatch::sourceIpv6);
    EXPECT_EQ(12, AclMatch::destinationIpv6);
}

TEST(Record, DescriptionAndBeyond) {
    static ConfigImage image;
    for (std::size_t i = 0; i < sizeof image; ++i)
        reinterpret_cast<unsigned char *>(&image)[i] = static_cast<unsigned char>(i * 7 + i / 256);
    for (int port = 0; port < 28; ++port) {
        const CircuitId copy = image.descriptionAndBeyond(port);
        for (int i = 0; i < 64; ++i) {
            const int at = 4776 + 76 * port + 24 + i;
            EXPECT_EQ(static_cast<unsigned char>(at * 7 + at / 256), static_cast<unsigned char>(copy.characters[i]))
                << port << " " << i;
        }
    }
    EXPECT_EQ(static_cast<unsigned char>(300 * 7 + 1), bytesOf(image, 300)[0]);
}

// --------------------------------------------------------------------------------------------------------- field types

/// The bytes of a field after it was assigned.
template <class Type> std::string stored(const Type &field) {
    return shownBytes(reinterpret_cast<const u8 *>(&field), sizeof field);
}

static_assert(be16{{0xfe, 0xdc}}.value() == 0xfedc);
static_assert(be32{{0xfe, 0xdc, 0xba, 0x98}}.value() == 0xfedcba98);

TEST(Record, NumbersAreStoredMostSignificantByteFirst) {
    be16 half = {};
    half = 0x1234;
    EXPECT_EQ("1234", stored(half));
    be32 word = {};
    word = 0x12345678;
    EXPECT_EQ("12345678", stored(word));
    be_i32 number = {};
    number = -2;
    EXPECT_EQ("fffffffe", stored(number));
    EXPECT_EQ(-2, number.value());
    number = INT32_MIN;
    EXPECT_EQ("80000000", stored(number));
    EXPECT_EQ(INT32_MIN, number.value());
    EXPECT_EQ(0x010203ffU, (Ipv4{{1, 2, 3, 255}}).value());
    const Ipv6 address = {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}};
    EXPECT_EQ("0d0e0f10", shownBytes(address.lastFour(), 4));
}

TEST(Record, NumbersAreComparedWhole) {
    for (unsigned bit = 0; bit < 32; ++bit) {
        be32 a = {};
        be32 b = {};
        EXPECT_TRUE(a == b);
        b = 1U << bit;
        EXPECT_FALSE(a == b) << bit;
        EXPECT_TRUE(isOn(b)) << bit;
        EXPECT_FALSE((be_i32{a}) == (be_i32{b})) << bit;
        if (bit >= 16) continue;
        be16 c = {};
        c = static_cast<std::uint16_t>(1U << bit);
        EXPECT_FALSE(c == be16{}) << bit;
        EXPECT_TRUE(c == c);
    }
    EXPECT_FALSE(isOn(be32{}));
    EXPECT_FALSE(isOn(u8{0}));
    for (unsigned bit = 0; bit < 8; ++bit) EXPECT_TRUE(isOn(static_cast<u8>(1U << bit)));
}

TEST(Record, TextsArePaddedAndCut) {
    Text<4> field = {{'z', 'z', 'z', 'z'}};
    EXPECT_FALSE(field.empty());
    field = "ab";
    EXPECT_EQ("61620000", stored(field));
    field = "abcde";
    EXPECT_EQ("61626364", stored(field));
    field = "";
    EXPECT_EQ("00000000", stored(field));
    EXPECT_TRUE(field.empty());
    EXPECT_EQ(4U, (Text<4>::width));
}

TEST(Record, TextsAreComparedUpToTheirNul) {
    Text<4> a = {{'a', '\0', 'x', 'y'}};
    Text<4> b = {{'a', '\0', 'z', '\0'}};
    EXPECT_TRUE(sameText(a, b));
    b = "b";
    EXPECT_FALSE(sameText(a, b));
    a = "abcd";
    b = "abcx";
    EXPECT_FALSE(sameText(a, b)) << "the last character counts";
    EXPECT_TRUE(sameText(a, b, 3));
    EXPECT_FALSE(sameText(a, b, 4));
    Text<6> wider = {};
    wider = "abcdef";
    EXPECT_TRUE(sameText(a, wider)) << "as far as both go";
    EXPECT_TRUE(sameText(wider, a));
    wider = "abc";
    EXPECT_FALSE(sameText(a, wider));
    b = "";
    EXPECT_FALSE(sameText(a, b));
    EXPECT_TRUE(sameText(b, Text<4>{}));
}

TEST(Record, RecordsAreComparedInEveryByte) {
    for (std::size_t at = 0; at < 20; ++at) {
        Reserved<20> a = {};
        Reserved<20> b = {};
        EXPECT_TRUE(sameBytes(a, b));
        b.bytes[at] = 1;
        EXPECT_FALSE(sameBytes(a, b)) << at;
        for (std::size_t size = 0; size <= 25; ++size) EXPECT_EQ(size <= at, sameLeadingBytes(a, b, size)) << at;
    }
    EXPECT_FALSE(sameBytes(Text<4>{{'a', '\0', 'x', 'y'}}, Text<4>{{'a', '\0', 'z', '\0'}})) << "also after a NUL";
}

TEST(Record, BitmapsCountFromTheLeastSignificantBit) {
    Bitmap<5> bitmap = {};
    bitmap.set(0).set(9).set(39);
    EXPECT_EQ("0102000080", stored(bitmap));
    bitmap.set(8).clear(9).clear(39);
    EXPECT_EQ("0101000000", stored(bitmap));
    bitmap.set(8).clear(7);
    EXPECT_EQ("0101000000", stored(bitmap));
}

} // namespace
