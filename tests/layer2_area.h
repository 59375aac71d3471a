/// Steps, stores and settings of VLANs, spanning tree, aggregation, mirror, loop detection, MAC addresses and LLDP.
#pragma once

#include "byte_changes.h"
#include "lines.h"

#include "app/run.h"
#include "platform/mapi.h"
#include "sections/layer2.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <unistd.h>

namespace layer2 {

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

inline bool hasStep(Mode mode, const std::string &emitter) { return mode == Mode::full || emitter != mirrorMode; }

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

/// A field that the images hold different values of: `holding(FIELD(mirror), …)`.
template <class Get, class Value> Given holding(Get field, Value inDefaults, Value inCurrent) {
    return [=](ConfigImage &current, ConfigImage &defaults) {
        field(defaults) = inDefaults;
        field(current) = inCurrent;
    };
}

// ----------------------------------------------------------------------------------------- VLAN mode, QinQ, isolation

inline Given modeFrom(u8 defaults, u8 current) { return holding(FIELD(vlanMode), defaults, current); }

inline Given isolated(Isolation defaults, Isolation current) { return holding(FIELD(isolation), defaults, current); }
inline Isolation isolationOf(u8 enabled, PortBitmap uplinks) { return {enabled, uplinks, {}}; }

inline PortVlan portVlan(const char *name, Bitmap<5> members = {}, u8 inUse = 1) {
    PortVlan vlan = {};
    vlan.inUse = inUse;
    vlan.name = name;
    vlan.members = members;
    return vlan;
}

/// Entry 0 of both images.
inline Given portVlanFrom(PortVlan defaults, PortVlan current) {
    return holding(FIELD(portVlans[0]), defaults, current);
}

const Bitmap<5> withCpu = ports<Bitmap<5>>({1, 29});
const Bitmap<5> withoutCpu = ports<Bitmap<5>>({1});

/// A name that fills its field; the members after it are printable.
inline PortVlan fullName(const char *name) {
    PortVlan vlan = portVlan(name);
    std::memset(vlan.members.bytes, 'A', sizeof vlan.members.bytes);
    return vlan;
}

constexpr int lastVlan = 2076;

inline TagVlan tagVlan(std::uint16_t id, PortBitmap members, const char *name = "", u8 inUse = 1) {
    TagVlan vlan = {};
    vlan.inUse = inUse;
    vlan.members = members;
    vlan.id = id;
    vlan.name = name;
    return vlan;
}

inline void setPort(ConfigImage &image, int port, u8 mode, std::uint16_t accessVlan) {
    image.vlanPorts[port - 1].mode = mode;
    image.vlanPorts[port - 1].accessVlan = accessVlan;
}

/// VLAN 99 is the management VLAN; each way to belong to it, and each way not to, is taken by a port.
inline void manage(ConfigImage &image) {
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

/// A mode that has no line, on all ports of both images.
inline void noModes(ConfigImage &image) {
    for (VlanPort &port : image.vlanPorts) port.mode = 4;
}
/// VLANs on ports of modes without a line: entry `index` of the default and of the current image.
inline Given vlanFrom(TagVlan inDefaults, TagVlan inCurrent, int index = 0) {
    return [=](ConfigImage &current, ConfigImage &defaults) {
        noModes(current);
        noModes(defaults);
        defaults.tagVlans[index] = inDefaults;
        current.tagVlans[index] = inCurrent;
    };
}
inline Given quietCurrent(Set set) { return both(noModes, set); }

/// A change of the bridge in the current image, from a zero record.
inline Given stpSet(Setter<void(StpConfig &)> set) {
    return current([set](ConfigImage &image) { set(image.stp); });
}

/// Values that have no line, on all ports.
inline void quietStp(ConfigImage &image) {
    for (int i = 0; i < portCount; ++i) {
        image.stpPorts.enabled[i] = image.stpPorts.edge[i] = 2;
        image.stpPorts.pointToPoint[i] = 3;
        image.stpPorts.cost[i] = -1;
        image.stpPorts.priority[i] = -2;
    }
}
inline Given quietStpBut(Setter<void(StpPorts &)> set) {
    return both(quietStp, [set](ConfigImage &image) { set(image.stpPorts); });
}

/// Something to write for each attribute of the ports, in both images; then a change.
inline Given stpPortsChanged(Setter<void(StpPorts &)> change) {
    return both(
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

/// The default image holds one value for all three ranges, the current one its own for each.
inline Given bpdusFrom(u8 inDefaults, std::initializer_list<u8> inCurrent) {
    const std::vector<u8> flags = inCurrent;
    return [inDefaults, flags](ConfigImage &current, ConfigImage &defaults) {
        defaults.switchConfig.blockBpdu20to2F = defaults.switchConfig.blockBpdu00to0F = inDefaults;
        defaults.switchConfig.blockBpdu10 = inDefaults;
        current.switchConfig.blockBpdu20to2F = flags[0];
        current.switchConfig.blockBpdu00to0F = flags[1];
        current.switchConfig.blockBpdu10 = flags[2];
    };
}

inline TrunkGroup trunk(const char *name, Bitmap<8> members = {}, std::uint32_t inUse = 1) {
    TrunkGroup group = {};
    group.inUse = inUse;
    group.name = name;
    group.members = members;
    return group;
}
inline Given trunkFrom(TrunkGroup defaults, TrunkGroup current) { return holding(FIELD(trunks[0]), defaults, current); }
const Bitmap<8> twoPorts = ports<Bitmap<8>>({25, 26});

using Rules = DistributionRules;
inline Given rulesFrom(Setter<void(Rules &)> set, Setter<void(Rules &)> setCurrent) {
    return both([set](ConfigImage &image) { set(image.distribution); },
                [setCurrent](ConfigImage &image) { setCurrent(image.distribution); });
}
inline void noRule(Rules &rules) { rules = {}; }
inline void everyRule(Rules &rules) {
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
inline void quietLacp(ConfigImage &image) {
    for (int i = 0; i < portCount; ++i) {
        image.lacp.role[i] = image.lacp.enabled[i] = 2;
        image.lacp.key[i] = 9;
    }
}
inline Given quietLacpBut(Setter<void(LacpConfig &)> set) {
    return both(quietLacp, [set](ConfigImage &image) { set(image.lacp); });
}
const std::string key9 = "interface 1-28 \nchannel-group lacp key 9\nexit\n";

/// Something to write for each attribute, in both images; then a change.
inline Given lacpChanged(Setter<void(LacpConfig &)> change) {
    return both(
        [](ConfigImage &image) {
            quietLacp(image);
            image.lacp.key[0] = 1;
            image.lacp.role[0] = 1;
            image.lacp.enabled[0] = 1;
        },
        [change](ConfigImage &image) { change(image.lacp); });
}

inline PortMirror mirrored(std::uint32_t set, std::uint32_t port, PortBitmap sources = {}) {
    PortMirror mirror = {};
    mirror.destinationSet = set;
    mirror.destinationPort = port;
    mirror.sources = sources;
    return mirror;
}
inline Given mirrorFrom(PortMirror defaults, PortMirror current) { return holding(FIELD(mirror), defaults, current); }

/// A store in both images, then a change.
inline Given loopChanged(Setter<void(LoopDetection &)> change) {
    return both(
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
inline Given loopOnBoard(std::uint32_t type) {
    return [type](ConfigImage &current, ConfigImage &defaults) {
        loopChanged([](LoopDetection &) {})(current, defaults);
        defaults.loopDetection = {};
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

inline Given loopPortsFrom(PortBitmap defaults, PortBitmap current) {
    return holding(FIELD(loopDetection.ports), defaults, current);
}
inline Given lldpPortsFrom(PortBitmap defaults, PortBitmap current) {
    return holding(FIELD(lldp.ports), defaults, current);
}

inline MacEntry macEntry(Mac address, u8 port, std::uint32_t vlan, std::uint32_t inUse = 1) {
    MacEntry entry = {};
    entry.inUse = inUse;
    entry.address = address;
    entry.port = port;
    entry.vlan = vlan;
    return entry;
}
constexpr Mac someMac = {{0x00, 0x1a, 0x2b, 0x3c, 0x4d, 0x5e}};
constexpr Mac otherMac = {{0x00, 0x1a, 0x2b, 0x3c, 0x4d, 0x5f}};
inline Given macFrom(MacEntry defaults, MacEntry current) { return holding(FIELD(macTable[127]), defaults, current); }

inline Given learningChanged(Setter<void(MacLearning &)> change) {
    return both(
        [](ConfigImage &image) {
            image.macLearning.off[0] = 1;
            image.macLearning.off[27] = 256;
        },
        [change](ConfigImage &image) { change(image.macLearning); });
}

inline Given agingFrom(std::int32_t defaults, std::int32_t current) {
    return holding(FIELD(switchConfig.macAgingTime), defaults, current);
}

inline Given lldpFrom(Setter<void(LldpConfig &)> set, Setter<void(LldpConfig &)> setCurrent) {
    return both([set](ConfigImage &image) { set(image.lldp); },
                [setCurrent](ConfigImage &image) { setCurrent(image.lldp); });
}
inline void noTlv(LldpConfig &config) { config = {}; }
inline void everyTlv(LldpConfig &config) {
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

/// A store in which as many bytes as possible are in use, so that a change of any byte that is read shows.
inline void compose(ConfigImage &image) {
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

/// The bytes from `first` on whose change, in one image, changes what the emitter writes for that store.
inline Places read(Mode mode, const char *emitter, Image image, std::size_t first, std::size_t length) {
    return bytesThatCount(mode, emitter, both(compose), image, span(first, length), severalBits);
}

struct ReadRow {
    const char *emitter;
    std::size_t first; ///< the section and some bytes around it
    std::size_t length;
    Places full;          ///< bytes of the current image that full mode reads
    Places fullDefaults;  ///< of the default image
    Places delta;         ///< bytes of the current image whose change delta mode notices
    Places deltaDefaults; ///< of the default image
};

inline void expectReads(const ReadRow &row) {
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

/// All 2,077 VLANs in use: VLAN i + 1 on the port that i gives, or on every second port, under a name that is `width`
/// characters wide.
inline void fillVlans(ConfigImage &image, bool manyPorts, std::size_t width) {
    for (int i = 0; i <= lastVlan; ++i) {
        std::string name = std::to_string(i + 1);
        name.insert(0, width - name.size(), 'v');
        PortBitmap members = {};
        if (manyPorts) members = ports({1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27});
        else members.set(static_cast<unsigned>(i % 28));
        image.tagVlans[i] = tagVlan(static_cast<std::uint16_t>(i + 1), members, name.c_str());
    }
}

/// A small office. Every emitter of the area has something to write in either mode.
inline void composeLayer2(ConfigImage &current, ConfigImage &defaults) {
    defaults.vlanMode = 1;
    for (VlanPort &port : defaults.vlanPorts) port.accessVlan = 1;
    defaults.tagVlans[0] = tagVlan(1, portRange(1, 29), "default");
    defaults.portVlans[0] = portVlan("everyone", portRange<Bitmap<5>>(1, 29));
    defaults.qinq.ethertype = 0x8100;
    defaults.stp.priority = 32768;
    defaults.stp.maxAge = 20;
    defaults.stp.helloTime = 2;
    defaults.stp.forwardDelay = 15;
    defaults.stp.aggregatedCost = 20000;
    defaults.stp.aggregatedPriority = 128;
    for (int i = 0; i < portCount; ++i) {
        defaults.stpPorts.cost[i] = 20000;
        defaults.stpPorts.priority[i] = 128;
        defaults.stpPorts.pointToPoint[i] = 2;
    }
    defaults.switchConfig.macAgingTime = 300;
    defaults.loopDetection.interval = 2;
    defaults.loopDetection.unlockInterval = 60;
    defaults.lldp.holdTime = 120;
    defaults.lldp.interval = 30;
    defaults.lldp.packets = 1;
    current = defaults;

    current.vlanMode = 3;
    current.tagVlans[0].members = portRange(9, 24);
    current.tagVlans[1] = tagVlan(10, ports({1, 2, 3, 4, 5, 6, 7, 8, 25}), "offices");
    current.tagVlans[2] = tagVlan(99, ports({25, 26, 27, 28, 29}), "management");
    current.tagVlans[3] = tagVlan(4094, ports({28}));
    for (int port = 1; port <= 8; ++port) setPort(current, port, 0, 10);
    setPort(current, 24, 0, 99);
    setPort(current, 25, 1, 1);
    setPort(current, 26, 1, 1);
    setPort(current, 27, 2, 0);
    setPort(current, 28, 3, 0);
    current.portVlans[0] = portVlan("offices", portRange<Bitmap<5>>(1, 8));
    current.portVlans[1] = portVlan("uplink", ports<Bitmap<5>>({25, 26, 29}));
    current.qinq.ethertype = 0x88a8;
    current.isolation = isolationOf(1, ports({25, 26}));
    current.trunks[0] = trunk("uplink", ports<Bitmap<8>>({25, 26}));
    current.trunks[13] = trunk("spare");
    current.distribution.sourceIp = 1;
    current.distribution.destinationMac = 1;
    for (int i : {26, 27}) {
        current.lacp.key[i] = 200;
        current.lacp.role[i] = current.lacp.enabled[i] = 1;
        current.stpPorts.cost[i] = 2000;
    }
    current.stp.priority = 4096;
    current.stp.version = 1;
    current.stp.aggregated = 1;
    current.stp.aggregatedPointToPoint = 2;
    for (int i = 0; i < 24; ++i) current.stpPorts.enabled[i] = current.stpPorts.edge[i] = 1;
    current.stpPorts.priority[27] = 64;
    current.stpPorts.pointToPoint[27] = 0;
    current.switchConfig.blockBpdu20to2F = 1;
    current.switchConfig.macAgingTime = 600;
    current.mirror = mirrored(1, 23, ports({1, 2, 3, 5}));
    current.loopDetection.enabled = 1;
    current.loopDetection.ports = portRange(1, 24);
    current.loopDetection.interval = 5;
    current.loopDetection.vlans[1] = 10;
    current.macTable[0] = macEntry(someMac, 4, 10);
    current.macTable[127] = macEntry({{0x02, 0xff, 0xee, 0xdd, 0xcc, 0xbb}}, 27, 4094);
    current.macLearning.off[27] = 1;
    current.lldp.ports = portRange(25, 28);
    current.lldp.interval = 15;
    current.lldp.systemName = 1;
}

inline std::string areaText(Mode mode) {
    resetAll();
    composeLayer2(*gSysConfig, *gDefConfig);
    for (const char *emitter : steps)
        if (hasStep(mode, emitter)) callStep(mode, emitter);
    return Temp_Configuration;
}

} // namespace layer2
