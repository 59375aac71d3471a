#include "platform/host/password_md5.h"

#include <cstddef>
#include <cstring>
#ifdef TEXTCFG_HAS_CRYPT
#include <crypt.h>
#endif

const char *makePasswordMd5(const char *password, char *md5) {
#ifdef TEXTCFG_HAS_CRYPT
    constexpr const char *emptySalt = "$1$$";
    constexpr std::size_t saltLength = 4;
    constexpr std::size_t digestLength = passwordMd5Size - 1;
    const char *const crypted = crypt(password, emptySalt);
    if (crypted == nullptr || std::strncmp(crypted, emptySalt, saltLength) != 0 ||
        std::strlen(crypted) != saltLength + digestLength)
        return "libcrypt makes no MD5 form of this password";
    std::memcpy(md5, crypted + saltLength, digestLength + 1);
    return nullptr;
#else
    static_cast<void>(password);
    static_cast<void>(md5);
    return "not supported by this build, which has no libcrypt";
#endif
}
