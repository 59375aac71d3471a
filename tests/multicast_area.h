/// Steps, stores and settings of multicast.
#pragma once

#include "byte_changes.h"
#include "rows.h"

#include "platform/host/factory.h"
#include "sections/multicast.h"

namespace multicast {

constexpr const char *filterSwitch = "IGMPFilterFunc_configure_ip_igmp_filter";
constexpr const char *segments = "convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment";
constexpr const char *profiles = "convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile";
constexpr const char *snooping = "convConfigIGMPConfig_IGMPConfig_configure_ip_igmp";
constexpr const char *timers = "convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping";
constexpr const char *portFilters = "IGMPFilterFunc_configure_interface_ip_igmp_filter";
constexpr const char *staticGroups =
    "convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip";
constexpr const char *vlans = "convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp";

constexpr std::size_t igmpAt = 129624;
constexpr std::size_t vlansAt = 129656;
constexpr std::size_t staticAt = 151592;
constexpr std::size_t segmentsAt = 156712;
constexpr std::size_t profilesAt = 174312;
constexpr std::size_t filtersAt = 177432;

inline auto igmp(Setter<void(IgmpSnooping &)> set) {
    return [set](ConfigImage &current, ConfigImage &) { set(current.igmp); };
}
/// The same settings in the default image alone.
inline auto igmpDefault(Setter<void(IgmpSnooping &)> set) {
    return [set](ConfigImage &, ConfigImage &defaults) { set(defaults.igmp); };
}
inline Given onBoard5027(const Given &given) {
    return [given](ConfigImage &current, ConfigImage &defaults) {
        g_EEPROM.boardType = 5027;
        given(current, defaults);
    };
}

inline void everythingOn(IgmpSnooping &igmp) {
    igmp.enabled = 1;
    igmp.maxResponseTime = 65535;
    igmp.queryInterval = 256;
    igmp.immediateLeave = 1;
    for (unsigned port = 0; port < 28; ++port) igmp.routerPorts.set(port);
    igmp.flooding = 1;
    igmp.version3 = 1;
}

inline void setSegment(MulticastSegment &segment, std::uint16_t id, const char *name) {
    segment.valid = 1;
    segment.id = id;
    segment.name = name;
    segment.first = {{233, 252, 0, 1}};
    segment.last = {{233, 252, 0, 31}};
}

inline auto segmentChanged(Setter<void(MulticastSegment &)> change) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        setSegment(current.multicastSegments[0], 7, "news");
        setSegment(defaults.multicastSegments[0], 7, "news");
        change(current.multicastSegments[0]);
    };
}

inline auto profileChanged(Setter<void(MulticastProfile &)> change) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults}) {
            MulticastProfile &profile = image->multicastProfiles[0];
            profile.valid = 1;
            profile.name = "staff";
            profile.segments[0] = 5;
            profile.segments[9] = 6;
        }
        change(current.multicastProfiles[0]);
    };
}

/// Ports that are neither on nor off, with empty profile slots and a maximum of 0: nothing but one block of maxima.
inline void quietFilters(PortFilters &filters) {
    for (PortFilter &filter : filters.port) {
        filter.enabled = 2;
        for (auto &profile : filter.profile) profile = " ";
    }
}

/// Quiet ports in both images, then what `set` and `setDefault` set.
inline auto filters(
    Setter<void(PortFilter *)> set, Setter<void(PortFilter *)> setDefault = [](PortFilter *) {}) {
    return [set, setDefault](ConfigImage &current, ConfigImage &defaults) {
        quietFilters(current.portFilters);
        quietFilters(defaults.portFilters);
        set(current.portFilters.port);
        setDefault(defaults.portFilters.port);
    };
}

const std::string noMaxima = "interface 1-28 \nip igmp max-groups 0\nexit\n";

/// Maxima from 27 down to 0, one of its own for each port.
inline std::string maximumOfEachPort() {
    std::string text;
    for (int port = 1; port <= 28; ++port)
        text += "interface " + std::to_string(port) + " \nip igmp max-groups " + std::to_string(28 - port) + "\nexit\n";
    return text;
}

inline std::string profileBlock(const std::string &list, const std::string &name) {
    return "interface " + list + " \nip igmp filter profile " + name + "\nexit\n";
}

/// The same entry in both images, then a change of the current one.
inline auto groupChanged(Setter<void(MulticastEntry &)> change) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults}) {
            MulticastEntry &entry = image->multicastTable[0];
            entry.valid = 1;
            entry.address = {{233, 252, 0, 7}};
            entry.port = 2;
            entry.vlan = 10;
        }
        change(current.multicastTable[0]);
    };
}

constexpr Ipv6 groupIpv6 = {{0xff, 0x0e, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xdb, 0x80, 0, 0x07}};

inline void useVlan(IgmpVlans &igmpVlans, unsigned vlan, u8 isSnooping, u8 isQuerier) {
    igmpVlans.inUse.set(vlan);
    igmpVlans.vlan[vlan].snooping = isSnooping;
    igmpVlans.vlan[vlan].querier = isQuerier;
}

inline void composeMulticast(ConfigImage &current, ConfigImage &defaults) {
    for (ConfigImage *image : {&current, &defaults}) {
        image->igmp.maxResponseTime = 10;
        image->igmp.queryInterval = 125;
        image->igmp.flooding = 1;
        for (PortFilter &filter : image->portFilters.port) {
            filter.maxGroups = 256;
            for (auto &profile : filter.profile) profile = " ";
        }
    }
    current.igmp.enabled = 1;
    current.igmp.maxResponseTime = 20;
    current.igmp.immediateLeave = 1;
    current.igmp.routerPorts.set(24).set(25).set(26);
    current.igmp.flooding = 0;
    current.igmp.version3 = 1;
    useVlan(current.igmpVlans, 10, 1, 0);
    useVlan(current.igmpVlans, 4094, 1, 1);
    current.igmpVlans.inUse.set(0).set(4095);

    setSegment(current.multicastSegments[0], 1, "news");
    setSegment(defaults.multicastSegments[0], 1, "news");
    setSegment(current.multicastSegments[1], 2, "training");
    setSegment(defaults.multicastSegments[1], 3, "training");
    current.multicastSegments[1].last = {{233, 252, 0, 63}};
    setSegment(current.multicastSegments[399], 65535, "last");

    MulticastProfile &staff = current.multicastProfiles[0];
    staff.valid = 1;
    staff.name = "staff";
    staff.segments[0] = 1;
    staff.segments[2] = 2;
    defaults.multicastProfiles[0].segments[0] = 1;

    current.portFilters.port[0].filterSwitch = 1;
    for (int port = 0; port < 4; ++port) {
        current.portFilters.port[port].profile[0] = "staff";
        current.portFilters.port[port].maxGroups = 8;
        current.portFilters.port[port].enabled = 1;
    }
    current.portFilters.port[0].profile[1] = "watch";
    current.portFilters.port[27].profile[3] = "watch";

    MulticastEntry &ipv4 = current.multicastTable[0];
    ipv4.valid = 1;
    ipv4.address = {{233, 252, 0, 7}};
    ipv4.addressIpv6 = groupIpv6;
    ipv4.port = 20;
    ipv4.vlan = 10;
    MulticastEntry &ipv6 = current.multicastTable[127];
    ipv6.valid = 1;
    ipv6.addressIpv6 = groupIpv6;
    ipv6.port = 27;
    ipv6.vlan = 4094;
    MulticastEntry &unset = current.multicastTable[64];
    unset.valid = 1;
    unset.vlan = -1;
}

inline std::string multicastText(Mode mode) {
    resetAll();
    composeMulticast(*gSysConfig, *gDefConfig);
    for (const char *step : {filterSwitch, segments, profiles, snooping, timers, portFilters, staticGroups, vlans})
        callStep(mode, step);
    return Temp_Configuration;
}

} // namespace multicast
