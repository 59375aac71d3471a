/// The workstation stand-in: the built-in store.
#include "host.h"

#include "platform/util.h"

namespace {

bool differ(const ConfigImage &a, const ConfigImage &b, const Section &section) {
    return std::memcmp(bytesOf(a, section.offset), bytesOf(b, section.offset), section.size) != 0;
}

std::vector<std::string> differing(std::int32_t a, std::int32_t b) {
    const auto first = composed(a);
    const auto second = composed(b);
    std::vector<std::string> names;
    for (const Section &section : imageSections)
        if (differ(*first, *second, section)) names.emplace_back(section.name);
    return names;
}

TEST(BuiltInStore, IsComposedWholeWhateverStoodThere) {
    for (std::int32_t selector = 0; selector < 4; ++selector) {
        auto image = std::make_unique<ConfigImage>();
        std::memset(image.get(), 0xa5, sizeof *image);
        factory::composeImage(selector, *image);
        EXPECT_TRUE(sameBytes(*image, *composed(selector))) << selector;
    }
    BoardRecord board;
    std::memset(&board, 0xa5, sizeof board);
    factory::composeBoard(board);
    EXPECT_EQ(board.boardType.value(), 5028U);
    EXPECT_TRUE(board.hasPoe());
    EXPECT_FALSE(board.hasBattery());
    EXPECT_FALSE(board.isType5027());
    const unsigned char mac[] = {0x00, 0x00, 0x5e, 0x00, 0x53, 0x01};
    EXPECT_EQ(std::memcmp(board.macAddress.octets, mac, sizeof mac), 0);
    EXPECT_EQ(std::string(board.versionOfBank1.characters, 10), std::string("V2.4.1\0\0\0\0", 10));
    EXPECT_EQ(std::string(board.versionOfBank2.characters, 10), std::string("V2.4.0\0\0\0\0", 10));
    EXPECT_EQ(board.reserved0.bytes[0], 0);
    EXPECT_EQ(board.reserved224.bytes[19], 0);
}

TEST(BuiltInStore, SelectorsNameTheImages) {
    const auto image = std::make_unique<ConfigImage>();
    factory::composeRunning(*image);
    EXPECT_TRUE(sameBytes(*image, *composed(MAPI_CONFIG_RUNNING)));
    factory::composeDefault(*image);
    EXPECT_TRUE(sameBytes(*image, *composed(MAPI_CONFIG_DEFAULT)));
    factory::composeStartup(*image);
    EXPECT_TRUE(sameBytes(*image, *composed(MAPI_CONFIG_STARTUP)));
    factory::composeCustomerDefault(*image);
    EXPECT_TRUE(sameBytes(*image, *composed(MAPI_CONFIG_CUSTOMER_DEFAULT)));
}

TEST(BuiltInStore, RunningDiffersFromTheDefaultInEverySection) {
    const auto running = composed(MAPI_CONFIG_RUNNING);
    const auto initial = composed(MAPI_CONFIG_DEFAULT);
    for (const Section &section : imageSections) EXPECT_TRUE(differ(*running, *initial, section)) << section.name;
}

TEST(BuiltInStore, StartupLagsAFewChangesBehindRunning) {
    EXPECT_EQ(differing(MAPI_CONFIG_STARTUP, MAPI_CONFIG_RUNNING),
              (std::vector<std::string>{"time", "console", "users", "ports", "vlanPorts", "tagVlans", "macLimit",
                                        "priority", "stpPorts", "acl", "poePorts"}));
}

TEST(BuiltInStore, TheCustomersDefaultIsADefaultWithPresets) {
    EXPECT_EQ(differing(MAPI_CONFIG_CUSTOMER_DEFAULT, MAPI_CONFIG_DEFAULT),
              (std::vector<std::string>{"time", "ipv4", "company", "service", "users", "tagVlans", "loopDetection",
                                        "communities", "log", "stpPorts"}));
}

/// Where in its table an entry is shows in no text of this store.
TEST(BuiltInStore, EntriesHaveTheirPlaces) {
    const auto image = composed(MAPI_CONFIG_STARTUP);
    EXPECT_STREQ("cleaning", image->timeRanges[2].name.characters);
    EXPECT_EQ(10, image->loopDetection.vlans[0].value());
    EXPECT_EQ(20, image->loopDetection.vlans[1].value());
    EXPECT_EQ(0x17, image->macTable[0].address.octets[5]);
    EXPECT_EQ(17, image->sourceGuardTable[0].address.octets[3]);
    EXPECT_EQ(1, image->acl[0].number.value());
    EXPECT_EQ(2, image->acl[1].number.value());
    EXPECT_EQ(128, image->acl[2].number.value());
    EXPECT_EQ(129, image->acl[3].number.value());
    EXPECT_EQ(0, image->acl[4].valid);
    EXPECT_EQ(130, image->acl[5].number.value());
    EXPECT_EQ(10, image->multicastSegments[2].id.value());
    EXPECT_EQ(1, image->multicastProfiles[0].segments[0].value());
    EXPECT_EQ(2, image->multicastProfiles[0].segments[1].value());
    EXPECT_EQ(10, image->multicastProfiles[1].segments[0].value());
    EXPECT_STREQ("watch", image->portFilters.port[0].profile[1].characters);
    EXPECT_STREQ(" ", image->portFilters.port[0].profile[2].characters);
    EXPECT_EQ(0xff, image->multicastTable[1].addressIpv6.octets[0]);
    EXPECT_STREQ("emergency", image->communities[2].name.characters);
    EXPECT_STREQ("trainee", composed(MAPI_CONFIG_RUNNING)->users[3].name.characters);
}

TEST(BuiltInStore, HoldsWhatItsTextsDoNotShow) {
    EXPECT_EQ(2, composed(MAPI_CONFIG_DEFAULT)->vlanMode);
    const auto ordered = composed(MAPI_CONFIG_CUSTOMER_DEFAULT);
    EXPECT_EQ(1, ordered->communities[0].level);
    EXPECT_EQ(0, ordered->communities[1].inUse);
    BoardRecord board;
    factory::composeBoard(board);
    EXPECT_EQ(0x100U, board.capabilities.value());
}

TEST(BuiltInStore, HoldsNothingThatNeverPrints) {
    for (std::int32_t selector = 0; selector < 4; ++selector) {
        const auto image = composed(selector);
        for (int i = 0; i < portCount; ++i) {
            EXPECT_NE(image->rateLimits.ingress[i].value(), 1U) << "port " << i + 1;
            EXPECT_NE(image->rateLimits.egress[i].value(), 1U) << "port " << i + 1;
            EXPECT_LE(image->priority.userPriority[i], 7) << "port " << i + 1;
            EXPECT_LE(image->vlanPorts[i].mode, 3) << "port " << i + 1;
            EXPECT_LE(image->sourceGuard[i], 2) << "port " << i + 1;
            EXPECT_LE(image->dot1x.portControl[i], 2) << "port " << i + 1;
        }
        for (const PoePort &port : image->poePorts) EXPECT_NE(port.budget.value(), 1);
        EXPECT_LE(image->storm.broadcast.value(), 21U);
        EXPECT_LE(image->storm.multicast.value(), 21U);
        EXPECT_LE(image->storm.unicast.value(), 21U);
    }
}

TEST(BuiltInStore, AnEmptyProfileSlotIsASingleBlank) {
    for (std::int32_t selector = 0; selector < 4; ++selector) {
        const auto image = composed(selector);
        int bound = 0;
        for (const PortFilter &filter : image->portFilters.port)
            for (const auto &profile : filter.profile) {
                EXPECT_FALSE(profile.empty());
                if (std::string(profile.characters) != " ") ++bound;
            }
        const bool service = selector == MAPI_CONFIG_RUNNING || selector == MAPI_CONFIG_STARTUP;
        EXPECT_EQ(bound, service ? 17 : 0);
    }
}

TEST(BuiltInStore, HasRulesOfBothFamilies) {
    const auto image = composed(MAPI_CONFIG_RUNNING);
    int ipv4Rules = 0;
    int ipv6Rules = 0;
    for (const AclRule &rule : image->acl) {
        if (rule.valid == 0) continue;
        const bool ipv4Bits = utilBitmapCheck(rule.match.bytes, AclMatch::sourceIpv4) != 0 ||
                              utilBitmapCheck(rule.match.bytes, AclMatch::destinationIpv4) != 0;
        const bool ipv6Bits = utilBitmapCheck(rule.match.bytes, AclMatch::sourceIpv6) != 0 ||
                              utilBitmapCheck(rule.match.bytes, AclMatch::destinationIpv6) != 0;
        (rule.isIpv6Rule() ? ipv6Rules : ipv4Rules)++;
        EXPECT_FALSE(rule.isIpv6Rule() ? ipv4Bits : ipv6Bits) << rule.number.value();
    }
    EXPECT_EQ(ipv4Rules, 3);
    EXPECT_EQ(ipv6Rules, 2);
}

TEST(BuiltInStore, HasOneManagementVlanInAPackedTable) {
    for (std::int32_t selector = 0; selector < 4; ++selector) {
        const auto image = composed(selector);
        int management = 0;
        bool ended = false;
        for (const TagVlan &vlan : image->tagVlans) {
            if (vlan.inUse == 0) ended = true;
            else EXPECT_FALSE(ended) << vlan.id.value();
            if (utilBitmapCheck(vlan.members.bytes, cpuPort) != 0) ++management;
        }
        EXPECT_EQ(management, 1) << selector;
    }
}

} // namespace
