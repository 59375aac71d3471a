#include "sections/qos.h"

#include "app/text/text.h"
#include "format/blocks.h"

// -------------------------------------------------------------------------------------------- priorities and queues

namespace {

void appendPriorityMode(const PriorityConfig &config) {
    switch (config.mode.value()) {
    case 0: append("no qos\n"); break;
    case 1: append("qos port-based\n"); break;
    case 2: append("qos 802.1p\n"); break;
    case 3: append("qos dscp\n"); break;
    case 4: append("qos vid\n"); break;
    default: break;
    }
}

void appendQueuingMode(const PriorityConfig &config) {
    switch (config.queuingMode.value()) {
    case 0: append("qos queuing-mode weight\n"); break;
    case 1: append("no qos queuing-mode\n"); break;
    default: break;
    }
}

void appendQueueWeights(const PriorityConfig &config) {
    const be_i32(&weight)[8] = config.queues.weight;
    append("qos queue-weighted %ld:%ld:%ld:%ld:%ld:%ld:%ld:%ld\n", weight[0], weight[1], weight[2], weight[3],
           weight[4], weight[5], weight[6], weight[7]);
}

/// Appends `line` with the list of what is mapped to each queue from 0 to 7 and the queue.
template <std::size_t Count> void appendQueueMap(const u8 (&queueOf)[Count], Format<char[4 * Count], int> line) {
    for (int queue = 0; queue < 8; ++queue) {
        u8 mapped[Count];
        bool some = false;
        for (std::size_t i = 0; i < Count; ++i) {
            mapped[i] = queueOf[i] == queue;
            some = some || mapped[i] != 0;
        }
        if (!some) continue;
        char list[4 * Count] = {};
        Array2Str(list, mapped, 0, static_cast<int>(Count) - 1);
        append<char[4 * Count], int>(line, list, queue);
    }
}

} // namespace

int full::convConfigPriorityConfig_PriorityConfig_configure_qos(const PriorityConfig &current) {
    trace();
    appendPriorityMode(current);
    appendQueueMap(current.queueOfDscp, "qos dscp-map %s %d\n");
    appendQueuingMode(current);
    appendQueueWeights(current);
    appendQueueMap(current.queueOf8021p, "qos 802.1p-map %s %d\n");
    return 0;
}

// The 802.1p map has no lines in this mode.
int delta::convConfigPriorityConfig_PriorityConfig_configure_qos(const PriorityConfig &current,
                                                                 const PriorityConfig &defaults) {
    trace();
    if (current.mode != defaults.mode) appendPriorityMode(current);
    if (!sameBytes(current.queueOfDscp, defaults.queueOfDscp))
        appendQueueMap(current.queueOfDscp, "qos dscp-map %s %d\n");
    if (current.queuingMode != defaults.queuingMode) appendQueuingMode(current);
    if (!sameBytes(current.queues, defaults.queues)) appendQueueWeights(current);
    return 0;
}

// -------------------------------------------------------------------------------------------------------- remarking

namespace {

void appendDscpRemarking(const Remarking &config) {
    switch (config.dscpMode) {
    case 0: append("no qos remarking dscp\n"); break;
    case 1: append("qos remarking dscp by-dscp\n"); break;
    case 2: append("qos remarking dscp by-port\n"); break;
    default: break;
    }
}

void append8021pRemarking(const Remarking &config) {
    appendSwitch(isOn(config.remark8021p), "qos remarking 802.1p\n", "no qos remarking 802.1p\n");
}

} // namespace

int full::convConfigDSCPRemark_DSCPRemark_configure_qos(const Remarking &current) {
    trace();
    appendDscpRemarking(current);
    append8021pRemarking(current);
    return 0;
}

int delta::convConfigDSCPRemark_DSCPRemark_configure_qos(const Remarking &current, const Remarking &defaults) {
    trace();
    if (current.dscpMode != defaults.dscpMode) appendDscpRemarking(current);
    if (current.remark8021p != defaults.remark8021p) append8021pRemarking(current);
    return 0;
}

int full::convConfigDSCPPriority_DSCPPriority_configure_qos_remarking(const Remarking &current) {
    trace();
    int number = 1;
    for (const RemarkDscp &entry : current.dscp) {
        append("qos remarking dscp-map %d\n", number++);
        append("rx-dscp %d\n", entry.receivedDscp);
        append("new-dscp %d\n", entry.newDscp);
        append("exit\n");
    }
    return 0;
}

// The markers are set for good, in both images. The byte that is not read counts as a difference all the same: it gives
// a block without lines.
int delta::convConfigDSCPPriority_DSCPPriority_configure_qos_remarking(Remarking &current, Remarking &defaults) {
    trace();
    for (int i = 0; i < 8; ++i) {
        RemarkDscp &entry = current.dscp[i];
        RemarkDscp &standard = defaults.dscp[i];
        entry.marker = 1;
        standard.marker = 1;
        if (sameBytes(entry, standard)) continue;
        append("qos remarking dscp-map %d\n", i + 1);
        if (entry.receivedDscp != standard.receivedDscp) append("rx-dscp %d\n", entry.receivedDscp);
        if (entry.newDscp != standard.newDscp) append("new-dscp %d\n", entry.newDscp);
        append("exit\n");
    }
    return 0;
}

int full::PbitPriorityFunc_configure_qos_remarking() {
    // Does not trace in this mode.
    int number = 1;
    for (const RemarkPriority &entry : gSysConfig->remarking.priority) {
        append("qos remarking 802.1p-map %d\n", number++);
        append("priority %d\n", entry.newPriority);
        append("exit\n");
    }
    return 0;
}

// As for the DSCP entries: the markers stay set, and bytes that are not read count.
int delta::PbitPriorityFunc_configure_qos_remarking(Remarking &current, Remarking &defaults) {
    trace();
    for (int i = 0; i < 8; ++i) {
        RemarkPriority &entry = current.priority[i];
        RemarkPriority &standard = defaults.priority[i];
        entry.marker = 1;
        standard.marker = 1;
        if (sameBytes(entry, standard)) continue;
        append("qos remarking 802.1p-map %d\n", i + 1);
        if (entry.newPriority != standard.newPriority) append("priority %d\n", entry.newPriority);
        append("exit\n");
    }
    return 0;
}

// ---------------------------------------------------------------------------------------------- management traffic

int full::convConfigVLANConfig_mid_sys_vlan_config_configure_qos(const PriorityConfig &current) {
    trace();
    append("qos management-priority %d\n", current.managementPriority);
    return 0;
}

int delta::convConfigVLANConfig_mid_sys_vlan_config_configure_qos(const PriorityConfig &current,
                                                                  const PriorityConfig &defaults) {
    trace();
    if (current.managementPriority != defaults.managementPriority)
        append("qos management-priority %d\n", current.managementPriority);
    return 0;
}

// --------------------------------------------------------------------------------------------- rate limits of ports

namespace {

/// Marks a port whose rate was written. A rate of 1 is therefore never written, in either mode.
constexpr std::uint32_t writtenRate = 1;

void appendIngressRates(const RateLimits &config) {
    forEachGroup<u8>(wordsOf(config.ingress), writtenRate, [](std::uint32_t rate, const PortBytes &members) {
        appendInterface(members, 1);
        if (rate != 0) append("qos rate-limit ingress %d\n", rate);
        else append("no qos rate-limit ingress\n");
        append("exit\n");
    });
}

void appendEgressRates(const RateLimits &config) {
    forEachGroup<u8>(wordsOf(config.egress), writtenRate, [](std::uint32_t rate, const PortBytes &members) {
        appendInterface(members, 1);
        if (rate != 0) append("qos rate-limit egress %d\n", rate);
        else append("no qos rate-limit egress\n");
        append("exit\n");
    });
}

} // namespace

// Only the ports that are not in a set of limited ones have a block for it; the egress line ends with a blank.
int full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos(const RateLimits &current) {
    trace();
    appendIngressRates(current);
    appendValueBlocks(wordsOf(current.ingressPorts), {{0, "qos rate-limit ingress 0\n"}});
    appendEgressRates(current);
    appendValueBlocks(wordsOf(current.egressPorts), {{0, "qos rate-limit egress 0 \n"}});
    return 0;
}

// Here the egress line has no blank.
int delta::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos(const RateLimits &current,
                                                                               const RateLimits &defaults) {
    trace();
    if (!sameBytes(current.ingress, defaults.ingress)) appendIngressRates(current);
    if (!sameBytes(current.ingressPorts, defaults.ingressPorts))
        appendValueBlocks(wordsOf(current.ingressPorts), {{0, "qos rate-limit ingress 0\n"}});
    if (!sameBytes(current.egress, defaults.egress)) appendEgressRates(current);
    if (!sameBytes(current.egressPorts, defaults.egressPorts))
        appendValueBlocks(wordsOf(current.egressPorts), {{0, "qos rate-limit egress 0\n"}});
    return 0;
}

// ------------------------------------------------------------------------------------------ user priority of ports

namespace {

/// Marks a port whose priority was written. A priority of 9 is therefore never written, in either mode.
constexpr std::uint32_t writtenPriority = 9;

void appendUserPriorities(const PriorityConfig &config) {
    PortWords priorities;
    for (std::size_t port = 0; port < portCount; ++port) priorities[port] = config.userPriority[port];
    forEachGroup<u8>(priorities, writtenPriority, [](std::uint32_t priority, const PortBytes &members) {
        appendInterface(members, 1);
        append("qos user-priority %d\n", priority);
        append("exit\n");
    });
}

} // namespace

int full::convConfigVLANConfig_VLANConfig_configure_interface_qos(const PriorityConfig &current) {
    trace();
    appendUserPriorities(current);
    return 0;
}

// 29 bytes are compared, one more than there are ports: the last is the management priority.
int delta::convConfigVLANConfig_VLANConfig_configure_interface_qos(const PriorityConfig &current,
                                                                   const PriorityConfig &defaults) {
    trace();
    const bool same = sameBytes(current.userPriority, defaults.userPriority) &&
                      current.managementPriority == defaults.managementPriority;
    if (!same) appendUserPriorities(current);
    return 0;
}

// ------------------------------------------------------------------------------------------- sections without text

int full::convConfigPriorityConfig_PriorityConfig_configure_interface_qos() { return trace(); }

int full::convConfigDSCPRemark_DSCPRemark_configure_interface_qos() { return trace(); }

int full::convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos() { return trace(); }

int full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos() { return trace(); }

int full::convConfigVLANConfig_VLANConfig_configure_interface_lan_qos() { return trace(); }

int full::convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos() { return trace(); }

int full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos() { return trace(); }

int full::convConfigVLANConfig_VLANConfig_configure_interface_wan_qos() { return trace(); }
