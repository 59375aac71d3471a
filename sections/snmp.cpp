#include "sections/snmp.h"

#include "format/section_lines.h"
#include "platform/board.h"
#include "platform/util.h"

#include <iterator>

// ---------------------------------------------------------------------------------------------------------- agent

static int write(const SectionLines<ServiceConfig> &service) {
    service.onOff(&ServiceConfig::snmpEnabled, "snmp-server\n", "no snmp-server\n");
    return 0;
}

int full::convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server(const ServiceConfig &current) {
    return trace(), write({current});
}

int delta::convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server(const ServiceConfig &current,
                                                                             const ServiceConfig &defaults) {
    return trace(), write({current, defaults});
}

// ---------------------------------------------------------------------------------------------------- communities

static void appendRemoval(const Community &community) { append("no snmp-server community %s\n", community.name); }

/// The lines of a community after its head, up to and with "exit". A level that is not set has no line.
static void writeBody(const SectionLines<Community> &community) {
    const Community &current = community.current;
    community.onOff(&Community::active, "active\n", "no active\n");
    const bool changed = community.full ||
                         !sameText(current.description, community.defaults.description, Community::comparedDescription);
    if (changed && !current.description.empty()) append("description %s\n", current.description);
    if (community.due(&Community::level) && current.level != 0 &&
        !appendValueLine(current.level, {{1, "level ro\n"}, {2, "level rw\n"}, {3, "level admin\n"}}))
        append("level unknown\n");
    append("exit\n");
}

static void appendHead(const Community &community) { append("snmp-server community %s\n", community.name); }

// Full mode removes every community of the default image first, also one that the current image has too. A community
// without a name has no head there, but its body all the same; in delta mode it is left out.

int full::convConfigAgent_Agent_configure_snmp_server(const CommunityTable &current, const CommunityTable &defaults) {
    trace();
    for (const Community &community : defaults)
        if (isOn(community.inUse) && !community.name.empty()) appendRemoval(community);
    for (const Community &community : current) {
        if (!isOn(community.inUse)) continue;
        if (!community.name.empty()) appendHead(community);
        writeBody({community});
    }
    return 0;
}

int delta::convConfigAgent_Agent_configure_snmp_server(const CommunityTable &current, const CommunityTable &defaults) {
    trace();
    for (std::size_t i = 0; i < std::size(current); ++i)
        if (isOn(defaults[i].inUse) && !defaults[i].name.empty() && !sameText(defaults[i].name, current[i].name))
            appendRemoval(defaults[i]);
    for (std::size_t i = 0; i < std::size(current); ++i) {
        const Community &community = current[i];
        if (!isOn(community.inUse) || community.name.empty() || sameBytes(community, defaults[i])) continue;
        appendHead(community);
        writeBody({community, defaults[i]});
    }
    return 0;
}

// ---------------------------------------------------------------------------------------------- trap destinations

static int write(const SectionLines<TrapDestinationTable> &table) {
    for (std::size_t i = 0; i < std::size(table.current); ++i) {
        const auto destination = table[i];
        const TrapDestination &current = destination.current;
        if (!isOn(current.inUse) || !destination.changed()) continue;
        append("snmp-server trap-destination %d\n", static_cast<int>(i + 1));
        destination.onOff(&TrapDestination::active, "active\n", "no active\n");
        if (destination.due(&TrapDestination::community) && !current.community.empty())
            append("community %s\n", current.community);
        const auto address = [](const TrapDestination &from) { return ipv4First(from.address, from.addressIpv6); };
        if (destination.dueBy(address)) append("destination %s\n", address(current));
        append("exit\n");
    }
    return 0;
}

int full::convConfigTrapDest_TrapDest_configure_snmp_server(const TrapDestinationTable &current) {
    return trace(), write({current});
}

int delta::convConfigTrapDest_TrapDest_configure_snmp_server(const TrapDestinationTable &current,
                                                             const TrapDestinationTable &defaults) {
    return trace(), write({current, defaults});
}

// ----------------------------------------------------------------------------------------------------- trap types

namespace {

/// A type of trap on this board: its flag as stored, in the current and in the default image, and its two lines.
struct TrapType {
    bool fitted; ///< the board has the hardware; a type without it is neither written nor counted
    u8 current;
    u8 defaults;
    Line on;
    Line off;
};

u8 portLink(const TrapConfig &traps) { return static_cast<u8>(utilBitmapCheck(traps.portLink.bytes, 0) != 0); }

/// If the types agree there is one line for all of them. `current` and `defaults` are the same record in full mode.
int write(const SectionLines<TrapConfig> &traps) {
    const TrapConfig &current = traps.current;
    const TrapConfig &defaults = traps.defaults;
    // The order is that of the text, not that of the record.
    const TrapType types[] = {
        {true, current.coldStart, defaults.coldStart, "snmp-server trap-type cold-start\n",
         "no snmp-server trap-type cold-start\n"},
        {true, current.warmStart, defaults.warmStart, "snmp-server trap-type warm-start\n",
         "no snmp-server trap-type warm-start\n"},
        {true, current.authFail, defaults.authFail, "snmp-server trap-type auth-fail\n",
         "no snmp-server trap-type auth-fail\n"},
        {true, current.autoBackup, defaults.autoBackup, "snmp-server trap-type auto-backup\n",
         "no snmp-server trap-type auto-backup\n"},
        {true, portLink(current), portLink(defaults), "snmp-server trap-type port-link\n",
         "no snmp-server trap-type port-link\n"},
        {g_EEPROM.hasBattery(), current.batteryMode, defaults.batteryMode, "snmp-server trap-type battery-mode\n",
         "no snmp-server trap-type battery-mode\n"},
        {true, current.caseFan, defaults.caseFan, "snmp-server trap-type case-fan\n",
         "no snmp-server trap-type case-fan\n"},
        {g_EEPROM.hasPoe(), gSysConfig->poe.traps, gDefConfig->poe.traps, "snmp-server trap-type poe\n",
         "no snmp-server trap-type poe\n"},
        {true, current.cpuLoad, defaults.cpuLoad, "snmp-server trap-type cpu-load\n",
         "no snmp-server trap-type cpu-load\n"},
        {true, current.macLimit, defaults.macLimit, "snmp-server trap-type mac-limit\n",
         "no snmp-server trap-type mac-limit\n"},
        {true, current.stormControl, defaults.stormControl, "snmp-server trap-type storm-control\n",
         "no snmp-server trap-type storm-control\n"},
    };
    bool allOn = true;
    bool allOff = true;
    for (const TrapType &type : types) {
        if (!type.fitted) continue;
        allOn = allOn && isOn(type.current);
        allOff = allOff && !isOn(type.current);
    }
    if (allOn) append("snmp-server trap-type all\n");
    else if (allOff) append("no snmp-server trap-type all\n");
    if (allOn || allOff) return 0;
    for (const TrapType &type : types)
        if (type.fitted && (traps.full || type.current != type.defaults))
            append(isOn(type.current) ? type.on : type.off);
    return 0;
}

} // namespace

int full::convConfigTrapConfig_TrapConfig_configure_snmp_server(const TrapConfig &current) {
    return trace(), write({current});
}

int delta::convConfigTrapConfig_TrapConfig_configure_snmp_server(const TrapConfig &current,
                                                                 const TrapConfig &defaults) {
    trace();
    // Any byte of the record makes a change, also one that no type reads.
    const bool samePoe = !g_EEPROM.hasPoe() || gSysConfig->poe.traps == gDefConfig->poe.traps;
    if (sameBytes(current, defaults) && samePoe) return 0;
    return write({current, defaults});
}
