/// Fills the large tables of an image, so that its text has a chosen size.
#pragma once

#include "platform/image.h"

#include <cstddef>
#include <cstdio>
#include <iterator>

/// In the built-in store these make about 60 KiB of text, and as much as just fits the text buffer.
inline constexpr std::size_t percentOfBusy = 8;
inline constexpr std::size_t percentOfLargest = 42;

template <std::size_t Width> void name(Text<Width> &text, const char *what, std::size_t number) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%s-%zu", what, number);
    text = buffer;
}

inline void fillVlans(ConfigImage &image, std::size_t count) {
    for (std::size_t i = 100; i < 100 + count; ++i) {
        TagVlan &vlan = image.tagVlans[i];
        vlan.inUse = 1;
        vlan.id = static_cast<std::uint16_t>(1000 + i);
        name(vlan.name, "customer-network", i);
        // The uplinks, a run of access ports, and one by itself.
        for (unsigned port = 24; port < 28; ++port) vlan.members.set(port);
        for (unsigned port = 0; port < 6; ++port) vlan.members.set(port + static_cast<unsigned>(i % 7));
        vlan.members.set(15 + static_cast<unsigned>(i % 8));
    }
}

inline void fillRules(ConfigImage &image, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        AclRule &rule = image.acl[i];
        rule.valid = 1;
        rule.number = static_cast<std::int32_t>(i + 1);
        rule.action = static_cast<u8>(i % 4);
        rule.match.set(static_cast<unsigned>(i % 13)).set(static_cast<unsigned>(i * 5 % 13));
        rule.source = {{192, 0, 2, static_cast<u8>(i)}};
        rule.sourceMask = {{255, 255, 255, 255}};
        rule.destinationIpv6 = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, static_cast<u8>(i)}};
        rule.ingressPorts.set(static_cast<unsigned>(i % 28));
    }
}

inline void fillMulticast(ConfigImage &image, std::size_t percent) {
    for (std::size_t i = 0; i < std::size(image.multicastSegments) * percent / 100; ++i) {
        MulticastSegment &segment = image.multicastSegments[i];
        segment.valid = 1;
        segment.id = static_cast<std::uint16_t>(i + 1);
        name(segment.name, "channel-group", i);
        segment.first = {{239, 1, static_cast<u8>(i), 0}};
        segment.last = {{239, 1, static_cast<u8>(i), 255}};
    }
    for (std::size_t i = 1; i < 4094 * percent / 100; ++i) {
        image.igmpVlans.inUse.set(static_cast<unsigned>(i));
        image.igmpVlans.vlan[i].snooping = i % 2;
    }
}

inline void fillMacTable(ConfigImage &image, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        MacEntry &entry = image.macTable[i];
        entry.inUse = 1;
        entry.address = {{0, 0, 0x5e, 0, 0x53, static_cast<u8>(i)}};
        entry.port = static_cast<u8>(i % 28);
        entry.vlan = static_cast<std::uint32_t>(1000 + i);
    }
}

/// Fills the tables to so many hundredths.
inline void fill(ConfigImage &image, std::size_t percent) {
    fillVlans(image, (std::size(image.tagVlans) - 100) * percent / 100);
    fillRules(image, std::size(image.acl) * percent / 100);
    fillMulticast(image, percent);
    fillMacTable(image, std::size(image.macTable) * percent / 100);
}
