/// Steps, stores and settings of access rules, 802.1X, DHCP snooping, source guard, storm protection and limits.
#pragma once

#include "byte_changes.h"

#include "sections/security.h"

#include <cstring>
#include <utility>

namespace security {

constexpr const char *acl = "convConfigACLControl_ACLControl_configure_acl";
constexpr const char *dot1x = "convConfigDOT1XConfig_DOT1XConfig_configure_dot1x";
constexpr const char *dhcp = "convConfigSKAConfig2_SKAConfig2_configure_ip";
constexpr const char *pppoe = "convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe";
constexpr const char *bindings = "convConfigSecurityIP_SecurityIP_configure_ip_source";
constexpr const char *ipSource = "convConfigSwitchConfig_SwitchConfig_configure_ip_source";
constexpr const char *emptySecurity = "convConfigSKAConfig2_SKAConfig2_configure_configure_security";
constexpr const char *macLimit = "convConfigMacLimit_MacLimit_configure_security_mac_limit";
constexpr const char *isolation = "convConfigPortIsolation_PortIsolation_configure_security_port_isolation";
constexpr const char *storm = "convConfigStormControl_StormControl_configure_security_storm_control";
constexpr const char *emptyHg = "convConfigSecurity_HG";
constexpr const char *portDot1x = "convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x";
constexpr const char *portDhcp = "convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping";
constexpr const char *portPppoe = "convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe";
constexpr const char *guard = "convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard";
constexpr const char *guardTable = "convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip";
constexpr const char *portMacLimit = "convConfigMacLimit_MacLimit_configure_interface_security_mac_limit";
constexpr const char *emptyStorm = "convConfigStormControl_StormControl_configure_interface_security";

/// The area's emitters in the order of the text.
constexpr const char *emitters[] = {
    acl,   dot1x,   dhcp,      pppoe,    bindings,  ipSource, emptySecurity, macLimit,     isolation,
    storm, emptyHg, portDot1x, portDhcp, portPppoe, guard,    guardTable,    portMacLimit, emptyStorm,
};

inline bool hasTwin(const char *emitter) { return emitter != emptyStorm; }

/// Gives `value` to the entries of `ports`, counted from 1.
template <class Entry, std::size_t Count>
void give(Entry (&entries)[Count], std::initializer_list<int> ports, unsigned value) {
    for (const int port : ports) {
        if constexpr (std::is_same_v<Entry, u8>) entries[port - 1] = static_cast<u8>(value);
        else entries[port - 1] = value;
    }
}
template <class Entry, std::size_t Count> void giveAll(Entry (&entries)[Count], unsigned value) {
    for (Entry &entry : entries) {
        if constexpr (std::is_same_v<Entry, u8>) entry = static_cast<u8>(value);
        else entry = value;
    }
}
/// Sets `ports`, counted from 1.
inline void put(PortBitmap &set, std::initializer_list<unsigned> ports) {
    for (const unsigned port : ports) set.set(port - 1);
}

constexpr Ipv6 mapped(u8 a, u8 b, u8 c, u8 d) { return {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, a, b, c, d}}; }
constexpr Ipv6 documentation = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5}};

// ------------------------------------------------------------------------------------------ which bytes are read

/// The bytes of `within`, in one image, that change the text of a step when all their bits are turned over.
inline Places bytesTurnedOver(Mode mode, const char *emitter, const Given &given, Image image, const Places &within) {
    return bytesThatCount(mode, emitter, given, image, within, allBits);
}

/// Bytes around the sections of the area.
const Places around = {{124740, 125099}, {126240, 126370}, {147380, 147600}, {149380, 149500}, {151150, 151310},
                       {151340, 151600}, {180300, 180440}, {202690, 202715}, {206940, 206970}};

/// What the full text of a step reads of the current image, and what its delta text compares in the default image.
struct Reads {
    const char *emitter;
    Given given;
    Places full;
    Places delta;
};

/// Texts that fill their fields, the same in both images, and valid entries at both ends of the tables.
inline void everyTextFilled(ConfigImage &current, ConfigImage &defaults) {
    for (ConfigImage *each : {&current, &defaults}) {
        each->circuitIds.remoteId = letters(64).c_str();
        for (CircuitId &id : each->circuitIds.text) id = letters(64).c_str();
        each->dot1x.secret = letters(33).c_str();
        each->sourceGuardTable[0].valid = each->sourceGuardTable[47].valid = 0xff;
        each->sourceBindings[0].valid = each->sourceBindings[11].valid = 0xff;
    }
}

/// A rule whose bytes are 1, 2, 3 … but for a number of its family, a known action and all matches.
inline void writeCounted(AclRule &rule, std::int32_t number) {
    unsigned char *const bytes = reinterpret_cast<unsigned char *>(&rule);
    for (int at = 0; at < 116; ++at) bytes[at] = static_cast<unsigned char>(at + 1);
    rule.number = number;
    rule.action = 2;
    rule.valid = 0xff;
    rule.match = {{0xff, 0xff}};
}
inline Set countedRule(std::int32_t number) {
    return [number](ConfigImage &image) { writeCounted(image.acl[0], number); };
}

/// A valid rule of zeros.
inline Set bareRule(
    std::int32_t number, Setter<void(AclRule &)> set = [](AclRule &) {}) {
    return [=](ConfigImage &image) {
        image.acl[0].valid = 1;
        image.acl[0].number = number;
        set(image.acl[0]);
    };
}

/// A field of a rule whose other bytes are counted: its bit, the place of its line among the 17, its lines.
struct AclField {
    unsigned bit;
    std::size_t line;
    const char *value;
    const char *any;
    const char *valueDelta;
    const char *anyDelta;
};

const std::vector<AclField> fieldsOfBoth = {
    {8, 4, "destination-l4-port 24930 0x6364\n", "destination-l4-port any \n", "destination-l4-port 24930 0x6364\n",
     "destination-l4-port any\n"},
    {3, 5, "destination-mac mac 19:1A:1B:1C:1D:1E 1F:20:21:22:23:24\n", "destination-mac any \n",
     "destination-mac mac 19:1A:1B:1C:1D:1E 1F:20:21:22:23:24\n", "destination-mac any\n"},
    {4, 6, "ethertype 0x090A \n", "ethertype any \n", "ethertype 0x090A\n", "ethertype any\n"},
    {0, 7, "ingress-port 1,3,10,11,17-19,28 \n", "ingress-port any \n", "ingress-port 1,3,10,11,17-19,28 \n",
     "ingress-port any\n"},
    {6, 8, "protocol 0x()* \n", "protocol any \n", "protocol 0x()* \n", "protocol any \n"},
    {7, 11, "source-l4-port 23902 0x5F60\n", "source-l4-port any \n", "source-l4-port 23902 0x5F60\n",
     "source-l4-port any\n"},
    {2, 12, "source-mac mac 0D:0E:0F:10:11:12 13:14:15:16:17:18\n", "source-mac any \n",
     "source-mac mac 0D:0E:0F:10:11:12 13:14:15:16:17:18\n", "source-mac any\n"},
    {5, 13, "tos 0x%&'\n", "tos any \n", "tos 0x%&'\n", "tos any\n"},
    {1, 14, "vid 2828 \n", "vid any \n", "vid 2828\n", "vid any\n"},
};
const std::vector<AclField> fieldsOfIpv4 = {
    {10, 3, "destination-ipv4 address 51.52.53.54 55.56.57.58\n", "destination-ipv4 any \n",
     "destination-ipv4 address 51.52.53.54 55.56.57.58\n", "destination-ipv4 any\n"},
    {9, 10, "source-ipv4 address 43.44.45.46 47.48.49.50\n", "source-ipv4 any \n",
     "source-ipv4 address 43.44.45.46 47.48.49.50\n", "source-ipv4 any\n"},
};
const std::vector<AclField> fieldsOfIpv6 = {
    {12, 3, "destination-ipv6 address 4c4d:4e4f:5051:5253:5455:5657:5859:5a5b 92\n", "destination-ipv6 any \n",
     "destination-ipv6 address 4c4d:4e4f:5051:5253:5455:5657:5859:5a5b 92\n", "destination-ipv6 any\n"},
    {11, 10, "source-ipv6 address 3b3c:3d3e:3f40:4142:4344:4546:4748:494a 75\n", "source-ipv6 any \n",
     "source-ipv6 address 3b3c:3d3e:3f40:4142:4344:4546:4748:494a 75\n", "source-ipv6 any\n"},
};

inline std::string joined(const std::vector<std::string> &lines) {
    std::string text;
    for (const std::string &line : lines) text += line;
    return text;
}

/// The lines of a counted rule that matches no field.
inline std::vector<std::string> anyLines(const char *number, const char *destination, const char *source) {
    return {number,
            "action copy(mirror)\n",
            "action-port 103 \n",
            destination,
            "destination-l4-port any \n",
            "destination-mac any \n",
            "ethertype any \n",
            "ingress-port any \n",
            "protocol any \n",
            "rate-limit 1768581996 \n",
            source,
            "source-l4-port any \n",
            "source-mac any \n",
            "tos any \n",
            "vid any \n",
            "apply\n",
            "exit\n"};
}

/// Puts a rule through all that its match bits can do.
inline void testFields(std::int32_t number, const std::vector<std::string> &any,
                       const std::vector<AclField> &ofFamily) {
    std::vector<AclField> fields = fieldsOfBoth;
    fields.insert(fields.end(), ofFamily.begin(), ofFamily.end());
    const auto matching = [number](Bitmap<2> match) {
        return [=](ConfigImage &image) {
            writeCounted(image.acl[0], number);
            image.acl[0].match = match;
        };
    };
    const std::string head = any[0];

    for (unsigned bit = 0; bit < 16; ++bit) {
        SCOPED_TRACE(bit);
        const AclField *field = nullptr;
        for (const AclField &each : fields)
            if (each.bit == bit) field = &each;
        std::vector<std::string> lines = any;
        if (field != nullptr) {
            EXPECT_EQ(field->any, lines[field->line]);
            lines[field->line] = field->value;
        }
        const Bitmap<2> alone = Bitmap<2>{}.set(bit);
        EXPECT_EQ(joined(lines), textOfStep(Mode::full, acl, current(matching(alone))));

        // Only a bit that differs writes its line, with what the current bit says.
        const std::string value = field != nullptr ? field->valueDelta : "";
        const std::string none = field != nullptr ? field->anyDelta : "";
        EXPECT_EQ(head + value + "apply\nexit\n", textOfStep(Mode::delta, acl, both(matching({}), matching(alone))));
        EXPECT_EQ(head + none + "apply\nexit\n", textOfStep(Mode::delta, acl, both(matching(alone), matching({}))));
    }
}

constexpr const char *bareIpv4Tail = "destination-ipv4 any \ndestination-l4-port any \ndestination-mac any \n"
                                     "ethertype any \ningress-port any \nprotocol any \nno rate-limit \n"
                                     "source-ipv4 any \nsource-l4-port any \nsource-mac any \ntos any \nvid any \n"
                                     "apply\nexit\n";
constexpr const char *bareIpv6Tail = "destination-ipv6 any \ndestination-l4-port any \ndestination-mac any \n"
                                     "ethertype any \ningress-port any \nprotocol any \nno rate-limit \n"
                                     "source-ipv6 any \nsource-l4-port any \nsource-mac any \ntos any \nvid any \n"
                                     "apply\nexit\n";

/// A bare rule of IPv4 with a field that differs in delta mode, and the line that it gives.
inline Row ruleRow(const char *name, Setter<void(AclRule &)> set, const char *line) {
    return {name, Mode::delta, acl, both(bareRule(1), bareRule(1, std::move(set))),
            std::string("acl 1\n") + line + "apply\nexit\n"};
}

/// A store whose 802.1X sections are the same but for what `set` sets in the current one.
inline Given dot1xChange(Setter<void(Dot1xConfig &)> set) {
    return both(
        [](ConfigImage &image) {
            image.dot1x.enabled = image.dot1x.reauthentication = 1;
            image.dot1x.reauthPeriod = 3600;
            image.dot1x.secret = letters(33).c_str();
            image.dot1x.server = {{192, 0, 2, 9}};
            image.dot1x.timeout = 30;
        },
        [set](ConfigImage &image) { set(image.dot1x); });
}
inline Given dot1xOnly(Setter<void(Dot1xConfig &)> set) {
    return current([set](ConfigImage &image) { set(image.dot1x); });
}

inline Given dhcpOnly(Setter<void(DhcpSnooping &)> set) {
    return current([set](ConfigImage &image) { set(image.dhcpSnooping); });
}
inline Given servers(std::initializer_list<unsigned> ports) {
    const std::vector<unsigned> all = ports;
    return dhcpOnly([all](DhcpSnooping &config) {
        for (const unsigned port : all) config.serverPorts.set(port - 1);
    });
}

constexpr const char *dhcpHead = "no ip dhcp snooping\nip dhcp snooping initiated 0\nip dhcp snooping leased 0\n"
                                 "no ip dhcp snooping option\nno ip dhcp snooping remote\n"
                                 "no ip dhcp snooping remote formatted\nno ip dhcp snooping remote id\n";
constexpr const char *dhcpTail = "no ip dhcp snooping dhcp-server-ip\n"
                                 "no ip dhcp snooping dhcp-server-ip 1 ip-address \n"
                                 "no ip dhcp snooping dhcp-server-ip 2 ip-address \n"
                                 "no ip dhcp snooping dhcp-server-ip 3 ip-address \n"
                                 "no ip dhcp snooping dhcp-server-ip 4 ip-address \n";

inline Row serverRow(const char *name, std::uint32_t board, std::initializer_list<unsigned> ports, const char *lines) {
    return {name, Mode::full, dhcp, onBoard(board, servers(ports)), std::string(dhcpHead) + lines + dhcpTail};
}

/// A store of four server addresses, the same in both images but for what `set` sets.
inline Given serverChange(Setter<void(DhcpSnooping &)> set, Setter<void(DhcpSnooping &)> setDefault) {
    return both(
        [](ConfigImage &image) {
            image.dhcpSnooping.servers[0] = mapped(192, 0, 2, 1);
            image.dhcpSnooping.servers[1] = documentation;
            image.dhcpSnooping.servers[2] = mapped(192, 0, 2, 3);
        },
        [set](ConfigImage &image) { set(image.dhcpSnooping); },
        [setDefault](ConfigImage &image) { setDefault(image.dhcpSnooping); });
}
inline void asItIs(DhcpSnooping &) {}

/// A store whose sections are different in everything that the switch's lines are made of.
inline void dhcpOfBoth(ConfigImage &image) {
    image.dhcpSnooping.enabled = 1;
    image.dhcpSnooping.initiated = 65535;
    image.dhcpSnooping.leased = -2;
    image.dhcpSnoopingPorts.option = 256;
    image.circuitIds.remoteInserted = 255;
    image.circuitIds.remoteFormatted = 128;
    image.circuitIds.remoteId = letters(64).c_str();
    put(image.dhcpSnooping.serverPorts, {1, 2, 16, 17, 18, 19, 28});
    image.dhcpSnooping.checkServerAddress = 3;
    image.dhcpSnooping.servers[0] = mapped(192, 0, 2, 1);
    image.dhcpSnooping.servers[1] = documentation;
    image.dhcpSnooping.servers[3] = {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}};
}
inline Given dhcpChange(Set set) { return both(dhcpOfBoth, std::move(set)); }

/// What a zero store writes in full mode before and after the circuit ids.
constexpr const char *portsHead = "interface 1-28\nno ip dhcp snooping option\nexit\n"
                                  "interface 1-28\nno ip dhcp snooping circuit\nexit\n"
                                  "interface 1-28\nno ip dhcp snooping circuit formatted\nexit\n";
constexpr const char *portsTail = "interface 1-28\nno ip dhcp snooping trust\nexit\n";

/// A row for the circuit ids alone in both modes: `line` is what they write in delta mode, without the blank that full
/// mode has after each id.
struct CircuitRow {
    const char *name;
    Given given;
    const char *full;
    const char *delta;
};

constexpr const char *lettersOf64 = "abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijkl";

/// Ports 2, 5 and 28 share an id, port 3 has one of its own.
inline void sharedIds(ConfigImage &image) {
    for (const int port : {2, 5, 28}) image.circuitIds.text[port - 1] = "north";
    image.circuitIds.text[3 - 1] = "south";
}

/// A description that fills its field, and what lies after it up to a NUL.
inline void writeLongDescription(ConfigImage &image, int port) {
    unsigned char *const description = reinterpret_cast<unsigned char *>(&image) + 4800 + 76 * (port - 1);
    std::memcpy(description, "0123456789012345678901234567890123456789", 40);
}

const std::vector<CircuitRow> circuitRows = {
    {"equal to the default", both([](ConfigImage &image) { image.circuitIds.text[0] = "x"; }, [](ConfigImage &) {}), "",
     ""},
    {"cleared: later ports without an id join", defaults([](ConfigImage &image) { image.circuitIds.text[8] = "x"; }),
     "interface 9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28\nip dhcp snooping circuit id  \nexit\n",
     "interface 9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28\nip dhcp snooping circuit id \nexit\n"},
    {"cleared on the last port", defaults([](ConfigImage &image) { image.circuitIds.text[27] = "x"; }),
     "interface 28\nip dhcp snooping circuit id  \nexit\n", "interface 28\nip dhcp snooping circuit id \nexit\n"},
    {"a whole field, and a difference in its last byte alone",
     both([](ConfigImage &image) { image.circuitIds.text[27] = lettersOf64; }, [](ConfigImage &) {},
          [](ConfigImage &image) { image.circuitIds.text[27].characters[63] = '-'; }),
     "interface 28\nip dhcp snooping circuit id "
     "abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijkl \nexit\n",
     "interface 28\nip dhcp snooping circuit id "
     "abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijkl\nexit\n"},
    {"a difference after the end of an id",
     current([](ConfigImage &image) { image.circuitIds.text[0].characters[1] = 'x'; }), "", ""},
    {"joined ports are marked by empty descriptions, which are their defaults", current(sharedIds),
     "interface 2,5,28\nip dhcp snooping circuit id north \nexit\n"
     "interface 3\nip dhcp snooping circuit id south \nexit\n",
     "interface 2,5,28\nip dhcp snooping circuit id north\nexit\n"
     "interface 3\nip dhcp snooping circuit id south\nexit\n"},
    {"joined ports are written again with the leader's description",
     [](ConfigImage &current, ConfigImage &defaults) {
         sharedIds(current);
         current.ports[1].description = "not this one";
         defaults.ports[1].description = "uplink";
         defaults.ports[4].description = "nor this";
     },
     "interface 2,5,28\nip dhcp snooping circuit id north \nexit\n"
     "interface 3\nip dhcp snooping circuit id south \nexit\n"
     "interface 5,28\nip dhcp snooping circuit id uplink \nexit\n"
     "interface 28\nip dhcp snooping circuit id nor this \nexit\n",
     "interface 2,5,28\nip dhcp snooping circuit id north\nexit\n"
     "interface 3\nip dhcp snooping circuit id south\nexit\n"
     "interface 5,28\nip dhcp snooping circuit id uplink\nexit\n"
     "interface 28\nip dhcp snooping circuit id nor this\nexit\n"},
    {"a joined port whose default id is the leader's description is not written again",
     [](ConfigImage &current, ConfigImage &defaults) {
         current.circuitIds.text[0] = current.circuitIds.text[1] = current.circuitIds.text[2] = "north";
         defaults.ports[0].description = "uplink";
         defaults.circuitIds.text[1] = "uplink";
     },
     "interface 1,2,3\nip dhcp snooping circuit id north \nexit\n"
     "interface 3\nip dhcp snooping circuit id uplink \nexit\n",
     "interface 1,2,3\nip dhcp snooping circuit id north\nexit\n"
     "interface 3\nip dhcp snooping circuit id uplink\nexit\n"},
    {"a description that fills its field runs on",
     [](ConfigImage &current, ConfigImage &defaults) {
         current.circuitIds.text[25] = current.circuitIds.text[26] = current.circuitIds.text[27] = "north";
         writeLongDescription(defaults, 26);
         writeLongDescription(defaults, 27);
         defaults.circuitIds.text[27] = "0123456789012345678901234567890123456789";
     },
     "interface 26,27,28\nip dhcp snooping circuit id north \nexit\n"
     "interface 27,28\nip dhcp snooping circuit id 0123456789012345678901234567890123456789 \nexit\n",
     "interface 26,27,28\nip dhcp snooping circuit id north\nexit\n"
     "interface 27,28\nip dhcp snooping circuit id 0123456789012345678901234567890123456789\nexit\n"},
    {"a port that has its default may join",
     [](ConfigImage &current, ConfigImage &defaults) {
         current.circuitIds.text[0] = current.circuitIds.text[27] = "north";
         defaults.circuitIds.text[27] = "north";
     },
     "interface 1,28\nip dhcp snooping circuit id north \nexit\n"
     "interface 28\nip dhcp snooping circuit id  \nexit\n",
     "interface 1,28\nip dhcp snooping circuit id north\nexit\n"
     "interface 28\nip dhcp snooping circuit id \nexit\n"},
    {"a port with its default leads no block",
     [](ConfigImage &current, ConfigImage &defaults) {
         current.circuitIds.text[0] = current.circuitIds.text[3] = "north";
         defaults.circuitIds.text[0] = "north";
     },
     "interface 4\nip dhcp snooping circuit id north \nexit\n",
     "interface 4\nip dhcp snooping circuit id north\nexit\n"},
    {"all ports, without ranges", current([](ConfigImage &image) {
         for (CircuitId &id : image.circuitIds.text) id = "x";
     }),
     "interface 1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28\n"
     "ip dhcp snooping circuit id x \nexit\n",
     "interface 1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28\n"
     "ip dhcp snooping circuit id x\nexit\n"},
};

inline Given portsOnly(Setter<void(DhcpSnoopingPorts &)> set) {
    return current([set](ConfigImage &image) { set(image.dhcpSnoopingPorts); });
}
inline Given circuits(Setter<void(CircuitIds &)> set) {
    return current([set](ConfigImage &image) { set(image.circuitIds); });
}

inline Given guardEntries(Setter<void(SourceGuardTable &)> set) {
    return current([set](ConfigImage &image) { set(image.sourceGuardTable); });
}

/// An address whose text takes all 39 characters of an IPv6 one.
constexpr Ipv6 longest = {
    {0x20, 0x01, 0x0d, 0xb8, 0x11, 0x11, 0x22, 0x22, 0x33, 0x33, 0x44, 0x44, 0x55, 0x55, 0x66, 0x66}};

inline void guardEntry(SourceGuardEntry &entry, Ipv4 address, Ipv6 addressIpv6, u8 port) {
    entry.valid = 1;
    entry.address = address;
    entry.addressIpv6 = addressIpv6;
    entry.port = port;
    entry.vlan = static_cast<std::uint16_t>(port + 100);
}

inline Given stormOnly(Setter<void(StormControl &)> set) {
    return current([set](ConfigImage &image) { set(image.storm); });
}
inline Given stormChange(Setter<void(StormControl &)> set) {
    return both(
        [](ConfigImage &image) {
            image.storm.broadcast = image.storm.multicast = image.storm.unicast = 21;
            image.storm.notificationInterval = 7;
        },
        [set](ConfigImage &image) { set(image.storm); });
}
inline Given uplinks(std::initializer_list<unsigned> inCurrent, std::initializer_list<unsigned> inDefaults = {}) {
    PortBitmap currentPorts = {};
    PortBitmap defaultPorts = {};
    put(currentPorts, inCurrent);
    put(defaultPorts, inDefaults);
    return [=](ConfigImage &current, ConfigImage &defaults) {
        current.isolation.uplinks = currentPorts;
        defaults.isolation.uplinks = defaultPorts;
    };
}
inline Given allUplinks(u8 lastByte, u8 defaultLastByte) {
    return [=](ConfigImage &current, ConfigImage &defaults) {
        current.isolation.uplinks = {{255, 255, 255, lastByte}};
        defaults.isolation.uplinks = {{255, 255, 255, defaultLastByte}};
    };
}

inline Given limitOnly(Setter<void(MacLimit &)> set) {
    return current([set](ConfigImage &image) { set(image.macLimit); });
}

constexpr const char *limitedNowhere = "interface 1-28 \nno security mac-limit\nexit\n";
constexpr const char *withoutMaximum = "interface 1-28 \nno security mac-limit maximum \nexit\n";

/// The text of the blocks for two sections, which the driver never passes.
inline std::string limitsOf(const Given &given) {
    resetAll();
    given(*gSysConfig, *gDefConfig);
    delta::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(gSysConfig->macLimit,
                                                                              gDefConfig->macLimit);
    return Temp_Configuration;
}

inline std::string serverTrust(const ServerTrust &current) {
    resetAll();
    EXPECT_EQ(0, full::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(current));
    return Temp_Configuration;
}
inline std::string serverTrust(const ServerTrust &current, const ServerTrust &defaults) {
    resetAll();
    EXPECT_EQ(0, delta::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(current, defaults));
    return Temp_Configuration;
}

inline void composeSecurity(ConfigImage &current, ConfigImage &defaults) {
    for (ConfigImage *image : {&current, &defaults}) {
        image->acl[191].valid = 1;
        image->acl[191].number = 2;
        image->dot1x.timeout = 30;
        giveAll(image->dot1x.portControl, 1);
        image->dhcpSnooping.leased = 86400;
        image->dhcpSnooping.servers[0] = mapped(192, 0, 2, 5);
        image->circuitIds.remoteInserted = 1;
        put(image->circuitIds.inserted, {1, 2});
        image->circuitIds.text[11] = "annex";
        give(image->dhcpSnoopingPorts.trust, {25, 26, 27, 28}, 1);
        giveAll(image->sourceGuard, 2);
        guardEntry(image->sourceGuardTable[1], {{192, 0, 2, 20}}, {}, 9);
        image->sourceBindings[0] = {1, 1, mapped(192, 0, 2, 30), {}};
        image->macLimit.notificationInterval = 60;
        image->storm.unicast = 16;
    }

    AclRule &web = current.acl[0];
    web.valid = 1;
    web.number = 1;
    web.action = 1;
    web.actionPort = 4;
    web.match.set(AclMatch::ingressPort).set(AclMatch::etherType).set(AclMatch::protocol);
    web.match.set(AclMatch::destinationIpv4).set(AclMatch::destinationL4Port);
    put(web.ingressPorts, {1, 2, 3, 4, 24});
    web.etherType[0] = 0x08;
    web.protocol = "06";
    web.destination = {{192, 0, 2, 0}};
    web.destinationMask = {{255, 255, 255, 0}};
    web.destinationL4Port = 443;
    web.destinationL4Mask[0] = 0xff;
    web.destinationL4Mask[1] = 0xfe;
    web.rateLimit = 1000;
    AclRule &webByDefault = defaults.acl[0];
    webByDefault.valid = 1;
    webByDefault.number = 1;
    webByDefault.actionPort = 4;
    webByDefault.protocol = "11";
    webByDefault.match.set(AclMatch::protocol).set(AclMatch::destinationMac);
    AclRule &voice = current.acl[7];
    voice.valid = 1;
    voice.number = 130;
    voice.action = 3;
    voice.actionPort = 27;
    voice.match.set(AclMatch::sourceIpv6).set(AclMatch::destinationIpv6).set(AclMatch::sourceMac);
    voice.match.set(AclMatch::vlanId).set(AclMatch::tos);
    voice.sourceIpv6 = longest;
    voice.sourcePrefixLength = 64;
    voice.destinationIpv6 = documentation;
    voice.destinationPrefixLength = 128;
    voice.sourceMac = {{0x00, 0x00, 0x5e, 0x00, 0x53, 0x01}};
    voice.sourceMacMask = {{0xff, 0xff, 0xff, 0xff, 0xff, 0x00}};
    voice.vlan = 20;
    voice.tos = "b8";

    current.dot1x.enabled = 1;
    current.dot1x.reauthPeriod = 7200;
    defaults.dot1x.reauthPeriod = 3600;
    current.dot1x.reauthentication = 1;
    current.dot1x.secret = letters(33).c_str();
    current.dot1x.server = {{192, 0, 2, 12}};
    give(current.dot1x.portControl, {1, 2, 3}, 0);
    give(current.dot1x.portControl, {16}, 2);

    current.dhcpSnooping.enabled = 1;
    current.dhcpSnooping.initiated = 30;
    defaults.dhcpSnooping.initiated = 10;
    put(current.dhcpSnooping.serverPorts, {25, 26});
    defaults.dhcpSnooping.checkServerAddress = 1;
    current.dhcpSnooping.servers[1] = documentation;
    defaults.dhcpSnooping.servers[3] = mapped(192, 0, 2, 6);
    current.dhcpSnoopingPorts.option = 1;
    give(current.dhcpSnoopingPorts.portOption, {1, 2, 3, 4}, 1);
    give(current.dhcpSnoopingPorts.trust, {24}, 2);
    give(current.dhcpSnoopingPorts.trust, {27}, 0);
    defaults.circuitIds.remoteFormatted = 1;
    current.circuitIds.remoteId = "east";
    put(current.circuitIds.formatted, {5});
    for (const int port : {1, 2, 8}) current.circuitIds.text[port - 1] = "north";
    current.circuitIds.text[20] = "attic";
    defaults.ports[0].description = "lobby";

    current.pppoe.enabled = 1;
    put(current.pppoe.trusted, {25, 26});
    put(defaults.pppoe.trusted, {25});

    give(current.sourceGuard, {1, 2, 3, 4, 5, 6, 7, 8}, 1);
    give(current.sourceGuard, {9}, 0);
    guardEntry(current.sourceGuardTable[0], {}, longest, 8);
    guardEntry(current.sourceGuardTable[2], {{192, 0, 2, 21}}, {}, 10);
    current.ipSource = 1;
    current.sourceBindings[1] = {1, 0, documentation, {}};
    current.sourceBindings[11] = {1, 1, {}, {}};
    defaults.sourceBindings[11] = {1, 0, mapped(192, 0, 2, 31), {}};

    current.macLimit.enabled = 1;
    give(current.macLimit.portEnabled, {1, 2}, 1);
    give(current.macLimit.portMaximum, {1, 3}, 5);
    give(current.macLimit.portMaximum, {2}, 7);
    current.isolation.enabled = 1;
    put(current.isolation.uplinks, {25, 26, 27, 28});
    put(defaults.isolation.uplinks, {28});
    current.storm.broadcast = 11;
    defaults.storm.multicast = 13;
    current.storm.notificationInterval = 60;
    defaults.storm.notificationInterval = 30;
}

/// What the area's steps write for the composed store, in their order.
inline std::string textOfArea(Mode mode) {
    resetAll();
    composeSecurity(*gSysConfig, *gDefConfig);
    for (const char *emitter : emitters)
        if (mode == Mode::full || hasTwin(emitter)) callStep(mode, emitter);
    return Temp_Configuration;
}

} // namespace security
