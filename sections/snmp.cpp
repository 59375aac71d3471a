#include "sections/snmp.h"

#include "app/text/text.h"
#include "format/address.h"
#include "format/blocks.h"
#include "platform/board.h"
#include "platform/util.h"

#include <iterator>

// ---------------------------------------------------------------------------------------------------------- agent

int full::convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server(const ServiceConfig &current) {
    trace();
    appendSwitch(isOn(current.snmpEnabled), "snmp-server\n", "no snmp-server\n");
    return 0;
}

int delta::convConfigServiceConfig_mid_sys_service_cfg_configure_snmp_server(const ServiceConfig &current,
                                                                             const ServiceConfig &defaults) {
    trace();
    if (current.snmpEnabled != defaults.snmpEnabled)
        appendSwitch(isOn(current.snmpEnabled), "snmp-server\n", "no snmp-server\n");
    return 0;
}

// ---------------------------------------------------------------------------------------------------- communities

namespace {

/// The line of an access level that is set, in both modes alike.
void appendLevel(u8 level) {
    switch (level) {
    case 0: break;
    case 1: append("level ro\n"); break;
    case 2: append("level rw\n"); break;
    case 3: append("level admin\n"); break;
    default: append("level unknown\n");
    }
}

} // namespace

int full::convConfigAgent_Agent_configure_snmp_server(const CommunityTable &current, const CommunityTable &defaults) {
    trace();
    // Every factory community is removed first, also where the current one is the same.
    for (const Community &community : defaults)
        if (isOn(community.inUse) && !community.name.empty()) append("no snmp-server community %s\n", community.name);

    for (const Community &community : current) {
        if (!isOn(community.inUse)) continue;
        // Without a name there is no header line, but the body all the same.
        if (!community.name.empty()) append("snmp-server community %s\n", community.name);
        appendSwitch(isOn(community.active), "active\n", "no active\n");
        if (!community.description.empty()) append("description %s\n", community.description);
        appendLevel(community.level);
        append("exit\n");
    }
    return 0;
}

int delta::convConfigAgent_Agent_configure_snmp_server(const CommunityTable &current, const CommunityTable &defaults) {
    trace();
    for (std::size_t i = 0; i < std::size(current); ++i) {
        const Community &byDefault = defaults[i];
        if (isOn(byDefault.inUse) && !byDefault.name.empty() && !sameText(byDefault.name, current[i].name))
            append("no snmp-server community %s\n", byDefault.name);
    }

    for (std::size_t i = 0; i < std::size(current); ++i) {
        const Community &community = current[i];
        const Community &byDefault = defaults[i];
        if (sameBytes(community, byDefault) || !isOn(community.inUse) || community.name.empty()) continue;
        append("snmp-server community %s\n", community.name);
        if (community.active != byDefault.active) appendSwitch(isOn(community.active), "active\n", "no active\n");
        if (!sameText(community.description, byDefault.description, Community::comparedDescription) &&
            !community.description.empty())
            append("description %s\n", community.description);
        if (community.level != byDefault.level) appendLevel(community.level);
        append("exit\n");
    }
    return 0;
}

// ---------------------------------------------------------------------------------------------- trap destinations

namespace {

AddressText addressOf(const TrapDestination &destination) {
    return ipv4First(destination.address, destination.addressIpv6);
}

} // namespace

int full::convConfigTrapDest_TrapDest_configure_snmp_server(const TrapDestinationTable &current) {
    trace();
    for (std::size_t i = 0; i < std::size(current); ++i) {
        const TrapDestination &destination = current[i];
        if (!isOn(destination.inUse)) continue;
        append("snmp-server trap-destination %d\n", static_cast<int>(i + 1));
        appendSwitch(isOn(destination.active), "active\n", "no active\n");
        if (!destination.community.empty()) append("community %s\n", destination.community);
        append("destination %s\n", addressOf(destination));
        append("exit\n");
    }
    return 0;
}

int delta::convConfigTrapDest_TrapDest_configure_snmp_server(const TrapDestinationTable &current,
                                                             const TrapDestinationTable &defaults) {
    trace();
    for (std::size_t i = 0; i < std::size(current); ++i) {
        const TrapDestination &destination = current[i];
        const TrapDestination &byDefault = defaults[i];
        if (sameBytes(destination, byDefault) || !isOn(destination.inUse)) continue;
        append("snmp-server trap-destination %d\n", static_cast<int>(i + 1));
        if (destination.active != byDefault.active) appendSwitch(isOn(destination.active), "active\n", "no active\n");
        if (!sameText(destination.community, byDefault.community) && !destination.community.empty())
            append("community %s\n", destination.community);
        if (const AddressText address = addressOf(destination); address != addressOf(byDefault))
            append("destination %s\n", address);
        append("exit\n");
    }
    return 0;
}

// ----------------------------------------------------------------------------------------------------- trap types

namespace {

/// A type of trap on this board: its flag as stored, in the current and in the default image, and its two lines.
struct TrapType {
    bool fitted; ///< the board has the hardware; a type without it is neither written nor counted
    u8 flag;
    u8 byDefault;
    Line on;
    Line off;
};

/// Calls `visit` for each type that the board has, in output order, which is not that of the record.
template <class Visit> void forEachTrapType(const TrapConfig &current, const TrapConfig &defaults, Visit visit) {
    const auto portLink = [](const TrapConfig &traps) {
        return static_cast<u8>(utilBitmapCheck(traps.portLink.bytes, 0) != 0);
    };
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
    for (const TrapType &type : types)
        if (type.fitted) visit(type);
}

/// Appends the one line for all types if they agree; false if they do not.
bool appendAllTrapTypes(const TrapConfig &current) {
    bool allOn = true;
    bool allOff = true;
    forEachTrapType(current, current, [&](const TrapType &type) {
        allOn = allOn && isOn(type.flag);
        allOff = allOff && !isOn(type.flag);
    });
    if (allOn) append("snmp-server trap-type all\n");
    else if (allOff) append("no snmp-server trap-type all\n");
    return allOn || allOff;
}

} // namespace

int full::convConfigTrapConfig_TrapConfig_configure_snmp_server(const TrapConfig &current) {
    trace();
    if (appendAllTrapTypes(current)) return 0;
    forEachTrapType(current, current, [](const TrapType &type) { appendSwitch(isOn(type.flag), type.on, type.off); });
    return 0;
}

int delta::convConfigTrapConfig_TrapConfig_configure_snmp_server(const TrapConfig &current,
                                                                 const TrapConfig &defaults) {
    trace();
    // Any byte of the record opens the section, also one that no type reads.
    const bool samePoe = !g_EEPROM.hasPoe() || gSysConfig->poe.traps == gDefConfig->poe.traps;
    if (sameBytes(current, defaults) && samePoe) return 0;
    if (appendAllTrapTypes(current)) return 0;
    forEachTrapType(current, defaults, [](const TrapType &type) {
        if (type.flag != type.byDefault) appendSwitch(isOn(type.flag), type.on, type.off);
    });
    return 0;
}
