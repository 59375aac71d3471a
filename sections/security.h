/// Access control, DHCP snooping, source guard, 802.1X, storm protection, isolation, MAC limits and PPPoE.
#pragma once

#include "platform/image.h"

namespace full {
/// Access-control rules (image 180428 to 202699): for each valid rule "acl" with its number, the action and its port, a
/// line for each field of a frame, the rate limit, "apply" and "exit". The rule's number decides whether its address
/// lines are of IPv4 or of IPv6.
int convConfigACLControl_ACLControl_configure_acl(const AclTable &current);
/// Port authentication (image 180314 to 180356): the "dot1x" lines. The secret is written as it is stored, also an
/// empty one.
int convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(const Dot1xConfig &current);
/// DHCP snooping (image 126280 to 126364; the option word at 147404; the remote id at 151236 to 151305): the "ip dhcp
/// snooping" lines of the switch, its server ports and its four server addresses. Servers on no port are asked for in
/// another way on boards of type 5027.
int convConfigSKAConfig2_SKAConfig2_configure_ip(const DhcpSnooping &current);
/// PPPoE intermediate agent (image 206956): "ip pppoe intermediate-agent".
int convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(const PppoeConfig &current);
/// Source bindings (image 151362 to 151589): for each valid one "ip source binding" with its place in the table, from
/// 1, and its address, and whether it is on.
int convConfigSecurityIP_SecurityIP_configure_ip_source(const SourceBindingTable &current);
/// The switch of source bindings (image 151360): "ip source".
int convConfigSwitchConfig_SwitchConfig_configure_ip_source(const u8 &current);
int convConfigSKAConfig2_SKAConfig2_configure_configure_security(); ///< traces only
/// Limit of learned addresses (image 124744 and 125088): "security mac-limit" and its notification threshold interval.
int convConfigMacLimit_MacLimit_configure_security_mac_limit(const MacLimit &current);
/// Port isolation (image 202700 to 202704): "security port-isolation" with the up-link ports, the same with "no" and
/// the other ports, each unless there are none, and whether isolation is on.
int convConfigPortIsolation_PortIsolation_configure_security_port_isolation(const Isolation &current);
/// Storm protection (image 126256 to 126279): "security storm-protection" with the rates of broadcast, multicast and
/// unicast and the notification threshold interval.
int convConfigStormControl_StormControl_configure_security_storm_control(const StormControl &current);
int convConfigSecurity_HG(); ///< traces only
/// Port authentication (image 180357 to 180384): blocks of "dot1x port-control" by mode; none for ports of another mode
/// than the three.
int convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(const Dot1xConfig &current);
/// DHCP snooping of the ports (image 147408 to 147463, circuit ids at 149440 to 151304): blocks of "ip dhcp snooping"
/// option, circuit, circuit formatted, circuit id and trust. A circuit id that is the default image's writes nothing.
int convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(const DhcpSnoopingPorts &current);
/// PPPoE intermediate agent (image 206960 to 206963): blocks of the trusted and of the other ports.
int convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(const PppoeConfig &current);
/// Source guard (image 147488 to 147515): blocks of "ip sourceguard" by mode; none for ports of another mode than the
/// three.
int convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(const SourceGuardModes &current);
/// Static source guard entries (image 147520 to 149439): a block for each valid one, with its address and VLAN id.
int convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(const SourceGuardTable &current);
/// Limit of learned addresses (image 124748 to 124971): blocks of the ports on which it is on and off, of the ports
/// without a maximum, and of each maximum. The second section is not read.
int convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(const MacLimit &current,
                                                                       const MacLimit &currentAgain);
int convConfigStormControl_StormControl_configure_interface_security(); ///< traces only
/// Server trust: blocks of the trusted and of the other ports.
int convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(const ServerTrust &current);
} // namespace full

namespace delta {
/// For each valid rule "acl", "apply" and "exit", and between them the lines of what differs: action, action port, rate
/// limit, and the fields that take part in the match on one side only. A rule of the default image alone writes
/// nothing.
int convConfigACLControl_ACLControl_configure_acl(const AclTable &current, const AclTable &defaults);
/// The lines of what differs, of the secret its first 31 bytes.
int convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(const Dot1xConfig &current, const Dot1xConfig &defaults);
/// The lines of what differs, server addresses by their text.
int convConfigSKAConfig2_SKAConfig2_configure_ip(const DhcpSnooping &current, const DhcpSnooping &defaults);
/// The line if the switch differs.
int convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(const PppoeConfig &current, const PppoeConfig &defaults);
/// The lines of what differs in each valid binding, addresses by their text.
int convConfigSecurityIP_SecurityIP_configure_ip_source(const SourceBindingTable &current,
                                                        const SourceBindingTable &defaults);
/// The line if the switch differs.
int convConfigSwitchConfig_SwitchConfig_configure_ip_source(const u8 &current, const u8 &defaults);
using full::convConfigSKAConfig2_SKAConfig2_configure_configure_security; // traces only
/// The lines of what differs.
int convConfigMacLimit_MacLimit_configure_security_mac_limit(const MacLimit &current, const MacLimit &defaults);
/// The lines of what differs; a list without ports has none.
int convConfigPortIsolation_PortIsolation_configure_security_port_isolation(const Isolation &current,
                                                                            const Isolation &defaults);
/// The lines of what differs.
int convConfigStormControl_StormControl_configure_security_storm_control(const StormControl &current,
                                                                         const StormControl &defaults);
using full::convConfigSecurity_HG; // traces only
/// All blocks if the mode of some port differs.
int convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(const Dot1xConfig &current,
                                                                const Dot1xConfig &defaults);
/// The blocks of each setting that differs on some port.
int convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(const DhcpSnoopingPorts &current,
                                                                       const DhcpSnoopingPorts &defaults);
/// Both blocks if the trusted ports differ.
int convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(const PppoeConfig &current,
                                                                   const PppoeConfig &defaults);
/// All blocks if the mode of some port differs.
int convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(const SourceGuardModes &current,
                                                                       const SourceGuardModes &defaults);
/// The block of each valid entry whose address text differs. Traces of longer addresses in earlier entries count.
int convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(
    const SourceGuardTable &current, const SourceGuardTable &defaults);
/// The blocks of what differs between the two sections. The driver hands over one section twice: nothing.
int convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(const MacLimit &current,
                                                                       const MacLimit &defaults);
/// Both blocks if the trusted ports differ.
int convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(const ServerTrust &current,
                                                                             const ServerTrust &defaults);
// Traces only, and no driver calls it in delta mode.
using full::convConfigStormControl_StormControl_configure_interface_security;
} // namespace delta
