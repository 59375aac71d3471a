#include "rows.h"

#include "app/order.h"
#include "platform/host/factory.h"

#include <cstring>
#include <utility>

namespace {

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

bool hasTwin(const char *emitter) { return emitter != emptyStorm; }

using Given = std::function<void(ConfigImage &, ConfigImage &)>;
using Compose = std::function<void(ConfigImage &)>;

void nothing(ConfigImage &, ConfigImage &) {}

/// A store of which only the current image is set.
Given current(Compose compose) {
    return [compose](ConfigImage &image, ConfigImage &) { compose(image); };
}
/// A store of which only the default image is set.
Given defaults(Compose compose) {
    return [compose](ConfigImage &, ConfigImage &image) { compose(image); };
}
/// A store whose images are alike but for what the second and the third function set.
Given alike(
    Compose compose, Compose composeCurrent, Compose composeDefault = [](ConfigImage &) {}) {
    return [=](ConfigImage &image, ConfigImage &defaultImage) {
        compose(image);
        compose(defaultImage);
        composeCurrent(image);
        composeDefault(defaultImage);
    };
}
/// The same store on a board of the type.
Given onBoard(std::uint32_t type, Given given) {
    return [=](ConfigImage &image, ConfigImage &defaultImage) {
        g_EEPROM.boardType = type;
        given(image, defaultImage);
    };
}

/// The text of a step for a store.
std::string textOfStep(Mode mode, const char *emitter, const Given &given) {
    resetAll();
    given(*gSysConfig, *gDefConfig);
    callStep(mode, emitter);
    return Temp_Configuration;
}

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
void put(PortBitmap &set, std::initializer_list<unsigned> ports) {
    for (const unsigned port : ports) set.set(port - 1);
}

constexpr Ipv6 mapped(u8 a, u8 b, u8 c, u8 d) { return {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, a, b, c, d}}; }
constexpr Ipv6 documentation = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5}};

// ------------------------------------------------------------------------------------------ which bytes are read

/// First and last byte of the image.
using Span = std::pair<int, int>;
using Spans = std::vector<Span>;

/// The bytes of `image` within `within` that change the text of a step when all their bits are turned over.
Spans bytesThatCount(Mode mode, const char *emitter, const Given &given, ConfigImage *image, const Spans &within) {
    const std::string text = textOfStep(mode, emitter, given);
    unsigned char *const bytes = reinterpret_cast<unsigned char *>(image);
    Spans spans;
    for (const auto &[first, last] : within)
        for (int at = first; at <= last; ++at) {
            bytes[at] ^= 0xff;
            Temp_Configuration[0] = '\0';
            callStep(mode, emitter);
            bytes[at] ^= 0xff;
            if (text == Temp_Configuration) continue;
            if (!spans.empty() && spans.back().second == at - 1) spans.back().second = at;
            else spans.emplace_back(at, at);
        }
    return spans;
}

/// Bytes around the sections of the area.
const Spans around = {{124740, 125099}, {126240, 126370}, {147380, 147600}, {149380, 149500}, {151150, 151310},
                      {151340, 151600}, {180300, 180440}, {202690, 202715}, {206940, 206970}};

/// What the full text of a step reads of the current image, and what its delta text compares in the default image.
struct Reads {
    const char *emitter;
    Given given;
    Spans full;
    Spans delta;
};

/// Texts that fill their fields, alike in both images, and valid entries at both ends of the tables.
void everyTextFilled(ConfigImage &image, ConfigImage &defaultImage) {
    for (ConfigImage *each : {&image, &defaultImage}) {
        each->circuitIds.remoteId = letters(64).c_str();
        for (CircuitId &id : each->circuitIds.text) id = letters(64).c_str();
        each->dot1x.secret = letters(33).c_str();
        each->sourceGuardTable[0].valid = each->sourceGuardTable[47].valid = 0xff;
        each->sourceBindings[0].valid = each->sourceBindings[11].valid = 0xff;
    }
}

} // namespace

TEST(SecurityBytes, AreThoseOfTheSections) {
    const Reads all[] = {
        {dot1x,
         everyTextFilled,
         {{180314, 180352}, {180354, 180356}},
         {{180314, 180349}, {180352, 180352}, {180354, 180356}}},
        {dhcp,
         everyTextFilled,
         {{126280, 126284},
          {126286, 126291},
          {126296, 126359},
          {126364, 126364},
          {147404, 147407},
          {151236, 151300},
          {151305, 151305}},
         {{126280, 126284},
          {126286, 126291},
          {126296, 126359},
          {126364, 126364},
          {147404, 147407},
          {151236, 151300},
          {151305, 151305}}},
        {pppoe, nothing, {{206956, 206959}}, {{206956, 206959}}},
        {bindings,
         everyTextFilled,
         // Those that are not valid in the current image count as far as they could become so.
         {{151362, 151379},
          {151381, 151381},
          {151400, 151400},
          {151419, 151419},
          {151438, 151438},
          {151457, 151457},
          {151476, 151476},
          {151495, 151495},
          {151514, 151514},
          {151533, 151533},
          {151552, 151552},
          {151571, 151588}},
         {{151363, 151379}, {151572, 151588}}},
        {ipSource, nothing, {{151360, 151360}}, {{151360, 151360}}},
        {emptySecurity, everyTextFilled, {}, {}},
        {macLimit, nothing, {{124744, 124747}, {125088, 125091}}, {{124744, 124747}, {125088, 125091}}},
        {isolation, nothing, {{202700, 202704}}, {{202700, 202704}}},
        {isolation,
         alike(
             [](ConfigImage &image) {
                 put(image.isolation.uplinks, {1, 9, 17, 25});
             },
             [](ConfigImage &) {}),
         {{202700, 202704}},
         {{202700, 202704}}},
        {storm, nothing, {{126256, 126267}, {126276, 126279}}, {{126256, 126267}, {126276, 126279}}},
        {emptyHg, everyTextFilled, {}, {}},
        {portDot1x, everyTextFilled, {{180357, 180384}}, {{180357, 180384}}},
        {portDhcp,
         everyTextFilled,
         {{147408, 147463}, {149440, 149500}, {151150, 151235}, {151301, 151304}},
         {{147408, 147463}, {149440, 149500}, {151150, 151235}, {151301, 151304}}},
        {portPppoe, nothing, {{206960, 206963}}, {{206960, 206963}}},
        {guard, nothing, {{147488, 147515}}, {{147488, 147515}}},
        {guardTable,
         everyTextFilled,
         {{147520, 147524},
          {147530, 147532},
          {147540, 147555},
          {147560, 147560},
          {147600, 147600},
          {149400, 149404},
          {149410, 149412},
          {149420, 149435}},
         {{147521, 147524}, {147540, 147555}, {149401, 149404}, {149420, 149435}}},
        {portMacLimit, nothing, {{124748, 124971}}, {}},
        {emptyStorm, everyTextFilled, {}, {}},
    };
    for (const Reads &reads : all) {
        EXPECT_EQ(reads.full, bytesThatCount(Mode::full, reads.emitter, reads.given, gSysConfig, around))
            << reads.emitter;
        if (hasTwin(reads.emitter)) {
            EXPECT_EQ(reads.delta, bytesThatCount(Mode::delta, reads.emitter, reads.given, gDefConfig, around))
                << reads.emitter;
        }
    }
}

TEST(SecurityBytes, OfTheDefaultImageInFullModeAreTheCircuitIds) {
    for (const char *emitter : emitters) {
        const Spans expected = emitter == portDhcp ? Spans{{149444, 149500}, {151150, 151235}} : Spans{};
        EXPECT_EQ(expected, bytesThatCount(Mode::full, emitter, everyTextFilled, gDefConfig, around)) << emitter;
    }
}

// --------------------------------------------------------------------------------------------------- access control

namespace {

/// A rule whose bytes are 1, 2, 3 … but for a number of its family, a known action and all matches.
void writeCounted(AclRule &rule, std::int32_t number) {
    unsigned char *const bytes = reinterpret_cast<unsigned char *>(&rule);
    for (int at = 0; at < 116; ++at) bytes[at] = static_cast<unsigned char>(at + 1);
    rule.number = number;
    rule.action = 2;
    rule.valid = 0xff;
    rule.match = {{0xff, 0xff}};
}
Compose countedRule(std::int32_t number) {
    return [number](ConfigImage &image) { writeCounted(image.acl[0], number); };
}

/// A valid rule of zeros.
Compose bareRule(
    std::int32_t number, std::function<void(AclRule &)> set = [](AclRule &) {}) {
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

std::string joined(const std::vector<std::string> &lines) {
    std::string text;
    for (const std::string &line : lines) text += line;
    return text;
}

/// The lines of a counted rule that matches no field.
std::vector<std::string> anyLines(const char *number, const char *destination, const char *source) {
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
void testFields(std::int32_t number, const std::vector<std::string> &any, const std::vector<AclField> &ofFamily) {
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
        EXPECT_EQ(head + value + "apply\nexit\n", textOfStep(Mode::delta, acl, alike(matching({}), matching(alone))));
        EXPECT_EQ(head + none + "apply\nexit\n", textOfStep(Mode::delta, acl, alike(matching(alone), matching({}))));
    }
}

} // namespace

TEST(Acl, FieldsOfIpv4) {
    testFields(128, anyLines("acl 128\n", "destination-ipv4 any \n", "source-ipv4 any \n"), fieldsOfIpv4);
}

TEST(Acl, FieldsOfIpv6) {
    testFields(129, anyLines("acl 129\n", "destination-ipv6 any \n", "source-ipv6 any \n"), fieldsOfIpv6);
}

TEST(Acl, BytesOfARule) {
    constexpr int first = 180428;
    constexpr int last = first + 191 * 116;
    const auto store = [](std::int32_t number) {
        return alike(
            [number](ConfigImage &image) {
                writeCounted(image.acl[0], number);
                writeCounted(image.acl[191], number);
            },
            [](ConfigImage &) {});
    };
    const auto spansAt = [](int at, const Spans &spans) {
        Spans moved;
        for (const auto &[from, to] : spans) moved.emplace_back(at + from, at + to);
        return moved;
    };
    const Spans ipv4 = {{0, 57}, {92, 101}, {104, 108}, {110, 111}};
    // A number that turns negative writes the lines of IPv4.
    const Spans ipv6 = {{0, 41}, {58, 101}, {104, 108}, {110, 111}};
    const Spans compared = {{100, 101}, {104, 107}, {110, 111}};
    for (const int at : {first, last}) {
        const Spans within = {{at, at + 115}};
        EXPECT_EQ(spansAt(at, ipv4), bytesThatCount(Mode::full, acl, store(5), gSysConfig, within));
        EXPECT_EQ(spansAt(at, ipv6), bytesThatCount(Mode::full, acl, store(0x01020304), gSysConfig, within));
        EXPECT_EQ(spansAt(at, compared), bytesThatCount(Mode::delta, acl, store(5), gDefConfig, within));
        EXPECT_EQ(spansAt(at, compared), bytesThatCount(Mode::delta, acl, store(0x01020304), gDefConfig, within));
        EXPECT_EQ(Spans{}, bytesThatCount(Mode::full, acl, store(5), gDefConfig, within));
    }
    // A rule between them would be written if it were valid.
    EXPECT_EQ((Spans{{first + 116 + 108, first + 116 + 108}}),
              bytesThatCount(Mode::full, acl, store(5), gSysConfig, {{first + 116, first + 231}}));
    EXPECT_EQ(Spans{},
              bytesThatCount(Mode::full, acl, store(5), gSysConfig, {{first - 8, first - 1}, {202700, 202720}}));
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

namespace {

constexpr const char *bareIpv4Tail = "destination-ipv4 any \ndestination-l4-port any \ndestination-mac any \n"
                                     "ethertype any \ningress-port any \nprotocol any \nno rate-limit \n"
                                     "source-ipv4 any \nsource-l4-port any \nsource-mac any \ntos any \nvid any \n"
                                     "apply\nexit\n";
constexpr const char *bareIpv6Tail = "destination-ipv6 any \ndestination-l4-port any \ndestination-mac any \n"
                                     "ethertype any \ningress-port any \nprotocol any \nno rate-limit \n"
                                     "source-ipv6 any \nsource-l4-port any \nsource-mac any \ntos any \nvid any \n"
                                     "apply\nexit\n";

/// A bare rule of IPv4 with a field that differs in delta mode, and the line that it gives.
Row ruleRow(const char *name, std::function<void(AclRule &)> set, const char *line) {
    return {name, Mode::delta, acl, alike(bareRule(1), bareRule(1, std::move(set))),
            std::string("acl 1\n") + line + "apply\nexit\n"};
}

} // namespace

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
          [](ConfigImage &image, ConfigImage &defaultImage) {
              bareRule(128)(image);
              countedRule(128)(defaultImage);
          },
          "acl 128\naction deny\naction-port 1 \ndestination-ipv4 any\ndestination-l4-port any\ndestination-mac any\n"
          "ethertype any\ningress-port any\nprotocol any \nno rate-limit\nsource-ipv4 any\nsource-l4-port any\n"
          "source-mac any\ntos any\nvid any\napply\nexit\n"},
         {"bare rule against a whole one of IPv6", Mode::delta, acl,
          [](ConfigImage &image, ConfigImage &defaultImage) {
              bareRule(129)(image);
              countedRule(129)(defaultImage);
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
         {"equal rules", Mode::delta, acl, alike(countedRule(128), [](ConfigImage &) {}), "acl 128\napply\nexit\n"},
         {"equal rules of which the default is not valid", Mode::delta, acl,
          alike(
              countedRule(129), [](ConfigImage &) {}, [](ConfigImage &image) { image.acl[0].valid = 0; }),
          "acl 129\napply\nexit\n"},
         {"default rule alone", Mode::delta, acl, defaults(countedRule(128)), ""},
         {"values under equal matches", Mode::delta, acl,
          alike(countedRule(1),
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
          alike([](ConfigImage &) {},
                bareRule(129,
                         [](AclRule &rule) {
                             rule.match = {{0, 0x1e}};
                         }),
                bareRule(128)),
          "acl 129\ndestination-ipv6 address :: 0\nsource-ipv6 address :: 0\napply\nexit\n"},
         {"slots are compared, not numbers", Mode::delta, acl,
          [](ConfigImage &image, ConfigImage &defaultImage) {
              bareRule(4, [](AclRule &rule) { rule.action = 1; })(image);
              defaultImage.acl[1] = image.acl[0];
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

namespace {

/// A store whose 802.1X sections are alike but for what `set` sets in the current one.
Given dot1xChange(std::function<void(Dot1xConfig &)> set) {
    return alike(
        [](ConfigImage &image) {
            image.dot1x.enabled = image.dot1x.reauthentication = 1;
            image.dot1x.reauthPeriod = 3600;
            image.dot1x.secret = letters(33).c_str();
            image.dot1x.server = {{192, 0, 2, 9}};
            image.dot1x.timeout = 30;
        },
        [set](ConfigImage &image) { set(image.dot1x); });
}
Given dot1xOnly(std::function<void(Dot1xConfig &)> set) {
    return current([set](ConfigImage &image) { set(image.dot1x); });
}

} // namespace

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
         {"bytes behind an empty secret count", Mode::delta, dot1x,
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

// ----------------------------------------------------------------------------------------------------- DHCP snooping

namespace {

Given dhcpOnly(std::function<void(DhcpSnooping &)> set) {
    return current([set](ConfigImage &image) { set(image.dhcpSnooping); });
}
Given servers(std::initializer_list<unsigned> ports) {
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

Row serverRow(const char *name, std::uint32_t board, std::initializer_list<unsigned> ports, const char *lines) {
    return {name, Mode::full, dhcp, onBoard(board, servers(ports)), std::string(dhcpHead) + lines + dhcpTail};
}

/// A store of four server addresses, alike in both images but for what `set` sets.
Given serverChange(std::function<void(DhcpSnooping &)> set, std::function<void(DhcpSnooping &)> setDefault) {
    return alike(
        [](ConfigImage &image) {
            image.dhcpSnooping.servers[0] = mapped(192, 0, 2, 1);
            image.dhcpSnooping.servers[1] = documentation;
            image.dhcpSnooping.servers[2] = mapped(192, 0, 2, 3);
        },
        [set](ConfigImage &image) { set(image.dhcpSnooping); },
        [setDefault](ConfigImage &image) { setDefault(image.dhcpSnooping); });
}
void asItIs(DhcpSnooping &) {}

/// A store whose sections are not alike in anything that the switch's lines are made of.
void dhcpOfBoth(ConfigImage &image) {
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
Given dhcpChange(Compose set) { return alike(dhcpOfBoth, std::move(set)); }

} // namespace

ROWS(DhcpSnooping,
     ({
         {"zero image", Mode::full, dhcp, nothing,
          std::string(dhcpHead) + "no ip dhcp snooping dhcp-server\n" + dhcpTail},
         {"values", Mode::full, dhcp, current(dhcpOfBoth),
          "ip dhcp snooping\n"
          "ip dhcp snooping initiated 65535\n"
          "ip dhcp snooping leased -2\n"
          "ip dhcp snooping option\n"
          "ip dhcp snooping remote\n"
          "ip dhcp snooping remote formatted\n"
          "ip dhcp snooping remote id abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijkl\n"
          "ip dhcp snooping dhcp-server 1,2,16-19,28 \n"
          "ip dhcp snooping dhcp-server-ip\n"
          "ip dhcp snooping dhcp-server-ip 1 ip-address 192.0.2.1 \n"
          "ip dhcp snooping dhcp-server-ip 2 ip-address 2001:db8::5 \n"
          "no ip dhcp snooping dhcp-server-ip 3 ip-address \n"
          "ip dhcp snooping dhcp-server-ip 4 ip-address ::1 \n"},
         {"carried address of zeros", Mode::full, dhcp,
          dhcpOnly([](DhcpSnooping &config) { config.servers[0] = mapped(0, 0, 0, 0); }),
          std::string(dhcpHead) + "no ip dhcp snooping dhcp-server\n" + dhcpTail},
         {"remote id of one character", Mode::full, dhcp,
          current([](ConfigImage &image) { image.circuitIds.remoteId = "x"; }),
          std::string("no ip dhcp snooping\nip dhcp snooping initiated 0\nip dhcp snooping leased 0\n"
                      "no ip dhcp snooping option\nno ip dhcp snooping remote\n"
                      "no ip dhcp snooping remote formatted\nip dhcp snooping remote id x\n"
                      "no ip dhcp snooping dhcp-server\n") +
              dhcpTail},
         serverRow("server port 1", 0, {1}, "ip dhcp snooping dhcp-server 1 \n"),
         serverRow("server port 28", 0, {28}, "ip dhcp snooping dhcp-server 28 \n"),
         serverRow("server on the processor's port alone", 0, {29, 32}, "no ip dhcp snooping dhcp-server\n"),
         serverRow("type 5027, none", 5027, {}, "no ip dhcp snooping dhcp-server\n"),
         serverRow("type 5027, port 1", 5027, {1}, "ip dhcp snooping dhcp-server 1 \n"),
         serverRow("type 5027, port 8", 5027, {8}, "ip dhcp snooping dhcp-server 8 \n"),
         serverRow("type 5027, port 9", 5027, {9}, "ip dhcp snooping dhcp-server 9 \n"),
         serverRow("type 5027, port 16", 5027, {16}, "ip dhcp snooping dhcp-server 16 \n"),
         serverRow("type 5027, port 17", 5027, {17},
                   "ip dhcp snooping dhcp-server 17 \nno ip dhcp snooping dhcp-server\n"),
         serverRow("type 5027, port 24", 5027, {24},
                   "ip dhcp snooping dhcp-server 24 \nno ip dhcp snooping dhcp-server\n"),
         serverRow("type 5027, ports 25 to 28", 5027, {25, 26, 27, 28},
                   "ip dhcp snooping dhcp-server 25-28 \nno ip dhcp snooping dhcp-server\n"),
         serverRow("another type, ports 25 to 28", 5026, {25, 26, 27, 28}, "ip dhcp snooping dhcp-server 25-28 \n"),
         {"type 5027, the switch does not count", Mode::full, dhcp,
          onBoard(5027, dhcpOnly([](DhcpSnooping &config) { config.enabled = 255; })),
          std::string("ip dhcp snooping\nip dhcp snooping initiated 0\nip dhcp snooping leased 0\n"
                      "no ip dhcp snooping option\nno ip dhcp snooping remote\n"
                      "no ip dhcp snooping remote formatted\nno ip dhcp snooping remote id\n"
                      "no ip dhcp snooping dhcp-server\n") +
              dhcpTail},
     }));

ROWS(DhcpSnoopingChanges,
     ({
         {"equal", Mode::delta, dhcp, dhcpChange([](ConfigImage &) {}), ""},
         {"everything", Mode::delta, dhcp, current(dhcpOfBoth),
          "ip dhcp snooping\n"
          "ip dhcp snooping initiated 65535\n"
          "ip dhcp snooping leased -2\n"
          "ip dhcp snooping option\n"
          "ip dhcp snooping remote\n"
          "ip dhcp snooping remote formatted\n"
          "ip dhcp snooping remote id abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijkl\n"
          "ip dhcp snooping dhcp-server 1,2,16-19,28 \n"
          "ip dhcp snooping dhcp-server-ip\n"
          "ip dhcp snooping dhcp-server-ip 1 ip-address 192.0.2.1\n"
          "ip dhcp snooping dhcp-server-ip 2 ip-address 2001:db8::5\n"
          "ip dhcp snooping dhcp-server-ip 4 ip-address ::1\n"},
         {"everything taken away", Mode::delta, dhcp, defaults(dhcpOfBoth),
          "no ip dhcp snooping\n"
          "ip dhcp snooping initiated 0\n"
          "ip dhcp snooping leased 0\n"
          "no ip dhcp snooping option\n"
          "no ip dhcp snooping remote\n"
          "no ip dhcp snooping remote formatted\n"
          "no ip dhcp snooping remote id\n"
          "no ip dhcp snooping dhcp-server\n"
          "no ip dhcp snooping dhcp-server-ip\n"
          "no ip dhcp snooping dhcp-server-ip 1 ip-address\n"
          "no ip dhcp snooping dhcp-server-ip 2 ip-address\n"
          "no ip dhcp snooping dhcp-server-ip 4 ip-address\n"},
         {"switch", Mode::delta, dhcp, dhcpChange([](ConfigImage &image) { image.dhcpSnooping.enabled = 2; }),
          "ip dhcp snooping\n"},
         {"initiated", Mode::delta, dhcp, dhcpChange([](ConfigImage &image) { image.dhcpSnooping.initiated = 256; }),
          "ip dhcp snooping initiated 256\n"},
         {"leased", Mode::delta, dhcp, dhcpChange([](ConfigImage &image) { image.dhcpSnooping.leased = 65536; }),
          "ip dhcp snooping leased 65536\n"},
         {"option", Mode::delta, dhcp, dhcpChange([](ConfigImage &image) { image.dhcpSnoopingPorts.option = 1; }),
          "ip dhcp snooping option\n"},
         {"remote", Mode::delta, dhcp, dhcpChange([](ConfigImage &image) { image.circuitIds.remoteInserted = 1; }),
          "ip dhcp snooping remote\n"},
         {"remote formatted", Mode::delta, dhcp,
          dhcpChange([](ConfigImage &image) { image.circuitIds.remoteFormatted = 1; }),
          "ip dhcp snooping remote formatted\n"},
         {"remote id, last byte", Mode::delta, dhcp,
          dhcpChange([](ConfigImage &image) { image.circuitIds.remoteId.characters[63] = '-'; }),
          "ip dhcp snooping remote id abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijk-\n"},
         {"remote id, behind its end", Mode::delta, dhcp,
          current([](ConfigImage &image) { image.circuitIds.remoteId.characters[1] = 'x'; }), ""},
         {"server ports", Mode::delta, dhcp,
          dhcpChange([](ConfigImage &image) { image.dhcpSnooping.serverPorts = {}; }),
          "no ip dhcp snooping dhcp-server\n"},
         {"server ports, a bit behind port 28", Mode::delta, dhcp,
          dhcpChange([](ConfigImage &image) { image.dhcpSnooping.serverPorts.set(31); }),
          "ip dhcp snooping dhcp-server 1,2,16-19,28 \n"},
         {"server ports, type 5027", Mode::delta, dhcp, onBoard(5027, servers({17, 28})),
          "ip dhcp snooping dhcp-server 17,28 \nno ip dhcp snooping dhcp-server\n"},
         {"server check", Mode::delta, dhcp,
          dhcpChange([](ConfigImage &image) { image.dhcpSnooping.checkServerAddress = 1; }),
          "ip dhcp snooping dhcp-server-ip\n"},
         {"server addresses", Mode::delta, dhcp,
          serverChange(
              [](DhcpSnooping &config) {
                  config.servers[0] = {};
                  config.servers[1].octets[15] = 6;
                  config.servers[3] = mapped(192, 0, 2, 4);
              },
              asItIs),
          "no ip dhcp snooping dhcp-server-ip 1 ip-address\n"
          "ip dhcp snooping dhcp-server-ip 2 ip-address 2001:db8::6\n"
          "ip dhcp snooping dhcp-server-ip 4 ip-address 192.0.2.4\n"},
         {"third server address", Mode::delta, dhcp,
          serverChange(asItIs, [](DhcpSnooping &config) { config.servers[2] = {}; }),
          "ip dhcp snooping dhcp-server-ip 3 ip-address 192.0.2.3\n"},
         {"two ways to have no server", Mode::delta, dhcp,
          serverChange(asItIs, [](DhcpSnooping &config) { config.servers[3] = mapped(0, 0, 0, 0); }), ""},
     }));

// ------------------------------------------------------------------------------------------ DHCP snooping of the ports

namespace {

/// What a zero store writes in full mode before and behind the circuit ids.
constexpr const char *portsHead = "interface 1-28\nno ip dhcp snooping option\nexit\n"
                                  "interface 1-28\nno ip dhcp snooping circuit\nexit\n"
                                  "interface 1-28\nno ip dhcp snooping circuit formatted\nexit\n";
constexpr const char *portsTail = "interface 1-28\nno ip dhcp snooping trust\nexit\n";

/// A row for the circuit ids alone in both modes: `line` is what they write in delta mode, without the blank that full
/// mode has behind each id.
struct CircuitRow {
    const char *name;
    Given given;
    const char *full;
    const char *delta;
};

constexpr const char *lettersOf64 = "abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijkl";

/// Ports 2, 5 and 28 share an id, port 3 has one of its own.
void sharedIds(ConfigImage &image) {
    for (const int port : {2, 5, 28}) image.circuitIds.text[port - 1] = "north";
    image.circuitIds.text[3 - 1] = "south";
}

/// A description that fills its field, and what lies behind it up to a NUL.
void writeLongDescription(ConfigImage &image, int port) {
    unsigned char *const description = reinterpret_cast<unsigned char *>(&image) + 4800 + 76 * (port - 1);
    std::memcpy(description, "0123456789012345678901234567890123456789", 40);
}

const std::vector<CircuitRow> circuitRows = {
    {"equal to the default", alike([](ConfigImage &image) { image.circuitIds.text[0] = "x"; }, [](ConfigImage &) {}),
     "", ""},
    {"cleared: later ports without an id join", defaults([](ConfigImage &image) { image.circuitIds.text[8] = "x"; }),
     "interface 9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28\nip dhcp snooping circuit id  \nexit\n",
     "interface 9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28\nip dhcp snooping circuit id \nexit\n"},
    {"cleared on the last port", defaults([](ConfigImage &image) { image.circuitIds.text[27] = "x"; }),
     "interface 28\nip dhcp snooping circuit id  \nexit\n", "interface 28\nip dhcp snooping circuit id \nexit\n"},
    {"a whole field, and a difference in its last byte alone",
     alike([](ConfigImage &image) { image.circuitIds.text[27] = lettersOf64; }, [](ConfigImage &) {},
           [](ConfigImage &image) { image.circuitIds.text[27].characters[63] = '-'; }),
     "interface 28\nip dhcp snooping circuit id "
     "abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijkl \nexit\n",
     "interface 28\nip dhcp snooping circuit id "
     "abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyzabcdefghijkl\nexit\n"},
    {"a difference behind the end of an id",
     current([](ConfigImage &image) { image.circuitIds.text[0].characters[1] = 'x'; }), "", ""},
    {"joined ports are marked by empty descriptions, which are their defaults", current(sharedIds),
     "interface 2,5,28\nip dhcp snooping circuit id north \nexit\n"
     "interface 3\nip dhcp snooping circuit id south \nexit\n",
     "interface 2,5,28\nip dhcp snooping circuit id north\nexit\n"
     "interface 3\nip dhcp snooping circuit id south\nexit\n"},
    {"joined ports are written again with the leader's description",
     [](ConfigImage &image, ConfigImage &defaultImage) {
         sharedIds(image);
         image.ports[1].description = "not this one";
         defaultImage.ports[1].description = "uplink";
         defaultImage.ports[4].description = "nor this";
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
     [](ConfigImage &image, ConfigImage &defaultImage) {
         image.circuitIds.text[0] = image.circuitIds.text[1] = image.circuitIds.text[2] = "north";
         defaultImage.ports[0].description = "uplink";
         defaultImage.circuitIds.text[1] = "uplink";
     },
     "interface 1,2,3\nip dhcp snooping circuit id north \nexit\n"
     "interface 3\nip dhcp snooping circuit id uplink \nexit\n",
     "interface 1,2,3\nip dhcp snooping circuit id north\nexit\n"
     "interface 3\nip dhcp snooping circuit id uplink\nexit\n"},
    {"a description that fills its field runs on",
     [](ConfigImage &image, ConfigImage &defaultImage) {
         image.circuitIds.text[25] = image.circuitIds.text[26] = image.circuitIds.text[27] = "north";
         writeLongDescription(defaultImage, 26);
         writeLongDescription(defaultImage, 27);
         defaultImage.circuitIds.text[27] = "0123456789012345678901234567890123456789";
     },
     "interface 26,27,28\nip dhcp snooping circuit id north \nexit\n"
     "interface 27,28\nip dhcp snooping circuit id 0123456789012345678901234567890123456789 \nexit\n",
     "interface 26,27,28\nip dhcp snooping circuit id north\nexit\n"
     "interface 27,28\nip dhcp snooping circuit id 0123456789012345678901234567890123456789\nexit\n"},
    {"a port that has its default may join",
     [](ConfigImage &image, ConfigImage &defaultImage) {
         image.circuitIds.text[0] = image.circuitIds.text[27] = "north";
         defaultImage.circuitIds.text[27] = "north";
     },
     "interface 1,28\nip dhcp snooping circuit id north \nexit\n"
     "interface 28\nip dhcp snooping circuit id  \nexit\n",
     "interface 1,28\nip dhcp snooping circuit id north\nexit\n"
     "interface 28\nip dhcp snooping circuit id \nexit\n"},
    {"a port with its default leads no block",
     [](ConfigImage &image, ConfigImage &defaultImage) {
         image.circuitIds.text[0] = image.circuitIds.text[3] = "north";
         defaultImage.circuitIds.text[0] = "north";
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

Given portsOnly(std::function<void(DhcpSnoopingPorts &)> set) {
    return current([set](ConfigImage &image) { set(image.dhcpSnoopingPorts); });
}
Given circuits(std::function<void(CircuitIds &)> set) {
    return current([set](ConfigImage &image) { set(image.circuitIds); });
}

} // namespace

TEST(CircuitIdBlocks, AreComparedWithTheDefaultInBothModes) {
    for (const CircuitRow &row : circuitRows) {
        EXPECT_EQ(std::string(portsHead) + row.full + portsTail, textOfStep(Mode::full, portDhcp, row.given))
            << row.name;
        EXPECT_EQ(row.delta, textOfStep(Mode::delta, portDhcp, row.given)) << row.name;
    }
}

TEST(CircuitIdBlocks, OverwriteA64ByteTextFromTheDefaultDescriptionOn) {
    for (const int lead : {1, 27}) {
        const int description = 4800 + 76 * (lead - 1);
        const auto store = [=](ConfigImage &image, ConfigImage &defaultImage) {
            image.circuitIds.text[lead - 1] = image.circuitIds.text[lead] = "north";
            std::memcpy(reinterpret_cast<unsigned char *>(&defaultImage) + description, lettersOf64, 64);
        };
        const std::string ports = std::to_string(lead) + "," + std::to_string(lead + 1);
        EXPECT_EQ("interface " + ports + "\nip dhcp snooping circuit id north\nexit\n" + "interface " +
                      std::to_string(lead + 1) + "\nip dhcp snooping circuit id " + lettersOf64 + "\nexit\n",
                  textOfStep(Mode::delta, portDhcp, store));
        for (const Mode mode : {Mode::full, Mode::delta}) {
            EXPECT_EQ((Spans{{description, description + 63}}),
                      bytesThatCount(mode, portDhcp, store, gDefConfig, {{4770, 6920}}));
            EXPECT_EQ(Spans{}, bytesThatCount(mode, portDhcp, store, gSysConfig, {{4770, 6920}}));
        }
    }
}

ROWS(DhcpSnoopingOfPorts,
     ({
         {"zero image", Mode::full, portDhcp, nothing, std::string(portsHead) + portsTail},
         {"zero images", Mode::delta, portDhcp, nothing, ""},
         {"options", Mode::full, portDhcp, portsOnly([](DhcpSnoopingPorts &ports) {
              give(ports.portOption, {1, 2, 28}, 1);
              give(ports.portOption, {3}, 2);
          }),
          std::string("interface 4-27\nno ip dhcp snooping option\nexit\n"
                      "interface 1,2,28\nip dhcp snooping option\nexit\n"
                      "interface 1-28\nno ip dhcp snooping circuit\nexit\n"
                      "interface 1-28\nno ip dhcp snooping circuit formatted\nexit\n") +
              portsTail},
         {"options", Mode::delta, portDhcp, portsOnly([](DhcpSnoopingPorts &ports) {
              give(ports.portOption, {1}, 1);
              give(ports.portOption, {3}, 2);
          }),
          "interface 2,4-28\nno ip dhcp snooping option\nexit\ninterface 1\nip dhcp snooping option\nexit\n"},
         {"options without a block", Mode::delta, portDhcp,
          portsOnly([](DhcpSnoopingPorts &ports) { giveAll(ports.portOption, 2); }), ""},
         {"the option word is not a port's", Mode::delta, portDhcp,
          portsOnly([](DhcpSnoopingPorts &ports) { ports.option = 0xffffffff, ports.reserved60.bytes[0] = 1; }), ""},
         {"circuit", Mode::full, portDhcp, circuits([](CircuitIds &ids) {
              put(ids.inserted, {1, 8, 9, 10, 28});
          }),
          std::string("interface 1-28\nno ip dhcp snooping option\nexit\n"
                      "interface 1,8-10,28\nip dhcp snooping circuit\nexit\n"
                      "interface 2-7,11-27\nno ip dhcp snooping circuit\nexit\n"
                      "interface 1-28\nno ip dhcp snooping circuit formatted\nexit\n") +
              portsTail},
         {"circuit on all ports", Mode::full, portDhcp, circuits([](CircuitIds &ids) {
              ids.inserted = {{255, 255, 255, 15}};
          }),
          std::string("interface 1-28\nno ip dhcp snooping option\nexit\n"
                      "interface 1-28\nip dhcp snooping circuit\nexit\n"
                      "interface 1-28\nno ip dhcp snooping circuit formatted\nexit\n") +
              portsTail},
         {"circuit", Mode::delta, portDhcp, circuits([](CircuitIds &ids) { put(ids.inserted, {1}); }),
          "interface 1\nip dhcp snooping circuit\nexit\ninterface 2-28\nno ip dhcp snooping circuit\nexit\n"},
         {"circuit behind port 28", Mode::delta, portDhcp, circuits([](CircuitIds &ids) {
              put(ids.inserted, {29, 30, 31, 32});
          }),
          ""},
         {"circuit taken away", Mode::delta, portDhcp,
          defaults([](ConfigImage &image) { put(image.circuitIds.inserted, {28}); }),
          "interface 1-28\nno ip dhcp snooping circuit\nexit\n"},
         {"formatted", Mode::full, portDhcp, circuits([](CircuitIds &ids) {
              put(ids.formatted, {27, 28});
          }),
          std::string("interface 1-28\nno ip dhcp snooping option\nexit\n"
                      "interface 1-28\nno ip dhcp snooping circuit\nexit\n"
                      "interface 27,28\nip dhcp snooping circuit formatted\nexit\n"
                      "interface 1-26\nno ip dhcp snooping circuit formatted\nexit\n") +
              portsTail},
         {"formatted", Mode::delta, portDhcp, circuits([](CircuitIds &ids) { put(ids.formatted, {28}); }),
          "interface 28\nip dhcp snooping circuit formatted\nexit\n"
          "interface 1-27\nno ip dhcp snooping circuit formatted\nexit\n"},
         {"formatted behind port 28", Mode::delta, portDhcp, circuits([](CircuitIds &ids) {
              put(ids.formatted, {29, 30, 31, 32});
          }),
          ""},
         {"trust", Mode::full, portDhcp, portsOnly([](DhcpSnoopingPorts &ports) {
              give(ports.trust, {1, 28}, 1);
              give(ports.trust, {2}, 2);
          }),
          std::string(portsHead) + "interface 3-27\nno ip dhcp snooping trust\nexit\n"
                                   "interface 1,28\nip dhcp snooping trust\nexit\n"},
         {"trust on all ports", Mode::full, portDhcp,
          portsOnly([](DhcpSnoopingPorts &ports) { giveAll(ports.trust, 1); }),
          std::string(portsHead) + "interface 1-28\nip dhcp snooping trust\nexit\n"},
         {"trust that is not exactly 1", Mode::full, portDhcp,
          portsOnly([](DhcpSnoopingPorts &ports) { give(ports.trust, {28}, 255); }),
          std::string(portsHead) + "interface 1-27\nno ip dhcp snooping trust\nexit\n"
                                   "interface \nip dhcp snooping trust\nexit\n"},
         {"trust that is not exactly 1", Mode::delta, portDhcp,
          portsOnly([](DhcpSnoopingPorts &ports) { give(ports.trust, {1}, 2); }),
          "interface 2-28\nno ip dhcp snooping trust\nexit\ninterface \nip dhcp snooping trust\nexit\n"},
         {"trust taken away", Mode::delta, portDhcp,
          defaults([](ConfigImage &image) { image.dhcpSnoopingPorts.trust[27] = 1; }),
          "interface 1-28\nno ip dhcp snooping trust\nexit\n"},
         {"everything", Mode::delta, portDhcp, current([](ConfigImage &image) {
              giveAll(image.dhcpSnoopingPorts.portOption, 1);
              giveAll(image.dhcpSnoopingPorts.trust, 1);
              image.circuitIds.inserted = image.circuitIds.formatted = {{255, 255, 255, 255}};
              image.circuitIds.text[4] = "five";
          }),
          "interface 1-28\nip dhcp snooping option\nexit\n"
          "interface 1-28\nip dhcp snooping circuit\nexit\n"
          "interface 1-28\nip dhcp snooping circuit formatted\nexit\n"
          "interface 5\nip dhcp snooping circuit id five\nexit\n"
          "interface 1-28\nip dhcp snooping trust\nexit\n"},
     }));

// ------------------------------------------------------------------------------------------------------ source guard

namespace {

Given guardEntries(std::function<void(SourceGuardTable &)> set) {
    return current([set](ConfigImage &image) { set(image.sourceGuardTable); });
}

/// An address whose text takes all 39 characters of an IPv6 one.
constexpr Ipv6 longest = {
    {0x20, 0x01, 0x0d, 0xb8, 0x11, 0x11, 0x22, 0x22, 0x33, 0x33, 0x44, 0x44, 0x55, 0x55, 0x66, 0x66}};

void guardEntry(SourceGuardEntry &entry, Ipv4 address, Ipv6 addressIpv6, u8 port) {
    entry.valid = 1;
    entry.address = address;
    entry.addressIpv6 = addressIpv6;
    entry.port = port;
    entry.vlan = static_cast<std::uint16_t>(port + 100);
}

} // namespace

ROWS(SourceGuard, ({
                      {"zero image", Mode::full, guard, nothing, "interface 1-28\nip sourceguard fixed-ip\nexit\n"},
                      {"modes", Mode::full, guard, current([](ConfigImage &image) {
                           giveAll(image.sourceGuard, 2);
                           give(image.sourceGuard, {28}, 0);
                           give(image.sourceGuard, {1, 2, 3}, 1);
                           give(image.sourceGuard, {5}, 3);
                       }),
                       "interface 28\nip sourceguard fixed-ip\nexit\n"
                       "interface 1-3\nip sourceguard dhcp\nexit\n"
                       "interface 4,6-27\nno ip sourceguard \nexit\n"},
                      {"modes without a block", Mode::full, guard,
                       current([](ConfigImage &image) { giveAll(image.sourceGuard, 3); }), ""},
                      {"equal", Mode::delta, guard,
                       alike([](ConfigImage &image) { giveAll(image.sourceGuard, 2); },
                             [](ConfigImage &image) { image.reserved147516.bytes[0] = 1; }),
                       ""},
                      {"modes", Mode::delta, guard, current([](ConfigImage &image) {
                           give(image.sourceGuard, {1}, 1);
                           give(image.sourceGuard, {2, 28}, 2);
                       }),
                       "interface 3-27\nip sourceguard fixed-ip\nexit\n"
                       "interface 1\nip sourceguard dhcp\nexit\n"
                       "interface 2,28\nno ip sourceguard\nexit\n"},
                      {"mode of the last port in the default", Mode::delta, guard,
                       defaults([](ConfigImage &image) { image.sourceGuard[27] = 9; }),
                       "interface 1-28\nip sourceguard fixed-ip\nexit\n"},
                  }));

ROWS(SourceGuardEntries,
     ({
         {"no entry", Mode::full, guardTable, nothing, ""},
         {"entries in their own order", Mode::full, guardTable, guardEntries([](SourceGuardTable &table) {
              guardEntry(table[0], {{192, 0, 2, 7}}, documentation, 27);
              guardEntry(table[1], {{192, 0, 2, 7}}, documentation, 0);
              table[1].valid = 0;
              guardEntry(table[2], {}, documentation, 0);
              guardEntry(table[3], {}, {}, 255);
              table[3].vlan = 65535;
              guardEntry(table[4], {}, mapped(192, 0, 2, 8), 1);
              guardEntry(table[47], {{0, 0, 0, 1}}, documentation, 0);
              table[47].valid = 255;
          }),
          "interface 28\nip sourceguard static-ip 192.0.2.7 vlan 127\nexit\n"
          "interface 1\nip sourceguard static-ip 2001:db8::5 vlan 100\nexit\n"
          "interface 256\nip sourceguard static-ip 0.0.0.0 vlan 65535\nexit\n"
          "interface 2\nip sourceguard static-ip ::ffff:192.0.2.8 vlan 101\nexit\n"
          "interface 1\nip sourceguard static-ip 0.0.0.1 vlan 100\nexit\n"},
         {"entries against none", Mode::delta, guardTable, guardEntries([](SourceGuardTable &table) {
              guardEntry(table[0], {{192, 0, 2, 7}}, {}, 27);
              guardEntry(table[47], {}, documentation, 0);
          }),
          "interface 28\nip sourceguard static-ip 192.0.2.7 vlan 127\nexit\n"
          "interface 1\nip sourceguard static-ip 2001:db8::5 vlan 100\nexit\n"},
         {"entry without an address against none", Mode::delta, guardTable,
          guardEntries([](SourceGuardTable &table) { guardEntry(table[0], {}, {}, 3); }), ""},
         {"entry that lost its address", Mode::delta, guardTable,
          alike(
              [](ConfigImage &image) {
                  guardEntry(image.sourceGuardTable[0], {{192, 0, 2, 7}}, {}, 3);
              },
              [](ConfigImage &image) { image.sourceGuardTable[0].address = {}; }),
          "interface 4\nip sourceguard static-ip 0.0.0.0 vlan 103\nexit\n"},
         {"default entry alone", Mode::delta, guardTable, defaults([](ConfigImage &image) {
              guardEntry(image.sourceGuardTable[0], {{192, 0, 2, 7}}, {}, 3);
          }),
          ""},
         {"the default entry need not be valid", Mode::delta, guardTable,
          alike(
              [](ConfigImage &image) {
                  guardEntry(image.sourceGuardTable[0], {{192, 0, 2, 7}}, {}, 3);
              },
              [](ConfigImage &) {}, [](ConfigImage &image) { image.sourceGuardTable[0].valid = 0; }),
          ""},
         {"VLAN and port do not count", Mode::delta, guardTable,
          alike(
              [](ConfigImage &image) {
                  guardEntry(image.sourceGuardTable[0], {{192, 0, 2, 7}}, {}, 3);
              },
              [](ConfigImage &image) { image.sourceGuardTable[0].port = 4, image.sourceGuardTable[0].vlan = 9; }),
          ""},
         {"IPv6 addresses behind an IPv4 one do not count", Mode::delta, guardTable,
          alike(
              [](ConfigImage &image) {
                  guardEntry(image.sourceGuardTable[0], {{192, 0, 2, 7}}, {}, 3);
              },
              [](ConfigImage &image) { image.sourceGuardTable[0].addressIpv6 = documentation; }),
          ""},
         {"what a longer address left behind counts", Mode::delta, guardTable,
          [](ConfigImage &image, ConfigImage &defaultImage) {
              guardEntry(image.sourceGuardTable[0], {}, longest, 0);
              for (const int slot : {1, 20, 47}) {
                  guardEntry(image.sourceGuardTable[slot], {{192, 0, 2, 7}}, {}, static_cast<u8>(slot));
                  defaultImage.sourceGuardTable[slot] = image.sourceGuardTable[slot];
              }
          },
          "interface 1\nip sourceguard static-ip 2001:db8:1111:2222:3333:4444:5555:6666 vlan 100\nexit\n"
          "interface 2\nip sourceguard static-ip 192.0.2.7 vlan 101\nexit\n"
          "interface 21\nip sourceguard static-ip 192.0.2.7 vlan 120\nexit\n"
          "interface 48\nip sourceguard static-ip 192.0.2.7 vlan 147\nexit\n"},
         {"what a longer default address left behind counts", Mode::delta, guardTable,
          [](ConfigImage &image, ConfigImage &defaultImage) {
              guardEntry(image.sourceGuardTable[0], {{192, 0, 2, 7}}, {}, 0);
              guardEntry(image.sourceGuardTable[1], {{192, 0, 2, 8}}, {}, 1);
              defaultImage.sourceGuardTable[0].addressIpv6 = longest;
              defaultImage.sourceGuardTable[1] = image.sourceGuardTable[1];
          },
          "interface 1\nip sourceguard static-ip 192.0.2.7 vlan 100\nexit\n"
          "interface 2\nip sourceguard static-ip 192.0.2.8 vlan 101\nexit\n"},
         {"the same left behind on both sides", Mode::delta, guardTable,
          alike(
              [](ConfigImage &image) {
                  guardEntry(image.sourceGuardTable[0], {}, longest, 0);
                  guardEntry(image.sourceGuardTable[1], {{192, 0, 2, 8}}, {}, 1);
              },
              [](ConfigImage &) {}),
          ""},
         {"a longer address later evens it out", Mode::delta, guardTable,
          [](ConfigImage &image, ConfigImage &defaultImage) {
              guardEntry(image.sourceGuardTable[0], {}, documentation, 0);
              for (const int slot : {1, 2, 3})
                  guardEntry(image.sourceGuardTable[slot], {}, slot == 2 ? longest : documentation,
                             static_cast<u8>(slot));
              for (const int slot : {1, 2, 3}) defaultImage.sourceGuardTable[slot] = image.sourceGuardTable[slot];
          },
          "interface 1\nip sourceguard static-ip 2001:db8::5 vlan 100\nexit\n"},
         {"an entry that is not valid leaves nothing behind", Mode::delta, guardTable,
          [](ConfigImage &image, ConfigImage &defaultImage) {
              guardEntry(image.sourceGuardTable[0], {}, longest, 0);
              image.sourceGuardTable[0].valid = 0;
              guardEntry(image.sourceGuardTable[1], {{192, 0, 2, 8}}, {}, 1);
              defaultImage.sourceGuardTable[1] = image.sourceGuardTable[1];
          },
          ""},
     }));

ROWS(SourceBindings, ({
                         {"no binding", Mode::full, bindings, nothing, ""},
                         {"bindings", Mode::full, bindings, current([](ConfigImage &image) {
                              SourceBindingTable &table = image.sourceBindings;
                              table[0] = {1, 1, mapped(192, 0, 2, 9), {}};
                              table[1] = {0, 1, mapped(192, 0, 2, 9), {}};
                              table[2] = {255, 0, documentation, {}};
                              table[3] = {1, 0, {}, {}};
                              table[4] = {1, 1, mapped(0, 0, 0, 0), {}};
                              table[11] = {1, 255, mapped(192, 0, 2, 12), {}};
                          }),
                          "ip source binding 1 ip-address 192.0.2.9 \nip source binding 1\n"
                          "ip source binding 3 ip-address 2001:db8::5 \nno ip source binding 3\n"
                          "no ip source binding 4 ip-address \nno ip source binding 4\n"
                          "no ip source binding 5 ip-address \nip source binding 5\n"
                          "ip source binding 12 ip-address 192.0.2.12 \nip source binding 12\n"},
                         {"bindings", Mode::delta, bindings,
                          [](ConfigImage &image, ConfigImage &defaultImage) {
                              SourceBindingTable &table = image.sourceBindings;
                              SourceBindingTable &was = defaultImage.sourceBindings;
                              table[0] = {1, 1, mapped(192, 0, 2, 9), {}};
                              table[1] = {0, 1, mapped(192, 0, 2, 9), {}};
                              table[2] = {1, 0, documentation, {}};
                              was[2] = {0, 1, documentation, {}};
                              table[3] = {1, 0, {}, {}};
                              was[3] = {1, 0, mapped(192, 0, 2, 4), {}};
                              table[4] = {1, 2, mapped(0, 0, 0, 0), {}};
                              was[4] = {1, 1, {}, {}};
                              table[5] = was[5] = {1, 1, documentation, {}};
                              table[5].reserved18.bytes[0] = 1;
                              was[6] = {1, 1, documentation, {}};
                              table[11] = {1, 0, documentation, {}};
                          },
                          "ip source binding 1 ip-address 192.0.2.9\nip source binding 1\n"
                          "no ip source binding 3\n"
                          "no ip source binding 4 ip-address\n"
                          "ip source binding 5\n"
                          "ip source binding 12 ip-address 2001:db8::5\n"},
                     }));

ROWS(SourceSwitch,
     ({
         {"off", Mode::full, ipSource, nothing, "no ip source\n"},
         {"on", Mode::full, ipSource, current([](ConfigImage &image) { image.ipSource = 128; }), "ip source\n"},
         {"equal", Mode::delta, ipSource, alike([](ConfigImage &image) { image.ipSource = 1; }, [](ConfigImage &) {}),
          ""},
         {"on", Mode::delta, ipSource, current([](ConfigImage &image) { image.ipSource = 1; }), "ip source\n"},
         {"off", Mode::delta, ipSource, defaults([](ConfigImage &image) { image.ipSource = 1; }), "no ip source\n"},
         {"on in another way", Mode::delta, ipSource,
          alike([](ConfigImage &image) { image.ipSource = 1; }, [](ConfigImage &image) { image.ipSource = 2; }),
          "ip source\n"},
     }));

// --------------------------------------------------------------------------------------- storm protection, isolation

namespace {

Given stormOnly(std::function<void(StormControl &)> set) {
    return current([set](ConfigImage &image) { set(image.storm); });
}
Given stormChange(std::function<void(StormControl &)> set) {
    return alike(
        [](ConfigImage &image) {
            image.storm.broadcast = image.storm.multicast = image.storm.unicast = 21;
            image.storm.notificationInterval = 7;
        },
        [set](ConfigImage &image) { set(image.storm); });
}
Given uplinks(std::initializer_list<unsigned> ports, std::initializer_list<unsigned> before = {}) {
    const std::vector<unsigned> now = ports;
    const std::vector<unsigned> was = before;
    return [=](ConfigImage &image, ConfigImage &defaultImage) {
        for (const unsigned port : now) image.isolation.uplinks.set(port - 1);
        for (const unsigned port : was) defaultImage.isolation.uplinks.set(port - 1);
    };
}
Given allUplinks(u8 lastByte, u8 lastByteBefore) {
    return [=](ConfigImage &image, ConfigImage &defaultImage) {
        image.isolation.uplinks = {{255, 255, 255, lastByte}};
        defaultImage.isolation.uplinks = {{255, 255, 255, lastByteBefore}};
    };
}

} // namespace

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
         {"bits behind port 28", Mode::full, isolation, uplinks({29, 30, 31, 32}),
          "no security port-isolation up-link-port 1-28 \nno security port-isolation\n"},
         {"equal", Mode::delta, isolation, uplinks({1, 28}, {1, 28}), ""},
         {"bits behind port 28 alone differ", Mode::delta, isolation, uplinks({1, 29, 30, 31, 32}, {1}), ""},
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
          alike([](ConfigImage &image) { image.isolation.enabled = 1; },
                [](ConfigImage &image) { image.isolation.enabled = 2; }),
          "security port-isolation\n"},
         {"everything", Mode::delta, isolation,
          [](ConfigImage &image, ConfigImage &defaultImage) {
              uplinks({1, 2, 3}, {4})(image, defaultImage);
              image.isolation.enabled = 1;
          },
          "security port-isolation up-link-port 1-3\nno security port-isolation up-link-port 4-28\n"
          "security port-isolation\n"},
     }));

// ------------------------------------------------------------------------------------------------- MAC limit, PPPoE

namespace {

Given limitOnly(std::function<void(MacLimit &)> set) {
    return current([set](ConfigImage &image) { set(image.macLimit); });
}

constexpr const char *limitedNowhere = "interface 1-28 \nno security mac-limit\nexit\n";
constexpr const char *withoutMaximum = "interface 1-28 \nno security mac-limit maximum \nexit\n";

/// The text of the blocks for two sections, which the driver never hands over.
std::string limitsOf(const Given &given) {
    resetAll();
    given(*gSysConfig, *gDefConfig);
    delta::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(gSysConfig->macLimit,
                                                                              gDefConfig->macLimit);
    return Temp_Configuration;
}

} // namespace

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
          alike([](ConfigImage &image) { image.macLimit.enabled = 1; },
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
          [](ConfigImage &image, ConfigImage &defaultImage) {
              giveAll(image.macLimit.portEnabled, 1);
              giveAll(image.macLimit.portMaximum, 5);
              giveAll(defaultImage.macLimit.portMaximum, 6);
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
          alike([](ConfigImage &image) { image.pppoe.enabled = 1; },
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
         {"bits behind port 28 and the switch", Mode::delta, portPppoe, current([](ConfigImage &image) {
              put(image.pppoe.trusted, {29, 30, 31, 32});
              image.pppoe.enabled = 1;
          }),
          ""},
     }));

// --------------------------------------------------------------------------------- server trust, which no step renders

namespace {

std::string serverTrust(const ServerTrust &now) {
    resetAll();
    EXPECT_EQ(0, full::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(now));
    return Temp_Configuration;
}
std::string serverTrust(const ServerTrust &now, const ServerTrust &before) {
    resetAll();
    EXPECT_EQ(0, delta::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(now, before));
    return Temp_Configuration;
}

} // namespace

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

// ------------------------------------------------------------------------------------------------------- the whole
// area

TEST(Security, EveryEmitterTracesItsNameAndNothingElse) {
    for (const char *emitter : emitters)
        for (const Mode mode : {Mode::full, Mode::delta}) {
            if (mode == Mode::delta && !hasTwin(emitter)) continue;
            resetAll();
            everyTextFilled(*gSysConfig, *gDefConfig);
            std::memset(static_cast<void *>(gDefConfig), 0, sizeof *gDefConfig);
            EXPECT_EQ("", printedBy([=] { callStep(mode, emitter); }));
            const std::string text = Temp_Configuration;
            clearText();
            gCfgDebug = 1;
            EXPECT_EQ("[" + std::string(emitter) + "]\n", printedBy([=] { callStep(mode, emitter); }));
            EXPECT_EQ(text, Temp_Configuration);
        }
}

TEST(Security, EmittersReturn0) {
    resetAll();
    everyTextFilled(*gSysConfig, *gDefConfig);
    const ConfigImage &now = *gSysConfig;
    const ConfigImage &was = *gDefConfig;
    const int results[] = {
        full::convConfigACLControl_ACLControl_configure_acl(now.acl),
        full::convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(now.dot1x),
        full::convConfigSKAConfig2_SKAConfig2_configure_ip(now.dhcpSnooping),
        full::convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(now.pppoe),
        full::convConfigSecurityIP_SecurityIP_configure_ip_source(now.sourceBindings),
        full::convConfigSwitchConfig_SwitchConfig_configure_ip_source(now.ipSource),
        full::convConfigMacLimit_MacLimit_configure_security_mac_limit(now.macLimit),
        full::convConfigPortIsolation_PortIsolation_configure_security_port_isolation(now.isolation),
        full::convConfigStormControl_StormControl_configure_security_storm_control(now.storm),
        full::convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(now.dot1x),
        full::convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(now.dhcpSnoopingPorts),
        full::convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(now.pppoe),
        full::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(now.sourceGuard),
        full::convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(now.sourceGuardTable),
        full::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(now.macLimit, now.macLimit),
        full::convConfigSKAConfig2_SKAConfig2_configure_configure_security(),
        full::convConfigSecurity_HG(),
        full::convConfigStormControl_StormControl_configure_interface_security(),
        delta::convConfigACLControl_ACLControl_configure_acl(now.acl, was.acl),
        delta::convConfigDOT1XConfig_DOT1XConfig_configure_dot1x(now.dot1x, was.dot1x),
        delta::convConfigSKAConfig2_SKAConfig2_configure_ip(now.dhcpSnooping, was.dhcpSnooping),
        delta::convConfigPPPoEConfig_PPPoEConfig_configure_ip_pppoe(now.pppoe, was.pppoe),
        delta::convConfigSecurityIP_SecurityIP_configure_ip_source(now.sourceBindings, was.sourceBindings),
        delta::convConfigSwitchConfig_SwitchConfig_configure_ip_source(now.ipSource, was.ipSource),
        delta::convConfigMacLimit_MacLimit_configure_security_mac_limit(now.macLimit, was.macLimit),
        delta::convConfigPortIsolation_PortIsolation_configure_security_port_isolation(now.isolation, was.isolation),
        delta::convConfigStormControl_StormControl_configure_security_storm_control(now.storm, was.storm),
        delta::convConfigDOT1XConfig_DOT1XConfig_configure_interface_dot1x(now.dot1x, was.dot1x),
        delta::convConfigSKAConfig_SKAConfig_configure_interface_ip_dhcp_snooping(now.dhcpSnoopingPorts,
                                                                                  was.dhcpSnoopingPorts),
        delta::convConfigPPPoEConfig_PPPoEConfig_configure_interface_ip_pppoe(now.pppoe, was.pppoe),
        delta::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_sourceguard(now.sourceGuard, was.sourceGuard),
        delta::convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip(now.sourceGuardTable,
                                                                                                  was.sourceGuardTable),
        delta::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(now.macLimit, was.macLimit),
    };
    for (const int result : results) EXPECT_EQ(0, result);
}

TEST(Security, EmittersWithoutASectionWriteNothing) {
    for (const char *emitter : {emptySecurity, emptyHg, emptyStorm}) {
        const auto every = [](ConfigImage &image, ConfigImage &) {
            std::memset(static_cast<void *>(&image), 0xff, sizeof image);
        };
        EXPECT_EQ("", textOfStep(Mode::full, emitter, every));
        if (hasTwin(emitter)) {
            EXPECT_EQ("", textOfStep(Mode::delta, emitter, every));
        }
    }
}

TEST(Security, StandsInTheOrderOfTheText) {
    std::size_t next = 0;
    for (const order::Step &step : order::steps)
        if (next < std::size(emitters) && step.emitter == emitters[next]) {
            EXPECT_EQ(hasTwin(emitters[next]), static_cast<bool>(step.delta)) << emitters[next];
            ++next;
        }
    EXPECT_EQ(std::size(emitters), next);
}

namespace {

void composeSecurity(ConfigImage &current, ConfigImage &defaults) {
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
    AclRule &webBefore = defaults.acl[0];
    webBefore.valid = 1;
    webBefore.number = 1;
    webBefore.actionPort = 4;
    webBefore.protocol = "11";
    webBefore.match.set(AclMatch::protocol).set(AclMatch::destinationMac);
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
std::string textOfArea(Mode mode) {
    resetAll();
    composeSecurity(*gSysConfig, *gDefConfig);
    for (const char *emitter : emitters)
        if (mode == Mode::full || hasTwin(emitter)) callStep(mode, emitter);
    return Temp_Configuration;
}

} // namespace

TEST(Security, IsTheGoldenText) {
    EXPECT_EQ(golden("security_full.txt"), textOfArea(Mode::full));
    EXPECT_EQ(golden("security_delta.txt"), textOfArea(Mode::delta));
}

TEST(Security, TheBuiltInStoreMakesEveryEmitterWrite) {
    resetAll();
    factory::composeBoard(g_EEPROM);
    factory::composeDefault(*gDefConfig);
    factory::composeRunning(*gSysConfig);
    for (const char *emitter : emitters)
        for (const Mode mode : {Mode::full, Mode::delta}) {
            const bool tracesOnly = emitter == emptySecurity || emitter == emptyHg || emitter == emptyStorm;
            if (mode == Mode::delta && !hasTwin(emitter)) continue;
            // Delta mode hands over the current limits twice, so that there is never a difference.
            const bool writes = !tracesOnly && (mode == Mode::full || emitter != portMacLimit);
            clearText();
            callStep(mode, emitter);
            EXPECT_EQ(writes, Temp_Configuration[0] != '\0') << emitter;
        }
}
