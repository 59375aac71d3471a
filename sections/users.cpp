#include "sections/users.h"

#include "format/section_lines.h"
#include "platform/mapi.h"

#include <cstring>
#include <iterator>

// ------------------------------------------------------------------------------------------------------- accounts

static bool passwordsAreMd5() { return mapi_sys_userauth_method_get(MAPI_NO_TRANSACTION) != 0; }

/// Has the platform make the MD5 form of an entry's password, unless the entry holds one. What the platform writes may
/// be longer than the field, which keeps its first characters.
static void fillPasswordMd5(User &user) {
    if (!user.passwordMd5.empty()) return;
    char password[sizeof user.password + 1] = {}; // the field may lack a terminator
    std::memcpy(password, user.password.characters, sizeof user.password);
    char md5[MAPI_PASSWORD_MD5_SIZE] = {};
    mapi_sys_userauth_password_md5_get(MAPI_NO_TRANSACTION, password, md5);
    user.passwordMd5 = md5;
}

static void appendRemoval(const User &user) { append("no user name %s\n", user.name); }
static void appendPassword(const Secret<24> &password) { append("password %s\n", password); }

static void appendHead(const User &user) { append("user name %s\n", user.name); }

/// The lines between the password and the description. An unknown level has a line of its own kind, without "level".
static void writeLevelAndState(const SectionLines<User> &user) {
    user.code(&User::level, {{1, "level ro\n"}, {2, "level rw\n"}, {3, "level admin\n"}}, "not supported\n");
    user.onOff(&User::active, "active\n", "no active\n");
}

// Full mode removes every account of the default image first, also one that the current image has too. In delta mode
// an account of the default image is in use only with exactly 1, an account counts as changed by its head alone, and an
// empty description is removed.

int full::convConfigUser_mid_userauth_index_configure_user(UserTable &current, const UserTable &defaults) {
    trace();
    for (const User &user : defaults)
        if (isOn(user.inUse)) appendRemoval(user);
    for (User &user : current) {
        if (!isOn(user.inUse)) continue;
        appendHead(user);
        if (passwordsAreMd5()) {
            fillPasswordMd5(user);
            appendPassword(user.passwordMd5);
        } else if (!user.password.empty()) appendPassword(user.password);
        writeLevelAndState({user});
        if (!user.description.empty()) append("description %s\n", user.description);
        append("exit\n");
    }
    return 0;
}

int delta::convConfigUser_mid_userauth_index_configure_user(UserTable &current, const UserTable &defaults) {
    trace();
    for (std::size_t i = 0; i < std::size(current); ++i)
        if (defaults[i].inUse == 1 && !defaults[i].name.empty() && !sameText(defaults[i].name, current[i].name))
            appendRemoval(defaults[i]);
    for (std::size_t i = 0; i < std::size(current); ++i) {
        User &user = current[i];
        const User &byDefault = defaults[i];
        if (!isOn(user.inUse) || sameLeadingBytes(user, byDefault, User::comparedHead)) continue;
        appendHead(user);
        if (passwordsAreMd5()) {
            fillPasswordMd5(user);
            if (!sameText(user.passwordMd5, byDefault.passwordMd5)) appendPassword(user.passwordMd5);
        } else if (!sameText(user.password, byDefault.password) && !user.password.empty())
            appendPassword(user.password);
        writeLevelAndState({user, byDefault});
        if (!sameText(user.description, byDefault.description, User::comparedDescription)) {
            if (user.description.empty()) append("no description\n");
            else append("description %s\n", user.description);
        }
        append("exit\n");
    }
    return 0;
}

// Delta mode has no default to compare with, and no "no" form.

int full::convConfigUser_PasswordEncryption_configure_user() {
    trace();
    if (passwordsAreMd5()) append("user password-encryption md5\n");
    else append("no user password-encryption\n");
    return 0;
}

int delta::convConfigUser_PasswordEncryption_configure_user() {
    trace();
    if (passwordsAreMd5()) append("user password-encryption md5\n");
    return 0;
}

// --------------------------------------------------------------------------------------------- RADIUS and TACACS+

static AddressText server1Of(const AuthenticationClient &client) {
    return ipv6First(client.server[0], client.serverIpv6[0]);
}
static AddressText server2Of(const AuthenticationClient &client) {
    return ipv6First(client.server[1], client.serverIpv6[1]);
}

static int writeRadius(const SectionLines<AuthenticationClient> &radius) {
    radius.onOff(&AuthenticationClient::enabled, "user radius\n", "no user radius\n");
    radius.text(&AuthenticationClient::secret, "user radius secret %s\n");
    radius.value(&AuthenticationClient::port, "user radius radius-port %d\n");
    radius.value(&AuthenticationClient::retryTime, "user radius retry-time %d\n");
    radius.server(server1Of, "user radius server1 %s\n", {"no user radius server1 \n", "no user radius server1\n"});
    radius.server(server2Of, "user radius server2 %s\n", {"no user radius server2 \n", "no user radius server2\n"});
    return 0;
}

static int writeTacacs(const SectionLines<AuthenticationClient> &tacacs) {
    tacacs.onOff(&AuthenticationClient::enabled, "user tacacs\n", "no user tacacs\n");
    tacacs.text(&AuthenticationClient::secret, "user tacacs secret %s\n");
    tacacs.value(&AuthenticationClient::port, "user tacacs tacacs-port %d\n");
    tacacs.value(&AuthenticationClient::retryTime, "user tacacs retry-time %d\n");
    tacacs.server(server1Of, "user tacacs server1 %s\n", {"no user tacacs server1 \n", "no user tacacs server1\n"});
    tacacs.server(server2Of, "user tacacs server2 %s\n", {"no user tacacs server2 \n", "no user tacacs server2\n"});
    return 0;
}

int full::convConfigRadiusInfo_RadiusInfo_configure_user(const AuthenticationClient &current) {
    return trace(), writeRadius({current});
}

int delta::convConfigRadiusInfo_RadiusInfo_configure_user(const AuthenticationClient &current,
                                                          const AuthenticationClient &defaults) {
    return trace(), writeRadius({current, defaults});
}

int full::convConfigTacacsInfo_Tacacs_configure_user(const AuthenticationClient &current) {
    return trace(), writeTacacs({current});
}

int delta::convConfigTacacsInfo_Tacacs_configure_user(const AuthenticationClient &current,
                                                      const AuthenticationClient &defaults) {
    return trace(), writeTacacs({current, defaults});
}
