/// The board information record: what the platform reports of the switch it runs on.
#pragma once

#include "platform/record.h"

/// 244 bytes, filled by `mapi_sys_eeprom_info_get`.
struct BoardRecord {
    Reserved<4> reserved0;
    be32 boardType; ///< board type; 5027 has features of its own
    Reserved<160> reserved8;
    Mac macAddress; ///< MAC address of the switch
    Reserved<2> reserved174;
    be32 capabilities; ///< what is fitted
    Reserved<24> reserved180;
    Text<10> versionOfBank1; ///< firmware version of image bank 1
    Text<10> versionOfBank2; ///< firmware version of image bank 2
    Reserved<20> reserved224;

    /// Power over Ethernet is fitted.
    constexpr bool hasPoe() const { return (capabilities.value() & 0x100) != 0; }
    /// A battery is fitted: either of two capability bits says so.
    constexpr bool hasBattery() const { return (capabilities.value() & 0x50) != 0; }
    /// A board without configurable loop detection and global IGMP snooping, whose DHCP server ports are tested by a
    /// masked word.
    constexpr bool isType5027() const { return boardType.value() == 5027; }
};

static_assert(record<BoardRecord, 244>);
static_assert(offsetof(BoardRecord, boardType) == 4 && offsetof(BoardRecord, macAddress) == 168);
static_assert(offsetof(BoardRecord, capabilities) == 176);
static_assert(offsetof(BoardRecord, versionOfBank1) == 204 && offsetof(BoardRecord, versionOfBank2) == 214);

/// The board that this run renders for; zero until it was fetched.
extern BoardRecord g_EEPROM;
