/// VLANs, spanning tree, link aggregation, mirroring, loop detection, the MAC address table and LLDP.
#pragma once

#include "platform/image.h"

namespace full {
int convConfigVLANConfig_mid_vlan_lan_configure();
int convConfigPortTrunk_PortTrunk_configure_channel_group(const TrunkTable &current);
int convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(const DistributionRules &current);
int convConfigLLDPConfig_LLDPConfig_configure_lldp(const LldpConfig &current);
int convConfigSwitchConfig_SwitchConfig_configure_mac(const SwitchConfig &current);
int convConfigPortMirror_PortMirror_configure_mirror_destination(const PortMirror &current);
int convConfigPortMirror_PortMirror_configure_mirror_mode();
int convConfigPortMirror_PortMirror_configure_mirror_source(const PortMirror &current);
int convConfigSTPConfig_STPConfig_configure_spanning_tree();
int convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(const SwitchConfig &current);
int convConfigVLANConfig_mid_sys_vlan_config_configure_vlan();
int convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(const QinQConfig &current);
int convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(const Isolation &current);
int convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(const PortVlanTable &current,
                                                                       const PortVlanTable &defaults);
int ManageVLANFunc_configure_vlan();
int convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(const LacpConfig &current);
int convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(const TrunkTable &current);
int convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(const LldpConfig &current);
int convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(const LoopDetection &current);
int convConfigMacTable_MacTable_configure_interface_mac_address_table(const MacTable &current);
int convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(const MacLearning &current);
int convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(const StpPorts &current);
int convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(const VlanPortTable &current);
int convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(const PortVlanTable &current);
int convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(const TagVlanTable &current);
int convConfigLoopDetection_LoopDetection_configure_loop_detection(const LoopDetection &current);
int convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan();
int convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan();
} // namespace full

namespace delta {
using full::convConfigVLANConfig_mid_vlan_lan_configure; // traces only
int convConfigPortTrunk_PortTrunk_configure_channel_group(const TrunkTable &current);
int convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(const DistributionRules &current,
                                                                  const DistributionRules &defaults);
int convConfigLLDPConfig_LLDPConfig_configure_lldp(const LldpConfig &current, const LldpConfig &defaults);
int convConfigSwitchConfig_SwitchConfig_configure_mac(const SwitchConfig &current, const SwitchConfig &defaults);
int convConfigPortMirror_PortMirror_configure_mirror_destination(const PortMirror &current, const PortMirror &defaults);
int convConfigPortMirror_PortMirror_configure_mirror_source(const PortMirror &current, const PortMirror &defaults);
int convConfigSTPConfig_STPConfig_configure_spanning_tree(const StpConfig &current, const StpConfig &defaults);
int convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(const SwitchConfig &current,
                                                              const SwitchConfig &defaults);
int convConfigVLANConfig_mid_sys_vlan_config_configure_vlan(const u8 &current, const u8 &defaults);
int convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(const QinQConfig &current);
int convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(const Isolation &current,
                                                                           const Isolation &defaults);
int convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(const PortVlanTable &current,
                                                                       const PortVlanTable &defaults);
int ManageVLANFunc_configure_vlan();
int convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(const LacpConfig &current,
                                                                             const LacpConfig &defaults);
int convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(const TrunkTable &current,
                                                                             const TrunkTable &defaults);
int convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(const LldpConfig &current, const LldpConfig &defaults);
int convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(const LoopDetection &current,
                                                                             const LoopDetection &defaults);
int convConfigMacTable_MacTable_configure_interface_mac_address_table(const MacTable &current,
                                                                      const MacTable &defaults);
int convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(const MacLearning &current,
                                                                         const MacLearning &defaults);
int convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(const StpPorts &current, const StpPorts &defaults);
int convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(const VlanPortTable &current,
                                                                      const VlanPortTable &defaults);
int convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(const PortVlanTable &current,
                                                                                 const PortVlanTable &defaults);
int convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(const TagVlanTable &current, const TagVlanTable &defaults);
int convConfigLoopDetection_LoopDetection_configure_loop_detection(const LoopDetection &current,
                                                                   const LoopDetection &defaults);
using full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan; // traces only
using full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan; // traces only
} // namespace delta
