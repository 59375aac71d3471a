/// The board, and the default configuration: the make's and a customer's.
#include "platform/host/factory_parts.h"
#include "platform/mapi.h"

#include <cstring>

namespace factory {
namespace {

/// A switch as it leaves the factory.
namespace fresh {

void system(ConfigImage &image) {
    image.company.companyName = "Example Networks";
    image.company.hostName = "switch";
    image.company.systemName = "AccessSwitch-28P";
    image.company.dhcpVendorId = "AccessSwitch";
    image.cpuLoadingThreshold = 80;

    image.switchConfig.mtu = 1522;
    image.switchConfig.macAgingTime = 300;
    image.switchConfig.blockBpdu20to2F = on;
    image.switchConfig.terminalLength = 24;
    image.statisticsPolling.interval = 10;
    image.statisticsPolling.ports = 4;

    image.service.remoteLogin = 1;
    image.service.webEnabled = on;
    image.console.telnetPort = 23;
    image.console.timeout = 5;
    image.console.timeoutInMinutes = on;
    image.console.webTimeout = 300;

    image.time.syncInterval = 24;
    image.time.server1 = ipv4(192, 0, 2, 123);

    image.log.server[0] = ipv4(192, 0, 2, 14);
    image.backup.server = ipv4(192, 0, 2, 21);
    image.backup.path = "switch.cfg";
    image.backup.time = 2;
}

void addressing(ConfigImage &image) {
    image.ipv4.enabled = on;
    image.ipv4.address = ipv4(192, 0, 2, 1);
    image.ipv4.mask = ipv4(255, 255, 255, 0);
    image.ipv4.gateway = ipv4(192, 0, 2, 254);

    image.ipv6.linkLocal = {{0xfe, 0x80, 0, 0, 0, 0, 0, 0, 0x02, 0, 0x5e, 0xff, 0xfe, 0, 0x53, 0x01}};
    image.ipv6.linkLocalPrefixLength = 64;
    image.ipv6.globalPrefixLength = 64;
}

void users(ConfigImage &image) {
    setUser(image.users[0], "admin", "admin", 3, "administrator");
    setUser(image.users[1], "operator", "operator", 2, "");

    image.radius.port = 1812;
    image.radius.retryTime = 3;
    image.tacacs.port = 49;
    image.tacacs.retryTime = 3;
}

void ports(ConfigImage &image) {
    for (int index : allPorts) {
        image.ports[index].autoNegotiation = on;
        image.ports[index].speed = 3;
    }
    for (int index : uplinks) {
        image.ports[index].mediaType = 1;
        image.ports[index].speed = 2;
        image.ports[index].duplex = 1;
    }
}

void vlans(ConfigImage &image) {
    image.vlanMode = 2;
    for (int index : allPorts) image.vlanPorts[index].accessVlan = 1;
    bindVlan(image.tagVlans[0], 1, "default");
    add(image.tagVlans[0].members, allPorts);
    addCpu(image.tagVlans[0].members);

    image.portVlans[0].inUse = on;
    image.portVlans[0].name = "default";
    add(image.portVlans[0].members, allPorts);
    addCpu(image.portVlans[0].members);

    image.qinq.ethertype = 0x88a8;
}

void spanningTree(ConfigImage &image) {
    image.stp.priority = 32768;
    image.stp.maxAge = 20;
    image.stp.helloTime = 2;
    image.stp.forwardDelay = 15;
    image.stp.version = 1;
    image.stp.aggregatedCost = 20000;
    image.stp.aggregatedPriority = 128;
    image.stp.aggregatedPointToPoint = 2;
    give(image.stpPorts.cost, allPorts, 20000);
    give(image.stpPorts.priority, allPorts, 128);
    give(image.stpPorts.pointToPoint, allPorts, 2U);
}

void aggregation(ConfigImage &image) {
    image.distribution.sourceMac = on;
    image.distribution.destinationMac = on;
}

void neighbours(ConfigImage &image) {
    image.loopDetection.interval = 2;
    image.loopDetection.unlockInterval = 60;
    add(image.lldp.ports, allPorts);
    image.lldp.holdTime = 120;
    image.lldp.interval = 30;
    image.lldp.packets = 1;
    image.lldp.systemName = on;
    image.lldp.capability = on;
}

void qos(ConfigImage &image) {
    image.priority.queuingMode = 1;
    for (int i = 0; i < 8; ++i) {
        const u8 queue = static_cast<u8>(i);
        image.priority.queueOf8021p[i] = queue;
        image.priority.queues.weight[i] = i + 1;
        image.remarking.priority[i].newPriority = queue;
        image.remarking.dscp[i].receivedDscp = static_cast<u8>(8 * i);
        image.remarking.dscp[i].newDscp = static_cast<u8>(8 * i);
    }
    for (int dscp = 0; dscp < 64; ++dscp) image.priority.queueOfDscp[dscp] = static_cast<u8>(dscp / 8);
    image.priority.managementPriority = 7;
    add(image.rateLimits.ingressPorts, allPorts);
    add(image.rateLimits.egressPorts, allPorts);
}

void security(ConfigImage &image) {
    image.dhcpSnooping.initiated = 10;
    image.dhcpSnooping.leased = 86400;
    give(image.dhcpSnoopingPorts.trust, uplinks, on);
    give(image.sourceGuard, allPorts, u8{2});

    image.dot1x.reauthPeriod = 3600;
    image.dot1x.timeout = 30;
    give(image.dot1x.portControl, allPorts, u8{1});

    image.storm.notificationInterval = 30;
    image.macLimit.notificationInterval = 60;
    add(image.pppoe.trusted, uplinks);
}

void multicast(ConfigImage &image) {
    image.igmp.maxResponseTime = 10;
    image.igmp.queryInterval = 125;
    image.igmp.flooding = on;
    for (int index : allPorts) {
        PortFilter &filter = image.portFilters.port[index];
        filter.maxGroups = 256;
        for (auto &profile : filter.profile) profile = " "; // an empty slot
    }
}

void snmp(ConfigImage &image) {
    setCommunity(image.communities[0], "public", 1, "");
    setCommunity(image.communities[1], "private", 2, "");
}

void poe(ConfigImage &image) {
    image.poe.enabled = on;
    image.poe.alarmThreshold = 90;
    for (PoePort &port : image.poePorts) {
        port.enabled = on;
        port.priority = 2;
    }
}

} // namespace fresh

/// What a customer ordered.
namespace ordered {

void identity(ConfigImage &image) {
    image.company.companyName = "Example Corporation";
    image.company.systemContact = "noc@example.com";
    image.company.hostName = "new-switch";
}

void management(ConfigImage &image) {
    image.service.remoteLogin = 2;
    image.service.snmpEnabled = on;
    image.ipv4.dhcpMode = 1;
    image.time.ntpEnabled = on;
    image.time.server1 = ipv4(198, 51, 100, 11);
    image.log.enabled = on;
    image.log.server[0] = ipv4(198, 51, 100, 14);
    setUser(image.users[0], "admin", "change-me", 3, "administrator");
    setCommunity(image.communities[0], "monitoring", 1, "");
    image.communities[1].inUse = 0;
}

void access(ConfigImage &image) {
    bindVlan(image.tagVlans[1], managementVlan, "management");
    add(image.tagVlans[1].members, uplinks);
    give(image.stpPorts.edge, accessPorts, on);
    image.loopDetection.enabled = on;
    add(image.loopDetection.ports, accessPorts);
}

} // namespace ordered

} // namespace

void composeBoard(BoardRecord &board) {
    std::memset(&board, 0, sizeof board);
    board.boardType = 5028;
    board.macAddress = documentationMac(0x01);
    board.capabilities = 0x100; // PoE, no battery
    board.versionOfBank1 = "V2.4.1";
    board.versionOfBank2 = "V2.4.0";
}

void composeDefault(ConfigImage &image) {
    std::memset(&image, 0, sizeof image);
    fresh::system(image);
    fresh::addressing(image);
    fresh::users(image);
    fresh::ports(image);
    fresh::vlans(image);
    fresh::spanningTree(image);
    fresh::aggregation(image);
    fresh::neighbours(image);
    fresh::qos(image);
    fresh::security(image);
    fresh::multicast(image);
    fresh::snmp(image);
    fresh::poe(image);
}

void composeCustomerDefault(ConfigImage &image) {
    composeDefault(image);
    ordered::identity(image);
    ordered::management(image);
    ordered::access(image);
}

void composeImage(std::int32_t selector, ConfigImage &image) {
    switch (selector) {
    case MAPI_CONFIG_RUNNING: composeRunning(image); break;
    case MAPI_CONFIG_STARTUP: composeStartup(image); break;
    case MAPI_CONFIG_CUSTOMER_DEFAULT: composeCustomerDefault(image); break;
    default: composeDefault(image);
    }
}

} // namespace factory
