/// The built-in store, composed anew for each test that changes it.
#pragma once

#include "platform/host/factory.h"

#include <memory>

struct BuiltinStore {
    ConfigImage running;
    ConfigImage defaults;
    BoardRecord board;
};

inline std::unique_ptr<BuiltinStore> builtinStore() {
    auto store = std::make_unique<BuiltinStore>();
    factory::composeRunning(store->running);
    factory::composeDefault(store->defaults);
    factory::composeBoard(store->board);
    return store;
}
