/// Sections of single settings: each line follows its own field, whatever the others hold.
#include "lines.h"

namespace {

/// A DHCP server: an IPv4 address is kept in the IPv4-mapped form of IPv6.
FieldLine dhcpServer(unsigned index) {
    const std::string number = std::to_string(index + 1);
    const std::string on = "ip dhcp snooping dhcp-server-ip " + number + " ip-address ";
    const std::string off = "no ip dhcp snooping dhcp-server-ip " + number + " ip-address";
    FieldLine line({});
    const auto add = [&](const Ipv6 &octets, const std::string &full, const std::string &delta) {
        line.values.emplace_back([=](ConfigImage &image) { image.dhcpSnooping.servers[index] = octets; }, full, delta);
    };
    add({}, off + " \n", off + "\n");
    for (const Address &address : addresses)
        add(mapped(address.octets), on + address.text + " \n", on + address.text + "\n");
    for (const LongAddress &address : longAddresses)
        add(address.octets, on + address.text + " \n", on + address.text + "\n");
    return line;
}

/// Three addresses on one line, which changes with each of them.
FieldLine managementAddress() {
    FieldLine line({});
    const auto add = [&](const Ipv4 &address, const Ipv4 &mask, const Ipv4 &gateway, const std::string &text) {
        line.values.emplace_back(
            [=](ConfigImage &image) {
                image.ipv4.address = address;
                image.ipv4.mask = mask;
                image.ipv4.gateway = gateway;
            },
            text);
    };
    add({}, {}, {}, "ip address 0.0.0.0 0.0.0.0 0.0.0.0\n");
    for (const Address &address : addresses) {
        add(address.octets, {}, {}, "ip address " + std::string(address.text) + " 0.0.0.0 0.0.0.0\n");
        add({}, address.octets, {}, "ip address 0.0.0.0 " + std::string(address.text) + " 0.0.0.0\n");
        add({}, {}, address.octets, "ip address 0.0.0.0 0.0.0.0 " + std::string(address.text) + "\n");
    }
    return line;
}

FieldLine linkLocal() {
    FieldLine line({});
    const auto add = [&](const Ipv6 &address, u8 length, const std::string &text) {
        line.values.emplace_back(
            [=](ConfigImage &image) {
                image.ipv6.linkLocal = address;
                image.ipv6.linkLocalPrefixLength = length;
            },
            text);
    };
    add({}, 0, "ipv6 address link-local ::/0\n");
    add({}, 7, "ipv6 address link-local ::/7\n");
    add({}, 255, "ipv6 address link-local ::/255\n");
    for (const LongAddress &address : longAddresses)
        add(address.octets, 64, "ipv6 address link-local " + std::string(address.text) + "/64\n");
    return line;
}

FieldLine globalAddress() {
    FieldLine line({});
    const auto add = [&](const Ipv6 &address, u8 length, const Ipv6 &gateway, const std::string &text) {
        line.values.emplace_back(
            [=](ConfigImage &image) {
                image.ipv6.global = address;
                image.ipv6.globalPrefixLength = length;
                image.ipv6.gateway = gateway;
            },
            text);
    };
    add({}, 0, {}, "ipv6 address global ::/0 ::\n");
    add({}, 7, {}, "ipv6 address global ::/7 ::\n");
    add({}, 200, {}, "ipv6 address global ::/200 ::\n");
    for (const LongAddress &address : longAddresses) {
        add(address.octets, 48, {}, "ipv6 address global " + std::string(address.text) + "/48 ::\n");
        add({}, 48, address.octets, "ipv6 address global ::/48 " + std::string(address.text) + "\n");
    }
    return line;
}

FIELD_LINES(
    IpAddressing,
    ({
        {"Ipv4",
         "convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip",
         nullptr,
         {},
         {number(FIELD(ipv4.dhcpMode), {{1, "ip address dhcp\n"},
                                        {0, "no ip address dhcp\n"},
                                        {2, "", "no ip address dhcp\n"},
                                        {0x80, "", "no ip address dhcp\n"},
                                        {0x81, "", "no ip address dhcp\n"}}),
          managementAddress(), flag(FIELD(ipv4.enabled), "ip enable\n", "no ip enable\n")}},
        {"Ipv6",
         "convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6",
         nullptr,
         {},
         {flag(FIELD(ipv6.enabled), "ipv6 enable\n", "no ipv6 enable\n"),
          flag(FIELD(ipv6.autoconfiguration), "ipv6 address autoconfig\n", "no ipv6 address autoconfig\n"), linkLocal(),
          globalAddress(),
          flag(FIELD(ipv6.rapidCommit), "ipv6 address dhcp rapid-commit\n", "no ipv6 address dhcp rapid-commit\n"),
          number(FIELD(ipv6.dhcpMode), {{0, "no ipv6 address dhcp\n"},
                                        {1, "ipv6 address dhcp auto\n"},
                                        {2, "ipv6 address dhcp force\n"},
                                        {3, "no ipv6 address dhcp\n"},
                                        {0x80, "no ipv6 address dhcp\n"},
                                        {0x81, "no ipv6 address dhcp\n"},
                                        {0x82, "no ipv6 address dhcp\n"}})}},
    }));

/// A text of the switch's identity, in a field of `width` bytes. Two of them differ in the last byte alone.
template <class Get> FieldLine identity(Get field, const std::string &keyword, std::size_t width) {
    const std::string filled = letters(width);
    const std::string lastDiffers = letters(width - 1) + "!";
    return text(field, {{"", "", "no switch-info " + keyword + "\n"},
                        {"x", "switch-info " + keyword + " x\n"},
                        {letters(width - 1), "switch-info " + keyword + " " + letters(width - 1) + "\n"},
                        {filled, "switch-info " + keyword + " " + filled + "\n"},
                        {lastDiffers, "switch-info " + keyword + " " + lastDiffers + "\n"}});
}

/// The console's timeout and its unit share a line.
FieldLine consoleTimeout() {
    FieldLine line({});
    const auto add = [&](std::int32_t timeout, std::uint32_t inMinutes, const std::string &text) {
        line.values.emplace_back(
            [=](ConfigImage &image) {
                image.console.timeout = timeout;
                image.console.timeoutInMinutes = inMinutes;
            },
            text);
    };
    add(5, 0, "management console timeout 5\n");
    add(100000, 0, "management console timeout 100000\n");
    add(-5, 0, "management console timeout -5\n");
    for (const std::uint32_t on : {1U, 2U, 0x80U, 0x100U, 0x80000000U})
        add(5, on, "management console timeout 5 min\n");
    add(100000, 1, "management console timeout 100000 min\n");
    return line;
}

FIELD_LINES(
    Identity,
    ({
        {"SwitchInfo",
         "convConfigCompanyInfo_mid_sys_company_info_configure_switch_info",
         nullptr,
         {},
         {identity(FIELD(company.companyName), "company-name", 120),
          number(FIELD(cpuLoadingThreshold), {{7, "switch-info cpu-loading-threshold 7\n"},
                                              {300, "switch-info cpu-loading-threshold 300\n"},
                                              {65535, "switch-info cpu-loading-threshold 65535\n"}}),
          identity(FIELD(company.dhcpVendorId), "dhcp-vendor-id", 596),
          identity(FIELD(company.hostName), "host-name", 32),
          identity(FIELD(company.systemContact), "system-contact", 56),
          identity(FIELD(company.systemLocation), "system-location", 56),
          identity(FIELD(company.systemName), "system-name", 56)}},
        {"Mtu",
         "convConfigSwitchConfig_SwitchConfig_configure_switch",
         nullptr,
         {},
         {number(FIELD(switchConfig.mtu), {{7, "switch mtu 7\n"},
                                           {300, "switch mtu 300\n"},
                                           {100000, "switch mtu 100000\n"},
                                           {-7, "switch mtu -7\n"}})}},
        {"Terminal",
         "convConfigterminalConfig_terminalConfig_configure_terminal",
         nullptr,
         {},
         {number(FIELD(switchConfig.terminalLength), {{7, "terminal length 7\n"},
                                                      {300, "terminal length 300\n"},
                                                      {100000, "terminal length 100000\n"},
                                                      {-7, "terminal length -7\n"}})}},
        {"StatisticsPolling",
         "convConfigSwitchConfig_SwitchConfig_configure_switch_statistics_polling",
         nullptr,
         {},
         {number(FIELD(statisticsPolling.ports),
                 {{7, "switch statistics polling port 7 \n", "switch statistics polling port 7\n"},
                  {300, "switch statistics polling port 300 \n", "switch statistics polling port 300\n"},
                  {-70000, "switch statistics polling port -70000 \n", "switch statistics polling port -70000\n"}}),
          number(FIELD(statisticsPolling.interval),
                 {{8, "switch statistics polling interval 8 \n", "switch statistics polling interval 8\n"},
                  {301, "switch statistics polling interval 301 \n", "switch statistics polling interval 301\n"},
                  {-70001, "switch statistics polling interval -70001 \n",
                   "switch statistics polling interval -70001\n"}})}},
        {"Console",
         "convConfigConsoleConfig_mid_sys_console_cfg_configure_management",
         nullptr,
         {},
         {consoleTimeout(), number(FIELD(console.telnetPort), {{7, "management telnet port 7\n"},
                                                               {300, "management telnet port 300\n"},
                                                               {70000, "management telnet port 70000\n"},
                                                               {-7, "management telnet port -7\n"}})}},
        {"Services",
         "convConfigServiceConfig_mid_sys_service_cfg_configure_management",
         nullptr,
         {},
         {number(FIELD(service.remoteLogin), {{0, "no management ssh\nno management telnet\n"},
                                              {1, "management telnet\n"},
                                              {2, "management ssh\n"},
                                              {3, ""},
                                              {0x80, ""},
                                              {0x100, ""},
                                              {0x80000000, ""},
                                              {0x101, ""},
                                              {0x80000002, ""}}),
          flag(FIELD(service.webEnabled), "management web\n", "no management web\n"),
          number(FIELD(console.webTimeout), {{7, "management web timeout 7\n"},
                                             {300, "management web timeout 300\n"},
                                             {100000, "management web timeout 100000\n"},
                                             {-7, "management web timeout -7\n"}})}},
        {"SnmpService",
         "convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server",
         nullptr,
         {},
         {flag(FIELD(service.snmpEnabled), "snmp-server\n", "no snmp-server\n")}},
    }));

FIELD_LINES(TimeAndLog, ({
                            {"Ntp",
                             "convConfigTimeConfig_mid_sys_time_configure_ntp",
                             nullptr,
                             {},
                             {flag(FIELD(time.ntpEnabled), "ntp\n", "no ntp\n"),
                              number(FIELD(time.daylightSaving), {{0, "no ntp daylight-saving\n"},
                                                                  {1, "ntp daylight-saving recurring\n"},
                                                                  {2, "ntp daylight-saving date\n"},
                                                                  {0x80, "ntp daylight-saving date\n"},
                                                                  {0x100, "ntp daylight-saving date\n"},
                                                                  {0x101, "ntp daylight-saving date\n"},
                                                                  {0x80000000, "ntp daylight-saving date\n"}}),
                              text(FIELD(time.offset),
                                   {{"", ""},
                                    {"plain", "ntp offset \n"},
                                    {"ab..-cd..", "ntp offset ab-cd\n"},
                                    {"0123456789abcd..-0123456789abc..", "ntp offset 0123456789abcd-0123456789abc\n"},
                                    {"0123456789abcd..-0123456789abd..", "ntp offset 0123456789abcd-0123456789abd\n"}}),
                              address(FIELD(time.server1), FIELD(time.server1Ipv6), First::ipv4, "ntp server1 ",
                                      "no ntp server1 \n", "no ntp server1\n"),
                              address(FIELD(time.server2), FIELD(time.server2Ipv6), First::ipv4, "ntp server2 ",
                                      "no ntp server2 \n", "no ntp server2\n"),
                              number(FIELD(time.syncInterval), {{7, "ntp syn-interval 7\n"},
                                                                {300, "ntp syn-interval 300\n"},
                                                                {100000, "ntp syn-interval 100000\n"},
                                                                {-7, "ntp syn-interval -7\n"}}),
                              number(FIELD(time.timeZone), {{8, "ntp time-zone 8\n"},
                                                            {301, "ntp time-zone 301\n"},
                                                            {100001, "ntp time-zone 100001\n"},
                                                            {-8, "ntp time-zone -8\n"}})}},
                            {"Syslog",
                             "convConfigLogConfig_LogConfig_configure_syslog",
                             nullptr,
                             {},
                             {flag(FIELD(log.enabled), "syslog\n", "no syslog\n"),
                              flag(FIELD(logTerminalHistory), "syslog logging-type terminal-history\n",
                                   "no syslog logging-type terminal-history\n"),
                              address(FIELD(log.server[0]), FIELD(log.serverIpv6[0]), First::ipv4, "syslog server1 ",
                                      "no syslog server1 \n", "no syslog server1\n"),
                              address(FIELD(log.server[1]), FIELD(log.serverIpv6[1]), First::ipv4, "syslog server2 ",
                                      "no syslog server2 \n", "no syslog server2\n"),
                              address(FIELD(log.server[2]), FIELD(log.serverIpv6[2]), First::ipv4, "syslog server3 ",
                                      "no syslog server3 \n", "no syslog server3\n")}},
                        }));

/// Server, protocol, path, user and password share a line.
struct Archive {
    std::uint32_t protocol;
    Ipv4 server;
    Ipv6 serverIpv6;
    u8 serverIsIpv6;
    std::string path;
    std::string user;
    std::string password;
    std::string text;
};

FieldLine archivePath(const std::vector<Archive> &all) {
    FieldLine line({});
    for (const Archive &archive : all) {
        line.values.emplace_back(
            [=](ConfigImage &image) {
                image.backup.protocol = archive.protocol;
                image.backup.server = archive.server;
                image.backup.serverIpv6 = archive.serverIpv6;
                image.backup.serverIsIpv6 = archive.serverIsIpv6;
                image.backup.path = archive.path.c_str();
                image.backup.user = archive.user.c_str();
                image.backup.password = archive.password.c_str();
            },
            "archive auto-backup path " + archive.text + "\n");
    }
    return line;
}

/// The server of the archive is compared as a text, so that no two of these may have the same.
std::vector<Archive> archiveServers() {
    std::vector<Archive> all = {{0, {}, {}, 0, "p", "", "", "tftp 0.0.0.0 p"},
                                {0, {}, someLong, 1, "p", "", "", "tftp 2001:db8::9 p"},
                                {0, {{1, 2, 3, 4}}, someLong, 0, "p", "", "", "tftp 1.2.3.4 p"},
                                {0, {{1, 2, 3, 4}}, {}, 1, "p", "", "", "tftp :: p"}};
    for (const Address &address : addresses)
        all.push_back({0, address.octets, {}, 0, "p", "", "", "tftp " + std::string(address.text) + " p"});
    for (const LongAddress &address : longAddresses)
        all.push_back({0, {}, address.octets, 1, "p", "", "", "tftp " + std::string(address.text) + " p"});
    return all;
}

std::vector<Archive> archivePaths() {
    const Ipv4 host = {{192, 0, 2, 1}};
    const std::string path = letters(55);
    const std::string name = letters(23);
    return {
        {0, host, {}, 0, "p", "u", "w", "tftp 192.0.2.1 p"},
        {1, host, {}, 0, "p", "u", "w", "ftp 192.0.2.1 p u w"},
        {2, host, {}, 0, "p", "u", "w", "tftp 192.0.2.1 p"},
        {0x80, host, {}, 0, "p", "u", "w", "tftp 192.0.2.1 p"},
        {0x100, host, {}, 0, "p", "u", "w", "tftp 192.0.2.1 p"},
        {0x101, host, {}, 0, "p", "u", "w", "tftp 192.0.2.1 p"},
        {0x80000000, host, {}, 0, "p", "u", "w", "tftp 192.0.2.1 p"},
        {0x80000001, host, {}, 0, "p", "u", "w", "tftp 192.0.2.1 p"},
        {1, host, {}, 0, path + "1", "u", "", "ftp 192.0.2.1 " + path + "1 u"},
        {1, host, {}, 0, path + "2", "u", "", "ftp 192.0.2.1 " + path + "2 u"},
        {1, host, {}, 0, path, "u", "", "ftp 192.0.2.1 " + path + " u"},
        {1, host, {}, 0, "p", name + "1", "", "ftp 192.0.2.1 p " + name + "1"},
        {1, host, {}, 0, "p", name + "2", "", "ftp 192.0.2.1 p " + name + "2"},
        {1, host, {}, 0, "p", name, "", "ftp 192.0.2.1 p " + name},
        {1, host, {}, 0, path + "1", name + "1", "w", "ftp 192.0.2.1 " + path + "1 " + name + "1 w"},
        {1, host, {}, 0, "p", "u", name + "1", "ftp 192.0.2.1 p u " + name + "1"},
        {1, host, {}, 0, "p", "u", name + "2", "ftp 192.0.2.1 p u " + name + "2"},
        {1, host, {}, 0, "p", "u", name, "ftp 192.0.2.1 p u " + name},
        {1, host, {}, 0, "", "", "", "ftp 192.0.2.1  "},
        {0, host, {}, 0, path + "1", "u", "w", "tftp 192.0.2.1 " + path + "1"},
        {0, host, {}, 0, path + "2", "u", "w", "tftp 192.0.2.1 " + path + "2"},
    };
}

/// Any stored value but zero makes the IPv6 address the server's. It does not count as a difference by itself.
FieldLine ipv6Archive(u8 stored) {
    return archivePath({{0, {{1, 2, 3, 4}}, someLong, stored, "p", "", "", "tftp 2001:db8::9 p"},
                        {0, {{1, 2, 3, 4}}, someLong, 0, "p", "", "", "tftp 1.2.3.4 p"}});
}

FieldLineSet archive(const char *name, const FieldLine &path) {
    return {name,
            "convConfigBackupConfig_BackupConfig_configure_archive",
            nullptr,
            {},
            {flag(FIELD(backup.enabled), "archive auto-backup\n", "no archive auto-backup\n"), path,
             number(FIELD(backup.time), {{7, "archive auto-backup time 7\n"},
                                         {23, "archive auto-backup time 23\n"},
                                         {255, "archive auto-backup time 255\n"}})}};
}

FIELD_LINES(Archive, ({archive("Servers", archivePath(archiveServers())), archive("Paths", archivePath(archivePaths())),
                       archive("Ipv6Server1", ipv6Archive(1)), archive("Ipv6Server2", ipv6Archive(2)),
                       archive("Ipv6Server128", ipv6Archive(0x80))}));

FieldLine secret(const std::string &prefix, Setter<void(ConfigImage &, const char *)> store, std::size_t compared) {
    FieldLine line({});
    for (const std::string &stored :
         {std::string(), std::string("s"), letters(compared - 1), letters(compared - 1) + "!", letters(compared)})
        line.values.emplace_back([=](ConfigImage &image) { store(image, stored.c_str()); }, prefix + stored + "\n");
    return line;
}

FIELD_LINES(
    Authentication,
    ({
        {"Radius",
         "convConfigRadiusInfo_RadiusInfo_configure_user",
         nullptr,
         {},
         {flag(FIELD(radius.enabled), "user radius\n", "no user radius\n"),
          secret(
              "user radius secret ", [](ConfigImage &image, const char *text) { image.radius.secret = text; }, 32),
          number(FIELD(radius.port), {{7, "user radius radius-port 7\n"},
                                      {300, "user radius radius-port 300\n"},
                                      {70000, "user radius radius-port 70000\n"},
                                      {-7, "user radius radius-port -7\n"}}),
          number(FIELD(radius.retryTime), {{8, "user radius retry-time 8\n"},
                                           {127, "user radius retry-time 127\n"},
                                           {-8, "user radius retry-time -8\n"}}),
          address(FIELD(radius.server[0]), FIELD(radius.serverIpv6[0]), First::ipv6, "user radius server1 ",
                  "no user radius server1 \n", "no user radius server1\n"),
          address(FIELD(radius.server[1]), FIELD(radius.serverIpv6[1]), First::ipv6, "user radius server2 ",
                  "no user radius server2 \n", "no user radius server2\n")}},
        {"Tacacs",
         "convConfigTacacsInfo_Tacacs_configure_user",
         nullptr,
         {},
         {flag(FIELD(tacacs.enabled), "user tacacs\n", "no user tacacs\n"),
          secret(
              "user tacacs secret ", [](ConfigImage &image, const char *text) { image.tacacs.secret = text; }, 32),
          number(FIELD(tacacs.port), {{7, "user tacacs tacacs-port 7\n"},
                                      {300, "user tacacs tacacs-port 300\n"},
                                      {70000, "user tacacs tacacs-port 70000\n"},
                                      {-7, "user tacacs tacacs-port -7\n"}}),
          number(FIELD(tacacs.retryTime), {{8, "user tacacs retry-time 8\n"},
                                           {127, "user tacacs retry-time 127\n"},
                                           {-8, "user tacacs retry-time -8\n"}}),
          address(FIELD(tacacs.server[0]), FIELD(tacacs.serverIpv6[0]), First::ipv6, "user tacacs server1 ",
                  "no user tacacs server1 \n", "no user tacacs server1\n"),
          address(FIELD(tacacs.server[1]), FIELD(tacacs.serverIpv6[1]), First::ipv6, "user tacacs server2 ",
                  "no user tacacs server2 \n", "no user tacacs server2\n")}},
    }));

/// The server of 802.1X is always written, the zero address too.
FieldLine dot1xServer() {
    FieldLine line({});
    line.values.emplace_back([](ConfigImage &image) { image.dot1x.server = {}; }, "dot1x server 0.0.0.0\n");
    for (const Address &address : addresses) {
        const Ipv4 octets = address.octets;
        line.values.emplace_back([=](ConfigImage &image) { image.dot1x.server = octets; },
                                 "dot1x server " + std::string(address.text) + "\n");
    }
    return line;
}

/// The index of a storm rate: 0 is off, and only 1 to 21 have a word.
template <class Get> FieldLine stormRate(Get field, const std::string &kind) {
    const std::string on = "security storm-protection " + kind + " ";
    const std::string off = "no security storm-protection " + kind;
    return number(field, {{0, off + " \n", off + "\n"},
                          {1, on + "1\n"},
                          {2, on + "2\n"},
                          {3, on + "4\n"},
                          {21, on + "1024k\n"},
                          {22, on + "unknown\n"},
                          {0x80, on + "unknown\n"},
                          {0x100, on + "unknown\n"},
                          {0x80000000, on + "unknown\n"}});
}

FieldLine remoteId() {
    return text(FIELD(circuitIds.remoteId), {{"", "no ip dhcp snooping remote id\n"},
                                             {"x", "ip dhcp snooping remote id x\n"},
                                             {letters(63), "ip dhcp snooping remote id " + letters(63) + "\n"},
                                             {letters(63) + "!", "ip dhcp snooping remote id " + letters(63) + "!\n"},
                                             {letters(64), "ip dhcp snooping remote id " + letters(64) + "\n"}});
}

FIELD_LINES(Security,
            ({
                {"Dot1x",
                 "convConfigDOT1XConfig_DOT1XConfig_configure_dot1x",
                 nullptr,
                 {},
                 {flag(FIELD(dot1x.enabled), "dot1x\n", "no dot1x\n"),
                  number(FIELD(dot1x.reauthPeriod), {{7, "dot1x reauth-period 7\n"},
                                                     {300, "dot1x reauth-period 300\n"},
                                                     {65535, "dot1x reauth-period 65535\n"}}),
                  flag(FIELD(dot1x.reauthentication), "dot1x reauthentication\n", "no dot1x reauthentication\n"),
                  secret(
                      "dot1x secret ", [](ConfigImage &image, const char *text) { image.dot1x.secret = text; }, 31),
                  dot1xServer(),
                  number(FIELD(dot1x.timeout),
                         {{7, "dot1x timeout 7\n"}, {30, "dot1x timeout 30\n"}, {255, "dot1x timeout 255\n"}})}},
                {"StormProtection",
                 "convConfigStormControl_StormControl_configure_security_storm_control",
                 nullptr,
                 {},
                 {stormRate(FIELD(storm.broadcast), "broadcast"), stormRate(FIELD(storm.multicast), "multicast"),
                  number(FIELD(storm.notificationInterval),
                         {{7, "security storm-protection notification threshold interval 7\n"},
                          {300, "security storm-protection notification threshold interval 300\n"},
                          {100000, "security storm-protection notification threshold interval 100000\n"},
                          {-7, "security storm-protection notification threshold interval -7\n"}}),
                  stormRate(FIELD(storm.unicast), "unicast")}},
                {"PortIsolation",
                 "convConfigPortIsolation_PortIsolation_configure_security_port_isolation",
                 nullptr,
                 {},
                 {always("no security port-isolation up-link-port 1-28 \n"),
                  flag(FIELD(isolation.enabled), "security port-isolation\n", "no security port-isolation\n")}},
                {"MacLimit",
                 "convConfigMacLimit_MacLimit_configure_security_mac_limit",
                 nullptr,
                 {},
                 {flag(FIELD(macLimit.enabled), "security mac-limit\n", "no security mac-limit\n"),
                  number(FIELD(macLimit.notificationInterval),
                         {{7, "security mac-limit notification threshold interval 7\n"},
                          {300, "security mac-limit notification threshold interval 300\n"},
                          {100000, "security mac-limit notification threshold interval 100000\n"},
                          {-7, "security mac-limit notification threshold interval -7\n"}})}},
                {"Pppoe",
                 "convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe",
                 nullptr,
                 {},
                 {flag(FIELD(pppoe.enabled), "ip pppoe intermediate-agent\n", "no ip pppoe intermediate-agent\n")}},
                {"IpSource",
                 "convConfigSwitchConfig_SwitchConfig_configure_ip_source",
                 nullptr,
                 {},
                 {flag(FIELD(ipSource), "ip source\n", "no ip source\n")}},
                {"DhcpSnooping",
                 "convConfigSKAConfig2_SKAConfig2_configure_ip",
                 nullptr,
                 {},
                 {flag(FIELD(dhcpSnooping.enabled), "ip dhcp snooping\n", "no ip dhcp snooping\n"),
                  number(FIELD(dhcpSnooping.initiated), {{7, "ip dhcp snooping initiated 7\n"},
                                                         {300, "ip dhcp snooping initiated 300\n"},
                                                         {65535, "ip dhcp snooping initiated 65535\n"}}),
                  number(FIELD(dhcpSnooping.leased), {{8, "ip dhcp snooping leased 8\n"},
                                                      {301, "ip dhcp snooping leased 301\n"},
                                                      {100000, "ip dhcp snooping leased 100000\n"},
                                                      {-8, "ip dhcp snooping leased -8\n"}}),
                  flag(FIELD(dhcpSnoopingPorts.option), "ip dhcp snooping option\n", "no ip dhcp snooping option\n"),
                  flag(FIELD(circuitIds.remoteInserted), "ip dhcp snooping remote\n", "no ip dhcp snooping remote\n"),
                  flag(FIELD(circuitIds.remoteFormatted), "ip dhcp snooping remote formatted\n",
                       "no ip dhcp snooping remote formatted\n"),
                  remoteId(), always("no ip dhcp snooping dhcp-server\n"),
                  flag(FIELD(dhcpSnooping.checkServerAddress), "ip dhcp snooping dhcp-server-ip\n",
                       "no ip dhcp snooping dhcp-server-ip\n"),
                  dhcpServer(0), dhcpServer(1), dhcpServer(2), dhcpServer(3)}},
            }));

} // namespace
