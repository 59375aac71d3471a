/// The sections of a configuration image, in its order.
#pragma once

#include "platform/image.h"

#include <cstddef>

/// A name and the bytes.
struct Section {
    const char *name;
    std::size_t offset;
    std::size_t size;
};

#define SECTION(member)                                                                                                \
    { #member, offsetof(ConfigImage, member), sizeof(ConfigImage::member) }
inline constexpr Section imageSections[] = {
    SECTION(time),
    SECTION(ipv4),
    SECTION(ipv6),
    SECTION(company),
    SECTION(service),
    SECTION(console),
    SECTION(users),
    SECTION(ports),
    SECTION(vlanMode),
    SECTION(vlanPorts),
    SECTION(portVlans),
    SECTION(tagVlans),
    SECTION(lacp),
    SECTION(trunks),
    SECTION(distribution),
    SECTION(macTable),
    SECTION(macLearning),
    SECTION(macLimit),
    SECTION(mirror),
    SECTION(loopDetection),
    SECTION(rateLimits),
    SECTION(storm),
    SECTION(dhcpSnooping),
    SECTION(switchConfig),
    SECTION(communities),
    SECTION(trapDestinations),
    SECTION(traps),
    SECTION(priority),
    SECTION(remarking),
    SECTION(qinq),
    SECTION(igmp),
    SECTION(igmpVlans),
    SECTION(log),
    SECTION(radius),
    SECTION(stp),
    SECTION(stpPorts),
    SECTION(dhcpSnoopingPorts),
    SECTION(sourceGuard),
    SECTION(sourceGuardTable),
    SECTION(circuitIds),
    SECTION(ipSource),
    SECTION(sourceBindings),
    SECTION(multicastTable),
    SECTION(multicastSegments),
    SECTION(multicastProfiles),
    SECTION(portFilters),
    SECTION(lldp),
    SECTION(dot1x),
    SECTION(poe),
    SECTION(acl),
    SECTION(isolation),
    SECTION(statisticsPolling),
    SECTION(tacacs),
    SECTION(timeRanges),
    SECTION(poePorts),
    SECTION(pppoe),
    SECTION(logTerminalHistory),
    SECTION(cpuLoadingThreshold),
    SECTION(backup),
};
#undef SECTION
