/// The switch's own addresses.
///
/// Routes, DNS, DHCP and DHCPv6 servers, router advertisement and dynamic DNS are not configured on this switch: their
/// emitters only trace, so that they keep their places in the order.
#pragma once

#include "platform/image.h"

namespace full {
/// A DHCP mode beyond 1 has no line.
int convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip(const Ipv4Interface &current);
int convConfigNetConfig_mid_sys_ddns_server_configure();            ///< traces only
int convConfigNetConfig_mid_sys_dhcp_server_configure();            ///< traces only
int convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server(); ///< traces only
int convConfig_mid_forward_dynamic_route_configure();               ///< traces only
int convConfig_mid_forward_static_route_idx_configure();            ///< traces only
/// Addresses are written even if they are not set.
int convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6(const Ipv6Interface &current);
int convConfig_mid_sys_netcfg_wan_configure();                ///< traces only
int convConfig_mid_sys_netcfg_ipv4_lan_configure();           ///< traces only
int convConfig_mid_sys_netcfg_wan_ipv6_configure();           ///< traces only
int convConfig_mid_sys_netcfg_ipv6_lan_configure();           ///< traces only
int convConfig_mid_sys_dhcpv6_server_configure();             ///< traces only
int convConfig_mid_sys_dhcpv6_srv_state_idx_configure();      ///< traces only
int convConfig_mid_sys_radvd_configure();                     ///< traces only
int convConfig_mid_sys_ddns_ipv6_configure();                 ///< traces only
int convConfig_mid_forward_static_ipv6_route_idx_configure(); ///< traces only
} // namespace full

namespace delta {
/// A DHCP mode beyond 1 counts as off.
int convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip(const Ipv4Interface &current, const Ipv4Interface &defaults);
using full::convConfig_mid_forward_dynamic_route_configure;               // traces only
using full::convConfig_mid_forward_static_route_idx_configure;            // traces only
using full::convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server; // traces only
/// Addresses are compared by their text.
int convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6(const Ipv6Interface &current, const Ipv6Interface &defaults);
using full::convConfig_mid_forward_static_ipv6_route_idx_configure; // traces only
using full::convConfig_mid_sys_ddns_ipv6_configure;                 // traces only
using full::convConfig_mid_sys_dhcpv6_server_configure;             // traces only
using full::convConfig_mid_sys_dhcpv6_srv_state_idx_configure;      // traces only
using full::convConfig_mid_sys_netcfg_ipv4_lan_configure;           // traces only
using full::convConfig_mid_sys_netcfg_ipv6_lan_configure;           // traces only
using full::convConfig_mid_sys_netcfg_wan_configure;                // traces only
using full::convConfig_mid_sys_netcfg_wan_ipv6_configure;           // traces only
using full::convConfig_mid_sys_radvd_configure;                     // traces only
// These trace only, and no driver calls them in delta mode.
using full::convConfigNetConfig_mid_sys_ddns_server_configure;
using full::convConfigNetConfig_mid_sys_dhcp_server_configure;
} // namespace delta
