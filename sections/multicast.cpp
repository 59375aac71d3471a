#include "sections/multicast.h"

#include "format/section_lines.h"
#include "platform/board.h"
#include "platform/util.h"

#include <array>
#include <iterator>

// ---------------------------------------------------------------------------------------------- global filter setting

/// It shares its byte with the record of port 1.
static int writeFilterSwitch(const SectionLines<PortFilters> &filters) {
    const SectionLines<PortFilter> port1 = filters.part(&PortFilters::port)[0];
    port1.onOff(&PortFilter::filterSwitch, "ip igmp filter\n", "no ip igmp filter\n");
    return 0;
}

int full::IGMPFilterFunc_configure_ip_igmp_filter() {
    // Does not trace in this mode.
    return writeFilterSwitch({gSysConfig->portFilters});
}

int delta::IGMPFilterFunc_configure_ip_igmp_filter(const PortFilters &current, const PortFilters &defaults) {
    return trace(), writeFilterSwitch({current, defaults});
}

// --------------------------------------------------------------------------------------------- segments and profiles

// Full mode writes the bytes of the addresses, delta mode the texts that it has compared: how they look is the
// platform's.

static void appendRangeOfBytes(const MulticastSegment &segment) {
    append("range %d.%d.%d.%d %d.%d.%d.%d\n", segment.first, segment.last);
}

static void appendRangeOfTexts(const MulticastSegment &segment) {
    const AddressText first = textOf(segment.first);
    append("range %s %s\n", first, textOf(segment.last));
}

static int write(const SectionLines<MulticastSegmentTable> &table, void (*appendRange)(const MulticastSegment &)) {
    for (std::size_t i = 0; i < std::size(table.current); ++i) {
        const MulticastSegment &current = table.current[i];
        if (!isOn(current.valid)) continue;
        const SectionLines<MulticastSegment> segment = table[i];
        append("ip igmp segment %d\n", current.id);
        segment.text(&MulticastSegment::name, "name %s\n");
        const auto first = [](const MulticastSegment &from) { return textOf(from.first); };
        const auto last = [](const MulticastSegment &from) { return textOf(from.last); };
        if (segment.dueBy(first) || segment.dueBy(last)) appendRange(current);
        append("exit\n");
    }
    return 0;
}

int full::convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(const MulticastSegmentTable &current) {
    return trace(), write({current}, appendRangeOfBytes);
}

int delta::convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(const MulticastSegmentTable &current,
                                                                       const MulticastSegmentTable &defaults) {
    return trace(), write({current, defaults}, appendRangeOfTexts);
}

static int write(const SectionLines<MulticastProfileTable> &table) {
    for (std::size_t i = 0; i < std::size(table.current); ++i) {
        const MulticastProfile &profile = table.current[i];
        const MulticastProfile &defaults = table.defaults[i];
        if (!isOn(profile.valid)) continue;
        append("ip igmp profile %s\n", profile.name);
        for (std::size_t slot = 0; slot < std::size(profile.segments); ++slot) {
            const be16 segment = profile.segments[slot];
            if (segment.value() != 0 && (table.full || segment != defaults.segments[slot]))
                append("segment %d\n", segment);
        }
        append("exit\n");
    }
    return 0;
}

int full::convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(const MulticastProfileTable &current) {
    return trace(), write({current});
}

int delta::convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(const MulticastProfileTable &current,
                                                                       const MulticastProfileTable &defaults) {
    return trace(), write({current, defaults});
}

// ---------------------------------------------------------------------------------------------------- IGMP snooping

static int writeSnooping(const SectionLines<IgmpSnooping> &igmp) {
    if (g_EEPROM.isType5027()) return 0;
    igmp.onOff(&IgmpSnooping::enabled, "ip igmp snooping\n", "no ip igmp snooping\n");
    igmp.onOff(&IgmpSnooping::version3, "ip igmp snooping version-3\n", "no ip igmp snooping version-3\n");
    igmp.onOff(&IgmpSnooping::flooding, "ip igmp snooping flooding\n", "no ip igmp snooping flooding\n");
    if (igmp.due(&IgmpSnooping::routerPorts)) {
        // Lines of the whole switch and no blocks, though they list ports.
        const PortValues<portCount> isRouterPort = valuesOf(igmp.current.routerPorts);
        const PortSet routerPorts = portsWith(isRouterPort, 1);
        const PortSet others = portsWith(isRouterPort, 0);
        if (!routerPorts.empty()) append("ip igmp snooping mcast-router %s \n", routerPorts);
        if (!others.empty()) append("no ip igmp snooping mcast-router %s \n", others);
    }
    return 0;
}

int full::convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(const IgmpSnooping &current) {
    return trace(), writeSnooping({current});
}

int delta::convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(const IgmpSnooping &current,
                                                             const IgmpSnooping &defaults) {
    return trace(), writeSnooping({current, defaults});
}

static int writeSnoopingSettings(const SectionLines<IgmpSnooping> &igmp) {
    if (g_EEPROM.isType5027()) return 0;
    igmp.onOff(&IgmpSnooping::immediateLeave, "ip igmp snooping immediate-leave\n",
               "no ip igmp snooping immediate-leave\n");
    igmp.value(&IgmpSnooping::maxResponseTime, "ip igmp snooping max-response-time %d\n");
    igmp.value(&IgmpSnooping::queryInterval, "ip igmp snooping query-interval %d\n");
    return 0;
}

int full::convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(const IgmpSnooping &current) {
    return trace(), writeSnoopingSettings({current});
}

int delta::convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(const IgmpSnooping &current,
                                                                        const IgmpSnooping &defaults) {
    return trace(), writeSnoopingSettings({current, defaults});
}

// ------------------------------------------------------------------------------------------------- filters of ports

namespace {

/// The ports of an image grouped by equal maximum. A walk over the ports asks each in turn for the group that it leads.
class MaximumGroups {
public:
    explicit MaximumGroups(const PortFilters &filters) : maximum_(valuesOf(filters.port, &PortFilter::maxGroups)) {}

    /// Marks the group that `port` leads. False, with no port marked, where an earlier port leads its group.
    bool form(std::size_t port) {
        marks_ = {};
        if (joined_.has(port)) return false;
        marks_ = portsWith(maximum_, maximum_[port]);
        joined_.bits |= marks_.bits;
        return true;
    }

    PortSet marks() const { return marks_; }
    std::uint32_t maximumOf(std::size_t port) const { return maximum_[port]; }

private:
    PortValues<portCount> maximum_;
    PortSet marks_;
    PortSet joined_;
};

/// The profile slots of an image grouped by equal name. A walk over the ports and their slots asks each slot in turn
/// for the group that it leads.
class ProfileGroups {
public:
    static constexpr std::size_t slots = std::size(PortFilter{}.profile);

    explicit ProfileGroups(const PortFilters &filters) : filters_(filters) {}

    /// Forgets the marks. Once for each port, not for each slot: the group of a later slot of the same port also lists
    /// the ports of its earlier slots.
    void beginPort() { marks_ = {}; }

    /// Adds the group that `slot` of `port` leads to the marks. False, with the marks as they were left, where the slot
    /// is empty or an earlier port leads its group.
    bool form(std::size_t port, std::size_t slot) {
        if (joined_[slot].has(port) || isEmpty(nameOf(port, slot))) return false;
        marks_.add(port);
        for (std::size_t later = port + 1; later < portCount; ++later) {
            for (std::size_t of = 0; of < slots; ++of) {
                // A slot that joined a group before is asked all the same.
                if (!sameText(nameOf(later, of), nameOf(port, slot))) continue;
                marks_.add(later);
                joined_[of].add(later);
            }
        }
        return true;
    }

    PortSet marks() const { return marks_; }
    const Text<24> &nameOf(std::size_t port, std::size_t slot) const { return filters_.port[port].profile[slot]; }

private:
    /// A slot is empty when it holds exactly one blank. An empty text is a profile without a name.
    static bool isEmpty(const Text<24> &name) { return name.characters[0] == ' ' && name.characters[1] == '\0'; }

    const PortFilters &filters_;
    PortSet marks_;
    PortSet joined_[slots];
};

void appendEnabled(const PortValues<portCount> &enabled) {
    appendValueBlocks("interface %s \n", enabled, {{0, "no ip igmp filter\n"}, {1, "ip igmp filter\n"}});
}

void appendMaximum(PortSet ports, std::uint32_t maximum) {
    append("interface %s \n", ports);
    append("ip igmp max-groups %d\n", maximum);
    append("exit\n");
}

void appendProfile(PortSet ports, const Text<24> &name) {
    append("interface %s \n", ports);
    append("ip igmp filter profile %s\n", name);
    append("exit\n");
}

} // namespace

int full::IGMPFilterFunc_configure_interface_ip_igmp_filter() {
    // Does not trace in this mode.
    const PortFilters &current = gSysConfig->portFilters;
    appendEnabled(valuesOf(current.port, &PortFilter::enabled));

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

/// Walks both images in step. A group is compared with what the default image has marked at the same port and slot: its
/// own group, or, where it forms none there, nothing of the maxima and the marks of profiles as they were left.
int delta::IGMPFilterFunc_configure_interface_ip_igmp_filter() {
    trace();
    const PortFilters &current = gSysConfig->portFilters;
    const PortFilters &defaults = gDefConfig->portFilters;
    const PortValues<portCount> enabled = valuesOf(current.port, &PortFilter::enabled);
    if (enabled != valuesOf(defaults.port, &PortFilter::enabled)) appendEnabled(enabled);

    MaximumGroups maxima(current);
    MaximumGroups defaultMaxima(defaults);
    for (std::size_t port = 0; port < portCount; ++port) {
        const bool formed = maxima.form(port);
        defaultMaxima.form(port);
        const bool same =
            maxima.marks() == defaultMaxima.marks() && maxima.maximumOf(port) == defaultMaxima.maximumOf(port);
        if (formed && !same) appendMaximum(maxima.marks(), maxima.maximumOf(port));
    }

    ProfileGroups profiles(current);
    ProfileGroups defaultProfiles(defaults);
    for (std::size_t port = 0; port < portCount; ++port) {
        profiles.beginPort();
        defaultProfiles.beginPort();
        for (std::size_t slot = 0; slot < ProfileGroups::slots; ++slot) {
            const bool formed = profiles.form(port, slot);
            defaultProfiles.form(port, slot);
            const bool same = profiles.marks() == defaultProfiles.marks() &&
                              sameText(profiles.nameOf(port, slot), defaultProfiles.nameOf(port, slot));
            if (formed && !same) appendProfile(profiles.marks(), profiles.nameOf(port, slot));
        }
    }
    return 0;
}

// -------------------------------------------------------------------------------------------------- static multicast

/// Delta mode compares the address alone: an entry that moved to another port or VLAN is not written.
static int write(const SectionLines<MulticastTable> &table) {
    for (std::size_t i = 0; i < std::size(table.current); ++i) {
        const MulticastEntry &entry = table.current[i];
        if (!isOn(entry.valid)) continue;
        const AddressText address = ipv4First(entry.address, entry.addressIpv6);
        if (!table.full && address == ipv4First(table.defaults[i].address, table.defaults[i].addressIpv6)) continue;
        append("interface %d\n", entry.port + 1);
        append("ip igmp static-multicast-ip %s vlan %d\n", address, entry.vlan);
        append("exit\n");
    }
    return 0;
}

int full::convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
    const MulticastTable &current) {
    return trace(), write({current});
}

int delta::convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
    const MulticastTable &current, const MulticastTable &defaults) {
    return trace(), write({current, defaults});
}

// ----------------------------------------------------------------------------------------- IGMP snooping of the VLANs

namespace {

/// VLANs 1 to 4094 are written when they have a record in use; 0 and 4095 are not.
constexpr int firstVlan = 1;
constexpr int lastVlan = 4094;

int write(const SectionLines<IgmpVlans> &vlans) {
    for (int vlan = firstVlan; vlan <= lastVlan; ++vlan) {
        if (utilBitmapCheck(vlans.current.inUse.bytes, vlan) != 1) continue;
        const IgmpVlan &igmp = vlans.current.vlan[vlan];
        const IgmpVlan &defaults = vlans.defaults.vlan[vlan];
        if (vlans.full || igmp.snooping != defaults.snooping) {
            if (isOn(igmp.snooping)) append("ip igmp snooping vlan %d\n", vlan);
            else append("no ip igmp snooping vlan %d\n", vlan);
        }
        if (vlans.full || igmp.querier != defaults.querier) {
            if (isOn(igmp.querier)) append("ip igmp snooping vlan %d query\n", vlan);
            else append("no ip igmp snooping vlan %d query\n", vlan);
        }
    }
    return 0;
}

} // namespace

int full::convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(const IgmpVlans &current) {
    return trace(), write({current});
}

int delta::convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(const IgmpVlans &current,
                                                                     const IgmpVlans &defaults) {
    return trace(), write({current, defaults});
}
