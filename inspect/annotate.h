/// The whole text, with the emitter and the fields of each line.
#pragma once

#include "inspect/engine.h"
#include "inspect/output.h"
#include "inspect/record_source.h"

#include <string>
#include <vector>

namespace inspect {

struct AnnotateOptions {
    bool delta = false;
    bool json = false;
    bool secrets = false; ///< as they are
};

/// Prints the text of an input line by line. On a terminal the progress is shown on standard error.
void annotate(const Input &input, const AnnotateOptions &options, Output &output);

/// A line of a whole text.
struct TextLine {
    std::size_t number; ///< in the text, from 1
    std::size_t stage;
    std::size_t line; ///< in the stage
    std::string text;
    std::vector<Source> sources; ///< the fields that produce it
};

/// The lines of a text, without their sources. Throws a RenderError.
std::vector<TextLine> textLines(Engine &engine, Mode mode);

/// What `describe` prints of a field: where it lies, what it holds, and what the default image holds if that is wanted.
/// Reserved bytes are shown with `secrets` only.
struct SourceText {
    std::string path;
    std::string value;
    std::string bytes;
    std::string defaultValue; ///< of a field of the current image, in delta mode
};
SourceText describe(Engine &engine, const Source &source, Mode mode, bool secrets);
/// One line: path, value, offset and bytes.
std::string sourceLine(Engine &engine, const Source &source, Mode mode, bool secrets);

/// A bar on standard error while something takes long, if that is a terminal.
class Progress {
public:
    explicit Progress(std::size_t total);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;
    void advance();

private:
    std::size_t total_;
    std::size_t done_ = 0;
    std::size_t shown_ = 0;
    bool isTerminal_;
};

} // namespace inspect
