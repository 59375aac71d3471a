/// Standard output that notices when it cannot be written.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace inspect {

class OutputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Collects what is printed and writes it in large pieces. Throws an OutputError when a write fails.
class Output {
public:
    Output &operator<<(std::string_view text);
    /// Writes what is left. To be called last: nothing is written by the end of the object.
    void flush();

    enum class Paint { red, yellow };
    /// The text with escape sequences for a colour, if standard output is a terminal that shows them and the variable
    /// NO_COLOR is not set; else the text itself.
    std::string painted(Paint paint, std::string_view text) const;

private:
    std::string pending_;
    bool hasColours_ = showsColours();

    static bool showsColours();
};

} // namespace inspect
