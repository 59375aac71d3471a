#include "app/textcfg.h"

#include "app/drivers.h"
#include "app/run.h"
#include "app/text/text.h"
#include "app/text/trace.h"
#include "app/version.h"
#include "platform/board.h"
#include "platform/image.h"

#include <cstring>

const char *textcfg_version() { return textcfgVersion; }

void *textcfg_current_image() { return gSysConfig; }
void *textcfg_default_image() { return gDefConfig; }
void *textcfg_board_record() { return &g_EEPROM; }

void textcfg_clear() { clearText(); }

const char *textcfg_text() { return Temp_Configuration; }
std::size_t textcfg_length() { return strnlen(Temp_Configuration, textBufferSize); }
int textcfg_overflowed() { return textOverflowed() ? 1 : 0; }
int textcfg_write(const char *path) { return TextCfg2file(path); }
