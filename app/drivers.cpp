#include "app/drivers.h"

#include "app/order.h"
#include "app/text.h"

namespace {

void emitAll() {
    for (const order::Step &step : order::steps) step.full();
}

void emitDifferences() {
    for (const order::Step &step : order::steps)
        if (step.delta != nullptr) step.delta();
}

} // namespace

void convConfig() {
    initTempConfig();
    emitAll();
}

void convDefConfig() {
    initDefConfig();
    emitAll();
}

void convHtmlConfig() {
    initHtmlConfig();
    emitAll();
}

void convDeltaConfig() {
    initTempConfig();
    emitDifferences();
}

void convDeltaDefConfig() {
    initDefConfig();
    emitDifferences();
}

void convDeltaHtmlConfig() {
    initHtmlConfig();
    emitDifferences();
}
