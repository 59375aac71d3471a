/// The platform's utility operations on a workstation.
///
/// Each writes exactly the text that it makes and its NUL: what was after that in the destination stays, because
/// texts are compared as whole buffers later.
#include "platform/util.h"

#include <arpa/inet.h>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <netinet/in.h>

namespace {

const unsigned char *octetsOf(const void *address) { return static_cast<const unsigned char *>(address); }

/// Applies `change(byte, mask)` to every byte that holds one of the first `count` bits; the mask names those bits.
template <class Change> void changeBits(void *bitmap, int count, Change change) {
    unsigned char *const bytes = static_cast<unsigned char *>(bitmap);
    for (int first = 0; first < count; first += 8) {
        const unsigned mask = count - first >= 8 ? 0xffU : (1U << (count - first)) - 1;
        unsigned char &byte = bytes[first / 8];
        byte = static_cast<unsigned char>(change(byte, mask, first / 8));
    }
}

bool isSet(const void *bitmap, int bit) {
    const unsigned number = static_cast<unsigned>(bit);
    return (octetsOf(bitmap)[number / 8] >> number % 8 & 1) != 0;
}

bool allZero(const void *bytes, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        if (octetsOf(bytes)[i] != 0) return false;
    return true;
}

} // namespace

int utilBitmapCheck(const void *bitmap, int bit) { return isSet(bitmap, bit) ? 1 : 0; }

int utilBitmapIsAllClear(const void *bitmap, int count) {
    for (int bit = 0; bit < count; ++bit)
        if (isSet(bitmap, bit)) return 0;
    return 1;
}

void utilBitmapSetAll(void *bitmap, int count) {
    changeBits(bitmap, count, [](unsigned byte, unsigned mask, int) { return byte | mask; });
}

void utilBitmapNand(void *bitmap, const void *source, int count) {
    changeBits(bitmap, count,
               [source](unsigned byte, unsigned mask, int index) { return byte & ~(mask & octetsOf(source)[index]); });
}

void utilPortBitmap2str(char *text, const void *bitmap, int portCount, int maximumPort) {
    const int ports = portCount < maximumPort ? portCount : maximumPort;
    std::size_t length = 0;
    int run = 0; // length of the run that ends at this port
    for (int port = 1; port <= ports; ++port) {
        if (!isSet(bitmap, port - 1)) {
            run = 0;
            continue;
        }
        ++run;
        const bool inside = length != 0 && run > 1 && port < ports && isSet(bitmap, port);
        if (inside) continue;
        char entry[16];
        const char *const separator = length == 0 ? "" : run < 3 ? "," : "-";
        const std::size_t size = static_cast<std::size_t>(std::snprintf(entry, sizeof entry, "%s%d", separator, port));
        if (length + size >= UTIL_PORT_LIST_SIZE) break; // more ports than a switch of this make has
        std::memcpy(text + length, entry, size);
        length += size;
    }
    text[length] = '\0';
}

void utilIp2IpStr(const void *address, char *text) {
    for (int i = 0; i < 4; ++i) {
        const unsigned octet = octetsOf(address)[i];
        if (i != 0) *text++ = '.';
        if (octet >= 100) *text++ = static_cast<char>('0' + octet / 100);
        if (octet >= 10) *text++ = static_cast<char>('0' + octet / 10 % 10);
        *text++ = static_cast<char>('0' + octet % 10);
    }
    *text = '\0';
}

int utilIpIsZero(std::uint32_t address) { return address == 0 ? 1 : 0; }

char *utilIPv6Addr2Str(char *text, const void *address) {
    char written[INET6_ADDRSTRLEN] = "";
    in6_addr octets; // aligned, as the address in a record need not be
    std::memcpy(&octets, address, sizeof octets);
    inet_ntop(AF_INET6, &octets, written, sizeof written);
    std::memcpy(text, written, std::strlen(written) + 1);
    return text;
}

int utilIpv6AddrIsZero(const void *address) { return allZero(address, 16) ? 1 : 0; }

int utilIpv6AddrIsIpv4(const void *address) {
    const unsigned char *const octets = octetsOf(address);
    return allZero(octets, 10) && octets[10] == 0xff && octets[11] == 0xff ? 1 : 0;
}

void utilAry2Str(const void *bytes, int length, char *text) {
    constexpr const char *digits = "0123456789ABCDEF";
    for (int i = 0; i < length; ++i) {
        *text++ = digits[octetsOf(bytes)[i] >> 4];
        *text++ = digits[octetsOf(bytes)[i] & 0xf];
    }
    *text = '\0';
}

void utilParseArgs(const char *text, const char *separator, int maximum, char (*fields)[UTIL_FIELD_SIZE]) {
    const std::size_t separatorLength = std::strlen(separator);
    for (int field = 0; field < maximum; ++field) {
        const bool last = field + 1 == maximum;
        const char *const end = last || separatorLength == 0 ? nullptr : std::strstr(text, separator);
        std::size_t length = end != nullptr ? static_cast<std::size_t>(end - text) : std::strlen(text);
        const char *const next = end != nullptr ? end + separatorLength : text + length;
        if (length > UTIL_FIELD_SIZE - 1) length = UTIL_FIELD_SIZE - 1;
        std::memcpy(fields[field], text, length);
        fields[field][length] = '\0';
        text = next;
    }
}

int osPrintfConsole(const char *format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const int printed = std::vfprintf(stderr, format, arguments);
    va_end(arguments);
    return printed;
}
