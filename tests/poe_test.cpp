#include "byte_changes.h"
#include "rows.h"

#include "platform/host/factory.h"
#include "sections/interface.h"

namespace {

constexpr const char *poe = "convConfigPOEConfig_POEConfig_configure_poe";
constexpr const char *poePorts = "convConfigPOEConfig_POEConfig_configure_interface_poe";

constexpr std::size_t poeAt = 180414;
constexpr std::size_t portsAt = 205032;

/// `given` on a board whose capability word is `capabilities`.
Given withCapabilities(std::uint32_t capabilities, const Given &given) {
    return [=](ConfigImage &current, ConfigImage &defaults) {
        g_EEPROM.capabilities = capabilities;
        given(current, defaults);
    };
}

void everythingOn(PoeConfig &config) {
    config.enabled = 1;
    config.fixedBudget = 1;
    config.traps = 1;
    config.eventLog = 1;
    config.syslog = 1;
    config.alarmThreshold = 80;
}

Given global(Setter<void(PoeConfig &)> set) {
    return withCapabilities(0x100, [set](ConfigImage &current, ConfigImage &) { set(current.poe); });
}
Given globalDefault(Setter<void(PoeConfig &)> set) {
    return withCapabilities(0x100, [set](ConfigImage &, ConfigImage &defaults) { set(defaults.poe); });
}

/// Ports with values that have no line, in both images, then what `set` and `setDefault` set.
Given ports(
    Setter<void(PoePort *)> set, Setter<void(PoePort *)> setDefault = [](PoePort *) {}) {
    return withCapabilities(0x100, [set, setDefault](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults})
            for (PoePort &port : image->poePorts) {
                port.enabled = port.priority = port.scheduleEnabled = 3;
                port.budget = 1;
            }
        set(current.poePorts);
        setDefault(defaults.poePorts);
    });
}

void composePoe(ConfigImage &current, ConfigImage &defaults) {
    g_EEPROM.capabilities = 0x100;
    for (ConfigImage *image : {&current, &defaults}) {
        image->poe.enabled = 1;
        image->poe.alarmThreshold = 90;
        for (PoePort &port : image->poePorts) {
            port.enabled = 1;
            port.priority = 2;
        }
    }
    current.poe.alarmThreshold = 255;
    current.poe.fixedBudget = 1;
    current.poe.syslog = 1;
    for (int port = 0; port < 8; ++port) current.poePorts[port].budget = 15;
    current.poePorts[23].budget = -1;
    current.poePorts[22].budget = 1;
    current.poePorts[2].deviceName = "camera";
    current.poePorts[4].deviceName = "camera";
    current.poePorts[23].deviceName = letters(33).c_str();
    defaults.poePorts[10].deviceName = "phone";
    current.poePorts[0].priority = 0;
    current.poePorts[1].priority = 1;
    current.poePorts[3].priority = 3;
    current.poePorts[6].scheduleName = "office-hours";
    current.poePorts[7].scheduleName = "office-hours";
    current.poePorts[6].scheduleEnabled = 1;
    current.poePorts[7].scheduleEnabled = 1;
    current.poePorts[23].enabled = 0;
}

std::string poeText(Mode mode) {
    resetAll();
    composePoe(*gSysConfig, *gDefConfig);
    callStep(mode, poe);
    callStep(mode, poePorts);
    return Temp_Configuration;
}

} // namespace

// ------------------------------------------------------------------------------------------------------------ global

ROWS(Poe,
     ({
         {"all off", Mode::full, poe, withCapabilities(0x100, nothing),
          "no poe\npoe alarm-threshold 0 \npoe budget-mode class\nno poe eventlog \nno poe syslog \nno poe traps \n"},
         {"all on", Mode::full, poe, global(everythingOn),
          "poe \npoe alarm-threshold 80 \npoe budget-mode fixed\npoe eventlog \npoe syslog \npoe traps \n"},
         {"flags beyond 1", Mode::full, poe, global([](PoeConfig &c) {
              c.enabled = c.fixedBudget = c.traps = c.eventLog = c.syslog = 0x80;
              c.alarmThreshold = 255;
          }),
          "poe \npoe alarm-threshold 255 \npoe budget-mode fixed\npoe eventlog \npoe syslog \npoe traps \n"},
         {"board without PoE", Mode::full, poe,
          withCapabilities(0xfffffeff, [](ConfigImage &current, ConfigImage &) { everythingOn(current.poe); }), ""},

         {"same", Mode::delta, poe,
          withCapabilities(0x100,
                           [](ConfigImage &current, ConfigImage &defaults) {
                               everythingOn(current.poe);
                               everythingOn(defaults.poe);
                           }),
          ""},
         {"turned on", Mode::delta, poe, global(everythingOn),
          "poe\npoe alarm-threshold 80\npoe budget-mode fixed\npoe eventlog\npoe syslog\npoe traps\n"},
         {"turned off", Mode::delta, poe, globalDefault(everythingOn),
          "no poe\npoe alarm-threshold 0\npoe budget-mode class\nno poe eventlog\nno poe syslog\nno poe traps\n"},
         {"1 against 2", Mode::delta, poe,
          withCapabilities(0x100,
                           [](ConfigImage &current, ConfigImage &defaults) {
                               everythingOn(current.poe);
                               defaults.poe.enabled = defaults.poe.fixedBudget = defaults.poe.traps = 2;
                               defaults.poe.eventLog = defaults.poe.syslog = 2;
                               defaults.poe.alarmThreshold = 80;
                           }),
          "poe\npoe budget-mode fixed\npoe eventlog\npoe syslog\npoe traps\n"},
         {"board without PoE", Mode::delta, poe,
          withCapabilities(0xfffffeff, [](ConfigImage &current, ConfigImage &) { everythingOn(current.poe); }), ""},
     }));

TEST(Poe, Bytes) {
    const Given given = withCapabilities(0x100, nothing);
    expectRead(poe, given, poeAt - 4, poeAt + 20, {{poeAt, poeAt}, {poeAt + 8, poeAt + 12}});
    expectCounting(poe, given, poeAt - 4, poeAt + 20,
                   {{poeAt, poeAt, "poe\n"},
                    {poeAt + 8, poeAt + 8, "poe budget-mode fixed\n"},
                    {poeAt + 9, poeAt + 9, "poe traps\n"},
                    {poeAt + 10, poeAt + 10, "poe eventlog\n"},
                    {poeAt + 11, poeAt + 11, "poe syslog\n"},
                    {poeAt + 12, poeAt + 12, "poe alarm-threshold 64\n"}});
}

// ------------------------------------------------------------------------------------------------------------- ports

ROWS(PoePorts,
     ({
         {"zero image", Mode::full, poePorts, withCapabilities(0x100, nothing),
          "interface 1-24 \nno poe\nexit\n"
          "interface 1-24 \npoe budget 0\nexit\n"
          "interface 1-24 \npoe priority critical\nexit\n"
          "interface 1-24 \nno poe schedule\nexit\n"},
         {"board without PoE", Mode::full, poePorts, withCapabilities(0xfffffeff, nothing), ""},
         {"values without a line", Mode::full, poePorts, ports([](PoePort *) {}), ""},
         {"on before off", Mode::full, poePorts, ports([](PoePort *port) {
              port[0].enabled = 0;
              port[1].enabled = 1;
              port[22].enabled = 0;
              port[23].enabled = 1;
          }),
          "interface 2,24 \npoe\nexit\ninterface 1,23 \nno poe\nexit\n"},
         {"one budget", Mode::full, poePorts, ports([](PoePort *port) {
              for (int i = 0; i < 24; ++i) port[i].budget = 15;
          }),
          "interface 1-24 \npoe budget 15\nexit\n"},
         {"by equal budget", Mode::full, poePorts, ports([](PoePort *port) {
              port[0].budget = 30;
              port[1].budget = 0;
              port[2].budget = 30;
              port[3].budget = -1;
              port[4].budget = 257;
              port[5].budget = INT32_MIN;
              port[22].budget = 0;
              port[23].budget = 30;
          }),
          "interface 1,3,24 \npoe budget 30\nexit\n"
          "interface 2,23 \npoe budget 0\nexit\n"
          "interface 4 \npoe budget -1\nexit\n"
          "interface 5 \npoe budget 257\nexit\n"
          "interface 6 \npoe budget -2147483648\nexit\n"},
         {"a device on two ports", Mode::full, poePorts, ports([](PoePort *port) {
              port[2].deviceName = "camera";
              port[4].deviceName = "camera";
          }),
          "interface 3,5\npoe pdname camera \nexit\n"},
         {"devices are not listed as ranges", Mode::full, poePorts, ports([](PoePort *port) {
              for (int i = 0; i < 4; ++i) port[i].deviceName = "phone";
              port[23].deviceName = "phone";
              port[22].deviceName = "camera";
          }),
          "interface 1,2,3,4,24\npoe pdname phone \nexit\ninterface 23\npoe pdname camera \nexit\n"},
         {"device names that are the default's", Mode::full, poePorts,
          ports([](PoePort *port) { port[0].deviceName = "phone"; },
                [](PoePort *port) { port[0].deviceName = "phone"; }),
          ""},
         {"device name removed", Mode::full, poePorts,
          ports([](PoePort *) {}, [](PoePort *port) { port[0].deviceName = "phone"; }),
          // The other 23 ports have the same empty name: they join, are marked "phone" and so are written once more.
          "interface 1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24\npoe pdname  \nexit\n"
          "interface 2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24\npoe pdname phone \nexit\n"},
         {"a later port joins though its name is its default", Mode::full, poePorts,
          ports([](PoePort *port) { port[0].deviceName = port[5].deviceName = "phone"; },
                [](PoePort *port) { port[5].deviceName = "phone"; }),
          // Port 6 is marked with port 1's empty default, and leads the ports without a name in turn.
          "interface 1,6\npoe pdname phone \nexit\n"
          "interface 6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24\npoe pdname  \nexit\n"
          "interface 7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24\npoe pdname phone \nexit\n"},
         {"full device names", Mode::full, poePorts, ports([](PoePort *port) {
              port[0].deviceName = letters(33).c_str();
              port[1].deviceName = letters(32).c_str();
              port[23].deviceName = letters(33).c_str();
              port[0].enabled = 'x';
          }),
          "interface 1,24\npoe pdname " + letters(33) + " \nexit\ninterface 2\npoe pdname " + letters(32) +
              " \nexit\n"},
         {"priorities", Mode::full, poePorts, ports([](PoePort *port) {
              port[0].priority = 2;
              port[1].priority = 1;
              port[2].priority = 0;
              port[3].priority = 3;
              port[23].priority = 2;
          }),
          "interface 3 \npoe priority critical\nexit\n"
          "interface 2 \npoe priority high\nexit\n"
          "interface 1,24 \npoe priority low\nexit\n"},
         {"schedule names", Mode::full, poePorts, ports([](PoePort *port) {
              port[2].scheduleName = "office-hours";
              port[23].scheduleName = "office-hours";
              port[4].scheduleName = letters(33).c_str();
          }),
          "interface 3,24\npoe schedule office-hours \nexit\ninterface 5\npoe schedule " + letters(33) + " \nexit\n"},
         {"schedule names that are the default's", Mode::full, poePorts,
          ports([](PoePort *port) { port[0].scheduleName = "night"; },
                [](PoePort *port) { port[0].scheduleName = "night"; }),
          ""},
         {"schedules on before off", Mode::full, poePorts, ports([](PoePort *port) {
              port[0].scheduleEnabled = 0;
              port[1].scheduleEnabled = 1;
              port[23].scheduleEnabled = 0;
          }),
          "interface 2 \npoe schedule\nexit\ninterface 1,24 \nno poe schedule\nexit\n"},
         {"order", Mode::full, poePorts, ports([](PoePort *port) {
              port[0].scheduleEnabled = 1;
              port[1].scheduleName = "night";
              port[2].priority = 0;
              port[3].deviceName = "phone";
              port[4].budget = 9;
              port[5].enabled = 1;
          }),
          "interface 6 \npoe\nexit\n"
          "interface 5 \npoe budget 9\nexit\n"
          "interface 4\npoe pdname phone \nexit\n"
          "interface 3 \npoe priority critical\nexit\n"
          "interface 2\npoe schedule night \nexit\n"
          "interface 1 \npoe schedule\nexit\n"},
     }));

ROWS(PoePortDifferences,
     ({
         {"zero image", Mode::delta, poePorts, withCapabilities(0x100, nothing), ""},
         {"board without PoE", Mode::delta, poePorts,
          withCapabilities(0xfffffeff,
                           [](ConfigImage &current, ConfigImage &defaults) {
                               composePoe(current, defaults);
                               g_EEPROM.capabilities = 0xfffffeff;
                           }),
          ""},
         {"same", Mode::delta, poePorts,
          withCapabilities(0x100,
                           [](ConfigImage &current, ConfigImage &defaults) {
                               composePoe(current, defaults);
                               defaults = current;
                           }),
          ""},
         {"turned off on one port", Mode::delta, poePorts,
          withCapabilities(0x100, [](ConfigImage &, ConfigImage &defaults) { defaults.poePorts[23].enabled = 1; }),
          "interface 1-24 \nno poe\nexit\n"},
         {"turned on on one port", Mode::delta, poePorts,
          withCapabilities(0x100, [](ConfigImage &current, ConfigImage &) { current.poePorts[0].enabled = 1; }),
          "interface 1 \npoe\nexit\ninterface 2-24 \nno poe\nexit\n"},

         {"no budgets any more", Mode::delta, poePorts,
          ports(
              [](PoePort *port) {
                  for (int i = 0; i < 24; ++i) port[i].budget = 0;
              },
              [](PoePort *port) {
                  for (int i = 0; i < 24; ++i) port[i].budget = 15;
              }),
          "interface 1-24 \npoe budget 0\nexit\n"},
         {"budgets other than 0 are not written", Mode::delta, poePorts, ports([](PoePort *port) {
              port[0].budget = 15;
              port[1].budget = -1;
              port[2].budget = 256;
          }),
          ""},
         {"budget set on one port", Mode::delta, poePorts,
          withCapabilities(0x100, [](ConfigImage &current, ConfigImage &) { current.poePorts[3].budget = 15; }),
          "interface 1-3,5-24 \npoe budget 0\nexit\n"},
         {"a budget of 1 set on the last port", Mode::delta, poePorts,
          withCapabilities(0x100, [](ConfigImage &current, ConfigImage &) { current.poePorts[23].budget = 1; }),
          "interface 1-23 \npoe budget 0\nexit\n"},
         {"budget removed on one port", Mode::delta, poePorts,
          withCapabilities(0x100, [](ConfigImage &, ConfigImage &defaults) { defaults.poePorts[0].budget = 15; }),
          "interface 1-24 \npoe budget 0\nexit\n"},
         {"the group opens at a later port than the default's", Mode::delta, poePorts,
          ports([](PoePort *port) { port[5].budget = port[6].budget = 0; },
                [](PoePort *port) { port[4].budget = port[5].budget = port[6].budget = 0; }),
          "interface 6,7 \npoe budget 0\nexit\n"},
         {"a group of the default alone", Mode::delta, poePorts,
          ports([](PoePort *) {}, [](PoePort *port) { port[4].budget = 0; }), ""},
         {"the same group", Mode::delta, poePorts,
          ports(
              [](PoePort *port) {
                  port[0].budget = 30;
                  port[5].budget = port[23].budget = 0;
              },
              [](PoePort *port) {
                  port[0].budget = 15;
                  port[5].budget = port[23].budget = 0;
              }),
          ""},

         {"device names", Mode::delta, poePorts,
          ports(
              [](PoePort *port) {
                  port[2].deviceName = port[4].deviceName = "camera";
                  port[7].deviceName = "phone";
              },
              [](PoePort *port) { port[7].deviceName = "phone"; }),
          "interface 3,5\npoe pdname camera \nexit\n"},
         {"device names differ in their last character", Mode::delta, poePorts,
          ports([](PoePort *port) { port[0].deviceName = letters(33).c_str(); },
                [](PoePort *port) { port[0].deviceName = letters(32).c_str(); }),
          "interface 1\npoe pdname " + letters(33) + " \nexit\n"},
         {"device names differ after their end", Mode::delta, poePorts,
          ports([](PoePort *port) { port[0].deviceName.characters[1] = 'x'; }), ""},
         {"priorities", Mode::delta, poePorts,
          withCapabilities(0x100,
                           [](ConfigImage &current, ConfigImage &) {
                               current.poePorts[1].priority = 1;
                               current.poePorts[23].priority = 2;
                           }),
          "interface 1,3-23 \npoe priority critical\nexit\n"
          "interface 2 \npoe priority high\nexit\n"
          "interface 24 \npoe priority low\nexit\n"},
         {"priority without a line", Mode::delta, poePorts, ports([](PoePort *port) { port[0].priority = 4; }), ""},
         {"schedule names without the blank", Mode::delta, poePorts,
          ports([](PoePort *port) { port[2].scheduleName = port[4].scheduleName = "office-hours"; }),
          "interface 3,5\npoe schedule office-hours\nexit\n"},
         {"a schedule name that joins a name not its default", Mode::delta, poePorts,
          ports([](PoePort *port) { port[0].scheduleName = port[23].scheduleName = "day"; },
                [](PoePort *port) {
                    port[0].scheduleName = "night";
                    for (int i = 1; i < 24; ++i) port[i].scheduleName = i == 23 ? "day" : "";
                }),
          "interface 1,24\npoe schedule day\nexit\ninterface 24\npoe schedule night\nexit\n"},
         {"schedules", Mode::delta, poePorts,
          withCapabilities(0x100,
                           [](ConfigImage &current, ConfigImage &) { current.poePorts[23].scheduleEnabled = 1; }),
          "interface 24 \npoe schedule\nexit\ninterface 1-23 \nno poe schedule\nexit\n"},
         {"order", Mode::delta, poePorts, ports([](PoePort *port) {
              port[0].scheduleEnabled = 1;
              port[1].scheduleName = "night";
              port[2].priority = 0;
              port[3].deviceName = "phone";
              port[4].budget = 0;
              port[5].enabled = 1;
          }),
          "interface 6 \npoe\nexit\n"
          "interface 5 \npoe budget 0\nexit\n"
          "interface 4\npoe pdname phone \nexit\n"
          "interface 3 \npoe priority critical\nexit\n"
          "interface 2\npoe schedule night\nexit\n"
          "interface 1 \npoe schedule\nexit\n"},
     }));

/// Ports of distinct full names, so that every byte of a name shows.
TEST(PoePorts, Bytes) {
    const Given given = withCapabilities(0x100, [](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults})
            for (int i = 0; i < 24; ++i) {
                image->poePorts[i].deviceName = letters(33).c_str();
                image->poePorts[i].deviceName.characters[32] = static_cast<char>('A' + i);
                image->poePorts[i].scheduleName = letters(33).c_str();
                image->poePorts[i].scheduleName.characters[32] = static_cast<char>('A' + i);
            }
    });
    Places read;
    std::vector<Counting> counting;
    for (std::size_t port = 0; port < 24; ++port) {
        const std::size_t at = portsAt + 80 * port;
        const std::string number = std::to_string(port + 1);
        read.add(at, at + 68);
        read.add(at + 72, at + 75);
        counting.push_back({at, at + 32, "interface " + number + "\npoe pdname "});
        // The changed port has a value without a line; the others are written.
        const std::string others = port == 0 ? "interface 2-24 \n" : "interface 1";
        counting.push_back({at + 33, at + 33, others});
        counting.push_back({at + 34, at + 34, others});
        counting.push_back({at + 35, at + 35, others});
        counting.push_back({at + 36, at + 68, "interface " + number + "\npoe schedule "});
        counting.push_back({at + 72, at + 75, others});
    }
    expectRead(poePorts, given, portsAt - 4, portsAt + 24 * 80 + 40, read);
    expectCounting(poePorts, given, portsAt - 4, portsAt + 24 * 80 + 40, counting);
}

// --------------------------------------------------------------------------------------------------------- the whole

TEST(Poe, Golden) {
    EXPECT_EQ(golden("poe_full.txt"), poeText(Mode::full));
    EXPECT_EQ(golden("poe_delta.txt"), poeText(Mode::delta));
}
