#include "platform/host/message.h"

#include <cerrno>
#include <cstring>

namespace {

/// Bytes of the printable character that `bytes` begins with: 1 for ASCII, more for UTF-8, 0 if there is none.
std::size_t printable(const char *bytes, std::size_t length) {
    const auto byte = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    if (byte(0) < 0x80) return byte(0) >= ' ' && byte(0) != 0x7f ? 1 : 0;
    const std::size_t size = byte(0) >= 0xf0 ? 4 : byte(0) >= 0xe0 ? 3 : 2;
    if (byte(0) < 0xc2 || byte(0) > 0xf4 || size > length) return 0;
    for (std::size_t i = 1; i < size; ++i)
        if ((byte(i) & 0xc0) != 0x80) return 0;
    // The second byte also shows control characters, overlong forms, surrogates and what is beyond Unicode.
    switch (byte(0)) {
    case 0xc2:
    case 0xe0: return byte(1) >= 0xa0 ? size : 0;
    case 0xed: return byte(1) < 0xa0 ? size : 0;
    case 0xf0: return byte(1) >= 0x90 ? size : 0;
    case 0xf4: return byte(1) < 0x90 ? size : 0;
    default: return size;
    }
}

} // namespace

Shown::Shown(const char *name) : Shown(name, std::strlen(name), mostBytes) {}

Shown::Shown(const char *bytes, std::size_t length, std::size_t most) {
    constexpr const char *digits = "0123456789abcdef";
    if (most > mostBytes) most = mostBytes;
    const std::size_t kept = length < most ? length : most;
    char *to = text_;
    for (std::size_t i = 0; i < kept;) {
        const std::size_t size = printable(bytes + i, kept - i);
        if (size == 0) {
            const unsigned char byte = static_cast<unsigned char>(bytes[i++]);
            *to++ = '\\';
            *to++ = 'x';
            *to++ = digits[byte >> 4];
            *to++ = digits[byte & 0xf];
            continue;
        }
        std::memcpy(to, bytes + i, size);
        to += size;
        i += size;
    }
    if (length > kept) {
        std::memcpy(to, "...", 3);
        to += 3;
    }
    *to = '\0';
}

const char *programName() { return program_invocation_short_name; }
