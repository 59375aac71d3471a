/// The management API on a workstation, over the store that the environment variable TEXTCFG_STORE names, or over the
/// built-in factory store.
#include "platform/mapi.h"

#include "platform/host/factory.h"
#include "platform/host/message.h"
#include "platform/host/password_md5.h"
#include "platform/host/store.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

static_assert(sizeof(ConfigImage) == MAPI_CONFIG_IMAGE_SIZE && sizeof(BoardRecord) == MAPI_EEPROM_INFO_SIZE);
static_assert(MAPI_CONFIG_RUNNING == 0 && MAPI_CONFIG_DEFAULT == 1 && MAPI_CONFIG_STARTUP == 2 &&
                  MAPI_CONFIG_CUSTOMER_DEFAULT == 3,
              "the order of imageFiles");

namespace {

constexpr std::int32_t refused = -1;

/// Transactions open at a time.
constexpr std::int32_t mostTransactions = 8;

struct Transaction {
    std::int32_t handle; ///< 0: the slot is free
    PlatformConf conf;
};
constinit Transaction transactions[mostTransactions] = {};
/// The handle given out last. None is given out twice, so that one that was closed stays closed.
constinit std::int32_t lastHandle = 0;

/// The store's folder; null: the built-in store.
const char *storeFolder() {
    const char *const folder = std::getenv("TEXTCFG_STORE");
    return folder != nullptr && folder[0] != '\0' ? folder : nullptr;
}

std::int32_t refuse(const char *operation, const char *why) {
    const Shown program(programName());
    const char *const folder = storeFolder();
    if (folder == nullptr) std::fprintf(stderr, "%s: %s: %s\n", program.text(), operation, why);
    else std::fprintf(stderr, "%s: TEXTCFG_STORE=%s: %s: %s\n", program.text(), Shown(folder).text(), operation, why);
    return refused;
}

/// Whoever meant to name a store must notice that none is named.
void reportBuiltInStore() {
    const char *const what = std::getenv("TEXTCFG_STORE") == nullptr ? "not set" : "empty";
    std::fprintf(stderr, "%s: TEXTCFG_STORE is %s: this is the built-in example\n", Shown(programName()).text(), what);
}

/// The open transaction `handle`, or null after reporting that there is none.
Transaction *find(const char *operation, std::int32_t handle) {
    if (handle > 0)
        for (Transaction &transaction : transactions)
            if (transaction.handle == handle) return &transaction;
    char why[48];
    std::snprintf(why, sizeof why, "transaction %d is not open", static_cast<int>(handle));
    refuse(operation, why);
    return nullptr;
}

/// An open transaction, or null. Its settings hold for what begins or is asked while it is open, so that a run reads
/// them once.
const Transaction *anyOpen() {
    for (const Transaction &transaction : transactions)
        if (transaction.handle != 0) return &transaction;
    return nullptr;
}

/// Reads the settings as they are now; the built-in store leaves those that hold without any. False, after reporting
/// why, if they cannot be read.
bool currentConf(const char *operation, PlatformConf &conf) {
    const char *const folder = storeFolder();
    if (folder == nullptr) return true;
    if (!readPlatformConf(folder, conf)) return false;
    // Before anything is rendered: a text without the passwords would be taken for the whole.
    const char *const problem = conf.md5Passwords ? passwordMd5Problem() : nullptr;
    if (problem != nullptr) {
        char why[96];
        std::snprintf(why, sizeof why, "password_encryption=md5 is %s", problem);
        refuse(operation, why);
        return false;
    }
    return true;
}

} // namespace

std::int32_t mapi_start_transc(void) {
    for (Transaction &transaction : transactions) {
        if (transaction.handle != 0) continue;
        const Transaction *const outer = anyOpen();
        PlatformConf conf;
        if (outer != nullptr) conf = outer->conf;
        else if (!currentConf("mapi_start_transc", conf)) return MAPI_NO_TRANSACTION;
        if (lastHandle == INT32_MAX) return refuse("mapi_start_transc", "no handle is left");
        if (outer == nullptr && storeFolder() == nullptr) reportBuiltInStore();
        transaction = {++lastHandle, conf};
        return transaction.handle;
    }
    return refuse("mapi_start_transc", "too many transactions are open");
}

std::int32_t mapi_end_transc(std::int32_t handle) {
    Transaction *const transaction = find("mapi_end_transc", handle);
    if (transaction == nullptr) return refused;
    transaction->handle = 0;
    return 0;
}

std::int32_t mapi_sys_eeprom_info_get(std::int32_t handle, void *record) {
    if (find("mapi_sys_eeprom_info_get", handle) == nullptr) return refused;
    BoardRecord &board = *static_cast<BoardRecord *>(record);
    const char *const folder = storeFolder();
    if (folder != nullptr) return readBoard(folder, board) ? 0 : refused;
    factory::composeBoard(board);
    return 0;
}

std::int32_t mapi_sys_config_getconfig(std::int32_t handle, std::int32_t selector, void *image) {
    if (find("mapi_sys_config_getconfig", handle) == nullptr) return refused;
    if (selector < 0 || selector >= imageFileCount)
        return refuse("mapi_sys_config_getconfig", "unknown image selector; expected 0 to 3");
    ConfigImage &config = *static_cast<ConfigImage *>(image);
    const char *const folder = storeFolder();
    if (folder != nullptr) return readImage(folder, imageFiles[selector], config) ? 0 : refused;
    factory::composeImage(selector, config);
    return 0;
}

std::int32_t mapi_sys_dualimage_state_get(std::int32_t handle) {
    const Transaction *const transaction = find("mapi_sys_dualimage_state_get", handle);
    return transaction == nullptr ? refused : transaction->conf.activeBank;
}

std::int32_t mapi_sys_userauth_method_get(std::int32_t handle) {
    constexpr const char *operation = "mapi_sys_userauth_method_get";
    // Asked without a transaction once for each user.
    const Transaction *const transaction = handle == MAPI_NO_TRANSACTION ? anyOpen() : find(operation, handle);
    if (transaction == nullptr && handle != MAPI_NO_TRANSACTION) return refused;
    PlatformConf conf;
    if (transaction != nullptr) conf = transaction->conf;
    else if (!currentConf(operation, conf)) return refused;
    return conf.md5Passwords ? 1 : 0;
}

std::int32_t mapi_sys_userauth_password_md5_get(std::int32_t handle, const char *password, char *md5) {
    constexpr const char *operation = "mapi_sys_userauth_password_md5_get";
    if (handle != MAPI_NO_TRANSACTION && find(operation, handle) == nullptr) return refused;
    const char *const problem = makePasswordMd5(password, md5);
    return problem == nullptr ? 0 : refuse(operation, problem);
}
