#include "inspect/values.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <arpa/inet.h>
#include <charconv>
#include <cstdio>
#include <cstring>

namespace inspect {
namespace {

/// The member that a bit stands for: a name, or a number that no name stands for.
Json memberOf(const Field &field, unsigned bit) {
    switch (field.members) {
    case Members::ports:
        if (bit == cpuPort) return "cpu";
        return bit + 1;
    case Members::named:
        for (const Word &word : field.words)
            if (word.code == bit) return word.word;
        break;
    case Members::bits:
    case Members::vlans: break;
    }
    return bit;
}

constexpr std::string_view digits = "0123456789abcdef";

bool isBitSet(const Field &field, const unsigned char *bytes, std::size_t bit) {
    const std::size_t byte = field.isWord ? field.size - 1 - bit / 8 : bit / 8;
    return (bytes[byte] >> bit % 8 & 1) != 0;
}

void setBit(const Field &field, unsigned char *bytes, std::size_t bit) {
    const std::size_t byte = field.isWord ? field.size - 1 - bit / 8 : bit / 8;
    bytes[byte] = static_cast<unsigned char>(bytes[byte] | 1U << bit % 8);
}

BitNumbers bitsOf(const Field &field, const unsigned char *bytes) {
    BitNumbers bits;
    for (unsigned bit = 0; bit < 8 * field.size; ++bit)
        if (isBitSet(field, bytes, bit)) bits.push_back(bit);
    return bits;
}

TextValue textOf(const Field &field, const unsigned char *bytes) {
    const std::string_view all(reinterpret_cast<const char *>(bytes), field.size);
    const std::size_t end = all.find('\0');
    if (end == std::string_view::npos) return {std::string(all), "", false};
    const std::string_view rest = all.substr(end + 1);
    return {std::string(all.substr(0, end)), std::string(rest.substr(0, rest.find_last_not_of('\0') + 1)), true};
}

std::string macText(const unsigned char *octets) {
    char text[18];
    std::snprintf(text, sizeof text, "%02x:%02x:%02x:%02x:%02x:%02x", octets[0], octets[1], octets[2], octets[3],
                  octets[4], octets[5]);
    return text;
}

std::string addressText(int family, const unsigned char *octets) {
    char text[INET6_ADDRSTRLEN] = "";
    inet_ntop(family, octets, text, sizeof text);
    return text;
}

/// Length of the UTF-8 sequence that `text` begins with; 0 if it begins with none, or with a control character.
std::size_t printableLength(std::string_view text) {
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = at(0);
    if (first < 0x80) return first >= 0x20 && first != 0x7f ? 1 : 0;
    const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((at(i) & 0xc0) != 0x80) return 0;
    const unsigned second = at(1);
    // Control characters of Latin-1; forms that are too long; surrogates; beyond the last character.
    if ((first == 0xc2 && second < 0xa0) || (first == 0xe0 && second < 0xa0) || (first == 0xed && second > 0x9f) ||
        (first == 0xf0 && second < 0x90) || (first == 0xf4 && second > 0x8f))
        return 0;
    // Marks that change the direction or break the line of what is printed.
    if (first == 0xe2 && second == 0x80 && ((at(2) >= 0x8e && at(2) <= 0x8f) || (at(2) >= 0xa8 && at(2) <= 0xae)))
        return 0;
    if (first == 0xe2 && second == 0x81 && at(2) >= 0xa6 && at(2) <= 0xa9) return 0;
    return length;
}

int digitOf(char character) {
    const std::size_t digit = digits.find(character);
    return digit == std::string_view::npos ? -1 : static_cast<int>(digit);
}

std::optional<Bytes> bytesOfHexadecimal(std::string_view text) {
    if (text.size() % 2 != 0) return std::nullopt;
    Bytes bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int high = digitOf(text[i]);
        const int low = digitOf(text[i + 1]);
        if (high < 0 || low < 0) return std::nullopt;
        bytes.push_back(static_cast<unsigned char>(high << 4 | low));
    }
    return bytes;
}

/// Numbers and runs of them, as in 1-3,5, and the names.
std::string listOf(const Field &field, const BitNumbers &bits) {
    std::string list;
    const auto add = [&](const std::string &entry) {
        if (!list.empty()) list += ',';
        list += entry;
    };
    for (std::size_t i = 0; i < bits.size();) {
        const Json member = memberOf(field, bits[i]);
        if (member.is_string()) {
            add(member.get<std::string>());
            ++i;
            continue;
        }
        std::size_t last = i;
        while (last + 1 < bits.size() && bits[last + 1] == bits[last] + 1 && !hasName(field, bits[last + 1])) ++last;
        if (last - i < 2) last = i;
        add(member.dump() + (last == i ? "" : "-" + memberOf(field, bits[last]).dump()));
        i = last + 1;
    }
    return list.empty() ? "-" : list;
}

std::string bytesDisplay(std::span<const unsigned char> bytes) {
    constexpr std::size_t most = 32;
    const bool same = std::ranges::all_of(bytes, [&](unsigned char byte) { return byte == bytes[0]; });
    if (same && bytes.size() > 2) return std::to_string(bytes.size()) + " x " + hexadecimal(bytes.first(1));
    if (bytes.size() <= most) return hexadecimal(bytes);
    return hexadecimal(bytes.first(most)) + "... (" + std::to_string(bytes.size()) + " bytes)";
}

} // namespace

std::int64_t numberOf(const Field &field, const unsigned char *bytes) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < field.size; ++i) number = number << 8 | bytes[i];
    if (!field.isSigned || field.size == 0) return static_cast<std::int64_t>(number);
    const unsigned unused = static_cast<unsigned>(64 - 8 * field.size);
    return static_cast<std::int64_t>(number << unused) >> unused;
}

Value valueOf(const Leaf &leaf, const void *record) {
    const Field &field = leaf.field();
    const unsigned char *const bytes = leaf.in(record);
    const auto copied = [&]<class Type>(Type copy) {
        std::memcpy(&copy, bytes, sizeof copy);
        return copy;
    };
    switch (field.kind) {
    case Kind::flag:
    case Kind::number:
    case Kind::code:
    case Kind::portNumber:
    case Kind::vlanId: return numberOf(field, bytes);
    case Kind::text:
    case Kind::secret: return textOf(field, bytes);
    case Kind::mac: return copied(Mac());
    case Kind::ipv4: return copied(Ipv4());
    case Kind::ipv6: return copied(Ipv6());
    case Kind::bits: return bitsOf(field, bytes);
    case Kind::bytes:
    case Kind::reserved:
    case Kind::record: break;
    }
    return Bytes(bytes, bytes + field.size);
}

std::optional<std::string> wordOf(const Field &field, std::int64_t number) {
    if (field.kind == Kind::flag) return number == 0 ? "off" : "on";
    if (field.kind == Kind::portNumber) {
        if (number >= 0 && number < portCount) return "port " + std::to_string(number + 1);
        return std::nullopt;
    }
    for (const Word &word : field.words)
        if (word.code == number) return word.word;
    if (field.wordOf != nullptr && number >= 0 && number < field.wordCount)
        return field.wordOf(static_cast<std::uint32_t>(number));
    if (field.otherwise != nullptr) return field.otherwise;
    return std::nullopt;
}

bool hasName(const Field &field, unsigned bit) { return memberOf(field, bit).is_string(); }

std::string displayOf(const Leaf &leaf, const void *record) {
    const Field &field = leaf.field();
    const unsigned char *const bytes = leaf.in(record);
    switch (field.kind) {
    case Kind::flag:
    case Kind::number:
    case Kind::code:
    case Kind::portNumber:
    case Kind::vlanId: {
        const std::int64_t number = numberOf(field, bytes);
        const std::optional<std::string> word = wordOf(field, number);
        return std::to_string(number) + (word ? " " + *word : "");
    }
    case Kind::text:
    case Kind::secret: return '"' + escapeText({reinterpret_cast<const char *>(bytes), field.size}) + '"';
    case Kind::mac: return macText(bytes);
    case Kind::ipv4: return addressText(AF_INET, bytes);
    case Kind::ipv6: return addressText(AF_INET6, bytes);
    case Kind::bits: return listOf(field, bitsOf(field, bytes));
    case Kind::bytes:
    case Kind::reserved:
    case Kind::record: break;
    }
    return bytesDisplay({bytes, field.size});
}

Json jsonOf(const Leaf &leaf, const void *record) {
    const Field &field = leaf.field();
    const unsigned char *const bytes = leaf.in(record);
    switch (field.kind) {
    case Kind::flag:
    case Kind::number:
    case Kind::code:
    case Kind::portNumber:
    case Kind::vlanId: return numberOf(field, bytes);
    case Kind::text:
    case Kind::secret: return escapeText({reinterpret_cast<const char *>(bytes), field.size});
    case Kind::mac: return macText(bytes);
    case Kind::ipv4: return addressText(AF_INET, bytes);
    case Kind::ipv6: return addressText(AF_INET6, bytes);
    case Kind::bits: {
        Json members = Json::array();
        for (const unsigned bit : bitsOf(field, bytes)) members.push_back(memberOf(field, bit));
        return members;
    }
    case Kind::bytes:
    case Kind::reserved:
    case Kind::record: break;
    }
    return hexadecimal({bytes, field.size});
}

namespace {

/// The bytes that a JSON value of a field stands for; nothing if it is none.
std::optional<Bytes> bytesOfJson(const Field &field, const Json &json) {
    Bytes bytes(field.size);
    switch (field.kind) {
    case Kind::flag:
    case Kind::number:
    case Kind::code:
    case Kind::portNumber:
    case Kind::vlanId: {
        if (!json.is_number_integer()) return std::nullopt;
        const std::int64_t number = json.get<std::int64_t>();
        for (std::size_t i = 0; i < field.size; ++i)
            bytes[field.size - 1 - i] = static_cast<unsigned char>(number >> 8 * i);
        if (numberOf(field, bytes.data()) != number) return std::nullopt;
        return bytes;
    }
    case Kind::bits:
        if (!json.is_array()) return std::nullopt;
        for (const Json &member : json) {
            unsigned bit = 0;
            while (bit < 8 * field.size && memberOf(field, bit) != member) ++bit;
            if (bit == 8 * field.size) return std::nullopt;
            setBit(field, bytes.data(), bit);
        }
        return bytes;
    default: break;
    }
    if (!json.is_string()) return std::nullopt;
    const std::string text = json.get<std::string>();
    switch (field.kind) {
    case Kind::text:
    case Kind::secret: {
        const std::optional<std::string> characters = unescapeText(text);
        if (!characters || characters->size() > field.size) return std::nullopt;
        std::ranges::copy(*characters, bytes.begin());
        return bytes;
    }
    case Kind::ipv4:
        if (inet_pton(AF_INET, text.c_str(), bytes.data()) != 1) return std::nullopt;
        return bytes;
    case Kind::ipv6:
        if (inet_pton(AF_INET6, text.c_str(), bytes.data()) != 1) return std::nullopt;
        return bytes;
    case Kind::mac: {
        std::string packed = text;
        std::erase(packed, ':');
        std::optional<Bytes> octets = bytesOfHexadecimal(packed);
        if (!octets || octets->size() != field.size || macText(octets->data()) != text) return std::nullopt;
        return octets;
    }
    default: break;
    }
    std::optional<Bytes> raw = bytesOfHexadecimal(text);
    if (raw && raw->size() != field.size) raw.reset();
    return raw;
}

} // namespace

bool storeJson(const Leaf &leaf, const Json &json, void *record) {
    const std::optional<Bytes> bytes = bytesOfJson(leaf.field(), json);
    if (!bytes) return false;
    std::ranges::copy(*bytes, leaf.in(record));
    return true;
}

std::string escapeText(std::string_view characters) {
    characters = characters.substr(0, characters.find_last_not_of('\0') + 1);
    std::string escaped;
    escaped.reserve(characters.size());
    while (!characters.empty()) {
        const char first = characters[0];
        std::size_t length = printableLength(characters);
        if (length != 0 && first != '\\') {
            escaped += characters.substr(0, length);
        } else {
            length = 1;
            const unsigned byte = static_cast<unsigned char>(first);
            escaped += '\\';
            if (first == '\\') escaped += '\\';
            else if (first == '\0') escaped += '0';
            else (((escaped += 'x') += digits[byte >> 4]) += digits[byte & 0xf]);
        }
        characters.remove_prefix(length);
    }
    return escaped;
}

std::optional<std::string> unescapeText(std::string_view escaped) {
    std::string characters;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        if (escaped[i] != '\\') {
            characters += escaped[i];
            continue;
        }
        const char kind = ++i < escaped.size() ? escaped[i] : '\0';
        if (kind == '\\') {
            characters += '\\';
        } else if (kind == '0') {
            characters += '\0';
        } else if (kind == 'x' && i + 2 < escaped.size() && digitOf(escaped[i + 1]) >= 0 &&
                   digitOf(escaped[i + 2]) >= 0) {
            characters += static_cast<char>(digitOf(escaped[i + 1]) << 4 | digitOf(escaped[i + 2]));
            i += 2;
        } else {
            return std::nullopt;
        }
    }
    return characters;
}

bool isSame(const Leaf &leaf, const void *a, const void *b) {
    return std::memcmp(leaf.in(a), leaf.in(b), leaf.size()) == 0;
}

std::string hexadecimal(std::span<const unsigned char> bytes) {
    std::string text;
    text.reserve(2 * bytes.size());
    for (const unsigned char byte : bytes) (text += digits[byte >> 4]) += digits[byte & 0xf];
    return text;
}

} // namespace inspect
