#include "sections/system.h"

#include "app/text/text.h"
#include "format/address.h"
#include "format/blocks.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>

int full::convConfigAdvancedfunction() { return trace(); }

int full::convConfigApplicationfunction() { return trace(); }

// -------------------------------------------------------------------------------------------------------- archive

namespace {

/// The server of the automatic backup: the flag decides, not which address is set.
AddressText serverOf(const BackupConfig &backup) {
    return isOn(backup.serverIsIpv6) ? textOf(backup.serverIpv6) : textOf(backup.server);
}

/// Both modes write the same path line. A user without a password is written alone, and TFTP knows neither.
void appendArchivePath(const BackupConfig &backup) {
    const bool isFtp = backup.protocol.value() == 1;
    if (isFtp && !backup.password.empty())
        append("archive auto-backup path ftp %s %s %s %s\n", serverOf(backup), backup.path, backup.user,
               backup.password);
    else if (isFtp) append("archive auto-backup path ftp %s %s %s\n", serverOf(backup), backup.path, backup.user);
    else append("archive auto-backup path tftp %s %s\n", serverOf(backup), backup.path);
}

} // namespace

int full::convConfigBackupConfig_BackupConfig_configure_archive() {
    trace();
    const BackupConfig &current = gSysConfig->backup;
    appendSwitch(isOn(current.enabled), "archive auto-backup\n", "no archive auto-backup\n");
    appendArchivePath(current);
    append("archive auto-backup time %d\n", current.time);
    return 0;
}

int delta::convConfigBackupConfig_BackupConfig_configure_archive(const BackupConfig &current,
                                                                 const BackupConfig &defaults) {
    trace();
    if (current.enabled != defaults.enabled)
        appendSwitch(isOn(current.enabled), "archive auto-backup\n", "no archive auto-backup\n");
    if (serverOf(current) != serverOf(defaults) || current.protocol != defaults.protocol ||
        !sameText(current.path, defaults.path) || !sameText(current.user, defaults.user) ||
        !sameText(current.password, defaults.password))
        appendArchivePath(current);
    if (current.time != defaults.time) append("archive auto-backup time %d\n", current.time);
    return 0;
}

// ----------------------------------------------------------------------------------------------------- management

int full::convConfigServiceConfig_mid_sys_remote_access_configure_management() { return trace(); }

int full::convConfigServiceConfig_mid_sys_online_cfg_configure_management() { return trace(); }

namespace {

/// Both modes write the same line for the console's timeout.
void appendConsoleTimeout(const ConsoleConfig &console) {
    if (isOn(console.timeoutInMinutes)) append("management console timeout %d min\n", console.timeout);
    else append("management console timeout %d\n", console.timeout);
}

/// Both modes write the same lines for the remote login; another mode than these has none.
void appendRemoteLogin(const ServiceConfig &service) {
    switch (service.remoteLogin.value()) {
    case 0:
        append("no management ssh\n");
        append("no management telnet\n");
        break;
    case 1: append("management telnet\n"); break;
    case 2: append("management ssh\n"); break;
    default: break;
    }
}

} // namespace

int full::convConfigConsoleConfig_mid_sys_console_cfg_configure_management(const ConsoleConfig &current) {
    trace();
    appendConsoleTimeout(current);
    append("management telnet port %d\n", current.telnetPort);
    return 0;
}

int delta::convConfigConsoleConfig_mid_sys_console_cfg_configure_management(const ConsoleConfig &current,
                                                                            const ConsoleConfig &defaults) {
    trace();
    if (current.timeout != defaults.timeout || current.timeoutInMinutes != defaults.timeoutInMinutes)
        appendConsoleTimeout(current);
    if (current.telnetPort != defaults.telnetPort) append("management telnet port %d\n", current.telnetPort);
    return 0;
}

int full::convConfigServiceConfig_mid_sys_service_cfg_configure_management(const ServiceConfig &current) {
    trace();
    appendRemoteLogin(current);
    appendSwitch(isOn(current.webEnabled), "management web\n", "no management web\n");
    append("management web timeout %d\n", gSysConfig->console.webTimeout);
    return 0;
}

int delta::convConfigServiceConfig_mid_sys_service_cfg_configure_management(const ServiceConfig &current,
                                                                            const ServiceConfig &defaults) {
    trace();
    if (current.remoteLogin != defaults.remoteLogin) appendRemoteLogin(current);
    if (current.webEnabled != defaults.webEnabled)
        appendSwitch(isOn(current.webEnabled), "management web\n", "no management web\n");
    if (gSysConfig->console.webTimeout != gDefConfig->console.webTimeout)
        append("management web timeout %d\n", gSysConfig->console.webTimeout);
    return 0;
}

// ----------------------------------------------------------------------------------------------------------- time

namespace {

/// Both modes write the same line for daylight saving.
void appendDaylightSaving(const TimeConfig &time) {
    switch (time.daylightSaving.value()) {
    case 0: append("no ntp daylight-saving\n"); break;
    case 1: append("ntp daylight-saving recurring\n"); break;
    default: append("ntp daylight-saving date\n");
    }
}

/// Appends at `end` the `length` characters of `part` less the last two, and returns the new end.
char *appendShortened(char *end, const char *part, std::size_t length) {
    if (length < 2) return end;
    std::memcpy(end, part, length - 2);
    return end + (length - 2);
}

/// The daylight-saving offset as it is written: the part before its first "-" and that from there on, each less its
/// last two characters. Empty if there is no "-".
Text<32> writtenOffset(const Text<32> &stored) {
    Text<32> written = {};
    const std::size_t length = strnlen(stored.characters, sizeof stored.characters);
    std::size_t before = 0;
    while (before < length && stored.characters[before] != '-') ++before;
    if (before == length) return written;
    char *const end = appendShortened(written.characters, stored.characters, before);
    appendShortened(end, stored.characters + before, length - before);
    return written;
}

AddressText server1Of(const TimeConfig &time) { return ipv4First(time.server1, time.server1Ipv6); }
AddressText server2Of(const TimeConfig &time) { return ipv4First(time.server2, time.server2Ipv6); }

} // namespace

int full::convConfigTimeConfig_mid_sys_time_configure_ntp(const ConfigImage &current, const ConfigImage &) {
    trace();
    const TimeConfig &time = current.time;
    appendSwitch(isOn(time.ntpEnabled), "ntp\n", "no ntp\n");
    appendDaylightSaving(time);
    if (!time.offset.empty()) append("ntp offset %s\n", writtenOffset(time.offset));
    appendServer(server1Of(time), "ntp server1 %s\n", "no ntp server1 \n");
    appendServer(server2Of(time), "ntp server2 %s\n", "no ntp server2 \n");
    append("ntp syn-interval %d\n", time.syncInterval);
    append("ntp time-zone %d\n", time.timeZone);
    return 0;
}

int delta::convConfigTimeConfig_mid_sys_time_configure_ntp(const ConfigImage &current, const ConfigImage &defaults) {
    trace();
    const TimeConfig &time = current.time;
    const TimeConfig &byDefault = defaults.time;
    if (time.ntpEnabled != byDefault.ntpEnabled) appendSwitch(isOn(time.ntpEnabled), "ntp\n", "no ntp\n");
    if (time.daylightSaving != byDefault.daylightSaving) appendDaylightSaving(time);
    if (!sameText(time.offset, byDefault.offset) && !time.offset.empty())
        append("ntp offset %s\n", writtenOffset(time.offset));
    if (const AddressText server = server1Of(time); server != server1Of(byDefault))
        appendServer(server, "ntp server1 %s\n", "no ntp server1\n");
    if (const AddressText server = server2Of(time); server != server2Of(byDefault))
        appendServer(server, "ntp server2 %s\n", "no ntp server2\n");
    if (time.syncInterval != byDefault.syncInterval) append("ntp syn-interval %d\n", time.syncInterval);
    if (time.timeZone != byDefault.timeZone) append("ntp time-zone %d\n", time.timeZone);
    return 0;
}

int full::convConfigSIP() { return trace(); }

// --------------------------------------------------------------------------------------------------------- switch

int full::convConfigSwitchConfig_SwitchConfig_configure_switch(const SwitchConfig &current) {
    trace();
    append("switch mtu %d\n", current.mtu);
    return 0;
}

int delta::convConfigSwitchConfig_SwitchConfig_configure_switch(const SwitchConfig &current,
                                                                const SwitchConfig &defaults) {
    trace();
    if (current.mtu != defaults.mtu) append("switch mtu %d\n", current.mtu);
    return 0;
}

int full::convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling(const StatisticsPolling &current) {
    trace();
    // These two lines end in a blank; in delta mode they do not.
    append("switch statistics polling port %d \n", current.ports);
    append("switch statistics polling interval %d \n", current.interval);
    return 0;
}

int delta::convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling(const StatisticsPolling &current,
                                                                                   const StatisticsPolling &defaults) {
    trace();
    if (current.ports != defaults.ports) append("switch statistics polling port %d\n", current.ports);
    if (current.interval != defaults.interval) append("switch statistics polling interval %d\n", current.interval);
    return 0;
}

// ------------------------------------------------------------------------------------------------------- identity

namespace {

/// Appends `line` with a text that differs from its default, or `none` if it is empty.
template <std::size_t Width> void appendIfChanged(const Text<Width> &current, const Text<Width> &byDefault,
                                                  std::type_identity_t<Format<Text<Width>>> line, Line none) {
    if (sameText(current, byDefault)) return;
    if (current.empty()) append(none);
    else append<Text<Width>>(line, current);
}

} // namespace

// Written in the order of the keywords, which is not that of the record.

int full::convConfigCompanyInfo_mid_sys_company_info_configure_switch_info(const CompanyInfo &current) {
    trace();
    if (!current.companyName.empty()) append("switch-info company-name %s\n", current.companyName);
    append("switch-info cpu-loading-threshold %d\n", gSysConfig->cpuLoadingThreshold);
    if (!current.dhcpVendorId.empty()) append("switch-info dhcp-vendor-id %s\n", current.dhcpVendorId);
    if (!current.hostName.empty()) append("switch-info host-name %s\n", current.hostName);
    if (!current.systemContact.empty()) append("switch-info system-contact %s\n", current.systemContact);
    if (!current.systemLocation.empty()) append("switch-info system-location %s\n", current.systemLocation);
    if (!current.systemName.empty()) append("switch-info system-name %s\n", current.systemName);
    return 0;
}

int delta::convConfigCompanyInfo_mid_sys_company_info_configure_switch_info(const CompanyInfo &current,
                                                                            const CompanyInfo &defaults) {
    trace();
    appendIfChanged(current.companyName, defaults.companyName, "switch-info company-name %s\n",
                    "no switch-info company-name\n");
    if (gSysConfig->cpuLoadingThreshold != gDefConfig->cpuLoadingThreshold)
        append("switch-info cpu-loading-threshold %d\n", gSysConfig->cpuLoadingThreshold);
    appendIfChanged(current.dhcpVendorId, defaults.dhcpVendorId, "switch-info dhcp-vendor-id %s\n",
                    "no switch-info dhcp-vendor-id\n");
    appendIfChanged(current.hostName, defaults.hostName, "switch-info host-name %s\n", "no switch-info host-name\n");
    appendIfChanged(current.systemContact, defaults.systemContact, "switch-info system-contact %s\n",
                    "no switch-info system-contact\n");
    appendIfChanged(current.systemLocation, defaults.systemLocation, "switch-info system-location %s\n",
                    "no switch-info system-location\n");
    appendIfChanged(current.systemName, defaults.systemName, "switch-info system-name %s\n",
                    "no switch-info system-name\n");
    return 0;
}

// --------------------------------------------------------------------------------------------------------- syslog

namespace {

AddressText serverOf(const LogConfig &log, std::size_t index) {
    return ipv4First(log.server[index], log.serverIpv6[index]);
}

} // namespace

int full::convConfigLogConfig_LogConfig_configure_syslog(const LogConfig &current) {
    trace();
    appendSwitch(isOn(current.enabled), "syslog\n", "no syslog\n");
    appendSwitch(isOn(gSysConfig->logTerminalHistory), "syslog logging-type terminal-history\n",
                 "no syslog logging-type terminal-history\n");
    appendServer(serverOf(current, 0), "syslog server1 %s\n", "no syslog server1 \n");
    appendServer(serverOf(current, 1), "syslog server2 %s\n", "no syslog server2 \n");
    appendServer(serverOf(current, 2), "syslog server3 %s\n", "no syslog server3 \n");
    return 0;
}

int delta::convConfigLogConfig_LogConfig_configure_syslog(const LogConfig &current, const LogConfig &defaults) {
    trace();
    if (current.enabled != defaults.enabled) appendSwitch(isOn(current.enabled), "syslog\n", "no syslog\n");
    if (gSysConfig->logTerminalHistory != gDefConfig->logTerminalHistory)
        appendSwitch(isOn(gSysConfig->logTerminalHistory), "syslog logging-type terminal-history\n",
                     "no syslog logging-type terminal-history\n");
    if (const AddressText server = serverOf(current, 0); server != serverOf(defaults, 0))
        appendServer(server, "syslog server1 %s\n", "no syslog server1\n");
    if (const AddressText server = serverOf(current, 1); server != serverOf(defaults, 1))
        appendServer(server, "syslog server2 %s\n", "no syslog server2\n");
    if (const AddressText server = serverOf(current, 2); server != serverOf(defaults, 2))
        appendServer(server, "syslog server3 %s\n", "no syslog server3\n");
    return 0;
}

// ------------------------------------------------------------------------------------------------------- terminal

int full::convConfigterminalConfig_terminalConfig_configure_terminal(const SwitchConfig &current) {
    trace();
    append("terminal length %d\n", current.terminalLength);
    return 0;
}

int delta::convConfigterminalConfig_terminalConfig_configure_terminal(const SwitchConfig &current,
                                                                      const SwitchConfig &defaults) {
    trace();
    if (current.terminalLength != defaults.terminalLength) append("terminal length %d\n", current.terminalLength);
    return 0;
}

// ---------------------------------------------------------------------------------------------------- time ranges

namespace {

constexpr char months[][4] = {"", "jan", "feb", "mar", "apr", "may", "jun", "jul", "aug", "sep", "oct", "nov", "dec"};
constexpr char weekdays[][4] = {"sun", "mon", "tue", "wed", "thu", "fri", "sat"};

/// The word of a number; empty for a number outside the table.
template <std::size_t Count> const char *wordOf(const char (&words)[Count][4], std::int32_t number) {
    const bool known = number >= 0 && static_cast<std::size_t>(number) < Count;
    return known ? words[number] : "";
}

/// The number that a text begins with, 0 if it begins with none. One beyond 32 bits is the nearest that fits.
std::int32_t numberOf(const char *text) {
    const long long number = std::strtoll(text, nullptr, 10);
    if (number > INT32_MAX) return INT32_MAX;
    if (number < INT32_MIN) return INT32_MIN;
    return static_cast<std::int32_t>(number);
}

using Field = char[UTIL_FIELD_SIZE];

/// The comma-separated fields of a text. Missing ones are empty, and the last keeps the rest.
template <std::size_t Count> struct Fields {
    Field field[Count] = {};

    template <std::size_t Width> explicit Fields(const Text<Width> &text) {
        static_assert(Width < UTIL_FIELD_SIZE);
        char terminated[Width + 1] = {};
        std::memcpy(terminated, text.characters, Width);
        utilParseArgs(terminated, ",", Count, field);
    }
};

/// Time, day, month and year.
using MomentLine = Format<Field, std::int32_t, const char *, std::int32_t>;

void appendMoment(const Text<32> &moment, MomentLine line) {
    const Fields<4> stored(moment);
    const char *const month = wordOf(months, numberOf(stored.field[2]));
    append<Field, std::int32_t, const char *, std::int32_t>(line, stored.field[0], numberOf(stored.field[1]), month,
                                                            numberOf(stored.field[3]));
}

/// Time and weekday of the start and of the end.
using PeriodicLine = Format<Field, const char *, Field, const char *>;

/// A side that is empty reads as no time on weekday 0, which is Sunday.
void appendPeriodic(const TimeRange::Periodic &periodic, PeriodicLine line) {
    const Fields<2> start(periodic.start);
    const Fields<2> end(periodic.end);
    const char *const startDay = wordOf(weekdays, numberOf(start.field[0]));
    const char *const endDay = wordOf(weekdays, numberOf(end.field[0]));
    append<Field, const char *, Field, const char *>(line, start.field[1], startDay, end.field[1], endDay);
}

/// Both modes write the same line for a periodic list, blanks and all.
void appendPeriodicList(const TimeRange::PeriodicList &list) {
    append("periodic list %s to %s ", list.start, list.end);
    for (int day = 0; day < 7; ++day)
        if (utilBitmapCheck(list.weekdays.bytes, day) != 0) append("%s ", weekdays[day]);
    APPEND_NL();
}

/// A range or list counts as set when one of its sides is.
template <class Range> bool isSet(const Range &range) { return !range.start.empty() || !range.end.empty(); }

/// Ranges and lists differ by their start and end. Weekdays alone make no difference.
template <class Range> bool sameStartAndEnd(const Range &a, const Range &b) {
    return sameText(a.start, b.start) && sameText(a.end, b.end);
}

} // namespace

int full::convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange(const TimeRangeTable &current) {
    trace();
    for (const TimeRange &range : current) {
        if (range.name.empty()) continue;
        append("time-range %s\n", range.name);
        // Lines end in a blank, "exit" too; in delta mode only those of the periodic lists do.
        if (!range.absoluteStart.empty()) appendMoment(range.absoluteStart, "absolute start %s %02d %s %d \n");
        if (!range.absoluteEnd.empty()) appendMoment(range.absoluteEnd, "absolute end %s %02d %s %d \n");
        for (const TimeRange::Periodic &periodic : range.periodic)
            if (isSet(periodic)) appendPeriodic(periodic, "periodic %s %s to %s %s \n");
        for (const TimeRange::PeriodicList &list : range.list)
            if (isSet(list)) appendPeriodicList(list);
        append("exit \n");
    }
    return 0;
}

int delta::convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange(const TimeRangeTable &current,
                                                                         const TimeRangeTable &defaults) {
    trace();
    for (std::size_t i = 0; i < std::size(current); ++i) {
        const TimeRange &range = current[i];
        const TimeRange &byDefault = defaults[i];
        if (sameBytes(range, byDefault) || range.name.empty()) continue;
        append("time-range %s\n", range.name);
        if (!sameText(range.absoluteStart, byDefault.absoluteStart) && !range.absoluteStart.empty())
            appendMoment(range.absoluteStart, "absolute start %s %02d %s %d\n");
        if (!sameText(range.absoluteEnd, byDefault.absoluteEnd) && !range.absoluteEnd.empty())
            appendMoment(range.absoluteEnd, "absolute end %s %02d %s %d\n");
        for (std::size_t k = 0; k < std::size(range.periodic); ++k)
            if (!sameStartAndEnd(range.periodic[k], byDefault.periodic[k]) && isSet(range.periodic[k]))
                appendPeriodic(range.periodic[k], "periodic %s %s to %s %s\n");
        for (std::size_t k = 0; k < std::size(range.list); ++k)
            if (!sameStartAndEnd(range.list[k], byDefault.list[k]) && isSet(range.list[k]))
                appendPeriodicList(range.list[k]);
        append("exit\n");
    }
    return 0;
}

int full::convConfigUSBControl_USBControl_configure_usb() { return trace(); }

int full::convConfigVoice() { return trace(); }
