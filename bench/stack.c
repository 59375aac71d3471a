/*
 * Renders the running configuration with the library in a thread of its own, and prints how many bytes of the thread's
 * stack it used: `bench_stack full` or `bench_stack delta`.
 */
#include "app/textcfg.h"
#include "platform/mapi.h"

#include <pthread.h>
#include <stdio.h>
#include <string.h>

enum { STACK = 1024 * 1024, UNUSED = 0xa5 };

static unsigned char stack[STACK] __attribute__((aligned(4096)));

static void *render(void *driver) {
    (*(void (**)(void))driver)();
    return NULL;
}

/* What a thread that runs `driver` uses, the thread's own data among it. */
static long used_by(void (*driver)(void)) {
    long unused = 0;
    pthread_attr_t attributes;
    pthread_t thread;
    memset(stack, UNUSED, sizeof stack);
    if (pthread_attr_init(&attributes) != 0 || pthread_attr_setstack(&attributes, stack, sizeof stack) != 0 ||
        pthread_create(&thread, &attributes, render, &driver) != 0 || pthread_join(thread, NULL) != 0)
        return -1;
    while (stack[unused] == UNUSED) ++unused;
    return STACK - unused;
}

static void nothing(void) {}

int main(int argc, char **argv) {
    const int32_t handle = mapi_start_transc();
    long used;
    if (argc != 2 || handle == MAPI_NO_TRANSACTION || mapi_sys_eeprom_info_get(handle, textcfg_board_record()) != 0 ||
        mapi_sys_config_getconfig(handle, MAPI_CONFIG_RUNNING, textcfg_current_image()) != 0 ||
        mapi_sys_config_getconfig(handle, MAPI_CONFIG_DEFAULT, textcfg_default_image()) != 0)
        return 1;
    used = used_by(strcmp(argv[1], "delta") == 0 ? convDeltaHtmlConfig : convHtmlConfig);
    printf("%ld\n", used - used_by(nothing));
    return textcfg_length() == 0 || textcfg_overflowed();
}
