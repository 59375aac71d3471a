/// Identity, management services, time, logging, archive and time ranges.
#pragma once

#include "platform/image.h"

namespace full {
int convConfigAdvancedfunction();    ///< traces only
int convConfigApplicationfunction(); ///< traces only
/// Reads the current image itself.
int convConfigBackupConfig_BackupConfig_configure_archive();
int convConfigServiceConfig_mid_sys_remote_access_configure_management(); ///< traces only
int convConfigServiceConfig_mid_sys_online_cfg_configure_management();    ///< traces only
int convConfigConsoleConfig_mid_sys_console_cfg_configure_management(const ConsoleConfig &current);
/// An unknown kind of login has no line.
int convConfigServiceConfig_mid_sys_service_cfg_configure_management(const ServiceConfig &current);
/// Does not read the default image.
int convConfigTimeConfig_mid_sys_time_configure_ntp(const ConfigImage &current, const ConfigImage &defaults);
int convConfigSIP(); ///< traces only
int convConfigSwitchConfig_SwitchConfig_configure_switch(const SwitchConfig &current);
int convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling(const StatisticsPolling &current);
/// An empty text has no line.
int convConfigCompanyInfo_mid_sys_company_info_configure_switch_info(const CompanyInfo &current);
int convConfigLogConfig_LogConfig_configure_syslog(const LogConfig &current);
int convConfigterminalConfig_terminalConfig_configure_terminal(const SwitchConfig &current);
/// A range without a name has no block.
int convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange(const TimeRangeTable &current);
int convConfigUSBControl_USBControl_configure_usb(); ///< traces only
int convConfigVoice();                               ///< traces only
} // namespace full

namespace delta {
/// The server is compared by its text.
int convConfigBackupConfig_BackupConfig_configure_archive(const BackupConfig &current, const BackupConfig &defaults);
using full::convConfigServiceConfig_mid_sys_online_cfg_configure_management;    // traces only
using full::convConfigServiceConfig_mid_sys_remote_access_configure_management; // traces only
int convConfigConsoleConfig_mid_sys_console_cfg_configure_management(const ConsoleConfig &current,
                                                                     const ConsoleConfig &defaults);
int convConfigServiceConfig_mid_sys_service_cfg_configure_management(const ServiceConfig &current,
                                                                     const ServiceConfig &defaults);
/// Servers are compared by their text. An offset that was cleared has no line.
int convConfigTimeConfig_mid_sys_time_configure_ntp(const ConfigImage &current, const ConfigImage &defaults);
using full::convConfigSIP; // traces only
int convConfigSwitchConfig_SwitchConfig_configure_switch(const SwitchConfig &current, const SwitchConfig &defaults);
int convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling(const StatisticsPolling &current,
                                                                            const StatisticsPolling &defaults);
/// Removes a text that was cleared.
int convConfigCompanyInfo_mid_sys_company_info_configure_switch_info(const CompanyInfo &current,
                                                                     const CompanyInfo &defaults);
/// Servers are compared by their text.
int convConfigLogConfig_LogConfig_configure_syslog(const LogConfig &current, const LogConfig &defaults);
int convConfigterminalConfig_terminalConfig_configure_terminal(const SwitchConfig &current,
                                                               const SwitchConfig &defaults);
/// A range that was removed has no line.
int convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange(const TimeRangeTable &current,
                                                                  const TimeRangeTable &defaults);
using full::convConfigUSBControl_USBControl_configure_usb; // traces only
using full::convConfigVoice;                               // traces only
// These trace only, and no driver calls them in delta mode.
using full::convConfigAdvancedfunction;
using full::convConfigApplicationfunction;
} // namespace delta
