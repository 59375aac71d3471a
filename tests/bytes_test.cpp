/// Texts of the record are the operator's: control characters, quotes, percent signs and bytes beyond ASCII come out
/// byte for byte, whatever a terminal or a format would make of them.
#include "rows.h"

#include "app/drivers.h"

#include <cstring>
#include <utility>

namespace {

/// Fits every field that holds a name.
#define AWKWARD "%s%n\t\x01\"'\\\n\x7f\x80\xff%"

/// Every text field of the record, where one of them has a line. Of defaults those whose entries are removed.
void compose(ConfigImage &current, ConfigImage &defaults) {
    g_EEPROM.capabilities = 0x100; // Power over Ethernet
    constexpr const char *text = AWKWARD;

    current.company.companyName = text;
    current.company.systemContact = text;
    current.company.systemName = text;
    current.company.systemLocation = text;
    current.company.hostName = text;
    current.company.dhcpVendorId = text;
    User &user = current.users[0];
    user.inUse = 1;
    user.name = text;
    user.password = text;
    user.description = text;
    defaults.users[1].inUse = 1;
    defaults.users[1].name = text;
    current.ports[0].description = text;
    PortVlan &portVlan = current.portVlans[0];
    portVlan.inUse = 1;
    portVlan.name = text;
    portVlan.members.set(0).set(cpuPort);
    defaults.portVlans[1].inUse = 1;
    defaults.portVlans[1].name = text;
    current.tagVlans[0].inUse = 1;
    current.tagVlans[0].name = text;
    TrunkGroup &trunk = current.trunks[0];
    trunk.inUse = 1;
    trunk.name = text;
    trunk.members.set(0);
    Community &community = current.communities[0];
    community.inUse = 1;
    community.name = text;
    community.description = text;
    defaults.communities[1].inUse = 1;
    defaults.communities[1].name = text;
    current.trapDestinations[0].inUse = 1;
    current.trapDestinations[0].community = text;
    current.radius.secret = text;
    current.tacacs.secret = text;
    current.circuitIds.text[0] = text;
    current.circuitIds.remoteId = text;
    current.multicastSegments[0].valid = 1;
    current.multicastSegments[0].name = text;
    current.multicastProfiles[0].valid = 1;
    current.multicastProfiles[0].name = text;
    current.portFilters.port[0].profile[0] = text;
    current.dot1x.secret = text;
    current.poePorts[0].deviceName = text;
    current.poePorts[0].scheduleName = text;
    current.backup.protocol = 1;
    current.backup.path = text;
    current.backup.user = text;
    current.backup.password = text;
    current.timeRanges[0].name = text;

    // Fields that are too narrow for it, or are taken apart.
    AclRule &rule = current.acl[0];
    rule.valid = 1;
    rule.match.set(AclMatch::protocol).set(AclMatch::tos);
    rule.protocol = "\n\"%";
    rule.tos = "\x01%\xff";
    TimeRange &range = current.timeRanges[0];
    range.absoluteStart = "%d\x01\",1,2,3";
    range.absoluteEnd = "\x80\n%,4,5,6";
    range.periodic[0].start = "1,%n\xff";
    range.periodic[0].end = "2,\"\t";
    range.list[0].start = "%s\x01\"\xff\n'\\";
    range.list[0].end = "%n%n%n%n";
    current.time.offset = "%n\x01\"ab-\xff%s\ncd";
}

struct Expected {
    std::string line;
    int times;
};

std::vector<Expected> linesOf(Mode mode) {
    std::vector<Expected> lines = {
        {"switch-info company-name " AWKWARD "\n", 1},
        {"switch-info system-contact " AWKWARD "\n", 1},
        {"switch-info system-name " AWKWARD "\n", 1},
        {"switch-info system-location " AWKWARD "\n", 1},
        {"switch-info host-name " AWKWARD "\n", 1},
        {"switch-info dhcp-vendor-id " AWKWARD "\n", 1},
        {"user name " AWKWARD "\n", 1},
        {"password " AWKWARD "\n", 1},
        {"no user name " AWKWARD "\n", 1},
        {"description " AWKWARD "\n", 2},  // of the user, of the community
        {"description " AWKWARD " \n", 1}, // of the port
        {"vlan port-based " AWKWARD "\n", 2},
        {"no vlan port-based " AWKWARD "\n", 1},
        {"name " AWKWARD "\n", 2}, // of the VLAN, of the segment
        {"channel-group trunking " AWKWARD "\n", 2},
        {"snmp-server community " AWKWARD "\n", 1},
        {"no snmp-server community " AWKWARD "\n", 1},
        {"community " AWKWARD "\n", 1},
        {"user radius secret " AWKWARD "\n", 1},
        {"user tacacs secret " AWKWARD "\n", 1},
        {"ip dhcp snooping remote id " AWKWARD "\n", 1},
        {"ip igmp profile " AWKWARD "\n", 1},
        {"ip igmp filter profile " AWKWARD "\n", 1},
        {"dot1x secret " AWKWARD "\n", 1},
        {"poe pdname " AWKWARD " \n", 1},
        {"archive auto-backup path ftp 0.0.0.0 " AWKWARD " " AWKWARD " " AWKWARD "\n", 1},
        {"time-range " AWKWARD "\n", 1},
        {"protocol 0x\n\"% \n", 1},
        {"tos 0x\x01%\xff\n", 1},
        {"periodic list %s\x01\"\xff\n'\\ to %n%n%n%n \n", 1},
        {"ntp offset %n\x01\"-\xff%s\n\n", 1},
    };
    const std::vector<Expected> inFull = {
        {"vlan port-based " AWKWARD " include-cpu \n", 1},
        {"ip dhcp snooping circuit id " AWKWARD " \n", 1},
        {"poe schedule " AWKWARD " \n", 1},
        {"absolute start %d\x01\" 01 feb 3 \n", 1},
        {"absolute end \x80\n% 04 may 6 \n", 1},
        {"periodic %n\xff mon to \"\t tue \n", 1},
    };
    const std::vector<Expected> inDelta = {
        {"vlan port-based " AWKWARD " include-cpu\n", 1},
        {"ip dhcp snooping circuit id " AWKWARD "\n", 1},
        {"poe schedule " AWKWARD "\n", 1},
        {"absolute start %d\x01\" 01 feb 3\n", 1},
        {"absolute end \x80\n% 04 may 6\n", 1},
        {"periodic %n\xff mon to \"\t tue\n", 1},
    };
    const std::vector<Expected> &further = mode == Mode::full ? inFull : inDelta;
    lines.insert(lines.end(), further.begin(), further.end());
    return lines;
}

int timesIn(const std::string &text, const std::string &part) {
    int times = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; ++at) ++times;
    return times;
}

class Bytes : public testing::TestWithParam<Mode> {};

TEST_P(Bytes, OfEveryTextAreWrittenAsTheyAre) {
    const std::string page = renderPage(GetParam(), compose);
    int inLines = 0;
    for (const auto &[line, times] : linesOf(GetParam())) {
        EXPECT_EQ(times, timesIn(page, "\n" + line)) << line;
        inLines += times * timesIn(line, AWKWARD);
    }
    EXPECT_EQ(inLines, timesIn(page, AWKWARD)) << "in these lines and in no other";
    EXPECT_FALSE(textOverflowed());
}

TEST_P(Bytes, OfAnMd5PasswordAreWrittenAsTheyAre) {
    const auto stored = [](ConfigImage &current, ConfigImage &) {
        platform.passwordMethod = 1;
        current.users[0].inUse = 1;
        current.users[0].password = "clear";
        current.users[0].passwordMd5 = AWKWARD;
    };
    EXPECT_EQ(1, timesIn(renderPage(GetParam(), stored), "\npassword " AWKWARD "\n"));

    std::string handedOver;
    const auto made = [&handedOver](ConfigImage &current, ConfigImage &) {
        platform.passwordMethod = 1;
        platform.md5 = [&handedOver](const char *password, char *md5) {
            handedOver = password;
            std::strcpy(md5, AWKWARD);
        };
        current.users[0].inUse = 1;
        current.users[0].password = AWKWARD;
    };
    EXPECT_EQ(1, timesIn(renderPage(GetParam(), made), "\npassword " AWKWARD "\n"));
    EXPECT_EQ(AWKWARD, handedOver);
}

TEST_P(Bytes, OfTheVersionAreWrittenAsTheyAre) {
    resetAll();
    g_EEPROM.versionOfBank1 = "%s\n\x01\"\xff%n\t\x80";
    if (GetParam() == Mode::full) convConfig();
    else convDeltaConfig();
    const std::string head = "# VERSION 5036 6000 %s\n\x01\"\xff%n\t\x80 MAC 00:00:00:00:00:00\nconfigure\n";
    EXPECT_EQ(head, std::string(Temp_Configuration).substr(0, head.size()));
}

INSTANTIATE_TEST_SUITE_P(Modes, Bytes, testing::Values(Mode::full, Mode::delta),
                         [](const auto &mode) { return std::string(mode.param == Mode::full ? "full" : "delta"); });

} // namespace
