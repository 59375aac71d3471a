/// Steps, stores and settings of identity, management, time, logging and archive.
#pragma once

#include "byte_changes.h"
#include "rows.h"

#include "platform/host/factory.h"
#include "sections/system.h"

#include <cstring>

namespace system_area {

constexpr const char *archive = "convConfigBackupConfig_BackupConfig_configure_archive";
constexpr const char *console = "convConfigConsoleConfig_mid_sys_console_cfg_configure_management";
constexpr const char *service = "convConfigServiceConfig_mid_sys_service_cfg_configure_management";
constexpr const char *ntp = "convConfigTimeConfig_mid_sys_time_configure_ntp";
constexpr const char *mtu = "convConfigSwitchConfig_SwitchConfig_configure_switch";
constexpr const char *polling = "convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling";
constexpr const char *company = "convConfigCompanyInfo_mid_sys_company_info_configure_switch_info";
constexpr const char *syslog = "convConfigLogConfig_LogConfig_configure_syslog";
constexpr const char *terminal = "convConfigterminalConfig_terminalConfig_configure_terminal";
constexpr const char *timeRanges = "convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange";

/// The steps that render, in the order of the text.
constexpr const char *rendering[] = {archive, console, service, ntp,      mtu,
                                     polling, company, syslog,  terminal, timeRanges};

constexpr Ipv6 someIpv6 = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x15}};

inline u8 *bytesAt(ConfigImage &image, std::size_t place) { return reinterpret_cast<u8 *>(&image) + place; }

/// The same section in both images, then a change of the current one.
template <class Section> auto changed(Section ConfigImage::*section, Section same, void (*change)(Section &)) {
    return [=](ConfigImage &current, ConfigImage &defaults) {
        current.*section = defaults.*section = same;
        change(current.*section);
    };
}

inline BackupConfig someBackup() {
    BackupConfig backup = {};
    backup.enabled = 1;
    backup.time = 3;
    backup.protocol = 1;
    backup.server = {{198, 51, 100, 21}};
    backup.serverIpv6 = someIpv6;
    backup.user = "backup";
    backup.password = "safe";
    backup.path = "switch.cfg";
    return backup;
}
inline auto backupChanged(void (*change)(BackupConfig &)) {
    return changed(&ConfigImage::backup, someBackup(), change);
}

/// The archive's lines for a path.
inline std::string archiveText(const std::string &path) {
    return "archive auto-backup\narchive auto-backup path " + path + "\narchive auto-backup time 3\n";
}
inline auto onlyBackup(void (*change)(BackupConfig &)) {
    return [change](ConfigImage &current, ConfigImage &) {
        current.backup = someBackup();
        change(current.backup);
    };
}

inline ConsoleConfig someConsole() {
    ConsoleConfig it = {};
    it.telnetPort = 23;
    it.timeout = 5;
    it.timeoutInMinutes = 1;
    it.webTimeout = 300;
    return it;
}
inline auto consoleChanged(void (*change)(ConsoleConfig &)) {
    return changed(&ConfigImage::console, someConsole(), change);
}

inline ServiceConfig someService() {
    ServiceConfig it = {};
    it.remoteLogin = 1;
    it.webEnabled = 1;
    return it;
}
inline auto serviceChanged(void (*change)(ServiceConfig &)) {
    return changed(&ConfigImage::service, someService(), change);
}

inline TimeConfig someTime() {
    TimeConfig time = {};
    time.ntpEnabled = 1;
    time.syncInterval = 24;
    time.server1 = {{198, 51, 100, 11}};
    time.server2 = {{198, 51, 100, 12}};
    time.timeZone = -5;
    time.daylightSaving = 1;
    time.offset = "0329020000-1025030000";
    return time;
}
inline auto timeChanged(void (*change)(TimeConfig &)) { return changed(&ConfigImage::time, someTime(), change); }

/// The NTP lines of a store that holds nothing but an offset.
inline std::string ntpTextWith(const std::string &offsetLine) {
    return "no ntp\nno ntp daylight-saving\n" + offsetLine +
           "no ntp server1 \nno ntp server2 \nntp syn-interval 0\nntp time-zone 0\n";
}
inline auto onlyOffset(std::string offset) {
    return [offset](ConfigImage &current, ConfigImage &) { current.time.offset = offset.c_str(); };
}

inline CompanyInfo someCompany() {
    CompanyInfo it = {};
    it.companyName = "Example";
    it.systemContact = "noc";
    it.systemName = "east";
    it.systemLocation = "rack";
    it.hostName = "host";
    it.dhcpVendorId = "vendor";
    return it;
}
inline auto companyChanged(void (*change)(CompanyInfo &)) {
    return changed(&ConfigImage::company, someCompany(), change);
}

inline LogConfig someLog() {
    LogConfig log = {};
    log.enabled = 1;
    for (u8 i = 0; i < 3; ++i) log.server[i] = {{198, 51, 100, static_cast<u8>(14 + i)}};
    return log;
}
inline auto logChanged(void (*change)(LogConfig &)) { return changed(&ConfigImage::log, someLog(), change); }

inline TimeRange someRange() {
    TimeRange range = {};
    range.name = "range";
    range.absoluteStart = "08:00,2,6,2025";
    range.absoluteEnd = "18:30,30,9,2026";
    range.periodic[0].start = "1,08:00";
    range.periodic[0].end = "5,17:00";
    range.periodic[1].start = "0,10:00";
    range.periodic[1].end = "6,11:00";
    range.list[0].weekdays.set(1).set(3);
    range.list[0].start = "12:00";
    range.list[0].end = "13:00";
    range.list[1].weekdays.set(0).set(6);
    range.list[1].start = "20:00";
    range.list[1].end = "21:00";
    return range;
}
/// The second range, the same in both images, then a change of the current one.
inline auto rangeChanged(Setter<void(TimeRange &)> change) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        current.timeRanges[1] = defaults.timeRanges[1] = someRange();
        change(current.timeRanges[1]);
    };
}
/// A range with a name and what `set` sets in the current image alone.
inline auto onlyRange(Setter<void(TimeRange &)> set) {
    return [set](ConfigImage &current, ConfigImage &) {
        current.timeRanges[0].name = "range";
        set(current.timeRanges[0]);
    };
}
inline std::string inFull(const std::string &body) { return "time-range range\n" + body + "exit \n"; }
inline std::string inDelta(const std::string &body) { return "time-range range\n" + body + "exit\n"; }

inline void composeSystem(ConfigImage &current, ConfigImage &defaults) {
    current.backup = someBackup();
    current.console = someConsole();
    current.service = someService();
    current.time = someTime();
    current.time.server2 = {};
    current.switchConfig.mtu = 9216;
    current.switchConfig.terminalLength = 40;
    current.statisticsPolling.interval = 5;
    current.statisticsPolling.ports = 7;
    current.company = someCompany();
    current.company.hostName = "";
    current.cpuLoadingThreshold = 70;
    current.log = someLog();
    current.log.server[1] = {};
    current.log.server[2] = {};
    current.log.serverIpv6[2] = someIpv6;
    current.logTerminalHistory = 1;
    current.timeRanges[0] = someRange();
    current.timeRanges[9].name = "bare";

    defaults.backup = someBackup();
    defaults.backup.password = "";
    defaults.console = someConsole();
    defaults.console.timeoutInMinutes = 0;
    defaults.service.webEnabled = 1;
    defaults.time.server2 = {{192, 0, 2, 123}};
    defaults.time.syncInterval = 24;
    defaults.switchConfig.mtu = 1522;
    defaults.statisticsPolling.interval = 5;
    defaults.company.companyName = "Example";
    defaults.company.hostName = "switch";
    defaults.log.server[1] = {{192, 0, 2, 14}};
    defaults.timeRanges[0] = someRange();
    defaults.timeRanges[0].absoluteEnd = "";
    defaults.timeRanges[0].list[1].end = "20:30";
}

inline std::string systemText(Mode mode) {
    resetAll();
    composeSystem(*gSysConfig, *gDefConfig);
    for (const char *step : rendering) callStep(mode, step);
    return Temp_Configuration;
}

/// The absolute start alone, in a range that has no default.
inline Row start(const char *name, const char *text, const char *written) {
    return {name, Mode::full, timeRanges, onlyRange([text](TimeRange &it) { it.absoluteStart = text; }),
            inFull(std::string("absolute start ") + written + " \n")};
}

/// A periodic range alone, in a range that has no default.
inline Row periodic(const char *name, const char *from, const char *to, const char *written) {
    return {name, Mode::full, timeRanges, onlyRange([=](TimeRange &it) {
                it.periodic[0].start = from;
                it.periodic[0].end = to;
            }),
            inFull(std::string("periodic ") + written + " \n")};
}

} // namespace system_area
