/// A record without secrets, to pass on.
#pragma once

#include "inspect/record_source.h"

#include <string>

namespace inspect {

/// Writes the masked image of an input to a new file. A folder, without the name of one of its images, gives a folder:
/// all images with one set of masks, the board record and the settings. Nothing is overwritten, and after a failure
/// there is nothing at `to`. Throws an InputError.
void writeMasked(const InputOptions &options, const std::string &to);

} // namespace inspect
