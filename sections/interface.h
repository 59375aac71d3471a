/// Physical ports and Power over Ethernet.
#pragma once

#include "platform/image.h"

namespace full {
int InterfaceGroup_configure_ip_group();
int convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &current);
int PortConfigFunc_configure_interface();
int convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &current, const PoePortTable &defaults);
int PortConfigFunc_configure_interface_lan();
int PortConfigFunc_configure_interface_wan();
int WifiConfigFunc_configure_interface();
} // namespace full

namespace delta {
int convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &current, const PoeConfig &defaults);
int PortConfigFunc_configure_interface();
int convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &current, const PoePortTable &defaults);
using full::WifiConfigFunc_configure_interface; // traces only
} // namespace delta
