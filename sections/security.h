/// Access control, DHCP snooping, source guard, 802.1X, storm protection, isolation, MAC limits and PPPoE.
#pragma once

#include "platform/image.h"

namespace full {
/// The number of a rule decides whether its addresses are IPv4 or IPv6.
int convConfigACLControl_ACLControl_configure_acl(const AclTable &current);
int convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(const Dot1xConfig &current);
/// Asks for servers on no port in another way on boards of type 5027.
int convConfigSKAConfig2_SKAConfig2_configure_ip(const DhcpSnooping &current);
int convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(const PppoeConfig &current);
/// The number of a binding is its place in the table, from 1.
int convConfigSecurityIP_SecurityIP_configure_ip_source(const SourceBindingTable &current);
int convConfigSwitchConfig_SwitchConfig_configure_ip_source(const u8 &current);
int convConfigSKAConfig2_SKAConfig2_configure_configure_security(); ///< traces only
int convConfigMacLimit_MacLimit_configure_security_mac_limit(const MacLimit &current);
/// A list without ports has no line.
int convConfigPortIsolation_PortIsolation_configure_security_port_isolation(const Isolation &current);
int convConfigStormControl_StormControl_configure_security_storm_control(const StormControl &current);
int convConfigSecurity_HG(); ///< traces only
/// A port of an unknown mode has no block.
int convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(const Dot1xConfig &current);
/// A circuit id that is the default one has no block.
int convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(const DhcpSnoopingPorts &current);
int convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(const PppoeConfig &current);
/// A port of an unknown mode has no block.
int convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(const SourceGuardModes &current);
int convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(const SourceGuardTable &current);
/// Does not read the second section.
int convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(const MacLimit &current,
                                                                       const MacLimit &currentAgain);
int convConfigStormControl_StormControl_configure_interface_security(); ///< traces only
/// No driver calls it.
int convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(const ServerTrust &current);
} // namespace full

namespace delta {
/// Opens the block of every valid rule, changed or not. A match is compared by whether there is one, not by its
/// value.
int convConfigACLControl_ACLControl_configure_acl(const AclTable &current, const AclTable &defaults);
/// The last two bytes of the secret are not compared.
int convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(const Dot1xConfig &current, const Dot1xConfig &defaults);
/// Server addresses are compared by their text.
int convConfigSKAConfig2_SKAConfig2_configure_ip(const DhcpSnooping &current, const DhcpSnooping &defaults);
int convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(const PppoeConfig &current, const PppoeConfig &defaults);
/// Addresses are compared by their text.
int convConfigSecurityIP_SecurityIP_configure_ip_source(const SourceBindingTable &current,
                                                        const SourceBindingTable &defaults);
int convConfigSwitchConfig_SwitchConfig_configure_ip_source(const u8 &current, const u8 &defaults);
using full::convConfigSKAConfig2_SKAConfig2_configure_configure_security; // traces only
int convConfigMacLimit_MacLimit_configure_security_mac_limit(const MacLimit &current, const MacLimit &defaults);
/// A list that became empty has no line.
int convConfigPortIsolation_PortIsolation_configure_security_port_isolation(const Isolation &current,
                                                                            const Isolation &defaults);
int convConfigStormControl_StormControl_configure_security_storm_control(const StormControl &current,
                                                                         const StormControl &defaults);
using full::convConfigSecurity_HG; // traces only
int convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(const Dot1xConfig &current,
                                                                const Dot1xConfig &defaults);
int convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(const DhcpSnoopingPorts &current,
                                                                       const DhcpSnoopingPorts &defaults);
int convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(const PppoeConfig &current,
                                                                   const PppoeConfig &defaults);
int convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(const SourceGuardModes &current,
                                                                       const SourceGuardModes &defaults);
/// Compares address texts, with what longer addresses of earlier entries left after them.
int convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(
    const SourceGuardTable &current, const SourceGuardTable &defaults);
/// The driver passes one section twice, so that nothing is written.
int convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(const MacLimit &current,
                                                                       const MacLimit &defaults);
/// No driver calls it.
int convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(const ServerTrust &current,
                                                                             const ServerTrust &defaults);
// Traces only, and no driver calls it in delta mode.
using full::convConfigStormControl_StormControl_configure_interface_security;
} // namespace delta
