/// The lines that the emitters can write, as found in the sources of `sections/`.
///
/// Every line of the text appears whole in the source of its emitter: in the emitter's own function or in a function of
/// the same file that it calls. This finds them without running anything.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace inspect {

/// A string literal that is a line or, without a newline at its end, the beginning or a piece of one.
struct Literal {
    std::string text;
    std::string file; ///< without its folder
    std::size_t sourceLine = 0;
    bool inFull = true;    ///< not the delta form of a pair
    bool inDelta = true;   ///< not the full form of a pair
    bool isRepeat = false; ///< an earlier one is the same but for blanks at the end; the second of a pair is none

    /// Its text without the blanks and the newline at its end.
    std::string_view command() const;
    /// Whether `line` can be an output of it: each conversion stands for characters of its kind.
    bool matches(std::string_view line) const;
    /// How many characters of a line it fixes. Of two literals that match, the one that fixes more wrote the line.
    std::size_t fixedCharacters() const;
    /// It heads the block of an interface or ends a block.
    bool isFrame() const;
};

/// The literal that wrote `line`, newline included: of those that match, one that fixes most characters. Null if none
/// matches.
const Literal *writerOf(const std::vector<const Literal *> &literals, std::string_view line);

/// The sources of a folder. Throws std::runtime_error for a folder that cannot be read.
class SectionSources {
public:
    explicit SectionSources(const std::string &folder);

    /// All literals, file by file. A literal that occurs twice is there twice.
    const std::vector<Literal> &literals() const { return literals_; }
    /// Those that an emitter reaches in a mode, in the order of the source, each text once: those of
    /// a function that it calls, then those that it passes. `mode` is "full" or
    /// "delta". An emitter of full mode alone serves both modes. Left out is what a body of both modes writes in the
    /// other mode alone.
    std::vector<const Literal *> literalsOf(std::string_view mode, std::string_view emitter) const;
    /// The emitters of all files, without their mode, in the order of the sources.
    std::vector<std::string> emitters() const;

private:
    /// What a function does, in order: writes a literal, or calls the function of this number.
    struct Step {
        bool isCall = false;
        std::size_t index = 0;
    };
    struct Function {
        std::string file;
        std::string name; ///< with the mode of an emitter: "full::convConfigSIP"
        std::vector<Step> steps;
    };

    void addFile(const std::string &path, const std::string &name);
    void collect(std::size_t function, bool isFull, std::vector<bool> &seen, std::vector<const Literal *> &into) const;
    void markRepeats();

    std::vector<Literal> literals_;
    std::vector<Function> functions_;
};

} // namespace inspect
