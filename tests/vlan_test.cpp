/// VLANs: their mode, QinQ, isolation, port-based and 802.1Q VLANs.
#include "layer2_area.h"

using namespace layer2;

ROWS(VlanMode,
     ({
         {"no line at all", Mode::full, vlanMode, modeFrom(0, 2), ""},
         {"port based", Mode::delta, vlanMode, modeFrom(0, 1), "vlan port-based\n"},
         {"dot1q", Mode::delta, vlanMode, modeFrom(1, 2), "vlan dot1q-vlan\n"},
         {"dot1q with isolation", Mode::delta, vlanMode, modeFrom(2, 3), "vlan dot1q-vlan isolation\n"},
         {"bypass of the customer tag", Mode::delta, vlanMode, modeFrom(3, 4), "vlan qinq-vlan bypass-ctag\n"},
         {"same mode", Mode::delta, vlanMode, modeFrom(2, 2), ""},
         {"no negated form", Mode::delta, vlanMode, modeFrom(2, 0), ""},
         {"unknown mode", Mode::delta, vlanMode, modeFrom(2, 5), ""},
         {"last unknown mode", Mode::delta, vlanMode, modeFrom(2, 255), ""},
     }));

ROWS(Ethertype,
     ({
         {"zero", Mode::full, ethertype, nothing, "vlan dot1q-tunnel ethertype 0\n"},
         {"8100", Mode::full, ethertype, current([](ConfigImage &image) { image.qinq.ethertype = 0x8100; }),
          "vlan dot1q-tunnel ethertype 8100\n"},
         {"upper case", Mode::full, ethertype, current([](ConfigImage &image) { image.qinq.ethertype = 0x88a8; }),
          "vlan dot1q-tunnel ethertype 88A8\n"},
         {"all bits", Mode::full, ethertype, current([](ConfigImage &image) { image.qinq.ethertype = 0xffffffff; }),
          "vlan dot1q-tunnel ethertype FFFFFFFF\n"},
         {"changed", Mode::delta, ethertype, current([](ConfigImage &image) { image.qinq.ethertype = 0x88a8; }),
          "vlan dot1q-tunnel ethertype 88A8\n"},
         {"unchanged", Mode::delta, ethertype, both([](ConfigImage &image) { image.qinq.ethertype = 0x9100; }),
          "vlan dot1q-tunnel ethertype 9100\n"},
     }));

ROWS(VlanIsolation,
     ({
         {"zero image", Mode::full, isolation, nothing,
          "no vlan isolation up-link-port 1-28 \n"
          "no vlan isolation\n"},
         {"all ports are up links", Mode::full, isolation, isolated({}, isolationOf(1, portRange(1, 28))),
          "vlan isolation up-link-port 1-28 \n"
          "vlan isolation\n"},
         {"some up links", Mode::full, isolation, isolated({}, isolationOf(0, ports({1, 2, 28}))),
          "vlan isolation up-link-port 1,2,28 \n"
          "no vlan isolation up-link-port 3-27 \n"
          "no vlan isolation\n"},
         {"one port is not an up link", Mode::full, isolation, isolated({}, isolationOf(2, portRange(1, 27))),
          "vlan isolation up-link-port 1-27 \n"
          "no vlan isolation up-link-port 28 \n"
          "vlan isolation\n"},
         {"bits after the last port", Mode::full, isolation, isolated({}, isolationOf(0, ports({29, 30, 32}))),
          "no vlan isolation up-link-port 1-28 \n"
          "no vlan isolation\n"},
         {"the longest lists", Mode::full, isolation,
          isolated({}, isolationOf(0, ports({1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27}))),
          "vlan isolation up-link-port 1,3,5,7,9,11,13,15,17,19,21,23,25,27 \n"
          "no vlan isolation up-link-port 2,4,6,8,10,12,14,16,18,20,22,24,26,28 \n"
          "no vlan isolation\n"},
         {"same in both images", Mode::delta, isolation,
          isolated(isolationOf(1, ports({25, 26})), isolationOf(1, ports({25, 26}))), ""},
         {"switched on", Mode::delta, isolation, isolated(isolationOf(0, ports({1})), isolationOf(1, ports({1}))),
          "vlan isolation\n"},
         {"switched off", Mode::delta, isolation, isolated(isolationOf(1, ports({1})), isolationOf(0, ports({1}))),
          "no vlan isolation\n"},
         {"on with another value", Mode::delta, isolation, isolated(isolationOf(1, {}), isolationOf(2, {})),
          "vlan isolation\n"},
         {"another up link", Mode::delta, isolation,
          isolated(isolationOf(0, ports({1})), isolationOf(0, ports({1, 2}))),
          "vlan isolation up-link-port 1,2\n"
          "no vlan isolation up-link-port 3-28\n"},
         {"no up link left", Mode::delta, isolation, isolated(isolationOf(0, portRange(25, 28)), {}),
          "no vlan isolation up-link-port 1-28\n"},
         {"all ports up links now", Mode::delta, isolation,
          isolated(isolationOf(0, portRange(1, 27)), isolationOf(0, portRange(1, 28))),
          "vlan isolation up-link-port 1-28\n"},
         {"all of it", Mode::delta, isolation, isolated(isolationOf(1, {}), isolationOf(0, ports({28}))),
          "vlan isolation up-link-port 28\n"
          "no vlan isolation up-link-port 1-27\n"
          "no vlan isolation\n"},
         {"bits after the last port", Mode::delta, isolation,
          isolated(isolationOf(0, ports({1})), isolationOf(0, ports({1, 29, 30, 31, 32}))), ""},
     }));

// ------------------------------------------------------------------------------------------------- port-based VLANs

ROWS(PortVlans,
     ({
         {"zero image", Mode::full, portVlans, nothing, ""},
         {"removals first", Mode::full, portVlans,
          [](ConfigImage &current, ConfigImage &defaults) {
              defaults.portVlans[0] = portVlan("alpha");
              defaults.portVlans[5] = portVlan("unused", {}, 0);
              defaults.portVlans[27] = portVlan("omega", {}, 255);
              current.portVlans[1] = portVlan("beta");
              current.portVlans[2] = portVlan("unused", withCpu, 0);
              current.portVlans[27] = portVlan("gamma", {}, 128);
          },
          "no vlan port-based alpha\n"
          "no vlan port-based omega\n"
          "vlan port-based beta\n"
          "vlan port-based gamma\n"},
         {"with the CPU port", Mode::full, portVlans, current([](ConfigImage &image) {
              image.portVlans[0] = portVlan("alpha", withCpu);
              image.portVlans[1] = portVlan("beta", withoutCpu);
          }),
          "vlan port-based alpha\n"
          "vlan port-based alpha include-cpu \n"
          "vlan port-based beta\n"},
         {"bits beside the CPU port", Mode::full, portVlans,
          portVlanFrom({}, portVlan("alpha", ports<Bitmap<5>>({28, 30, 37}))), "vlan port-based alpha\n"},
         {"removed though it stays", Mode::full, portVlans,
          both([](ConfigImage &image) { image.portVlans[0] = portVlan("alpha", withCpu); }),
          "no vlan port-based alpha\n"
          "vlan port-based alpha\n"
          "vlan port-based alpha include-cpu \n"},
         {"names that fill their field", Mode::full, portVlans, both([](ConfigImage &image) {
              image.portVlans[27] = fullName("abcdefghijklmnop");
              image.portVlans[27].members.set(28);
          }),
          "no vlan port-based abcdefghijklmnop\n"
          "vlan port-based abcdefghijklmnop\n"
          "vlan port-based abcdefghijklmnop include-cpu \n"},
         {"no name", Mode::full, portVlans, both([](ConfigImage &image) { image.portVlans[3].inUse = 1; }),
          "no vlan port-based \n"
          "vlan port-based \n"},
         {"same in both images", Mode::delta, portVlans,
          both([](ConfigImage &image) { image.portVlans[0] = portVlan("alpha", withCpu); }), ""},
         {"renamed", Mode::delta, portVlans, portVlanFrom(portVlan("alpha"), portVlan("beta")),
          "no vlan port-based alpha\n"
          "vlan port-based beta\n"},
         {"the CPU port joined alone", Mode::delta, portVlans,
          portVlanFrom(portVlan("alpha", withoutCpu), portVlan("alpha", withCpu)), ""},
         {"renamed and the CPU port joined", Mode::delta, portVlans,
          portVlanFrom(portVlan("alpha", withoutCpu), portVlan("beta", withCpu)),
          "no vlan port-based alpha\n"
          "vlan port-based beta\n"
          "vlan port-based beta include-cpu\n"},
         {"renamed with the CPU port as before", Mode::delta, portVlans,
          portVlanFrom(portVlan("alpha", withCpu), portVlan("beta", withCpu)),
          "no vlan port-based alpha\n"
          "vlan port-based beta\n"},
         {"renamed and the CPU port left", Mode::delta, portVlans,
          portVlanFrom(portVlan("alpha", withCpu), portVlan("beta", withoutCpu)),
          "no vlan port-based alpha\n"
          "vlan port-based beta\n"},
         {"an unused default with the CPU port", Mode::delta, portVlans,
          portVlanFrom(portVlan("alpha", withCpu, 0), portVlan("beta", withCpu)), "vlan port-based beta\n"},
         {"new", Mode::delta, portVlans, portVlanFrom({}, portVlan("alpha", withCpu)),
          "vlan port-based alpha\n"
          "vlan port-based alpha include-cpu\n"},
         {"gone", Mode::delta, portVlans, portVlanFrom(portVlan("alpha"), {}), "no vlan port-based alpha\n"},
         {"taken out of use under its name", Mode::delta, portVlans,
          portVlanFrom(portVlan("alpha"), portVlan("alpha", {}, 0)), ""},
         {"taken into use under its name", Mode::delta, portVlans,
          portVlanFrom(portVlan("alpha", {}, 0), portVlan("alpha")), ""},
         {"out of use and renamed", Mode::delta, portVlans, portVlanFrom(portVlan("alpha"), portVlan("beta", {}, 0)),
          "no vlan port-based alpha\n"},
         {"names that differ at the end of the field", Mode::delta, portVlans,
          portVlanFrom(fullName("abcdefghijklmnop"), fullName("abcdefghijklmnoq")),
          "no vlan port-based abcdefghijklmnop\n"
          "vlan port-based abcdefghijklmnoq\n"},
         {"full names with other members", Mode::delta, portVlans,
          portVlanFrom(portVlan("abcdefghijklmnop"), fullName("abcdefghijklmnop")), ""},
         {"bytes after a name", Mode::delta, portVlans,
          both([](ConfigImage &image) { image.portVlans[0] = portVlan("alpha"); },
                  [](ConfigImage &image) { image.portVlans[0].name.characters[6] = 'x'; }),
          ""},
         {"all removals first", Mode::delta, portVlans,
          [](ConfigImage &current, ConfigImage &defaults) {
              defaults.portVlans[0] = portVlan("alpha");
              defaults.portVlans[27] = portVlan("omega");
              current.portVlans[0] = portVlan("beta");
              current.portVlans[27] = portVlan("gamma", withCpu);
          },
          "no vlan port-based alpha\n"
          "no vlan port-based omega\n"
          "vlan port-based beta\n"
          "vlan port-based gamma\n"
          "vlan port-based gamma include-cpu\n"},
     }));

ROWS(PortVlanPorts,
     ({
         {"zero image", Mode::full, portVlanPorts, nothing, ""},
         {"entries", Mode::full, portVlanPorts, current([](ConfigImage &image) {
              image.portVlans[0] = portVlan("alpha", portRange<Bitmap<5>>(1, 28));
              image.portVlans[1] = portVlan("unused", withCpu, 0);
              image.portVlans[2] = portVlan("nobody");
              image.portVlans[3] = portVlan("cpu", ports<Bitmap<5>>({29, 30, 40}));
              image.portVlans[26] = portVlan("beta", ports<Bitmap<5>>({1, 2, 28, 29}), 2);
              image.portVlans[27] = fullName("abcdefghijklmnop");
          }),
          "interface 1-28 \nvlan port-based alpha\nexit\n"
          "interface 1,2,28 \nvlan port-based beta\nexit\n"
          "interface 1,7,9,15,17,23,25 \nvlan port-based abcdefghijklmnop\nexit\n"},
         {"default entries do not count", Mode::full, portVlanPorts,
          defaults([](ConfigImage &image) { image.portVlans[0] = portVlan("alpha", withCpu); }), ""},
         {"same in both images", Mode::delta, portVlanPorts,
          both([](ConfigImage &image) { image.portVlans[0] = portVlan("alpha", withCpu); }), ""},
         {"renamed", Mode::delta, portVlanPorts, portVlanFrom(portVlan("alpha", withCpu), portVlan("beta", withCpu)),
          ""},
         {"the CPU port joined", Mode::delta, portVlanPorts,
          portVlanFrom(portVlan("alpha", withoutCpu), portVlan("alpha", withCpu)), ""},
         {"a port joined", Mode::delta, portVlanPorts,
          portVlanFrom(portVlan("alpha", withoutCpu), portVlan("alpha", ports<Bitmap<5>>({1, 28}))),
          "interface 1,28 \nvlan port-based alpha\nexit\n"},
         {"all ports left", Mode::delta, portVlanPorts, portVlanFrom(portVlan("alpha", withoutCpu), portVlan("alpha")),
          ""},
         {"out of use", Mode::delta, portVlanPorts,
          portVlanFrom(portVlan("alpha", withoutCpu), portVlan("alpha", portRange<Bitmap<5>>(1, 4), 0)), ""},
         {"into use with the ports that it had", Mode::delta, portVlanPorts,
          portVlanFrom(portVlan("alpha", withoutCpu, 0), portVlan("alpha", withoutCpu)), ""},
         {"first and last entry", Mode::delta, portVlanPorts, current([](ConfigImage &image) {
              image.portVlans[0] = portVlan("alpha", ports<Bitmap<5>>({5}));
              image.portVlans[27] = portVlan("omega", ports<Bitmap<5>>({6}));
          }),
          "interface 5 \nvlan port-based alpha\nexit\n"
          "interface 6 \nvlan port-based omega\nexit\n"},
     }));

// ------------------------------------------------------------------------------------------------------ 802.1Q VLANs

ROWS(ManagementVlan,
     ({
         {"zero image", Mode::full, management, nothing, ""},
         {"all ways to belong to it", Mode::full, management, current(manage), managed},
         {"no entry with the CPU port", Mode::full, management,
          both(manage, [](ConfigImage &image) { image.tagVlans[1].members.clear(cpuPort); }), ""},
         {"first entry not in use", Mode::full, management,
          both(manage, [](ConfigImage &image) { image.tagVlans[0].inUse = 0; }), ""},
         {"a gap before it", Mode::full, management,
          both(manage,
               [](ConfigImage &image) {
                   image.tagVlans[2] = image.tagVlans[1];
                   image.tagVlans[1].inUse = 0;
               }),
          ""},
         {"a free entry with the CPU port before it", Mode::full, management,
          both(manage,
               [](ConfigImage &image) {
                   image.tagVlans[0].inUse = 0;
                   image.tagVlans[0].members.set(cpuPort);
               }),
          ""},
         {"the first of two", Mode::full, management,
          both(manage,
               [](ConfigImage &image) {
                   image.tagVlans[0].members = ports({3, 29});
                   image.vlanPorts[27].accessVlan = 1;
               }),
          "vlan management-vlan 1 management-port 2,28  mode access\n"
          "vlan management-vlan 1 management-port 3  mode trunk\n"},
         {"the last entry", Mode::full, management, current([](ConfigImage &image) {
              for (TagVlan &vlan : image.tagVlans) vlan = tagVlan(1, ports({3}));
              image.tagVlans[lastVlan] = tagVlan(65535, portRange(29, 29));
              setPort(image, 13, 0, 65535);
          }),
          "vlan management-vlan 65535 management-port 13  mode access\n"},
         {"a full table without one", Mode::full, management, current([](ConfigImage &image) {
              for (TagVlan &vlan : image.tagVlans) vlan = tagVlan(1, portRange(1, 28));
          }),
          ""},
         {"ports without access VLAN and id zero", Mode::full, management,
          current([](ConfigImage &image) { image.tagVlans[0] = tagVlan(0, ports({29})); }),
          "vlan management-vlan 0 management-port 1-28  mode access\n"},
         {"trunk ports only", Mode::full, management, current([](ConfigImage &image) {
              image.tagVlans[0] = tagVlan(2, portRange(1, 29));
              for (int port = 1; port <= 28; ++port) setPort(image, port, 1, 0);
          }),
          "vlan management-vlan 2 management-port 1-28  mode trunk\n"},
         {"trunk native ports only", Mode::full, management, current([](ConfigImage &image) {
              image.tagVlans[0] = tagVlan(2, portRange(1, 29));
              for (int port = 1; port <= 28; ++port) setPort(image, port, 2, 0);
          }),
          "vlan management-vlan 2 management-port 1-28  mode trunk-native\n"},
         {"no port belongs to it", Mode::full, management,
          current([](ConfigImage &image) { image.tagVlans[0] = tagVlan(2, portRange(1, 29)); }), ""},
         {"that of the default does not count", Mode::full, management, defaults(manage), ""},
         {"same in both images", Mode::delta, management, both(manage), ""},
         {"new", Mode::delta, management, current(manage), managed},
         {"gone", Mode::delta, management, defaults(manage), ""},
         {"another id by default", Mode::delta, management,
          [](ConfigImage &current, ConfigImage &defaults) {
              manage(current);
              manage(defaults);
              defaults.tagVlans[1].id = 98;
              for (int port : {1, 28}) defaults.vlanPorts[port - 1].accessVlan = 98; // the same classes
          },
          managed},
         {"another id by default and no port", Mode::delta, management,
          [](ConfigImage &current, ConfigImage &defaults) {
              current.tagVlans[0] = tagVlan(99, ports({29}));
              defaults.tagVlans[0] = tagVlan(98, ports({29}));
          },
          ""},
         {"an access port by default", Mode::delta, management,
          both(manage, [](ConfigImage &image) { image.vlanPorts[27].accessVlan = 98; }),
          "vlan management-vlan 99 management-port 1  mode access\n"
          "vlan management-vlan 99 management-port 3,27  mode trunk\n"
          "vlan management-vlan 99 management-port 5  mode trunk-native\n"},
         {"a trunk port by default", Mode::delta, management,
          both(manage, [](ConfigImage &image) { image.tagVlans[1].members.clear(26); }),
          "vlan management-vlan 99 management-port 1,28  mode access\n"
          "vlan management-vlan 99 management-port 3  mode trunk\n"
          "vlan management-vlan 99 management-port 5  mode trunk-native\n"},
         {"another mode by default", Mode::delta, management,
          both(manage, [](ConfigImage &image) { image.vlanPorts[4].mode = 3; }),
          "vlan management-vlan 99 management-port 1,28  mode access\n"
          "vlan management-vlan 99 management-port 3,27  mode trunk\n"},
         {"members that belong to no class", Mode::delta, management,
          both(manage, [](ConfigImage &image) { image.tagVlans[1].members.clear(1).clear(6).clear(7).set(9); }), ""},
         {"the default entry of the same index is not in use", Mode::delta, management,
          [](ConfigImage &current, ConfigImage &defaults) {
              manage(current);
              manage(defaults);
              defaults.tagVlans[0].inUse = 0;
              defaults.tagVlans[1].inUse = 0;
              defaults.tagVlans[1].members.clear(cpuPort);
          },
          ""},
         {"the default has it at another index", Mode::delta, management,
          [](ConfigImage &current, ConfigImage &defaults) {
              manage(current);
              manage(defaults);
              std::swap(defaults.tagVlans[0], defaults.tagVlans[1]);
          },
          managed},
         {"first entry not in use", Mode::delta, management,
          [](ConfigImage &image, ConfigImage &) {
              manage(image);
              image.tagVlans[0].inUse = 0;
          },
          ""},
     }));

ROWS(VlanPorts,
     ({
         {"zero image", Mode::full, vlanPorts, nothing, "interface 1-28 \nvlan dot1q-vlan mode access\nexit\n"},
         {"modes without a line", Mode::full, vlanPorts, both(noModes), ""},
         {"access VLANs in the order of their lowest port", Mode::full, vlanPorts, quietCurrent([](ConfigImage &image) {
              for (int port : {3, 5, 9}) image.vlanPorts[port - 1].accessVlan = 20;
              image.vlanPorts[3].accessVlan = 10;
              image.vlanPorts[27].accessVlan = 65535;
          }),
          "interface 3,5,9\nvlan dot1q-vlan access-vlan 20\nexit\n"
          "interface 4\nvlan dot1q-vlan access-vlan 10\nexit\n"
          "interface 28\nvlan dot1q-vlan access-vlan 65535\nexit\n"},
         {"one access VLAN", Mode::full, vlanPorts, quietCurrent([](ConfigImage &image) {
              for (VlanPort &port : image.vlanPorts) port.accessVlan = 1;
          }),
          "interface 1-28\nvlan dot1q-vlan access-vlan 1\nexit\n"},
         {"access VLANs that differ by 256", Mode::full, vlanPorts, quietCurrent([](ConfigImage &image) {
              image.vlanPorts[0].accessVlan = 256;
              image.vlanPorts[1].accessVlan = 512;
              image.vlanPorts[2].accessVlan = 256;
          }),
          "interface 1,3\nvlan dot1q-vlan access-vlan 256\nexit\n"
          "interface 2\nvlan dot1q-vlan access-vlan 512\nexit\n"},
         {"default trunk VLANs are removed first", Mode::full, vlanPorts,
          [](ConfigImage &current, ConfigImage &defaults) {
              noModes(current);
              defaults.tagVlans[0] = tagVlan(1, portRange(1, 28));
              defaults.tagVlans[1] = tagVlan(2, ports({2}), "", 0);
              defaults.tagVlans[2] = tagVlan(3, ports({29, 30, 32}));
              defaults.tagVlans[lastVlan] = tagVlan(4094, ports({28}), "", 128);
              current.tagVlans[0] = tagVlan(1, portRange(1, 28), "", 0);
              current.tagVlans[1] = tagVlan(10, ports({1, 2}));
              current.tagVlans[2] = tagVlan(3, ports({29, 31}));
              current.tagVlans[lastVlan] = tagVlan(65535, ports({1, 28, 29}), "", 2);
          },
          "interface 1-28 \nno vlan dot1q-vlan trunk-vlan 1\nexit\n"
          "interface 28 \nno vlan dot1q-vlan trunk-vlan 4094\nexit\n"
          "interface 1,2 \nvlan dot1q-vlan trunk-vlan 10\nexit\n"
          "interface 1,28 \nvlan dot1q-vlan trunk-vlan 65535\nexit\n"},
         {"removed though it stays", Mode::full, vlanPorts, vlanFrom(tagVlan(7, ports({4})), tagVlan(7, ports({4}))),
          "interface 4 \nno vlan dot1q-vlan trunk-vlan 7\nexit\n"
          "interface 4 \nvlan dot1q-vlan trunk-vlan 7\nexit\n"},
         {"modes", Mode::full, vlanPorts, quietCurrent([](ConfigImage &image) {
              image.vlanPorts[0].mode = 3;
              image.vlanPorts[1].mode = 2;
              image.vlanPorts[2].mode = 1;
              image.vlanPorts[3].mode = 0;
              image.vlanPorts[4].mode = 255;
              image.vlanPorts[26].mode = 2;
              image.vlanPorts[27].mode = 3;
          }),
          "interface 4 \nvlan dot1q-vlan mode access\nexit\n"
          "interface 3 \nvlan dot1q-vlan mode trunk\nexit\n"
          "interface 2,27 \nvlan dot1q-vlan mode trunk native\nexit\n"
          "interface 1,28 \nvlan dot1q-vlan mode dot1q-tunnel\nexit\n"},
         {"whole order", Mode::full, vlanPorts,
          [](ConfigImage &current, ConfigImage &defaults) {
              for (VlanPort &port : current.vlanPorts) port.accessVlan = 5;
              defaults.tagVlans[0] = tagVlan(1, ports({1}));
              current.tagVlans[0] = tagVlan(2, ports({2}));
          },
          "interface 1-28\nvlan dot1q-vlan access-vlan 5\nexit\n"
          "interface 1 \nno vlan dot1q-vlan trunk-vlan 1\nexit\n"
          "interface 2 \nvlan dot1q-vlan trunk-vlan 2\nexit\n"
          "interface 1-28 \nvlan dot1q-vlan mode access\nexit\n"},
         {"same in both images", Mode::delta, vlanPorts, both(manage), ""},
         {"an access VLAN changed", Mode::delta, vlanPorts, both(manage, [](ConfigImage &image) {
              image.vlanPorts[1].accessVlan = 0;
          }),
          "interface 1,4,6-9,28\nvlan dot1q-vlan access-vlan 99\nexit\n"
          "interface 3\nvlan dot1q-vlan access-vlan 1\nexit\n"},
         {"all access VLANs cleared", Mode::delta, vlanPorts,
          both([](ConfigImage &image) { image.vlanPorts[0].accessVlan = 5; },
                  [](ConfigImage &image) { image.vlanPorts[0].accessVlan = 0; }),
          ""},
         {"a mode changed", Mode::delta, vlanPorts,
          both([](ConfigImage &image) { image.vlanPorts[0].accessVlan = 5; },
                  [](ConfigImage &image) { image.vlanPorts[27].mode = 3; }),
          "interface 1-27 \nvlan dot1q-vlan mode access\nexit\n"
          "interface 28 \nvlan dot1q-vlan mode dot1q-tunnel\nexit\n"},
         {"modes changed to trunks", Mode::delta, vlanPorts, current([](ConfigImage &image) {
              image.vlanPorts[0].mode = 1;
              image.vlanPorts[27].mode = 2;
          }),
          "interface 2-27 \nvlan dot1q-vlan mode access\nexit\n"
          "interface 1 \nvlan dot1q-vlan mode trunk\nexit\n"
          "interface 28 \nvlan dot1q-vlan mode trunk native\nexit\n"},
         {"a mode changed to one without a line", Mode::delta, vlanPorts,
          both(noModes, [](ConfigImage &image) { image.vlanPorts[0].mode = 5; }), ""},
         {"a trunk VLAN with another id", Mode::delta, vlanPorts,
          vlanFrom(tagVlan(7, ports({4})), tagVlan(8, ports({4}))),
          "interface 4 \nno vlan dot1q-vlan trunk-vlan 7\nexit\n"
          "interface 4 \nvlan dot1q-vlan trunk-vlan 8\nexit\n"},
         {"a trunk VLAN with other ports", Mode::delta, vlanPorts,
          vlanFrom(tagVlan(7, ports({4})), tagVlan(7, ports({4, 28})), lastVlan),
          "interface 4 \nno vlan dot1q-vlan trunk-vlan 7\nexit\n"
          "interface 4,28 \nvlan dot1q-vlan trunk-vlan 7\nexit\n"},
         {"the CPU port and the bits after", Mode::delta, vlanPorts,
          vlanFrom(tagVlan(7, ports({4})), tagVlan(7, ports({4, 29, 30, 31, 32}))), ""},
         {"a name changed", Mode::delta, vlanPorts,
          vlanFrom(tagVlan(7, ports({4}), "alpha"), tagVlan(7, ports({4}), "beta")), ""},
         {"another value of in use", Mode::delta, vlanPorts,
          vlanFrom(tagVlan(7, ports({4})), tagVlan(7, ports({4}), "", 2)), ""},
         {"out of use and else the same", Mode::delta, vlanPorts,
          vlanFrom(tagVlan(7, ports({4})), tagVlan(7, ports({4}), "", 0)), ""},
         {"into use and else the same", Mode::delta, vlanPorts,
          vlanFrom(tagVlan(7, ports({4}), "", 0), tagVlan(7, ports({4}))), ""},
         {"out of use and cleared", Mode::delta, vlanPorts, vlanFrom(tagVlan(7, ports({4})), {}),
          "interface 4 \nno vlan dot1q-vlan trunk-vlan 7\nexit\n"},
         {"out of use and changed", Mode::delta, vlanPorts,
          vlanFrom(tagVlan(7, ports({4})), tagVlan(8, ports({5}), "", 0)),
          "interface 4 \nno vlan dot1q-vlan trunk-vlan 7\nexit\n"},
         {"into use", Mode::delta, vlanPorts, vlanFrom({}, tagVlan(7, ports({4}))),
          "interface 4 \nvlan dot1q-vlan trunk-vlan 7\nexit\n"},
         {"into use and changed", Mode::delta, vlanPorts,
          vlanFrom(tagVlan(6, ports({5}), "", 0), tagVlan(7, ports({4}))),
          "interface 4 \nvlan dot1q-vlan trunk-vlan 7\nexit\n"},
         {"no port left", Mode::delta, vlanPorts, vlanFrom(tagVlan(7, ports({4})), tagVlan(7, {})),
          "interface 4 \nno vlan dot1q-vlan trunk-vlan 7\nexit\n"},
         {"moved to another index", Mode::delta, vlanPorts,
          [](ConfigImage &current, ConfigImage &defaults) {
              noModes(current);
              noModes(defaults);
              defaults.tagVlans[0] = current.tagVlans[1] = tagVlan(7, ports({4}));
          },
          "interface 4 \nno vlan dot1q-vlan trunk-vlan 7\nexit\n"
          "interface 4 \nvlan dot1q-vlan trunk-vlan 7\nexit\n"},
         {"whole order", Mode::delta, vlanPorts,
          [](ConfigImage &current, ConfigImage &defaults) {
              noModes(defaults);
              current.vlanPorts[0].accessVlan = 5;
              defaults.tagVlans[0] = tagVlan(1, ports({1}));
              defaults.tagVlans[1] = tagVlan(2, ports({2}));
              current.tagVlans[0] = tagVlan(3, ports({3}));
              current.tagVlans[1] = tagVlan(4, ports({4}));
          },
          "interface 1\nvlan dot1q-vlan access-vlan 5\nexit\n"
          "interface 1 \nno vlan dot1q-vlan trunk-vlan 1\nexit\n"
          "interface 2 \nno vlan dot1q-vlan trunk-vlan 2\nexit\n"
          "interface 3 \nvlan dot1q-vlan trunk-vlan 3\nexit\n"
          "interface 4 \nvlan dot1q-vlan trunk-vlan 4\nexit\n"
          "interface 1-28 \nvlan dot1q-vlan mode access\nexit\n"},
     }));

ROWS(VlanNames, ({
                    {"zero image", Mode::full, vlanNames, nothing, ""},
                    {"entries", Mode::full, vlanNames, current([](ConfigImage &image) {
                         image.tagVlans[0] = tagVlan(1, {}, "default");
                         image.tagVlans[1] = tagVlan(2, portRange(1, 28)); // no name
                         image.tagVlans[2] = tagVlan(3, {}, "unused", 0);
                         image.tagVlans[3] = tagVlan(300, {}, letters(46).c_str(), 200);
                         image.tagVlans[lastVlan] = tagVlan(65535, {}, "last", 2);
                     }),
                     "vlan dot1q-vlan 1\nname default\nexit\n"
                     "vlan dot1q-vlan 300\nname abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrst\nexit\n"
                     "vlan dot1q-vlan 65535\nname last\nexit\n"},
                    {"same in both images", Mode::delta, vlanNames,
                     both([](ConfigImage &image) { image.tagVlans[0] = tagVlan(1, {}, "default"); }), ""},
                    {"changed entries", Mode::delta, vlanNames,
                     [](ConfigImage &current, ConfigImage &defaults) {
                         current.tagVlans[0] = tagVlan(1, {}, "default");
                         defaults.tagVlans[0] = tagVlan(1, {}, "standard");
                         current.tagVlans[1] = defaults.tagVlans[1] = tagVlan(2, {}, "same");
                         current.tagVlans[2] = tagVlan(3, {}, "members");
                         defaults.tagVlans[2] = tagVlan(3, ports({1}), "members");
                         current.tagVlans[3] = tagVlan(4, {}); // its name was taken away
                         defaults.tagVlans[3] = tagVlan(4, {}, "named");
                         current.tagVlans[4] = tagVlan(5, {}, "used", 2);
                         defaults.tagVlans[4] = tagVlan(5, {}, "used", 1);
                         current.tagVlans[5] = tagVlan(6, {}, "unused", 0);
                         defaults.tagVlans[5] = tagVlan(7, {}, "unused", 1);
                         current.tagVlans[lastVlan] = tagVlan(8, {}, "last");
                     },
                     "vlan dot1q-vlan 1\nname default\nexit\n"
                     "vlan dot1q-vlan 3\nname members\nexit\n"
                     "vlan dot1q-vlan 5\nname used\nexit\n"
                     "vlan dot1q-vlan 8\nname last\nexit\n"},
                    {"a byte after the name", Mode::delta, vlanNames,
                     both([](ConfigImage &image) { image.tagVlans[0] = tagVlan(1, {}, "default"); },
                          [](ConfigImage &image) { image.tagVlans[0].name.characters[45] = 'x'; }),
                     "vlan dot1q-vlan 1\nname default\nexit\n"},
                }));
