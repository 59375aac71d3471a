#include "sections/ip.h"

#include "format/section_lines.h"

// ----------------------------------------------------------------------------------------------------------- IPv4

static int write(const SectionLines<Ipv4Interface> &ip) {
    // Full mode has a line for the two known modes only; in delta mode every mode but 1 is off.
    if (ip.full) ip.code(&Ipv4Interface::dhcpMode, {{1, "ip address dhcp\n"}, {0, "no ip address dhcp\n"}});
    else ip.code(&Ipv4Interface::dhcpMode, {{1, "ip address dhcp\n"}}, "no ip address dhcp\n");
    if (ip.due(&Ipv4Interface::address) || ip.due(&Ipv4Interface::mask) || ip.due(&Ipv4Interface::gateway)) {
        const AddressText address = textOf(ip.current.address); // the platform is asked in the order of the line
        const AddressText mask = textOf(ip.current.mask);
        append("ip address %s %s %s\n", address, mask, textOf(ip.current.gateway));
    }
    ip.onOff(&Ipv4Interface::enabled, "ip enable\n", "no ip enable\n");
    return 0;
}

int full::convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip(const Ipv4Interface &current) {
    return trace(), write({current});
}

int delta::convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip(const Ipv4Interface &current,
                                                                const Ipv4Interface &defaults) {
    return trace(), write({current, defaults});
}

int full::convConfigNetConfig_mid_sys_ddns_server_configure() { return trace(); }
int full::convConfigNetConfig_mid_sys_dhcp_server_configure() { return trace(); }
int full::convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server() { return trace(); }
int full::convConfig_mid_forward_dynamic_route_configure() { return trace(); }
int full::convConfig_mid_forward_static_route_idx_configure() { return trace(); }

// ----------------------------------------------------------------------------------------------------------- IPv6

static int write(const SectionLines<Ipv6Interface> &ipv6) {
    const Ipv6Interface &current = ipv6.current;
    ipv6.onOff(&Ipv6Interface::enabled, "ipv6 enable\n", "no ipv6 enable\n");
    ipv6.onOff(&Ipv6Interface::autoconfiguration, "ipv6 address autoconfig\n", "no ipv6 address autoconfig\n");
    // The texts of the addresses are compared.
    const auto linkLocal = [](const Ipv6Interface &from) { return textOf(from.linkLocal); };
    if (ipv6.dueBy(linkLocal) || ipv6.due(&Ipv6Interface::linkLocalPrefixLength))
        append("ipv6 address link-local %s/%d\n", linkLocal(current), current.linkLocalPrefixLength);
    const auto global = [](const Ipv6Interface &from) { return textOf(from.global); };
    const auto gateway = [](const Ipv6Interface &from) { return textOf(from.gateway); };
    if (ipv6.dueBy(global) || ipv6.due(&Ipv6Interface::globalPrefixLength) || ipv6.dueBy(gateway)) {
        const AddressText address = global(current);
        append("ipv6 address global %s/%d %s\n", address, current.globalPrefixLength, gateway(current));
    }
    ipv6.onOff(&Ipv6Interface::rapidCommit, "ipv6 address dhcp rapid-commit\n", "no ipv6 address dhcp rapid-commit\n");
    ipv6.code(&Ipv6Interface::dhcpMode, {{1, "ipv6 address dhcp auto\n"}, {2, "ipv6 address dhcp force\n"}},
              "no ipv6 address dhcp\n");
    return 0;
}

int full::convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6(const Ipv6Interface &current) {
    return trace(), write({current});
}

int delta::convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6(const Ipv6Interface &current,
                                                                  const Ipv6Interface &defaults) {
    return trace(), write({current, defaults});
}

int full::convConfig_mid_sys_netcfg_wan_configure() { return trace(); }
int full::convConfig_mid_sys_netcfg_ipv4_lan_configure() { return trace(); }
int full::convConfig_mid_sys_netcfg_wan_ipv6_configure() { return trace(); }
int full::convConfig_mid_sys_netcfg_ipv6_lan_configure() { return trace(); }
int full::convConfig_mid_sys_dhcpv6_server_configure() { return trace(); }
int full::convConfig_mid_sys_dhcpv6_srv_state_idx_configure() { return trace(); }
int full::convConfig_mid_sys_radvd_configure() { return trace(); }
int full::convConfig_mid_sys_ddns_ipv6_configure() { return trace(); }
int full::convConfig_mid_forward_static_ipv6_route_idx_configure() { return trace(); }
