/// What the fuzz targets share. A target is run by libFuzzer, and by `replay` over the files of a folder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Runs one input. Whatever must not happen ends the program.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

/// Whether the inputs run so far have reached all that the target is there for. Prints what they have not.
bool everythingReached();

/// Whether an input is tried in every way that the target has, and not only one of some: a replay has the time.
inline bool thorough = false;

/// Ends the program unless `condition` holds, telling what was found instead.
#define DEMAND(condition) ((condition) ? static_cast<void>(0) : demandFailed(__FILE__, __LINE__, #condition))

[[noreturn]] inline void demandFailed(const char *file, int line, const char *condition) {
    std::fprintf(stderr, "%s:%d: not so: %s\n", file, line, condition);
    std::abort();
}

/// Takes an input apart from its front. Behind its end there are zeros.
class Input {
public:
    Input(const std::uint8_t *data, std::size_t size) : next_(data), left_(size) {}

    bool empty() const { return left_ == 0; }
    std::size_t left() const { return left_; }
    const std::uint8_t *rest() const { return next_; }

    std::uint8_t byte() {
        if (left_ == 0) return 0;
        --left_;
        return *next_++;
    }
    std::uint32_t number(int bytes) {
        std::uint32_t value = 0;
        for (int i = 0; i < bytes; ++i) value = value << 8 | byte();
        return value;
    }
    /// The next bytes, at most as many as are left; sets how many.
    const std::uint8_t *bytes(std::size_t &count) {
        if (count > left_) count = left_;
        const std::uint8_t *const start = next_;
        next_ += count;
        left_ -= count;
        return start;
    }

private:
    const std::uint8_t *next_;
    std::size_t left_;
};
