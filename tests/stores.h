/// Stores that tests share, and how they are put together: what is set in the current image, in the default one or in
/// both. Everywhere the two images are called `current` and `defaults`.
#pragma once

#include "rows.h"

#include "platform/host/factory.h"

#include <cstdint>
#include <utility>

using Given = Setter<void(ConfigImage &current, ConfigImage &defaults)>;
/// Sets fields of one image.
using Set = Setter<void(ConfigImage &image)>;

inline void nothing(ConfigImage &, ConfigImage &) {}

/// Only the current image is set.
inline Given current(Set set) {
    return [set = std::move(set)](ConfigImage &current, ConfigImage &) { set(current); };
}
/// Only the default image is set.
inline Given defaults(Set set) {
    return [set = std::move(set)](ConfigImage &, ConfigImage &defaults) { set(defaults); };
}
/// Both images are set to the same, then each on its own.
inline Given both(
    Set set, Set setCurrent = [](ConfigImage &) {}, Set setDefaults = [](ConfigImage &) {}) {
    return [=](ConfigImage &current, ConfigImage &defaults) {
        set(current);
        set(defaults);
        setCurrent(current);
        setDefaults(defaults);
    };
}
/// The same store on a board of the type.
inline Given onBoard(std::uint32_t type, Given given) {
    return [=](ConfigImage &current, ConfigImage &defaults) {
        g_EEPROM.boardType = type;
        given(current, defaults);
    };
}

/// The switch of the built-in store: in service, as it left the factory, and its board.
inline void composeBuiltIn() {
    factory::composeRunning(*gSysConfig);
    factory::composeDefault(*gDefConfig);
    factory::composeBoard(g_EEPROM);
}

/// The text of a step for a store.
inline std::string textOfStep(Mode mode, const char *emitter, const Given &given) {
    resetAll();
    given(*gSysConfig, *gDefConfig);
    callStep(mode, emitter);
    return Temp_Configuration;
}
