/// Texts rendered in memory, again and again.
#include "builtin_store.h"

#include "app/text/text.h"
#include "inspect/render.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

using namespace inspect;

TEST(Render, EqualImagesGiveEqualTextsAndStayAsTheyAre) {
    const auto store = builtinStore();
    Renderer renderer(store->running, store->defaults, store->board, {1, false});
    for (const bool delta : {false, true})
        for (const bool page : {false, true}) {
            const Driver driver = driverOf(delta, page, false);
            const std::string first(renderer.text(driver));
            EXPECT_EQ(first, renderer.text(driver));
            EXPECT_EQ(first.starts_with("# VERSION 5036 6000 V2.4.1 MAC 00:00:5e:00:53:01\nconfigure\n"), !page);
            EXPECT_EQ(first.starts_with("configure\n"), page);
        }
    EXPECT_TRUE(sameBytes(renderer.current(), store->running));
    EXPECT_TRUE(sameBytes(renderer.defaults(), store->defaults));
}

TEST(Render, AStepGivesItsLines) {
    const auto store = builtinStore();
    Renderer renderer(store->running, store->defaults, store->board, {1, false});
    renderer.current().switchConfig.macAgingTime = 123;
    renderer.defaults().switchConfig.macAgingTime = 123;
    std::string all;
    for (const order::Step &step : order::steps) {
        if (step.emitter == "convConfigSwitchConfig_SwitchConfig_configure_mac") {
            EXPECT_EQ(renderer.lines(step.full), "mac address-table aging-time 123\n");
            EXPECT_EQ(renderer.lines(step.delta), "");
        }
        all += renderer.lines(step.full);
    }
    EXPECT_EQ("configure\n" + all, renderer.text(driverOf(false, true, false)));
}

TEST(Render, TheBankAndTheFormOfPasswordsAreSettings) {
    const auto store = builtinStore();
    Renderer renderer(store->running, store->defaults, store->board, {2, false});
    EXPECT_TRUE(renderer.text(driverOf(false, false, false)).starts_with("# VERSION 5036 6000 V2.4.0 MAC "));
    renderer.settings().bank = 3;
    EXPECT_TRUE(renderer.text(driverOf(false, false, true)).starts_with("# VERSION 5036 6000  MAC "));
    renderer.settings().md5Passwords = true;
#ifdef TEXTCFG_HAS_CRYPT
    renderer.current().users[0].password = "secret";
    renderer.current().users[0].passwordMd5 = "";
    const std::string text(renderer.text(driverOf(false, false, false)));
    EXPECT_NE(text.find("\nuser password-encryption md5\n"), std::string::npos);
    EXPECT_NE(text.find("\npassword ysVNzQc4CTMkp5daOdZ.3/\n"), std::string::npos)
        << "openssl passwd -1 -salt '' secret";
    EXPECT_TRUE(renderer.current().users[0].passwordMd5.empty());
#else
    EXPECT_THROW(renderer.text(driverOf(false, false, false)), RenderError);
#endif
}

TEST(Render, ATextThatDoesNotFitIsAnError) {
    const auto store = builtinStore();
    Renderer renderer(store->running, store->defaults, store->board, {1, false});
    for (TagVlan &vlan : renderer.current().tagVlans) {
        vlan.inUse = 1;
        vlan.id = 4000;
        vlan.name = "a name that is as long as the field for it....";
        std::memset(vlan.members.bytes, 0x55, sizeof vlan.members);
    }
    EXPECT_THROW(renderer.text(driverOf(false, false, false)), RenderError);
    renderer.current() = store->running;
    EXPECT_NO_THROW(renderer.text(driverOf(false, false, false)));
}

TEST(Render, OneAtATime) {
    const auto store = builtinStore();
    const Renderer renderer(store->running, store->defaults, store->board, {1, false});
    EXPECT_THROW(Renderer(store->running, store->defaults, store->board, {1, false}), std::logic_error);
}

} // namespace
