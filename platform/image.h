/// The configuration image: a switch's whole stored configuration as one record of 262,144 bytes.
///
/// This is the one place that knows where anything is. Sections are in the order of the record, each a struct at
/// its place; the bytes between them that the program does not read are named as reserved. The compiler proves every
/// place below. Per-port arrays hold 28 entries, entry 0 being port 1; the PoE array holds 24.
#pragma once

#include "platform/record.h"

#include <algorithm>
#include <array>
#include <string_view>

inline constexpr int portCount = 28;    ///< front ports of the switch
inline constexpr int poePortCount = 24; ///< front ports that can feed a powered device
inline constexpr int cpuPort = 28;      ///< bit of the CPU port in a port bitmap

// ------------------------------------------------------------------------------------------------ system, at 0 to 3243

/// NTP client and daylight saving.
struct TimeConfig {
    be32 ntpEnabled;     ///< NTP client is on
    be_i32 syncInterval; ///< synchronisation interval
    Ipv4 server1;        ///< server 1, IPv4
    Reserved<61> reserved12;
    Ipv4 server2; ///< server 2, IPv4
    Reserved<95> reserved77;
    be_i32 timeZone; ///< time zone, may be negative
    Reserved<4> reserved176;
    be32 daylightSaving; ///< daylight saving
    Text<32> offset;     ///< daylight-saving offset
    Ipv6 server1Ipv6;    ///< server 1, IPv6
    Reserved<49> reserved232;
    Ipv6 server2Ipv6; ///< server 2, IPv6
    Reserved<79> reserved297;
};
static_assert(record<TimeConfig, 376>);
static_assert(offsetof(TimeConfig, server2) == 73 && offsetof(TimeConfig, timeZone) == 172);
static_assert(offsetof(TimeConfig, daylightSaving) == 180 && offsetof(TimeConfig, offset) == 184);
static_assert(offsetof(TimeConfig, server1Ipv6) == 216 && offsetof(TimeConfig, server2Ipv6) == 281);

/// IPv4 management interface.
struct Ipv4Interface {
    u8 enabled;   ///< management interface is on
    Ipv4 address; ///< address
    Ipv4 mask;    ///< network mask
    Ipv4 gateway; ///< default gateway
    Reserved<6> reserved13;
    u8 dhcpMode; ///< DHCP client
    Reserved<96> reserved20;
};
static_assert(record<Ipv4Interface, 116>);
static_assert(offsetof(Ipv4Interface, address) == 1 && offsetof(Ipv4Interface, dhcpMode) == 19);

/// IPv6 management interface.
struct Ipv6Interface {
    u8 enabled;               ///< IPv6 is on
    u8 autoconfiguration;     ///< stateless address autoconfiguration
    u8 dhcpMode;              ///< DHCPv6 client
    u8 rapidCommit;           ///< DHCPv6 rapid commit
    Ipv6 linkLocal;           ///< link-local address
    u8 linkLocalPrefixLength; ///< prefix length of the link-local address
    Ipv6 global;              ///< global address
    u8 globalPrefixLength;    ///< prefix length of the global address
    Ipv6 gateway;             ///< gateway
    Reserved<150> reserved54;
};
static_assert(record<Ipv6Interface, 204>);
static_assert(offsetof(Ipv6Interface, linkLocal) == 4 && offsetof(Ipv6Interface, global) == 21);
static_assert(offsetof(Ipv6Interface, gateway) == 38);

/// Who and where the switch is. Stored in another order than it is printed.
struct CompanyInfo {
    Text<120> companyName;   ///< company name
    Text<56> systemContact;  ///< system contact
    Text<56> systemName;     ///< system name
    Text<56> systemLocation; ///< system location
    Text<32> hostName;       ///< host name
    Text<596> dhcpVendorId;  ///< DHCP vendor identifier
};
static_assert(record<CompanyInfo, 916>);
static_assert(offsetof(CompanyInfo, systemContact) == 120 && offsetof(CompanyInfo, systemName) == 176);
static_assert(offsetof(CompanyInfo, systemLocation) == 232 && offsetof(CompanyInfo, hostName) == 288);
static_assert(offsetof(CompanyInfo, dhcpVendorId) == 320);

/// Management services.
struct ServiceConfig {
    Reserved<4> reserved0;
    be32 remoteLogin; ///< remote login
    Reserved<1> reserved8;
    u8 snmpEnabled; ///< SNMP agent is on
    u8 webEnabled;  ///< web management is on
    Reserved<9> reserved11;
};
static_assert(record<ServiceConfig, 20>);
static_assert(offsetof(ServiceConfig, remoteLogin) == 4 && offsetof(ServiceConfig, snmpEnabled) == 9);

/// Console. The timeout of web management lies here too, though it belongs to the services.
struct ConsoleConfig {
    Reserved<4> reserved0;
    be_i32 telnetPort; ///< telnet port
    Reserved<4> reserved8;
    be_i32 timeout; ///< console timeout
    Reserved<28> reserved16;
    be32 timeoutInMinutes; ///< the console timeout counts minutes
    be_i32 webTimeout;     ///< timeout of web management
    Reserved<40> reserved52;
};
static_assert(record<ConsoleConfig, 92>);
static_assert(offsetof(ConsoleConfig, telnetPort) == 4 && offsetof(ConsoleConfig, timeout) == 12);
static_assert(offsetof(ConsoleConfig, timeoutInMinutes) == 44 && offsetof(ConsoleConfig, webTimeout) == 48);

/// Local user account.
struct User {
    u8 active; ///< account is active
    u8 inUse;  ///< entry is in use
    Reserved<2> reserved2;
    Text<24> name;          ///< user name
    Secret<24> password;    ///< password in clear
    Secret<24> passwordMd5; ///< MD5 form of the password, may be empty
    Text<48> description;   ///< description
    u8 level;               ///< privilege level
    Reserved<27> reserved125;

    /// How much of a description counts when two are compared.
    static constexpr std::size_t comparedDescription = 36;

    /// An account counts as changed by its first 104 bytes alone: up to and with the 28th of the description.
    static constexpr std::size_t comparedHead = 104;
};
static_assert(record<User, 152>);
static_assert(offsetof(User, name) == 4 && offsetof(User, password) == 28 && offsetof(User, passwordMd5) == 52);
static_assert(offsetof(User, description) == 76 && offsetof(User, level) == 124);
using UserTable = User[10];

// ------------------------------------------------------------------------------------- ports and VLANs, 4776 to 121017

/// Physical settings of a front port.
struct PortSettings {
    be32 administrativeState; ///< administrative state
    be32 mediaType;           ///< media type
    be32 autoNegotiation;     ///< auto-negotiation
    be32 speed;               ///< speed
    be32 duplex;              ///< duplex
    be32 flowControl;         ///< flow control
    Text<36> description;     ///< description of the port
    Reserved<16> further;
};
static_assert(record<PortSettings, 76> && offsetof(PortSettings, description) == 24);
using PortTable = PortSettings[portCount];

/// 802.1Q settings of a port.
struct VlanPort {
    Reserved<1> reserved0;
    u8 mode; ///< VLAN mode of the port
    Reserved<2> reserved2;
    be16 accessVlan; ///< access VLAN
    Reserved<6> reserved6;
};
static_assert(record<VlanPort, 12> && offsetof(VlanPort, mode) == 1 && offsetof(VlanPort, accessVlan) == 4);
using VlanPortTable = VlanPort[portCount];

/// Port-based VLAN.
struct PortVlan {
    u8 inUse;          ///< entry is in use
    Text<16> name;     ///< VLAN name
    Bitmap<5> members; ///< ports 1 to 28 and the CPU port
};
static_assert(record<PortVlan, 22> && offsetof(PortVlan, name) == 1 && offsetof(PortVlan, members) == 17);
using PortVlanTable = PortVlan[portCount];

/// 802.1Q VLAN. The one whose members include the CPU port is the management VLAN.
struct TagVlan {
    u8 inUse;           ///< entry is in use
    PortBitmap members; ///< ports 1 to 28 and the CPU port
    Reserved<1> reserved5;
    be16 id;       ///< VLAN id
    Text<46> name; ///< VLAN name
};
static_assert(record<TagVlan, 54> && offsetof(TagVlan, members) == 1 && offsetof(TagVlan, id) == 6);
static_assert(offsetof(TagVlan, name) == 8);
using TagVlanTable = TagVlan[2077];

// -------------------------------------------------------------------- aggregation, MAC table, mirror, 121028 to 125423

/// LACP settings of the ports.
struct LacpConfig {
    Reserved<4> reserved0;
    u8 enabled[portCount]; ///< LACP on the port
    u8 key[portCount];     ///< LACP key
    u8 role[portCount];    ///< LACP role
};
static_assert(record<LacpConfig, 88>);
static_assert(offsetof(LacpConfig, enabled) == 4 && offsetof(LacpConfig, key) == 32);
static_assert(offsetof(LacpConfig, role) == 60);

/// Static trunk group.
struct TrunkGroup {
    be32 inUse;        ///< group is in use
    Text<16> name;     ///< group name
    Bitmap<8> members; ///< member ports
};
static_assert(record<TrunkGroup, 28> && offsetof(TrunkGroup, name) == 4 && offsetof(TrunkGroup, members) == 20);
using TrunkTable = TrunkGroup[14];

/// Which fields of a frame take part in the distribution over a trunk. Stored in another order than it is printed.
struct DistributionRules {
    be32 sourceMac;         ///< source MAC address
    be32 destinationMac;    ///< destination MAC address
    be32 sourceIp;          ///< source IP address
    be32 destinationIp;     ///< destination IP address
    be32 sourceL4Port;      ///< source layer-4 port
    be32 destinationL4Port; ///< destination layer-4 port
};
static_assert(record<DistributionRules, 24> && offsetof(DistributionRules, destinationIp) == 12);

/// Static entry of the MAC address table.
struct MacEntry {
    be32 inUse;  ///< entry is in use
    Mac address; ///< MAC address
    u8 port;     ///< port
    Reserved<1> reserved11;
    be32 vlan; ///< VLAN id
    Reserved<8> reserved16;
};
static_assert(record<MacEntry, 24> && offsetof(MacEntry, address) == 4 && offsetof(MacEntry, port) == 10);
static_assert(offsetof(MacEntry, vlan) == 12);
using MacTable = MacEntry[128];

/// MAC learning of the ports. Whether it was changed is decided over all 116 bytes: the ports' words and the one
/// after them.
struct MacLearning {
    be32 off[portCount]; ///< learning on the port; 1 turns it off
    be32 following;      ///< counts when two images are compared
};
static_assert(record<MacLearning, 116>);

/// Limit of learned addresses.
struct MacLimit {
    be32 enabled;                ///< the limit is on
    be32 portEnabled[portCount]; ///< the limit on the port
    be32 portMaximum[portCount]; ///< most addresses on the port
    Reserved<116> reserved228;
    be_i32 notificationInterval; ///< notification threshold interval
};
static_assert(record<MacLimit, 348>);
static_assert(offsetof(MacLimit, portEnabled) == 4 && offsetof(MacLimit, portMaximum) == 116);
static_assert(offsetof(MacLimit, notificationInterval) == 344);

/// Port mirroring.
struct PortMirror {
    Reserved<4> reserved0;
    be32 destinationSet;  ///< a destination is set
    be32 destinationPort; ///< destination port
    PortBitmap sources;   ///< source ports
};
static_assert(record<PortMirror, 16> && offsetof(PortMirror, destinationSet) == 4);

/// Loop detection.
struct LoopDetection {
    u8 enabled;       ///< loop detection is on
    PortBitmap ports; ///< ports on which it is on
    Reserved<1> reserved5;
    be16 interval;       ///< detection interval
    be16 unlockInterval; ///< unlock interval
    be16 vlans[4];       ///< VLAN ids to watch
    u8 allVlans;         ///< loop detection on all VLANs
    Reserved<1> reserved19;
};
static_assert(record<LoopDetection, 20> && offsetof(LoopDetection, interval) == 6);
static_assert(offsetof(LoopDetection, vlans) == 10 && offsetof(LoopDetection, allVlans) == 18);

// ------------------------------------------------------------------------------ rates and the switch, 125424 to 126431

/// Rate limits of the ports.
struct RateLimits {
    Reserved<4> reserved0;
    be32 ingress[portCount]; ///< ingress rate of the port
    be32 egress[portCount];  ///< egress rate of the port
    PortBitmap ingressPorts; ///< ports whose ingress is limited
    PortBitmap egressPorts;  ///< ports whose egress is limited
};
static_assert(record<RateLimits, 236> && offsetof(RateLimits, ingress) == 4 && offsetof(RateLimits, egress) == 116);
static_assert(offsetof(RateLimits, ingressPorts) == 228 && offsetof(RateLimits, egressPorts) == 232);

/// Storm protection.
struct StormControl {
    Reserved<140> reserved0;
    be32 broadcast; ///< index of the broadcast rate
    be32 multicast; ///< index of the multicast rate
    be32 unicast;   ///< index of the unicast rate
    Reserved<8> reserved152;
    be_i32 notificationInterval; ///< notification threshold interval
};
static_assert(record<StormControl, 164> && offsetof(StormControl, broadcast) == 140);
static_assert(offsetof(StormControl, unicast) == 148 && offsetof(StormControl, notificationInterval) == 160);

/// Global DHCP snooping.
struct DhcpSnooping {
    u8 enabled;             ///< DHCP snooping is on
    PortBitmap serverPorts; ///< ports with a DHCP server
    Reserved<1> reserved5;
    be16 initiated; ///< time of an initiated lease
    be_i32 leased;  ///< time of a granted lease
    Reserved<4> reserved12;
    Ipv6 servers[4]; ///< DHCP servers; IPv4 ones are IPv4-mapped
    Reserved<4> reserved80;
    u8 checkServerAddress; ///< server addresses are checked
    Reserved<7> reserved85;

    /// None of ports 1 to 16 has a DHCP server: the first word of the section under the mask 0x00FFFF00.
    constexpr bool noServerOnFirstSixteenPorts() const {
        const be32 firstWord = {{enabled, serverPorts.bytes[0], serverPorts.bytes[1], serverPorts.bytes[2]}};
        return (firstWord.value() & 0x00FFFF00) == 0;
    }
};
static_assert(record<DhcpSnooping, 92> && offsetof(DhcpSnooping, serverPorts) == 1);
static_assert(offsetof(DhcpSnooping, initiated) == 6 && offsetof(DhcpSnooping, leased) == 8);
static_assert(offsetof(DhcpSnooping, servers) == 16 && offsetof(DhcpSnooping, checkServerAddress) == 84);

/// Switch-wide values of several features.
struct SwitchConfig {
    be_i32 mtu;          ///< MTU
    be_i32 macAgingTime; ///< aging time of the MAC address table
    Reserved<40> reserved8;
    u8 blockBpdu20to2F; ///< BPDUs to 20-2F are blocked
    u8 blockBpdu00to0F; ///< BPDUs to 00-0F are blocked
    u8 blockBpdu10;     ///< BPDUs to 10 are blocked
    Reserved<1> reserved51;
    be_i32 terminalLength; ///< lines of a terminal page
    Reserved<4> reserved56;
};
static_assert(record<SwitchConfig, 60> && offsetof(SwitchConfig, macAgingTime) == 4);
static_assert(offsetof(SwitchConfig, blockBpdu20to2F) == 48 && offsetof(SwitchConfig, terminalLength) == 52);

// ---------------------------------------------------------------------------------------------- SNMP, 126432 to 128283

/// SNMP community.
struct Community {
    u8 inUse;             ///< entry is in use
    u8 active;            ///< community is active
    Secret<24> name;      ///< community name
    Text<57> description; ///< description
    u8 level;             ///< access
    Reserved<20> reserved84;

    /// How much of a description counts when two are compared.
    static constexpr std::size_t comparedDescription = 36;
};
static_assert(record<Community, 104> && offsetof(Community, name) == 2 && offsetof(Community, description) == 26);
static_assert(offsetof(Community, level) == 83);
using CommunityTable = Community[10];

/// Destination of SNMP traps.
struct TrapDestination {
    u8 inUse;             ///< entry is in use
    u8 active;            ///< destination is active
    Secret<24> community; ///< community name
    Ipv4 address;         ///< address, IPv4
    Ipv6 addressIpv6;     ///< address, IPv6; used when the IPv4 address is zero
    Reserved<6> reserved46;
};
static_assert(record<TrapDestination, 52> && offsetof(TrapDestination, community) == 2);
static_assert(offsetof(TrapDestination, address) == 26 && offsetof(TrapDestination, addressIpv6) == 30);
using TrapDestinationTable = TrapDestination[10];

/// Which SNMP traps are sent. That of PoE lies with the PoE settings.
struct TrapConfig {
    u8 coldStart; ///< cold start
    u8 warmStart; ///< warm start
    u8 authFail;  ///< failed authentication
    Reserved<1> reserved3;
    Bitmap<20> portLink; ///< link of a port
    u8 caseFan;          ///< case fan
    Reserved<2> reserved25;
    u8 batteryMode; ///< battery mode
    Reserved<2> reserved28;
    u8 cpuLoad; ///< CPU load
    Reserved<5> reserved31;
    u8 macLimit;     ///< limit of learned addresses
    u8 stormControl; ///< storm protection
    u8 autoBackup;   ///< automatic backup
    Reserved<1> reserved39;
};
static_assert(record<TrapConfig, 40> && offsetof(TrapConfig, portLink) == 4 && offsetof(TrapConfig, caseFan) == 24);
static_assert(offsetof(TrapConfig, batteryMode) == 27 && offsetof(TrapConfig, cpuLoad) == 30);
static_assert(offsetof(TrapConfig, macLimit) == 36 && offsetof(TrapConfig, autoBackup) == 38);

// ----------------------------------------------------------------------------------------------- QoS, 128284 to 129463

/// Queue weights. Whether they were changed is decided over all 896 bytes: the weights and the 864 bytes after them.
struct QueueWeights {
    be_i32 weight[8];  ///< weight of each queue
    u8 following[864]; ///< counts when two images are compared
};
static_assert(record<QueueWeights, 896>);

/// Priorities and queues.
struct PriorityConfig {
    be32 mode;        ///< what decides about the priority
    be32 queuingMode; ///< queuing mode
    Reserved<29> reserved8;
    u8 queueOf8021p[8]; ///< queue of each 802.1p priority
    u8 queueOfDscp[64]; ///< queue of each DSCP value
    Reserved<28> reserved109;
    u8 userPriority[portCount]; ///< user priority of the port
    u8 managementPriority;      ///< priority of management traffic
    Reserved<6> reserved166;
    QueueWeights queues;
    Reserved<4> reserved1068;
};
static_assert(record<PriorityConfig, 1072> && offsetof(PriorityConfig, queueOf8021p) == 37);
static_assert(offsetof(PriorityConfig, queueOfDscp) == 45 && offsetof(PriorityConfig, userPriority) == 137);
static_assert(offsetof(PriorityConfig, managementPriority) == 137 + 28, "the 29th byte of the user priorities");
static_assert(offsetof(PriorityConfig, managementPriority) == 165 && offsetof(PriorityConfig, queues) == 172);

/// 802.1p remarking entry.
struct RemarkPriority {
    u8 marker; ///< mark of the entry
    Reserved<2> unread;
    u8 newPriority; ///< new priority
};

/// DSCP remarking entry.
struct RemarkDscp {
    u8 marker; ///< mark of the entry
    Reserved<1> unread;
    u8 receivedDscp; ///< received DSCP
    u8 newDscp;      ///< new DSCP
};

/// Remarking.
struct Remarking {
    u8 dscpMode;    ///< DSCP remarking
    u8 remark8021p; ///< 802.1p remarking is on
    Reserved<2> reserved2;
    RemarkPriority priority[8]; ///< 802.1p remarking entries
    RemarkDscp dscp[8];         ///< DSCP remarking entries
};
static_assert(record<RemarkPriority, 4> && record<RemarkDscp, 4> && record<Remarking, 68>);
static_assert(offsetof(Remarking, priority) == 4 && offsetof(Remarking, dscp) == 36);

/// QinQ.
struct QinQConfig {
    Reserved<36> reserved0;
    be32 ethertype; ///< ethertype (TPID) of the outer tag
};
static_assert(record<QinQConfig, 40> && offsetof(QinQConfig, ethertype) == 36);

// ----------------------------------------------------------------------------------------- multicast, 129624 to 146551

/// Global IGMP snooping.
struct IgmpSnooping {
    u8 enabled; ///< IGMP snooping is on
    Reserved<1> reserved1;
    be16 maxResponseTime; ///< maximum response time
    be16 queryInterval;   ///< query interval
    Reserved<1> reserved6;
    u8 immediateLeave;      ///< immediate leave
    PortBitmap routerPorts; ///< multicast-router ports
    u8 flooding;            ///< unknown multicast is flooded
    Reserved<3> reserved13;
    be32 version3; ///< IGMP version 3
    Reserved<12> reserved20;
};
static_assert(record<IgmpSnooping, 32> && offsetof(IgmpSnooping, maxResponseTime) == 2);
static_assert(offsetof(IgmpSnooping, immediateLeave) == 7 && offsetof(IgmpSnooping, routerPorts) == 8);
static_assert(offsetof(IgmpSnooping, flooding) == 12 && offsetof(IgmpSnooping, version3) == 16);

/// IGMP snooping of a VLAN.
struct IgmpVlan {
    Reserved<2> reserved0;
    u8 snooping; ///< snooping is on
    u8 querier;  ///< querier is on
};

/// Per-VLAN IGMP snooping. VLAN 4095 has a bit but no record: the syslog section begins where it would lie.
struct IgmpVlans {
    Reserved<1> reserved0;
    Bitmap<512> inUse; ///< VLANs with a record in use
    Reserved<1> reserved513;
    IgmpVlan vlan[4095]; ///< record of each VLAN, by its id
    Reserved<2> reserved16894;
};
static_assert(record<IgmpVlan, 4> && record<IgmpVlans, 16896>);
static_assert(offsetof(IgmpVlans, inUse) == 1 && offsetof(IgmpVlans, vlan) == 514);

// ----------------------------------------------------------------------- syslog, authentication, STP, 146552 to 147403

/// Syslog client.
struct LogConfig {
    u8 enabled; ///< syslog is on
    Reserved<1> reserved1;
    Ipv4 server[3]; ///< servers 1 to 3, IPv4
    Reserved<6> reserved14;
    Ipv6 serverIpv6[3]; ///< servers 1 to 3, IPv6; used where the IPv4 address is zero
    Reserved<4> reserved68;
};
static_assert(record<LogConfig, 72> && offsetof(LogConfig, server) == 2 && offsetof(LogConfig, serverIpv6) == 20);

/// Client of an authentication server: RADIUS and TACACS+.
struct AuthenticationClient {
    be32 enabled;       ///< client is on
    Secret<32> secret;  ///< shared secret
    be_i32 port;        ///< server port
    i8 retryTime;       ///< retry time, signed
    Ipv4 server[2];     ///< servers 1 and 2, IPv4; used where the IPv6 address is zero
    Ipv6 serverIpv6[2]; ///< servers 1 and 2, IPv6
    Reserved<55> reserved81;
};
static_assert(record<AuthenticationClient, 136>);
static_assert(offsetof(AuthenticationClient, secret) == 4 && offsetof(AuthenticationClient, port) == 36);
static_assert(offsetof(AuthenticationClient, retryTime) == 40 && offsetof(AuthenticationClient, server) == 41);
static_assert(offsetof(AuthenticationClient, serverIpv6) == 49);

/// Spanning tree of the bridge and of aggregated ports.
struct StpConfig {
    be_i32 priority;     ///< bridge priority
    be_i32 maxAge;       ///< max-age
    be_i32 helloTime;    ///< hello-time
    be_i32 forwardDelay; ///< forward delay
    be32 version;        ///< version of the protocol
    Reserved<4> reserved20;
    be32 aggregated;             ///< aggregated ports take part
    be_i32 aggregatedCost;       ///< path cost of aggregated ports
    be_i32 aggregatedPriority;   ///< priority of aggregated ports
    be32 aggregatedEdge;         ///< aggregated ports are edge ports
    be32 aggregatedPointToPoint; ///< point-to-point link
    Reserved<4> reserved44;
};
static_assert(record<StpConfig, 48> && offsetof(StpConfig, version) == 16 && offsetof(StpConfig, aggregated) == 24);
static_assert(offsetof(StpConfig, aggregatedPointToPoint) == 40);

/// Spanning tree of the ports.
struct StpPorts {
    be32 enabled[portCount];      ///< spanning tree on the port
    be_i32 cost[portCount];       ///< path cost; never printed when negative
    be_i32 priority[portCount];   ///< priority; never printed when negative
    be32 edge[portCount];         ///< edge port
    be32 pointToPoint[portCount]; ///< point-to-point link
};
static_assert(record<StpPorts, 560> && offsetof(StpPorts, cost) == 112 && offsetof(StpPorts, edge) == 336);

// -------------------------------------------------------------------- DHCP snooping and source guard, 147404 to 151589

/// Option 82 and trust of the ports.
struct DhcpSnoopingPorts {
    be32 option;              ///< option 82 is inserted
    u8 portOption[portCount]; ///< option 82 on the port
    u8 trust[portCount];      ///< trust of the port
    Reserved<24> reserved60;
};
static_assert(record<DhcpSnoopingPorts, 84> && offsetof(DhcpSnoopingPorts, portOption) == 4);
static_assert(offsetof(DhcpSnoopingPorts, trust) == 32);

/// Ports that are trusted to have a DHCP server. No driver renders them, so the section has no place in the image.
struct ServerTrust {
    Reserved<1> reserved0;
    PortBitmap ports; ///< trusted ports
};
static_assert(record<ServerTrust, 5> && offsetof(ServerTrust, ports) == 1);

using SourceGuardModes = u8[portCount]; ///< source guard mode of the port

/// Static source guard entry.
struct SourceGuardEntry {
    u8 valid;     ///< entry is valid
    Ipv4 address; ///< address, IPv4
    Reserved<5> reserved5;
    be16 vlan; ///< VLAN id
    u8 port;   ///< port
    Reserved<7> reserved13;
    Ipv6 addressIpv6; ///< address, IPv6; used when the IPv4 address is zero
    Reserved<4> reserved36;
};
static_assert(record<SourceGuardEntry, 40> && offsetof(SourceGuardEntry, vlan) == 10);
static_assert(offsetof(SourceGuardEntry, port) == 12 && offsetof(SourceGuardEntry, addressIpv6) == 20);
using SourceGuardTable = SourceGuardEntry[48];

using CircuitId = Text<64>;

/// Circuit and remote ids of option 82.
struct CircuitIds {
    PortBitmap inserted;       ///< ports that insert a circuit id
    CircuitId text[portCount]; ///< circuit id of the port
    u8 remoteInserted;         ///< a remote id is inserted
    Text<64> remoteId;         ///< remote id
    PortBitmap formatted;      ///< ports whose circuit id is formatted
    u8 remoteFormatted;        ///< the remote id is formatted
};
static_assert(record<CircuitIds, 1866> && offsetof(CircuitIds, text) == 4);
static_assert(offsetof(CircuitIds, remoteInserted) == 1796 && offsetof(CircuitIds, remoteId) == 1797);
static_assert(offsetof(CircuitIds, formatted) == 1861 && offsetof(CircuitIds, remoteFormatted) == 1865);

/// Source binding.
struct SourceBinding {
    u8 valid;     ///< entry is valid
    u8 enabled;   ///< binding is on
    Ipv6 address; ///< bound address; an IPv4 one is IPv4-mapped
    Reserved<1> reserved18;
};
static_assert(record<SourceBinding, 19> && offsetof(SourceBinding, address) == 2);
using SourceBindingTable = SourceBinding[12];

// --------------------------------------------------------------------------------------- IGMP tables, 151592 to 180287

/// Static multicast group.
struct MulticastEntry {
    be32 valid;   ///< entry is valid
    Ipv4 address; ///< group address, IPv4
    u8 port;      ///< port
    Reserved<3> reserved9;
    be_i32 vlan;      ///< VLAN id
    Ipv6 addressIpv6; ///< group address, IPv6; used when the IPv4 address is zero
    Reserved<8> reserved32;
};
static_assert(record<MulticastEntry, 40> && offsetof(MulticastEntry, vlan) == 12);
static_assert(offsetof(MulticastEntry, addressIpv6) == 16);
using MulticastTable = MulticastEntry[128];

/// Segment of multicast addresses.
struct MulticastSegment {
    u8 valid; ///< entry is valid
    Reserved<1> reserved1;
    be16 id;       ///< segment id
    Text<24> name; ///< segment name
    Ipv4 first;    ///< first address of the range
    Ipv4 last;     ///< last address of the range
    Reserved<8> reserved36;
};
static_assert(record<MulticastSegment, 44> && offsetof(MulticastSegment, name) == 4);
static_assert(offsetof(MulticastSegment, first) == 28);
using MulticastSegmentTable = MulticastSegment[400];

/// Profile: a named choice of segments.
struct MulticastProfile {
    u8 valid;          ///< entry is valid
    Text<25> name;     ///< profile name
    be16 segments[10]; ///< segment ids
    Reserved<6> reserved46;
};
static_assert(record<MulticastProfile, 52> && offsetof(MulticastProfile, segments) == 26);
using MulticastProfileTable = MulticastProfile[60];

/// IGMP filter of a port.
struct PortFilter {
    u8 filterSwitch; ///< the global filter setting
    Reserved<1> reserved1;
    Text<24> profile[4]; ///< names of the profiles bound to the port; a single blank is an empty slot
    be16 maxGroups;      ///< most groups on the port
    u8 enabled;          ///< filtering on the port
    Reserved<1> reserved101;
};
static_assert(record<PortFilter, 102> && offsetof(PortFilter, profile) == 2 && offsetof(PortFilter, maxGroups) == 98);
static_assert(offsetof(PortFilter, enabled) == 100);

/// IGMP filters of the ports.
struct PortFilters {
    PortFilter port[portCount];

    /// The global filter setting, which shares its byte with port 1's record.
    constexpr u8 filterSwitch() const { return port[0].filterSwitch; }
};
static_assert(record<PortFilters, 2856>);
static_assert(offsetof(PortFilters, port) + offsetof(PortFilter, filterSwitch) == 0, "the first byte of port 1");

// --------------------------------------------------------------------------------- LLDP, 802.1X, PoE, 180296 to 180427

/// LLDP.
struct LldpConfig {
    PortBitmap ports; ///< ports on which LLDP is on
    be16 holdTime;    ///< hold time
    be16 interval;    ///< transmit interval
    be16 packets;     ///< packets
    Reserved<2> reserved10;
    u8 portDescription;   ///< TLV port-description is selected
    u8 systemName;        ///< TLV system-name is selected
    u8 systemDescription; ///< TLV system-description is selected
    u8 capability;        ///< TLV capability is selected
    u8 managementAddress; ///< TLV management-address is selected
    Reserved<1> reserved17;
};
static_assert(record<LldpConfig, 18> && offsetof(LldpConfig, holdTime) == 4);
static_assert(offsetof(LldpConfig, portDescription) == 12 && offsetof(LldpConfig, managementAddress) == 16);

/// Port authentication (802.1X).
struct Dot1xConfig {
    u8 enabled;          ///< 802.1X is on
    Ipv4 server;         ///< authentication server
    Secret<33> secret;   ///< secret shared with the server
    u8 reauthentication; ///< periodic re-authentication
    Reserved<1> reserved39;
    be16 reauthPeriod;         ///< re-authentication period
    u8 timeout;                ///< timeout
    u8 portControl[portCount]; ///< control of the port
    Reserved<29> reserved71;

    /// How much of the secret counts when two are compared, byte by byte.
    static constexpr std::size_t comparedSecret = 31;
};
static_assert(record<Dot1xConfig, 100> && offsetof(Dot1xConfig, secret) == 5);
static_assert(offsetof(Dot1xConfig, reauthPeriod) == 40 && offsetof(Dot1xConfig, portControl) == 43);

/// Power over Ethernet.
struct PoeConfig {
    u8 enabled; ///< PoE is on
    Reserved<7> reserved1;
    u8 fixedBudget;    ///< budget mode
    u8 traps;          ///< SNMP traps of PoE
    u8 eventLog;       ///< events are logged
    u8 syslog;         ///< events are reported to syslog
    u8 alarmThreshold; ///< alarm threshold
    Reserved<1> reserved13;
};
static_assert(record<PoeConfig, 14> && offsetof(PoeConfig, fixedBudget) == 8 && offsetof(PoeConfig, traps) == 9);
static_assert(offsetof(PoeConfig, alarmThreshold) == 12);

// ----------------------------------------------------------------------------------------------- ACL, 180428 to 202699

/// Fields of a frame that a rule can match, by their bit in `AclRule::match`.
namespace AclMatch {
enum Bit {
    ingressPort,
    vlanId,
    sourceMac,
    destinationMac,
    etherType,
    tos,
    protocol,
    sourceL4Port,
    destinationL4Port,
    sourceIpv4,
    destinationIpv4,
    sourceIpv6,
    destinationIpv6,
};
} // namespace AclMatch

/// Access-control rule.
struct AclRule {
    be_i32 number;              ///< rule number
    PortBitmap ingressPorts;    ///< ingress ports
    u8 etherType[2];            ///< EtherType
    be16 vlan;                  ///< VLAN id
    Mac sourceMac;              ///< source MAC address
    Mac sourceMacMask;          ///< its mask
    Mac destinationMac;         ///< destination MAC address
    Mac destinationMacMask;     ///< its mask
    Text<3> tos;                ///< ToS, as hexadecimal digits
    Text<3> protocol;           ///< IP protocol, as hexadecimal digits
    Ipv4 source;                ///< source IPv4 address
    Ipv4 sourceMask;            ///< its mask
    Ipv4 destination;           ///< destination IPv4 address
    Ipv4 destinationMask;       ///< its mask
    Ipv6 sourceIpv6;            ///< source IPv6 address
    u8 sourcePrefixLength;      ///< its prefix length
    Ipv6 destinationIpv6;       ///< destination IPv6 address
    u8 destinationPrefixLength; ///< its prefix length
    be16 sourceL4Port;          ///< source layer-4 port
    u8 sourceL4Mask[2];         ///< its mask
    be16 destinationL4Port;     ///< destination layer-4 port
    u8 destinationL4Mask[2];    ///< its mask
    u8 action;                  ///< action
    u8 actionPort;              ///< port of the action
    Reserved<2> reserved102;
    be_i32 rateLimit; ///< rate limit
    u8 valid;         ///< rule is valid
    Reserved<1> reserved109;
    Bitmap<2> match; ///< fields that take part in the match
    Reserved<4> reserved112;

    /// Rules from number 129 on match IPv6 addresses, the others (negative ones too) IPv4.
    constexpr bool isIpv6Rule() const { return number.value() >= 129; }
};
static_assert(record<AclRule, 116> && offsetof(AclRule, etherType) == 8 && offsetof(AclRule, tos) == 36);
static_assert(offsetof(AclRule, source) == 42 && offsetof(AclRule, sourceIpv6) == 58);
static_assert(offsetof(AclRule, destinationIpv6) == 75 && offsetof(AclRule, sourceL4Port) == 92);
static_assert(offsetof(AclRule, action) == 100 && offsetof(AclRule, rateLimit) == 104);
static_assert(offsetof(AclRule, valid) == 108 && offsetof(AclRule, match) == 110);
using AclTable = AclRule[192];

// ------------------------------------------------------------------------------------- isolation to archive, 202700 on

/// Port isolation. VLAN isolation is configured by the very same bytes.
struct Isolation {
    u8 enabled;         ///< isolation is on
    PortBitmap uplinks; ///< up-link ports
    Reserved<7> reserved5;
};
static_assert(record<Isolation, 12> && offsetof(Isolation, uplinks) == 1);

/// Polling of the port statistics.
struct StatisticsPolling {
    be_i32 interval; ///< polling interval
    be_i32 ports;    ///< ports polled at a time
};
static_assert(record<StatisticsPolling, 8>);

/// Time range.
struct TimeRange {
    /// Start and end of a periodic range: weekday number and time, comma-separated.
    struct Periodic {
        Text<16> start; ///< start: weekday number, time
        Text<16> end;   ///< end: weekday number, time
    };
    /// Times on chosen weekdays.
    struct PeriodicList {
        Bitmap<2> weekdays; ///< weekdays
        Text<8> start;      ///< start time
        Text<8> end;        ///< end time
    };

    Text<32> absoluteStart; ///< time, day, month number and year, comma-separated
    Text<32> absoluteEnd;   ///< the same for the end
    Periodic periodic[2];
    PeriodicList list[2];
    Text<40> name; ///< name; empty: the slot is free
};
static_assert(record<TimeRange, 204> && offsetof(TimeRange, periodic) == 64 && offsetof(TimeRange, list) == 128);
static_assert(record<TimeRange::Periodic, 32> && record<TimeRange::PeriodicList, 18>);
static_assert(offsetof(TimeRange, name) == 164);
using TimeRangeTable = TimeRange[10];

/// PoE settings of a port.
struct PoePort {
    Text<33> deviceName;   ///< name of the powered device
    u8 enabled;            ///< PoE on the port
    u8 priority;           ///< priority
    u8 scheduleEnabled;    ///< schedule on the port
    Text<33> scheduleName; ///< name of the schedule
    Reserved<3> reserved69;
    be_i32 budget; ///< power budget
    Reserved<4> reserved76;
};
static_assert(record<PoePort, 80> && offsetof(PoePort, enabled) == 33 && offsetof(PoePort, scheduleName) == 36);
static_assert(offsetof(PoePort, budget) == 72);
using PoePortTable = PoePort[poePortCount];

/// PPPoE intermediate agent.
struct PppoeConfig {
    be32 enabled;       ///< intermediate agent is on
    PortBitmap trusted; ///< trusted ports
};
static_assert(record<PppoeConfig, 8>);

/// Automatic backup of the configuration.
struct BackupConfig {
    u8 enabled; ///< automatic backup is on
    u8 time;    ///< backup time
    Reserved<2> reserved2;
    be32 protocol;       ///< protocol
    Ipv4 server;         ///< server, IPv4
    Ipv6 serverIpv6;     ///< server, IPv6
    u8 serverIsIpv6;     ///< the IPv6 address is the server's
    Secret<24> user;     ///< FTP user
    Secret<24> password; ///< FTP password
    Text<56> path;       ///< path on the server
};
static_assert(record<BackupConfig, 133> && offsetof(BackupConfig, protocol) == 4);
static_assert(offsetof(BackupConfig, serverIpv6) == 12 && offsetof(BackupConfig, user) == 29);
static_assert(offsetof(BackupConfig, path) == 77);

// ----------------------------------------------------------------------------------------------------------- the image

/// The whole record. Members are where the record has them; each section's place is asserted below.
struct ConfigImage {
    TimeConfig time;
    Ipv4Interface ipv4;
    Ipv6Interface ipv6;
    CompanyInfo company;
    ServiceConfig service;
    ConsoleConfig console;
    UserTable users;
    Reserved<1532> reserved3244;
    PortTable ports;
    Reserved<952> reserved6904;
    u8 vlanMode; ///< VLAN mode
    Reserved<5> reserved7857;
    VlanPortTable vlanPorts;
    Reserved<18> reserved8198;
    PortVlanTable portVlans;
    Reserved<28> reserved8832;
    TagVlanTable tagVlans;
    Reserved<10> reserved121018;
    LacpConfig lacp;
    Reserved<4> reserved121116;
    TrunkTable trunks;
    DistributionRules distribution;
    Reserved<20> reserved121536;
    MacTable macTable;
    MacLearning macLearning;
    MacLimit macLimit;
    PortMirror mirror;
    Reserved<296> reserved125108;
    LoopDetection loopDetection;
    RateLimits rateLimits;
    Reserved<456> reserved125660;
    StormControl storm;
    DhcpSnooping dhcpSnooping;
    SwitchConfig switchConfig;
    CommunityTable communities;
    Reserved<252> reserved127472;
    TrapDestinationTable trapDestinations;
    TrapConfig traps;
    PriorityConfig priority;
    Remarking remarking;
    QinQConfig qinq;
    Reserved<160> reserved129464;
    IgmpSnooping igmp;
    IgmpVlans igmpVlans;
    LogConfig log;
    AuthenticationClient radius;
    StpConfig stp;
    StpPorts stpPorts;
    Reserved<36> reserved147368;
    DhcpSnoopingPorts dhcpSnoopingPorts;
    SourceGuardModes sourceGuard;
    Reserved<4> reserved147516;
    SourceGuardTable sourceGuardTable;
    CircuitIds circuitIds;
    Reserved<54> reserved151306;
    u8 ipSource; ///< the global "ip source" setting
    Reserved<1> reserved151361;
    SourceBindingTable sourceBindings;
    Reserved<2> reserved151590;
    MulticastTable multicastTable;
    MulticastSegmentTable multicastSegments;
    MulticastProfileTable multicastProfiles;
    PortFilters portFilters;
    Reserved<8> reserved180288;
    LldpConfig lldp;
    Dot1xConfig dot1x;
    PoeConfig poe;
    AclTable acl;
    Isolation isolation;
    StatisticsPolling statisticsPolling;
    AuthenticationClient tacacs;
    Reserved<136> reserved202856;
    TimeRangeTable timeRanges;
    PoePortTable poePorts;
    Reserved<4> reserved206952;
    PppoeConfig pppoe;
    be32 logTerminalHistory; ///< terminal history is logged
    Reserved<36> reserved206968;
    be16 cpuLoadingThreshold; ///< threshold of the CPU load
    Reserved<2> reserved207006;
    BackupConfig backup;
    Reserved<55003> reserved207141;

    /// The 64 bytes from the description of port `index` (from 0) on: the description, the port's further settings and
    /// what follows them, which is the next port or, after the last, reserved.
    CircuitId descriptionAndBeyond(int index) const;
};
static_assert(record<ConfigImage, 262144>);

/// Every member of the image in its order: each section with its offset, and the reserved bytes between.
// clang-format off
#define CONFIG_IMAGE_MEMBERS(SECTION, RESERVED)   \
    SECTION(time, 0)                              \
    SECTION(ipv4, 376)                            \
    SECTION(ipv6, 492)                            \
    SECTION(company, 696)                         \
    SECTION(service, 1612)                        \
    SECTION(console, 1632)                        \
    SECTION(users, 1724)                          \
    RESERVED(3244)                                \
    SECTION(ports, 4776)                          \
    RESERVED(6904)                                \
    SECTION(vlanMode, 7856)                       \
    RESERVED(7857)                                \
    SECTION(vlanPorts, 7862)                      \
    RESERVED(8198)                                \
    SECTION(portVlans, 8216)                      \
    RESERVED(8832)                                \
    SECTION(tagVlans, 8860)                       \
    RESERVED(121018)                              \
    SECTION(lacp, 121028)                         \
    RESERVED(121116)                              \
    SECTION(trunks, 121120)                       \
    SECTION(distribution, 121512)                 \
    RESERVED(121536)                              \
    SECTION(macTable, 121556)                     \
    SECTION(macLearning, 124628)                  \
    SECTION(macLimit, 124744)                     \
    SECTION(mirror, 125092)                       \
    RESERVED(125108)                              \
    SECTION(loopDetection, 125404)                \
    SECTION(rateLimits, 125424)                   \
    RESERVED(125660)                              \
    SECTION(storm, 126116)                        \
    SECTION(dhcpSnooping, 126280)                 \
    SECTION(switchConfig, 126372)                 \
    SECTION(communities, 126432)                  \
    RESERVED(127472)                              \
    SECTION(trapDestinations, 127724)             \
    SECTION(traps, 128244)                        \
    SECTION(priority, 128284)                     \
    SECTION(remarking, 129356)                    \
    SECTION(qinq, 129424)                         \
    RESERVED(129464)                              \
    SECTION(igmp, 129624)                         \
    SECTION(igmpVlans, 129656)                    \
    SECTION(log, 146552)                          \
    SECTION(radius, 146624)                       \
    SECTION(stp, 146760)                          \
    SECTION(stpPorts, 146808)                     \
    RESERVED(147368)                              \
    SECTION(dhcpSnoopingPorts, 147404)            \
    SECTION(sourceGuard, 147488)                  \
    RESERVED(147516)                              \
    SECTION(sourceGuardTable, 147520)             \
    SECTION(circuitIds, 149440)                   \
    RESERVED(151306)                              \
    SECTION(ipSource, 151360)                     \
    RESERVED(151361)                              \
    SECTION(sourceBindings, 151362)               \
    RESERVED(151590)                              \
    SECTION(multicastTable, 151592)               \
    SECTION(multicastSegments, 156712)            \
    SECTION(multicastProfiles, 174312)            \
    SECTION(portFilters, 177432)                  \
    RESERVED(180288)                              \
    SECTION(lldp, 180296)                         \
    SECTION(dot1x, 180314)                        \
    SECTION(poe, 180414)                          \
    SECTION(acl, 180428)                          \
    SECTION(isolation, 202700)                    \
    SECTION(statisticsPolling, 202712)            \
    SECTION(tacacs, 202720)                       \
    RESERVED(202856)                              \
    SECTION(timeRanges, 202992)                   \
    SECTION(poePorts, 205032)                     \
    RESERVED(206952)                              \
    SECTION(pppoe, 206956)                        \
    SECTION(logTerminalHistory, 206964)           \
    RESERVED(206968)                              \
    SECTION(cpuLoadingThreshold, 207004)          \
    RESERVED(207006)                              \
    SECTION(backup, 207008)                       \
    RESERVED(207141)
// clang-format on

/// A member of the image: its name, the empty name for reserved bytes, and its bytes.
struct Section {
    std::string_view name;
    std::size_t offset;
    std::size_t size;

    constexpr bool isReserved() const { return name.empty(); }
    constexpr std::size_t end() const { return offset + size; }
};

/// The members of the image, in its order.
inline constexpr Section imageMembers[] = {
#define SECTION(member, at) {#member, at, sizeof(ConfigImage::member)},
#define RESERVED(at) {"", at, sizeof(ConfigImage::reserved##at)},
    CONFIG_IMAGE_MEMBERS(SECTION, RESERVED)
#undef SECTION
#undef RESERVED
};

#define SECTION(member, at) static_assert(offsetof(ConfigImage, member) == (at));
#define RESERVED(at)                                                                                                   \
    static_assert(offsetof(ConfigImage, reserved##at) == (at));                                                        \
    static_assert(std::is_same_v<decltype(ConfigImage::reserved##at), Reserved<sizeof(ConfigImage::reserved##at)>>);
CONFIG_IMAGE_MEMBERS(SECTION, RESERVED)
#undef SECTION
#undef RESERVED

/// The members fill the image from its first byte to its last, without gap or overlap.
consteval bool membersFillTheImage() {
    std::size_t end = 0;
    for (const Section &member : imageMembers) {
        if (member.offset != end || member.size == 0) return false;
        end = member.end();
    }
    return end == sizeof(ConfigImage);
}
static_assert(membersFillTheImage());

/// The sections of the image, in its order.
inline constexpr auto imageSections = [] {
    constexpr std::size_t count = std::ranges::count_if(imageMembers, [](const Section &m) { return !m.isReserved(); });
    std::array<Section, count> sections;
    std::ranges::copy_if(imageMembers, sections.begin(), [](const Section &m) { return !m.isReserved(); });
    return sections;
}();

/// The section that a member pointer names.
template <auto Member> inline constexpr Section sectionOf = {};
#define SECTION(member, at)                                                                                            \
    template <> inline constexpr Section sectionOf<&ConfigImage::member> = {#member, at, sizeof(ConfigImage::member)};
#define RESERVED(at)
CONFIG_IMAGE_MEMBERS(SECTION, RESERVED)
#undef SECTION
#undef RESERVED

static_assert(offsetof(ConfigImage, console.webTimeout) == 1680, "68 bytes into the services, which end before it");

/// The bytes of an image from `offset` on: the one way from the record to bytes.
inline const unsigned char *bytesOf(const ConfigImage &image, std::size_t offset) {
    return reinterpret_cast<const unsigned char *>(&image) + offset;
}

inline CircuitId ConfigImage::descriptionAndBeyond(int index) const {
    const std::size_t description = offsetof(ConfigImage, ports) +
                                    static_cast<std::size_t>(index) * sizeof(PortSettings) +
                                    offsetof(PortSettings, description);
    CircuitId copy;
    std::memcpy(copy.characters, bytesOf(*this, description), sizeof copy);
    return copy;
}

/// The image that is rendered and the default image, one buffer each for the whole run. Delta mode marks remarking
/// entries and an MD5 password may be filled in, so neither is constant.
extern ConfigImage *const gSysConfig;
extern ConfigImage *const gDefConfig;
