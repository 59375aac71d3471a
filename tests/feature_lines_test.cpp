/// Sections of switching features, with the same rule: each line follows its own field, whatever the others hold.
#include "lines.h"

namespace {

void withPoe(ConfigImage &) { g_EEPROM.capabilities = 0x100; }

FIELD_LINES(
    Poe,
    ({
        {"Global",
         "convConfigPOEConfig_POEConfig_configure_poe",
         withPoe,
         {},
         {flag(FIELD(poe.enabled), "poe \n", "no poe\n", "poe\n", "no poe\n"),
          number(FIELD(poe.alarmThreshold), {{7, "poe alarm-threshold 7 \n", "poe alarm-threshold 7\n"},
                                             {99, "poe alarm-threshold 99 \n", "poe alarm-threshold 99\n"},
                                             {255, "poe alarm-threshold 255 \n", "poe alarm-threshold 255\n"}}),
          flag(FIELD(poe.fixedBudget), "poe budget-mode fixed\n", "poe budget-mode class\n"),
          flag(FIELD(poe.eventLog), "poe eventlog \n", "no poe eventlog \n", "poe eventlog\n", "no poe eventlog\n"),
          flag(FIELD(poe.syslog), "poe syslog \n", "no poe syslog \n", "poe syslog\n", "no poe syslog\n"),
          flag(FIELD(poe.traps), "poe traps \n", "no poe traps \n", "poe traps\n", "no poe traps\n")}},
    }));

/// The three BPDU settings block when they are on.
FIELD_LINES(SpanningTree,
            ({
                {"Bridge",
                 "convConfigSTPConfig_STPConfig_configure_spanning_tree",
                 nullptr,
                 {},
                 {number(FIELD(stp.priority), {{1, "spanning-tree priority 1\n"},
                                               {32768, "spanning-tree priority 32768\n"},
                                               {100000, "spanning-tree priority 100000\n"},
                                               {-1, "spanning-tree priority -1\n"}}),
                  number(FIELD(stp.maxAge), {{2, "spanning-tree max-age 2\n"},
                                             {300, "spanning-tree max-age 300\n"},
                                             {100001, "spanning-tree max-age 100001\n"},
                                             {-2, "spanning-tree max-age -2\n"}}),
                  number(FIELD(stp.helloTime), {{3, "spanning-tree hello-time 3\n"},
                                                {301, "spanning-tree hello-time 301\n"},
                                                {100002, "spanning-tree hello-time 100002\n"},
                                                {-3, "spanning-tree hello-time -3\n"}}),
                  number(FIELD(stp.forwardDelay), {{4, "spanning-tree delay-time 4\n"},
                                                   {302, "spanning-tree delay-time 302\n"},
                                                   {100003, "spanning-tree delay-time 100003\n"},
                                                   {-4, "spanning-tree delay-time -4\n"}}),
                  number(FIELD(stp.version), {{0, "spanning-tree version compatible\n"},
                                              {1, "spanning-tree version normal\n"},
                                              {2, "spanning-tree version compatible\n"},
                                              {3, "spanning-tree version compatible\n"},
                                              {0x80, "spanning-tree version compatible\n"},
                                              {0x100, "spanning-tree version compatible\n"},
                                              {0x101, "spanning-tree version compatible\n"},
                                              {0x80000001, "spanning-tree version compatible\n"}}),
                  flag(FIELD(stp.aggregated), "spanning-tree aggregated-port\n", "no spanning-tree aggregated-port\n"),
                  number(FIELD(stp.aggregatedCost), {{5, "spanning-tree aggregated-port cost 5\n"},
                                                     {303, "spanning-tree aggregated-port cost 303\n"},
                                                     {200000000, "spanning-tree aggregated-port cost 200000000\n"},
                                                     {-5, "spanning-tree aggregated-port cost -5\n"}}),
                  number(FIELD(stp.aggregatedPriority), {{6, "spanning-tree aggregated-port priority 6\n"},
                                                         {304, "spanning-tree aggregated-port priority 304\n"},
                                                         {100004, "spanning-tree aggregated-port priority 100004\n"},
                                                         {-6, "spanning-tree aggregated-port priority -6\n"}}),
                  flag(FIELD(stp.aggregatedEdge), "spanning-tree aggregated-port edge\n",
                       "no spanning-tree aggregated-port edge\n"),
                  number(FIELD(stp.aggregatedPointToPoint), {{0, "spanning-tree aggregated-port p2p forced_true\n"},
                                                             {1, "spanning-tree aggregated-port p2p forced_false\n"},
                                                             {2, "spanning-tree aggregated-port p2p auto\n"},
                                                             {3, ""},
                                                             {0x80, ""},
                                                             {0x100, ""},
                                                             {0x101, ""},
                                                             {0x80000000, ""}})}},
                {"Bpdus",
                 "convConfigSwitchConfig_SwitchConfig_configure_switch_bpdu",
                 nullptr,
                 {},
                 {flag(FIELD(switchConfig.blockBpdu00to0F), "no switch bpdu 00-0F\n", "switch bpdu 00-0F permit\n"),
                  flag(FIELD(switchConfig.blockBpdu20to2F), "no switch bpdu 20-2F\n", "switch bpdu 20-2F permit\n"),
                  flag(FIELD(switchConfig.blockBpdu10), "no switch bpdu 10\n", "switch bpdu 10 permit\n")}},
            }));

template <class Get> FieldLine distribution(Get field, const std::string &word) {
    return flag(field, "channel-group distribution-rule " + word + "\n",
                "no channel-group distribution-rule " + word + "\n");
}

/// The destination is on or off, and its port counts also where it is off.
FieldLine mirrorDestination() {
    FieldLine line({});
    const auto add = [&](std::uint32_t isSet, std::uint32_t port, const std::string &text) {
        line.values.emplace_back(
            [=](ConfigImage &image) {
                image.mirror.destinationSet = isSet;
                image.mirror.destinationPort = port;
            },
            text);
    };
    add(0, 0, "no mirror destination\n");
    add(0, 5, "no mirror destination\n");
    add(0, 0x500, "no mirror destination\n");
    for (const std::uint32_t on : {1U, 2U, 0x80U, 0x100U, 0x80000000U}) add(on, 0, "mirror destination 1\n");
    add(1, 27, "mirror destination 28\n");
    add(1, 255, "mirror destination 256\n");
    add(1, 256, "mirror destination 257\n");
    add(1, 1023, "mirror destination 1024\n");
    add(1, 65536, "mirror destination 65537\n");
    add(1, 16777216, "mirror destination 16777217\n");
    return line;
}

template <class Get> FieldLine watchedVlan(Get field) {
    return number(field, {{0, ""},
                          {7, "loop-detection vlan-id 7\n"},
                          {300, "loop-detection vlan-id 300\n"},
                          {65535, "loop-detection vlan-id 65535\n"}});
}

template <class Get> FieldLine tlv(Get field, const std::string &word) {
    return flag(field, "lldp tlv-select " + word + "\n", "no lldp tlv-select " + word + "\n");
}

FIELD_LINES(Layer2,
            ({
                {"DistributionRules",
                 "convConfigPortTrunkMode_PortTrunkMode_configure_channel_group",
                 nullptr,
                 {},
                 {distribution(FIELD(distribution.destinationIp), "destination-ip"),
                  distribution(FIELD(distribution.sourceIp), "source-ip"),
                  distribution(FIELD(distribution.destinationL4Port), "destination-L4-port"),
                  distribution(FIELD(distribution.sourceL4Port), "source-L4-port"),
                  distribution(FIELD(distribution.destinationMac), "destination-mac"),
                  distribution(FIELD(distribution.sourceMac), "source-mac")}},
                {"Lldp",
                 "convConfigLLDPConfig_LLDPConfig_configure_lldp",
                 nullptr,
                 {},
                 {number(FIELD(lldp.holdTime), {{1, "lldp hold-time 1\n"},
                                                {10, "lldp hold-time 10\n"},
                                                {300, "lldp hold-time 300\n"},
                                                {65535, "lldp hold-time 65535\n"}}),
                  number(FIELD(lldp.interval), {{2, "lldp interval 2\n"},
                                                {20, "lldp interval 20\n"},
                                                {301, "lldp interval 301\n"},
                                                {65534, "lldp interval 65534\n"}}),
                  number(FIELD(lldp.packets), {{3, "lldp packets 3\n"},
                                               {30, "lldp packets 30\n"},
                                               {302, "lldp packets 302\n"},
                                               {65533, "lldp packets 65533\n"}}),
                  tlv(FIELD(lldp.portDescription), "port-description"), tlv(FIELD(lldp.systemName), "system-name"),
                  tlv(FIELD(lldp.systemDescription), "system-description"), tlv(FIELD(lldp.capability), "capability"),
                  tlv(FIELD(lldp.managementAddress), "management-address")}},
                {"MacAging",
                 "convConfigSwitchConfig_SwitchConfig_configure_mac",
                 nullptr,
                 {},
                 {number(FIELD(switchConfig.macAgingTime), {{7, "mac address-table aging-time 7\n"},
                                                            {300, "mac address-table aging-time 300\n"},
                                                            {100000, "mac address-table aging-time 100000\n"},
                                                            {-7, "mac address-table aging-time -7\n"}})}},
                {"MirrorDestination",
                 "convConfigPortMirror_PortMirror_configure_mirror_destination",
                 nullptr,
                 {},
                 {mirrorDestination()}},
                {"LoopDetection",
                 "convConfigLoopDetection_LoopDetection_configure_loop_detection",
                 nullptr,
                 {},
                 {flag(FIELD(loopDetection.enabled), "loop-detection\n", "no loop-detection\n"),
                  number(FIELD(loopDetection.interval), {{1, "loop-detection interval 1\n"},
                                                         {300, "loop-detection interval 300\n"},
                                                         {65535, "loop-detection interval 65535\n"}}),
                  number(FIELD(loopDetection.unlockInterval), {{2, "loop-detection unlock-interval 2\n"},
                                                               {301, "loop-detection unlock-interval 301\n"},
                                                               {65534, "loop-detection unlock-interval 65534\n"}}),
                  flag(FIELD(loopDetection.allVlans), "loop-detection all-vlan\n", "no loop-detection all-vlan\n"),
                  watchedVlan(FIELD(loopDetection.vlans[0])), watchedVlan(FIELD(loopDetection.vlans[1])),
                  watchedVlan(FIELD(loopDetection.vlans[2])), watchedVlan(FIELD(loopDetection.vlans[3]))}},
                {"VlanIsolation",
                 "convConfigVLANConfig_mid_vlan_port_iso_config_configure_vlan_isolation",
                 nullptr,
                 {},
                 {always("no vlan isolation up-link-port 1-28 \n"),
                  flag(FIELD(isolation.enabled), "vlan isolation\n", "no vlan isolation\n")}},
            }));

FieldLine queueWeights() {
    FieldLine line({});
    const auto add = [&](std::initializer_list<std::int32_t> weights, const std::string &text) {
        const std::vector<std::int32_t> copy = weights;
        line.values.emplace_back(
            [=](ConfigImage &image) {
                for (std::size_t i = 0; i < 8; ++i) image.priority.queues.weight[i] = copy[i];
            },
            text);
    };
    add({0, 0, 0, 0, 0, 0, 0, 0}, "qos queue-weighted 0:0:0:0:0:0:0:0\n");
    add({1, 2, 3, 4, 5, 6, 7, 8}, "qos queue-weighted 1:2:3:4:5:6:7:8\n");
    add({100000, -2, 300, 0, 70000, 6, -7, 2147483647}, "qos queue-weighted 100000:-2:300:0:70000:6:-7:2147483647\n");
    return line;
}

FIELD_LINES(Qos, ({
                     {"Queues",
                      "convConfigPriorityConfig_PriorityConfig_configure_qos",
                      nullptr,
                      {},
                      {number(FIELD(priority.mode), {{0, "no qos\n"},
                                                     {1, "qos port-based\n"},
                                                     {2, "qos 802.1p\n"},
                                                     {3, "qos dscp\n"},
                                                     {4, "qos vid\n"},
                                                     {5, ""},
                                                     {0x80, ""},
                                                     {0x100, ""},
                                                     {0x101, ""},
                                                     {0x80000000, ""}}),
                       always("qos dscp-map 0-63 0\n"),
                       number(FIELD(priority.queuingMode), {{0, "qos queuing-mode weight\n"},
                                                            {1, "no qos queuing-mode\n"},
                                                            {2, ""},
                                                            {0x80, ""},
                                                            {0x100, ""},
                                                            {0x101, ""},
                                                            {0x80000000, ""}}),
                       queueWeights(), always("qos 802.1p-map 0-7 0\n")}},
                     {"Remarking",
                      "convConfigDSCPRemark_DSCPRemark_configure_qos",
                      nullptr,
                      {},
                      {number(FIELD(remarking.dscpMode), {{0, "no qos remarking dscp\n"},
                                                          {1, "qos remarking dscp by-dscp\n"},
                                                          {2, "qos remarking dscp by-port\n"},
                                                          {3, ""},
                                                          {0x80, ""},
                                                          {0x81, ""}}),
                       flag(FIELD(remarking.remark8021p), "qos remarking 802.1p\n", "no qos remarking 802.1p\n")}},
                     {"ManagementPriority",
                      "convConfigVLANConfig_mid_sys_vlan_config_configure_qos",
                      nullptr,
                      {},
                      {number(FIELD(priority.managementPriority), {{7, "qos management-priority 7\n"},
                                                                   {10, "qos management-priority 10\n"},
                                                                   {255, "qos management-priority 255\n"}})}},
                 }));

/// VLANs 1, 10 and 4094 have a record.
void threeVlans(ConfigImage &image) { image.igmpVlans.inUse.set(1).set(10).set(4094); }

template <class Get> FieldLine vlanSnooping(Get field, const std::string &vlan) {
    return flag(field, "ip igmp snooping vlan " + vlan + "\n", "no ip igmp snooping vlan " + vlan + "\n");
}
template <class Get> FieldLine vlanQuerier(Get field, const std::string &vlan) {
    return flag(field, "ip igmp snooping vlan " + vlan + " query\n", "no ip igmp snooping vlan " + vlan + " query\n");
}

FIELD_LINES(
    Multicast,
    ({
        {"IgmpSnooping",
         "convConfigIGMPConfig_IGMPConfig_configure_ip_igmp",
         nullptr,
         {},
         {flag(FIELD(igmp.enabled), "ip igmp snooping\n", "no ip igmp snooping\n"),
          flag(FIELD(igmp.version3), "ip igmp snooping version-3\n", "no ip igmp snooping version-3\n"),
          flag(FIELD(igmp.flooding), "ip igmp snooping flooding\n", "no ip igmp snooping flooding\n"),
          always("no ip igmp snooping mcast-router 1-28 \n")}},
        {"IgmpSettings",
         "convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping",
         nullptr,
         {},
         {flag(FIELD(igmp.immediateLeave), "ip igmp snooping immediate-leave\n",
               "no ip igmp snooping immediate-leave\n"),
          number(FIELD(igmp.maxResponseTime), {{7, "ip igmp snooping max-response-time 7\n"},
                                               {300, "ip igmp snooping max-response-time 300\n"},
                                               {65535, "ip igmp snooping max-response-time 65535\n"}}),
          number(FIELD(igmp.queryInterval), {{8, "ip igmp snooping query-interval 8\n"},
                                             {301, "ip igmp snooping query-interval 301\n"},
                                             {65534, "ip igmp snooping query-interval 65534\n"}})}},
        {"IgmpVlans",
         "convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp",
         threeVlans,
         {},
         {vlanSnooping(FIELD(igmpVlans.vlan[1].snooping), "1"), vlanQuerier(FIELD(igmpVlans.vlan[1].querier), "1"),
          vlanSnooping(FIELD(igmpVlans.vlan[10].snooping), "10"), vlanQuerier(FIELD(igmpVlans.vlan[10].querier), "10"),
          vlanSnooping(FIELD(igmpVlans.vlan[4094].snooping), "4094"),
          vlanQuerier(FIELD(igmpVlans.vlan[4094].querier), "4094")}},
        {"FilterSwitch",
         "IGMPFilterFunc_configure_ip_igmp_filter",
         nullptr,
         {},
         {flag(FIELD(portFilters.port[0].filterSwitch), "ip igmp filter\n", "no ip igmp filter\n")}},
    }));

// ---------------------------------------------------------------------------------------------------------- SNMP traps

constexpr const char *traps = "convConfigTrapConfig_TrapConfig_configure_snmp_server";

template <class Get> FieldLine trap(Get field, const std::string &type) {
    return flag(field, "snmp-server trap-type " + type + "\n", "no snmp-server trap-type " + type + "\n");
}

/// The link traps are bit 0 of a set of ports.
FieldLine linkTrap() {
    const auto hold = [](u8 first, u8 last) {
        return [=](ConfigImage &image) {
            image.traps.portLink.bytes[0] = first;
            image.traps.portLink.bytes[19] = last;
        };
    };
    return {{hold(0, 0), "no snmp-server trap-type port-link\n"}, {hold(1, 0), "snmp-server trap-type port-link\n"}};
}

/// A board with Power over Ethernet and a battery. One trap is on and one off, so that there is no line for all of
/// them.
void warmStartAlone(ConfigImage &image) {
    g_EEPROM.capabilities = 0x150;
    image.traps.warmStart = 1;
}
void coldStartAlone(ConfigImage &image) {
    g_EEPROM.capabilities = 0x150;
    image.traps.coldStart = 1;
}

FIELD_LINES(Traps,
            ({
                {"OfEachType",
                 traps,
                 warmStartAlone,
                 {},
                 {always("no snmp-server trap-type cold-start\n"), always("snmp-server trap-type warm-start\n"),
                  trap(FIELD(traps.authFail), "auth-fail"), trap(FIELD(traps.autoBackup), "auto-backup"), linkTrap(),
                  trap(FIELD(traps.batteryMode), "battery-mode"), trap(FIELD(traps.caseFan), "case-fan"),
                  trap(FIELD(poe.traps), "poe"), trap(FIELD(traps.cpuLoad), "cpu-load"),
                  trap(FIELD(traps.macLimit), "mac-limit"), trap(FIELD(traps.stormControl), "storm-control")}},
                {"OfStarts",
                 traps,
                 [](ConfigImage &image) {
                     g_EEPROM.capabilities = 0x150;
                     image.traps.authFail = 1;
                 },
                 {},
                 {trap(FIELD(traps.coldStart), "cold-start"), trap(FIELD(traps.warmStart), "warm-start"),
                  always("snmp-server trap-type auth-fail\n"), always("no snmp-server trap-type auto-backup\n"),
                  always("no snmp-server trap-type port-link\n"), always("no snmp-server trap-type battery-mode\n"),
                  always("no snmp-server trap-type case-fan\n"), always("no snmp-server trap-type poe\n"),
                  always("no snmp-server trap-type cpu-load\n"), always("no snmp-server trap-type mac-limit\n"),
                  always("no snmp-server trap-type storm-control\n")}},
                {"WithoutHardware",
                 traps,
                 [](ConfigImage &image) {
                     coldStartAlone(image);
                     g_EEPROM.capabilities = 0;
                 },
                 {},
                 {always("snmp-server trap-type cold-start\n"), always("no snmp-server trap-type warm-start\n"),
                  trap(FIELD(traps.authFail), "auth-fail"), trap(FIELD(traps.autoBackup), "auto-backup"), linkTrap(),
                  trap(FIELD(traps.caseFan), "case-fan"), trap(FIELD(traps.cpuLoad), "cpu-load"),
                  trap(FIELD(traps.macLimit), "mac-limit"), trap(FIELD(traps.stormControl), "storm-control")}},
            }));

/// Every trap of a board with all hardware, as bytes that are on when they are not zero.
std::vector<u8 *> trapBytes(ConfigImage &image) {
    TrapConfig &types = image.traps;
    return {&types.coldStart,    &types.warmStart,   &types.authFail,  &types.portLink.bytes[0],
            &types.caseFan,      &image.poe.traps,   &types.cpuLoad,   &types.macLimit,
            &types.stormControl, &types.batteryMode, &types.autoBackup};
}

/// What is stored for "on" does not decide whether all are on. Of the link traps bit 0 alone counts.
TEST(TrapsOfAllTypes, AnyStoredValueIsOn) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        for (std::size_t odd = 0; odd < 11; ++odd) {
            for (const u8 stored : std::initializer_list<u8>{1, 3, 2, 0x80}) {
                resetAll();
                g_EEPROM.capabilities = 0x150;
                const std::vector<u8 *> bytes = trapBytes(*gSysConfig);
                for (u8 *byte : bytes) *byte = 1;
                *bytes[odd] = stored;
                gDefConfig->traps.coldStart = 1; // so that something differs
                callStep(mode, traps);
                const bool isOn = odd != 3 || (stored & 1) != 0;
                if (isOn) EXPECT_STREQ("snmp-server trap-type all\n", Temp_Configuration) << odd << " " << int{stored};
                else EXPECT_EQ(std::string::npos, std::string(Temp_Configuration).find("all")) << int{stored};
            }
        }
    }
}

/// One that is on, whatever is stored for it, is enough for a line of each type.
TEST(TrapsOfAllTypes, AnyStoredValueIsNotOff) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        for (std::size_t odd = 0; odd < 11; ++odd) {
            for (const u8 stored : std::initializer_list<u8>{0, 1, 3, 2, 0x80}) {
                resetAll();
                g_EEPROM.capabilities = 0x150;
                *trapBytes(*gSysConfig)[odd] = stored;
                gDefConfig->traps.reserved3.bytes[0] = 1; // so that something differs
                callStep(mode, traps);
                const bool isOn = odd == 3 ? (stored & 1) != 0 : stored != 0;
                if (isOn) EXPECT_EQ(std::string::npos, std::string(Temp_Configuration).find("all")) << odd;
                else EXPECT_STREQ("no snmp-server trap-type all\n", Temp_Configuration) << odd << " " << int{stored};
            }
        }
    }
}

} // namespace
