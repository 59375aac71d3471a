#include "sections/system.h"

#include "format/section_lines.h"
#include "platform/util.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>

int full::convConfigAdvancedfunction() { return trace(); }
int full::convConfigApplicationfunction() { return trace(); }

// -------------------------------------------------------------------------------------------------------- archive

/// The server of the automatic backup: the flag decides, not which address is set.
static AddressText serverOf(const BackupConfig &backup) {
    return isOn(backup.serverIsIpv6) ? textOf(backup.serverIpv6) : textOf(backup.server);
}

/// A user without a password is written alone, and TFTP has neither.
static void appendArchivePath(const BackupConfig &backup) {
    const bool isFtp = backup.protocol.value() == 1;
    if (isFtp && !backup.password.empty())
        append("archive auto-backup path ftp %s %s %s %s\n", serverOf(backup), backup.path, backup.user,
               backup.password);
    else if (isFtp) append("archive auto-backup path ftp %s %s %s\n", serverOf(backup), backup.path, backup.user);
    else append("archive auto-backup path tftp %s %s\n", serverOf(backup), backup.path);
}

static int write(const SectionLines<BackupConfig> &backup) {
    backup.onOff(&BackupConfig::enabled, "archive auto-backup\n", "no archive auto-backup\n");
    if (backup.dueBy(serverOf) || backup.due(&BackupConfig::protocol) || backup.due(&BackupConfig::path) ||
        backup.due(&BackupConfig::user) || backup.due(&BackupConfig::password))
        appendArchivePath(backup.current);
    backup.value(&BackupConfig::time, "archive auto-backup time %d\n");
    return 0;
}

int full::convConfigBackupConfig_BackupConfig_configure_archive() { return trace(), write({gSysConfig->backup}); }

int delta::convConfigBackupConfig_BackupConfig_configure_archive(const BackupConfig &current,
                                                                 const BackupConfig &defaults) {
    return trace(), write({current, defaults});
}

// ----------------------------------------------------------------------------------------------------- management

int full::convConfigServiceConfig_mid_sys_remote_access_configure_management() { return trace(); }
int full::convConfigServiceConfig_mid_sys_online_cfg_configure_management() { return trace(); }

static int write(const SectionLines<ConsoleConfig> &console) {
    const ConsoleConfig &current = console.current;
    if (console.due(&ConsoleConfig::timeout) || console.due(&ConsoleConfig::timeoutInMinutes)) {
        if (isOn(current.timeoutInMinutes)) append("management console timeout %d min\n", current.timeout);
        else append("management console timeout %d\n", current.timeout);
    }
    console.value(&ConsoleConfig::telnetPort, "management telnet port %d\n");
    return 0;
}

int full::convConfigConsoleConfig_mid_sys_console_cfg_configure_management(const ConsoleConfig &current) {
    return trace(), write({current});
}

int delta::convConfigConsoleConfig_mid_sys_console_cfg_configure_management(const ConsoleConfig &current,
                                                                            const ConsoleConfig &defaults) {
    return trace(), write({current, defaults});
}

static int write(const SectionLines<ServiceConfig> &service, const SectionLines<ConsoleConfig> &console) {
    // Without a remote login both kinds are switched off. Another kind than these has no line.
    if (service.due(&ServiceConfig::remoteLogin) && service.current.remoteLogin.value() == 0)
        append("no management ssh\n");
    service.code(&ServiceConfig::remoteLogin,
                 {{0, "no management telnet\n"}, {1, "management telnet\n"}, {2, "management ssh\n"}});
    service.onOff(&ServiceConfig::webEnabled, "management web\n", "no management web\n");
    console.value(&ConsoleConfig::webTimeout, "management web timeout %d\n");
    return 0;
}

int full::convConfigServiceConfig_mid_sys_service_cfg_configure_management(const ServiceConfig &current) {
    return trace(), write({current}, {gSysConfig->console});
}

int delta::convConfigServiceConfig_mid_sys_service_cfg_configure_management(const ServiceConfig &current,
                                                                            const ServiceConfig &defaults) {
    return trace(), write({current, defaults}, {gSysConfig->console, gDefConfig->console});
}

// ----------------------------------------------------------------------------------------------------------- time

/// Appends at `end` the `length` characters of `part` less the last two, and returns the new end.
static char *appendShortened(char *end, const char *part, std::size_t length) {
    if (length < 2) return end;
    std::memcpy(end, part, length - 2);
    return end + (length - 2);
}

/// The daylight-saving offset as it is written: the part before its first "-" and that from there on, each less its
/// last two characters. Empty if there is no "-".
static Text<32> writtenOffset(const Text<32> &stored) {
    Text<32> written = {};
    const std::size_t length = strnlen(stored.characters, sizeof stored.characters);
    std::size_t before = 0;
    while (before < length && stored.characters[before] != '-') ++before;
    if (before == length) return written;
    char *const end = appendShortened(written.characters, stored.characters, before);
    appendShortened(end, stored.characters + before, length - before);
    return written;
}

static AddressText server1Of(const TimeConfig &time) { return ipv4First(time.server1, time.server1Ipv6); }
static AddressText server2Of(const TimeConfig &time) { return ipv4First(time.server2, time.server2Ipv6); }

static int write(const SectionLines<TimeConfig> &time) {
    const TimeConfig &current = time.current;
    time.onOff(&TimeConfig::ntpEnabled, "ntp\n", "no ntp\n");
    time.code(&TimeConfig::daylightSaving, {{0, "no ntp daylight-saving\n"}, {1, "ntp daylight-saving recurring\n"}},
              "ntp daylight-saving date\n");
    if (time.due(&TimeConfig::offset) && !current.offset.empty())
        append("ntp offset %s\n", writtenOffset(current.offset));
    time.server(server1Of, "ntp server1 %s\n", {"no ntp server1 \n", "no ntp server1\n"});
    time.server(server2Of, "ntp server2 %s\n", {"no ntp server2 \n", "no ntp server2\n"});
    time.value(&TimeConfig::syncInterval, "ntp syn-interval %d\n");
    time.value(&TimeConfig::timeZone, "ntp time-zone %d\n");
    return 0;
}

int full::convConfigTimeConfig_mid_sys_time_configure_ntp(const ConfigImage &current, const ConfigImage &) {
    return trace(), write({current.time});
}

int delta::convConfigTimeConfig_mid_sys_time_configure_ntp(const ConfigImage &current, const ConfigImage &defaults) {
    return trace(), write({current.time, defaults.time});
}

int full::convConfigSIP() { return trace(); }

// --------------------------------------------------------------------------------------------------------- switch

static int writeMtu(const SectionLines<SwitchConfig> &config) {
    config.value(&SwitchConfig::mtu, "switch mtu %d\n");
    return 0;
}

int full::convConfigSwitchConfig_SwitchConfig_configure_switch(const SwitchConfig &current) {
    return trace(), writeMtu({current});
}

int delta::convConfigSwitchConfig_SwitchConfig_configure_switch(const SwitchConfig &current,
                                                                const SwitchConfig &defaults) {
    return trace(), writeMtu({current, defaults});
}

static int write(const SectionLines<StatisticsPolling> &polling) {
    polling.value(&StatisticsPolling::ports,
                  {"switch statistics polling port %d \n", "switch statistics polling port %d\n"});
    polling.value(&StatisticsPolling::interval,
                  {"switch statistics polling interval %d \n", "switch statistics polling interval %d\n"});
    return 0;
}

int full::convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling(const StatisticsPolling &current) {
    return trace(), write({current});
}

int delta::convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling(const StatisticsPolling &current,
                                                                                   const StatisticsPolling &defaults) {
    return trace(), write({current, defaults});
}

// ------------------------------------------------------------------------------------------------------- identity

/// A text of the identity. Full mode has no line for an empty one; delta mode removes one that became empty.
template <std::size_t Width> static void appendIdentity(const SectionLines<CompanyInfo> &company,
                                                        Text<Width> CompanyInfo::*field,
                                                        std::type_identity_t<Format<Text<Width>>> line, Line none) {
    const Text<Width> &text = company.current.*field;
    if (!company.due(field)) return;
    if (!text.empty()) append(line, text);
    else if (!company.full) append(none);
}

/// The order is that of the keywords, not that of the record.
static int write(const SectionLines<CompanyInfo> &company, const SectionLines<ConfigImage> &image) {
    appendIdentity(company, &CompanyInfo::companyName, "switch-info company-name %s\n",
                   "no switch-info company-name\n");
    image.value(&ConfigImage::cpuLoadingThreshold, "switch-info cpu-loading-threshold %d\n");
    appendIdentity(company, &CompanyInfo::dhcpVendorId, "switch-info dhcp-vendor-id %s\n",
                   "no switch-info dhcp-vendor-id\n");
    appendIdentity(company, &CompanyInfo::hostName, "switch-info host-name %s\n", "no switch-info host-name\n");
    appendIdentity(company, &CompanyInfo::systemContact, "switch-info system-contact %s\n",
                   "no switch-info system-contact\n");
    appendIdentity(company, &CompanyInfo::systemLocation, "switch-info system-location %s\n",
                   "no switch-info system-location\n");
    appendIdentity(company, &CompanyInfo::systemName, "switch-info system-name %s\n", "no switch-info system-name\n");
    return 0;
}

int full::convConfigCompanyInfo_mid_sys_company_info_configure_switch_info(const CompanyInfo &current) {
    return trace(), write({current}, {*gSysConfig});
}

int delta::convConfigCompanyInfo_mid_sys_company_info_configure_switch_info(const CompanyInfo &current,
                                                                            const CompanyInfo &defaults) {
    return trace(), write({current, defaults}, {*gSysConfig, *gDefConfig});
}

// --------------------------------------------------------------------------------------------------------- syslog

static AddressText server1Of(const LogConfig &log) { return ipv4First(log.server[0], log.serverIpv6[0]); }
static AddressText server2Of(const LogConfig &log) { return ipv4First(log.server[1], log.serverIpv6[1]); }
static AddressText server3Of(const LogConfig &log) { return ipv4First(log.server[2], log.serverIpv6[2]); }

static int write(const SectionLines<LogConfig> &log, const SectionLines<ConfigImage> &image) {
    log.onOff(&LogConfig::enabled, "syslog\n", "no syslog\n");
    image.onOff(&ConfigImage::logTerminalHistory, "syslog logging-type terminal-history\n",
                "no syslog logging-type terminal-history\n");
    log.server(server1Of, "syslog server1 %s\n", {"no syslog server1 \n", "no syslog server1\n"});
    log.server(server2Of, "syslog server2 %s\n", {"no syslog server2 \n", "no syslog server2\n"});
    log.server(server3Of, "syslog server3 %s\n", {"no syslog server3 \n", "no syslog server3\n"});
    return 0;
}

int full::convConfigLogConfig_LogConfig_configure_syslog(const LogConfig &current) {
    return trace(), write({current}, {*gSysConfig});
}

int delta::convConfigLogConfig_LogConfig_configure_syslog(const LogConfig &current, const LogConfig &defaults) {
    return trace(), write({current, defaults}, {*gSysConfig, *gDefConfig});
}

// ------------------------------------------------------------------------------------------------------- terminal

static int writeTerminal(const SectionLines<SwitchConfig> &config) {
    config.value(&SwitchConfig::terminalLength, "terminal length %d\n");
    return 0;
}

int full::convConfigterminalConfig_terminalConfig_configure_terminal(const SwitchConfig &current) {
    return trace(), writeTerminal({current});
}

int delta::convConfigterminalConfig_terminalConfig_configure_terminal(const SwitchConfig &current,
                                                                      const SwitchConfig &defaults) {
    return trace(), writeTerminal({current, defaults});
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
using MomentForms = FormatForms<Field, std::int32_t, const char *, std::int32_t>;

void appendMoment(const SectionLines<TimeRange> &range, Text<32> TimeRange::*field, MomentForms line) {
    const Text<32> &moment = range.current.*field;
    if (!range.due(field) || moment.empty()) return;
    const Fields<4> stored(moment);
    const char *const month = wordOf(months, numberOf(stored.field[2]));
    range.append(line, stored.field[0], numberOf(stored.field[1]), month, numberOf(stored.field[3]));
}

/// A range or list is due if its start or its end is set, in delta mode only if one of the two differs: weekdays alone
/// make no difference.
template <class Range> bool isDue(const SectionLines<Range> &range) {
    return (range.due(&Range::start) || range.due(&Range::end)) &&
           (!range.current.start.empty() || !range.current.end.empty());
}

/// A side that is empty reads as no time on weekday 0, which is Sunday.
void appendPeriodic(const SectionLines<TimeRange::Periodic> &periodic) {
    const Fields<2> start(periodic.current.start);
    const Fields<2> end(periodic.current.end);
    const char *const startDay = wordOf(weekdays, numberOf(start.field[0]));
    const char *const endDay = wordOf(weekdays, numberOf(end.field[0]));
    periodic.append({"periodic %s %s to %s %s \n", "periodic %s %s to %s %s\n"}, start.field[1], startDay, end.field[1],
                    endDay);
}

/// The line ends with a blank in both modes, after each weekday too.
void appendPeriodicList(const TimeRange::PeriodicList &list) {
    append("periodic list %s to %s ", list.start, list.end);
    for (int day = 0; day < 7; ++day)
        if (utilBitmapCheck(list.weekdays.bytes, day) != 0) append("%s ", weekdays[day]);
    APPEND_NL();
}

int write(const SectionLines<TimeRangeTable> &ranges) {
    for (std::size_t i = 0; i < std::size(ranges.current); ++i) {
        const SectionLines<TimeRange> range = ranges[i];
        if (range.current.name.empty() || !range.changed()) continue;
        append("time-range %s\n", range.current.name);
        appendMoment(range, &TimeRange::absoluteStart,
                     {"absolute start %s %02d %s %d \n", "absolute start %s %02d %s %d\n"});
        appendMoment(range, &TimeRange::absoluteEnd, {"absolute end %s %02d %s %d \n", "absolute end %s %02d %s %d\n"});
        for (std::size_t k = 0; k < std::size(range.current.periodic); ++k)
            if (const auto periodic = range.part(&TimeRange::periodic)[k]; isDue(periodic)) appendPeriodic(periodic);
        for (std::size_t k = 0; k < std::size(range.current.list); ++k)
            if (const auto list = range.part(&TimeRange::list)[k]; isDue(list)) appendPeriodicList(list.current);
        range.append({"exit \n", "exit\n"});
    }
    return 0;
}

} // namespace

int full::convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange(const TimeRangeTable &current) {
    return trace(), write({current});
}

int delta::convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange(const TimeRangeTable &current,
                                                                         const TimeRangeTable &defaults) {
    return trace(), write({current, defaults});
}

int full::convConfigUSBControl_USBControl_configure_usb() { return trace(); }
int full::convConfigVoice() { return trace(); }
