#include "fake_platform.h"

#include "platform/mapi.h"

#include <cstring>

FakePlatform platform;

namespace {

/// Records a call; true if it is to fail.
bool fails(std::string call) {
    platform.calls.push_back(std::move(call));
    return static_cast<int>(platform.calls.size()) - 1 == platform.failingCall;
}

} // namespace

void FakePlatform::reset() {
    std::memset(static_cast<void *>(images), 0, sizeof images);
    std::memset(static_cast<void *>(&board), 0, sizeof board);
    bank = 1;
    passwordMethod = 0;
    md5 = nullptr;
    addressText = nullptr;
    ipv6Text = nullptr;
    portListText = nullptr;
    digitsText = nullptr;
    bitAnswer = nullptr;
    calls.clear();
    failingCall = -1;
    failure = 5;
    lastHandle = 0;
    onStart = nullptr;
    onBoard = nullptr;
    onConfig = nullptr;
}

std::int32_t mapi_start_transc() {
    if (fails("start")) return MAPI_NO_TRANSACTION;
    if (platform.onStart) platform.onStart();
    return ++platform.lastHandle;
}

std::int32_t mapi_end_transc(std::int32_t handle) { return fails("end " + std::to_string(handle)) ? -1 : 0; }

std::int32_t mapi_sys_eeprom_info_get(std::int32_t handle, void *record) {
    if (fails("eeprom " + std::to_string(handle))) return platform.failure;
    if (platform.onBoard) platform.onBoard(record);
    std::memcpy(record, &platform.board, sizeof platform.board);
    return 0;
}

std::int32_t mapi_sys_config_getconfig(std::int32_t handle, std::int32_t selector, void *image) {
    if (fails("config " + std::to_string(handle) + " " + std::to_string(selector))) return platform.failure;
    if (platform.onConfig) platform.onConfig(selector, image);
    std::memcpy(image, &platform.images[selector], sizeof platform.images[selector]);
    return 0;
}

std::int32_t mapi_sys_dualimage_state_get(std::int32_t handle) {
    return fails("bank " + std::to_string(handle)) ? -1 : platform.bank;
}

std::int32_t mapi_sys_userauth_method_get(std::int32_t handle) {
    fails("method " + std::to_string(handle)); // any answer is one: a failure cannot be told
    return platform.passwordMethod;
}

std::int32_t mapi_sys_userauth_password_md5_get(std::int32_t handle, const char *password, char *md5) {
    if (fails("md5 " + std::to_string(handle) + " " + password)) return platform.failure;
    if (platform.md5) platform.md5(password, md5);
    return 0;
}

// The linker puts the second of each in the place of the stand-in's operation, which is the first.
extern "C" {
void __real_utilIp2IpStr(const void *address, char *text);
void __wrap_utilIp2IpStr(const void *address, char *text);
void __wrap_utilIp2IpStr(const void *address, char *text) {
    if (platform.addressText)
        std::strcpy(text, platform.addressText(static_cast<const unsigned char *>(address)).c_str());
    else __real_utilIp2IpStr(address, text);
}

char *__real_utilIPv6Addr2Str(char *text, const void *address);
char *__wrap_utilIPv6Addr2Str(char *text, const void *address);
char *__wrap_utilIPv6Addr2Str(char *text, const void *address) {
    if (!platform.ipv6Text) return __real_utilIPv6Addr2Str(text, address);
    return std::strcpy(text, platform.ipv6Text(static_cast<const unsigned char *>(address)).c_str());
}

void __real_utilPortBitmap2str(char *text, const void *bitmap, int ports, int maximum);
void __wrap_utilPortBitmap2str(char *text, const void *bitmap, int ports, int maximum);
void __wrap_utilPortBitmap2str(char *text, const void *bitmap, int ports, int maximum) {
    if (platform.portListText) platform.portListText(static_cast<const unsigned char *>(bitmap), text);
    else __real_utilPortBitmap2str(text, bitmap, ports, maximum);
}

void __real_utilAry2Str(const void *bytes, int length, char *text);
void __wrap_utilAry2Str(const void *bytes, int length, char *text);
void __wrap_utilAry2Str(const void *bytes, int length, char *text) {
    if (platform.digitsText) std::strcpy(text, platform.digitsText(static_cast<const unsigned char *>(bytes)).c_str());
    else __real_utilAry2Str(bytes, length, text);
}

int __real_utilBitmapCheck(const void *bitmap, int bit);
int __wrap_utilBitmapCheck(const void *bitmap, int bit);
int __wrap_utilBitmapCheck(const void *bitmap, int bit) {
    if (platform.bitAnswer) return platform.bitAnswer(static_cast<const unsigned char *>(bitmap), bit);
    return __real_utilBitmapCheck(bitmap, bit);
}
}
