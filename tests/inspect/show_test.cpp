/// The shape of the JSON, and what is chosen. What is printed is held by inspect.sh.
#include "inspect/show.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using namespace inspect;

Json fieldsOf(const ConfigImage &image, const std::vector<std::string> &paths) {
    return jsonFields(
        Part::image,
        [&](const Leaf &leaf) { return std::find(paths.begin(), paths.end(), leaf.path()) != paths.end(); },
        [&](const Leaf &leaf) { return jsonOf(leaf, &image); });
}

TEST(Show, JsonHasTablesAsArrays) {
    const Input input = loadInput({.record = "builtin:default"});
    ConfigImage image = *input.image;
    image.ports[2].speed = 1;
    image.ports[3].description = "x";
    image.lacp.key[1] = 7;
    image.vlanMode = 2;
    EXPECT_EQ(fieldsOf(image, {"vlanMode", "ports[3].speed", "ports[4].description"}),
              Json::parse(R"({"ports": [{"index": 3, "speed": 1}, {"index": 4, "description": "x"}], "vlanMode": 2})"));
    const Json keys = fieldsOf(image, {"lacp.key[2]"})["lacp"]["key"];
    ASSERT_EQ(keys.size(), 28U);
    EXPECT_EQ(keys[1], 7);
    EXPECT_TRUE(keys[0].is_null() && keys[2].is_null());
    EXPECT_TRUE(fieldsOf(image, {}).is_null());
    EXPECT_EQ(fieldsOf(image, {"igmpVlans.vlan[0].querier"})["igmpVlans"]["vlan"][0]["index"], 0);
}

} // namespace
