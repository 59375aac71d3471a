/// Physical ports and Power over Ethernet.
#pragma once

#include "platform/image.h"

namespace full {
int InterfaceGroup_configure_ip_group(); ///< does nothing, and does not trace
/// Power over Ethernet (image 180414 to 180426): "poe" and its "alarm-threshold", "budget-mode", "eventlog", "syslog"
/// and "traps". Nothing on a board without PoE.
int convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &current);
/// Physical ports (at 4776, 28 entries of 76 bytes, read from both images): blocks by value of "shutdown",
/// "media-type", "auto-negotiation", "speed", "duplex" and "flowcontrol", then "description" by text where it differs
/// from the default. Values without a command have no block. Does not trace.
int PortConfigFunc_configure_interface();
/// Power over Ethernet of the 24 ports that can feed a device (image 205032 to 206951): blocks of "poe" by value, "poe
/// budget" by equal budget (1 is never written), "poe pdname" by name where it differs from the default, "poe priority"
/// by value, "poe schedule" by name where it differs from the default, and "poe schedule" by value. Nothing on a board
/// without PoE.
int convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &current, const PoePortTable &defaults);
int PortConfigFunc_configure_interface_lan(); ///< does nothing, and does not trace
int PortConfigFunc_configure_interface_wan(); ///< does nothing, and does not trace
int WifiConfigFunc_configure_interface();     ///< traces only; no driver calls it
} // namespace full

namespace delta {
/// Each line where its own value differs. Nothing on a board without PoE.
int convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &current, const PoeConfig &defaults);
/// Blocks of an attribute where any port's value of it differs; descriptions as in full mode. Traces, unlike its twin.
int PortConfigFunc_configure_interface();
/// The blocks by value, each kind where a port's value differs; the names as in full mode; of the budgets only the
/// ports that have none. Nothing on a board without PoE.
int convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &current, const PoePortTable &defaults);
using full::WifiConfigFunc_configure_interface; // traces only
// No driver calls these in delta mode.
using full::InterfaceGroup_configure_ip_group;
using full::PortConfigFunc_configure_interface_lan;
using full::PortConfigFunc_configure_interface_wan;
} // namespace delta
