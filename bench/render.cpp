/// Renders the running configuration of the store named by TEXTCFG_STORE once and prints the length of the text, so
/// that the instructions of the driver alone can be counted: `bench_render full` or `bench_render delta`.
#include "app/drivers.h"
#include "app/text/text.h"
#include "platform/board.h"
#include "platform/image.h"
#include "platform/mapi.h"

#include <cstdio>
#include <cstring>

int main(int argc, char **argv) {
    const bool delta = argc == 2 && std::strcmp(argv[1], "delta") == 0;
    if (!delta && (argc != 2 || std::strcmp(argv[1], "full") != 0)) {
        std::fprintf(stderr, "usage: bench_render full|delta\n");
        return 2;
    }
    const std::int32_t handle = mapi_start_transc();
    if (handle == MAPI_NO_TRANSACTION || mapi_sys_eeprom_info_get(handle, &g_EEPROM) != 0 ||
        mapi_sys_config_getconfig(handle, MAPI_CONFIG_RUNNING, gSysConfig) != 0 ||
        mapi_sys_config_getconfig(handle, MAPI_CONFIG_DEFAULT, gDefConfig) != 0)
        return 1;
    if (delta) convDeltaHtmlConfig();
    else convHtmlConfig();
    std::printf("%zu\n", strnlen(Temp_Configuration, textBufferSize));
    return textOverflowed() ? 1 : 0;
}
