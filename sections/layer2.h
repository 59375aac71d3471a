/// VLANs, spanning tree, link aggregation, mirroring, loop detection, the MAC address table and LLDP.
#pragma once

#include "platform/image.h"

namespace full {
/// Writes nothing.
int convConfigVLANConfig_mid_vlan_lan_configure();
/// A group in use is written even if it has no ports.
int convConfigPortTrunk_PortTrunk_configure_channel_group(const TrunkTable &current);
int convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(const DistributionRules &current);
int convConfigLLDPConfig_LLDPConfig_configure_lldp(const LldpConfig &current);
int convConfigSwitchConfig_SwitchConfig_configure_mac(const SwitchConfig &current);
int convConfigPortMirror_PortMirror_configure_mirror_destination(const PortMirror &current);
/// Writes nothing.
int convConfigPortMirror_PortMirror_configure_mirror_mode();
int convConfigPortMirror_PortMirror_configure_mirror_source(const PortMirror &current);
/// Reads the current image itself.
int convConfigSTPConfig_STPConfig_configure_spanning_tree();
int convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(const SwitchConfig &current);
/// Writes nothing: the VLAN mode has a line in delta mode only.
int convConfigVLANConfig_mid_sys_vlan_config_configure_vlan();
int convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(const QinQConfig &current);
/// A list without ports has no line.
int convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(const Isolation &current);
/// Removes every VLAN of the default image first.
int convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(const PortVlanTable &current,
                                                                       const PortVlanTable &defaults);
/// Does not trace. Nothing if no VLAN before the first free entry has the CPU port.
int ManageVLANFunc_configure_vlan();
/// An unknown role has no block.
int convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(const LacpConfig &current);
/// A group without ports has no block.
int convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(const TrunkTable &current);
int convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(const LldpConfig &current);
/// Nothing on a board of type 5027.
int convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(const LoopDetection &current);
int convConfigMacTable_MacTable_configure_interface_mac_address_table(const MacTable &current);
int convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(const MacLearning &current);
/// A negative cost or priority has no block.
int convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(const StpPorts &current);
/// Removes the ports of every VLAN of the default image before it adds those of the current one.
int convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(const VlanPortTable &current);
/// A VLAN without front ports has no block.
int convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(const PortVlanTable &current);
/// A VLAN without a name has no block.
int convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(const TagVlanTable &current);
/// Nothing on a board of type 5027.
int convConfigLoopDetection_LoopDetection_configure_loop_detection(const LoopDetection &current);
/// Writes nothing.
int convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan();
/// Writes nothing.
int convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan();
} // namespace full

namespace delta {
using full::convConfigVLANConfig_mid_vlan_lan_configure; // traces only
/// Writes every group in use, changed or not.
int convConfigPortTrunk_PortTrunk_configure_channel_group(const TrunkTable &current);
int convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(const DistributionRules &current,
                                                                  const DistributionRules &defaults);
int convConfigLLDPConfig_LLDPConfig_configure_lldp(const LldpConfig &current, const LldpConfig &defaults);
int convConfigSwitchConfig_SwitchConfig_configure_mac(const SwitchConfig &current, const SwitchConfig &defaults);
/// Also written if the port of a destination that is not set was changed.
int convConfigPortMirror_PortMirror_configure_mirror_destination(const PortMirror &current, const PortMirror &defaults);
/// Compares all bits of the set, also those beyond the last port.
int convConfigPortMirror_PortMirror_configure_mirror_source(const PortMirror &current, const PortMirror &defaults);
int convConfigSTPConfig_STPConfig_configure_spanning_tree(const StpConfig &current, const StpConfig &defaults);
int convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(const SwitchConfig &current,
                                                              const SwitchConfig &defaults);
int convConfigVLANConfig_mid_sys_vlan_config_configure_vlan(const u8 &current, const u8 &defaults);
/// Writes the line, changed or not.
int convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(const QinQConfig &current);
int convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(const Isolation &current,
                                                                           const Isolation &defaults);
/// Compares names: a changed CPU port alone has no line.
int convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(const PortVlanTable &current,
                                                                       const PortVlanTable &defaults);
/// Compares id and ports with the default entry of the same index.
int ManageVLANFunc_configure_vlan();
int convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(const LacpConfig &current,
                                                                             const LacpConfig &defaults);
/// Compares ports: a changed name alone has no block.
int convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(const TrunkTable &current,
                                                                             const TrunkTable &defaults);
int convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(const LldpConfig &current, const LldpConfig &defaults);
/// Nothing on a board of type 5027.
int convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(const LoopDetection &current,
                                                                             const LoopDetection &defaults);
/// Compares addresses: a changed port or VLAN alone has no block.
int convConfigMacTable_MacTable_configure_interface_mac_address_table(const MacTable &current,
                                                                      const MacTable &defaults);
/// Compares the whole record, bytes that are not written included.
int convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(const MacLearning &current,
                                                                         const MacLearning &defaults);
int convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(const StpPorts &current, const StpPorts &defaults);
/// A VLAN is compared by id and front ports with the entry of the same index.
int convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(const VlanPortTable &current,
                                                                      const VlanPortTable &defaults);
/// Compares ports: a changed name alone has no block.
int convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(const PortVlanTable &current,
                                                                                 const PortVlanTable &defaults);
/// Any byte of an entry counts as a change.
int convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(const TagVlanTable &current, const TagVlanTable &defaults);
/// Nothing on a board of type 5027. A VLAN that was removed has no line.
int convConfigLoopDetection_LoopDetection_configure_loop_detection(const LoopDetection &current,
                                                                   const LoopDetection &defaults);
using full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan; // traces only
using full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan; // traces only
} // namespace delta
