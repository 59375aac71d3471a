#include "sections/security.h"

#include "format/port_list.h"
#include "format/section_lines.h"
#include "platform/board.h"
#include "platform/util.h"

#include <algorithm>
#include <iterator>

// -------------------------------------------------------------------------------------------------- access control

/// Whether the field takes part in the match of `rule`.
static bool matches(const AclRule &rule, AclMatch::Bit field) { return utilBitmapCheck(rule.match.bytes, field) != 0; }

/// Whether the line of what `field` matches is due; writes `any` where the field does not take part. Delta mode
/// compares whether the field takes part, not its value: a changed address alone has no line.
static bool isMatched(const SectionLines<AclRule> &rule, AclMatch::Bit field, LineForms any) {
    const bool isMatch = matches(rule.current, field);
    if (!rule.full && isMatch == matches(rule.defaults, field)) return false;
    if (!isMatch) rule.append(any);
    return isMatch;
}

/// The platform is asked for the address first.
static void appendAddressAndMask(Format<AddressText, AddressText> line, const Ipv4 &address, const Ipv4 &mask) {
    const AddressText first = textOf(address);
    append<AddressText, AddressText>(line, first, textOf(mask));
}

/// `ingressPorts` is one text for all rules. The switch does not clear it between them, so where its platform writes
/// nothing, the ports of the rule before show again.
static void writeRule(const SectionLines<AclRule> &rule, PortSetText &ingressPorts) {
    const AclRule &current = rule.current;
    append("acl %d\n", current.number);
    // An unknown code denies, as 0 does.
    rule.code(&AclRule::action, {{1, "action permit\n"}, {2, "action copy(mirror)\n"}, {3, "action redirect\n"}},
              "action deny\n");
    if (rule.due(&AclRule::actionPort)) append("action-port %d \n", current.actionPort + 1);

    if (current.isIpv6Rule()) {
        if (isMatched(rule, AclMatch::destinationIpv6, {"destination-ipv6 any \n", "destination-ipv6 any\n"}))
            append("destination-ipv6 address %s %d\n", textOf(current.destinationIpv6),
                   current.destinationPrefixLength);
    } else {
        if (isMatched(rule, AclMatch::destinationIpv4, {"destination-ipv4 any \n", "destination-ipv4 any\n"}))
            appendAddressAndMask("destination-ipv4 address %s %s\n", current.destination, current.destinationMask);
    }
    if (isMatched(rule, AclMatch::destinationL4Port, {"destination-l4-port any \n", "destination-l4-port any\n"}))
        append("destination-l4-port %u 0x%s\n", current.destinationL4Port, hexOf(current.destinationL4Mask));
    if (isMatched(rule, AclMatch::destinationMac, {"destination-mac any \n", "destination-mac any\n"}))
        append("destination-mac mac %02X:%02X:%02X:%02X:%02X:%02X %02X:%02X:%02X:%02X:%02X:%02X\n",
               current.destinationMac, current.destinationMacMask);
    if (isMatched(rule, AclMatch::etherType, {"ethertype any \n", "ethertype any\n"}))
        rule.append({"ethertype 0x%s \n", "ethertype 0x%s\n"}, hexOf(current.etherType));
    if (isMatched(rule, AclMatch::ingressPort, {"ingress-port any \n", "ingress-port any\n"})) {
        writePorts(current.ingressPorts, ingressPorts);
        append("ingress-port %s \n", ingressPorts);
    }
    if (isMatched(rule, AclMatch::protocol, "protocol any \n")) append("protocol 0x%s \n", current.protocol);
    if (rule.due(&AclRule::rateLimit)) {
        if (current.rateLimit.value() != 0) rule.append({"rate-limit %ld \n", "rate-limit %ld\n"}, current.rateLimit);
        else rule.append({"no rate-limit \n", "no rate-limit\n"});
    }
    if (current.isIpv6Rule()) {
        if (isMatched(rule, AclMatch::sourceIpv6, {"source-ipv6 any \n", "source-ipv6 any\n"}))
            append("source-ipv6 address %s %d\n", textOf(current.sourceIpv6), current.sourcePrefixLength);
    } else {
        if (isMatched(rule, AclMatch::sourceIpv4, {"source-ipv4 any \n", "source-ipv4 any\n"}))
            appendAddressAndMask("source-ipv4 address %s %s\n", current.source, current.sourceMask);
    }
    if (isMatched(rule, AclMatch::sourceL4Port, {"source-l4-port any \n", "source-l4-port any\n"}))
        append("source-l4-port %u 0x%s\n", current.sourceL4Port, hexOf(current.sourceL4Mask));
    if (isMatched(rule, AclMatch::sourceMac, {"source-mac any \n", "source-mac any\n"}))
        append("source-mac mac %02X:%02X:%02X:%02X:%02X:%02X %02X:%02X:%02X:%02X:%02X:%02X\n", current.sourceMac,
               current.sourceMacMask);
    if (isMatched(rule, AclMatch::tos, {"tos any \n", "tos any\n"})) append("tos 0x%s\n", current.tos);
    if (isMatched(rule, AclMatch::vlanId, {"vid any \n", "vid any\n"}))
        rule.append({"vid %d \n", "vid %d\n"}, current.vlan);
    append("apply\n");
    append("exit\n");
}

/// Which lines end with a blank is irregular, and another matter in each mode.
static int write(const SectionLines<AclTable> &table) {
    PortSetText ingressPorts;
    for (std::size_t i = 0; i < std::size(table.current); ++i)
        if (isOn(table.current[i].valid)) writeRule(table[i], ingressPorts);
    return 0;
}

int full::convConfigACLControl_ACLControl_configure_acl(const AclTable &current) { return trace(), write({current}); }

int delta::convConfigACLControl_ACLControl_configure_acl(const AclTable &current, const AclTable &defaults) {
    return trace(), write({current, defaults});
}

// ---------------------------------------------------------------------------------------------------- 802.1X, switch

static int write(const SectionLines<Dot1xConfig> &dot1x) {
    dot1x.onOff(&Dot1xConfig::enabled, "dot1x\n", "no dot1x\n");
    dot1x.value(&Dot1xConfig::reauthPeriod, "dot1x reauth-period %d\n");
    dot1x.onOff(&Dot1xConfig::reauthentication, "dot1x reauthentication\n", "no dot1x reauthentication\n");
    // The whole secret is written, but its last two bytes do not count as a change.
    if (dot1x.full || !sameLeadingBytes(dot1x.current.secret, dot1x.defaults.secret, Dot1xConfig::comparedSecret))
        append("dot1x secret %s\n", dot1x.current.secret);
    if (dot1x.due(&Dot1xConfig::server)) append("dot1x server %s\n", textOf(dot1x.current.server));
    dot1x.value(&Dot1xConfig::timeout, "dot1x timeout %d\n");
    return 0;
}

int full::convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(const Dot1xConfig &current) {
    return trace(), write({current});
}

int delta::convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(const Dot1xConfig &current, const Dot1xConfig &defaults) {
    return trace(), write({current, defaults});
}

// --------------------------------------------------------------------------------------------- DHCP snooping, switch

/// The ports with a DHCP server, if there are any. On boards of type 5027 the line for none looks at the first sixteen
/// ports alone, so that servers on ports from 17 on alone write both lines.
static void appendServerPorts(const DhcpSnooping &snooping) {
    const PortSet ports = portsIn(snooping.serverPorts);
    if (!ports.empty()) append("ip dhcp snooping dhcp-server %s \n", ports);
    const bool none = g_EEPROM.isType5027() ? snooping.noServerOnFirstSixteenPorts() : noPort(snooping.serverPorts);
    if (none) append("no ip dhcp snooping dhcp-server\n");
}

/// The lines of several records, in an order of their own.
static int write(const SectionLines<DhcpSnooping> &snooping, const SectionLines<ConfigImage> &image) {
    const SectionLines<DhcpSnoopingPorts> ports = image.part(&ConfigImage::dhcpSnoopingPorts);
    const SectionLines<CircuitIds> ids = image.part(&ConfigImage::circuitIds);
    const DhcpSnooping &current = snooping.current;
    snooping.onOff(&DhcpSnooping::enabled, "ip dhcp snooping\n", "no ip dhcp snooping\n");
    snooping.value(&DhcpSnooping::initiated, "ip dhcp snooping initiated %d\n");
    snooping.value(&DhcpSnooping::leased, "ip dhcp snooping leased %d\n");
    ports.onOff(&DhcpSnoopingPorts::option, "ip dhcp snooping option\n", "no ip dhcp snooping option\n");
    ids.onOff(&CircuitIds::remoteInserted, "ip dhcp snooping remote\n", "no ip dhcp snooping remote\n");
    ids.onOff(&CircuitIds::remoteFormatted, "ip dhcp snooping remote formatted\n",
              "no ip dhcp snooping remote formatted\n");
    if (ids.due(&CircuitIds::remoteId)) {
        if (!ids.current.remoteId.empty()) append("ip dhcp snooping remote id %s\n", ids.current.remoteId);
        else append("no ip dhcp snooping remote id\n");
    }
    if (snooping.due(&DhcpSnooping::serverPorts)) appendServerPorts(current);
    snooping.onOff(&DhcpSnooping::checkServerAddress, "ip dhcp snooping dhcp-server-ip\n",
                   "no ip dhcp snooping dhcp-server-ip\n");
    int number = 0;
    for (const Ipv6 &server : current.servers) {
        const Ipv6 &byDefault = snooping.defaults.servers[number++];
        const AddressText address = mappedOrIpv6(server);
        if (!snooping.full && address == mappedOrIpv6(byDefault)) continue;
        if (!address.isUnset())
            snooping.append({"ip dhcp snooping dhcp-server-ip %d ip-address %s \n",
                             "ip dhcp snooping dhcp-server-ip %d ip-address %s\n"},
                            number, address);
        else
            snooping.append({"no ip dhcp snooping dhcp-server-ip %d ip-address \n",
                             "no ip dhcp snooping dhcp-server-ip %d ip-address\n"},
                            number);
    }
    return 0;
}

int full::convConfigSKAConfig2_SKAConfig2_configure_ip(const DhcpSnooping &current) {
    return trace(), write({current}, {*gSysConfig});
}

int delta::convConfigSKAConfig2_SKAConfig2_configure_ip(const DhcpSnooping &current, const DhcpSnooping &defaults) {
    return trace(), write({current, defaults}, {*gSysConfig, *gDefConfig});
}

// ------------------------------------------------------------------------------ PPPoE intermediate agent, switch

static int write(const SectionLines<PppoeConfig> &pppoe) {
    pppoe.onOff(&PppoeConfig::enabled, "ip pppoe intermediate-agent\n", "no ip pppoe intermediate-agent\n");
    return 0;
}

int full::convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(const PppoeConfig &current) {
    return trace(), write({current});
}

int delta::convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(const PppoeConfig &current,
                                                                const PppoeConfig &defaults) {
    return trace(), write({current, defaults});
}

// --------------------------------------------------------------------------------------------------- source bindings

static int write(const SectionLines<SourceBindingTable> &table) {
    for (std::size_t i = 0; i < std::size(table.current); ++i) {
        const SectionLines<SourceBinding> binding = table[i];
        if (!isOn(binding.current.valid)) continue;
        const int number = static_cast<int>(i + 1);
        const auto addressOf = [](const SourceBinding &of) { return mappedOrIpv6(of.address); };
        if (binding.dueBy(addressOf)) {
            if (const AddressText address = addressOf(binding.current); !address.isUnset())
                binding.append({"ip source binding %d ip-address %s \n", "ip source binding %d ip-address %s\n"},
                               number, address);
            else
                binding.append({"no ip source binding %d ip-address \n", "no ip source binding %d ip-address\n"},
                               number);
        }
        if (binding.due(&SourceBinding::enabled)) {
            if (isOn(binding.current.enabled)) append("ip source binding %d\n", number);
            else append("no ip source binding %d\n", number);
        }
    }
    return 0;
}

int full::convConfigSecurityIP_SecurityIP_configure_ip_source(const SourceBindingTable &current) {
    return trace(), write({current});
}

int delta::convConfigSecurityIP_SecurityIP_configure_ip_source(const SourceBindingTable &current,
                                                               const SourceBindingTable &defaults) {
    return trace(), write({current, defaults});
}

static int writeIpSource(const SectionLines<u8> &ipSource) {
    if (!ipSource.changed()) return 0;
    if (isOn(ipSource.current)) append("ip source\n");
    else append("no ip source\n");
    return 0;
}

int full::convConfigSwitchConfig_SwitchConfig_configure_ip_source(const u8 &current) {
    return trace(), writeIpSource({current});
}

int delta::convConfigSwitchConfig_SwitchConfig_configure_ip_source(const u8 &current, const u8 &defaults) {
    return trace(), writeIpSource({current, defaults});
}

// ------------------------------------------------------------------- MAC limit, isolation, storm protection, switch

int full::convConfigSKAConfig2_SKAConfig2_configure_configure_security() { return trace(); }

static int write(const SectionLines<MacLimit> &limit) {
    limit.onOff(&MacLimit::enabled, "security mac-limit\n", "no security mac-limit\n");
    limit.value(&MacLimit::notificationInterval, "security mac-limit notification threshold interval %d\n");
    return 0;
}

int full::convConfigMacLimit_MacLimit_configure_security_mac_limit(const MacLimit &current) {
    return trace(), write({current});
}

int delta::convConfigMacLimit_MacLimit_configure_security_mac_limit(const MacLimit &current, const MacLimit &defaults) {
    return trace(), write({current, defaults});
}

static int write(const SectionLines<Isolation> &isolation) {
    const auto uplinks = [](const Isolation &of) { return textOf(of.uplinks); };
    const auto others = [](const Isolation &of) { return textOf(complementOf(of.uplinks)); };
    const Isolation &current = isolation.current;
    if (!noPort(current.uplinks) && isolation.dueBy(uplinks))
        isolation.append({"security port-isolation up-link-port %s \n", "security port-isolation up-link-port %s\n"},
                         uplinks(current));
    const WorkingPorts rest = complementOf(current.uplinks);
    if (!noPort(rest) && isolation.dueBy(others))
        isolation.append(
            {"no security port-isolation up-link-port %s \n", "no security port-isolation up-link-port %s\n"},
            textOf(rest));
    isolation.onOff(&Isolation::enabled, "security port-isolation\n", "no security port-isolation\n");
    return 0;
}

int full::convConfigPortIsolation_PortIsolation_configure_security_port_isolation(const Isolation &current) {
    return trace(), write({current});
}

int delta::convConfigPortIsolation_PortIsolation_configure_security_port_isolation(const Isolation &current,
                                                                                   const Isolation &defaults) {
    return trace(), write({current, defaults});
}

/// A kind of frames whose rate is limited: the word of the rate, or none for index 0.
static void writeStorm(const SectionLines<StormControl> &storm, be32 StormControl::*rate, Format<const char *> line,
                       LineForms none) {
    if (!storm.due(rate)) return;
    const be32 &index = storm.current.*rate;
    if (isOn(index)) append(line, GET_STORM_RATE_STR(index.value()));
    else storm.append(none);
}

static int write(const SectionLines<StormControl> &storm) {
    writeStorm(storm, &StormControl::broadcast, "security storm-protection broadcast %s\n",
               {"no security storm-protection broadcast \n", "no security storm-protection broadcast\n"});
    writeStorm(storm, &StormControl::multicast, "security storm-protection multicast %s\n",
               {"no security storm-protection multicast \n", "no security storm-protection multicast\n"});
    // The interval comes between multicast and unicast.
    storm.value(&StormControl::notificationInterval, "security storm-protection notification threshold interval %d\n");
    writeStorm(storm, &StormControl::unicast, "security storm-protection unicast %s\n",
               {"no security storm-protection unicast \n", "no security storm-protection unicast\n"});
    return 0;
}

int full::convConfigStormControl_StormControl_configure_security_storm_control(const StormControl &current) {
    return trace(), write({current});
}

int delta::convConfigStormControl_StormControl_configure_security_storm_control(const StormControl &current,
                                                                                const StormControl &defaults) {
    return trace(), write({current, defaults});
}

int full::convConfigSecurity_HG() { return trace(); }

// ------------------------------------------------------------------------------------------------- 802.1X, by port

static int writePortControl(const SectionLines<Dot1xConfig> &dot1x) {
    dot1x.blocks(
        &Dot1xConfig::portControl, "interface %s\n",
        {{0, "dot1x port-control auto\n"}, {1, "no dot1x port-control\n"}, {2, "dot1x port-control unauthorized\n"}});
    return 0;
}

int full::convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(const Dot1xConfig &current) {
    return trace(), writePortControl({current});
}

int delta::convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(const Dot1xConfig &current,
                                                                       const Dot1xConfig &defaults) {
    return trace(), writePortControl({current, defaults});
}

// ------------------------------------------------------------------------------------------- DHCP snooping, by port

/// The block of the trusted ports is opened by any flag that is set, but lists only those that are exactly 1: the list
/// may be empty.
static void appendTrust(const DhcpSnoopingPorts &snooping) {
    const PortValues<portCount> trust = valuesOf(snooping.trust);
    appendValueBlocks("interface %s\n", trust, {{0, "no ip dhcp snooping trust\n"}});
    if (std::any_of(trust.begin(), trust.end(), [](std::uint32_t flag) { return flag != 0; })) {
        append("interface %s\n", portsWith(trust, 1));
        append("ip dhcp snooping trust\n");
        append("exit\n");
    }
}

static std::array<CircuitId, portCount> textsOf(const CircuitIds &ids) {
    std::array<CircuitId, portCount> texts;
    std::copy(std::begin(ids.text), std::end(ids.text), texts.begin());
    return texts;
}

/// The default circuit id of a port, `index` from 0.
static const CircuitId &defaultCircuitId(std::size_t index) { return gDefConfig->circuitIds.text[index]; }

/// What overwrites the circuit id of a port that joined the block of port `index` (from 0): not a circuit id, but the
/// default image's description of that port and the bytes after it.
static CircuitId joinedCircuitId(std::size_t index) {
    return gDefConfig->descriptionAndBeyond(static_cast<int>(index));
}

static int write(const SectionLines<DhcpSnoopingPorts> &snooping, const SectionLines<CircuitIds> &ids) {
    snooping.blocks(&DhcpSnoopingPorts::portOption, "interface %s\n",
                    {{0, "no ip dhcp snooping option\n"}, {1, "ip dhcp snooping option\n"}});
    ids.portBlocks(&CircuitIds::inserted, "interface %s\n",
                   {{1, "ip dhcp snooping circuit\n"}, {0, "no ip dhcp snooping circuit\n"}});
    ids.portBlocks(&CircuitIds::formatted, "interface %s\n",
                   {{1, "ip dhcp snooping circuit formatted\n"}, {0, "no ip dhcp snooping circuit formatted\n"}});
    // In full mode too a port's default circuit id is not written.
    appendNameBlocks(
        "interface %s\n", textsOf(ids.current), defaultCircuitId, joinedCircuitId,
        FormatForms<CircuitId>{"ip dhcp snooping circuit id %s \n", "ip dhcp snooping circuit id %s\n"}.in(ids.full));
    if (snooping.due(&DhcpSnoopingPorts::trust)) appendTrust(snooping.current);
    return 0;
}

int full::convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(const DhcpSnoopingPorts &current) {
    return trace(), write({current}, {gSysConfig->circuitIds});
}

int delta::convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(const DhcpSnoopingPorts &current,
                                                                              const DhcpSnoopingPorts &defaults) {
    return trace(), write({current, defaults}, {gSysConfig->circuitIds, gDefConfig->circuitIds});
}

// --------------------------------------------------------------------------------- PPPoE intermediate agent, by port

static int writePppoePorts(const SectionLines<PppoeConfig> &pppoe) {
    pppoe.portBlocks(&PppoeConfig::trusted, "interface %s \n",
                     {{1, "ip pppoe intermediate-agent trust\n"}, {0, "no ip pppoe intermediate-agent trust\n"}});
    return 0;
}

int full::convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(const PppoeConfig &current) {
    return trace(), writePppoePorts({current});
}

int delta::convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(const PppoeConfig &current,
                                                                          const PppoeConfig &defaults) {
    return trace(), writePppoePorts({current, defaults});
}

// ------------------------------------------------------------------------------------------------------ source guard

static int write(const SectionLines<SourceGuardModes> &modes) {
    if (modes.changed())
        appendValueBlocks("interface %s\n", valuesOf(modes.current),
                          {{0, "ip sourceguard fixed-ip\n"},
                           {1, "ip sourceguard dhcp\n"},
                           {2, LineForms{"no ip sourceguard \n", "no ip sourceguard\n"}.in(modes.full)}});
    return 0;
}

int full::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(const SourceGuardModes &current) {
    return trace(), write({current});
}

int delta::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(const SourceGuardModes &current,
                                                                              const SourceGuardModes &defaults) {
    return trace(), write({current, defaults});
}

/// The two texts serve all entries. Delta mode compares them whole: what a longer address left after the end of a
/// shorter one counts as a difference.
static int write(const SectionLines<SourceGuardTable> &table) {
    AddressText address;
    AddressText defaultAddress;
    for (std::size_t i = 0; i < std::size(table.current); ++i) {
        const SourceGuardEntry &entry = table.current[i];
        if (!isOn(entry.valid)) continue;
        writeIpv4First(entry.address, entry.addressIpv6, address);
        if (!table.full) {
            writeIpv4First(table.defaults[i].address, table.defaults[i].addressIpv6, defaultAddress);
            if (sameBytes(address, defaultAddress)) continue;
        }
        append("interface %d\n", entry.port + 1);
        append("ip sourceguard static-ip %s vlan %d\n", address, entry.vlan);
        append("exit\n");
    }
    return 0;
}

int full::convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(
    const SourceGuardTable &current) {
    return trace(), write({current});
}

int delta::convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(
    const SourceGuardTable &current, const SourceGuardTable &defaults) {
    return trace(), write({current, defaults});
}

// ------------------------------------------------------------------------------------------------ MAC limit, by port

static void appendPortLimits(const MacLimit &limit) {
    appendValueBlocks("interface %s \n", valuesOf(limit.portEnabled),
                      {{1, "security mac-limit\n"}, {0, "no security mac-limit\n"}});
}

/// The lists of the groups lack the blank that the others have.
static void appendMaximums(const MacLimit &limit) {
    const PortValues<portCount> maximums = valuesOf(limit.portMaximum);
    appendValueBlocks("interface %s \n", maximums, {{0, "no security mac-limit maximum \n"}});
    for (const PortGroup &group : groupsOf(maximums, 0)) {
        append("interface %s\n", group.ports);
        append("security mac-limit maximum %d\n", group.value);
        append("exit\n");
    }
}

// Both modes pass the current section twice. Full mode ignores the second; delta mode finds no difference and writes
// nothing.

int full::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(const MacLimit &current,
                                                                             const MacLimit &) {
    trace();
    appendPortLimits(current);
    appendMaximums(current);
    return 0;
}

int delta::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(const MacLimit &current,
                                                                              const MacLimit &defaults) {
    trace();
    if (!sameBytes(current.portEnabled, defaults.portEnabled)) appendPortLimits(current);
    if (!sameBytes(current.portMaximum, defaults.portMaximum)) appendMaximums(current);
    return 0;
}

int full::convConfigStormControl_StormControl_configure_interface_security() { return trace(); }

// ------------------------------------------------------------------------------------------------ DHCP server trust

static int write(const SectionLines<ServerTrust> &trust) {
    trust.portBlocks(&ServerTrust::ports, "interface %s\n",
                     {{1, "ip dhcp snooping server-trust\n"}, {0, "no ip dhcp snooping server-trust\n"}});
    return 0;
}

int full::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(const ServerTrust &current) {
    return trace(), write({current});
}

int delta::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(const ServerTrust &current,
                                                                                    const ServerTrust &defaults) {
    return trace(), write({current, defaults});
}
