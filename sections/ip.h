/// The switch's own addresses.
#pragma once

#include "platform/image.h"

namespace full {
int convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip(const Ipv4Interface &current);
int convConfigNetConfig_mid_sys_ddns_server_configure();
int convConfigNetConfig_mid_sys_dhcp_server_configure();
int convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server();
int convConfig_mid_forward_dynamic_route_configure();
int convConfig_mid_forward_static_route_idx_configure();
int convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6(const Ipv6Interface &current);
int convConfig_mid_sys_netcfg_wan_configure();
int convConfig_mid_sys_netcfg_ipv4_lan_configure();
int convConfig_mid_sys_netcfg_wan_ipv6_configure();
int convConfig_mid_sys_netcfg_ipv6_lan_configure();
int convConfig_mid_sys_dhcpv6_server_configure();
int convConfig_mid_sys_dhcpv6_srv_state_idx_configure();
int convConfig_mid_sys_radvd_configure();
int convConfig_mid_sys_ddns_ipv6_configure();
int convConfig_mid_forward_static_ipv6_route_idx_configure();
} // namespace full

namespace delta {
int convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip(const Ipv4Interface &current, const Ipv4Interface &defaults);
using full::convConfig_mid_forward_dynamic_route_configure;               // traces only
using full::convConfig_mid_forward_static_route_idx_configure;            // traces only
using full::convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server; // traces only
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
} // namespace delta
