/// The field types that the switch's records are made of.
///
/// A record is bytes at fixed places, big-endian, on the switch as in a dump that was carried to a workstation.
/// Every field type is therefore an array of bytes of alignment 1: a record of such fields has no padding, may lie at
/// an odd offset and reads the same on every host. A number is read by name (`value()`); nothing converts silently.
/// Storing a number or a text is an assignment, so that stores can be composed as plainly as they are read.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

using u8 = std::uint8_t;
using i8 = std::int8_t;

/// Numbers of the host at any address. Read through these the compiler uses the loads that the machine has for it,
/// where a copy byte by byte would be a call.
struct [[gnu::packed, gnu::may_alias]] UnalignedHalf {
    std::uint16_t number;
};
struct [[gnu::packed, gnu::may_alias]] UnalignedWord {
    std::uint32_t number;
};

/// Unsigned 16-bit number, most significant byte first.
struct be16 {
    u8 bytes[2];

    constexpr std::uint16_t value() const {
        if (std::is_constant_evaluated()) return static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]);
        const std::uint16_t stored = reinterpret_cast<const UnalignedHalf *>(bytes)->number;
        return std::endian::native == std::endian::big ? stored : __builtin_bswap16(stored);
    }
    constexpr be16 &operator=(std::uint16_t number) {
        bytes[0] = static_cast<u8>(number >> 8);
        bytes[1] = static_cast<u8>(number);
        return *this;
    }
    friend constexpr bool operator==(const be16 &a, const be16 &b) { return a.value() == b.value(); }
};

/// Unsigned 32-bit number, most significant byte first.
struct be32 {
    u8 bytes[4];

    constexpr std::uint32_t value() const {
        if (std::is_constant_evaluated())
            return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
                   bytes[3];
        const std::uint32_t stored = reinterpret_cast<const UnalignedWord *>(bytes)->number;
        return std::endian::native == std::endian::big ? stored : __builtin_bswap32(stored);
    }
    constexpr be32 &operator=(std::uint32_t number) {
        bytes[0] = static_cast<u8>(number >> 24);
        bytes[1] = static_cast<u8>(number >> 16);
        bytes[2] = static_cast<u8>(number >> 8);
        bytes[3] = static_cast<u8>(number);
        return *this;
    }
    friend constexpr bool operator==(const be32 &a, const be32 &b) { return a.value() == b.value(); }
};

/// Signed 32-bit number (two's complement), most significant byte first.
struct be_i32 {
    be32 bits;

    constexpr std::int32_t value() const { return static_cast<std::int32_t>(bits.value()); }
    constexpr be_i32 &operator=(std::int32_t number) {
        bits = static_cast<std::uint32_t>(number);
        return *this;
    }
    friend constexpr bool operator==(const be_i32 &a, const be_i32 &b) { return a.bits == b.bits; }
};

/// Characters in a field of fixed width, padded with NUL. A text that fills its field has no terminator.
template <std::size_t Width> struct Text {
    char characters[Width];

    static constexpr std::size_t width = Width;

    constexpr bool empty() const { return characters[0] == '\0'; }

    /// Stores `text`, padded with NUL; what is longer than the field is cut at its width.
    constexpr Text &operator=(const char *text) {
        for (char &character : characters) {
            character = *text;
            if (*text != '\0') ++text;
        }
        return *this;
    }
};

/// A text that not everybody may read: a password, a community name, a shared secret.
template <std::size_t Width> struct Secret : Text<Width> { using Text<Width>::operator=; };

/// Whether two texts are the same up to the first NUL, or over `width` characters if there is none.
template <std::size_t A, std::size_t B>
// NOLINTNEXTLINE(bugprone-branch-clone): both branches are the same where the widths are
inline bool sameText(const Text<A> &a, const Text<B> &b, std::size_t width = A < B ? A : B) {
    return std::strncmp(a.characters, b.characters, width) == 0;
}

/// Whether two records, arrays, bitmaps or addresses agree in every byte.
template <class Record> inline bool sameBytes(const Record &a, const Record &b) {
    static_assert(alignof(Record) == 1);
    return std::memcmp(&a, &b, sizeof(Record)) == 0;
}

/// Whether two records agree in their first `size` bytes.
template <class Record> inline bool sameLeadingBytes(const Record &a, const Record &b, std::size_t size) {
    static_assert(alignof(Record) == 1);
    return std::memcmp(&a, &b, size < sizeof(Record) ? size : sizeof(Record)) == 0;
}

/// IEEE 802 address, first octet first.
struct Mac {
    u8 octets[6];
};

/// IPv4 address, first octet first.
struct Ipv4 {
    u8 octets[4];

    constexpr std::uint32_t value() const { return be32{{octets[0], octets[1], octets[2], octets[3]}}.value(); }
};

/// IPv6 address, first octet first.
struct Ipv6 {
    u8 octets[16];

    /// The last four octets: the IPv4 address of an IPv4-mapped one.
    constexpr const u8 *lastFour() const { return octets + 12; }
};

/// Set of numbers: bit n is bit n mod 8, least significant first, of byte n / 8. In a set of ports, bit n is port
/// n + 1 and bit 28 the CPU port. Emitters ask `utilBitmapCheck`, the platform's own reading of it.
template <std::size_t Bytes> struct Bitmap {
    u8 bytes[Bytes];

    constexpr Bitmap &set(unsigned bit) {
        bytes[bit / 8] = static_cast<u8>(bytes[bit / 8] | 1U << bit % 8);
        return *this;
    }
    constexpr Bitmap &clear(unsigned bit) {
        bytes[bit / 8] = static_cast<u8>(bytes[bit / 8] & ~(1U << bit % 8));
        return *this;
    }
};

using PortBitmap = Bitmap<4>;

/// Bytes between the fields that the program reads. They are the platform's.
template <std::size_t Size> struct Reserved { u8 bytes[Size]; };

/// A flag is on when it holds anything but zero.
constexpr bool isOn(u8 flag) { return flag != 0; }
constexpr bool isOn(const be32 &flag) { return flag.value() != 0; }

/// What every record must be for its bytes to be its layout.
template <class T, std::size_t Size>
inline constexpr bool record = sizeof(T) == Size &&
                               alignof(T) == 1 && std::is_standard_layout_v<T> &&std::is_trivial_v<T>;

static_assert(record<be16, 2> && record<be32, 4> && record<be_i32, 4> && record<Text<36>, 36> &&
              record<Secret<24>, 24>);
static_assert(record<Mac, 6> && record<Ipv4, 4> && record<Ipv6, 16> && record<PortBitmap, 4> && record<Reserved<3>, 3>);
static_assert(be16{{0x12, 0x34}}.value() == 0x1234 && be32{{0x12, 0x34, 0x56, 0x78}}.value() == 0x12345678);
static_assert(be_i32{{{0xff, 0xff, 0xff, 0xfe}}}.value() == -2);
