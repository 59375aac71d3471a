/// The fields of the records: the configuration image, the board record and the settings of the platform.
///
/// One list, `field_list.cpp`, names every field with its type, codes, unit and numbering. It takes places and types
/// from `platform/image.h` and `platform/board.h` through the compiler and covers each record from its first byte to
/// its last, so that a field that is added there and not here does not compile.
///
/// A leaf is one field of one entry: `ports[3].speed`. There are some 30,000 in an image. Leaves are made while they
/// are walked; a path is put together only when it is asked for.
#pragma once

#include "platform/board.h"
#include "platform/host/store.h"
#include "platform/image.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inspect {

/// What a field holds.
enum class Kind {
    flag,       ///< on when it is not 0
    number,     ///< a number; words name special values
    code,       ///< one of the numbers that have a word
    portNumber, ///< a port, counted from 0
    vlanId,     ///< an 802.1Q VLAN
    text,       ///< characters up to the first NUL
    secret,     ///< a text that not everybody may read
    mac,
    ipv4,
    ipv6,
    bits,     ///< a set
    bytes,    ///< shown in hexadecimal
    reserved, ///< the platform's
    record,   ///< a record with fields of its own; never a leaf
};

/// What the members of a set are.
enum class Members {
    bits,  ///< the bits themselves, numbered from 0
    ports, ///< bit n is port n + 1, and one bit is the CPU port
    vlans, ///< bit n is VLAN n
    named, ///< bits that have a word
};

/// The word of a code, of a special number or of a bit.
struct Word {
    std::int64_t code;
    const char *word;
};

struct Record;

/// A member of a record.
struct Field {
    std::string_view name;
    std::string_view type;                          ///< how it is stored: "u8", "be32", "text" …
    std::size_t offset = 0;                         ///< in its record
    std::size_t size = 0;                           ///< bytes of one entry
    std::size_t count = 0;                          ///< entries of an array; 0: not an array
    Kind kind = Kind::number;                       ///< what an entry holds
    bool isSigned = false;                          ///< a number has a sign
    bool isWord = false;                            ///< a set that is stored as a number: bit 0 is in the last byte
    const Record *record = nullptr;                 ///< the fields of an entry that is a record
    int firstIndex = -1;                            ///< number of the first entry
    std::span<const Word> words = {};               ///< words of codes, special numbers or bits
    const char *otherwise = nullptr;                ///< what every code without a word means, if it means something
    const char *(*wordOf)(std::uint32_t) = nullptr; ///< words that another part of the program knows
    std::uint32_t wordCount = 0;                    ///< how many of them there are, from 0 on
    Members members = Members::bits;                ///< what a set holds
    const char *unit = nullptr;                     ///< unit of a number, where it is known
    const char *note = nullptr;                     ///< what else reads the bytes, or that nothing prints them
    bool comparedOnly = false; ///< no command has a value of it; it counts when two images are compared
    std::string_view inUse;    ///< the set, a member of the same record, that says which entries are in use

    constexpr std::size_t bytes() const { return size * (count == 0 ? 1 : count); }
};

/// The type of a record: its fields in their order, without gap or overlap.
struct Record {
    std::string_view type;
    std::size_t size;
    std::span<const Field> fields;
    const Field *inUse; ///< says that an entry of a table is in use: not 0, or a text that is not empty

    /// The field of this name, or null.
    const Field *find(std::string_view name) const;
};

/// The settings of the platform as a record, so that they have fields too.
struct PlatformRecord {
    be_i32 active_bank;
    u8 password_encryption;
};
static_assert(record<PlatformRecord, 5>);
PlatformRecord platformRecordOf(const PlatformConf &conf);

/// The records that have fields.
enum class Part { image, board, platform };
inline constexpr Part parts[] = {Part::image, Part::board, Part::platform};
/// "image", "board" or "platform".
std::string_view nameOf(Part part);
const Record &recordOf(Part part);

/// One field of one entry, found by its way from the record down. The bytes are not part of it: whoever asks for a
/// value passes the record.
class Leaf {
public:
    /// A field on the way, and the entry of it, counted from 0.
    struct Step {
        const Field *field;
        std::size_t index;
    };

    explicit Leaf(Part part) : part_(part) {}

    Part part() const { return part_; }
    const Field &field() const { return *steps_[depth_ - 1].field; }
    /// In the image, the board record or the platform's settings.
    std::size_t offset() const { return offset_; }
    std::size_t size() const { return field().size; }
    bool isReserved() const { return field().kind == Kind::reserved; }
    std::span<const Step> steps() const { return {steps_.data(), depth_}; }
    /// As in `ports[3].speed`; those of the other records begin with `board.` and `platform.`.
    std::string path() const;
    /// The bytes of the leaf in a record of its part.
    const unsigned char *in(const void *record) const { return static_cast<const unsigned char *>(record) + offset_; }
    unsigned char *in(void *record) const { return static_cast<unsigned char *>(record) + offset_; }

    /// Goes down into an entry of a field, and up again.
    void push(const Field &field, std::size_t index) {
        steps_[depth_++] = {&field, index};
        offset_ += field.offset + index * field.size;
    }
    void pop() {
        --depth_;
        offset_ -= steps_[depth_].field->offset + steps_[depth_].index * steps_[depth_].field->size;
    }

    friend bool operator==(const Leaf &a, const Leaf &b) {
        return a.part_ == b.part_ && a.offset_ == b.offset_ && &a.field() == &b.field();
    }

private:
    static constexpr std::size_t mostSteps = 4;

    Part part_;
    std::size_t depth_ = 0;
    std::size_t offset_ = 0;
    std::array<Step, mostSteps> steps_ = {};
};

/// Calls `visit(const Leaf &)` for every leaf below `record`, in the order of the bytes.
template <class Visit> void walkBelow(Leaf &way, const Record &record, Visit &visit) {
    for (const Field &field : record.fields) {
        const std::size_t entries = field.count == 0 ? 1 : field.count;
        for (std::size_t index = 0; index < entries; ++index) {
            way.push(field, index);
            if (field.record != nullptr) walkBelow(way, *field.record, visit);
            else visit(static_cast<const Leaf &>(way));
            way.pop();
        }
    }
}

/// Calls `visit(const Leaf &)` for every leaf of a part, reserved bytes included, in the order of the bytes.
template <class Visit> void forEachLeaf(Part part, Visit visit) {
    Leaf way(part);
    walkBelow(way, recordOf(part), visit);
}

/// The leaf that holds a byte; nothing beyond the end.
std::optional<Leaf> leafAt(Part part, std::size_t offset);
/// The leaf of a path; nothing if there is none.
std::optional<Leaf> leafOf(std::string_view path);

/// Whether the entries of tables that the leaf lies in are all in use in `record`, a record of its part.
bool isInUse(const Leaf &leaf, const void *record);
/// Whether entry `index` (from 0) of `table` is in use. `owner` is the record that the table is a member of.
bool isEntryInUse(const Record &ownerType, const Field &table, std::size_t index, const void *owner);

/// A field whose bytes another setting has too. The field of the list is their owner.
struct Sharing {
    std::size_t offset;     ///< of the owner, in the image
    std::string_view other; ///< path of the other setting, which has no field of its own
};
/// All of them.
std::span<const Sharing> sharedFields();
/// The other setting that has the bytes of a leaf; empty if there is none.
std::string_view otherSettingOf(const Leaf &leaf);

/// A shell pattern over paths. Brackets are those of an index: `ports[*].speed`, `users[?]`. A pattern that matches the
/// front of a path, up to a dot or a bracket, matches everything below it: `ports[3]`, `acl`.
class PathPattern {
public:
    explicit PathPattern(std::string_view pattern);
    bool matches(const std::string &path) const;
    /// It has no wildcard: it names one thing.
    bool isPlain() const { return plain_; }
    const std::string &text() const { return text_; }

private:
    std::string text_;
    std::string escaped_;
    bool plain_;
};

} // namespace inspect
