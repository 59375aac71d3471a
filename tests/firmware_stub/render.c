/*
 * A program of a firmware that renders with the library instead of starting a process: one text a line of the command
 * line's triples, DRIVER SELECTOR FILE. With the word "overflow" alone it fills the text until a line does not fit.
 */
#include "platform/mapi.h"
#include "textcfg.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static const struct {
    const char *name;
    void (*run)(void);
} drivers[] = {
    {"full", convConfig},       {"full_default", convDefConfig},       {"full_page", convHtmlConfig},
    {"delta", convDeltaConfig}, {"delta_default", convDeltaDefConfig}, {"delta_page", convDeltaHtmlConfig},
};

static void check(int holds, const char *what) {
    if (holds) return;
    fprintf(stderr, "render: %s\n", what);
    exit(1);
}

static void load(int32_t selector) {
    const int32_t handle = mapi_start_transc();
    check(handle != MAPI_NO_TRANSACTION, "no transaction");
    check(mapi_sys_eeprom_info_get(handle, textcfg_board_record()) == 0, "no board record");
    check(mapi_sys_config_getconfig(handle, selector, textcfg_current_image()) == 0, "no image");
    check(mapi_sys_config_getconfig(handle, MAPI_CONFIG_DEFAULT, textcfg_default_image()) == 0, "no default image");
    mapi_end_transc(handle);
}

static void render(const char *driver, int32_t selector, const char *path) {
    size_t i = 0;
    while (i < sizeof drivers / sizeof drivers[0] && strcmp(drivers[i].name, driver) != 0) ++i;
    check(i < sizeof drivers / sizeof drivers[0], "no such driver");
    load(selector);
    textcfg_clear();
    check(textcfg_length() == 0 && textcfg_text()[0] == '\0', "a cleared text holds something");
    drivers[i].run();
    check(!textcfg_overflowed(), "the text overflowed");
    check(textcfg_length() == strlen(textcfg_text()) && textcfg_length() != 0, "another length");
    check(textcfg_write(path) == 0, "the text could not be written");
}

static void overflow(void) {
    size_t length;
    load(MAPI_CONFIG_RUNNING);
    /* With no transaction left a driver goes on after the text. */
    while (mapi_start_transc() != MAPI_NO_TRANSACTION) continue;
    textcfg_clear();
    do {
        length = textcfg_length();
        convConfig();
        check(textcfg_length() > length, "the text does not grow");
    } while (!textcfg_overflowed());
    length = textcfg_length();
    convConfig();
    check(textcfg_length() == length && textcfg_overflowed() == 1, "an overflowed text goes on");
    textcfg_clear();
    check(textcfg_length() == 0 && textcfg_overflowed() == 0, "clearing forgets nothing");
    check(textcfg_write("/nonexistent/text") == -1, "a file in no folder could be written");
}

int main(int argc, char **argv) {
    puts(textcfg_version());
    check((uintptr_t)textcfg_current_image() % 64 == 0 && (uintptr_t)textcfg_default_image() % 64 == 0 &&
              (uintptr_t)textcfg_board_record() % 64 == 0,
          "a buffer is not aligned");
    gCfgDebug = 0;
    if (argc == 2 && strcmp(argv[1], "overflow") == 0) overflow();
    else
        for (int i = 1; i + 2 < argc; i += 3) render(argv[i], atoi(argv[i + 1]), argv[i + 2]);
    return 0;
}
