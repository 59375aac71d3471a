/// VLANs, spanning tree, link aggregation, mirroring, loop detection, the MAC address table and LLDP.
#pragma once

#include "platform/image.h"

namespace full {
/// Reads and writes nothing.
int convConfigVLANConfig_mid_vlan_lan_configure();
/// Trunk groups (at 121120): "channel-group trunking" for each group in use, whether or not it has ports.
int convConfigPortTrunk_PortTrunk_configure_channel_group(const TrunkTable &current);
/// Distribution rules (at 121512): a "channel-group distribution-rule" line for each of the six, on or "no".
int convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(const DistributionRules &current);
/// LLDP (at 180296): "lldp hold-time", "interval", "packets" and a "tlv-select" line for each of the five TLVs.
int convConfigLLDPConfig_LLDPConfig_configure_lldp(const LldpConfig &current);
/// Switch-wide values (at 126372): "mac address-table aging-time".
int convConfigSwitchConfig_SwitchConfig_configure_mac(const SwitchConfig &current);
/// Mirror (at 125092): "mirror destination" with the port, counted from 1, or "no mirror destination".
int convConfigPortMirror_PortMirror_configure_mirror_destination(const PortMirror &current);
/// Reads and writes nothing.
int convConfigPortMirror_PortMirror_configure_mirror_mode();
/// Mirror (at 125092): "mirror source" with the ports, or "no mirror source" if there is none.
int convConfigPortMirror_PortMirror_configure_mirror_source(const PortMirror &current);
/// Spanning tree of the bridge (at 146760, read from the current image): ten "spanning-tree" lines. An unknown
/// point-to-point value of aggregated ports has none.
int convConfigSTPConfig_STPConfig_configure_spanning_tree();
/// Switch-wide values (at 126372): a "switch bpdu" line for each of three ranges, "permit" or "no".
int convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(const SwitchConfig &current);
/// Reads and writes nothing: the VLAN mode has a line in delta mode only.
int convConfigVLANConfig_mid_sys_vlan_config_configure_vlan();
/// QinQ (at 129424): "vlan dot1q-tunnel ethertype", hexadecimal.
int convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(const QinQConfig &current);
/// Isolation (at 202700): "vlan isolation up-link-port" with the up-link ports and "no" with the others, either left
/// out if it has no port; then "vlan isolation" or "no vlan isolation".
int convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(const Isolation &current);
/// Port-based VLANs (at 8216): "no vlan port-based" for each default one in use, "vlan port-based" for each current
/// one, with a second line if the CPU port is a member.
int convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(const PortVlanTable &current,
                                                                       const PortVlanTable &defaults);
/// 802.1Q VLANs and ports (at 8860 and 7862, read from the current image): "vlan management-vlan" for the access, trunk
/// and trunk-native ports of the first VLAN with the CPU port. Nothing if there is none before the first free entry.
int ManageVLANFunc_configure_vlan();
/// LACP (at 121028): a block for each key in use, in ascending order, then for the roles none and active, then for LACP
/// off and on. Other roles and switches have no block.
int convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(const LacpConfig &current);
/// Trunk groups (at 121120): a "channel-group trunking" block for each group in use that has ports.
int convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(const TrunkTable &current);
/// LLDP (at 180296): a block for the ports with "lldp" and one for those with "no lldp".
int convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(const LldpConfig &current);
/// Loop detection (at 125404): a block for the ports with "loop-detection" and one for those with "no". Nothing on a
/// board of type 5027.
int convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(const LoopDetection &current);
/// Static MAC addresses (at 121556): a block for each entry in use.
int convConfigMacTable_MacTable_configure_interface_mac_address_table(const MacTable &current);
/// MAC learning (at 124628): a block for the ports with "no mac learning" and one for those with "mac learning". Other
/// values have none.
int convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(const MacLearning &current);
/// Spanning tree of the ports (at 146808): blocks for off and on, for each path cost and each priority that is not
/// negative, for edge ports and for the three point-to-point values. Other values have none.
int convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(const StpPorts &current);
/// 802.1Q settings of the ports (at 7862) and the VLANs of both images (at 8860): blocks for each access VLAN, then
/// "no" for each default VLAN with ports, then for each current one, then for each of the four port modes.
int convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(const VlanPortTable &current);
/// Port-based VLANs (at 8216): a "vlan port-based" block for each in use that has front ports.
int convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(const PortVlanTable &current);
/// 802.1Q VLANs (at 8860): a "vlan dot1q-vlan" block with the name, for each in use that has one.
int convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(const TagVlanTable &current);
/// Loop detection (at 125404): four "loop-detection" lines and one for each VLAN to watch. Nothing on a board of type
/// 5027.
int convConfigLoopDetection_LoopDetection_configure_loop_detection(const LoopDetection &current);
/// Reads and writes nothing.
int convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan();
/// Reads and writes nothing.
int convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan();
} // namespace full

namespace delta {
using full::convConfigVLANConfig_mid_vlan_lan_configure; // traces only
/// As in full mode: changed or not.
int convConfigPortTrunk_PortTrunk_configure_channel_group(const TrunkTable &current);
/// The lines of the rules that were changed.
int convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(const DistributionRules &current,
                                                                  const DistributionRules &defaults);
/// The lines of the values that were changed.
int convConfigLLDPConfig_LLDPConfig_configure_lldp(const LldpConfig &current, const LldpConfig &defaults);
/// The line, if the aging time was changed.
int convConfigSwitchConfig_SwitchConfig_configure_mac(const SwitchConfig &current, const SwitchConfig &defaults);
/// The line, if the destination was set, cleared or moved, also where a moved one is not set.
int convConfigPortMirror_PortMirror_configure_mirror_destination(const PortMirror &current, const PortMirror &defaults);
/// The line, if the four bytes of the set were changed.
int convConfigPortMirror_PortMirror_configure_mirror_source(const PortMirror &current, const PortMirror &defaults);
/// The lines of the values that were changed.
int convConfigSTPConfig_STPConfig_configure_spanning_tree(const StpConfig &current, const StpConfig &defaults);
/// The lines of the ranges that were changed.
int convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(const SwitchConfig &current,
                                                              const SwitchConfig &defaults);
/// VLAN mode (at 7856): the "vlan" line of a changed mode, if it is one of the four.
int convConfigVLANConfig_mid_sys_vlan_config_configure_vlan(const u8 &current, const u8 &defaults);
/// As in full mode: changed or not.
int convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(const QinQConfig &current);
/// The lines of changed ports that are not empty now, and that of a changed switch.
int convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(const Isolation &current,
                                                                           const Isolation &defaults);
/// The lines of the entries whose name was changed; a changed CPU port alone has none.
int convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(const PortVlanTable &current,
                                                                       const PortVlanTable &defaults);
/// As in full mode, unless id and ports are those of the default entry of the same index.
int ManageVLANFunc_configure_vlan();
/// The blocks of the keys whose ports were changed; all of the roles, all of the switches if one of them was changed.
int convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(const LacpConfig &current,
                                                                             const LacpConfig &defaults);
/// The blocks of the groups whose ports were changed; a changed name alone has none.
int convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(const TrunkTable &current,
                                                                             const TrunkTable &defaults);
/// Both blocks, if a port was changed.
int convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(const LldpConfig &current, const LldpConfig &defaults);
/// Both blocks, if a port was changed. Nothing on a board of type 5027.
int convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(const LoopDetection &current,
                                                                             const LoopDetection &defaults);
/// The blocks of the entries whose address was changed; a changed port or VLAN alone has none.
int convConfigMacTable_MacTable_configure_interface_mac_address_table(const MacTable &current,
                                                                      const MacTable &defaults);
/// Both blocks, if any of the 116 bytes was changed.
int convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(const MacLearning &current,
                                                                         const MacLearning &defaults);
/// All blocks of an attribute, if that of a port was changed.
int convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(const StpPorts &current, const StpPorts &defaults);
/// All blocks of the access VLANs or the modes, if that of a port was changed; the blocks of the VLANs whose id or
/// ports are not those of the other image at the same index.
int convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(const VlanPortTable &current,
                                                                      const VlanPortTable &defaults);
/// The blocks of the entries whose ports were changed; a changed name alone has none.
int convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(const PortVlanTable &current,
                                                                                 const PortVlanTable &defaults);
/// The blocks of the entries of which any byte was changed.
int convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(const TagVlanTable &current, const TagVlanTable &defaults);
/// The lines of the values that were changed; a cleared VLAN slot has none. Nothing on a board of type 5027.
int convConfigLoopDetection_LoopDetection_configure_loop_detection(const LoopDetection &current,
                                                                   const LoopDetection &defaults);
using full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan; // traces only
using full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan; // traces only
} // namespace delta
