/// Spanning tree and BPDUs.
#include "layer2_area.h"

using namespace layer2;

// ------------------------------------------------------------------------------------------ spanning tree and BPDUs

ROWS(SpanningTree, ({
                       {"zero image", Mode::full, stp, nothing,
                        "spanning-tree priority 0\n"
                        "spanning-tree max-age 0\n"
                        "spanning-tree hello-time 0\n"
                        "spanning-tree delay-time 0\n"
                        "spanning-tree version compatible\n"
                        "no spanning-tree aggregated-port\n"
                        "spanning-tree aggregated-port cost 0\n"
                        "spanning-tree aggregated-port priority 0\n"
                        "no spanning-tree aggregated-port edge\n"
                        "spanning-tree aggregated-port p2p forced_true\n"},
                       {"all values", Mode::full, stp, stpSet([](StpConfig &bridge) {
                            bridge.priority = 32768;
                            bridge.maxAge = 20;
                            bridge.helloTime = 2;
                            bridge.forwardDelay = 15;
                            bridge.version = 1;
                            bridge.aggregated = 256;
                            bridge.aggregatedCost = 200000;
                            bridge.aggregatedPriority = 128;
                            bridge.aggregatedEdge = 0x01000000;
                            bridge.aggregatedPointToPoint = 1;
                        }),
                        "spanning-tree priority 32768\n"
                        "spanning-tree max-age 20\n"
                        "spanning-tree hello-time 2\n"
                        "spanning-tree delay-time 15\n"
                        "spanning-tree version normal\n"
                        "spanning-tree aggregated-port\n"
                        "spanning-tree aggregated-port cost 200000\n"
                        "spanning-tree aggregated-port priority 128\n"
                        "spanning-tree aggregated-port edge\n"
                        "spanning-tree aggregated-port p2p forced_false\n"},
                       {"negative values", Mode::full, stp, stpSet([](StpConfig &bridge) {
                            bridge.priority = -1;
                            bridge.maxAge = -2;
                            bridge.helloTime = -3;
                            bridge.forwardDelay = -4;
                            bridge.version = 257;
                            bridge.aggregatedCost = INT32_MIN;
                            bridge.aggregatedPriority = -6;
                            bridge.aggregatedPointToPoint = 2;
                        }),
                        "spanning-tree priority -1\n"
                        "spanning-tree max-age -2\n"
                        "spanning-tree hello-time -3\n"
                        "spanning-tree delay-time -4\n"
                        "spanning-tree version compatible\n"
                        "no spanning-tree aggregated-port\n"
                        "spanning-tree aggregated-port cost -2147483648\n"
                        "spanning-tree aggregated-port priority -6\n"
                        "no spanning-tree aggregated-port edge\n"
                        "spanning-tree aggregated-port p2p auto\n"},
                       {"same in both images", Mode::delta, stp, stpSet([](StpConfig &) {}), ""},
                       {"all values", Mode::delta, stp, stpSet([](StpConfig &bridge) {
                            bridge.priority = -32768;
                            bridge.maxAge = 20;
                            bridge.helloTime = 2;
                            bridge.forwardDelay = 15;
                            bridge.version = 1;
                            bridge.aggregated = 1;
                            bridge.aggregatedCost = -200000;
                            bridge.aggregatedPriority = 128;
                            bridge.aggregatedEdge = 1;
                            bridge.aggregatedPointToPoint = 2;
                        }),
                        "spanning-tree priority -32768\n"
                        "spanning-tree max-age 20\n"
                        "spanning-tree hello-time 2\n"
                        "spanning-tree delay-time 15\n"
                        "spanning-tree version normal\n"
                        "spanning-tree aggregated-port\n"
                        "spanning-tree aggregated-port cost -200000\n"
                        "spanning-tree aggregated-port priority 128\n"
                        "spanning-tree aggregated-port edge\n"
                        "spanning-tree aggregated-port p2p auto\n"},
                   }));

ROWS(Bpdus, ({
                {"all permitted", Mode::full, bpdu, nothing,
                 "switch bpdu 00-0F permit\n"
                 "switch bpdu 20-2F permit\n"
                 "switch bpdu 10 permit\n"},
                {"all blocked", Mode::full, bpdu, bpdusFrom(0, {1, 2, 255}),
                 "no switch bpdu 00-0F\n"
                 "no switch bpdu 20-2F\n"
                 "no switch bpdu 10\n"},
                {"the first byte is the second line", Mode::full, bpdu, bpdusFrom(0, {1, 0, 0}),
                 "switch bpdu 00-0F permit\n"
                 "no switch bpdu 20-2F\n"
                 "switch bpdu 10 permit\n"},
                {"the second byte is the first line", Mode::full, bpdu, bpdusFrom(0, {0, 1, 0}),
                 "no switch bpdu 00-0F\n"
                 "switch bpdu 20-2F permit\n"
                 "switch bpdu 10 permit\n"},
                {"same in both images", Mode::delta, bpdu, bpdusFrom(1, {1, 1, 1}), ""},
                {"all blocked", Mode::delta, bpdu, bpdusFrom(0, {1, 1, 1}),
                 "no switch bpdu 00-0F\n"
                 "no switch bpdu 20-2F\n"
                 "no switch bpdu 10\n"},
                {"all permitted", Mode::delta, bpdu, bpdusFrom(1, {0, 0, 0}),
                 "switch bpdu 00-0F permit\n"
                 "switch bpdu 20-2F permit\n"
                 "switch bpdu 10 permit\n"},
                {"20 to 2F", Mode::delta, bpdu, bpdusFrom(1, {0, 1, 1}), "switch bpdu 20-2F permit\n"},
                {"00 to 0F", Mode::delta, bpdu, bpdusFrom(1, {1, 0, 1}), "switch bpdu 00-0F permit\n"},
                {"10", Mode::delta, bpdu, bpdusFrom(1, {1, 1, 0}), "switch bpdu 10 permit\n"},
                {"blocked with another value", Mode::delta, bpdu, bpdusFrom(1, {1, 1, 2}), "no switch bpdu 10\n"},
            }));

ROWS(SpanningTreePorts,
     ({
         {"zero image", Mode::full, stpPorts, nothing,
          "interface 1-28 \nno spanning-tree\nexit\n"
          "interface 1-28 \nspanning-tree cost 0\nexit\n"
          "interface 1-28 \nspanning-tree priority 0\nexit\n"
          "interface 1-28 \nno spanning-tree edge\nexit\n"
          "interface 1-28 \nspanning-tree p2p forced_true\nexit\n"},
         {"values without a line", Mode::full, stpPorts, both(quietStp), ""},
         {"off before on", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.enabled[0] = 1;
              port.enabled[1] = 0;
              port.enabled[2] = 256;
              port.enabled[27] = 1;
          }),
          "interface 2 \nno spanning-tree\nexit\n"
          "interface 1,28 \nspanning-tree\nexit\n"},
         {"one cost", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              for (be_i32 &cost : port.cost) cost = 200000;
          }),
          "interface 1-28 \nspanning-tree cost 200000\nexit\n"},
         {"costs in the order of their lowest port", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.cost[0] = 10;
              port.cost[1] = 20;
              port.cost[2] = 10;
          }),
          "interface 1,3 \nspanning-tree cost 10\nexit\n"
          "interface 2 \nspanning-tree cost 20\nexit\n"},
         {"negative costs", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.cost[0] = -5;
              port.cost[1] = INT32_MIN;
              port.cost[2] = -5;
              port.cost[3] = INT32_MAX;
              port.cost[27] = 0;
          }),
          "interface 4 \nspanning-tree cost 2147483647\nexit\n"
          "interface 28 \nspanning-tree cost 0\nexit\n"},
         {"costs that differ by 256", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.cost[0] = 1;
              port.cost[1] = 257;
          }),
          "interface 1 \nspanning-tree cost 1\nexit\n"
          "interface 2 \nspanning-tree cost 257\nexit\n"},
         {"priorities", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.priority[0] = 128;
              port.priority[1] = -128;
              port.priority[2] = 0;
              port.priority[26] = 128;
              port.priority[27] = 128;
          }),
          "interface 1,27,28 \nspanning-tree priority 128\nexit\n"
          "interface 3 \nspanning-tree priority 0\nexit\n"},
         {"edge ports", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.edge[0] = 1;
              port.edge[1] = 0;
              port.edge[2] = 256;
              port.edge[27] = 0;
          }),
          "interface 2,28 \nno spanning-tree edge\nexit\n"
          "interface 1 \nspanning-tree edge\nexit\n"},
         {"point to point", Mode::full, stpPorts, quietStpBut([](StpPorts &port) {
              port.pointToPoint[0] = 2;
              port.pointToPoint[1] = 1;
              port.pointToPoint[2] = 0;
              port.pointToPoint[3] = 256;
              port.pointToPoint[27] = 2;
          }),
          "interface 3 \nspanning-tree p2p forced_true\nexit\n"
          "interface 2 \nspanning-tree p2p forced_false\nexit\n"
          "interface 1,28 \nspanning-tree p2p auto\nexit\n"},
         {"same in both images", Mode::delta, stpPorts, stpPortsChanged([](StpPorts &) {}), ""},
         {"a switch changed", Mode::delta, stpPorts, stpPortsChanged([](StpPorts &port) { port.enabled[27] = 0; }),
          "interface 28 \nno spanning-tree\nexit\n"
          "interface 1 \nspanning-tree\nexit\n"},
         {"a cost changed", Mode::delta, stpPorts, stpPortsChanged([](StpPorts &port) { port.cost[27] = 11; }),
          "interface 2 \nspanning-tree cost 10\nexit\n"
          "interface 28 \nspanning-tree cost 11\nexit\n"},
         {"a cost changed among the negative ones", Mode::delta, stpPorts,
          stpPortsChanged([](StpPorts &port) { port.cost[27] = -9; }), "interface 2 \nspanning-tree cost 10\nexit\n"},
         {"a priority changed", Mode::delta, stpPorts, stpPortsChanged([](StpPorts &port) { port.priority[0] = 20; }),
          "interface 1,3 \nspanning-tree priority 20\nexit\n"},
         {"an edge changed", Mode::delta, stpPorts, stpPortsChanged([](StpPorts &port) { port.edge[27] = 0; }),
          "interface 28 \nno spanning-tree edge\nexit\n"
          "interface 4 \nspanning-tree edge\nexit\n"},
         {"a point to point changed", Mode::delta, stpPorts, stpPortsChanged([](StpPorts &port) {
              port.pointToPoint[0] = 0;
              port.pointToPoint[1] = 1;
          }),
          "interface 1 \nspanning-tree p2p forced_true\nexit\n"
          "interface 2 \nspanning-tree p2p forced_false\nexit\n"
          "interface 5 \nspanning-tree p2p auto\nexit\n"},
         {"all of it", Mode::delta, stpPorts, defaults([](ConfigImage &image) { quietStp(image); }),
          "interface 1-28 \nno spanning-tree\nexit\n"
          "interface 1-28 \nspanning-tree cost 0\nexit\n"
          "interface 1-28 \nspanning-tree priority 0\nexit\n"
          "interface 1-28 \nno spanning-tree edge\nexit\n"
          "interface 1-28 \nspanning-tree p2p forced_true\nexit\n"},
     }));
