/// Identity, management services, time, logging, archive and time ranges.
#pragma once

#include "platform/image.h"

namespace full {
int convConfigAdvancedfunction();    ///< traces only
int convConfigApplicationfunction(); ///< traces only
/// Automatic backup (image 207008 to 207140): "archive auto-backup", its path with server, path, user and password, and
/// its time.
int convConfigBackupConfig_BackupConfig_configure_archive();
int convConfigServiceConfig_mid_sys_remote_access_configure_management(); ///< traces only
int convConfigServiceConfig_mid_sys_online_cfg_configure_management();    ///< traces only
/// Console (image 1632 to 1723): "management console timeout", in minutes or in the console's own unit, and
/// "management telnet port".
int convConfigConsoleConfig_mid_sys_console_cfg_configure_management(const ConsoleConfig &current);
/// Management services (image 1612 to 1631, and the web timeout at 1680): "management telnet" or "management ssh",
/// nothing for another login mode; "management web" and its timeout.
int convConfigServiceConfig_mid_sys_service_cfg_configure_management(const ServiceConfig &current);
/// NTP client and daylight saving (image 0 to 375): the "ntp" lines. The default image is not read.
int convConfigTimeConfig_mid_sys_time_configure_ntp(const ConfigImage &current, const ConfigImage &defaults);
int convConfigSIP(); ///< traces only
/// MTU, in bytes (image 126372): "switch mtu".
int convConfigSwitchConfig_SwitchConfig_configure_switch(const SwitchConfig &current);
/// Polling of the port statistics (image 202712 to 202719): "switch statistics polling", ports at a time and interval.
int convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling(const StatisticsPolling &current);
/// Who and where the switch is (image 696 to 1611), and the threshold of the CPU load (at 207004): the "switch-info"
/// lines of the texts that are set, and of the threshold always.
int convConfigCompanyInfo_mid_sys_company_info_configure_switch_info(const CompanyInfo &current);
/// Syslog client (image 146552 to 146623), and whether the terminal history is logged (at 206964): "syslog", its
/// logging type and three servers.
int convConfigLogConfig_LogConfig_configure_syslog(const LogConfig &current);
/// Lines of a terminal page (image 126424): "terminal length".
int convConfigterminalConfig_terminalConfig_configure_terminal(const SwitchConfig &current);
/// Time ranges (image 202992 to 205031): a block for each one with a name: "time-range", absolute start and end, two
/// periodic ranges and two periodic lists as far as they are set, "exit".
int convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange(const TimeRangeTable &current);
int convConfigUSBControl_USBControl_configure_usb(); ///< traces only
int convConfigVoice();                               ///< traces only
} // namespace full

namespace delta {
/// The lines of what differs; the path line if the server's text, the protocol, the path, the user or the password
/// does.
int convConfigBackupConfig_BackupConfig_configure_archive(const BackupConfig &current, const BackupConfig &defaults);
using full::convConfigServiceConfig_mid_sys_online_cfg_configure_management;    // traces only
using full::convConfigServiceConfig_mid_sys_remote_access_configure_management; // traces only
/// The lines of what differs; the timeout line also if its unit does.
int convConfigConsoleConfig_mid_sys_console_cfg_configure_management(const ConsoleConfig &current,
                                                                     const ConsoleConfig &defaults);
/// The lines of what differs.
int convConfigServiceConfig_mid_sys_service_cfg_configure_management(const ServiceConfig &current,
                                                                     const ServiceConfig &defaults);
/// The lines of what differs, servers by their text. An offset that was cleared has no line.
int convConfigTimeConfig_mid_sys_time_configure_ntp(const ConfigImage &current, const ConfigImage &defaults);
using full::convConfigSIP; // traces only
/// The line if the MTU differs.
int convConfigSwitchConfig_SwitchConfig_configure_switch(const SwitchConfig &current, const SwitchConfig &defaults);
/// The lines of what differs.
int convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling(const StatisticsPolling &current,
                                                                            const StatisticsPolling &defaults);
/// The lines of what differs, "no switch-info" for a text that was cleared.
int convConfigCompanyInfo_mid_sys_company_info_configure_switch_info(const CompanyInfo &current,
                                                                     const CompanyInfo &defaults);
/// The lines of what differs, servers by their text.
int convConfigLogConfig_LogConfig_configure_syslog(const LogConfig &current, const LogConfig &defaults);
/// The line if the length differs.
int convConfigterminalConfig_terminalConfig_configure_terminal(const SwitchConfig &current,
                                                               const SwitchConfig &defaults);
/// A block for each named range that differs, with what is set and differs in it. A range that was removed has none.
int convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange(const TimeRangeTable &current,
                                                                  const TimeRangeTable &defaults);
using full::convConfigUSBControl_USBControl_configure_usb; // traces only
using full::convConfigVoice;                               // traces only
// These trace only, and no driver calls them in delta mode.
using full::convConfigAdvancedfunction;
using full::convConfigApplicationfunction;
} // namespace delta
