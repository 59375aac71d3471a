#include "byte_changes.h"
#include "rows.h"

#include "platform/host/factory.h"
#include "sections/qos.h"

namespace {

constexpr const char *queues = "convConfigPriorityConfig_PriorityConfig_configure_qos";
constexpr const char *remark = "convConfigDSCPRemark_DSCPRemark_configure_qos";
constexpr const char *dscpEntries = "convConfigDSCPPriority_DSCPPriority_configure_qos_remarking";
constexpr const char *priorityEntries = "PbitPriorityFunc_configure_qos_remarking";
constexpr const char *management = "convConfigVLANConfig_mid_sys_vlan_config_configure_qos";
constexpr const char *rates = "convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos";
constexpr const char *userPriority = "convConfigVLANConfig_VLANConfig_configure_interface_qos";

constexpr std::size_t rateLimitsAt = 125424;
constexpr std::size_t priorityAt = 128284;
constexpr std::size_t remarkingAt = 129356;

/// Values that have no line but the weights', then what `set` sets in the current image.
auto onlyQueues(Setter<void(PriorityConfig &)> set) {
    return [set](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults}) {
            image->priority.mode = 5;
            image->priority.queuingMode = 2;
            for (u8 &queue : image->priority.queueOfDscp) queue = 8;
            for (u8 &queue : image->priority.queueOf8021p) queue = 8;
        }
        set(current.priority);
    };
}

const std::string noWeights = "qos queue-weighted 0:0:0:0:0:0:0:0\n";

auto onlyRemarking(Setter<void(Remarking &)> set) {
    return [set](ConfigImage &current, ConfigImage &) { set(current.remarking); };
}

/// Rates that are never written and limits on all ports, in both images; then what `set` sets in the current one.
auto onlyRates(Setter<void(RateLimits &)> set) {
    return [set](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults}) {
            for (be32 &rate : image->rateLimits.ingress) rate = 1;
            for (be32 &rate : image->rateLimits.egress) rate = 1;
            for (unsigned port = 0; port < 28; ++port) {
                image->rateLimits.ingressPorts.set(port);
                image->rateLimits.egressPorts.set(port);
            }
        }
        set(current.rateLimits);
    };
}

/// Priorities that are never written, in both images; then what `set` sets in the current one.
auto onlyPriorities(Setter<void(PriorityConfig &)> set) {
    return [set](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults})
            for (u8 &priority : image->priority.userPriority) priority = 9;
        set(current.priority);
    };
}

/// Eight blocks whose lines are `first` and `second` with the values.
std::string dscpBlocks(std::initializer_list<std::pair<int, int>> values) {
    std::string text;
    int number = 1;
    for (const auto &[received, remarked] : values)
        text += "qos remarking dscp-map " + std::to_string(number++) + "\nrx-dscp " + std::to_string(received) +
                "\nnew-dscp " + std::to_string(remarked) + "\nexit\n";
    return text;
}

std::string priorityBlocks(std::initializer_list<int> values) {
    std::string text;
    int number = 1;
    for (const int value : values)
        text +=
            "qos remarking 802.1p-map " + std::to_string(number++) + "\npriority " + std::to_string(value) + "\nexit\n";
    return text;
}

const std::string everyOtherDscp =
    "0,2,4,6,8,10,12,14,16,18,20,22,24,26,28,30,32,34,36,38,40,42,44,46,48,50,52,54,56,58,60,62";
const std::string oddDscp =
    "1,3,5,7,9,11,13,15,17,19,21,23,25,27,29,31,33,35,37,39,41,43,45,47,49,51,53,55,57,59,61,63";

void composeQos(ConfigImage &current, ConfigImage &defaults) {
    for (ConfigImage *image : {&current, &defaults}) {
        image->priority.queuingMode = 1;
        for (int i = 0; i < 8; ++i) {
            const u8 queue = static_cast<u8>(i);
            image->priority.queueOf8021p[i] = queue;
            image->priority.queues.weight[i] = i + 1;
            image->remarking.priority[i].newPriority = queue;
            image->remarking.dscp[i].receivedDscp = static_cast<u8>(8 * i);
            image->remarking.dscp[i].newDscp = static_cast<u8>(8 * i);
        }
        for (int dscp = 0; dscp < 64; ++dscp) image->priority.queueOfDscp[dscp] = static_cast<u8>(dscp / 8);
        image->priority.managementPriority = 7;
        for (unsigned port = 0; port < 28; ++port) {
            image->rateLimits.ingressPorts.set(port);
            image->rateLimits.egressPorts.set(port);
        }
    }
    PriorityConfig &priority = current.priority;
    priority.mode = 3;
    priority.queuingMode = 0;
    priority.queueOf8021p[1] = 0;
    priority.queueOf8021p[7] = 6;
    priority.queueOfDscp[0] = 7;
    priority.queueOfDscp[46] = 7;
    priority.queueOfDscp[63] = 0;
    priority.queues.weight[0] = -1;
    priority.queues.weight[7] = 100000;
    priority.managementPriority = 255;
    for (int port = 0; port < 28; ++port) priority.userPriority[port] = port < 24 ? 2 : 7;
    priority.userPriority[12] = 9;

    current.remarking.dscpMode = 2;
    current.remarking.remark8021p = 1;
    current.remarking.priority[2].newPriority = 200;
    current.remarking.dscp[0].receivedDscp = 46;
    current.remarking.dscp[7].newDscp = 63;

    RateLimits &limits = current.rateLimits;
    for (int port = 8; port < 12; ++port) limits.ingress[port] = 16384;
    limits.ingress[13] = 1;
    limits.egress[27] = 512000;
    limits.ingressPorts.clear(4).clear(5);
    limits.egressPorts.clear(27);
}

std::string qosText(Mode mode) {
    resetAll();
    composeQos(*gSysConfig, *gDefConfig);
    for (const char *step : {queues, remark, dscpEntries, priorityEntries, management, rates, userPriority})
        callStep(mode, step);
    return Temp_Configuration;
}

} // namespace

// ------------------------------------------------------------------------------------------------ priorities, queues

ROWS(Queues,
     ({
         {"zero image", Mode::full, queues, nothing,
          "no qos\nqos dscp-map 0-63 0\nqos queuing-mode weight\n" + noWeights + "qos 802.1p-map 0-7 0\n"},
         {"values without a line", Mode::full, queues, onlyQueues([](PriorityConfig &) {}), noWeights},
         {"no qos", Mode::full, queues, onlyQueues([](PriorityConfig &p) { p.mode = 0; }), "no qos\n" + noWeights},
         {"port-based", Mode::full, queues, onlyQueues([](PriorityConfig &p) { p.mode = 1; }),
          "qos port-based\n" + noWeights},
         {"802.1p", Mode::full, queues, onlyQueues([](PriorityConfig &p) { p.mode = 2; }), "qos 802.1p\n" + noWeights},
         {"dscp", Mode::full, queues, onlyQueues([](PriorityConfig &p) { p.mode = 3; }), "qos dscp\n" + noWeights},
         {"vid", Mode::full, queues, onlyQueues([](PriorityConfig &p) { p.mode = 4; }), "qos vid\n" + noWeights},
         {"mode is a word", Mode::full, queues, onlyQueues([](PriorityConfig &p) { p.mode = 256; }), noWeights},
         {"weighted", Mode::full, queues, onlyQueues([](PriorityConfig &p) { p.queuingMode = 0; }),
          "qos queuing-mode weight\n" + noWeights},
         {"not weighted", Mode::full, queues, onlyQueues([](PriorityConfig &p) { p.queuingMode = 1; }),
          "no qos queuing-mode\n" + noWeights},
         {"queueing mode is a word", Mode::full, queues, onlyQueues([](PriorityConfig &p) { p.queuingMode = 256; }),
          noWeights},
         {"dscp map by queue", Mode::full, queues, onlyQueues([](PriorityConfig &p) {
              p.queueOfDscp[0] = 7;
              p.queueOfDscp[1] = 6;
              p.queueOfDscp[2] = 6;
              p.queueOfDscp[3] = 6;
              p.queueOfDscp[10] = 6;
              p.queueOfDscp[61] = 0;
              p.queueOfDscp[63] = 0;
              p.queueOfDscp[30] = 255;
          }),
          "qos dscp-map 61,63 0\nqos dscp-map 1-3,10 6\nqos dscp-map 0 7\n" + noWeights},
         {"longest dscp lists", Mode::full, queues, onlyQueues([](PriorityConfig &p) {
              for (int dscp = 0; dscp < 64; ++dscp) p.queueOfDscp[dscp] = static_cast<u8>(3 + dscp % 2);
          }),
          "qos dscp-map " + everyOtherDscp + " 3\nqos dscp-map " + oddDscp + " 4\n" + noWeights},
         {"pairs of dscp values", Mode::full, queues, onlyQueues([](PriorityConfig &p) {
              for (int dscp = 0; dscp < 64; ++dscp) p.queueOfDscp[dscp] = dscp % 3 == 2 ? 8 : 5;
          }),
          "qos dscp-map 0,1,3,4,6,7,9,10,12,13,15,16,18,19,21,22,24,25,27,28,30,31,33,34,36,37,39,40,42,43,45,46,48,"
          "49,51,52,54,55,57,58,60,61,63 5\n" +
              noWeights},
         {"802.1p map by queue", Mode::full, queues, onlyQueues([](PriorityConfig &p) {
              p.queueOf8021p[0] = 7;
              p.queueOf8021p[1] = 1;
              p.queueOf8021p[2] = 1;
              p.queueOf8021p[5] = 0;
              p.queueOf8021p[6] = 0;
              p.queueOf8021p[7] = 0;
              p.queueOf8021p[4] = 9;
          }),
          noWeights + "qos 802.1p-map 5-7 0\nqos 802.1p-map 1,2 1\nqos 802.1p-map 0 7\n"},
         {"weights are signed words", Mode::full, queues, onlyQueues([](PriorityConfig &p) {
              const std::int32_t weights[] = {1, -2, 3, INT32_MAX, INT32_MIN, 256, 65536, -1};
              for (int queue = 0; queue < 8; ++queue) p.queues.weight[queue] = weights[queue];
          }),
          "qos queue-weighted 1:-2:3:2147483647:-2147483648:256:65536:-1\n"},
         {"each weight is signed", Mode::full, queues, onlyQueues([](PriorityConfig &p) {
              for (be_i32 &weight : p.queues.weight) weight = -5;
          }),
          "qos queue-weighted -5:-5:-5:-5:-5:-5:-5:-5\n"},

         {"everything differs", Mode::delta, queues, composeQos,
          "qos dscp\n"
          "qos dscp-map 1-7,63 0\nqos dscp-map 8-15 1\nqos dscp-map 16-23 2\nqos dscp-map 24-31 3\n"
          "qos dscp-map 32-39 4\nqos dscp-map 40-45,47 5\nqos dscp-map 48-55 6\nqos dscp-map 0,46,56-62 7\n"
          "qos queuing-mode weight\n"
          "qos queue-weighted -1:2:3:4:5:6:7:100000\n"},
         {"no difference", Mode::delta, queues, onlyQueues([](PriorityConfig &) {}), ""},
         {"mode differs", Mode::delta, queues, onlyQueues([](PriorityConfig &p) { p.mode = 0; }), "no qos\n"},
         {"port-based", Mode::delta, queues, onlyQueues([](PriorityConfig &p) { p.mode = 1; }), "qos port-based\n"},
         {"802.1p", Mode::delta, queues, onlyQueues([](PriorityConfig &p) { p.mode = 2; }), "qos 802.1p\n"},
         {"dscp", Mode::delta, queues, onlyQueues([](PriorityConfig &p) { p.mode = 3; }), "qos dscp\n"},
         {"vid", Mode::delta, queues, onlyQueues([](PriorityConfig &p) { p.mode = 4; }), "qos vid\n"},
         {"mode without a line", Mode::delta, queues, onlyQueues([](PriorityConfig &p) { p.mode = 6; }), ""},
         {"weighted", Mode::delta, queues, onlyQueues([](PriorityConfig &p) { p.queuingMode = 0; }),
          "qos queuing-mode weight\n"},
         {"not weighted", Mode::delta, queues, onlyQueues([](PriorityConfig &p) { p.queuingMode = 1; }),
          "no qos queuing-mode\n"},
         {"queueing mode without a line", Mode::delta, queues, onlyQueues([](PriorityConfig &p) { p.queuingMode = 3; }),
          ""},
         {"one dscp value writes all queues", Mode::delta, queues,
          [](ConfigImage &current, ConfigImage &) { current.priority.queueOfDscp[20] = 3; },
          "qos dscp-map 0-19,21-63 0\nqos dscp-map 20 3\n"},
         {"802.1p map has no lines", Mode::delta, queues,
          [](ConfigImage &current, ConfigImage &) {
              for (u8 &queue : current.priority.queueOf8021p) queue = 1;
          },
          ""},
         {"byte after the weights", Mode::delta, queues,
          [](ConfigImage &current, ConfigImage &) { current.priority.queues.following[0] = 1; }, noWeights},
     }));

TEST(Queues, BytesThatAreRead) {
    const auto given = onlyQueues([](PriorityConfig &p) {
        p.mode = p.queuingMode = 1;
        for (u8 &queue : p.queueOfDscp) queue = 3;
        for (u8 &queue : p.queueOf8021p) queue = 3;
    });
    expectRead(
        queues, given, priorityAt - 4, priorityAt + 1072 + 3,
        {{priorityAt, priorityAt + 7}, {priorityAt + 37, priorityAt + 108}, {priorityAt + 172, priorityAt + 203}});
}

TEST(Queues, BytesThatCount) {
    const auto given = [](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults}) image->priority.mode = image->priority.queuingMode = 0x40;
    };
    // A changed mode has a line only if it is a known one: the last byte of each word becomes 0.
    expectCounting(queues, given, priorityAt - 4, priorityAt + 1072 + 3,
                   {{priorityAt + 3, priorityAt + 3, "no qos\n"},
                    {priorityAt + 7, priorityAt + 7, "qos queuing-mode weight\n"},
                    {priorityAt + 45, priorityAt + 108, "qos dscp-map "},
                    {priorityAt + 172, priorityAt + 172 + 895, "qos queue-weighted "}});
}

TEST(Queues, ModesAreComparedAsWords) {
    for (std::size_t byte = 0; byte < 4; ++byte) {
        const auto given = [=](ConfigImage &current, ConfigImage &defaults) {
            current.priority.mode = 2;
            current.priority.queuingMode = 1;
            defaults.priority.mode = 2;
            defaults.priority.queuingMode = 1;
            defaults.priority.mode.bytes[byte] ^= 8;
            defaults.priority.queuingMode.bytes[byte] ^= 8;
        };
        EXPECT_EQ("qos 802.1p\nno qos queuing-mode\n", textOfStep(Mode::delta, queues, given)) << byte;
    }
}

// --------------------------------------------------------------------------------------------------------- remarking

ROWS(Remarking, ({
                    {"off", Mode::full, remark, nothing, "no qos remarking dscp\nno qos remarking 802.1p\n"},
                    {"by dscp", Mode::full, remark, onlyRemarking([](Remarking &r) { r.dscpMode = 1; }),
                     "qos remarking dscp by-dscp\nno qos remarking 802.1p\n"},
                    {"by port", Mode::full, remark, onlyRemarking([](Remarking &r) { r.dscpMode = 2; }),
                     "qos remarking dscp by-port\nno qos remarking 802.1p\n"},
                    {"unknown", Mode::full, remark, onlyRemarking([](Remarking &r) { r.dscpMode = 3; }),
                     "no qos remarking 802.1p\n"},
                    {"802.1p", Mode::full, remark, onlyRemarking([](Remarking &r) { r.remark8021p = 255; }),
                     "no qos remarking dscp\nqos remarking 802.1p\n"},
                    {"same", Mode::delta, remark,
                     [](ConfigImage &current, ConfigImage &defaults) {
                         current.remarking.dscpMode = defaults.remarking.dscpMode = 2;
                         current.remarking.remark8021p = defaults.remarking.remark8021p = 1;
                     },
                     ""},
                    {"turned off", Mode::delta, remark,
                     [](ConfigImage &, ConfigImage &defaults) {
                         defaults.remarking.dscpMode = defaults.remarking.remark8021p = 1;
                     },
                     "no qos remarking dscp\nno qos remarking 802.1p\n"},
                    {"by dscp", Mode::delta, remark, onlyRemarking([](Remarking &r) { r.dscpMode = 1; }),
                     "qos remarking dscp by-dscp\n"},
                    {"by port", Mode::delta, remark, onlyRemarking([](Remarking &r) { r.dscpMode = 2; }),
                     "qos remarking dscp by-port\n"},
                    {"unknown", Mode::delta, remark, onlyRemarking([](Remarking &r) { r.dscpMode = 3; }), ""},
                    {"802.1p", Mode::delta, remark, onlyRemarking([](Remarking &r) { r.remark8021p = 1; }),
                     "qos remarking 802.1p\n"},
                    {"1 against 2 differs", Mode::delta, remark,
                     [](ConfigImage &current, ConfigImage &defaults) {
                         current.remarking.remark8021p = 1;
                         defaults.remarking.remark8021p = 2;
                     },
                     "qos remarking 802.1p\n"},
                }));

ROWS(RemarkingEntries,
     ({
         {"dscp zero image", Mode::full, dscpEntries, nothing,
          dscpBlocks({{0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}})},
         {"dscp bytes are unsigned", Mode::full, dscpEntries, onlyRemarking([](Remarking &r) {
              for (int i = 0; i < 8; ++i) {
                  r.dscp[i].marker = 77;
                  r.dscp[i].unread.bytes[0] = 78;
                  r.dscp[i].receivedDscp = static_cast<u8>(10 * i);
                  r.dscp[i].newDscp = static_cast<u8>(255 - i);
              }
          }),
          dscpBlocks({{0, 255}, {10, 254}, {20, 253}, {30, 252}, {40, 251}, {50, 250}, {60, 249}, {70, 248}})},
         {"dscp same", Mode::delta, dscpEntries, nothing, ""},
         {"dscp received differs", Mode::delta, dscpEntries,
          onlyRemarking([](Remarking &r) { r.dscp[0].receivedDscp = 46; }),
          "qos remarking dscp-map 1\nrx-dscp 46\nexit\n"},
         {"dscp new differs", Mode::delta, dscpEntries, onlyRemarking([](Remarking &r) { r.dscp[7].newDscp = 255; }),
          "qos remarking dscp-map 8\nnew-dscp 255\nexit\n"},
         {"dscp both differ", Mode::delta, dscpEntries, onlyRemarking([](Remarking &r) {
              r.dscp[3].receivedDscp = 8;
              r.dscp[3].newDscp = 0;
              r.dscp[4].receivedDscp = 10;
              r.dscp[4].newDscp = 20;
          }),
          "qos remarking dscp-map 4\nrx-dscp 8\nexit\nqos remarking dscp-map 5\nrx-dscp 10\nnew-dscp 20\nexit\n"},
         {"dscp unread byte differs", Mode::delta, dscpEntries,
          onlyRemarking([](Remarking &r) { r.dscp[1].unread.bytes[0] = 1; }), "qos remarking dscp-map 2\nexit\n"},
         {"dscp marker differs", Mode::delta, dscpEntries, onlyRemarking([](Remarking &r) { r.dscp[1].marker = 200; }),
          ""},

         {"priority zero image", Mode::full, priorityEntries, nothing, priorityBlocks({0, 0, 0, 0, 0, 0, 0, 0})},
         {"priority bytes are unsigned", Mode::full, priorityEntries, onlyRemarking([](Remarking &r) {
              for (int i = 0; i < 8; ++i) {
                  r.priority[i].marker = 77;
                  r.priority[i].unread.bytes[0] = r.priority[i].unread.bytes[1] = 78;
                  r.priority[i].newPriority = static_cast<u8>(255 - i);
              }
          }),
          priorityBlocks({255, 254, 253, 252, 251, 250, 249, 248})},
         {"priority same", Mode::delta, priorityEntries, nothing, ""},
         {"priority differs", Mode::delta, priorityEntries, onlyRemarking([](Remarking &r) {
              r.priority[0].newPriority = 5;
              r.priority[7].newPriority = 255;
          }),
          "qos remarking 802.1p-map 1\npriority 5\nexit\nqos remarking 802.1p-map 8\npriority 255\nexit\n"},
         {"priority unread bytes differ", Mode::delta, priorityEntries, onlyRemarking([](Remarking &r) {
              r.priority[1].unread.bytes[0] = 1;
              r.priority[2].unread.bytes[1] = 1;
          }),
          "qos remarking 802.1p-map 2\nexit\nqos remarking 802.1p-map 3\nexit\n"},
         {"priority marker differs", Mode::delta, priorityEntries,
          onlyRemarking([](Remarking &r) { r.priority[1].marker = 9; }), ""},
     }));

TEST(Remarking, BytesThatAreRead) {
    expectRead(remark, nothing, remarkingAt - 4, remarkingAt + 68 + 3, {{remarkingAt, remarkingAt + 1}});
    Places priorities;
    Places values;
    for (std::size_t i = 0; i < 8; ++i) {
        priorities.add(remarkingAt + 7 + 4 * i, remarkingAt + 7 + 4 * i);
        values.add(remarkingAt + 38 + 4 * i, remarkingAt + 39 + 4 * i);
    }
    expectRead(priorityEntries, nothing, remarkingAt - 4, remarkingAt + 68 + 3, priorities);
    expectRead(dscpEntries, nothing, remarkingAt - 4, remarkingAt + 68 + 3, values);
}

TEST(Remarking, BytesThatCount) {
    const auto byPort = [](ConfigImage &current, ConfigImage &defaults) {
        current.remarking.dscpMode = defaults.remarking.dscpMode = 0x42;
    };
    expectCounting(remark, byPort, remarkingAt - 4, remarkingAt + 68 + 3,
                   {{remarkingAt, remarkingAt, "qos remarking dscp by-port\n"},
                    {remarkingAt + 1, remarkingAt + 1, "qos remarking 802.1p\n"}});

    std::vector<Counting> priorities;
    std::vector<Counting> values;
    for (std::size_t i = 0; i < 8; ++i) {
        const std::string number = std::to_string(i + 1) + "\n";
        const std::size_t priority = remarkingAt + 4 + 4 * i;
        priorities.push_back({priority + 1, priority + 2, "qos remarking 802.1p-map " + number + "exit\n"});
        priorities.push_back(
            {priority + 3, priority + 3, "qos remarking 802.1p-map " + number + "priority 64\nexit\n"});
        const std::size_t dscp = remarkingAt + 36 + 4 * i;
        values.push_back({dscp + 1, dscp + 1, "qos remarking dscp-map " + number + "exit\n"});
        values.push_back({dscp + 2, dscp + 2, "qos remarking dscp-map " + number + "rx-dscp 64\nexit\n"});
        values.push_back({dscp + 3, dscp + 3, "qos remarking dscp-map " + number + "new-dscp 64\nexit\n"});
    }
    expectCounting(priorityEntries, nothing, remarkingAt - 4, remarkingAt + 68 + 3, priorities);
    expectCounting(dscpEntries, nothing, remarkingAt - 4, remarkingAt + 68 + 3, values);
}

/// Delta mode leaves all markers set in both images and changes nothing else; full mode changes nothing.
TEST(Remarking, MarkersStaySet) {
    const auto before = [](ConfigImage &current, ConfigImage &defaults) {
        for (int i = 0; i < 8; ++i) {
            current.remarking.priority[i].marker = static_cast<u8>(i);
            defaults.remarking.dscp[i].marker = static_cast<u8>(20 + i);
            current.remarking.dscp[i].newDscp = 5;
            defaults.remarking.priority[i].newPriority = 6;
        }
    };
    static ConfigImage current;
    static ConfigImage defaults;
    for (const Mode mode : {Mode::full, Mode::delta}) {
        resetAll();
        before(*gSysConfig, *gDefConfig);
        current = *gSysConfig;
        defaults = *gDefConfig;
        if (mode == Mode::delta) {
            for (ConfigImage *image : {&current, &defaults})
                for (RemarkPriority &entry : image->remarking.priority) entry.marker = 1;
        }
        callStep(mode, priorityEntries);
        EXPECT_TRUE(sameBytes(current, *gSysConfig));
        EXPECT_TRUE(sameBytes(defaults, *gDefConfig));
        if (mode == Mode::delta) {
            for (ConfigImage *image : {&current, &defaults})
                for (RemarkDscp &entry : image->remarking.dscp) entry.marker = 1;
        }
        callStep(mode, dscpEntries);
        EXPECT_TRUE(sameBytes(current, *gSysConfig));
        EXPECT_TRUE(sameBytes(defaults, *gDefConfig));
    }
}

// ------------------------------------------------------------------------------------------------ management priority

ROWS(ManagementPriority, ({
                             {"zero", Mode::full, management, nothing, "qos management-priority 0\n"},
                             {"unsigned", Mode::full, management,
                              [](ConfigImage &current, ConfigImage &) { current.priority.managementPriority = 255; },
                              "qos management-priority 255\n"},
                             {"same", Mode::delta, management,
                              [](ConfigImage &current, ConfigImage &defaults) {
                                  current.priority.managementPriority = defaults.priority.managementPriority = 5;
                              },
                              ""},
                             {"differs", Mode::delta, management,
                              [](ConfigImage &, ConfigImage &defaults) { defaults.priority.managementPriority = 5; },
                              "qos management-priority 0\n"},
                         }));

TEST(ManagementPriority, IsOneByte) {
    expectRead(management, nothing, priorityAt - 4, priorityAt + 1075, {{priorityAt + 165, priorityAt + 165}});
    expectCounting(management, nothing, priorityAt - 4, priorityAt + 1075,
                   {{priorityAt + 165, priorityAt + 165, "qos management-priority 64\n"}});
}

// -------------------------------------------------------------------------------------------------------- rate limits

ROWS(RateLimits,
     ({
         {"zero image", Mode::full, rates, nothing,
          "interface 1-28\nno qos rate-limit ingress\nexit\n"
          "interface 1-28 \nqos rate-limit ingress 0\nexit\n"
          "interface 1-28\nno qos rate-limit egress\nexit\n"
          "interface 1-28 \nqos rate-limit egress 0 \nexit\n"},
         {"rate 1 and limits on all ports", Mode::full, rates, onlyRates([](RateLimits &) {}), ""},
         {"ingress by equal rate", Mode::full, rates, onlyRates([](RateLimits &r) {
              r.ingress[0] = 64;
              r.ingress[1] = 256;
              r.ingress[2] = 64;
              r.ingress[3] = 64;
              r.ingress[4] = 257;
              r.ingress[26] = 0;
              r.ingress[27] = 64;
          }),
          "interface 1,3,4,28\nqos rate-limit ingress 64\nexit\n"
          "interface 2\nqos rate-limit ingress 256\nexit\n"
          "interface 5\nqos rate-limit ingress 257\nexit\n"
          "interface 27\nno qos rate-limit ingress\nexit\n"},
         {"egress by equal rate", Mode::full, rates, onlyRates([](RateLimits &r) {
              r.egress[0] = 0;
              r.egress[1] = 65536;
              r.egress[27] = 0;
              r.egress[26] = 65792;
          }),
          "interface 1,28\nno qos rate-limit egress\nexit\n"
          "interface 2\nqos rate-limit egress 65536\nexit\n"
          "interface 27\nqos rate-limit egress 65792\nexit\n"},
         {"rates print signed", Mode::full, rates, onlyRates([](RateLimits &r) {
              r.ingress[5] = 0xffffffff;
              r.egress[6] = 0x80000000;
          }),
          "interface 6\nqos rate-limit ingress -1\nexit\n"
          "interface 7\nqos rate-limit egress -2147483648\nexit\n"},
         {"ports without limit", Mode::full, rates, onlyRates([](RateLimits &r) {
              r.ingressPorts.clear(0).clear(1).clear(2);
              r.egressPorts.clear(26).clear(27);
          }),
          "interface 1-3 \nqos rate-limit ingress 0\nexit\n"
          "interface 27,28 \nqos rate-limit egress 0 \nexit\n"},

         {"same", Mode::delta, rates, nothing, ""},
         {"ingress rate", Mode::delta, rates,
          [](ConfigImage &current, ConfigImage &) { current.rateLimits.ingress[3] = 64; },
          "interface 1-3,5-28\nno qos rate-limit ingress\nexit\n"
          "interface 4\nqos rate-limit ingress 64\nexit\n"},
         {"ingress rate removed", Mode::delta, rates, onlyRates([](RateLimits &r) { r.ingress[9] = 0; }),
          "interface 10\nno qos rate-limit ingress\nexit\n"},
         {"rate 1 is never written", Mode::delta, rates,
          [](ConfigImage &current, ConfigImage &) {
              for (be32 &rate : current.rateLimits.ingress) rate = 1;
              for (be32 &rate : current.rateLimits.egress) rate = 1;
          },
          ""},
         {"ingress ports", Mode::delta, rates, onlyRates([](RateLimits &r) { r.ingressPorts.clear(27); }),
          "interface 28 \nqos rate-limit ingress 0\nexit\n"},
         {"all ingress ports", Mode::delta, rates,
          [](ConfigImage &current, ConfigImage &) {
              for (unsigned port = 0; port < 28; ++port) current.rateLimits.ingressPorts.set(port);
          },
          ""},
         {"egress rate", Mode::delta, rates,
          [](ConfigImage &current, ConfigImage &) { current.rateLimits.egress[0] = 0xfffffffe; },
          "interface 1\nqos rate-limit egress -2\nexit\n"
          "interface 2-28\nno qos rate-limit egress\nexit\n"},
         {"egress line without a blank", Mode::delta, rates, onlyRates([](RateLimits &r) { r.egressPorts.clear(0); }),
          "interface 1 \nqos rate-limit egress 0\nexit\n"},
         {"all four in order", Mode::delta, rates, onlyRates([](RateLimits &r) {
              r.egressPorts.clear(0);
              r.egress[1] = 2;
              r.ingressPorts.clear(2);
              r.ingress[3] = 3;
          }),
          "interface 4\nqos rate-limit ingress 3\nexit\n"
          "interface 3 \nqos rate-limit ingress 0\nexit\n"
          "interface 2\nqos rate-limit egress 2\nexit\n"
          "interface 1 \nqos rate-limit egress 0\nexit\n"},
     }));

TEST(RateLimits, BytesThatAreRead) {
    const auto given = onlyRates([](RateLimits &) {});
    // The four bits after port 28 are not read.
    for (const std::size_t bitmap : {rateLimitsAt + 228, rateLimitsAt + 232}) {
        const auto unused = withByte(given, bitmap + 3, 0xf0);
        EXPECT_EQ("", textOfStep(Mode::full, rates, unused));
        EXPECT_NE("", textOfStep(Mode::full, rates, withByte(given, bitmap + 3, 0x08)));
    }
    const Places spans = {{rateLimitsAt + 4, rateLimitsAt + 230}, {rateLimitsAt + 232, rateLimitsAt + 234}};
    expectRead(rates, given, rateLimitsAt, rateLimitsAt + 239, spans);
}

TEST(RateLimits, BytesThatCount) {
    expectCounting(rates, nothing, rateLimitsAt, rateLimitsAt + 239,
                   {{rateLimitsAt + 4, rateLimitsAt + 7, "interface 1\nqos rate-limit ingress "},
                    {rateLimitsAt + 8, rateLimitsAt + 115, "interface 1"},
                    {rateLimitsAt + 116, rateLimitsAt + 119, "interface 1\nqos rate-limit egress "},
                    {rateLimitsAt + 120, rateLimitsAt + 227, "interface 1"},
                    {rateLimitsAt + 228, rateLimitsAt + 230, "interface 1"},
                    // A bit of no port: the set differs, and all ports are written.
                    {rateLimitsAt + 231, rateLimitsAt + 231, "interface 1-28 \nqos rate-limit ingress 0\nexit\n"},
                    {rateLimitsAt + 232, rateLimitsAt + 234, "interface 1"},
                    {rateLimitsAt + 235, rateLimitsAt + 235, "interface 1-28 \nqos rate-limit egress 0\nexit\n"}});
}

// ------------------------------------------------------------------------------------------------------ user priority

ROWS(UserPriority, ({
                       {"zero image", Mode::full, userPriority, nothing, "interface 1-28\nqos user-priority 0\nexit\n"},
                       {"priority 9", Mode::full, userPriority, onlyPriorities([](PriorityConfig &) {}), ""},
                       {"by equal priority", Mode::full, userPriority, onlyPriorities([](PriorityConfig &p) {
                            p.userPriority[0] = 255;
                            p.userPriority[1] = 7;
                            p.userPriority[2] = 255;
                            p.userPriority[27] = 7;
                            p.userPriority[26] = 1;
                        }),
                        "interface 1,3\nqos user-priority 255\nexit\n"
                        "interface 2,28\nqos user-priority 7\nexit\n"
                        "interface 27\nqos user-priority 1\nexit\n"},
                       {"29th byte is no port", Mode::full, userPriority,
                        onlyPriorities([](PriorityConfig &p) { p.managementPriority = 3; }), ""},
                       {"same", Mode::delta, userPriority, nothing, ""},
                       {"one differs", Mode::delta, userPriority,
                        [](ConfigImage &current, ConfigImage &) { current.priority.userPriority[2] = 4; },
                        "interface 1,2,4-28\nqos user-priority 0\nexit\n"
                        "interface 3\nqos user-priority 4\nexit\n"},
                       {"29th byte differs", Mode::delta, userPriority,
                        [](ConfigImage &, ConfigImage &defaults) { defaults.priority.managementPriority = 3; },
                        "interface 1-28\nqos user-priority 0\nexit\n"},
                       {"9 is never written", Mode::delta, userPriority,
                        [](ConfigImage &current, ConfigImage &) {
                            for (int port = 1; port < 28; ++port) current.priority.userPriority[port] = 9;
                        },
                        "interface 1\nqos user-priority 0\nexit\n"},
                   }));

TEST(UserPriority, Bytes) {
    expectRead(userPriority, nothing, priorityAt - 4, priorityAt + 1075, {{priorityAt + 137, priorityAt + 164}});
    expectCounting(userPriority, nothing, priorityAt - 4, priorityAt + 1075,
                   {{priorityAt + 137, priorityAt + 164, "interface "},
                    {priorityAt + 165, priorityAt + 165, "interface 1-28\nqos user-priority 0\nexit\n"}});
}

// ---------------------------------------------------------------------------------------------------------- the whole

TEST(Qos, Golden) {
    EXPECT_EQ(golden("qos_full.txt"), qosText(Mode::full));
    EXPECT_EQ(golden("qos_delta.txt"), qosText(Mode::delta));
}
