/// Rendering, over any bytes: the six drivers on images, a board record, a bank state and passwords that the input
/// chooses.
#include "target.h"

#include "platform.h"
#include "render_input.h"

#include "app/drivers.h"
#include "app/header.h"
#include "app/order.h"
#include "app/text/text.h"
#include "platform/host/factory.h"

#include <cstring>
#include <iterator>
#include <string_view>

using fuzz::platform;

namespace {

constexpr std::size_t stepCount = std::size(order::steps);

/// Emitters that have nothing to write, in full mode.
constexpr std::string_view silentInFull[] = {
    "convConfigVLANConfig_mid_vlan_lan_configure",
    "convConfigAdvancedfunction",
    "convConfigApplicationfunction",
    "convConfigNetConfig_mid_sys_ddns_server_configure",
    "convConfigNetConfig_mid_sys_dhcp_server_configure",
    "InterfaceGroup_configure_ip_group",
    "convConfigDNSConfig_mid_sys_dns_cfg_configure_ip_name_server",
    "convConfig_mid_forward_dynamic_route_configure",
    "convConfig_mid_forward_static_route_idx_configure",
    "convConfig_mid_sys_netcfg_wan_configure",
    "convConfig_mid_sys_netcfg_ipv4_lan_configure",
    "convConfig_mid_sys_netcfg_wan_ipv6_configure",
    "convConfig_mid_sys_netcfg_ipv6_lan_configure",
    "convConfig_mid_sys_dhcpv6_server_configure",
    "convConfig_mid_sys_dhcpv6_srv_state_idx_configure",
    "convConfig_mid_sys_radvd_configure",
    "convConfig_mid_sys_ddns_ipv6_configure",
    "convConfig_mid_forward_static_ipv6_route_idx_configure",
    "convConfigServiceConfig_mid_sys_remote_access_configure_management",
    "convConfigServiceConfig_mid_sys_online_cfg_configure_management",
    "convConfigPortMirror_PortMirror_configure_mirror_mode",
    "convConfigSKAConfig2_SKAConfig2_configure_configure_security",
    "convConfigSecurity_HG",
    "convConfigSIP",
    "convConfigUSBControl_USBControl_configure_usb",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_vlan",
    "convConfigVoice",
    "convConfigPriorityConfig_PriorityConfig_configure_interface_qos",
    "convConfigDSCPRemark_DSCPRemark_configure_interface_qos",
    "convConfigStormControl_StormControl_configure_interface_security",
    "PortConfigFunc_configure_interface_lan",
    "convConfigPriorityConfig_PriorityConfig_configure_interface_lan_qos",
    "convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_lan_qos",
    "convConfigVLANConfig_VLANConfig_configure_interface_lan_qos",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_lan_vlan",
    "PortConfigFunc_configure_interface_wan",
    "convConfigPriorityConfig_PriorityConfig_configure_interface_wan_qos",
    "convConfigRateLimitConfig2_RateLimitConfig2_configure_interface_wan_qos",
    "convConfigVLANConfig_VLANConfig_configure_interface_wan_qos",
    "convConfigVLANConfig_mid_sys_vlan_config_configure_interface_wan_vlan",
};
/// Of those, the one that has something to write when two images are compared, and the one that has nothing only then.
constexpr std::string_view notSilentInDelta = "convConfigVLANConfig_mid_sys_vlan_config_configure_vlan";
constexpr std::string_view silentInDelta = "convConfigMacLimit_MacLimit_configure_interface_security_mac_limit";

bool mayWrite(const order::Step &step, bool delta) {
    if (delta && step.emitter == silentInDelta) return false;
    if (delta && step.emitter == notSilentInDelta) return true;
    for (const std::string_view silent : silentInFull)
        if (step.emitter == silent) return false;
    return true;
}

/// What the inputs have reached so far.
struct Reached {
    bool wrote[2][stepCount]; ///< by mode
    bool driver[fuzz::drivers];
    bool base[fuzz::bases];
    bool bank[3]; ///< the first, the second, another
    bool md5[4];  ///< was asked for a password
    bool refusedHeader;
    bool overflow[2];
} reached;

struct Stores {
    ConfigImage current[fuzz::bases];
    ConfigImage defaults[fuzz::bases];
    BoardRecord board;

    Stores() {
        for (int base = 0; base < fuzz::bases; ++base)
            fuzz::composeBase(static_cast<fuzz::Base>(base), current[base], defaults[base]);
        factory::composeBoard(board);
    }
};

/// What a run is given, and what the images must be when it has ended.
struct Given {
    ConfigImage current;
    ConfigImage defaults;
    BoardRecord board;
} given;

std::uint8_t *bytesOf(Given &of, bool defaults) {
    return reinterpret_cast<std::uint8_t *>(defaults ? &of.defaults : &of.current);
}

void patch(Input &input) {
    const std::uint8_t what = input.byte();
    const Section &section = fuzz::sections[input.byte() % std::size(fuzz::sections)];
    std::size_t place = input.number(3) % section.size + section.offset;

    const int kind = what >> 2 & 3;
    std::size_t count = 1;
    std::size_t step = 0;
    std::size_t length = 0;
    const std::uint8_t *bytes = nullptr;
    std::uint32_t seed = 0;
    switch (kind) {
    case fuzz::bytesKind:
        length = input.byte();
        bytes = input.bytes(length);
        break;
    case fuzz::repeatKind:
        length = input.byte();
        step = input.number(2);
        count = input.number(2);
        bytes = input.bytes(length);
        break;
    case fuzz::noiseKind:
        length = input.number(3);
        seed = input.byte();
        break;
    default: length = input.number(3);
    }

    for (int record = 0; record < 3; ++record) { // current, default, board
        const int chosen = what & 3;
        const bool board = chosen == fuzz::boardRecord;
        if (board != (record == 2) || (!board && chosen != fuzz::bothRecords && chosen != record)) continue;
        const std::size_t size = board ? sizeof(BoardRecord) : sizeof(ConfigImage);
        std::uint8_t *const to = board ? reinterpret_cast<std::uint8_t *>(&given.board) : bytesOf(given, record == 1);
        std::size_t at = place % size;
        std::uint32_t noise = (seed + 1) * 2654435761U + static_cast<std::uint32_t>(record);
        for (std::size_t i = 0; i < count && at < size; ++i, at += step) {
            const std::size_t most = length < size - at ? length : size - at;
            if (bytes != nullptr) std::memcpy(to + at, bytes, most);
            else if (kind == fuzz::noiseKind)
                for (std::size_t k = 0; k < most; ++k) {
                    noise ^= noise << 13;
                    noise ^= noise >> 17;
                    noise ^= noise << 5;
                    to[at + k] = static_cast<std::uint8_t>(noise >> 11);
                }
            else if (kind == fuzz::copyKind && !board) std::memmove(to + at, bytesOf(given, record == 0) + at, most);
        }
    }
}

/// The text as it stands. Demands what holds of every text.
std::string_view text() {
    const std::size_t length = strnlen(Temp_Configuration, textBufferSize);
    DEMAND(length < textBufferSize);
    static constexpr char zeros[textBufferSize] = {};
    DEMAND(std::memcmp(Temp_Configuration + length, zeros, textBufferSize - length) == 0);
    DEMAND(LineBuffer[0] == '\0');
    // A line may be appended in pieces, and the last piece that fits need not be its end.
    DEMAND(length == 0 || Temp_Configuration[length - 1] == '\n' || textOverflowed());
    return {Temp_Configuration, length};
}

/// Sets everything up as the input has it; the text is empty.
void prepare() {
    std::memcpy(static_cast<void *>(gSysConfig), &given.current, sizeof given.current);
    std::memcpy(static_cast<void *>(gDefConfig), &given.defaults, sizeof given.defaults);
    g_EEPROM = given.board;
    clearText();
    const int failing = platform.failingCall;
    fuzz::forgetCalls();
    platform.failingCall = failing;
}

/// Of what rendering was given it may change the markers of remarking, when it compares, and the MD5 forms of current
/// passwords, when they are on.
void demandUnchanged(bool delta) {
    DEMAND(sameBytes(g_EEPROM, given.board));
    static Given allowed;
    allowed.current = given.current;
    allowed.defaults = given.defaults;
    if (delta)
        for (ConfigImage *image : {&allowed.current, &allowed.defaults}) {
            for (RemarkPriority &entry : image->remarking.priority) entry.marker = 1;
            for (RemarkDscp &entry : image->remarking.dscp) entry.marker = 1;
        }
    if (platform.method != 0)
        for (std::size_t i = 0; i < std::size(allowed.current.users); ++i)
            if (allowed.current.users[i].passwordMd5.empty())
                allowed.current.users[i].passwordMd5 = gSysConfig->users[i].passwordMd5;
    DEMAND(sameBytes(*gSysConfig, allowed.current));
    DEMAND(sameBytes(*gDefConfig, allowed.defaults));
    DEMAND(platform.open == 0);
}

/// Runs the steps of one mode singly, behind the header of a page.
void renderInSteps(bool delta) {
    initHtmlConfig();
    std::size_t length = text().size();
    for (std::size_t i = 0; i < stepCount; ++i) {
        const order::Step &step = order::steps[i];
        const auto call = delta ? step.delta : step.full;
        if (!call) continue;
        call();
        DEMAND(LineBuffer[0] == '\0');
        const std::size_t added = strnlen(Temp_Configuration + length, textBufferSize - length);
        if (added == 0) continue;
        DEMAND(mayWrite(step, delta));
        reached.wrote[delta][i] = true;
        length += added;
        DEMAND(Temp_Configuration[length - 1] == '\n' || textOverflowed());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const Stores stores;
    static constexpr void (*calls[])() = {convConfig,      convDefConfig,      convHtmlConfig,
                                          convDeltaConfig, convDeltaDefConfig, convDeltaHtmlConfig};

    Input input(data, size);
    const std::size_t driver = input.byte() % fuzz::drivers;
    const std::size_t base = input.byte() % fuzz::bases;
    platform.bank = static_cast<std::int8_t>(input.byte());
    const std::uint8_t flags = input.byte();
    platform.method = (flags & fuzz::md5Passwords) != 0 ? 1 : 0;
    platform.md5 = static_cast<fuzz::Md5>(flags & 3);
    const bool page = driver == fuzz::fullPage || driver == fuzz::deltaPage;
    const bool refused = (flags & fuzz::headerRefused) != 0 && !page;
    platform.failingCall = refused ? 0 : -1;

    given.current = stores.current[base];
    given.defaults = stores.defaults[base];
    given.board = base == fuzz::zeroBase ? BoardRecord{} : stores.board;
    while (!input.empty()) patch(input);
    const bool delta = driver >= fuzz::deltaRunning;

    // As a run renders it.
    prepare();
    calls[driver]();
    std::string_view whole = text();
    demandUnchanged(delta);
    DEMAND(platform.starts == (page || refused ? 0 : 1));
    const bool wholeOverflowed = textOverflowed();
    static char kept[textBufferSize];
    whole.copy(kept, whole.size());
    whole = {kept, whole.size()};
    reached.md5[flags & 3] = reached.md5[flags & 3] || platform.md5Calls != 0;

    // The page, step by step, is the same text but for its first line. A version may hold a newline of its own.
    prepare();
    renderInSteps(delta);
    std::string_view steps = text();
    demandUnchanged(delta);
    constexpr std::string_view configure = "configure\n";
    DEMAND(steps.substr(0, configure.size()) == configure);
    if (refused) steps.remove_prefix(configure.size());
    else if (!page) {
        constexpr std::string_view version = "# VERSION 5036 6000 ";
        DEMAND(whole.substr(0, version.size()) == version);
        const char *shown = platform.bank == 1   ? given.board.versionOfBank1.characters
                            : platform.bank == 2 ? given.board.versionOfBank2.characters
                                                 : "";
        constexpr std::size_t afterVersion = std::string_view(" MAC 00:11:22:33:44:55\n").size();
        whole.remove_prefix(version.size() + strnlen(shown, sizeof given.board.versionOfBank1.characters));
        DEMAND(whole[afterVersion - 1] == '\n');
        whole.remove_prefix(afterVersion);
    }
    if (!wholeOverflowed && !textOverflowed()) DEMAND(whole == steps);
    const std::size_t common = whole.size() < steps.size() ? whole.size() : steps.size();
    DEMAND(whole.substr(0, common) == steps.substr(0, common));

    reached.driver[driver] = true;
    reached.base[base] = true;
    reached.bank[platform.bank == 1 ? 0 : platform.bank == 2 ? 1 : 2] = true;
    reached.refusedHeader = reached.refusedHeader || refused;
    reached.overflow[delta] = reached.overflow[delta] || wholeOverflowed;
    return 0;
}

bool everythingReached() {
    bool everything = true;
    const auto need = [&everything](bool isReached, const char *what, int which) {
        if (!isReached) std::printf("not reached: %s %d\n", what, which);
        everything = everything && isReached;
    };
    for (const bool delta : {false, true})
        for (std::size_t i = 0; i < stepCount; ++i) {
            const order::Step &step = order::steps[i];
            if (!(delta ? step.delta : step.full) || !mayWrite(step, delta) || reached.wrote[delta][i]) continue;
            std::printf("wrote nothing in %s mode: %s\n", delta ? "delta" : "full", step.emitter.data());
            everything = false;
        }
    for (int i = 0; i < fuzz::drivers; ++i) need(reached.driver[i], "driver", i);
    for (int i = 0; i < fuzz::bases; ++i) need(reached.base[i], "base", i);
    for (int i = 0; i < 3; ++i) need(reached.bank[i], "bank", i);
    for (int i = 0; i < 4; ++i) need(reached.md5[i], "MD5 form of a password", i);
    for (int i = 0; i < 2; ++i) need(reached.overflow[i], "text that is too long, mode", i);
    need(reached.refusedHeader, "header that is refused a transaction", 0);
    return everything;
}
