#include "byte_changes.h"
#include "rows.h"

#include "sections/snmp.h"

#include <cstring>

namespace {

constexpr const char *service = "convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server";
constexpr const char *agent = "convConfigAgent_Agent_configure_snmp_server";
constexpr const char *destinations = "convConfigTrapDest_TrapDest_configure_snmp_server";
constexpr const char *traps = "convConfigTrapConfig_TrapConfig_configure_snmp_server";

Community someCommunity(const char *name) {
    Community community = {};
    community.inUse = 1;
    community.active = 1;
    community.name = name;
    community.description = "graphs";
    community.level = 2;
    return community;
}

/// One community, the same in both images, then a change of the current one.
auto communityChanged(Setter<void(Community &)> change) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        current.communities[0] = defaults.communities[0] = someCommunity("public");
        change(current.communities[0]);
    };
}

/// A community in the current image alone.
auto onlyCommunity(Setter<void(Community &)> change) {
    return [change](ConfigImage &current, ConfigImage &) {
        current.communities[0] = someCommunity("public");
        change(current.communities[0]);
    };
}

TrapDestination someDestination() {
    TrapDestination destination = {};
    destination.inUse = 1;
    destination.active = 1;
    destination.community = "public";
    destination.address = {{198, 51, 100, 16}};
    return destination;
}

constexpr Ipv6 someIpv6 = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x16}};

/// Destination 3, the same in both images, then a change of the current one.
auto destinationChanged(Setter<void(TrapDestination &)> change) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        current.trapDestinations[2] = defaults.trapDestinations[2] = someDestination();
        change(current.trapDestinations[2]);
    };
}

/// Destination 3 in the current image alone.
auto onlyDestination(Setter<void(TrapDestination &)> change) {
    return [change](ConfigImage &current, ConfigImage &) {
        current.trapDestinations[2] = someDestination();
        change(current.trapDestinations[2]);
    };
}

constexpr std::uint32_t noHardware = 0;
constexpr std::uint32_t poeBoard = 0x100;
constexpr std::uint32_t batteryBoard = 0x40;

/// Every type of trap on, or off, among them those of hardware that the board may lack.
void switchTraps(ConfigImage &image, bool on) {
    const u8 flag = on ? 1 : 0;
    image.traps = {};
    image.traps.coldStart = image.traps.warmStart = image.traps.authFail = image.traps.autoBackup = flag;
    image.traps.batteryMode = image.traps.caseFan = image.traps.cpuLoad = image.traps.macLimit = flag;
    image.traps.stormControl = flag;
    image.traps.portLink.bytes[0] = flag;
    image.poe.traps = flag;
}

/// All types on in the current image, and a change of it, on a board of the given hardware.
auto allOnBut(std::uint32_t capabilities, Setter<void(ConfigImage &)> change) {
    return [=](ConfigImage &current, ConfigImage &) {
        g_EEPROM.capabilities = capabilities;
        switchTraps(current, true);
        change(current);
    };
}
/// All types off in the current image, and a change of it.
auto allOffBut(std::uint32_t capabilities, Setter<void(ConfigImage &)> change) {
    return [=](ConfigImage &current, ConfigImage &) {
        g_EEPROM.capabilities = capabilities;
        change(current);
    };
}

/// Half of the types on in both images, so that neither "all" line applies, and a change of the current one.
auto trapsChanged(std::uint32_t capabilities, Setter<void(ConfigImage &)> change) {
    return [=](ConfigImage &current, ConfigImage &defaults) {
        g_EEPROM.capabilities = capabilities;
        for (ConfigImage *image : {&current, &defaults})
            image->traps.coldStart = image->traps.authFail = image->traps.caseFan = image->traps.macLimit = 1;
        change(current);
    };
}

void composeSnmp(ConfigImage &current, ConfigImage &defaults) {
    current.service.snmpEnabled = 1;
    defaults.communities[0] = someCommunity("public");
    defaults.communities[1] = someCommunity("private");
    current.communities[0] = someCommunity("monitoring");
    current.communities[0].level = 1;
    current.communities[1] = defaults.communities[1];
    current.communities[1].active = 0;
    current.communities[9] = someCommunity("");
    current.communities[9].level = 7;
    current.trapDestinations[0] = someDestination();
    current.trapDestinations[9].inUse = 1;
    current.trapDestinations[9].addressIpv6 = someIpv6;
    defaults.trapDestinations[0] = someDestination();
    defaults.trapDestinations[0].address = {{192, 0, 2, 16}};
    switchTraps(current, true);
    current.traps.authFail = 0;
    current.traps.macLimit = 0;
    defaults.traps.coldStart = defaults.traps.cpuLoad = 1;
}

std::string snmpText(Mode mode, std::uint32_t capabilities) {
    resetAll();
    g_EEPROM.capabilities = capabilities;
    composeSnmp(*gSysConfig, *gDefConfig);
    for (const char *step : {service, agent, destinations, traps}) callStep(mode, step);
    return Temp_Configuration;
}

} // namespace

ROWS(SnmpAgent,
     ({
         {"service off", Mode::full, service, [](auto &, auto &defaults) { defaults.service.snmpEnabled = 1; },
          "no snmp-server\n"},
         {"service on", Mode::full, service, [](auto &current, auto &) { current.service.snmpEnabled = 1; }, "snmp-server\n"},
         {"service on by any value", Mode::full, service, [](auto &current, auto &) { current.service.snmpEnabled = 128; },
          "snmp-server\n"},
         {"service at its place", Mode::full, service,
          [](auto &current, auto &) { reinterpret_cast<u8 *>(&current)[1612 + 9] = 1; }, "snmp-server\n"},
         {"service equal", Mode::delta, service,
          [](auto &current, auto &defaults) {
              current.service.snmpEnabled = defaults.service.snmpEnabled = 1;
              current.service.webEnabled = current.service.reserved8.bytes[0] = 1;
          },
          ""},
         {"service on", Mode::delta, service, [](auto &current, auto &) { current.service.snmpEnabled = 1; }, "snmp-server\n"},
         {"service off", Mode::delta, service, [](auto &, auto &defaults) { defaults.service.snmpEnabled = 1; },
          "no snmp-server\n"},
         {"service on otherwise", Mode::delta, service,
          [](auto &current, auto &defaults) {
              current.service.snmpEnabled = 2;
              defaults.service.snmpEnabled = 1;
          },
          "snmp-server\n"},

         {"no communities", Mode::full, agent, [](auto &, auto &) {}, ""},
         {"a community", Mode::full, agent, onlyCommunity([](Community &) {}),
          "snmp-server community public\nactive\ndescription graphs\nlevel rw\nexit\n"},
         {"factory communities go first", Mode::full, agent,
          [](auto &current, auto &defaults) {
              defaults.communities[0] = current.communities[0] = someCommunity("public");
              defaults.communities[9] = someCommunity("private");
          },
          "no snmp-server community public\nno snmp-server community private\n"
          "snmp-server community public\nactive\ndescription graphs\nlevel rw\nexit\n"},
         {"factory community without name", Mode::full, agent,
          [](auto &, auto &defaults) { defaults.communities[0] = someCommunity(""); }, ""},
         {"factory community not in use", Mode::full, agent,
          [](auto &, auto &defaults) {
              defaults.communities[0] = someCommunity("public");
              defaults.communities[0].inUse = 0;
          },
          ""},
         {"factory community in use by any value", Mode::full, agent,
          [](auto &, auto &defaults) {
              defaults.communities[0] = someCommunity("public");
              defaults.communities[0].inUse = 255;
          },
          "no snmp-server community public\n"},
         {"a community not in use", Mode::full, agent, onlyCommunity([](Community &it) { it.inUse = 0; }), ""},
         {"a community in use by any value", Mode::full, agent, onlyCommunity([](Community &it) { it.inUse = 2; }),
          "snmp-server community public\nactive\ndescription graphs\nlevel rw\nexit\n"},
         {"a community without name keeps its body", Mode::full, agent,
          onlyCommunity([](Community &it) { it.name = ""; }), "active\ndescription graphs\nlevel rw\nexit\n"},
         {"first and last place", Mode::full, agent,
          [](auto &current, auto &) {
              for (int i : {9, 0}) {
                  current.communities[i].inUse = 1;
                  current.communities[i].name = i == 9 ? "last" : "first";
              }
          },
          "snmp-server community first\nno active\nexit\nsnmp-server community last\nno active\nexit\n"},
         {"levels", Mode::full, agent,
          [](auto &current, auto &) {
              for (u8 i = 0; i < 5; ++i) {
                  current.communities[i].inUse = 1;
                  current.communities[i].level = i;
              }
              current.communities[5].inUse = 1;
              current.communities[5].level = 255;
          },
          "no active\nexit\nno active\nlevel ro\nexit\nno active\nlevel rw\nexit\nno active\nlevel admin\nexit\n"
          "no active\nlevel unknown\nexit\nno active\nlevel unknown\nexit\n"},
         {"active by any value", Mode::full, agent, onlyCommunity([](Community &it) { it.active = 64; }),
          "snmp-server community public\nactive\ndescription graphs\nlevel rw\nexit\n"},
         {"full fields", Mode::full, agent, onlyCommunity([](Community &it) {
              it.name = letters(24).c_str();
              it.description = letters(57).c_str();
          }),
          "snmp-server community " + letters(24) + "\nactive\ndescription " + letters(57) + "\nlevel rw\nexit\n"},
         {"full factory name", Mode::full, agent,
          [](auto &, auto &defaults) {
              defaults.communities[0] = someCommunity("");
              defaults.communities[0].name = letters(24).c_str();
          },
          "no snmp-server community " + letters(24) + "\n"},
         {"community places", Mode::full, agent,
          [](auto &current, auto &) {
              u8 *const entry = reinterpret_cast<u8 *>(&current) + 126432 + 9 * 104;
              entry[0] = 1;
              entry[1] = 1;
              entry[2] = 'n';
              entry[26] = 'd';
              entry[83] = 3;
          },
          "snmp-server community n\nactive\ndescription d\nlevel admin\nexit\n"},

         {"communities equal", Mode::delta, agent, communityChanged([](Community &) {}), ""},
         {"new community", Mode::delta, agent, onlyCommunity([](Community &) {}),
          "snmp-server community public\nactive\ndescription graphs\nlevel rw\nexit\n"},
         {"new community at the last place", Mode::delta, agent,
          [](auto &current, auto &) { current.communities[9] = someCommunity("last"); },
          "snmp-server community last\nactive\ndescription graphs\nlevel rw\nexit\n"},
         {"new community without name", Mode::delta, agent, onlyCommunity([](Community &it) { it.name = ""; }), ""},
         {"removed communities of the first and last place", Mode::delta, agent,
          [](auto &, auto &defaults) {
              defaults.communities[9] = someCommunity("last");
              defaults.communities[0] = someCommunity("first");
              defaults.communities[0].inUse = 128;
          },
          "no snmp-server community first\nno snmp-server community last\n"},
         {"removed community keeping its name", Mode::delta, agent, communityChanged([](Community &it) { it.inUse = 0; }),
          ""},
         {"removed community that was not in use", Mode::delta, agent,
          [](auto &, auto &defaults) {
              defaults.communities[0] = someCommunity("public");
              defaults.communities[0].inUse = 0;
          },
          ""},
         {"removed community without name", Mode::delta, agent,
          [](auto &current, auto &defaults) {
              defaults.communities[0] = someCommunity("");
              current.communities[0].name = "free";
          },
          ""},
         {"renamed community", Mode::delta, agent, communityChanged([](Community &it) { it.name = "private"; }),
          "no snmp-server community public\nsnmp-server community private\nexit\n"},
         {"removals first", Mode::delta, agent,
          [](auto &current, auto &defaults) {
              for (int i : {0, 1}) {
                  defaults.communities[i] = someCommunity(i == 0 ? "first" : "second");
                  current.communities[i] = someCommunity(i == 0 ? "one" : "two");
              }
          },
          "no snmp-server community first\nno snmp-server community second\n"
          "snmp-server community one\nexit\nsnmp-server community two\nexit\n"},
         {"last character of the name", Mode::delta, agent,
          [](auto &current, auto &defaults) {
              current.communities[0] = someCommunity("");
              current.communities[0].name = letters(24).c_str();
              defaults.communities[0] = current.communities[0];
              current.communities[0].name.characters[23] = '!';
          },
          "no snmp-server community " + letters(24) + "\nsnmp-server community " + letters(23) + "!\nexit\n"},
         {"after the end of a name", Mode::delta, agent,
          communityChanged([](Community &it) { it.name.characters[7] = 'x'; }), "snmp-server community public\nexit\n"},
         {"in use by another value", Mode::delta, agent, communityChanged([](Community &it) { it.inUse = 2; }),
          "snmp-server community public\nexit\n"},
         {"deactivated", Mode::delta, agent, communityChanged([](Community &it) { it.active = 0; }),
          "snmp-server community public\nno active\nexit\n"},
         {"active otherwise", Mode::delta, agent, communityChanged([](Community &it) { it.active = 2; }),
          "snmp-server community public\nactive\nexit\n"},
         {"description", Mode::delta, agent, communityChanged([](Community &it) { it.description = "else"; }),
          "snmp-server community public\ndescription else\nexit\n"},
         {"description cleared", Mode::delta, agent, communityChanged([](Community &it) { it.description = ""; }),
          "snmp-server community public\nexit\n"},
         {"description differs in its 36th character", Mode::delta, agent,
          [](auto &current, auto &defaults) {
              current.communities[0] = someCommunity("public");
              current.communities[0].description = letters(57).c_str();
              defaults.communities[0] = current.communities[0];
              current.communities[0].description.characters[35] = '!';
          },
          "snmp-server community public\ndescription " + letters(35) + "!" + letters(57).substr(36) + "\nexit\n"},
         {"description differs in its 37th character", Mode::delta, agent,
          [](auto &current, auto &defaults) {
              current.communities[0] = someCommunity("public");
              current.communities[0].description = letters(57).c_str();
              defaults.communities[0] = current.communities[0];
              current.communities[0].description.characters[36] = '!';
          },
          "snmp-server community public\nexit\n"},
         {"level", Mode::delta, agent, communityChanged([](Community &it) { it.level = 1; }),
          "snmp-server community public\nlevel ro\nexit\n"},
         {"level admin", Mode::delta, agent, communityChanged([](Community &it) { it.level = 3; }),
          "snmp-server community public\nlevel admin\nexit\n"},
         {"level unknown", Mode::delta, agent, communityChanged([](Community &it) { it.level = 4; }),
          "snmp-server community public\nlevel unknown\nexit\n"},
         {"level unset", Mode::delta, agent, communityChanged([](Community &it) { it.level = 0; }),
          "snmp-server community public\nexit\n"},
         {"last byte of a community", Mode::delta, agent,
          communityChanged([](Community &it) { it.reserved84.bytes[19] = 1; }), "snmp-server community public\nexit\n"},
         {"order in a community", Mode::delta, agent, communityChanged([](Community &it) {
              it.active = 0;
              it.description = "d";
              it.level = 3;
          }),
          "snmp-server community public\nno active\ndescription d\nlevel admin\nexit\n"},

         {"after the last community", Mode::full, agent,
          [](auto &current, auto &defaults) {
              const Community beyond = someCommunity("beyond");
              std::memcpy(current.reserved127472.bytes, &beyond, sizeof beyond);
              std::memcpy(defaults.reserved127472.bytes, &beyond, sizeof beyond);
          },
          ""},
         {"after the last community", Mode::delta, agent,
          [](auto &current, auto &defaults) {
              const Community beyond = someCommunity("beyond");
              const Community before = someCommunity("before");
              std::memcpy(current.reserved127472.bytes, &beyond, sizeof beyond);
              std::memcpy(defaults.reserved127472.bytes, &before, sizeof before);
          },
          ""},

         {"no destinations", Mode::full, destinations, [](auto &, auto &) {}, ""},
         {"a destination", Mode::full, destinations, onlyDestination([](TrapDestination &) {}),
          "snmp-server trap-destination 3\nactive\ncommunity public\ndestination 198.51.100.16\nexit\n"},
         {"default destinations are not read", Mode::full, destinations,
          [](auto &, auto &defaults) { defaults.trapDestinations[0] = someDestination(); }, ""},
         {"first and last destination", Mode::full, destinations,
          [](auto &current, auto &) {
              current.trapDestinations[0].inUse = 1;
              current.trapDestinations[9].inUse = 128;
          },
          "snmp-server trap-destination 1\nno active\ndestination 0.0.0.0\nexit\n"
          "snmp-server trap-destination 10\nno active\ndestination 0.0.0.0\nexit\n"},
         {"a destination not in use", Mode::full, destinations,
          onlyDestination([](TrapDestination &it) { it.inUse = 0; }), ""},
         {"a destination active by any value", Mode::full, destinations,
          onlyDestination([](TrapDestination &it) { it.active = 2; }),
          "snmp-server trap-destination 3\nactive\ncommunity public\ndestination 198.51.100.16\nexit\n"},
         {"IPv4 first", Mode::full, destinations,
          onlyDestination([](TrapDestination &it) { it.addressIpv6 = someIpv6; }),
          "snmp-server trap-destination 3\nactive\ncommunity public\ndestination 198.51.100.16\nexit\n"},
         {"IPv6 without IPv4", Mode::full, destinations, onlyDestination([](TrapDestination &it) {
              it.address = {};
              it.addressIpv6 = someIpv6;
          }),
          "snmp-server trap-destination 3\nactive\ncommunity public\ndestination 2001:db8::16\nexit\n"},
         {"full community of a destination", Mode::full, destinations,
          onlyDestination([](TrapDestination &it) { it.community = letters(24).c_str(); }),
          "snmp-server trap-destination 3\nactive\ncommunity " + letters(24) + "\ndestination 198.51.100.16\nexit\n"},
         {"destination places", Mode::full, destinations,
          [](auto &current, auto &) {
              u8 *const entry = reinterpret_cast<u8 *>(&current) + 127724;
              for (u8 i = 0; i < 2; ++i) {
                  entry[i * 52] = 1;
                  entry[i * 52 + 1] = i;
                  entry[i * 52 + 2] = 'c';
                  entry[i * 52 + 30] = 0xfe;
                  entry[i * 52 + 45] = 0x45;
              }
              entry[26] = 26;
              entry[29] = 29;
          },
          "snmp-server trap-destination 1\nno active\ncommunity c\ndestination 26.0.0.29\nexit\n"
          "snmp-server trap-destination 2\nactive\ncommunity c\ndestination fe00::45\nexit\n"},

         {"destinations equal", Mode::delta, destinations, destinationChanged([](TrapDestination &) {}), ""},
         {"new destination", Mode::delta, destinations, onlyDestination([](TrapDestination &) {}),
          "snmp-server trap-destination 3\nactive\ncommunity public\ndestination 198.51.100.16\nexit\n"},
         {"first and last destination", Mode::delta, destinations,
          [](auto &current, auto &) {
              current.trapDestinations[0].inUse = 1;
              current.trapDestinations[9].inUse = 2;
          },
          "snmp-server trap-destination 1\nexit\nsnmp-server trap-destination 10\nexit\n"},
         {"removed destination", Mode::delta, destinations, destinationChanged([](TrapDestination &it) { it = {}; }),
          ""},
         {"destination deactivated", Mode::delta, destinations,
          destinationChanged([](TrapDestination &it) { it.active = 0; }),
          "snmp-server trap-destination 3\nno active\nexit\n"},
         {"destination active otherwise", Mode::delta, destinations,
          destinationChanged([](TrapDestination &it) { it.active = 2; }),
          "snmp-server trap-destination 3\nactive\nexit\n"},
         {"community of a destination", Mode::delta, destinations,
          destinationChanged([](TrapDestination &it) { it.community = "other"; }),
          "snmp-server trap-destination 3\ncommunity other\nexit\n"},
         {"community of a destination cleared", Mode::delta, destinations,
          destinationChanged([](TrapDestination &it) { it.community = ""; }), "snmp-server trap-destination 3\nexit\n"},
         {"after the end of a destination's community", Mode::delta, destinations,
          destinationChanged([](TrapDestination &it) { it.community.characters[23] = 'x'; }),
          "snmp-server trap-destination 3\nexit\n"},
         {"last character of a destination's community", Mode::delta, destinations,
          [](auto &current, auto &defaults) {
              current.trapDestinations[2] = someDestination();
              current.trapDestinations[2].community = letters(24).c_str();
              defaults.trapDestinations[2] = current.trapDestinations[2];
              current.trapDestinations[2].community.characters[23] = '!';
          },
          "snmp-server trap-destination 3\ncommunity " + letters(23) + "!\nexit\n"},
         {"address of a destination", Mode::delta, destinations,
          destinationChanged([](TrapDestination &it) { it.address.octets[3] = 17; }),
          "snmp-server trap-destination 3\ndestination 198.51.100.17\nexit\n"},
         {"address of a destination cleared", Mode::delta, destinations,
          destinationChanged([](TrapDestination &it) { it.address = {}; }),
          "snmp-server trap-destination 3\ndestination 0.0.0.0\nexit\n"},
         {"IPv6 after IPv4 opens an empty block", Mode::delta, destinations,
          destinationChanged([](TrapDestination &it) { it.addressIpv6 = someIpv6; }),
          "snmp-server trap-destination 3\nexit\n"},
         {"IPv6 of a destination", Mode::delta, destinations, destinationChanged([](TrapDestination &it) {
              it.address = {};
              it.addressIpv6 = someIpv6;
          }),
          "snmp-server trap-destination 3\ndestination 2001:db8::16\nexit\n"},
         {"first byte of a destination", Mode::delta, destinations,
          destinationChanged([](TrapDestination &it) { it.inUse = 2; }), "snmp-server trap-destination 3\nexit\n"},
         {"last byte of a destination", Mode::delta, destinations,
          destinationChanged([](TrapDestination &it) { it.reserved46.bytes[5] = 1; }),
          "snmp-server trap-destination 3\nexit\n"},
         {"after the last destination", Mode::full, destinations, [](auto &current, auto &) { current.traps.coldStart = 1; },
          ""},
         {"after the last destination", Mode::delta, destinations, [](auto &current, auto &) { current.traps.coldStart = 1; },
          ""},
         {"order in a destination", Mode::delta, destinations, destinationChanged([](TrapDestination &it) {
              it.active = 0;
              it.community = "c";
              it.address.octets[0] = 1;
          }),
          "snmp-server trap-destination 3\nno active\ncommunity c\ndestination 1.51.100.16\nexit\n"},
     }));

namespace {

/// The eleven types: the name in the line, what switches it in an image, the hardware that it needs.
struct TypeOfTrap {
    const char *name;
    u8 *(*flag)(ConfigImage &);
    std::uint32_t hardware;
};
constexpr TypeOfTrap trapTypes[] = {
    {"cold-start", [](ConfigImage &image) { return &image.traps.coldStart; }, noHardware},
    {"warm-start", [](ConfigImage &image) { return &image.traps.warmStart; }, noHardware},
    {"auth-fail", [](ConfigImage &image) { return &image.traps.authFail; }, noHardware},
    {"auto-backup", [](ConfigImage &image) { return &image.traps.autoBackup; }, noHardware},
    {"port-link", [](ConfigImage &image) { return &image.traps.portLink.bytes[0]; }, noHardware},
    {"battery-mode", [](ConfigImage &image) { return &image.traps.batteryMode; }, batteryBoard},
    {"case-fan", [](ConfigImage &image) { return &image.traps.caseFan; }, noHardware},
    {"poe", [](ConfigImage &image) { return &image.poe.traps; }, poeBoard},
    {"cpu-load", [](ConfigImage &image) { return &image.traps.cpuLoad; }, noHardware},
    {"mac-limit", [](ConfigImage &image) { return &image.traps.macLimit; }, noHardware},
    {"storm-control", [](ConfigImage &image) { return &image.traps.stormControl; }, noHardware},
};

const std::vector<std::uint32_t> boards = {noHardware, poeBoard, batteryBoard, poeBoard | batteryBoard};

bool isFitted(const TypeOfTrap &type, std::uint32_t capabilities) {
    return (capabilities & type.hardware) == type.hardware;
}

std::string rendered(Mode mode) {
    clearText();
    callStep(mode, traps);
    return Temp_Configuration;
}

} // namespace

/// One type that is on among others that are off, and the reverse, on each board: the line of every type that the board
/// has, or the one line for all if the type is of hardware that it lacks.
TEST(SnmpTraps, EachTypeCountsOnItsOwn) {
    for (const std::uint32_t board : boards)
        for (const TypeOfTrap &type : trapTypes)
            for (const bool isOn : {true, false}) {
                resetAll();
                g_EEPROM.capabilities = board;
                switchTraps(*gSysConfig, !isOn);
                *type.flag(*gSysConfig) = isOn ? 1 : 0;
                std::string lines;
                if (!isFitted(type, board))
                    lines = isOn ? "no snmp-server trap-type all\n" : "snmp-server trap-type all\n";
                else
                    for (const TypeOfTrap &other : trapTypes) {
                        if (!isFitted(other, board)) continue;
                        const bool otherIsOn = &other == &type ? isOn : !isOn;
                        lines += otherIsOn ? "snmp-server trap-type " : "no snmp-server trap-type ";
                        lines += other.name;
                        lines += "\n";
                    }
                EXPECT_EQ(lines, rendered(Mode::full)) << type.name << " on board " << board;
            }
}

/// One type differs from the default, in a store where neither "all" line applies.
TEST(SnmpTraps, EachTypeDiffersOnItsOwn) {
    for (const std::uint32_t board : boards)
        for (const TypeOfTrap &type : trapTypes)
            for (const bool isOn : {true, false}) {
                resetAll();
                g_EEPROM.capabilities = board;
                // Two others are on and two are off, so that one changed type decides nothing.
                for (ConfigImage *image : {gSysConfig, gDefConfig})
                    for (std::size_t i = 0; i < std::size(trapTypes); i += 2) *trapTypes[i].flag(*image) = 1;
                *type.flag(*gSysConfig) = isOn ? 1 : 0;
                *type.flag(*gDefConfig) = isOn ? 0 : 1;
                std::string line;
                if (isFitted(type, board)) {
                    line = isOn ? "snmp-server trap-type " : "no snmp-server trap-type ";
                    line += type.name;
                    line += "\n";
                }
                EXPECT_EQ(line, rendered(Mode::delta)) << type.name << " on board " << board;
            }
}

/// 1 against 2 differs as any stored values do; the port-link bit alone has but two.
TEST(SnmpTraps, StoredValuesDiffer) {
    for (const TypeOfTrap &type : trapTypes) {
        if (std::string(type.name) == "port-link") continue;
        resetAll();
        g_EEPROM.capabilities = poeBoard | batteryBoard;
        for (ConfigImage *image : {gSysConfig, gDefConfig})
            for (std::size_t i = 0; i < std::size(trapTypes); i += 2) *trapTypes[i].flag(*image) = 1;
        *type.flag(*gSysConfig) = 2;
        *type.flag(*gDefConfig) = 1;
        EXPECT_EQ("snmp-server trap-type " + std::string(type.name) + "\n", rendered(Mode::delta));
    }
}

ROWS(SnmpTraps,
     ({
         {"all on", Mode::full, traps, allOnBut(poeBoard | batteryBoard, [](ConfigImage &) {}),
          "snmp-server trap-type all\n"},
         {"all off", Mode::full, traps, allOffBut(poeBoard | batteryBoard, [](ConfigImage &) {}),
          "no snmp-server trap-type all\n"},
         {"all on without hardware", Mode::full, traps,
          allOnBut(noHardware, [](ConfigImage &image) { image.poe.traps = image.traps.batteryMode = 0; }),
          "snmp-server trap-type all\n"},
         {"all off without hardware", Mode::full, traps,
          allOffBut(noHardware, [](ConfigImage &image) { image.poe.traps = image.traps.batteryMode = 1; }),
          "no snmp-server trap-type all\n"},
         {"on by any value", Mode::full, traps,
          allOnBut(poeBoard | batteryBoard,
                   [](ConfigImage &image) {
                       for (const TypeOfTrap &type : trapTypes) *type.flag(image) = 129;
                   }),
          "snmp-server trap-type all\n"},
         {"every line on but one", Mode::full, traps,
          allOnBut(poeBoard | batteryBoard, [](ConfigImage &image) { image.traps.coldStart = 0; }),
          "no snmp-server trap-type cold-start\nsnmp-server trap-type warm-start\nsnmp-server trap-type auth-fail\n"
          "snmp-server trap-type auto-backup\nsnmp-server trap-type port-link\nsnmp-server trap-type battery-mode\n"
          "snmp-server trap-type case-fan\nsnmp-server trap-type poe\nsnmp-server trap-type cpu-load\n"
          "snmp-server trap-type mac-limit\nsnmp-server trap-type storm-control\n"},
         {"every line off but one", Mode::full, traps,
          allOffBut(poeBoard | batteryBoard, [](ConfigImage &image) { image.traps.stormControl = 1; }),
          "no snmp-server trap-type cold-start\nno snmp-server trap-type warm-start\n"
          "no snmp-server trap-type auth-fail\nno snmp-server trap-type auto-backup\n"
          "no snmp-server trap-type port-link\nno snmp-server trap-type battery-mode\n"
          "no snmp-server trap-type case-fan\nno snmp-server trap-type poe\nno snmp-server trap-type cpu-load\n"
          "no snmp-server trap-type mac-limit\nsnmp-server trap-type storm-control\n"},
         {"port-link is bit 0 alone", Mode::full, traps,
          allOnBut(noHardware,
                   [](ConfigImage &image) {
                       std::memset(image.traps.portLink.bytes, 0xff, 20);
                       image.traps.portLink.bytes[0] = 0xfe;
                   }),
          "snmp-server trap-type cold-start\nsnmp-server trap-type warm-start\nsnmp-server trap-type auth-fail\n"
          "snmp-server trap-type auto-backup\nno snmp-server trap-type port-link\nsnmp-server trap-type case-fan\n"
          "snmp-server trap-type cpu-load\nsnmp-server trap-type mac-limit\nsnmp-server trap-type storm-control\n"},
         {"battery by its lower bit", Mode::full, traps,
          allOnBut(0x10, [](ConfigImage &image) { image.traps.batteryMode = 0; }),
          "snmp-server trap-type cold-start\nsnmp-server trap-type warm-start\nsnmp-server trap-type auth-fail\n"
          "snmp-server trap-type auto-backup\nsnmp-server trap-type port-link\nno snmp-server trap-type battery-mode\n"
          "snmp-server trap-type case-fan\nsnmp-server trap-type cpu-load\nsnmp-server trap-type mac-limit\n"
          "snmp-server trap-type storm-control\n"},
         {"other capabilities", Mode::full, traps,
          allOnBut(0xfffffeaf, [](ConfigImage &image) { image.poe.traps = image.traps.batteryMode = 0; }),
          "snmp-server trap-type all\n"},
         {"places", Mode::full, traps,
          [](auto &current, auto &) {
              g_EEPROM.capabilities = poeBoard | batteryBoard;
              for (const int place : {0, 2, 4, 27, 36, 38}) reinterpret_cast<u8 *>(&current)[128244 + place] = 1;
              reinterpret_cast<u8 *>(&current)[180423] = 1;
          },
          "snmp-server trap-type cold-start\nno snmp-server trap-type warm-start\nsnmp-server trap-type auth-fail\n"
          "snmp-server trap-type auto-backup\nsnmp-server trap-type port-link\nsnmp-server trap-type battery-mode\n"
          "no snmp-server trap-type case-fan\nsnmp-server trap-type poe\nno snmp-server trap-type cpu-load\n"
          "snmp-server trap-type mac-limit\nno snmp-server trap-type storm-control\n"},
         {"other places", Mode::full, traps,
          [](auto &current, auto &) {
              g_EEPROM.capabilities = poeBoard | batteryBoard;
              for (const int place : {1, 24, 30, 37}) reinterpret_cast<u8 *>(&current)[128244 + place] = 1;
          },
          "no snmp-server trap-type cold-start\nsnmp-server trap-type warm-start\n"
          "no snmp-server trap-type auth-fail\nno snmp-server trap-type auto-backup\n"
          "no snmp-server trap-type port-link\nno snmp-server trap-type battery-mode\n"
          "snmp-server trap-type case-fan\nno snmp-server trap-type poe\nsnmp-server trap-type cpu-load\n"
          "no snmp-server trap-type mac-limit\nsnmp-server trap-type storm-control\n"},
         {"places without a meaning", Mode::full, traps,
          [](auto &current, auto &) {
              std::memset(static_cast<void *>(&current.traps), 0xff, sizeof current.traps);
              switchTraps(current, false);
              for (const int place : {3, 5, 25, 26, 28, 29, 31, 35, 39})
                  reinterpret_cast<u8 *>(&current)[128244 + place] = 1;
          },
          "no snmp-server trap-type all\n"},

         {"equal and mixed", Mode::delta, traps, trapsChanged(poeBoard | batteryBoard, [](ConfigImage &) {}), ""},
         {"equal and all on", Mode::delta, traps,
          [](auto &current, auto &defaults) {
              switchTraps(current, true);
              switchTraps(defaults, true);
          },
          ""},
         {"equal and all off", Mode::delta, traps, [](auto &, auto &) {}, ""},
         {"all on now", Mode::delta, traps, allOnBut(poeBoard | batteryBoard, [](ConfigImage &) {}),
          "snmp-server trap-type all\n"},
         {"all off now", Mode::delta, traps, [](auto &, auto &defaults) { defaults.traps.warmStart = 1; },
          "no snmp-server trap-type all\n"},
         {"all on and a byte without meaning", Mode::delta, traps,
          [](auto &current, auto &defaults) {
              switchTraps(current, true);
              switchTraps(defaults, true);
              current.traps.reserved39.bytes[0] = 1;
          },
          "snmp-server trap-type all\n"},
         {"all off and the first byte of the bitmap", Mode::delta, traps,
          [](auto &current, auto &) { current.traps.portLink.bytes[0] = 2; }, "no snmp-server trap-type all\n"},
         {"all off and a battery flag that the board lacks", Mode::delta, traps,
          [](auto &current, auto &) { current.traps.batteryMode = 1; }, "no snmp-server trap-type all\n"},
         {"mixed and a byte without meaning", Mode::delta, traps,
          trapsChanged(noHardware, [](ConfigImage &image) { image.traps.reserved3.bytes[0] = 1; }), ""},
         {"PoE alone on a board with PoE", Mode::delta, traps,
          trapsChanged(poeBoard, [](ConfigImage &image) { image.poe.traps = 1; }), "snmp-server trap-type poe\n"},
         {"PoE alone on a board without", Mode::delta, traps,
          trapsChanged(batteryBoard, [](ConfigImage &image) { image.poe.traps = 1; }), ""},
         {"PoE alone opens the section for the all line", Mode::delta, traps,
          [](auto &, auto &defaults) {
              g_EEPROM.capabilities = poeBoard;
              defaults.poe.traps = 1;
          },
          "no snmp-server trap-type all\n"},
         {"PoE alone without PoE opens nothing", Mode::delta, traps,
          [](auto &, auto &defaults) { defaults.poe.traps = 1; }, ""},
         {"port-link by its bit", Mode::delta, traps,
          trapsChanged(noHardware, [](ConfigImage &image) { image.traps.portLink.bytes[0] = 0xff; }),
          "snmp-server trap-type port-link\n"},
         {"other bits of port-link", Mode::delta, traps,
          trapsChanged(noHardware, [](ConfigImage &image) { std::memset(image.traps.portLink.bytes, 0xfe, 20); }), ""},
         {"order", Mode::delta, traps,
          trapsChanged(poeBoard | batteryBoard,
                       [](ConfigImage &image) {
                           image.traps = {};
                           image.traps.warmStart = image.traps.autoBackup = image.traps.batteryMode =
                               image.traps.cpuLoad = 1;
                           image.traps.stormControl = image.poe.traps = 1;
                           image.traps.portLink.set(0);
                       }),
          "no snmp-server trap-type cold-start\nsnmp-server trap-type warm-start\n"
          "no snmp-server trap-type auth-fail\nsnmp-server trap-type auto-backup\nsnmp-server trap-type port-link\n"
          "snmp-server trap-type battery-mode\nno snmp-server trap-type case-fan\nsnmp-server trap-type poe\n"
          "snmp-server trap-type cpu-load\nno snmp-server trap-type mac-limit\nsnmp-server trap-type storm-control\n"},
     }));

/// Any byte of a record makes it differ, those without a meaning too.
TEST(Snmp, EveryByteOfARecordCounts) {
    const auto given = [](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults}) {
            image->communities[0] = image->communities[9] = someCommunity("public");
            image->trapDestinations[0] = image->trapDestinations[9] = someDestination();
        }
    };
    for (const std::size_t at : {std::size_t{126432}, std::size_t{126432 + 9 * 104}})
        expectCounting(agent, given, at, at + 103, {{at, at + 103, ""}});
    for (const std::size_t at : {std::size_t{127724}, std::size_t{127724 + 9 * 52}})
        expectCounting(destinations, given, at, at + 51, {{at, at + 51, "snmp-server trap-destination "}});
    expectCounting(traps, given, 128244 - 4, 128284 + 4, {{128244, 128283, ""}});
}

TEST(Snmp, Golden) {
    EXPECT_EQ(golden("snmp_full.txt"), snmpText(Mode::full, noHardware));
    EXPECT_EQ(golden("snmp_full_poe_battery.txt"), snmpText(Mode::full, poeBoard | batteryBoard));
    EXPECT_EQ(golden("snmp_delta.txt"), snmpText(Mode::delta, noHardware));
    EXPECT_EQ(golden("snmp_delta_poe_battery.txt"), snmpText(Mode::delta, poeBoard | batteryBoard));
}
