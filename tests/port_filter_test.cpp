/// IGMP filters of the ports and static multicast.
#include "multicast_area.h"

using namespace multicast;

// --------------------------------------------------------------------------------------------------- filters of ports

ROWS(PortFilters,
     ({
         {"zero image", Mode::full, portFilters, nothing,
          "interface 1-28 \nno ip igmp filter\nexit\n" + noMaxima + profileBlock("1-28", "") +
              profileBlock("1-28", "") + profileBlock("1-28", "") + profileBlock("1-28", "")},
         {"quiet ports", Mode::full, portFilters, filters([](PortFilter *) {}), noMaxima},
         {"off before on", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].enabled = 1;
              port[1].enabled = 0;
              port[2].enabled = 255;
              port[27].enabled = 1;
              port[26].enabled = 0;
          }),
          "interface 2,27 \nno ip igmp filter\nexit\n"
          "interface 1,28 \nip igmp filter\nexit\n" +
              noMaxima},
         {"all on", Mode::full, portFilters, filters([](PortFilter *port) {
              for (int i = 0; i < 28; ++i) port[i].enabled = 1;
          }),
          "interface 1-28 \nip igmp filter\nexit\n" + noMaxima},
         {"by equal maximum", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].maxGroups = 65535;
              port[1].maxGroups = 1;
              port[2].maxGroups = 65535;
              port[27].maxGroups = 1;
              port[26].maxGroups = 256;
          }),
          "interface 1,3 \nip igmp max-groups 65535\nexit\n"
          "interface 2,28 \nip igmp max-groups 1\nexit\n"
          "interface 4-26 \nip igmp max-groups 0\nexit\n"
          "interface 27 \nip igmp max-groups 256\nexit\n"},
         {"28 maxima", Mode::full, portFilters, filters([](PortFilter *port) {
              for (int i = 0; i < 28; ++i) port[i].maxGroups = static_cast<std::uint16_t>(27 - i);
          }),
          maximumOfEachPort()},
         {"profiles by equal name in any slot", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[0] = "a";
              port[2].profile[1] = "b";
              port[4].profile[3] = "a";
              port[27].profile[2] = "b";
          }),
          noMaxima + profileBlock("1,5", "a") + profileBlock("3,28", "b")},
         {"marks of one port carry over to its later slots", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[0] = "a";
              port[0].profile[1] = "b";
              port[1].profile[0] = "a";
          }),
          noMaxima + profileBlock("1,2", "a") + profileBlock("1,2", "b")},
         {"marks grow over four slots", Mode::full, portFilters, filters([](PortFilter *port) {
              port[3].profile[0] = "d";
              port[3].profile[1] = "c";
              port[3].profile[2] = "b";
              port[3].profile[3] = "a";
              port[7].profile[1] = "a";
              port[9].profile[2] = "b";
              port[11].profile[3] = "c";
              port[27].profile[3] = "d";
          }),
          noMaxima + profileBlock("4,28", "d") + profileBlock("4,12,28", "c") + profileBlock("4,10,12,28", "b") +
              profileBlock("4,8,10,12,28", "a")},
         {"marks do not carry over to the next port", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[3] = "a";
              port[1].profile[0] = "b";
              port[5].profile[0] = "a";
          }),
          noMaxima + profileBlock("1,6", "a") + profileBlock("2", "b")},
         {"a name twice on one port", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[0] = port[0].profile[2] = "a";
              port[1].profile[1] = port[1].profile[3] = "a";
          }),
          noMaxima + profileBlock("1,2", "a") + profileBlock("1,2", "a")},
         {"joined slots are not written again", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[0] = "a";
              port[1].profile[0] = "a";
              port[1].profile[1] = "b";
              port[27].profile[3] = "b";
          }),
          noMaxima + profileBlock("1,2", "a") + profileBlock("2,28", "b")},
         {"only one blank is empty", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[0] = "  ";
              port[1].profile[0] = "";
              port[2].profile[0] = " a";
              port[3].profile[0] = "a ";
              port[4].profile[0].characters[2] = 'x'; // after the end of a blank
          }),
          noMaxima + profileBlock("1", "  ") + profileBlock("2", "") + profileBlock("3", " a") +
              profileBlock("4", "a ")},
         {"full names", Mode::full, portFilters, filters([](PortFilter *port) {
              for (auto &profile : port[0].profile) profile = letters(24).c_str();
              port[1].profile[0] = letters(23).c_str();
              port[27].profile[3] = letters(24).c_str();
              port[27].maxGroups = 0x4100;
          }),
          "interface 1-27 \nip igmp max-groups 0\nexit\ninterface 28 \nip igmp max-groups 16640\nexit\n" +
              profileBlock("1,28", letters(24)) + profileBlock("1,28", letters(24)) +
              profileBlock("1,28", letters(24)) + profileBlock("1,28", letters(24)) + profileBlock("2", letters(23))},
         {"nothing counts after the end of a name", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[0] = port[1].profile[0] = "a";
              port[1].profile[0].characters[2] = 'b';
          }),
          noMaxima + profileBlock("1,2", "a")},
     }));

ROWS(PortFilterDifferences,
     ({
         {"same", Mode::delta, portFilters,
          [](ConfigImage &current, ConfigImage &defaults) {
              composeMulticast(current, defaults);
              defaults = current;
          },
          ""},
         {"zero image", Mode::delta, portFilters, nothing, ""},
         {"filtering of one port", Mode::delta, portFilters, filters([](PortFilter *port) {
              port[3].enabled = 1;
              port[4].enabled = 0;
          }),
          "interface 5 \nno ip igmp filter\nexit\ninterface 4 \nip igmp filter\nexit\n"},
         {"all ports are in the blocks", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  for (int i = 0; i < 28; ++i) port[i].enabled = i >= 26;
              },
              [](PortFilter *port) {
                  for (int i = 0; i < 28; ++i) port[i].enabled = i == 27;
              }),
          "interface 1-26 \nno ip igmp filter\nexit\ninterface 27,28 \nip igmp filter\nexit\n"},

         {"maximum of one port", Mode::delta, portFilters, filters([](PortFilter *port) { port[27].maxGroups = 5; }),
          "interface 1-27 \nip igmp max-groups 0\nexit\ninterface 28 \nip igmp max-groups 5\nexit\n"},
         {"maximum of one port in the default", Mode::delta, portFilters,
          filters([](PortFilter *) {}, [](PortFilter *port) { port[1].maxGroups = 5; }), noMaxima},
         {"same ports with another maximum", Mode::delta, portFilters, filters([](PortFilter *port) {
              for (int i = 0; i < 28; ++i) port[i].maxGroups = 7;
          }),
          "interface 1-28 \nip igmp max-groups 7\nexit\n"},
         {"groups that are the same are left out", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  for (int i = 0; i < 28; ++i) port[i].maxGroups = i < 14 ? 10 : 20;
              },
              [](PortFilter *port) {
                  for (int i = 0; i < 28; ++i) port[i].maxGroups = i < 14 ? 10 : 30;
              }),
          "interface 15-28 \nip igmp max-groups 20\nexit\n"},
         {"the same name in a later slot", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[2].profile[1] = "a"; },
                  [](PortFilter *port) { port[2].profile[1] = "a"; }),
          ""},
         {"each port is led by its own image's groups", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  for (int i = 0; i < 28; ++i) port[i].maxGroups = 6;
                  port[0].maxGroups = 5;
              },
              [](PortFilter *port) {
                  for (int i = 0; i < 28; ++i) port[i].maxGroups = 6;
                  port[0].maxGroups = 7;
              }),
          "interface 1 \nip igmp max-groups 5\nexit\n"},
         {"group that the default leads at another port", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  port[0].maxGroups = 4;
                  port[1].maxGroups = 3;
                  port[2].maxGroups = 3;
              },
              [](PortFilter *port) {
                  port[0].maxGroups = 3;
                  port[1].maxGroups = 3;
                  port[2].maxGroups = 4;
              }),
          // Ports 2 and 3 lead nothing and port 3 in the default; from port 4 on both images agree.
          "interface 1 \nip igmp max-groups 4\nexit\ninterface 2,3 \nip igmp max-groups 3\nexit\n"},

         {"new profile", Mode::delta, portFilters, filters([](PortFilter *port) { port[27].profile[3] = "a"; }),
          profileBlock("28", "a")},
         {"kept profile", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[27].profile[3] = "a"; },
                  [](PortFilter *port) { port[27].profile[3] = "a"; }),
          ""},
         {"changed profile of a later port and slot", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[2].profile[1] = "a"; },
                  [](PortFilter *port) { port[2].profile[1] = "b"; }),
          profileBlock("3", "a")},
         {"removed profile", Mode::delta, portFilters,
          filters([](PortFilter *) {}, [](PortFilter *port) { port[0].profile[0] = "a"; }), ""},
         {"another name", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[0] = "a"; },
                  [](PortFilter *port) { port[0].profile[0] = "b"; }),
          profileBlock("1", "a")},
         {"another last character", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[0] = letters(24).c_str(); },
                  [](PortFilter *port) {
                      port[0].profile[0] = letters(24).c_str();
                      port[0].profile[0].characters[23] = '.';
                  }),
          profileBlock("1", letters(24))},
         {"one more port", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[0] = port[5].profile[2] = "a"; },
                  [](PortFilter *port) { port[0].profile[0] = "a"; }),
          profileBlock("1,6", "a")},
         {"the same port by another slot", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[0] = port[5].profile[2] = "a"; },
                  [](PortFilter *port) { port[0].profile[0] = port[5].profile[3] = "a"; }),
          ""},
         {"one port less", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[0] = "a"; },
                  [](PortFilter *port) { port[0].profile[0] = port[5].profile[2] = "a"; }),
          profileBlock("1", "a")},
         {"led by another slot of the default", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[1] = "a"; },
                  [](PortFilter *port) { port[0].profile[0] = "a"; }),
          profileBlock("1", "a")},
         {"led by another port of the default", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[1].profile[0] = port[2].profile[0] = "a"; },
                  [](PortFilter *port) { port[0].profile[0] = port[1].profile[0] = port[2].profile[0] = "a"; }),
          profileBlock("2,3", "a")},
         {"marks of the default carry over too", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  port[0].profile[0] = "a";
                  port[0].profile[1] = port[1].profile[0] = "b";
              },
              [](PortFilter *port) {
                  port[0].profile[0] = port[1].profile[0] = "a";
                  port[0].profile[1] = "b";
              }),
          profileBlock("1", "a")},
         {"marks of the default as they were left", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  port[1].profile[0] = "a";
                  port[1].profile[1] = "b";
              },
              [](PortFilter *port) {
                  // Port 2's "b" joins port 1's, so that at port 2 the default forms the group of "a" alone.
                  port[0].profile[0] = "b";
                  port[1].profile[0] = "a";
                  port[1].profile[1] = "b";
              }),
          ""},
         {"no marks of the default were left", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  port[1].profile[0] = "a";
                  port[1].profile[1] = "b";
              },
              [](PortFilter *port) {
                  port[0].profile[0] = "b";
                  port[1].profile[1] = "b";
              }),
          profileBlock("2", "a") + profileBlock("2", "b")},
         {"marks of the default do not carry over to the next port", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[1].profile[0] = port[27].profile[0] = "b"; },
                  [](PortFilter *port) {
                      port[0].profile[0] = "a";
                      port[1].profile[0] = port[27].profile[0] = "b";
                  }),
          ""},
         {"the default's group forms though the current forms none", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  port[0].profile[1] = "b";
                  port[1].profile[0] = "b";
              },
              [](PortFilter *port) {
                  port[0].profile[0] = port[1].profile[0] = "a";
                  port[0].profile[1] = "b";
              }),
          ""},
         {"empty name against empty slot", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[0] = ""; }), profileBlock("1", "")},
         {"empty slot against empty name", Mode::delta, portFilters,
          filters([](PortFilter *) {}, [](PortFilter *port) { port[0].profile[0] = ""; }), ""},
     }));

TEST(PortFilters, Bytes) {
    const auto given = [](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults})
            for (PortFilter &filter : image->portFilters.port)
                for (auto &profile : filter.profile) profile = letters(24).c_str();
    };
    Places read;
    std::vector<Counting> counting;
    for (std::size_t port = 0; port < 28; ++port) {
        const std::size_t at = filtersAt + 102 * port;
        read.add(at + 2, at + 100);
        counting.push_back({at + 2, at + 97, "interface "});
        counting.push_back({at + 98, at + 99, "interface "});
        counting.push_back({at + 100, at + 100, "interface "});
    }
    expectRead(portFilters, given, filtersAt - 4, filtersAt + 28 * 102 + 4, read);
    expectCounting(portFilters, given, filtersAt - 4, filtersAt + 28 * 102 + 4, counting);
}

// -------------------------------------------------------------------------------------------------- static multicast

ROWS(StaticMulticast,
     ({
         {"none valid", Mode::full, staticGroups, groupChanged([](MulticastEntry &e) { e.valid = 0; }), ""},
         {"ipv4", Mode::full, staticGroups, groupChanged([](MulticastEntry &) {}),
          "interface 3\nip igmp static-multicast-ip 233.252.0.7 vlan 10\nexit\n"},
         {"valid is a word", Mode::full, staticGroups, groupChanged([](MulticastEntry &e) { e.valid = 0x01000000; }),
          "interface 3\nip igmp static-multicast-ip 233.252.0.7 vlan 10\nexit\n"},
         {"ipv4 before ipv6", Mode::full, staticGroups,
          groupChanged([](MulticastEntry &e) { e.addressIpv6 = groupIpv6; }),
          "interface 3\nip igmp static-multicast-ip 233.252.0.7 vlan 10\nexit\n"},
         {"ipv6", Mode::full, staticGroups, groupChanged([](MulticastEntry &e) {
              e.address = {};
              e.addressIpv6 = groupIpv6;
          }),
          "interface 3\nip igmp static-multicast-ip ff0e::db80:7 vlan 10\nexit\n"},
         {"no address", Mode::full, staticGroups, groupChanged([](MulticastEntry &e) { e.address = {}; }),
          "interface 3\nip igmp static-multicast-ip 0.0.0.0 vlan 10\nexit\n"},
         {"port 256", Mode::full, staticGroups, groupChanged([](MulticastEntry &e) { e.port = 255; }),
          "interface 256\nip igmp static-multicast-ip 233.252.0.7 vlan 10\nexit\n"},
         {"vlan is a signed word", Mode::full, staticGroups, groupChanged([](MulticastEntry &e) { e.vlan = -65536; }),
          "interface 3\nip igmp static-multicast-ip 233.252.0.7 vlan -65536\nexit\n"},
         {"last entry", Mode::full, staticGroups,
          [](ConfigImage &current, ConfigImage &) {
              current.multicastTable[127].valid = 1;
              current.multicastTable[127].address = {{239, 255, 255, 250}};
              current.multicastTable[127].vlan = 4094;
          },
          "interface 1\nip igmp static-multicast-ip 239.255.255.250 vlan 4094\nexit\n"},
         {"neither sorted nor grouped", Mode::full, staticGroups,
          [](ConfigImage &current, ConfigImage &) {
              for (int i = 0; i < 3; ++i) {
                  current.multicastTable[i].valid = 1;
                  current.multicastTable[i].address = {{233, 252, 0, 7}};
                  current.multicastTable[i].port = static_cast<u8>(i == 1 ? 9 : 1);
              }
          },
          "interface 2\nip igmp static-multicast-ip 233.252.0.7 vlan 0\nexit\n"
          "interface 10\nip igmp static-multicast-ip 233.252.0.7 vlan 0\nexit\n"
          "interface 2\nip igmp static-multicast-ip 233.252.0.7 vlan 0\nexit\n"},

         {"same", Mode::delta, staticGroups, groupChanged([](MulticastEntry &) {}), ""},
         {"address differs", Mode::delta, staticGroups, groupChanged([](MulticastEntry &e) {
              e.address = {{233, 252, 0, 8}};
          }),
          "interface 3\nip igmp static-multicast-ip 233.252.0.8 vlan 10\nexit\n"},
         {"not valid any more", Mode::delta, staticGroups, groupChanged([](MulticastEntry &e) {
              e.address = {{233, 252, 0, 8}};
              e.valid = 0;
          }),
          ""},
         {"port and vlan do not count", Mode::delta, staticGroups, groupChanged([](MulticastEntry &e) {
              e.port = 5;
              e.vlan = 6;
          }),
          ""},
         {"ipv6 against ipv4", Mode::delta, staticGroups, groupChanged([](MulticastEntry &e) {
              e.address = {};
              e.addressIpv6 = groupIpv6;
              e.port = 255;
              e.vlan = -1;
          }),
          "interface 256\nip igmp static-multicast-ip ff0e::db80:7 vlan -1\nexit\n"},
         {"unset against unset", Mode::delta, staticGroups,
          [](ConfigImage &current, ConfigImage &) { current.multicastTable[5].valid = 1; }, ""},
         {"unset against set", Mode::delta, staticGroups, groupChanged([](MulticastEntry &e) { e.address = {}; }),
          "interface 3\nip igmp static-multicast-ip 0.0.0.0 vlan 10\nexit\n"},
         {"default entry counts though not valid", Mode::delta, staticGroups,
          [](ConfigImage &current, ConfigImage &defaults) {
              current.multicastTable[127].valid = 1;
              current.multicastTable[127].address = defaults.multicastTable[127].address = {{233, 252, 0, 7}};
          },
          ""},
         {"last entry", Mode::delta, staticGroups,
          [](ConfigImage &current, ConfigImage &defaults) {
              current.multicastTable[127].valid = 256;
              current.multicastTable[127].address = {{233, 252, 0, 7}};
              defaults.multicastTable[126].address = {{233, 252, 0, 7}};
          },
          "interface 1\nip igmp static-multicast-ip 233.252.0.7 vlan 0\nexit\n"},
     }));

TEST(StaticMulticast, Bytes) {
    for (const std::size_t entry : {std::size_t{0}, std::size_t{127}}) {
        const std::size_t at = staticAt + 40 * entry;
        const auto ipv4 = [entry](ConfigImage &current, ConfigImage &defaults) {
            for (ConfigImage *image : {&current, &defaults}) {
                image->multicastTable[entry].valid = 0x40;
                image->multicastTable[entry].address = {{1, 2, 3, 4}};
            }
        };
        // Of the valid word only its last byte is changed to 0.
        const Places ipv4Read = {{at + 3, at + 8}, {at + 12, at + 15}};
        expectRead(staticGroups, ipv4, at, at + 39, ipv4Read);
        expectCounting(staticGroups, ipv4, at, at + 39, {{at + 4, at + 7, "interface 1\n"}});

        const auto ipv6 = [entry](ConfigImage &current, ConfigImage &defaults) {
            for (ConfigImage *image : {&current, &defaults}) {
                image->multicastTable[entry].valid = 0x40;
                image->multicastTable[entry].addressIpv6 = groupIpv6;
            }
        };
        expectRead(staticGroups, ipv6, at, at + 39, {{at + 3, at + 8}, {at + 12, at + 31}});
        expectCounting(staticGroups, ipv6, at, at + 39,
                       {{at + 4, at + 7, "interface 1\n"}, {at + 16, at + 31, "interface 1\n"}});
    }
    expectRead(staticGroups, nothing, staticAt - 8, staticAt - 1, {});
    expectRead(staticGroups, nothing, segmentsAt, segmentsAt + 48, {});
}
