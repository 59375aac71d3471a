/// What holds for every emitter, in a loop over the order table. The exceptions are listed by name.
#include "emitter_lists.h"
#include "stores.h"

#include "app/order.h"

#include <cstring>
#include <random>
#include <set>

namespace {

bool writes(Mode mode, std::string_view emitter) { return emitter_lists::mayWrite(emitter, mode == Mode::delta); }

bool traces(Mode mode, std::string_view emitter) {
    return mode == Mode::delta || emitter_lists::tracesInFullMode(emitter);
}

/// Both images filled with one byte, the built-in store, and that store on boards on which emitters return early.
const std::function<void()> stores[] = {
    [] {},
    [] {
        std::memset(static_cast<void *>(gSysConfig), 1, sizeof *gSysConfig);
        g_EEPROM.capabilities = 0x150;
    },
    [] { std::memset(static_cast<void *>(gSysConfig), 0xff, sizeof *gSysConfig); },
    composeBuiltIn,
    [] {
        composeBuiltIn();
        g_EEPROM.boardType = 5027;
        g_EEPROM.capabilities = 0;
    },
};

void forEachCall(const std::function<void(Mode mode, const order::Step &step, const order::Call &call)> &body) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        for (const order::Step &step : order::steps) {
            const order::Call &call = mode == Mode::full ? step.full : step.delta;
            if (!call) continue;
            SCOPED_TRACE(std::string(step.emitter) + (mode == Mode::full ? ", full mode" : ", delta mode"));
            restartText();
            body(mode, step, call);
        }
    }
}

TEST(EveryEmitter, IsCalledInBothModesUnlessListed) {
    std::set<std::string_view> left;
    for (const emitter_lists::LeftOut &step : emitter_lists::notInDeltaMode) left.insert(step.emitter);
    for (const order::Step &step : order::steps) {
        EXPECT_TRUE(static_cast<bool>(step.full)) << step.emitter;
        EXPECT_EQ(left.erase(step.emitter) == 0, static_cast<bool>(step.delta)) << step.emitter;
    }
    EXPECT_TRUE(left.empty());
}

TEST(EveryEmitter, TracesItsNameAndWritesTheSameText) {
    for (const auto &compose : stores) {
        resetAll();
        compose();
        forEachCall([](Mode mode, const order::Step &step, const order::Call &call) {
            gCfgDebug = 0;
            EXPECT_EQ("", printedBy([&] { call(); }));
            const std::string text = Temp_Configuration;
            restartText();
            gCfgDebug = -1;
            EXPECT_EQ(traces(mode, step.emitter) ? "[" + std::string(step.emitter) + "]\n" : "",
                      printedBy([&] { call(); }));
            EXPECT_EQ(text, Temp_Configuration);
            gCfgDebug = 0;
        });
    }
}

TEST(EveryEmitter, ReturnsZero) {
    for (const auto &compose : stores) {
        resetAll();
        compose();
        forEachCall([](Mode, const order::Step &, const order::Call &call) { EXPECT_EQ(0, call()); });
    }
}

TEST(EveryEmitter, WritesForTheBuiltInStoreUnlessListed) {
    resetAll();
    composeBuiltIn();
    forEachCall([](Mode mode, const order::Step &step, const order::Call &call) {
        // Not of the store but of the platform: in delta mode, passwords in clear have no line of their own.
        platform.passwordMethod = step.emitter == "convConfigUser_PasswordEncryption_configure_user" ? 1 : 0;
        call();
        EXPECT_EQ(writes(mode, step.emitter), Temp_Configuration[0] != '\0');
    });
}

TEST(EveryEmitter, ThatIsListedWritesForNoStore) {
    for (const auto &compose : stores) {
        resetAll();
        compose();
        forEachCall([](Mode mode, const order::Step &step, const order::Call &call) {
            if (writes(mode, step.emitter)) return;
            call();
            EXPECT_STREQ("", Temp_Configuration);
        });
    }
}

/// But for the markers of the remarking entries, which delta mode sets in both images.
TEST(EveryEmitter, LeavesTheImagesAsTheyAre) {
    static ConfigImage current;
    static ConfigImage defaults;
    for (const auto &compose : stores) {
        resetAll();
        compose();
        forEachCall([](Mode mode, const order::Step &step, const order::Call &call) {
            if (mode == Mode::delta && step.emitter.find("_configure_qos_remarking") != step.emitter.npos) return;
            current = *gSysConfig;
            defaults = *gDefConfig;
            call();
            EXPECT_TRUE(sameBytes(current, *gSysConfig));
            EXPECT_TRUE(sameBytes(defaults, *gDefConfig));
        });
    }
}

/// Bytes as images have them: zero, small or any. The first VLAN is always the management VLAN, which is looked for in
/// the VLANs before the first free entry only.
void scramble(ConfigImage &image, std::mt19937 &random) {
    u8 *const bytes = reinterpret_cast<u8 *>(&image);
    for (std::size_t i = 0; i < sizeof image; ++i) {
        const auto number = random();
        const unsigned kind = number >> 8 & 0xf;
        bytes[i] = static_cast<u8>(kind < 9 ? 0 : kind < 14 ? number & 3 : number);
    }
    image.tagVlans[0].inUse = 1;
    image.tagVlans[0].members.set(cpuPort);
}

TEST(EveryEmitter, WritesNothingForEqualImagesInDeltaMode) {
    // But for what it writes without comparing, or as the frame around differences that it does not find.
    const std::set<std::string_view> unconditional = {
        "convConfigACLControl_ACLControl_configure_acl",
        "convConfigPortTrunk_PortTrunk_configure_channel_group",
        "convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment",
        "convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile",
        "convConfigQinQConfig_QinQConfig_configure_vlan_dot1q_tunnel",
        "convConfigUser_PasswordEncryption_configure_user",
    };
    for (int seed = 0; seed < 6; ++seed) {
        resetAll();
        g_EEPROM.capabilities = 0x150;
        std::mt19937 random(static_cast<unsigned>(seed));
        if (seed == 1) composeBuiltIn();
        if (seed > 1) scramble(*gSysConfig, random);
        std::memcpy(static_cast<void *>(gDefConfig), gSysConfig, sizeof(ConfigImage));
        for (const order::Step &step : order::steps) {
            if (!step.delta || unconditional.count(step.emitter) != 0) continue;
            step.delta();
            EXPECT_STREQ("", Temp_Configuration) << step.emitter << ", seed " << seed;
            restartText();
        }
    }
}

} // namespace
