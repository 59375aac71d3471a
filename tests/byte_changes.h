/// Which bytes of the image count: each byte is changed alone, and the text is compared with that of the store.
#pragma once

#include "stores.h"

#include <cstddef>
#include <initializer_list>
#include <map>
#include <ostream>
#include <set>

/// Bytes of the image, by their offsets.
class Places {
public:
    /// From the first byte to the last, or one byte.
    struct Range {
        std::size_t first;
        std::size_t last;
        Range(std::size_t only) : first(only), last(only) {}
        Range(std::size_t from, std::size_t to) : first(from), last(to) {}
    };

    Places() = default;
    Places(std::initializer_list<Range> ranges) {
        for (const Range &range : ranges) add(range.first, range.last);
    }

    void add(std::size_t first, std::size_t last) {
        for (std::size_t offset = first; offset <= last; ++offset) offsets_.insert(offsets_.end(), offset);
    }
    /// Those from `first` to `last`.
    Places within(std::size_t first, std::size_t last) const {
        Places found;
        for (const std::size_t offset : offsets_)
            if (first <= offset && offset <= last) found.offsets_.insert(offset);
        return found;
    }

    auto begin() const { return offsets_.begin(); }
    auto end() const { return offsets_.end(); }
    bool operator==(const Places &other) const = default;
    friend Places operator+(Places a, const Places &b) {
        a.offsets_.insert(b.begin(), b.end());
        return a;
    }
    friend void PrintTo(const Places &places, std::ostream *out) {
        for (auto at = places.begin(); at != places.end(); ++at) {
            const std::size_t first = *at;
            std::size_t last = first;
            for (auto next = at; ++next != places.end() && *next == last + 1; at = next) ++last;
            *out << " " << first;
            if (last != first) *out << "-" << last;
        }
    }

private:
    std::set<std::size_t> offsets_;
};

inline Places span(std::size_t first, std::size_t length) { return {{first, first + length - 1}}; }
/// `places` of a record at `base`.
inline Places at(std::size_t base, const Places &places) {
    Places moved;
    for (const std::size_t place : places) moved.add(base + place, base + place);
    return moved;
}
/// `places` of each of `count` records.
inline Places each(std::size_t base, std::size_t size, std::size_t count, const Places &places, std::size_t step = 1) {
    Places all;
    for (std::size_t i = 0; i < count; i += step)
        for (const std::size_t place : places) all.add(base + i * size + place, base + i * size + place);
    return all;
}

enum class Image { current, defaults };

/// Bits of a byte that are inverted, all at once; a byte is tried with each of them.
using Changes = std::vector<u8>;
const Changes oneBit = {0x40};
const Changes allBits = {0xff};
const Changes severalBits = {0x01, 0x02, 0x80, 0xff};

/// Texts that differ from that of the store, each with the byte whose change brings it about.
using ChangedTexts = std::multimap<std::size_t, std::string>;

/// Renders the store with each byte of `within`, in one image, changed alone.
inline ChangedTexts changedTexts(Mode mode, const char *emitter, const Given &given, Image image, const Places &within,
                                 const Changes &changes) {
    const std::string unchanged = textOfStep(mode, emitter, given);
    const order::Call call = stepOf(mode, emitter);
    u8 *const bytes = reinterpret_cast<u8 *>(image == Image::current ? gSysConfig : gDefConfig);
    ChangedTexts texts;
    for (const std::size_t offset : within) {
        const u8 stored = bytes[offset];
        for (const u8 bits : changes) {
            bytes[offset] ^= bits;
            restartText();
            call();
            bytes[offset] = stored;
            if (unchanged != Temp_Configuration) texts.emplace(offset, Temp_Configuration);
        }
    }
    return texts;
}

inline Places placesOf(const ChangedTexts &texts) {
    Places places;
    for (const auto &[offset, text] : texts) places.add(offset, offset);
    return places;
}

/// The bytes of `within`, in one image, whose change alone changes the text.
inline Places bytesThatCount(Mode mode, const char *emitter, const Given &given, Image image, const Places &within,
                             const Changes &changes) {
    return placesOf(changedTexts(mode, emitter, given, image, within, changes));
}

/// Bytes of the image, from `first` to `last`, and what a text begins with that one of them alone brings about.
struct Counting {
    std::size_t first;
    std::size_t last;
    std::string text;
};

/// `given` must leave nothing to write in delta mode. Holds that each byte from `first` to `last` of the current image
/// that lies in a span brings about a text that begins as the span says, and each other one none.
inline void expectCounting(const char *emitter, const Given &given, std::size_t first, std::size_t last,
                           const std::vector<Counting> &spans) {
    ASSERT_EQ("", textOfStep(Mode::delta, emitter, given));
    const ChangedTexts texts = changedTexts(Mode::delta, emitter, given, Image::current, {{first, last}}, oneBit);
    Places expected;
    for (const Counting &span : spans) expected.add(span.first, span.last);
    EXPECT_EQ(expected.within(first, last), placesOf(texts));
    for (const auto &[offset, text] : texts)
        for (const Counting &span : spans)
            if (span.first <= offset && offset <= span.last) {
                EXPECT_EQ(span.text, text.substr(0, span.text.size())) << "byte " << offset;
            }
}

/// Holds that the full-mode text changes with each byte from `first` to `last` of the current image that is one of
/// `read`, and with no other.
inline void expectRead(const char *emitter, const Given &given, std::size_t first, std::size_t last,
                       const Places &read) {
    EXPECT_EQ(read.within(first, last),
              bytesThatCount(Mode::full, emitter, given, Image::current, {{first, last}}, oneBit));
}

/// Changes the byte at `offset` of the current image, after `given`.
inline Given withByte(const Given &given, std::size_t offset, u8 change) {
    return [=](ConfigImage &current, ConfigImage &defaults) {
        given(current, defaults);
        reinterpret_cast<u8 *>(&current)[offset] ^= change;
    };
}
