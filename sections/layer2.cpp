#include "sections/layer2.h"

#include "app/text/text.h"
#include "format/address.h"
#include "format/blocks.h"
#include "format/port_list.h"
#include "platform/board.h"
#include "platform/util.h"

#include <iterator>

namespace {

/// Whether two sets have the same ports from 1 to 28. Bits behind those do not count.
template <std::size_t Bytes> bool samePorts(const Bitmap<Bytes> &a, const Bitmap<Bytes> &b) {
    return sameBytes(a, b) || wordsOf(a) == wordsOf(b);
}

/// Appends a block for the ports from 1 to 28 in `members`, with `line` for `value`; nothing if there is none.
template <std::size_t Bytes, class Value>
void appendMembers(const Bitmap<Bytes> &members, std::type_identity_t<Format<Value>> line, const Value &value) {
    const PortWords ports = wordsOf(members);
    if (!CHECK_HAS_MEMBER_INT(ports.data(), 1)) return;
    appendInterface(ports, 1);
    append<Value>(line, value);
    append("exit\n");
}

} // namespace

// ---------------------------------------------------------------------------------------------------- VLANs, globally

int full::convConfigVLANConfig_mid_vlan_lan_configure() { return trace(); }

// Full mode has no line for the VLAN mode.
int full::convConfigVLANConfig_mid_sys_vlan_config_configure_vlan() { return trace(); }

int delta::convConfigVLANConfig_mid_sys_vlan_config_configure_vlan(const u8 &current, const u8 &defaults) {
    trace();
    if (current == defaults) return 0;
    switch (current) {
    case 1: append("vlan port-based\n"); break;
    case 2: append("vlan dot1q-vlan\n"); break;
    case 3: append("vlan dot1q-vlan isolation\n"); break;
    case 4: append("vlan qinq-vlan bypass-ctag\n"); break;
    default: break;
    }
    return 0;
}

int full::convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(const QinQConfig &current) {
    trace();
    append("vlan dot1q-tunnel ethertype %X\n", current.ethertype);
    return 0;
}

// Written whether or not it was changed.
int delta::convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(const QinQConfig &current) {
    trace();
    append("vlan dot1q-tunnel ethertype %X\n", current.ethertype);
    return 0;
}

int full::convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(const Isolation &current) {
    trace();
    const PortBitmap others = complementOf(current.uplinks);
    // The blank behind the ports is this mode's alone.
    if (!noPort(current.uplinks)) append("vlan isolation up-link-port %s \n", textOf(current.uplinks));
    if (!noPort(others)) append("no vlan isolation up-link-port %s \n", textOf(others));
    appendSwitch(isOn(current.enabled), "vlan isolation\n", "no vlan isolation\n");
    return 0;
}

int delta::convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(const Isolation &current,
                                                                                  const Isolation &defaults) {
    trace();
    const PortSetText uplinks = textOf(current.uplinks);
    const PortBitmap others = complementOf(current.uplinks);
    const PortSetText othersText = textOf(others);
    if (!noPort(current.uplinks) && uplinks != textOf(defaults.uplinks))
        append("vlan isolation up-link-port %s\n", uplinks);
    if (!noPort(others) && othersText != textOf(complementOf(defaults.uplinks)))
        append("no vlan isolation up-link-port %s\n", othersText);
    if (current.enabled != defaults.enabled)
        appendSwitch(isOn(current.enabled), "vlan isolation\n", "no vlan isolation\n");
    return 0;
}

int full::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(const PortVlanTable &current,
                                                                             const PortVlanTable &defaults) {
    trace();
    // What the default has goes first, also where the current table has it too.
    for (const PortVlan &vlan : defaults)
        if (isOn(vlan.inUse)) append("no vlan port-based %s\n", vlan.name);
    for (const PortVlan &vlan : current) {
        if (!isOn(vlan.inUse)) continue;
        append("vlan port-based %s\n", vlan.name);
        if (utilBitmapCheck(vlan.members.bytes, cpuPort) == 1) append("vlan port-based %s include-cpu \n", vlan.name);
    }
    return 0;
}

int delta::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(const PortVlanTable &current,
                                                                              const PortVlanTable &defaults) {
    trace();
    for (int i = 0; i < portCount; ++i)
        if (isOn(defaults[i].inUse) && !sameText(defaults[i].name, current[i].name))
            append("no vlan port-based %s\n", defaults[i].name);
    for (int i = 0; i < portCount; ++i) {
        const PortVlan &vlan = current[i];
        // A change of the CPU's membership alone is none.
        if (!isOn(vlan.inUse) || sameText(vlan.name, defaults[i].name)) continue;
        append("vlan port-based %s\n", vlan.name);
        const bool withCpu = utilBitmapCheck(vlan.members.bytes, cpuPort) == 1;
        const bool defaultWithCpu = utilBitmapCheck(defaults[i].members.bytes, cpuPort) == 1;
        if (withCpu && !defaultWithCpu) append("vlan port-based %s include-cpu\n", vlan.name);
    }
    return 0;
}

// ----------------------------------------------------------------------------------------------- the management VLAN

namespace {

/// The ways in which a port belongs to the management VLAN.
enum ManagementPort : std::uint32_t { access, trunk, trunkNative, none };

/// Index of the first VLAN with the CPU port; -1 if there is none before the first entry that is not in use. The table
/// is packed from its start, so nothing behind such an entry is looked at.
int managementVlanIndex(const TagVlanTable &vlans) {
    int index = 0;
    for (const TagVlan &vlan : vlans) {
        if (!isOn(vlan.inUse)) return -1;
        if (utilBitmapCheck(vlan.members.bytes, cpuPort) == 1) return index;
        ++index;
    }
    return -1;
}

/// How each port belongs to `vlan`. A dot1q-tunnel port is in no class, member or not.
PortWords managementPorts(const VlanPortTable &ports, const TagVlan &vlan) {
    PortWords classes;
    for (int i = 0; i < portCount; ++i) {
        const VlanPort &port = ports[i];
        const bool member = utilBitmapCheck(vlan.members.bytes, i) == 1;
        ManagementPort way = none;
        if (port.mode == 0 && port.accessVlan == vlan.id) way = access;
        if (port.mode == 1 && member) way = trunk;
        if (port.mode == 2 && member) way = trunkNative;
        classes[static_cast<std::size_t>(i)] = way;
    }
    return classes;
}

/// The lines of the management VLAN, in both modes alike. The list ends with a blank and the mode begins with one: the
/// two blanks between them are the format, as is the hyphen of "trunk-native", which the ports' own mode lacks.
void appendManagementVlan(const TagVlan &vlan, const PortWords &classes) {
    const ValueLine modes[] = {
        {access, " mode access\n"}, {trunk, " mode trunk\n"}, {trunkNative, " mode trunk-native\n"}};
    for (const ValueLine &mode : modes) {
        if (!CHECK_HAS_MEMBER_INT(classes.data(), mode.value)) continue;
        append("vlan management-vlan %d management-port ", vlan.id);
        APPEND_PORT_MEMBER_INT_NUM(classes.data(), mode.value, portCount);
        append(mode.line);
    }
}

} // namespace

int full::ManageVLANFunc_configure_vlan() {
    // Does not trace in this mode.
    const int index = managementVlanIndex(gSysConfig->tagVlans);
    if (index < 0) return 0;
    const TagVlan &vlan = gSysConfig->tagVlans[index];
    appendManagementVlan(vlan, managementPorts(gSysConfig->vlanPorts, vlan));
    return 0;
}

int delta::ManageVLANFunc_configure_vlan() {
    trace();
    const int index = managementVlanIndex(gSysConfig->tagVlans);
    if (index < 0) return 0;
    const TagVlan &vlan = gSysConfig->tagVlans[index];
    // The default's entry of the same index, whether or not that is the default's management VLAN.
    const TagVlan &defaultVlan = gDefConfig->tagVlans[index];
    const PortWords classes = managementPorts(gSysConfig->vlanPorts, vlan);
    if (vlan.id == defaultVlan.id && classes == managementPorts(gDefConfig->vlanPorts, defaultVlan)) return 0;
    appendManagementVlan(vlan, classes);
    return 0;
}

// ----------------------------------------------------------------------------------------------- VLANs, per interface

namespace {

/// A block for each access VLAN, in the order of its lowest port. Ports without one are in none. The list ends its line
/// without a blank, unlike those of the trunk VLANs and the modes.
void appendAccessVlans(const PortWords &accessVlans) {
    forEachGroup<u8>(accessVlans, 0, [](std::uint32_t vlan, const PortBytes &members) {
        appendInterface(members, 1);
        append("vlan dot1q-vlan access-vlan %d\n", vlan);
        append("exit\n");
    });
}

void appendVlanModes(const PortWords &modes) {
    appendValueBlocks(modes, {{0, "vlan dot1q-vlan mode access\n"},
                              {1, "vlan dot1q-vlan mode trunk\n"},
                              {2, "vlan dot1q-vlan mode trunk native\n"},
                              {3, "vlan dot1q-vlan mode dot1q-tunnel\n"}});
}

/// Whether two entries are the same to trunk ports. Whether they are in use does not count, nor does the CPU port.
bool sameTrunkVlan(const TagVlan &a, const TagVlan &b) { return a.id == b.id && samePorts(a.members, b.members); }

} // namespace

int full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(const VlanPortTable &current) {
    trace();
    appendAccessVlans(wordsOf(current, &VlanPort::accessVlan));
    // What the default has goes first, also where the current table has it too.
    for (const TagVlan &vlan : gDefConfig->tagVlans)
        if (isOn(vlan.inUse)) appendMembers(vlan.members, "no vlan dot1q-vlan trunk-vlan %d\n", vlan.id);
    for (const TagVlan &vlan : gSysConfig->tagVlans)
        if (isOn(vlan.inUse)) appendMembers(vlan.members, "vlan dot1q-vlan trunk-vlan %d\n", vlan.id);
    appendVlanModes(wordsOf(current, &VlanPort::mode));
    return 0;
}

int delta::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(const VlanPortTable &current,
                                                                             const VlanPortTable &defaults) {
    trace();
    const PortWords accessVlans = wordsOf(current, &VlanPort::accessVlan);
    if (accessVlans != wordsOf(defaults, &VlanPort::accessVlan)) appendAccessVlans(accessVlans);

    const TagVlanTable &vlans = gSysConfig->tagVlans;
    const TagVlanTable &defaultVlans = gDefConfig->tagVlans;
    for (std::size_t i = 0; i < std::size(vlans); ++i)
        if (isOn(defaultVlans[i].inUse) && !sameTrunkVlan(defaultVlans[i], vlans[i]))
            appendMembers(defaultVlans[i].members, "no vlan dot1q-vlan trunk-vlan %d\n", defaultVlans[i].id);
    for (std::size_t i = 0; i < std::size(vlans); ++i)
        if (isOn(vlans[i].inUse) && !sameTrunkVlan(vlans[i], defaultVlans[i]))
            appendMembers(vlans[i].members, "vlan dot1q-vlan trunk-vlan %d\n", vlans[i].id);

    const PortWords modes = wordsOf(current, &VlanPort::mode);
    if (modes != wordsOf(defaults, &VlanPort::mode)) appendVlanModes(modes);
    return 0;
}

int full::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(const PortVlanTable &current) {
    trace();
    for (const PortVlan &vlan : current)
        if (isOn(vlan.inUse)) appendMembers(vlan.members, "vlan port-based %s\n", vlan.name);
    return 0;
}

int delta::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(const PortVlanTable &current,
                                                                                        const PortVlanTable &defaults) {
    trace();
    // A change of the name alone is none.
    for (int i = 0; i < portCount; ++i)
        if (isOn(current[i].inUse) && !samePorts(current[i].members, defaults[i].members))
            appendMembers(current[i].members, "vlan port-based %s\n", current[i].name);
    return 0;
}

namespace {

/// A VLAN without a name has no block of its own; its ports name it.
bool isNamed(const TagVlan &vlan) { return isOn(vlan.inUse) && !vlan.name.empty(); }

void appendDefinition(const TagVlan &vlan) {
    append("vlan dot1q-vlan %d\n", vlan.id);
    append("name %s\n", vlan.name);
    append("exit\n");
}

} // namespace

int full::convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(const TagVlanTable &current) {
    trace();
    for (const TagVlan &vlan : current)
        if (isNamed(vlan)) appendDefinition(vlan);
    return 0;
}

int delta::convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(const TagVlanTable &current,
                                                                 const TagVlanTable &defaults) {
    trace();
    // Any byte of the entry makes a change, those that are not written included.
    for (std::size_t i = 0; i < std::size(current); ++i)
        if (isNamed(current[i]) && !sameBytes(current[i], defaults[i])) appendDefinition(current[i]);
    return 0;
}

int full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan() { return trace(); }

int full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan() { return trace(); }

// ------------------------------------------------------------------------------------------ spanning tree and BPDUs

int full::convConfigSTPConfig_STPConfig_configure_spanning_tree() {
    trace();
    const StpConfig &current = gSysConfig->stp;
    append("spanning-tree priority %d\n", current.priority);
    append("spanning-tree max-age %d\n", current.maxAge);
    append("spanning-tree hello-time %d\n", current.helloTime);
    append("spanning-tree delay-time %d\n", current.forwardDelay);
    appendSwitch(current.version.value() == 1, "spanning-tree version normal\n", "spanning-tree version compatible\n");
    appendSwitch(isOn(current.aggregated), "spanning-tree aggregated-port\n", "no spanning-tree aggregated-port\n");
    append("spanning-tree aggregated-port cost %ld\n", current.aggregatedCost);
    append("spanning-tree aggregated-port priority %d\n", current.aggregatedPriority);
    appendSwitch(isOn(current.aggregatedEdge), "spanning-tree aggregated-port edge\n",
                 "no spanning-tree aggregated-port edge\n");
    switch (current.aggregatedPointToPoint.value()) {
    case 0: append("spanning-tree aggregated-port p2p forced_true\n"); break;
    case 1: append("spanning-tree aggregated-port p2p forced_false\n"); break;
    case 2: append("spanning-tree aggregated-port p2p auto\n"); break;
    default: break;
    }
    return 0;
}

int delta::convConfigSTPConfig_STPConfig_configure_spanning_tree(const StpConfig &current, const StpConfig &defaults) {
    trace();
    if (current.priority != defaults.priority) append("spanning-tree priority %d\n", current.priority);
    if (current.maxAge != defaults.maxAge) append("spanning-tree max-age %d\n", current.maxAge);
    if (current.helloTime != defaults.helloTime) append("spanning-tree hello-time %d\n", current.helloTime);
    if (current.forwardDelay != defaults.forwardDelay) append("spanning-tree delay-time %d\n", current.forwardDelay);
    if (current.version != defaults.version)
        appendSwitch(current.version.value() == 1, "spanning-tree version normal\n",
                     "spanning-tree version compatible\n");
    if (current.aggregated != defaults.aggregated)
        appendSwitch(isOn(current.aggregated), "spanning-tree aggregated-port\n", "no spanning-tree aggregated-port\n");
    if (current.aggregatedCost != defaults.aggregatedCost)
        append("spanning-tree aggregated-port cost %ld\n", current.aggregatedCost);
    if (current.aggregatedPriority != defaults.aggregatedPriority)
        append("spanning-tree aggregated-port priority %d\n", current.aggregatedPriority);
    if (current.aggregatedEdge != defaults.aggregatedEdge)
        appendSwitch(isOn(current.aggregatedEdge), "spanning-tree aggregated-port edge\n",
                     "no spanning-tree aggregated-port edge\n");
    if (current.aggregatedPointToPoint == defaults.aggregatedPointToPoint) return 0;
    switch (current.aggregatedPointToPoint.value()) {
    case 0: append("spanning-tree aggregated-port p2p forced_true\n"); break;
    case 1: append("spanning-tree aggregated-port p2p forced_false\n"); break;
    case 2: append("spanning-tree aggregated-port p2p auto\n"); break;
    default: break;
    }
    return 0;
}

// The lines stand neither in the order of the flags nor in that of the ranges.
int full::convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(const SwitchConfig &current) {
    trace();
    appendSwitch(isOn(current.blockBpdu00to0F), "no switch bpdu 00-0F\n", "switch bpdu 00-0F permit\n");
    appendSwitch(isOn(current.blockBpdu20to2F), "no switch bpdu 20-2F\n", "switch bpdu 20-2F permit\n");
    appendSwitch(isOn(current.blockBpdu10), "no switch bpdu 10\n", "switch bpdu 10 permit\n");
    return 0;
}

int delta::convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(const SwitchConfig &current,
                                                                     const SwitchConfig &defaults) {
    trace();
    if (current.blockBpdu00to0F != defaults.blockBpdu00to0F)
        appendSwitch(isOn(current.blockBpdu00to0F), "no switch bpdu 00-0F\n", "switch bpdu 00-0F permit\n");
    if (current.blockBpdu20to2F != defaults.blockBpdu20to2F)
        appendSwitch(isOn(current.blockBpdu20to2F), "no switch bpdu 20-2F\n", "switch bpdu 20-2F permit\n");
    if (current.blockBpdu10 != defaults.blockBpdu10)
        appendSwitch(isOn(current.blockBpdu10), "no switch bpdu 10\n", "switch bpdu 10 permit\n");
    return 0;
}

namespace {

void appendStpSwitches(const PortWords &enabled) {
    appendValueBlocks(enabled, {{0, "no spanning-tree\n"}, {1, "spanning-tree\n"}});
}

/// A block for each number that is not negative, in the order of its lowest port, with `line` for the number.
void appendNumberBlocks(const PortWords &numbers, std::type_identity_t<Format<std::uint32_t>> line) {
    constexpr std::uint32_t written = UINT32_MAX; // -1
    forEachGroup<std::uint32_t>(numbers, written, [line](std::uint32_t number, const PortWords &members) {
        if (static_cast<std::int32_t>(number) < 0) return;
        appendInterface(members, 1);
        append<std::uint32_t>(line, number);
        append("exit\n");
    });
}

void appendStpCosts(const PortWords &costs) { appendNumberBlocks(costs, "spanning-tree cost %ld\n"); }

void appendStpPriorities(const PortWords &priorities) { appendNumberBlocks(priorities, "spanning-tree priority %d\n"); }

void appendStpEdges(const PortWords &edges) {
    appendValueBlocks(edges, {{0, "no spanning-tree edge\n"}, {1, "spanning-tree edge\n"}});
}

void appendStpPointToPoint(const PortWords &values) {
    appendValueBlocks(values, {{0, "spanning-tree p2p forced_true\n"},
                               {1, "spanning-tree p2p forced_false\n"},
                               {2, "spanning-tree p2p auto\n"}});
}

} // namespace

int full::convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(const StpPorts &current) {
    trace();
    appendStpSwitches(wordsOf(current.enabled));
    appendStpCosts(wordsOf(current.cost));
    appendStpPriorities(wordsOf(current.priority));
    appendStpEdges(wordsOf(current.edge));
    appendStpPointToPoint(wordsOf(current.pointToPoint));
    return 0;
}

int delta::convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(const StpPorts &current,
                                                                           const StpPorts &defaults) {
    trace();
    if (!sameBytes(current.enabled, defaults.enabled)) appendStpSwitches(wordsOf(current.enabled));
    if (!sameBytes(current.cost, defaults.cost)) appendStpCosts(wordsOf(current.cost));
    if (!sameBytes(current.priority, defaults.priority)) appendStpPriorities(wordsOf(current.priority));
    if (!sameBytes(current.edge, defaults.edge)) appendStpEdges(wordsOf(current.edge));
    if (!sameBytes(current.pointToPoint, defaults.pointToPoint)) appendStpPointToPoint(wordsOf(current.pointToPoint));
    return 0;
}

// ------------------------------------------------------------------------------------------------- link aggregation

int full::convConfigPortTrunk_PortTrunk_configure_channel_group(const TrunkTable &current) {
    trace();
    for (const TrunkGroup &group : current)
        if (isOn(group.inUse)) append("channel-group trunking %s\n", group.name);
    return 0;
}

// Written whether or not they were changed.
int delta::convConfigPortTrunk_PortTrunk_configure_channel_group(const TrunkTable &current) {
    trace();
    for (const TrunkGroup &group : current)
        if (isOn(group.inUse)) append("channel-group trunking %s\n", group.name);
    return 0;
}

// The destination of each pair goes before the source and the addresses of layer 2 go last, against the stored order.
int full::convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(const DistributionRules &current) {
    trace();
    appendSwitch(isOn(current.destinationIp), "channel-group distribution-rule destination-ip\n",
                 "no channel-group distribution-rule destination-ip\n");
    appendSwitch(isOn(current.sourceIp), "channel-group distribution-rule source-ip\n",
                 "no channel-group distribution-rule source-ip\n");
    appendSwitch(isOn(current.destinationL4Port), "channel-group distribution-rule destination-L4-port\n",
                 "no channel-group distribution-rule destination-L4-port\n");
    appendSwitch(isOn(current.sourceL4Port), "channel-group distribution-rule source-L4-port\n",
                 "no channel-group distribution-rule source-L4-port\n");
    appendSwitch(isOn(current.destinationMac), "channel-group distribution-rule destination-mac\n",
                 "no channel-group distribution-rule destination-mac\n");
    appendSwitch(isOn(current.sourceMac), "channel-group distribution-rule source-mac\n",
                 "no channel-group distribution-rule source-mac\n");
    return 0;
}

int delta::convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(const DistributionRules &current,
                                                                         const DistributionRules &defaults) {
    trace();
    if (current.destinationIp != defaults.destinationIp)
        appendSwitch(isOn(current.destinationIp), "channel-group distribution-rule destination-ip\n",
                     "no channel-group distribution-rule destination-ip\n");
    if (current.sourceIp != defaults.sourceIp)
        appendSwitch(isOn(current.sourceIp), "channel-group distribution-rule source-ip\n",
                     "no channel-group distribution-rule source-ip\n");
    if (current.destinationL4Port != defaults.destinationL4Port)
        appendSwitch(isOn(current.destinationL4Port), "channel-group distribution-rule destination-L4-port\n",
                     "no channel-group distribution-rule destination-L4-port\n");
    if (current.sourceL4Port != defaults.sourceL4Port)
        appendSwitch(isOn(current.sourceL4Port), "channel-group distribution-rule source-L4-port\n",
                     "no channel-group distribution-rule source-L4-port\n");
    if (current.destinationMac != defaults.destinationMac)
        appendSwitch(isOn(current.destinationMac), "channel-group distribution-rule destination-mac\n",
                     "no channel-group distribution-rule destination-mac\n");
    if (current.sourceMac != defaults.sourceMac)
        appendSwitch(isOn(current.sourceMac), "channel-group distribution-rule source-mac\n",
                     "no channel-group distribution-rule source-mac\n");
    return 0;
}

namespace {

/// The ports with a LACP key, as words 1 (has it) and 0.
PortWords portsWithKey(const LacpConfig &lacp, unsigned key) {
    PortWords ports;
    for (std::size_t i = 0; i < portCount; ++i) ports[i] = lacp.key[i] == key;
    return ports;
}

void appendKey(const PortWords &ports, unsigned key) {
    appendInterface(ports, 1);
    append("channel-group lacp key %d\n", key);
    append("exit\n");
}

void appendLacpSwitches(const PortBytes &enabled) {
    appendValueBlocks(enabled, {{0, "no channel-group lacp\n"}, {1, "channel-group lacp\n"}});
}

constexpr unsigned lacpKeys = 256;

} // namespace

// The ports of a key stand in a list that ends with a blank, those of a role or of a switch in one that does not.
int full::convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(const LacpConfig &current) {
    trace();
    for (unsigned key = 0; key < lacpKeys; ++key) {
        if (CHECK_HAS_MEMBER(current.key, key) != 0) appendKey(portsWithKey(current, key), key);
    }
    // The blank behind "role" is this mode's alone.
    appendValueBlocks(bytesOfPorts(current.role),
                      {{0, "no channel-group lacp role \n"}, {1, "channel-group lacp role active\n"}});
    appendLacpSwitches(bytesOfPorts(current.enabled));
    return 0;
}

int delta::convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(const LacpConfig &current,
                                                                                    const LacpConfig &defaults) {
    trace();
    for (unsigned key = 0; key < lacpKeys; ++key) {
        if (CHECK_HAS_MEMBER(current.key, key) == 0) continue;
        const PortWords ports = portsWithKey(current, key);
        if (ports != portsWithKey(defaults, key)) appendKey(ports, key);
    }
    if (!sameBytes(current.role, defaults.role))
        appendValueBlocks(bytesOfPorts(current.role),
                          {{0, "no channel-group lacp role\n"}, {1, "channel-group lacp role active\n"}});
    if (!sameBytes(current.enabled, defaults.enabled)) appendLacpSwitches(bytesOfPorts(current.enabled));
    return 0;
}

int full::convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(const TrunkTable &current) {
    trace();
    for (const TrunkGroup &group : current)
        if (isOn(group.inUse)) appendMembers(group.members, "channel-group trunking %s\n", group.name);
    return 0;
}

int delta::convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(const TrunkTable &current,
                                                                                    const TrunkTable &defaults) {
    trace();
    // A change of the name alone is none.
    for (std::size_t i = 0; i < std::size(current); ++i)
        if (isOn(current[i].inUse) && !samePorts(current[i].members, defaults[i].members))
            appendMembers(current[i].members, "channel-group trunking %s\n", current[i].name);
    return 0;
}

// ------------------------------------------------------------------------------------------------------------ mirror

int full::convConfigPortMirror_PortMirror_configure_mirror_destination(const PortMirror &current) {
    trace();
    if (isOn(current.destinationSet)) append("mirror destination %d\n", current.destinationPort.value() + 1);
    else append("no mirror destination\n");
    return 0;
}

int delta::convConfigPortMirror_PortMirror_configure_mirror_destination(const PortMirror &current,
                                                                        const PortMirror &defaults) {
    trace();
    if (current.destinationSet == defaults.destinationSet && current.destinationPort == defaults.destinationPort)
        return 0;
    if (isOn(current.destinationSet)) append("mirror destination %d\n", current.destinationPort.value() + 1);
    else append("no mirror destination\n");
    return 0;
}

int full::convConfigPortMirror_PortMirror_configure_mirror_mode() { return trace(); }

namespace {

/// One line of the whole switch and no block of interfaces, though it has a list of ports.
void appendMirrorSources(const PortBitmap &sources) {
    const PortWords ports = wordsOf(sources);
    if (CHECK_HAS_MEMBER_INT(ports.data(), 1)) {
        append("mirror source ");
        APPEND_PORT_MEMBER_INT_NUM(ports.data(), 1, portCount);
        APPEND_NL();
    } else append("no mirror source\n");
}

} // namespace

int full::convConfigPortMirror_PortMirror_configure_mirror_source(const PortMirror &current) {
    trace();
    appendMirrorSources(current.sources);
    return 0;
}

int delta::convConfigPortMirror_PortMirror_configure_mirror_source(const PortMirror &current,
                                                                   const PortMirror &defaults) {
    trace();
    // Bits behind the last port count too.
    if (!sameBytes(current.sources, defaults.sources)) appendMirrorSources(current.sources);
    return 0;
}

// ---------------------------------------------------------------------------------------------------- loop detection

int full::convConfigLoopDetection_LoopDetection_configure_loop_detection(const LoopDetection &current) {
    trace();
    if (g_EEPROM.isType5027()) return 0;
    appendSwitch(isOn(current.enabled), "loop-detection\n", "no loop-detection\n");
    append("loop-detection interval %d\n", current.interval);
    append("loop-detection unlock-interval %d\n", current.unlockInterval);
    appendSwitch(isOn(current.allVlans), "loop-detection all-vlan\n", "no loop-detection all-vlan\n");
    for (const be16 &vlan : current.vlans)
        if (vlan.value() != 0) append("loop-detection vlan-id %d\n", vlan);
    return 0;
}

int delta::convConfigLoopDetection_LoopDetection_configure_loop_detection(const LoopDetection &current,
                                                                          const LoopDetection &defaults) {
    trace();
    if (g_EEPROM.isType5027()) return 0;
    if (current.enabled != defaults.enabled)
        appendSwitch(isOn(current.enabled), "loop-detection\n", "no loop-detection\n");
    if (current.interval != defaults.interval) append("loop-detection interval %d\n", current.interval);
    if (current.unlockInterval != defaults.unlockInterval)
        append("loop-detection unlock-interval %d\n", current.unlockInterval);
    if (current.allVlans != defaults.allVlans)
        appendSwitch(isOn(current.allVlans), "loop-detection all-vlan\n", "no loop-detection all-vlan\n");
    // There is no line that would clear a slot.
    for (std::size_t i = 0; i < std::size(current.vlans); ++i)
        if (current.vlans[i].value() != 0 && current.vlans[i] != defaults.vlans[i])
            append("loop-detection vlan-id %d\n", current.vlans[i]);
    return 0;
}

namespace {

void appendLoopDetectionPorts(const PortWords &ports) {
    appendValueBlocks(ports, {{1, "loop-detection\n"}, {0, "no loop-detection\n"}});
}

} // namespace

int full::convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(const LoopDetection &current) {
    trace();
    if (g_EEPROM.isType5027()) return 0;
    appendLoopDetectionPorts(wordsOf(current.ports));
    return 0;
}

int delta::convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(const LoopDetection &current,
                                                                                    const LoopDetection &defaults) {
    trace();
    if (g_EEPROM.isType5027()) return 0;
    if (!samePorts(current.ports, defaults.ports)) appendLoopDetectionPorts(wordsOf(current.ports));
    return 0;
}

// --------------------------------------------------------------------------------------------- the MAC address table

int full::convConfigSwitchConfig_SwitchConfig_configure_mac(const SwitchConfig &current) {
    trace();
    append("mac address-table aging-time %d\n", current.macAgingTime);
    return 0;
}

int delta::convConfigSwitchConfig_SwitchConfig_configure_mac(const SwitchConfig &current,
                                                             const SwitchConfig &defaults) {
    trace();
    if (current.macAgingTime != defaults.macAgingTime)
        append("mac address-table aging-time %d\n", current.macAgingTime);
    return 0;
}

namespace {

/// The line of the port is a single number, without the blank of a list.
void appendStaticMac(const MacEntry &entry) {
    append("interface %d\n", entry.port + 1);
    append("mac address-table static-mac %02X:%02X:%02X:%02X:%02X:%02X vlan %d\n", entry.address, entry.vlan);
    append("exit\n");
}

} // namespace

int full::convConfigMacTable_MacTable_configure_interface_mac_address_table(const MacTable &current) {
    trace();
    for (const MacEntry &entry : current)
        if (isOn(entry.inUse)) appendStaticMac(entry);
    return 0;
}

int delta::convConfigMacTable_MacTable_configure_interface_mac_address_table(const MacTable &current,
                                                                             const MacTable &defaults) {
    trace();
    // A change of the port or the VLAN alone is none.
    for (std::size_t i = 0; i < std::size(current); ++i)
        if (isOn(current[i].inUse) && !sameBytes(current[i].address, defaults[i].address)) appendStaticMac(current[i]);
    return 0;
}

namespace {

void appendMacLearning(const PortWords &off) {
    appendValueBlocks(off, {{1, "no mac learning\n"}, {0, "mac learning\n"}});
}

} // namespace

int full::convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(const MacLearning &current) {
    trace();
    appendMacLearning(wordsOf(current.off));
    return 0;
}

int delta::convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(const MacLearning &current,
                                                                                const MacLearning &defaults) {
    trace();
    // All of the record, the word behind the ports included.
    if (!sameBytes(current, defaults)) appendMacLearning(wordsOf(current.off));
    return 0;
}

// -------------------------------------------------------------------------------------------------------------- LLDP

int full::convConfigLLDPConfig_LLDPConfig_configure_lldp(const LldpConfig &current) {
    trace();
    append("lldp hold-time %d\n", current.holdTime);
    append("lldp interval %d\n", current.interval);
    append("lldp packets %d\n", current.packets);
    appendSwitch(isOn(current.portDescription), "lldp tlv-select port-description\n",
                 "no lldp tlv-select port-description\n");
    appendSwitch(isOn(current.systemName), "lldp tlv-select system-name\n", "no lldp tlv-select system-name\n");
    appendSwitch(isOn(current.systemDescription), "lldp tlv-select system-description\n",
                 "no lldp tlv-select system-description\n");
    appendSwitch(isOn(current.capability), "lldp tlv-select capability\n", "no lldp tlv-select capability\n");
    appendSwitch(isOn(current.managementAddress), "lldp tlv-select management-address\n",
                 "no lldp tlv-select management-address\n");
    return 0;
}

int delta::convConfigLLDPConfig_LLDPConfig_configure_lldp(const LldpConfig &current, const LldpConfig &defaults) {
    trace();
    if (current.holdTime != defaults.holdTime) append("lldp hold-time %d\n", current.holdTime);
    if (current.interval != defaults.interval) append("lldp interval %d\n", current.interval);
    if (current.packets != defaults.packets) append("lldp packets %d\n", current.packets);
    if (current.portDescription != defaults.portDescription)
        appendSwitch(isOn(current.portDescription), "lldp tlv-select port-description\n",
                     "no lldp tlv-select port-description\n");
    if (current.systemName != defaults.systemName)
        appendSwitch(isOn(current.systemName), "lldp tlv-select system-name\n", "no lldp tlv-select system-name\n");
    if (current.systemDescription != defaults.systemDescription)
        appendSwitch(isOn(current.systemDescription), "lldp tlv-select system-description\n",
                     "no lldp tlv-select system-description\n");
    if (current.capability != defaults.capability)
        appendSwitch(isOn(current.capability), "lldp tlv-select capability\n", "no lldp tlv-select capability\n");
    if (current.managementAddress != defaults.managementAddress)
        appendSwitch(isOn(current.managementAddress), "lldp tlv-select management-address\n",
                     "no lldp tlv-select management-address\n");
    return 0;
}

namespace {

void appendLldpPorts(const PortWords &ports) { appendValueBlocks(ports, {{1, "lldp\n"}, {0, "no lldp\n"}}); }

} // namespace

int full::convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(const LldpConfig &current) {
    trace();
    appendLldpPorts(wordsOf(current.ports));
    return 0;
}

int delta::convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(const LldpConfig &current,
                                                                    const LldpConfig &defaults) {
    trace();
    if (!samePorts(current.ports, defaults.ports)) appendLldpPorts(wordsOf(current.ports));
    return 0;
}
