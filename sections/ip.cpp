#include "sections/ip.h"

#include "app/text.h"

int full::convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip(const Ipv4Interface &) { return trace(__func__); }
int delta::convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip(const Ipv4Interface &, const Ipv4Interface &) {
    return trace(__func__);
}

int full::convConfigNetConfig_mid_sys_ddns_server_configure() { return trace(__func__); }

int full::convConfigNetConfig_mid_sys_dhcp_server_configure() { return trace(__func__); }

int full::convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server() { return trace(__func__); }

int full::convConfig_mid_forward_dynamic_route_configure() { return trace(__func__); }

int full::convConfig_mid_forward_static_route_idx_configure() { return trace(__func__); }

int full::convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6(const Ipv6Interface &) { return trace(__func__); }
int delta::convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6(const Ipv6Interface &, const Ipv6Interface &) {
    return trace(__func__);
}

int full::convConfig_mid_sys_netcfg_wan_configure() { return trace(__func__); }

int full::convConfig_mid_sys_netcfg_ipv4_lan_configure() { return trace(__func__); }

int full::convConfig_mid_sys_netcfg_wan_ipv6_configure() { return trace(__func__); }

int full::convConfig_mid_sys_netcfg_ipv6_lan_configure() { return trace(__func__); }

int full::convConfig_mid_sys_dhcpv6_server_configure() { return trace(__func__); }

int full::convConfig_mid_sys_dhcpv6_srv_state_idx_configure() { return trace(__func__); }

int full::convConfig_mid_sys_radvd_configure() { return trace(__func__); }

int full::convConfig_mid_sys_ddns_ipv6_configure() { return trace(__func__); }

int full::convConfig_mid_forward_static_ipv6_route_idx_configure() { return trace(__func__); }
