#include "platform/board.h"
#include "platform/image.h"

namespace {

/// The platform fills the records with code of its own, which may read and write 32-bit words: a cache line of
/// alignment serves it.
constexpr std::size_t recordAlignment = 64;

alignas(recordAlignment) ConfigImage currentImage;
alignas(recordAlignment) ConfigImage defaultImage;

} // namespace

ConfigImage *const gSysConfig = &currentImage;
ConfigImage *const gDefConfig = &defaultImage;
alignas(recordAlignment) BoardRecord g_EEPROM;

static_assert(__alignof__(currentImage) >= recordAlignment && __alignof__(defaultImage) >= recordAlignment &&
              __alignof__(g_EEPROM) >= recordAlignment && recordAlignment % alignof(std::uint32_t) == 0);
