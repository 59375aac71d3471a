#include "sections/users.h"

#include "app/text.h"

int full::convConfigUser_mid_userauth_index_configure_user(UserTable &, const UserTable &) { return trace(__func__); }
int delta::convConfigUser_mid_userauth_index_configure_user(UserTable &, const UserTable &) { return trace(__func__); }

int full::convConfigUser_PasswordEncryption_configure_user() { return trace(__func__); }
int delta::convConfigUser_PasswordEncryption_configure_user() { return trace(__func__); }

int full::convConfigRadiusInfo_RadiusInfo_configure_user(const AuthenticationClient &) { return trace(__func__); }
int delta::convConfigRadiusInfo_RadiusInfo_configure_user(const AuthenticationClient &, const AuthenticationClient &) {
    return trace(__func__);
}

int full::convConfigTacacsInfo_Tacacs_configure_user(const AuthenticationClient &) { return trace(__func__); }
int delta::convConfigTacacsInfo_Tacacs_configure_user(const AuthenticationClient &, const AuthenticationClient &) {
    return trace(__func__);
}
