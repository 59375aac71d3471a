/// Records without their secrets.
#pragma once

#include "inspect/record_source.h"

namespace inspect {

/// A copy of an input of which every secret field that is not empty holds a mask instead. Comparisons are made before,
/// on the originals.
Input maskedCopy(const Input &input);

/// What is shown instead of reserved bytes, which may hold anything.
inline constexpr const char *hiddenBytes = "***";

} // namespace inspect
