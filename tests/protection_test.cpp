/// Storm protection, isolation, MAC limit, PPPoE and server trust.
#include "security_area.h"

using namespace security;

// --------------------------------------------------------------------------------------- storm protection, isolation

ROWS(StormProtection,
     ({
         {"off", Mode::full, storm, nothing,
          "no security storm-protection broadcast \n"
          "no security storm-protection multicast \n"
          "security storm-protection notification threshold interval 0\n"
          "no security storm-protection unicast \n"},
         {"rates", Mode::full, storm, stormOnly([](StormControl &config) {
              config.broadcast = 1;
              config.multicast = 11;
              config.unicast = 21;
              config.notificationInterval = -3;
          }),
          "security storm-protection broadcast 1\n"
          "security storm-protection multicast 1k\n"
          "security storm-protection notification threshold interval -3\n"
          "security storm-protection unicast 1024k\n"},
         {"rates beyond the table", Mode::full, storm, stormOnly([](StormControl &config) {
              config.broadcast = 22;
              config.multicast = 256;
              config.unicast = 0xffffffff;
          }),
          "security storm-protection broadcast unknown\n"
          "security storm-protection multicast unknown\n"
          "security storm-protection notification threshold interval 0\n"
          "security storm-protection unicast unknown\n"},
         {"equal", Mode::delta, storm, stormChange([](StormControl &) {}), ""},
         {"everything", Mode::delta, storm, stormOnly([](StormControl &config) {
              config.broadcast = 2;
              config.multicast = 3;
              config.unicast = 4;
              config.notificationInterval = 5;
          }),
          "security storm-protection broadcast 2\n"
          "security storm-protection multicast 4\n"
          "security storm-protection notification threshold interval 5\n"
          "security storm-protection unicast 8\n"},
         {"everything off", Mode::delta, storm, stormChange([](StormControl &config) { config = {}; }),
          "no security storm-protection broadcast\n"
          "no security storm-protection multicast\n"
          "security storm-protection notification threshold interval 0\n"
          "no security storm-protection unicast\n"},
         {"broadcast", Mode::delta, storm, stormChange([](StormControl &config) { config.broadcast = 20; }),
          "security storm-protection broadcast 512k\n"},
         {"multicast", Mode::delta, storm, stormChange([](StormControl &config) { config.multicast = 22; }),
          "security storm-protection multicast unknown\n"},
         {"unicast", Mode::delta, storm, stormChange([](StormControl &config) { config.unicast = 0x0100; }),
          "security storm-protection unicast unknown\n"},
         {"interval", Mode::delta, storm,
          stormChange([](StormControl &config) { config.notificationInterval = 256 + 7; }),
          "security storm-protection notification threshold interval 263\n"},
     }));

ROWS(PortIsolation,
     ({
         {"no up-link", Mode::full, isolation, nothing,
          "no security port-isolation up-link-port 1-28 \nno security port-isolation\n"},
         {"all ports", Mode::full, isolation, allUplinks(0x0f, 0),
          "security port-isolation up-link-port 1-28 \nno security port-isolation\n"},
         {"all bits", Mode::full, isolation, allUplinks(0xff, 0),
          "security port-isolation up-link-port 1-28 \nno security port-isolation\n"},
         {"some ports, on", Mode::full, isolation, current([](ConfigImage &image) {
              put(image.isolation.uplinks, {1, 9, 27, 28});
              image.isolation.enabled = 255;
          }),
          "security port-isolation up-link-port 1,9,27,28 \n"
          "no security port-isolation up-link-port 2-8,10-26 \n"
          "security port-isolation\n"},
         {"all but the last", Mode::full, isolation, allUplinks(0x07, 0),
          "security port-isolation up-link-port 1-27 \nno security port-isolation up-link-port 28 \n"
          "no security port-isolation\n"},
         {"bits after port 28", Mode::full, isolation, uplinks({29, 30, 31, 32}),
          "no security port-isolation up-link-port 1-28 \nno security port-isolation\n"},
         {"equal", Mode::delta, isolation, uplinks({1, 28}, {1, 28}), ""},
         {"bits after port 28 alone differ", Mode::delta, isolation, uplinks({1, 29, 30, 31, 32}, {1}), ""},
         {"up-links", Mode::delta, isolation, uplinks({25, 26, 27, 28}),
          "security port-isolation up-link-port 25-28\nno security port-isolation up-link-port 1-24\n"},
         {"other up-links", Mode::delta, isolation, uplinks({1}, {1, 28}),
          "security port-isolation up-link-port 1\nno security port-isolation up-link-port 2-28\n"},
         {"all up-links", Mode::delta, isolation, allUplinks(0x0f, 0x07),
          "security port-isolation up-link-port 1-28\n"},
         {"up-links taken away", Mode::delta, isolation, uplinks({}, {28}),
          "no security port-isolation up-link-port 1-28\n"},
         {"on", Mode::delta, isolation, current([](ConfigImage &image) { image.isolation.enabled = 1; }),
          "security port-isolation\n"},
         {"off", Mode::delta, isolation, defaults([](ConfigImage &image) { image.isolation.enabled = 1; }),
          "no security port-isolation\n"},
         {"on in another way", Mode::delta, isolation,
          both([](ConfigImage &image) { image.isolation.enabled = 1; },
               [](ConfigImage &image) { image.isolation.enabled = 2; }),
          "security port-isolation\n"},
         {"everything", Mode::delta, isolation,
          [](ConfigImage &current, ConfigImage &defaults) {
              uplinks({1, 2, 3}, {4})(current, defaults);
              current.isolation.enabled = 1;
          },
          "security port-isolation up-link-port 1-3\nno security port-isolation up-link-port 4-28\n"
          "security port-isolation\n"},
     }));

// ------------------------------------------------------------------------------------------------- MAC limit, PPPoE

ROWS(MacLimit,
     ({
         {"off", Mode::full, macLimit, nothing,
          "no security mac-limit\nsecurity mac-limit notification threshold interval 0\n"},
         {"on", Mode::full, macLimit, limitOnly([](MacLimit &limit) {
              limit.enabled = 256;
              limit.notificationInterval = -60;
          }),
          "security mac-limit\nsecurity mac-limit notification threshold interval -60\n"},
         {"on", Mode::delta, macLimit, limitOnly([](MacLimit &limit) { limit.enabled = 1; }), "security mac-limit\n"},
         {"off", Mode::delta, macLimit, defaults([](ConfigImage &image) { image.macLimit.enabled = 0x10000; }),
          "no security mac-limit\n"},
         {"on in another way", Mode::delta, macLimit,
          both([](ConfigImage &image) { image.macLimit.enabled = 1; },
               [](ConfigImage &image) { image.macLimit.enabled = 2; }),
          "security mac-limit\n"},
         {"interval", Mode::delta, macLimit, limitOnly([](MacLimit &limit) { limit.notificationInterval = 256; }),
          "security mac-limit notification threshold interval 256\n"},
         {"everything", Mode::delta, macLimit, limitOnly([](MacLimit &limit) {
              limit.enabled = 1;
              limit.notificationInterval = 1;
          }),
          "security mac-limit\nsecurity mac-limit notification threshold interval 1\n"},
         {"ports alone", Mode::delta, macLimit, limitOnly([](MacLimit &limit) {
              giveAll(limit.portEnabled, 1);
              giveAll(limit.portMaximum, 1);
              limit.reserved228.bytes[0] = limit.reserved228.bytes[115] = 1;
          }),
          ""},
     }));

ROWS(MacLimitOfPorts,
     ({
         {"zero image", Mode::full, portMacLimit, nothing, std::string(limitedNowhere) + withoutMaximum},
         {"some ports", Mode::full, portMacLimit, limitOnly([](MacLimit &limit) {
              give(limit.portEnabled, {1, 2, 28}, 1);
              give(limit.portEnabled, {4}, 2);
              give(limit.portEnabled, {5}, 256);
          }),
          std::string("interface 1,2,28 \nsecurity mac-limit\nexit\n"
                      "interface 3,6-27 \nno security mac-limit\nexit\n") +
              withoutMaximum},
         {"all ports", Mode::full, portMacLimit, limitOnly([](MacLimit &limit) { giveAll(limit.portEnabled, 1); }),
          std::string("interface 1-28 \nsecurity mac-limit\nexit\n") + withoutMaximum},
         {"no port is plainly on or off", Mode::full, portMacLimit,
          limitOnly([](MacLimit &limit) { giveAll(limit.portEnabled, 2); }), withoutMaximum},
         {"maximums 5, 7, 5", Mode::full, portMacLimit, limitOnly([](MacLimit &limit) {
              give(limit.portMaximum, {1, 3}, 5);
              give(limit.portMaximum, {2}, 7);
          }),
          std::string(limitedNowhere) + "interface 4-28 \nno security mac-limit maximum \nexit\n"
                                        "interface 1,3\nsecurity mac-limit maximum 5\nexit\n"
                                        "interface 2\nsecurity mac-limit maximum 7\nexit\n"},
         {"maximums on all ports", Mode::full, portMacLimit, limitOnly([](MacLimit &limit) {
              giveAll(limit.portMaximum, 0xfffffffe);
              give(limit.portMaximum, {28}, 256);
              give(limit.portMaximum, {2}, 1);
          }),
          std::string(limitedNowhere) + "interface 1,3-27\nsecurity mac-limit maximum -2\nexit\n"
                                        "interface 2\nsecurity mac-limit maximum 1\nexit\n"
                                        "interface 28\nsecurity mac-limit maximum 256\nexit\n"},
         {"nothing to compare with", Mode::delta, portMacLimit,
          [](ConfigImage &current, ConfigImage &defaults) {
              giveAll(current.macLimit.portEnabled, 1);
              giveAll(current.macLimit.portMaximum, 5);
              giveAll(defaults.macLimit.portMaximum, 6);
          },
          ""},
     }));

TEST(MacLimit, TwoSectionsAreCompared) {
    EXPECT_EQ("", limitsOf(nothing));
    EXPECT_EQ("interface 1 \nsecurity mac-limit\nexit\ninterface 2-28 \nno security mac-limit\nexit\n",
              limitsOf(limitOnly([](MacLimit &limit) { give(limit.portEnabled, {1}, 1); })));
    EXPECT_EQ("interface 1-27 \nno security mac-limit\nexit\n",
              limitsOf(limitOnly([](MacLimit &limit) { give(limit.portEnabled, {28}, 0x01000000); })));
    EXPECT_EQ("interface 2-28 \nno security mac-limit maximum \nexit\n"
              "interface 1\nsecurity mac-limit maximum 3\nexit\n",
              limitsOf(limitOnly([](MacLimit &limit) { give(limit.portMaximum, {1}, 3); })));
    EXPECT_EQ(withoutMaximum,
              limitsOf(defaults([](ConfigImage &image) { give(image.macLimit.portMaximum, {28}, 3); })));
    EXPECT_EQ("", limitsOf(limitOnly([](MacLimit &limit) {
                  limit.enabled = 1;
                  limit.notificationInterval = 1;
                  limit.reserved228.bytes[0] = 1;
              })));
    EXPECT_EQ("interface 1-28 \nsecurity mac-limit\nexit\n"
              "interface 1-28\nsecurity mac-limit maximum 9\nexit\n",
              limitsOf(limitOnly([](MacLimit &limit) {
                  giveAll(limit.portEnabled, 1);
                  giveAll(limit.portMaximum, 9);
              })));
}

ROWS(Pppoe,
     ({
         {"off", Mode::full, pppoe, nothing, "no ip pppoe intermediate-agent\n"},
         {"on", Mode::full, pppoe, current([](ConfigImage &image) { image.pppoe.enabled = 256; }),
          "ip pppoe intermediate-agent\n"},
         {"on", Mode::delta, pppoe, current([](ConfigImage &image) { image.pppoe.enabled = 1; }),
          "ip pppoe intermediate-agent\n"},
         {"off", Mode::delta, pppoe, defaults([](ConfigImage &image) { image.pppoe.enabled = 0x01000000; }),
          "no ip pppoe intermediate-agent\n"},
         {"on in another way", Mode::delta, pppoe,
          both([](ConfigImage &image) { image.pppoe.enabled = 1; },
               [](ConfigImage &image) { image.pppoe.enabled = 3; }),
          "ip pppoe intermediate-agent\n"},
         {"ports alone", Mode::delta, pppoe, current([](ConfigImage &image) { put(image.pppoe.trusted, {1}); }), ""},
     }));

ROWS(PppoeOfPorts,
     ({
         {"no port", Mode::full, portPppoe, nothing, "interface 1-28 \nno ip pppoe intermediate-agent trust\nexit\n"},
         {"all bits", Mode::full, portPppoe, current([](ConfigImage &image) {
              image.pppoe.trusted = {{255, 255, 255, 255}};
          }),
          "interface 1-28 \nip pppoe intermediate-agent trust\nexit\n"},
         {"some ports", Mode::full, portPppoe, current([](ConfigImage &image) {
              put(image.pppoe.trusted, {1, 9, 10, 28});
          }),
          "interface 1,9,10,28 \nip pppoe intermediate-agent trust\nexit\n"
          "interface 2-8,11-27 \nno ip pppoe intermediate-agent trust\nexit\n"},
         {"some ports", Mode::delta, portPppoe, current([](ConfigImage &image) { put(image.pppoe.trusted, {28}); }),
          "interface 28 \nip pppoe intermediate-agent trust\nexit\n"
          "interface 1-27 \nno ip pppoe intermediate-agent trust\nexit\n"},
         {"taken away", Mode::delta, portPppoe, defaults([](ConfigImage &image) { put(image.pppoe.trusted, {1}); }),
          "interface 1-28 \nno ip pppoe intermediate-agent trust\nexit\n"},
         {"bits after port 28 and the switch", Mode::delta, portPppoe, current([](ConfigImage &image) {
              put(image.pppoe.trusted, {29, 30, 31, 32});
              image.pppoe.enabled = 1;
          }),
          ""},
     }));

// --------------------------------------------------------------------------------- server trust, which no step renders

TEST(ServerTrust, BlocksOfTrustedAndOtherPorts) {
    EXPECT_EQ("interface 1-28\nno ip dhcp snooping server-trust\nexit\n", serverTrust({{{255}}, {{0, 0, 0, 0xf0}}}));
    EXPECT_EQ("interface 1-28\nip dhcp snooping server-trust\nexit\n", serverTrust({{{0}}, {{255, 255, 255, 15}}}));
    EXPECT_EQ("interface 1,9,28\nip dhcp snooping server-trust\nexit\n"
              "interface 2-8,10-27\nno ip dhcp snooping server-trust\nexit\n",
              serverTrust({{{0}}, {{1, 1, 0, 8}}}));
    EXPECT_EQ("interface 1\nip dhcp snooping server-trust\nexit\n"
              "interface 2-28\nno ip dhcp snooping server-trust\nexit\n",
              serverTrust({{{0}}, {{1, 0, 0, 0}}}, {}));
    EXPECT_EQ("interface 1-28\nno ip dhcp snooping server-trust\nexit\n", serverTrust({}, {{{0}}, {{0, 0, 0, 8}}}));
    EXPECT_EQ("", serverTrust({{{1}}, {{1, 0, 0, 0x10}}}, {{{0}}, {{1, 0, 0, 0}}}));
}

TEST(ServerTrust, Traces) {
    resetAll();
    gCfgDebug = 1;
    constexpr const char *line = "[convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust]\n";
    EXPECT_EQ(line,
              printedBy([] { full::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust({}); }));
    EXPECT_EQ(line, printedBy([] {
                  delta::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust({}, {});
              }));
}
