#include "rows.h"

#include "app/run.h"
#include "platform/host/factory.h"
#include "platform/mapi.h"
#include "sections/layer2.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <unistd.h>

namespace {

constexpr const char *lanSettings = "convConfigVLANConfig_mid_vlan_lan_configure";
constexpr const char *trunks = "convConfigPortTrunk_PortTrunk_configure_channel_group";
constexpr const char *distribution = "convConfigPortTrunkMode_PortTrunkMode_configure_channel_group";
constexpr const char *lldp = "convConfigLLDPConfig_LLDPConfig_configure_lldp";
constexpr const char *aging = "convConfigSwitchConfig_SwitchConfig_configure_mac";
constexpr const char *mirrorDestination = "convConfigPortMirror_PortMirror_configure_mirror_destination";
constexpr const char *mirrorMode = "convConfigPortMirror_PortMirror_configure_mirror_mode";
constexpr const char *mirrorSource = "convConfigPortMirror_PortMirror_configure_mirror_source";
constexpr const char *stp = "convConfigSTPConfig_STPConfig_configure_spanning_tree";
constexpr const char *bpdu = "convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu";
constexpr const char *vlanMode = "convConfigVLANConfig_mid_sys_vlan_config_configure_vlan";
constexpr const char *ethertype = "convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel";
constexpr const char *isolation = "convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation";
constexpr const char *portVlans = "convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based";
constexpr const char *management = "ManageVLANFunc_configure_vlan";
constexpr const char *lacp = "convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp";
constexpr const char *trunkPorts = "convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking";
constexpr const char *lldpPorts = "convConfigLLDPConfig_LLDPConfig_configure_interface_lldp";
constexpr const char *loopPorts = "convConfigLoopDetection_LoopDetection_configure_interface_loop_detection";
constexpr const char *macTable = "convConfigMacTable_MacTable_configure_interface_mac_address_table";
constexpr const char *macLearning = "convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning";
constexpr const char *stpPorts = "convConfigSTPConfig_STPConfig_configure_interface_spanning_tree";
constexpr const char *vlanPorts = "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan";
constexpr const char *portVlanPorts = "convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based";
constexpr const char *vlanNames = "convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan";
constexpr const char *loop = "convConfigLoopDetection_LoopDetection_configure_loop_detection";
constexpr const char *lanVlans = "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan";
constexpr const char *wanVlans = "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan";

/// All steps of this area, in the order of the text.
constexpr const char *steps[] = {lanSettings, trunks,       distribution, lldp,     aging,      mirrorDestination,
                                 mirrorMode,  mirrorSource, stp,          bpdu,     vlanMode,   ethertype,
                                 isolation,   portVlans,    management,   lacp,     trunkPorts, lldpPorts,
                                 loopPorts,   macTable,     macLearning,  stpPorts, vlanPorts,  portVlanPorts,
                                 vlanNames,   loop,         lanVlans,     wanVlans};

bool hasStep(Mode mode, const std::string &emitter) { return mode == Mode::full || emitter != mirrorMode; }

/// Steps that never write, in this mode.
bool isSilent(Mode mode, const std::string &emitter) {
    return emitter == lanSettings || emitter == lanVlans || emitter == wanVlans || emitter == mirrorMode ||
           (mode == Mode::full && emitter == vlanMode);
}

using Given = std::function<void(ConfigImage &, ConfigImage &)>;
using Set = std::function<void(ConfigImage &)>;

void nothing(ConfigImage &, ConfigImage &) {}

Given current(Set set) {
    return [set](ConfigImage &image, ConfigImage &) { set(image); };
}
Given defaults(Set set) {
    return [set](ConfigImage &, ConfigImage &image) { set(image); };
}
/// The same in both images.
Given alike(Set set) {
    return [set](ConfigImage &image, ConfigImage &other) {
        set(image);
        set(other);
    };
}
/// The same in both images, then a change of the current one.
Given changed(Set set, Set change) {
    return [set, change](ConfigImage &image, ConfigImage &other) {
        set(image);
        set(other);
        change(image);
    };
}

/// The set of the given ports, counted from 1; 29 is the CPU's bit.
template <class Ports = PortBitmap> Ports ports(std::initializer_list<unsigned> numbers) {
    Ports set = {};
    for (const unsigned number : numbers) set.set(number - 1);
    return set;
}
template <class Ports = PortBitmap> Ports portRange(unsigned first, unsigned last) {
    Ports set = {};
    for (unsigned number = first; number <= last; ++number) set.set(number - 1);
    return set;
}

// ----------------------------------------------------------------------------------------- VLAN mode, QinQ, isolation

Given modeFrom(u8 from, u8 to) {
    return [from, to](ConfigImage &image, ConfigImage &other) {
        image.vlanMode = to;
        other.vlanMode = from;
    };
}

Given isolated(Isolation before, Isolation after) {
    return [before, after](ConfigImage &image, ConfigImage &other) {
        other.isolation = before;
        image.isolation = after;
    };
}
Isolation isolationOf(u8 enabled, PortBitmap uplinks) { return {enabled, uplinks, {}}; }

} // namespace

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
         {"unchanged", Mode::delta, ethertype, alike([](ConfigImage &image) { image.qinq.ethertype = 0x9100; }),
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
         {"bits behind the last port", Mode::full, isolation, isolated({}, isolationOf(0, ports({29, 30, 32}))),
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
         {"bits behind the last port", Mode::delta, isolation,
          isolated(isolationOf(0, ports({1})), isolationOf(0, ports({1, 29, 30, 31, 32}))), ""},
     }));

// ------------------------------------------------------------------------------------------------- port-based VLANs

namespace {

PortVlan portVlan(const char *name, Bitmap<5> members = {}, u8 inUse = 1) {
    PortVlan vlan = {};
    vlan.inUse = inUse;
    vlan.name = name;
    vlan.members = members;
    return vlan;
}

/// Entry 0 of both images.
Given portVlanFrom(PortVlan before, PortVlan after) {
    return [before, after](ConfigImage &image, ConfigImage &other) {
        other.portVlans[0] = before;
        image.portVlans[0] = after;
    };
}

const Bitmap<5> withCpu = ports<Bitmap<5>>({1, 29});
const Bitmap<5> withoutCpu = ports<Bitmap<5>>({1});

/// A name that fills its field; the members behind it are printable.
PortVlan fullName(const char *name) {
    PortVlan vlan = portVlan(name);
    std::memset(vlan.members.bytes, 'A', sizeof vlan.members.bytes);
    return vlan;
}

} // namespace

ROWS(PortVlans,
     ({
         {"zero image", Mode::full, portVlans, nothing, ""},
         {"removals first", Mode::full, portVlans,
          [](ConfigImage &image, ConfigImage &other) {
              other.portVlans[0] = portVlan("alpha");
              other.portVlans[5] = portVlan("unused", {}, 0);
              other.portVlans[27] = portVlan("omega", {}, 255);
              image.portVlans[1] = portVlan("beta");
              image.portVlans[2] = portVlan("unused", withCpu, 0);
              image.portVlans[27] = portVlan("gamma", {}, 128);
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
          alike([](ConfigImage &image) { image.portVlans[0] = portVlan("alpha", withCpu); }),
          "no vlan port-based alpha\n"
          "vlan port-based alpha\n"
          "vlan port-based alpha include-cpu \n"},
         {"names that fill their field", Mode::full, portVlans, alike([](ConfigImage &image) {
              image.portVlans[27] = fullName("abcdefghijklmnop");
              image.portVlans[27].members.set(28);
          }),
          "no vlan port-based abcdefghijklmnop\n"
          "vlan port-based abcdefghijklmnop\n"
          "vlan port-based abcdefghijklmnop include-cpu \n"},
         {"no name", Mode::full, portVlans, alike([](ConfigImage &image) { image.portVlans[3].inUse = 1; }),
          "no vlan port-based \n"
          "vlan port-based \n"},
         {"same in both images", Mode::delta, portVlans,
          alike([](ConfigImage &image) { image.portVlans[0] = portVlan("alpha", withCpu); }), ""},
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
         {"bytes behind a name", Mode::delta, portVlans,
          changed([](ConfigImage &image) { image.portVlans[0] = portVlan("alpha"); },
                  [](ConfigImage &image) { image.portVlans[0].name.characters[6] = 'x'; }),
          ""},
         {"all removals first", Mode::delta, portVlans,
          [](ConfigImage &image, ConfigImage &other) {
              other.portVlans[0] = portVlan("alpha");
              other.portVlans[27] = portVlan("omega");
              image.portVlans[0] = portVlan("beta");
              image.portVlans[27] = portVlan("gamma", withCpu);
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
          alike([](ConfigImage &image) { image.portVlans[0] = portVlan("alpha", withCpu); }), ""},
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

namespace {

constexpr int lastVlan = 2076;

TagVlan tagVlan(std::uint16_t id, PortBitmap members, const char *name = "", u8 inUse = 1) {
    TagVlan vlan = {};
    vlan.inUse = inUse;
    vlan.members = members;
    vlan.id = id;
    vlan.name = name;
    return vlan;
}

void setPort(ConfigImage &image, int port, u8 mode, std::uint16_t accessVlan) {
    image.vlanPorts[port - 1].mode = mode;
    image.vlanPorts[port - 1].accessVlan = accessVlan;
}

/// VLAN 99 is the management VLAN; each way to belong to it, and each way not to, is taken by a port.
void manage(ConfigImage &image) {
    image.tagVlans[0] = tagVlan(1, portRange(1, 28));
    image.tagVlans[1] = tagVlan(99, ports({2, 3, 5, 7, 8, 9, 27, 29}), "", 255);
    setPort(image, 1, 0, 99);
    setPort(image, 2, 0, 1); // a member, but in another access VLAN
    setPort(image, 3, 1, 1);
    setPort(image, 4, 1, 99); // not a member
    setPort(image, 5, 2, 0);
    setPort(image, 6, 2, 99); // not a member
    setPort(image, 7, 3, 99); // dot1q-tunnel
    setPort(image, 8, 4, 99); // unknown modes
    setPort(image, 9, 255, 99);
    setPort(image, 27, 1, 0);
    setPort(image, 28, 0, 99);
}
const std::string managed = "vlan management-vlan 99 management-port 1,28  mode access\n"
                            "vlan management-vlan 99 management-port 3,27  mode trunk\n"
                            "vlan management-vlan 99 management-port 5  mode trunk-native\n";

} // namespace

ROWS(ManagementVlan,
     ({
         {"zero image", Mode::full, management, nothing, ""},
         {"all ways to belong to it", Mode::full, management, current(manage), managed},
         {"no entry with the CPU port", Mode::full, management,
          changed(manage, [](ConfigImage &image) { image.tagVlans[1].members.clear(cpuPort); }), ""},
         {"first entry not in use", Mode::full, management,
          changed(manage, [](ConfigImage &image) { image.tagVlans[0].inUse = 0; }), ""},
         {"a gap before it", Mode::full, management,
          changed(manage,
                  [](ConfigImage &image) {
                      image.tagVlans[2] = image.tagVlans[1];
                      image.tagVlans[1].inUse = 0;
                  }),
          ""},
         {"a free entry with the CPU port before it", Mode::full, management,
          changed(manage,
                  [](ConfigImage &image) {
                      image.tagVlans[0].inUse = 0;
                      image.tagVlans[0].members.set(cpuPort);
                  }),
          ""},
         {"the first of two", Mode::full, management,
          changed(manage,
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
         {"same in both images", Mode::delta, management, alike(manage), ""},
         {"new", Mode::delta, management, current(manage), managed},
         {"gone", Mode::delta, management, defaults(manage), ""},
         {"another id by default", Mode::delta, management,
          [](ConfigImage &image, ConfigImage &other) {
              manage(image);
              manage(other);
              other.tagVlans[1].id = 98;
              for (int port : {1, 28}) other.vlanPorts[port - 1].accessVlan = 98; // the same classes
          },
          managed},
         {"another id by default and no port", Mode::delta, management,
          [](ConfigImage &image, ConfigImage &other) {
              image.tagVlans[0] = tagVlan(99, ports({29}));
              other.tagVlans[0] = tagVlan(98, ports({29}));
          },
          ""},
         {"an access port by default", Mode::delta, management,
          changed(manage, [](ConfigImage &image) { image.vlanPorts[27].accessVlan = 98; }),
          "vlan management-vlan 99 management-port 1  mode access\n"
          "vlan management-vlan 99 management-port 3,27  mode trunk\n"
          "vlan management-vlan 99 management-port 5  mode trunk-native\n"},
         {"a trunk port by default", Mode::delta, management,
          changed(manage, [](ConfigImage &image) { image.tagVlans[1].members.clear(26); }),
          "vlan management-vlan 99 management-port 1,28  mode access\n"
          "vlan management-vlan 99 management-port 3  mode trunk\n"
          "vlan management-vlan 99 management-port 5  mode trunk-native\n"},
         {"another mode by default", Mode::delta, management,
          changed(manage, [](ConfigImage &image) { image.vlanPorts[4].mode = 3; }),
          "vlan management-vlan 99 management-port 1,28  mode access\n"
          "vlan management-vlan 99 management-port 3,27  mode trunk\n"},
         {"members that belong to no class", Mode::delta, management,
          changed(manage, [](ConfigImage &image) { image.tagVlans[1].members.clear(1).clear(6).clear(7).set(9); }), ""},
         {"the default entry of the same index is not in use", Mode::delta, management,
          [](ConfigImage &image, ConfigImage &other) {
              manage(image);
              manage(other);
              other.tagVlans[0].inUse = 0;
              other.tagVlans[1].inUse = 0;
              other.tagVlans[1].members.clear(cpuPort);
          },
          ""},
         {"the default has it at another index", Mode::delta, management,
          [](ConfigImage &image, ConfigImage &other) {
              manage(image);
              manage(other);
              std::swap(other.tagVlans[0], other.tagVlans[1]);
          },
          managed},
         {"first entry not in use", Mode::delta, management,
          [](ConfigImage &image, ConfigImage &) {
              manage(image);
              image.tagVlans[0].inUse = 0;
          },
          ""},
     }));

namespace {

/// A mode that has no line, on all ports of both images.
void noModes(ConfigImage &image) {
    for (VlanPort &port : image.vlanPorts) port.mode = 4;
}
/// VLANs on ports of modes without a line: entry `index` of the default and of the current image.
Given vlanFrom(TagVlan before, TagVlan after, int index = 0) {
    return [=](ConfigImage &image, ConfigImage &other) {
        noModes(image);
        noModes(other);
        other.tagVlans[index] = before;
        image.tagVlans[index] = after;
    };
}
Given quietCurrent(Set set) { return changed(noModes, set); }

} // namespace

ROWS(VlanPorts,
     ({
         {"zero image", Mode::full, vlanPorts, nothing, "interface 1-28 \nvlan dot1q-vlan mode access\nexit\n"},
         {"modes without a line", Mode::full, vlanPorts, alike(noModes), ""},
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
          [](ConfigImage &image, ConfigImage &other) {
              noModes(image);
              other.tagVlans[0] = tagVlan(1, portRange(1, 28));
              other.tagVlans[1] = tagVlan(2, ports({2}), "", 0);
              other.tagVlans[2] = tagVlan(3, ports({29, 30, 32}));
              other.tagVlans[lastVlan] = tagVlan(4094, ports({28}), "", 128);
              image.tagVlans[0] = tagVlan(1, portRange(1, 28), "", 0);
              image.tagVlans[1] = tagVlan(10, ports({1, 2}));
              image.tagVlans[2] = tagVlan(3, ports({29, 31}));
              image.tagVlans[lastVlan] = tagVlan(65535, ports({1, 28, 29}), "", 2);
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
          [](ConfigImage &image, ConfigImage &other) {
              for (VlanPort &port : image.vlanPorts) port.accessVlan = 5;
              other.tagVlans[0] = tagVlan(1, ports({1}));
              image.tagVlans[0] = tagVlan(2, ports({2}));
          },
          "interface 1-28\nvlan dot1q-vlan access-vlan 5\nexit\n"
          "interface 1 \nno vlan dot1q-vlan trunk-vlan 1\nexit\n"
          "interface 2 \nvlan dot1q-vlan trunk-vlan 2\nexit\n"
          "interface 1-28 \nvlan dot1q-vlan mode access\nexit\n"},
         {"same in both images", Mode::delta, vlanPorts, alike(manage), ""},
         {"an access VLAN changed", Mode::delta, vlanPorts, changed(manage, [](ConfigImage &image) {
              image.vlanPorts[1].accessVlan = 0;
          }),
          "interface 1,4,6-9,28\nvlan dot1q-vlan access-vlan 99\nexit\n"
          "interface 3\nvlan dot1q-vlan access-vlan 1\nexit\n"},
         {"all access VLANs cleared", Mode::delta, vlanPorts,
          changed([](ConfigImage &image) { image.vlanPorts[0].accessVlan = 5; },
                  [](ConfigImage &image) { image.vlanPorts[0].accessVlan = 0; }),
          ""},
         {"a mode changed", Mode::delta, vlanPorts,
          changed([](ConfigImage &image) { image.vlanPorts[0].accessVlan = 5; },
                  [](ConfigImage &image) { image.vlanPorts[27].mode = 3; }),
          "interface 1-27 \nvlan dot1q-vlan mode access\nexit\n"
          "interface 28 \nvlan dot1q-vlan mode dot1q-tunnel\nexit\n"},
         {"a mode changed to one without a line", Mode::delta, vlanPorts,
          changed(noModes, [](ConfigImage &image) { image.vlanPorts[0].mode = 5; }), ""},
         {"a trunk VLAN with another id", Mode::delta, vlanPorts,
          vlanFrom(tagVlan(7, ports({4})), tagVlan(8, ports({4}))),
          "interface 4 \nno vlan dot1q-vlan trunk-vlan 7\nexit\n"
          "interface 4 \nvlan dot1q-vlan trunk-vlan 8\nexit\n"},
         {"a trunk VLAN with other ports", Mode::delta, vlanPorts,
          vlanFrom(tagVlan(7, ports({4})), tagVlan(7, ports({4, 28})), lastVlan),
          "interface 4 \nno vlan dot1q-vlan trunk-vlan 7\nexit\n"
          "interface 4,28 \nvlan dot1q-vlan trunk-vlan 7\nexit\n"},
         {"the CPU port and the bits behind", Mode::delta, vlanPorts,
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
          [](ConfigImage &image, ConfigImage &other) {
              noModes(image);
              noModes(other);
              other.tagVlans[0] = image.tagVlans[1] = tagVlan(7, ports({4}));
          },
          "interface 4 \nno vlan dot1q-vlan trunk-vlan 7\nexit\n"
          "interface 4 \nvlan dot1q-vlan trunk-vlan 7\nexit\n"},
         {"whole order", Mode::delta, vlanPorts,
          [](ConfigImage &image, ConfigImage &other) {
              noModes(other);
              image.vlanPorts[0].accessVlan = 5;
              other.tagVlans[0] = tagVlan(1, ports({1}));
              other.tagVlans[1] = tagVlan(2, ports({2}));
              image.tagVlans[0] = tagVlan(3, ports({3}));
              image.tagVlans[1] = tagVlan(4, ports({4}));
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
                     alike([](ConfigImage &image) { image.tagVlans[0] = tagVlan(1, {}, "default"); }), ""},
                    {"changed entries", Mode::delta, vlanNames,
                     [](ConfigImage &image, ConfigImage &other) {
                         image.tagVlans[0] = tagVlan(1, {}, "default");
                         other.tagVlans[0] = tagVlan(1, {}, "standard");
                         image.tagVlans[1] = other.tagVlans[1] = tagVlan(2, {}, "same");
                         image.tagVlans[2] = tagVlan(3, {}, "members");
                         other.tagVlans[2] = tagVlan(3, ports({1}), "members");
                         image.tagVlans[3] = tagVlan(4, {}); // its name was taken away
                         other.tagVlans[3] = tagVlan(4, {}, "named");
                         image.tagVlans[4] = tagVlan(5, {}, "used", 2);
                         other.tagVlans[4] = tagVlan(5, {}, "used", 1);
                         image.tagVlans[5] = tagVlan(6, {}, "unused", 0);
                         other.tagVlans[5] = tagVlan(7, {}, "unused", 1);
                         image.tagVlans[lastVlan] = tagVlan(8, {}, "last");
                     },
                     "vlan dot1q-vlan 1\nname default\nexit\n"
                     "vlan dot1q-vlan 3\nname members\nexit\n"
                     "vlan dot1q-vlan 5\nname used\nexit\n"
                     "vlan dot1q-vlan 8\nname last\nexit\n"},
                    {"a byte behind the name", Mode::delta, vlanNames,
                     changed([](ConfigImage &image) { image.tagVlans[0] = tagVlan(1, {}, "default"); },
                             [](ConfigImage &image) { image.tagVlans[0].name.characters[45] = 'x'; }),
                     "vlan dot1q-vlan 1\nname default\nexit\n"},
                }));

// ------------------------------------------------------------------------------------------ spanning tree and BPDUs

namespace {

Given stpFrom(std::function<void(StpConfig &)> before, std::function<void(StpConfig &)> after) {
    return [before, after](ConfigImage &image, ConfigImage &other) {
        before(other.stp);
        image.stp = other.stp;
        after(image.stp);
    };
}
/// A change of one value of the bridge, from a zero record.
Given stpSet(std::function<void(StpConfig &)> after) {
    return stpFrom([](StpConfig &) {}, after);
}

/// Values that have no line, on all ports.
void quietStp(ConfigImage &image) {
    for (int i = 0; i < portCount; ++i) {
        image.stpPorts.enabled[i] = image.stpPorts.edge[i] = 2;
        image.stpPorts.pointToPoint[i] = 3;
        image.stpPorts.cost[i] = -1;
        image.stpPorts.priority[i] = -2;
    }
}
Given quietStpBut(std::function<void(StpPorts &)> set) {
    return changed(quietStp, [set](ConfigImage &image) { set(image.stpPorts); });
}

/// Something to write for each attribute of the ports, in both images; then a change.
Given stpPortsChanged(std::function<void(StpPorts &)> change) {
    return changed(
        [](ConfigImage &image) {
            quietStp(image);
            image.stpPorts.enabled[0] = 1;
            image.stpPorts.cost[1] = 10;
            image.stpPorts.priority[2] = 20;
            image.stpPorts.edge[3] = 1;
            image.stpPorts.pointToPoint[4] = 2;
        },
        [change](ConfigImage &image) { change(image.stpPorts); });
}

Given bpdusFrom(u8 before, std::initializer_list<u8> after) {
    const std::vector<u8> flags = after;
    return [before, flags](ConfigImage &image, ConfigImage &other) {
        other.switchConfig.blockBpdu20to2F = other.switchConfig.blockBpdu00to0F = before;
        other.switchConfig.blockBpdu10 = before;
        image.switchConfig.blockBpdu20to2F = flags[0];
        image.switchConfig.blockBpdu00to0F = flags[1];
        image.switchConfig.blockBpdu10 = flags[2];
    };
}

} // namespace

ROWS(SpanningTree,
     ({
         {"zero image", Mode::full, stp, nothing,
          "spanning-tree priority 0\n"
          "spanning-tree max-age 0\n"
          "spanning-tree hello-time 0\n"
          "spanning-tree delay-time 0\n"
          "spanning-tree version compatible\n"
          "no spanning-tree aggregated-port\n"
          "spanning-tree aggregated-port cost 0\n"
          "spanning-tree aggregated-port priority 0\n"
          "no spanning-tree aggregated-port edge\n"
          "spanning-tree aggregated-port p2p forced_true\n"},
         {"all values", Mode::full, stp, stpSet([](StpConfig &bridge) {
              bridge.priority = 32768;
              bridge.maxAge = 20;
              bridge.helloTime = 2;
              bridge.forwardDelay = 15;
              bridge.version = 1;
              bridge.aggregated = 256;
              bridge.aggregatedCost = 200000;
              bridge.aggregatedPriority = 128;
              bridge.aggregatedEdge = 0x01000000;
              bridge.aggregatedPointToPoint = 1;
          }),
          "spanning-tree priority 32768\n"
          "spanning-tree max-age 20\n"
          "spanning-tree hello-time 2\n"
          "spanning-tree delay-time 15\n"
          "spanning-tree version normal\n"
          "spanning-tree aggregated-port\n"
          "spanning-tree aggregated-port cost 200000\n"
          "spanning-tree aggregated-port priority 128\n"
          "spanning-tree aggregated-port edge\n"
          "spanning-tree aggregated-port p2p forced_false\n"},
         {"negative values", Mode::full, stp, stpSet([](StpConfig &bridge) {
              bridge.priority = -1;
              bridge.maxAge = -2;
              bridge.helloTime = -3;
              bridge.forwardDelay = -4;
              bridge.version = 257;
              bridge.aggregatedCost = INT32_MIN;
              bridge.aggregatedPriority = -6;
              bridge.aggregatedPointToPoint = 2;
          }),
          "spanning-tree priority -1\n"
          "spanning-tree max-age -2\n"
          "spanning-tree hello-time -3\n"
          "spanning-tree delay-time -4\n"
          "spanning-tree version compatible\n"
          "no spanning-tree aggregated-port\n"
          "spanning-tree aggregated-port cost -2147483648\n"
          "spanning-tree aggregated-port priority -6\n"
          "no spanning-tree aggregated-port edge\n"
          "spanning-tree aggregated-port p2p auto\n"},
         {"unknown version and point to point", Mode::full, stp, stpSet([](StpConfig &bridge) {
              bridge.version = 2;
              bridge.aggregatedPointToPoint = 3;
          }),
          "spanning-tree priority 0\n"
          "spanning-tree max-age 0\n"
          "spanning-tree hello-time 0\n"
          "spanning-tree delay-time 0\n"
          "spanning-tree version compatible\n"
          "no spanning-tree aggregated-port\n"
          "spanning-tree aggregated-port cost 0\n"
          "spanning-tree aggregated-port priority 0\n"
          "no spanning-tree aggregated-port edge\n"},
         {"same in both images", Mode::delta, stp, stpSet([](StpConfig &) {}), ""},
         {"all values", Mode::delta, stp, stpSet([](StpConfig &bridge) {
              bridge.priority = -32768;
              bridge.maxAge = 20;
              bridge.helloTime = 2;
              bridge.forwardDelay = 15;
              bridge.version = 1;
              bridge.aggregated = 1;
              bridge.aggregatedCost = -200000;
              bridge.aggregatedPriority = 128;
              bridge.aggregatedEdge = 1;
              bridge.aggregatedPointToPoint = 2;
          }),
          "spanning-tree priority -32768\n"
          "spanning-tree max-age 20\n"
          "spanning-tree hello-time 2\n"
          "spanning-tree delay-time 15\n"
          "spanning-tree version normal\n"
          "spanning-tree aggregated-port\n"
          "spanning-tree aggregated-port cost -200000\n"
          "spanning-tree aggregated-port priority 128\n"
          "spanning-tree aggregated-port edge\n"
          "spanning-tree aggregated-port p2p auto\n"},
         {"bridge priority", Mode::delta, stp, stpSet([](StpConfig &bridge) { bridge.priority = 1; }),
          "spanning-tree priority 1\n"},
         {"max age", Mode::delta, stp, stpSet([](StpConfig &bridge) { bridge.maxAge = 1; }),
          "spanning-tree max-age 1\n"},
         {"hello time", Mode::delta, stp, stpSet([](StpConfig &bridge) { bridge.helloTime = 1; }),
          "spanning-tree hello-time 1\n"},
         {"forward delay", Mode::delta, stp, stpSet([](StpConfig &bridge) { bridge.forwardDelay = 1; }),
          "spanning-tree delay-time 1\n"},
         {"version normal", Mode::delta, stp, stpSet([](StpConfig &bridge) { bridge.version = 1; }),
          "spanning-tree version normal\n"},
         {"version compatible twice over", Mode::delta, stp, stpSet([](StpConfig &bridge) { bridge.version = 3; }),
          "spanning-tree version compatible\n"},
         {"aggregated ports on", Mode::delta, stp, stpSet([](StpConfig &bridge) { bridge.aggregated = 256; }),
          "spanning-tree aggregated-port\n"},
         {"aggregated ports off", Mode::delta, stp,
          stpFrom([](StpConfig &bridge) { bridge.aggregated = 1; }, [](StpConfig &bridge) { bridge.aggregated = 0; }),
          "no spanning-tree aggregated-port\n"},
         {"cost", Mode::delta, stp, stpSet([](StpConfig &bridge) { bridge.aggregatedCost = 1; }),
          "spanning-tree aggregated-port cost 1\n"},
         {"priority of aggregated ports", Mode::delta, stp,
          stpSet([](StpConfig &bridge) { bridge.aggregatedPriority = 1; }),
          "spanning-tree aggregated-port priority 1\n"},
         {"edge on", Mode::delta, stp, stpSet([](StpConfig &bridge) { bridge.aggregatedEdge = 2; }),
          "spanning-tree aggregated-port edge\n"},
         {"edge off", Mode::delta, stp,
          stpFrom([](StpConfig &bridge) { bridge.aggregatedEdge = 1; },
                  [](StpConfig &bridge) { bridge.aggregatedEdge = 0; }),
          "no spanning-tree aggregated-port edge\n"},
         {"point to point true", Mode::delta, stp,
          stpFrom([](StpConfig &bridge) { bridge.aggregatedPointToPoint = 2; },
                  [](StpConfig &bridge) { bridge.aggregatedPointToPoint = 0; }),
          "spanning-tree aggregated-port p2p forced_true\n"},
         {"point to point false", Mode::delta, stp,
          stpSet([](StpConfig &bridge) { bridge.aggregatedPointToPoint = 1; }),
          "spanning-tree aggregated-port p2p forced_false\n"},
         {"point to point auto", Mode::delta, stp, stpSet([](StpConfig &bridge) { bridge.aggregatedPointToPoint = 2; }),
          "spanning-tree aggregated-port p2p auto\n"},
         {"point to point unknown", Mode::delta, stp,
          stpSet([](StpConfig &bridge) { bridge.aggregatedPointToPoint = 3; }), ""},
         {"point to point is a word", Mode::delta, stp,
          stpSet([](StpConfig &bridge) { bridge.aggregatedPointToPoint = 257; }), ""},
     }));

ROWS(Bpdus, ({
                {"all permitted", Mode::full, bpdu, nothing,
                 "switch bpdu 00-0F permit\n"
                 "switch bpdu 20-2F permit\n"
                 "switch bpdu 10 permit\n"},
                {"all blocked", Mode::full, bpdu, bpdusFrom(0, {1, 2, 255}),
                 "no switch bpdu 00-0F\n"
                 "no switch bpdu 20-2F\n"
                 "no switch bpdu 10\n"},
                {"the first byte is the second line", Mode::full, bpdu, bpdusFrom(0, {1, 0, 0}),
                 "switch bpdu 00-0F permit\n"
                 "no switch bpdu 20-2F\n"
                 "switch bpdu 10 permit\n"},
                {"the second byte is the first line", Mode::full, bpdu, bpdusFrom(0, {0, 1, 0}),
                 "no switch bpdu 00-0F\n"
                 "switch bpdu 20-2F permit\n"
                 "switch bpdu 10 permit\n"},
                {"same in both images", Mode::delta, bpdu, bpdusFrom(1, {1, 1, 1}), ""},
                {"all blocked", Mode::delta, bpdu, bpdusFrom(0, {1, 1, 1}),
                 "no switch bpdu 00-0F\n"
                 "no switch bpdu 20-2F\n"
                 "no switch bpdu 10\n"},
                {"all permitted", Mode::delta, bpdu, bpdusFrom(1, {0, 0, 0}),
                 "switch bpdu 00-0F permit\n"
                 "switch bpdu 20-2F permit\n"
                 "switch bpdu 10 permit\n"},
                {"20 to 2F", Mode::delta, bpdu, bpdusFrom(1, {0, 1, 1}), "switch bpdu 20-2F permit\n"},
                {"00 to 0F", Mode::delta, bpdu, bpdusFrom(1, {1, 0, 1}), "switch bpdu 00-0F permit\n"},
                {"10", Mode::delta, bpdu, bpdusFrom(1, {1, 1, 0}), "switch bpdu 10 permit\n"},
                {"blocked with another value", Mode::delta, bpdu, bpdusFrom(1, {1, 1, 2}), "no switch bpdu 10\n"},
            }));

ROWS(SpanningTreePorts,
     ({
         {"zero image", Mode::full, stpPorts, nothing,
          "interface 1-28 \nno spanning-tree\nexit\n"
          "interface 1-28 \nspanning-tree cost 0\nexit\n"
          "interface 1-28 \nspanning-tree priority 0\nexit\n"
          "interface 1-28 \nno spanning-tree edge\nexit\n"
          "interface 1-28 \nspanning-tree p2p forced_true\nexit\n"},
         {"values without a line", Mode::full, stpPorts, alike(quietStp), ""},
         {"off before on", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.enabled[0] = 1;
              port.enabled[1] = 0;
              port.enabled[2] = 256;
              port.enabled[27] = 1;
          }),
          "interface 2 \nno spanning-tree\nexit\n"
          "interface 1,28 \nspanning-tree\nexit\n"},
         {"one cost", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              for (be_i32 &cost : port.cost) cost = 200000;
          }),
          "interface 1-28 \nspanning-tree cost 200000\nexit\n"},
         {"costs in the order of their lowest port", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.cost[0] = 10;
              port.cost[1] = 20;
              port.cost[2] = 10;
          }),
          "interface 1,3 \nspanning-tree cost 10\nexit\n"
          "interface 2 \nspanning-tree cost 20\nexit\n"},
         {"negative costs", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.cost[0] = -5;
              port.cost[1] = INT32_MIN;
              port.cost[2] = -5;
              port.cost[3] = INT32_MAX;
              port.cost[27] = 0;
          }),
          "interface 4 \nspanning-tree cost 2147483647\nexit\n"
          "interface 28 \nspanning-tree cost 0\nexit\n"},
         {"costs that differ by 256", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.cost[0] = 1;
              port.cost[1] = 257;
          }),
          "interface 1 \nspanning-tree cost 1\nexit\n"
          "interface 2 \nspanning-tree cost 257\nexit\n"},
         {"priorities", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.priority[0] = 128;
              port.priority[1] = -128;
              port.priority[2] = 0;
              port.priority[26] = 128;
              port.priority[27] = 128;
          }),
          "interface 1,27,28 \nspanning-tree priority 128\nexit\n"
          "interface 3 \nspanning-tree priority 0\nexit\n"},
         {"edge ports", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.edge[0] = 1;
              port.edge[1] = 0;
              port.edge[2] = 256;
              port.edge[27] = 0;
          }),
          "interface 2,28 \nno spanning-tree edge\nexit\n"
          "interface 1 \nspanning-tree edge\nexit\n"},
         {"point to point", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.pointToPoint[0] = 2;
              port.pointToPoint[1] = 1;
              port.pointToPoint[2] = 0;
              port.pointToPoint[3] = 256;
              port.pointToPoint[27] = 2;
          }),
          "interface 3 \nspanning-tree p2p forced_true\nexit\n"
          "interface 2 \nspanning-tree p2p forced_false\nexit\n"
          "interface 1,28 \nspanning-tree p2p auto\nexit\n"},
         {"same in both images", Mode::delta, stpPorts, stpPortsChanged([](StpPorts &) {}), ""},
         {"a switch changed", Mode::delta, stpPorts, stpPortsChanged([](StpPorts &port) { port.enabled[27] = 0; }),
          "interface 28 \nno spanning-tree\nexit\n"
          "interface 1 \nspanning-tree\nexit\n"},
         {"a cost changed", Mode::delta, stpPorts, stpPortsChanged([](StpPorts &port) { port.cost[27] = 11; }),
          "interface 2 \nspanning-tree cost 10\nexit\n"
          "interface 28 \nspanning-tree cost 11\nexit\n"},
         {"a cost changed among the negative ones", Mode::delta, stpPorts,
          stpPortsChanged([](StpPorts &port) { port.cost[27] = -9; }), "interface 2 \nspanning-tree cost 10\nexit\n"},
         {"a priority changed", Mode::delta, stpPorts, stpPortsChanged([](StpPorts &port) { port.priority[0] = 20; }),
          "interface 1,3 \nspanning-tree priority 20\nexit\n"},
         {"an edge changed", Mode::delta, stpPorts, stpPortsChanged([](StpPorts &port) { port.edge[27] = 0; }),
          "interface 28 \nno spanning-tree edge\nexit\n"
          "interface 4 \nspanning-tree edge\nexit\n"},
         {"a point to point changed", Mode::delta, stpPorts, stpPortsChanged([](StpPorts &port) {
              port.pointToPoint[0] = 0;
              port.pointToPoint[1] = 1;
          }),
          "interface 1 \nspanning-tree p2p forced_true\nexit\n"
          "interface 2 \nspanning-tree p2p forced_false\nexit\n"
          "interface 5 \nspanning-tree p2p auto\nexit\n"},
         {"all of it", Mode::delta, stpPorts, defaults([](ConfigImage &image) { quietStp(image); }),
          "interface 1-28 \nno spanning-tree\nexit\n"
          "interface 1-28 \nspanning-tree cost 0\nexit\n"
          "interface 1-28 \nspanning-tree priority 0\nexit\n"
          "interface 1-28 \nno spanning-tree edge\nexit\n"
          "interface 1-28 \nspanning-tree p2p forced_true\nexit\n"},
     }));

// ------------------------------------------------------------------------------------------------- link aggregation

namespace {

TrunkGroup trunk(const char *name, Bitmap<8> members = {}, std::uint32_t inUse = 1) {
    TrunkGroup group = {};
    group.inUse = inUse;
    group.name = name;
    group.members = members;
    return group;
}
Given trunkFrom(TrunkGroup before, TrunkGroup after) {
    return [before, after](ConfigImage &image, ConfigImage &other) {
        other.trunks[0] = before;
        image.trunks[0] = after;
    };
}
const Bitmap<8> twoPorts = ports<Bitmap<8>>({25, 26});

using Rules = DistributionRules;
Given rulesFrom(std::function<void(Rules &)> before, std::function<void(Rules &)> after) {
    return [before, after](ConfigImage &image, ConfigImage &other) {
        before(other.distribution);
        image.distribution = other.distribution;
        after(image.distribution);
    };
}
void noRule(Rules &rules) { rules = {}; }
void everyRule(Rules &rules) {
    rules.sourceMac = rules.destinationMac = rules.sourceIp = 1;
    rules.destinationIp = rules.sourceL4Port = rules.destinationL4Port = 256;
}

const std::string everyRuleText = "channel-group distribution-rule destination-ip\n"
                                  "channel-group distribution-rule source-ip\n"
                                  "channel-group distribution-rule destination-L4-port\n"
                                  "channel-group distribution-rule source-L4-port\n"
                                  "channel-group distribution-rule destination-mac\n"
                                  "channel-group distribution-rule source-mac\n";
const std::string noRuleText = "no channel-group distribution-rule destination-ip\n"
                               "no channel-group distribution-rule source-ip\n"
                               "no channel-group distribution-rule destination-L4-port\n"
                               "no channel-group distribution-rule source-L4-port\n"
                               "no channel-group distribution-rule destination-mac\n"
                               "no channel-group distribution-rule source-mac\n";

/// Roles and switches that have no line, and key 9.
void quietLacp(ConfigImage &image) {
    for (int i = 0; i < portCount; ++i) {
        image.lacp.role[i] = image.lacp.enabled[i] = 2;
        image.lacp.key[i] = 9;
    }
}
Given quietLacpBut(std::function<void(LacpConfig &)> set) {
    return changed(quietLacp, [set](ConfigImage &image) { set(image.lacp); });
}
const std::string key9 = "interface 1-28 \nchannel-group lacp key 9\nexit\n";

/// Something to write for each attribute, in both images; then a change.
Given lacpChanged(std::function<void(LacpConfig &)> change) {
    return changed(
        [](ConfigImage &image) {
            quietLacp(image);
            image.lacp.key[0] = 1;
            image.lacp.role[0] = 1;
            image.lacp.enabled[0] = 1;
        },
        [change](ConfigImage &image) { change(image.lacp); });
}

} // namespace

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
                      {"same in both images", Mode::delta, trunks, alike([](ConfigImage &image) {
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

ROWS(Distribution,
     ({
         {"no rule", Mode::full, distribution, nothing, noRuleText},
         {"every rule", Mode::full, distribution, rulesFrom(noRule, everyRule), everyRuleText},
         {"no rule", Mode::delta, distribution, rulesFrom(everyRule, noRule), noRuleText},
         {"every rule", Mode::delta, distribution, rulesFrom(noRule, everyRule), everyRuleText},
         {"same in both images", Mode::delta, distribution, rulesFrom(everyRule, [](Rules &) {}), ""},
         {"destination ip", Mode::delta, distribution, rulesFrom(noRule, [](Rules &r) { r.destinationIp = 1; }),
          "channel-group distribution-rule destination-ip\n"},
         {"source ip", Mode::delta, distribution, rulesFrom(noRule, [](Rules &r) { r.sourceIp = 1; }),
          "channel-group distribution-rule source-ip\n"},
         {"destination l4 port", Mode::delta, distribution,
          rulesFrom(noRule, [](Rules &r) { r.destinationL4Port = 1; }),
          "channel-group distribution-rule destination-L4-port\n"},
         {"source l4 port", Mode::delta, distribution, rulesFrom(noRule, [](Rules &r) { r.sourceL4Port = 1; }),
          "channel-group distribution-rule source-L4-port\n"},
         {"destination mac", Mode::delta, distribution, rulesFrom(noRule, [](Rules &r) { r.destinationMac = 1; }),
          "channel-group distribution-rule destination-mac\n"},
         {"source mac", Mode::delta, distribution, rulesFrom(noRule, [](Rules &r) { r.sourceMac = 1; }),
          "channel-group distribution-rule source-mac\n"},
         {"on with another value", Mode::delta, distribution, rulesFrom(everyRule, [](Rules &r) { r.sourceMac = 2; }),
          "channel-group distribution-rule source-mac\n"},
         {"one rule, source ip", Mode::full, distribution, rulesFrom(noRule, [](Rules &r) { r.sourceIp = 256; }),
          "no channel-group distribution-rule destination-ip\n"
          "channel-group distribution-rule source-ip\n"
          "no channel-group distribution-rule destination-L4-port\n"
          "no channel-group distribution-rule source-L4-port\n"
          "no channel-group distribution-rule destination-mac\n"
          "no channel-group distribution-rule source-mac\n"},
         {"one rule, source l4 port", Mode::full, distribution, rulesFrom(noRule, [](Rules &r) { r.sourceL4Port = 1; }),
          "no channel-group distribution-rule destination-ip\n"
          "no channel-group distribution-rule source-ip\n"
          "no channel-group distribution-rule destination-L4-port\n"
          "channel-group distribution-rule source-L4-port\n"
          "no channel-group distribution-rule destination-mac\n"
          "no channel-group distribution-rule source-mac\n"},
         {"one rule, source mac", Mode::full, distribution, rulesFrom(noRule, [](Rules &r) { r.sourceMac = 1; }),
          "no channel-group distribution-rule destination-ip\n"
          "no channel-group distribution-rule source-ip\n"
          "no channel-group distribution-rule destination-L4-port\n"
          "no channel-group distribution-rule source-L4-port\n"
          "no channel-group distribution-rule destination-mac\n"
          "channel-group distribution-rule source-mac\n"},
     }));

ROWS(Lacp,
     ({
         {"zero image", Mode::full, lacp, nothing,
          "interface 1-28 \nchannel-group lacp key 0\nexit\n"
          "interface 1-28\nno channel-group lacp role \nexit\n"
          "interface 1-28\nno channel-group lacp\nexit\n"},
         {"roles and switches without a line", Mode::full, lacp, alike(quietLacp), key9},
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
              image.trunks[3] = trunk("behind", ports<Bitmap<8>>({29, 30, 33, 64}));
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
         {"bits behind the ports", Mode::delta, trunkPorts,
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

namespace {

PortMirror mirrored(std::uint32_t set, std::uint32_t port, PortBitmap sources = {}) {
    PortMirror mirror = {};
    mirror.destinationSet = set;
    mirror.destinationPort = port;
    mirror.sources = sources;
    return mirror;
}
Given mirrorFrom(PortMirror before, PortMirror after) {
    return [before, after](ConfigImage &image, ConfigImage &other) {
        other.mirror = before;
        image.mirror = after;
    };
}

/// A store in both images, then a change.
Given loopChanged(std::function<void(LoopDetection &)> change) {
    return changed(
        [](ConfigImage &image) {
            LoopDetection &detection = image.loopDetection;
            detection.enabled = detection.allVlans = 1;
            detection.ports = ports({1, 2, 3});
            detection.interval = 5;
            detection.unlockInterval = 60;
            detection.vlans[0] = 10;
            detection.vlans[3] = 40;
        },
        [change](ConfigImage &image) { change(image.loopDetection); });
}
/// Everything changed, on a board of the given type.
Given loopOnBoard(std::uint32_t type) {
    return [type](ConfigImage &image, ConfigImage &other) {
        loopChanged([](LoopDetection &) {})(image, other);
        other.loopDetection = {};
        g_EEPROM.boardType = type;
    };
}
const std::string loopText = "loop-detection\n"
                             "loop-detection interval 5\n"
                             "loop-detection unlock-interval 60\n"
                             "loop-detection all-vlan\n"
                             "loop-detection vlan-id 10\n"
                             "loop-detection vlan-id 40\n";
const std::string loopPortsText = "interface 1-3 \nloop-detection\nexit\n"
                                  "interface 4-28 \nno loop-detection\nexit\n";

Given loopPortsFrom(PortBitmap before, PortBitmap after) {
    return [before, after](ConfigImage &image, ConfigImage &other) {
        other.loopDetection.ports = before;
        image.loopDetection.ports = after;
    };
}
Given lldpPortsFrom(PortBitmap before, PortBitmap after) {
    return [before, after](ConfigImage &image, ConfigImage &other) {
        other.lldp.ports = before;
        image.lldp.ports = after;
    };
}

MacEntry macEntry(Mac address, u8 port, std::uint32_t vlan, std::uint32_t inUse = 1) {
    MacEntry entry = {};
    entry.inUse = inUse;
    entry.address = address;
    entry.port = port;
    entry.vlan = vlan;
    return entry;
}
constexpr Mac someMac = {{0x00, 0x1a, 0x2b, 0x3c, 0x4d, 0x5e}};
constexpr Mac otherMac = {{0x00, 0x1a, 0x2b, 0x3c, 0x4d, 0x5f}};
Given macFrom(MacEntry before, MacEntry after) {
    return [before, after](ConfigImage &image, ConfigImage &other) {
        other.macTable[127] = before;
        image.macTable[127] = after;
    };
}

Given learningChanged(std::function<void(MacLearning &)> change) {
    return changed(
        [](ConfigImage &image) {
            image.macLearning.off[0] = 1;
            image.macLearning.off[27] = 256;
        },
        [change](ConfigImage &image) { change(image.macLearning); });
}

Given agingFrom(std::int32_t before, std::int32_t after) {
    return [before, after](ConfigImage &image, ConfigImage &other) {
        other.switchConfig.macAgingTime = before;
        image.switchConfig.macAgingTime = after;
    };
}

Given lldpFrom(std::function<void(LldpConfig &)> before, std::function<void(LldpConfig &)> after) {
    return [before, after](ConfigImage &image, ConfigImage &other) {
        before(other.lldp);
        image.lldp = other.lldp;
        after(image.lldp);
    };
}
void noTlv(LldpConfig &config) { config = {}; }
void everyTlv(LldpConfig &config) {
    config.portDescription = config.systemName = config.systemDescription = 1;
    config.capability = 2;
    config.managementAddress = 255;
}
const std::string everyTlvText = "lldp tlv-select port-description\n"
                                 "lldp tlv-select system-name\n"
                                 "lldp tlv-select system-description\n"
                                 "lldp tlv-select capability\n"
                                 "lldp tlv-select management-address\n";
const std::string noTlvText = "no lldp tlv-select port-description\n"
                              "no lldp tlv-select system-name\n"
                              "no lldp tlv-select system-description\n"
                              "no lldp tlv-select capability\n"
                              "no lldp tlv-select management-address\n";

} // namespace

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
         {"bits behind the last port", Mode::full, mirrorSource, mirrorFrom({}, mirrored(0, 0, ports({29, 32}))),
          "no mirror source\n"},
         {"sources", Mode::full, mirrorSource, mirrorFrom({}, mirrored(0, 0, ports({1, 2, 3, 28}))),
          "mirror source 1-3,28 \n"},
         {"same in both images, sources", Mode::delta, mirrorSource,
          mirrorFrom(mirrored(1, 5, ports({1})), mirrored(0, 6, ports({1}))), ""},
         {"a source more", Mode::delta, mirrorSource,
          mirrorFrom(mirrored(1, 5, ports({1})), mirrored(1, 5, ports({1, 28}))), "mirror source 1,28 \n"},
         {"no source left", Mode::delta, mirrorSource, mirrorFrom(mirrored(1, 5, ports({1})), mirrored(1, 5)),
          "no mirror source\n"},
         {"bits behind the last port", Mode::delta, mirrorSource,
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
         {"switched off", Mode::delta, loop, loopChanged([](LoopDetection &detection) { detection.enabled = 0; }),
          "no loop-detection\n"},
         {"on with another value", Mode::delta, loop,
          loopChanged([](LoopDetection &detection) { detection.enabled = 2; }), "loop-detection\n"},
         {"interval", Mode::delta, loop, loopChanged([](LoopDetection &detection) { detection.interval = 0; }),
          "loop-detection interval 0\n"},
         {"unlock interval", Mode::delta, loop,
          loopChanged([](LoopDetection &detection) { detection.unlockInterval = 0; }),
          "loop-detection unlock-interval 0\n"},
         {"not on all VLANs", Mode::delta, loop, loopChanged([](LoopDetection &detection) { detection.allVlans = 0; }),
          "no loop-detection all-vlan\n"},
         {"on all VLANs with another value", Mode::delta, loop,
          loopChanged([](LoopDetection &detection) { detection.allVlans = 2; }), "loop-detection all-vlan\n"},
         {"a cleared slot", Mode::delta, loop, loopChanged([](LoopDetection &detection) { detection.vlans[0] = 0; }),
          ""},
         {"a filled slot", Mode::delta, loop, loopChanged([](LoopDetection &detection) { detection.vlans[1] = 20; }),
          "loop-detection vlan-id 20\n"},
         {"a changed slot", Mode::delta, loop, loopChanged([](LoopDetection &detection) { detection.vlans[3] = 41; }),
          "loop-detection vlan-id 41\n"},
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
          [](ConfigImage &image, ConfigImage &other) {
              image.macTable[0] = other.macTable[1] = macEntry(someMac, 4, 10);
              image.macTable[1] = macEntry(otherMac, 4, 10, 256);
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
         {"the word behind the ports", Mode::full, macLearning,
          learningChanged([](MacLearning &learning) { learning.following = 1; }),
          "interface 1 \nno mac learning\nexit\n"
          "interface 2-27 \nmac learning\nexit\n"},
         {"learning as it was", Mode::delta, macLearning, learningChanged([](MacLearning &) {}), ""},
         {"learning of a port", Mode::delta, macLearning,
          learningChanged([](MacLearning &learning) { learning.off[26] = 1; }),
          "interface 1,27 \nno mac learning\nexit\n"
          "interface 2-26 \nmac learning\nexit\n"},
         {"the word behind the ports", Mode::delta, macLearning,
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
         {"hold time", Mode::delta, lldp, lldpFrom(noTlv, [](LldpConfig &config) { config.holdTime = 256; }),
          "lldp hold-time 256\n"},
         {"interval", Mode::delta, lldp, lldpFrom(noTlv, [](LldpConfig &config) { config.interval = 256; }),
          "lldp interval 256\n"},
         {"packets", Mode::delta, lldp, lldpFrom(noTlv, [](LldpConfig &config) { config.packets = 256; }),
          "lldp packets 256\n"},
         {"port description", Mode::delta, lldp,
          lldpFrom(noTlv, [](LldpConfig &config) { config.portDescription = 1; }),
          "lldp tlv-select port-description\n"},
         {"system name", Mode::delta, lldp, lldpFrom(noTlv, [](LldpConfig &config) { config.systemName = 1; }),
          "lldp tlv-select system-name\n"},
         {"system description", Mode::delta, lldp,
          lldpFrom(noTlv, [](LldpConfig &config) { config.systemDescription = 1; }),
          "lldp tlv-select system-description\n"},
         {"capability", Mode::delta, lldp, lldpFrom(noTlv, [](LldpConfig &config) { config.capability = 1; }),
          "lldp tlv-select capability\n"},
         {"management address", Mode::delta, lldp,
          lldpFrom(noTlv, [](LldpConfig &config) { config.managementAddress = 1; }),
          "lldp tlv-select management-address\n"},
         {"on with another value", Mode::delta, lldp,
          lldpFrom(everyTlv, [](LldpConfig &config) { config.capability = 1; }), "lldp tlv-select capability\n"},
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

// ------------------------------------------------------------------------------------ which bytes make a difference

namespace {

/// Offsets of bytes in the image.
using Places = std::set<std::size_t>;

Places span(std::size_t first, std::size_t length) {
    Places places;
    for (std::size_t i = 0; i < length; ++i) places.insert(first + i);
    return places;
}
Places operator+(Places a, const Places &b) {
    a.insert(b.begin(), b.end());
    return a;
}
Places at(std::size_t base, const Places &places) {
    Places moved;
    for (const std::size_t place : places) moved.insert(base + place);
    return moved;
}
/// `places` of each of `count` records.
Places each(std::size_t base, std::size_t size, std::size_t count, const Places &places, std::size_t step = 1) {
    Places all;
    for (std::size_t i = 0; i < count; i += step) all = all + at(base + i * size, places);
    return all;
}

/// A store in which as many bytes as possible are in use, so that a change of any byte that is read shows.
void compose(ConfigImage &image) {
    for (int i = 0; i < portCount; ++i) {
        const u8 port = static_cast<u8>(i);
        image.vlanPorts[i].mode = port % 4;
        image.vlanPorts[i].accessVlan = 0x0102;
        image.lacp.key[i] = static_cast<u8>(100 + port);
        image.lacp.role[i] = image.lacp.enabled[i] = port % 2;
        image.stpPorts.enabled[i] = image.stpPorts.edge[i] = port % 2U;
        image.stpPorts.cost[i] = 1000 * i;
        image.stpPorts.priority[i] = i;
        image.stpPorts.pointToPoint[i] = port % 3U;
    }
    for (int i : {0, 27}) image.portVlans[i] = portVlan(letters(16).c_str(), portRange<Bitmap<5>>(1, 28));
    for (int i : {0, lastVlan}) image.tagVlans[i] = tagVlan(0x0102, portRange(1, 29), letters(46).c_str());
    for (int i : {0, 13}) image.trunks[i] = trunk(letters(16).c_str(), portRange<Bitmap<8>>(1, 28));
    for (int i : {0, 127}) image.macTable[i] = macEntry(someMac, 4, 10);
    image.mirror = mirrored(1, 5, portRange(1, 28));
    image.stp.version = 1;
    for (be16 &vlan : image.loopDetection.vlans) vlan = 0x0203;
}

enum class Image { current, defaults };

/// The bytes from `first` on whose change, in one image, changes what the emitter writes for that store.
Places read(Mode mode, const char *emitter, Image which, std::size_t first, std::size_t length) {
    resetAll();
    compose(*gSysConfig);
    compose(*gDefConfig);
    const auto text = [&] {
        Temp_Configuration[0] = '\0';
        callStep(mode, emitter);
        return std::string(Temp_Configuration);
    };
    const std::string before = text();
    u8 *const bytes = reinterpret_cast<u8 *>(which == Image::current ? gSysConfig : gDefConfig);
    Places places;
    for (std::size_t place = first; place < first + length; ++place) {
        for (const u8 mask : {u8{0x01}, u8{0x02}, u8{0x80}, u8{0xff}}) {
            bytes[place] ^= mask;
            if (text() != before) places.insert(place);
            bytes[place] ^= mask;
        }
    }
    return places;
}

struct ReadRow {
    const char *emitter;
    std::size_t first; ///< the section and some bytes around it
    std::size_t length;
    Places full;          ///< bytes of the current image that full mode reads
    Places fullDefaults;  ///< of the default image
    Places delta;         ///< bytes of the current image whose change delta mode tells
    Places deltaDefaults; ///< of the default image
};

void expectReads(const ReadRow &row) {
    SCOPED_TRACE(std::string(row.emitter) + " from " + std::to_string(row.first));
    EXPECT_EQ(row.full, read(Mode::full, row.emitter, Image::current, row.first, row.length)) << "full, current";
    EXPECT_EQ(row.fullDefaults, read(Mode::full, row.emitter, Image::defaults, row.first, row.length))
        << "full, default";
    EXPECT_EQ(row.delta, read(Mode::delta, row.emitter, Image::current, row.first, row.length)) << "delta, current";
    EXPECT_EQ(row.deltaDefaults, read(Mode::delta, row.emitter, Image::defaults, row.first, row.length))
        << "delta, default";
}

constexpr std::size_t vlanTable = 8860;
constexpr std::size_t lastVlanAt = vlanTable + 54 * 2076;

} // namespace

TEST(Layer2Reads, VlanModeQinqIsolation) {
    const Places isolationBytes = span(202700, 5);
    expectReads({ethertype, 129420, 52, span(129460, 4), {}, span(129460, 4), {}});
    expectReads({isolation, 202690, 30, isolationBytes, {}, isolationBytes, isolationBytes});

    // A mode of 1 differs from the store's 0 and has a line; the other way round there is none for 0.
    resetAll();
    EXPECT_EQ(Places{}, read(Mode::full, vlanMode, Image::current, 7840, 40));
    EXPECT_EQ(Places{}, read(Mode::full, vlanMode, Image::defaults, 7840, 40));
    EXPECT_EQ(Places{7856}, read(Mode::delta, vlanMode, Image::current, 7840, 40));
}

TEST(Layer2Reads, PortVlans) {
    const Places names = span(8217, 16) + span(8216 + 22 * 27 + 1, 16);
    const Places used = each(8216, 22, 28, {0});
    const Places cpu = {8216 + 20, 8216 + 22 * 27 + 20};
    const Places members = span(8216 + 17, 4) + span(8216 + 22 * 27 + 17, 4);
    // In delta mode entries count only by their names, and only those in use.
    expectReads({portVlans, 8200, 650, used + names + cpu, used + names, names, names});
    expectReads({portVlanPorts, 8200, 650, Places{8216, 8216 + 22 * 27} + names + members, {}, members, members});
}

TEST(Layer2Reads, ManagementVlan) {
    const Places entry = at(vlanTable, span(1, 4) + span(6, 2));
    // Of the access VLANs only those of ports in access mode count, every fourth in this store.
    const Places settings = each(7862, 12, 28, {1}) + each(7862, 12, 28, {4, 5}, 4);
    expectReads({management, 8850, 120, entry + Places{vlanTable}, {}, entry, entry});
    expectReads({management, 7850, 366, settings, {}, settings, settings});
    expectReads({management, lastVlanAt - 54, 118, {}, {}, {}, {}});
}

TEST(Layer2Reads, VlanPorts) {
    const Places settings = each(7862, 12, 28, {1, 4, 5});
    const Places compared = span(1, 4) + span(6, 2);
    expectReads({vlanPorts, 7850, 366, settings, {}, settings, settings});
    for (const std::size_t entry : {vlanTable, lastVlanAt})
        expectReads({vlanPorts, entry - 10, 74, at(entry, compared + Places{0}), at(entry, compared + Places{0}),
                     at(entry, compared), at(entry, compared)});
}

TEST(Layer2Reads, VlanNames) {
    for (const std::size_t entry : {vlanTable, lastVlanAt})
        expectReads(
            {vlanNames, entry - 10, 74, at(entry, Places{0} + span(6, 48)), {}, span(entry, 54), span(entry, 54)});
}

TEST(Layer2Reads, SpanningTree) {
    const Places values = span(146760, 20) + span(146784, 16);
    expectReads({stp,
                 146750,
                 60,
                 values + span(146800, 4),
                 {},
                 // Changed to an unknown value, the current point-to-point value has no line.
                 values + Places{146803},
                 values + span(146800, 4)});
    expectReads({bpdu, 126360, 80, span(126420, 3), {}, span(126420, 3), span(126420, 3)});
    expectReads({stpPorts, 146800, 576, span(146808, 560), {}, span(146808, 560), span(146808, 560)});
}

TEST(Layer2Reads, Aggregation) {
    const std::size_t last = 121120 + 28 * 13;
    // A flag of 1 is on as long as any byte is not zero.
    const Places lines = each(121120 + 28, 28, 12, span(0, 4)) + span(121123, 17) + span(last + 3, 17);
    const Places members = span(121140, 4) + span(last + 20, 4);
    expectReads({trunks, 121110, 412, lines, {}, lines, {}});
    expectReads({trunkPorts, 121110, 412, span(121123, 17) + span(last + 3, 17) + members, {}, members, members});
    expectReads({distribution, 121500, 50, span(121512, 24), {}, span(121512, 24), span(121512, 24)});
    expectReads({lacp, 121018, 108, span(121032, 84), {}, span(121032, 84), span(121032, 84)});
}

TEST(Layer2Reads, MirrorAndLoops) {
    expectReads({mirrorDestination, 125080, 36, span(125099, 5), {}, span(125096, 8), span(125096, 8)});
    expectReads({mirrorSource, 125080, 36, span(125104, 4), {}, span(125104, 4), span(125104, 4)});
    const Places values = Places{125404, 125422} + span(125410, 12);
    expectReads({loop, 125390, 50, values, {}, values, values});
    expectReads({loopPorts, 125390, 50, span(125405, 4), {}, span(125405, 4), span(125405, 4)});
}

TEST(Layer2Reads, MacTable) {
    const std::size_t last = 121556 + 24 * 127;
    const Places entry = span(3, 8) + span(12, 4);
    const Places unused = each(121556 + 24, 24, 126, span(0, 4));
    const Places addresses = span(121560, 6) + span(last + 4, 6);
    expectReads({aging, 126360, 80, span(126376, 4), {}, span(126376, 4), span(126376, 4)});
    expectReads({macTable, 121550, 3084, unused + at(121556, entry) + at(last, entry), {}, addresses, addresses});
    expectReads({macLearning, 124620, 132, span(124628, 112), {}, span(124628, 116), span(124628, 116)});
}

TEST(Layer2Reads, Lldp) {
    const Places values = span(180300, 6) + span(180308, 5);
    expectReads({lldp, 180290, 30, values, {}, values, values});
    expectReads({lldpPorts, 180290, 30, span(180296, 4), {}, span(180296, 4), span(180296, 4)});
}

// ------------------------------------------------------------------------------------------------------ trace, stores

TEST(Layer2, EveryEmitterTracesButTheManagementVlanInFullMode) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        for (const char *emitter : steps) {
            if (!hasStep(mode, emitter)) continue;
            SCOPED_TRACE(emitter);
            resetAll();
            EXPECT_EQ("", printedBy([&] { callStep(mode, emitter); }));
            const std::string text = Temp_Configuration;
            resetAll();
            gCfgDebug = 1;
            const bool traces = mode == Mode::delta || emitter != management;
            EXPECT_EQ(traces ? "[" + std::string(emitter) + "]\n" : "", printedBy([&] { callStep(mode, emitter); }));
            EXPECT_EQ(text, Temp_Configuration);
        }
    }
}

TEST(Layer2, EmittersReturn0) {
    resetAll();
    const ConfigImage &now = *gSysConfig;
    const ConfigImage &was = *gDefConfig;
    const int results[] = {
        full::convConfigVLANConfig_mid_vlan_lan_configure(),
        full::convConfigPortTrunk_PortTrunk_configure_channel_group(now.trunks),
        full::convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(now.distribution),
        full::convConfigLLDPConfig_LLDPConfig_configure_lldp(now.lldp),
        full::convConfigSwitchConfig_SwitchConfig_configure_mac(now.switchConfig),
        full::convConfigPortMirror_PortMirror_configure_mirror_destination(now.mirror),
        full::convConfigPortMirror_PortMirror_configure_mirror_mode(),
        full::convConfigPortMirror_PortMirror_configure_mirror_source(now.mirror),
        full::convConfigSTPConfig_STPConfig_configure_spanning_tree(),
        full::convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(now.switchConfig),
        full::convConfigVLANConfig_mid_sys_vlan_config_configure_vlan(),
        full::convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(now.qinq),
        full::convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(now.isolation),
        full::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(now.portVlans, was.portVlans),
        full::ManageVLANFunc_configure_vlan(),
        full::convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(now.lacp),
        full::convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(now.trunks),
        full::convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(now.lldp),
        full::convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(now.loopDetection),
        full::convConfigMacTable_MacTable_configure_interface_mac_address_table(now.macTable),
        full::convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(now.macLearning),
        full::convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(now.stpPorts),
        full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(now.vlanPorts),
        full::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(now.portVlans),
        full::convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(now.tagVlans),
        full::convConfigLoopDetection_LoopDetection_configure_loop_detection(now.loopDetection),
        full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan(),
        full::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan(),
        delta::convConfigPortTrunk_PortTrunk_configure_channel_group(now.trunks),
        delta::convConfigPortTrunkMode_PortTrunkMode_configure_channel_group(now.distribution, was.distribution),
        delta::convConfigLLDPConfig_LLDPConfig_configure_lldp(now.lldp, was.lldp),
        delta::convConfigSwitchConfig_SwitchConfig_configure_mac(now.switchConfig, was.switchConfig),
        delta::convConfigPortMirror_PortMirror_configure_mirror_destination(now.mirror, was.mirror),
        delta::convConfigPortMirror_PortMirror_configure_mirror_source(now.mirror, was.mirror),
        delta::convConfigSTPConfig_STPConfig_configure_spanning_tree(now.stp, was.stp),
        delta::convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu(now.switchConfig, was.switchConfig),
        delta::convConfigVLANConfig_mid_sys_vlan_config_configure_vlan(now.vlanMode, was.vlanMode),
        delta::convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel(now.qinq),
        delta::convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation(now.isolation, was.isolation),
        delta::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based(now.portVlans, was.portVlans),
        delta::ManageVLANFunc_configure_vlan(),
        delta::convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp(now.lacp, was.lacp),
        delta::convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking(now.trunks, was.trunks),
        delta::convConfigLLDPConfig_LLDPConfig_configure_interface_lldp(now.lldp, was.lldp),
        delta::convConfigLoopDetection_LoopDetection_configure_interface_loop_detection(now.loopDetection,
                                                                                        was.loopDetection),
        delta::convConfigMacTable_MacTable_configure_interface_mac_address_table(now.macTable, was.macTable),
        delta::convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning(now.macLearning, was.macLearning),
        delta::convConfigSTPConfig_STPConfig_configure_interface_spanning_tree(now.stpPorts, was.stpPorts),
        delta::convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan(now.vlanPorts, was.vlanPorts),
        delta::convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based(now.portVlans,
                                                                                            was.portVlans),
        delta::convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan(now.tagVlans, was.tagVlans),
        delta::convConfigLoopDetection_LoopDetection_configure_loop_detection(now.loopDetection, was.loopDetection),
    };
    for (const int result : results) EXPECT_EQ(0, result);
}

TEST(Layer2, LoopDetectionTracesOnItsSilentBoard) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        for (const char *emitter : {loop, loopPorts}) {
            resetAll();
            loopOnBoard(5027)(*gSysConfig, *gDefConfig);
            gCfgDebug = 1;
            EXPECT_EQ("[" + std::string(emitter) + "]\n", printedBy([&] { callStep(mode, emitter); }));
            EXPECT_STREQ("", Temp_Configuration);
        }
    }
}

TEST(Layer2, EveryEmitterHasSomethingToWriteForTheBuiltInStore) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        for (const char *emitter : steps) {
            if (!hasStep(mode, emitter)) continue;
            SCOPED_TRACE(emitter);
            resetAll();
            factory::composeBoard(g_EEPROM);
            factory::composeRunning(*gSysConfig);
            factory::composeDefault(*gDefConfig);
            callStep(mode, emitter);
            EXPECT_EQ(isSilent(mode, emitter), Temp_Configuration[0] == '\0');
        }
    }
}

namespace {

/// All 2,077 VLANs in use: VLAN i + 1 on the port that i gives, or on every second port, under a name that is `width`
/// characters wide.
void fillVlans(ConfigImage &image, bool manyPorts, std::size_t width) {
    for (int i = 0; i <= lastVlan; ++i) {
        std::string name = std::to_string(i + 1);
        name.insert(0, width - name.size(), 'v');
        PortBitmap members = {};
        if (manyPorts) members = ports({1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27});
        else members.set(static_cast<unsigned>(i % 28));
        image.tagVlans[i] = tagVlan(static_cast<std::uint16_t>(i + 1), members, name.c_str());
    }
}

} // namespace

TEST(Layer2, FullVlanTableThatFits) {
    std::string membership;
    std::string names;
    for (int i = 0; i <= lastVlan; ++i) {
        const std::string id = std::to_string(i + 1);
        membership += "interface " + std::to_string(i % 28 + 1) + " \nvlan dot1q-vlan trunk-vlan " + id + "\nexit\n";
        names += "vlan dot1q-vlan " + id + "\nname " + std::string(8 - id.size(), 'v') + id + "\nexit\n";
    }
    for (const Mode mode : {Mode::full, Mode::delta}) {
        const std::string text = renderPage(mode, current([](ConfigImage &image) { fillVlans(image, false, 8); }));
        EXPECT_FALSE(textOverflowed());
        EXPECT_NE(std::string::npos, text.find(membership));
        EXPECT_NE(std::string::npos, text.find(names));
        EXPECT_LT(text.find(membership), text.find(names));
    }
}

TEST(Layer2, FullVlanTableThatDoesNotFit) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        const std::string text = renderPage(mode, current([](ConfigImage &image) { fillVlans(image, true, 46); }));
        EXPECT_TRUE(textOverflowed());
        EXPECT_LT(text.size(), textBufferSize);
        EXPECT_EQ('\n', text.back()); // what fitted before ended with a line
    }
}

TEST(Layer2, FullVlanTableWithoutTheCpuPortHasNoManagementVlan) {
    resetAll();
    for (TagVlan &vlan : gSysConfig->tagVlans)
        vlan.inUse = 1; // VLAN 0, in which every access port without one would be
    for (const Mode mode : {Mode::full, Mode::delta}) {
        gDefConfig->tagVlans[0].id = 7;
        callStep(mode, "ManageVLANFunc_configure_vlan");
        EXPECT_STREQ("", Temp_Configuration);
    }
    gSysConfig->tagVlans[2076].members.set(cpuPort);
    callStep(Mode::full, "ManageVLANFunc_configure_vlan");
    EXPECT_STREQ("vlan management-vlan 0 management-port 1-28  mode access\n", Temp_Configuration);
}

TEST(Layer2, RunRefusesTheVlanTableThatDoesNotFit) {
    resetAll();
    fillVlans(platform.images[MAPI_CONFIG_RUNNING], true, 46);
    const std::string path = testing::TempDir() + "textcfg-layer2-" + std::to_string(getpid());
    for (const char *verb : {"running_config", "running_config_delta"}) {
        std::vector<std::string> words = {"tool", verb, "-f", path};
        std::vector<char *> argv;
        for (std::string &word : words) argv.push_back(word.data());
        int status = 0;
        const std::string printed =
            printedBy([&] { status = textcfgMain(static_cast<int>(argv.size()), argv.data()); });
        EXPECT_EQ(-1, status);
        EXPECT_EQ("tool: text configuration too long (limit 262143 bytes)\n", printed);
        EXPECT_EQ(-1, access(path.c_str(), F_OK)) << "a file was made";
        EXPECT_EQ("end 1", platform.calls.back());
        platform.reset();
        fillVlans(platform.images[MAPI_CONFIG_RUNNING], true, 46);
    }
}

TEST(Layer2, EquallyFilledVlanTablesHaveLittleToSayInDeltaMode) {
    const std::string text = renderPage(Mode::delta, alike([](ConfigImage &image) { fillVlans(image, true, 46); }));
    EXPECT_FALSE(textOverflowed());
    EXPECT_EQ(std::string::npos, text.find("trunk-vlan"));
    EXPECT_EQ(std::string::npos, text.find("name vvv"));
}

namespace {

/// A small office. Every emitter of the area has something to write in either mode.
void composeLayer2(ConfigImage &image, ConfigImage &other) {
    other.vlanMode = 1;
    for (VlanPort &port : other.vlanPorts) port.accessVlan = 1;
    other.tagVlans[0] = tagVlan(1, portRange(1, 29), "default");
    other.portVlans[0] = portVlan("everyone", portRange<Bitmap<5>>(1, 29));
    other.qinq.ethertype = 0x8100;
    other.stp.priority = 32768;
    other.stp.maxAge = 20;
    other.stp.helloTime = 2;
    other.stp.forwardDelay = 15;
    other.stp.aggregatedCost = 20000;
    other.stp.aggregatedPriority = 128;
    for (int i = 0; i < portCount; ++i) {
        other.stpPorts.cost[i] = 20000;
        other.stpPorts.priority[i] = 128;
        other.stpPorts.pointToPoint[i] = 2;
    }
    other.switchConfig.macAgingTime = 300;
    other.loopDetection.interval = 2;
    other.loopDetection.unlockInterval = 60;
    other.lldp.holdTime = 120;
    other.lldp.interval = 30;
    other.lldp.packets = 1;
    image = other;

    image.vlanMode = 3;
    image.tagVlans[0].members = portRange(9, 24);
    image.tagVlans[1] = tagVlan(10, ports({1, 2, 3, 4, 5, 6, 7, 8, 25}), "offices");
    image.tagVlans[2] = tagVlan(99, ports({25, 26, 27, 28, 29}), "management");
    image.tagVlans[3] = tagVlan(4094, ports({28}));
    for (int port = 1; port <= 8; ++port) setPort(image, port, 0, 10);
    setPort(image, 24, 0, 99);
    setPort(image, 25, 1, 1);
    setPort(image, 26, 1, 1);
    setPort(image, 27, 2, 0);
    setPort(image, 28, 3, 0);
    image.portVlans[0] = portVlan("offices", portRange<Bitmap<5>>(1, 8));
    image.portVlans[1] = portVlan("uplink", ports<Bitmap<5>>({25, 26, 29}));
    image.qinq.ethertype = 0x88a8;
    image.isolation = isolationOf(1, ports({25, 26}));
    image.trunks[0] = trunk("uplink", ports<Bitmap<8>>({25, 26}));
    image.trunks[13] = trunk("spare");
    image.distribution.sourceIp = 1;
    image.distribution.destinationMac = 1;
    for (int i : {26, 27}) {
        image.lacp.key[i] = 200;
        image.lacp.role[i] = image.lacp.enabled[i] = 1;
        image.stpPorts.cost[i] = 2000;
    }
    image.stp.priority = 4096;
    image.stp.version = 1;
    image.stp.aggregated = 1;
    image.stp.aggregatedPointToPoint = 2;
    for (int i = 0; i < 24; ++i) image.stpPorts.enabled[i] = image.stpPorts.edge[i] = 1;
    image.stpPorts.priority[27] = 64;
    image.stpPorts.pointToPoint[27] = 0;
    image.switchConfig.blockBpdu20to2F = 1;
    image.switchConfig.macAgingTime = 600;
    image.mirror = mirrored(1, 23, ports({1, 2, 3, 5}));
    image.loopDetection.enabled = 1;
    image.loopDetection.ports = portRange(1, 24);
    image.loopDetection.interval = 5;
    image.loopDetection.vlans[1] = 10;
    image.macTable[0] = macEntry(someMac, 4, 10);
    image.macTable[127] = macEntry({{0x02, 0xff, 0xee, 0xdd, 0xcc, 0xbb}}, 27, 4094);
    image.macLearning.off[27] = 1;
    image.lldp.ports = portRange(25, 28);
    image.lldp.interval = 15;
    image.lldp.systemName = 1;
}

std::string areaText(Mode mode) {
    resetAll();
    composeLayer2(*gSysConfig, *gDefConfig);
    for (const char *emitter : steps)
        if (hasStep(mode, emitter)) callStep(mode, emitter);
    return Temp_Configuration;
}

} // namespace

TEST(Layer2Golden, Full) { EXPECT_EQ(golden("layer2_full.txt"), areaText(Mode::full)); }
TEST(Layer2Golden, Delta) { EXPECT_EQ(golden("layer2_delta.txt"), areaText(Mode::delta)); }
