/// How the list of fields is written: a description of each field, completed by calls that follow each other. Places
/// and types are the compiler's.
#pragma once

#include "inspect/fields.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

namespace inspect {

/// The fields of a record, one specialisation each.
template <class Struct> struct FieldsOf;

template <class Struct> consteval Record recordWith();
template <class Struct> inline constexpr Record recordType = recordWith<Struct>();

/// A field whose description is completed by calls that follow each other.
struct Description : Field {
    template <class Change> constexpr Description with(Change change) const {
        Description changed = *this;
        change(changed);
        return changed;
    }

    constexpr Description flag() const {
        return with([](Field &f) { f.kind = Kind::flag; });
    }
    /// Numbers that each have a word; what all others mean, where they mean something.
    template <std::size_t Count>
    constexpr Description codes(const Word (&table)[Count], const char *others = nullptr) const {
        return with([&](Field &f) { f.kind = Kind::code, f.words = table, f.otherwise = others; });
    }
    /// Codes whose words another part of the program knows.
    constexpr Description codes(const char *(*wordsOf)(std::uint32_t), std::uint32_t known) const {
        return with([&](Field &f) { f.kind = Kind::code, f.wordOf = wordsOf, f.wordCount = known; });
    }
    /// A number of which some values are special.
    template <std::size_t Count> constexpr Description special(const Word (&table)[Count]) const {
        return with([&](Field &f) { f.words = table; });
    }
    constexpr Description port() const {
        return with([](Field &f) { f.kind = Kind::portNumber; });
    }
    constexpr Description vlan() const {
        return with([](Field &f) { f.kind = Kind::vlanId; });
    }
    constexpr Description ports() const {
        return with([](Field &f) { f.members = Members::ports; });
    }
    constexpr Description vlans() const {
        return with([](Field &f) { f.members = Members::vlans; });
    }
    /// A set of bits that have names. A number can be one too.
    template <std::size_t Count> constexpr Description bits(const Word (&table)[Count]) const {
        return with([&](Field &f) {
            f.isWord = f.kind != Kind::bits;
            f.kind = Kind::bits, f.members = Members::named, f.words = table;
        });
    }
    /// An array of bytes that is one value.
    constexpr Description bytes() const {
        return with([](Field &f) { f.kind = Kind::bytes, f.size *= f.count, f.count = 0; });
    }
    /// Number of the first entry.
    constexpr Description from(int number) const {
        return with([=](Field &f) { f.firstIndex = number; });
    }
    constexpr Description unit(const char *text) const {
        return with([=](Field &f) { f.unit = text; });
    }
    constexpr Description note(const char *text) const {
        return with([=](Field &f) { f.note = text; });
    }
    constexpr Description compared(const char *text) const {
        return with([=](Field &f) { f.comparedOnly = true, f.note = text; });
    }
    /// The set, a member of the same record, that says which entries are in use.
    constexpr Description usedAsIn(std::string_view set) const {
        return with([=](Field &f) { f.inUse = set; });
    }
};

/// How a type of `platform/record.h` is stored, and what it holds unless the list says more.
template <class Type> struct Stored {
    static constexpr std::string_view name = FieldsOf<Type>::type;
    static constexpr Kind kind = Kind::record;
};
#define STORED(Type, text, what)                                                                                       \
    template <> struct Stored<Type> {                                                                                  \
        static constexpr std::string_view name = text;                                                                 \
        static constexpr Kind kind = Kind::what;                                                                       \
    };
STORED(u8, "u8", number)
STORED(i8, "i8", number)
STORED(be16, "be16", number)
STORED(be32, "be32", number)
STORED(be_i32, "be_i32", number)
STORED(Mac, "MAC", mac)
STORED(Ipv4, "IPv4", ipv4)
STORED(Ipv6, "IPv6", ipv6)
#undef STORED
// NOLINTBEGIN(bugprone-macro-parentheses): a name of a type
#define STORED(Type, text, what)                                                                                       \
    template <std::size_t N> struct Stored<Type<N>> {                                                                  \
        static constexpr std::string_view name = text;                                                                 \
        static constexpr Kind kind = Kind::what;                                                                       \
    };
// NOLINTEND(bugprone-macro-parentheses)
STORED(Text, "text", text)
STORED(Secret, "secret", secret)
STORED(Bitmap, "bitmap", bits)
STORED(Reserved, "reserved", reserved)
#undef STORED

template <class Member> constexpr Description describe(std::string_view name, std::size_t offset) {
    using Entry = std::remove_extent_t<Member>;
    Description field = {};
    field.name = name;
    field.offset = offset;
    field.size = sizeof(Entry);
    field.count = std::extent_v<Member>;
    field.type = Stored<Entry>::name;
    field.kind = Stored<Entry>::kind;
    field.isSigned = std::is_same_v<Entry, i8> || std::is_same_v<Entry, be_i32>;
    if constexpr (Stored<Entry>::kind == Kind::record) field.record = &recordType<Entry>;
    return field;
}

/// The fields follow each other from the record's first byte to its last. Arrays are numbered, and what tells of use is
/// there.
consteval bool isWhole(std::span<const Field> fields, std::size_t size) {
    std::size_t end = 0;
    for (const Field &field : fields) {
        if (field.offset != end || field.size == 0) return false;
        if ((field.count != 0) != (field.firstIndex >= 0)) return false;
        if (!field.inUse.empty()) {
            bool found = false;
            for (const Field &other : fields) found = found || (other.name == field.inUse && other.kind == Kind::bits);
            if (!found) return false;
        }
        end += field.bytes();
    }
    return end == size;
}

template <class Struct> consteval Record recordWith() {
    using Fields = FieldsOf<Struct>;
    static_assert(isWhole(Fields::list, sizeof(Struct)), "the list of fields has a gap, an overlap or no numbering");
    Record result = {Fields::type, sizeof(Struct), Fields::list, nullptr};
    for (const Field &field : Fields::list)
        if (field.name == Fields::inUse) result.inUse = &field;
    return result;
}

/// The fields of a record, in their order, and the member that says that an entry is in use.
#define FIELDS_OF(Struct, used)                                                                                        \
    template <> struct FieldsOf<Struct> {                                                                              \
        using Type = Struct;                                                                                           \
        static constexpr std::string_view type = #Struct;                                                              \
        static constexpr std::string_view inUse = used;                                                                \
        static const Field list[];                                                                                     \
    };                                                                                                                 \
    constexpr Field FieldsOf<Struct>::list[]
#define F(member) describe<decltype(Type::member)>(#member, offsetof(Type, member))

} // namespace inspect
