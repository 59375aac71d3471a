/// Records that a seed composes: structured like those of a switch, the same on every host.
///
/// Recorded digests of their texts depend on every number that is drawn here, and on the order in which it is drawn.
#pragma once

#include "rows.h"

#include <cstring>

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

inline void randomAddress(Numbers &numbers, Ipv4 &address) {
    address = {};
    if (numbers.oneIn(2)) address = {{192, 0, 2, numbers.byte()}};
}

inline void randomAddress(Numbers &numbers, Ipv6 &address) {
    address = {};
    if (numbers.oneIn(2)) randomBytes(numbers, address.octets);
    if (numbers.oneIn(4)) address = {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 192, 0, 2, numbers.byte()}};
}

inline void randomSystem(Numbers &numbers, ConfigImage &image) {
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

inline void randomSnmp(Numbers &numbers, ConfigImage &image) {
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

inline void randomPorts(Numbers &numbers, ConfigImage &image) {
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

inline void randomTables(Numbers &numbers, ConfigImage &image) {
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
inline void composeRandom(std::uint32_t seed) {
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
