#include "byte_changes.h"
#include "rows.h"

#include "sections/users.h"

#include "platform/mapi.h"

#include <cstring>

namespace {

constexpr const char *users = "convConfigUser_mid_userauth_index_configure_user";
constexpr const char *encryption = "convConfigUser_PasswordEncryption_configure_user";
constexpr const char *radius = "convConfigRadiusInfo_RadiusInfo_configure_user";
constexpr const char *tacacs = "convConfigTacacsInfo_Tacacs_configure_user";

User someUser(const char *name) {
    User user = {};
    user.active = 1;
    user.inUse = 1;
    user.name = name;
    user.password = "secret";
    user.passwordMd5 = "digest";
    user.description = "somebody";
    user.level = 3;
    return user;
}

/// One account, the same in both images, then a change of the current one.
auto userChanged(Setter<void(User &)> change) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        current.users[0] = defaults.users[0] = someUser("admin");
        change(current.users[0]);
    };
}

/// The same with a platform that keeps passwords as MD5 and turns them into "made of " and the password.
auto userChangedMd5(Setter<void(User &)> change) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        platform.passwordMethod = 1;
        platform.md5 = [](const char *password, char *md5) {
            std::strcpy(md5, "made of ");
            std::strcat(md5, password);
        };
        current.users[0] = defaults.users[0] = someUser("admin");
        change(current.users[0]);
    };
}

/// An account in the current image alone.
auto onlyUser(Setter<void(User &)> change) {
    return [change](ConfigImage &current, ConfigImage &) {
        current.users[0] = someUser("admin");
        change(current.users[0]);
    };
}

/// What is between the names and "exit" for an account of the given values.
std::string inFull(const std::string &body) { return "user name admin\n" + body + "exit\n"; }

AuthenticationClient someClient() {
    AuthenticationClient client = {};
    client.enabled = 1;
    client.secret = "shared";
    client.port = 1812;
    client.retryTime = 5;
    client.server[0] = {{198, 51, 100, 12}};
    client.server[1] = {{198, 51, 100, 13}};
    return client;
}

constexpr Ipv6 someIpv6 = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x12}};

/// The same client in both images, then a change of the current one.
auto clientChanged(AuthenticationClient ConfigImage::*section, void (*change)(AuthenticationClient &)) {
    return [section, change](ConfigImage &current, ConfigImage &defaults) {
        current.*section = defaults.*section = someClient();
        change(current.*section);
    };
}
auto radiusChanged(void (*change)(AuthenticationClient &)) { return clientChanged(&ConfigImage::radius, change); }
auto tacacsChanged(void (*change)(AuthenticationClient &)) { return clientChanged(&ConfigImage::tacacs, change); }

/// Bytes that are told apart in every place: port 37, retry time -1, addresses from 41 on.
void storeClientBytes(ConfigImage &image, std::size_t section) {
    u8 *const bytes = reinterpret_cast<u8 *>(&image) + section;
    bytes[3] = 1;
    bytes[4] = 's';
    bytes[38] = 1;
    bytes[39] = 44;
    bytes[40] = 0xff;
    for (u8 i = 41; i < 49; ++i) bytes[i] = i;
    for (u8 i = 65; i < 81; ++i) bytes[i] = i;
}

void composeUsers(ConfigImage &current, ConfigImage &defaults) {
    defaults.users[0] = someUser("admin");
    defaults.users[1] = someUser("operator");
    current.users[0] = someUser("admin");
    current.users[0].password = "correct-horse";
    current.users[0].passwordMd5 = "";
    current.users[3] = someUser("helpdesk");
    current.users[3].active = 0;
    current.users[3].level = 1;
    current.users[3].description = "";
    current.users[9] = someUser("trainee");
    current.users[9].password = "";
    current.users[9].passwordMd5 = "";
    current.users[9].level = 0;

    current.radius = someClient();
    current.radius.serverIpv6[1] = someIpv6;
    current.tacacs.port = 49;
    current.tacacs.retryTime = -3;
    defaults.tacacs.enabled = 1;
    defaults.tacacs.secret = "old";
    defaults.tacacs.server[1] = {{192, 0, 2, 13}};
}

std::string usersText(Mode mode, int passwordMethod) {
    resetAll();
    composeUsers(*gSysConfig, *gDefConfig);
    platform.passwordMethod = passwordMethod;
    platform.md5 = [](const char *password, char *md5) {
        if (*password != '\0') std::strcpy(md5, "0123456789abcdefghijkl");
    };
    for (const char *step : {users, encryption, radius, tacacs}) callStep(mode, step);
    return Temp_Configuration;
}

} // namespace

ROWS(Users,
     ({
         {"no accounts", Mode::full, users, [](auto &, auto &) {}, ""},
         {"an account", Mode::full, users, onlyUser([](User &) {}),
          "user name admin\npassword secret\nlevel admin\nactive\ndescription somebody\nexit\n"},
         {"factory accounts go first", Mode::full, users,
          [](auto &current, auto &defaults) {
              for (int i : {0, 3, 9}) defaults.users[i] = someUser(i == 0 ? "admin" : i == 3 ? "third" : "last");
              current.users[0] = defaults.users[0];
          },
          "no user name admin\nno user name third\nno user name last\n"
          "user name admin\npassword secret\nlevel admin\nactive\ndescription somebody\nexit\n"},
         {"a factory account without name", Mode::full, users,
          [](auto &, auto &defaults) { defaults.users[9].inUse = 255; }, "no user name \n"},
         {"a factory account that is not in use", Mode::full, users,
          [](auto &, auto &defaults) {
              defaults.users[0] = someUser("admin");
              defaults.users[0].inUse = 0;
          },
          ""},
         {"an account that is not in use", Mode::full, users, onlyUser([](User &user) { user.inUse = 0; }), ""},
         {"in use by any value", Mode::full, users, onlyUser([](User &user) { user.inUse = 128; }),
          inFull("password secret\nlevel admin\nactive\ndescription somebody\n")},
         {"first and last place", Mode::full, users,
          [](auto &current, auto &) {
              for (int i : {9, 0}) {
                  current.users[i].inUse = 1;
                  current.users[i].name = i == 9 ? "last" : "first";
              }
          },
          "user name first\nnot supported\nno active\nexit\nuser name last\nnot supported\nno active\nexit\n"},
         {"an account without name", Mode::full, users, [](auto &current, auto &) { current.users[0].inUse = 1; },
          "user name \nnot supported\nno active\nexit\n"},
         {"without password", Mode::full, users, onlyUser([](User &user) { user.password = ""; }),
          inFull("level admin\nactive\ndescription somebody\n")},
         {"read-only", Mode::full, users, onlyUser([](User &user) { user.level = 1; }),
          inFull("password secret\nlevel ro\nactive\ndescription somebody\n")},
         {"read-write", Mode::full, users, onlyUser([](User &user) { user.level = 2; }),
          inFull("password secret\nlevel rw\nactive\ndescription somebody\n")},
         {"level 0", Mode::full, users, onlyUser([](User &user) { user.level = 0; }),
          inFull("password secret\nnot supported\nactive\ndescription somebody\n")},
         {"level 4", Mode::full, users, onlyUser([](User &user) { user.level = 4; }),
          inFull("password secret\nnot supported\nactive\ndescription somebody\n")},
         {"not active", Mode::full, users, onlyUser([](User &user) { user.active = 0; }),
          inFull("password secret\nlevel admin\nno active\ndescription somebody\n")},
         {"active by any value", Mode::full, users, onlyUser([](User &user) { user.active = 2; }),
          inFull("password secret\nlevel admin\nactive\ndescription somebody\n")},
         {"without description", Mode::full, users, onlyUser([](User &user) { user.description = ""; }),
          inFull("password secret\nlevel admin\nactive\n")},
         {"full fields", Mode::full, users, onlyUser([](User &user) {
              user.name = letters(24).c_str();
              user.password = letters(25).substr(1).c_str();
              user.description = letters(48).c_str();
          }),
          "user name " + letters(24) + "\npassword " + letters(25).substr(1) + "\nlevel admin\nactive\ndescription " +
              letters(48) + "\nexit\n"},
         {"full factory name", Mode::full, users,
          [](auto &, auto &defaults) {
              defaults.users[0] = someUser("");
              defaults.users[0].name = letters(24).c_str();
          },
          "no user name " + letters(24) + "\n"},
         {"MD5 form held", Mode::full, users,
          [](auto &current, auto &) {
              platform.passwordMethod = 1;
              current.users[0] = someUser("admin");
          },
          inFull("password digest\nlevel admin\nactive\ndescription somebody\n")},
         {"MD5 full field", Mode::full, users,
          [](auto &current, auto &) {
              platform.passwordMethod = -1;
              current.users[0] = someUser("admin");
              current.users[0].passwordMd5 = letters(24).c_str();
          },
          inFull("password " + letters(24) + "\nlevel admin\nactive\ndescription somebody\n")},
         {"MD5 form made", Mode::full, users,
          [](auto &current, auto &defaults) {
              userChangedMd5([](User &user) { user.passwordMd5 = ""; })(current, defaults);
              defaults.users[0].inUse = 0;
          },
          inFull("password made of secret\nlevel admin\nactive\ndescription somebody\n")},
         {"MD5 form that the platform cannot tell", Mode::full, users,
          [](auto &current, auto &) {
              platform.passwordMethod = 1;
              current.users[0] = someUser("admin");
              current.users[0].passwordMd5 = "";
          },
          inFull("password \nlevel admin\nactive\ndescription somebody\n")},

         {"equal", Mode::delta, users, userChanged([](User &) {}), ""},
         {"equal MD5", Mode::delta, users, userChangedMd5([](User &) {}), ""},
         {"new account", Mode::delta, users, onlyUser([](User &) {}),
          inFull("password secret\nlevel admin\nactive\ndescription somebody\n")},
         {"new account at the last place", Mode::delta, users,
          [](auto &current, auto &) { current.users[9] = someUser("last"); },
          "user name last\npassword secret\nlevel admin\nactive\ndescription somebody\nexit\n"},
         {"removed account", Mode::delta, users, userChanged([](User &user) { user = {}; }), "no user name admin\n"},
         {"removed accounts of the first and last place", Mode::delta, users,
          [](auto &, auto &defaults) {
              defaults.users[0] = someUser("first");
              defaults.users[9] = someUser("last");
          },
          "no user name first\nno user name last\n"},
         {"removed account keeping its name", Mode::delta, users, userChanged([](User &user) { user.inUse = 0; }), ""},
         {"removed account that was in use by another value", Mode::delta, users,
          [](auto &, auto &defaults) {
              defaults.users[0] = someUser("admin");
              defaults.users[0].inUse = 2;
          },
          ""},
         {"removed account without name", Mode::delta, users,
          [](auto &current, auto &defaults) {
              defaults.users[0] = someUser("");
              current.users[0].name = "free";
          },
          ""},
         {"renamed", Mode::delta, users, userChanged([](User &user) { user.name = "root"; }),
          "no user name admin\nuser name root\nexit\n"},
         {"removals first", Mode::delta, users,
          [](auto &current, auto &defaults) {
              for (int i : {0, 1}) {
                  defaults.users[i] = someUser(i == 0 ? "first" : "second");
                  current.users[i] = someUser(i == 0 ? "one" : "two");
              }
          },
          "no user name first\nno user name second\nuser name one\nexit\nuser name two\nexit\n"},
         {"last character of the name", Mode::delta, users,
          [](auto &current, auto &defaults) {
              current.users[0] = defaults.users[0] = someUser("");
              current.users[0].name = defaults.users[0].name = letters(24).c_str();
              current.users[0].name.characters[23] = '!';
          },
          "no user name " + letters(24) + "\nuser name " + letters(23) + "!\nexit\n"},
         {"what is after the end of a name", Mode::delta, users,
          userChanged([](User &user) { user.name.characters[6] = 'x'; }), "user name admin\nexit\n"},
         {"in use by another value", Mode::delta, users, userChanged([](User &user) { user.inUse = 2; }),
          "user name admin\nexit\n"},
         {"password", Mode::delta, users, userChanged([](User &user) { user.password = "other"; }),
          inFull("password other\n")},
         {"last character of the password", Mode::delta, users,
          [](auto &current, auto &defaults) {
              current.users[0] = defaults.users[0] = someUser("admin");
              current.users[0].password = defaults.users[0].password = letters(24).c_str();
              current.users[0].password.characters[23] = '!';
          },
          inFull("password " + letters(23) + "!\n")},
         {"after the end of the password", Mode::delta, users,
          userChanged([](User &user) { user.password.characters[23] = 'x'; }), inFull("")},
         {"password cleared", Mode::delta, users, userChanged([](User &user) { user.password = ""; }), inFull("")},
         {"MD5 form does not count for passwords in clear", Mode::delta, users,
          userChanged([](User &user) { user.passwordMd5 = "other"; }), inFull("")},
         {"password in clear does not count for MD5", Mode::delta, users,
          userChangedMd5([](User &user) { user.password = "other"; }), inFull("")},
         {"MD5 form", Mode::delta, users, userChangedMd5([](User &user) { user.passwordMd5 = "other"; }),
          inFull("password other\n")},
         {"last character of the MD5 form", Mode::delta, users,
          [](auto &current, auto &defaults) {
              platform.passwordMethod = 1;
              current.users[0] = defaults.users[0] = someUser("admin");
              current.users[0].passwordMd5 = defaults.users[0].passwordMd5 = letters(24).c_str();
              current.users[0].passwordMd5.characters[23] = '!';
          },
          inFull("password " + letters(23) + "!\n")},
         {"MD5 form made", Mode::delta, users, userChangedMd5([](User &user) { user.passwordMd5 = ""; }),
          inFull("password made of secret\n")},
         {"MD5 form made as by default", Mode::delta, users,
          [](auto &current, auto &defaults) {
              userChangedMd5([](User &user) { user.passwordMd5 = ""; })(current, defaults);
              defaults.users[0].passwordMd5 = "made of secret";
          },
          inFull("")},
         {"MD5 form is not made for the default", Mode::delta, users,
          [](auto &current, auto &defaults) {
              userChangedMd5([](User &user) { user.active = 0; })(current, defaults);
              current.users[0].passwordMd5 = defaults.users[0].passwordMd5 = "";
          },
          inFull("password made of secret\nno active\n")},
         {"MD5 form is not made for an equal account", Mode::delta, users,
          [](auto &current, auto &defaults) {
              userChangedMd5([](User &) {})(current, defaults);
              current.users[0].passwordMd5 = defaults.users[0].passwordMd5 = "";
          },
          ""},
         {"MD5 form emptied", Mode::delta, users,
          [](auto &current, auto &defaults) {
              userChangedMd5([](User &user) { user.passwordMd5 = ""; })(current, defaults);
              platform.md5 = nullptr;
          },
          inFull("password \n")},
         {"level alone opens nothing", Mode::delta, users, userChanged([](User &user) { user.level = 1; }), ""},
         {"byte 103 opens the block", Mode::delta, users,
          userChanged([](User &user) { user.description.characters[27] = 'x'; }), inFull("")},
         {"byte 104 does not", Mode::delta, users,
          userChanged([](User &user) { user.description.characters[28] = 'x'; }), ""},
         {"first byte opens the block", Mode::delta, users, userChanged([](User &user) { user.active = 2; }),
          inFull("active\n")},
         {"reserved bytes within open the block", Mode::delta, users,
          userChanged([](User &user) { user.reserved2.bytes[1] = 1; }), inFull("")},
         {"reserved bytes after do not", Mode::delta, users,
          userChanged([](User &user) { user.reserved125.bytes[0] = 1; }), ""},
         {"levels", Mode::delta, users,
          [](auto &current, auto &defaults) {
              for (u8 i = 0; i < 5; ++i) {
                  current.users[i] = defaults.users[i] = someUser("u");
                  defaults.users[i].level = 9;
                  current.users[i].level = i;
                  current.users[i].reserved2.bytes[0] = 1;
              }
          },
          "user name u\nnot supported\nexit\nuser name u\nlevel ro\nexit\nuser name u\nlevel rw\nexit\n"
          "user name u\nlevel admin\nexit\nuser name u\nnot supported\nexit\n"},
         {"deactivated", Mode::delta, users, userChanged([](User &user) { user.active = 0; }),
          inFull("no active\n")},
         {"description", Mode::delta, users, userChanged([](User &user) { user.description = "else"; }),
          inFull("description else\n")},
         {"description cleared", Mode::delta, users, userChanged([](User &user) { user.description = ""; }),
          inFull("no description\n")},
         {"description differs in its 36th character", Mode::delta, users,
          [](auto &current, auto &defaults) {
              current.users[0] = defaults.users[0] = someUser("admin");
              current.users[0].description = defaults.users[0].description = letters(48).c_str();
              current.users[0].description.characters[35] = '!';
              current.users[0].reserved2.bytes[0] = 1;
          },
          inFull("description " + letters(35) + "!" + letters(48).substr(36) + "\n")},
         {"description differs in its 37th character", Mode::delta, users,
          [](auto &current, auto &defaults) {
              current.users[0] = defaults.users[0] = someUser("admin");
              current.users[0].description = defaults.users[0].description = letters(48).c_str();
              current.users[0].description.characters[36] = '!';
              current.users[0].reserved2.bytes[0] = 1;
          },
          inFull("")},
         {"order", Mode::delta, users, userChanged([](User &user) {
              user.password = "p";
              user.level = 1;
              user.active = 0;
              user.description = "d";
          }),
          inFull("password p\nlevel ro\nno active\ndescription d\n")},

         {"after the last place", Mode::full, users,
          [](auto &current, auto &defaults) {
              const User beyond = someUser("beyond");
              std::memcpy(current.reserved3244.bytes, &beyond, sizeof beyond);
              std::memcpy(defaults.reserved3244.bytes, &beyond, sizeof beyond);
          },
          ""},
         {"after the last place", Mode::delta, users,
          [](auto &current, auto &defaults) {
              const User beyond = someUser("beyond");
              const User before = someUser("before");
              std::memcpy(current.reserved3244.bytes, &beyond, sizeof beyond);
              std::memcpy(defaults.reserved3244.bytes, &before, sizeof before);
          },
          ""},

         {"encryption off", Mode::full, encryption, [](auto &, auto &) {}, "no user password-encryption\n"},
         {"encryption on", Mode::full, encryption, [](auto &, auto &) { platform.passwordMethod = 1; },
          "user password-encryption md5\n"},
         {"encryption by any value", Mode::full, encryption, [](auto &, auto &) { platform.passwordMethod = -1; },
          "user password-encryption md5\n"},
         {"encryption off", Mode::delta, encryption, [](auto &, auto &) {}, ""},
         {"encryption on", Mode::delta, encryption, [](auto &, auto &) { platform.passwordMethod = 2; },
          "user password-encryption md5\n"},
     }));

ROWS(Radius,
     ({
         {"zero", Mode::full, radius, [](auto &, auto &defaults) { defaults.radius = someClient(); },
          "no user radius\nuser radius secret \nuser radius radius-port 0\nuser radius retry-time 0\n"
          "no user radius server1 \nno user radius server2 \n"},
         {"all", Mode::full, radius, [](auto &current, auto &) { current.radius = someClient(); },
          "user radius\nuser radius secret shared\nuser radius radius-port 1812\nuser radius retry-time 5\n"
          "user radius server1 198.51.100.12\nuser radius server2 198.51.100.13\n"},
         {"IPv6 first", Mode::full, radius,
          [](auto &current, auto &) {
              current.radius = someClient();
              current.radius.serverIpv6[0] = someIpv6;
              current.radius.serverIpv6[1] = someIpv6;
              current.radius.serverIpv6[1].octets[15] = 0x13;
          },
          "user radius\nuser radius secret shared\nuser radius radius-port 1812\nuser radius retry-time 5\n"
          "user radius server1 2001:db8::12\nuser radius server2 2001:db8::13\n"},
         {"IPv6 carrying IPv4", Mode::full, radius,
          [](auto &current, auto &) {
              current.radius.serverIpv6[0] = {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 0, 0, 0, 0}};
          },
          "no user radius\nuser radius secret \nuser radius radius-port 0\nuser radius retry-time 0\n"
          "user radius server1 ::ffff:0.0.0.0\nno user radius server2 \n"},
         {"extremes", Mode::full, radius,
          [](auto &current, auto &) {
              current.radius.enabled = 256;
              current.radius.secret = letters(32).c_str();
              current.radius.port = -1;
              current.radius.retryTime = -128;
          },
          "user radius\nuser radius secret " + letters(32) +
              "\nuser radius radius-port -1\nuser radius retry-time -128\n"
              "no user radius server1 \nno user radius server2 \n"},
         {"places", Mode::full, radius, [](auto &current, auto &) { storeClientBytes(current, 146624); },
          "user radius\nuser radius secret s\nuser radius radius-port 300\nuser radius retry-time -1\n"
          "user radius server1 41.42.43.44\nuser radius server2 4142:4344:4546:4748:494a:4b4c:4d4e:4f50\n"},
         {"equal", Mode::delta, radius, radiusChanged([](AuthenticationClient &) {}), ""},
         {"off", Mode::delta, radius, radiusChanged([](AuthenticationClient &client) { client.enabled = 0; }),
          "no user radius\n"},
         {"on otherwise", Mode::delta, radius,
          radiusChanged([](AuthenticationClient &client) { client.enabled = 257; }), "user radius\n"},
         {"secret", Mode::delta, radius, radiusChanged([](AuthenticationClient &client) { client.secret = "new"; }),
          "user radius secret new\n"},
         {"secret cleared", Mode::delta, radius,
          radiusChanged([](AuthenticationClient &client) { client.secret = ""; }), "user radius secret \n"},
         {"after the end of the secret", Mode::delta, radius,
          radiusChanged([](AuthenticationClient &client) { client.secret.characters[31] = 'x'; }), ""},
         {"last character of the secret", Mode::delta, radius,
          [](auto &current, auto &defaults) {
              current.radius.secret = defaults.radius.secret = letters(32).c_str();
              current.radius.secret.characters[31] = '!';
          },
          "user radius secret " + letters(31) + "!\n"},
         {"port", Mode::delta, radius, radiusChanged([](AuthenticationClient &client) { client.port = -2; }),
          "user radius radius-port -2\n"},
         {"retry time", Mode::delta, radius, radiusChanged([](AuthenticationClient &client) { client.retryTime = -2; }),
          "user radius retry-time -2\n"},
         {"server 1", Mode::delta, radius,
          radiusChanged([](AuthenticationClient &client) { client.server[0].octets[3] = 1; }),
          "user radius server1 198.51.100.1\n"},
         {"server 1 cleared", Mode::delta, radius,
          radiusChanged([](AuthenticationClient &client) { client.server[0] = {}; }), "no user radius server1\n"},
         {"server 1 IPv6", Mode::delta, radius,
          radiusChanged([](AuthenticationClient &client) { client.serverIpv6[0] = someIpv6; }),
          "user radius server1 2001:db8::12\n"},
         {"server 2", Mode::delta, radius,
          radiusChanged([](AuthenticationClient &client) { client.server[1].octets[0] = 1; }),
          "user radius server2 1.51.100.13\n"},
         {"server 2 cleared", Mode::delta, radius,
          radiusChanged([](AuthenticationClient &client) { client.server[1] = {}; }), "no user radius server2\n"},
         {"server 2 IPv6", Mode::delta, radius,
          radiusChanged([](AuthenticationClient &client) { client.serverIpv6[1] = someIpv6; }),
          "user radius server2 2001:db8::12\n"},
         {"an IPv4 server after an IPv6 one", Mode::delta, radius,
          [](auto &current, auto &defaults) {
              current.radius.serverIpv6[0] = defaults.radius.serverIpv6[0] = someIpv6;
              current.radius.server[0] = {{1, 2, 3, 4}};
          },
          ""},
         {"reserved bytes", Mode::delta, radius, radiusChanged([](AuthenticationClient &client) {
              std::memset(&client.reserved81, 0xff, sizeof client.reserved81);
          }),
          ""},
         {"order", Mode::delta, radius, [](auto &current, auto &) { current.radius = someClient(); },
          "user radius\nuser radius secret shared\nuser radius radius-port 1812\nuser radius retry-time 5\n"
          "user radius server1 198.51.100.12\nuser radius server2 198.51.100.13\n"},
     }));

ROWS(Tacacs,
     ({
         {"zero", Mode::full, tacacs, [](auto &, auto &defaults) { defaults.tacacs = someClient(); },
          "no user tacacs\nuser tacacs secret \nuser tacacs tacacs-port 0\nuser tacacs retry-time 0\n"
          "no user tacacs server1 \nno user tacacs server2 \n"},
         {"all", Mode::full, tacacs, [](auto &current, auto &) { current.tacacs = someClient(); },
          "user tacacs\nuser tacacs secret shared\nuser tacacs tacacs-port 1812\nuser tacacs retry-time 5\n"
          "user tacacs server1 198.51.100.12\nuser tacacs server2 198.51.100.13\n"},
         {"IPv6 first", Mode::full, tacacs,
          [](auto &current, auto &) {
              current.tacacs = someClient();
              current.tacacs.serverIpv6[0] = someIpv6;
              current.tacacs.serverIpv6[1] = someIpv6;
              current.tacacs.serverIpv6[1].octets[15] = 0x13;
          },
          "user tacacs\nuser tacacs secret shared\nuser tacacs tacacs-port 1812\nuser tacacs retry-time 5\n"
          "user tacacs server1 2001:db8::12\nuser tacacs server2 2001:db8::13\n"},
         {"extremes", Mode::full, tacacs,
          [](auto &current, auto &) {
              current.tacacs.enabled = 0x80000000;
              current.tacacs.secret = letters(32).c_str();
              current.tacacs.port = -2147483647 - 1;
              current.tacacs.retryTime = 127;
          },
          "user tacacs\nuser tacacs secret " + letters(32) +
              "\nuser tacacs tacacs-port -2147483648\nuser tacacs retry-time 127\n"
              "no user tacacs server1 \nno user tacacs server2 \n"},
         {"places", Mode::full, tacacs, [](auto &current, auto &) { storeClientBytes(current, 202720); },
          "user tacacs\nuser tacacs secret s\nuser tacacs tacacs-port 300\nuser tacacs retry-time -1\n"
          "user tacacs server1 41.42.43.44\nuser tacacs server2 4142:4344:4546:4748:494a:4b4c:4d4e:4f50\n"},
         {"equal", Mode::delta, tacacs, tacacsChanged([](AuthenticationClient &) {}), ""},
         {"off", Mode::delta, tacacs, tacacsChanged([](AuthenticationClient &client) { client.enabled = 0; }),
          "no user tacacs\n"},
         {"on otherwise", Mode::delta, tacacs,
          tacacsChanged([](AuthenticationClient &client) { client.enabled = 257; }), "user tacacs\n"},
         {"secret", Mode::delta, tacacs, tacacsChanged([](AuthenticationClient &client) { client.secret = "new"; }),
          "user tacacs secret new\n"},
         {"secret cleared", Mode::delta, tacacs,
          tacacsChanged([](AuthenticationClient &client) { client.secret = ""; }), "user tacacs secret \n"},
         {"after the end of the secret", Mode::delta, tacacs,
          tacacsChanged([](AuthenticationClient &client) { client.secret.characters[31] = 'x'; }), ""},
         {"last character of the secret", Mode::delta, tacacs,
          [](auto &current, auto &defaults) {
              current.tacacs.secret = defaults.tacacs.secret = letters(32).c_str();
              current.tacacs.secret.characters[31] = '!';
          },
          "user tacacs secret " + letters(31) + "!\n"},
         {"port", Mode::delta, tacacs, tacacsChanged([](AuthenticationClient &client) { client.port = -2; }),
          "user tacacs tacacs-port -2\n"},
         {"retry time", Mode::delta, tacacs, tacacsChanged([](AuthenticationClient &client) { client.retryTime = -2; }),
          "user tacacs retry-time -2\n"},
         {"server 1", Mode::delta, tacacs,
          tacacsChanged([](AuthenticationClient &client) { client.server[0].octets[3] = 1; }),
          "user tacacs server1 198.51.100.1\n"},
         {"server 1 cleared", Mode::delta, tacacs,
          tacacsChanged([](AuthenticationClient &client) { client.server[0] = {}; }), "no user tacacs server1\n"},
         {"server 1 IPv6", Mode::delta, tacacs,
          tacacsChanged([](AuthenticationClient &client) { client.serverIpv6[0] = someIpv6; }),
          "user tacacs server1 2001:db8::12\n"},
         {"server 2", Mode::delta, tacacs,
          tacacsChanged([](AuthenticationClient &client) { client.server[1].octets[0] = 1; }),
          "user tacacs server2 1.51.100.13\n"},
         {"server 2 cleared", Mode::delta, tacacs,
          tacacsChanged([](AuthenticationClient &client) { client.server[1] = {}; }), "no user tacacs server2\n"},
         {"server 2 IPv6", Mode::delta, tacacs,
          tacacsChanged([](AuthenticationClient &client) { client.serverIpv6[1] = someIpv6; }),
          "user tacacs server2 2001:db8::12\n"},
         {"reserved bytes", Mode::delta, tacacs, tacacsChanged([](AuthenticationClient &client) {
              std::memset(&client.reserved81, 0xff, sizeof client.reserved81);
          }),
          ""},
         {"order", Mode::delta, tacacs, [](auto &current, auto &) { current.tacacs = someClient(); },
          "user tacacs\nuser tacacs secret shared\nuser tacacs tacacs-port 1812\nuser tacacs retry-time 5\n"
          "user tacacs server1 198.51.100.12\nuser tacacs server2 198.51.100.13\n"},
     }));

// --------------------------------------------------------------------------------- what the platform is asked for

TEST(Users, MethodIsReadForEveryAccountAndTheMd5FormIsMadeOnce) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        resetAll();
        platform.passwordMethod = 1;
        platform.md5 = [](const char *, char *md5) { std::strcpy(md5, "made"); };
        gSysConfig->users[0] = someUser("holds one");
        gSysConfig->users[4] = someUser("holds none");
        gSysConfig->users[4].passwordMd5 = "";
        gSysConfig->users[5].name = "is not in use";
        gSysConfig->users[9] = someUser("cannot");
        gSysConfig->users[9].password = gSysConfig->users[9].passwordMd5 = "";
        callStep(mode, users);
        EXPECT_EQ((std::vector<std::string>{"method -1", "method -1", "md5 -1 secret", "method -1", "md5 -1 "}),
                  platform.calls);
        callStep(mode, users);
        EXPECT_EQ((std::vector<std::string>{"method -1", "method -1", "md5 -1 secret", "method -1", "md5 -1 ",
                                            "method -1", "method -1", "method -1"}),
                  platform.calls);
    }
}

TEST(Users, PlatformIsNotAskedForPasswordsKeptInClear) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        resetAll();
        gSysConfig->users[0] = someUser("admin");
        gSysConfig->users[0].passwordMd5 = "";
        gDefConfig->users[9] = someUser("gone");
        callStep(mode, users);
        EXPECT_EQ((std::vector<std::string>{"method -1"}), platform.calls);
        EXPECT_TRUE(gSysConfig->users[0].passwordMd5.empty());
    }
}

TEST(Users, EncryptionAsksOnce) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        resetAll();
        callStep(mode, encryption);
        EXPECT_EQ((std::vector<std::string>{"method -1"}), platform.calls);
    }
}

TEST(Users, PasswordWithoutTerminatorIsTerminatedForThePlatform) {
    resetAll();
    platform.passwordMethod = 1;
    gSysConfig->users[0].inUse = 1;
    gSysConfig->users[0].password = letters(24).c_str();
    gSysConfig->users[0].description = "hidden";
    callStep(Mode::full, users);
    EXPECT_EQ((std::vector<std::string>{"method -1", "md5 -1 " + letters(24)}), platform.calls);
}

/// Whatever the platform makes of a password, the field of the entry is all that changes.
TEST(Users, NothingButTheFieldIsWritten) {
    for (const Mode mode : {Mode::full, Mode::delta})
        for (const std::size_t length : {std::size_t{0}, std::size_t{22}, std::size_t{24}, std::size_t{63}}) {
            resetAll();
            platform.passwordMethod = 1;
            platform.md5 = [length](const char *, char *md5) { std::strcpy(md5, letters(length).c_str()); };
            gSysConfig->users[0] = someUser("admin");
            gSysConfig->users[0].passwordMd5 = "";
            for (std::size_t i = 1; i < 24; ++i) gSysConfig->users[0].passwordMd5.characters[i] = '~';
            gDefConfig->users[0] = someUser("factory");
            gDefConfig->users[0].passwordMd5 = "";

            static ConfigImage expected;
            static ConfigImage defaults;
            expected = *gSysConfig;
            defaults = *gDefConfig;
            expected.users[0].passwordMd5 = letters(length).c_str();

            callStep(mode, users);
            EXPECT_TRUE(sameBytes(expected, *gSysConfig)) << length;
            EXPECT_TRUE(sameBytes(defaults, *gDefConfig)) << length;
            const std::string line = "password " + letters(length < 24 ? length : 24) + "\n";
            const bool isNew = mode == Mode::full || length != 0;
            EXPECT_EQ(isNew, std::string(Temp_Configuration).find(line) != std::string::npos) << length;
        }
}

/// Any of the first 104 bytes of an account makes it differ, and no later one.
TEST(Users, FirstBytesOfAnAccountCount) {
    const auto given = [](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults}) image->users[0] = image->users[9] = someUser("admin");
    };
    for (const std::size_t at : {std::size_t{1724}, std::size_t{1724 + 9 * 152}})
        expectCounting(users, given, at, at + 151, {{at, at + 103, ""}});
}

TEST(Users, Golden) {
    EXPECT_EQ(golden("users_full.txt"), usersText(Mode::full, 0));
    EXPECT_EQ(golden("users_full_md5.txt"), usersText(Mode::full, 1));
    EXPECT_EQ(golden("users_delta.txt"), usersText(Mode::delta, 0));
    EXPECT_EQ(golden("users_delta_md5.txt"), usersText(Mode::delta, 1));
}
