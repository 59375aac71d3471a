#include "sections/users.h"

#include "app/text/text.h"
#include "format/address.h"
#include "format/blocks.h"
#include "platform/mapi.h"

#include <cstring>
#include <iterator>

// ------------------------------------------------------------------------------------------------------- accounts

namespace {

bool passwordsAreMd5() { return mapi_sys_userauth_method_get(MAPI_NO_TRANSACTION) != 0; }

/// Has the platform make the MD5 form of an entry's password, unless the entry holds one. What the platform writes may
/// be longer than the field, which keeps its first characters.
void fillPasswordMd5(User &user) {
    if (!user.passwordMd5.empty()) return;
    char password[sizeof user.password + 1] = {}; // the field may lack a terminator
    std::memcpy(password, user.password.characters, sizeof user.password);
    char md5[MAPI_PASSWORD_MD5_SIZE] = {};
    mapi_sys_userauth_password_md5_get(MAPI_NO_TRANSACTION, password, md5);
    user.passwordMd5 = md5;
}

/// Both modes write the same line for a level. "not supported" stands in place of the line, without "level".
void appendLevel(u8 level) {
    switch (level) {
    case 1: append("level ro\n"); break;
    case 2: append("level rw\n"); break;
    case 3: append("level admin\n"); break;
    default: append("not supported\n");
    }
}

} // namespace

int full::convConfigUser_mid_userauth_index_configure_user(UserTable &current, const UserTable &defaults) {
    trace();
    // Every factory account is removed first, also where the current one is the same.
    for (const User &user : defaults)
        if (isOn(user.inUse)) append("no user name %s\n", user.name);

    for (User &user : current) {
        if (!isOn(user.inUse)) continue;
        append("user name %s\n", user.name);
        if (passwordsAreMd5()) {
            fillPasswordMd5(user);
            append("password %s\n", user.passwordMd5);
        } else if (!user.password.empty()) append("password %s\n", user.password);
        appendLevel(user.level);
        appendSwitch(isOn(user.active), "active\n", "no active\n");
        if (!user.description.empty()) append("description %s\n", user.description);
        append("exit\n");
    }
    return 0;
}

int delta::convConfigUser_mid_userauth_index_configure_user(UserTable &current, const UserTable &defaults) {
    trace();
    for (std::size_t i = 0; i < std::size(current); ++i) {
        const User &byDefault = defaults[i];
        // In use means exactly 1 here; everywhere else any value but 0 does.
        if (byDefault.inUse == 1 && !byDefault.name.empty() && !sameText(byDefault.name, current[i].name))
            append("no user name %s\n", byDefault.name);
    }

    for (std::size_t i = 0; i < std::size(current); ++i) {
        User &user = current[i];
        const User &byDefault = defaults[i];
        if (!isOn(user.inUse) || sameLeadingBytes(user, byDefault, User::comparedHead)) continue;
        append("user name %s\n", user.name);
        if (passwordsAreMd5()) {
            fillPasswordMd5(user);
            if (!sameText(user.passwordMd5, byDefault.passwordMd5)) append("password %s\n", user.passwordMd5);
        } else if (!sameText(user.password, byDefault.password) && !user.password.empty())
            append("password %s\n", user.password);
        if (user.level != byDefault.level) appendLevel(user.level);
        if (user.active != byDefault.active) appendSwitch(isOn(user.active), "active\n", "no active\n");
        if (!sameText(user.description, byDefault.description, User::comparedDescription)) {
            if (user.description.empty()) append("no description\n");
            else append("description %s\n", user.description);
        }
        append("exit\n");
    }
    return 0;
}

int full::convConfigUser_PasswordEncryption_configure_user() {
    trace();
    appendSwitch(passwordsAreMd5(), "user password-encryption md5\n", "no user password-encryption\n");
    return 0;
}

int delta::convConfigUser_PasswordEncryption_configure_user() {
    trace();
    // There is no default to compare with, and no "no" form.
    if (passwordsAreMd5()) append("user password-encryption md5\n");
    return 0;
}

// --------------------------------------------------------------------------------------------- RADIUS and TACACS+

namespace {

AddressText serverOf(const AuthenticationClient &client, std::size_t index) {
    return ipv6First(client.server[index], client.serverIpv6[index]);
}

} // namespace

int full::convConfigRadiusInfo_RadiusInfo_configure_user(const AuthenticationClient &current) {
    trace();
    appendSwitch(isOn(current.enabled), "user radius\n", "no user radius\n");
    append("user radius secret %s\n", current.secret);
    append("user radius radius-port %d\n", current.port);
    append("user radius retry-time %d\n", current.retryTime);
    appendServer(serverOf(current, 0), "user radius server1 %s\n", "no user radius server1 \n");
    appendServer(serverOf(current, 1), "user radius server2 %s\n", "no user radius server2 \n");
    return 0;
}

int delta::convConfigRadiusInfo_RadiusInfo_configure_user(const AuthenticationClient &current,
                                                          const AuthenticationClient &defaults) {
    trace();
    if (current.enabled != defaults.enabled) appendSwitch(isOn(current.enabled), "user radius\n", "no user radius\n");
    if (!sameText(current.secret, defaults.secret)) append("user radius secret %s\n", current.secret);
    if (current.port != defaults.port) append("user radius radius-port %d\n", current.port);
    if (current.retryTime != defaults.retryTime) append("user radius retry-time %d\n", current.retryTime);
    if (const AddressText server = serverOf(current, 0); server != serverOf(defaults, 0))
        appendServer(server, "user radius server1 %s\n", "no user radius server1\n");
    if (const AddressText server = serverOf(current, 1); server != serverOf(defaults, 1))
        appendServer(server, "user radius server2 %s\n", "no user radius server2\n");
    return 0;
}

int full::convConfigTacacsInfo_Tacacs_configure_user(const AuthenticationClient &current) {
    trace();
    appendSwitch(isOn(current.enabled), "user tacacs\n", "no user tacacs\n");
    append("user tacacs secret %s\n", current.secret);
    append("user tacacs tacacs-port %d\n", current.port);
    append("user tacacs retry-time %d\n", current.retryTime);
    appendServer(serverOf(current, 0), "user tacacs server1 %s\n", "no user tacacs server1 \n");
    appendServer(serverOf(current, 1), "user tacacs server2 %s\n", "no user tacacs server2 \n");
    return 0;
}

int delta::convConfigTacacsInfo_Tacacs_configure_user(const AuthenticationClient &current,
                                                      const AuthenticationClient &defaults) {
    trace();
    if (current.enabled != defaults.enabled) appendSwitch(isOn(current.enabled), "user tacacs\n", "no user tacacs\n");
    if (!sameText(current.secret, defaults.secret)) append("user tacacs secret %s\n", current.secret);
    if (current.port != defaults.port) append("user tacacs tacacs-port %d\n", current.port);
    if (current.retryTime != defaults.retryTime) append("user tacacs retry-time %d\n", current.retryTime);
    if (const AddressText server = serverOf(current, 0); server != serverOf(defaults, 0))
        appendServer(server, "user tacacs server1 %s\n", "no user tacacs server1\n");
    if (const AddressText server = serverOf(current, 1); server != serverOf(defaults, 1))
        appendServer(server, "user tacacs server2 %s\n", "no user tacacs server2\n");
    return 0;
}
