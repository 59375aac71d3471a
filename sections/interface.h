/// Physical ports and Power over Ethernet.
#pragma once

#include "platform/image.h"

namespace full {
int InterfaceGroup_configure_ip_group(); ///< does nothing, and does not trace
/// Nothing on a board without PoE.
int convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &current);
/// Does not trace. A value without a command has no block, nor has a description that is the default one.
int PortConfigFunc_configure_interface();
/// Nothing on a board without PoE. A budget of 1 and a name that is the default one are never written.
int convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &current, const PoePortTable &defaults);
int PortConfigFunc_configure_interface_lan(); ///< does nothing, and does not trace
int PortConfigFunc_configure_interface_wan(); ///< does nothing, and does not trace
int WifiConfigFunc_configure_interface();     ///< traces only; no driver calls it
} // namespace full

namespace delta {
/// Nothing on a board without PoE.
int convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &current, const PoeConfig &defaults);
/// All blocks of a setting if it differs on a port. Traces, unlike full mode.
int PortConfigFunc_configure_interface();
/// Nothing on a board without PoE. Of the budgets only the ports that have none are written.
int convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &current, const PoePortTable &defaults);
using full::WifiConfigFunc_configure_interface; // traces only
// No driver calls these in delta mode.
using full::InterfaceGroup_configure_ip_group;
using full::PortConfigFunc_configure_interface_lan;
using full::PortConfigFunc_configure_interface_wan;
} // namespace delta
