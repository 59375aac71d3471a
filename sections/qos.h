/// Quality of service: priorities, queues, remarking, rate limits.
///
/// Numbers of queues, priorities and DSCP values print as they are stored; no range is checked. The unit of the rates
/// is the switch's own.
#pragma once

#include "platform/image.h"

namespace full {
/// Priorities and queues (image 128284 to 128487): "qos" (the priority mode), "qos dscp-map", "qos queuing-mode", "qos
/// queue-weighted" and "qos 802.1p-map". Modes without a command and queues to which nothing is mapped have no line.
int convConfigPriorityConfig_PriorityConfig_configure_qos(const PriorityConfig &current);
/// Switches of the remarking (image 129356 and 129357): "qos remarking dscp" (nothing for a mode beyond 2) and "qos
/// remarking 802.1p".
int convConfigDSCPRemark_DSCPRemark_configure_qos(const Remarking &current);
/// DSCP remarking entries (image 129392 to 129423): a "qos remarking dscp-map" block for each of the eight.
int convConfigDSCPPriority_DSCPPriority_configure_qos_remarking(const Remarking &current);
/// 802.1p remarking entries (image 129360 to 129391), which it finds itself in the current image: a "qos remarking
/// 802.1p-map" block for each of the eight.
int PbitPriorityFunc_configure_qos_remarking();
/// Priority of management traffic (image 128449): "qos management-priority".
int convConfigVLANConfig_mid_sys_vlan_config_configure_qos(const PriorityConfig &current);
/// Writes nothing.
int convConfigPriorityConfig_PriorityConfig_configure_interface_qos();
/// Rate limits of the ports (image 125428 to 125659): blocks of "qos rate-limit ingress" and "qos rate-limit egress" by
/// equal rate, and for the ports that are not in the set of limited ones. A rate of 1 is never written.
int convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos(const RateLimits &current);
/// Writes nothing.
int convConfigDSCPRemark_DSCPRemark_configure_interface_qos();
/// User priorities of the ports (image 128421 to 128448): blocks of "qos user-priority" by equal priority. A priority
/// of 9 is never written.
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
/// The lines of full mode without the 802.1p map, each kind where its own bytes differ; the weights also where any of
/// the 864 bytes behind them differs.
int convConfigPriorityConfig_PriorityConfig_configure_qos(const PriorityConfig &current,
                                                          const PriorityConfig &defaults);
/// Each of the two lines where its byte differs.
int convConfigDSCPRemark_DSCPRemark_configure_qos(const Remarking &current, const Remarking &defaults);
/// A block for each entry of which a byte but the marker differs, with those of its lines that differ. Sets the markers
/// of the DSCP entries in both images.
int convConfigDSCPPriority_DSCPPriority_configure_qos_remarking(Remarking &current, Remarking &defaults);
/// The same for the 802.1p entries.
int PbitPriorityFunc_configure_qos_remarking(Remarking &current, Remarking &defaults);
/// "qos management-priority" where it differs.
int convConfigVLANConfig_mid_sys_vlan_config_configure_qos(const PriorityConfig &current,
                                                           const PriorityConfig &defaults);
/// Each of the four kinds of block, for all ports, where its rates or its set of ports differ.
int convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos(const RateLimits &current,
                                                                        const RateLimits &defaults);
using full::convConfigDSCPRemark_DSCPRemark_configure_interface_qos; // traces only
/// All blocks where a user priority differs, or the management priority, which is their 29th byte.
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
