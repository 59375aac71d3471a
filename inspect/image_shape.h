/// Whether a record makes sense as a whole: it may be empty, erased, shifted, or in another byte order.
#pragma once

#include "platform/image.h"

#include <span>
#include <string>

namespace inspect {

/// How an image differs from one that makes sense, where it is the whole image that does not.
struct Shape {
    enum class Kind { sound, zero, erased, swapped, shifted } kind = Kind::sound;
    std::string found;
    std::string expected;
};

/// Whether the bytes are all zero, or erased flash.
Shape shapeOfBytes(std::span<const unsigned char> bytes);
/// The same of an image, and whether its fields are where they should be.
Shape shapeOf(const ConfigImage &image);

} // namespace inspect
