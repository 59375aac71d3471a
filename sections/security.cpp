#include "sections/security.h"

#include "app/text/text.h"
#include "format/address.h"
#include "format/blocks.h"
#include "format/port_list.h"
#include "platform/board.h"
#include "platform/util.h"

#include <algorithm>

// -------------------------------------------------------------------------------------------------- access control

namespace {

/// Whether the field takes part in the match of `rule`.
bool matches(const AclRule &rule, AclMatch::Bit field) { return utilBitmapCheck(rule.match.bytes, field) != 0; }

/// What becomes of a frame that matches. An unknown code denies, as 0 does.
void appendAction(const AclRule &rule) {
    switch (rule.action) {
    case 1: append("action permit\n"); break;
    case 2: append("action copy(mirror)\n"); break;
    case 3: append("action redirect\n"); break;
    default: append("action deny\n"); break;
    }
}

} // namespace

// Which lines end with a blank is irregular, and another matter in each mode: compare the two line by line.

int full::convConfigACLControl_ACLControl_configure_acl(const AclTable &current) {
    trace();
    for (const AclRule &rule : current) {
        if (!isOn(rule.valid)) continue;
        append("acl %d\n", rule.number);
        appendAction(rule);
        append("action-port %d \n", rule.actionPort + 1);

        if (rule.isIpv6Rule()) {
            if (matches(rule, AclMatch::destinationIpv6))
                append("destination-ipv6 address %s %d\n", textOf(rule.destinationIpv6), rule.destinationPrefixLength);
            else append("destination-ipv6 any \n");
        } else {
            if (matches(rule, AclMatch::destinationIpv4))
                append("destination-ipv4 address %s %s\n", textOf(rule.destination), textOf(rule.destinationMask));
            else append("destination-ipv4 any \n");
        }

        if (matches(rule, AclMatch::destinationL4Port))
            append("destination-l4-port %u 0x%s\n", rule.destinationL4Port, hexOf(rule.destinationL4Mask));
        else append("destination-l4-port any \n");

        if (matches(rule, AclMatch::destinationMac))
            append("destination-mac mac %02X:%02X:%02X:%02X:%02X:%02X %02X:%02X:%02X:%02X:%02X:%02X\n",
                   rule.destinationMac, rule.destinationMacMask);
        else append("destination-mac any \n");

        if (matches(rule, AclMatch::etherType)) append("ethertype 0x%s \n", hexOf(rule.etherType));
        else append("ethertype any \n");

        if (matches(rule, AclMatch::ingressPort)) append("ingress-port %s \n", textOf(rule.ingressPorts));
        else append("ingress-port any \n");

        if (matches(rule, AclMatch::protocol)) append("protocol 0x%s \n", rule.protocol);
        else append("protocol any \n");

        if (rule.rateLimit.value() != 0) append("rate-limit %ld \n", rule.rateLimit);
        else append("no rate-limit \n");

        if (rule.isIpv6Rule()) {
            if (matches(rule, AclMatch::sourceIpv6))
                append("source-ipv6 address %s %d\n", textOf(rule.sourceIpv6), rule.sourcePrefixLength);
            else append("source-ipv6 any \n");
        } else {
            if (matches(rule, AclMatch::sourceIpv4))
                append("source-ipv4 address %s %s\n", textOf(rule.source), textOf(rule.sourceMask));
            else append("source-ipv4 any \n");
        }

        if (matches(rule, AclMatch::sourceL4Port))
            append("source-l4-port %u 0x%s\n", rule.sourceL4Port, hexOf(rule.sourceL4Mask));
        else append("source-l4-port any \n");

        if (matches(rule, AclMatch::sourceMac))
            append("source-mac mac %02X:%02X:%02X:%02X:%02X:%02X %02X:%02X:%02X:%02X:%02X:%02X\n", rule.sourceMac,
                   rule.sourceMacMask);
        else append("source-mac any \n");

        if (matches(rule, AclMatch::tos)) append("tos 0x%s\n", rule.tos);
        else append("tos any \n");

        if (matches(rule, AclMatch::vlanId)) append("vid %d \n", rule.vlan);
        else append("vid any \n");

        append("apply\n");
        append("exit\n");
    }
    return 0;
}

int delta::convConfigACLControl_ACLControl_configure_acl(const AclTable &current, const AclTable &defaults) {
    trace();
    const AclRule *before = defaults;
    for (const AclRule &rule : current) {
        const AclRule &was = *before++;
        if (!isOn(rule.valid)) continue;
        // Whether the field takes part is compared, its value is not: a changed address alone writes nothing.
        const auto changed = [&](AclMatch::Bit field) { return matches(rule, field) != matches(was, field); };

        append("acl %d\n", rule.number);
        if (rule.action != was.action) appendAction(rule);
        if (rule.actionPort != was.actionPort) append("action-port %d \n", rule.actionPort + 1);

        if (rule.isIpv6Rule()) {
            if (changed(AclMatch::destinationIpv6)) {
                if (matches(rule, AclMatch::destinationIpv6))
                    append("destination-ipv6 address %s %d\n", textOf(rule.destinationIpv6),
                           rule.destinationPrefixLength);
                else append("destination-ipv6 any\n");
            }
        } else {
            if (changed(AclMatch::destinationIpv4)) {
                if (matches(rule, AclMatch::destinationIpv4))
                    append("destination-ipv4 address %s %s\n", textOf(rule.destination), textOf(rule.destinationMask));
                else append("destination-ipv4 any\n");
            }
        }

        if (changed(AclMatch::destinationL4Port)) {
            if (matches(rule, AclMatch::destinationL4Port))
                append("destination-l4-port %u 0x%s\n", rule.destinationL4Port, hexOf(rule.destinationL4Mask));
            else append("destination-l4-port any\n");
        }

        if (changed(AclMatch::destinationMac)) {
            if (matches(rule, AclMatch::destinationMac))
                append("destination-mac mac %02X:%02X:%02X:%02X:%02X:%02X %02X:%02X:%02X:%02X:%02X:%02X\n",
                       rule.destinationMac, rule.destinationMacMask);
            else append("destination-mac any\n");
        }

        if (changed(AclMatch::etherType)) {
            if (matches(rule, AclMatch::etherType)) append("ethertype 0x%s\n", hexOf(rule.etherType));
            else append("ethertype any\n");
        }

        if (changed(AclMatch::ingressPort)) {
            if (matches(rule, AclMatch::ingressPort)) append("ingress-port %s \n", textOf(rule.ingressPorts));
            else append("ingress-port any\n");
        }

        // Both forms keep their blank in this mode too.
        if (changed(AclMatch::protocol)) {
            if (matches(rule, AclMatch::protocol)) append("protocol 0x%s \n", rule.protocol);
            else append("protocol any \n");
        }

        if (rule.rateLimit != was.rateLimit) {
            if (rule.rateLimit.value() != 0) append("rate-limit %ld\n", rule.rateLimit);
            else append("no rate-limit\n");
        }

        if (rule.isIpv6Rule()) {
            if (changed(AclMatch::sourceIpv6)) {
                if (matches(rule, AclMatch::sourceIpv6))
                    append("source-ipv6 address %s %d\n", textOf(rule.sourceIpv6), rule.sourcePrefixLength);
                else append("source-ipv6 any\n");
            }
        } else {
            if (changed(AclMatch::sourceIpv4)) {
                if (matches(rule, AclMatch::sourceIpv4))
                    append("source-ipv4 address %s %s\n", textOf(rule.source), textOf(rule.sourceMask));
                else append("source-ipv4 any\n");
            }
        }

        if (changed(AclMatch::sourceL4Port)) {
            if (matches(rule, AclMatch::sourceL4Port))
                append("source-l4-port %u 0x%s\n", rule.sourceL4Port, hexOf(rule.sourceL4Mask));
            else append("source-l4-port any\n");
        }

        if (changed(AclMatch::sourceMac)) {
            if (matches(rule, AclMatch::sourceMac))
                append("source-mac mac %02X:%02X:%02X:%02X:%02X:%02X %02X:%02X:%02X:%02X:%02X:%02X\n", rule.sourceMac,
                       rule.sourceMacMask);
            else append("source-mac any\n");
        }

        if (changed(AclMatch::tos)) {
            if (matches(rule, AclMatch::tos)) append("tos 0x%s\n", rule.tos);
            else append("tos any\n");
        }

        if (changed(AclMatch::vlanId)) {
            if (matches(rule, AclMatch::vlanId)) append("vid %d\n", rule.vlan);
            else append("vid any\n");
        }

        append("apply\n");
        append("exit\n");
    }
    return 0;
}

// ---------------------------------------------------------------------------------------------------- 802.1X, switch

int full::convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(const Dot1xConfig &current) {
    trace();
    appendSwitch(isOn(current.enabled), "dot1x\n", "no dot1x\n");
    append("dot1x reauth-period %d\n", current.reauthPeriod);
    appendSwitch(isOn(current.reauthentication), "dot1x reauthentication\n", "no dot1x reauthentication\n");
    append("dot1x secret %s\n", current.secret);
    append("dot1x server %s\n", textOf(current.server));
    append("dot1x timeout %d\n", current.timeout);
    return 0;
}

int delta::convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(const Dot1xConfig &current, const Dot1xConfig &defaults) {
    trace();
    if (current.enabled != defaults.enabled) appendSwitch(isOn(current.enabled), "dot1x\n", "no dot1x\n");
    if (current.reauthPeriod != defaults.reauthPeriod) append("dot1x reauth-period %d\n", current.reauthPeriod);
    if (current.reauthentication != defaults.reauthentication)
        appendSwitch(isOn(current.reauthentication), "dot1x reauthentication\n", "no dot1x reauthentication\n");
    // The whole secret is written, but its last two bytes do not count as a change.
    if (!sameLeadingBytes(current.secret, defaults.secret, Dot1xConfig::comparedSecret))
        append("dot1x secret %s\n", current.secret);
    if (!sameBytes(current.server, defaults.server)) append("dot1x server %s\n", textOf(current.server));
    if (current.timeout != defaults.timeout) append("dot1x timeout %d\n", current.timeout);
    return 0;
}

// --------------------------------------------------------------------------------------------- DHCP snooping, switch

namespace {

/// The ports with a DHCP server, if there are any. On boards of type 5027 "none" is asked of the first sixteen ports
/// alone, so that servers on ports from 17 on write both lines. Both modes write the same lines.
void appendServerPorts(const DhcpSnooping &snooping) {
    const PortWords ports = wordsOf(snooping.serverPorts);
    if (CHECK_HAS_MEMBER_INT(ports.data(), 1) == 1)
        appendPortLine("ip dhcp snooping dhcp-server ", ports.data(), 1, portCount, " \n");
    const bool none = g_EEPROM.isType5027() ? snooping.noServerOnFirstSixteenPorts() : noPort(snooping.serverPorts);
    if (none) append("no ip dhcp snooping dhcp-server\n");
}

} // namespace

int full::convConfigSKAConfig2_SKAConfig2_configure_ip(const DhcpSnooping &current) {
    trace();
    const CircuitIds &ids = gSysConfig->circuitIds;
    appendSwitch(isOn(current.enabled), "ip dhcp snooping\n", "no ip dhcp snooping\n");
    append("ip dhcp snooping initiated %d\n", current.initiated);
    append("ip dhcp snooping leased %d\n", current.leased);
    appendSwitch(isOn(gSysConfig->dhcpSnoopingPorts.option), "ip dhcp snooping option\n",
                 "no ip dhcp snooping option\n");
    appendSwitch(isOn(ids.remoteInserted), "ip dhcp snooping remote\n", "no ip dhcp snooping remote\n");
    appendSwitch(isOn(ids.remoteFormatted), "ip dhcp snooping remote formatted\n",
                 "no ip dhcp snooping remote formatted\n");
    if (!ids.remoteId.empty()) append("ip dhcp snooping remote id %s\n", ids.remoteId);
    else append("no ip dhcp snooping remote id\n");
    appendServerPorts(current);
    appendSwitch(isOn(current.checkServerAddress), "ip dhcp snooping dhcp-server-ip\n",
                 "no ip dhcp snooping dhcp-server-ip\n");
    int number = 0;
    for (const Ipv6 &server : current.servers) {
        ++number;
        const AddressText address = mappedOrIpv6(server);
        if (!address.isUnset()) append("ip dhcp snooping dhcp-server-ip %d ip-address %s \n", number, address);
        else append("no ip dhcp snooping dhcp-server-ip %d ip-address \n", number);
    }
    return 0;
}

int delta::convConfigSKAConfig2_SKAConfig2_configure_ip(const DhcpSnooping &current, const DhcpSnooping &defaults) {
    trace();
    const CircuitIds &ids = gSysConfig->circuitIds;
    const CircuitIds &idsBefore = gDefConfig->circuitIds;
    if (current.enabled != defaults.enabled)
        appendSwitch(isOn(current.enabled), "ip dhcp snooping\n", "no ip dhcp snooping\n");
    if (current.initiated != defaults.initiated) append("ip dhcp snooping initiated %d\n", current.initiated);
    if (current.leased != defaults.leased) append("ip dhcp snooping leased %d\n", current.leased);
    if (gSysConfig->dhcpSnoopingPorts.option != gDefConfig->dhcpSnoopingPorts.option)
        appendSwitch(isOn(gSysConfig->dhcpSnoopingPorts.option), "ip dhcp snooping option\n",
                     "no ip dhcp snooping option\n");
    if (ids.remoteInserted != idsBefore.remoteInserted)
        appendSwitch(isOn(ids.remoteInserted), "ip dhcp snooping remote\n", "no ip dhcp snooping remote\n");
    if (ids.remoteFormatted != idsBefore.remoteFormatted)
        appendSwitch(isOn(ids.remoteFormatted), "ip dhcp snooping remote formatted\n",
                     "no ip dhcp snooping remote formatted\n");
    if (!sameText(ids.remoteId, idsBefore.remoteId)) {
        if (!ids.remoteId.empty()) append("ip dhcp snooping remote id %s\n", ids.remoteId);
        else append("no ip dhcp snooping remote id\n");
    }
    if (!sameBytes(current.serverPorts, defaults.serverPorts)) appendServerPorts(current);
    if (current.checkServerAddress != defaults.checkServerAddress)
        appendSwitch(isOn(current.checkServerAddress), "ip dhcp snooping dhcp-server-ip\n",
                     "no ip dhcp snooping dhcp-server-ip\n");
    int number = 0;
    for (const Ipv6 &server : current.servers) {
        const AddressText address = mappedOrIpv6(server);
        const bool changed = address != mappedOrIpv6(defaults.servers[number++]);
        if (!changed) continue;
        // No blank at the end of these lines, unlike in full mode.
        if (!address.isUnset()) append("ip dhcp snooping dhcp-server-ip %d ip-address %s\n", number, address);
        else append("no ip dhcp snooping dhcp-server-ip %d ip-address\n", number);
    }
    return 0;
}

// ------------------------------------------------------------------------------ PPPoE intermediate agent, switch

int full::convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(const PppoeConfig &current) {
    trace();
    appendSwitch(isOn(current.enabled), "ip pppoe intermediate-agent\n", "no ip pppoe intermediate-agent\n");
    return 0;
}

int delta::convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(const PppoeConfig &current,
                                                                const PppoeConfig &defaults) {
    trace();
    if (current.enabled != defaults.enabled)
        appendSwitch(isOn(current.enabled), "ip pppoe intermediate-agent\n", "no ip pppoe intermediate-agent\n");
    return 0;
}

// --------------------------------------------------------------------------------------------------- source bindings

int full::convConfigSecurityIP_SecurityIP_configure_ip_source(const SourceBindingTable &current) {
    trace();
    int number = 0;
    for (const SourceBinding &binding : current) {
        ++number;
        if (!isOn(binding.valid)) continue;
        const AddressText address = mappedOrIpv6(binding.address);
        if (!address.isUnset()) append("ip source binding %d ip-address %s \n", number, address);
        else append("no ip source binding %d ip-address \n", number);
        if (isOn(binding.enabled)) append("ip source binding %d\n", number);
        else append("no ip source binding %d\n", number);
    }
    return 0;
}

int delta::convConfigSecurityIP_SecurityIP_configure_ip_source(const SourceBindingTable &current,
                                                               const SourceBindingTable &defaults) {
    trace();
    int number = 0;
    for (const SourceBinding &binding : current) {
        const SourceBinding &was = defaults[number++];
        if (!isOn(binding.valid)) continue;
        const AddressText address = mappedOrIpv6(binding.address);
        if (address != mappedOrIpv6(was.address)) {
            // No blank at the end of these lines, unlike in full mode.
            if (!address.isUnset()) append("ip source binding %d ip-address %s\n", number, address);
            else append("no ip source binding %d ip-address\n", number);
        }
        if (binding.enabled != was.enabled) {
            if (isOn(binding.enabled)) append("ip source binding %d\n", number);
            else append("no ip source binding %d\n", number);
        }
    }
    return 0;
}

int full::convConfigSwitchConfig_SwitchConfig_configure_ip_source(const u8 &current) {
    trace();
    appendSwitch(isOn(current), "ip source\n", "no ip source\n");
    return 0;
}

int delta::convConfigSwitchConfig_SwitchConfig_configure_ip_source(const u8 &current, const u8 &defaults) {
    trace();
    if (current != defaults) appendSwitch(isOn(current), "ip source\n", "no ip source\n");
    return 0;
}

// ------------------------------------------------------------------- MAC limit, isolation, storm protection, switch

int full::convConfigSKAConfig2_SKAConfig2_configure_configure_security() { return trace(); }

int full::convConfigMacLimit_MacLimit_configure_security_mac_limit(const MacLimit &current) {
    trace();
    appendSwitch(isOn(current.enabled), "security mac-limit\n", "no security mac-limit\n");
    append("security mac-limit notification threshold interval %d\n", current.notificationInterval);
    return 0;
}

int delta::convConfigMacLimit_MacLimit_configure_security_mac_limit(const MacLimit &current, const MacLimit &defaults) {
    trace();
    if (current.enabled != defaults.enabled)
        appendSwitch(isOn(current.enabled), "security mac-limit\n", "no security mac-limit\n");
    if (current.notificationInterval != defaults.notificationInterval)
        append("security mac-limit notification threshold interval %d\n", current.notificationInterval);
    return 0;
}

int full::convConfigPortIsolation_PortIsolation_configure_security_port_isolation(const Isolation &current) {
    trace();
    const PortBitmap others = complementOf(current.uplinks);
    if (!noPort(current.uplinks)) append("security port-isolation up-link-port %s \n", textOf(current.uplinks));
    if (!noPort(others)) append("no security port-isolation up-link-port %s \n", textOf(others));
    appendSwitch(isOn(current.enabled), "security port-isolation\n", "no security port-isolation\n");
    return 0;
}

int delta::convConfigPortIsolation_PortIsolation_configure_security_port_isolation(const Isolation &current,
                                                                                   const Isolation &defaults) {
    trace();
    const PortBitmap others = complementOf(current.uplinks);
    const PortBitmap othersBefore = complementOf(defaults.uplinks);
    // No blank at the end of the lists, unlike in full mode.
    if (!noPort(current.uplinks) && textOf(current.uplinks) != textOf(defaults.uplinks))
        append("security port-isolation up-link-port %s\n", textOf(current.uplinks));
    if (!noPort(others) && textOf(others) != textOf(othersBefore))
        append("no security port-isolation up-link-port %s\n", textOf(others));
    if (current.enabled != defaults.enabled)
        appendSwitch(isOn(current.enabled), "security port-isolation\n", "no security port-isolation\n");
    return 0;
}

namespace {

const char *stormRate(const be32 &index) { return GET_STORM_RATE_STR(index.value()); }

} // namespace

int full::convConfigStormControl_StormControl_configure_security_storm_control(const StormControl &current) {
    trace();
    if (isOn(current.broadcast)) append("security storm-protection broadcast %s\n", stormRate(current.broadcast));
    else append("no security storm-protection broadcast \n");
    if (isOn(current.multicast)) append("security storm-protection multicast %s\n", stormRate(current.multicast));
    else append("no security storm-protection multicast \n");
    // The interval stands between multicast and unicast.
    append("security storm-protection notification threshold interval %d\n", current.notificationInterval);
    if (isOn(current.unicast)) append("security storm-protection unicast %s\n", stormRate(current.unicast));
    else append("no security storm-protection unicast \n");
    return 0;
}

int delta::convConfigStormControl_StormControl_configure_security_storm_control(const StormControl &current,
                                                                                const StormControl &defaults) {
    trace();
    // No blank at the end of the "no" forms, unlike in full mode.
    if (current.broadcast != defaults.broadcast) {
        if (isOn(current.broadcast)) append("security storm-protection broadcast %s\n", stormRate(current.broadcast));
        else append("no security storm-protection broadcast\n");
    }
    if (current.multicast != defaults.multicast) {
        if (isOn(current.multicast)) append("security storm-protection multicast %s\n", stormRate(current.multicast));
        else append("no security storm-protection multicast\n");
    }
    if (current.notificationInterval != defaults.notificationInterval)
        append("security storm-protection notification threshold interval %d\n", current.notificationInterval);
    if (current.unicast != defaults.unicast) {
        if (isOn(current.unicast)) append("security storm-protection unicast %s\n", stormRate(current.unicast));
        else append("no security storm-protection unicast\n");
    }
    return 0;
}

int full::convConfigSecurity_HG() { return trace(); }

// ------------------------------------------------------------------------------------------------- 802.1X, by port

int full::convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(const Dot1xConfig &current) {
    trace();
    appendValueBlocks(
        bytesOfPorts(current.portControl),
        {{0, "dot1x port-control auto\n"}, {1, "no dot1x port-control\n"}, {2, "dot1x port-control unauthorized\n"}});
    return 0;
}

int delta::convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(const Dot1xConfig &current,
                                                                       const Dot1xConfig &defaults) {
    trace();
    if (sameBytes(current.portControl, defaults.portControl)) return 0;
    appendValueBlocks(
        bytesOfPorts(current.portControl),
        {{0, "dot1x port-control auto\n"}, {1, "no dot1x port-control\n"}, {2, "dot1x port-control unauthorized\n"}});
    return 0;
}

// ------------------------------------------------------------------------------------------- DHCP snooping, by port

namespace {

/// The block of the trusted ports is opened by any flag that is set, but lists only those that are exactly 1: the list
/// may be empty. Both modes write the same blocks.
void appendTrust(const DhcpSnoopingPorts &snooping) {
    const PortBytes trust = bytesOfPorts(snooping.trust);
    appendValueBlocks(trust, {{0, "no ip dhcp snooping trust\n"}});
    if (std::any_of(trust.begin(), trust.end(), [](u8 flag) { return isOn(flag); })) {
        appendInterface(trust, 1);
        append("ip dhcp snooping trust\n");
        append("exit\n");
    }
}

std::array<CircuitId, portCount> textsOf(const CircuitIds &ids) {
    std::array<CircuitId, portCount> texts;
    std::copy(std::begin(ids.text), std::end(ids.text), texts.begin());
    return texts;
}

/// The default circuit id of a port, `index` from 0.
const CircuitId &defaultCircuitId(std::size_t index) { return gDefConfig->circuitIds.text[index]; }

/// What overwrites the circuit id of a port that joined the block of port `index` (from 0): not a circuit id, but the
/// default image's description of that port and the bytes behind it.
CircuitId joinedCircuitId(std::size_t index) { return gDefConfig->descriptionAndBeyond(static_cast<int>(index)); }

} // namespace

int full::convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(const DhcpSnoopingPorts &current) {
    trace();
    const CircuitIds &ids = gSysConfig->circuitIds;
    appendValueBlocks(bytesOfPorts(current.portOption),
                      {{0, "no ip dhcp snooping option\n"}, {1, "ip dhcp snooping option\n"}});
    appendValueBlocks(bytesOfPorts(ids.inserted),
                      {{1, "ip dhcp snooping circuit\n"}, {0, "no ip dhcp snooping circuit\n"}});
    appendValueBlocks(bytesOfPorts(ids.formatted),
                      {{1, "ip dhcp snooping circuit formatted\n"}, {0, "no ip dhcp snooping circuit formatted\n"}});
    // In this mode too a port's default circuit id is not written.
    appendNameBlocks(textsOf(ids), defaultCircuitId, joinedCircuitId, "ip dhcp snooping circuit id %s \n");
    appendTrust(current);
    return 0;
}

int delta::convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(const DhcpSnoopingPorts &current,
                                                                              const DhcpSnoopingPorts &defaults) {
    trace();
    const CircuitIds &ids = gSysConfig->circuitIds;
    const CircuitIds &idsBefore = gDefConfig->circuitIds;
    if (!sameBytes(current.portOption, defaults.portOption))
        appendValueBlocks(bytesOfPorts(current.portOption),
                          {{0, "no ip dhcp snooping option\n"}, {1, "ip dhcp snooping option\n"}});
    if (bytesOfPorts(ids.inserted) != bytesOfPorts(idsBefore.inserted))
        appendValueBlocks(bytesOfPorts(ids.inserted),
                          {{1, "ip dhcp snooping circuit\n"}, {0, "no ip dhcp snooping circuit\n"}});
    if (bytesOfPorts(ids.formatted) != bytesOfPorts(idsBefore.formatted))
        appendValueBlocks(bytesOfPorts(ids.formatted), {{1, "ip dhcp snooping circuit formatted\n"},
                                                        {0, "no ip dhcp snooping circuit formatted\n"}});
    appendNameBlocks(textsOf(ids), defaultCircuitId, joinedCircuitId, "ip dhcp snooping circuit id %s\n");
    if (!sameBytes(current.trust, defaults.trust)) appendTrust(current);
    return 0;
}

// --------------------------------------------------------------------------------- PPPoE intermediate agent, by port

int full::convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(const PppoeConfig &current) {
    trace();
    appendValueBlocks(wordsOf(current.trusted),
                      {{1, "ip pppoe intermediate-agent trust\n"}, {0, "no ip pppoe intermediate-agent trust\n"}});
    return 0;
}

int delta::convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(const PppoeConfig &current,
                                                                          const PppoeConfig &defaults) {
    trace();
    if (wordsOf(current.trusted) == wordsOf(defaults.trusted)) return 0;
    appendValueBlocks(wordsOf(current.trusted),
                      {{1, "ip pppoe intermediate-agent trust\n"}, {0, "no ip pppoe intermediate-agent trust\n"}});
    return 0;
}

// ------------------------------------------------------------------------------------------------------ source guard

int full::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(const SourceGuardModes &current) {
    trace();
    appendValueBlocks(bytesOfPorts(current),
                      {{0, "ip sourceguard fixed-ip\n"}, {1, "ip sourceguard dhcp\n"}, {2, "no ip sourceguard \n"}});
    return 0;
}

int delta::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(const SourceGuardModes &current,
                                                                              const SourceGuardModes &defaults) {
    trace();
    if (sameBytes(current, defaults)) return 0;
    appendValueBlocks(bytesOfPorts(current),
                      {{0, "ip sourceguard fixed-ip\n"}, {1, "ip sourceguard dhcp\n"}, {2, "no ip sourceguard\n"}});
    return 0;
}

int full::convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(
    const SourceGuardTable &current) {
    trace();
    for (const SourceGuardEntry &entry : current) {
        if (!isOn(entry.valid)) continue;
        append("interface %d\n", entry.port + 1);
        append("ip sourceguard static-ip %s vlan %d\n", ipv4First(entry.address, entry.addressIpv6), entry.vlan);
        append("exit\n");
    }
    return 0;
}

int delta::convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(
    const SourceGuardTable &current, const SourceGuardTable &defaults) {
    trace();
    // The two texts serve all entries and are compared whole: what a longer address left behind the end of a shorter
    // one counts as a difference.
    AddressText address;
    AddressText addressBefore;
    const SourceGuardEntry *before = defaults;
    for (const SourceGuardEntry &entry : current) {
        const SourceGuardEntry &was = *before++;
        if (!isOn(entry.valid)) continue;
        writeIpv4First(entry.address, entry.addressIpv6, address);
        writeIpv4First(was.address, was.addressIpv6, addressBefore);
        if (sameBytes(address, addressBefore)) continue;
        append("interface %d\n", entry.port + 1);
        append("ip sourceguard static-ip %s vlan %d\n", address, entry.vlan);
        append("exit\n");
    }
    return 0;
}

// ------------------------------------------------------------------------------------------------ MAC limit, by port

namespace {

/// Both modes write the same blocks. The lists of the groups, over bytes, lack the blank that the others have.
void appendMaximums(const MacLimit &limit) {
    const PortWords maximums = wordsOf(limit.portMaximum);
    appendValueBlocks(maximums, {{0, "no security mac-limit maximum \n"}});
    forEachGroup<u8>(maximums, 0, [](std::uint32_t maximum, const PortBytes &members) {
        appendInterface(members, 1);
        append("security mac-limit maximum %d\n", maximum);
        append("exit\n");
    });
}

} // namespace

int full::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(const MacLimit &current,
                                                                             const MacLimit &) {
    trace();
    appendValueBlocks(wordsOf(current.portEnabled), {{1, "security mac-limit\n"}, {0, "no security mac-limit\n"}});
    appendMaximums(current);
    return 0;
}

int delta::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(const MacLimit &current,
                                                                              const MacLimit &defaults) {
    trace();
    // The driver hands over the current section twice, so that its run writes nothing here.
    if (!sameBytes(current.portEnabled, defaults.portEnabled))
        appendValueBlocks(wordsOf(current.portEnabled), {{1, "security mac-limit\n"}, {0, "no security mac-limit\n"}});
    if (!sameBytes(current.portMaximum, defaults.portMaximum)) appendMaximums(current);
    return 0;
}

int full::convConfigStormControl_StormControl_configure_interface_security() { return trace(); }

// ------------------------------------------------------------------------------------------------ DHCP server trust

int full::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(const ServerTrust &current) {
    trace();
    appendValueBlocks(bytesOfPorts(current.ports),
                      {{1, "ip dhcp snooping server-trust\n"}, {0, "no ip dhcp snooping server-trust\n"}});
    return 0;
}

int delta::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(const ServerTrust &current,
                                                                                    const ServerTrust &defaults) {
    trace();
    if (bytesOfPorts(current.ports) == bytesOfPorts(defaults.ports)) return 0;
    appendValueBlocks(bytesOfPorts(current.ports),
                      {{1, "ip dhcp snooping server-trust\n"}, {0, "no ip dhcp snooping server-trust\n"}});
    return 0;
}
