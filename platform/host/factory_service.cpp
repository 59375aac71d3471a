/// The startup configuration: what differs from the default in service.
#include "platform/host/factory_parts.h"

namespace factory {
namespace {

/// The third floor of an office: desks with telephones on ports 1 to 16, cameras on 17 to 20, access points on 21 and
/// 22, a printer on 23, a server on 24; the distribution switch on 25 and 26, the west wing's switch on 27 and 28.
namespace inService {

constexpr Ports desks = {1, 16};
constexpr Ports cameras = {17, 20};
constexpr Ports accessPoints = {21, 22};
constexpr Ports printer = {23, 23};
constexpr Ports server = {24, 24};
constexpr Ports distribution = {25, 26};
constexpr Ports westWing = {27, 28};

constexpr std::uint16_t officeVlan = 10;
constexpr std::uint16_t voiceVlan = 20;
constexpr std::uint16_t cameraVlan = 30;

void identity(ConfigImage &image) {
    image.company.companyName = "Example Corporation";
    image.company.systemContact = "noc@example.com";
    image.company.systemName = "access-3-east";
    image.company.systemLocation = "Building 3, floor 3, rack E2";
    image.company.hostName = "access-3-east";
    image.company.dhcpVendorId = "AccessSwitch-28P";
    image.cpuLoadingThreshold = 70;

    image.switchConfig.mtu = 9216;
    image.switchConfig.macAgingTime = 600;
    image.switchConfig.blockBpdu20to2F = 0;
    image.switchConfig.blockBpdu00to0F = on;
    image.switchConfig.blockBpdu10 = on;
    image.switchConfig.terminalLength = 40;
    image.statisticsPolling.interval = 5;
    image.statisticsPolling.ports = 7;
}

void management(ConfigImage &image) {
    image.service.remoteLogin = 2;
    image.service.snmpEnabled = on;
    image.service.webEnabled = 0;
    image.console.telnetPort = 2323;
    image.console.timeout = 15;
    image.console.webTimeout = 600;
}

void clockAndLogs(ConfigImage &image) {
    image.time.ntpEnabled = on;
    image.time.syncInterval = 12;
    image.time.server1 = ipv4(192, 0, 2, 11);
    image.time.timeZone = 1;
    image.time.daylightSaving = 1;
    image.time.offset = "0329020000-1025030000"; // month, day, hour, minute, second of the begin and of the end

    image.log.enabled = on;
    image.log.server[0] = ipv4(198, 51, 100, 14);
    image.log.server[1] = ipv4(198, 51, 100, 15);
    image.log.serverIpv6[2] = ipv6(14, 3);
    image.logTerminalHistory = on;

    image.backup.enabled = on;
    image.backup.time = 3;
    image.backup.protocol = 1;
    image.backup.server = ipv4(198, 51, 100, 21);
    image.backup.user = "backup";
    image.backup.password = "keep-it-safe";
    image.backup.path = "switches/access-3-east.cfg";
}

void timeRanges(ConfigImage &image) {
    TimeRange &office = image.timeRanges[0];
    office.name = "office-hours";
    office.periodic[0].start = "1,07:00";
    office.periodic[0].end = "5,19:00";

    TimeRange &project = image.timeRanges[1];
    project.name = "project";
    project.absoluteStart = "08:00,2,6,2025";
    project.absoluteEnd = "18:00,30,9,2026";

    TimeRange &cleaning = image.timeRanges[2];
    cleaning.name = "cleaning";
    cleaning.list[0].weekdays.set(2).set(4);
    cleaning.list[0].start = "20:00";
    cleaning.list[0].end = "22:30";
    cleaning.list[1].weekdays.set(0).set(6);
    cleaning.list[1].start = "06:00";
    cleaning.list[1].end = "09:00";
}

void addressing(ConfigImage &image) {
    image.ipv4.address = ipv4(198, 51, 100, 33);
    image.ipv4.mask = ipv4(255, 255, 255, 192);
    image.ipv4.gateway = ipv4(198, 51, 100, 62);

    image.ipv6.enabled = on;
    image.ipv6.autoconfiguration = on;
    image.ipv6.dhcpMode = 1;
    image.ipv6.rapidCommit = on;
    image.ipv6.linkLocal = {{0xfe, 0x80, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x33}};
    image.ipv6.global = ipv6(managementVlan, 33);
    image.ipv6.gateway = ipv6(managementVlan, 1);
}

void users(ConfigImage &image) {
    image.users[0].password = "correct-horse";
    image.users[0].description = "network operations";
    setUser(image.users[1], "netops", "battery-staple", 2, "second line");
    setUser(image.users[2], "helpdesk", "look-only", 1, "");
    image.users[2].active = 0;

    image.radius.enabled = on;
    image.radius.secret = "radius-secret";
    image.radius.port = 1645;
    image.radius.retryTime = 5;
    image.radius.server[0] = ipv4(198, 51, 100, 12);
    image.radius.serverIpv6[1] = ipv6(managementVlan, 12);

    image.tacacs.enabled = on;
    image.tacacs.secret = "tacacs-secret";
    image.tacacs.port = 4949;
    image.tacacs.retryTime = 2;
    image.tacacs.serverIpv6[0] = ipv6(managementVlan, 13);
    image.tacacs.server[1] = ipv4(198, 51, 100, 13);
}

void ports(ConfigImage &image) {
    for (int index : desks) image.ports[index].description = "desk";
    for (int index : cameras) {
        image.ports[index].description = "camera";
        image.ports[index].speed = 1;
        image.ports[index].autoNegotiation = 0;
        image.ports[index].duplex = 1;
    }
    for (int index : accessPoints) image.ports[index].description = "access point";
    for (int index : printer) {
        image.ports[index].description = "printer, room 3.17";
        image.ports[index].speed = 0;
    }
    for (int index : server) {
        image.ports[index].description = "rack server";
        image.ports[index].speed = 2;
        image.ports[index].flowControl = 1;
    }
    for (int index : distribution) image.ports[index].description = "to distribution-3";
    for (int index : westWing) {
        image.ports[index].description = "aggregated link to floor 3 west wing"; // fills its field
        image.ports[index].mediaType = 0;
    }
    image.ports[15].administrativeState = 1;
}

void vlans(ConfigImage &image) {
    image.vlanMode = 3;
    for (int index : desks) image.vlanPorts[index].accessVlan = officeVlan;
    for (int index : cameras) image.vlanPorts[index].accessVlan = cameraVlan;
    for (int index : accessPoints) image.vlanPorts[index].mode = 2;
    for (int index : printer) image.vlanPorts[index].accessVlan = officeVlan;
    for (int index : server) {
        image.vlanPorts[index].mode = 3;
        image.vlanPorts[index].accessVlan = 200;
    }
    for (int index : distribution) image.vlanPorts[index].mode = 1;
    for (int index : westWing) image.vlanPorts[index].mode = 1;
    image.vlanPorts[12].accessVlan = managementVlan; // the operator's own desk

    TagVlanTable &table = image.tagVlans;
    remove(table[0].members, desks);
    remove(table[0].members, cameras);
    table[0].members.clear(cpuPort);

    bindVlan(table[1], officeVlan, "office");
    add(table[1].members, desks);
    add(table[1].members, printer);
    add(table[1].members, uplinks);

    bindVlan(table[2], voiceVlan, "voice");
    add(table[2].members, desks);
    add(table[2].members, uplinks);

    bindVlan(table[3], cameraVlan, "cameras");
    add(table[3].members, cameras);
    add(table[3].members, uplinks);

    bindVlan(table[4], managementVlan, "management");
    add(table[4].members, {13, 13});
    add(table[4].members, accessPoints);
    add(table[4].members, uplinks);
    addCpu(table[4].members);

    bindVlan(table[5], 200, "");
    add(table[5].members, server);
    add(table[5].members, distribution);

    image.portVlans[0].name = "floor3";
    remove(image.portVlans[0].members, cameras);
    image.portVlans[1].inUse = on;
    image.portVlans[1].name = "cameras";
    add(image.portVlans[1].members, cameras);
    add(image.portVlans[1].members, distribution);

    image.qinq.ethertype = 0x9100;
    image.isolation.enabled = on;
    add(image.isolation.uplinks, uplinks);
}

void spanningTree(ConfigImage &image) {
    image.stp.priority = 36864;
    image.stp.maxAge = 24;
    image.stp.helloTime = 3;
    image.stp.forwardDelay = 18;
    image.stp.version = 0;
    image.stp.aggregated = on;
    image.stp.aggregatedCost = 10000;
    image.stp.aggregatedPriority = 64;
    image.stp.aggregatedEdge = on;
    image.stp.aggregatedPointToPoint = 0;

    give(image.stpPorts.enabled, allPorts, on);
    give(image.stpPorts.enabled, server, 0U);
    give(image.stpPorts.cost, cameras, 200000);
    give(image.stpPorts.cost, distribution, 2000);
    give(image.stpPorts.cost, westWing, 4000);
    give(image.stpPorts.priority, distribution, 32);
    give(image.stpPorts.priority, westWing, 64);
    give(image.stpPorts.edge, accessPorts, on);
    give(image.stpPorts.pointToPoint, accessPoints, 1U);
    give(image.stpPorts.pointToPoint, uplinks, 0U);
}

void aggregation(ConfigImage &image) {
    image.trunks[0].inUse = on;
    image.trunks[0].name = "distribution";
    add(image.trunks[0].members, distribution);
    image.trunks[1].inUse = on;
    image.trunks[1].name = "spare";

    image.distribution.sourceIp = on;
    image.distribution.destinationIp = on;
    image.distribution.sourceL4Port = on;
    image.distribution.destinationL4Port = on;
    image.distribution.sourceMac = 0;
    image.distribution.destinationMac = 0;

    give(image.lacp.enabled, westWing, on);
    give(image.lacp.key, westWing, u8{27});
    give(image.lacp.role, westWing, u8{1});
}

void mirrorAndLoops(ConfigImage &image) {
    image.mirror.destinationSet = on;
    image.mirror.destinationPort = 23; // the server captures
    add(image.mirror.sources, {1, 3});
    add(image.mirror.sources, {17, 18});

    image.loopDetection.enabled = on;
    add(image.loopDetection.ports, accessPorts);
    image.loopDetection.interval = 5;
    image.loopDetection.unlockInterval = 120;
    image.loopDetection.vlans[0] = officeVlan;
    image.loopDetection.vlans[1] = voiceVlan;
    image.loopDetection.allVlans = on;
}

void macTable(ConfigImage &image) {
    u8 number = 0x17;
    int entry = 0;
    for (int index : cameras) {
        MacEntry &camera = image.macTable[entry++];
        camera.inUse = on;
        camera.address = documentationMac(number++);
        camera.port = static_cast<u8>(index);
        camera.vlan = cameraVlan;
    }
    give(image.macLearning.off, cameras, 1U);
}

void lldp(ConfigImage &image) {
    remove(image.lldp.ports, cameras);
    image.lldp.holdTime = 90;
    image.lldp.interval = 15;
    image.lldp.packets = 2;
    image.lldp.portDescription = on;
    image.lldp.systemName = 0;
    image.lldp.systemDescription = on;
    image.lldp.capability = 0;
    image.lldp.managementAddress = on;
}

void queues(ConfigImage &image) {
    image.priority.mode = 3;
    image.priority.queuingMode = 0;
    image.priority.queueOf8021p[1] = 0;
    image.priority.queueOf8021p[2] = 0;
    image.priority.queueOfDscp[34] = 5; // video
    image.priority.queueOfDscp[46] = 7; // telephones
    image.priority.managementPriority = 6;
    give(image.priority.userPriority, desks, u8{1});
    give(image.priority.userPriority, cameras, u8{4});
    for (int queue = 0; queue < 8; ++queue) image.priority.queues.weight[queue] = 1 << queue;
}

void remarking(ConfigImage &image) {
    image.remarking.dscpMode = 1;
    image.remarking.remark8021p = on;
    image.remarking.priority[5].newPriority = 4;
    image.remarking.dscp[0].receivedDscp = 46;
    image.remarking.dscp[0].newDscp = 40;
    image.remarking.dscp[1].newDscp = 0;
}

void rateLimits(ConfigImage &image) {
    give(image.rateLimits.ingress, cameras, 16384U);
    give(image.rateLimits.ingress, printer, 10240U);
    give(image.rateLimits.egress, cameras, 2048U);
    give(image.rateLimits.egress, accessPoints, 512000U);
    remove(image.rateLimits.ingressPorts, server);
    remove(image.rateLimits.egressPorts, uplinks);
}

AclRule &addRule(AclTable &table, int slot, std::int32_t number, u8 action, u8 actionPort) {
    AclRule &rule = table[slot];
    rule.valid = on;
    rule.number = number;
    rule.action = action;
    rule.actionPort = actionPort;
    return rule;
}

void accessControl(ConfigImage &image) {
    // No telnet from the desks to the management network.
    AclRule &telnet = addRule(image.acl, 0, 1, 0, 0);
    telnet.match.set(AclMatch::ingressPort).set(AclMatch::etherType).set(AclMatch::protocol);
    telnet.match.set(AclMatch::destinationIpv4).set(AclMatch::destinationL4Port);
    add(telnet.ingressPorts, desks);
    telnet.etherType[0] = 0x08;
    telnet.protocol = "06";
    telnet.destination = ipv4(198, 51, 100, 0);
    telnet.destinationMask = ipv4(255, 255, 255, 192);
    telnet.destinationL4Port = 23;
    telnet.destinationL4Mask[0] = 0xff;
    telnet.destinationL4Mask[1] = 0xff;

    // Telephones pass.
    AclRule &voice = addRule(image.acl, 1, 2, 1, 0);
    voice.match.set(AclMatch::vlanId).set(AclMatch::tos).set(AclMatch::sourceIpv4).set(AclMatch::sourceL4Port);
    voice.vlan = voiceVlan;
    voice.tos = "b8";
    voice.source = ipv4(203, 0, 113, 0);
    voice.sourceMask = ipv4(255, 255, 255, 0);
    voice.sourceL4Port = 5060;
    voice.sourceL4Mask[0] = 0xff;
    voice.sourceL4Mask[1] = 0xfe;

    // What the printer sends is looked at for a while.
    AclRule &printerTraffic = addRule(image.acl, 2, 128, 2, 23);
    printerTraffic.match.set(AclMatch::sourceMac).set(AclMatch::destinationMac);
    printerTraffic.sourceMac = documentationMac(0x23);
    printerTraffic.sourceMacMask = wholeMac;
    printerTraffic.destinationMac = documentationMac(0x01);
    printerTraffic.destinationMacMask = wholeMac;
    printerTraffic.rateLimit = 1024;

    // Cameras talk to their recorder only.
    AclRule &recorder = addRule(image.acl, 3, 129, 3, 24);
    recorder.match.set(AclMatch::ingressPort).set(AclMatch::destinationIpv6);
    add(recorder.ingressPorts, cameras);
    recorder.destinationIpv6 = ipv6(cameraVlan, 0x10);
    recorder.destinationPrefixLength = 128;

    AclRule &guests = addRule(image.acl, 5, 130, 0, 0);
    guests.match.set(AclMatch::sourceIpv6);
    guests.sourceIpv6 = ipv6(0x200, 0);
    guests.sourcePrefixLength = 48;
}

void dhcpSnooping(ConfigImage &image) {
    image.dhcpSnooping.enabled = on;
    image.dhcpSnooping.initiated = 30;
    image.dhcpSnooping.leased = 43200;
    add(image.dhcpSnooping.serverPorts, distribution);
    image.dhcpSnooping.checkServerAddress = on;
    image.dhcpSnooping.servers[0] = mapped(ipv4(198, 51, 100, 5));
    image.dhcpSnooping.servers[1] = ipv6(managementVlan, 5);

    image.dhcpSnoopingPorts.option = on;
    give(image.dhcpSnoopingPorts.portOption, desks, on);
    give(image.dhcpSnoopingPorts.trust, westWing, u8{0});
    give(image.dhcpSnoopingPorts.trust, server, on);

    image.circuitIds.remoteInserted = on;
    image.circuitIds.remoteId = "access-3-east";
    image.circuitIds.remoteFormatted = on;
    add(image.circuitIds.inserted, desks);
    add(image.circuitIds.formatted, cameras);
    give(image.circuitIds.text, {1, 8}, "floor3/north");
    give(image.circuitIds.text, {9, 16}, "floor3/south");
}

void sourceGuard(ConfigImage &image) {
    give(image.sourceGuard, desks, u8{1});
    give(image.sourceGuard, cameras, u8{0});

    u8 host = 17;
    int entry = 0;
    for (int index : cameras) {
        SourceGuardEntry &camera = image.sourceGuardTable[entry++];
        camera.valid = on;
        camera.address = ipv4(203, 0, 113, host++);
        camera.vlan = cameraVlan;
        camera.port = static_cast<u8>(index);
    }
    SourceGuardEntry &access = image.sourceGuardTable[entry];
    access.valid = on;
    access.addressIpv6 = ipv6(managementVlan, 0x21);
    access.vlan = managementVlan;
    access.port = 20;

    image.ipSource = on;
    image.sourceBindings[0].valid = on;
    image.sourceBindings[0].enabled = on;
    image.sourceBindings[0].address = mapped(ipv4(198, 51, 100, 2));
    image.sourceBindings[1].valid = on;
    image.sourceBindings[1].address = ipv6(managementVlan, 2);
}

void portSecurity(ConfigImage &image) {
    image.dot1x.enabled = on;
    image.dot1x.server = ipv4(198, 51, 100, 12);
    image.dot1x.secret = "dot1x-secret";
    image.dot1x.reauthentication = on;
    image.dot1x.reauthPeriod = 7200;
    image.dot1x.timeout = 20;
    give(image.dot1x.portControl, desks, u8{0});
    image.dot1x.portControl[15] = 2; // nobody sits there

    image.storm.broadcast = 11;
    image.storm.multicast = 13;
    image.storm.unicast = 16;
    image.storm.notificationInterval = 60;

    image.macLimit.enabled = on;
    give(image.macLimit.portEnabled, desks, on);
    give(image.macLimit.portEnabled, cameras, on);
    give(image.macLimit.portMaximum, desks, 3U);
    give(image.macLimit.portMaximum, cameras, 1U);
    image.macLimit.notificationInterval = 120;

    image.pppoe.enabled = on;
    remove(image.pppoe.trusted, westWing);
}

void igmpSnooping(ConfigImage &image) {
    image.igmp.enabled = on;
    image.igmp.maxResponseTime = 20;
    image.igmp.queryInterval = 60;
    image.igmp.immediateLeave = on;
    add(image.igmp.routerPorts, distribution);
    image.igmp.flooding = 0;
    image.igmp.version3 = on;

    image.igmpVlans.inUse.set(officeVlan).set(cameraVlan);
    image.igmpVlans.vlan[officeVlan].snooping = on;
    image.igmpVlans.vlan[cameraVlan].snooping = on;
    image.igmpVlans.vlan[cameraVlan].querier = on;
}

void addSegment(MulticastSegment &segment, std::uint16_t id, const char *name, Ipv4 first, Ipv4 last) {
    segment.valid = on;
    segment.id = id;
    segment.name = name;
    segment.first = first;
    segment.last = last;
}

void igmpFilters(ConfigImage &image) {
    addSegment(image.multicastSegments[0], 1, "news", ipv4(233, 252, 0, 1), ipv4(233, 252, 0, 31));
    addSegment(image.multicastSegments[1], 2, "training", ipv4(233, 252, 0, 32), ipv4(233, 252, 0, 63));
    addSegment(image.multicastSegments[2], 10, "cameras", ipv4(233, 252, 0, 128), ipv4(233, 252, 0, 255));

    MulticastProfile &staff = image.multicastProfiles[0];
    staff.valid = on;
    staff.name = "staff";
    staff.segments[0] = 1;
    staff.segments[1] = 2;
    MulticastProfile &watch = image.multicastProfiles[1];
    watch.valid = on;
    watch.name = "watch";
    watch.segments[0] = 10;

    image.portFilters.port[0].filterSwitch = on;
    for (int index : desks) {
        PortFilter &filter = image.portFilters.port[index];
        filter.profile[0] = "staff";
        filter.maxGroups = 8;
        filter.enabled = on;
    }
    image.portFilters.port[0].profile[1] = "watch"; // the guard's desk
    for (int index : cameras) image.portFilters.port[index].maxGroups = 1;

    MulticastEntry &announcements = image.multicastTable[0];
    announcements.valid = on;
    announcements.address = ipv4(233, 252, 0, 7);
    announcements.port = 20;
    announcements.vlan = officeVlan;
    MulticastEntry &announcementsIpv6 = image.multicastTable[1];
    announcementsIpv6.valid = on;
    announcementsIpv6.addressIpv6 = {{0xff, 0x0e, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xdb, 0x80, 0, 0x07}};
    announcementsIpv6.port = 20;
    announcementsIpv6.vlan = officeVlan;
}

void snmp(ConfigImage &image) {
    setCommunity(image.communities[0], "monitoring", 1, "read by the graphs");
    setCommunity(image.communities[1], "provisioning", 2, "");
    image.communities[1].active = 0;
    setCommunity(image.communities[2], "emergency", 3, "sealed");

    TrapDestination &first = image.trapDestinations[0];
    first.inUse = on;
    first.active = on;
    first.community = "monitoring";
    first.address = ipv4(198, 51, 100, 16);
    TrapDestination &second = image.trapDestinations[1];
    second.inUse = on;
    second.community = "monitoring";
    second.addressIpv6 = ipv6(managementVlan, 0x16);

    image.traps.coldStart = on;
    image.traps.warmStart = on;
    image.traps.authFail = on;
    image.traps.portLink.set(0);
    image.traps.batteryMode = on;
    image.traps.cpuLoad = on;
    image.traps.macLimit = on;
    image.traps.stormControl = on;
}

void poe(ConfigImage &image) {
    image.poe.fixedBudget = on;
    image.poe.traps = on;
    image.poe.eventLog = on;
    image.poe.syslog = on;
    image.poe.alarmThreshold = 80;
    for (int index : desks) image.poePorts[index].budget = 15;
    for (int index : cameras) {
        image.poePorts[index].deviceName = "camera";
        image.poePorts[index].priority = 0;
        image.poePorts[index].budget = 15;
    }
    for (int index : accessPoints) {
        image.poePorts[index].deviceName = "access point";
        image.poePorts[index].priority = 1;
        image.poePorts[index].budget = 30;
        image.poePorts[index].scheduleName = "office-hours";
        image.poePorts[index].scheduleEnabled = on;
    }
    for (int index : printer) image.poePorts[index].enabled = 0;
    for (int index : server) image.poePorts[index].enabled = 0;
}

} // namespace inService

} // namespace

void composeStartup(ConfigImage &image) {
    composeDefault(image);
    inService::identity(image);
    inService::management(image);
    inService::clockAndLogs(image);
    inService::timeRanges(image);
    inService::addressing(image);
    inService::users(image);
    inService::ports(image);
    inService::vlans(image);
    inService::spanningTree(image);
    inService::aggregation(image);
    inService::mirrorAndLoops(image);
    inService::macTable(image);
    inService::lldp(image);
    inService::queues(image);
    inService::remarking(image);
    inService::rateLimits(image);
    inService::accessControl(image);
    inService::dhcpSnooping(image);
    inService::sourceGuard(image);
    inService::portSecurity(image);
    inService::igmpSnooping(image);
    inService::igmpFilters(image);
    inService::snmp(image);
    inService::poe(image);
}

} // namespace factory
