/// A platform that writes its texts otherwise than the stand-in, or answers otherwise: what it is asked, in which
/// order, and what becomes of its answers.
#include "rows.h"

#include "format/address.h"
#include "format/port_set.h"

#include <cstring>
#include <vector>

namespace {

class OtherPlatform : public testing::Test {
protected:
    void TearDown() override { platform.reset(); }
};

/// The text of an emitter whose images are as `given` leaves them, on a platform that `given` changes.
std::string textOfStep(Mode mode, const char *emitter, const std::function<void()> &given) {
    resetAll();
    given();
    callStep(mode, emitter);
    return Temp_Configuration;
}

constexpr const char *acl = "convConfigACLControl_ACLControl_configure_acl";

/// A rule with its number that takes part by `field` alone.
AclRule &addRule(std::size_t at, std::int32_t number, AclMatch::Bit field) {
    AclRule &rule = gSysConfig->acl[at];
    rule.valid = 1;
    rule.number = number;
    rule.match.set(field);
    return rule;
}

/// Nothing is written for an empty set: what was there before stays.
void leaveTheTextOfNoPort(const unsigned char *bitmap, char *text) {
    if ((bitmap[0] | bitmap[1] | bitmap[2] | bitmap[3]) != 0) std::strcpy(text, "some");
}

TEST_F(OtherPlatform, RulesShareTheTextOfTheirPorts) {
    const auto given = [] {
        platform.portListText = leaveTheTextOfNoPort;
        addRule(0, 1, AclMatch::ingressPort);
        addRule(1, 2, AclMatch::ingressPort).ingressPorts.set(4);
        addRule(2, 3, AclMatch::ingressPort);
    };
    EXPECT_EQ("acl 1\ningress-port  \napply\nexit\n"
              "acl 2\ningress-port some \napply\nexit\n"
              "acl 3\ningress-port some \napply\nexit\n",
              textOfStep(Mode::delta, acl, given));
    const std::string before = "action deny\naction-port 1 \ndestination-ipv4 any \ndestination-l4-port any \n"
                               "destination-mac any \nethertype any \n";
    const std::string after = "protocol any \nno rate-limit \nsource-ipv4 any \nsource-l4-port any \n"
                              "source-mac any \ntos any \nvid any \napply\nexit\n";
    EXPECT_EQ("acl 1\n" + before + "ingress-port  \n" + after + "acl 2\n" + before + "ingress-port some \n" + after +
                  "acl 3\n" + before + "ingress-port some \n" + after,
              textOfStep(Mode::full, acl, given));
}

TEST_F(OtherPlatform, HexadecimalTextsMayBeLonger) {
    const auto given = [] {
        platform.digitsText = [](const unsigned char *bytes) {
            return bytes[0] == 0x08 ? "(ethertype in thirty-one signs)" : "ff:f0";
        };
        const u8 type[2] = {0x08, 0x00};
        std::memcpy(addRule(0, 1, AclMatch::etherType).etherType, type, 2);
        addRule(1, 2, AclMatch::sourceL4Port).sourceL4Port = 80;
        addRule(2, 3, AclMatch::destinationL4Port).destinationL4Port = 443;
    };
    EXPECT_EQ("acl 1\nethertype 0x(ethertype in thirty-one signs)\napply\nexit\n"
              "acl 2\nsource-l4-port 80 0xff:f0\napply\nexit\n"
              "acl 3\ndestination-l4-port 443 0xff:f0\napply\nexit\n",
              textOfStep(Mode::delta, acl, given));
}

/// The addresses are numbered in the order in which the platform is asked for them.
void numberTheAddresses() {
    platform.addressText = [asked = 0](const unsigned char *) mutable { return "v4-" + std::to_string(++asked); };
    platform.ipv6Text = [asked = 0](const unsigned char *) mutable { return "v6-" + std::to_string(++asked); };
}

TEST_F(OtherPlatform, IsAskedForAddressesInTheOrderOfTheLine) {
    const auto ipv4 = [] { numberTheAddresses(); };
    EXPECT_EQ("no ip address dhcp\nip address v4-1 v4-2 v4-3\nno ip enable\n",
              textOfStep(Mode::full, "convConfigNetConfig_mid_sys_netcfg_ipv4_configure_ip", ipv4));
    EXPECT_EQ("no ipv6 enable\nno ipv6 address autoconfig\nipv6 address link-local v6-1/0\n"
              "ipv6 address global v6-2/0 v6-3\nno ipv6 address dhcp rapid-commit\nno ipv6 address dhcp\n",
              textOfStep(Mode::full, "convConfigNetConfig_mid_sys_netcfg_ipv6_configure_ipv6", ipv4));
    const auto rules = [] {
        numberTheAddresses();
        addRule(0, 1, AclMatch::destinationIpv4).match.set(AclMatch::sourceIpv4);
    };
    EXPECT_EQ("acl 1\ndestination-ipv4 address v4-1 v4-2\nsource-ipv4 address v4-3 v4-4\napply\nexit\n",
              textOfStep(Mode::delta, acl, rules));
}

TEST_F(OtherPlatform, IsAskedForTheCurrentAddressFirst) {
    std::vector<const unsigned char *> asked;
    textOfStep(Mode::delta, "convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment", [&] {
        gSysConfig->multicastSegments[0].valid = 1;
        platform.addressText = [&](const unsigned char *octets) {
            asked.push_back(octets);
            return std::to_string(asked.size());
        };
    });
    const MulticastSegment &current = gSysConfig->multicastSegments[0];
    const MulticastSegment &initial = gDefConfig->multicastSegments[0];
    // The first addresses differ, so the last ones are not compared.
    EXPECT_EQ((std::vector<const unsigned char *>{current.first.octets, initial.first.octets, current.first.octets,
                                                  current.last.octets}),
              asked);
    EXPECT_STREQ("ip igmp segment 0\nrange 3 4\nexit\n", Temp_Configuration);
}

TEST_F(OtherPlatform, ReadsMappedAddressesInTheImage) {
    std::vector<const unsigned char *> asked;
    textOfStep(Mode::full, "convConfigSKAConfig2_SKAConfig2_configure_ip", [&] {
        platform.addressText = [&](const unsigned char *octets) {
            asked.push_back(octets);
            return std::string("0.0.0.0");
        };
    });
    const auto &servers = gSysConfig->dhcpSnooping.servers;
    EXPECT_EQ((std::vector<const unsigned char *>{servers[0].octets + 12, servers[1].octets + 12,
                                                  servers[2].octets + 12, servers[3].octets + 12}),
              asked);
}

TEST_F(OtherPlatform, AnAnswerSetsNoOtherPort) {
    resetAll();
    std::vector<int> asked;
    platform.bitAnswer = [&](const unsigned char *, int bit) {
        asked.push_back(bit);
        return bit == 0 || bit == 27 ? 1 : bit == 5 ? 2 : bit == 9 ? 0x40000000 : 0;
    };
    const PortBitmap bitmap = {};
    EXPECT_EQ(0x08000001U, portsIn(bitmap).bits);
    ASSERT_EQ(28U, asked.size());
    for (int bit = 0; bit < 28; ++bit) EXPECT_EQ(bit, asked[static_cast<std::size_t>(bit)]);
}

TEST_F(OtherPlatform, MayChangeSetsByWords) {
    EXPECT_EQ(0U, alignof(decltype(complementOf(PortBitmap{}))) % alignof(std::uint32_t));
}

} // namespace
