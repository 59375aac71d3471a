/// The six drivers: their headers, the order in which they call the emitters, and what they hand to them.
#include "stores.h"

#include "app/drivers.h"
#include "app/header.h"
#include "app/order.h"

#include <cstring>
#include <iterator>
#include <random>
#include <set>
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
    const struct {
        const char *emitter;
        int (*twin)();
        bool traces;
    } rows[] = {
        {"convConfigAdvancedfunction", delta::convConfigAdvancedfunction, true},
        {"convConfigApplicationfunction", delta::convConfigApplicationfunction, true},
        {"convConfigNetConfig_mid_sys_ddns_server_configure", delta::convConfigNetConfig_mid_sys_ddns_server_configure,
         true},
        {"convConfigNetConfig_mid_sys_dhcp_server_configure", delta::convConfigNetConfig_mid_sys_dhcp_server_configure,
         true},
        {"InterfaceGroup_configure_ip_group", delta::InterfaceGroup_configure_ip_group, false},
        {"convConfigPriorityConfig_PriorityConfig_configure_interface_qos",
         delta::convConfigPriorityConfig_PriorityConfig_configure_interface_qos, true},
        {"convConfigStormControl_StormControl_configure_interface_security",
         delta::convConfigStormControl_StormControl_configure_interface_security, true},
        {"PortConfigFunc_configure_interface_lan", delta::PortConfigFunc_configure_interface_lan, false},
        {"PortConfigFunc_configure_interface_wan", delta::PortConfigFunc_configure_interface_wan, false},
    };
    resetAll();
    std::set<std::string> leftOut;
    for (const order::Step &step : order::steps)
        if (!step.delta) leftOut.emplace(step.emitter);
    // The mode of the mirror has no delta name.
    EXPECT_EQ(1U, leftOut.erase("convConfigPortMirror_PortMirror_configure_mirror_mode"));
    gCfgDebug = 1;
    for (const auto &row : rows) {
        EXPECT_EQ(1U, leftOut.erase(row.emitter)) << row.emitter;
        const std::string traced = row.traces ? "[" + std::string(row.emitter) + "]\n" : "";
        EXPECT_EQ(traced, printedBy([&row] { EXPECT_EQ(0, row.twin()); }));
    }
    gCfgDebug = 0;
    EXPECT_TRUE(leftOut.empty());
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

// ----------------------------------------------------------------------------------------------------------- sections

/// Which of the two sections decide what an emitter writes.
enum class Read { nothing, current, both };

struct Sections {
    const char *emitter;
    std::size_t offset; ///< of the section in the image
    std::size_t size;   ///< as far as the emitter reads
    Read full;
    Read delta;
};

/// Every emitter that reads an image. That of the password encryption reads none.
const Sections sections[] = {
    {"convConfigACLControl_ACLControl_configure_acl", 180428, 22272, Read::current, Read::both},
    {"convConfigBackupConfig_BackupConfig_configure_archive", 207008, 133, Read::current, Read::both},
    {"convConfigPortTrunk_PortTrunk_configure_channel_group", 121120, 392, Read::current, Read::current},
    {"convConfigPortTrunkMode_PortTrunkMode_configure_channel_group", 121512, 24, Read::current, Read::both},
    {"convConfigDOT1XConfig_DOT1XConfig_configure_dot1x", 180314, 71, Read::current, Read::both},
    {"convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip", 376, 20, Read::current, Read::both},
    {"convConfigSKAConfig2_SKAConfig2_configure_ip", 126280, 92, Read::current, Read::both},
    {"IGMPFilterFunc_configure_ip_igmp_filter", 177432, 1, Read::current, Read::both},
    {"convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment", 156712, 17600, Read::current, Read::both},
    {"convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile", 174312, 3120, Read::current, Read::both},
    {"convConfigIGMPConfig_IGMPConfig_configure_ip_igmp", 129624, 32, Read::current, Read::both},
    {"convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping", 129624, 32, Read::current, Read::both},
    {"convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe", 206956, 8, Read::current, Read::both},
    {"convConfigSecurityIP_SecurityIP_configure_ip_source", 151362, 228, Read::current, Read::both},
    {"convConfigSwitchConfig_SwitchConfig_configure_ip_source", 151360, 1, Read::current, Read::both},
    {"convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6", 492, 54, Read::current, Read::both},
    {"convConfigLLDPConfig_LLDPConfig_configure_lldp", 180296, 18, Read::current, Read::both},
    {"convConfigSwitchConfig_SwitchConfig_configure_mac", 126372, 56, Read::current, Read::both},
    {"convConfigConsoleConfig_mid_sys_console_cfg_configure_management", 1632, 48, Read::current, Read::both},
    {"convConfigServiceConfig_mid_sys_service_cfg_configure_management", 1612, 20, Read::current, Read::both},
    {"convConfigPortMirror_PortMirror_configure_mirror_destination", 125092, 16, Read::current, Read::both},
    {"convConfigPortMirror_PortMirror_configure_mirror_source", 125092, 16, Read::current, Read::both},
    {"convConfigTimeConfig_mid_sys_time_configure_ntp", 0, 376, Read::current, Read::both},
    {"convConfigPOEConfig_POEConfig_configure_poe", 180414, 14, Read::current, Read::both},
    {"convConfigPriorityConfig_PriorityConfig_configure_qos", 128284, 204, Read::current, Read::both},
    {"convConfigDSCPRemark_DSCPRemark_configure_qos", 129356, 68, Read::current, Read::both},
    {"convConfigDSCPPriority_DSCPPriority_configure_qos_remarking", 129356, 68, Read::current, Read::both},
    {"PbitPriorityFunc_configure_qos_remarking", 129356, 68, Read::current, Read::both},
    {"convConfigVLANConfig_mid_sys_vlan_config_configure_qos", 128284, 204, Read::current, Read::both},
    {"convConfigMacLimit_MacLimit_configure_security_mac_limit", 124744, 348, Read::current, Read::both},
    {"convConfigPortIsolation_PortIsolation_configure_security_port_isolation", 202700, 5, Read::current, Read::both},
    {"convConfigStormControl_StormControl_configure_security_storm_control", 126116, 164, Read::current, Read::both},
    {"convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server", 1612, 20, Read::current, Read::both},
    {"convConfigAgent_Agent_configure_snmp_server", 126432, 1040, Read::both, Read::both},
    {"convConfigTrapDest_TrapDest_configure_snmp_server", 127724, 520, Read::current, Read::both},
    {"convConfigTrapConfig_TrapConfig_configure_snmp_server", 128244, 40, Read::current, Read::both},
    {"convConfigSTPConfig_STPConfig_configure_spanning_tree", 146760, 44, Read::current, Read::both},
    {"convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu", 126372, 56, Read::current, Read::both},
    {"convConfigSwitchConfig_SwitchConfig_configure_switch", 126372, 56, Read::current, Read::both},
    {"convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling", 202712, 8, Read::current, Read::both},
    {"convConfigCompanyInfo_mid_sys_company_info_configure_switch_info", 696, 916, Read::current, Read::both},
    {"convConfigLogConfig_LogConfig_configure_syslog", 146552, 72, Read::current, Read::both},
    {"convConfigterminalConfig_terminalConfig_configure_terminal", 126372, 56, Read::current, Read::both},
    {"convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange", 202992, 2040, Read::current, Read::both},
    {"convConfigUser_mid_userauth_index_configure_user", 1724, 1520, Read::both, Read::both},
    {"convConfigRadiusInfo_RadiusInfo_configure_user", 146624, 81, Read::current, Read::both},
    {"convConfigTacacsInfo_Tacacs_configure_user", 202720, 81, Read::current, Read::both},
    {"convConfigVLANConfig_mid_sys_vlan_config_configure_vlan", 7856, 1, Read::nothing, Read::both},
    {"convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel", 129424, 40, Read::current, Read::current},
    {"convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation", 202700, 5, Read::current, Read::both},
    {"convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based", 8216, 616, Read::both, Read::both},
    {"ManageVLANFunc_configure_vlan", 7862, 113156, Read::current, Read::both},
    {"PortConfigFunc_configure_interface", 4776, 2128, Read::both, Read::both},
    {"convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp", 121028, 88, Read::current, Read::both},
    {"convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking", 121120, 392, Read::current,
     Read::both},
    {"convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x", 180314, 71, Read::current, Read::both},
    {"convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping", 147404, 60, Read::current, Read::both},
    {"IGMPFilterFunc_configure_interface_ip_igmp_filter", 177432, 2856, Read::current, Read::both},
    {"convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip", 151592, 5120,
     Read::current, Read::both},
    {"convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe", 206956, 8, Read::current, Read::both},
    {"convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard", 147488, 28, Read::current, Read::both},
    {"convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip", 147520, 1920, Read::current,
     Read::both},
    {"convConfigPOEConfig_POEConfig_configure_interface_poe", 205032, 1920, Read::both, Read::both},
    {"convConfigLLDPConfig_LLDPConfig_configure_interface_lldp", 180296, 18, Read::current, Read::both},
    {"convConfigLoopDetection_LoopDetection_configure_interface_loop_detection", 125404, 20, Read::current, Read::both},
    {"convConfigMacTable_MacTable_configure_interface_mac_address_table", 121556, 3072, Read::current, Read::both},
    {"convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning", 124628, 116, Read::current, Read::both},
    {"convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos", 125424, 236, Read::current, Read::both},
    {"convConfigVLANConfig_VLANConfig_configure_interface_qos", 128284, 204, Read::current, Read::both},
    {"convConfigMacLimit_MacLimit_configure_interface_security_mac_limit", 124744, 348, Read::current, Read::nothing},
    {"convConfigSTPConfig_STPConfig_configure_interface_spanning_tree", 146808, 560, Read::current, Read::both},
    {"convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan", 7862, 336, Read::current, Read::both},
    {"convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based", 8216, 616, Read::current,
     Read::both},
    {"convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan", 8860, 112158, Read::current, Read::both},
    {"convConfigLoopDetection_LoopDetection_configure_loop_detection", 125404, 20, Read::current, Read::both},
    {"convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp", 129656, 16894, Read::current, Read::both},
};

/// Bytes as images have them: zero, small or any. The first VLAN is always the management VLAN, which is looked for in
/// the VLANs before the first free entry only.
void scramble(ConfigImage &image, std::size_t offset, std::size_t size, std::mt19937 &random) {
    unsigned char *const bytes = reinterpret_cast<unsigned char *>(&image) + offset;
    for (std::size_t i = 0; i < size; ++i) {
        const auto number = random();
        const unsigned kind = number >> 8 & 0xf;
        bytes[i] = static_cast<unsigned char>(kind < 9 ? 0 : kind < 14 ? number & 3 : number);
    }
    image.tagVlans[0].inUse = 1;
    image.tagVlans[0].members.set(cpuPort);
}

/// How a step's text follows from its section in the two images.
struct Influence {
    bool writes = false;
    bool ofCurrent = false;
    bool ofDefault = false;
};

std::string textOf(const order::Call &step, const ConfigImage &current, const ConfigImage &defaults) {
    std::memcpy(static_cast<void *>(gSysConfig), &current, sizeof current);
    std::memcpy(static_cast<void *>(gDefConfig), &defaults, sizeof defaults);
    clearText();
    step();
    return Temp_Configuration;
}

/// Tries random images, always changing the section in one of them, until both were seen to count.
Influence influenceOn(const order::Call &step, const Sections &row) {
    static ConfigImage current;
    static ConfigImage defaults;
    static ConfigImage changed;
    Influence seen;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        std::memset(static_cast<void *>(&current), 0, sizeof current);
        std::memset(static_cast<void *>(&defaults), 0, sizeof defaults);
        scramble(current, row.offset, row.size, random);
        scramble(defaults, row.offset, row.size, random);
        const std::string text = textOf(step, current, defaults);
        seen.writes = seen.writes || !text.empty();
        if (!seen.ofCurrent) {
            changed = current;
            scramble(changed, row.offset, row.size, random);
            const std::string other = textOf(step, changed, defaults);
            seen.writes = seen.writes || !other.empty();
            seen.ofCurrent = other != text;
        }
        if (!seen.ofDefault) {
            // Most deltas show whether anything differs, not what.
            changed = defaults;
            std::memcpy(reinterpret_cast<unsigned char *>(&changed) + row.offset, bytesOf(current, row.offset),
                        row.size);
            seen.ofDefault = textOf(step, current, changed) != text;
        }
        if (seen.ofCurrent && seen.ofDefault) break;
        if (seed == 8 && !seen.writes) break;
    }
    return seen;
}

/// The board has all that can be asked of one.
void equip() {
    resetAll();
    g_EEPROM.capabilities = 0x150;
}

TEST(Order, EmittersAreHandedTheirSections) {
    equip();
    for (const Sections &row : sections) {
        for (const order::Step &step : order::steps) {
            if (step.emitter != row.emitter) continue;
            const Influence full = influenceOn(step.full, row);
            EXPECT_EQ(row.full != Read::nothing, full.writes) << row.emitter << ", full mode";
            EXPECT_EQ(row.full != Read::nothing, full.ofCurrent) << row.emitter << ", full mode";
            EXPECT_EQ(row.full == Read::both, full.ofDefault) << row.emitter << ", full mode";
            const Influence delta = influenceOn(step.delta, row);
            EXPECT_EQ(row.delta != Read::nothing, delta.writes) << row.emitter << ", delta mode";
            EXPECT_EQ(row.delta != Read::nothing, delta.ofCurrent) << row.emitter << ", delta mode";
            EXPECT_EQ(row.delta == Read::both, delta.ofDefault) << row.emitter << ", delta mode";
        }
    }
}

TEST(Order, OtherEmittersWriteNothing) {
    equip();
    std::set<std::string> reading = {"convConfigUser_PasswordEncryption_configure_user"};
    for (const Sections &row : sections) EXPECT_TRUE(reading.insert(row.emitter).second) << row.emitter;
    std::mt19937 random(1);
    scramble(*gSysConfig, 0, sizeof(ConfigImage), random);
    scramble(*gDefConfig, 0, sizeof(ConfigImage), random);
    for (const order::Step &step : order::steps) {
        if (reading.count(std::string(step.emitter)) != 0) continue;
        step.full();
        if (step.delta) step.delta();
        EXPECT_STREQ("", Temp_Configuration) << step.emitter;
    }
}

// -------------------------------------------------------------------------------------------------------- equal images

TEST(Order, DeltaModeWritesNothingForEqualImages) {
    // But for what it writes without comparing, or as the frame around differences that it does not find.
    const std::set<std::string> unconditional = {
        "convConfigACLControl_ACLControl_configure_acl",
        "convConfigPortTrunk_PortTrunk_configure_channel_group",
        "convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment",
        "convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile",
        "convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel",
        "convConfigUser_PasswordEncryption_configure_user",
    };
    for (int seed = 0; seed < 6; ++seed) {
        equip();
        std::mt19937 random(static_cast<unsigned>(seed));
        if (seed == 1) composeBuiltIn();
        if (seed > 1) scramble(*gSysConfig, 0, sizeof(ConfigImage), random);
        std::memcpy(static_cast<void *>(gDefConfig), gSysConfig, sizeof(ConfigImage));
        for (const order::Step &step : order::steps) {
            if (!step.delta || unconditional.count(std::string(step.emitter)) != 0) continue;
            step.delta();
            EXPECT_STREQ("", Temp_Configuration) << step.emitter << ", seed " << seed;
            clearText();
        }
    }
}

} // namespace
