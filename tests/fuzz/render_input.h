/// The input of the rendering target: how a run is set up, and patches over a base store.
///
/// Four bytes: driver, base, bank (signed), flags. Then patches, each a byte that tells the record (low two bits) and
/// the kind (the next two), a section, and three bytes of a place in it; what follows depends on the kind. All values
/// wrap around, so that every input means something.
#pragma once

#include "platform/image.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace fuzz {

enum Driver { fullRunning, fullDefault, fullPage, deltaRunning, deltaDefault, deltaPage, drivers };
enum Base { zeroBase, factoryBase, equalBase, presetBase, bases };
/// The low two bits are an `Md5`.
enum Flag { md5Passwords = 4, headerRefused = 8 };

enum Record { currentRecord, defaultRecord, bothRecords, boardRecord };
enum Kind {
    bytesKind,  ///< a byte n, n bytes
    repeatKind, ///< a byte n, two bytes of step, two bytes of count, n bytes that are written every `step` bytes
    noiseKind,  ///< three bytes of length, a byte of seed: bytes that look random, others in each record
    copyKind,   ///< three bytes of length: as in the other image
};

/// What a patch names as its place: the image as a whole, or one of its sections. Inputs tell it by its index.
inline constexpr auto sections = [] {
    std::array<Section, std::size(imageSections) + 1> all = {{{"image", 0, sizeof(ConfigImage)}}};
    std::copy(std::begin(imageSections), std::end(imageSections), all.begin() + 1);
    return all;
}();

/// The base store that an input names.
void composeBase(Base base, ConfigImage &current, ConfigImage &defaults);

} // namespace fuzz
