/// SNMP agent.
#pragma once

#include "platform/image.h"

namespace full {
/// The agent's switch among the services (image 1621): "snmp-server".
int convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server(const ServiceConfig &current);
/// Communities (image 126432 to 127471): "no snmp-server community" for every named community of the default image,
/// then a block for each one in use: "snmp-server community" if it has a name, "active", description, level, "exit".
int convConfigAgent_Agent_configure_snmp_server(const CommunityTable &current, const CommunityTable &defaults);
/// Trap destinations (image 127724 to 128243): a block for each one in use: "snmp-server trap-destination" with its
/// number from 1 on, "active", community, destination, "exit".
int convConfigTrapDest_TrapDest_configure_snmp_server(const TrapDestinationTable &current);
/// Trap types (image 128244 to 128283, and that of PoE at 180423): one "snmp-server trap-type all" line if all that the
/// board has are on, or off; else a line a type.
int convConfigTrapConfig_TrapConfig_configure_snmp_server(const TrapConfig &current);
} // namespace full

namespace delta {
/// The line if the switch differs.
int convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server(const ServiceConfig &current,
                                                                      const ServiceConfig &defaults);
/// "no snmp-server community" for a community of the default image whose name is gone from its place, then a block for
/// each named one in use that differs, with what differs in it.
int convConfigAgent_Agent_configure_snmp_server(const CommunityTable &current, const CommunityTable &defaults);
/// A block for each destination in use that differs, with what differs in it, the address by its text.
int convConfigTrapDest_TrapDest_configure_snmp_server(const TrapDestinationTable &current,
                                                      const TrapDestinationTable &defaults);
/// Nothing if the record (all 40 bytes) and the PoE flag of a board with PoE are as by default. Else the "all" line as
/// in full mode, or a line for each type that differs.
int convConfigTrapConfig_TrapConfig_configure_snmp_server(const TrapConfig &current, const TrapConfig &defaults);
} // namespace delta
