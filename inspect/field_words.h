/// Words for the codes and special numbers of the fields.
#pragma once

#include "inspect/fields.h"

#include <cstdint>

namespace inspect {

inline constexpr Word offOn[] = {{0, "off"}, {1, "on"}};
inline constexpr Word daylightSavings[] = {{0, "off"}, {1, "recurring"}};
inline constexpr Word dhcpv6Modes[] = {{1, "auto"}, {2, "force"}};
inline constexpr Word remoteLogins[] = {{0, "none"}, {1, "telnet"}, {2, "ssh"}};
inline constexpr Word userLevels[] = {{1, "read-only"}, {2, "read-write"}, {3, "admin"}};
inline constexpr Word communityLevels[] = {{0, "not set"}, {1, "read-only"}, {2, "read-write"}, {3, "admin"}};
inline constexpr Word administrativeStates[] = {{0, "enabled"}, {1, "shut down"}};
inline constexpr Word mediaTypes[] = {{0, "none"}, {1, "SFP"}};
inline constexpr Word speeds[] = {{0, "10 Mb/s"}, {1, "100 Mb/s"}, {2, "1000 Mb/s"}, {3, "automatic"}};
inline constexpr Word duplexes[] = {{0, "not forced to full duplex"}, {1, "full duplex"}};
inline constexpr Word vlanModes[] = {
    {1, "port-based"}, {2, "802.1Q"}, {3, "802.1Q with isolation"}, {4, "QinQ bypassing the customer tag"}};
inline constexpr Word vlanPortModes[] = {{0, "access"}, {1, "trunk"}, {2, "trunk native"}, {3, "dot1q-tunnel"}};
inline constexpr Word lacpRoles[] = {{0, "none"}, {1, "active"}};
inline constexpr Word learning[] = {{0, "on"}, {1, "off"}};
inline constexpr Word noLimit[] = {{0, "no limit"}};
inline constexpr Word none[] = {{0, "none"}};
inline constexpr Word emptySlot[] = {{0, "empty slot"}};
inline constexpr Word qosModes[] = {{0, "none"}, {1, "port-based"}, {2, "802.1p"}, {3, "DSCP"}, {4, "VLAN id"}};
inline constexpr Word queuingModes[] = {{0, "weighted"}, {1, "none"}};
inline constexpr Word dscpModes[] = {{0, "off"}, {1, "by DSCP"}, {2, "by port"}};
inline constexpr Word stpVersions[] = {{1, "normal"}};
inline constexpr Word pointToPoint[] = {{0, "forced true"}, {1, "forced false"}, {2, "auto"}};
inline constexpr Word noYes[] = {{0, "no"}, {1, "yes"}};
inline constexpr Word trusts[] = {{0, "untrusted"}, {1, "trusted"}};
inline constexpr Word sourceGuards[] = {{0, "fixed IP"}, {1, "DHCP"}, {2, "off"}};
inline constexpr Word portControls[] = {{0, "auto"}, {1, "none"}, {2, "unauthorized"}};
inline constexpr Word budgetModes[] = {{0, "class"}};
inline constexpr Word aclActions[] = {{1, "permit"}, {2, "copy to mirror"}, {3, "redirect"}};
inline constexpr Word poePriorities[] = {{0, "critical"}, {1, "high"}, {2, "low"}};
inline constexpr Word backupProtocols[] = {{1, "FTP"}};
inline constexpr Word encryptions[] = {{0, "none"}, {1, "md5"}};
inline constexpr Word weekdays[] = {{0, "sun"}, {1, "mon"}, {2, "tue"}, {3, "wed"}, {4, "thu"}, {5, "fri"}, {6, "sat"}};
inline constexpr Word matchFields[] = {
    {AclMatch::ingressPort, "ingress-port"},
    {AclMatch::vlanId, "vlan"},
    {AclMatch::sourceMac, "source-mac"},
    {AclMatch::destinationMac, "destination-mac"},
    {AclMatch::etherType, "ethertype"},
    {AclMatch::tos, "tos"},
    {AclMatch::protocol, "protocol"},
    {AclMatch::sourceL4Port, "source-l4-port"},
    {AclMatch::destinationL4Port, "destination-l4-port"},
    {AclMatch::sourceIpv4, "source-ipv4"},
    {AclMatch::destinationIpv4, "destination-ipv4"},
    {AclMatch::sourceIpv6, "source-ipv6"},
    {AclMatch::destinationIpv6, "destination-ipv6"},
};
inline constexpr Word capabilities[] = {{4, "battery (0x10)"}, {6, "battery (0x40)"}, {8, "PoE"}};
inline constexpr std::uint32_t stormRates = 22;

} // namespace inspect
