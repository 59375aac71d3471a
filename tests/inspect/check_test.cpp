/// Every rule with a record that breaks it and one just beside it that does not.
#include "program.h"

#include "inspect/fields.h"
#include "inspect/rules.h"
#include "platform/host/factory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace inspect;

/// The default configuration, which breaks no rule, with a board and settings: what a row changes.
struct Records {
    Input input;
    ConfigImage &image;
    ConfigImage &defaults;
    BoardRecord &board;

    Records() : Records(loadInput({.record = "builtin:default"})) {}

private:
    explicit Records(Input loaded)
        : input(std::move(loaded)), image(*input.image.value), defaults(*input.defaults.value),
          board(*input.board.value) {}
};

std::vector<Finding> findingsOf(const Input &input, const RuleOptions &options = {}) {
    std::vector<Finding> findings;
    applyRules(input, options, [&](const Finding &finding) { findings.push_back(finding); });
    return findings;
}

std::string lines(const std::vector<Finding> &findings) {
    std::string all;
    for (const Finding &finding : findings)
        all += std::string(finding.rule->name) + ' ' + finding.path + ": " + finding.found + '\n';
    return all;
}

void moveBytes(ConfigImage &image, int distance) {
    unsigned char *const bytes = reinterpret_cast<unsigned char *>(&image);
    std::vector<unsigned char> moved(sizeof image);
    for (std::size_t i = 0; i < sizeof image; ++i)
        if (const std::size_t from = i - static_cast<std::size_t>(distance); from < sizeof image)
            moved[i] = bytes[from];
    std::ranges::copy(moved, bytes);
}

void swapBytes(ConfigImage &image, std::size_t unit) {
    unsigned char *const bytes = reinterpret_cast<unsigned char *>(&image);
    for (std::size_t i = 0; i < sizeof image; i += unit) std::reverse(bytes + i, bytes + i + unit);
}

using Change = void (*)(Records &);
struct Row {
    const char *rule;
    const char *path; ///< of the finding
    Change breaks;
    Change keeps;
};

/// Both images, so that the change is no difference.
#define BOTH(statement)                                                                                                \
    [](Records &records) {                                                                                             \
        for (ConfigImage * each : {&records.image, &records.defaults}) {                                               \
            ConfigImage &image = *each;                                                                                \
            statement;                                                                                                 \
        }                                                                                                              \
    }

void addVlan(ConfigImage &image, std::size_t slot, std::uint16_t id) {
    image.tagVlans[slot].inUse = 1;
    image.tagVlans[slot].id = id;
    image.tagVlans[slot].name = "added";
}

void longTexts(ConfigImage &image, std::size_t vlans) {
    for (std::size_t i = 0; i < vlans; ++i) {
        TagVlan &vlan = image.tagVlans[i];
        vlan.inUse = 1;
        vlan.id = static_cast<std::uint16_t>(i + 1);
        vlan.name = "a-name-that-is-as-long-as-the-field-for-it...";
        vlan.members = {{0x55, 0x55, 0x55, 0x05}};
        if (i == 0) vlan.members.set(cpuPort);
    }
}

const Row table[] = {
    {"record-zero", "image", [](Records &r) { std::memset(&r.image, 0, sizeof r.image); },
     [](Records &r) {
         std::memset(&r.image, 0, sizeof r.image);
         r.image.reserved3244.bytes[7] = 1;
     }},
    {"record-zero", "board", [](Records &r) { r.board = {}; },
     [](Records &r) {
         r.board = {};
         r.board.boardType = 1;
     }},
    {"record-erased", "image",
     [](Records &r) {
         std::memset(&r.image, 0, sizeof r.image);
         std::memset(reinterpret_cast<char *>(&r.image) + 131071, 0xff, 131073);
     },
     [](Records &r) {
         std::memset(&r.image, 0, sizeof r.image);
         std::memset(reinterpret_cast<char *>(&r.image) + 131072, 0xff, 131072);
     }},
    {"record-erased", "board", [](Records &r) { std::memset(&r.board, 0xff, sizeof r.board); },
     [](Records &r) { std::memset(r.board.reserved8.bytes, 0xff, 120); }},
    {"record-swapped", "image", [](Records &r) { swapBytes(r.image, 4); },
     [](Records &r) { swapBytes(r.image, 4), swapBytes(r.image, 4); }},
    {"record-swapped", "image", [](Records &r) { swapBytes(r.image, 2); },
     [](Records &r) { std::swap(r.image.stp.priority.bits.bytes[0], r.image.stp.priority.bits.bytes[3]); }},
    {"record-shifted", "image", [](Records &r) { moveBytes(r.image, 4); },
     [](Records &r) { moveBytes(r.image, 4), moveBytes(r.image, -4); }},
    {"record-shifted", "image", [](Records &r) { moveBytes(r.image, -1); },
     [](Records &r) { std::memmove(&r.image.ports[0], &r.image.ports[1], sizeof r.image.ports[0]); }},

    {"code-unknown", "ports[2].speed", BOTH(image.ports[1].speed = 4), BOTH(image.ports[1].speed = 3)},
    {"code-unknown", "dot1x.portControl[28]", BOTH(image.dot1x.portControl[27] = 3),
     BOTH(image.dot1x.portControl[27] = 2)},
    {"code-unknown", "storm.broadcast", BOTH(image.storm.broadcast = 22), BOTH(image.storm.broadcast = 21)},
    {"code-unknown", "users[1].level", BOTH(image.users[0].level = 4), BOTH(image.users[9].level = 4)},
    {"flag-value", "ipSource", BOTH(image.ipSource = 2), BOTH(image.ipSource = 1)},
    {"flag-value", "time.ntpEnabled", BOTH(image.time.ntpEnabled = 256), BOTH(image.time.ntpEnabled = 1)},
    {"flag-value", "portFilters.port[1].filterSwitch", BOTH(image.portFilters.port[0].filterSwitch = 255),
     BOTH(image.portFilters.port[1].filterSwitch = 255)},
    {"flag-value", "users[10].inUse", BOTH(image.users[9].inUse = 2), BOTH(image.users[9].active = 2)},
    {"bits-unknown", "timeRanges[1].list[1].weekdays",
     BOTH(image.timeRanges[0].name = "x"; image.timeRanges[0].list[0].weekdays.set(7)),
     BOTH(image.timeRanges[0].name = "x"; image.timeRanges[0].list[0].weekdays.set(6))},
    {"bits-unknown", "acl[1].match", BOTH(image.acl[0].valid = 1; image.acl[0].match.set(13)),
     BOTH(image.acl[0].valid = 1; image.acl[0].match.set(12))},

    {"text-injected-line", "ports[5].description", BOTH(image.ports[4].description = "a\nno user admin"),
     BOTH(image.ports[4].description = "a no user admin")},
    {"text-injected-line", "users[1].password", BOTH(image.users[0].password = "a\rb"),
     BOTH(std::memcpy(image.users[2].password.characters, "a\rb", 3))},
    {"text-injected-line", "board.versionOfBank1", [](Records &r) { r.board.versionOfBank1 = "V2\nx"; },
     [](Records &r) { r.board.versionOfBank1 = "V2 x"; }},
    {"text-control", "company.systemName", BOTH(image.company.systemName = "a\tb"),
     BOTH(image.company.systemName = "a~b\xc3\xa9")},
    {"text-control", "radius.secret", BOTH(image.radius.secret = "\x7f"), BOTH(image.radius.secret = "\x7e")},
    {"text-unterminated", "ports[1].description",
     BOTH(image.ports[0].description = "123456789 123456789 123456789 123456"),
     BOTH(image.ports[0].description = "123456789 123456789 123456789 12345")},
    {"text-after-nul", "company.hostName", BOTH(image.company.hostName.characters[31] = 'x'),
     BOTH(image.company.hostName.characters[6] = 'x')},
    {"text-after-nul", "dot1x.secret", BOTH(image.dot1x.secret.characters[1] = 'x'),
     BOTH(image.dot1x.secret.characters[0] = 'x')},
    {"name-blank", "tagVlans[1].name", BOTH(image.tagVlans[0].name = "de fault"),
     BOTH(image.tagVlans[0].name = "de-fault")},
    {"name-blank", "communities[1].name", BOTH(image.communities[0].name = "pub lic"),
     BOTH(image.communities[0].description = "pub lic")},

    {"vlan-range", "tagVlans[2].id", BOTH(addVlan(image, 1, 4095)), BOTH(addVlan(image, 1, 4094))},
    {"vlan-range", "tagVlans[2].id", BOTH(addVlan(image, 1, 0)), BOTH(addVlan(image, 1, 2))},
    {"vlan-range", "vlanPorts[28].accessVlan", BOTH(image.vlanPorts[27].accessVlan = 5000),
     BOTH(image.vlanPorts[27].accessVlan = 0)},
    {"vlan-range", "igmpVlans.inUse", BOTH(image.igmpVlans.inUse.set(0)), BOTH(image.igmpVlans.inUse.set(1))},
    {"vlan-duplicate", "tagVlans[3].id", BOTH(addVlan(image, 1, 7); addVlan(image, 2, 7)),
     BOTH(addVlan(image, 1, 7); addVlan(image, 2, 8))},
    {"vlan-missing", "vlanPorts[1].accessVlan", BOTH(image.vlanPorts[0].accessVlan = 9),
     BOTH(image.vlanPorts[0].accessVlan = 9; addVlan(image, 1, 9))},
    {"vlan-missing", "loopDetection.vlans[4]", BOTH(image.loopDetection.vlans[3] = 9),
     BOTH(image.loopDetection.vlans[3] = 1)},
    {"vlan-missing", "igmpVlans.inUse", BOTH(image.igmpVlans.inUse.set(9)), BOTH(image.igmpVlans.inUse.set(1))},
    {"vlan-missing", "acl[1].vlan", BOTH(image.acl[0].valid = 1; image.acl[0].vlan = 9; image.acl[0].match.set(1)),
     BOTH(image.acl[0].valid = 1; image.acl[0].vlan = 9; image.acl[0].match.set(2))},
    {"vlan-missing", "macTable[128].vlan", BOTH(image.macTable[127].inUse = 1; image.macTable[127].vlan = 9),
     BOTH(image.macTable[127].inUse = 1; image.macTable[127].vlan = 1)},
    {"management-vlan-missing", "tagVlans[1].members", BOTH(image.tagVlans[0].members.clear(cpuPort)),
     BOTH(addVlan(image, 1, 9); image.tagVlans[0].members.clear(cpuPort); image.tagVlans[1].members.set(cpuPort))},
    {"management-vlan-unreachable", "tagVlans[3].members",
     BOTH(addVlan(image, 2, 9); image.tagVlans[0].members.clear(cpuPort); image.tagVlans[2].members.set(cpuPort)),
     BOTH(addVlan(image, 2, 9); image.tagVlans[2].members.set(cpuPort))},

    {"member-range", "lldp.ports", BOTH(image.lldp.ports.set(28)), BOTH(image.lldp.ports.set(27))},
    {"member-range", "tagVlans[1].members", BOTH(image.tagVlans[0].members.set(29)),
     BOTH(image.tagVlans[0].members.set(28))},
    {"member-range", "trunks[14].members", BOTH(image.trunks[13].inUse = 1; image.trunks[13].members.set(63)),
     BOTH(image.trunks[13].members.set(63))},
    {"port-range", "mirror.destinationPort", BOTH(image.mirror.destinationSet = 1; image.mirror.destinationPort = 28),
     BOTH(image.mirror.destinationSet = 1; image.mirror.destinationPort = 27)},
    {"port-range", "mirror.destinationPort", BOTH(image.mirror.destinationSet = 1; image.mirror.destinationPort = 28),
     BOTH(image.mirror.destinationPort = 28)},
    {"port-range", "acl[2].actionPort",
     BOTH(image.acl[1].valid = 1; image.acl[1].action = 3; image.acl[1].actionPort = 28),
     BOTH(image.acl[1].valid = 1; image.acl[1].action = 1; image.acl[1].actionPort = 28)},

    {"mask-invalid", "ipv4.mask", BOTH((image.ipv4.mask = {{255, 0, 255, 0}})),
     BOTH((image.ipv4.mask = {{255, 255, 254, 0}}))},
    {"mask-invalid", "ipv4.mask", BOTH((image.ipv4.mask = {})), BOTH((image.ipv4.mask = {{128, 0, 0, 0}}))},
    {"mask-invalid", "ipv4.mask", BOTH((image.ipv4.mask = {})), BOTH((image.ipv4.mask = {}); image.ipv4.dhcpMode = 1)},
    {"host-invalid", "ipv4.address", BOTH((image.ipv4.address = {{192, 0, 2, 0}})),
     BOTH((image.ipv4.address = {{192, 0, 2, 1}}))},
    {"host-invalid", "ipv4.address", BOTH((image.ipv4.address = {{192, 0, 2, 255}})),
     BOTH((image.ipv4.address = {{192, 0, 2, 254}}))},
    {"host-invalid", "ipv4.address", BOTH((image.ipv4.address = {{224, 0, 0, 1}})),
     BOTH((image.ipv4.address = {{223, 255, 255, 1}}))},
    {"host-invalid", "ipv4.address", BOTH((image.ipv4.address = {{127, 0, 0, 1}})),
     BOTH((image.ipv4.address = {{126, 0, 0, 1}}))},
    {"host-invalid", "ipv4.address", BOTH((image.ipv4.address = {})),
     BOTH((image.ipv4.address = {}); image.ipv4.enabled = 0)},
    {"host-invalid", "ipv4.address",
     BOTH((image.ipv4.address = {{192, 0, 2, 4}}); (image.ipv4.mask = {{255, 255, 255, 252}})),
     BOTH((image.ipv4.address = {{192, 0, 2, 4}}); (image.ipv4.mask = {{255, 255, 255, 254}}))},

    {"segment-missing", "multicastProfiles[1].segments[10]",
     BOTH(image.multicastProfiles[0].valid = 1; image.multicastProfiles[0].segments[9] = 3;
          image.multicastSegments[399].id = 3),
     BOTH(image.multicastProfiles[0].valid = 1; image.multicastProfiles[0].segments[9] = 3;
          image.multicastSegments[399].id = 3; image.multicastSegments[399].valid = 1)},
    {"profile-missing", "portFilters.port[28].profile[4]", BOTH(image.portFilters.port[27].profile[3] = "tv"),
     BOTH(image.portFilters.port[27].profile[3] = "tv"; image.multicastProfiles[59].valid = 1;
          image.multicastProfiles[59].name = "tv")},
    {"profile-missing", "portFilters.port[1].profile[1]", BOTH(image.portFilters.port[0].profile[0] = ""),
     BOTH(image.portFilters.port[0].profile[0] = " ")},
    {"time-range-missing", "poePorts[24].scheduleName",
     BOTH(image.poePorts[23].scheduleName = "night"; image.timeRanges[9].name = "nigh"),
     BOTH(image.poePorts[23].scheduleName = "night"; image.timeRanges[9].name = "night")},

    {"never-written", "rateLimits.ingress[28]", BOTH(image.rateLimits.ingress[27] = 1),
     BOTH(image.rateLimits.ingress[27] = 2)},
    {"never-written", "rateLimits.egress[1]", BOTH(image.rateLimits.egress[0] = 1),
     BOTH(image.rateLimits.egress[0] = 9)},
    {"never-written", "priority.userPriority[3]", BOTH(image.priority.userPriority[2] = 9),
     BOTH(image.priority.userPriority[2] = 1)},
    {"never-written", "poePorts[24].budget", BOTH(image.poePorts[23].budget = 1), BOTH(image.poePorts[23].budget = -1)},
    {"never-written", "stpPorts.cost[4]", BOTH(image.stpPorts.cost[3] = -1), BOTH(image.stpPorts.cost[3] = 0)},
    {"never-written", "stpPorts.priority[4]", BOTH(image.stpPorts.priority[3] = -16),
     BOTH(image.stpPorts.priority[3] = 16)},

    {"not-recreated", "vlanMode", [](Records &r) { r.image.vlanMode = 1; }, BOTH(image.vlanMode = 1)},
    {"not-recreated", "company.systemName", [](Records &r) { r.image.company.systemName = ""; },
     [](Records &r) { r.image.company.systemName = "x"; }},
    {"not-recreated", "time.offset", [](Records &r) { r.defaults.time.offset = "a-b"; },
     [](Records &r) { r.image.time.offset = "a-b"; }},
    {"not-recreated", "vlanPorts[9].accessVlan", [](Records &r) { r.image.vlanPorts[8].accessVlan = 0; },
     [](Records &r) { r.defaults.vlanPorts[8].accessVlan = 0; }},
    {"not-recreated", "portFilters.port[2].profile[1]",
     [](Records &r) { r.defaults.portFilters.port[1].profile[0] = "tv"; },
     BOTH(image.multicastProfiles[0].valid = 1; image.multicastProfiles[0].name = "tv";
          image.portFilters.port[1].profile[&image == &records.image ? 3 : 0] = "tv")},
    {"not-recreated", "loopDetection.vlans[2]", [](Records &r) { r.defaults.loopDetection.vlans[1] = 1; },
     [](Records &r) { r.image.loopDetection.vlans[1] = 1; }},
    {"not-recreated", "backup.user", [](Records &r) { r.image.backup.user = "ftp"; },
     [](Records &r) {
         r.image.backup.user = "ftp";
         r.image.backup.protocol = 1;
     }},
    {"not-recreated", "backup.password", [](Records &r) { r.image.backup.password = "x"; },
     BOTH(image.backup.password = "x")},
    {"not-recreated", "tagVlans[2].name",
     [](Records &r) {
         addVlan(r.image, 1, 9);
         r.image.tagVlans[1].name = "";
     },
     BOTH(addVlan(image, 1, 9); image.tagVlans[1].name = "")},
    {"not-recreated", "tagVlans[3].id", [](Records &r) { addVlan(r.defaults, 2, 9); },
     [](Records &r) {
         addVlan(r.defaults, 2, 9);
         addVlan(r.image, 1, 9);
     }},
    {"not-recreated", "trunks[2].inUse",
     [](Records &r) {
         r.defaults.trunks[1].inUse = 1;
         r.defaults.trunks[1].name = "a";
     },
     BOTH(image.trunks[&image == &records.image ? 0 : 1].inUse = 1;
          image.trunks[&image == &records.image ? 0 : 1].name = "a")},
    {"not-recreated", "macTable[1].inUse",
     [](Records &r) {
         r.defaults.macTable[0].inUse = 1;
         r.defaults.macTable[0].vlan = 1;
     },
     BOTH(image.macTable[0].inUse = 1; image.macTable[0].vlan = 1)},
    {"not-recreated", "trapDestinations[2].inUse", [](Records &r) { r.defaults.trapDestinations[1].inUse = 1; },
     [](Records &r) { r.image.trapDestinations[1].inUse = 1; }},
    {"not-recreated", "sourceGuardTable[48].valid",
     [](Records &r) {
         r.defaults.sourceGuardTable[47].valid = 1;
         r.defaults.sourceGuardTable[47].vlan = 1;
     },
     BOTH(image.sourceGuardTable[47].valid = 1; image.sourceGuardTable[47].vlan = 1)},
    {"not-recreated", "sourceBindings[12].valid", [](Records &r) { r.defaults.sourceBindings[11].valid = 1; },
     BOTH(image.sourceBindings[11].valid = 1)},
    {"not-recreated", "multicastTable[3].valid", [](Records &r) { r.defaults.multicastTable[2].valid = 1; },
     BOTH(image.multicastTable[2].valid = 1; image.multicastTable[2].vlan = 1)},
    {"not-recreated", "multicastSegments[2].valid",
     [](Records &r) {
         r.defaults.multicastSegments[1].valid = 1;
         r.defaults.multicastSegments[1].id = 5;
     },
     BOTH(image.multicastSegments[1].valid = 1; image.multicastSegments[1].id = 5)},
    {"not-recreated", "multicastProfiles[1].valid",
     [](Records &r) {
         r.defaults.multicastProfiles[0].valid = 1;
         r.defaults.multicastProfiles[0].name = "a";
     },
     BOTH(image.multicastProfiles[0].valid = 1; image.multicastProfiles[0].name = "a")},
    {"not-recreated", "acl[1].valid",
     [](Records &r) {
         r.defaults.acl[0].valid = r.image.acl[0].valid = 1;
         r.defaults.acl[0].number = 3;
     },
     BOTH(image.acl[0].valid = 1; image.acl[0].number = 3)},
    {"not-recreated", "timeRanges[10].name", [](Records &r) { r.defaults.timeRanges[9].name = "a"; },
     BOTH(image.timeRanges[&image == &records.image ? 0 : 9].name = "a")},
    {"not-recreated", "igmpVlans.inUse", [](Records &r) { r.defaults.igmpVlans.inUse.set(1); },
     [](Records &r) { r.image.igmpVlans.inUse.set(1); }},

    {"bank-unknown", "platform.active_bank", [](Records &r) { r.input.bank = 3; },
     [](Records &r) { r.input.bank = 2; }},
    {"bank-unknown", "platform.active_bank", [](Records &r) { r.input.bank = 0; },
     [](Records &r) { r.input.bank = 1; }},
    {"text-too-long", "image", BOTH(longTexts(image, 2000)), BOTH(longTexts(image, 500))},
};

TEST(Check, EveryRuleHasRows) {
    std::set<std::string_view> named;
    for (const Row &row : table) {
        EXPECT_NE(findRule(row.rule), nullptr) << row.rule;
        named.insert(row.rule);
    }
    std::set<std::string_view> names;
    for (const Rule &rule : rules()) {
        EXPECT_TRUE(named.contains(rule.name)) << rule.name << " has no row";
        EXPECT_TRUE(names.insert(rule.name).second) << rule.name << " is there twice";
        EXPECT_FALSE(rule.description.empty()) << rule.name;
    }
}

TEST(Check, ARuleIsBrokenByItsRowAndNotBesideIt) {
    for (const Row &row : table) {
        const auto isMeant = [&](const Finding &finding) {
            return finding.rule->name == row.rule && finding.path == row.path;
        };
        Records broken;
        row.breaks(broken);
        const std::vector<Finding> findings = findingsOf(broken.input);
        EXPECT_GE(std::ranges::count_if(findings, isMeant), 1) << row.rule << ' ' << row.path << '\n'
                                                               << lines(findings);
        for (const Finding &finding : findings) {
            EXPECT_FALSE(finding.found.empty() || finding.expected.empty()) << row.rule;
            const bool hasOffset = leafOf(finding.path) && !finding.path.starts_with("platform.");
            EXPECT_EQ(finding.offset, hasOffset ? std::optional(leafOf(finding.path)->offset()) : std::nullopt)
                << finding.path;
        }
        EXPECT_EQ(std::ranges::count_if(findingsOf(broken.input, {.ignored = {row.rule}}), isMeant), 0) << row.rule;

        Records kept;
        row.keeps(kept);
        const std::vector<Finding> beside = findingsOf(kept.input);
        EXPECT_TRUE(std::ranges::none_of(beside, [&](const Finding &f) { return f.rule->name == row.rule; }))
            << row.rule << " beside " << row.path << '\n'
            << lines(beside);
    }
}

/// What the built-in store's images are found to have, on purpose: texts that the golden files hold depend on it.
/// - ports 27 and 28 have a description that fills its field, which is how a text without a NUL is tried;
/// - the VLAN mode differs from the default's, and one VLAN has no name, to show what the full text leaves out.
TEST(Check, TheBuiltInStoreHasTheFindingsThatAreMeant) {
    const std::string inService = "text-unterminated ports[27].description: \"aggregated link to floor 3 west wing\"\n"
                                  "text-unterminated ports[28].description: \"aggregated link to floor 3 west wing\"\n"
                                  "not-recreated vlanMode: 3 802.1Q with isolation\n"
                                  "not-recreated tagVlans[6].name: \"\"\n";
    EXPECT_EQ(lines(findingsOf(loadInput({.record = "builtin:running"}))), inService);
    EXPECT_EQ(lines(findingsOf(loadInput({.record = "builtin:startup"}))), inService);
    EXPECT_EQ(lines(findingsOf(loadInput({.record = "builtin:default"}))), "");
    EXPECT_EQ(lines(findingsOf(loadInput({.record = "builtin:customer_default"}))), "");
}

TEST(Check, AnInjectedLineIsShownAndMaskedInSecrets) {
    Records records;
    records.image.company.systemName = "a\nno user admin\r\x1b[2J";
    records.image.users[0].password = "x\nuser evil";
    const std::vector<Finding> masked = findingsOf(records.input);
    EXPECT_EQ(lines(masked), "text-injected-line company.systemName: the line \"no user admin\"\n"
                             "text-injected-line company.systemName: the line \"\\x1b[2J\"\n"
                             "text-control company.systemName: \"a\\x0ano user admin\\x0d\\x1b[2J\"\n"
                             "text-injected-line users[1].password: the line \"***\"\n");
    EXPECT_NE(lines(findingsOf(records.input, {.secrets = true})).find("the line \"user evil\""), std::string::npos);
    // A token in every secret, so that each is found to be too long, to have a control character and a second line.
    forEachLeaf(Part::image, [&](const Leaf &leaf) {
        if (leaf.field().kind != Kind::secret) return;
        unsigned char *const bytes = leaf.in(static_cast<void *>(&records.image));
        std::fill_n(bytes, leaf.size(), static_cast<unsigned char>('q'));
        std::memcpy(bytes, "TOKEN\x01\nTOKEN ", 13);
    });
    for (User &user : records.image.users) user.inUse = 1;
    for (Community &community : records.image.communities) community.inUse = 1;
    for (TrapDestination &destination : records.image.trapDestinations) destination.inUse = 1;
    const std::vector<Finding> findings = findingsOf(records.input);
    EXPECT_GE(findings.size(), 3 * 44U);
    for (const Finding &finding : findings) {
        EXPECT_EQ(finding.found.find("TOKEN"), std::string::npos) << finding.path;
        EXPECT_EQ(finding.expected.find("TOKEN"), std::string::npos) << finding.path;
    }
}

TEST(Check, ShiftsAreFoundWithTheirDistance) {
    for (const char *name : {"builtin:running", "builtin:default"})
        for (const int distance : {1, 2, 3, 4, 8, 64, 512, -1, -2, -4, -16, -1024}) {
            Input input = loadInput({.record = name});
            moveBytes(*input.image.value, distance);
            const std::vector<Finding> findings = findingsOf(input);
            const std::string bytes =
                std::to_string(std::abs(distance)) + (std::abs(distance) == 1 ? " byte " : " bytes ");
            EXPECT_EQ(lines(findings), "record-shifted image: everything lies " + bytes +
                                           (distance > 0 ? "after" : "before") + " its place\n")
                << name;
        }
}

TEST(Check, ByteOrdersAreToldApart) {
    const auto found = [](auto change) {
        Input input = loadInput({.record = "builtin:running"});
        change(*input.image.value);
        return lines(findingsOf(input));
    };
    EXPECT_EQ(found([](ConfigImage &image) { swapBytes(image, 2); }),
              "record-swapped image: the bytes of each half word swapped\n");
    EXPECT_EQ(found([](ConfigImage &image) { swapBytes(image, 4); }),
              "record-swapped image: the bytes of each word in reverse order\n");
    EXPECT_EQ(found([](ConfigImage &image) {
                  forEachLeaf(Part::image, [&](const Leaf &leaf) {
                      if (!leaf.field().type.starts_with("be")) return;
                      unsigned char *const bytes = leaf.in(static_cast<void *>(&image));
                      std::reverse(bytes, bytes + leaf.size());
                  });
              }),
              "record-swapped image: numbers with the least significant byte first\n");
}

TEST(Check, UnusedEntriesAreNotLookedInto) {
    Records records;
    std::mt19937 random(1);
    for (std::size_t i = 2; i < std::size(records.image.users); ++i) {
        unsigned char *const bytes = reinterpret_cast<unsigned char *>(&records.image.users[i]);
        for (std::size_t k = 0; k < sizeof(User); ++k) bytes[k] = static_cast<unsigned char>(random());
        records.image.users[i].inUse = 0;
    }
    EXPECT_EQ(lines(findingsOf(records.input)), "");
    records.image.users[9].inUse = 1;
    EXPECT_NE(lines(findingsOf(records.input)), "");
}

TEST(Check, WhatCannotBeCheckedIsSaid) {
    Records records;
    records.input.defaults = {};
    const auto notes = applyRules(records.input, {}, [](const Finding &) {});
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_TRUE(notes[0].starts_with("not-recreated: builtin:default: found no default.img")) << notes[0];
    EXPECT_TRUE(notes[1].starts_with("text-too-long: builtin:default: found no default.img")) << notes[1];
    EXPECT_TRUE(
        applyRules(records.input, {.ignored = {"not-recreated", "text-too-long"}}, [](const Finding &) {}).empty());
}

TEST(Check, RandomBytesArePutUpWith) {
    std::mt19937 random(20);
    const auto fill = [&](void *record, std::size_t from, std::size_t size) {
        unsigned char *const bytes = static_cast<unsigned char *>(record) + from;
        for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<unsigned char>(random());
    };
    std::size_t findings = 0;
    for (std::uint32_t round = 0; round < 4 * shareOf(10); ++round) {
        Records records;
        if (round % 4 == 0) {
            fill(&records.image, 0, sizeof records.image);
            fill(&records.defaults, 0, sizeof records.defaults);
        } else {
            const std::size_t from = random() % (sizeof records.image - 4096);
            fill(&records.image, from, 1 + random() % 4095);
        }
        fill(&records.board, 0, sizeof records.board);
        for (const Finding &finding : findingsOf(records.input, {.secrets = round % 2 == 0})) {
            ++findings;
            const auto isPrinted = [](const std::string &text) {
                return std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
            };
            ASSERT_TRUE(isPrinted(finding.found) && isPrinted(finding.expected)) << finding.path;
        }
    }
    EXPECT_GT(findings, 1000U);
}

} // namespace
