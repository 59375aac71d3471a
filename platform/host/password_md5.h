/// The MD5 form of a password, as the stand-in makes it.
#pragma once

/// Bytes of the form, the NUL among them.
inline constexpr int passwordMd5Size = 23;

/// Writes the MD5 form of the NUL-terminated `password` to `md5`. Returns null, or why there is none; `md5` is then as
/// it was.
const char *makePasswordMd5(const char *password, char *md5);

/// Why no MD5 form of any password can be made; null if there is no such reason.
const char *passwordMd5Problem();
