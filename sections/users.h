/// Local users and authentication clients.
///
/// Passwords and secrets are written as the image holds them.
#pragma once

#include "platform/image.h"

namespace full {
/// Removes every account of the default image first. Where the platform keeps passwords as MD5, fills missing MD5
/// forms in `current`.
int convConfigUser_mid_userauth_index_configure_user(UserTable &current, const UserTable &defaults);
/// Asks the platform how it keeps passwords.
int convConfigUser_PasswordEncryption_configure_user();
int convConfigRadiusInfo_RadiusInfo_configure_user(const AuthenticationClient &current);
int convConfigTacacsInfo_Tacacs_configure_user(const AuthenticationClient &current);
} // namespace full

namespace delta {
/// A level or the end of a description that differs alone opens no block.
/// Fills missing MD5 forms in `current` too.
int convConfigUser_mid_userauth_index_configure_user(UserTable &current, const UserTable &defaults);
/// Nothing unless the platform keeps passwords as MD5.
int convConfigUser_PasswordEncryption_configure_user();
/// Servers are compared by their text.
int convConfigRadiusInfo_RadiusInfo_configure_user(const AuthenticationClient &current,
                                                   const AuthenticationClient &defaults);
/// Servers are compared by their text.
int convConfigTacacsInfo_Tacacs_configure_user(const AuthenticationClient &current,
                                               const AuthenticationClient &defaults);
} // namespace delta
