/// Local users and authentication clients.
#pragma once

#include "platform/image.h"

namespace full {
int convConfigUser_mid_userauth_index_configure_user(UserTable &current, const UserTable &defaults);
int convConfigUser_PasswordEncryption_configure_user();
int convConfigRadiusInfo_RadiusInfo_configure_user(const AuthenticationClient &current);
int convConfigTacacsInfo_Tacacs_configure_user(const AuthenticationClient &current);
} // namespace full

namespace delta {
int convConfigUser_mid_userauth_index_configure_user(UserTable &current, const UserTable &defaults);
int convConfigUser_PasswordEncryption_configure_user();
int convConfigRadiusInfo_RadiusInfo_configure_user(const AuthenticationClient &current,
                                                   const AuthenticationClient &defaults);
int convConfigTacacsInfo_Tacacs_configure_user(const AuthenticationClient &current,
                                               const AuthenticationClient &defaults);
} // namespace delta
