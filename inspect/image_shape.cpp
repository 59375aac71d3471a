#include "inspect/image_shape.h"

#include "inspect/fields.h"
#include "inspect/values.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace inspect {
namespace {

/// A field whose value is one of few in every image that makes sense. Zero says nothing: it is everywhere.
struct Witness {
    const Field *field;
    std::size_t offset;

    bool isPlausible(std::int64_t value) const {
        switch (field->kind) {
        case Kind::flag: return value == 1;
        case Kind::code: return value >= 0 && value <= 64 && wordOf(*field, value).has_value();
        case Kind::vlanId: return value >= 1 && value <= 4094;
        case Kind::portNumber: return value >= 0 && value < portCount;
        default: return value > -0x1000 && value < 0x100000;
        }
    }
};

const std::vector<Witness> &witnesses() {
    // The first entries of a table are as good as all.
    constexpr std::size_t mostEntries = portCount;
    static const std::vector<Witness> all = [] {
        std::vector<Witness> found;
        forEachLeaf(Part::image, [&](const Leaf &leaf) {
            const Field &field = leaf.field();
            const bool isNumber = field.kind == Kind::number && field.size == sizeof(be32);
            const bool hasFewValues = field.kind == Kind::flag || field.kind == Kind::code ||
                                      field.kind == Kind::vlanId || field.kind == Kind::portNumber;
            const bool isEarly =
                std::ranges::all_of(leaf.steps(), [](const Leaf::Step &step) { return step.index < mostEntries; });
            if ((isNumber || hasFewValues) && isEarly) found.push_back({&field, leaf.offset()});
        });
        return found;
    }();
    return all;
}

struct Score {
    std::size_t good = 0;
    std::size_t bad = 0;
};

/// How much of an image makes sense if the byte for place i lies at `place(i)`. Gives up after `most` fields that do
/// not.
template <class Place> Score scoreOf(const ConfigImage &image, std::size_t most, bool reversed, Place place) {
    const unsigned char *const bytes = bytesOf(image, 0);
    Score score;
    for (const Witness &witness : witnesses()) {
        unsigned char value[sizeof(std::uint64_t)] = {};
        const std::size_t size = witness.field->size;
        bool isZero = true;
        for (std::size_t i = 0; i < size; ++i) {
            const std::size_t at = place(witness.offset + i);
            const unsigned char byte = at < sizeof image ? bytes[at] : static_cast<unsigned char>(0);
            value[reversed ? size - 1 - i : i] = byte;
            isZero = isZero && byte == 0;
        }
        if (isZero) continue;
        if (witness.isPlausible(numberOf(*witness.field, value))) {
            ++score.good;
        } else if (++score.bad > most) {
            break;
        }
    }
    return score;
}

} // namespace

Shape shapeOfBytes(std::span<const unsigned char> bytes) {
    const auto count = [&](unsigned char value) { return static_cast<std::size_t>(std::ranges::count(bytes, value)); };
    if (count(0) == bytes.size()) return {Shape::Kind::zero, "every byte is 0", "a record"};
    if (const std::size_t erased = count(0xff); erased > bytes.size() / 2)
        return {Shape::Kind::erased, std::to_string(erased) + " bytes of 0xff", "a record"};
    return {};
}

Shape shapeOf(const ConfigImage &image) {
    Shape ofBytes = shapeOfBytes({bytesOf(image, 0), sizeof image});
    if (ofBytes.kind != Shape::Kind::sound) return ofBytes;
    constexpr std::size_t fewBad = 12; // what a few wrong fields may have
    constexpr std::size_t enoughGood = 24;
    constexpr std::size_t farthest = 1024;
    const std::size_t all = witnesses().size();
    const Score stored = scoreOf(image, all, false, [](std::size_t i) { return i; });
    if (stored.bad < fewBad) return {};
    Shape shape;
    std::size_t best = std::max(enoughGood, stored.good);
    const auto offer = [&](const Score &score, Shape::Kind kind, const std::string &found,
                           const std::string &expected) {
        if (score.bad > stored.bad / 8 || score.good <= best) return;
        best = score.good;
        shape = {kind, found, expected};
    };
    const std::size_t most = stored.bad / 8;
    const std::string bigEndian = "big-endian numbers";
    offer(scoreOf(image, most, true, [](std::size_t i) { return i; }), Shape::Kind::swapped,
          "numbers with the least significant byte first", bigEndian);
    offer(scoreOf(image, most, false, [](std::size_t i) { return i ^ 1; }), Shape::Kind::swapped,
          "the bytes of each half word swapped", bigEndian);
    offer(scoreOf(image, most, false, [](std::size_t i) { return i ^ 3; }), Shape::Kind::swapped,
          "the bytes of each word in reverse order", bigEndian);
    for (std::size_t distance = 1; distance <= farthest; ++distance) {
        const std::string bytes = std::to_string(distance) + (distance == 1 ? " byte" : " bytes");
        // Places before the first byte wrap around to places after the last one.
        offer(scoreOf(image, most, false, [=](std::size_t i) { return i + distance; }), Shape::Kind::shifted,
              "everything lies " + bytes + " after its place",
              "the image from byte " + std::to_string(distance) + " of what it was read from on");
        offer(scoreOf(image, most, false, [=](std::size_t i) { return i - distance; }), Shape::Kind::shifted,
              "everything lies " + bytes + " before its place", "the " + bytes + " that are missing at the beginning");
    }
    return shape;
}

} // namespace inspect
