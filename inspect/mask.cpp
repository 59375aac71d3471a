#include "inspect/mask.h"

#include "inspect/fields.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace inspect {
namespace {

constexpr std::string_view maskText = "***";

void maskSecrets(ConfigImage &image) {
    forEachLeaf(Part::image, [&](const Leaf &leaf) {
        if (leaf.field().kind != Kind::secret) return;
        unsigned char *const bytes = leaf.in(static_cast<void *>(&image));
        const bool isEmpty = bytes[0] == 0;
        std::fill_n(bytes, leaf.size(), static_cast<unsigned char>(0));
        if (!isEmpty) std::ranges::copy(maskText, bytes);
    });
}

void maskPart(ImagePart &part) {
    if (!part) return;
    part.value = std::make_shared<ConfigImage>(*part);
    maskSecrets(*part.value);
}

} // namespace

Input maskedCopy(const Input &input) {
    Input copy = input;
    maskPart(copy.image);
    maskPart(copy.defaults);
    return copy;
}

} // namespace inspect
