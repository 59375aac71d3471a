/// What a leaf holds: as a value, as people read it, and as JSON.
#pragma once

#include "inspect/fields.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace inspect {

using Json = nlohmann::ordered_json;
using Bytes = std::vector<unsigned char>;
/// Numbers of the bits that are set, from 0, in their order.
using BitNumbers = std::vector<unsigned>;

/// A text up to its first NUL, and what the field holds after it.
struct TextValue {
    std::string text;
    std::string hidden; ///< the bytes after the first NUL, without the NULs at the end
    bool isTerminated;  ///< the field has a NUL
};

using Value = std::variant<std::int64_t, TextValue, Mac, Ipv4, Ipv6, BitNumbers, Bytes>;

/// The value of a leaf in a record of its part.
Value valueOf(const Leaf &leaf, const void *record);
/// The number of a flag, number, code, port or VLAN id.
std::int64_t numberOf(const Field &field, const unsigned char *bytes);

/// The word of a code or special number, or of a flag; nothing where it has none. A port that is counted from 0 has its
/// name as the word.
std::optional<std::string> wordOf(const Field &field, std::int64_t number);
/// Whether a name stands for a bit, and not its number.
bool hasName(const Field &field, unsigned bit);

/// As people read it: `3 automatic`, `1-4,cpu`, `"text"`. Nothing in it is a control character.
std::string displayOf(const Leaf &leaf, const void *record);

/// The form of a value in JSON. It has every bit of the leaf.
Json jsonOf(const Leaf &leaf, const void *record);
/// Stores what `jsonOf` made of a leaf. False, and nothing is stored, if it is not a value of this leaf.
bool storeJson(const Leaf &leaf, const Json &json, void *record);

/// Characters as valid UTF-8 that prints nothing unforeseen: a backslash is `\\`, the NUL `\0`, another control
/// character and a byte that is not UTF-8 `\xHH`. NULs at the end are left out.
std::string escapeText(std::string_view characters);
/// The characters of an escaped text; nothing if it is not one.
std::optional<std::string> unescapeText(std::string_view escaped);

/// Whether two records have the same bytes in a leaf.
bool isSame(const Leaf &leaf, const void *a, const void *b);

std::string hexadecimal(std::span<const unsigned char> bytes);

} // namespace inspect
