/// Sets of ports, and the values that the ports of a section have.
#pragma once

#include "app/text/line_format.h"
#include "platform/image.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

/// A set of front ports. As an argument of a format it is a list in runs: 1-3,5,7-28.
struct PortSet {
    std::uint32_t bits = 0; ///< bit 0 is port 1

    constexpr bool empty() const { return bits == 0; }
    // A port is named by its index, from 0.
    constexpr void add(std::size_t index) { bits |= std::uint32_t{1} << index; }
    constexpr bool has(std::size_t index) const { return (bits >> index & 1) != 0; }
    friend constexpr bool operator==(PortSet a, PortSet b) { return a.bits == b.bits; }
};
static_assert(portCount <= 32);

template <> struct Formatted<PortSet> {
    static constexpr char kinds[] = "r";
    static constexpr void put(Argument *&to, PortSet ports) { (to++)->number = ports.bits; }
};

/// A set of front ports of which each is listed: 3,4,5.
struct EachPort {
    PortSet ports;
};
template <> struct Formatted<EachPort> {
    static constexpr char kinds[] = "e";
    static constexpr void put(Argument *&to, EachPort each) { (to++)->number = each.ports.bits; }
};

/// The front ports in a bitmap. The CPU port and bits beyond it are ignored.
PortSet portsIn(const u8 *bitmap);
template <std::size_t Bytes> PortSet portsIn(const Bitmap<Bytes> &bitmap) { return portsIn(bitmap.bytes); }

/// Whether two bitmaps have the same front ports.
template <std::size_t Bytes> bool samePorts(const Bitmap<Bytes> &a, const Bitmap<Bytes> &b) {
    return sameBytes(a, b) || portsIn(a) == portsIn(b);
}

/// One number a port, port 1 first.
template <std::size_t Ports> using PortValues = std::array<std::uint32_t, Ports>;

/// A field as the number that is stored; a negative one keeps its sign in 32 bits.
inline std::uint32_t storedNumber(u8 number) { return number; }
inline std::uint32_t storedNumber(i8 number) { return static_cast<std::uint32_t>(std::int32_t{number}); }
inline std::uint32_t storedNumber(const be16 &number) { return number.value(); }
inline std::uint32_t storedNumber(const be32 &number) { return number.value(); }
inline std::uint32_t storedNumber(const be_i32 &number) { return number.bits.value(); }

/// The values of one field of all ports.
template <class Record, std::size_t Ports, class Field>
PortValues<Ports> valuesOf(const Record (&records)[Ports], Field Record::*field) {
    PortValues<Ports> values;
    for (std::size_t i = 0; i < Ports; ++i) values[i] = storedNumber(records[i].*field);
    return values;
}

/// The values of a per-port array.
template <class Number, std::size_t Ports> PortValues<Ports> valuesOf(const Number (&numbers)[Ports]) {
    PortValues<Ports> values;
    for (std::size_t i = 0; i < Ports; ++i) values[i] = storedNumber(numbers[i]);
    return values;
}

/// 1 for each front port in a bitmap, 0 for the others.
PortValues<portCount> valuesOfBits(const u8 *bitmap);
template <std::size_t Bytes> PortValues<portCount> valuesOf(const Bitmap<Bytes> &bitmap) {
    return valuesOfBits(bitmap.bytes);
}

/// The ports that have `value`.
template <std::size_t Ports> PortSet portsWith(const PortValues<Ports> &values, std::uint32_t value) {
    PortSet ports;
    for (std::size_t i = 0; i < Ports; ++i)
        if (values[i] == value) ports.add(i);
    return ports;
}
