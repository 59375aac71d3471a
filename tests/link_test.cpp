/// Link aggregation, mirror, loop detection, MAC addresses and LLDP.
#include "layer2_area.h"

using namespace layer2;

// ------------------------------------------------------------------------------------------------- link aggregation

ROWS(TrunkGroups, ({
                      {"zero image", Mode::full, trunks, nothing, ""},
                      {"groups in use", Mode::full, trunks, current([](ConfigImage &image) {
                           image.trunks[0] = trunk("first");
                           image.trunks[1] = trunk("unused", twoPorts, 0);
                           image.trunks[2] = trunk("word", twoPorts, 256);
                           image.trunks[13] = trunk("abcdefghijklmnop", ports<Bitmap<8>>({1, 7, 9, 15}), 0x80000000);
                       }),
                       "channel-group trunking first\n"
                       "channel-group trunking word\n"
                       "channel-group trunking abcdefghijklmnop\n"},
                      {"same in both images", Mode::delta, trunks, both([](ConfigImage &image) {
                           image.trunks[0] = trunk("first");
                           image.trunks[1] = trunk("unused", twoPorts, 0);
                           image.trunks[13] = trunk("abcdefghijklmnop", ports<Bitmap<8>>({1, 7, 9, 15}), 256);
                       }),
                       "channel-group trunking first\n"
                       "channel-group trunking abcdefghijklmnop\n"},
                      {"renamed", Mode::delta, trunks, trunkFrom(trunk("first"), trunk("second")),
                       "channel-group trunking second\n"},
                      {"gone", Mode::delta, trunks, trunkFrom(trunk("first"), {}), ""},
                  }));

ROWS(Distribution, ({
                       {"no rule", Mode::full, distribution, nothing, noRuleText},
                       {"every rule", Mode::full, distribution, rulesFrom(noRule, everyRule), everyRuleText},
                       {"no rule", Mode::delta, distribution, rulesFrom(everyRule, noRule), noRuleText},
                       {"every rule", Mode::delta, distribution, rulesFrom(noRule, everyRule), everyRuleText},
                       {"same in both images", Mode::delta, distribution, rulesFrom(everyRule, [](Rules &) {}), ""},
                   }));

ROWS(Lacp,
     ({
         {"zero image", Mode::full, lacp, nothing,
          "interface 1-28 \nchannel-group lacp key 0\nexit\n"
          "interface 1-28\nno channel-group lacp role \nexit\n"
          "interface 1-28\nno channel-group lacp\nexit\n"},
         {"roles and switches without a line", Mode::full, lacp, both(quietLacp), key9},
         {"keys in ascending order", Mode::full, lacp, quietLacpBut([](LacpConfig &port) {
              for (int i = 0; i < 28; ++i) port.key[i] = i < 4 ? 10 : 3;
              port.key[4] = 255;
              port.key[27] = 0;
          }),
          "interface 28 \nchannel-group lacp key 0\nexit\n"
          "interface 6-27 \nchannel-group lacp key 3\nexit\n"
          "interface 1-4 \nchannel-group lacp key 10\nexit\n"
          "interface 5 \nchannel-group lacp key 255\nexit\n"},
         {"roles", Mode::full, lacp, quietLacpBut([](LacpConfig &port) {
              port.role[0] = 1;
              port.role[1] = 0;
              port.role[26] = 1;
              port.role[27] = 0;
          }),
          key9 + "interface 2,28\nno channel-group lacp role \nexit\n"
                 "interface 1,27\nchannel-group lacp role active\nexit\n"},
         {"switches", Mode::full, lacp, quietLacpBut([](LacpConfig &port) {
              port.enabled[0] = 1;
              port.enabled[1] = 0;
              port.enabled[26] = 1;
              port.enabled[27] = 0;
          }),
          key9 + "interface 2,28\nno channel-group lacp\nexit\n"
                 "interface 1,27\nchannel-group lacp\nexit\n"},
         {"same in both images", Mode::delta, lacp, lacpChanged([](LacpConfig &) {}), ""},
         {"a port took another key", Mode::delta, lacp, lacpChanged([](LacpConfig &port) { port.key[27] = 255; }),
          "interface 2-27 \nchannel-group lacp key 9\nexit\n"
          "interface 28 \nchannel-group lacp key 255\nexit\n"},
         {"a key left its last port", Mode::delta, lacp, lacpChanged([](LacpConfig &port) { port.key[0] = 9; }), key9},
         {"keys swapped", Mode::delta, lacp, lacpChanged([](LacpConfig &port) {
              port.key[0] = 9;
              port.key[1] = 1;
          }),
          "interface 2 \nchannel-group lacp key 1\nexit\n"
          "interface 1,3-28 \nchannel-group lacp key 9\nexit\n"},
         {"a key of 254", Mode::delta, lacp, lacpChanged([](LacpConfig &port) { port.key[27] = 254; }),
          "interface 2-27 \nchannel-group lacp key 9\nexit\n"
          "interface 28 \nchannel-group lacp key 254\nexit\n"},
         {"key zero", Mode::delta, lacp, lacpChanged([](LacpConfig &port) { port.key[0] = 0; }),
          "interface 1 \nchannel-group lacp key 0\nexit\n"},
         {"a role changed", Mode::delta, lacp, lacpChanged([](LacpConfig &port) { port.role[27] = 0; }),
          "interface 28\nno channel-group lacp role\nexit\n"
          "interface 1\nchannel-group lacp role active\nexit\n"},
         {"a switch changed", Mode::delta, lacp, lacpChanged([](LacpConfig &port) { port.enabled[27] = 0; }),
          "interface 28\nno channel-group lacp\nexit\n"
          "interface 1\nchannel-group lacp\nexit\n"},
         {"all of it", Mode::delta, lacp, defaults([](ConfigImage &image) { quietLacp(image); }),
          "interface 1-28 \nchannel-group lacp key 0\nexit\n"
          "interface 1-28\nno channel-group lacp role\nexit\n"
          "interface 1-28\nno channel-group lacp\nexit\n"},
     }));

ROWS(TrunkPorts,
     ({
         {"zero image", Mode::full, trunkPorts, nothing, ""},
         {"groups in use with ports", Mode::full, trunkPorts, current([](ConfigImage &image) {
              image.trunks[0] = trunk("first", ports<Bitmap<8>>({1, 2, 28}));
              image.trunks[1] = trunk("unused", twoPorts, 0);
              image.trunks[2] = trunk("nobody");
              image.trunks[3] = trunk("beyond", ports<Bitmap<8>>({29, 30, 33, 64}));
              image.trunks[4] = trunk("word", twoPorts, 256);
              image.trunks[13] = trunk("abcdefghijklmnop", ports<Bitmap<8>>({1, 7}));
          }),
          "interface 1,2,28 \nchannel-group trunking first\nexit\n"
          "interface 25,26 \nchannel-group trunking word\nexit\n"
          "interface 1,7 \nchannel-group trunking abcdefghijklmnop\nexit\n"},
         {"same in both images", Mode::delta, trunkPorts, trunkFrom(trunk("first", twoPorts), trunk("first", twoPorts)),
          ""},
         {"renamed", Mode::delta, trunkPorts, trunkFrom(trunk("first", twoPorts), trunk("second", twoPorts)), ""},
         {"a port joined", Mode::delta, trunkPorts,
          trunkFrom(trunk("first", twoPorts), trunk("first", ports<Bitmap<8>>({25, 26, 28}))),
          "interface 25,26,28 \nchannel-group trunking first\nexit\n"},
         {"bits after the ports", Mode::delta, trunkPorts,
          trunkFrom(trunk("first", twoPorts), trunk("first", ports<Bitmap<8>>({25, 26, 29, 32, 33, 64}))), ""},
         {"all ports left", Mode::delta, trunkPorts, trunkFrom(trunk("first", twoPorts), trunk("first")), ""},
         {"out of use with other ports", Mode::delta, trunkPorts,
          trunkFrom(trunk("first"), trunk("first", twoPorts, 0)), ""},
         {"into use with the ports that it had", Mode::delta, trunkPorts,
          trunkFrom(trunk("first", twoPorts, 0), trunk("first", twoPorts)), ""},
         {"first and last group", Mode::delta, trunkPorts, current([](ConfigImage &image) {
              image.trunks[0] = trunk("first", ports<Bitmap<8>>({1}));
              image.trunks[13] = trunk("last", ports<Bitmap<8>>({2}), 256);
          }),
          "interface 1 \nchannel-group trunking first\nexit\n"
          "interface 2 \nchannel-group trunking last\nexit\n"},
     }));

// ------------------------------------------------------------------------------- mirror, loop detection, MAC, LLDP

ROWS(Mirror,
     ({
         {"no destination", Mode::full, mirrorDestination, mirrorFrom({}, mirrored(0, 5)), "no mirror destination\n"},
         {"first port", Mode::full, mirrorDestination, mirrorFrom({}, mirrored(1, 0)), "mirror destination 1\n"},
         {"last port", Mode::full, mirrorDestination, mirrorFrom({}, mirrored(256, 27)), "mirror destination 28\n"},
         {"no such port", Mode::full, mirrorDestination, mirrorFrom({}, mirrored(1, 0xffffffff)),
          "mirror destination 0\n"},
         {"a negative port", Mode::full, mirrorDestination, mirrorFrom({}, mirrored(1, 0xfffffff0)),
          "mirror destination -15\n"},
         {"same in both images", Mode::delta, mirrorDestination, mirrorFrom(mirrored(1, 5), mirrored(1, 5)), ""},
         {"set", Mode::delta, mirrorDestination, mirrorFrom(mirrored(0, 5), mirrored(1, 5)), "mirror destination 6\n"},
         {"set with another value", Mode::delta, mirrorDestination, mirrorFrom(mirrored(1, 5), mirrored(256, 5)),
          "mirror destination 6\n"},
         {"cleared", Mode::delta, mirrorDestination, mirrorFrom(mirrored(1, 5), mirrored(0, 5)),
          "no mirror destination\n"},
         {"moved", Mode::delta, mirrorDestination, mirrorFrom(mirrored(1, 5), mirrored(1, 6)),
          "mirror destination 7\n"},
         {"moved while not set", Mode::delta, mirrorDestination, mirrorFrom(mirrored(0, 5), mirrored(0, 6)),
          "no mirror destination\n"},
         {"other sources", Mode::delta, mirrorDestination, mirrorFrom(mirrored(1, 5), mirrored(1, 5, ports({1}))), ""},
         {"mode", Mode::full, mirrorMode, mirrorFrom({}, mirrored(1, 5, ports({1}))), ""},
         {"no source", Mode::full, mirrorSource, mirrorFrom({}, mirrored(1, 5)), "no mirror source\n"},
         {"bits after the last port", Mode::full, mirrorSource, mirrorFrom({}, mirrored(0, 0, ports({29, 32}))),
          "no mirror source\n"},
         {"sources", Mode::full, mirrorSource, mirrorFrom({}, mirrored(0, 0, ports({1, 2, 3, 28}))),
          "mirror source 1-3,28 \n"},
         {"same in both images, sources", Mode::delta, mirrorSource,
          mirrorFrom(mirrored(1, 5, ports({1})), mirrored(0, 6, ports({1}))), ""},
         {"a source more", Mode::delta, mirrorSource,
          mirrorFrom(mirrored(1, 5, ports({1})), mirrored(1, 5, ports({1, 28}))), "mirror source 1,28 \n"},
         {"no source left", Mode::delta, mirrorSource, mirrorFrom(mirrored(1, 5, ports({1})), mirrored(1, 5)),
          "no mirror source\n"},
         {"bits after the last port", Mode::delta, mirrorSource,
          mirrorFrom(mirrored(1, 5, ports({1})), mirrored(1, 5, ports({1, 29}))), "mirror source 1 \n"},
         {"last bit of the set", Mode::delta, mirrorSource, mirrorFrom({}, mirrored(0, 0, ports({32}))),
          "no mirror source\n"},
     }));

ROWS(LoopDetection,
     ({
         {"zero image", Mode::full, loop, nothing,
          "no loop-detection\n"
          "loop-detection interval 0\n"
          "loop-detection unlock-interval 0\n"
          "no loop-detection all-vlan\n"},
         {"all values", Mode::full, loop, loopChanged([](LoopDetection &) {}), loopText},
         {"largest values", Mode::full, loop, loopChanged([](LoopDetection &detection) {
              detection.enabled = 2;
              detection.interval = detection.unlockInterval = 65535;
              detection.allVlans = 0;
              detection.vlans[0] = 0;
              detection.vlans[1] = 256;
              detection.vlans[2] = 65535;
          }),
          "loop-detection\n"
          "loop-detection interval 65535\n"
          "loop-detection unlock-interval 65535\n"
          "no loop-detection all-vlan\n"
          "loop-detection vlan-id 256\n"
          "loop-detection vlan-id 65535\n"
          "loop-detection vlan-id 40\n"},
         {"board 5027", Mode::full, loop, loopOnBoard(5027), ""},
         {"another board", Mode::full, loop, loopOnBoard(5026), loopText},
         {"same in both images", Mode::delta, loop, loopChanged([](LoopDetection &) {}), ""},
         {"everything", Mode::delta, loop, loopOnBoard(0), loopText},
         {"board 5027", Mode::delta, loop, loopOnBoard(5027), ""},
         {"slots swapped", Mode::delta, loop, loopChanged([](LoopDetection &detection) {
              detection.vlans[0] = 40;
              detection.vlans[3] = 10;
          }),
          "loop-detection vlan-id 40\n"
          "loop-detection vlan-id 10\n"},
         {"other ports", Mode::delta, loop, loopChanged([](LoopDetection &detection) { detection.ports = {}; }), ""},
         {"no port", Mode::full, loopPorts, loopPortsFrom({}, ports({29, 32})),
          "interface 1-28 \nno loop-detection\nexit\n"},
         {"all ports", Mode::full, loopPorts, loopPortsFrom({}, portRange(1, 28)),
          "interface 1-28 \nloop-detection\nexit\n"},
         {"some ports", Mode::full, loopPorts, loopPortsFrom({}, ports({1, 2, 3})), loopPortsText},
         {"board 5027, ports", Mode::full, loopPorts, loopOnBoard(5027), ""},
         {"another board, ports", Mode::full, loopPorts, loopOnBoard(0x13a30000), loopPortsText},
         {"same in both images, ports", Mode::delta, loopPorts, loopPortsFrom(ports({1}), ports({1, 29, 30, 31, 32})),
          ""},
         {"a port changed", Mode::delta, loopPorts, loopPortsFrom(ports({1, 2, 3, 28}), ports({1, 2, 3})),
          loopPortsText},
         {"no port left", Mode::delta, loopPorts, loopPortsFrom(ports({1}), {}),
          "interface 1-28 \nno loop-detection\nexit\n"},
         {"everything, ports", Mode::delta, loopPorts, loopOnBoard(5028), loopPortsText},
         {"board 5027, ports", Mode::delta, loopPorts, loopOnBoard(5027), ""},
         {"other values", Mode::delta, loopPorts, loopChanged([](LoopDetection &detection) { detection.enabled = 0; }),
          ""},
     }));

ROWS(MacTable,
     ({
         {"aging time of a zero image", Mode::full, aging, nothing, "mac address-table aging-time 0\n"},
         {"aging time", Mode::full, aging, agingFrom(0, 300), "mac address-table aging-time 300\n"},
         {"negative aging time", Mode::full, aging, agingFrom(0, -300), "mac address-table aging-time -300\n"},
         {"same aging time", Mode::delta, aging, agingFrom(300, 300), ""},
         {"another aging time", Mode::delta, aging, agingFrom(300, 600), "mac address-table aging-time 600\n"},
         {"no aging time", Mode::delta, aging, agingFrom(300, 0), "mac address-table aging-time 0\n"},
         {"zero image", Mode::full, macTable, nothing, ""},
         {"entries", Mode::full, macTable, current([](ConfigImage &image) {
              image.macTable[0] = macEntry(someMac, 4, 10);
              image.macTable[1] = macEntry(otherMac, 5, 11, 0);
              image.macTable[2] = macEntry({}, 0, 0, 256);
              image.macTable[127] = macEntry({{0xab, 0xcd, 0xef, 0x01, 0x02, 0xff}}, 255, 0xfffffffe);
          }),
          "interface 5\nmac address-table static-mac 00:1A:2B:3C:4D:5E vlan 10\nexit\n"
          "interface 1\nmac address-table static-mac 00:00:00:00:00:00 vlan 0\nexit\n"
          "interface 256\nmac address-table static-mac AB:CD:EF:01:02:FF vlan -2\nexit\n"},
         {"same in both images", Mode::delta, macTable, macFrom(macEntry(someMac, 4, 10), macEntry(someMac, 4, 10)),
          ""},
         {"another port", Mode::delta, macTable, macFrom(macEntry(someMac, 4, 10), macEntry(someMac, 5, 10)), ""},
         {"another VLAN", Mode::delta, macTable, macFrom(macEntry(someMac, 4, 10), macEntry(someMac, 4, 11)), ""},
         {"another address", Mode::delta, macTable, macFrom(macEntry(someMac, 4, 10), macEntry(otherMac, 27, 11)),
          "interface 28\nmac address-table static-mac 00:1A:2B:3C:4D:5F vlan 11\nexit\n"},
         {"new", Mode::delta, macTable, macFrom({}, macEntry(someMac, 4, 10)),
          "interface 5\nmac address-table static-mac 00:1A:2B:3C:4D:5E vlan 10\nexit\n"},
         {"into use with the address that it had", Mode::delta, macTable,
          macFrom(macEntry(someMac, 4, 10, 0), macEntry(someMac, 4, 10)), ""},
         {"out of use", Mode::delta, macTable, macFrom(macEntry(someMac, 4, 10), macEntry(otherMac, 4, 10, 0)), ""},
         {"moved to another entry", Mode::delta, macTable,
          [](ConfigImage &current, ConfigImage &defaults) {
              current.macTable[0] = defaults.macTable[1] = macEntry(someMac, 4, 10);
              current.macTable[1] = macEntry(otherMac, 4, 10, 256);
          },
          "interface 5\nmac address-table static-mac 00:1A:2B:3C:4D:5E vlan 10\nexit\n"
          "interface 5\nmac address-table static-mac 00:1A:2B:3C:4D:5F vlan 10\nexit\n"},
         {"learning everywhere", Mode::full, macLearning, nothing, "interface 1-28 \nmac learning\nexit\n"},
         {"learning off first", Mode::full, macLearning, learningChanged([](MacLearning &) {}),
          "interface 1 \nno mac learning\nexit\n"
          "interface 2-27 \nmac learning\nexit\n"},
         {"learning off everywhere", Mode::full, macLearning, learningChanged([](MacLearning &learning) {
              for (be32 &off : learning.off) off = 1;
          }),
          "interface 1-28 \nno mac learning\nexit\n"},
         {"the word after the ports", Mode::full, macLearning,
          learningChanged([](MacLearning &learning) { learning.following = 1; }),
          "interface 1 \nno mac learning\nexit\n"
          "interface 2-27 \nmac learning\nexit\n"},
         {"learning as it was", Mode::delta, macLearning, learningChanged([](MacLearning &) {}), ""},
         {"learning of a port", Mode::delta, macLearning,
          learningChanged([](MacLearning &learning) { learning.off[26] = 1; }),
          "interface 1,27 \nno mac learning\nexit\n"
          "interface 2-26 \nmac learning\nexit\n"},
         {"the word after the ports", Mode::delta, macLearning,
          learningChanged([](MacLearning &learning) { learning.following = 1; }),
          "interface 1 \nno mac learning\nexit\n"
          "interface 2-27 \nmac learning\nexit\n"},
     }));

ROWS(Lldp,
     ({
         {"zero image", Mode::full, lldp, nothing,
          "lldp hold-time 0\n"
          "lldp interval 0\n"
          "lldp packets 0\n" +
              noTlvText},
         {"all values", Mode::full, lldp,
          lldpFrom(everyTlv,
                   [](LldpConfig &config) {
                       config.holdTime = 120;
                       config.interval = 30;
                       config.packets = 65535;
                   }),
          "lldp hold-time 120\n"
          "lldp interval 30\n"
          "lldp packets 65535\n" +
              everyTlvText},
         {"same in both images", Mode::delta, lldp, lldpFrom(everyTlv, [](LldpConfig &) {}), ""},
         {"every TLV", Mode::delta, lldp, lldpFrom(noTlv, everyTlv), everyTlvText},
         {"no TLV", Mode::delta, lldp, lldpFrom(everyTlv, noTlv), noTlvText},
         {"all values", Mode::delta, lldp,
          lldpFrom(noTlv,
                   [](LldpConfig &config) {
                       everyTlv(config);
                       config.holdTime = 120;
                       config.interval = 30;
                       config.packets = 65535;
                   }),
          "lldp hold-time 120\n"
          "lldp interval 30\n"
          "lldp packets 65535\n" +
              everyTlvText},
         {"no port", Mode::full, lldpPorts, lldpPortsFrom({}, ports({29, 32})), "interface 1-28 \nno lldp\nexit\n"},
         {"all ports", Mode::full, lldpPorts, lldpPortsFrom({}, portRange(1, 28)), "interface 1-28 \nlldp\nexit\n"},
         {"some ports", Mode::full, lldpPorts, lldpPortsFrom({}, ports({1, 28})),
          "interface 1,28 \nlldp\nexit\n"
          "interface 2-27 \nno lldp\nexit\n"},
         {"same ports", Mode::delta, lldpPorts, lldpPortsFrom(ports({1}), ports({1, 29, 30, 31, 32})), ""},
         {"a port changed", Mode::delta, lldpPorts, lldpPortsFrom(ports({1}), ports({1, 28})),
          "interface 1,28 \nlldp\nexit\n"
          "interface 2-27 \nno lldp\nexit\n"},
     }));
