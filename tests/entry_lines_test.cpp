/// Entries of tables: each line of a block follows its own field of its own entry.
#include "lines.h"

namespace {

/// Names a field of an entry: `ENTRY(users, index, level)`.
#define ENTRY(table, index, field)                                                                                     \
    [=](ConfigImage & image) -> auto & { return image.table[index].field; }

/// Texts in a field of `width` bytes, of which two differ in the last one that is compared.
template <class Get> FieldLine described(Get field, const std::string &prefix, std::size_t width,
                                         const std::string &none, const std::string &deltaNone) {
    const std::string longest = letters(width - 1);
    return text(field, {{"", none, deltaNone},
                        {"x", prefix + "x\n"},
                        {longest, prefix + longest + "\n"},
                        {longest + "1", prefix + longest + "1\n"},
                        {longest + "2", prefix + longest + "2\n"}});
}

// --------------------------------------------------------------------------------------------------------------- users

constexpr const char *users = "convConfigUser_mid_userauth_index_configure_user";

template <class Get> FieldLine level(Get field, const std::string &other) {
    return number(field, {{1, "level ro\n"},
                          {2, "level rw\n"},
                          {3, "level admin\n"},
                          {4, other},
                          {0x80, other},
                          {0x81, other},
                          {0xff, other}});
}

/// The level lies outside of the bytes that decide whether an account counts as changed.
FieldLine userLevel(std::size_t index) {
    FieldLine line = level(ENTRY(users, index, level), "not supported\n");
    line.opensEntry = false;
    return line;
}

/// Whether an account counts as changed is decided over the first 28 bytes of its description, too.
FieldLine userDescription(std::size_t index) {
    return text(ENTRY(users, index, description), {{"", "", "no description\n"},
                                                   {"x", "description x\n"},
                                                   {letters(27) + "1", "description " + letters(27) + "1\n"},
                                                   {letters(27) + "2", "description " + letters(27) + "2\n"},
                                                   {"y" + letters(47), "description y" + letters(47) + "\n"}});
}

FieldLineSet user(const char *name, std::size_t index) {
    return {name,
            users,
            [=](ConfigImage &image) {
                image.users[index].inUse = 1;
                image.users[index].name = "u";
            },
            {"user name u\n", "exit\n", "exit\n", false, "no user name u\n"},
            {described(ENTRY(users, index, password), "password ", 24, "", ""), userLevel(index),
             flag(ENTRY(users, index, active), "active\n", "no active\n"), userDescription(index)}};
}

FieldLineSet userWithMd5(const char *name, std::size_t index) {
    FieldLineSet set = user(name, index);
    set.given = [=](ConfigImage &image) {
        platform.passwordMethod = 1;
        image.users[index].inUse = 1;
        image.users[index].name = "u";
        image.users[index].password = "clear";
    };
    set.lines[0] = text(ENTRY(users, index, passwordMd5), {{"x", "password x\n"},
                                                           {letters(23), "password " + letters(23) + "\n"},
                                                           {letters(23) + "1", "password " + letters(23) + "1\n"},
                                                           {letters(23) + "2", "password " + letters(23) + "2\n"}});
    return set;
}

FIELD_LINES(Users, ({user("First", 0), user("Last", 9), userWithMd5("FirstMd5", 0), userWithMd5("LastMd5", 9)}));

// ---------------------------------------------------------------------------------------------------------------- SNMP

FieldLine communityLevel(std::size_t index) {
    FieldLine line = level(ENTRY(communities, index, level), "level unknown\n");
    line.values.emplace_back([=](ConfigImage &image) { image.communities[index].level = 0; }, "");
    return line;
}

FieldLineSet community(const char *name, std::size_t index) {
    return {name,
            "convConfigAgent_Agent_configure_snmp_server",
            [=](ConfigImage &image) {
                image.communities[index].inUse = 1;
                image.communities[index].name = "c";
            },
            {"snmp-server community c\n", "exit\n", "exit\n", false, "no snmp-server community c\n"},
            {flag(ENTRY(communities, index, active), "active\n", "no active\n"),
             described(ENTRY(communities, index, description), "description ", 36, "", ""), communityLevel(index)}};
}

FieldLineSet trapDestination(const char *name, std::size_t index, const std::string &number) {
    return {name,
            "convConfigTrapDest_TrapDest_configure_snmp_server",
            [=](ConfigImage &image) { image.trapDestinations[index].inUse = 1; },
            {"snmp-server trap-destination " + number + "\n", "exit\n", "exit\n"},
            {flag(ENTRY(trapDestinations, index, active), "active\n", "no active\n"),
             described(ENTRY(trapDestinations, index, community), "community ", 24, "", ""),
             address(ENTRY(trapDestinations, index, address), ENTRY(trapDestinations, index, addressIpv6), First::ipv4,
                     "destination ", "destination 0.0.0.0\n", "destination 0.0.0.0\n")}};
}

FIELD_LINES(Snmp, ({community("FirstCommunity", 0), community("LastCommunity", 9),
                    trapDestination("FirstTrapDestination", 0, "1"), trapDestination("LastTrapDestination", 9, "10")}));

// -------------------------------------------------------------------------------------------------- sources and groups

FieldLine bindingAddress(std::size_t index, const std::string &number) {
    const std::string on = "ip source binding " + number + " ip-address ";
    const std::string off = "no ip source binding " + number + " ip-address";
    FieldLine line({});
    const auto add = [&](const Ipv6 &octets, const std::string &full, const std::string &delta) {
        line.values.emplace_back([=](ConfigImage &image) { image.sourceBindings[index].address = octets; }, full,
                                 delta);
    };
    add({}, off + " \n", off + "\n");
    for (const Address &one : addresses) add(mapped(one.octets), on + one.text + " \n", on + one.text + "\n");
    for (const LongAddress &one : longAddresses) add(one.octets, on + one.text + " \n", on + one.text + "\n");
    return line;
}

FieldLine binding(std::size_t index, const std::string &number) {
    return flag(ENTRY(sourceBindings, index, enabled), "ip source binding " + number + "\n",
                "no ip source binding " + number + "\n");
}

FieldLineSet guardEntry(const char *name, std::size_t index) {
    const std::string none = "interface 3\nip sourceguard static-ip 0.0.0.0 vlan 7\nexit\n";
    return {name,
            "convConfigStaticIPTable_StaticIPTable_configure_interface_ip_sourceguard_static_ip",
            [=](ConfigImage &image) {
                image.sourceGuardTable[index].valid = 1;
                image.sourceGuardTable[index].port = 2;
                image.sourceGuardTable[index].vlan = 7;
            },
            {},
            {address(ENTRY(sourceGuardTable, index, address), ENTRY(sourceGuardTable, index, addressIpv6), First::ipv4,
                     "interface 3\nip sourceguard static-ip ", none, none, " vlan 7\nexit\n")}};
}

FieldLineSet groupEntry(const char *name, std::size_t index) {
    const std::string none = "interface 256\nip igmp static-multicast-ip 0.0.0.0 vlan 7\nexit\n";
    return {name,
            "convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip",
            [=](ConfigImage &image) {
                image.multicastTable[index].valid = 1;
                image.multicastTable[index].port = 255;
                image.multicastTable[index].vlan = 7;
            },
            {},
            {address(ENTRY(multicastTable, index, address), ENTRY(multicastTable, index, addressIpv6), First::ipv4,
                     "interface 256\nip igmp static-multicast-ip ", none, none, " vlan 7\nexit\n")}};
}

FieldLineSet macEntry(const char *name, std::size_t index) {
    FieldLine line({});
    const auto add = [&](const Mac &octets, const std::string &text) {
        line.values.emplace_back([=](ConfigImage &image) { image.macTable[index].address = octets; },
                                 "interface 3\nmac address-table static-mac " + text + " vlan 70000\nexit\n");
    };
    add({}, "00:00:00:00:00:00");
    add({{1, 0, 0, 0, 0, 0}}, "01:00:00:00:00:00");
    add({{0, 0x2a, 0, 0, 0, 0}}, "00:2A:00:00:00:00");
    add({{0, 0, 0, 0, 0, 9}}, "00:00:00:00:00:09");
    add({{2, 0x3b, 0, 0, 5, 9}}, "02:3B:00:00:05:09");
    add({{2, 0x3b, 0, 0xff, 5, 9}}, "02:3B:00:FF:05:09");
    return {name,
            "convConfigMacTable_MacTable_configure_interface_mac_address_table",
            [=](ConfigImage &image) {
                image.macTable[index].inUse = 1;
                image.macTable[index].port = 2;
                image.macTable[index].vlan = 70000;
            },
            {},
            {line}};
}

FIELD_LINES(Sources, ({guardEntry("FirstGuard", 0),
                       guardEntry("LastGuard", 47),
                       groupEntry("FirstGroup", 0),
                       groupEntry("LastGroup", 127),
                       macEntry("FirstMac", 0),
                       macEntry("LastMac", 127),
                       {"Bindings",
                        "convConfigSecurityIP_SecurityIP_configure_ip_source",
                        [](ConfigImage &image) {
                            for (const int entry : {0, 1, 11}) image.sourceBindings[entry].valid = 1;
                        },
                        {},
                        {bindingAddress(0, "1"), binding(0, "1"), bindingAddress(1, "2"), binding(1, "2"),
                         bindingAddress(11, "12"), binding(11, "12")}}}));

// ------------------------------------------------------------------------------------------------- segments, profiles

FieldLine range(std::size_t index) {
    FieldLine line({});
    const auto add = [&](const Ipv4 &first, const Ipv4 &last, const std::string &text) {
        line.values.emplace_back(
            [=](ConfigImage &image) {
                image.multicastSegments[index].first = first;
                image.multicastSegments[index].last = last;
            },
            text);
    };
    add({}, {}, "range 0.0.0.0 0.0.0.0\n");
    for (const Address &one : addresses) {
        add(one.octets, {}, "range " + std::string(one.text) + " 0.0.0.0\n");
        add({}, one.octets, "range 0.0.0.0 " + std::string(one.text) + "\n");
    }
    return line;
}

FieldLineSet segment(const char *name, std::size_t index) {
    return {name,
            "convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment",
            [=](ConfigImage &image) {
                image.multicastSegments[index].valid = 1;
                image.multicastSegments[index].id = 7;
            },
            {"ip igmp segment 7\n", "exit\n", "exit\n", true},
            {described(ENTRY(multicastSegments, index, name), "name ", 24, "name \n", "name \n"), range(index)}};
}

FieldLine slot(std::size_t index, std::size_t at) {
    return number(
        ENTRY(multicastProfiles, index, segments[at]),
        {{0, ""}, {7, "segment 7\n"}, {10, "segment 10\n"}, {300, "segment 300\n"}, {65535, "segment 65535\n"}});
}

FieldLineSet profile(const char *name, std::size_t index) {
    FieldLineSet set = {name,
                        "convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile",
                        [=](ConfigImage &image) {
                            image.multicastProfiles[index].valid = 1;
                            image.multicastProfiles[index].name = "p";
                        },
                        {"ip igmp profile p\n", "exit\n", "exit\n", true},
                        {}};
    for (std::size_t at = 0; at < 10; ++at) set.lines.push_back(slot(index, at));
    return set;
}

FIELD_LINES(IgmpTables, ({segment("FirstSegment", 0), segment("LastSegment", 399), profile("FirstProfile", 0),
                          profile("LastProfile", 59)}));

// --------------------------------------------------------------------------------------------------------- time ranges

constexpr const char *timeRanges = "convConfigTimeRangeConfig_TimeRangeConfig_configure_timerange";

template <class Get> FieldLine absolute(Get field, const std::string &prefix) {
    return text(field, {{"", ""},
                        {"08:00,7,1,2030", prefix + "08:00 07 jan 2030 \n", prefix + "08:00 07 jan 2030\n"},
                        {"18:30,17,12,99", prefix + "18:30 17 dec 99 \n", prefix + "18:30 17 dec 99\n"},
                        {"18:30,17,11,7", prefix + "18:30 17 nov 7 \n", prefix + "18:30 17 nov 7\n"},
                        {letters(23) + ",1,2,1000", prefix + letters(23) + " 01 feb 1000 \n",
                         prefix + letters(23) + " 01 feb 1000\n"},
                        {letters(23) + ",1,2,1001", prefix + letters(23) + " 01 feb 1001 \n",
                         prefix + letters(23) + " 01 feb 1001\n"}});
}

FieldLine periodic(std::size_t index, std::size_t k) {
    FieldLine line({});
    const auto add = [&](const char *start, const char *end, const std::string &words) {
        line.values.emplace_back(
            [=](ConfigImage &image) {
                image.timeRanges[index].periodic[k].start = start;
                image.timeRanges[index].periodic[k].end = end;
            },
            words.empty() ? "" : "periodic " + words + " \n", words.empty() ? "" : "periodic " + words + "\n");
    };
    add("", "", "");
    add("1,08:00", "5,17:00", "08:00 mon to 17:00 fri");
    add("1,08:00", "6,17:00", "08:00 mon to 17:00 sat");
    add("2,08:00", "5,17:00", "08:00 tue to 17:00 fri");
    add("3,abcdefghijklm1", "4,abcdefghijklm1", "abcdefghijklm1 wed to abcdefghijklm1 thu");
    add("3,abcdefghijklm2", "4,abcdefghijklm1", "abcdefghijklm2 wed to abcdefghijklm1 thu");
    add("3,abcdefghijklm1", "4,abcdefghijklm2", "abcdefghijklm1 wed to abcdefghijklm2 thu");
    return line;
}

/// Its weekdays are the same in both images: they do not count as a difference.
FieldLine periodicList(std::size_t index, std::size_t k, const std::string &days) {
    FieldLine line({});
    const auto add = [&](const char *start, const char *end, const std::string &text) {
        line.values.emplace_back(
            [=](ConfigImage &image) {
                image.timeRanges[index].list[k].start = start;
                image.timeRanges[index].list[k].end = end;
            },
            text);
    };
    add("", "", "");
    add("08:00", "", "periodic list 08:00 to  " + days + "\n");
    add("", "17:00", "periodic list  to 17:00 " + days + "\n");
    add("abcdefg1", "abcdefg1", "periodic list abcdefg1 to abcdefg1 " + days + "\n");
    add("abcdefg2", "abcdefg1", "periodic list abcdefg2 to abcdefg1 " + days + "\n");
    add("abcdefg1", "abcdefg2", "periodic list abcdefg1 to abcdefg2 " + days + "\n");
    return line;
}

FieldLineSet timeRange(const char *name, std::size_t index) {
    return {name,
            timeRanges,
            [=](ConfigImage &image) {
                TimeRange &entry = image.timeRanges[index];
                entry.name = "t";
                entry.list[0].weekdays.set(0).set(3);
                entry.list[1].weekdays.set(6);
            },
            {"time-range t\n", "exit \n", "exit\n"},
            {absolute(ENTRY(timeRanges, index, absoluteStart), "absolute start "),
             absolute(ENTRY(timeRanges, index, absoluteEnd), "absolute end "), periodic(index, 0), periodic(index, 1),
             periodicList(index, 0, "sun wed "), periodicList(index, 1, "sat ")}};
}

FIELD_LINES(TimeRanges, ({timeRange("First", 0), timeRange("Last", 9)}));

// -------------------------------------------------------------------------------------------------------- access rules

/// A field that a rule can match, off and on. Whether it takes part decides in delta mode, not what it is.
FieldLine match(std::size_t index, AclMatch::Bit bit, const Setter<void(AclRule &)> &store, const std::string &any,
                const std::string &deltaAny, const std::string &text, const std::string &deltaText) {
    return {{[=](ConfigImage &image) { image.acl[index].match.clear(bit); }, any, deltaAny},
            {[=](ConfigImage &image) {
                 image.acl[index].match.set(bit);
                 store(image.acl[index]);
             },
             text, deltaText}};
}
FieldLine match(std::size_t index, AclMatch::Bit bit, const Setter<void(AclRule &)> &store, const std::string &keyword,
                const std::string &text) {
    return match(index, bit, store, keyword + " any \n", keyword + " any\n", text, text);
}

FieldLine action(std::size_t index) {
    return number(ENTRY(acl, index, action), {{0, "action deny\n"},
                                              {1, "action permit\n"},
                                              {2, "action copy(mirror)\n"},
                                              {3, "action redirect\n"},
                                              {4, "action deny\n"},
                                              {0x80, "action deny\n"},
                                              {0x81, "action deny\n"},
                                              {0xff, "action deny\n"}});
}

FieldLineSet rule(const char *name, std::size_t index, bool ipv6) {
    const auto addressOf = [=](bool source) {
        const std::string keyword = source ? "source" : "destination";
        if (ipv6) {
            const auto bit = source ? AclMatch::sourceIpv6 : AclMatch::destinationIpv6;
            const auto store = [=](AclRule &entry) {
                (source ? entry.sourceIpv6
                        : entry.destinationIpv6) = {{0, 0, 0, 0, 0, 0, 7, 0, 0, 0, 0, 0, 0, 0, 0, 0}};
                (source ? entry.sourcePrefixLength : entry.destinationPrefixLength) = source ? 7 : 200;
            };
            return match(index, bit, store, keyword + "-ipv6",
                         keyword + "-ipv6 address 0:0:0:700:: " + (source ? "7" : "200") + "\n");
        }
        const auto bit = source ? AclMatch::sourceIpv4 : AclMatch::destinationIpv4;
        const auto store = [=](AclRule &entry) {
            (source ? entry.source : entry.destination) = {{0, 0, 0, 5}};
            (source ? entry.sourceMask : entry.destinationMask) = {{0, 255, 0, 3}};
        };
        return match(index, bit, store, keyword + "-ipv4", keyword + "-ipv4 address 0.0.0.5 0.255.0.3\n");
    };
    return {name,
            "convConfigACLControl_ACLControl_configure_acl",
            [=](ConfigImage &image) {
                image.acl[index].valid = 1;
                image.acl[index].number = ipv6 ? 129 : 7;
            },
            {ipv6 ? "acl 129\n" : "acl 7\n", "apply\nexit\n", "apply\nexit\n", true},
            {action(index),
             number(ENTRY(acl, index, actionPort),
                    {{0, "action-port 1 \n"}, {9, "action-port 10 \n"}, {255, "action-port 256 \n"}}),
             addressOf(false),
             match(
                 index, AclMatch::destinationL4Port,
                 [](AclRule &entry) {
                     entry.destinationL4Port = 7;
                     entry.destinationL4Mask[1] = 0x0a;
                 },
                 "destination-l4-port", "destination-l4-port 7 0x000A\n"),
             match(
                 index, AclMatch::destinationMac,
                 [](AclRule &entry) {
                     entry.destinationMac = {{0, 1, 0, 0x2b, 0, 9}};
                     entry.destinationMacMask = {{0xff, 0, 0xff, 0, 1, 0}};
                 },
                 "destination-mac", "destination-mac mac 00:01:00:2B:00:09 FF:00:FF:00:01:00\n"),
             match(
                 index, AclMatch::etherType,
                 [](AclRule &entry) {
                     entry.etherType[0] = 0x0b;
                     entry.etherType[1] = 1;
                 },
                 "ethertype any \n", "ethertype any\n", "ethertype 0x0B01 \n", "ethertype 0x0B01\n"),
             match(
                 index, AclMatch::ingressPort, [](AclRule &entry) { entry.ingressPorts.set(0).set(27); },
                 "ingress-port", "ingress-port 1,28 \n"),
             match(
                 index, AclMatch::protocol, [](AclRule &entry) { entry.protocol = "6"; }, "protocol any \n",
                 "protocol any \n", "protocol 0x6 \n", "protocol 0x6 \n"),
             number(ENTRY(acl, index, rateLimit), {{0, "no rate-limit \n", "no rate-limit\n"},
                                                   {7, "rate-limit 7 \n", "rate-limit 7\n"},
                                                   {300, "rate-limit 300 \n", "rate-limit 300\n"},
                                                   {0x100, "rate-limit 256 \n", "rate-limit 256\n"},
                                                   {0x1000000, "rate-limit 16777216 \n", "rate-limit 16777216\n"},
                                                   {-7, "rate-limit -7 \n", "rate-limit -7\n"}}),
             addressOf(true),
             match(
                 index, AclMatch::sourceL4Port,
                 [](AclRule &entry) {
                     entry.sourceL4Port = 65535;
                     entry.sourceL4Mask[0] = 0xf0;
                 },
                 "source-l4-port", "source-l4-port 65535 0xF000\n"),
             match(
                 index, AclMatch::sourceMac,
                 [](AclRule &entry) {
                     entry.sourceMac = {{2, 0, 0, 0, 0, 0x1c}};
                     entry.sourceMacMask = {{0, 0, 0, 0, 0, 0xff}};
                 },
                 "source-mac", "source-mac mac 02:00:00:00:00:1C 00:00:00:00:00:FF\n"),
             match(
                 index, AclMatch::tos, [](AclRule &entry) { entry.tos = "a"; }, "tos", "tos 0xa\n"),
             match(
                 index, AclMatch::vlanId, [](AclRule &entry) { entry.vlan = 7; }, "vid any \n", "vid any\n", "vid 7 \n",
                 "vid 7\n")}};
}

FIELD_LINES(AccessRules, ({rule("FirstIpv4", 0, false), rule("LastIpv4", 191, false), rule("FirstIpv6", 0, true),
                           rule("LastIpv6", 191, true)}));

} // namespace
