/// DHCP snooping and source guard.
#include "security_area.h"

using namespace security;

// ----------------------------------------------------------------------------------------------------- DHCP snooping

ROWS(DhcpSnooping,
     ({
         {"zero image", Mode::full, dhcp, nothing,
          std::string(dhcpHead) + "no ip dhcp snooping dhcp-server\n" + dhcpTail},
         {"values", Mode::full, dhcp, current(dhcpOfBoth),
          "ip dhcp snooping\n"
          "ip dhcp snooping initiated 65535\n"
          "ip dhcp snooping leased -2\n"
          "ip dhcp snooping option\n"
          "ip dhcp snooping remote\n"
          "ip dhcp snooping remote formatted\n"
          "ip dhcp snooping remote id abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijkl\n"
          "ip dhcp snooping dhcp-server 1,2,16-19,28 \n"
          "ip dhcp snooping dhcp-server-ip\n"
          "ip dhcp snooping dhcp-server-ip 1 ip-address 192.0.2.1 \n"
          "ip dhcp snooping dhcp-server-ip 2 ip-address 2001:db8::5 \n"
          "no ip dhcp snooping dhcp-server-ip 3 ip-address \n"
          "ip dhcp snooping dhcp-server-ip 4 ip-address ::1 \n"},
         {"carried address of zeros", Mode::full, dhcp,
          dhcpOnly([](DhcpSnooping &config) { config.servers[0] = mapped(0, 0, 0, 0); }),
          std::string(dhcpHead) + "no ip dhcp snooping dhcp-server\n" + dhcpTail},
         {"remote id of one character", Mode::full, dhcp,
          current([](ConfigImage &image) { image.circuitIds.remoteId = "x"; }),
          std::string("no ip dhcp snooping\nip dhcp snooping initiated 0\nip dhcp snooping leased 0\n"
                      "no ip dhcp snooping option\nno ip dhcp snooping remote\n"
                      "no ip dhcp snooping remote formatted\nip dhcp snooping remote id x\n"
                      "no ip dhcp snooping dhcp-server\n") +
              dhcpTail},
         serverRow("server port 1", 0, {1}, "ip dhcp snooping dhcp-server 1 \n"),
         serverRow("server port 28", 0, {28}, "ip dhcp snooping dhcp-server 28 \n"),
         serverRow("server on the processor's port alone", 0, {29, 32}, "no ip dhcp snooping dhcp-server\n"),
         serverRow("type 5027, none", 5027, {}, "no ip dhcp snooping dhcp-server\n"),
         serverRow("type 5027, port 1", 5027, {1}, "ip dhcp snooping dhcp-server 1 \n"),
         serverRow("type 5027, port 8", 5027, {8}, "ip dhcp snooping dhcp-server 8 \n"),
         serverRow("type 5027, port 9", 5027, {9}, "ip dhcp snooping dhcp-server 9 \n"),
         serverRow("type 5027, port 16", 5027, {16}, "ip dhcp snooping dhcp-server 16 \n"),
         serverRow("type 5027, port 17", 5027, {17},
                   "ip dhcp snooping dhcp-server 17 \nno ip dhcp snooping dhcp-server\n"),
         serverRow("type 5027, port 24", 5027, {24},
                   "ip dhcp snooping dhcp-server 24 \nno ip dhcp snooping dhcp-server\n"),
         serverRow("type 5027, ports 25 to 28", 5027, {25, 26, 27, 28},
                   "ip dhcp snooping dhcp-server 25-28 \nno ip dhcp snooping dhcp-server\n"),
         serverRow("another type, ports 25 to 28", 5026, {25, 26, 27, 28}, "ip dhcp snooping dhcp-server 25-28 \n"),
         {"type 5027, the switch does not count", Mode::full, dhcp,
          onBoard(5027, dhcpOnly([](DhcpSnooping &config) { config.enabled = 255; })),
          std::string("ip dhcp snooping\nip dhcp snooping initiated 0\nip dhcp snooping leased 0\n"
                      "no ip dhcp snooping option\nno ip dhcp snooping remote\n"
                      "no ip dhcp snooping remote formatted\nno ip dhcp snooping remote id\n"
                      "no ip dhcp snooping dhcp-server\n") +
              dhcpTail},
     }));

ROWS(DhcpSnoopingChanges,
     ({
         {"equal", Mode::delta, dhcp, dhcpChange([](ConfigImage &) {}), ""},
         {"everything", Mode::delta, dhcp, current(dhcpOfBoth),
          "ip dhcp snooping\n"
          "ip dhcp snooping initiated 65535\n"
          "ip dhcp snooping leased -2\n"
          "ip dhcp snooping option\n"
          "ip dhcp snooping remote\n"
          "ip dhcp snooping remote formatted\n"
          "ip dhcp snooping remote id abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijkl\n"
          "ip dhcp snooping dhcp-server 1,2,16-19,28 \n"
          "ip dhcp snooping dhcp-server-ip\n"
          "ip dhcp snooping dhcp-server-ip 1 ip-address 192.0.2.1\n"
          "ip dhcp snooping dhcp-server-ip 2 ip-address 2001:db8::5\n"
          "ip dhcp snooping dhcp-server-ip 4 ip-address ::1\n"},
         {"everything taken away", Mode::delta, dhcp, defaults(dhcpOfBoth),
          "no ip dhcp snooping\n"
          "ip dhcp snooping initiated 0\n"
          "ip dhcp snooping leased 0\n"
          "no ip dhcp snooping option\n"
          "no ip dhcp snooping remote\n"
          "no ip dhcp snooping remote formatted\n"
          "no ip dhcp snooping remote id\n"
          "no ip dhcp snooping dhcp-server\n"
          "no ip dhcp snooping dhcp-server-ip\n"
          "no ip dhcp snooping dhcp-server-ip 1 ip-address\n"
          "no ip dhcp snooping dhcp-server-ip 2 ip-address\n"
          "no ip dhcp snooping dhcp-server-ip 4 ip-address\n"},
         {"switch", Mode::delta, dhcp, dhcpChange([](ConfigImage &image) { image.dhcpSnooping.enabled = 2; }),
          "ip dhcp snooping\n"},
         {"initiated", Mode::delta, dhcp, dhcpChange([](ConfigImage &image) { image.dhcpSnooping.initiated = 256; }),
          "ip dhcp snooping initiated 256\n"},
         {"leased", Mode::delta, dhcp, dhcpChange([](ConfigImage &image) { image.dhcpSnooping.leased = 65536; }),
          "ip dhcp snooping leased 65536\n"},
         {"option", Mode::delta, dhcp, dhcpChange([](ConfigImage &image) { image.dhcpSnoopingPorts.option = 1; }),
          "ip dhcp snooping option\n"},
         {"remote", Mode::delta, dhcp, dhcpChange([](ConfigImage &image) { image.circuitIds.remoteInserted = 1; }),
          "ip dhcp snooping remote\n"},
         {"remote formatted", Mode::delta, dhcp,
          dhcpChange([](ConfigImage &image) { image.circuitIds.remoteFormatted = 1; }),
          "ip dhcp snooping remote formatted\n"},
         {"remote id, last byte", Mode::delta, dhcp,
          dhcpChange([](ConfigImage &image) { image.circuitIds.remoteId.characters[63] = '-'; }),
          "ip dhcp snooping remote id abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijk-\n"},
         {"remote id, after its end", Mode::delta, dhcp,
          current([](ConfigImage &image) { image.circuitIds.remoteId.characters[1] = 'x'; }), ""},
         {"server ports", Mode::delta, dhcp,
          dhcpChange([](ConfigImage &image) { image.dhcpSnooping.serverPorts = {}; }),
          "no ip dhcp snooping dhcp-server\n"},
         {"server ports, a bit after port 28", Mode::delta, dhcp,
          dhcpChange([](ConfigImage &image) { image.dhcpSnooping.serverPorts.set(31); }),
          "ip dhcp snooping dhcp-server 1,2,16-19,28 \n"},
         {"server ports, type 5027", Mode::delta, dhcp, onBoard(5027, servers({17, 28})),
          "ip dhcp snooping dhcp-server 17,28 \nno ip dhcp snooping dhcp-server\n"},
         {"server check", Mode::delta, dhcp,
          dhcpChange([](ConfigImage &image) { image.dhcpSnooping.checkServerAddress = 1; }),
          "ip dhcp snooping dhcp-server-ip\n"},
         {"server addresses", Mode::delta, dhcp,
          serverChange(
              [](DhcpSnooping &config) {
                  config.servers[0] = {};
                  config.servers[1].octets[15] = 6;
                  config.servers[3] = mapped(192, 0, 2, 4);
              },
              asItIs),
          "no ip dhcp snooping dhcp-server-ip 1 ip-address\n"
          "ip dhcp snooping dhcp-server-ip 2 ip-address 2001:db8::6\n"
          "ip dhcp snooping dhcp-server-ip 4 ip-address 192.0.2.4\n"},
         {"third server address", Mode::delta, dhcp,
          serverChange(asItIs, [](DhcpSnooping &config) { config.servers[2] = {}; }),
          "ip dhcp snooping dhcp-server-ip 3 ip-address 192.0.2.3\n"},
         {"two ways to have no server", Mode::delta, dhcp,
          serverChange(asItIs, [](DhcpSnooping &config) { config.servers[3] = mapped(0, 0, 0, 0); }), ""},
     }));

// ------------------------------------------------------------------------------------------ DHCP snooping of the ports

TEST(CircuitIdBlocks, AreComparedWithTheDefaultInBothModes) {
    for (const CircuitRow &row : circuitRows) {
        EXPECT_EQ(std::string(portsHead) + row.full + portsTail, textOfStep(Mode::full, portDhcp, row.given))
            << row.name;
        EXPECT_EQ(row.delta, textOfStep(Mode::delta, portDhcp, row.given)) << row.name;
        holdLines(Mode::full, portDhcp, row.full);
        holdLines(Mode::delta, portDhcp, row.delta);
    }
}

TEST(CircuitIdBlocks, OverwriteA64ByteTextFromTheDefaultDescriptionOn) {
    for (const int lead : {1, 27}) {
        const std::size_t description = 4800 + 76 * (static_cast<std::size_t>(lead) - 1);
        const auto store = [=](ConfigImage &current, ConfigImage &defaults) {
            current.circuitIds.text[lead - 1] = current.circuitIds.text[lead] = "north";
            std::memcpy(reinterpret_cast<unsigned char *>(&defaults) + description, lettersOf64, 64);
        };
        const std::string ports = std::to_string(lead) + "," + std::to_string(lead + 1);
        EXPECT_EQ("interface " + ports + "\nip dhcp snooping circuit id north\nexit\n" + "interface " +
                      std::to_string(lead + 1) + "\nip dhcp snooping circuit id " + lettersOf64 + "\nexit\n",
                  textOfStep(Mode::delta, portDhcp, store));
        for (const Mode mode : {Mode::full, Mode::delta}) {
            EXPECT_EQ((Places{{description, description + 63}}),
                      bytesTurnedOver(mode, portDhcp, store, Image::defaults, {{4770, 6920}}));
            EXPECT_EQ(Places{}, bytesTurnedOver(mode, portDhcp, store, Image::current, {{4770, 6920}}));
        }
    }
}

ROWS(DhcpSnoopingOfPorts,
     ({
         {"zero image", Mode::full, portDhcp, nothing, std::string(portsHead) + portsTail},
         {"zero images", Mode::delta, portDhcp, nothing, ""},
         {"options", Mode::full, portDhcp, portsOnly([](DhcpSnoopingPorts &ports) {
              give(ports.portOption, {1, 2, 28}, 1);
              give(ports.portOption, {3}, 2);
          }),
          std::string("interface 4-27\nno ip dhcp snooping option\nexit\n"
                      "interface 1,2,28\nip dhcp snooping option\nexit\n"
                      "interface 1-28\nno ip dhcp snooping circuit\nexit\n"
                      "interface 1-28\nno ip dhcp snooping circuit formatted\nexit\n") +
              portsTail},
         {"options", Mode::delta, portDhcp, portsOnly([](DhcpSnoopingPorts &ports) {
              give(ports.portOption, {1}, 1);
              give(ports.portOption, {3}, 2);
          }),
          "interface 2,4-28\nno ip dhcp snooping option\nexit\ninterface 1\nip dhcp snooping option\nexit\n"},
         {"options without a block", Mode::delta, portDhcp,
          portsOnly([](DhcpSnoopingPorts &ports) { giveAll(ports.portOption, 2); }), ""},
         {"the option word is not a port's", Mode::delta, portDhcp,
          portsOnly([](DhcpSnoopingPorts &ports) { ports.option = 0xffffffff, ports.reserved60.bytes[0] = 1; }), ""},
         {"circuit", Mode::full, portDhcp, circuits([](CircuitIds &ids) {
              put(ids.inserted, {1, 8, 9, 10, 28});
          }),
          std::string("interface 1-28\nno ip dhcp snooping option\nexit\n"
                      "interface 1,8-10,28\nip dhcp snooping circuit\nexit\n"
                      "interface 2-7,11-27\nno ip dhcp snooping circuit\nexit\n"
                      "interface 1-28\nno ip dhcp snooping circuit formatted\nexit\n") +
              portsTail},
         {"circuit on all ports", Mode::full, portDhcp, circuits([](CircuitIds &ids) {
              ids.inserted = {{255, 255, 255, 15}};
          }),
          std::string("interface 1-28\nno ip dhcp snooping option\nexit\n"
                      "interface 1-28\nip dhcp snooping circuit\nexit\n"
                      "interface 1-28\nno ip dhcp snooping circuit formatted\nexit\n") +
              portsTail},
         {"circuit", Mode::delta, portDhcp, circuits([](CircuitIds &ids) { put(ids.inserted, {1}); }),
          "interface 1\nip dhcp snooping circuit\nexit\ninterface 2-28\nno ip dhcp snooping circuit\nexit\n"},
         {"circuit after port 28", Mode::delta, portDhcp, circuits([](CircuitIds &ids) {
              put(ids.inserted, {29, 30, 31, 32});
          }),
          ""},
         {"circuit taken away", Mode::delta, portDhcp,
          defaults([](ConfigImage &image) { put(image.circuitIds.inserted, {28}); }),
          "interface 1-28\nno ip dhcp snooping circuit\nexit\n"},
         {"formatted", Mode::full, portDhcp, circuits([](CircuitIds &ids) {
              put(ids.formatted, {27, 28});
          }),
          std::string("interface 1-28\nno ip dhcp snooping option\nexit\n"
                      "interface 1-28\nno ip dhcp snooping circuit\nexit\n"
                      "interface 27,28\nip dhcp snooping circuit formatted\nexit\n"
                      "interface 1-26\nno ip dhcp snooping circuit formatted\nexit\n") +
              portsTail},
         {"formatted", Mode::delta, portDhcp, circuits([](CircuitIds &ids) { put(ids.formatted, {28}); }),
          "interface 28\nip dhcp snooping circuit formatted\nexit\n"
          "interface 1-27\nno ip dhcp snooping circuit formatted\nexit\n"},
         {"formatted after port 28", Mode::delta, portDhcp, circuits([](CircuitIds &ids) {
              put(ids.formatted, {29, 30, 31, 32});
          }),
          ""},
         {"trust", Mode::full, portDhcp, portsOnly([](DhcpSnoopingPorts &ports) {
              give(ports.trust, {1, 28}, 1);
              give(ports.trust, {2}, 2);
          }),
          std::string(portsHead) + "interface 3-27\nno ip dhcp snooping trust\nexit\n"
                                   "interface 1,28\nip dhcp snooping trust\nexit\n"},
         {"trust on all ports", Mode::full, portDhcp,
          portsOnly([](DhcpSnoopingPorts &ports) { giveAll(ports.trust, 1); }),
          std::string(portsHead) + "interface 1-28\nip dhcp snooping trust\nexit\n"},
         {"trust that is not exactly 1", Mode::full, portDhcp,
          portsOnly([](DhcpSnoopingPorts &ports) { give(ports.trust, {28}, 255); }),
          std::string(portsHead) + "interface 1-27\nno ip dhcp snooping trust\nexit\n"
                                   "interface \nip dhcp snooping trust\nexit\n"},
         {"trust that is not exactly 1", Mode::delta, portDhcp,
          portsOnly([](DhcpSnoopingPorts &ports) { give(ports.trust, {1}, 2); }),
          "interface 2-28\nno ip dhcp snooping trust\nexit\ninterface \nip dhcp snooping trust\nexit\n"},
         {"trust taken away", Mode::delta, portDhcp,
          defaults([](ConfigImage &image) { image.dhcpSnoopingPorts.trust[27] = 1; }),
          "interface 1-28\nno ip dhcp snooping trust\nexit\n"},
         {"everything", Mode::delta, portDhcp, current([](ConfigImage &image) {
              giveAll(image.dhcpSnoopingPorts.portOption, 1);
              giveAll(image.dhcpSnoopingPorts.trust, 1);
              image.circuitIds.inserted = image.circuitIds.formatted = {{255, 255, 255, 255}};
              image.circuitIds.text[4] = "five";
          }),
          "interface 1-28\nip dhcp snooping option\nexit\n"
          "interface 1-28\nip dhcp snooping circuit\nexit\n"
          "interface 1-28\nip dhcp snooping circuit formatted\nexit\n"
          "interface 5\nip dhcp snooping circuit id five\nexit\n"
          "interface 1-28\nip dhcp snooping trust\nexit\n"},
     }));

// ------------------------------------------------------------------------------------------------------ source guard

ROWS(SourceGuard, ({
                      {"zero image", Mode::full, guard, nothing, "interface 1-28\nip sourceguard fixed-ip\nexit\n"},
                      {"modes", Mode::full, guard, current([](ConfigImage &image) {
                           giveAll(image.sourceGuard, 2);
                           give(image.sourceGuard, {28}, 0);
                           give(image.sourceGuard, {1, 2, 3}, 1);
                           give(image.sourceGuard, {5}, 3);
                       }),
                       "interface 28\nip sourceguard fixed-ip\nexit\n"
                       "interface 1-3\nip sourceguard dhcp\nexit\n"
                       "interface 4,6-27\nno ip sourceguard \nexit\n"},
                      {"modes without a block", Mode::full, guard,
                       current([](ConfigImage &image) { giveAll(image.sourceGuard, 3); }), ""},
                      {"equal", Mode::delta, guard,
                       both([](ConfigImage &image) { giveAll(image.sourceGuard, 2); },
                            [](ConfigImage &image) { image.reserved147516.bytes[0] = 1; }),
                       ""},
                      {"modes", Mode::delta, guard, current([](ConfigImage &image) {
                           give(image.sourceGuard, {1}, 1);
                           give(image.sourceGuard, {2, 28}, 2);
                       }),
                       "interface 3-27\nip sourceguard fixed-ip\nexit\n"
                       "interface 1\nip sourceguard dhcp\nexit\n"
                       "interface 2,28\nno ip sourceguard\nexit\n"},
                      {"mode of the last port in the default", Mode::delta, guard,
                       defaults([](ConfigImage &image) { image.sourceGuard[27] = 9; }),
                       "interface 1-28\nip sourceguard fixed-ip\nexit\n"},
                  }));

ROWS(SourceGuardEntries,
     ({
         {"no entry", Mode::full, guardTable, nothing, ""},
         {"entries in their own order", Mode::full, guardTable, guardEntries([](SourceGuardTable &table) {
              guardEntry(table[0], {{192, 0, 2, 7}}, documentation, 27);
              guardEntry(table[1], {{192, 0, 2, 7}}, documentation, 0);
              table[1].valid = 0;
              guardEntry(table[2], {}, documentation, 0);
              guardEntry(table[3], {}, {}, 255);
              table[3].vlan = 65535;
              guardEntry(table[4], {}, mapped(192, 0, 2, 8), 1);
              guardEntry(table[47], {{0, 0, 0, 1}}, documentation, 0);
              table[47].valid = 255;
          }),
          "interface 28\nip sourceguard static-ip 192.0.2.7 vlan 127\nexit\n"
          "interface 1\nip sourceguard static-ip 2001:db8::5 vlan 100\nexit\n"
          "interface 256\nip sourceguard static-ip 0.0.0.0 vlan 65535\nexit\n"
          "interface 2\nip sourceguard static-ip ::ffff:192.0.2.8 vlan 101\nexit\n"
          "interface 1\nip sourceguard static-ip 0.0.0.1 vlan 100\nexit\n"},
         {"entries against none", Mode::delta, guardTable, guardEntries([](SourceGuardTable &table) {
              guardEntry(table[0], {{192, 0, 2, 7}}, {}, 27);
              guardEntry(table[47], {}, documentation, 0);
          }),
          "interface 28\nip sourceguard static-ip 192.0.2.7 vlan 127\nexit\n"
          "interface 1\nip sourceguard static-ip 2001:db8::5 vlan 100\nexit\n"},
         {"entry without an address against none", Mode::delta, guardTable,
          guardEntries([](SourceGuardTable &table) { guardEntry(table[0], {}, {}, 3); }), ""},
         {"entry that lost its address", Mode::delta, guardTable,
          both(
              [](ConfigImage &image) {
                  guardEntry(image.sourceGuardTable[0], {{192, 0, 2, 7}}, {}, 3);
              },
              [](ConfigImage &image) { image.sourceGuardTable[0].address = {}; }),
          "interface 4\nip sourceguard static-ip 0.0.0.0 vlan 103\nexit\n"},
         {"default entry alone", Mode::delta, guardTable, defaults([](ConfigImage &image) {
              guardEntry(image.sourceGuardTable[0], {{192, 0, 2, 7}}, {}, 3);
          }),
          ""},
         {"the default entry need not be valid", Mode::delta, guardTable,
          both(
              [](ConfigImage &image) {
                  guardEntry(image.sourceGuardTable[0], {{192, 0, 2, 7}}, {}, 3);
              },
              [](ConfigImage &) {}, [](ConfigImage &image) { image.sourceGuardTable[0].valid = 0; }),
          ""},
         {"VLAN and port do not count", Mode::delta, guardTable,
          both(
              [](ConfigImage &image) {
                  guardEntry(image.sourceGuardTable[0], {{192, 0, 2, 7}}, {}, 3);
              },
              [](ConfigImage &image) { image.sourceGuardTable[0].port = 4, image.sourceGuardTable[0].vlan = 9; }),
          ""},
         {"IPv6 addresses after an IPv4 one do not count", Mode::delta, guardTable,
          both(
              [](ConfigImage &image) {
                  guardEntry(image.sourceGuardTable[0], {{192, 0, 2, 7}}, {}, 3);
              },
              [](ConfigImage &image) { image.sourceGuardTable[0].addressIpv6 = documentation; }),
          ""},
         {"what a longer address left counts", Mode::delta, guardTable,
          [](ConfigImage &current, ConfigImage &defaults) {
              guardEntry(current.sourceGuardTable[0], {}, longest, 0);
              for (const int slot : {1, 20, 47}) {
                  guardEntry(current.sourceGuardTable[slot], {{192, 0, 2, 7}}, {}, static_cast<u8>(slot));
                  defaults.sourceGuardTable[slot] = current.sourceGuardTable[slot];
              }
          },
          "interface 1\nip sourceguard static-ip 2001:db8:1111:2222:3333:4444:5555:6666 vlan 100\nexit\n"
          "interface 2\nip sourceguard static-ip 192.0.2.7 vlan 101\nexit\n"
          "interface 21\nip sourceguard static-ip 192.0.2.7 vlan 120\nexit\n"
          "interface 48\nip sourceguard static-ip 192.0.2.7 vlan 147\nexit\n"},
         {"what a longer default address left counts", Mode::delta, guardTable,
          [](ConfigImage &current, ConfigImage &defaults) {
              guardEntry(current.sourceGuardTable[0], {{192, 0, 2, 7}}, {}, 0);
              guardEntry(current.sourceGuardTable[1], {{192, 0, 2, 8}}, {}, 1);
              defaults.sourceGuardTable[0].addressIpv6 = longest;
              defaults.sourceGuardTable[1] = current.sourceGuardTable[1];
          },
          "interface 1\nip sourceguard static-ip 192.0.2.7 vlan 100\nexit\n"
          "interface 2\nip sourceguard static-ip 192.0.2.8 vlan 101\nexit\n"},
         {"the same left on both sides", Mode::delta, guardTable,
          both(
              [](ConfigImage &image) {
                  guardEntry(image.sourceGuardTable[0], {}, longest, 0);
                  guardEntry(image.sourceGuardTable[1], {{192, 0, 2, 8}}, {}, 1);
              },
              [](ConfigImage &) {}),
          ""},
         {"a longer address later evens it out", Mode::delta, guardTable,
          [](ConfigImage &current, ConfigImage &defaults) {
              guardEntry(current.sourceGuardTable[0], {}, documentation, 0);
              for (const int slot : {1, 2, 3})
                  guardEntry(current.sourceGuardTable[slot], {}, slot == 2 ? longest : documentation,
                             static_cast<u8>(slot));
              for (const int slot : {1, 2, 3}) defaults.sourceGuardTable[slot] = current.sourceGuardTable[slot];
          },
          "interface 1\nip sourceguard static-ip 2001:db8::5 vlan 100\nexit\n"},
         {"an entry that is not valid leaves nothing", Mode::delta, guardTable,
          [](ConfigImage &current, ConfigImage &defaults) {
              guardEntry(current.sourceGuardTable[0], {}, longest, 0);
              current.sourceGuardTable[0].valid = 0;
              guardEntry(current.sourceGuardTable[1], {{192, 0, 2, 8}}, {}, 1);
              defaults.sourceGuardTable[1] = current.sourceGuardTable[1];
          },
          ""},
     }));

ROWS(SourceBindings, ({
                         {"no binding", Mode::full, bindings, nothing, ""},
                         {"bindings", Mode::full, bindings, current([](ConfigImage &image) {
                              SourceBindingTable &table = image.sourceBindings;
                              table[0] = {1, 1, mapped(192, 0, 2, 9), {}};
                              table[1] = {0, 1, mapped(192, 0, 2, 9), {}};
                              table[2] = {255, 0, documentation, {}};
                              table[3] = {1, 0, {}, {}};
                              table[4] = {1, 1, mapped(0, 0, 0, 0), {}};
                              table[11] = {1, 255, mapped(192, 0, 2, 12), {}};
                          }),
                          "ip source binding 1 ip-address 192.0.2.9 \nip source binding 1\n"
                          "ip source binding 3 ip-address 2001:db8::5 \nno ip source binding 3\n"
                          "no ip source binding 4 ip-address \nno ip source binding 4\n"
                          "no ip source binding 5 ip-address \nip source binding 5\n"
                          "ip source binding 12 ip-address 192.0.2.12 \nip source binding 12\n"},
                         {"bindings", Mode::delta, bindings,
                          [](ConfigImage &current, ConfigImage &defaults) {
                              SourceBindingTable &table = current.sourceBindings;
                              SourceBindingTable &defaultTable = defaults.sourceBindings;
                              table[0] = {1, 1, mapped(192, 0, 2, 9), {}};
                              table[1] = {0, 1, mapped(192, 0, 2, 9), {}};
                              table[2] = {1, 0, documentation, {}};
                              defaultTable[2] = {0, 1, documentation, {}};
                              table[3] = {1, 0, {}, {}};
                              defaultTable[3] = {1, 0, mapped(192, 0, 2, 4), {}};
                              table[4] = {1, 2, mapped(0, 0, 0, 0), {}};
                              defaultTable[4] = {1, 1, {}, {}};
                              table[5] = defaultTable[5] = {1, 1, documentation, {}};
                              table[5].reserved18.bytes[0] = 1;
                              defaultTable[6] = {1, 1, documentation, {}};
                              table[11] = {1, 0, documentation, {}};
                          },
                          "ip source binding 1 ip-address 192.0.2.9\nip source binding 1\n"
                          "no ip source binding 3\n"
                          "no ip source binding 4 ip-address\n"
                          "ip source binding 5\n"
                          "ip source binding 12 ip-address 2001:db8::5\n"},
                     }));

ROWS(SourceSwitch,
     ({
         {"off", Mode::full, ipSource, nothing, "no ip source\n"},
         {"on", Mode::full, ipSource, current([](ConfigImage &image) { image.ipSource = 128; }), "ip source\n"},
         {"equal", Mode::delta, ipSource, both([](ConfigImage &image) { image.ipSource = 1; }, [](ConfigImage &) {}),
          ""},
         {"on", Mode::delta, ipSource, current([](ConfigImage &image) { image.ipSource = 1; }), "ip source\n"},
         {"off", Mode::delta, ipSource, defaults([](ConfigImage &image) { image.ipSource = 1; }), "no ip source\n"},
         {"on in another way", Mode::delta, ipSource,
          both([](ConfigImage &image) { image.ipSource = 1; }, [](ConfigImage &image) { image.ipSource = 2; }),
          "ip source\n"},
     }));
