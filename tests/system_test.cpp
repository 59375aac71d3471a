/// Identity, management services, time, logging and archive.
#include "system_area.h"

using namespace system_area;

ROWS(Archive,
     ({
         {"zero", Mode::full, archive, [](auto &, auto &defaults) { defaults.backup = someBackup(); },
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
          [](auto &current, auto &) {
              u8 *const bytes = bytesAt(current, 207008);
              bytes[1] = 22;
              bytes[7] = 1;
              for (u8 i = 8; i < 28; ++i) bytes[i] = i;
              bytes[29] = 'u';
              bytes[53] = 'p';
              bytes[77] = 'f';
          },
          "no archive auto-backup\narchive auto-backup path ftp 8.9.10.11 f u p\narchive auto-backup time 22\n"},
         {"places with IPv6", Mode::full, archive,
          [](auto &current, auto &) {
              u8 *const bytes = bytesAt(current, 207008);
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
         {"IPv6 server after the flag", Mode::delta, archive,
          backupChanged([](BackupConfig &it) { it.serverIpv6 = {}; }), ""},
         {"IPv4 server after the flag", Mode::delta, archive,
          [](auto &current, auto &defaults) {
              current.backup = defaults.backup = someBackup();
              current.backup.serverIsIpv6 = 1;
              defaults.backup.serverIsIpv6 = 2;
              current.backup.server = {};
          },
          ""},
         {"protocol", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.protocol = 0; }),
          "archive auto-backup path tftp 198.51.100.21 switch.cfg\n"},
         {"protocols that are both TFTP", Mode::delta, archive,
          [](auto &current, auto &defaults) {
              current.backup.protocol = 3;
              defaults.backup.protocol = 2;
          },
          "archive auto-backup path tftp 0.0.0.0 \n"},
         {"path", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.path = ""; }),
          "archive auto-backup path ftp 198.51.100.21  backup safe\n"},
         {"user", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.user = "u"; }),
          "archive auto-backup path ftp 198.51.100.21 switch.cfg u safe\n"},
         {"password cleared", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.password = ""; }),
          "archive auto-backup path ftp 198.51.100.21 switch.cfg backup\n"},
         {"password of TFTP", Mode::delta, archive, [](auto &current, auto &) { current.backup.password = "p"; },
          "archive auto-backup path tftp 0.0.0.0 \n"},
         {"after the end of the texts", Mode::delta, archive, backupChanged([](BackupConfig &it) {
              it.path.characters[55] = 'x';
              it.user.characters[23] = 'x';
              it.password.characters[23] = 'x';
          }),
          ""},
         {"last character of the path", Mode::delta, archive,
          [](auto &current, auto &defaults) {
              current.backup.path = defaults.backup.path = letters(56).c_str();
              current.backup.path.characters[55] = '!';
          },
          "archive auto-backup path tftp 0.0.0.0 " + letters(55) + "!\n"},
         {"last character of the user", Mode::delta, archive,
          [](auto &current, auto &defaults) {
              current.backup.user = defaults.backup.user = letters(24).c_str();
              current.backup.user.characters[23] = '!';
          },
          "archive auto-backup path tftp 0.0.0.0 \n"},
         {"last character of the password", Mode::delta, archive,
          [](auto &current, auto &defaults) {
              current.backup.password = defaults.backup.password = letters(24).c_str();
              current.backup.password.characters[23] = '!';
          },
          "archive auto-backup path tftp 0.0.0.0 \n"},
         {"reserved bytes", Mode::delta, archive, backupChanged([](BackupConfig &it) { it.reserved2.bytes[1] = 1; }),
          ""},
         {"order", Mode::delta, archive, [](auto &current, auto &) { current.backup = someBackup(); },
          archiveText("ftp 198.51.100.21 switch.cfg backup safe")},
     }));

ROWS(Management,
     ({
         {"console zero", Mode::full, console, [](auto &, auto &defaults) { defaults.console = someConsole(); },
          "management console timeout 0\nmanagement telnet port 0\n"},
         {"console in minutes", Mode::full, console, [](auto &current, auto &) { current.console = someConsole(); },
          "management console timeout 5 min\nmanagement telnet port 23\n"},
         {"console 0 minutes", Mode::full, console,
          [](auto &current, auto &) { current.console.timeoutInMinutes = 256; },
          "management console timeout 0 min\nmanagement telnet port 0\n"},
         {"console negative", Mode::full, console,
          [](auto &current, auto &) {
              current.console.timeout = -1;
              current.console.telnetPort = -23;
          },
          "management console timeout -1\nmanagement telnet port -23\n"},
         {"console places", Mode::full, console,
          [](auto &current, auto &) {
              bytesAt(current, 1632)[7] = 7;
              bytesAt(current, 1632)[15] = 15;
              bytesAt(current, 1632)[44] = 1;
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
         {"console order", Mode::delta, console, [](auto &current, auto &) { current.console = someConsole(); },
          "management console timeout 5 min\nmanagement telnet port 23\n"},
         {"console other bytes", Mode::delta, console, consoleChanged([](ConsoleConfig &it) {
              it.reserved0.bytes[3] = it.reserved8.bytes[0] = it.reserved16.bytes[27] = it.reserved52.bytes[0] = 1;
              it.webTimeout = 1;
          }),
          ""},

         {"service zero", Mode::full, service,
          [](auto &, auto &defaults) {
              defaults.service = someService();
              defaults.console = someConsole();
          },
          "no management ssh\nno management telnet\nno management web\nmanagement web timeout 0\n"},
         {"service telnet", Mode::full, service,
          [](auto &current, auto &) {
              current.service = someService();
              current.console = someConsole();
          },
          "management telnet\nmanagement web\nmanagement web timeout 300\n"},
         {"service ssh", Mode::full, service, [](auto &current, auto &) { current.service.remoteLogin = 2; },
          "management ssh\nno management web\nmanagement web timeout 0\n"},
         {"service login mode 3", Mode::full, service, [](auto &current, auto &) { current.service.remoteLogin = 3; },
          "no management web\nmanagement web timeout 0\n"},
         {"service login mode 256", Mode::full, service,
          [](auto &current, auto &) { current.service.remoteLogin = 256; },
          "no management web\nmanagement web timeout 0\n"},
         {"service web by any value", Mode::full, service,
          [](auto &current, auto &) {
              current.service.webEnabled = 128;
              current.console.webTimeout = -1;
          },
          "no management ssh\nno management telnet\nmanagement web\nmanagement web timeout -1\n"},
         {"service places", Mode::full, service,
          [](auto &current, auto &) {
              bytesAt(current, 1612)[7] = 2;
              bytesAt(current, 1612)[10] = 1;
              bytesAt(current, 1680)[3] = 80;
          },
          "management ssh\nmanagement web\nmanagement web timeout 80\n"},
         {"service equal", Mode::delta, service, serviceChanged([](ServiceConfig &) {}), ""},
         {"service login off", Mode::delta, service, serviceChanged([](ServiceConfig &it) { it.remoteLogin = 0; }),
          "no management ssh\nno management telnet\n"},
         {"service login ssh", Mode::delta, service, serviceChanged([](ServiceConfig &it) { it.remoteLogin = 2; }),
          "management ssh\n"},
         {"service login telnet", Mode::delta, service, [](auto &current, auto &) { current.service.remoteLogin = 1; },
          "management telnet\n"},
         {"service login mode 3", Mode::delta, service, serviceChanged([](ServiceConfig &it) { it.remoteLogin = 3; }),
          ""},
         {"service web off", Mode::delta, service, serviceChanged([](ServiceConfig &it) { it.webEnabled = 0; }),
          "no management web\n"},
         {"service web otherwise", Mode::delta, service, serviceChanged([](ServiceConfig &it) { it.webEnabled = 2; }),
          "management web\n"},
         {"service web timeout", Mode::delta, service, [](auto &current, auto &) { current.console.webTimeout = 60; },
          "management web timeout 60\n"},
         {"service web timeout cleared", Mode::delta, service,
          [](auto &, auto &defaults) { defaults.console.webTimeout = 60; }, "management web timeout 0\n"},
         {"service order", Mode::delta, service,
          [](auto &current, auto &) {
              current.service = someService();
              current.console = someConsole();
          },
          "management telnet\nmanagement web\nmanagement web timeout 300\n"},
         {"service other bytes", Mode::delta, service, serviceChanged([](ServiceConfig &it) {
              it.snmpEnabled = it.reserved0.bytes[3] = it.reserved8.bytes[0] = it.reserved11.bytes[0] = 1;
          }),
          ""},
     }));

ROWS(Ntp,
     ({
         {"zero", Mode::full, ntp, [](auto &, auto &defaults) { defaults.time = someTime(); }, ntpTextWith("")},
         {"all", Mode::full, ntp, [](auto &current, auto &) { current.time = someTime(); },
          "ntp\nntp daylight-saving recurring\nntp offset 03290200-10250300\nntp server1 198.51.100.11\n"
          "ntp server2 198.51.100.12\nntp syn-interval 24\nntp time-zone -5\n"},
         {"on by any value", Mode::full, ntp, [](auto &current, auto &) { current.time.ntpEnabled = 256; },
          "ntp\nno ntp daylight-saving\nno ntp server1 \nno ntp server2 \nntp syn-interval 0\nntp time-zone 0\n"},
         {"daylight saving by date", Mode::full, ntp, [](auto &current, auto &) { current.time.daylightSaving = 2; },
          "no ntp\nntp daylight-saving date\nno ntp server1 \nno ntp server2 \nntp syn-interval 0\nntp time-zone 0\n"},
         {"daylight saving 257", Mode::full, ntp, [](auto &current, auto &) { current.time.daylightSaving = 257; },
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
         {"full offset without dash, one after it", Mode::full, ntp,
          [](auto &current, auto &) {
              current.time.offset = letters(32).c_str();
              current.time.server1Ipv6.octets[0] = '-';
          },
          "no ntp\nno ntp daylight-saving\nntp offset \nntp server1 2d00::\nno ntp server2 \nntp syn-interval 0\n"
          "ntp time-zone 0\n"},
         {"dash in the last place", Mode::full, ntp, onlyOffset(letters(31) + "-"),
          ntpTextWith("ntp offset " + letters(29) + "\n")},
         {"dash after the end of the offset", Mode::full, ntp,
          [](auto &current, auto &) {
              current.time.offset = "abcd";
              current.time.offset.characters[6] = '-';
          },
          ntpTextWith("ntp offset \n")},
         {"IPv4 first", Mode::full, ntp,
          [](auto &current, auto &) {
              current.time.server1 = {{192, 0, 2, 1}};
              current.time.server2 = {{192, 0, 2, 2}};
              current.time.server1Ipv6 = current.time.server2Ipv6 = someIpv6;
          },
          "no ntp\nno ntp daylight-saving\nntp server1 192.0.2.1\nntp server2 192.0.2.2\nntp syn-interval 0\n"
          "ntp time-zone 0\n"},
         {"IPv6 without IPv4", Mode::full, ntp,
          [](auto &current, auto &) {
              current.time.server1Ipv6 = current.time.server2Ipv6 = someIpv6;
              current.time.server2Ipv6.octets[15] = 0x16;
          },
          "no ntp\nno ntp daylight-saving\nntp server1 2001:db8::15\nntp server2 2001:db8::16\nntp syn-interval 0\n"
          "ntp time-zone 0\n"},
         {"places", Mode::full, ntp,
          [](auto &current, auto &) {
              u8 *const bytes = bytesAt(current, 0);
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
          [](auto &current, auto &) {
              u8 *const bytes = bytesAt(current, 0);
              bytes[216] = 0x21;
              bytes[231] = 0x31;
              bytes[281] = 0x28;
              bytes[296] = 0x96;
          },
          "no ntp\nno ntp daylight-saving\nntp server1 2100::31\nntp server2 2800::96\nntp syn-interval 0\n"
          "ntp time-zone 0\n"},
         {"extremes", Mode::full, ntp,
          [](auto &current, auto &) {
              current.time.syncInterval = -1;
              current.time.timeZone = 2147483647;
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
         {"daylight saving recurring", Mode::delta, ntp, [](auto &current, auto &) { current.time.daylightSaving = 1; },
          "ntp daylight-saving recurring\n"},
         {"offset", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.offset = "abc-def"; }), "ntp offset a-d\n"},
         {"offset without dash", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.offset = "abc"; }),
          "ntp offset \n"},
         {"offset cleared", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.offset = ""; }), ""},
         {"after the end of the offset", Mode::delta, ntp,
          timeChanged([](TimeConfig &it) { it.offset.characters[31] = 'x'; }), ""},
         {"last character of the offset", Mode::delta, ntp,
          [](auto &current, auto &defaults) {
              current.time.offset = defaults.time.offset = letters(32).c_str();
              current.time.offset.characters[31] = '-';
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
         {"IPv6 after IPv4", Mode::delta, ntp,
          timeChanged([](TimeConfig &it) { it.server1Ipv6 = it.server2Ipv6 = someIpv6; }), ""},
         {"interval", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.syncInterval = -1; }),
          "ntp syn-interval -1\n"},
         {"time zone", Mode::delta, ntp, timeChanged([](TimeConfig &it) { it.timeZone = -11; }), "ntp time-zone -11\n"},
         {"order", Mode::delta, ntp, [](auto &current, auto &) { current.time = someTime(); },
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
         {"MTU", Mode::full, mtu, [](auto &current, auto &) { current.switchConfig.mtu = 9216; }, "switch mtu 9216\n"},
         {"MTU zero", Mode::full, mtu, [](auto &, auto &defaults) { defaults.switchConfig.mtu = 1; }, "switch mtu 0\n"},
         {"MTU negative", Mode::full, mtu, [](auto &current, auto &) { current.switchConfig.mtu = -2; },
          "switch mtu -2\n"},
         {"MTU at its place", Mode::full, mtu, [](auto &current, auto &) { bytesAt(current, 126372)[2] = 2; },
          "switch mtu 512\n"},
         {"MTU", Mode::delta, mtu, [](auto &current, auto &) { current.switchConfig.mtu = -1; }, "switch mtu -1\n"},
         {"MTU equal", Mode::delta, mtu,
          [](auto &current, auto &defaults) {
              current.switchConfig.mtu = defaults.switchConfig.mtu = 1522;
              current.switchConfig.macAgingTime = current.switchConfig.terminalLength = 1;
          },
          ""},
         {"polling", Mode::full, polling,
          [](auto &current, auto &) {
              current.statisticsPolling.interval = 5;
              current.statisticsPolling.ports = 7;
          },
          "switch statistics polling port 7 \nswitch statistics polling interval 5 \n"},
         {"polling negative", Mode::full, polling,
          [](auto &current, auto &defaults) {
              current.statisticsPolling.interval = -5;
              current.statisticsPolling.ports = -7;
              defaults.statisticsPolling = current.statisticsPolling;
          },
          "switch statistics polling port -7 \nswitch statistics polling interval -5 \n"},
         {"polling at its place", Mode::full, polling,
          [](auto &current, auto &) {
              bytesAt(current, 202712)[3] = 3;
              bytesAt(current, 202712)[7] = 7;
          },
          "switch statistics polling port 7 \nswitch statistics polling interval 3 \n"},
         {"polling equal", Mode::delta, polling,
          [](auto &current, auto &defaults) { current.statisticsPolling.ports = defaults.statisticsPolling.ports = 7; },
          ""},
         {"polling ports", Mode::delta, polling, [](auto &current, auto &) { current.statisticsPolling.ports = 7; },
          "switch statistics polling port 7\n"},
         {"polling interval", Mode::delta, polling,
          [](auto &current, auto &) { current.statisticsPolling.interval = -5; },
          "switch statistics polling interval -5\n"},
         {"polling order", Mode::delta, polling,
          [](auto &current, auto &) {
              current.statisticsPolling.interval = 5;
              current.statisticsPolling.ports = -7;
          },
          "switch statistics polling port -7\nswitch statistics polling interval 5\n"},
         {"terminal", Mode::full, terminal, [](auto &current, auto &) { current.switchConfig.terminalLength = 40; },
          "terminal length 40\n"},
         {"terminal zero", Mode::full, terminal,
          [](auto &, auto &defaults) { defaults.switchConfig.terminalLength = 40; }, "terminal length 0\n"},
         {"terminal at its place", Mode::full, terminal,
          [](auto &current, auto &) { bytesAt(current, 126372)[52] = 0xff; }, "terminal length -16777216\n"},
         {"terminal", Mode::delta, terminal, [](auto &, auto &defaults) { defaults.switchConfig.terminalLength = 40; },
          "terminal length 0\n"},
         {"terminal equal", Mode::delta, terminal,
          [](auto &current, auto &defaults) {
              current.switchConfig.terminalLength = defaults.switchConfig.terminalLength = 40;
              current.switchConfig.mtu = 1;
          },
          ""},
     }));

ROWS(Identity,
     ({
         {"zero", Mode::full, company,
          [](auto &, auto &defaults) {
              defaults.company = someCompany();
              defaults.cpuLoadingThreshold = 80;
          },
          "switch-info cpu-loading-threshold 0\n"},
         {"all", Mode::full, company,
          [](auto &current, auto &) {
              current.company = someCompany();
              current.cpuLoadingThreshold = 80;
          },
          "switch-info company-name Example\nswitch-info cpu-loading-threshold 80\nswitch-info dhcp-vendor-id vendor\n"
          "switch-info host-name host\nswitch-info system-contact noc\nswitch-info system-location rack\n"
          "switch-info system-name east\n"},
         {"company name alone", Mode::full, company, [](auto &current, auto &) { current.company.companyName = "x"; },
          "switch-info company-name x\nswitch-info cpu-loading-threshold 0\n"},
         {"vendor alone", Mode::full, company, [](auto &current, auto &) { current.company.dhcpVendorId = "x"; },
          "switch-info cpu-loading-threshold 0\nswitch-info dhcp-vendor-id x\n"},
         {"host name alone", Mode::full, company, [](auto &current, auto &) { current.company.hostName = "x"; },
          "switch-info cpu-loading-threshold 0\nswitch-info host-name x\n"},
         {"contact alone", Mode::full, company, [](auto &current, auto &) { current.company.systemContact = "x"; },
          "switch-info cpu-loading-threshold 0\nswitch-info system-contact x\n"},
         {"location alone", Mode::full, company, [](auto &current, auto &) { current.company.systemLocation = "x"; },
          "switch-info cpu-loading-threshold 0\nswitch-info system-location x\n"},
         {"system name alone", Mode::full, company, [](auto &current, auto &) { current.company.systemName = "x"; },
          "switch-info cpu-loading-threshold 0\nswitch-info system-name x\n"},
         {"threshold is unsigned", Mode::full, company,
          [](auto &current, auto &) { current.cpuLoadingThreshold = 65535; },
          "switch-info cpu-loading-threshold 65535\n"},
         {"full fields", Mode::full, company,
          [](auto &current, auto &) {
              current.company.companyName = letters(120).c_str();
              current.company.systemContact = letters(56).c_str();
              current.company.systemName = letters(57).substr(1).c_str();
              current.company.systemLocation = letters(58).substr(2).c_str();
              current.company.hostName = letters(32).c_str();
              current.company.dhcpVendorId = letters(596).c_str();
          },
          "switch-info company-name " + letters(120) + "\nswitch-info cpu-loading-threshold 0\n" +
              "switch-info dhcp-vendor-id " + letters(596) + "\nswitch-info host-name " + letters(32) +
              "\nswitch-info system-contact " + letters(56) + "\nswitch-info system-location " + letters(58).substr(2) +
              "\nswitch-info system-name " + letters(57).substr(1) + "\n"},
         {"places", Mode::full, company,
          [](auto &current, auto &) {
              bytesAt(current, 696)[0] = 'c';
              bytesAt(current, 696)[120] = 't';
              bytesAt(current, 696)[176] = 'n';
              bytesAt(current, 696)[232] = 'l';
              bytesAt(current, 696)[288] = 'h';
              bytesAt(current, 696)[320] = 'v';
              bytesAt(current, 207004)[0] = 1;
              bytesAt(current, 207004)[1] = 2;
          },
          "switch-info company-name c\nswitch-info cpu-loading-threshold 258\nswitch-info dhcp-vendor-id v\n"
          "switch-info host-name h\nswitch-info system-contact t\nswitch-info system-location l\n"
          "switch-info system-name n\n"},

         {"equal", Mode::delta, company, companyChanged([](CompanyInfo &) {}), ""},
         {"company name", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.companyName = "x"; }),
          "switch-info company-name x\n"},
         {"company name cleared", Mode::delta, company, companyChanged([](CompanyInfo &it) { it.companyName = ""; }),
          "no switch-info company-name\n"},
         {"threshold", Mode::delta, company, [](auto &current, auto &) { current.cpuLoadingThreshold = 40000; },
          "switch-info cpu-loading-threshold 40000\n"},
         {"threshold cleared", Mode::delta, company, [](auto &, auto &defaults) { defaults.cpuLoadingThreshold = 1; },
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
         {"after the end of the texts", Mode::delta, company, companyChanged([](CompanyInfo &it) {
              it.companyName.characters[119] = it.systemContact.characters[55] = it.systemName.characters[55] = 'x';
              it.systemLocation.characters[55] = it.hostName.characters[31] = it.dhcpVendorId.characters[595] = 'x';
          }),
          ""},
         {"last characters of the texts", Mode::delta, company,
          [](auto &current, auto &defaults) {
              CompanyInfo &it = current.company;
              it.companyName = letters(120).c_str();
              it.systemContact = it.systemName = it.systemLocation = letters(56).c_str();
              it.hostName = letters(32).c_str();
              it.dhcpVendorId = letters(596).c_str();
              defaults.company = it;
              it.companyName.characters[119] = it.systemContact.characters[55] = it.systemName.characters[55] = '!';
              it.systemLocation.characters[55] = it.hostName.characters[31] = it.dhcpVendorId.characters[595] = '!';
          },
          "switch-info company-name " + letters(119) + "!\nswitch-info dhcp-vendor-id " + letters(595) +
              "!\nswitch-info host-name " + letters(31) + "!\nswitch-info system-contact " + letters(55) +
              "!\nswitch-info system-location " + letters(55) + "!\nswitch-info system-name " + letters(55) + "!\n"},
         {"order", Mode::delta, company,
          [](auto &current, auto &) {
              current.company = someCompany();
              current.cpuLoadingThreshold = 80;
          },
          "switch-info company-name Example\nswitch-info cpu-loading-threshold 80\nswitch-info dhcp-vendor-id vendor\n"
          "switch-info host-name host\nswitch-info system-contact noc\nswitch-info system-location rack\n"
          "switch-info system-name east\n"},
     }));

ROWS(Syslog,
     ({
         {"zero", Mode::full, syslog,
          [](auto &, auto &defaults) {
              defaults.log = someLog();
              defaults.logTerminalHistory = 1;
          },
          "no syslog\nno syslog logging-type terminal-history\n"
          "no syslog server1 \nno syslog server2 \nno syslog server3 \n"},
         {"all", Mode::full, syslog,
          [](auto &current, auto &) {
              current.log = someLog();
              current.logTerminalHistory = 256;
          },
          "syslog\nsyslog logging-type terminal-history\nsyslog server1 198.51.100.14\n"
          "syslog server2 198.51.100.15\nsyslog server3 198.51.100.16\n"},
         {"IPv4 first", Mode::full, syslog,
          [](auto &current, auto &) {
              current.log = someLog();
              for (Ipv6 &server : current.log.serverIpv6) server = someIpv6;
          },
          "syslog\nno syslog logging-type terminal-history\nsyslog server1 198.51.100.14\n"
          "syslog server2 198.51.100.15\nsyslog server3 198.51.100.16\n"},
         {"IPv6 without IPv4", Mode::full, syslog,
          [](auto &current, auto &) {
              current.log.enabled = 128;
              for (u8 i = 0; i < 3; ++i) {
                  current.log.serverIpv6[i] = someIpv6;
                  current.log.serverIpv6[i].octets[15] = i;
              }
          },
          "syslog\nno syslog logging-type terminal-history\nsyslog server1 2001:db8::\n"
          "syslog server2 2001:db8::1\nsyslog server3 2001:db8::2\n"},
         {"places", Mode::full, syslog,
          [](auto &current, auto &) {
              u8 *const bytes = bytesAt(current, 146552);
              for (u8 i = 2; i < 14; ++i) bytes[i] = i;
              bytesAt(current, 206964)[0] = 1;
          },
          "no syslog\nsyslog logging-type terminal-history\nsyslog server1 2.3.4.5\nsyslog server2 6.7.8.9\n"
          "syslog server3 10.11.12.13\n"},
         {"places of IPv6", Mode::full, syslog,
          [](auto &current, auto &) {
              u8 *const bytes = bytesAt(current, 146552);
              bytes[0] = 1;
              for (const int server : {20, 36, 52}) bytes[server] = bytes[server + 15] = static_cast<u8>(server);
          },
          "syslog\nno syslog logging-type terminal-history\nsyslog server1 1400::14\nsyslog server2 2400::24\n"
          "syslog server3 3400::34\n"},

         {"equal", Mode::delta, syslog, logChanged([](LogConfig &) {}), ""},
         {"off", Mode::delta, syslog, logChanged([](LogConfig &it) { it.enabled = 0; }), "no syslog\n"},
         {"on otherwise", Mode::delta, syslog, logChanged([](LogConfig &it) { it.enabled = 2; }), "syslog\n"},
         {"terminal history", Mode::delta, syslog, [](auto &current, auto &) { current.logTerminalHistory = 2; },
          "syslog logging-type terminal-history\n"},
         {"terminal history otherwise", Mode::delta, syslog,
          [](auto &current, auto &defaults) {
              current.logTerminalHistory = 2;
              defaults.logTerminalHistory = 1;
          },
          "syslog logging-type terminal-history\n"},
         {"terminal history off", Mode::delta, syslog, [](auto &, auto &defaults) { defaults.logTerminalHistory = 1; },
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
         {"IPv6 after IPv4", Mode::delta, syslog, logChanged([](LogConfig &it) {
              for (Ipv6 &server : it.serverIpv6) server = someIpv6;
          }),
          ""},
         {"reserved bytes", Mode::delta, syslog, logChanged([](LogConfig &it) {
              it.reserved1.bytes[0] = it.reserved14.bytes[0] = it.reserved68.bytes[0] = 1;
          }),
          ""},
         {"order", Mode::delta, syslog,
          [](auto &current, auto &) {
              current.log = someLog();
              current.logTerminalHistory = 1;
          },
          "syslog\nsyslog logging-type terminal-history\nsyslog server1 198.51.100.14\n"
          "syslog server2 198.51.100.15\nsyslog server3 198.51.100.16\n"},
     }));

TEST(System, Golden) {
    EXPECT_EQ(golden("system_full.txt"), systemText(Mode::full));
    EXPECT_EQ(golden("system_delta.txt"), systemText(Mode::delta));
}
