#include "app/drivers.h"

#include "app/header.h"
#include "app/order.h"

#include <array>

namespace {

/// What one mode calls, in order. Taken from the table at compile time, so that the program carries no names that it
/// does not print.
template <std::size_t Count> consteval std::array<int (*)(), Count> callsOf(order::Call order::Step::*mode) {
    std::array<int (*)(), Count> calls = {};
    std::size_t next = 0;
    for (const order::Step &step : order::steps)
        if (step.*mode) calls[next++] = (step.*mode).run;
    return calls;
}

constexpr auto fullCalls = callsOf<std::size(order::steps)>(&order::Step::full);
constexpr auto deltaCalls = callsOf<order::deltaSteps()>(&order::Step::delta);

void emitAll() {
    for (const auto call : fullCalls) call();
}

void emitDifferences() {
    for (const auto call : deltaCalls) call();
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
