/// The list of all fields. Places and types are the compiler's; this adds what the bytes mean to a reader.
#include "inspect/fields.h"

#include "format/port_list.h"

#include <iterator>

namespace inspect {
namespace {

// ----------------------------------------------------------------------------------------------- how a field is built

/// The fields of a record, one specialisation each.
template <class Struct> struct FieldsOf;

template <class Struct> consteval Record recordWith();
template <class Struct> inline constexpr Record recordType = recordWith<Struct>();

/// A field whose description is completed by calls that follow each other.
struct Description : Field {
    template <class Change> constexpr Description with(Change change) const {
        Description changed = *this;
        change(changed);
        return changed;
    }

    constexpr Description flag() const {
        return with([](Field &f) { f.kind = Kind::flag; });
    }
    /// Numbers that each have a word; what all others mean, where they mean something.
    template <std::size_t Count>
    constexpr Description codes(const Word (&table)[Count], const char *others = nullptr) const {
        return with([&](Field &f) { f.kind = Kind::code, f.words = table, f.otherwise = others; });
    }
    /// Codes whose words another part of the program knows.
    constexpr Description codes(const char *(*wordsOf)(std::uint32_t), std::uint32_t known) const {
        return with([&](Field &f) { f.kind = Kind::code, f.wordOf = wordsOf, f.wordCount = known; });
    }
    /// A number of which some values are special.
    template <std::size_t Count> constexpr Description special(const Word (&table)[Count]) const {
        return with([&](Field &f) { f.words = table; });
    }
    constexpr Description port() const {
        return with([](Field &f) { f.kind = Kind::portNumber; });
    }
    constexpr Description vlan() const {
        return with([](Field &f) { f.kind = Kind::vlanId; });
    }
    constexpr Description ports() const {
        return with([](Field &f) { f.members = Members::ports; });
    }
    constexpr Description vlans() const {
        return with([](Field &f) { f.members = Members::vlans; });
    }
    /// A set of bits that have names. A number can be one too.
    template <std::size_t Count> constexpr Description bits(const Word (&table)[Count]) const {
        return with([&](Field &f) {
            f.isWord = f.kind != Kind::bits;
            f.kind = Kind::bits, f.members = Members::named, f.words = table;
        });
    }
    /// An array of bytes that is one value.
    constexpr Description bytes() const {
        return with([](Field &f) { f.kind = Kind::bytes, f.size *= f.count, f.count = 0; });
    }
    /// Number of the first entry.
    constexpr Description from(int number) const {
        return with([=](Field &f) { f.firstIndex = number; });
    }
    constexpr Description unit(const char *text) const {
        return with([=](Field &f) { f.unit = text; });
    }
    constexpr Description note(const char *text) const {
        return with([=](Field &f) { f.note = text; });
    }
    constexpr Description compared(const char *text) const {
        return with([=](Field &f) { f.comparedOnly = true, f.note = text; });
    }
    /// The set, a member of the same record, that says which entries are in use.
    constexpr Description usedAsIn(std::string_view set) const {
        return with([=](Field &f) { f.inUse = set; });
    }
};

/// How a type of `platform/record.h` is stored, and what it holds unless the list says more.
template <class Type> struct Stored {
    static constexpr std::string_view name = FieldsOf<Type>::type;
    static constexpr Kind kind = Kind::record;
};
#define STORED(Type, text, what)                                                                                       \
    template <> struct Stored<Type> {                                                                                  \
        static constexpr std::string_view name = text;                                                                 \
        static constexpr Kind kind = Kind::what;                                                                       \
    };
STORED(u8, "u8", number)
STORED(i8, "i8", number)
STORED(be16, "be16", number)
STORED(be32, "be32", number)
STORED(be_i32, "be_i32", number)
STORED(Mac, "MAC", mac)
STORED(Ipv4, "IPv4", ipv4)
STORED(Ipv6, "IPv6", ipv6)
#undef STORED
// NOLINTBEGIN(bugprone-macro-parentheses): a name of a type
#define STORED(Type, text, what)                                                                                       \
    template <std::size_t N> struct Stored<Type<N>> {                                                                  \
        static constexpr std::string_view name = text;                                                                 \
        static constexpr Kind kind = Kind::what;                                                                       \
    };
// NOLINTEND(bugprone-macro-parentheses)
STORED(Text, "text", text)
STORED(Secret, "secret", secret)
STORED(Bitmap, "bitmap", bits)
STORED(Reserved, "reserved", reserved)
#undef STORED

template <class Member> constexpr Description describe(std::string_view name, std::size_t offset) {
    using Entry = std::remove_extent_t<Member>;
    Description field = {};
    field.name = name;
    field.offset = offset;
    field.size = sizeof(Entry);
    field.count = std::extent_v<Member>;
    field.type = Stored<Entry>::name;
    field.kind = Stored<Entry>::kind;
    field.isSigned = std::is_same_v<Entry, i8> || std::is_same_v<Entry, be_i32>;
    if constexpr (Stored<Entry>::kind == Kind::record) field.record = &recordType<Entry>;
    return field;
}

/// The fields follow each other from the record's first byte to its last. Arrays are numbered, and what tells of use is
/// there.
consteval bool isWhole(std::span<const Field> fields, std::size_t size) {
    std::size_t end = 0;
    for (const Field &field : fields) {
        if (field.offset != end || field.size == 0) return false;
        if ((field.count != 0) != (field.firstIndex >= 0)) return false;
        if (!field.inUse.empty()) {
            bool found = false;
            for (const Field &other : fields) found = found || (other.name == field.inUse && other.kind == Kind::bits);
            if (!found) return false;
        }
        end += field.bytes();
    }
    return end == size;
}

template <class Struct> consteval Record recordWith() {
    using Fields = FieldsOf<Struct>;
    static_assert(isWhole(Fields::list, sizeof(Struct)), "the list of fields has a gap, an overlap or no numbering");
    Record result = {Fields::type, sizeof(Struct), Fields::list, nullptr};
    for (const Field &field : Fields::list)
        if (field.name == Fields::inUse) result.inUse = &field;
    return result;
}

// ------------------------------------------------------------------------------------------------------ words of codes

constexpr Word offOn[] = {{0, "off"}, {1, "on"}};
constexpr Word daylightSavings[] = {{0, "off"}, {1, "recurring"}};
constexpr Word dhcpv6Modes[] = {{1, "auto"}, {2, "force"}};
constexpr Word remoteLogins[] = {{0, "none"}, {1, "telnet"}, {2, "ssh"}};
constexpr Word userLevels[] = {{1, "read-only"}, {2, "read-write"}, {3, "admin"}};
constexpr Word communityLevels[] = {{0, "not set"}, {1, "read-only"}, {2, "read-write"}, {3, "admin"}};
constexpr Word administrativeStates[] = {{0, "enabled"}, {1, "shut down"}};
constexpr Word mediaTypes[] = {{0, "none"}, {1, "SFP"}};
constexpr Word speeds[] = {{0, "10 Mb/s"}, {1, "100 Mb/s"}, {2, "1000 Mb/s"}, {3, "automatic"}};
constexpr Word duplexes[] = {{0, "not forced to full duplex"}, {1, "full duplex"}};
constexpr Word vlanModes[] = {
    {1, "port-based"}, {2, "802.1Q"}, {3, "802.1Q with isolation"}, {4, "QinQ bypassing the customer tag"}};
constexpr Word vlanPortModes[] = {{0, "access"}, {1, "trunk"}, {2, "trunk native"}, {3, "dot1q-tunnel"}};
constexpr Word lacpRoles[] = {{0, "none"}, {1, "active"}};
constexpr Word learning[] = {{0, "on"}, {1, "off"}};
constexpr Word noLimit[] = {{0, "no limit"}};
constexpr Word none[] = {{0, "none"}};
constexpr Word emptySlot[] = {{0, "empty slot"}};
constexpr Word qosModes[] = {{0, "none"}, {1, "port-based"}, {2, "802.1p"}, {3, "DSCP"}, {4, "VLAN id"}};
constexpr Word queuingModes[] = {{0, "weighted"}, {1, "none"}};
constexpr Word dscpModes[] = {{0, "off"}, {1, "by DSCP"}, {2, "by port"}};
constexpr Word stpVersions[] = {{1, "normal"}};
constexpr Word pointToPoint[] = {{0, "forced true"}, {1, "forced false"}, {2, "auto"}};
constexpr Word noYes[] = {{0, "no"}, {1, "yes"}};
constexpr Word trusts[] = {{0, "untrusted"}, {1, "trusted"}};
constexpr Word sourceGuards[] = {{0, "fixed IP"}, {1, "DHCP"}, {2, "off"}};
constexpr Word portControls[] = {{0, "auto"}, {1, "none"}, {2, "unauthorized"}};
constexpr Word budgetModes[] = {{0, "class"}};
constexpr Word aclActions[] = {{1, "permit"}, {2, "copy to mirror"}, {3, "redirect"}};
constexpr Word poePriorities[] = {{0, "critical"}, {1, "high"}, {2, "low"}};
constexpr Word backupProtocols[] = {{1, "FTP"}};
constexpr Word encryptions[] = {{0, "none"}, {1, "md5"}};
constexpr Word weekdays[] = {{0, "sun"}, {1, "mon"}, {2, "tue"}, {3, "wed"}, {4, "thu"}, {5, "fri"}, {6, "sat"}};
constexpr Word matchFields[] = {
    {AclMatch::ingressPort, "ingress-port"},
    {AclMatch::vlanId, "vlan"},
    {AclMatch::sourceMac, "source-mac"},
    {AclMatch::destinationMac, "destination-mac"},
    {AclMatch::etherType, "ethertype"},
    {AclMatch::tos, "tos"},
    {AclMatch::protocol, "protocol"},
    {AclMatch::sourceL4Port, "source-l4-port"},
    {AclMatch::destinationL4Port, "destination-l4-port"},
    {AclMatch::sourceIpv4, "source-ipv4"},
    {AclMatch::destinationIpv4, "destination-ipv4"},
    {AclMatch::sourceIpv6, "source-ipv6"},
    {AclMatch::destinationIpv6, "destination-ipv6"},
};
constexpr Word capabilities[] = {{4, "battery (0x10)"}, {6, "battery (0x40)"}, {8, "PoE"}};
constexpr std::uint32_t stormRates = 22;

// ----------------------------------------------------------------------------------------------------------- the lists

#define FIELDS_OF(Struct, used)                                                                                        \
    template <> struct FieldsOf<Struct> {                                                                              \
        using Type = Struct;                                                                                           \
        static constexpr std::string_view type = #Struct;                                                              \
        static constexpr std::string_view inUse = used;                                                                \
        static const Field list[];                                                                                     \
    };                                                                                                                 \
    constexpr Field FieldsOf<Struct>::list[]
#define F(member) describe<decltype(Type::member)>(#member, offsetof(Type, member))

// clang-format off
FIELDS_OF(TimeConfig, "") = {
    F(ntpEnabled).flag(),
    F(syncInterval),
    F(server1),
    F(reserved12),
    F(server2),
    F(reserved77),
    F(timeZone),
    F(reserved176),
    F(daylightSaving).codes(daylightSavings, "by date"),
    F(offset),
    F(server1Ipv6),
    F(reserved232),
    F(server2Ipv6),
    F(reserved297),
};

FIELDS_OF(Ipv4Interface, "") = {
    F(enabled).flag(),
    F(address),
    F(mask),
    F(gateway),
    F(reserved13),
    F(dhcpMode).codes(offOn),
    F(reserved20),
};

FIELDS_OF(Ipv6Interface, "") = {
    F(enabled).flag(),
    F(autoconfiguration).flag(),
    F(dhcpMode).codes(dhcpv6Modes, "off"),
    F(rapidCommit).flag(),
    F(linkLocal),
    F(linkLocalPrefixLength),
    F(global),
    F(globalPrefixLength),
    F(gateway),
    F(reserved54),
};

FIELDS_OF(CompanyInfo, "") = {
    F(companyName),
    F(systemContact),
    F(systemName),
    F(systemLocation),
    F(hostName),
    F(dhcpVendorId),
};

FIELDS_OF(ServiceConfig, "") = {
    F(reserved0),
    F(remoteLogin).codes(remoteLogins),
    F(reserved8),
    F(snmpEnabled).flag(),
    F(webEnabled).flag(),
    F(reserved11),
};

FIELDS_OF(ConsoleConfig, "") = {
    F(reserved0),
    F(telnetPort),
    F(reserved8),
    F(timeout).unit("minutes where timeoutInMinutes is on"),
    F(reserved16),
    F(timeoutInMinutes).flag(),
    F(webTimeout),
    F(reserved52),
};

FIELDS_OF(User, "inUse") = {
    F(active).flag(),
    F(inUse).flag(),
    F(reserved2),
    F(name),
    F(password),
    F(passwordMd5),
    F(description),
    F(level).codes(userLevels),
    F(reserved125),
};

FIELDS_OF(PortSettings, "") = {
    F(administrativeState).codes(administrativeStates),
    F(mediaType).codes(mediaTypes),
    F(autoNegotiation).codes(offOn),
    F(speed).codes(speeds),
    F(duplex).codes(duplexes),
    F(flowControl).codes(offOn),
    F(description),
    F(further),
};

FIELDS_OF(VlanPort, "") = {
    F(reserved0),
    F(mode).codes(vlanPortModes),
    F(reserved2),
    F(accessVlan).vlan().special(none),
    F(reserved6),
};

FIELDS_OF(PortVlan, "inUse") = {
    F(inUse).flag(),
    F(name),
    F(members).ports(),
};

FIELDS_OF(TagVlan, "inUse") = {
    F(inUse).flag(),
    F(members).ports(),
    F(reserved5),
    F(id).vlan(),
    F(name),
};

FIELDS_OF(LacpConfig, "") = {
    F(reserved0),
    F(enabled).from(1).codes(offOn),
    F(key).from(1),
    F(role).from(1).codes(lacpRoles),
};

FIELDS_OF(TrunkGroup, "inUse") = {
    F(inUse).flag(),
    F(name),
    F(members).ports(),
};

FIELDS_OF(DistributionRules, "") = {
    F(sourceMac).flag(),
    F(destinationMac).flag(),
    F(sourceIp).flag(),
    F(destinationIp).flag(),
    F(sourceL4Port).flag(),
    F(destinationL4Port).flag(),
};

FIELDS_OF(MacEntry, "inUse") = {
    F(inUse).flag(),
    F(address),
    F(port).port(),
    F(reserved11),
    F(vlan).vlan(),
    F(reserved16),
};

FIELDS_OF(MacLearning, "") = {
    F(off).from(1).codes(learning),
    F(following).compared("no line; a difference makes delta mode write MAC learning"),
};

FIELDS_OF(MacLimit, "") = {
    F(enabled).flag(),
    F(portEnabled).from(1).codes(offOn),
    F(portMaximum).from(1).special(none),
    F(reserved228),
    F(notificationInterval),
};

FIELDS_OF(PortMirror, "") = {
    F(reserved0),
    F(destinationSet).flag(),
    F(destinationPort).port(),
    F(sources).ports(),
};

FIELDS_OF(LoopDetection, "") = {
    F(enabled).flag(),
    F(ports).ports(),
    F(reserved5),
    F(interval),
    F(unlockInterval),
    F(vlans).from(1).vlan().special(emptySlot),
    F(allVlans).flag(),
    F(reserved19),
};

FIELDS_OF(RateLimits, "") = {
    F(reserved0),
    F(ingress).from(1).special(noLimit),
    F(egress).from(1).special(noLimit),
    F(ingressPorts).ports(),
    F(egressPorts).ports(),
};

FIELDS_OF(StormControl, "") = {
    F(reserved0),
    F(broadcast).codes(GET_STORM_RATE_STR, stormRates),
    F(multicast).codes(GET_STORM_RATE_STR, stormRates),
    F(unicast).codes(GET_STORM_RATE_STR, stormRates),
    F(reserved152),
    F(notificationInterval),
};

FIELDS_OF(DhcpSnooping, "") = {
    F(enabled).flag(),
    F(serverPorts).ports(),
    F(reserved5),
    F(initiated),
    F(leased),
    F(reserved12),
    F(servers).from(1),
    F(reserved80),
    F(checkServerAddress).flag(),
    F(reserved85),
};

FIELDS_OF(SwitchConfig, "") = {
    F(mtu),
    F(macAgingTime),
    F(reserved8),
    F(blockBpdu20to2F).flag(),
    F(blockBpdu00to0F).flag(),
    F(blockBpdu10).flag(),
    F(reserved51),
    F(terminalLength).unit("lines"),
    F(reserved56),
};

FIELDS_OF(Community, "inUse") = {
    F(inUse).flag(),
    F(active).flag(),
    F(name),
    F(description),
    F(level).codes(communityLevels),
    F(reserved84),
};

FIELDS_OF(TrapDestination, "inUse") = {
    F(inUse).flag(),
    F(active).flag(),
    F(community),
    F(address),
    F(addressIpv6),
    F(reserved46),
};

FIELDS_OF(TrapConfig, "") = {
    F(coldStart).flag(),
    F(warmStart).flag(),
    F(authFail).flag(),
    F(reserved3),
    F(portLink).note("bit 0 alone decides"),
    F(caseFan).flag(),
    F(reserved25),
    F(batteryMode).flag(),
    F(reserved28),
    F(cpuLoad).flag(),
    F(reserved31),
    F(macLimit).flag(),
    F(stormControl).flag(),
    F(autoBackup).flag(),
    F(reserved39),
};

FIELDS_OF(QueueWeights, "") = {
    F(weight).from(0),
    F(following).bytes().compared("no line; a difference makes delta mode write the queue weights"),
};

FIELDS_OF(PriorityConfig, "") = {
    F(mode).codes(qosModes),
    F(queuingMode).codes(queuingModes),
    F(reserved8),
    F(queueOf8021p).from(0),
    F(queueOfDscp).from(0),
    F(reserved109),
    F(userPriority).from(1),
    F(managementPriority).note("compared as the 29th of the user priorities too"),
    F(reserved166),
    F(queues),
    F(reserved1068),
};

FIELDS_OF(RemarkPriority, "") = {
    F(marker).compared("never a difference: delta mode sets it to 1 in both images"),
    F(unread),
    F(newPriority),
};

FIELDS_OF(RemarkDscp, "") = {
    F(marker).compared("never a difference: delta mode sets it to 1 in both images"),
    F(unread),
    F(receivedDscp),
    F(newDscp),
};

FIELDS_OF(Remarking, "") = {
    F(dscpMode).codes(dscpModes),
    F(remark8021p).flag(),
    F(reserved2),
    F(priority).from(1),
    F(dscp).from(1),
};

FIELDS_OF(QinQConfig, "") = {
    F(reserved0),
    F(ethertype),
};

FIELDS_OF(IgmpSnooping, "") = {
    F(enabled).flag(),
    F(reserved1),
    F(maxResponseTime),
    F(queryInterval),
    F(reserved6),
    F(immediateLeave).flag(),
    F(routerPorts).ports(),
    F(flooding).flag(),
    F(reserved13),
    F(version3).flag(),
    F(reserved20),
};

FIELDS_OF(IgmpVlan, "") = {
    F(reserved0),
    F(snooping).flag(),
    F(querier).flag(),
};

FIELDS_OF(IgmpVlans, "") = {
    F(reserved0),
    F(inUse).vlans(),
    F(reserved513),
    F(vlan).from(0).usedAsIn("inUse"),
    F(reserved16894),
};

FIELDS_OF(LogConfig, "") = {
    F(enabled).flag(),
    F(reserved1),
    F(server).from(1),
    F(reserved14),
    F(serverIpv6).from(1),
    F(reserved68),
};

FIELDS_OF(AuthenticationClient, "") = {
    F(enabled).flag(),
    F(secret),
    F(port),
    F(retryTime),
    F(server).from(1),
    F(serverIpv6).from(1),
    F(reserved81),
};

FIELDS_OF(StpConfig, "") = {
    F(priority),
    F(maxAge),
    F(helloTime),
    F(forwardDelay),
    F(version).codes(stpVersions, "compatible"),
    F(reserved20),
    F(aggregated).flag(),
    F(aggregatedCost),
    F(aggregatedPriority),
    F(aggregatedEdge).flag(),
    F(aggregatedPointToPoint).codes(pointToPoint),
    F(reserved44),
};

FIELDS_OF(StpPorts, "") = {
    F(enabled).from(1).codes(offOn),
    F(cost).from(1),
    F(priority).from(1),
    F(edge).from(1).codes(noYes),
    F(pointToPoint).from(1).codes(pointToPoint),
};

FIELDS_OF(DhcpSnoopingPorts, "") = {
    F(option).flag(),
    F(portOption).from(1).codes(offOn),
    F(trust).from(1).codes(trusts),
    F(reserved60),
};

FIELDS_OF(SourceGuardEntry, "valid") = {
    F(valid).flag(),
    F(address),
    F(reserved5),
    F(vlan).vlan(),
    F(port).port(),
    F(reserved13),
    F(addressIpv6),
    F(reserved36),
};

FIELDS_OF(CircuitIds, "") = {
    F(inserted).ports(),
    F(text).from(1),
    F(remoteInserted).flag(),
    F(remoteId),
    F(formatted).ports(),
    F(remoteFormatted).flag(),
};

FIELDS_OF(SourceBinding, "valid") = {
    F(valid).flag(),
    F(enabled).flag(),
    F(address),
    F(reserved18),
};

FIELDS_OF(MulticastEntry, "valid") = {
    F(valid).flag(),
    F(address),
    F(port).port(),
    F(reserved9),
    F(vlan).vlan(),
    F(addressIpv6),
    F(reserved32),
};

FIELDS_OF(MulticastSegment, "valid") = {
    F(valid).flag(),
    F(reserved1),
    F(id),
    F(name),
    F(first),
    F(last),
    F(reserved36),
};

FIELDS_OF(MulticastProfile, "valid") = {
    F(valid).flag(),
    F(name),
    F(segments).from(1).special(emptySlot),
    F(reserved46),
};

FIELDS_OF(PortFilter, "") = {
    F(filterSwitch).flag().note("in port 1's record the global filter setting; else the platform's"),
    F(reserved1),
    F(profile).from(1),
    F(maxGroups),
    F(enabled).codes(offOn),
    F(reserved101),
};

FIELDS_OF(PortFilters, "") = {
    F(port).from(1),
};

FIELDS_OF(LldpConfig, "") = {
    F(ports).ports(),
    F(holdTime),
    F(interval),
    F(packets),
    F(reserved10),
    F(portDescription).flag(),
    F(systemName).flag(),
    F(systemDescription).flag(),
    F(capability).flag(),
    F(managementAddress).flag(),
    F(reserved17),
};

FIELDS_OF(Dot1xConfig, "") = {
    F(enabled).flag(),
    F(server),
    F(secret),
    F(reauthentication).flag(),
    F(reserved39),
    F(reauthPeriod),
    F(timeout),
    F(portControl).from(1).codes(portControls),
    F(reserved71),
};

FIELDS_OF(PoeConfig, "") = {
    F(enabled).flag(),
    F(reserved1),
    F(fixedBudget).codes(budgetModes, "fixed"),
    F(traps).flag(),
    F(eventLog).flag(),
    F(syslog).flag(),
    F(alarmThreshold),
    F(reserved13),
};

FIELDS_OF(AclRule, "valid") = {
    F(number),
    F(ingressPorts).ports(),
    F(etherType).bytes(),
    F(vlan).vlan(),
    F(sourceMac),
    F(sourceMacMask),
    F(destinationMac),
    F(destinationMacMask),
    F(tos),
    F(protocol),
    F(source),
    F(sourceMask),
    F(destination),
    F(destinationMask),
    F(sourceIpv6),
    F(sourcePrefixLength),
    F(destinationIpv6),
    F(destinationPrefixLength),
    F(sourceL4Port),
    F(sourceL4Mask).bytes(),
    F(destinationL4Port),
    F(destinationL4Mask).bytes(),
    F(action).codes(aclActions, "deny"),
    F(actionPort).port(),
    F(reserved102),
    F(rateLimit).special(none),
    F(valid).flag(),
    F(reserved109),
    F(match).bits(matchFields),
    F(reserved112),
};

FIELDS_OF(Isolation, "") = {
    F(enabled).flag().note("port isolation and VLAN isolation"),
    F(uplinks).ports().note("port isolation and VLAN isolation"),
    F(reserved5),
};

FIELDS_OF(StatisticsPolling, "") = {
    F(interval),
    F(ports),
};

FIELDS_OF(TimeRange::Periodic, "") = {
    F(start),
    F(end),
};

FIELDS_OF(TimeRange::PeriodicList, "") = {
    F(weekdays).bits(weekdays),
    F(start),
    F(end),
};

FIELDS_OF(TimeRange, "name") = {
    F(absoluteStart),
    F(absoluteEnd),
    F(periodic).from(1),
    F(list).from(1),
    F(name),
};

FIELDS_OF(PoePort, "") = {
    F(deviceName),
    F(enabled).codes(offOn),
    F(priority).codes(poePriorities),
    F(scheduleEnabled).codes(offOn),
    F(scheduleName),
    F(reserved69),
    F(budget),
    F(reserved76),
};

FIELDS_OF(PppoeConfig, "") = {
    F(enabled).flag(),
    F(trusted).ports(),
};

FIELDS_OF(BackupConfig, "") = {
    F(enabled).flag(),
    F(time),
    F(reserved2),
    F(protocol).codes(backupProtocols, "TFTP"),
    F(server),
    F(serverIpv6),
    F(serverIsIpv6).flag(),
    F(user),
    F(password),
    F(path),
};

FIELDS_OF(ConfigImage, "") = {
    F(time),
    F(ipv4),
    F(ipv6),
    F(company),
    F(service),
    F(console),
    F(users).from(1),
    F(reserved3244),
    F(ports).from(1),
    F(reserved6904),
    F(vlanMode).codes(vlanModes),
    F(reserved7857),
    F(vlanPorts).from(1),
    F(reserved8198),
    F(portVlans).from(1),
    F(reserved8832),
    F(tagVlans).from(1),
    F(reserved121018),
    F(lacp),
    F(reserved121116),
    F(trunks).from(1),
    F(distribution),
    F(reserved121536),
    F(macTable).from(1),
    F(macLearning),
    F(macLimit),
    F(mirror),
    F(reserved125108),
    F(loopDetection),
    F(rateLimits),
    F(reserved125660),
    F(storm),
    F(dhcpSnooping),
    F(switchConfig),
    F(communities).from(1),
    F(reserved127472),
    F(trapDestinations).from(1),
    F(traps),
    F(priority),
    F(remarking),
    F(qinq),
    F(reserved129464),
    F(igmp),
    F(igmpVlans),
    F(log),
    F(radius),
    F(stp),
    F(stpPorts),
    F(reserved147368),
    F(dhcpSnoopingPorts),
    F(sourceGuard).from(1).codes(sourceGuards),
    F(reserved147516),
    F(sourceGuardTable).from(1),
    F(circuitIds),
    F(reserved151306),
    F(ipSource).flag(),
    F(reserved151361),
    F(sourceBindings).from(1),
    F(reserved151590),
    F(multicastTable).from(1),
    F(multicastSegments).from(1),
    F(multicastProfiles).from(1),
    F(portFilters),
    F(reserved180288),
    F(lldp),
    F(dot1x),
    F(poe),
    F(acl).from(1),
    F(isolation),
    F(statisticsPolling),
    F(tacacs),
    F(reserved202856),
    F(timeRanges).from(1),
    F(poePorts).from(1),
    F(reserved206952),
    F(pppoe),
    F(logTerminalHistory).flag(),
    F(reserved206968),
    F(cpuLoadingThreshold),
    F(reserved207006),
    F(backup),
    F(reserved207141),
};

FIELDS_OF(BoardRecord, "") = {
    F(reserved0),
    F(boardType),
    F(reserved8),
    F(macAddress),
    F(reserved174),
    F(capabilities).bits(capabilities),
    F(reserved180),
    F(versionOfBank1),
    F(versionOfBank2),
    F(reserved224),
};

FIELDS_OF(PlatformRecord, "") = {
    F(active_bank),
    F(password_encryption).codes(encryptions),
};
// clang-format on

#undef FIELDS_OF
#undef F

// -------------------------------------------------------------------------------------------------------- shared bytes

#define SHARED(owner, other)                                                                                           \
    { offsetof(ConfigImage, owner), other }
constexpr Sharing sharings[] = {
    SHARED(console.webTimeout, "service.webTimeout"),
    SHARED(priority.managementPriority, "priority.userPriority[29]"),
    SHARED(portFilters.port[0].filterSwitch, "portFilters.filterSwitch"),
    SHARED(isolation.enabled, "vlanIsolation.enabled"),
    SHARED(isolation.uplinks, "vlanIsolation.uplinks"),
};
#undef SHARED

} // namespace

const Record &recordOf(Part part) {
    switch (part) {
    case Part::image: return recordType<ConfigImage>;
    case Part::board: return recordType<BoardRecord>;
    case Part::platform: break;
    }
    return recordType<PlatformRecord>;
}

std::span<const Sharing> sharedFields() { return sharings; }

std::string_view otherSettingOf(const Leaf &leaf) {
    if (leaf.part() != Part::image) return {};
    for (const Sharing &sharing : sharings)
        if (sharing.offset == leaf.offset()) return sharing.other;
    return {};
}

} // namespace inspect
