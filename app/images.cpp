#include "platform/board.h"
#include "platform/image.h"

namespace {

ConfigImage currentImage;
ConfigImage defaultImage;

} // namespace

ConfigImage *const gSysConfig = &currentImage;
ConfigImage *const gDefConfig = &defaultImage;
BoardRecord g_EEPROM;
