/// Quality of service.
#pragma once

#include "platform/image.h"

namespace full {
int convConfigPriorityConfig_PriorityConfig_configure_qos(const PriorityConfig &current);
int convConfigDSCPRemark_DSCPRemark_configure_qos(const Remarking &current);
int convConfigDSCPPriority_DSCPPriority_configure_qos_remarking(const Remarking &current);
int PbitPriorityFunc_configure_qos_remarking();
int convConfigVLANConfig_mid_sys_vlan_config_configure_qos(const PriorityConfig &current);
int convConfigPriorityConfig_PriorityConfig_configure_interface_qos();
int convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos(const RateLimits &current);
int convConfigDSCPRemark_DSCPRemark_configure_interface_qos();
int convConfigVLANConfig_VLANConfig_configure_interface_qos(const PriorityConfig &current);
int convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos();
int convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos();
int convConfigVLANConfig_VLANConfig_configure_interface_lan_qos();
int convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos();
int convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos();
int convConfigVLANConfig_VLANConfig_configure_interface_wan_qos();
} // namespace full

namespace delta {
int convConfigPriorityConfig_PriorityConfig_configure_qos(const PriorityConfig &current,
                                                          const PriorityConfig &defaults);
int convConfigDSCPRemark_DSCPRemark_configure_qos(const Remarking &current, const Remarking &defaults);
int convConfigDSCPPriority_DSCPPriority_configure_qos_remarking(Remarking &current, Remarking &defaults);
int PbitPriorityFunc_configure_qos_remarking(Remarking &current, Remarking &defaults);
int convConfigVLANConfig_mid_sys_vlan_config_configure_qos(const PriorityConfig &current,
                                                           const PriorityConfig &defaults);
int convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos(const RateLimits &current,
                                                                        const RateLimits &defaults);
using full::convConfigDSCPRemark_DSCPRemark_configure_interface_qos; // traces only
int convConfigVLANConfig_VLANConfig_configure_interface_qos(const PriorityConfig &current,
                                                            const PriorityConfig &defaults);
using full::convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos;     // traces only
using full::convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos;     // traces only
using full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos; // traces only
using full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos; // traces only
using full::convConfigVLANConfig_VLANConfig_configure_interface_lan_qos;             // traces only
using full::convConfigVLANConfig_VLANConfig_configure_interface_wan_qos;             // traces only
} // namespace delta
