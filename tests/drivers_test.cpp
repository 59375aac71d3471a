/// The six drivers: their headers and the order in which they call the emitters.
#include "emitter_lists.h"
#include "stores.h"

#include "app/drivers.h"
#include "app/header.h"
#include "app/order.h"

#include <cstring>
#include <iterator>
#include <sstream>

namespace {

/// What full mode traces: every emitter but the five that trace in delta mode only and the three empty ones.
const std::vector<std::string> fullTrace = {
    "convConfigVLANConfig_mid_vlan_lan_configure",
    "convConfigACLControl_ACLControl_configure_acl",
    "convConfigAdvancedfunction",
    "convConfigApplicationfunction",
    "convConfigBackupConfig_BackupConfig_configure_archive",
    "convConfigPortTrunk_PortTrunk_configure_channel_group",
    "convConfigPortTrunkMode_PortTrunkMode_configure_channel_group",
    "convConfigDOT1XConfig_DOT1XConfig_configure_dot1x",
    "convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip",
    "convConfigNetConfig_mid_sys_ddns_server_configure",
    "convConfigNetConfig_mid_sys_dhcp_server_configure",
    "convConfigSKAConfig2_SKAConfig2_configure_ip",
    "convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment",
    "convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile",
    "convConfigIGMPConfig_IGMPConfig_configure_ip_igmp",
    "convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping",
    "convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server",
    "convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe",
    "convConfig_mid_forward_dynamic_route_configure",
    "convConfig_mid_forward_static_route_idx_configure",
    "convConfigSecurityIP_SecurityIP_configure_ip_source",
    "convConfigSwitchConfig_SwitchConfig_configure_ip_source",
    "convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6",
    "convConfig_mid_sys_netcfg_wan_configure",
    "convConfig_mid_sys_netcfg_ipv4_lan_configure",
    "convConfig_mid_sys_netcfg_wan_ipv6_configure",
    "convConfig_mid_sys_netcfg_ipv6_lan_configure",
    "convConfig_mid_sys_dhcpv6_server_configure",
    "convConfig_mid_sys_dhcpv6_srv_state_idx_configure",
    "convConfig_mid_sys_radvd_configure",
    "convConfig_mid_sys_ddns_ipv6_configure",
    "convConfig_mid_forward_static_ipv6_route_idx_configure",
    "convConfigLLDPConfig_LLDPConfig_configure_lldp",
    "convConfigSwitchConfig_SwitchConfig_configure_mac",
    "convConfigServiceConfig_mid_sys_remote_access_configure_management",
    "convConfigServiceConfig_mid_sys_online_cfg_configure_management",
    "convConfigConsoleConfig_mid_sys_console_cfg_configure_management",
    "convConfigServiceConfig_mid_sys_service_cfg_configure_management",
    "convConfigPortMirror_PortMirror_configure_mirror_destination",
    "convConfigPortMirror_PortMirror_configure_mirror_mode",
    "convConfigPortMirror_PortMirror_configure_mirror_source",
    "convConfigTimeConfig_mid_sys_time_configure_ntp",
    "convConfigPOEConfig_POEConfig_configure_poe",
    "convConfigPriorityConfig_PriorityConfig_configure_qos",
    "convConfigDSCPRemark_DSCPRemark_configure_qos",
    "convConfigDSCPPriority_DSCPPriority_configure_qos_remarking",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_qos",
    "convConfigSKAConfig2_SKAConfig2_configure_configure_security",
    "convConfigMacLimit_MacLimit_configure_security_mac_limit",
    "convConfigPortIsolation_PortIsolation_configure_security_port_isolation",
    "convConfigStormControl_StormControl_configure_security_storm_control",
    "convConfigSecurity_HG",
    "convConfigSIP",
    "convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server",
    "convConfigAgent_Agent_configure_snmp_server",
    "convConfigTrapDest_TrapDest_configure_snmp_server",
    "convConfigTrapConfig_TrapConfig_configure_snmp_server",
    "convConfigSTPConfig_STPConfig_configure_spanning_tree",
    "convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu",
    "convConfigSwitchConfig_SwitchConfig_configure_switch",
    "convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling",
    "convConfigCompanyInfo_mid_sys_company_info_configure_switch_info",
    "convConfigLogConfig_LogConfig_configure_syslog",
    "convConfigterminalConfig_terminalConfig_configure_terminal",
    "convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange",
    "convConfigUSBControl_USBControl_configure_usb",
    "convConfigUser_mid_userauth_index_configure_user",
    "convConfigUser_PasswordEncryption_configure_user",
    "convConfigRadiusInfo_RadiusInfo_configure_user",
    "convConfigTacacsInfo_Tacacs_configure_user",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_vlan",
    "convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel",
    "convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation",
    "convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based",
    "convConfigVoice",
    "convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp",
    "convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking",
    "convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x",
    "convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping",
    "convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip",
    "convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe",
    "convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard",
    "convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip",
    "convConfigPOEConfig_POEConfig_configure_interface_poe",
    "convConfigLLDPConfig_LLDPConfig_configure_interface_lldp",
    "convConfigLoopDetection_LoopDetection_configure_interface_loop_detection",
    "convConfigMacTable_MacTable_configure_interface_mac_address_table",
    "convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning",
    "convConfigPriorityConfig_PriorityConfig_configure_interface_qos",
    "convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos",
    "convConfigDSCPRemark_DSCPRemark_configure_interface_qos",
    "convConfigVLANConfig_VLANConfig_configure_interface_qos",
    "convConfigMacLimit_MacLimit_configure_interface_security_mac_limit",
    "convConfigStormControl_StormControl_configure_interface_security",
    "convConfigSTPConfig_STPConfig_configure_interface_spanning_tree",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan",
    "convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based",
    "convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan",
    "convConfigLoopDetection_LoopDetection_configure_loop_detection",
    "convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp",
    "convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos",
    "convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos",
    "convConfigVLANConfig_VLANConfig_configure_interface_lan_qos",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan",
    "convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos",
    "convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos",
    "convConfigVLANConfig_VLANConfig_configure_interface_wan_qos",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan",
};

/// What delta mode traces: every emitter that it calls.
const std::vector<std::string> deltaTrace = {
    "convConfigVLANConfig_mid_vlan_lan_configure",
    "convConfigACLControl_ACLControl_configure_acl",
    "convConfigBackupConfig_BackupConfig_configure_archive",
    "convConfigPortTrunk_PortTrunk_configure_channel_group",
    "convConfigPortTrunkMode_PortTrunkMode_configure_channel_group",
    "convConfigDOT1XConfig_DOT1XConfig_configure_dot1x",
    "convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip",
    "convConfigSKAConfig2_SKAConfig2_configure_ip",
    "IGMPFilterFunc_configure_ip_igmp_filter",
    "convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment",
    "convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile",
    "convConfigIGMPConfig_IGMPConfig_configure_ip_igmp",
    "convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping",
    "convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server",
    "convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe",
    "convConfig_mid_forward_dynamic_route_configure",
    "convConfig_mid_forward_static_route_idx_configure",
    "convConfigSecurityIP_SecurityIP_configure_ip_source",
    "convConfigSwitchConfig_SwitchConfig_configure_ip_source",
    "convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6",
    "convConfig_mid_sys_netcfg_wan_configure",
    "convConfig_mid_sys_netcfg_ipv4_lan_configure",
    "convConfig_mid_sys_netcfg_wan_ipv6_configure",
    "convConfig_mid_sys_netcfg_ipv6_lan_configure",
    "convConfig_mid_sys_dhcpv6_server_configure",
    "convConfig_mid_sys_dhcpv6_srv_state_idx_configure",
    "convConfig_mid_sys_radvd_configure",
    "convConfig_mid_sys_ddns_ipv6_configure",
    "convConfig_mid_forward_static_ipv6_route_idx_configure",
    "convConfigLLDPConfig_LLDPConfig_configure_lldp",
    "convConfigSwitchConfig_SwitchConfig_configure_mac",
    "convConfigServiceConfig_mid_sys_remote_access_configure_management",
    "convConfigServiceConfig_mid_sys_online_cfg_configure_management",
    "convConfigConsoleConfig_mid_sys_console_cfg_configure_management",
    "convConfigServiceConfig_mid_sys_service_cfg_configure_management",
    "convConfigPortMirror_PortMirror_configure_mirror_destination",
    "convConfigPortMirror_PortMirror_configure_mirror_source",
    "convConfigTimeConfig_mid_sys_time_configure_ntp",
    "convConfigPOEConfig_POEConfig_configure_poe",
    "convConfigPriorityConfig_PriorityConfig_configure_qos",
    "convConfigDSCPRemark_DSCPRemark_configure_qos",
    "convConfigDSCPPriority_DSCPPriority_configure_qos_remarking",
    "PbitPriorityFunc_configure_qos_remarking",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_qos",
    "convConfigSKAConfig2_SKAConfig2_configure_configure_security",
    "convConfigMacLimit_MacLimit_configure_security_mac_limit",
    "convConfigPortIsolation_PortIsolation_configure_security_port_isolation",
    "convConfigStormControl_StormControl_configure_security_storm_control",
    "convConfigSecurity_HG",
    "convConfigSIP",
    "convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server",
    "convConfigAgent_Agent_configure_snmp_server",
    "convConfigTrapDest_TrapDest_configure_snmp_server",
    "convConfigTrapConfig_TrapConfig_configure_snmp_server",
    "convConfigSTPConfig_STPConfig_configure_spanning_tree",
    "convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu",
    "convConfigSwitchConfig_SwitchConfig_configure_switch",
    "convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling",
    "convConfigCompanyInfo_mid_sys_company_info_configure_switch_info",
    "convConfigLogConfig_LogConfig_configure_syslog",
    "convConfigterminalConfig_terminalConfig_configure_terminal",
    "convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange",
    "convConfigUSBControl_USBControl_configure_usb",
    "convConfigUser_mid_userauth_index_configure_user",
    "convConfigUser_PasswordEncryption_configure_user",
    "convConfigRadiusInfo_RadiusInfo_configure_user",
    "convConfigTacacsInfo_Tacacs_configure_user",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_vlan",
    "convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel",
    "convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation",
    "convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based",
    "ManageVLANFunc_configure_vlan",
    "convConfigVoice",
    "PortConfigFunc_configure_interface",
    "convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp",
    "convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking",
    "convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x",
    "convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping",
    "IGMPFilterFunc_configure_interface_ip_igmp_filter",
    "convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip",
    "convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe",
    "convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard",
    "convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip",
    "convConfigPOEConfig_POEConfig_configure_interface_poe",
    "convConfigLLDPConfig_LLDPConfig_configure_interface_lldp",
    "convConfigLoopDetection_LoopDetection_configure_interface_loop_detection",
    "convConfigMacTable_MacTable_configure_interface_mac_address_table",
    "convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning",
    "convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos",
    "convConfigDSCPRemark_DSCPRemark_configure_interface_qos",
    "convConfigVLANConfig_VLANConfig_configure_interface_qos",
    "convConfigMacLimit_MacLimit_configure_interface_security_mac_limit",
    "convConfigSTPConfig_STPConfig_configure_interface_spanning_tree",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan",
    "convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based",
    "convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan",
    "convConfigLoopDetection_LoopDetection_configure_loop_detection",
    "convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp",
    "convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos",
    "convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos",
    "convConfigVLANConfig_VLANConfig_configure_interface_lan_qos",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan",
    "convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos",
    "convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos",
    "convConfigVLANConfig_VLANConfig_configure_interface_wan_qos",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan",
};

struct Driver {
    const char *name;
    void (*run)();
    Mode mode;
    bool page;
};

const Driver drivers[] = {
    {"convConfig", convConfig, Mode::full, false},
    {"convDefConfig", convDefConfig, Mode::full, false},
    {"convHtmlConfig", convHtmlConfig, Mode::full, true},
    {"convDeltaConfig", convDeltaConfig, Mode::delta, false},
    {"convDeltaDefConfig", convDeltaDefConfig, Mode::delta, false},
    {"convDeltaHtmlConfig", convDeltaHtmlConfig, Mode::delta, true},
};

class Drivers : public testing::TestWithParam<Driver> {
protected:
    void SetUp() override { resetAll(); }

    /// The calls to the platform, without those that rendering the users makes.
    static std::vector<std::string> headerCalls() {
        std::vector<std::string> calls;
        for (const std::string &call : platform.calls)
            if (call.rfind("method", 0) != 0 && call.rfind("md5", 0) != 0) calls.push_back(call);
        return calls;
    }
};

INSTANTIATE_TEST_SUITE_P(All, Drivers, testing::ValuesIn(drivers),
                         [](const auto &driver) { return std::string(driver.param.name); });

std::vector<std::string> traced(void (*driver)()) {
    gCfgDebug = 1;
    std::istringstream printed(printedBy(driver));
    gCfgDebug = 0;
    std::vector<std::string> names;
    for (std::string line; std::getline(printed, line);) {
        EXPECT_EQ('[', line.front());
        EXPECT_EQ(']', line.back());
        names.push_back(line.substr(1, line.size() - 2));
    }
    return names;
}

// -------------------------------------------------------------------------------------------------------------- order

TEST(Order, ListsHaveTheirLength) {
    EXPECT_EQ(108U, fullTrace.size());
    EXPECT_EQ(106U, deltaTrace.size());
    EXPECT_EQ(116U, std::size(order::steps));
}

TEST_P(Drivers, CallEveryEmitterInOrder) {
    const auto &expected = GetParam().mode == Mode::full ? fullTrace : deltaTrace;
    EXPECT_EQ(expected, traced(GetParam().run));
    composeBuiltIn();
    EXPECT_EQ(expected, traced(GetParam().run)) << "whatever the images hold";
    platform.calls.clear();
    platform.failingCall = 0;
    EXPECT_EQ(expected, traced(GetParam().run)) << "also without a header";
}

TEST_P(Drivers, CallEveryEmitterWhenTheTextIsFull) {
    platform.failingCall = 0; // no header that would clear it
    std::memset(Temp_Configuration, 'x', sizeof Temp_Configuration);
    EXPECT_EQ(GetParam().mode == Mode::full ? fullTrace : deltaTrace, traced(GetParam().run));
    clearText();
}

TEST(Order, EmittersThatDeltaModeLeavesOutHaveTwins) {
    resetAll();
    gCfgDebug = 1;
    for (const emitter_lists::LeftOut &step : emitter_lists::notInDeltaMode) {
        if (step.twin == nullptr) continue;
        const bool traces = emitter_lists::tracesInFullMode(step.emitter);
        EXPECT_EQ(traces ? "[" + std::string(step.emitter) + "]\n" : "",
                  printedBy([&step] { EXPECT_EQ(0, step.twin()); }));
    }
    gCfgDebug = 0;
    EXPECT_STREQ("", Temp_Configuration);
}

TEST_P(Drivers, TraceNothingUnlessAsked) {
    composeBuiltIn();
    EXPECT_EQ("", printedBy(GetParam().run));
}

// ------------------------------------------------------------------------------------------------------------ headers

TEST_P(Drivers, BeginWithTheirHeader) {
    g_EEPROM.versionOfBank1 = "V1.0.0";
    g_EEPROM.macAddress = {{0x00, 0x11, 0x22, 0x33, 0x44, 0x55}};
    std::memset(Temp_Configuration, 'x', sizeof Temp_Configuration);
    GetParam().run();
    const std::string text = Temp_Configuration;
    const std::string head = GetParam().page ? "configure\n"
                                             : "# VERSION 5036 6000 V1.0.0 MAC 00:11:22:33:44:55\n"
                                               "configure\n";
    EXPECT_EQ(head, text.substr(0, head.size()));
    EXPECT_EQ(GetParam().page ? std::vector<std::string>{} : std::vector<std::string>({"start", "bank 1", "end 1"}),
              headerCalls());
}

/// The text of a driver for the built-in store.
std::string factoryText(void (*driver)()) {
    resetAll();
    composeBuiltIn();
    driver();
    EXPECT_FALSE(textOverflowed());
    return Temp_Configuration;
}

TEST(DriversOf, OneModeDifferInTheirHeaderOnly) {
    const struct {
        void (*text)();
        void (*defaultText)();
        void (*page)();
    } modes[] = {{convConfig, convDefConfig, convHtmlConfig},
                 {convDeltaConfig, convDeltaDefConfig, convDeltaHtmlConfig}};
    std::string pages[2];
    for (std::size_t mode = 0; mode < 2; ++mode) {
        const std::string text = factoryText(modes[mode].text);
        EXPECT_EQ(text, factoryText(modes[mode].defaultText));
        pages[mode] = factoryText(modes[mode].page);
        EXPECT_EQ("# VERSION 5036 6000 ", text.substr(0, 20));
        EXPECT_EQ(text.substr(text.find('\n') + 1), pages[mode]);
        EXPECT_EQ("configure\n", pages[mode].substr(0, 10));
    }
    EXPECT_LT(pages[1].size(), pages[0].size());
}

TEST(DriversOf, TextIsThatOfTheStepsInOrder) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        const std::string page = factoryText(mode == Mode::full ? convHtmlConfig : convDeltaHtmlConfig);
        resetAll();
        composeBuiltIn();
        initHtmlConfig();
        for (const order::Step &step : order::steps)
            if (const auto call = mode == Mode::full ? step.full : step.delta) call();
        EXPECT_EQ(page, Temp_Configuration);
    }
}

} // namespace
