/// The images of the fuzz targets: guarded, and protected where a target asks for it.
#pragma once

#include "platform/image.h"

#include <cstddef>

namespace fuzz {

/// The same image at another place, where it can always be written.
ConfigImage *writableView(const ConfigImage *image);

/// The whole pages of an image that hold the section.
Section pagesOf(const Section &section);

/// From now on, writing to the image ends the program, but for these pages and for its writable view.
void protectAllBut(ConfigImage *image, const Section *pages, std::size_t count);

} // namespace fuzz
