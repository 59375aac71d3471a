/// The calls of a whole run to the platform, in their order, as docs/porting.md lists them.
#include "rows.h"

#include "app/run.h"

#include <string>
#include <vector>

namespace {

/// A run of `verb` on a switch with two users, of which the second holds an MD5 form.
std::vector<std::string> callsOf(const char *verb) {
    resetAll();
    platform.passwordMethod = 1;
    UserTable &users = platform.images[0].users;
    for (User *const user : {&users[0], &users[1]}) user->active = user->inUse = 1;
    users[0].name = "anna";
    users[0].password = "first";
    users[1].name = "ben";
    users[1].passwordMd5 = "of-its-own";
    std::string words[] = {"textcfg", verb, "-f", "/dev/null"};
    char *argv[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data()};
    EXPECT_EQ(0, textcfgMain(4, argv));
    return platform.calls;
}

TEST(PlatformCalls, EachUserComesBeforeTheMethod) {
    const std::vector<std::string> expected = {"start",        "eeprom 1",  "config 1 0", "config 1 1",
                                               "start",        "bank 2",    "end 2",      "method -1",
                                               "md5 -1 first", "method -1", "method -1",  "end 1"};
    EXPECT_EQ(expected, callsOf("running_config"));
    EXPECT_EQ(expected, callsOf("running_config_delta"));
}

TEST(PlatformCalls, APageOpensOneTransaction) {
    const std::vector<std::string> expected = {"start",        "eeprom 1",  "config 1 0", "config 1 1", "method -1",
                                               "md5 -1 first", "method -1", "method -1",  "end 1"};
    EXPECT_EQ(expected, callsOf("running_config_page"));
}

} // namespace
