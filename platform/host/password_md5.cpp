#include "platform/host/password_md5.h"

#include <cstddef>
#include <cstring>
#ifdef TEXTCFG_HAS_CRYPT
#include <crypt.h>
#ifndef TEXTCFG_CRYPT_LINKED
#include <dlfcn.h>
#endif

namespace {

using Crypt = decltype(&crypt);

/// libcrypt's function, or null. It is loaded here, as loading it takes longer than most runs, which need none.
Crypt loadCrypt() {
#ifdef TEXTCFG_CRYPT_LINKED
    return &crypt;
#else
    // Stays loaded: every further call finds it in place.
    void *const library = dlopen("libcrypt.so.1", RTLD_NOW | RTLD_LOCAL);
    return library == nullptr ? nullptr : reinterpret_cast<Crypt>(dlsym(library, "crypt"));
#endif
}

} // namespace

const char *passwordMd5Problem() {
    return loadCrypt() == nullptr ? "not possible: libcrypt.so.1 cannot be loaded" : nullptr;
}

const char *makePasswordMd5(const char *password, char *md5) {
    constexpr const char *emptySalt = "$1$$";
    constexpr std::size_t saltLength = 4;
    constexpr std::size_t digestLength = passwordMd5Size - 1;
    const Crypt function = loadCrypt();
    if (function == nullptr) return passwordMd5Problem();
    const char *const crypted = function(password, emptySalt);
    if (crypted == nullptr || std::strncmp(crypted, emptySalt, saltLength) != 0 ||
        std::strlen(crypted) != saltLength + digestLength)
        return "libcrypt makes no MD5 form of this password";
    std::memcpy(md5, crypted + saltLength, digestLength + 1);
    return nullptr;
}

#else

const char *passwordMd5Problem() { return "not supported by this build, which has no libcrypt"; }

const char *makePasswordMd5(const char *, char *) { return passwordMd5Problem(); }

#endif
