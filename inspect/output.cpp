#include "inspect/output.h"

#include <cerrno>
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
