/// The order of the text configuration: this table and nothing else.
///
/// A row is a step: the emitter's name, what full mode calls and what delta mode calls, each with the sections that it
/// is handed. Sections are not disjoint, several emitters read one record; and a step may be handed its current section
/// twice, or no default, on purpose. Delta mode goes in the same order and leaves out the rows that have no twin.
///
/// `reading` names what the emitter reads besides its arguments, for each mode. A test proves that every row is
/// complete and that it names nothing else.
#pragma once

#include "app/reads.h"
#include "platform/image.h"
#include "sections/interface.h"
#include "sections/ip.h"
#include "sections/layer2.h"
#include "sections/multicast.h"
#include "sections/qos.h"
#include "sections/security.h"
#include "sections/snmp.h"
#include "sections/system.h"
#include "sections/users.h"

#include <cstddef>
#include <iterator>
#include <span>
#include <string_view>

namespace order {

/// What one mode calls in a step, and with which sections.
struct Call {
    int (*run)() = nullptr;     ///< null where the mode has no such step
    Section argument = {};      ///< the section that is passed; no name if there is none
    bool withDefaults = false;  ///< the default image's section is passed too
    bool isWholeImages = false; ///< both images are passed whole; `reading` says what is read of them
    Read reads[6] = {};         ///< what is read besides
    std::size_t readCount = 0;

    int operator()() const { return run(); }
    constexpr explicit operator bool() const { return run != nullptr; }

    /// What the emitter reads besides its arguments.
    constexpr std::span<const Read> declaredReads() const { return {reads, readCount}; }
    /// This call, declared to read `besides`.
    template <class... Reads> consteval Call reading(const Reads &...besides) const {
        Call call = *this;
        for (const Read &read : {besides...}) call.reads[call.readCount++] = read;
        return call;
    }
};

/// No call.
inline constexpr Call nothing = {};
/// The emitter without arguments: it finds its images itself.
template <auto Emitter> inline constexpr Call alone = {[] { return Emitter(); }};
/// The emitter with the section of the current image.
template <auto Emitter, auto Section>
inline constexpr Call current = {[] { return Emitter(gSysConfig->*Section); }, sectionOf<Section>};
/// The emitter with the section of the current and of the default image.
template <auto Emitter, auto Section> inline constexpr Call both = {
    [] { return Emitter(gSysConfig->*Section, gDefConfig->*Section); }, sectionOf<Section>, true};
/// The emitter with the section of the current image twice, so that it has no default to compare with.
template <auto Emitter, auto Section>
inline constexpr Call twice = {[] { return Emitter(gSysConfig->*Section, gSysConfig->*Section); }, sectionOf<Section>};
/// The emitter with the whole current and the whole default image.
template <auto Emitter>
inline constexpr Call wholeImages = {[] { return Emitter(*gSysConfig, *gDefConfig); }, {}, false, true};

struct Step {
    std::string_view emitter;
    Call full;
    Call delta;
};

// clang-format off
inline constexpr Step steps[] = {
    {"convConfigVLANConfig_mid_vlan_lan_configure",
     alone<full::convConfigVLANConfig_mid_vlan_lan_configure>,
     alone<delta::convConfigVLANConfig_mid_vlan_lan_configure>},
    {"convConfigACLControl_ACLControl_configure_acl",
     current<full::convConfigACLControl_ACLControl_configure_acl, &ConfigImage::acl>,
     both<delta::convConfigACLControl_ACLControl_configure_acl, &ConfigImage::acl>},
    {"convConfigAdvancedfunction",
     alone<full::convConfigAdvancedfunction>,
     nothing},
    {"convConfigApplicationfunction",
     alone<full::convConfigApplicationfunction>,
     nothing},
    {"convConfigBackupConfig_BackupConfig_configure_archive",
     alone<full::convConfigBackupConfig_BackupConfig_configure_archive>
         .reading(CURRENT(backup)),
     both<delta::convConfigBackupConfig_BackupConfig_configure_archive, &ConfigImage::backup>},
    {"convConfigPortTrunk_PortTrunk_configure_channel_group",
     current<full::convConfigPortTrunk_PortTrunk_configure_channel_group, &ConfigImage::trunks>,
     current<delta::convConfigPortTrunk_PortTrunk_configure_channel_group, &ConfigImage::trunks>},
    {"convConfigPortTrunkMode_PortTrunkMode_configure_channel_group",
     current<full::convConfigPortTrunkMode_PortTrunkMode_configure_channel_group, &ConfigImage::distribution>,
     both<delta::convConfigPortTrunkMode_PortTrunkMode_configure_channel_group, &ConfigImage::distribution>},
    {"convConfigDOT1XConfig_DOT1XConfig_configure_dot1x",
     current<full::convConfigDOT1XConfig_DOT1XConfig_configure_dot1x, &ConfigImage::dot1x>,
     both<delta::convConfigDOT1XConfig_DOT1XConfig_configure_dot1x, &ConfigImage::dot1x>},
    {"convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip",
     current<full::convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip, &ConfigImage::ipv4>,
     both<delta::convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip, &ConfigImage::ipv4>},
    {"convConfigNetConfig_mid_sys_ddns_server_configure",
     alone<full::convConfigNetConfig_mid_sys_ddns_server_configure>,
     nothing},
    {"convConfigNetConfig_mid_sys_dhcp_server_configure",
     alone<full::convConfigNetConfig_mid_sys_dhcp_server_configure>,
     nothing},
    {"convConfigSKAConfig2_SKAConfig2_configure_ip",
     current<full::convConfigSKAConfig2_SKAConfig2_configure_ip, &ConfigImage::dhcpSnooping>
         .reading(CURRENT(dhcpSnoopingPorts.option), CURRENT(circuitIds.remoteInserted),
                  CURRENT(circuitIds.remoteId), CURRENT(circuitIds.remoteFormatted),
                  BOARD(boardType)),
     both<delta::convConfigSKAConfig2_SKAConfig2_configure_ip, &ConfigImage::dhcpSnooping>
         .reading(BOTH(dhcpSnoopingPorts.option), BOTH(circuitIds.remoteInserted),
                  BOTH(circuitIds.remoteId), BOTH(circuitIds.remoteFormatted),
                  BOARD(boardType))},
    {"InterfaceGroup_configure_ip_group",
     alone<full::InterfaceGroup_configure_ip_group>,
     nothing},
    {"IGMPFilterFunc_configure_ip_igmp_filter",
     alone<full::IGMPFilterFunc_configure_ip_igmp_filter>
         .reading(CURRENT(portFilters.port[0].filterSwitch)),
     both<delta::IGMPFilterFunc_configure_ip_igmp_filter, &ConfigImage::portFilters>},
    {"convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment",
     current<full::convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment, &ConfigImage::multicastSegments>,
     both<delta::convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment, &ConfigImage::multicastSegments>},
    {"convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile",
     current<full::convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile, &ConfigImage::multicastProfiles>,
     both<delta::convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile, &ConfigImage::multicastProfiles>},
    {"convConfigIGMPConfig_IGMPConfig_configure_ip_igmp",
     current<full::convConfigIGMPConfig_IGMPConfig_configure_ip_igmp, &ConfigImage::igmp>
         .reading(BOARD(boardType)),
     both<delta::convConfigIGMPConfig_IGMPConfig_configure_ip_igmp, &ConfigImage::igmp>
         .reading(BOARD(boardType))},
    {"convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping",
     current<full::convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping, &ConfigImage::igmp>
         .reading(BOARD(boardType)),
     both<delta::convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping, &ConfigImage::igmp>
         .reading(BOARD(boardType))},
    {"convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server",
     alone<full::convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server>,
     alone<delta::convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server>},
    {"convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe",
     current<full::convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe, &ConfigImage::pppoe>,
     both<delta::convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe, &ConfigImage::pppoe>},
    {"convConfig_mid_forward_dynamic_route_configure",
     alone<full::convConfig_mid_forward_dynamic_route_configure>,
     alone<delta::convConfig_mid_forward_dynamic_route_configure>},
    {"convConfig_mid_forward_static_route_idx_configure",
     alone<full::convConfig_mid_forward_static_route_idx_configure>,
     alone<delta::convConfig_mid_forward_static_route_idx_configure>},
    {"convConfigSecurityIP_SecurityIP_configure_ip_source",
     current<full::convConfigSecurityIP_SecurityIP_configure_ip_source, &ConfigImage::sourceBindings>,
     both<delta::convConfigSecurityIP_SecurityIP_configure_ip_source, &ConfigImage::sourceBindings>},
    {"convConfigSwitchConfig_SwitchConfig_configure_ip_source",
     current<full::convConfigSwitchConfig_SwitchConfig_configure_ip_source, &ConfigImage::ipSource>,
     both<delta::convConfigSwitchConfig_SwitchConfig_configure_ip_source, &ConfigImage::ipSource>},
    {"convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6",
     current<full::convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6, &ConfigImage::ipv6>,
     both<delta::convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6, &ConfigImage::ipv6>},
    {"convConfig_mid_sys_netcfg_wan_configure",
     alone<full::convConfig_mid_sys_netcfg_wan_configure>,
     alone<delta::convConfig_mid_sys_netcfg_wan_configure>},
    {"convConfig_mid_sys_netcfg_ipv4_lan_configure",
     alone<full::convConfig_mid_sys_netcfg_ipv4_lan_configure>,
     alone<delta::convConfig_mid_sys_netcfg_ipv4_lan_configure>},
    {"convConfig_mid_sys_netcfg_wan_ipv6_configure",
     alone<full::convConfig_mid_sys_netcfg_wan_ipv6_configure>,
     alone<delta::convConfig_mid_sys_netcfg_wan_ipv6_configure>},
    {"convConfig_mid_sys_netcfg_ipv6_lan_configure",
     alone<full::convConfig_mid_sys_netcfg_ipv6_lan_configure>,
     alone<delta::convConfig_mid_sys_netcfg_ipv6_lan_configure>},
    {"convConfig_mid_sys_dhcpv6_server_configure",
     alone<full::convConfig_mid_sys_dhcpv6_server_configure>,
     alone<delta::convConfig_mid_sys_dhcpv6_server_configure>},
    {"convConfig_mid_sys_dhcpv6_srv_state_idx_configure",
     alone<full::convConfig_mid_sys_dhcpv6_srv_state_idx_configure>,
     alone<delta::convConfig_mid_sys_dhcpv6_srv_state_idx_configure>},
    {"convConfig_mid_sys_radvd_configure",
     alone<full::convConfig_mid_sys_radvd_configure>,
     alone<delta::convConfig_mid_sys_radvd_configure>},
    {"convConfig_mid_sys_ddns_ipv6_configure",
     alone<full::convConfig_mid_sys_ddns_ipv6_configure>,
     alone<delta::convConfig_mid_sys_ddns_ipv6_configure>},
    {"convConfig_mid_forward_static_ipv6_route_idx_configure",
     alone<full::convConfig_mid_forward_static_ipv6_route_idx_configure>,
     alone<delta::convConfig_mid_forward_static_ipv6_route_idx_configure>},
    {"convConfigLLDPConfig_LLDPConfig_configure_lldp",
     current<full::convConfigLLDPConfig_LLDPConfig_configure_lldp, &ConfigImage::lldp>,
     both<delta::convConfigLLDPConfig_LLDPConfig_configure_lldp, &ConfigImage::lldp>},
    {"convConfigSwitchConfig_SwitchConfig_configure_mac",
     current<full::convConfigSwitchConfig_SwitchConfig_configure_mac, &ConfigImage::switchConfig>,
     both<delta::convConfigSwitchConfig_SwitchConfig_configure_mac, &ConfigImage::switchConfig>},
    {"convConfigServiceConfig_mid_sys_remote_access_configure_management",
     alone<full::convConfigServiceConfig_mid_sys_remote_access_configure_management>,
     alone<delta::convConfigServiceConfig_mid_sys_remote_access_configure_management>},
    {"convConfigServiceConfig_mid_sys_online_cfg_configure_management",
     alone<full::convConfigServiceConfig_mid_sys_online_cfg_configure_management>,
     alone<delta::convConfigServiceConfig_mid_sys_online_cfg_configure_management>},
    {"convConfigConsoleConfig_mid_sys_console_cfg_configure_management",
     current<full::convConfigConsoleConfig_mid_sys_console_cfg_configure_management, &ConfigImage::console>,
     both<delta::convConfigConsoleConfig_mid_sys_console_cfg_configure_management, &ConfigImage::console>},
    {"convConfigServiceConfig_mid_sys_service_cfg_configure_management",
     current<full::convConfigServiceConfig_mid_sys_service_cfg_configure_management, &ConfigImage::service>
         .reading(CURRENT(console.webTimeout)),
     both<delta::convConfigServiceConfig_mid_sys_service_cfg_configure_management, &ConfigImage::service>
         .reading(BOTH(console.webTimeout))},
    {"convConfigPortMirror_PortMirror_configure_mirror_destination",
     current<full::convConfigPortMirror_PortMirror_configure_mirror_destination, &ConfigImage::mirror>,
     both<delta::convConfigPortMirror_PortMirror_configure_mirror_destination, &ConfigImage::mirror>},
    {"convConfigPortMirror_PortMirror_configure_mirror_mode",
     alone<full::convConfigPortMirror_PortMirror_configure_mirror_mode>,
     nothing},
    {"convConfigPortMirror_PortMirror_configure_mirror_source",
     current<full::convConfigPortMirror_PortMirror_configure_mirror_source, &ConfigImage::mirror>,
     both<delta::convConfigPortMirror_PortMirror_configure_mirror_source, &ConfigImage::mirror>},
    {"convConfigTimeConfig_mid_sys_time_configure_ntp",
     wholeImages<full::convConfigTimeConfig_mid_sys_time_configure_ntp>
         .reading(CURRENT(time)),
     wholeImages<delta::convConfigTimeConfig_mid_sys_time_configure_ntp>
         .reading(BOTH(time))},
    {"convConfigPOEConfig_POEConfig_configure_poe",
     current<full::convConfigPOEConfig_POEConfig_configure_poe, &ConfigImage::poe>
         .reading(BOARD(capabilities)),
     both<delta::convConfigPOEConfig_POEConfig_configure_poe, &ConfigImage::poe>
         .reading(BOARD(capabilities))},
    {"convConfigPriorityConfig_PriorityConfig_configure_qos",
     current<full::convConfigPriorityConfig_PriorityConfig_configure_qos, &ConfigImage::priority>,
     both<delta::convConfigPriorityConfig_PriorityConfig_configure_qos, &ConfigImage::priority>},
    {"convConfigDSCPRemark_DSCPRemark_configure_qos",
     current<full::convConfigDSCPRemark_DSCPRemark_configure_qos, &ConfigImage::remarking>,
     both<delta::convConfigDSCPRemark_DSCPRemark_configure_qos, &ConfigImage::remarking>},
    {"convConfigDSCPPriority_DSCPPriority_configure_qos_remarking",
     current<full::convConfigDSCPPriority_DSCPPriority_configure_qos_remarking, &ConfigImage::remarking>,
     both<delta::convConfigDSCPPriority_DSCPPriority_configure_qos_remarking, &ConfigImage::remarking>},
    {"PbitPriorityFunc_configure_qos_remarking",
     alone<full::PbitPriorityFunc_configure_qos_remarking>
         .reading(CURRENT_EACH(remarking.priority, newPriority)),
     both<delta::PbitPriorityFunc_configure_qos_remarking, &ConfigImage::remarking>},
    {"convConfigVLANConfig_mid_sys_vlan_config_configure_qos",
     current<full::convConfigVLANConfig_mid_sys_vlan_config_configure_qos, &ConfigImage::priority>,
     both<delta::convConfigVLANConfig_mid_sys_vlan_config_configure_qos, &ConfigImage::priority>},
    {"convConfigSKAConfig2_SKAConfig2_configure_configure_security",
     alone<full::convConfigSKAConfig2_SKAConfig2_configure_configure_security>,
     alone<delta::convConfigSKAConfig2_SKAConfig2_configure_configure_security>},
    {"convConfigMacLimit_MacLimit_configure_security_mac_limit",
     current<full::convConfigMacLimit_MacLimit_configure_security_mac_limit, &ConfigImage::macLimit>,
     both<delta::convConfigMacLimit_MacLimit_configure_security_mac_limit, &ConfigImage::macLimit>},
    {"convConfigPortIsolation_PortIsolation_configure_security_port_isolation",
     current<full::convConfigPortIsolation_PortIsolation_configure_security_port_isolation, &ConfigImage::isolation>,
     both<delta::convConfigPortIsolation_PortIsolation_configure_security_port_isolation, &ConfigImage::isolation>},
    {"convConfigStormControl_StormControl_configure_security_storm_control",
     current<full::convConfigStormControl_StormControl_configure_security_storm_control, &ConfigImage::storm>,
     both<delta::convConfigStormControl_StormControl_configure_security_storm_control, &ConfigImage::storm>},
    {"convConfigSecurity_HG",
     alone<full::convConfigSecurity_HG>,
     alone<delta::convConfigSecurity_HG>},
    {"convConfigSIP",
     alone<full::convConfigSIP>,
     alone<delta::convConfigSIP>},
    {"convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server",
     current<full::convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server, &ConfigImage::service>,
     both<delta::convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server, &ConfigImage::service>},
    {"convConfigAgent_Agent_configure_snmp_server",
     both<full::convConfigAgent_Agent_configure_snmp_server, &ConfigImage::communities>,
     both<delta::convConfigAgent_Agent_configure_snmp_server, &ConfigImage::communities>},
    {"convConfigTrapDest_TrapDest_configure_snmp_server",
     current<full::convConfigTrapDest_TrapDest_configure_snmp_server, &ConfigImage::trapDestinations>,
     both<delta::convConfigTrapDest_TrapDest_configure_snmp_server, &ConfigImage::trapDestinations>},
    {"convConfigTrapConfig_TrapConfig_configure_snmp_server",
     current<full::convConfigTrapConfig_TrapConfig_configure_snmp_server, &ConfigImage::traps>
         .reading(CURRENT(poe.traps), BOARD(capabilities)),
     both<delta::convConfigTrapConfig_TrapConfig_configure_snmp_server, &ConfigImage::traps>
         .reading(BOTH(poe.traps), BOARD(capabilities))},
    {"convConfigSTPConfig_STPConfig_configure_spanning_tree",
     alone<full::convConfigSTPConfig_STPConfig_configure_spanning_tree>
         .reading(CURRENT(stp)),
     both<delta::convConfigSTPConfig_STPConfig_configure_spanning_tree, &ConfigImage::stp>},
    {"convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu",
     current<full::convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu, &ConfigImage::switchConfig>,
     both<delta::convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu, &ConfigImage::switchConfig>},
    {"convConfigSwitchConfig_SwitchConfig_configure_switch",
     current<full::convConfigSwitchConfig_SwitchConfig_configure_switch, &ConfigImage::switchConfig>,
     both<delta::convConfigSwitchConfig_SwitchConfig_configure_switch, &ConfigImage::switchConfig>},
    {"convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling",
     current<full::convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling, &ConfigImage::statisticsPolling>,
     both<delta::convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling, &ConfigImage::statisticsPolling>},
    {"convConfigCompanyInfo_mid_sys_company_info_configure_switch_info",
     current<full::convConfigCompanyInfo_mid_sys_company_info_configure_switch_info, &ConfigImage::company>
         .reading(CURRENT(cpuLoadingThreshold)),
     both<delta::convConfigCompanyInfo_mid_sys_company_info_configure_switch_info, &ConfigImage::company>
         .reading(BOTH(cpuLoadingThreshold))},
    {"convConfigLogConfig_LogConfig_configure_syslog",
     current<full::convConfigLogConfig_LogConfig_configure_syslog, &ConfigImage::log>
         .reading(CURRENT(logTerminalHistory)),
     both<delta::convConfigLogConfig_LogConfig_configure_syslog, &ConfigImage::log>
         .reading(BOTH(logTerminalHistory))},
    {"convConfigterminalConfig_terminalConfig_configure_terminal",
     current<full::convConfigterminalConfig_terminalConfig_configure_terminal, &ConfigImage::switchConfig>,
     both<delta::convConfigterminalConfig_terminalConfig_configure_terminal, &ConfigImage::switchConfig>},
    {"convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange",
     current<full::convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange, &ConfigImage::timeRanges>,
     both<delta::convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange, &ConfigImage::timeRanges>},
    {"convConfigUSBControl_USBControl_configure_usb",
     alone<full::convConfigUSBControl_USBControl_configure_usb>,
     alone<delta::convConfigUSBControl_USBControl_configure_usb>},
    {"convConfigUser_mid_userauth_index_configure_user",
     both<full::convConfigUser_mid_userauth_index_configure_user, &ConfigImage::users>
         .reading(PLATFORM(mapi_sys_userauth_method_get), PLATFORM(mapi_sys_userauth_password_md5_get)),
     both<delta::convConfigUser_mid_userauth_index_configure_user, &ConfigImage::users>
         .reading(PLATFORM(mapi_sys_userauth_method_get), PLATFORM(mapi_sys_userauth_password_md5_get))},
    {"convConfigUser_PasswordEncryption_configure_user",
     alone<full::convConfigUser_PasswordEncryption_configure_user>
         .reading(PLATFORM(mapi_sys_userauth_method_get)),
     alone<delta::convConfigUser_PasswordEncryption_configure_user>
         .reading(PLATFORM(mapi_sys_userauth_method_get))},
    {"convConfigRadiusInfo_RadiusInfo_configure_user",
     current<full::convConfigRadiusInfo_RadiusInfo_configure_user, &ConfigImage::radius>,
     both<delta::convConfigRadiusInfo_RadiusInfo_configure_user, &ConfigImage::radius>},
    {"convConfigTacacsInfo_Tacacs_configure_user",
     current<full::convConfigTacacsInfo_Tacacs_configure_user, &ConfigImage::tacacs>,
     both<delta::convConfigTacacsInfo_Tacacs_configure_user, &ConfigImage::tacacs>},
    {"convConfigVLANConfig_mid_sys_vlan_config_configure_vlan",
     alone<full::convConfigVLANConfig_mid_sys_vlan_config_configure_vlan>,
     both<delta::convConfigVLANConfig_mid_sys_vlan_config_configure_vlan, &ConfigImage::vlanMode>},
    {"convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel",
     current<full::convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel, &ConfigImage::qinq>,
     current<delta::convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel, &ConfigImage::qinq>},
    {"convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation",
     current<full::convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation, &ConfigImage::isolation>,
     both<delta::convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation, &ConfigImage::isolation>},
    {"convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based",
     both<full::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based, &ConfigImage::portVlans>,
     both<delta::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based, &ConfigImage::portVlans>},
    {"ManageVLANFunc_configure_vlan",
     alone<full::ManageVLANFunc_configure_vlan>
         .reading(CURRENT_EACH(tagVlans, inUse), CURRENT_EACH(tagVlans, members), CURRENT_EACH(tagVlans, id),
                  CURRENT_EACH(vlanPorts, mode), CURRENT_EACH(vlanPorts, accessVlan)),
     alone<delta::ManageVLANFunc_configure_vlan>
         .reading(CURRENT_EACH(tagVlans, inUse), BOTH_EACH(tagVlans, members), BOTH_EACH(tagVlans, id),
                  BOTH_EACH(vlanPorts, mode), BOTH_EACH(vlanPorts, accessVlan))},
    {"convConfigVoice",
     alone<full::convConfigVoice>,
     alone<delta::convConfigVoice>},
    {"PortConfigFunc_configure_interface",
     alone<full::PortConfigFunc_configure_interface>
         .reading(CURRENT(ports), DEFAULTS_EACH(ports, description)),
     alone<delta::PortConfigFunc_configure_interface>
         .reading(BOTH(ports))},
    {"convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp",
     current<full::convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp, &ConfigImage::lacp>,
     both<delta::convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp, &ConfigImage::lacp>},
    {"convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking",
     current<full::convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking, &ConfigImage::trunks>,
     both<delta::convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking, &ConfigImage::trunks>},
    {"convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x",
     current<full::convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x, &ConfigImage::dot1x>,
     both<delta::convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x, &ConfigImage::dot1x>},
    {"convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping",
     current<full::convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping, &ConfigImage::dhcpSnoopingPorts>
         .reading(CURRENT(circuitIds.inserted), CURRENT(circuitIds.text), CURRENT(circuitIds.formatted),
                  DEFAULTS(circuitIds.text), defaultDescriptionsAndBeyond),
     both<delta::convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping, &ConfigImage::dhcpSnoopingPorts>
         .reading(BOTH(circuitIds.inserted), BOTH(circuitIds.text), BOTH(circuitIds.formatted),
                  defaultDescriptionsAndBeyond)},
    {"IGMPFilterFunc_configure_interface_ip_igmp_filter",
     alone<full::IGMPFilterFunc_configure_interface_ip_igmp_filter>
         .reading(CURRENT(portFilters)),
     alone<delta::IGMPFilterFunc_configure_interface_ip_igmp_filter>
         .reading(BOTH(portFilters))},
    {"convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip",
     current<full::convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip, &ConfigImage::multicastTable>,
     both<delta::convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip, &ConfigImage::multicastTable>},
    {"convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe",
     current<full::convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe, &ConfigImage::pppoe>,
     both<delta::convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe, &ConfigImage::pppoe>},
    {"convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard",
     current<full::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard, &ConfigImage::sourceGuard>,
     both<delta::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard, &ConfigImage::sourceGuard>},
    {"convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip",
     current<full::convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip, &ConfigImage::sourceGuardTable>,
     both<delta::convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip, &ConfigImage::sourceGuardTable>},
    {"convConfigPOEConfig_POEConfig_configure_interface_poe",
     both<full::convConfigPOEConfig_POEConfig_configure_interface_poe, &ConfigImage::poePorts>
         .reading(BOARD(capabilities)),
     both<delta::convConfigPOEConfig_POEConfig_configure_interface_poe, &ConfigImage::poePorts>
         .reading(BOARD(capabilities))},
    {"convConfigLLDPConfig_LLDPConfig_configure_interface_lldp",
     current<full::convConfigLLDPConfig_LLDPConfig_configure_interface_lldp, &ConfigImage::lldp>,
     both<delta::convConfigLLDPConfig_LLDPConfig_configure_interface_lldp, &ConfigImage::lldp>},
    {"convConfigLoopDetection_LoopDetection_configure_interface_loop_detection",
     current<full::convConfigLoopDetection_LoopDetection_configure_interface_loop_detection, &ConfigImage::loopDetection>
         .reading(BOARD(boardType)),
     both<delta::convConfigLoopDetection_LoopDetection_configure_interface_loop_detection, &ConfigImage::loopDetection>
         .reading(BOARD(boardType))},
    {"convConfigMacTable_MacTable_configure_interface_mac_address_table",
     current<full::convConfigMacTable_MacTable_configure_interface_mac_address_table, &ConfigImage::macTable>,
     both<delta::convConfigMacTable_MacTable_configure_interface_mac_address_table, &ConfigImage::macTable>},
    {"convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning",
     current<full::convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning, &ConfigImage::macLearning>,
     both<delta::convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning, &ConfigImage::macLearning>},
    {"convConfigPriorityConfig_PriorityConfig_configure_interface_qos",
     alone<full::convConfigPriorityConfig_PriorityConfig_configure_interface_qos>,
     nothing},
    {"convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos",
     current<full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos, &ConfigImage::rateLimits>,
     both<delta::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos, &ConfigImage::rateLimits>},
    {"convConfigDSCPRemark_DSCPRemark_configure_interface_qos",
     alone<full::convConfigDSCPRemark_DSCPRemark_configure_interface_qos>,
     alone<delta::convConfigDSCPRemark_DSCPRemark_configure_interface_qos>},
    {"convConfigVLANConfig_VLANConfig_configure_interface_qos",
     current<full::convConfigVLANConfig_VLANConfig_configure_interface_qos, &ConfigImage::priority>,
     both<delta::convConfigVLANConfig_VLANConfig_configure_interface_qos, &ConfigImage::priority>},
    {"convConfigMacLimit_MacLimit_configure_interface_security_mac_limit",
     twice<full::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit, &ConfigImage::macLimit>,
     twice<delta::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit, &ConfigImage::macLimit>},
    {"convConfigStormControl_StormControl_configure_interface_security",
     alone<full::convConfigStormControl_StormControl_configure_interface_security>,
     nothing},
    {"convConfigSTPConfig_STPConfig_configure_interface_spanning_tree",
     current<full::convConfigSTPConfig_STPConfig_configure_interface_spanning_tree, &ConfigImage::stpPorts>,
     both<delta::convConfigSTPConfig_STPConfig_configure_interface_spanning_tree, &ConfigImage::stpPorts>},
    {"convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan",
     current<full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan, &ConfigImage::vlanPorts>
         .reading(BOTH_EACH(tagVlans, inUse), BOTH_EACH(tagVlans, members), BOTH_EACH(tagVlans, id)),
     both<delta::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan, &ConfigImage::vlanPorts>
         .reading(BOTH_EACH(tagVlans, inUse), BOTH_EACH(tagVlans, members), BOTH_EACH(tagVlans, id))},
    {"convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based",
     current<full::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based, &ConfigImage::portVlans>,
     both<delta::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based, &ConfigImage::portVlans>},
    {"convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan",
     current<full::convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan, &ConfigImage::tagVlans>,
     both<delta::convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan, &ConfigImage::tagVlans>},
    {"convConfigLoopDetection_LoopDetection_configure_loop_detection",
     current<full::convConfigLoopDetection_LoopDetection_configure_loop_detection, &ConfigImage::loopDetection>
         .reading(BOARD(boardType)),
     both<delta::convConfigLoopDetection_LoopDetection_configure_loop_detection, &ConfigImage::loopDetection>
         .reading(BOARD(boardType))},
    {"convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp",
     current<full::convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp, &ConfigImage::igmpVlans>,
     both<delta::convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp, &ConfigImage::igmpVlans>},
    {"PortConfigFunc_configure_interface_lan",
     alone<full::PortConfigFunc_configure_interface_lan>,
     nothing},
    {"convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos",
     alone<full::convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos>,
     alone<delta::convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos>},
    {"convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos",
     alone<full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos>,
     alone<delta::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos>},
    {"convConfigVLANConfig_VLANConfig_configure_interface_lan_qos",
     alone<full::convConfigVLANConfig_VLANConfig_configure_interface_lan_qos>,
     alone<delta::convConfigVLANConfig_VLANConfig_configure_interface_lan_qos>},
    {"convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan",
     alone<full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan>,
     alone<delta::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan>},
    {"PortConfigFunc_configure_interface_wan",
     alone<full::PortConfigFunc_configure_interface_wan>,
     nothing},
    {"convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos",
     alone<full::convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos>,
     alone<delta::convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos>},
    {"convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos",
     alone<full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos>,
     alone<delta::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos>},
    {"convConfigVLANConfig_VLANConfig_configure_interface_wan_qos",
     alone<full::convConfigVLANConfig_VLANConfig_configure_interface_wan_qos>,
     alone<delta::convConfigVLANConfig_VLANConfig_configure_interface_wan_qos>},
    {"convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan",
     alone<full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan>,
     alone<delta::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan>},
};
// clang-format on

consteval std::size_t deltaSteps() {
    std::size_t count = 0;
    for (const Step &step : steps) count += step.delta ? 1U : 0U;
    return count;
}

consteval bool namesAreUnique() {
    for (const Step &a : steps)
        for (const Step &b : steps)
            if (&a < &b && a.emitter == b.emitter) return false;
    return true;
}

static_assert(std::size(steps) == 116 && deltaSteps() == 106 && namesAreUnique());

} // namespace order

#undef READ_BYTES
#undef READ_EACH
#undef CURRENT
#undef DEFAULTS
#undef BOTH
#undef CURRENT_EACH
#undef DEFAULTS_EACH
#undef BOTH_EACH
#undef BOARD
#undef PLATFORM
