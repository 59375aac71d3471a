#include "sections/interface.h"

#include "app/text/text.h"
#include "format/blocks.h"
#include "platform/board.h"

#include <array>

// ------------------------------------------------------------------------------------------------- physical ports

namespace {

/// An attribute of a port and the lines of its values. The lines have no blank in front, and whether the "no" form
/// comes first differs between attributes: both are the format.
struct PortAttribute {
    be32 PortSettings::*field;
    std::initializer_list<ValueLine> lines;
};

/// Calls `render` for each attribute, in output order.
template <class Render> void forEachPortAttribute(Render render) {
    render({&PortSettings::administrativeState, {{1, "shutdown\n"}, {0, "no shutdown\n"}}});
    render({&PortSettings::mediaType, {{0, "no media-type\n"}, {1, "media-type sfp\n"}}});
    render({&PortSettings::autoNegotiation, {{1, "auto-negotiation\n"}, {0, "no auto-negotiation\n"}}});
    render({&PortSettings::speed,
            {{0, "speed 10\n"}, {1, "speed 100\n"}, {2, "speed 1000\n"}, {3, "speed auto_sense\n"}}});
    render({&PortSettings::duplex, {{0, "no duplex\n"}, {1, "duplex full\n"}}});
    render({&PortSettings::flowControl, {{0, "no flowcontrol\n"}, {1, "flowcontrol\n"}}});
}

/// Descriptions that differ from the default, in both modes alike. A joined port is marked with the default description
/// of the port that leads the block, not with its own: where those differ it is written once more.
void appendDescriptions() {
    const auto defaultOf = [](std::size_t port) { return gDefConfig->ports[port].description; };
    appendNameBlocks(textsOf(gSysConfig->ports, &PortSettings::description), defaultOf, defaultOf, "description %s \n");
}

} // namespace

int full::PortConfigFunc_configure_interface() {
    // Does not trace in this mode.
    forEachPortAttribute([](const PortAttribute &attribute) {
        appendValueBlocks(wordsOf(gSysConfig->ports, attribute.field), attribute.lines);
    });
    appendDescriptions();
    return 0;
}

int delta::PortConfigFunc_configure_interface() {
    trace();
    forEachPortAttribute([](const PortAttribute &attribute) {
        const PortWords current = wordsOf(gSysConfig->ports, attribute.field);
        if (current != wordsOf(gDefConfig->ports, attribute.field)) appendValueBlocks(current, attribute.lines);
    });
    appendDescriptions();
    return 0;
}

int full::PortConfigFunc_configure_interface_lan() { return 0; }
int full::PortConfigFunc_configure_interface_wan() { return 0; }
int full::InterfaceGroup_configure_ip_group() { return 0; }

int full::WifiConfigFunc_configure_interface() { return trace(); }

// --------------------------------------------------------------------------------------------- Power over Ethernet

int full::convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &current) {
    trace();
    if (!g_EEPROM.hasPoe()) return 0;
    // The blank that ends most of these lines stands in this mode only.
    appendSwitch(isOn(current.enabled), "poe \n", "no poe\n");
    append("poe alarm-threshold %d \n", current.alarmThreshold);
    appendSwitch(isOn(current.fixedBudget), "poe budget-mode fixed\n", "poe budget-mode class\n");
    appendSwitch(isOn(current.eventLog), "poe eventlog \n", "no poe eventlog \n");
    appendSwitch(isOn(current.syslog), "poe syslog \n", "no poe syslog \n");
    appendSwitch(isOn(current.traps), "poe traps \n", "no poe traps \n");
    return 0;
}

int delta::convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &current, const PoeConfig &defaults) {
    trace();
    if (!g_EEPROM.hasPoe()) return 0;
    if (current.enabled != defaults.enabled) appendSwitch(isOn(current.enabled), "poe\n", "no poe\n");
    if (current.alarmThreshold != defaults.alarmThreshold) append("poe alarm-threshold %d\n", current.alarmThreshold);
    if (current.fixedBudget != defaults.fixedBudget)
        appendSwitch(isOn(current.fixedBudget), "poe budget-mode fixed\n", "poe budget-mode class\n");
    if (current.eventLog != defaults.eventLog)
        appendSwitch(isOn(current.eventLog), "poe eventlog\n", "no poe eventlog\n");
    if (current.syslog != defaults.syslog) appendSwitch(isOn(current.syslog), "poe syslog\n", "no poe syslog\n");
    if (current.traps != defaults.traps) appendSwitch(isOn(current.traps), "poe traps\n", "no poe traps\n");
    return 0;
}

namespace {

using PoeWords = std::array<std::uint32_t, poePortCount>;

void appendPoeEnabled(const PoePortTable &table) {
    appendValueBlocks(wordsOf(table, &PoePort::enabled), {{1, "poe\n"}, {0, "no poe\n"}});
}

void appendPoePriorities(const PoePortTable &table) {
    appendValueBlocks(wordsOf(table, &PoePort::priority),
                      {{0, "poe priority critical\n"}, {1, "poe priority high\n"}, {2, "poe priority low\n"}});
}

void appendPoeSchedulesEnabled(const PoePortTable &table) {
    appendValueBlocks(wordsOf(table, &PoePort::scheduleEnabled), {{1, "poe schedule\n"}, {0, "no poe schedule\n"}});
}

void appendPoeBudget(const PoeWords &members, std::uint32_t budget) {
    appendInterface(members, 1);
    append("poe budget %d\n", budget);
    append("exit\n");
}

/// Marks a port whose budget was written. A budget of 1 is therefore never written.
constexpr std::uint32_t writtenBudget = 1;

/// The ports whose budget is 0, as words 1.
PoeWords portsWithoutBudget(const PoePortTable &table) {
    PoeWords ports = wordsOf(table, &PoePort::budget);
    for (std::uint32_t &port : ports) port = port == 0;
    return ports;
}

/// Device names that differ from the default, in both modes alike. A joined port is marked as in `appendDescriptions`.
void appendPoeDeviceNames(const PoePortTable &current, const PoePortTable &defaults) {
    const auto defaultOf = [&defaults](std::size_t port) { return defaults[port].deviceName; };
    appendNameBlocks(textsOf(current, &PoePort::deviceName), defaultOf, defaultOf, "poe pdname %s \n");
}

} // namespace

// The line of a schedule's name ends with a blank in this mode only.
int full::convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &current,
                                                                const PoePortTable &defaults) {
    trace();
    if (!g_EEPROM.hasPoe()) return 0;
    appendPoeEnabled(current);
    forEachGroup<std::uint32_t>(
        wordsOf(current, &PoePort::budget), writtenBudget,
        [](std::uint32_t budget, const PoeWords &members) { appendPoeBudget(members, budget); });
    appendPoeDeviceNames(current, defaults);
    appendPoePriorities(current);
    const auto defaultOf = [&defaults](std::size_t port) { return defaults[port].scheduleName; };
    appendNameBlocks(textsOf(current, &PoePort::scheduleName), defaultOf, defaultOf, "poe schedule %s \n");
    appendPoeSchedulesEnabled(current);
    return 0;
}

// Only a budget of 0 opens a group here, so that there is one group at most, led by the first port without a budget. It
// is written unless the default image has the very same group; one that stands in the default image alone is not.
int delta::convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &current,
                                                                 const PoePortTable &defaults) {
    trace();
    if (!g_EEPROM.hasPoe()) return 0;
    if (wordsOf(current, &PoePort::enabled) != wordsOf(defaults, &PoePort::enabled)) appendPoeEnabled(current);
    const PoeWords unbudgeted = portsWithoutBudget(current);
    if (CHECK_HAS_MEMBER_INT_NUM(unbudgeted.data(), 1, poePortCount) != 0 && unbudgeted != portsWithoutBudget(defaults))
        appendPoeBudget(unbudgeted, 0);
    appendPoeDeviceNames(current, defaults);
    if (wordsOf(current, &PoePort::priority) != wordsOf(defaults, &PoePort::priority)) appendPoePriorities(current);
    const auto defaultOf = [&defaults](std::size_t port) { return defaults[port].scheduleName; };
    appendNameBlocks(textsOf(current, &PoePort::scheduleName), defaultOf, defaultOf, "poe schedule %s\n");
    if (wordsOf(current, &PoePort::scheduleEnabled) != wordsOf(defaults, &PoePort::scheduleEnabled))
        appendPoeSchedulesEnabled(current);
    return 0;
}
