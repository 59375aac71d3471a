#include "platform.h"

#include "target.h"

#include "platform/mapi.h"

#include <cstring>

namespace fuzz {

Platform platform;

void forgetCalls() {
    platform.failingCall = -1;
    platform.calls = platform.open = platform.starts = platform.fetched = platform.selector = platform.md5Calls = 0;
}

} // namespace fuzz

using fuzz::platform;

namespace {

bool fails() { return platform.calls++ == platform.failingCall; }

/// Handles count from 1: that of the run is 1, that of the header 2.
void demandOpen(std::int32_t handle) { DEMAND(platform.open > 0 && handle == platform.open); }

} // namespace

std::int32_t mapi_start_transc() {
    if (fails()) return MAPI_NO_TRANSACTION;
    ++platform.starts;
    return ++platform.open;
}

std::int32_t mapi_end_transc(std::int32_t handle) {
    demandOpen(handle);
    --platform.open;
    return fails() ? -1 : 0;
}

std::int32_t mapi_sys_eeprom_info_get(std::int32_t handle, void *record) {
    demandOpen(handle);
    if (fails()) return -1;
    std::memcpy(record, platform.board, sizeof *platform.board);
    return 0;
}

std::int32_t mapi_sys_config_getconfig(std::int32_t handle, std::int32_t selector, void *image) {
    demandOpen(handle);
    DEMAND(selector >= 0 && selector < 4);
    if (platform.fetched++ == 0) platform.selector = selector;
    else DEMAND(selector == MAPI_CONFIG_DEFAULT);
    if (fails()) return 1;
    std::memcpy(image, platform.images[selector], sizeof *platform.images[selector]);
    return 0;
}

std::int32_t mapi_sys_dualimage_state_get(std::int32_t handle) {
    demandOpen(handle);
    return platform.bank;
}

std::int32_t mapi_sys_userauth_method_get(std::int32_t handle) {
    DEMAND(handle == MAPI_NO_TRANSACTION);
    return platform.method;
}

std::int32_t mapi_sys_userauth_password_md5_get(std::int32_t handle, const char *password, char *md5) {
    DEMAND(handle == MAPI_NO_TRANSACTION);
    DEMAND(std::strlen(password) <= 24);
    ++platform.md5Calls;
    switch (platform.md5) {
    case fuzz::Md5::digest: std::strcpy(md5, "0123456789abcdefghijkl"); break;
    case fuzz::Md5::fullWithoutNul: std::memset(md5, 'm', MAPI_PASSWORD_MD5_SIZE); break;
    case fuzz::Md5::untouched: return -1;
    case fuzz::Md5::empty: md5[0] = '\0'; break;
    }
    return 0;
}
