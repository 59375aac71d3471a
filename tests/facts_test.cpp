/// What holds for every emitter, in a loop over the order table. The exceptions are listed by name.
#include "stores.h"

#include "app/order.h"

#include <cstring>
#include <set>

namespace {

using Names = std::set<std::string_view>;

/// Full mode leaves these out of the trace.
const Names silentInFullMode = {
    "IGMPFilterFunc_configure_ip_igmp_filter",
    "PbitPriorityFunc_configure_qos_remarking",
    "ManageVLANFunc_configure_vlan",
    "PortConfigFunc_configure_interface",
    "IGMPFilterFunc_configure_interface_ip_igmp_filter",
    "InterfaceGroup_configure_ip_group",
    "PortConfigFunc_configure_interface_lan",
    "PortConfigFunc_configure_interface_wan",
};

/// Delta mode has no such step.
const Names notInDeltaMode = {
    "convConfigAdvancedfunction",
    "convConfigApplicationfunction",
    "convConfigNetConfig_mid_sys_ddns_server_configure",
    "convConfigNetConfig_mid_sys_dhcp_server_configure",
    "InterfaceGroup_configure_ip_group",
    "convConfigPortMirror_PortMirror_configure_mirror_mode",
    "convConfigPriorityConfig_PriorityConfig_configure_interface_qos",
    "convConfigStormControl_StormControl_configure_interface_security",
    "PortConfigFunc_configure_interface_lan",
    "PortConfigFunc_configure_interface_wan",
};

/// They hold a place in the text and in the trace, and write nothing in either mode.
const Names withoutText = {
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

/// The VLAN mode has a line in delta mode only.
const Names withoutTextInFullMode = {"convConfigVLANConfig_mid_sys_vlan_config_configure_vlan"};
/// It is handed its current section twice, so that there is never a difference.
const Names withoutTextInDeltaMode = {"convConfigMacLimit_MacLimit_configure_interface_security_mac_limit"};

bool writes(Mode mode, std::string_view emitter) {
    const Names &further = mode == Mode::full ? withoutTextInFullMode : withoutTextInDeltaMode;
    return withoutText.count(emitter) == 0 && further.count(emitter) == 0;
}

bool traces(Mode mode, std::string_view emitter) { return mode == Mode::delta || silentInFullMode.count(emitter) == 0; }

/// Both images filled with one byte, the built-in store, and that store on boards on which emitters return early.
const std::function<void()> stores[] = {
    [] {},
    [] {
        std::memset(static_cast<void *>(gSysConfig), 1, sizeof *gSysConfig);
        g_EEPROM.capabilities = 0x150;
    },
    [] { std::memset(static_cast<void *>(gSysConfig), 0xff, sizeof *gSysConfig); },
    composeBuiltIn,
    [] {
        composeBuiltIn();
        g_EEPROM.boardType = 5027;
        g_EEPROM.capabilities = 0;
    },
};

void forEachCall(const std::function<void(Mode mode, const order::Step &step, const order::Call &call)> &body) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        for (const order::Step &step : order::steps) {
            const order::Call &call = mode == Mode::full ? step.full : step.delta;
            if (!call) continue;
            SCOPED_TRACE(std::string(step.emitter) + (mode == Mode::full ? ", full mode" : ", delta mode"));
            clearText();
            body(mode, step, call);
        }
    }
}

TEST(EveryEmitter, IsCalledInBothModesUnlessListed) {
    Names left = notInDeltaMode;
    for (const order::Step &step : order::steps) {
        EXPECT_TRUE(static_cast<bool>(step.full)) << step.emitter;
        EXPECT_EQ(left.erase(step.emitter) == 0, static_cast<bool>(step.delta)) << step.emitter;
    }
    EXPECT_TRUE(left.empty());
}

TEST(EveryEmitter, TracesItsNameAndWritesTheSameText) {
    for (const auto &compose : stores) {
        resetAll();
        compose();
        forEachCall([](Mode mode, const order::Step &step, const order::Call &call) {
            gCfgDebug = 0;
            EXPECT_EQ("", printedBy([&] { call(); }));
            const std::string text = Temp_Configuration;
            clearText();
            gCfgDebug = -1;
            EXPECT_EQ(traces(mode, step.emitter) ? "[" + std::string(step.emitter) + "]\n" : "",
                      printedBy([&] { call(); }));
            EXPECT_EQ(text, Temp_Configuration);
            gCfgDebug = 0;
        });
    }
}

TEST(EveryEmitter, ReturnsZero) {
    for (const auto &compose : stores) {
        resetAll();
        compose();
        forEachCall([](Mode, const order::Step &, const order::Call &call) { EXPECT_EQ(0, call()); });
    }
}

TEST(EveryEmitter, WritesForTheBuiltInStoreUnlessListed) {
    resetAll();
    composeBuiltIn();
    forEachCall([](Mode mode, const order::Step &step, const order::Call &call) {
        // Not of the store but of the platform: in delta mode, passwords in clear have no line of their own.
        platform.passwordMethod = step.emitter == "convConfigUser_PasswordEncryption_configure_user" ? 1 : 0;
        call();
        EXPECT_EQ(writes(mode, step.emitter), Temp_Configuration[0] != '\0');
    });
}

TEST(EveryEmitter, ThatIsListedWritesForNoStore) {
    for (const auto &compose : stores) {
        resetAll();
        compose();
        forEachCall([](Mode mode, const order::Step &step, const order::Call &call) {
            if (writes(mode, step.emitter)) return;
            call();
            EXPECT_STREQ("", Temp_Configuration);
        });
    }
}

/// But for the markers of the remarking entries, which delta mode sets in both images.
TEST(EveryEmitter, LeavesTheImagesAsTheyAre) {
    static ConfigImage current;
    static ConfigImage defaults;
    for (const auto &compose : stores) {
        resetAll();
        compose();
        forEachCall([](Mode mode, const order::Step &step, const order::Call &call) {
            if (mode == Mode::delta && step.emitter.find("_configure_qos_remarking") != step.emitter.npos) return;
            current = *gSysConfig;
            defaults = *gDefConfig;
            call();
            EXPECT_TRUE(sameBytes(current, *gSysConfig));
            EXPECT_TRUE(sameBytes(defaults, *gDefConfig));
        });
    }
}

} // namespace
