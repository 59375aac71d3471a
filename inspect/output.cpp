#include "inspect/output.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace inspect {
namespace {

constexpr std::size_t pieceSize = 65536;

} // namespace

Output &Output::operator<<(std::string_view text) {
    pending_ += text;
    if (pending_.size() >= pieceSize) flush();
    return *this;
}

bool Output::showsColours() {
    const char *const unwanted = std::getenv("NO_COLOR");
    if (unwanted != nullptr && unwanted[0] != '\0') return false;
    const char *const terminal = std::getenv("TERM");
    return terminal != nullptr && std::strcmp(terminal, "dumb") != 0 && isatty(STDOUT_FILENO) == 1;
}

std::string Output::painted(Paint paint, std::string_view text) const {
    if (!hasColours_) return std::string(text);
    return (paint == Paint::red ? "\x1b[31m" : "\x1b[33m") + std::string(text) + "\x1b[0m";
}

void Output::flush() {
    for (std::size_t count = 0; count < pending_.size();) {
        const ssize_t step = write(STDOUT_FILENO, pending_.data() + count, pending_.size() - count);
        if (step == -1 && errno == EINTR) continue;
        if (step == -1) throw OutputError(std::string("standard output: ") + std::strerror(errno));
        count += static_cast<std::size_t>(step);
    }
    pending_.clear();
}

} // namespace inspect
