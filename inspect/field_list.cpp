/// The list of all fields: what their bytes mean to a reader.
#include "inspect/field_description.h"
#include "inspect/field_list_management.h"
#include "inspect/field_words.h"

#include "format/port_list.h"

#include <iterator>

namespace inspect {

// clang-format off
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

// -------------------------------------------------------------------------------------------------------- shared bytes

namespace {

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
