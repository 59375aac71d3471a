/// Access control, DHCP snooping, source guard, 802.1X, storm protection, isolation, MAC limits and PPPoE.
#pragma once

#include "platform/image.h"

/// Ports that are trusted to have a DHCP server. No driver renders them, so the section has no place in the image.
struct ServerTrust {
    Reserved<1> reserved0;
    PortBitmap ports; ///< trusted ports
};
static_assert(record<ServerTrust, 5> && offsetof(ServerTrust, ports) == 1);

namespace full {
int convConfigACLControl_ACLControl_configure_acl(const AclTable &current);
int convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(const Dot1xConfig &current);
int convConfigSKAConfig2_SKAConfig2_configure_ip(const DhcpSnooping &current);
int convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(const PppoeConfig &current);
int convConfigSecurityIP_SecurityIP_configure_ip_source(const SourceBindingTable &current);
int convConfigSwitchConfig_SwitchConfig_configure_ip_source(const u8 &current);
int convConfigSKAConfig2_SKAConfig2_configure_configure_security();
int convConfigMacLimit_MacLimit_configure_security_mac_limit(const MacLimit &current);
int convConfigPortIsolation_PortIsolation_configure_security_port_isolation(const Isolation &current);
int convConfigStormControl_StormControl_configure_security_storm_control(const StormControl &current);
int convConfigSecurity_HG();
int convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(const Dot1xConfig &current);
int convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(const DhcpSnoopingPorts &current);
int convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(const PppoeConfig &current);
int convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(const SourceGuardModes &current);
int convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(const SourceGuardTable &current);
int convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(const MacLimit &current,
                                                                       const MacLimit &currentAgain);
int convConfigStormControl_StormControl_configure_interface_security();
int convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(const ServerTrust &current);
} // namespace full

namespace delta {
int convConfigACLControl_ACLControl_configure_acl(const AclTable &current, const AclTable &defaults);
int convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(const Dot1xConfig &current, const Dot1xConfig &defaults);
int convConfigSKAConfig2_SKAConfig2_configure_ip(const DhcpSnooping &current, const DhcpSnooping &defaults);
int convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(const PppoeConfig &current, const PppoeConfig &defaults);
int convConfigSecurityIP_SecurityIP_configure_ip_source(const SourceBindingTable &current,
                                                        const SourceBindingTable &defaults);
int convConfigSwitchConfig_SwitchConfig_configure_ip_source(const u8 &current, const u8 &defaults);
using full::convConfigSKAConfig2_SKAConfig2_configure_configure_security; // traces only
int convConfigMacLimit_MacLimit_configure_security_mac_limit(const MacLimit &current, const MacLimit &defaults);
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
int convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(
    const SourceGuardTable &current, const SourceGuardTable &defaults);
int convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(const MacLimit &current,
                                                                       const MacLimit &currentAgain);
int convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(const ServerTrust &current,
                                                                             const ServerTrust &defaults);
} // namespace delta
