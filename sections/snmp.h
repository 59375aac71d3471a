/// SNMP agent.
#pragma once

#include "platform/image.h"

namespace full {
int convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server(const ServiceConfig &current);
int convConfigAgent_Agent_configure_snmp_server(const CommunityTable &current, const CommunityTable &defaults);
int convConfigTrapDest_TrapDest_configure_snmp_server(const TrapDestinationTable &current);
int convConfigTrapConfig_TrapConfig_configure_snmp_server(const TrapConfig &current);
} // namespace full

namespace delta {
int convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server(const ServiceConfig &current,
                                                                      const ServiceConfig &defaults);
int convConfigAgent_Agent_configure_snmp_server(const CommunityTable &current, const CommunityTable &defaults);
int convConfigTrapDest_TrapDest_configure_snmp_server(const TrapDestinationTable &current,
                                                      const TrapDestinationTable &defaults);
int convConfigTrapConfig_TrapConfig_configure_snmp_server(const TrapConfig &current, const TrapConfig &defaults);
} // namespace delta
