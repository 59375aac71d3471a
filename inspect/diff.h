/// What differs between two records, completely: every field, reserved bytes, and the lines of delta mode.
#pragma once

#include "inspect/output.h"
#include "inspect/record_source.h"

#include <cstdint>
#include <optional>
#include <string>

namespace inspect {

struct DiffOptions {
    std::string old;                        ///< OLD
    std::optional<std::uint64_t> oldOffset; ///< where its image begins
    InputOptions now;                       ///< NEW, and what its text needs
    bool commands = false;                  ///< only the lines of delta mode
    bool json = false;
    bool secrets = false; ///< as they are
};

/// Prints the differences. Two folders are compared image by image, with board record and settings; with `commands`,
/// by their running images. Returns 0 if there is no difference, else 1. Throws an InputError.
int diff(const DiffOptions &options, Output &output);

} // namespace inspect
