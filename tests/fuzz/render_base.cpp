#include "render_input.h"

#include "platform/host/factory.h"

#include <cstring>

void fuzz::composeBase(Base base, ConfigImage &current, ConfigImage &defaults) {
    std::memset(static_cast<void *>(&current), 0, sizeof current);
    std::memset(static_cast<void *>(&defaults), 0, sizeof defaults);
    switch (base) {
    case zeroBase:
    case bases: break;
    case factoryBase:
        factory::composeRunning(current);
        factory::composeDefault(defaults);
        break;
    case equalBase:
        factory::composeRunning(current);
        factory::composeRunning(defaults);
        break;
    case presetBase:
        factory::composeDefault(current);
        factory::composeCustomerDefault(defaults);
        break;
    }
}
