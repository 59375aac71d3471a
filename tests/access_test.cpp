/// Access rules and 802.1X.
#include "security_area.h"

using namespace security;

// --------------------------------------------------------------------------------------------------- access control

TEST(Acl, FieldsOfIpv4) {
    testFields(128, anyLines("acl 128\n", "destination-ipv4 any \n", "source-ipv4 any \n"), fieldsOfIpv4);
}

TEST(Acl, FieldsOfIpv6) {
    testFields(129, anyLines("acl 129\n", "destination-ipv6 any \n", "source-ipv6 any \n"), fieldsOfIpv6);
}

TEST(Acl, BytesOfARule) {
    constexpr std::size_t first = 180428;
    constexpr std::size_t last = first + 191 * 116;
    const auto store = [](std::int32_t number) {
        return both(
            [number](ConfigImage &image) {
                writeCounted(image.acl[0], number);
                writeCounted(image.acl[191], number);
            },
            [](ConfigImage &) {});
    };
    const Places ipv4 = {{0, 57}, {92, 101}, {104, 108}, {110, 111}};
    // A number that turns negative writes the lines of IPv4.
    const Places ipv6 = {{0, 41}, {58, 101}, {104, 108}, {110, 111}};
    const Places compared = {{100, 101}, {104, 107}, {110, 111}};
    for (const std::size_t rule : {first, last}) {
        const Places within = span(rule, 116);
        EXPECT_EQ(at(rule, ipv4), bytesTurnedOver(Mode::full, acl, store(5), Image::current, within));
        EXPECT_EQ(at(rule, ipv6), bytesTurnedOver(Mode::full, acl, store(0x01020304), Image::current, within));
        EXPECT_EQ(at(rule, compared), bytesTurnedOver(Mode::delta, acl, store(5), Image::defaults, within));
        EXPECT_EQ(at(rule, compared), bytesTurnedOver(Mode::delta, acl, store(0x01020304), Image::defaults, within));
        EXPECT_EQ(Places{}, bytesTurnedOver(Mode::full, acl, store(5), Image::defaults, within));
    }
    // A rule between them would be written if it were valid.
    EXPECT_EQ((Places{{first + 116 + 108, first + 116 + 108}}),
              bytesTurnedOver(Mode::full, acl, store(5), Image::current, {{first + 116, first + 231}}));
    EXPECT_EQ(Places{},
              bytesTurnedOver(Mode::full, acl, store(5), Image::current, {{first - 8, first - 1}, {202700, 202720}}));
}

TEST(Acl, WritesAll192Rules) {
    const auto all = [](ConfigImage &image) {
        int number = 0;
        for (AclRule &rule : image.acl) {
            rule.valid = 1;
            rule.number = ++number;
        }
    };
    std::string full;
    std::string delta;
    for (int number = 1; number <= 192; ++number) {
        const std::string head = "acl " + std::to_string(number) + "\n";
        full += head + "action deny\naction-port 1 \n";
        full += number < 129 ? "destination-ipv4 any \n" : "destination-ipv6 any \n";
        full += "destination-l4-port any \ndestination-mac any \nethertype any \ningress-port any \nprotocol any \n"
                "no rate-limit \n";
        full += number < 129 ? "source-ipv4 any \n" : "source-ipv6 any \n";
        full += "source-l4-port any \nsource-mac any \ntos any \nvid any \napply\nexit\n";
        delta += head + "apply\nexit\n";
    }
    EXPECT_EQ(full, textOfStep(Mode::full, acl, current(all)));
    EXPECT_EQ(delta, textOfStep(Mode::delta, acl, current(all)));
}

ROWS(Acl,
     ({
         {"no valid rule", Mode::full, acl, current([](ConfigImage &image) {
              writeCounted(image.acl[0], 1);
              image.acl[0].valid = 0;
          }),
          ""},
         {"rule of zeros", Mode::full, acl, current(bareRule(0)),
          std::string("acl 0\naction deny\naction-port 1 \n") + bareIpv4Tail},
         {"whole rule of IPv4", Mode::full, acl, current(countedRule(128)),
          "acl 128\n"
          "action copy(mirror)\n"
          "action-port 103 \n"
          "destination-ipv4 address 51.52.53.54 55.56.57.58\n"
          "destination-l4-port 24930 0x6364\n"
          "destination-mac mac 19:1A:1B:1C:1D:1E 1F:20:21:22:23:24\n"
          "ethertype 0x090A \n"
          "ingress-port 1,3,10,11,17-19,28 \n"
          "protocol 0x()* \n"
          "rate-limit 1768581996 \n"
          "source-ipv4 address 43.44.45.46 47.48.49.50\n"
          "source-l4-port 23902 0x5F60\n"
          "source-mac mac 0D:0E:0F:10:11:12 13:14:15:16:17:18\n"
          "tos 0x%&'\n"
          "vid 2828 \n"
          "apply\n"
          "exit\n"},
         {"whole rule of IPv6", Mode::full, acl, current(countedRule(129)),
          "acl 129\n"
          "action copy(mirror)\n"
          "action-port 103 \n"
          "destination-ipv6 address 4c4d:4e4f:5051:5253:5455:5657:5859:5a5b 92\n"
          "destination-l4-port 24930 0x6364\n"
          "destination-mac mac 19:1A:1B:1C:1D:1E 1F:20:21:22:23:24\n"
          "ethertype 0x090A \n"
          "ingress-port 1,3,10,11,17-19,28 \n"
          "protocol 0x()* \n"
          "rate-limit 1768581996 \n"
          "source-ipv6 address 3b3c:3d3e:3f40:4142:4344:4546:4748:494a 75\n"
          "source-l4-port 23902 0x5F60\n"
          "source-mac mac 0D:0E:0F:10:11:12 13:14:15:16:17:18\n"
          "tos 0x%&'\n"
          "vid 2828 \n"
          "apply\n"
          "exit\n"},
         {"whole rule of IPv4 against nothing", Mode::delta, acl, current(countedRule(128)),
          "acl 128\n"
          "action copy(mirror)\n"
          "action-port 103 \n"
          "destination-ipv4 address 51.52.53.54 55.56.57.58\n"
          "destination-l4-port 24930 0x6364\n"
          "destination-mac mac 19:1A:1B:1C:1D:1E 1F:20:21:22:23:24\n"
          "ethertype 0x090A\n"
          "ingress-port 1,3,10,11,17-19,28 \n"
          "protocol 0x()* \n"
          "rate-limit 1768581996\n"
          "source-ipv4 address 43.44.45.46 47.48.49.50\n"
          "source-l4-port 23902 0x5F60\n"
          "source-mac mac 0D:0E:0F:10:11:12 13:14:15:16:17:18\n"
          "tos 0x%&'\n"
          "vid 2828\n"
          "apply\n"
          "exit\n"},
         {"whole rule of IPv6 against nothing", Mode::delta, acl, current(countedRule(129)),
          "acl 129\n"
          "action copy(mirror)\n"
          "action-port 103 \n"
          "destination-ipv6 address 4c4d:4e4f:5051:5253:5455:5657:5859:5a5b 92\n"
          "destination-l4-port 24930 0x6364\n"
          "destination-mac mac 19:1A:1B:1C:1D:1E 1F:20:21:22:23:24\n"
          "ethertype 0x090A\n"
          "ingress-port 1,3,10,11,17-19,28 \n"
          "protocol 0x()* \n"
          "rate-limit 1768581996\n"
          "source-ipv6 address 3b3c:3d3e:3f40:4142:4344:4546:4748:494a 75\n"
          "source-l4-port 23902 0x5F60\n"
          "source-mac mac 0D:0E:0F:10:11:12 13:14:15:16:17:18\n"
          "tos 0x%&'\n"
          "vid 2828\n"
          "apply\n"
          "exit\n"},
         {"bare rule against a whole one of IPv4", Mode::delta, acl,
          [](ConfigImage &current, ConfigImage &defaults) {
              bareRule(128)(current);
              countedRule(128)(defaults);
          },
          "acl 128\naction deny\naction-port 1 \ndestination-ipv4 any\ndestination-l4-port any\ndestination-mac any\n"
          "ethertype any\ningress-port any\nprotocol any \nno rate-limit\nsource-ipv4 any\nsource-l4-port any\n"
          "source-mac any\ntos any\nvid any\napply\nexit\n"},
         {"bare rule against a whole one of IPv6", Mode::delta, acl,
          [](ConfigImage &current, ConfigImage &defaults) {
              bareRule(129)(current);
              countedRule(129)(defaults);
          },
          "acl 129\naction deny\naction-port 1 \ndestination-ipv6 any\ndestination-l4-port any\ndestination-mac any\n"
          "ethertype any\ningress-port any\nprotocol any \nno rate-limit\nsource-ipv6 any\nsource-l4-port any\n"
          "source-mac any\ntos any\nvid any\napply\nexit\n"},
         {"number 128", Mode::full, acl, current(bareRule(128)),
          std::string("acl 128\naction deny\naction-port 1 \n") + bareIpv4Tail},
         {"number 129", Mode::full, acl, current(bareRule(129)),
          std::string("acl 129\naction deny\naction-port 1 \n") + bareIpv6Tail},
         {"greatest number", Mode::full, acl, current(bareRule(INT32_MAX)),
          std::string("acl 2147483647\naction deny\naction-port 1 \n") + bareIpv6Tail},
         {"negative number", Mode::full, acl, current(bareRule(-1)),
          std::string("acl -1\naction deny\naction-port 1 \n") + bareIpv4Tail},
         {"least number", Mode::full, acl, current(bareRule(INT32_MIN)),
          std::string("acl -2147483648\naction deny\naction-port 1 \n") + bareIpv4Tail},
         {"negative number", Mode::delta, acl,
          current(bareRule(-1,
                           [](AclRule &rule) {
                               rule.match = {{0, 0x1e}};
                           })),
          "acl -1\ndestination-ipv4 address 0.0.0.0 0.0.0.0\nsource-ipv4 address 0.0.0.0 0.0.0.0\napply\nexit\n"},
         {"permit", Mode::full, acl, current(bareRule(1, [](AclRule &rule) { rule.action = 1; })),
          std::string("acl 1\naction permit\naction-port 1 \n") + bareIpv4Tail},
         {"copy to mirror", Mode::full, acl, current(bareRule(1, [](AclRule &rule) { rule.action = 2; })),
          std::string("acl 1\naction copy(mirror)\naction-port 1 \n") + bareIpv4Tail},
         {"redirect", Mode::full, acl, current(bareRule(1, [](AclRule &rule) { rule.action = 3; })),
          std::string("acl 1\naction redirect\naction-port 1 \n") + bareIpv4Tail},
         {"action 4", Mode::full, acl, current(bareRule(1, [](AclRule &rule) { rule.action = 4; })),
          std::string("acl 1\naction deny\naction-port 1 \n") + bareIpv4Tail},
         {"action 7", Mode::full, acl, current(bareRule(1, [](AclRule &rule) { rule.action = 7; })),
          std::string("acl 1\naction deny\naction-port 1 \n") + bareIpv4Tail},
         {"greatest action port and any valid flag", Mode::full, acl,
          current(bareRule(1,
                           [](AclRule &rule) {
                               rule.valid = 0x80;
                               rule.actionPort = 255;
                           })),
          std::string("acl 1\naction deny\naction-port 256 \n") + bareIpv4Tail},
         {"matches without values", Mode::full, acl,
          current(bareRule(1,
                           [](AclRule &rule) {
                               rule.match = {{0xff, 0x07}};
                           })),
          "acl 1\naction deny\naction-port 1 \ndestination-ipv4 address 0.0.0.0 0.0.0.0\n"
          "destination-l4-port 0 0x0000\ndestination-mac mac 00:00:00:00:00:00 00:00:00:00:00:00\nethertype 0x0000 \n"
          "ingress-port  \nprotocol 0x \nno rate-limit \nsource-ipv4 address 0.0.0.0 0.0.0.0\n"
          "source-l4-port 0 0x0000\nsource-mac mac 00:00:00:00:00:00 00:00:00:00:00:00\ntos 0x\nvid 0 \napply\nexit\n"},
         {"greatest values", Mode::full, acl,
          current(bareRule(1,
                           [](AclRule &rule) {
                               std::memset(&rule, 0xff, sizeof rule);
                               rule.number = 200;
                               rule.tos = "2"; // shorter than its field
                               rule.protocol = "0aff";
                           })),
          "acl 200\naction deny\naction-port 256 \n"
          "destination-ipv6 address ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff 255\n"
          "destination-l4-port 65535 0xFFFF\ndestination-mac mac FF:FF:FF:FF:FF:FF FF:FF:FF:FF:FF:FF\n"
          "ethertype 0xFFFF \ningress-port 1-28 \nprotocol 0x0af \nrate-limit -1 \n"
          "source-ipv6 address ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff 255\nsource-l4-port 65535 0xFFFF\n"
          "source-mac mac FF:FF:FF:FF:FF:FF FF:FF:FF:FF:FF:FF\ntos 0x2\nvid 65535 \napply\nexit\n"},
         {"addresses that carry an IPv4 one stay IPv6", Mode::full, acl,
          current(bareRule(130,
                           [](AclRule &rule) {
                               rule.match.set(AclMatch::destinationIpv6).set(AclMatch::sourceIpv6);
                               rule.destinationIpv6 = mapped(192, 0, 2, 1);
                           })),
          "acl 130\naction deny\naction-port 1 \ndestination-ipv6 address ::ffff:192.0.2.1 0\n"
          "destination-l4-port any \ndestination-mac any \nethertype any \ningress-port any \nprotocol any \n"
          "no rate-limit \nsource-ipv6 address :: 0\nsource-l4-port any \nsource-mac any \ntos any \nvid any \n"
          "apply\nexit\n"},
         {"ingress ports of two rules", Mode::delta, acl, current([](ConfigImage &image) {
              for (const int slot : {0, 1}) {
                  image.acl[slot].valid = 1;
                  image.acl[slot].match.set(AclMatch::ingressPort);
              }
              put(image.acl[0].ingressPorts, {1, 2, 3, 5, 7, 9});
          }),
          "acl 0\ningress-port 1-3,5,7,9 \napply\nexit\nacl 0\ningress-port  \napply\nexit\n"},
         {"equal rules", Mode::delta, acl, both(countedRule(128), [](ConfigImage &) {}), "acl 128\napply\nexit\n"},
         {"equal rules of which the default is not valid", Mode::delta, acl,
          both(
              countedRule(129), [](ConfigImage &) {}, [](ConfigImage &image) { image.acl[0].valid = 0; }),
          "acl 129\napply\nexit\n"},
         {"default rule alone", Mode::delta, acl, defaults(countedRule(128)), ""},
         {"values under equal matches", Mode::delta, acl,
          both(countedRule(1),
               [](ConfigImage &image) {
                   AclRule &rule = image.acl[0];
                   const AclRule before = rule;
                   std::memset(&rule, 0x7e, sizeof rule);
                   rule.number = before.number;
                   rule.action = before.action;
                   rule.actionPort = before.actionPort;
                   rule.rateLimit = before.rateLimit;
                   rule.match = before.match;
               }),
          "acl 1\napply\nexit\n"},
         {"family of the current number", Mode::delta, acl,
          both([](ConfigImage &) {},
               bareRule(129,
                        [](AclRule &rule) {
                            rule.match = {{0, 0x1e}};
                        }),
               bareRule(128)),
          "acl 129\ndestination-ipv6 address :: 0\nsource-ipv6 address :: 0\napply\nexit\n"},
         {"slots are compared, not numbers", Mode::delta, acl,
          [](ConfigImage &current, ConfigImage &defaults) {
              bareRule(4, [](AclRule &rule) { rule.action = 1; })(current);
              defaults.acl[1] = current.acl[0];
          },
          "acl 4\naction permit\napply\nexit\n"},
         ruleRow(
             "action", [](AclRule &rule) { rule.action = 3; }, "action redirect\n"),
         ruleRow(
             "permit", [](AclRule &rule) { rule.action = 1; }, "action permit\n"),
         ruleRow(
             "unknown action against deny", [](AclRule &rule) { rule.action = 7; }, "action deny\n"),
         ruleRow(
             "action port", [](AclRule &rule) { rule.actionPort = 27; }, "action-port 28 \n"),
         ruleRow(
             "rate limit", [](AclRule &rule) { rule.rateLimit = 256; }, "rate-limit 256\n"),
         ruleRow(
             "negative rate limit", [](AclRule &rule) { rule.rateLimit = -5; }, "rate-limit -5\n"),
         ruleRow(
             "valid flag and bytes that are not read",
             [](AclRule &rule) {
                 rule.valid = 2;
                 rule.reserved102.bytes[0] = rule.reserved109.bytes[0] = rule.reserved112.bytes[3] = 1;
             },
             ""),
     }));

// ------------------------------------------------------------------------------------------------------------ 802.1X

ROWS(Dot1x,
     ({
         {"zero image", Mode::full, dot1x, nothing,
          "no dot1x\ndot1x reauth-period 0\nno dot1x reauthentication\ndot1x secret \ndot1x server 0.0.0.0\n"
          "dot1x timeout 0\n"},
         {"values", Mode::full, dot1x, dot1xChange([](Dot1xConfig &) {}),
          "dot1x\ndot1x reauth-period 3600\ndot1x reauthentication\ndot1x secret abcdefghijklmnopqrstuvwxyzabcdefg\n"
          "dot1x server 192.0.2.9\ndot1x timeout 30\n"},
         {"greatest values", Mode::full, dot1x,
          dot1xOnly([](Dot1xConfig &config) { std::memset(&config, 0xff, sizeof config), config.secret = "x y"; }),
          "dot1x\ndot1x reauth-period 65535\ndot1x reauthentication\ndot1x secret x y\ndot1x server 255.255.255.255\n"
          "dot1x timeout 255\n"},
         {"equal", Mode::delta, dot1x, dot1xChange([](Dot1xConfig &) {}), ""},
         {"off", Mode::delta, dot1x, dot1xChange([](Dot1xConfig &config) { config.enabled = 0; }), "no dot1x\n"},
         {"on in another way", Mode::delta, dot1x, dot1xChange([](Dot1xConfig &config) { config.enabled = 2; }),
          "dot1x\n"},
         {"period", Mode::delta, dot1x, dot1xChange([](Dot1xConfig &config) { config.reauthPeriod = 256; }),
          "dot1x reauth-period 256\n"},
         {"no reauthentication", Mode::delta, dot1x,
          dot1xChange([](Dot1xConfig &config) { config.reauthentication = 0; }), "no dot1x reauthentication\n"},
         {"reauthentication", Mode::delta, dot1x,
          dot1xChange([](Dot1xConfig &config) { config.reauthentication = 255; }), "dot1x reauthentication\n"},
         {"secret, first byte", Mode::delta, dot1x,
          dot1xChange([](Dot1xConfig &config) { config.secret.characters[0] = '-'; }),
          "dot1x secret -bcdefghijklmnopqrstuvwxyzabcdefg\n"},
         {"secret, byte 31", Mode::delta, dot1x,
          dot1xChange([](Dot1xConfig &config) { config.secret.characters[30] = '-'; }),
          "dot1x secret abcdefghijklmnopqrstuvwxyzabcd-fg\n"},
         {"secret, byte 32", Mode::delta, dot1x,
          dot1xChange([](Dot1xConfig &config) { config.secret.characters[31] = '-'; }), ""},
         {"secret, byte 33", Mode::delta, dot1x,
          dot1xChange([](Dot1xConfig &config) { config.secret.characters[32] = '-'; }), ""},
         {"bytes after an empty secret count", Mode::delta, dot1x,
          dot1xOnly([](Dot1xConfig &config) { config.secret.characters[30] = '-'; }), "dot1x secret \n"},
         {"server", Mode::delta, dot1x, dot1xChange([](Dot1xConfig &config) { config.server = {}; }),
          "dot1x server 0.0.0.0\n"},
         {"timeout", Mode::delta, dot1x, dot1xChange([](Dot1xConfig &config) { config.timeout = 255; }),
          "dot1x timeout 255\n"},
         {"everything", Mode::delta, dot1x, dot1xChange([](Dot1xConfig &config) { config = {}; }),
          "no dot1x\ndot1x reauth-period 0\nno dot1x reauthentication\ndot1x secret \ndot1x server 0.0.0.0\n"
          "dot1x timeout 0\n"},
         {"port control", Mode::delta, dot1x, dot1xChange([](Dot1xConfig &config) { config.portControl[0] = 1; }), ""},
     }));

ROWS(Dot1xOfPorts,
     ({
         {"zero image", Mode::full, portDot1x, nothing, "interface 1-28\ndot1x port-control auto\nexit\n"},
         {"three modes", Mode::full, portDot1x, dot1xOnly([](Dot1xConfig &config) {
              giveAll(config.portControl, 2);
              give(config.portControl, {1, 28}, 1);
              give(config.portControl, {2, 3, 4}, 0);
              give(config.portControl, {6}, 3);
          }),
          "interface 2-4\ndot1x port-control auto\nexit\n"
          "interface 1,28\nno dot1x port-control\nexit\n"
          "interface 5,7-27\ndot1x port-control unauthorized\nexit\n"},
         {"port control 3", Mode::full, portDot1x,
          dot1xOnly([](Dot1xConfig &config) { giveAll(config.portControl, 3); }), ""},
         {"port control 3", Mode::delta, portDot1x,
          dot1xOnly([](Dot1xConfig &config) { giveAll(config.portControl, 3); }), ""},
         {"three modes", Mode::delta, portDot1x, dot1xOnly([](Dot1xConfig &config) {
              give(config.portControl, {1}, 2);
              give(config.portControl, {28}, 1);
          }),
          "interface 2-27\ndot1x port-control auto\nexit\n"
          "interface 28\nno dot1x port-control\nexit\n"
          "interface 1\ndot1x port-control unauthorized\nexit\n"},
         {"port control in the default", Mode::delta, portDot1x,
          defaults([](ConfigImage &image) { image.dot1x.portControl[27] = 9; }),
          "interface 1-28\ndot1x port-control auto\nexit\n"},
         {"equal port control", Mode::delta, portDot1x,
          dot1xChange([](Dot1xConfig &config) { config.timeout = 1, config.reserved71.bytes[0] = 1; }), ""},
     }));
