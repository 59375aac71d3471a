/// Texts that the platform makes: addresses, port sets, hexadecimal bytes.
#pragma once

#include "app/text/text.h"
#include "platform/image.h"
#include "platform/util.h"

#include <cstring>

/// Text of an address. What the platform writes into it is NUL-terminated; the bytes after the NUL are left as they
/// were.
struct AddressText {
    char text[UTIL_ADDRESS_SIZE] = {};

    /// "0.0.0.0", which means no address.
    bool isUnset() const;
    friend bool operator==(const AddressText &a, const AddressText &b) {
        return std::strncmp(a.text, b.text, sizeof a.text) == 0;
    }
};
template <> struct Formatted<AddressText> : FormattedText {
    static constexpr void put(Argument *&to, const AddressText &address) {
        *to++ = {address.text, sizeof address.text};
    }
};

bool isZero(const Ipv4 &address);
bool isZero(const Ipv6 &address);

/// Dotted form.
AddressText textOf(const Ipv4 &address);

/// IPv6 form, also of an address that carries an IPv4 one.
AddressText textOf(const Ipv6 &address);

/// The IPv4 address if it is set, else the IPv6 address if that is, else "0.0.0.0". Written over `text` as it is.
void writeIpv4First(const Ipv4 &ipv4, const Ipv6 &ipv6, AddressText &text);

/// The same into a text of its own.
AddressText ipv4First(const Ipv4 &ipv4, const Ipv6 &ipv6);

/// The IPv6 address if it is set, else the IPv4 address, set or not.
AddressText ipv6First(const Ipv4 &ipv4, const Ipv6 &ipv6);

/// Appends the line of a server, or `none` where its address is unset.
void appendServer(const AddressText &server, Format<AddressText> line, Line none);

/// One field for both: dotted if the address is IPv4-mapped or unset, else in IPv6 form.
AddressText mappedOrIpv6(const Ipv6 &address);

/// Hexadecimal digits of two bytes.
struct HexText {
    char text[UTIL_DIGITS_SIZE] = {};
};
template <> struct Formatted<HexText> : FormattedText {
    static constexpr void put(Argument *&to, const HexText &digits) { *to++ = {digits.text, sizeof digits.text}; }
};
HexText hexOf(const u8 (&bytes)[2]);

/// A set of ports as the platform lists it.
struct PortSetText {
    char text[UTIL_PORT_LIST_SIZE] = {};

    friend bool operator==(const PortSetText &a, const PortSetText &b) {
        return std::strncmp(a.text, b.text, sizeof a.text) == 0;
    }
};
template <> struct Formatted<PortSetText> : FormattedText {
    static constexpr void put(Argument *&to, const PortSetText &ports) { *to++ = {ports.text, sizeof ports.text}; }
};

/// The list of `ports`, written over `text` as it is: what the platform does not write stays.
void writePorts(const PortBitmap &ports, PortSetText &text);

/// The same into a text of its own.
PortSetText textOf(const PortBitmap &ports);

/// Whether no port from 1 to 28 is set.
bool noPort(const PortBitmap &ports);

/// A set for the platform to change, which may do that by words.
struct alignas(std::uint32_t) WorkingPorts : PortBitmap {};

/// All 28 ports but those of `ports`. The width of 29, one more than there are ports, is the switch's own.
WorkingPorts complementOf(const PortBitmap &ports);
