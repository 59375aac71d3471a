/// Texts that the platform makes: addresses, port sets, hexadecimal bytes.
#pragma once

#include "app/text.h"
#include "platform/image.h"
#include "platform/util.h"

#include <cstring>

/// Text of an address, or of some bytes in hexadecimal. What the platform writes into it is NUL-terminated; the bytes
/// behind the NUL are left as they were.
struct AddressText {
    char text[UTIL_ADDRESS_SIZE] = {};

    /// "0.0.0.0", which stands for no address.
    bool isUnset() const { return std::strcmp(text, "0.0.0.0") == 0; }
    friend bool operator==(const AddressText &a, const AddressText &b) {
        return std::strncmp(a.text, b.text, sizeof a.text) == 0;
    }
};
template <> struct Formatted<AddressText> : FormattedText {
    static constexpr void put(Argument *&to, const AddressText &address) {
        *to++ = {address.text, sizeof address.text};
    }
};

inline bool isZero(const Ipv4 &address) { return utilIpIsZero(address.value()) != 0; }
inline bool isZero(const Ipv6 &address) { return utilIpv6AddrIsZero(address.octets) != 0; }

/// Dotted form.
inline AddressText textOf(const Ipv4 &address) {
    AddressText text;
    utilIp2IpStr(address.octets, text.text);
    return text;
}

/// IPv6 form, also of an address that carries an IPv4 one.
inline AddressText textOf(const Ipv6 &address) {
    AddressText text;
    utilIPv6Addr2Str(text.text, address.octets);
    return text;
}

/// The IPv4 address if it is set, else the IPv6 address if that is, else "0.0.0.0". Written over `text` as it is.
inline void writeIpv4First(const Ipv4 &ipv4, const Ipv6 &ipv6, AddressText &text) {
    if (isZero(ipv4) && !isZero(ipv6)) utilIPv6Addr2Str(text.text, ipv6.octets);
    else utilIp2IpStr(ipv4.octets, text.text);
}

/// The same into a text of its own.
inline AddressText ipv4First(const Ipv4 &ipv4, const Ipv6 &ipv6) {
    AddressText text;
    writeIpv4First(ipv4, ipv6, text);
    return text;
}

/// The IPv6 address if it is set, else the IPv4 address, set or not.
inline AddressText ipv6First(const Ipv4 &ipv4, const Ipv6 &ipv6) { return isZero(ipv6) ? textOf(ipv4) : textOf(ipv6); }

/// Appends the line of a server, or `none` where its address is unset.
inline void appendServer(const AddressText &server, Format<AddressText> line, Line none) {
    if (server.isUnset()) append(none);
    else append<AddressText>(line, server);
}

/// One field for both: dotted if the address is IPv4-mapped or unset, else in IPv6 form.
inline AddressText mappedOrIpv6(const Ipv6 &address) {
    const bool dotted = utilIpv6AddrIsIpv4(address.octets) != 0 || isZero(address);
    return dotted ? textOf(address.lastFour()) : textOf(address);
}

/// Hexadecimal digits of two bytes.
inline AddressText hexOf(const u8 (&bytes)[2]) {
    AddressText text;
    utilAry2Str(bytes, 2, text.text);
    return text;
}

/// Text of a set of ports.
struct PortSetText {
    char text[UTIL_PORT_LIST_SIZE] = {};

    friend bool operator==(const PortSetText &a, const PortSetText &b) {
        return std::strncmp(a.text, b.text, sizeof a.text) == 0;
    }
};
template <> struct Formatted<PortSetText> : FormattedText {
    static constexpr void put(Argument *&to, const PortSetText &ports) { *to++ = {ports.text, sizeof ports.text}; }
};

inline PortSetText textOf(const PortBitmap &ports) {
    PortSetText text;
    utilPortBitmap2str(text.text, ports.bytes, portCount, portCount);
    return text;
}

/// Whether no port from 1 to 28 is set.
inline bool noPort(const PortBitmap &ports) { return utilBitmapIsAllClear(ports.bytes, portCount) == 1; }

/// All 28 ports but those of `ports`. The width of 29, one more than there are ports, is the switch's own.
inline PortBitmap complementOf(const PortBitmap &ports) {
    PortBitmap complement = {};
    utilBitmapSetAll(complement.bytes, portCount);
    utilBitmapNand(complement.bytes, ports.bytes, portCount + 1);
    return complement;
}
