#include "sections/qos.h"

#include "app/text.h"

int full::convConfigPriorityConfig_PriorityConfig_configure_qos(const PriorityConfig &) { return trace(__func__); }
int delta::convConfigPriorityConfig_PriorityConfig_configure_qos(const PriorityConfig &, const PriorityConfig &) {
    return trace(__func__);
}

int full::convConfigDSCPRemark_DSCPRemark_configure_qos(const Remarking &) { return trace(__func__); }
int delta::convConfigDSCPRemark_DSCPRemark_configure_qos(const Remarking &, const Remarking &) {
    return trace(__func__);
}

int full::convConfigDSCPPriority_DSCPPriority_configure_qos_remarking(const Remarking &) { return trace(__func__); }
int delta::convConfigDSCPPriority_DSCPPriority_configure_qos_remarking(Remarking &, Remarking &) {
    return trace(__func__);
}

int full::PbitPriorityFunc_configure_qos_remarking() { return 0; }
int delta::PbitPriorityFunc_configure_qos_remarking(Remarking &, Remarking &) { return trace(__func__); }

int full::convConfigVLANConfig_mid_sys_vlan_config_configure_qos(const PriorityConfig &) { return trace(__func__); }
int delta::convConfigVLANConfig_mid_sys_vlan_config_configure_qos(const PriorityConfig &, const PriorityConfig &) {
    return trace(__func__);
}

int full::convConfigPriorityConfig_PriorityConfig_configure_interface_qos() { return trace(__func__); }

int full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos(const RateLimits &) {
    return trace(__func__);
}
int delta::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos(const RateLimits &, const RateLimits &) {
    return trace(__func__);
}

int full::convConfigDSCPRemark_DSCPRemark_configure_interface_qos() { return trace(__func__); }

int full::convConfigVLANConfig_VLANConfig_configure_interface_qos(const PriorityConfig &) { return trace(__func__); }
int delta::convConfigVLANConfig_VLANConfig_configure_interface_qos(const PriorityConfig &, const PriorityConfig &) {
    return trace(__func__);
}

int full::convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos() { return trace(__func__); }

int full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos() { return trace(__func__); }

int full::convConfigVLANConfig_VLANConfig_configure_interface_lan_qos() { return trace(__func__); }

int full::convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos() { return trace(__func__); }

int full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos() { return trace(__func__); }

int full::convConfigVLANConfig_VLANConfig_configure_interface_wan_qos() { return trace(__func__); }
