#include "sections/security.h"

#include "app/text.h"

int full::convConfigACLControl_ACLControl_configure_acl(const AclTable &) { return trace(__func__); }
int delta::convConfigACLControl_ACLControl_configure_acl(const AclTable &, const AclTable &) { return trace(__func__); }

int full::convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(const Dot1xConfig &) { return trace(__func__); }
int delta::convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(const Dot1xConfig &, const Dot1xConfig &) {
    return trace(__func__);
}

int full::convConfigSKAConfig2_SKAConfig2_configure_ip(const DhcpSnooping &) { return trace(__func__); }
int delta::convConfigSKAConfig2_SKAConfig2_configure_ip(const DhcpSnooping &, const DhcpSnooping &) {
    return trace(__func__);
}

int full::convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(const PppoeConfig &) { return trace(__func__); }
int delta::convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(const PppoeConfig &, const PppoeConfig &) {
    return trace(__func__);
}

int full::convConfigSecurityIP_SecurityIP_configure_ip_source(const SourceBindingTable &) { return trace(__func__); }
int delta::convConfigSecurityIP_SecurityIP_configure_ip_source(const SourceBindingTable &, const SourceBindingTable &) {
    return trace(__func__);
}

int full::convConfigSwitchConfig_SwitchConfig_configure_ip_source(const u8 &) { return trace(__func__); }
int delta::convConfigSwitchConfig_SwitchConfig_configure_ip_source(const u8 &, const u8 &) { return trace(__func__); }

int full::convConfigSKAConfig2_SKAConfig2_configure_configure_security() { return trace(__func__); }

int full::convConfigMacLimit_MacLimit_configure_security_mac_limit(const MacLimit &) { return trace(__func__); }
int delta::convConfigMacLimit_MacLimit_configure_security_mac_limit(const MacLimit &, const MacLimit &) {
    return trace(__func__);
}

int full::convConfigPortIsolation_PortIsolation_configure_security_port_isolation(const Isolation &) {
    return trace(__func__);
}
int delta::convConfigPortIsolation_PortIsolation_configure_security_port_isolation(const Isolation &,
                                                                                   const Isolation &) {
    return trace(__func__);
}

int full::convConfigStormControl_StormControl_configure_security_storm_control(const StormControl &) {
    return trace(__func__);
}
int delta::convConfigStormControl_StormControl_configure_security_storm_control(const StormControl &,
                                                                                const StormControl &) {
    return trace(__func__);
}

int full::convConfigSecurity_HG() { return trace(__func__); }

int full::convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(const Dot1xConfig &) { return trace(__func__); }
int delta::convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(const Dot1xConfig &, const Dot1xConfig &) {
    return trace(__func__);
}

int full::convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(const DhcpSnoopingPorts &) {
    return trace(__func__);
}
int delta::convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(const DhcpSnoopingPorts &,
                                                                              const DhcpSnoopingPorts &) {
    return trace(__func__);
}

int full::convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(const PppoeConfig &) {
    return trace(__func__);
}
int delta::convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(const PppoeConfig &, const PppoeConfig &) {
    return trace(__func__);
}

int full::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(const SourceGuardModes &) {
    return trace(__func__);
}
int delta::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(const SourceGuardModes &,
                                                                              const SourceGuardModes &) {
    return trace(__func__);
}

int full::convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(const SourceGuardTable &) {
    return trace(__func__);
}
int delta::convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(
    const SourceGuardTable &, const SourceGuardTable &) {
    return trace(__func__);
}

int full::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(const MacLimit &, const MacLimit &) {
    return trace(__func__);
}
int delta::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(const MacLimit &, const MacLimit &) {
    return trace(__func__);
}

int full::convConfigStormControl_StormControl_configure_interface_security() { return trace(__func__); }

int full::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(const ServerTrust &) {
    return trace(__func__);
}
int delta::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(const ServerTrust &,
                                                                                    const ServerTrust &) {
    return trace(__func__);
}
