/// The built-in store: a switch as it leaves the factory, and one in service.
///
/// The switch is a 28-port PoE access switch: ports 1 to 24 are copper and feed powered devices, ports 25 to 28 are SFP
/// uplinks. All addresses are those set aside for documentation.
#pragma once

#include "platform/board.h"
#include "platform/image.h"

#include <cstdint>

namespace factory {

void composeBoard(BoardRecord &board);

/// What every switch of the make holds before anyone configured it.
void composeDefault(ConfigImage &image);
/// An access switch in service, as it would start: the default and what its operator configured.
void composeStartup(ConfigImage &image);
/// The same switch now: a few changes further, not saved yet.
void composeRunning(ConfigImage &image);
/// The default as a customer ordered it.
void composeCustomerDefault(ConfigImage &image);

/// One of the four by its image selector, which must be 0 to 3.
void composeImage(std::int32_t selector, ConfigImage &image);

} // namespace factory
