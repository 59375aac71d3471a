/// How the stand-in and its tools show names and lines in their messages.
#pragma once

#include <cstddef>

/// A name, or a line of a file, that can be printed: a byte that is no printable character (a control character, or one
/// that is not UTF-8) is written as \xNN. Of a long one only the beginning is kept.
class Shown {
public:
    /// As long as a path can be.
    static constexpr std::size_t mostBytes = 4096;

    explicit Shown(const char *name);
    /// Shows at most `most` of the bytes, and no more than `mostBytes`.
    Shown(const char *bytes, std::size_t length, std::size_t most);

    const char *text() const { return text_; }

private:
    char text_[4 * mostBytes + sizeof "..."];
};

/// The name of the running program, without its folder.
const char *programName();
