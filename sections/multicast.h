/// IGMP snooping, multicast segments and profiles, filters of the ports, static multicast.
#pragma once

#include "platform/image.h"

namespace full {
/// Does not trace. Reads the current image itself.
int IGMPFilterFunc_configure_ip_igmp_filter();
int convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(const MulticastSegmentTable &current);
/// An empty slot has no line.
int convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(const MulticastProfileTable &current);
/// Nothing on a board of type 5027.
int convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(const IgmpSnooping &current);
/// Nothing on a board of type 5027.
int convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(const IgmpSnooping &current);
/// Does not trace. Reads the current image itself.
int IGMPFilterFunc_configure_interface_ip_igmp_filter();
int convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
    const MulticastTable &current);
/// VLANs 0 and 4095 are not written.
int convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(const IgmpVlans &current);
} // namespace full

namespace delta {
int IGMPFilterFunc_configure_ip_igmp_filter(const PortFilters &current, const PortFilters &defaults);
/// Opens the block of every valid segment, changed or not.
int convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(const MulticastSegmentTable &current,
                                                                const MulticastSegmentTable &defaults);
/// Opens the block of every valid profile, changed or not.
int convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(const MulticastProfileTable &current,
                                                                const MulticastProfileTable &defaults);
/// Nothing on a board of type 5027.
int convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(const IgmpSnooping &current, const IgmpSnooping &defaults);
/// Nothing on a board of type 5027.
int convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(const IgmpSnooping &current,
                                                                 const IgmpSnooping &defaults);
/// Reads both images itself.
int IGMPFilterFunc_configure_interface_ip_igmp_filter();
/// Compares the text of the address: a changed port or VLAN alone has no block.
int convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
    const MulticastTable &current, const MulticastTable &defaults);
int convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(const IgmpVlans &current, const IgmpVlans &defaults);
} // namespace delta
