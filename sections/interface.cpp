#include "sections/interface.h"

#include "format/section_lines.h"
#include "platform/board.h"

// ------------------------------------------------------------------------------------------------- physical ports

/// A setting of the ports: a block for each value.
template <std::size_t Ports, class Record, class Field>
static void appendPortBlocks(const SectionLines<Record[Ports]> &ports, Field Record::*field,
                             std::initializer_list<ValueLine> lines) {
    const PortValues<Ports> values = valuesOf(ports.current, field);
    if (ports.full || values != valuesOf(ports.defaults, field)) appendValueBlocks("interface %s \n", values, lines);
}

/// Descriptions that differ from the default, in full mode too. A joined port is marked with the default description of
/// the port that leads the block, not with its own: where those differ it is written once more.
static void appendDescriptions() {
    const auto defaultOf = [](std::size_t port) { return gDefConfig->ports[port].description; };
    appendNameBlocks("interface %s\n", textsOf(gSysConfig->ports, &PortSettings::description), defaultOf, defaultOf,
                     "description %s \n");
}

/// Whether the "no" form comes first differs between the settings: the order is the format.
static int write(const SectionLines<PortTable> &ports) {
    appendPortBlocks(ports, &PortSettings::administrativeState, {{1, "shutdown\n"}, {0, "no shutdown\n"}});
    appendPortBlocks(ports, &PortSettings::mediaType, {{0, "no media-type\n"}, {1, "media-type sfp\n"}});
    appendPortBlocks(ports, &PortSettings::autoNegotiation, {{1, "auto-negotiation\n"}, {0, "no auto-negotiation\n"}});
    appendPortBlocks(ports, &PortSettings::speed,
                     {{0, "speed 10\n"}, {1, "speed 100\n"}, {2, "speed 1000\n"}, {3, "speed auto_sense\n"}});
    appendPortBlocks(ports, &PortSettings::duplex, {{0, "no duplex\n"}, {1, "duplex full\n"}});
    appendPortBlocks(ports, &PortSettings::flowControl, {{0, "no flowcontrol\n"}, {1, "flowcontrol\n"}});
    appendDescriptions();
    return 0;
}

int full::PortConfigFunc_configure_interface() {
    // Does not trace in this mode.
    return write({gSysConfig->ports});
}

int delta::PortConfigFunc_configure_interface() { return trace(), write({gSysConfig->ports, gDefConfig->ports}); }

int full::PortConfigFunc_configure_interface_lan() { return 0; }
int full::PortConfigFunc_configure_interface_wan() { return 0; }
int full::InterfaceGroup_configure_ip_group() { return 0; }

int full::WifiConfigFunc_configure_interface() { return trace(); }

// --------------------------------------------------------------------------------------------- Power over Ethernet

static int write(const SectionLines<PoeConfig> &poe) {
    if (!g_EEPROM.hasPoe()) return 0;
    poe.onOff(&PoeConfig::enabled, {"poe \n", "poe\n"}, "no poe\n");
    poe.value(&PoeConfig::alarmThreshold, {"poe alarm-threshold %d \n", "poe alarm-threshold %d\n"});
    poe.onOff(&PoeConfig::fixedBudget, "poe budget-mode fixed\n", "poe budget-mode class\n");
    poe.onOff(&PoeConfig::eventLog, {"poe eventlog \n", "poe eventlog\n"}, {"no poe eventlog \n", "no poe eventlog\n"});
    poe.onOff(&PoeConfig::syslog, {"poe syslog \n", "poe syslog\n"}, {"no poe syslog \n", "no poe syslog\n"});
    poe.onOff(&PoeConfig::traps, {"poe traps \n", "poe traps\n"}, {"no poe traps \n", "no poe traps\n"});
    return 0;
}

int full::convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &current) { return trace(), write({current}); }

int delta::convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &current, const PoeConfig &defaults) {
    return trace(), write({current, defaults});
}

namespace {

void appendBudget(const PortGroup &group) {
    append("interface %s \n", group.ports);
    append("poe budget %d\n", group.value);
    append("exit\n");
}

/// Marks a port whose budget was written. A budget of 1 is therefore never written.
constexpr std::uint32_t writtenBudget = 1;

/// Full mode writes every budget. In delta mode only a budget of 0 opens a group, led by the first port without a
/// budget. It is written unless the default image has the very same group; one of the default image alone is not.
void appendBudgets(const SectionLines<PoePortTable> &ports) {
    const PortValues<poePortCount> budgets = valuesOf(ports.current, &PoePort::budget);
    if (ports.full) {
        for (const PortGroup &group : groupsOf(budgets, writtenBudget)) appendBudget(group);
    } else {
        const PortSet unbudgeted = portsWith(budgets, 0);
        if (!unbudgeted.empty() && !(unbudgeted == portsWith(valuesOf(ports.defaults, &PoePort::budget), 0)))
            appendBudget({0, unbudgeted});
    }
}

/// Names that differ from the default, in full mode too. A joined port is marked as with the descriptions.
void appendPoeNames(const PoePortTable &current, const PoePortTable &defaults, Text<33> PoePort::*name,
                    Format<Text<33>> line) {
    const auto defaultOf = [&](std::size_t port) { return defaults[port].*name; };
    appendNameBlocks("interface %s\n", textsOf(current, name), defaultOf, defaultOf, line);
}

int write(const SectionLines<PoePortTable> &ports, const PoePortTable &defaults) {
    if (!g_EEPROM.hasPoe()) return 0;
    appendPortBlocks(ports, &PoePort::enabled, {{1, "poe\n"}, {0, "no poe\n"}});
    appendBudgets(ports);
    appendPoeNames(ports.current, defaults, &PoePort::deviceName, "poe pdname %s \n");
    appendPortBlocks(ports, &PoePort::priority,
                     {{0, "poe priority critical\n"}, {1, "poe priority high\n"}, {2, "poe priority low\n"}});
    appendPoeNames(ports.current, defaults, &PoePort::scheduleName,
                   FormatForms<Text<33>>{"poe schedule %s \n", "poe schedule %s\n"}.in(ports.full));
    appendPortBlocks(ports, &PoePort::scheduleEnabled, {{1, "poe schedule\n"}, {0, "no poe schedule\n"}});
    return 0;
}

} // namespace

int full::convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &current,
                                                                const PoePortTable &defaults) {
    return trace(), write({current}, defaults);
}

int delta::convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &current,
                                                                 const PoePortTable &defaults) {
    return trace(), write({current, defaults}, defaults);
}
