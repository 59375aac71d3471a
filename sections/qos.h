/// Quality of service: priorities, queues, remarking, rate limits.
///
/// Numbers are written as they are stored; no range is checked. The unit of the rates
/// is the switch's own.
#pragma once

#include "platform/image.h"

namespace full {
/// An unknown mode has no line, nor has a queue to which nothing is mapped.
int convConfigPriorityConfig_PriorityConfig_configure_qos(const PriorityConfig &current);
/// An unknown DSCP mode has no line.
int convConfigDSCPRemark_DSCPRemark_configure_qos(const Remarking &current);
int convConfigDSCPPriority_DSCPPriority_configure_qos_remarking(const Remarking &current);
/// Does not trace. Reads the current image itself.
int PbitPriorityFunc_configure_qos_remarking();
int convConfigVLANConfig_mid_sys_vlan_config_configure_qos(const PriorityConfig &current);
/// Writes nothing.
int convConfigPriorityConfig_PriorityConfig_configure_interface_qos();
/// A rate of 1 is never written.
int convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos(const RateLimits &current);
/// Writes nothing.
int convConfigDSCPRemark_DSCPRemark_configure_interface_qos();
/// A priority of 9 is never written.
int convConfigVLANConfig_VLANConfig_configure_interface_qos(const PriorityConfig &current);

// A switch has no LAN and WAN interfaces of their own: these write nothing.
int convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos();
int convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos();
int convConfigVLANConfig_VLANConfig_configure_interface_lan_qos();
int convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos();
int convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos();
int convConfigVLANConfig_VLANConfig_configure_interface_wan_qos();
} // namespace full

namespace delta {
/// Never writes the 802.1p map. The bytes after the weights count as a change of them.
int convConfigPriorityConfig_PriorityConfig_configure_qos(const PriorityConfig &current,
                                                          const PriorityConfig &defaults);
int convConfigDSCPRemark_DSCPRemark_configure_qos(const Remarking &current, const Remarking &defaults);
/// Sets the markers of the DSCP entries in both images.
int convConfigDSCPPriority_DSCPPriority_configure_qos_remarking(Remarking &current, Remarking &defaults);
/// Sets the markers of the 802.1p entries in both images.
int PbitPriorityFunc_configure_qos_remarking(Remarking &current, Remarking &defaults);
int convConfigVLANConfig_mid_sys_vlan_config_configure_qos(const PriorityConfig &current,
                                                           const PriorityConfig &defaults);
int convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos(const RateLimits &current,
                                                                        const RateLimits &defaults);
using full::convConfigDSCPRemark_DSCPRemark_configure_interface_qos; // traces only
/// A changed management priority counts as a change of the ports.
int convConfigVLANConfig_VLANConfig_configure_interface_qos(const PriorityConfig &current,
                                                            const PriorityConfig &defaults);
using full::convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos;     // traces only
using full::convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos;     // traces only
using full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos; // traces only
using full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos; // traces only
using full::convConfigVLANConfig_VLANConfig_configure_interface_lan_qos;             // traces only
using full::convConfigVLANConfig_VLANConfig_configure_interface_wan_qos;             // traces only
// Traces only, and no driver calls it in delta mode.
using full::convConfigPriorityConfig_PriorityConfig_configure_interface_qos;
} // namespace delta
