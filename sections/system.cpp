#include "sections/system.h"

#include "app/text.h"

int full::convConfigAdvancedfunction() { return trace(__func__); }

int full::convConfigApplicationfunction() { return trace(__func__); }

int full::convConfigBackupConfig_BackupConfig_configure_archive() { return trace(__func__); }
int delta::convConfigBackupConfig_BackupConfig_configure_archive(const BackupConfig &, const BackupConfig &) {
    return trace(__func__);
}

int full::convConfigServiceConfig_mid_sys_remote_access_configure_management() { return trace(__func__); }

int full::convConfigServiceConfig_mid_sys_online_cfg_configure_management() { return trace(__func__); }

int full::convConfigConsoleConfig_mid_sys_console_cfg_configure_management(const ConsoleConfig &) {
    return trace(__func__);
}
int delta::convConfigConsoleConfig_mid_sys_console_cfg_configure_management(const ConsoleConfig &,
                                                                            const ConsoleConfig &) {
    return trace(__func__);
}

int full::convConfigServiceConfig_mid_sys_service_cfg_configure_management(const ServiceConfig &) {
    return trace(__func__);
}
int delta::convConfigServiceConfig_mid_sys_service_cfg_configure_management(const ServiceConfig &,
                                                                            const ServiceConfig &) {
    return trace(__func__);
}

int full::convConfigTimeConfig_mid_sys_time_configure_ntp(const ConfigImage &, const ConfigImage &) {
    return trace(__func__);
}
int delta::convConfigTimeConfig_mid_sys_time_configure_ntp(const ConfigImage &, const ConfigImage &) {
    return trace(__func__);
}

int full::convConfigSIP() { return trace(__func__); }

int full::convConfigSwitchConfig_SwitchConfig_configure_switch(const SwitchConfig &) { return trace(__func__); }
int delta::convConfigSwitchConfig_SwitchConfig_configure_switch(const SwitchConfig &, const SwitchConfig &) {
    return trace(__func__);
}

int full::convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling(const StatisticsPolling &) {
    return trace(__func__);
}
int delta::convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling(const StatisticsPolling &,
                                                                                   const StatisticsPolling &) {
    return trace(__func__);
}

int full::convConfigCompanyInfo_mid_sys_company_info_configure_switch_info(const CompanyInfo &) {
    return trace(__func__);
}
int delta::convConfigCompanyInfo_mid_sys_company_info_configure_switch_info(const CompanyInfo &, const CompanyInfo &) {
    return trace(__func__);
}

int full::convConfigLogConfig_LogConfig_configure_syslog(const LogConfig &) { return trace(__func__); }
int delta::convConfigLogConfig_LogConfig_configure_syslog(const LogConfig &, const LogConfig &) {
    return trace(__func__);
}

int full::convConfigterminalConfig_terminalConfig_configure_terminal(const SwitchConfig &) { return trace(__func__); }
int delta::convConfigterminalConfig_terminalConfig_configure_terminal(const SwitchConfig &, const SwitchConfig &) {
    return trace(__func__);
}

int full::convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange(const TimeRangeTable &) {
    return trace(__func__);
}
int delta::convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange(const TimeRangeTable &,
                                                                         const TimeRangeTable &) {
    return trace(__func__);
}

int full::convConfigUSBControl_USBControl_configure_usb() { return trace(__func__); }

int full::convConfigVoice() { return trace(__func__); }
