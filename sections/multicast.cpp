#include "sections/multicast.h"

#include "app/text.h"

int full::IGMPFilterFunc_configure_ip_igmp_filter() { return 0; }
int delta::IGMPFilterFunc_configure_ip_igmp_filter(const PortFilters &, const PortFilters &) { return trace(__func__); }

int full::convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(const MulticastSegmentTable &) {
    return trace(__func__);
}
int delta::convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(const MulticastSegmentTable &,
                                                                       const MulticastSegmentTable &) {
    return trace(__func__);
}

int full::convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(const MulticastProfileTable &) {
    return trace(__func__);
}
int delta::convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(const MulticastProfileTable &,
                                                                       const MulticastProfileTable &) {
    return trace(__func__);
}

int full::convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(const IgmpSnooping &) { return trace(__func__); }
int delta::convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(const IgmpSnooping &, const IgmpSnooping &) {
    return trace(__func__);
}

int full::convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(const IgmpSnooping &) { return trace(__func__); }
int delta::convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(const IgmpSnooping &, const IgmpSnooping &) {
    return trace(__func__);
}

int full::IGMPFilterFunc_configure_interface_ip_igmp_filter() { return 0; }
int delta::IGMPFilterFunc_configure_interface_ip_igmp_filter() { return trace(__func__); }

int full::convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
    const MulticastTable &) {
    return trace(__func__);
}
int delta::convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
    const MulticastTable &, const MulticastTable &) {
    return trace(__func__);
}

int full::convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(const IgmpVlans &) { return trace(__func__); }
int delta::convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(const IgmpVlans &, const IgmpVlans &) {
    return trace(__func__);
}
