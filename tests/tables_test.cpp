/// Tables: which entries are in use, and that nothing after the last entry is taken for one.
#include "rows.h"

#include "app/order.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

struct Table {
    const char *name;
    const char *emitter;
    std::size_t first;  ///< of the first entry in the image
    std::size_t stride; ///< from an entry to the next
    unsigned count;
    std::size_t flag;                                         ///< in the entry
    std::size_t flagSize;                                     ///< of one byte or of four; 0 if a name decides
    Setter<void(ConfigImage &image, unsigned index)> compose; ///< an entry that is in use
    std::string full;                                         ///< the text of the one entry; # is its number from 1
    std::string delta;                                        ///< the same, where the default image has none
    std::string removal = {};                                 ///< the text if only the default image has it
    bool deltaRemovesOneAlone = false; ///< delta mode removes what is stored as 1 and nothing else
    std::string besides = {};          ///< what full mode writes after it, whatever the table holds
};

void PrintTo(const Table &table, std::ostream *out) { *out << table.emitter << ", " << table.name; }

/// The table of a member: its place, the size of an entry and how many there are.
#define TABLE(member)                                                                                                  \
    offsetof(ConfigImage, member), sizeof(ConfigImage::member[0]),                                                     \
        static_cast<unsigned>(std::size(std::remove_cvref_t<decltype(ConfigImage::member)>{}))
/// The field of an entry that says whether it is in use.
#define IN_USE(type, field) offsetof(type, field), sizeof(type::field)

const Table tables[] = {
    {"Users", "convConfigUser_mid_userauth_index_configure_user", TABLE(users), IN_USE(User, inUse),
     [](ConfigImage &image, unsigned index) {
         User &user = image.users[index];
         user.inUse = 1;
         user.name = "u";
         user.level = 1;
     },
     "user name u\nlevel ro\nno active\nexit\n", "user name u\nlevel ro\nexit\n", "no user name u\n", true},
    {"PortVlans", "convConfigPortVLAN_mid_sys_vlan_portVlan_configure_vlan_port_based", TABLE(portVlans),
     IN_USE(PortVlan, inUse),
     [](ConfigImage &image, unsigned index) {
         image.portVlans[index].inUse = 1;
         image.portVlans[index].name = "v";
     },
     "vlan port-based v\n", "vlan port-based v\n", "no vlan port-based v\n"},
    {"PortVlanPorts", "convConfigPortVLAN_mid_sys_vlan_portVlan_configure_interface_vlan_port_based", TABLE(portVlans),
     IN_USE(PortVlan, inUse),
     [](ConfigImage &image, unsigned index) {
         image.portVlans[index].inUse = 1;
         image.portVlans[index].name = "v";
         image.portVlans[index].members.set(2);
     },
     "interface 3 \nvlan port-based v\nexit\n", "interface 3 \nvlan port-based v\nexit\n"},
    {"VlanNames", "convConfigTagVLAN_mid_sys_vlan_tagVlan_configure_vlan", TABLE(tagVlans), IN_USE(TagVlan, inUse),
     [](ConfigImage &image, unsigned index) {
         image.tagVlans[index].inUse = 1;
         image.tagVlans[index].id = 7;
         image.tagVlans[index].name = "v";
     },
     "vlan dot1q-vlan 7\nname v\nexit\n", "vlan dot1q-vlan 7\nname v\nexit\n"},
    {"TrunkVlans", "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan", TABLE(tagVlans),
     IN_USE(TagVlan, inUse),
     [](ConfigImage &image, unsigned index) {
         image.tagVlans[index].inUse = 1;
         image.tagVlans[index].id = 7;
         image.tagVlans[index].members.set(2);
     },
     "interface 3 \nvlan dot1q-vlan trunk-vlan 7\nexit\n", "interface 3 \nvlan dot1q-vlan trunk-vlan 7\nexit\n",
     "interface 3 \nno vlan dot1q-vlan trunk-vlan 7\nexit\n", false,
     "interface 1-28 \nvlan dot1q-vlan mode access\nexit\n"},
    {"TrunkGroups", "convConfigPortTrunk_PortTrunk_configure_channel_group", TABLE(trunks), IN_USE(TrunkGroup, inUse),
     [](ConfigImage &image, unsigned index) {
         image.trunks[index].inUse = 1;
         image.trunks[index].name = "g";
     },
     "channel-group trunking g\n", "channel-group trunking g\n"},
    {"TrunkPorts", "convConfigPortTrunk_PortTrunk_configure_interface_channel_group_trunking", TABLE(trunks),
     IN_USE(TrunkGroup, inUse),
     [](ConfigImage &image, unsigned index) {
         image.trunks[index].inUse = 1;
         image.trunks[index].name = "g";
         image.trunks[index].members.set(2);
     },
     "interface 3 \nchannel-group trunking g\nexit\n", "interface 3 \nchannel-group trunking g\nexit\n"},
    {"MacEntries", "convConfigMacTable_MacTable_configure_interface_mac_address_table", TABLE(macTable),
     IN_USE(MacEntry, inUse),
     [](ConfigImage &image, unsigned index) {
         image.macTable[index].inUse = 1;
         image.macTable[index].address = {{0x00, 0x1a, 0x2b, 0x3c, 0x4d, 0x5e}};
         image.macTable[index].port = 2;
         image.macTable[index].vlan = 7;
     },
     "interface 3\nmac address-table static-mac 00:1A:2B:3C:4D:5E vlan 7\nexit\n",
     "interface 3\nmac address-table static-mac 00:1A:2B:3C:4D:5E vlan 7\nexit\n"},
    {"Communities", "convConfigAgent_Agent_configure_snmp_server", TABLE(communities), IN_USE(Community, inUse),
     [](ConfigImage &image, unsigned index) {
         image.communities[index].inUse = 1;
         image.communities[index].name = "c";
     },
     "snmp-server community c\nno active\nexit\n", "snmp-server community c\nexit\n", "no snmp-server community c\n"},
    {"TrapDestinations", "convConfigTrapDest_TrapDest_configure_snmp_server", TABLE(trapDestinations),
     IN_USE(TrapDestination, inUse),
     [](ConfigImage &image, unsigned index) {
         image.trapDestinations[index].inUse = 1;
         image.trapDestinations[index].address = {{0, 0, 0, 5}};
     },
     "snmp-server trap-destination #\nno active\ndestination 0.0.0.5\nexit\n",
     "snmp-server trap-destination #\ndestination 0.0.0.5\nexit\n"},
    {"GuardEntries", "convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip",
     TABLE(sourceGuardTable), IN_USE(SourceGuardEntry, valid),
     [](ConfigImage &image, unsigned index) {
         image.sourceGuardTable[index].valid = 1;
         image.sourceGuardTable[index].address = {{0, 0, 0, 5}};
         image.sourceGuardTable[index].port = 2;
         image.sourceGuardTable[index].vlan = 7;
     },
     "interface 3\nip sourceguard static-ip 0.0.0.5 vlan 7\nexit\n",
     "interface 3\nip sourceguard static-ip 0.0.0.5 vlan 7\nexit\n"},
    {"SourceBindings", "convConfigSecurityIP_SecurityIP_configure_ip_source", TABLE(sourceBindings),
     IN_USE(SourceBinding, valid),
     [](ConfigImage &image, unsigned index) {
         image.sourceBindings[index].valid = 1;
         image.sourceBindings[index].address = {{0x20, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5}};
     },
     "ip source binding # ip-address 2001::5 \nno ip source binding #\n", "ip source binding # ip-address 2001::5\n"},
    {"MulticastEntries", "convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip",
     TABLE(multicastTable), IN_USE(MulticastEntry, valid),
     [](ConfigImage &image, unsigned index) {
         image.multicastTable[index].valid = 1;
         image.multicastTable[index].address = {{224, 0, 0, 5}};
         image.multicastTable[index].port = 2;
         image.multicastTable[index].vlan = 7;
     },
     "interface 3\nip igmp static-multicast-ip 224.0.0.5 vlan 7\nexit\n",
     "interface 3\nip igmp static-multicast-ip 224.0.0.5 vlan 7\nexit\n"},
    {"Segments", "convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment", TABLE(multicastSegments),
     IN_USE(MulticastSegment, valid),
     [](ConfigImage &image, unsigned index) {
         image.multicastSegments[index].valid = 1;
         image.multicastSegments[index].id = 7;
         image.multicastSegments[index].name = "s";
         image.multicastSegments[index].last = {{224, 0, 0, 5}};
     },
     "ip igmp segment 7\nname s\nrange 0.0.0.0 224.0.0.5\nexit\n",
     "ip igmp segment 7\nname s\nrange 0.0.0.0 224.0.0.5\nexit\n"},
    {"Profiles", "convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile", TABLE(multicastProfiles),
     IN_USE(MulticastProfile, valid),
     [](ConfigImage &image, unsigned index) {
         image.multicastProfiles[index].valid = 1;
         image.multicastProfiles[index].name = "p";
         image.multicastProfiles[index].segments[9] = 7;
     },
     "ip igmp profile p\nsegment 7\nexit\n", "ip igmp profile p\nsegment 7\nexit\n"},
    {"AccessRules", "convConfigACLControl_ACLControl_configure_acl", TABLE(acl), IN_USE(AclRule, valid),
     [](ConfigImage &image, unsigned index) {
         image.acl[index].valid = 1;
         image.acl[index].number = 7;
         image.acl[index].action = 1;
     },
     "acl 7\naction permit\naction-port 1 \ndestination-ipv4 any \ndestination-l4-port any \ndestination-mac any \n"
     "ethertype any \ningress-port any \nprotocol any \nno rate-limit \nsource-ipv4 any \nsource-l4-port any \n"
     "source-mac any \ntos any \nvid any \napply\nexit\n",
     "acl 7\naction permit\napply\nexit\n"},
    {"TimeRanges", "convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange", TABLE(timeRanges), 0, 0,
     [](ConfigImage &image, unsigned index) { image.timeRanges[index].name = "t"; }, "time-range t\nexit \n",
     "time-range t\nexit\n"},
};

std::string numbered(std::string text, unsigned index) {
    for (std::size_t at = 0; (at = text.find('#', at)) != std::string::npos;)
        text.replace(at, 1, std::to_string(index + 1));
    return text;
}

/// All entries of a small table, the ends of a large one.
std::vector<unsigned> entriesOf(const Table &table) {
    if (table.count > 200) return {0, 1, table.count / 2, table.count - 2, table.count - 1};
    std::vector<unsigned> all;
    for (unsigned index = 0; index < table.count; ++index) all.push_back(index);
    return all;
}

u8 *bytesIn(ConfigImage &image, std::size_t offset) { return reinterpret_cast<u8 *>(&image) + offset; }

std::string textOf(const Table &table, Mode mode) {
    clearText();
    callStep(mode, table.emitter);
    return Temp_Configuration;
}

class Tables : public testing::TestWithParam<Table> {
protected:
    void SetUp() override { resetAll(); }
};

/// Stores the flag of an entry as each value in turn.
void forEachFlag(ConfigImage &image, const Table &table, unsigned index,
                 const std::function<void(std::uint32_t stored)> &body) {
    u8 *const entry = bytesIn(image, table.first + index * table.stride);
    std::vector<std::uint32_t> values = {0, 1, 2, 0x80};
    if (table.flagSize == 4) values.insert(values.end(), {0x100, 0x80000000});
    for (const std::uint32_t stored : values) {
        for (std::size_t i = 0; i < table.flagSize; ++i)
            entry[table.flag + i] = static_cast<u8>(stored >> 8 * (table.flagSize - 1 - i));
        body(stored);
    }
    std::memset(entry, 0, table.stride);
}

TEST_P(Tables, AnEntryIsInUseUnlessItsFlagIsZero) {
    const Table &table = GetParam();
    for (const unsigned index : entriesOf(table)) {
        table.compose(*gSysConfig, index);
        forEachFlag(*gSysConfig, table, index, [&](std::uint32_t stored) {
            const bool isOn = stored != 0 || table.flagSize == 0;
            EXPECT_EQ(isOn ? numbered(table.full, index) + table.besides : table.besides, textOf(table, Mode::full))
                << index << ", stored " << stored;
            EXPECT_EQ(isOn ? numbered(table.delta, index) : "", textOf(table, Mode::delta))
                << index << ", stored " << stored;
        });
    }
}

TEST_P(Tables, AnEntryOfTheDefaultIsRemovedIfItIsInUse) {
    const Table &table = GetParam();
    for (const unsigned index : entriesOf(table)) {
        table.compose(*gDefConfig, index);
        forEachFlag(*gDefConfig, table, index, [&](std::uint32_t stored) {
            const bool isOn = stored != 0;
            EXPECT_EQ((isOn ? table.removal : "") + table.besides, textOf(table, Mode::full))
                << index << ", stored " << stored;
            const bool isRemoved = table.deltaRemovesOneAlone ? stored == 1 : isOn;
            EXPECT_EQ(isRemoved ? table.removal : "", textOf(table, Mode::delta)) << index << ", stored " << stored;
        });
    }
}

/// What lies after the table would make a whole entry if the table went on, in either image.
TEST_P(Tables, EndWithTheirLastEntry) {
    const Table &table = GetParam();
    const std::size_t end = table.first + table.count * table.stride;
    std::vector<u8> entry(table.stride);
    table.compose(*gSysConfig, 0);
    std::memcpy(entry.data(), bytesIn(*gSysConfig, table.first), entry.size());
    for (ConfigImage *image : {gSysConfig, gDefConfig}) {
        for (const bool full : {false, true}) {
            resetAll();
            std::memcpy(bytesIn(*image, end), entry.data(), entry.size());
            std::string text;
            std::string delta;
            if (full) { // the last entry is in use, and no more
                table.compose(*gSysConfig, table.count - 1);
                text = numbered(table.full, table.count - 1);
                delta = numbered(table.delta, table.count - 1);
            }
            EXPECT_EQ(text + table.besides, textOf(table, Mode::full));
            EXPECT_EQ(delta, textOf(table, Mode::delta));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, Tables, testing::ValuesIn(tables),
                         [](const auto &table) { return std::string(table.param.name); });

/// VLAN 4095 has a bit but no record, and VLAN 0 is none.
TEST(TablesOf, VlansWithIgmpEndBeforeTheSyslogSettings) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        resetAll();
        gSysConfig->igmpVlans.inUse.set(0).set(4095);
        std::memset(bytesIn(*gSysConfig, offsetof(ConfigImage, log)), 0xff, 4);
        std::memset(bytesIn(*gSysConfig, offsetof(ConfigImage, igmpVlans.vlan)), 0xff, 4);
        callStep(mode, "convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp");
        EXPECT_STREQ("", Temp_Configuration);
    }
}

/// The management VLAN is looked for before the first entry that is not in use, whatever "in use" is stored as.
TEST(TablesOf, VlansAreSearchedAsFarAsTheyAreInUse) {
    for (const u8 stored : std::initializer_list<u8>{0, 1, 2, 0x80}) {
        for (const Mode mode : {Mode::full, Mode::delta}) {
            for (const unsigned managing : {0U, 1U}) {
                resetAll();
                gSysConfig->tagVlans[0].inUse = stored;
                gSysConfig->tagVlans[1].inUse = 1;
                gSysConfig->tagVlans[managing].id = 7;
                gSysConfig->tagVlans[managing].members.set(cpuPort);
                gSysConfig->vlanPorts[2].accessVlan = 7;
                callStep(mode, "ManageVLANFunc_configure_vlan");
                EXPECT_STREQ(stored == 0 ? "" : "vlan management-vlan 7 management-port 3  mode access\n",
                             Temp_Configuration)
                    << int{stored} << ", entry " << managing;
            }
        }
    }
}

// --------------------------------------------------------------------------------------------------- arrays of 28
// ports

/// An array of the ports and the bytes after it, which the emitter must not take for a further port.
struct PortArray {
    const char *emitter;
    std::size_t end;
    std::size_t size;           ///< of the bytes after it that are tried
    bool countsInDelta = false; ///< delta mode compares over them, on purpose
};

#define AFTER(member) offsetof(ConfigImage, member) + sizeof(ConfigImage::member)

const PortArray portArrays[] = {
    {"PortConfigFunc_configure_interface", AFTER(ports), sizeof(PortSettings)},
    {"convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan", AFTER(vlanPorts), sizeof(VlanPort)},
    {"ManageVLANFunc_configure_vlan", AFTER(vlanPorts), sizeof(VlanPort)},
    {"convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp", AFTER(lacp), 4},
    {"convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning", AFTER(macLearning.off), 4, true},
    {"convConfigMacLimit_MacLimit_configure_interface_security_mac_limit", AFTER(macLimit.portMaximum), 4},
    {"convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos", AFTER(rateLimits), 4},
    {"convConfigVLANConfig_VLANConfig_configure_interface_qos", AFTER(priority.userPriority), 1, true},
    {"convConfigSTPConfig_STPConfig_configure_interface_spanning_tree", AFTER(stpPorts), 4},
    {"convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping", AFTER(dhcpSnoopingPorts.trust), 4},
    {"convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping", AFTER(circuitIds.text), 1},
    {"convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard", AFTER(sourceGuard), 4},
    {"convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x", AFTER(dot1x.portControl), 29},
    {"IGMPFilterFunc_configure_interface_ip_igmp_filter", AFTER(portFilters), 8},
    {"convConfigPOEConfig_POEConfig_configure_interface_poe", AFTER(poePorts), sizeof(PoePort)},
};

TEST(PortArrays, EndWithTheirLastPort) {
    for (const PortArray &array : portArrays) {
        for (const Mode mode : {Mode::full, Mode::delta}) {
            for (ConfigImage *image : {gSysConfig, gDefConfig}) {
                resetAll();
                g_EEPROM.capabilities = 0x100;
                callStep(mode, array.emitter);
                const std::string text = Temp_Configuration;
                if (array.countsInDelta && mode == Mode::delta) continue;
                for (const int poison : {0x01, 0x02, 0x20, 0xff}) {
                    clearText();
                    std::memset(bytesIn(*image, array.end), poison, array.size);
                    callStep(mode, array.emitter);
                    EXPECT_EQ(text, Temp_Configuration) << array.emitter << ", " << poison;
                }
            }
        }
    }
}

// ------------------------------------------------------------------------------------------- what delta mode leaves
// set

/// Also where two entries are equal, and where their markers alone differ.
TEST(RemarkingMarkers, AreSetInBothImagesWhetherOrNotEntriesDiffer) {
    for (const int differing : {-1, 0, 3, 7}) {
        resetAll();
        for (int i = 0; i < 8; ++i) {
            for (ConfigImage *image : {gSysConfig, gDefConfig}) {
                image->remarking.priority[i].marker = image->remarking.dscp[i].marker = static_cast<u8>(2 * i);
                image->remarking.priority[i].newPriority = image->remarking.dscp[i].newDscp = static_cast<u8>(i);
            }
        }
        gDefConfig->remarking.dscp[5].marker = 0xff;
        gSysConfig->remarking.priority[6].marker = 0x80;
        if (differing >= 0) {
            gSysConfig->remarking.priority[differing].newPriority = 100;
            gSysConfig->remarking.dscp[differing].newDscp = 100;
        }
        const std::string number = std::to_string(differing + 1);
        callStep(Mode::delta, "PbitPriorityFunc_configure_qos_remarking");
        EXPECT_EQ(differing < 0 ? "" : "qos remarking 802.1p-map " + number + "\npriority 100\nexit\n",
                  std::string(Temp_Configuration));
        for (int i = 0; i < 8; ++i) {
            EXPECT_EQ(1, gSysConfig->remarking.priority[i].marker) << i;
            EXPECT_EQ(1, gDefConfig->remarking.priority[i].marker) << i;
        }
        EXPECT_EQ(0xff, gDefConfig->remarking.dscp[5].marker);
        clearText();
        callStep(Mode::delta, "convConfigDSCPPriority_DSCPPriority_configure_qos_remarking");
        EXPECT_EQ(differing < 0 ? "" : "qos remarking dscp-map " + number + "\nnew-dscp 100\nexit\n",
                  std::string(Temp_Configuration));
        for (int i = 0; i < 8; ++i) {
            EXPECT_EQ(1, gSysConfig->remarking.dscp[i].marker) << i;
            EXPECT_EQ(1, gDefConfig->remarking.dscp[i].marker) << i;
        }
    }
}

} // namespace
