#include "sections/layer2.h"

#include "app/text.h"

int full::convConfigVLANConfig_mid_vlan_lan_configure() { return trace(__func__); }

int full::convConfigPortTrunk_PortTrunk_configure_channel_group(const TrunkTable &) { return trace(__func__); }
int delta::convConfigPortTrunk_PortTrunk_configure_channel_group(const TrunkTable &) { return trace(__func__); }

int full::convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(const DistributionRules &) {
    return trace(__func__);
}
int delta::convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(const DistributionRules &,
                                                                         const DistributionRules &) {
    return trace(__func__);
}

int full::convConfigLLDPConfig_LLDPConfig_configure_lldp(const LldpConfig &) { return trace(__func__); }
int delta::convConfigLLDPConfig_LLDPConfig_configure_lldp(const LldpConfig &, const LldpConfig &) {
    return trace(__func__);
}

int full::convConfigSwitchConfig_SwitchConfig_configure_mac(const SwitchConfig &) { return trace(__func__); }
int delta::convConfigSwitchConfig_SwitchConfig_configure_mac(const SwitchConfig &, const SwitchConfig &) {
    return trace(__func__);
}

int full::convConfigPortMirror_PortMirror_configure_mirror_destination(const PortMirror &) { return trace(__func__); }
int delta::convConfigPortMirror_PortMirror_configure_mirror_destination(const PortMirror &, const PortMirror &) {
    return trace(__func__);
}

int full::convConfigPortMirror_PortMirror_configure_mirror_mode() { return trace(__func__); }

int full::convConfigPortMirror_PortMirror_configure_mirror_source(const PortMirror &) { return trace(__func__); }
int delta::convConfigPortMirror_PortMirror_configure_mirror_source(const PortMirror &, const PortMirror &) {
    return trace(__func__);
}

int full::convConfigSTPConfig_STPConfig_configure_spanning_tree() { return trace(__func__); }
int delta::convConfigSTPConfig_STPConfig_configure_spanning_tree(const StpConfig &, const StpConfig &) {
    return trace(__func__);
}

int full::convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(const SwitchConfig &) { return trace(__func__); }
int delta::convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(const SwitchConfig &, const SwitchConfig &) {
    return trace(__func__);
}

int full::convConfigVLANConfig_mid_sys_vlan_config_configure_vlan() { return trace(__func__); }
int delta::convConfigVLANConfig_mid_sys_vlan_config_configure_vlan(const u8 &, const u8 &) { return trace(__func__); }

int full::convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(const QinQConfig &) { return trace(__func__); }
int delta::convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(const QinQConfig &) { return trace(__func__); }

int full::convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(const Isolation &) {
    return trace(__func__);
}
int delta::convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(const Isolation &,
                                                                                  const Isolation &) {
    return trace(__func__);
}

int full::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(const PortVlanTable &,
                                                                             const PortVlanTable &) {
    return trace(__func__);
}
int delta::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(const PortVlanTable &,
                                                                              const PortVlanTable &) {
    return trace(__func__);
}

int full::ManageVLANFunc_configure_vlan() { return 0; }
int delta::ManageVLANFunc_configure_vlan() { return trace(__func__); }

int full::convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(const LacpConfig &) {
    return trace(__func__);
}
int delta::convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(const LacpConfig &,
                                                                                    const LacpConfig &) {
    return trace(__func__);
}

int full::convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(const TrunkTable &) {
    return trace(__func__);
}
int delta::convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(const TrunkTable &,
                                                                                    const TrunkTable &) {
    return trace(__func__);
}

int full::convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(const LldpConfig &) { return trace(__func__); }
int delta::convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(const LldpConfig &, const LldpConfig &) {
    return trace(__func__);
}

int full::convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(const LoopDetection &) {
    return trace(__func__);
}
int delta::convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(const LoopDetection &,
                                                                                    const LoopDetection &) {
    return trace(__func__);
}

int full::convConfigMacTable_MacTable_configure_interface_mac_address_table(const MacTable &) {
    return trace(__func__);
}
int delta::convConfigMacTable_MacTable_configure_interface_mac_address_table(const MacTable &, const MacTable &) {
    return trace(__func__);
}

int full::convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(const MacLearning &) {
    return trace(__func__);
}
int delta::convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(const MacLearning &,
                                                                                const MacLearning &) {
    return trace(__func__);
}

int full::convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(const StpPorts &) { return trace(__func__); }
int delta::convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(const StpPorts &, const StpPorts &) {
    return trace(__func__);
}

int full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(const VlanPortTable &) {
    return trace(__func__);
}
int delta::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(const VlanPortTable &,
                                                                             const VlanPortTable &) {
    return trace(__func__);
}

int full::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(const PortVlanTable &) {
    return trace(__func__);
}
int delta::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(const PortVlanTable &,
                                                                                        const PortVlanTable &) {
    return trace(__func__);
}

int full::convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(const TagVlanTable &) { return trace(__func__); }
int delta::convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(const TagVlanTable &, const TagVlanTable &) {
    return trace(__func__);
}

int full::convConfigLoopDetection_LoopDetection_configure_loop_detection(const LoopDetection &) {
    return trace(__func__);
}
int delta::convConfigLoopDetection_LoopDetection_configure_loop_detection(const LoopDetection &,
                                                                          const LoopDetection &) {
    return trace(__func__);
}

int full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan() { return trace(__func__); }

int full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan() { return trace(__func__); }
