/// Settings of the ports: a port is in the block of its value, and in none if its value has no block.
#include "rows.h"

#include <cstring>

namespace {

struct Code {
    std::uint32_t value;
    std::string line;
    std::string deltaLine = {}; ///< where it is another one
};

/// A setting of every port. The codes are in the order of their blocks.
struct Setting {
    const char *name;
    const char *emitter;
    std::size_t first;  ///< of port 1 in the image
    std::size_t stride; ///< from a port to the next
    std::size_t size;   ///< of one byte or of four
    unsigned ports;
    std::string headEnd; ///< after the list of ports
    std::vector<Code> codes;
};

void PrintTo(const Setting &setting, std::ostream *out) { *out << setting.emitter << ", " << setting.name; }

/// An array of the ports in a section, and a field of each record of an array.
#define PORT_ARRAY(member) offsetof(ConfigImage, member), sizeof(ConfigImage::member[0]), sizeof(ConfigImage::member[0])
#define PORT_FIELD(array, type, field)                                                                                 \
    offsetof(ConfigImage, array) + offsetof(type, field), sizeof(type), sizeof(type::field)

constexpr const char *ports = "PortConfigFunc_configure_interface";
constexpr const char *lacp = "convConfigLACPConfig_mid_sys_lacp_configure_interface_channel_group_lacp";
constexpr const char *stp = "convConfigSTPConfig_STPConfig_configure_interface_spanning_tree";
constexpr const char *poe = "convConfigPOEConfig_POEConfig_configure_interface_poe";
constexpr const char *dhcp = "convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping";

const Setting settings[] = {
    {"AdministrativeState",
     ports,
     PORT_FIELD(ports, PortSettings, administrativeState),
     28,
     " \n",
     {{1, "shutdown\n"}, {0, "no shutdown\n"}}},
    {"MediaType",
     ports,
     PORT_FIELD(ports, PortSettings, mediaType),
     28,
     " \n",
     {{0, "no media-type\n"}, {1, "media-type sfp\n"}}},
    {"AutoNegotiation",
     ports,
     PORT_FIELD(ports, PortSettings, autoNegotiation),
     28,
     " \n",
     {{1, "auto-negotiation\n"}, {0, "no auto-negotiation\n"}}},
    {"Speed",
     ports,
     PORT_FIELD(ports, PortSettings, speed),
     28,
     " \n",
     {{0, "speed 10\n"}, {1, "speed 100\n"}, {2, "speed 1000\n"}, {3, "speed auto_sense\n"}}},
    {"Duplex", ports, PORT_FIELD(ports, PortSettings, duplex), 28, " \n", {{0, "no duplex\n"}, {1, "duplex full\n"}}},
    {"FlowControl",
     ports,
     PORT_FIELD(ports, PortSettings, flowControl),
     28,
     " \n",
     {{0, "no flowcontrol\n"}, {1, "flowcontrol\n"}}},
    {"VlanMode",
     "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_vlan",
     PORT_FIELD(vlanPorts, VlanPort, mode),
     28,
     " \n",
     {{0, "vlan dot1q-vlan mode access\n"},
      {1, "vlan dot1q-vlan mode trunk\n"},
      {2, "vlan dot1q-vlan mode trunk native\n"},
      {3, "vlan dot1q-vlan mode dot1q-tunnel\n"}}},
    {"LacpRole",
     lacp,
     PORT_ARRAY(lacp.role),
     28,
     "\n",
     {{0, "no channel-group lacp role \n", "no channel-group lacp role\n"}, {1, "channel-group lacp role active\n"}}},
    {"Lacp", lacp, PORT_ARRAY(lacp.enabled), 28, "\n", {{0, "no channel-group lacp\n"}, {1, "channel-group lacp\n"}}},
    {"MacLearning",
     "convConfigSwitchConfig_SwitchConfig_configure_interface_mac_learning",
     PORT_ARRAY(macLearning.off),
     28,
     " \n",
     {{1, "no mac learning\n"}, {0, "mac learning\n"}}},
    {"MacLimit",
     "convConfigMacLimit_MacLimit_configure_interface_security_mac_limit",
     PORT_ARRAY(macLimit.portEnabled),
     28,
     " \n",
     {{1, "security mac-limit\n"}, {0, "no security mac-limit\n"}}},
    {"SpanningTree", stp, PORT_ARRAY(stpPorts.enabled), 28, " \n", {{0, "no spanning-tree\n"}, {1, "spanning-tree\n"}}},
    {"SpanningTreeEdge",
     stp,
     PORT_ARRAY(stpPorts.edge),
     28,
     " \n",
     {{0, "no spanning-tree edge\n"}, {1, "spanning-tree edge\n"}}},
    {"SpanningTreePointToPoint",
     stp,
     PORT_ARRAY(stpPorts.pointToPoint),
     28,
     " \n",
     {{0, "spanning-tree p2p forced_true\n"},
      {1, "spanning-tree p2p forced_false\n"},
      {2, "spanning-tree p2p auto\n"}}},
    {"DhcpOption",
     dhcp,
     PORT_ARRAY(dhcpSnoopingPorts.portOption),
     28,
     "\n",
     {{0, "no ip dhcp snooping option\n"}, {1, "ip dhcp snooping option\n"}}},
    {"SourceGuard",
     "convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard",
     PORT_ARRAY(sourceGuard),
     28,
     "\n",
     {{0, "ip sourceguard fixed-ip\n"},
      {1, "ip sourceguard dhcp\n"},
      {2, "no ip sourceguard \n", "no ip sourceguard\n"}}},
    {"Dot1xPortControl",
     "convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x",
     PORT_ARRAY(dot1x.portControl),
     28,
     "\n",
     {{0, "dot1x port-control auto\n"}, {1, "no dot1x port-control\n"}, {2, "dot1x port-control unauthorized\n"}}},
    {"IgmpFilter",
     "IGMPFilterFunc_configure_interface_ip_igmp_filter",
     PORT_FIELD(portFilters.port, PortFilter, enabled),
     28,
     " \n",
     {{0, "no ip igmp filter\n"}, {1, "ip igmp filter\n"}}},
    {"Poe", poe, PORT_FIELD(poePorts, PoePort, enabled), 24, " \n", {{1, "poe\n"}, {0, "no poe\n"}}},
    {"PoePriority",
     poe,
     PORT_FIELD(poePorts, PoePort, priority),
     24,
     " \n",
     {{0, "poe priority critical\n"}, {1, "poe priority high\n"}, {2, "poe priority low\n"}}},
    {"PoeSchedule",
     poe,
     PORT_FIELD(poePorts, PoePort, scheduleEnabled),
     24,
     " \n",
     {{1, "poe schedule\n"}, {0, "no poe schedule\n"}}},
};

/// A port with neighbours on both sides, and the ends.
struct Port {
    unsigned index;
    const char *itself;
    const char *othersOf28;
    const char *othersOf24;
};
const Port somePorts[] = {{2, "3", "1,2,4-28", "1,2,4-24"}, {0, "1", "2-28", "2-24"}, {23, "24", "1-23,25-28", "1-23"}};

void storePort(ConfigImage &image, const Setting &setting, unsigned index, std::uint32_t value) {
    u8 *const bytes = reinterpret_cast<u8 *>(&image) + setting.first + index * setting.stride;
    for (std::size_t i = 0; i < setting.size; ++i) bytes[i] = static_cast<u8>(value >> 8 * (setting.size - 1 - i));
}

/// The blocks of the setting: one port has `value`, the others hold 0.
std::string blocks(const Setting &setting, Mode mode, const Port &port, std::uint32_t value) {
    std::string text;
    for (const Code &code : setting.codes) {
        std::string list;
        if (code.value == 0 && value == 0) list = setting.ports == 28 ? "1-28" : "1-24";
        else if (code.value == 0) list = setting.ports == 28 ? port.othersOf28 : port.othersOf24;
        else if (code.value == value) list = port.itself;
        if (list.empty()) continue;
        text += "interface " + list + setting.headEnd;
        text += mode == Mode::delta && !code.deltaLine.empty() ? code.deltaLine : code.line;
        text += "exit\n";
    }
    return text;
}

std::string textOf(const Setting &setting, Mode mode) {
    clearText();
    callStep(mode, setting.emitter);
    return Temp_Configuration;
}

class PortValues : public testing::TestWithParam<Setting> {
protected:
    void SetUp() override {
        resetAll();
        g_EEPROM.capabilities = 0x100;
    }

    std::vector<std::uint32_t> values() const {
        if (GetParam().size == 1) return {0, 1, 2, 3, 4, 0x80, 0x81, 0xff};
        return {0, 1, 2, 3, 4, 0x80, 0x100, 0x101, 0x10000, 0x01010101, 0x80000000, 0x80000001, 0xffffffff};
    }
};

/// Of the whole text nothing else changes with the value.
TEST_P(PortValues, ChooseTheBlockInFullMode) {
    const Setting &setting = GetParam();
    const std::string zero = textOf(setting, Mode::full);
    const std::string zeroBlocks = blocks(setting, Mode::full, somePorts[0], 0);
    const std::size_t at = zero.find(zeroBlocks);
    ASSERT_NE(std::string::npos, at);
    for (const Port &port : somePorts) {
        for (const std::uint32_t value : values()) {
            storePort(*gSysConfig, setting, port.index, value);
            std::string expected = zero;
            expected.replace(at, zeroBlocks.size(), blocks(setting, Mode::full, port, value));
            EXPECT_EQ(expected, textOf(setting, Mode::full)) << port.itself << " " << value;
            storePort(*gSysConfig, setting, port.index, 0);
        }
    }
}

/// All blocks are written if any port differs, and nothing else is.
TEST_P(PortValues, ChooseTheBlockInDeltaMode) {
    const Setting &setting = GetParam();
    // The limit of learned addresses is handed its current section twice.
    const bool compares = std::string("MacLimit") != setting.name;
    for (const Port &port : somePorts) {
        for (const std::uint32_t value : values()) {
            storePort(*gSysConfig, setting, port.index, value);
            for (const std::uint32_t byDefault : values()) {
                storePort(*gDefConfig, setting, port.index, byDefault);
                EXPECT_EQ(compares && value != byDefault ? blocks(setting, Mode::delta, port, value) : "",
                          textOf(setting, Mode::delta))
                    << port.itself << " " << value << " " << byDefault;
            }
            storePort(*gSysConfig, setting, port.index, 0);
            storePort(*gDefConfig, setting, port.index, 0);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, PortValues, testing::ValuesIn(settings),
                         [](const auto &setting) { return std::string(setting.param.name); });

/// Trust is the exception: any value but 0 opens its block, which lists the ports that hold 1.
TEST(DhcpTrust, OpensItsBlockForAnyValueAndListsExactlyOne) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        for (const u8 value : std::initializer_list<u8>{0, 1, 2, 0x80, 0x81}) {
            resetAll();
            gSysConfig->dhcpSnoopingPorts.trust[2] = value;
            gSysConfig->dhcpSnoopingPorts.trust[27] = value;
            const std::string others = "interface 1,2,4-27\nno ip dhcp snooping trust\nexit\n";
            std::string text = "interface 1-28\nno ip dhcp snooping trust\nexit\n";
            if (value == 1) text = others + "interface 3,28\nip dhcp snooping trust\nexit\n";
            else if (value != 0) text = others + "interface \nip dhcp snooping trust\nexit\n";
            callStep(mode, dhcp);
            const std::string written = Temp_Configuration;
            if (mode == Mode::delta) {
                EXPECT_EQ(value == 0 ? "" : text, written) << int{value};
            } else {
                ASSERT_LT(text.size(), written.size());
                EXPECT_EQ(text, written.substr(written.size() - text.size())) << int{value};
            }
        }
    }
}

} // namespace
