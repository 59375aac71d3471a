/// SNMP agent.
#pragma once

#include "platform/image.h"

namespace full {
int convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server(const ServiceConfig &current);
/// Removes every named community of the default image first. One without a name has no head, but its other lines.
int convConfigAgent_Agent_configure_snmp_server(const CommunityTable &current, const CommunityTable &defaults);
int convConfigTrapDest_TrapDest_configure_snmp_server(const TrapDestinationTable &current);
/// One line if all types that the board has are on, or all are off.
int convConfigTrapConfig_TrapConfig_configure_snmp_server(const TrapConfig &current);
} // namespace full

namespace delta {
int convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server(const ServiceConfig &current,
                                                                      const ServiceConfig &defaults);
/// A community without a name is left out.
int convConfigAgent_Agent_configure_snmp_server(const CommunityTable &current, const CommunityTable &defaults);
/// Any byte of an entry opens its block. The address is compared by its text.
int convConfigTrapDest_TrapDest_configure_snmp_server(const TrapDestinationTable &current,
                                                      const TrapDestinationTable &defaults);
/// Any byte of the record counts as a change.
int convConfigTrapConfig_TrapConfig_configure_snmp_server(const TrapConfig &current, const TrapConfig &defaults);
} // namespace delta
