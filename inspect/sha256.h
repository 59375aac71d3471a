/// SHA-256, by which people compare an image with a file that they have.
#pragma once

#include <cstddef>
#include <string>

namespace inspect {

/// As 64 hexadecimal digits in lower case.
std::string sha256(const void *bytes, std::size_t size);

} // namespace inspect
