#include "sections/qos.h"

#include "format/port_list.h"
#include "format/section_lines.h"

// -------------------------------------------------------------------------------------------- priorities and queues

/// Appends `line` with the list of what is mapped to each queue from 0 to 7 and the queue.
template <std::size_t Count> static void appendQueueMap(const u8 (&queueOf)[Count], Format<char[4 * Count], int> line) {
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
        append(line, list, queue);
    }
}

static int write(const SectionLines<PriorityConfig> &priority) {
    const PriorityConfig &current = priority.current;
    priority.code(&PriorityConfig::mode,
                  {{0, "no qos\n"}, {1, "qos port-based\n"}, {2, "qos 802.1p\n"}, {3, "qos dscp\n"}, {4, "qos vid\n"}});
    if (priority.due(&PriorityConfig::queueOfDscp)) appendQueueMap(current.queueOfDscp, "qos dscp-map %s %d\n");
    priority.code(&PriorityConfig::queuingMode, {{0, "qos queuing-mode weight\n"}, {1, "no qos queuing-mode\n"}});
    if (priority.due(&PriorityConfig::queues)) {
        const be_i32(&weight)[8] = current.queues.weight;
        append("qos queue-weighted %ld:%ld:%ld:%ld:%ld:%ld:%ld:%ld\n", weight[0], weight[1], weight[2], weight[3],
               weight[4], weight[5], weight[6], weight[7]);
    }
    // Delta mode has no lines for the 802.1p map.
    if (priority.full) appendQueueMap(current.queueOf8021p, "qos 802.1p-map %s %d\n");
    return 0;
}

int full::convConfigPriorityConfig_PriorityConfig_configure_qos(const PriorityConfig &current) {
    return trace(), write({current});
}

int delta::convConfigPriorityConfig_PriorityConfig_configure_qos(const PriorityConfig &current,
                                                                 const PriorityConfig &defaults) {
    return trace(), write({current, defaults});
}

// -------------------------------------------------------------------------------------------------------- remarking

static int write(const SectionLines<Remarking> &remarking) {
    remarking.code(
        &Remarking::dscpMode,
        {{0, "no qos remarking dscp\n"}, {1, "qos remarking dscp by-dscp\n"}, {2, "qos remarking dscp by-port\n"}});
    remarking.onOff(&Remarking::remark8021p, "qos remarking 802.1p\n", "no qos remarking 802.1p\n");
    return 0;
}

int full::convConfigDSCPRemark_DSCPRemark_configure_qos(const Remarking &current) { return trace(), write({current}); }

int delta::convConfigDSCPRemark_DSCPRemark_configure_qos(const Remarking &current, const Remarking &defaults) {
    return trace(), write({current, defaults});
}

/// Delta mode sets the markers of all entries in both images and leaves them set, so that they never make a difference.
/// The bytes that are not read do: they give a block that has a head and an end alone.
template <class Entry, std::size_t Count> static void setMarkers(Entry (&current)[Count], Entry (&defaults)[Count]) {
    for (Entry &entry : current) entry.marker = 1;
    for (Entry &entry : defaults) entry.marker = 1;
}

static int write(const SectionLines<RemarkDscp[8]> &entries) {
    for (int i = 0; i < 8; ++i) {
        const auto entry = entries[static_cast<std::size_t>(i)];
        if (!entry.changed()) continue;
        append("qos remarking dscp-map %d\n", i + 1);
        entry.value(&RemarkDscp::receivedDscp, "rx-dscp %d\n");
        entry.value(&RemarkDscp::newDscp, "new-dscp %d\n");
        append("exit\n");
    }
    return 0;
}

int full::convConfigDSCPPriority_DSCPPriority_configure_qos_remarking(const Remarking &current) {
    return trace(), write({current.dscp});
}

int delta::convConfigDSCPPriority_DSCPPriority_configure_qos_remarking(Remarking &current, Remarking &defaults) {
    trace();
    setMarkers(current.dscp, defaults.dscp);
    return write({current.dscp, defaults.dscp});
}

static int write(const SectionLines<RemarkPriority[8]> &entries) {
    for (int i = 0; i < 8; ++i) {
        const auto entry = entries[static_cast<std::size_t>(i)];
        if (!entry.changed()) continue;
        append("qos remarking 802.1p-map %d\n", i + 1);
        entry.value(&RemarkPriority::newPriority, "priority %d\n");
        append("exit\n");
    }
    return 0;
}

int full::PbitPriorityFunc_configure_qos_remarking() {
    // Does not trace in this mode.
    return write({gSysConfig->remarking.priority});
}

int delta::PbitPriorityFunc_configure_qos_remarking(Remarking &current, Remarking &defaults) {
    trace();
    setMarkers(current.priority, defaults.priority);
    return write({current.priority, defaults.priority});
}

// ---------------------------------------------------------------------------------------------- management traffic

static int writeManagementPriority(const SectionLines<PriorityConfig> &priority) {
    priority.value(&PriorityConfig::managementPriority, "qos management-priority %d\n");
    return 0;
}

int full::convConfigVLANConfig_mid_sys_vlan_config_configure_qos(const PriorityConfig &current) {
    return trace(), writeManagementPriority({current});
}

int delta::convConfigVLANConfig_mid_sys_vlan_config_configure_qos(const PriorityConfig &current,
                                                                  const PriorityConfig &defaults) {
    return trace(), writeManagementPriority({current, defaults});
}

// --------------------------------------------------------------------------------------------- rate limits of ports

namespace {

/// Marks a port whose rate was written. A rate of 1 is therefore never written, in either mode.
constexpr std::uint32_t writtenRate = 1;

void appendRates(const PortValues<portCount> &rates, Format<std::uint32_t> limit, Line none) {
    for (const PortGroup &group : groupsOf(rates, writtenRate)) {
        append("interface %s\n", group.ports);
        if (group.value != 0) append(limit, group.value);
        else append(none);
        append("exit\n");
    }
}

/// Of the two sets of ports only the ports that are not in the set have a block. Delta mode compares every bit of a
/// set.
int write(const SectionLines<RateLimits> &rates) {
    const RateLimits &current = rates.current;
    if (rates.due(&RateLimits::ingress))
        appendRates(valuesOf(current.ingress), "qos rate-limit ingress %d\n", "no qos rate-limit ingress\n");
    rates.blocks(&RateLimits::ingressPorts, "interface %s \n", {{0, "qos rate-limit ingress 0\n"}});
    if (rates.due(&RateLimits::egress))
        appendRates(valuesOf(current.egress), "qos rate-limit egress %d\n", "no qos rate-limit egress\n");
    if (rates.due(&RateLimits::egressPorts))
        appendValueBlocks("interface %s \n", valuesOf(current.egressPorts),
                          {{0, LineForms{"qos rate-limit egress 0 \n", "qos rate-limit egress 0\n"}.in(rates.full)}});
    return 0;
}

} // namespace

int full::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos(const RateLimits &current) {
    return trace(), write({current});
}

int delta::convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_qos(const RateLimits &current,
                                                                               const RateLimits &defaults) {
    return trace(), write({current, defaults});
}

// ------------------------------------------------------------------------------------------ user priority of ports

namespace {

/// Marks a port whose priority was written. A priority of 9 is therefore never written, in either mode.
constexpr std::uint32_t writtenPriority = 9;

int writeUserPriorities(const SectionLines<PriorityConfig> &priority) {
    // One byte more than there are ports is compared: it is the management priority.
    if (!priority.due(&PriorityConfig::userPriority) && !priority.due(&PriorityConfig::managementPriority)) return 0;
    for (const PortGroup &group : groupsOf(valuesOf(priority.current.userPriority), writtenPriority)) {
        append("interface %s\n", group.ports);
        append("qos user-priority %d\n", group.value);
        append("exit\n");
    }
    return 0;
}

} // namespace

int full::convConfigVLANConfig_VLANConfig_configure_interface_qos(const PriorityConfig &current) {
    return trace(), writeUserPriorities({current});
}

int delta::convConfigVLANConfig_VLANConfig_configure_interface_qos(const PriorityConfig &current,
                                                                   const PriorityConfig &defaults) {
    return trace(), writeUserPriorities({current, defaults});
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
