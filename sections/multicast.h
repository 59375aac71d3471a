/// IGMP snooping, filters and static multicast.
#pragma once

#include "platform/image.h"

namespace full {
int IGMPFilterFunc_configure_ip_igmp_filter();
int convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(const MulticastSegmentTable &current);
int convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(const MulticastProfileTable &current);
int convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(const IgmpSnooping &current);
int convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(const IgmpSnooping &current);
int IGMPFilterFunc_configure_interface_ip_igmp_filter();
int convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
    const MulticastTable &current);
int convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(const IgmpVlans &current);
} // namespace full

namespace delta {
int IGMPFilterFunc_configure_ip_igmp_filter(const PortFilters &current, const PortFilters &defaults);
int convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(const MulticastSegmentTable &current,
                                                                const MulticastSegmentTable &defaults);
int convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(const MulticastProfileTable &current,
                                                                const MulticastProfileTable &defaults);
int convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(const IgmpSnooping &current, const IgmpSnooping &defaults);
int convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(const IgmpSnooping &current,
                                                                 const IgmpSnooping &defaults);
int IGMPFilterFunc_configure_interface_ip_igmp_filter();
int convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
    const MulticastTable &current, const MulticastTable &defaults);
int convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(const IgmpVlans &current, const IgmpVlans &defaults);
} // namespace delta
