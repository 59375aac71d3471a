#include "sections/ip.h"

#include "app/text/text.h"
#include "format/address.h"
#include "format/blocks.h"

// ----------------------------------------------------------------------------------------------------------- IPv4

int full::convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip(const Ipv4Interface &current) {
    trace();
    // Only the two known modes have a line here; in delta mode every mode but 1 is off.
    if (current.dhcpMode == 1) append("ip address dhcp\n");
    if (current.dhcpMode == 0) append("no ip address dhcp\n");
    append("ip address %s %s %s\n", textOf(current.address), textOf(current.mask), textOf(current.gateway));
    appendSwitch(isOn(current.enabled), "ip enable\n", "no ip enable\n");
    return 0;
}

int delta::convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip(const Ipv4Interface &current,
                                                                const Ipv4Interface &defaults) {
    trace();
    if (current.dhcpMode != defaults.dhcpMode)
        appendSwitch(current.dhcpMode == 1, "ip address dhcp\n", "no ip address dhcp\n");
    if (!sameBytes(current.address, defaults.address) || !sameBytes(current.mask, defaults.mask) ||
        !sameBytes(current.gateway, defaults.gateway))
        append("ip address %s %s %s\n", textOf(current.address), textOf(current.mask), textOf(current.gateway));
    if (current.enabled != defaults.enabled) appendSwitch(isOn(current.enabled), "ip enable\n", "no ip enable\n");
    return 0;
}

int full::convConfigNetConfig_mid_sys_ddns_server_configure() { return trace(); }

int full::convConfigNetConfig_mid_sys_dhcp_server_configure() { return trace(); }

int full::convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server() { return trace(); }

int full::convConfig_mid_forward_dynamic_route_configure() { return trace(); }

int full::convConfig_mid_forward_static_route_idx_configure() { return trace(); }

// ----------------------------------------------------------------------------------------------------------- IPv6

namespace {

/// Both modes write the same line for the DHCPv6 client.
void appendDhcpv6Mode(u8 mode) {
    switch (mode) {
    case 1: append("ipv6 address dhcp auto\n"); break;
    case 2: append("ipv6 address dhcp force\n"); break;
    default: append("no ipv6 address dhcp\n");
    }
}

} // namespace

int full::convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6(const Ipv6Interface &current) {
    trace();
    appendSwitch(isOn(current.enabled), "ipv6 enable\n", "no ipv6 enable\n");
    appendSwitch(isOn(current.autoconfiguration), "ipv6 address autoconfig\n", "no ipv6 address autoconfig\n");
    append("ipv6 address link-local %s/%d\n", textOf(current.linkLocal), current.linkLocalPrefixLength);
    append("ipv6 address global %s/%d %s\n", textOf(current.global), current.globalPrefixLength,
           textOf(current.gateway));
    appendSwitch(isOn(current.rapidCommit), "ipv6 address dhcp rapid-commit\n", "no ipv6 address dhcp rapid-commit\n");
    appendDhcpv6Mode(current.dhcpMode);
    return 0;
}

int delta::convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6(const Ipv6Interface &current,
                                                                  const Ipv6Interface &defaults) {
    trace();
    if (current.enabled != defaults.enabled) appendSwitch(isOn(current.enabled), "ipv6 enable\n", "no ipv6 enable\n");
    if (current.autoconfiguration != defaults.autoconfiguration)
        appendSwitch(isOn(current.autoconfiguration), "ipv6 address autoconfig\n", "no ipv6 address autoconfig\n");

    const AddressText linkLocal = textOf(current.linkLocal);
    if (linkLocal != textOf(defaults.linkLocal) || current.linkLocalPrefixLength != defaults.linkLocalPrefixLength)
        append("ipv6 address link-local %s/%d\n", linkLocal, current.linkLocalPrefixLength);

    const AddressText global = textOf(current.global);
    const AddressText gateway = textOf(current.gateway);
    if (global != textOf(defaults.global) || current.globalPrefixLength != defaults.globalPrefixLength ||
        gateway != textOf(defaults.gateway))
        append("ipv6 address global %s/%d %s\n", global, current.globalPrefixLength, gateway);

    if (current.rapidCommit != defaults.rapidCommit)
        appendSwitch(isOn(current.rapidCommit), "ipv6 address dhcp rapid-commit\n",
                     "no ipv6 address dhcp rapid-commit\n");
    if (current.dhcpMode != defaults.dhcpMode) appendDhcpv6Mode(current.dhcpMode);
    return 0;
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
