/// Which fields a line of the text comes from, found by experiment.
///
/// A field is given other values, one after the other; the steps that declare to read it are rendered each time, and
/// their lines are compared with those of the record as it is. The emitters know nothing of it, the images are restored
/// after each value, and nothing is random: the same record gives the same answer.
#pragma once

#include "inspect/render.h"
#include "inspect/values.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inspect {

enum class Mode { full, delta };
inline constexpr Mode modes[] = {Mode::full, Mode::delta};

/// The record that a field is varied in.
enum class Origin { current, defaults, board, platform };
inline constexpr Origin origins[] = {Origin::current, Origin::defaults, Origin::board, Origin::platform};
constexpr Part partOf(Origin origin) {
    return origin == Origin::board ? Part::board : origin == Origin::platform ? Part::platform : Part::image;
}

/// A field of one record.
struct Source {
    Origin origin;
    Leaf leaf;
};

/// The stages of a text: the two lines of the header, then the rows of the order table.
inline constexpr std::size_t stageCount = 1 + std::size(order::steps);
/// The name of the emitter; "header" for the header.
std::string_view emitterOf(std::size_t stage);
/// Whether the mode calls the stage.
bool hasStage(Mode mode, std::size_t stage);
/// Whether the stage declares to read one of `size` bytes from `offset` on.
bool reads(Mode mode, std::size_t stage, Origin origin, std::size_t offset, std::size_t size);
inline bool reads(Mode mode, std::size_t stage, const Source &source) {
    return reads(mode, stage, source.origin, source.leaf.offset(), source.leaf.size());
}

/// A line, and the line that opened the block that it is in. A line that opens a block is in none.
struct StageLine {
    std::string_view text; ///< without the newline
    std::size_t begin = 0; ///< in the text of the stage
    std::size_t opener;    ///< number of the line; its own number outside of blocks
};

/// The text of a stage as lines.
struct StageText {
    std::string text;
    std::vector<StageLine> lines;
};

/// The lines of a text. A line that the text does not end is a line too.
std::vector<StageLine> linesOf(std::string_view text);

/// Lines of one text that another does not have, and the reverse. Lines are the same if they have the same characters
/// and stand in a block that the same line opens.
struct Difference {
    std::vector<std::size_t> gone; ///< numbers of lines of the first text
    std::vector<std::string> come; ///< lines of the second text
};
Difference differenceOf(const StageText &before, std::string_view after);

/// Values that a field is tried with: each code and one beyond, 0, 1, the largest, one more, one less; each bit of a
/// set; a text that is emptied, filled, longer by one character, with another first, last and first hidden character;
/// an address octet by octet. What the field holds in the other image, if it is not null, is one of them; for reserved
/// bytes it is the only one. None is the value that the field has, and none is there twice.
std::vector<Bytes> variationsOf(const Leaf &leaf, const unsigned char *now, const unsigned char *other);

/// What the values of a field do to the lines of a stage.
struct Influence {
    std::size_t stage = 0;
    std::vector<std::size_t> lines;     ///< lines that disappear or change with some value, in their order
    std::vector<std::string> appearing; ///< lines that some value brings, each once, in the order in which they came

    explicit operator bool() const { return !lines.empty() || !appearing.empty(); }
};

/// Varies the fields of what a `Renderer` holds. The records must not be changed by others while there is an engine.
class Engine {
public:
    explicit Engine(Renderer &renderer);

    /// The text of a stage, from the records as they are. Throws a RenderError.
    const StageText &text(Mode mode, std::size_t stage);

    /// The effects of a field on one stage, and on all stages that read it, without those that it has no effect on.
    Influence influence(const Source &source, Mode mode, std::size_t stage);
    std::vector<Influence> influences(const Source &source, Mode mode);

    /// The bytes of a field.
    const unsigned char *bytesOf(const Source &source);
    /// The record of an origin.
    unsigned char *recordOf(Origin origin);
    /// The field at the same place in the other image; nothing for the other records.
    static std::optional<Source> twinOf(const Source &source);

    /// Renders a stage from the records as they are now. Nothing if it does not fit the buffer, or a password has no
    /// MD5 form. The text is valid until the next rendering.
    std::optional<std::string_view> render(Mode mode, std::size_t stage);
    /// Stores bytes in a record.
    void store(Origin origin, std::size_t offset, std::span<const unsigned char> bytes);

private:
    Renderer &renderer_;
    PlatformRecord platform_ = {};
    std::array<std::array<std::optional<StageText>, stageCount>, std::size(modes)> texts_;
};

/// The fields that can have an effect on the lines of a record: those of rows that are in use in one of the images,
/// reserved bytes that differ, the board record and the settings. Calls `visit(const Source &)`.
template <class Visit> void forEachSource(Renderer &renderer, Visit visit) {
    forEachLeaf(Part::image, [&](const Leaf &leaf) {
        if (leaf.isReserved() && isSame(leaf, &renderer.current(), &renderer.defaults())) return;
        if (!isInUse(leaf, &renderer.current()) && !isInUse(leaf, &renderer.defaults())) return;
        visit(Source{Origin::current, leaf});
        visit(Source{Origin::defaults, leaf});
    });
    forEachLeaf(Part::board, [&](const Leaf &leaf) {
        if (!leaf.isReserved()) visit(Source{Origin::board, leaf});
    });
    forEachLeaf(Part::platform, [&](const Leaf &leaf) { visit(Source{Origin::platform, leaf}); });
}

} // namespace inspect
