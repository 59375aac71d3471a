/// The list of fields: it covers the records, and paths, offsets and patterns name the same leaves.
#include "inspect/fields.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <memory>

namespace {

using namespace inspect;

std::size_t offsetOf(const char *path) {
    const std::optional<Leaf> leaf = leafOf(path);
    return leaf ? leaf->offset() : SIZE_MAX;
}

TEST(Fields, LeavesFollowEachOtherFromTheFirstByteToTheLast) {
    for (const Part part : parts) {
        std::size_t end = 0;
        forEachLeaf(part, [&](const Leaf &leaf) {
            ASSERT_EQ(leaf.offset(), end) << leaf.path();
            end += leaf.size();
        });
        EXPECT_EQ(end, recordOf(part).size);
    }
    EXPECT_EQ(recordOf(Part::image).size, 262144U);
    EXPECT_EQ(recordOf(Part::board).size, 244U);
}

TEST(Fields, EveryLeafIsFoundByItsPathAndByItsBytes) {
    for (const Part part : parts)
        forEachLeaf(part, [&](const Leaf &leaf) {
            const std::optional<Leaf> byPath = leafOf(leaf.path());
            ASSERT_TRUE(byPath && *byPath == leaf) << leaf.path();
            for (const std::size_t byte : {leaf.offset(), leaf.offset() + leaf.size() - 1}) {
                const std::optional<Leaf> byOffset = leafAt(part, byte);
                ASSERT_TRUE(byOffset && *byOffset == leaf) << leaf.path();
            }
        });
}

TEST(Fields, TablesAreNumberedAsPeopleNumberThem) {
    EXPECT_EQ(offsetOf("ports[1].speed"), 4776U + 12);
    EXPECT_EQ(offsetOf("ports[28].speed"), 4776U + 27 * 76 + 12);
    EXPECT_EQ(offsetOf("users[1].name"), 1724U + 4);
    EXPECT_EQ(offsetOf("users[10].name"), 1724U + 9 * 152 + 4);
    EXPECT_EQ(offsetOf("igmpVlans.vlan[30].querier"), 129656U + 514 + 30 * 4 + 3);
    EXPECT_EQ(offsetOf("priority.queueOfDscp[0]"), 128284U + 45);
    EXPECT_EQ(offsetOf("priority.queueOfDscp[63]"), 128284U + 45 + 63);
    EXPECT_EQ(offsetOf("priority.queueOf8021p[7]"), 128284U + 37 + 7);
    EXPECT_EQ(offsetOf("lacp.enabled[1]"), 121028U + 4);
    EXPECT_EQ(offsetOf("remarking.dscp[8].newDscp"), 129356U + 36 + 7 * 4 + 3);
    EXPECT_EQ(offsetOf("timeRanges[2].list[1].weekdays"), 202992U + 204 + 128);
    EXPECT_EQ(offsetOf("vlanMode"), 7856U);
    EXPECT_EQ(offsetOf("board.macAddress"), 168U);
    EXPECT_EQ(offsetOf("platform.password_encryption"), 4U);
}

TEST(Fields, WhatIsNoPathIsNotFound) {
    for (const char *path : {"", "ports", "ports[3]", "ports[0].speed", "ports[29].speed", "ports[03].speed",
                             "ports[].speed", "ports[3.speed", "ports[3]speed", "ports[3].", "ports.speed",
                             "vlanMode[1]", "vlanMode.x", "priority.queueOfDscp[64]", "igmpVlans.vlan[4095].querier",
                             "ports[3].speed.x", "ports[18446744073709551617].speed", "board", "speed"})
        EXPECT_FALSE(leafOf(path)) << path;
    EXPECT_FALSE(leafAt(Part::image, 262144));
    EXPECT_FALSE(leafAt(Part::board, 244));
}

TEST(Fields, PlacesAreThoseOfTheImage) {
    const auto image = std::make_unique<ConfigImage>();
    std::memset(image.get(), 0, sizeof *image);
    image->acl[191].rateLimit = 0x01020304;
    image->timeRanges[9].periodic[1].end = "5,08:00";
    const auto bytesAt = [&](const char *path) {
        const std::optional<Leaf> leaf = leafOf(path);
        return std::string(reinterpret_cast<const char *>(leaf->in(image.get())), leaf->size());
    };
    EXPECT_EQ(bytesAt("acl[192].rateLimit"), std::string("\1\2\3\4"));
    EXPECT_EQ(bytesAt("timeRanges[10].periodic[2].end"), std::string("5,08:00\0\0\0\0\0\0\0\0\0", 16));
}

TEST(Fields, SecretsAreThoseThatNotEverybodyMayRead) {
    std::vector<std::string> found;
    forEachLeaf(Part::image, [&](const Leaf &leaf) {
        const std::string path = leaf.path();
        const bool isLater = path.find('[') != std::string::npos && path.find("[1]") == std::string::npos;
        if (leaf.field().kind == Kind::secret && !isLater) found.push_back(path);
    });
    const std::vector<std::string> expected = {
        "users[1].password", "users[1].passwordMd5", "communities[1].name", "trapDestinations[1].community",
        "radius.secret",     "dot1x.secret",         "tacacs.secret",       "backup.user",
        "backup.password"};
    EXPECT_EQ(found, expected);
}

TEST(Fields, UnusedEntriesOfTablesAreKnown) {
    const auto image = std::make_unique<ConfigImage>();
    std::memset(image.get(), 0, sizeof *image);
    const auto used = [&](const char *path) { return isInUse(*leafOf(path), image.get()); };
    EXPECT_TRUE(used("ports[3].speed"));
    EXPECT_TRUE(used("time.ntpEnabled"));
    for (const char *path : {"users[2].level", "trunks[14].name", "timeRanges[1].periodic[1].start", "acl[1].valid",
                             "igmpVlans.vlan[30].snooping", "multicastProfiles[60].segments[1]"})
        EXPECT_FALSE(used(path)) << path;
    image->users[1].inUse = 2;
    image->trunks[13].inUse = 0x100;
    image->timeRanges[0].name = "x";
    image->acl[0].valid = 1;
    image->igmpVlans.inUse.set(30);
    image->multicastProfiles[59].valid = 1;
    for (const char *path : {"users[2].level", "trunks[14].name", "timeRanges[1].periodic[1].start", "acl[1].valid",
                             "igmpVlans.vlan[30].snooping", "multicastProfiles[60].segments[1]"})
        EXPECT_TRUE(used(path)) << path;
    EXPECT_FALSE(used("users[1].level"));
    EXPECT_FALSE(used("igmpVlans.vlan[29].snooping"));
    EXPECT_FALSE(used("igmpVlans.vlan[31].snooping"));
}

TEST(Fields, PatternsMatchWholePathsAndFrontsOfThem) {
    const auto matches = [](const char *pattern, const char *path) { return PathPattern(pattern).matches(path); };
    EXPECT_TRUE(matches("ports[3].speed", "ports[3].speed"));
    EXPECT_FALSE(matches("ports[3].speed", "ports3.speed"));
    EXPECT_TRUE(matches("ports[*].speed", "ports[13].speed"));
    EXPECT_FALSE(matches("ports[?].speed", "ports[13].speed"));
    EXPECT_TRUE(matches("*.speed", "ports[13].speed"));
    EXPECT_TRUE(matches("ports", "ports[13].speed"));
    EXPECT_TRUE(matches("ports[13]", "ports[13].speed"));
    EXPECT_TRUE(matches("port?", "ports[13].speed"));
    EXPECT_FALSE(matches("port", "ports[13].speed"));
    EXPECT_FALSE(matches("ports[1", "ports[13].speed"));
    EXPECT_TRUE(matches("time*[2]", "timeRanges[2].list[1].weekdays"));
    EXPECT_FALSE(matches("", "vlanMode"));
}

TEST(Fields, AWalkIsCheap) {
    // Some 30,000 leaves. The bound is wide: it notices a walk that makes a path for each.
    const auto start = std::chrono::steady_clock::now();
    std::size_t count = 0;
    forEachLeaf(Part::image, [&](const Leaf &leaf) { count += leaf.size() != 0; });
    const auto took = std::chrono::steady_clock::now() - start;
    EXPECT_GT(count, 25000U);
    EXPECT_LT(took, std::chrono::seconds(1));
}

} // namespace
