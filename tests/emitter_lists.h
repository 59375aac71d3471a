/// Exceptions to what holds for every emitter, by name. The unit tests and the fuzz target of rendering read them.
#pragma once

#include "app/order.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace emitter_lists {

/// They hold a place in the text and in the trace, and write nothing in either mode.
inline constexpr std::string_view withoutText[] = {
    "convConfigVLANConfig_mid_vlan_lan_configure",
    "convConfigAdvancedfunction",
    "convConfigApplicationfunction",
    "convConfigNetConfig_mid_sys_ddns_server_configure",
    "convConfigNetConfig_mid_sys_dhcp_server_configure",
    "InterfaceGroup_configure_ip_group",
    "convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server",
    "convConfig_mid_forward_dynamic_route_configure",
    "convConfig_mid_forward_static_route_idx_configure",
    "convConfig_mid_sys_netcfg_wan_configure",
    "convConfig_mid_sys_netcfg_ipv4_lan_configure",
    "convConfig_mid_sys_netcfg_wan_ipv6_configure",
    "convConfig_mid_sys_netcfg_ipv6_lan_configure",
    "convConfig_mid_sys_dhcpv6_server_configure",
    "convConfig_mid_sys_dhcpv6_srv_state_idx_configure",
    "convConfig_mid_sys_radvd_configure",
    "convConfig_mid_sys_ddns_ipv6_configure",
    "convConfig_mid_forward_static_ipv6_route_idx_configure",
    "convConfigServiceConfig_mid_sys_remote_access_configure_management",
    "convConfigServiceConfig_mid_sys_online_cfg_configure_management",
    "convConfigPortMirror_PortMirror_configure_mirror_mode",
    "convConfigSKAConfig2_SKAConfig2_configure_configure_security",
    "convConfigSecurity_HG",
    "convConfigSIP",
    "convConfigUSBControl_USBControl_configure_usb",
    "convConfigVoice",
    "convConfigPriorityConfig_PriorityConfig_configure_interface_qos",
    "convConfigDSCPRemark_DSCPRemark_configure_interface_qos",
    "convConfigStormControl_StormControl_configure_interface_security",
    "PortConfigFunc_configure_interface_lan",
    "convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos",
    "convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos",
    "convConfigVLANConfig_VLANConfig_configure_interface_lan_qos",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan",
    "PortConfigFunc_configure_interface_wan",
    "convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos",
    "convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos",
    "convConfigVLANConfig_VLANConfig_configure_interface_wan_qos",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan",
};

/// The VLAN mode has a line in delta mode only.
inline constexpr std::string_view withoutTextInFullMode = "convConfigVLANConfig_mid_sys_vlan_config_configure_vlan";
/// It is handed its current section twice, so that there is never a difference.
inline constexpr std::string_view withoutTextInDeltaMode =
    "convConfigMacLimit_MacLimit_configure_interface_security_mac_limit";

/// Whether a step may write something.
constexpr bool mayWrite(std::string_view emitter, bool delta) {
    return emitter != (delta ? withoutTextInDeltaMode : withoutTextInFullMode) &&
           std::find(std::begin(withoutText), std::end(withoutText), emitter) == std::end(withoutText);
}

/// Full mode leaves these out of the trace.
inline constexpr std::string_view silentInFullMode[] = {
    "IGMPFilterFunc_configure_ip_igmp_filter",
    "PbitPriorityFunc_configure_qos_remarking",
    "ManageVLANFunc_configure_vlan",
    "PortConfigFunc_configure_interface",
    "IGMPFilterFunc_configure_interface_ip_igmp_filter",
    "InterfaceGroup_configure_ip_group",
    "PortConfigFunc_configure_interface_lan",
    "PortConfigFunc_configure_interface_wan",
};

constexpr bool tracesInFullMode(std::string_view emitter) {
    return std::find(std::begin(silentInFullMode), std::end(silentInFullMode), emitter) == std::end(silentInFullMode);
}

/// An emitter that delta mode does not call.
struct LeftOut {
    std::string_view emitter;
    int (*twin)(); ///< the delta function of that name that is there all the same; null if there is none
};

inline constexpr LeftOut notInDeltaMode[] = {
    {"convConfigAdvancedfunction", delta::convConfigAdvancedfunction},
    {"convConfigApplicationfunction", delta::convConfigApplicationfunction},
    {"convConfigNetConfig_mid_sys_ddns_server_configure", delta::convConfigNetConfig_mid_sys_ddns_server_configure},
    {"convConfigNetConfig_mid_sys_dhcp_server_configure", delta::convConfigNetConfig_mid_sys_dhcp_server_configure},
    {"InterfaceGroup_configure_ip_group", delta::InterfaceGroup_configure_ip_group},
    {"convConfigPortMirror_PortMirror_configure_mirror_mode", nullptr},
    {"convConfigPriorityConfig_PriorityConfig_configure_interface_qos",
     delta::convConfigPriorityConfig_PriorityConfig_configure_interface_qos},
    {"convConfigStormControl_StormControl_configure_interface_security",
     delta::convConfigStormControl_StormControl_configure_interface_security},
    {"PortConfigFunc_configure_interface_lan", delta::PortConfigFunc_configure_interface_lan},
    {"PortConfigFunc_configure_interface_wan", delta::PortConfigFunc_configure_interface_wan},
};

} // namespace emitter_lists
