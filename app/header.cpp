#include "app/header.h"

#include "app/text/text.h"
#include "platform/board.h"
#include "platform/mapi.h"

namespace {

/// The two numbers of the text format. They are constants, not read from anywhere.
constexpr int formatNumber1 = 5036;
constexpr int formatNumber2 = 6000;

} // namespace

void initTempConfig() {
    const std::int32_t handle = mapi_start_transc();
    if (handle == MAPI_NO_TRANSACTION) return;
    const std::int32_t bank = mapi_sys_dualimage_state_get(handle);
    mapi_end_transc(handle);

    Text<10> version = {};
    if (bank == 1) version = g_EEPROM.versionOfBank1;
    if (bank == 2) version = g_EEPROM.versionOfBank2;

    clearText();
    append("# VERSION %d %d %s MAC %02x:%02x:%02x:%02x:%02x:%02x\n", formatNumber1, formatNumber2, version,
           g_EEPROM.macAddress);
    append("configure\n");
}

void initDefConfig() { initTempConfig(); }

void initHtmlConfig() {
    clearText();
    append("configure\n");
}
