/// IGMP snooping, multicast segments and profiles, filters of the ports, static multicast.
#pragma once

#include "platform/image.h"

namespace full {
/// The global filter switch (image 177432), which it finds itself in the current image: "ip igmp filter".
int IGMPFilterFunc_configure_ip_igmp_filter();
/// Segments (image 156712 to 174311): an "ip igmp segment" block for each valid one, with name and range of addresses.
int convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(const MulticastSegmentTable &current);
/// Profiles (image 174312 to 177431): an "ip igmp profile" block for each valid one, with its segments but no empty
/// slots.
int convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(const MulticastProfileTable &current);
/// IGMP snooping (image 129624 to 129655): "ip igmp snooping" with "version-3", "flooding" and "mcast-router". Nothing
/// on a board of type 5027.
int convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(const IgmpSnooping &current);
/// Its timers, in the same section: "ip igmp snooping" with "immediate-leave", "max-response-time" and
/// "query-interval", in the switch's own units. Nothing on a board of type 5027.
int convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(const IgmpSnooping &current);
/// Filters of the ports (image 177432 to 180287), which it finds itself in the current image: blocks of
/// "ip igmp filter" by value, of "ip igmp max-groups" by equal maximum and of "ip igmp filter profile" by equal name.
int IGMPFilterFunc_configure_interface_ip_igmp_filter();
/// Static groups (image 151592 to 156711): an "ip igmp static-multicast-ip" block for each valid entry.
int convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
    const MulticastTable &current);
/// IGMP snooping of the VLANs (image 129656 to 146551): "ip igmp snooping vlan" and its "query" for each VLAN from 1 to
/// 4094 with a record in use, on every board.
int convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(const IgmpVlans &current);
} // namespace full

namespace delta {
/// The line where the switch differs.
int IGMPFilterFunc_configure_ip_igmp_filter(const PortFilters &current, const PortFilters &defaults);
/// Head and "exit" for each valid segment; its name and its range where they differ from the default's same entry.
int convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(const MulticastSegmentTable &current,
                                                                const MulticastSegmentTable &defaults);
/// Head and "exit" for each valid profile; the segments in the slots that differ from the default's same slot.
int convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(const MulticastProfileTable &current,
                                                                const MulticastProfileTable &defaults);
/// Each line where its own value differs; both lines of router ports where their set differs.
int convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(const IgmpSnooping &current, const IgmpSnooping &defaults);
/// Each line where its own value differs.
int convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(const IgmpSnooping &current,
                                                                 const IgmpSnooping &defaults);
/// The "ip igmp filter" blocks where a port differs; of the other blocks those that do not stand alike in the default
/// image. Finds both images itself.
int IGMPFilterFunc_configure_interface_ip_igmp_filter();
/// The block of each valid entry whose address differs, as text, from that of the default's same entry.
int convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
    const MulticastTable &current, const MulticastTable &defaults);
/// Each line of a VLAN with a record in use where its value differs from that of the default's same VLAN.
int convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(const IgmpVlans &current, const IgmpVlans &defaults);
} // namespace delta
