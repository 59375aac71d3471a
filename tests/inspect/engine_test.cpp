/// Fields that are varied, and the lines that change with them.
#include "builtin_store.h"

#include "inspect/engine.h"

#include <gtest/gtest.h>

namespace {

using namespace inspect;
using Strings = std::vector<std::string>;

Difference differenceBetween(std::string before, std::string_view after) {
    StageText text;
    text.text = std::move(before);
    text.lines = linesOf(text.text);
    return differenceOf(text, after);
}

TEST(Engine, LinesKnowTheirBlock) {
    const std::vector<StageLine> lines = linesOf("lldp\ninterface 1 \nlldp\nexit\nvlan dot1q-vlan\nvlan dot1q-vlan 5\n"
                                                 "name a\nexit\nno lldp");
    const std::size_t openers[] = {0, 1, 1, 1, 4, 5, 5, 5, 8};
    ASSERT_EQ(lines.size(), std::size(openers));
    for (std::size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(lines[i].opener, openers[i]) << i;
    EXPECT_EQ(lines[8].text, "no lldp");
}

TEST(Engine, ALineIsTheSameInTheSameBlock) {
    using Numbers = std::vector<std::size_t>;
    const std::string text = "a\ninterface 1\nspeed 10\nexit\nb\n";
    EXPECT_TRUE(differenceBetween(text, text).gone.empty());
    const auto expect = [&](const char *after, const Numbers &gone, const Strings &come) {
        const Difference difference = differenceBetween(text, after);
        EXPECT_EQ(difference.gone, gone) << after;
        EXPECT_EQ(difference.come, come) << after;
    };
    expect("a\ninterface 2\nspeed 10\nexit\nb\n", {1, 2, 3}, {"interface 2", "speed 10", "exit"});
    expect("a\ninterface 1\nspeed 100\nexit\nb\n", {2}, {"speed 100"});
    expect("a\ninterface 1\nspeed 10\nexit\n", {4}, {});
    expect("interface 1\nspeed 10\nexit\nb\n", {0}, {});
    expect("", {0, 1, 2, 3, 4}, {});
    expect("a\na\ninterface 1\nspeed 10\nexit\nb\nb\n", {}, {"a", "b"});
    expect("a\ninterface 1\nspeed 10\nduplex\nexit\nb\n", {}, {"duplex"});
    EXPECT_EQ(differenceBetween("", "a\n").come, Strings{"a"});
}

void expectValues(const char *path, const std::vector<Bytes> &expected) {
    const Leaf leaf = *leafOf(path);
    const Bytes now(leaf.size());
    const std::vector<Bytes> values = variationsOf(leaf, now.data(), nullptr);
    EXPECT_EQ(values, expected) << path;
}

TEST(Engine, ValuesAreThoseThatCanShow) {
    expectValues("ipv4.enabled", {{1}, {2}, {0xff}, {0x7f}});
    expectValues("sourceGuard[1]", {{1}, {2}, {3}, {0xff}, {0x7f}});
    expectValues("tagVlans[1].id", {{0, 1}, {0xff, 0xff}, {0x7f, 0xff}});
    expectValues("ipv4.mask",
                 {{0xff, 0, 0, 0}, {0, 0xff, 0, 0}, {0, 0, 0xff, 0}, {0, 0, 0, 0xff}, {0xff, 0xff, 0xff, 0xff}});
    const Leaf name = *leafOf("trunks[1].name");
    const Bytes now = {'a', 'b', 0, 'c', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    const auto with = [&](std::size_t at, unsigned char byte) {
        Bytes bytes = now;
        bytes[at] = byte;
        return bytes;
    };
    const std::vector<Bytes> expected = {Bytes(16, 0), Bytes(16, 'x'), with(0, 'x'),
                                         with(1, 'x'), with(2, 'x'),   with(3, 'x')};
    EXPECT_EQ(variationsOf(name, now.data(), nullptr), expected);
    // All bits of a set of ports, none and all.
    const Leaf ports = *leafOf("lldp.ports");
    EXPECT_EQ(variationsOf(ports, Bytes(4).data(), nullptr).size(), 33U);
    const Bytes other = {1, 2, 3, 4};
    EXPECT_EQ(variationsOf(*leafOf("service.reserved0"), Bytes(4).data(), other.data()), std::vector<Bytes>{other});
}

std::size_t stageOf(std::string_view emitter) {
    std::size_t stage = 0;
    while (emitterOf(stage) != emitter) ++stage;
    return stage;
}

TEST(Engine, AFieldHasItsLines) {
    const auto store = builtinStore();
    store->running.switchConfig.macAgingTime = 300;
    store->defaults.switchConfig.macAgingTime = 300;
    Renderer renderer(store->running, store->defaults, store->board, {1, false});
    Engine engine(renderer);
    const std::size_t mac = stageOf("convConfigSwitchConfig_SwitchConfig_configure_mac");
    const Source source = {Origin::current, *leafOf("switchConfig.macAgingTime")};
    const std::vector<Influence> full = engine.influences(source, Mode::full);
    ASSERT_EQ(full.size(), 1U);
    EXPECT_EQ(full[0].stage, mac);
    EXPECT_EQ(full[0].lines, std::vector<std::size_t>{0});
    EXPECT_EQ(full[0].appearing[0], "mac address-table aging-time 0");
    const std::vector<Influence> delta = engine.influences(source, Mode::delta);
    ASSERT_EQ(delta.size(), 1U);
    EXPECT_TRUE(delta[0].lines.empty());
    EXPECT_EQ(delta[0].appearing, full[0].appearing);
    EXPECT_TRUE(engine.influences({Origin::defaults, source.leaf}, Mode::full).empty());
    EXPECT_FALSE(engine.influences({Origin::defaults, source.leaf}, Mode::delta).empty());
    EXPECT_TRUE(sameBytes(renderer.current(), store->running));
    EXPECT_TRUE(sameBytes(renderer.defaults(), store->defaults));
}

TEST(Engine, TheHeaderAndTheSettingsAreThereToo) {
    const auto store = builtinStore();
    Renderer renderer(store->running, store->defaults, store->board, {1, false});
    Engine engine(renderer);
    const std::vector<Influence> bank =
        engine.influences({Origin::platform, *leafOf("platform.active_bank")}, Mode::full);
    ASSERT_EQ(bank.size(), 1U);
    EXPECT_EQ(emitterOf(bank[0].stage), "header");
    EXPECT_EQ(bank[0].lines, std::vector<std::size_t>{0});
    EXPECT_EQ(renderer.settings().bank, 1);
    // A line of another section: the trap of PoE is only there on a board with PoE.
    bool isTrap = false;
    for (const Influence &found : engine.influences({Origin::board, *leafOf("board.capabilities")}, Mode::full))
        isTrap = isTrap || emitterOf(found.stage) == "convConfigTrapConfig_TrapConfig_configure_snmp_server";
    EXPECT_TRUE(isTrap);
}

TEST(Engine, ReadsAreThoseOfTheOrderTable) {
    const std::size_t access = stageOf("ManageVLANFunc_configure_vlan");
    const auto readsField = [&](const char *path, Mode mode, Origin origin) {
        return reads(mode, access, {origin, *leafOf(path)});
    };
    for (const char *const entry : {"tagVlans[1].", "tagVlans[1000].", "tagVlans[2077]."}) {
        const std::string vlan = entry;
        EXPECT_TRUE(readsField((vlan + "id").c_str(), Mode::full, Origin::current));
        EXPECT_FALSE(readsField((vlan + "id").c_str(), Mode::full, Origin::defaults));
        EXPECT_TRUE(readsField((vlan + "id").c_str(), Mode::delta, Origin::defaults));
        EXPECT_FALSE(readsField((vlan + "name").c_str(), Mode::full, Origin::current));
        EXPECT_FALSE(readsField((vlan + "reserved5").c_str(), Mode::full, Origin::current));
    }
}

} // namespace
