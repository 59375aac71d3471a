/// The input of the rendering target: how a run is set up, and patches over a base store.
///
/// Four bytes: driver, base, bank (signed), flags. Then patches, each a byte that tells the record (low two bits) and
/// the kind (the next two), a section, and three bytes of a place in it; what follows depends on the kind. All values
/// wrap around, so that every input means something.
#pragma once

#include "platform/image.h"

#include <cstddef>

namespace fuzz {

enum Driver { fullRunning, fullDefault, fullPage, deltaRunning, deltaDefault, deltaPage, drivers };
enum Base { zeroBase, factoryBase, equalBase, presetBase, bases };
/// The low two bits are an `Md5`.
enum Flag { md5Passwords = 4, headerRefused = 8 };

enum Record { currentRecord, defaultRecord, bothRecords, boardRecord };
enum Kind {
    bytesKind,  ///< a byte n, n bytes
    repeatKind, ///< a byte n, two bytes of step, two bytes of count, n bytes that are written every `step` bytes
    noiseKind,  ///< three bytes of length, a byte of seed: bytes that look random, others in each record
    copyKind,   ///< three bytes of length: as in the other image
};

struct Section {
    const char *name;
    std::size_t offset;
    std::size_t size;
};
#define SECTION(member)                                                                                                \
    { #member, offsetof(ConfigImage, member), sizeof(ConfigImage::member) }
inline constexpr Section sections[] = {
    {"image", 0, sizeof(ConfigImage)},
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

/// The base store that an input names.
void composeBase(Base base, ConfigImage &current, ConfigImage &defaults);

} // namespace fuzz
