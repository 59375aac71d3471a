/// The switch's own addresses.
///
/// Routes, DNS, DHCP and DHCPv6 servers, router advertisement and dynamic DNS are no business of this switch: their
/// emitters only trace, so that they keep their places in the order.
#pragma once

#include "platform/image.h"

namespace full {
/// IPv4 management interface (image 376 to 491): "ip address dhcp" for DHCP modes 0 and 1 alone, "ip address" with
/// address, mask and gateway, "ip enable".
int convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip(const Ipv4Interface &current);
int convConfigNetConfig_mid_sys_ddns_server_configure();            ///< traces only
int convConfigNetConfig_mid_sys_dhcp_server_configure();            ///< traces only
int convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server(); ///< traces only
int convConfig_mid_forward_dynamic_route_configure();               ///< traces only
int convConfig_mid_forward_static_route_idx_configure();            ///< traces only
/// IPv6 management interface (image 492 to 695): "ipv6 enable" and the "ipv6 address" lines, set or not.
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
/// The same lines for what differs; every DHCP mode but 1 counts as off here. Nothing if nothing differs.
int convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip(const Ipv4Interface &current, const Ipv4Interface &defaults);
using full::convConfig_mid_forward_dynamic_route_configure;               // traces only
using full::convConfig_mid_forward_static_route_idx_configure;            // traces only
using full::convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server; // traces only
/// The same lines for what differs, addresses by their text. Nothing if nothing differs.
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
