#include "sections/snmp.h"

#include "app/text.h"

int full::convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server(const ServiceConfig &) {
    return trace(__func__);
}
int delta::convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server(const ServiceConfig &,
                                                                             const ServiceConfig &) {
    return trace(__func__);
}

int full::convConfigAgent_Agent_configure_snmp_server(const CommunityTable &, const CommunityTable &) {
    return trace(__func__);
}
int delta::convConfigAgent_Agent_configure_snmp_server(const CommunityTable &, const CommunityTable &) {
    return trace(__func__);
}

int full::convConfigTrapDest_TrapDest_configure_snmp_server(const TrapDestinationTable &) { return trace(__func__); }
int delta::convConfigTrapDest_TrapDest_configure_snmp_server(const TrapDestinationTable &,
                                                             const TrapDestinationTable &) {
    return trace(__func__);
}

int full::convConfigTrapConfig_TrapConfig_configure_snmp_server(const TrapConfig &) { return trace(__func__); }
int delta::convConfigTrapConfig_TrapConfig_configure_snmp_server(const TrapConfig &, const TrapConfig &) {
    return trace(__func__);
}
