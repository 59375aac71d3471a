/// Local users and authentication clients.
///
/// Passwords and secrets are written as the image holds them. The server lines end in a blank in their "no" form in
/// full mode alone.
#pragma once

#include "platform/image.h"

namespace full {
/// Local accounts (image 1724 to 3243): "no user name" for every account of the default image, then a block for each
/// account in use: "user name", password, level, "active", description, "exit". Where the platform keeps passwords as
/// MD5, an entry of `current` that has no MD5 form yet is given one.
int convConfigUser_mid_userauth_index_configure_user(UserTable &current, const UserTable &defaults);
/// How the platform keeps passwords: "user password-encryption md5" or its "no" form.
int convConfigUser_PasswordEncryption_configure_user();
/// RADIUS client (image 146624 to 146759): "user radius", its secret, port, retry time and two servers, also when off.
int convConfigRadiusInfo_RadiusInfo_configure_user(const AuthenticationClient &current);
/// TACACS+ client (image 202720 to 202855): the same with "user tacacs".
int convConfigTacacsInfo_Tacacs_configure_user(const AuthenticationClient &current);
} // namespace full

namespace delta {
/// "no user name" for an account of the default image whose name is gone from its place, then a block for each account
/// in use whose first 104 bytes differ, with what differs in it. A level or a later part of the description that
/// differs alone opens no block.
int convConfigUser_mid_userauth_index_configure_user(UserTable &current, const UserTable &defaults);
/// "user password-encryption md5", or nothing: there is no default to compare with.
int convConfigUser_PasswordEncryption_configure_user();
/// The lines of what differs, servers by their text.
int convConfigRadiusInfo_RadiusInfo_configure_user(const AuthenticationClient &current,
                                                   const AuthenticationClient &defaults);
/// The lines of what differs, servers by their text.
int convConfigTacacsInfo_Tacacs_configure_user(const AuthenticationClient &current,
                                               const AuthenticationClient &defaults);
} // namespace delta
