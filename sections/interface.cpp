#include "sections/interface.h"

#include "app/text.h"

int full::InterfaceGroup_configure_ip_group() { return 0; }

int full::convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &) { return trace(__func__); }
int delta::convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &, const PoeConfig &) { return trace(__func__); }

int full::PortConfigFunc_configure_interface() { return 0; }
int delta::PortConfigFunc_configure_interface() { return trace(__func__); }

int full::convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &, const PoePortTable &) {
    return trace(__func__);
}
int delta::convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &, const PoePortTable &) {
    return trace(__func__);
}

int full::PortConfigFunc_configure_interface_lan() { return 0; }

int full::PortConfigFunc_configure_interface_wan() { return 0; }

int full::WifiConfigFunc_configure_interface() { return trace(__func__); }
