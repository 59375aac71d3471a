#include "sections/multicast.h"

#include "app/text/text.h"
#include "format/address.h"
#include "format/blocks.h"
#include "platform/board.h"

#include <array>
#include <iterator>

// ---------------------------------------------------------------------------------------------- global filter switch

int full::IGMPFilterFunc_configure_ip_igmp_filter() {
    // Does not trace in this mode.
    appendSwitch(isOn(gSysConfig->portFilters.filterSwitch()), "ip igmp filter\n", "no ip igmp filter\n");
    return 0;
}

int delta::IGMPFilterFunc_configure_ip_igmp_filter(const PortFilters &current, const PortFilters &defaults) {
    trace();
    if (current.filterSwitch() != defaults.filterSwitch())
        appendSwitch(isOn(current.filterSwitch()), "ip igmp filter\n", "no ip igmp filter\n");
    return 0;
}

// --------------------------------------------------------------------------------------------- segments and profiles

int full::convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(const MulticastSegmentTable &current) {
    trace();
    for (const MulticastSegment &segment : current) {
        if (!isOn(segment.valid)) continue;
        append("ip igmp segment %d\n", segment.id);
        append("name %s\n", segment.name);
        append("range %d.%d.%d.%d %d.%d.%d.%d\n", segment.first, segment.last);
        append("exit\n");
    }
    return 0;
}

int delta::convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(const MulticastSegmentTable &current,
                                                                       const MulticastSegmentTable &defaults) {
    trace();
    for (std::size_t i = 0; i < std::size(current); ++i) {
        const MulticastSegment &segment = current[i];
        if (!isOn(segment.valid)) continue;
        append("ip igmp segment %d\n", segment.id);
        if (!sameText(segment.name, defaults[i].name)) append("name %s\n", segment.name);
        const AddressText first = textOf(segment.first);
        const AddressText last = textOf(segment.last);
        if (first != textOf(defaults[i].first) || last != textOf(defaults[i].last))
            append("range %s %s\n", first, last);
        append("exit\n");
    }
    return 0;
}

int full::convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(const MulticastProfileTable &current) {
    trace();
    for (const MulticastProfile &profile : current) {
        if (!isOn(profile.valid)) continue;
        append("ip igmp profile %s\n", profile.name);
        for (const be16 segment : profile.segments)
            if (segment.value() != 0) append("segment %d\n", segment);
        append("exit\n");
    }
    return 0;
}

int delta::convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(const MulticastProfileTable &current,
                                                                       const MulticastProfileTable &defaults) {
    trace();
    for (std::size_t i = 0; i < std::size(current); ++i) {
        const MulticastProfile &profile = current[i];
        if (!isOn(profile.valid)) continue;
        append("ip igmp profile %s\n", profile.name);
        for (std::size_t slot = 0; slot < std::size(profile.segments); ++slot) {
            const be16 segment = profile.segments[slot];
            if (segment.value() != 0 && segment != defaults[i].segments[slot]) append("segment %d\n", segment);
        }
        append("exit\n");
    }
    return 0;
}

// ---------------------------------------------------------------------------------------------------- IGMP snooping

namespace {

/// Which ports lead to a multicast router and which do not: global lines, not interface blocks, though they list ports.
void appendRouterPorts(const IgmpSnooping &igmp) {
    const PortWords isRouterPort = wordsOf(igmp.routerPorts);
    if (CHECK_HAS_MEMBER_INT(isRouterPort.data(), 1) != 0)
        appendPortLine("ip igmp snooping mcast-router ", isRouterPort.data(), 1, portCount, " \n");
    if (CHECK_HAS_MEMBER_INT(isRouterPort.data(), 0) != 0)
        appendPortLine("no ip igmp snooping mcast-router ", isRouterPort.data(), 0, portCount, " \n");
}

} // namespace

int full::convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(const IgmpSnooping &current) {
    trace();
    if (g_EEPROM.isType5027()) return 0;
    appendSwitch(isOn(current.enabled), "ip igmp snooping\n", "no ip igmp snooping\n");
    appendSwitch(isOn(current.version3), "ip igmp snooping version-3\n", "no ip igmp snooping version-3\n");
    appendSwitch(isOn(current.flooding), "ip igmp snooping flooding\n", "no ip igmp snooping flooding\n");
    appendRouterPorts(current);
    return 0;
}

int delta::convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(const IgmpSnooping &current,
                                                             const IgmpSnooping &defaults) {
    trace();
    if (g_EEPROM.isType5027()) return 0;
    if (current.enabled != defaults.enabled)
        appendSwitch(isOn(current.enabled), "ip igmp snooping\n", "no ip igmp snooping\n");
    if (current.version3 != defaults.version3)
        appendSwitch(isOn(current.version3), "ip igmp snooping version-3\n", "no ip igmp snooping version-3\n");
    if (current.flooding != defaults.flooding)
        appendSwitch(isOn(current.flooding), "ip igmp snooping flooding\n", "no ip igmp snooping flooding\n");
    if (!sameBytes(current.routerPorts, defaults.routerPorts)) appendRouterPorts(current);
    return 0;
}

int full::convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(const IgmpSnooping &current) {
    trace();
    if (g_EEPROM.isType5027()) return 0;
    appendSwitch(isOn(current.immediateLeave), "ip igmp snooping immediate-leave\n",
                 "no ip igmp snooping immediate-leave\n");
    append("ip igmp snooping max-response-time %d\n", current.maxResponseTime);
    append("ip igmp snooping query-interval %d\n", current.queryInterval);
    return 0;
}

int delta::convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(const IgmpSnooping &current,
                                                                        const IgmpSnooping &defaults) {
    trace();
    if (g_EEPROM.isType5027()) return 0;
    if (current.immediateLeave != defaults.immediateLeave)
        appendSwitch(isOn(current.immediateLeave), "ip igmp snooping immediate-leave\n",
                     "no ip igmp snooping immediate-leave\n");
    if (current.maxResponseTime != defaults.maxResponseTime)
        append("ip igmp snooping max-response-time %d\n", current.maxResponseTime);
    if (current.queryInterval != defaults.queryInterval)
        append("ip igmp snooping query-interval %d\n", current.queryInterval);
    return 0;
}

// ------------------------------------------------------------------------------------------------- filters of ports

namespace {

/// Port marks begin as words of four bytes 1. That is neither 0 nor the 1 of a marked port, so it is in no list.
constexpr std::uint32_t unmarked = 0x01010101;

/// The ports of an image grouped by equal maximum. A walk over the ports asks each in turn for the group that it leads.
class MaximumGroups {
public:
    explicit MaximumGroups(const PortFilters &filters) : maximum_(wordsOf(filters.port, &PortFilter::maxGroups)) {}

    /// Marks the group that `port` leads. False, with no port marked, where an earlier port leads its group.
    bool form(std::size_t port) {
        marks_.fill(unmarked);
        if (joined_[port]) return false;
        marks_[port] = 1;
        for (std::size_t later = port + 1; later < portCount; ++later) {
            if (maximum_[later] != maximum_[port]) continue;
            marks_[later] = 1;
            joined_[later] = true;
        }
        return true;
    }

    const PortWords &marks() const { return marks_; }
    std::uint32_t maximumOf(std::size_t port) const { return maximum_[port]; }

private:
    PortWords maximum_;
    PortWords marks_ = {};
    std::array<bool, portCount> joined_ = {};
};

/// The profile slots of an image grouped by equal name. A walk over the ports and their slots asks each slot in turn
/// for the group that it leads.
class ProfileGroups {
public:
    static constexpr std::size_t slots = std::size(PortFilter{}.profile);

    explicit ProfileGroups(const PortFilters &filters) : filters_(filters) {}

    /// Forgets the marks. Once for each port, not for each slot: the group of a later slot of the same port also lists
    /// the ports of its earlier slots.
    void beginPort() { marks_.fill(unmarked); }

    /// Adds the group that `slot` of `port` leads to the marks. False, with the marks as they were left, where the slot
    /// is empty or an earlier port leads its group.
    bool form(std::size_t port, std::size_t slot) {
        if (joined_[port][slot] || isEmpty(nameOf(port, slot))) return false;
        marks_[port] = 1;
        for (std::size_t later = port + 1; later < portCount; ++later) {
            for (std::size_t of = 0; of < slots; ++of) {
                // A slot that joined a group before is asked all the same.
                if (!sameText(nameOf(later, of), nameOf(port, slot))) continue;
                marks_[later] = 1;
                joined_[later][of] = true;
            }
        }
        return true;
    }

    const PortWords &marks() const { return marks_; }
    const Text<24> &nameOf(std::size_t port, std::size_t slot) const { return filters_.port[port].profile[slot]; }

private:
    /// A slot is empty when it holds exactly one blank. An empty text is a profile without a name.
    static bool isEmpty(const Text<24> &name) { return name.characters[0] == ' ' && name.characters[1] == '\0'; }

    const PortFilters &filters_;
    PortWords marks_ = {};
    bool joined_[portCount][slots] = {};
};

void appendMaximum(const PortWords &marks, std::uint32_t maximum) {
    appendInterface(marks, 1);
    append("ip igmp max-groups %d\n", maximum);
    append("exit\n");
}

void appendProfile(const PortWords &marks, const Text<24> &name) {
    appendInterface(marks, 1);
    append("ip igmp filter profile %s\n", name);
    append("exit\n");
}

} // namespace

int full::IGMPFilterFunc_configure_interface_ip_igmp_filter() {
    // Does not trace in this mode.
    const PortFilters &current = gSysConfig->portFilters;
    appendValueBlocks(wordsOf(current.port, &PortFilter::enabled),
                      {{0, "no ip igmp filter\n"}, {1, "ip igmp filter\n"}});

    MaximumGroups maxima(current);
    for (std::size_t port = 0; port < portCount; ++port)
        if (maxima.form(port)) appendMaximum(maxima.marks(), maxima.maximumOf(port));

    ProfileGroups profiles(current);
    for (std::size_t port = 0; port < portCount; ++port) {
        profiles.beginPort();
        for (std::size_t slot = 0; slot < ProfileGroups::slots; ++slot)
            if (profiles.form(port, slot)) appendProfile(profiles.marks(), profiles.nameOf(port, slot));
    }
    return 0;
}

// Both images are walked in step. A group is compared with what the default image has marked at the same port and slot:
// its own group, or, where it forms none there, the marks as they were left.
int delta::IGMPFilterFunc_configure_interface_ip_igmp_filter() {
    trace();
    const PortFilters &current = gSysConfig->portFilters;
    const PortFilters &defaults = gDefConfig->portFilters;
    const PortWords enabled = wordsOf(current.port, &PortFilter::enabled);
    if (enabled != wordsOf(defaults.port, &PortFilter::enabled))
        appendValueBlocks(enabled, {{0, "no ip igmp filter\n"}, {1, "ip igmp filter\n"}});

    MaximumGroups maxima(current);
    MaximumGroups standardMaxima(defaults);
    for (std::size_t port = 0; port < portCount; ++port) {
        const bool formed = maxima.form(port);
        standardMaxima.form(port);
        const bool same =
            maxima.marks() == standardMaxima.marks() && maxima.maximumOf(port) == standardMaxima.maximumOf(port);
        if (formed && !same) appendMaximum(maxima.marks(), maxima.maximumOf(port));
    }

    ProfileGroups profiles(current);
    ProfileGroups standardProfiles(defaults);
    for (std::size_t port = 0; port < portCount; ++port) {
        profiles.beginPort();
        standardProfiles.beginPort();
        for (std::size_t slot = 0; slot < ProfileGroups::slots; ++slot) {
            const bool formed = profiles.form(port, slot);
            standardProfiles.form(port, slot);
            const bool same = profiles.marks() == standardProfiles.marks() &&
                              sameText(profiles.nameOf(port, slot), standardProfiles.nameOf(port, slot));
            if (formed && !same) appendProfile(profiles.marks(), profiles.nameOf(port, slot));
        }
    }
    return 0;
}

// -------------------------------------------------------------------------------------------------- static multicast

int full::convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
    const MulticastTable &current) {
    trace();
    for (const MulticastEntry &entry : current) {
        if (!isOn(entry.valid)) continue;
        append("interface %d\n", entry.port + 1);
        append("ip igmp static-multicast-ip %s vlan %d\n", ipv4First(entry.address, entry.addressIpv6), entry.vlan);
        append("exit\n");
    }
    return 0;
}

// Only the address decides: an entry that moved to another port or VLAN is not written.
int delta::convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
    const MulticastTable &current, const MulticastTable &defaults) {
    trace();
    for (std::size_t i = 0; i < std::size(current); ++i) {
        const MulticastEntry &entry = current[i];
        if (!isOn(entry.valid)) continue;
        const AddressText address = ipv4First(entry.address, entry.addressIpv6);
        if (address == ipv4First(defaults[i].address, defaults[i].addressIpv6)) continue;
        append("interface %d\n", entry.port + 1);
        append("ip igmp static-multicast-ip %s vlan %d\n", address, entry.vlan);
        append("exit\n");
    }
    return 0;
}

// ----------------------------------------------------------------------------------------- IGMP snooping of the VLANs

namespace {

/// VLANs 1 to 4094 are written when they have a record in use; 0 and 4095 are none.
constexpr int firstVlan = 1;
constexpr int lastVlan = 4094;

} // namespace

int full::convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(const IgmpVlans &current) {
    trace();
    for (int vlan = firstVlan; vlan <= lastVlan; ++vlan) {
        if (utilBitmapCheck(current.inUse.bytes, vlan) != 1) continue;
        const IgmpVlan &igmp = current.vlan[vlan];
        if (isOn(igmp.snooping)) append("ip igmp snooping vlan %d\n", vlan);
        else append("no ip igmp snooping vlan %d\n", vlan);
        if (isOn(igmp.querier)) append("ip igmp snooping vlan %d query\n", vlan);
        else append("no ip igmp snooping vlan %d query\n", vlan);
    }
    return 0;
}

int delta::convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(const IgmpVlans &current,
                                                                     const IgmpVlans &defaults) {
    trace();
    for (int vlan = firstVlan; vlan <= lastVlan; ++vlan) {
        if (utilBitmapCheck(current.inUse.bytes, vlan) != 1) continue;
        const IgmpVlan &igmp = current.vlan[vlan];
        const IgmpVlan &standard = defaults.vlan[vlan];
        if (igmp.snooping != standard.snooping) {
            if (isOn(igmp.snooping)) append("ip igmp snooping vlan %d\n", vlan);
            else append("no ip igmp snooping vlan %d\n", vlan);
        }
        if (igmp.querier != standard.querier) {
            if (isOn(igmp.querier)) append("ip igmp snooping vlan %d query\n", vlan);
            else append("no ip igmp snooping vlan %d query\n", vlan);
        }
    }
    return 0;
}
