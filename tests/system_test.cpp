#include "byte_changes.h"
#include "rows.h"

#include "platform/host/factory.h"
#include "sections/system.h"

#include <cstring>

namespace {

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

/// Steps that render nothing; the first two have no twin in delta mode.
constexpr const char *traceOnly[] = {"convConfigAdvancedfunction",
                                     "convConfigApplicationfunction",
                                     "convConfigServiceConfig_mid_sys_remote_access_configure_management",
                                     "convConfigServiceConfig_mid_sys_online_cfg_configure_management",
                                     "convConfigSIP",
                                     "convConfigUSBControl_USBControl_configure_usb",
                                     "convConfigVoice"};

constexpr Ipv6 someIpv6 = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x15}};

u8 *bytesAt(ConfigImage &image, std::size_t place) { return reinterpret_cast<u8 *>(&image) + place; }

/// The same section in both images, then a change of the current one.
template <class Section> auto changed(Section ConfigImage::*section, Section same, void (*change)(Section &)) {
    return [=](ConfigImage &current, ConfigImage &defaults) {
        current.*section = defaults.*section = same;
        change(current.*section);
    };
}

BackupConfig someBackup() {
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
auto backupChanged(void (*change)(BackupConfig &)) { return changed(&ConfigImage::backup, someBackup(), change); }

/// The archive's lines for a path.
std::string archiveText(const std::string &path) {
    return "archive auto-backup\narchive auto-backup path " + path + "\narchive auto-backup time 3\n";
}
auto onlyBackup(void (*change)(BackupConfig &)) {
    return [change](ConfigImage &current, ConfigImage &) {
        current.backup = someBackup();
        change(current.backup);
    };
}

ConsoleConfig someConsole() {
    ConsoleConfig it = {};
    it.telnetPort = 23;
    it.timeout = 5;
    it.timeoutInMinutes = 1;
    it.webTimeout = 300;
    return it;
}
auto consoleChanged(void (*change)(ConsoleConfig &)) { return changed(&ConfigImage::console, someConsole(), change); }

ServiceConfig someService() {
    ServiceConfig it = {};
    it.remoteLogin = 1;
    it.webEnabled = 1;
    return it;
}
auto serviceChanged(void (*change)(ServiceConfig &)) { return changed(&ConfigImage::service, someService(), change); }

TimeConfig someTime() {
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
auto timeChanged(void (*change)(TimeConfig &)) { return changed(&ConfigImage::time, someTime(), change); }

/// The NTP lines of a store that holds nothing but an offset.
std::string ntpTextWith(const std::string &offsetLine) {
    return "no ntp\nno ntp daylight-saving\n" + offsetLine +
           "no ntp server1 \nno ntp server2 \nntp syn-interval 0\nntp time-zone 0\n";
}
auto onlyOffset(std::string offset) {
    return [offset](ConfigImage &current, ConfigImage &) { current.time.offset = offset.c_str(); };
}

CompanyInfo someCompany() {
    CompanyInfo it = {};
    it.companyName = "Example";
    it.systemContact = "noc";
    it.systemName = "east";
    it.systemLocation = "rack";
    it.hostName = "host";
    it.dhcpVendorId = "vendor";
    return it;
}
auto companyChanged(void (*change)(CompanyInfo &)) { return changed(&ConfigImage::company, someCompany(), change); }

LogConfig someLog() {
    LogConfig log = {};
    log.enabled = 1;
    for (u8 i = 0; i < 3; ++i) log.server[i] = {{198, 51, 100, static_cast<u8>(14 + i)}};
    return log;
}
auto logChanged(void (*change)(LogConfig &)) { return changed(&ConfigImage::log, someLog(), change); }

TimeRange someRange() {
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
auto rangeChanged(std::function<void(TimeRange &)> change) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        current.timeRanges[1] = defaults.timeRanges[1] = someRange();
        change(current.timeRanges[1]);
    };
}
/// A range with a name and what `set` sets in the current image alone.
auto onlyRange(std::function<void(TimeRange &)> set) {
    return [set](ConfigImage &current, ConfigImage &) {
        current.timeRanges[0].name = "range";
        set(current.timeRanges[0]);
    };
}
std::string inFull(const std::string &body) { return "time-range range\n" + body + "exit \n"; }
std::string inDelta(const std::string &body) { return "time-range range\n" + body + "exit\n"; }

void composeSystem(ConfigImage &current, ConfigImage &defaults) {
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

std::string systemText(Mode mode) {
    resetAll();
    composeSystem(*gSysConfig, *gDefConfig);
    for (const char *step : rendering) callStep(mode, step);
    return Temp_Configuration;
}

} // namespace

ROWS(Archive,
     ({
         {"zero", Mode::full, archive, [](auto &, auto &then) { then.backup = someBackup(); },
          "no archive auto-backup\narchive auto-backup path tftp 0.0.0.0 \narchive auto-backup time 0\n"},
         {"FTP with password", Mode::full, archive, onlyBackup([](BackupConfig &) {}),
          archiveText("ftp 198.51.100.21 switch.cfg backup safe")},
         {"FTP without password", Mode::full, archive, onlyBackup([](BackupConfig &it) { it.password = ""; }),
          archiveText("ftp 198.51.100.21 switch.cfg backup")},
         {"FTP without user", Mode::full, archive, onlyBackup([](BackupConfig &it) { it.user = ""; }),
          archiveText("ftp 198.51.100.21 switch.cfg  safe")},
         {"TFTP knows neither user nor password", Mode::full, archive,
          onlyBackup([](BackupConfig &it) { it.protocol = 0; }), archiveText("tftp 198.51.100.21 switch.cfg")},
         {"another protocol is TFTP", Mode::full, archive, onlyBackup([](BackupConfig &it) { it.protocol = 257; }),
          archiveText("tftp 198.51.100.21 switch.cfg")},
         {"server by its flag", Mode::full, archive, onlyBackup([](BackupConfig &it) { it.serverIsIpv6 = 2; }),
          archiveText("ftp 2001:db8::15 switch.cfg backup safe")},
         {"server by its flag, IPv6 unset", Mode::full, archive, onlyBackup([](BackupConfig &it) {
              it.serverIsIpv6 = 1;
              it.serverIpv6 = {};
          }),
          archiveText("ftp :: switch.cfg backup safe")},
         {"server without flag, IPv4 unset", Mode::full, archive, onlyBackup([](BackupConfig &it) { it.server = {}; }),
          archiveText("ftp 0.0.0.0 switch.cfg backup safe")},
         {"server flag with TFTP", Mode::full, archive, onlyBackup([](BackupConfig &it) {
              it.protocol = 2;
              it.serverIsIpv6 = 1;
          }),
          archiveText("tftp 2001:db8::15 switch.cfg")},
         {"full fields", Mode::full, archive, onlyBackup([](BackupConfig &it) {
              it.time = 255;
              it.enabled = 128;
              it.user = letters(24).c_str();
              it.password = letters(25).substr(1).c_str();
              it.path = letters(56).c_str();
          }),
          "archive auto-backup\narchive auto-backup path ftp 198.51.100.21 " + letters(56) + " " + letters(24) + " " +
              letters(25).substr(1) + "\narchive auto-backup time 255\n"},
         {"places", Mode::full, archive,
          [](auto &now, auto &) {
              u8 *const bytes = bytesAt(now, 207008);
              bytes[1] = 22;
              bytes[7] = 1;
              for (u8 i = 8; i < 28; ++i) bytes[i] = i;
              bytes[29] = 'u';
              bytes[53] = 'p';
              bytes[77] = 'f';
          },
          "no archive auto-backup\narchive auto-backup path ftp 8.9.10.11 f u p\narchive auto-backup time 22\n"},
         {"places with IPv6", Mode::full, archive,
          [](auto &now, auto &) {
              u8 *const bytes = bytesAt(now, 207008);
              bytes[0] = 1;
              for (u8 i = 8; i < 28; ++i) bytes[i] = i;
              bytes[28] = 1;
          },
          "archive auto-backup\narchive auto-backup path tftp c0d:e0f:1011:1213:1415:1617:1819:1a1b \n"
          "archive auto-backup time 0\n"},

         {"equal", Mode::delta, archive, backupChanged([](BackupConfig &) {}), ""},
         {"disabled", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.enabled = 0; }),
          "no archive auto-backup\n"},
         {"enabled otherwise", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.enabled = 2; }),
          "archive auto-backup\n"},
         {"time", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.time = 200; }),
          "archive auto-backup time 200\n"},
         {"server", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.server.octets[3] = 1; }),
          "archive auto-backup path ftp 198.51.100.1 switch.cfg backup safe\n"},
         {"server flag", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.serverIsIpv6 = 1; }),
          "archive auto-backup path ftp 2001:db8::15 switch.cfg backup safe\n"},
         {"IPv6 server behind the flag", Mode::delta, archive,
          backupChanged([](BackupConfig &it) { it.serverIpv6 = {}; }), ""},
         {"IPv4 server behind the flag", Mode::delta, archive,
          [](auto &now, auto &then) {
              now.backup = then.backup = someBackup();
              now.backup.serverIsIpv6 = 1;
              then.backup.serverIsIpv6 = 2;
              now.backup.server = {};
          },
          ""},
         {"protocol", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.protocol = 0; }),
          "archive auto-backup path tftp 198.51.100.21 switch.cfg\n"},
         {"protocols that are both TFTP", Mode::delta, archive,
          [](auto &now, auto &then) {
              now.backup.protocol = 3;
              then.backup.protocol = 2;
          },
          "archive auto-backup path tftp 0.0.0.0 \n"},
         {"path", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.path = ""; }),
          "archive auto-backup path ftp 198.51.100.21  backup safe\n"},
         {"user", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.user = "u"; }),
          "archive auto-backup path ftp 198.51.100.21 switch.cfg u safe\n"},
         {"password cleared", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.password = ""; }),
          "archive auto-backup path ftp 198.51.100.21 switch.cfg backup\n"},
         {"password of TFTP", Mode::delta, archive, [](auto &now, auto &) { now.backup.password = "p"; },
          "archive auto-backup path tftp 0.0.0.0 \n"},
         {"behind the end of the texts", Mode::delta, archive, backupChanged([](BackupConfig &it) {
              it.path.characters[55] = 'x';
              it.user.characters[23] = 'x';
              it.password.characters[23] = 'x';
          }),
          ""},
         {"last character of the path", Mode::delta, archive,
          [](auto &now, auto &then) {
              now.backup.path = then.backup.path = letters(56).c_str();
              now.backup.path.characters[55] = '!';
          },
          "archive auto-backup path tftp 0.0.0.0 " + letters(55) + "!\n"},
         {"last character of the user", Mode::delta, archive,
          [](auto &now, auto &then) {
              now.backup.user = then.backup.user = letters(24).c_str();
              now.backup.user.characters[23] = '!';
          },
          "archive auto-backup path tftp 0.0.0.0 \n"},
         {"last character of the password", Mode::delta, archive,
          [](auto &now, auto &then) {
              now.backup.password = then.backup.password = letters(24).c_str();
              now.backup.password.characters[23] = '!';
          },
          "archive auto-backup path tftp 0.0.0.0 \n"},
         {"reserved bytes", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.reserved2.bytes[1] = 1; }),
          ""},
         {"order", Mode::delta, archive, [](auto &now, auto &) { now.backup = someBackup(); },
          archiveText("ftp 198.51.100.21 switch.cfg backup safe")},
     }));

ROWS(Management,
     ({
         {"console zero", Mode::full, console, [](auto &, auto &then) { then.console = someConsole(); },
          "management console timeout 0\nmanagement telnet port 0\n"},
         {"console in minutes", Mode::full, console, [](auto &now, auto &) { now.console = someConsole(); },
          "management console timeout 5 min\nmanagement telnet port 23\n"},
         {"console 0 minutes", Mode::full, console, [](auto &now, auto &) { now.console.timeoutInMinutes = 256; },
          "management console timeout 0 min\nmanagement telnet port 0\n"},
         {"console negative", Mode::full, console,
          [](auto &now, auto &) {
              now.console.timeout = -1;
              now.console.telnetPort = -23;
          },
          "management console timeout -1\nmanagement telnet port -23\n"},
         {"console places", Mode::full, console,
          [](auto &now, auto &) {
              bytesAt(now, 1632)[7] = 7;
              bytesAt(now, 1632)[15] = 15;
              bytesAt(now, 1632)[44] = 1;
          },
          "management console timeout 15 min\nmanagement telnet port 7\n"},
         {"console equal", Mode::delta, console, consoleChanged([](ConsoleConfig &) {}), ""},
         {"console timeout", Mode::delta, console, consoleChanged([](ConsoleConfig &it) { it.timeout = 6; }),
          "management console timeout 6 min\n"},
         {"console unit", Mode::delta, console, consoleChanged([](ConsoleConfig &it) { it.timeoutInMinutes = 0; }),
          "management console timeout 5\n"},
         {"console unit otherwise", Mode::delta, console,
          consoleChanged([](ConsoleConfig &it) { it.timeoutInMinutes = 2; }), "management console timeout 5 min\n"},
         {"console telnet port", Mode::delta, console, consoleChanged([](ConsoleConfig &it) { it.telnetPort = -1; }),
          "management telnet port -1\n"},
         {"console order", Mode::delta, console, [](auto &now, auto &) { now.console = someConsole(); },
          "management console timeout 5 min\nmanagement telnet port 23\n"},
         {"console other bytes", Mode::delta, console, consoleChanged([](ConsoleConfig &it) {
              it.reserved0.bytes[3] = it.reserved8.bytes[0] = it.reserved16.bytes[27] = it.reserved52.bytes[0] = 1;
              it.webTimeout = 1;
          }),
          ""},

         {"service zero", Mode::full, service,
          [](auto &, auto &then) {
              then.service = someService();
              then.console = someConsole();
          },
          "no management ssh\nno management telnet\nno management web\nmanagement web timeout 0\n"},
         {"service telnet", Mode::full, service,
          [](auto &now, auto &) {
              now.service = someService();
              now.console = someConsole();
          },
          "management telnet\nmanagement web\nmanagement web timeout 300\n"},
         {"service ssh", Mode::full, service, [](auto &now, auto &) { now.service.remoteLogin = 2; },
          "management ssh\nno management web\nmanagement web timeout 0\n"},
         {"service login mode 3", Mode::full, service, [](auto &now, auto &) { now.service.remoteLogin = 3; },
          "no management web\nmanagement web timeout 0\n"},
         {"service login mode 256", Mode::full, service, [](auto &now, auto &) { now.service.remoteLogin = 256; },
          "no management web\nmanagement web timeout 0\n"},
         {"service web by any value", Mode::full, service,
          [](auto &now, auto &) {
              now.service.webEnabled = 128;
              now.console.webTimeout = -1;
          },
          "no management ssh\nno management telnet\nmanagement web\nmanagement web timeout -1\n"},
         {"service places", Mode::full, service,
          [](auto &now, auto &) {
              bytesAt(now, 1612)[7] = 2;
              bytesAt(now, 1612)[10] = 1;
              bytesAt(now, 1680)[3] = 80;
          },
          "management ssh\nmanagement web\nmanagement web timeout 80\n"},
         {"service equal", Mode::delta, service, serviceChanged([](ServiceConfig &) {}), ""},
         {"service login off", Mode::delta, service, serviceChanged([](ServiceConfig &it) { it.remoteLogin = 0; }),
          "no management ssh\nno management telnet\n"},
         {"service login ssh", Mode::delta, service, serviceChanged([](ServiceConfig &it) { it.remoteLogin = 2; }),
          "management ssh\n"},
         {"service login telnet", Mode::delta, service, [](auto &now, auto &) { now.service.remoteLogin = 1; },
          "management telnet\n"},
         {"service login mode 3", Mode::delta, service, serviceChanged([](ServiceConfig &it) { it.remoteLogin = 3; }),
          ""},
         {"service web off", Mode::delta, service, serviceChanged([](ServiceConfig &it) { it.webEnabled = 0; }),
          "no management web\n"},
         {"service web otherwise", Mode::delta, service, serviceChanged([](ServiceConfig &it) { it.webEnabled = 2; }),
          "management web\n"},
         {"service web timeout", Mode::delta, service, [](auto &now, auto &) { now.console.webTimeout = 60; },
          "management web timeout 60\n"},
         {"service web timeout cleared", Mode::delta, service, [](auto &, auto &then) { then.console.webTimeout = 60; },
          "management web timeout 0\n"},
         {"service order", Mode::delta, service,
          [](auto &now, auto &) {
              now.service = someService();
              now.console = someConsole();
          },
          "management telnet\nmanagement web\nmanagement web timeout 300\n"},
         {"service other bytes", Mode::delta, service, serviceChanged([](ServiceConfig &it) {
              it.snmpEnabled = it.reserved0.bytes[3] = it.reserved8.bytes[0] = it.reserved11.bytes[0] = 1;
          }),
          ""},
     }));

ROWS(Ntp,
     ({
         {"zero", Mode::full, ntp, [](auto &, auto &then) { then.time = someTime(); }, ntpTextWith("")},
         {"all", Mode::full, ntp, [](auto &now, auto &) { now.time = someTime(); },
          "ntp\nntp daylight-saving recurring\nntp offset 03290200-10250300\nntp server1 198.51.100.11\n"
          "ntp server2 198.51.100.12\nntp syn-interval 24\nntp time-zone -5\n"},
         {"on by any value", Mode::full, ntp, [](auto &now, auto &) { now.time.ntpEnabled = 256; },
          "ntp\nno ntp daylight-saving\nno ntp server1 \nno ntp server2 \nntp syn-interval 0\nntp time-zone 0\n"},
         {"daylight saving by date", Mode::full, ntp, [](auto &now, auto &) { now.time.daylightSaving = 2; },
          "no ntp\nntp daylight-saving date\nno ntp server1 \nno ntp server2 \nntp syn-interval 0\nntp time-zone 0\n"},
         {"daylight saving 257", Mode::full, ntp, [](auto &now, auto &) { now.time.daylightSaving = 257; },
          "no ntp\nntp daylight-saving date\nno ntp server1 \nno ntp server2 \nntp syn-interval 0\nntp time-zone 0\n"},
         {"offset", Mode::full, ntp, onlyOffset("abcd-efgh"), ntpTextWith("ntp offset ab-ef\n")},
         {"offset without dash", Mode::full, ntp, onlyOffset("0100"), ntpTextWith("ntp offset \n")},
         {"offset of one character", Mode::full, ntp, onlyOffset("x"), ntpTextWith("ntp offset \n")},
         {"offset of a dash", Mode::full, ntp, onlyOffset("-"), ntpTextWith("ntp offset \n")},
         {"offset of a dash and one character", Mode::full, ntp, onlyOffset("-a"), ntpTextWith("ntp offset \n")},
         {"offset of a dash and two characters", Mode::full, ntp, onlyOffset("-ab"), ntpTextWith("ntp offset -\n")},
         {"offset beginning with the dash", Mode::full, ntp, onlyOffset("-abcd"), ntpTextWith("ntp offset -ab\n")},
         {"offset with one character before the dash", Mode::full, ntp, onlyOffset("a-bcd"),
          ntpTextWith("ntp offset -b\n")},
         {"offset with two characters before the dash", Mode::full, ntp, onlyOffset("ab-cde"),
          ntpTextWith("ntp offset -c\n")},
         {"offset with three characters before the dash", Mode::full, ntp, onlyOffset("abc-def"),
          ntpTextWith("ntp offset a-d\n")},
         {"offset ending in the dash", Mode::full, ntp, onlyOffset("abcd-"), ntpTextWith("ntp offset ab\n")},
         {"offset with two dashes", Mode::full, ntp, onlyOffset("abc-def-ghi"), ntpTextWith("ntp offset a-def-g\n")},
         {"offset with dashes in a row", Mode::full, ntp, onlyOffset("abc--"), ntpTextWith("ntp offset a\n")},
         {"full offset", Mode::full, ntp, onlyOffset(letters(15) + "-" + letters(16)),
          ntpTextWith("ntp offset " + letters(13) + "-" + letters(14) + "\n")},
         {"full offset without dash, one behind it", Mode::full, ntp,
          [](auto &now, auto &) {
              now.time.offset = letters(32).c_str();
              now.time.server1Ipv6.octets[0] = '-';
          },
          "no ntp\nno ntp daylight-saving\nntp offset \nntp server1 2d00::\nno ntp server2 \nntp syn-interval 0\n"
          "ntp time-zone 0\n"},
         {"dash in the last place", Mode::full, ntp, onlyOffset(letters(31) + "-"),
          ntpTextWith("ntp offset " + letters(29) + "\n")},
         {"dash behind the end of the offset", Mode::full, ntp,
          [](auto &now, auto &) {
              now.time.offset = "abcd";
              now.time.offset.characters[6] = '-';
          },
          ntpTextWith("ntp offset \n")},
         {"IPv4 first", Mode::full, ntp,
          [](auto &now, auto &) {
              now.time.server1 = {{192, 0, 2, 1}};
              now.time.server2 = {{192, 0, 2, 2}};
              now.time.server1Ipv6 = now.time.server2Ipv6 = someIpv6;
          },
          "no ntp\nno ntp daylight-saving\nntp server1 192.0.2.1\nntp server2 192.0.2.2\nntp syn-interval 0\n"
          "ntp time-zone 0\n"},
         {"IPv6 without IPv4", Mode::full, ntp,
          [](auto &now, auto &) {
              now.time.server1Ipv6 = now.time.server2Ipv6 = someIpv6;
              now.time.server2Ipv6.octets[15] = 0x16;
          },
          "no ntp\nno ntp daylight-saving\nntp server1 2001:db8::15\nntp server2 2001:db8::16\nntp syn-interval 0\n"
          "ntp time-zone 0\n"},
         {"places", Mode::full, ntp,
          [](auto &now, auto &) {
              u8 *const bytes = bytesAt(now, 0);
              bytes[3] = 1;
              bytes[7] = 77;
              bytes[8] = 8;
              bytes[11] = 11;
              bytes[73] = 73;
              bytes[76] = 76;
              for (int i = 172; i < 176; ++i) bytes[i] = 0xff;
              bytes[183] = 1;
              std::memcpy(bytes + 184, "abc-def", 7);
          },
          "ntp\nntp daylight-saving recurring\nntp offset a-d\nntp server1 8.0.0.11\nntp server2 73.0.0.76\n"
          "ntp syn-interval 77\nntp time-zone -1\n"},
         {"places of IPv6", Mode::full, ntp,
          [](auto &now, auto &) {
              u8 *const bytes = bytesAt(now, 0);
              bytes[216] = 0x21;
              bytes[231] = 0x31;
              bytes[281] = 0x28;
              bytes[296] = 0x96;
          },
          "no ntp\nno ntp daylight-saving\nntp server1 2100::31\nntp server2 2800::96\nntp syn-interval 0\n"
          "ntp time-zone 0\n"},
         {"extremes", Mode::full, ntp,
          [](auto &now, auto &) {
              now.time.syncInterval = -1;
              now.time.timeZone = 2147483647;
          },
          "no ntp\nno ntp daylight-saving\nno ntp server1 \nno ntp server2 \nntp syn-interval -1\n"
          "ntp time-zone 2147483647\n"},

         {"equal", Mode::delta, ntp, timeChanged([](TimeConfig &) {}), ""},
         {"off", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.ntpEnabled = 0; }), "no ntp\n"},
         {"on otherwise", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.ntpEnabled = 2; }), "ntp\n"},
         {"daylight saving off", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.daylightSaving = 0; }),
          "no ntp daylight-saving\n"},
         {"daylight saving by date", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.daylightSaving = 2; }),
          "ntp daylight-saving date\n"},
         {"daylight saving recurring", Mode::delta, ntp, [](auto &now, auto &) { now.time.daylightSaving = 1; },
          "ntp daylight-saving recurring\n"},
         {"offset", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.offset = "abc-def"; }), "ntp offset a-d\n"},
         {"offset without dash", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.offset = "abc"; }),
          "ntp offset \n"},
         {"offset cleared", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.offset = ""; }), ""},
         {"behind the end of the offset", Mode::delta, ntp,
          timeChanged([](TimeConfig &it) { it.offset.characters[31] = 'x'; }), ""},
         {"last character of the offset", Mode::delta, ntp,
          [](auto &now, auto &then) {
              now.time.offset = then.time.offset = letters(32).c_str();
              now.time.offset.characters[31] = '-';
          },
          "ntp offset " + letters(29) + "\n"},
         {"server 1", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.server1.octets[3] = 1; }),
          "ntp server1 198.51.100.1\n"},
         {"server 1 cleared", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.server1 = {}; }),
          "no ntp server1\n"},
         {"server 1 IPv6", Mode::delta, ntp, timeChanged([](TimeConfig &it) {
              it.server1 = {};
              it.server1Ipv6 = someIpv6;
          }),
          "ntp server1 2001:db8::15\n"},
         {"server 2", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.server2.octets[0] = 1; }),
          "ntp server2 1.51.100.12\n"},
         {"server 2 cleared", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.server2 = {}; }),
          "no ntp server2\n"},
         {"server 2 IPv6", Mode::delta, ntp, timeChanged([](TimeConfig &it) {
              it.server2 = {};
              it.server2Ipv6 = someIpv6;
          }),
          "ntp server2 2001:db8::15\n"},
         {"IPv6 behind IPv4", Mode::delta, ntp,
          timeChanged([](TimeConfig &it) { it.server1Ipv6 = it.server2Ipv6 = someIpv6; }), ""},
         {"interval", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.syncInterval = -1; }),
          "ntp syn-interval -1\n"},
         {"time zone", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.timeZone = -11; }), "ntp time-zone -11\n"},
         {"order", Mode::delta, ntp, [](auto &now, auto &) { now.time = someTime(); },
          "ntp\nntp daylight-saving recurring\nntp offset 03290200-10250300\nntp server1 198.51.100.11\n"
          "ntp server2 198.51.100.12\nntp syn-interval 24\nntp time-zone -5\n"},
         {"reserved bytes", Mode::delta, ntp, timeChanged([](TimeConfig &it) {
              std::memset(&it.reserved12, 1, sizeof it.reserved12);
              std::memset(&it.reserved77, 1, sizeof it.reserved77);
              std::memset(&it.reserved176, 1, sizeof it.reserved176);
              std::memset(&it.reserved232, 1, sizeof it.reserved232);
              std::memset(&it.reserved297, 1, sizeof it.reserved297);
          }),
          ""},
     }));

ROWS(Switch,
     ({
         {"MTU", Mode::full, mtu, [](auto &now, auto &) { now.switchConfig.mtu = 9216; }, "switch mtu 9216\n"},
         {"MTU zero", Mode::full, mtu, [](auto &, auto &then) { then.switchConfig.mtu = 1; }, "switch mtu 0\n"},
         {"MTU negative", Mode::full, mtu, [](auto &now, auto &) { now.switchConfig.mtu = -2; }, "switch mtu -2\n"},
         {"MTU at its place", Mode::full, mtu, [](auto &now, auto &) { bytesAt(now, 126372)[2] = 2; },
          "switch mtu 512\n"},
         {"MTU", Mode::delta, mtu, [](auto &now, auto &) { now.switchConfig.mtu = -1; }, "switch mtu -1\n"},
         {"MTU equal", Mode::delta, mtu,
          [](auto &now, auto &then) {
              now.switchConfig.mtu = then.switchConfig.mtu = 1522;
              now.switchConfig.macAgingTime = now.switchConfig.terminalLength = 1;
          },
          ""},
         {"polling", Mode::full, polling,
          [](auto &now, auto &) {
              now.statisticsPolling.interval = 5;
              now.statisticsPolling.ports = 7;
          },
          "switch statistics polling port 7 \nswitch statistics polling interval 5 \n"},
         {"polling negative", Mode::full, polling,
          [](auto &now, auto &then) {
              now.statisticsPolling.interval = -5;
              now.statisticsPolling.ports = -7;
              then.statisticsPolling = now.statisticsPolling;
          },
          "switch statistics polling port -7 \nswitch statistics polling interval -5 \n"},
         {"polling at its place", Mode::full, polling,
          [](auto &now, auto &) {
              bytesAt(now, 202712)[3] = 3;
              bytesAt(now, 202712)[7] = 7;
          },
          "switch statistics polling port 7 \nswitch statistics polling interval 3 \n"},
         {"polling equal", Mode::delta, polling,
          [](auto &now, auto &then) { now.statisticsPolling.ports = then.statisticsPolling.ports = 7; }, ""},
         {"polling ports", Mode::delta, polling, [](auto &now, auto &) { now.statisticsPolling.ports = 7; },
          "switch statistics polling port 7\n"},
         {"polling interval", Mode::delta, polling, [](auto &now, auto &) { now.statisticsPolling.interval = -5; },
          "switch statistics polling interval -5\n"},
         {"polling order", Mode::delta, polling,
          [](auto &now, auto &) {
              now.statisticsPolling.interval = 5;
              now.statisticsPolling.ports = -7;
          },
          "switch statistics polling port -7\nswitch statistics polling interval 5\n"},
         {"terminal", Mode::full, terminal, [](auto &now, auto &) { now.switchConfig.terminalLength = 40; },
          "terminal length 40\n"},
         {"terminal zero", Mode::full, terminal, [](auto &, auto &then) { then.switchConfig.terminalLength = 40; },
          "terminal length 0\n"},
         {"terminal at its place", Mode::full, terminal, [](auto &now, auto &) { bytesAt(now, 126372)[52] = 0xff; },
          "terminal length -16777216\n"},
         {"terminal", Mode::delta, terminal, [](auto &, auto &then) { then.switchConfig.terminalLength = 40; },
          "terminal length 0\n"},
         {"terminal equal", Mode::delta, terminal,
          [](auto &now, auto &then) {
              now.switchConfig.terminalLength = then.switchConfig.terminalLength = 40;
              now.switchConfig.mtu = 1;
          },
          ""},
     }));

ROWS(Identity,
     ({
         {"zero", Mode::full, company,
          [](auto &, auto &then) {
              then.company = someCompany();
              then.cpuLoadingThreshold = 80;
          },
          "switch-info cpu-loading-threshold 0\n"},
         {"all", Mode::full, company,
          [](auto &now, auto &) {
              now.company = someCompany();
              now.cpuLoadingThreshold = 80;
          },
          "switch-info company-name Example\nswitch-info cpu-loading-threshold 80\nswitch-info dhcp-vendor-id vendor\n"
          "switch-info host-name host\nswitch-info system-contact noc\nswitch-info system-location rack\n"
          "switch-info system-name east\n"},
         {"company name alone", Mode::full, company, [](auto &now, auto &) { now.company.companyName = "x"; },
          "switch-info company-name x\nswitch-info cpu-loading-threshold 0\n"},
         {"vendor alone", Mode::full, company, [](auto &now, auto &) { now.company.dhcpVendorId = "x"; },
          "switch-info cpu-loading-threshold 0\nswitch-info dhcp-vendor-id x\n"},
         {"host name alone", Mode::full, company, [](auto &now, auto &) { now.company.hostName = "x"; },
          "switch-info cpu-loading-threshold 0\nswitch-info host-name x\n"},
         {"contact alone", Mode::full, company, [](auto &now, auto &) { now.company.systemContact = "x"; },
          "switch-info cpu-loading-threshold 0\nswitch-info system-contact x\n"},
         {"location alone", Mode::full, company, [](auto &now, auto &) { now.company.systemLocation = "x"; },
          "switch-info cpu-loading-threshold 0\nswitch-info system-location x\n"},
         {"system name alone", Mode::full, company, [](auto &now, auto &) { now.company.systemName = "x"; },
          "switch-info cpu-loading-threshold 0\nswitch-info system-name x\n"},
         {"threshold is unsigned", Mode::full, company, [](auto &now, auto &) { now.cpuLoadingThreshold = 65535; },
          "switch-info cpu-loading-threshold 65535\n"},
         {"full fields", Mode::full, company,
          [](auto &now, auto &) {
              now.company.companyName = letters(120).c_str();
              now.company.systemContact = letters(56).c_str();
              now.company.systemName = letters(57).substr(1).c_str();
              now.company.systemLocation = letters(58).substr(2).c_str();
              now.company.hostName = letters(32).c_str();
              now.company.dhcpVendorId = letters(596).c_str();
          },
          "switch-info company-name " + letters(120) + "\nswitch-info cpu-loading-threshold 0\n" +
              "switch-info dhcp-vendor-id " + letters(596) + "\nswitch-info host-name " + letters(32) +
              "\nswitch-info system-contact " + letters(56) + "\nswitch-info system-location " + letters(58).substr(2) +
              "\nswitch-info system-name " + letters(57).substr(1) + "\n"},
         {"places", Mode::full, company,
          [](auto &now, auto &) {
              bytesAt(now, 696)[0] = 'c';
              bytesAt(now, 696)[120] = 't';
              bytesAt(now, 696)[176] = 'n';
              bytesAt(now, 696)[232] = 'l';
              bytesAt(now, 696)[288] = 'h';
              bytesAt(now, 696)[320] = 'v';
              bytesAt(now, 207004)[0] = 1;
              bytesAt(now, 207004)[1] = 2;
          },
          "switch-info company-name c\nswitch-info cpu-loading-threshold 258\nswitch-info dhcp-vendor-id v\n"
          "switch-info host-name h\nswitch-info system-contact t\nswitch-info system-location l\n"
          "switch-info system-name n\n"},

         {"equal", Mode::delta, company, companyChanged([](CompanyInfo &) {}), ""},
         {"company name", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.companyName = "x"; }),
          "switch-info company-name x\n"},
         {"company name cleared", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.companyName = ""; }),
          "no switch-info company-name\n"},
         {"threshold", Mode::delta, company, [](auto &now, auto &) { now.cpuLoadingThreshold = 40000; },
          "switch-info cpu-loading-threshold 40000\n"},
         {"threshold cleared", Mode::delta, company, [](auto &, auto &then) { then.cpuLoadingThreshold = 1; },
          "switch-info cpu-loading-threshold 0\n"},
         {"vendor", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.dhcpVendorId = "x"; }),
          "switch-info dhcp-vendor-id x\n"},
         {"vendor cleared", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.dhcpVendorId = ""; }),
          "no switch-info dhcp-vendor-id\n"},
         {"host name", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.hostName = "x"; }),
          "switch-info host-name x\n"},
         {"host name cleared", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.hostName = ""; }),
          "no switch-info host-name\n"},
         {"contact", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.systemContact = "x"; }),
          "switch-info system-contact x\n"},
         {"contact cleared", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.systemContact = ""; }),
          "no switch-info system-contact\n"},
         {"location", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.systemLocation = "x"; }),
          "switch-info system-location x\n"},
         {"location cleared", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.systemLocation = ""; }),
          "no switch-info system-location\n"},
         {"system name", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.systemName = "x"; }),
          "switch-info system-name x\n"},
         {"system name cleared", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.systemName = ""; }),
          "no switch-info system-name\n"},
         {"behind the end of the texts", Mode::delta, company, companyChanged([](CompanyInfo &it) {
              it.companyName.characters[119] = it.systemContact.characters[55] = it.systemName.characters[55] = 'x';
              it.systemLocation.characters[55] = it.hostName.characters[31] = it.dhcpVendorId.characters[595] = 'x';
          }),
          ""},
         {"last characters of the texts", Mode::delta, company,
          [](auto &now, auto &then) {
              CompanyInfo &it = now.company;
              it.companyName = letters(120).c_str();
              it.systemContact = it.systemName = it.systemLocation = letters(56).c_str();
              it.hostName = letters(32).c_str();
              it.dhcpVendorId = letters(596).c_str();
              then.company = it;
              it.companyName.characters[119] = it.systemContact.characters[55] = it.systemName.characters[55] = '!';
              it.systemLocation.characters[55] = it.hostName.characters[31] = it.dhcpVendorId.characters[595] = '!';
          },
          "switch-info company-name " + letters(119) + "!\nswitch-info dhcp-vendor-id " + letters(595) +
              "!\nswitch-info host-name " + letters(31) + "!\nswitch-info system-contact " + letters(55) +
              "!\nswitch-info system-location " + letters(55) + "!\nswitch-info system-name " + letters(55) + "!\n"},
         {"order", Mode::delta, company,
          [](auto &now, auto &) {
              now.company = someCompany();
              now.cpuLoadingThreshold = 80;
          },
          "switch-info company-name Example\nswitch-info cpu-loading-threshold 80\nswitch-info dhcp-vendor-id vendor\n"
          "switch-info host-name host\nswitch-info system-contact noc\nswitch-info system-location rack\n"
          "switch-info system-name east\n"},
     }));

ROWS(Syslog, ({
                 {"zero", Mode::full, syslog,
                  [](auto &, auto &then) {
                      then.log = someLog();
                      then.logTerminalHistory = 1;
                  },
                  "no syslog\nno syslog logging-type terminal-history\n"
                  "no syslog server1 \nno syslog server2 \nno syslog server3 \n"},
                 {"all", Mode::full, syslog,
                  [](auto &now, auto &) {
                      now.log = someLog();
                      now.logTerminalHistory = 256;
                  },
                  "syslog\nsyslog logging-type terminal-history\nsyslog server1 198.51.100.14\n"
                  "syslog server2 198.51.100.15\nsyslog server3 198.51.100.16\n"},
                 {"IPv4 first", Mode::full, syslog,
                  [](auto &now, auto &) {
                      now.log = someLog();
                      for (Ipv6 &server : now.log.serverIpv6) server = someIpv6;
                  },
                  "syslog\nno syslog logging-type terminal-history\nsyslog server1 198.51.100.14\n"
                  "syslog server2 198.51.100.15\nsyslog server3 198.51.100.16\n"},
                 {"IPv6 without IPv4", Mode::full, syslog,
                  [](auto &now, auto &) {
                      now.log.enabled = 128;
                      for (u8 i = 0; i < 3; ++i) {
                          now.log.serverIpv6[i] = someIpv6;
                          now.log.serverIpv6[i].octets[15] = i;
                      }
                  },
                  "syslog\nno syslog logging-type terminal-history\nsyslog server1 2001:db8::\n"
                  "syslog server2 2001:db8::1\nsyslog server3 2001:db8::2\n"},
                 {"places", Mode::full, syslog,
                  [](auto &now, auto &) {
                      u8 *const bytes = bytesAt(now, 146552);
                      for (u8 i = 2; i < 14; ++i) bytes[i] = i;
                      bytesAt(now, 206964)[0] = 1;
                  },
                  "no syslog\nsyslog logging-type terminal-history\nsyslog server1 2.3.4.5\nsyslog server2 6.7.8.9\n"
                  "syslog server3 10.11.12.13\n"},
                 {"places of IPv6", Mode::full, syslog,
                  [](auto &now, auto &) {
                      u8 *const bytes = bytesAt(now, 146552);
                      bytes[0] = 1;
                      for (const int server : {20, 36, 52})
                          bytes[server] = bytes[server + 15] = static_cast<u8>(server);
                  },
                  "syslog\nno syslog logging-type terminal-history\nsyslog server1 1400::14\nsyslog server2 2400::24\n"
                  "syslog server3 3400::34\n"},

                 {"equal", Mode::delta, syslog, logChanged([](LogConfig &) {}), ""},
                 {"off", Mode::delta, syslog, logChanged([](LogConfig &it) { it.enabled = 0; }), "no syslog\n"},
                 {"on otherwise", Mode::delta, syslog, logChanged([](LogConfig &it) { it.enabled = 2; }), "syslog\n"},
                 {"terminal history", Mode::delta, syslog, [](auto &now, auto &) { now.logTerminalHistory = 2; },
                  "syslog logging-type terminal-history\n"},
                 {"terminal history otherwise", Mode::delta, syslog,
                  [](auto &now, auto &then) {
                      now.logTerminalHistory = 2;
                      then.logTerminalHistory = 1;
                  },
                  "syslog logging-type terminal-history\n"},
                 {"terminal history off", Mode::delta, syslog, [](auto &, auto &then) { then.logTerminalHistory = 1; },
                  "no syslog logging-type terminal-history\n"},
                 {"servers", Mode::delta, syslog, logChanged([](LogConfig &it) {
                      for (Ipv4 &server : it.server) server.octets[0] = 1;
                  }),
                  "syslog server1 1.51.100.14\nsyslog server2 1.51.100.15\nsyslog server3 1.51.100.16\n"},
                 {"server 1 cleared", Mode::delta, syslog, logChanged([](LogConfig &it) { it.server[0] = {}; }),
                  "no syslog server1\n"},
                 {"server 2 cleared", Mode::delta, syslog, logChanged([](LogConfig &it) { it.server[1] = {}; }),
                  "no syslog server2\n"},
                 {"server 3 cleared", Mode::delta, syslog, logChanged([](LogConfig &it) { it.server[2] = {}; }),
                  "no syslog server3\n"},
                 {"server 3 IPv6", Mode::delta, syslog, logChanged([](LogConfig &it) {
                      it.server[2] = {};
                      it.serverIpv6[2] = someIpv6;
                  }),
                  "syslog server3 2001:db8::15\n"},
                 {"IPv6 behind IPv4", Mode::delta, syslog, logChanged([](LogConfig &it) {
                      for (Ipv6 &server : it.serverIpv6) server = someIpv6;
                  }),
                  ""},
                 {"reserved bytes", Mode::delta, syslog, logChanged([](LogConfig &it) {
                      it.reserved1.bytes[0] = it.reserved14.bytes[0] = it.reserved68.bytes[0] = 1;
                  }),
                  ""},
                 {"order", Mode::delta, syslog,
                  [](auto &now, auto &) {
                      now.log = someLog();
                      now.logTerminalHistory = 1;
                  },
                  "syslog\nsyslog logging-type terminal-history\nsyslog server1 198.51.100.14\n"
                  "syslog server2 198.51.100.15\nsyslog server3 198.51.100.16\n"},
             }));

// ---------------------------------------------------------------------------------------------------- time ranges

namespace {

/// The absolute start alone, in a range that has no default.
Row start(const char *name, const char *text, const char *written) {
    return {name, Mode::full, timeRanges, onlyRange([text](TimeRange &it) { it.absoluteStart = text; }),
            inFull(std::string("absolute start ") + written + " \n")};
}

/// A periodic range alone, in a range that has no default.
Row periodic(const char *name, const char *from, const char *to, const char *written) {
    return {name, Mode::full, timeRanges, onlyRange([=](TimeRange &it) {
                it.periodic[0].start = from;
                it.periodic[0].end = to;
            }),
            inFull(std::string("periodic ") + written + " \n")};
}

} // namespace

ROWS(TimeRanges,
     ({
         {"none", Mode::full, timeRanges, [](auto &, auto &then) { then.timeRanges[0] = someRange(); }, ""},
         {"name alone", Mode::full, timeRanges, onlyRange([](TimeRange &) {}), "time-range range\nexit \n"},
         {"all", Mode::full, timeRanges, [](auto &now, auto &) { now.timeRanges[0] = someRange(); },
          "time-range range\nabsolute start 08:00 02 jun 2025 \nabsolute end 18:30 30 sep 2026 \n"
          "periodic 08:00 mon to 17:00 fri \nperiodic 10:00 sun to 11:00 sat \n"
          "periodic list 12:00 to 13:00 mon wed \nperiodic list 20:00 to 21:00 sun sat \nexit \n"},
         {"without name", Mode::full, timeRanges,
          [](auto &now, auto &) {
              now.timeRanges[0] = someRange();
              now.timeRanges[0].name = "";
          },
          ""},
         {"first and last slot", Mode::full, timeRanges,
          [](auto &now, auto &) {
              now.timeRanges[9].name = "last";
              now.timeRanges[0].name = "first";
          },
          "time-range first\nexit \ntime-range last\nexit \n"},
         {"full name", Mode::full, timeRanges, [](auto &now, auto &) { now.timeRanges[9].name = letters(40).c_str(); },
          "time-range " + letters(40) + "\nexit \n"},
         {"places", Mode::full, timeRanges,
          [](auto &now, auto &) {
              char *const range = reinterpret_cast<char *>(bytesAt(now, 202992 + 9 * 204));
              std::strcpy(range, "a,1,1,1");
              std::strcpy(range + 32, "b,2,2,2");
              std::strcpy(range + 64, "1,c");
              std::strcpy(range + 80, "2,d");
              std::strcpy(range + 96, "3,e");
              std::strcpy(range + 112, "4,f");
              range[128] = 2;
              std::strcpy(range + 130, "g");
              std::strcpy(range + 138, "h");
              range[146] = 4;
              std::strcpy(range + 148, "i");
              std::strcpy(range + 156, "j");
              std::strcpy(range + 164, "n");
          },
          "time-range n\nabsolute start a 01 jan 1 \nabsolute end b 02 feb 2 \nperiodic c mon to d tue \n"
          "periodic e wed to f thu \nperiodic list g to h mon \nperiodic list i to j tue \nexit \n"},
         {"absolute end alone", Mode::full, timeRanges, onlyRange([](TimeRange &it) { it.absoluteEnd = "1:2,3,4,5"; }),
          inFull("absolute end 1:2 03 apr 5 \n")},
         start("month 0", "08:00,1,0,2025", "08:00 01  2025"),
         start("month 1", "08:00,1,1,2025", "08:00 01 jan 2025"),
         start("month 2", "08:00,1,2,2025", "08:00 01 feb 2025"),
         start("month 3", "08:00,1,3,2025", "08:00 01 mar 2025"),
         start("month 4", "08:00,1,4,2025", "08:00 01 apr 2025"),
         start("month 5", "08:00,1,5,2025", "08:00 01 may 2025"),
         start("month 6", "08:00,1,6,2025", "08:00 01 jun 2025"),
         start("month 7", "08:00,1,7,2025", "08:00 01 jul 2025"),
         start("month 8", "08:00,1,8,2025", "08:00 01 aug 2025"),
         start("month 9", "08:00,1,9,2025", "08:00 01 sep 2025"),
         start("month 10", "08:00,1,10,2025", "08:00 01 oct 2025"),
         start("month 11", "08:00,1,11,2025", "08:00 01 nov 2025"),
         start("month 12", "08:00,1,12,2025", "08:00 01 dec 2025"),
         start("month 13", "08:00,1,13,2025", "08:00 01  2025"),
         start("month minus 1", "08:00,1,-1,2025", "08:00 01  2025"),
         start("month beyond 32 bits", "08:00,1,4294967297,2025", "08:00 01  2025"),
         start("month far below", "08:00,1,-99999999999,2025", "08:00 01  2025"),
         start("day of two digits", "08:00,31,1,2025", "08:00 31 jan 2025"),
         start("day of three digits", "08:00,123,1,2025", "08:00 123 jan 2025"),
         start("day 0", "08:00,0,1,2025", "08:00 00 jan 2025"),
         start("negative day", "08:00,-1,1,2025", "08:00 -1 jan 2025"),
         start("year beyond 32 bits", "08:00,1,1,2147483648", "08:00 01 jan 2147483647"),
         start("year of 32 bits", "08:00,1,1,2147483647", "08:00 01 jan 2147483647"),
         start("year below 32 bits", "08:00,1,1,-2147483649", "08:00 01 jan -2147483648"),
         start("year beyond 64 bits", "0,1,1,99999999999999999999999999", "0 01 jan 2147483647"),
         start("year below 64 bits", "0,1,1,-9999999999999999999999999", "0 01 jan -2147483648"),
         start("the year keeps the rest", "08:00,1,1,2025,7", "08:00 01 jan 2025"),
         start("numbers with blanks, signs and letters", "x, +2x,\t1\n,--9", "x 02 jan 0"),
         start("empty fields", ",,,", " 00  0"),
         start("one field", "abc", "abc 00  0"),
         start("two fields", "abc,12", "abc 12  0"),
         start("three fields", "abc,12,12", "abc 12 dec 0"),
         start("full text", "abcdefghijklmnopqrstuvwx,01,2,20", "abcdefghijklmnopqrstuvwx 01 feb 20"),
         start("full text without comma", "abcdefghijklmnopqrstuvwxyz012345", "abcdefghijklmnopqrstuvwxyz012345 00  0"),
         {"full text beside the next", Mode::full, timeRanges, onlyRange([](TimeRange &it) {
              it.absoluteStart = "abcdefghijklmnopqrstuvwx,01,2,20";
              it.absoluteEnd = "99,1,1,1";
          }),
          inFull("absolute start abcdefghijklmnopqrstuvwx 01 feb 20 \nabsolute end 99 01 jan 1 \n")},

         periodic("weekday 0", "0,a", "1,b", "a sun to b mon"),
         periodic("weekday 2", "2,a", "3,b", "a tue to b wed"),
         periodic("weekday 4", "4,a", "5,b", "a thu to b fri"),
         periodic("weekday 6", "6,a", "7,b", "a sat to b "),
         periodic("weekday minus 1", "-1,a", "-99999999999,b", "a  to b "),
         periodic("weekday beyond 32 bits", "4294967296,a", "8,b", "a  to b "),
         periodic("start alone", "1,08:00", "", "08:00 mon to  sun"),
         periodic("end alone", "", "5,17:00", " sun to 17:00 fri"),
         periodic("the time keeps the rest", "1,a,b", "2,c,", "a,b mon to c, tue"),
         periodic("without comma", "3", "x", " wed to  sun"),
         periodic("full texts", "1,abcdefghijklmn", "2,opqrstuvwxyz01", "abcdefghijklmn mon to opqrstuvwxyz01 tue"),
         {"second periodic range alone", Mode::full, timeRanges,
          onlyRange([](TimeRange &it) { it.periodic[1].start = "6,a"; }), inFull("periodic a sat to  sun \n")},

         {"list without weekdays", Mode::full, timeRanges, onlyRange([](TimeRange &it) { it.list[0].start = "1"; }),
          inFull("periodic list 1 to  \n")},
         {"list with an end alone", Mode::full, timeRanges, onlyRange([](TimeRange &it) { it.list[1].end = "2"; }),
          inFull("periodic list  to 2 \n")},
         {"list of weekdays alone", Mode::full, timeRanges,
          onlyRange([](TimeRange &it) { it.list[0].weekdays.set(1); }), inFull("")},
         {"list of every weekday", Mode::full, timeRanges, onlyRange([](TimeRange &it) {
              it.list[0].weekdays = {{0xff, 0xff}};
              it.list[0].start = "12345678";
              it.list[0].end = "abcdefgh";
          }),
          inFull("periodic list 12345678 to abcdefgh sun mon tue wed thu fri sat \n")},
         {"list of bits that are no weekday", Mode::full, timeRanges, onlyRange([](TimeRange &it) {
              it.list[0].weekdays = {{0x80, 0xff}};
              it.list[0].start = "1";
          }),
          inFull("periodic list 1 to  \n")},

         {"equal", Mode::delta, timeRanges, rangeChanged([](TimeRange &) {}), ""},
         {"new", Mode::delta, timeRanges, [](auto &now, auto &) { now.timeRanges[0] = someRange(); },
          "time-range range\nabsolute start 08:00 02 jun 2025\nabsolute end 18:30 30 sep 2026\n"
          "periodic 08:00 mon to 17:00 fri\nperiodic 10:00 sun to 11:00 sat\n"
          "periodic list 12:00 to 13:00 mon wed \nperiodic list 20:00 to 21:00 sun sat \nexit\n"},
         {"removed", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it = {}; }), ""},
         {"name removed", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.name = ""; }), ""},
         {"renamed", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.name = "other"; }),
          "time-range other\nexit\n"},
         {"first and last slot", Mode::delta, timeRanges,
          [](auto &now, auto &) {
              now.timeRanges[9].name = "last";
              now.timeRanges[0].name = "first";
          },
          "time-range first\nexit\ntime-range last\nexit\n"},
         {"behind the last slot", Mode::full, timeRanges,
          [](auto &now, auto &) { bytesAt(now, 202992 + 10 * 204)[164] = 'x'; }, ""},
         {"behind the last slot", Mode::delta, timeRanges,
          [](auto &now, auto &) { bytesAt(now, 202992 + 10 * 204)[164] = 'x'; }, ""},
         {"first byte", Mode::delta, timeRanges,
          rangeChanged([](TimeRange &it) { it.absoluteStart.characters[0] = '1'; }),
          inDelta("absolute start 18:00 02 jun 2025\n")},
         {"last byte of a name", Mode::delta, timeRanges,
          rangeChanged([](TimeRange &it) { it.name.characters[39] = 'x'; }), inDelta("")},
         {"start", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.absoluteStart = "9,1,0,2"; }),
          inDelta("absolute start 9 01  2\n")},
         {"start cleared", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.absoluteStart = ""; }),
          inDelta("")},
         {"end", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.absoluteEnd = "9,1,12,2"; }),
          inDelta("absolute end 9 01 dec 2\n")},
         {"end cleared", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.absoluteEnd = ""; }),
          inDelta("")},
         {"behind the end of the texts", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) {
              it.absoluteStart.characters[31] = it.absoluteEnd.characters[31] = 'x';
              for (int k = 0; k < 2; ++k) {
                  it.periodic[k].start.characters[15] = it.periodic[k].end.characters[15] = 'x';
                  it.list[k].start.characters[7] = it.list[k].end.characters[7] = 'x';
              }
          }),
          inDelta("")},
         {"last characters of the texts", Mode::delta, timeRanges,
          [](auto &now, auto &then) {
              TimeRange &it = now.timeRanges[0];
              it.name = "range";
              it.absoluteStart = it.absoluteEnd = "abcdefghijklmnopqrstuvwx,01,2,20";
              for (int k = 0; k < 2; ++k) {
                  it.periodic[k].start = it.periodic[k].end = "1,abcdefghijklmn";
                  it.list[k].start = it.list[k].end = "12345678";
              }
              then.timeRanges[0] = it;
              it.absoluteStart.characters[31] = it.absoluteEnd.characters[31] = '1';
              it.periodic[0].start.characters[15] = it.periodic[1].end.characters[15] = '!';
              it.list[0].start.characters[7] = it.list[1].end.characters[7] = '9';
          },
          inDelta("absolute start abcdefghijklmnopqrstuvwx 01 feb 21\nabsolute end abcdefghijklmnopqrstuvwx 01 feb 21\n"
                  "periodic abcdefghijklm! mon to abcdefghijklmn mon\n"
                  "periodic abcdefghijklmn mon to abcdefghijklm! mon\n"
                  "periodic list 12345679 to 12345678 \nperiodic list 12345678 to 12345679 \n")},
         {"periodic start", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.periodic[0].start = "2,9"; }),
          inDelta("periodic 9 tue to 17:00 fri\n")},
         {"periodic end", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.periodic[1].end = "2,9"; }),
          inDelta("periodic 10:00 sun to 9 tue\n")},
         {"periodic start cleared", Mode::delta, timeRanges,
          rangeChanged([](TimeRange &it) { it.periodic[0].start = ""; }), inDelta("periodic  sun to 17:00 fri\n")},
         {"periodic end cleared", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.periodic[0].end = ""; }),
          inDelta("periodic 08:00 mon to  sun\n")},
         {"periodic cleared", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.periodic[1] = {}; }),
          inDelta("")},
         {"list start", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.list[0].start = "9"; }),
          inDelta("periodic list 9 to 13:00 mon wed \n")},
         {"list end", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.list[1].end = "9"; }),
          inDelta("periodic list 20:00 to 9 sun sat \n")},
         {"list start cleared", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.list[1].start = ""; }),
          inDelta("periodic list  to 21:00 sun sat \n")},
         {"list cleared", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) { it.list[0] = {}; }), inDelta("")},
         {"weekdays alone", Mode::delta, timeRanges, rangeChanged([](TimeRange &it) {
              it.list[0].weekdays.set(5);
              it.list[1].weekdays = {};
          }),
          inDelta("")},
     }));

/// Any of the 204 bytes of a time range makes it differ.
TEST(TimeRanges, EveryByteCounts) {
    const auto given = [](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults}) image->timeRanges[0] = image->timeRanges[9] = someRange();
    };
    for (const std::size_t at : {std::size_t{202992}, std::size_t{202992 + 9 * 204}})
        expectCounting(timeRanges, given, at, at + 203, {{at, at + 203, "time-range "}});
}

TEST(System, Traces) {
    resetAll();
    for (const Mode mode : {Mode::full, Mode::delta})
        for (const char *step : rendering) {
            gCfgDebug = 1;
            EXPECT_EQ("[" + std::string(step) + "]\n", printedBy([=] { callStep(mode, step); }));
            gCfgDebug = 0;
            EXPECT_EQ("", printedBy([=] { callStep(mode, step); }));
        }
}

TEST(System, SomeStepsOnlyTrace) {
    resetAll();
    std::memset(static_cast<void *>(gSysConfig), 1, sizeof *gSysConfig);
    gCfgDebug = 1;
    for (std::size_t i = 0; i < std::size(traceOnly); ++i) {
        const std::string traced = "[" + std::string(traceOnly[i]) + "]\n";
        EXPECT_EQ(traced, printedBy([=] { callStep(Mode::full, traceOnly[i]); }));
        if (i < 2) EXPECT_THROW(callStep(Mode::delta, traceOnly[i]), std::invalid_argument);
        else EXPECT_EQ(traced, printedBy([=] { callStep(Mode::delta, traceOnly[i]); }));
    }
    EXPECT_STREQ("", Temp_Configuration);
}

TEST(System, ReturnsZero) {
    resetAll();
    const ConfigImage &now = *gSysConfig;
    const ConfigImage &then = *gDefConfig;
    EXPECT_EQ(0, full::convConfigBackupConfig_BackupConfig_configure_archive());
    EXPECT_EQ(0, delta::convConfigBackupConfig_BackupConfig_configure_archive(now.backup, then.backup));
    EXPECT_EQ(0, full::convConfigConsoleConfig_mid_sys_console_cfg_configure_management(now.console));
    EXPECT_EQ(0, delta::convConfigConsoleConfig_mid_sys_console_cfg_configure_management(now.console, then.console));
    EXPECT_EQ(0, full::convConfigServiceConfig_mid_sys_service_cfg_configure_management(now.service));
    EXPECT_EQ(0, delta::convConfigServiceConfig_mid_sys_service_cfg_configure_management(now.service, then.service));
    EXPECT_EQ(0, full::convConfigTimeConfig_mid_sys_time_configure_ntp(now, then));
    EXPECT_EQ(0, delta::convConfigTimeConfig_mid_sys_time_configure_ntp(now, then));
    EXPECT_EQ(0, full::convConfigSwitchConfig_SwitchConfig_configure_switch(now.switchConfig));
    EXPECT_EQ(0, delta::convConfigSwitchConfig_SwitchConfig_configure_switch(now.switchConfig, then.switchConfig));
    EXPECT_EQ(0, full::convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling(now.statisticsPolling));
    EXPECT_EQ(0, delta::convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling(
                     now.statisticsPolling, then.statisticsPolling));
    EXPECT_EQ(0, full::convConfigCompanyInfo_mid_sys_company_info_configure_switch_info(now.company));
    EXPECT_EQ(0, delta::convConfigCompanyInfo_mid_sys_company_info_configure_switch_info(now.company, then.company));
    EXPECT_EQ(0, full::convConfigLogConfig_LogConfig_configure_syslog(now.log));
    EXPECT_EQ(0, delta::convConfigLogConfig_LogConfig_configure_syslog(now.log, then.log));
    EXPECT_EQ(0, full::convConfigterminalConfig_terminalConfig_configure_terminal(now.switchConfig));
    EXPECT_EQ(0,
              delta::convConfigterminalConfig_terminalConfig_configure_terminal(now.switchConfig, then.switchConfig));
    EXPECT_EQ(0, full::convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange(now.timeRanges));
    EXPECT_EQ(0, delta::convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange(now.timeRanges, then.timeRanges));
}

TEST(System, Golden) {
    EXPECT_EQ(golden("system_full.txt"), systemText(Mode::full));
    EXPECT_EQ(golden("system_delta.txt"), systemText(Mode::delta));
}

/// Identity, management, time, SNMP, users and addressing of the built-in store: every emitter has something to write,
/// of the running image and of the running image against the default.
TEST(System, BuiltInStoreHasSomethingForEveryEmitter) {
    for (const Mode mode : {Mode::full, Mode::delta})
        for (const char *step : {archive,
                                 console,
                                 service,
                                 ntp,
                                 mtu,
                                 polling,
                                 company,
                                 syslog,
                                 terminal,
                                 timeRanges,
                                 "convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server",
                                 "convConfigAgent_Agent_configure_snmp_server",
                                 "convConfigTrapDest_TrapDest_configure_snmp_server",
                                 "convConfigTrapConfig_TrapConfig_configure_snmp_server",
                                 "convConfigUser_mid_userauth_index_configure_user",
                                 "convConfigUser_PasswordEncryption_configure_user",
                                 "convConfigRadiusInfo_RadiusInfo_configure_user",
                                 "convConfigTacacsInfo_Tacacs_configure_user",
                                 "convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip",
                                 "convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6"}) {
            resetAll();
            factory::composeBoard(g_EEPROM);
            factory::composeRunning(*gSysConfig);
            factory::composeDefault(*gDefConfig);
            // Not of the store but of the platform: in delta mode, passwords in clear have no line of their own.
            if (std::string(step) == "convConfigUser_PasswordEncryption_configure_user")
                platform.passwordMethod = mode == Mode::delta;
            callStep(mode, step);
            EXPECT_STRNE("", Temp_Configuration) << step;
        }
}
