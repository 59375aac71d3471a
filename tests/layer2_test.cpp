/// The layer-2 area as a whole: which bytes are read, full tables, golden texts.
#include "layer2_area.h"

using namespace layer2;

// ------------------------------------------------------------------------------------ which bytes make a difference

TEST(Layer2Reads, VlanModeQinqIsolation) {
    const Places isolationBytes = span(202700, 5);
    expectReads({ethertype, 129420, 52, span(129460, 4), {}, span(129460, 4), {}});
    expectReads({isolation, 202690, 30, isolationBytes, {}, isolationBytes, isolationBytes});

    // A mode of 1 differs from the store's 0 and has a line; the other way round there is none for 0.
    resetAll();
    EXPECT_EQ(Places{}, read(Mode::full, vlanMode, Image::current, 7840, 40));
    EXPECT_EQ(Places{}, read(Mode::full, vlanMode, Image::defaults, 7840, 40));
    EXPECT_EQ(Places{7856}, read(Mode::delta, vlanMode, Image::current, 7840, 40));
}

TEST(Layer2Reads, PortVlans) {
    const Places names = span(8217, 16) + span(8216 + 22 * 27 + 1, 16);
    const Places used = each(8216, 22, 28, {0});
    const Places cpu = {8216 + 20, 8216 + 22 * 27 + 20};
    const Places members = span(8216 + 17, 4) + span(8216 + 22 * 27 + 17, 4);
    // In delta mode entries count only by their names, and only those in use.
    expectReads({portVlans, 8200, 650, used + names + cpu, used + names, names, names});
    expectReads({portVlanPorts, 8200, 650, Places{8216, 8216 + 22 * 27} + names + members, {}, members, members});
}

TEST(Layer2Reads, ManagementVlan) {
    const Places entry = at(vlanTable, span(1, 4) + span(6, 2));
    // Of the access VLANs only those of ports in access mode count, every fourth in this store.
    const Places settings = each(7862, 12, 28, {1}) + each(7862, 12, 28, {4, 5}, 4);
    expectReads({management, 8850, 120, entry + Places{vlanTable}, {}, entry, entry});
    expectReads({management, 7850, 366, settings, {}, settings, settings});
    expectReads({management, lastVlanAt - 54, 118, {}, {}, {}, {}});
}

TEST(Layer2Reads, VlanPorts) {
    const Places settings = each(7862, 12, 28, {1, 4, 5});
    const Places compared = span(1, 4) + span(6, 2);
    expectReads({vlanPorts, 7850, 366, settings, {}, settings, settings});
    for (const std::size_t entry : {vlanTable, lastVlanAt})
        expectReads({vlanPorts, entry - 10, 74, at(entry, compared + Places{0}), at(entry, compared + Places{0}),
                     at(entry, compared), at(entry, compared)});
}

TEST(Layer2Reads, VlanNames) {
    for (const std::size_t entry : {vlanTable, lastVlanAt})
        expectReads(
            {vlanNames, entry - 10, 74, at(entry, Places{0} + span(6, 48)), {}, span(entry, 54), span(entry, 54)});
}

TEST(Layer2Reads, SpanningTree) {
    const Places values = span(146760, 20) + span(146784, 16);
    expectReads({stp,
                 146750,
                 60,
                 values + span(146800, 4),
                 {},
                 // Changed to an unknown value, the current point-to-point value has no line.
                 values + Places{146803},
                 values + span(146800, 4)});
    expectReads({bpdu, 126360, 80, span(126420, 3), {}, span(126420, 3), span(126420, 3)});
    expectReads({stpPorts, 146800, 576, span(146808, 560), {}, span(146808, 560), span(146808, 560)});
}

TEST(Layer2Reads, Aggregation) {
    const std::size_t last = 121120 + 28 * 13;
    // A flag of 1 is on as long as any byte is not zero.
    const Places lines = each(121120 + 28, 28, 12, span(0, 4)) + span(121123, 17) + span(last + 3, 17);
    const Places members = span(121140, 4) + span(last + 20, 4);
    expectReads({trunks, 121110, 412, lines, {}, lines, {}});
    expectReads({trunkPorts, 121110, 412, span(121123, 17) + span(last + 3, 17) + members, {}, members, members});
    expectReads({distribution, 121500, 50, span(121512, 24), {}, span(121512, 24), span(121512, 24)});
    expectReads({lacp, 121018, 108, span(121032, 84), {}, span(121032, 84), span(121032, 84)});
}

TEST(Layer2Reads, MirrorAndLoops) {
    expectReads({mirrorDestination, 125080, 36, span(125099, 5), {}, span(125096, 8), span(125096, 8)});
    expectReads({mirrorSource, 125080, 36, span(125104, 4), {}, span(125104, 4), span(125104, 4)});
    const Places values = Places{125404, 125422} + span(125410, 12);
    expectReads({loop, 125390, 50, values, {}, values, values});
    expectReads({loopPorts, 125390, 50, span(125405, 4), {}, span(125405, 4), span(125405, 4)});
}

TEST(Layer2Reads, MacTable) {
    const std::size_t last = 121556 + 24 * 127;
    const Places entry = span(3, 8) + span(12, 4);
    const Places unused = each(121556 + 24, 24, 126, span(0, 4));
    const Places addressBytes = span(121560, 6) + span(last + 4, 6);
    expectReads({aging, 126360, 80, span(126376, 4), {}, span(126376, 4), span(126376, 4)});
    expectReads({macTable, 121550, 3084, unused + at(121556, entry) + at(last, entry), {}, addressBytes, addressBytes});
    expectReads({macLearning, 124620, 132, span(124628, 112), {}, span(124628, 116), span(124628, 116)});
}

TEST(Layer2Reads, Lldp) {
    const Places values = span(180300, 6) + span(180308, 5);
    expectReads({lldp, 180290, 30, values, {}, values, values});
    expectReads({lldpPorts, 180290, 30, span(180296, 4), {}, span(180296, 4), span(180296, 4)});
}

// ------------------------------------------------------------------------------------------------------ trace, stores

TEST(Layer2, FullVlanTableThatFits) {
    std::string membership;
    std::string names;
    for (int i = 0; i <= lastVlan; ++i) {
        const std::string id = std::to_string(i + 1);
        membership += "interface " + std::to_string(i % 28 + 1) + " \nvlan dot1q-vlan trunk-vlan " + id + "\nexit\n";
        names += "vlan dot1q-vlan " + id + "\nname " + std::string(8 - id.size(), 'v') + id + "\nexit\n";
    }
    for (const Mode mode : {Mode::full, Mode::delta}) {
        const std::string text = renderPage(mode, current([](ConfigImage &image) { fillVlans(image, false, 8); }));
        EXPECT_FALSE(textOverflowed());
        EXPECT_NE(std::string::npos, text.find(membership));
        EXPECT_NE(std::string::npos, text.find(names));
        EXPECT_LT(text.find(membership), text.find(names));
    }
}

TEST(Layer2, FullVlanTableThatDoesNotFit) {
    for (const Mode mode : {Mode::full, Mode::delta}) {
        const std::string text = renderPage(mode, current([](ConfigImage &image) { fillVlans(image, true, 46); }));
        EXPECT_TRUE(textOverflowed());
        EXPECT_LT(text.size(), textBufferSize);
        EXPECT_EQ('\n', text.back()); // what fitted before ended with a line
    }
}

TEST(Layer2, FullVlanTableWithoutTheCpuPortHasNoManagementVlan) {
    resetAll();
    for (TagVlan &vlan : gSysConfig->tagVlans)
        vlan.inUse = 1; // VLAN 0, in which every access port without one would be
    u8 *const after = reinterpret_cast<u8 *>(gSysConfig) + offsetof(ConfigImage, tagVlans) + sizeof(TagVlanTable);
    after[0] = 1; // what would be a further VLAN in use, with the CPU port
    after[4] = 0x10;
    for (const Mode mode : {Mode::full, Mode::delta}) {
        gDefConfig->tagVlans[0].id = 7;
        callStep(mode, "ManageVLANFunc_configure_vlan");
        EXPECT_STREQ("", Temp_Configuration);
    }
    gSysConfig->tagVlans[2076].members.set(cpuPort);
    callStep(Mode::full, "ManageVLANFunc_configure_vlan");
    EXPECT_STREQ("vlan management-vlan 0 management-port 1-28  mode access\n", Temp_Configuration);
}

TEST(Layer2, RunRefusesTheVlanTableThatDoesNotFit) {
    resetAll();
    fillVlans(platform.images[MAPI_CONFIG_RUNNING], true, 46);
    const std::string path = testing::TempDir() + "textcfg-layer2-" + std::to_string(getpid());
    for (const char *verb : {"running_config", "running_config_delta"}) {
        std::vector<std::string> words = {"tool", verb, "-f", path};
        std::vector<char *> argv;
        for (std::string &word : words) argv.push_back(word.data());
        int status = 0;
        const std::string printed =
            printedBy([&] { status = textcfgMain(static_cast<int>(argv.size()), argv.data()); });
        EXPECT_EQ(-1, status);
        EXPECT_EQ("tool: text configuration too long (limit 262143 bytes)\n", printed);
        EXPECT_EQ(-1, access(path.c_str(), F_OK)) << "a file was made";
        EXPECT_EQ("end 1", platform.calls.back());
        platform.reset();
        fillVlans(platform.images[MAPI_CONFIG_RUNNING], true, 46);
    }
}

TEST(Layer2, EquallyFilledVlanTablesHaveLittleToSayInDeltaMode) {
    const std::string text = renderPage(Mode::delta, both([](ConfigImage &image) { fillVlans(image, true, 46); }));
    EXPECT_FALSE(textOverflowed());
    EXPECT_EQ(std::string::npos, text.find("trunk-vlan"));
    EXPECT_EQ(std::string::npos, text.find("name vvv"));
}

TEST(Layer2Golden, Full) { EXPECT_EQ(golden("layer2_full.txt"), areaText(Mode::full)); }
TEST(Layer2Golden, Delta) { EXPECT_EQ(golden("layer2_delta.txt"), areaText(Mode::delta)); }
