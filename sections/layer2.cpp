#include "sections/layer2.h"

#include "format/section_lines.h"
#include "platform/board.h"
#include "platform/util.h"

#include <iterator>

/// Appends a block for the front ports in `members`, with `line` for `value`; nothing if there is none.
template <std::size_t Bytes, class Value>
static void appendMembers(const Bitmap<Bytes> &members, std::type_identity_t<Format<Value>> line, const Value &value) {
    const PortSet ports = portsIn(members);
    if (ports.empty()) return;
    append("interface %s \n", ports);
    append(line, value);
    append("exit\n");
}

// ---------------------------------------------------------------------------------------------------- VLANs, globally

int full::convConfigVLANConfig_mid_vlan_lan_configure() { return trace(); }

// Full mode has no line for the VLAN mode.
int full::convConfigVLANConfig_mid_sys_vlan_config_configure_vlan() { return trace(); }

int delta::convConfigVLANConfig_mid_sys_vlan_config_configure_vlan(const u8 &current, const u8 &defaults) {
    trace();
    if (current != defaults)
        appendValueLine(current, {{1, "vlan port-based\n"},
                                  {2, "vlan dot1q-vlan\n"},
                                  {3, "vlan dot1q-vlan isolation\n"},
                                  {4, "vlan qinq-vlan bypass-ctag\n"}});
    return 0;
}

/// Delta mode writes it too, changed or not.
static int write(const QinQConfig &qinq) {
    append("vlan dot1q-tunnel ethertype %X\n", qinq.ethertype);
    return 0;
}

int full::convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(const QinQConfig &current) {
    return trace(), write(current);
}

int delta::convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(const QinQConfig &current) {
    return trace(), write(current);
}

static int write(const SectionLines<Isolation> &isolation) {
    const auto uplinks = [](const Isolation &of) { return textOf(of.uplinks); };
    const auto others = [](const Isolation &of) { return textOf(complementOf(of.uplinks)); };
    const Isolation &current = isolation.current;
    if (!noPort(current.uplinks) && isolation.dueBy(uplinks))
        isolation.append({"vlan isolation up-link-port %s \n", "vlan isolation up-link-port %s\n"}, uplinks(current));
    const WorkingPorts rest = complementOf(current.uplinks);
    if (!noPort(rest) && isolation.dueBy(others))
        isolation.append({"no vlan isolation up-link-port %s \n", "no vlan isolation up-link-port %s\n"}, textOf(rest));
    isolation.onOff(&Isolation::enabled, "vlan isolation\n", "no vlan isolation\n");
    return 0;
}

int full::convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(const Isolation &current) {
    return trace(), write({current});
}

int delta::convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(const Isolation &current,
                                                                                  const Isolation &defaults) {
    return trace(), write({current, defaults});
}

static bool hasCpuPort(const PortVlan &vlan) { return utilBitmapCheck(vlan.members.bytes, cpuPort) == 1; }

/// Full mode removes every VLAN of the default image first, also one that the current image has too. Delta mode
/// compares names: a change of the CPU port's membership alone has no line.
static int write(const SectionLines<PortVlanTable> &table, const PortVlanTable &defaults) {
    const auto isNew = [&](int i) { return table.full || !sameText(table.current[i].name, defaults[i].name); };
    for (int i = 0; i < portCount; ++i)
        if (isOn(defaults[i].inUse) && isNew(i)) append("no vlan port-based %s\n", defaults[i].name);
    for (int i = 0; i < portCount; ++i) {
        const PortVlan &vlan = table.current[i];
        if (!isOn(vlan.inUse) || !isNew(i)) continue;
        append("vlan port-based %s\n", vlan.name);
        if (hasCpuPort(vlan) && (table.full || !hasCpuPort(defaults[i])))
            table.append({"vlan port-based %s include-cpu \n", "vlan port-based %s include-cpu\n"}, vlan.name);
    }
    return 0;
}

int full::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(const PortVlanTable &current,
                                                                             const PortVlanTable &defaults) {
    return trace(), write({current}, defaults);
}

int delta::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(const PortVlanTable &current,
                                                                              const PortVlanTable &defaults) {
    return trace(), write({current, defaults}, defaults);
}

// ----------------------------------------------------------------------------------------------- the management VLAN

namespace {

/// Index of the first VLAN with the CPU port; -1 if there is none before the first entry that is not in use. The table
/// is packed from its start, so nothing after such an entry is looked at.
int managementVlanIndex(const TagVlanTable &vlans) {
    for (int i = 0; i < static_cast<int>(std::size(vlans)) && isOn(vlans[i].inUse); ++i)
        if (utilBitmapCheck(vlans[i].members.bytes, cpuPort) == 1) return i;
    return -1;
}

/// The ports of the management VLAN, by the way in which they belong to it.
struct ManagementPorts {
    PortSet access;
    PortSet trunk;
    PortSet trunkNative;

    friend bool operator==(const ManagementPorts &, const ManagementPorts &) = default;
};

/// A dot1q-tunnel port belongs in no way, member or not.
ManagementPorts managementPorts(const VlanPortTable &ports, const TagVlan &vlan) {
    ManagementPorts by;
    for (std::size_t i = 0; i < portCount; ++i) {
        const VlanPort &port = ports[i];
        const bool member = utilBitmapCheck(vlan.members.bytes, static_cast<int>(i)) == 1;
        if (port.mode == 0 && port.accessVlan == vlan.id) by.access.add(i);
        if (port.mode == 1 && member) by.trunk.add(i);
        if (port.mode == 2 && member) by.trunkNative.add(i);
    }
    return by;
}

/// The two blanks after the ports are the format, as is the hyphen of trunk-native, which the ports' own mode lacks.
void appendManagementVlan(const TagVlan &vlan, const ManagementPorts &ports) {
    if (!ports.access.empty())
        append("vlan management-vlan %d management-port %s  mode access\n", vlan.id, ports.access);
    if (!ports.trunk.empty()) append("vlan management-vlan %d management-port %s  mode trunk\n", vlan.id, ports.trunk);
    if (!ports.trunkNative.empty())
        append("vlan management-vlan %d management-port %s  mode trunk-native\n", vlan.id, ports.trunkNative);
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
    const ManagementPorts ports = managementPorts(gSysConfig->vlanPorts, vlan);
    if (vlan.id == defaultVlan.id && ports == managementPorts(gDefConfig->vlanPorts, defaultVlan)) return 0;
    appendManagementVlan(vlan, ports);
    return 0;
}

// ----------------------------------------------------------------------------------------------- VLANs, per interface

/// Whether two entries are the same to trunk ports. Whether they are in use does not count, nor does the CPU port.
static bool sameTrunkVlan(const TagVlan &a, const TagVlan &b) {
    return a.id == b.id && samePorts(a.members, b.members);
}

/// Full mode removes every VLAN of the default image first, also one that the current image has too.
static void writeTrunkVlans(const SectionLines<TagVlanTable> &table, const TagVlanTable &defaults) {
    const TagVlanTable &vlans = table.current;
    const auto isNew = [&](std::size_t i) { return table.full || !sameTrunkVlan(vlans[i], defaults[i]); };
    for (std::size_t i = 0; i < std::size(defaults); ++i)
        if (isOn(defaults[i].inUse) && isNew(i))
            appendMembers(defaults[i].members, "no vlan dot1q-vlan trunk-vlan %d\n", defaults[i].id);
    for (std::size_t i = 0; i < std::size(vlans); ++i)
        if (isOn(vlans[i].inUse) && isNew(i))
            appendMembers(vlans[i].members, "vlan dot1q-vlan trunk-vlan %d\n", vlans[i].id);
}

static int write(const SectionLines<VlanPortTable> &ports, const SectionLines<TagVlanTable> &vlans) {
    const auto accessVlans = [](const VlanPortTable &of) { return valuesOf(of, &VlanPort::accessVlan); };
    if (ports.dueBy(accessVlans)) {
        // 0 means none. The list ends its line without a blank, unlike those of the trunk VLANs and the modes.
        for (const PortGroup &group : groupsOf(accessVlans(ports.current), 0)) {
            append("interface %s\n", group.ports);
            append("vlan dot1q-vlan access-vlan %d\n", group.value);
            append("exit\n");
        }
    }
    writeTrunkVlans(vlans, gDefConfig->tagVlans);
    const auto modes = [](const VlanPortTable &of) { return valuesOf(of, &VlanPort::mode); };
    if (ports.dueBy(modes))
        appendValueBlocks("interface %s \n", modes(ports.current),
                          {{0, "vlan dot1q-vlan mode access\n"},
                           {1, "vlan dot1q-vlan mode trunk\n"},
                           {2, "vlan dot1q-vlan mode trunk native\n"},
                           {3, "vlan dot1q-vlan mode dot1q-tunnel\n"}});
    return 0;
}

int full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(const VlanPortTable &current) {
    return trace(), write({current}, {gSysConfig->tagVlans});
}

int delta::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(const VlanPortTable &current,
                                                                             const VlanPortTable &defaults) {
    return trace(), write({current, defaults}, {gSysConfig->tagVlans, gDefConfig->tagVlans});
}

/// Delta mode compares the ports: a change of the name alone has no block.
static int writePortVlanMembers(const SectionLines<PortVlanTable> &table) {
    for (int i = 0; i < portCount; ++i) {
        const PortVlan &vlan = table.current[i];
        if (isOn(vlan.inUse) && (table.full || !samePorts(vlan.members, table.defaults[i].members)))
            appendMembers(vlan.members, "vlan port-based %s\n", vlan.name);
    }
    return 0;
}

int full::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(const PortVlanTable &current) {
    return trace(), writePortVlanMembers({current});
}

int delta::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(const PortVlanTable &current,
                                                                                        const PortVlanTable &defaults) {
    return trace(), writePortVlanMembers({current, defaults});
}

/// A VLAN without a name has no block of its own; its ports name it. In delta mode any byte of the entry makes a
/// change, those that are not written included.
static int write(const SectionLines<TagVlanTable> &table) {
    for (const TagVlan &vlan : table.current) {
        if (!isOn(vlan.inUse) || vlan.name.empty() || !table.elementOf(vlan).changed()) continue;
        append("vlan dot1q-vlan %d\n", vlan.id);
        append("name %s\n", vlan.name);
        append("exit\n");
    }
    return 0;
}

int full::convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(const TagVlanTable &current) {
    return trace(), write({current});
}

int delta::convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(const TagVlanTable &current,
                                                                 const TagVlanTable &defaults) {
    return trace(), write({current, defaults});
}

int full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan() { return trace(); }
int full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan() { return trace(); }

// ------------------------------------------------------------------------------------------ spanning tree and BPDUs

static int write(const SectionLines<StpConfig> &stp) {
    stp.value(&StpConfig::priority, "spanning-tree priority %d\n");
    stp.value(&StpConfig::maxAge, "spanning-tree max-age %d\n");
    stp.value(&StpConfig::helloTime, "spanning-tree hello-time %d\n");
    stp.value(&StpConfig::forwardDelay, "spanning-tree delay-time %d\n");
    stp.code(&StpConfig::version, {{1, "spanning-tree version normal\n"}}, "spanning-tree version compatible\n");
    stp.onOff(&StpConfig::aggregated, "spanning-tree aggregated-port\n", "no spanning-tree aggregated-port\n");
    stp.value(&StpConfig::aggregatedCost, "spanning-tree aggregated-port cost %ld\n");
    stp.value(&StpConfig::aggregatedPriority, "spanning-tree aggregated-port priority %d\n");
    stp.onOff(&StpConfig::aggregatedEdge, "spanning-tree aggregated-port edge\n",
              "no spanning-tree aggregated-port edge\n");
    stp.code(&StpConfig::aggregatedPointToPoint, {{0, "spanning-tree aggregated-port p2p forced_true\n"},
                                                  {1, "spanning-tree aggregated-port p2p forced_false\n"},
                                                  {2, "spanning-tree aggregated-port p2p auto\n"}});
    return 0;
}

int full::convConfigSTPConfig_STPConfig_configure_spanning_tree() { return trace(), write({gSysConfig->stp}); }

int delta::convConfigSTPConfig_STPConfig_configure_spanning_tree(const StpConfig &current, const StpConfig &defaults) {
    return trace(), write({current, defaults});
}

/// The order is neither that of the flags nor that of the ranges.
static int writeBpdus(const SectionLines<SwitchConfig> &config) {
    config.onOff(&SwitchConfig::blockBpdu00to0F, "no switch bpdu 00-0F\n", "switch bpdu 00-0F permit\n");
    config.onOff(&SwitchConfig::blockBpdu20to2F, "no switch bpdu 20-2F\n", "switch bpdu 20-2F permit\n");
    config.onOff(&SwitchConfig::blockBpdu10, "no switch bpdu 10\n", "switch bpdu 10 permit\n");
    return 0;
}

int full::convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(const SwitchConfig &current) {
    return trace(), writeBpdus({current});
}

int delta::convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(const SwitchConfig &current,
                                                                     const SwitchConfig &defaults) {
    return trace(), writeBpdus({current, defaults});
}

/// A block for each number that is not negative, in the order of its lowest port, with `line` for the number.
static void appendNumberBlocks(const be_i32 (&numbers)[portCount], Format<std::uint32_t> line) {
    constexpr std::uint32_t written = UINT32_MAX; // -1
    for (const PortGroup &group : groupsOf(valuesOf(numbers), written)) {
        if (static_cast<std::int32_t>(group.value) < 0) continue;
        append("interface %s \n", group.ports);
        append(line, group.value);
        append("exit\n");
    }
}

static int write(const SectionLines<StpPorts> &ports) {
    ports.blocks(&StpPorts::enabled, "interface %s \n", {{0, "no spanning-tree\n"}, {1, "spanning-tree\n"}});
    if (ports.due(&StpPorts::cost)) appendNumberBlocks(ports.current.cost, "spanning-tree cost %ld\n");
    if (ports.due(&StpPorts::priority)) appendNumberBlocks(ports.current.priority, "spanning-tree priority %d\n");
    ports.blocks(&StpPorts::edge, "interface %s \n", {{0, "no spanning-tree edge\n"}, {1, "spanning-tree edge\n"}});
    ports.blocks(&StpPorts::pointToPoint, "interface %s \n",
                 {{0, "spanning-tree p2p forced_true\n"},
                  {1, "spanning-tree p2p forced_false\n"},
                  {2, "spanning-tree p2p auto\n"}});
    return 0;
}

int full::convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(const StpPorts &current) {
    return trace(), write({current});
}

int delta::convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(const StpPorts &current,
                                                                           const StpPorts &defaults) {
    return trace(), write({current, defaults});
}

// ------------------------------------------------------------------------------------------------- link aggregation

/// Delta mode writes them too, changed or not.
static int write(const TrunkTable &trunks) {
    for (const TrunkGroup &group : trunks)
        if (isOn(group.inUse)) append("channel-group trunking %s\n", group.name);
    return 0;
}

int full::convConfigPortTrunk_PortTrunk_configure_channel_group(const TrunkTable &current) {
    return trace(), write(current);
}

int delta::convConfigPortTrunk_PortTrunk_configure_channel_group(const TrunkTable &current) {
    return trace(), write(current);
}

/// The destination of each pair goes before the source and the addresses of layer 2 go last, against the stored order.
static int write(const SectionLines<DistributionRules> &rules) {
    rules.onOff(&DistributionRules::destinationIp, "channel-group distribution-rule destination-ip\n",
                "no channel-group distribution-rule destination-ip\n");
    rules.onOff(&DistributionRules::sourceIp, "channel-group distribution-rule source-ip\n",
                "no channel-group distribution-rule source-ip\n");
    rules.onOff(&DistributionRules::destinationL4Port, "channel-group distribution-rule destination-L4-port\n",
                "no channel-group distribution-rule destination-L4-port\n");
    rules.onOff(&DistributionRules::sourceL4Port, "channel-group distribution-rule source-L4-port\n",
                "no channel-group distribution-rule source-L4-port\n");
    rules.onOff(&DistributionRules::destinationMac, "channel-group distribution-rule destination-mac\n",
                "no channel-group distribution-rule destination-mac\n");
    rules.onOff(&DistributionRules::sourceMac, "channel-group distribution-rule source-mac\n",
                "no channel-group distribution-rule source-mac\n");
    return 0;
}

int full::convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(const DistributionRules &current) {
    return trace(), write({current});
}

int delta::convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(const DistributionRules &current,
                                                                         const DistributionRules &defaults) {
    return trace(), write({current, defaults});
}

/// The ports of a key are in a list that ends with a blank, those of a role or of the on/off setting in one that does
/// not.
static int write(const SectionLines<LacpConfig> &lacp) {
    constexpr std::uint32_t noKey = UINT8_MAX + 1; // every port has a key
    PortGroups keys = groupsOf(valuesOf(lacp.current.key), noKey);
    keys.sortByValue();
    for (const PortGroup &key : keys) {
        if (!lacp.full && key.ports == portsWith(valuesOf(lacp.defaults.key), key.value)) continue;
        append("interface %s \n", key.ports);
        append("channel-group lacp key %d\n", key.value);
        append("exit\n");
    }
    if (lacp.due(&LacpConfig::role))
        appendValueBlocks(
            "interface %s\n", valuesOf(lacp.current.role),
            {{0, LineForms{"no channel-group lacp role \n", "no channel-group lacp role\n"}.in(lacp.full)},
             {1, "channel-group lacp role active\n"}});
    lacp.blocks(&LacpConfig::enabled, "interface %s\n", {{0, "no channel-group lacp\n"}, {1, "channel-group lacp\n"}});
    return 0;
}

int full::convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(const LacpConfig &current) {
    return trace(), write({current});
}

int delta::convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(const LacpConfig &current,
                                                                                    const LacpConfig &defaults) {
    return trace(), write({current, defaults});
}

/// Delta mode compares the ports: a change of the name alone has no block.
static int writeTrunkMembers(const SectionLines<TrunkTable> &table) {
    for (std::size_t i = 0; i < std::size(table.current); ++i) {
        const TrunkGroup &group = table.current[i];
        if (isOn(group.inUse) && (table.full || !samePorts(group.members, table.defaults[i].members)))
            appendMembers(group.members, "channel-group trunking %s\n", group.name);
    }
    return 0;
}

int full::convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(const TrunkTable &current) {
    return trace(), writeTrunkMembers({current});
}

int delta::convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(const TrunkTable &current,
                                                                                    const TrunkTable &defaults) {
    return trace(), writeTrunkMembers({current, defaults});
}

// ------------------------------------------------------------------------------------------------------------ mirror

static int writeDestination(const SectionLines<PortMirror> &mirror) {
    if (!mirror.due(&PortMirror::destinationSet) && !mirror.due(&PortMirror::destinationPort)) return 0;
    if (isOn(mirror.current.destinationSet))
        append("mirror destination %d\n", mirror.current.destinationPort.value() + 1);
    else append("no mirror destination\n");
    return 0;
}

int full::convConfigPortMirror_PortMirror_configure_mirror_destination(const PortMirror &current) {
    return trace(), writeDestination({current});
}

int delta::convConfigPortMirror_PortMirror_configure_mirror_destination(const PortMirror &current,
                                                                        const PortMirror &defaults) {
    return trace(), writeDestination({current, defaults});
}

int full::convConfigPortMirror_PortMirror_configure_mirror_mode() { return trace(); }

/// One line of the whole switch and no block, though it lists ports. Bits beyond the last port make a change too.
static int writeSources(const SectionLines<PortMirror> &mirror) {
    if (!mirror.due(&PortMirror::sources)) return 0;
    if (const PortSet sources = portsIn(mirror.current.sources); !sources.empty())
        append("mirror source %s \n", sources);
    else append("no mirror source\n");
    return 0;
}

int full::convConfigPortMirror_PortMirror_configure_mirror_source(const PortMirror &current) {
    return trace(), writeSources({current});
}

int delta::convConfigPortMirror_PortMirror_configure_mirror_source(const PortMirror &current,
                                                                   const PortMirror &defaults) {
    return trace(), writeSources({current, defaults});
}

// ---------------------------------------------------------------------------------------------------- loop detection

static int write(const SectionLines<LoopDetection> &loop) {
    if (g_EEPROM.isType5027()) return 0;
    loop.onOff(&LoopDetection::enabled, "loop-detection\n", "no loop-detection\n");
    loop.value(&LoopDetection::interval, "loop-detection interval %d\n");
    loop.value(&LoopDetection::unlockInterval, "loop-detection unlock-interval %d\n");
    loop.onOff(&LoopDetection::allVlans, "loop-detection all-vlan\n", "no loop-detection all-vlan\n");
    // There is no line that would clear a slot.
    for (std::size_t i = 0; i < std::size(loop.current.vlans); ++i) {
        const be16 vlan = loop.current.vlans[i];
        if (vlan.value() != 0 && (loop.full || vlan != loop.defaults.vlans[i]))
            append("loop-detection vlan-id %d\n", vlan);
    }
    return 0;
}

int full::convConfigLoopDetection_LoopDetection_configure_loop_detection(const LoopDetection &current) {
    return trace(), write({current});
}

int delta::convConfigLoopDetection_LoopDetection_configure_loop_detection(const LoopDetection &current,
                                                                          const LoopDetection &defaults) {
    return trace(), write({current, defaults});
}

static int writeLoopDetectionPorts(const SectionLines<LoopDetection> &loop) {
    if (g_EEPROM.isType5027()) return 0;
    loop.portBlocks(&LoopDetection::ports, "interface %s \n", {{1, "loop-detection\n"}, {0, "no loop-detection\n"}});
    return 0;
}

int full::convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(const LoopDetection &current) {
    return trace(), writeLoopDetectionPorts({current});
}

int delta::convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(const LoopDetection &current,
                                                                                    const LoopDetection &defaults) {
    return trace(), writeLoopDetectionPorts({current, defaults});
}

// --------------------------------------------------------------------------------------------- the MAC address table

static int writeAgingTime(const SectionLines<SwitchConfig> &config) {
    config.value(&SwitchConfig::macAgingTime, "mac address-table aging-time %d\n");
    return 0;
}

int full::convConfigSwitchConfig_SwitchConfig_configure_mac(const SwitchConfig &current) {
    return trace(), writeAgingTime({current});
}

int delta::convConfigSwitchConfig_SwitchConfig_configure_mac(const SwitchConfig &current,
                                                             const SwitchConfig &defaults) {
    return trace(), writeAgingTime({current, defaults});
}

/// Delta mode compares the address: a change of the port or the VLAN alone has no block. The port is a single number,
/// without the blank of a list.
static int write(const SectionLines<MacTable> &table) {
    for (std::size_t i = 0; i < std::size(table.current); ++i) {
        const MacEntry &entry = table.current[i];
        if (!isOn(entry.inUse) || !table[i].due(&MacEntry::address)) continue;
        append("interface %d\n", entry.port + 1);
        append("mac address-table static-mac %02X:%02X:%02X:%02X:%02X:%02X vlan %d\n", entry.address, entry.vlan);
        append("exit\n");
    }
    return 0;
}

int full::convConfigMacTable_MacTable_configure_interface_mac_address_table(const MacTable &current) {
    return trace(), write({current});
}

int delta::convConfigMacTable_MacTable_configure_interface_mac_address_table(const MacTable &current,
                                                                             const MacTable &defaults) {
    return trace(), write({current, defaults});
}

/// Delta mode compares the whole record, the word after the ports included.
static int write(const SectionLines<MacLearning> &learning) {
    if (learning.changed())
        appendValueBlocks("interface %s \n", valuesOf(learning.current.off),
                          {{1, "no mac learning\n"}, {0, "mac learning\n"}});
    return 0;
}

int full::convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(const MacLearning &current) {
    return trace(), write({current});
}

int delta::convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(const MacLearning &current,
                                                                                const MacLearning &defaults) {
    return trace(), write({current, defaults});
}

// -------------------------------------------------------------------------------------------------------------- LLDP

static int write(const SectionLines<LldpConfig> &lldp) {
    lldp.value(&LldpConfig::holdTime, "lldp hold-time %d\n");
    lldp.value(&LldpConfig::interval, "lldp interval %d\n");
    lldp.value(&LldpConfig::packets, "lldp packets %d\n");
    lldp.onOff(&LldpConfig::portDescription, "lldp tlv-select port-description\n",
               "no lldp tlv-select port-description\n");
    lldp.onOff(&LldpConfig::systemName, "lldp tlv-select system-name\n", "no lldp tlv-select system-name\n");
    lldp.onOff(&LldpConfig::systemDescription, "lldp tlv-select system-description\n",
               "no lldp tlv-select system-description\n");
    lldp.onOff(&LldpConfig::capability, "lldp tlv-select capability\n", "no lldp tlv-select capability\n");
    lldp.onOff(&LldpConfig::managementAddress, "lldp tlv-select management-address\n",
               "no lldp tlv-select management-address\n");
    return 0;
}

int full::convConfigLLDPConfig_LLDPConfig_configure_lldp(const LldpConfig &current) {
    return trace(), write({current});
}

int delta::convConfigLLDPConfig_LLDPConfig_configure_lldp(const LldpConfig &current, const LldpConfig &defaults) {
    return trace(), write({current, defaults});
}

static int writeLldpPorts(const SectionLines<LldpConfig> &lldp) {
    lldp.portBlocks(&LldpConfig::ports, "interface %s \n", {{1, "lldp\n"}, {0, "no lldp\n"}});
    return 0;
}

int full::convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(const LldpConfig &current) {
    return trace(), writeLldpPorts({current});
}

int delta::convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(const LldpConfig &current,
                                                                    const LldpConfig &defaults) {
    return trace(), writeLldpPorts({current, defaults});
}
