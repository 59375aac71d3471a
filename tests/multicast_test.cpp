#include "byte_changes.h"
#include "rows.h"

#include "platform/host/factory.h"
#include "sections/multicast.h"

namespace {

constexpr const char *filterSwitch = "IGMPFilterFunc_configure_ip_igmp_filter";
constexpr const char *segments = "convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment";
constexpr const char *profiles = "convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile";
constexpr const char *snooping = "convConfigIGMPConfig_IGMPConfig_configure_ip_igmp";
constexpr const char *timers = "convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping";
constexpr const char *portFilters = "IGMPFilterFunc_configure_interface_ip_igmp_filter";
constexpr const char *staticGroups =
    "convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip";
constexpr const char *vlans = "convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp";

constexpr std::size_t igmpAt = 129624;
constexpr std::size_t vlansAt = 129656;
constexpr std::size_t staticAt = 151592;
constexpr std::size_t segmentsAt = 156712;
constexpr std::size_t profilesAt = 174312;
constexpr std::size_t filtersAt = 177432;

void nothing(ConfigImage &, ConfigImage &) {}

auto igmp(std::function<void(IgmpSnooping &)> set) {
    return [set](ConfigImage &current, ConfigImage &) { set(current.igmp); };
}
/// The same settings in the default image alone.
auto igmpDefault(std::function<void(IgmpSnooping &)> set) {
    return [set](ConfigImage &, ConfigImage &defaults) { set(defaults.igmp); };
}
Given onBoard5027(const Given &given) {
    return [given](ConfigImage &current, ConfigImage &defaults) {
        g_EEPROM.boardType = 5027;
        given(current, defaults);
    };
}

void everythingOn(IgmpSnooping &igmp) {
    igmp.enabled = 1;
    igmp.maxResponseTime = 65535;
    igmp.queryInterval = 256;
    igmp.immediateLeave = 1;
    for (unsigned port = 0; port < 28; ++port) igmp.routerPorts.set(port);
    igmp.flooding = 1;
    igmp.version3 = 1;
}

void setSegment(MulticastSegment &segment, std::uint16_t id, const char *name) {
    segment.valid = 1;
    segment.id = id;
    segment.name = name;
    segment.first = {{233, 252, 0, 1}};
    segment.last = {{233, 252, 0, 31}};
}

auto segmentChanged(std::function<void(MulticastSegment &)> change) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        setSegment(current.multicastSegments[0], 7, "news");
        setSegment(defaults.multicastSegments[0], 7, "news");
        change(current.multicastSegments[0]);
    };
}

auto profileChanged(std::function<void(MulticastProfile &)> change) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults}) {
            MulticastProfile &profile = image->multicastProfiles[0];
            profile.valid = 1;
            profile.name = "staff";
            profile.segments[0] = 5;
            profile.segments[9] = 6;
        }
        change(current.multicastProfiles[0]);
    };
}

/// Ports that are neither on nor off, with empty profile slots and a maximum of 0: nothing but one block of maxima.
void quietFilters(PortFilters &filters) {
    for (PortFilter &filter : filters.port) {
        filter.enabled = 2;
        for (auto &profile : filter.profile) profile = " ";
    }
}

/// Quiet ports in both images, then what `set` and `setDefault` set.
auto filters(
    std::function<void(PortFilter *)> set, std::function<void(PortFilter *)> setDefault = [](PortFilter *) {}) {
    return [set, setDefault](ConfigImage &current, ConfigImage &defaults) {
        quietFilters(current.portFilters);
        quietFilters(defaults.portFilters);
        set(current.portFilters.port);
        setDefault(defaults.portFilters.port);
    };
}

const std::string noMaxima = "interface 1-28 \nip igmp max-groups 0\nexit\n";

/// Maxima from 27 down to 0, one of its own for each port.
std::string maximumOfEachPort() {
    std::string text;
    for (int port = 1; port <= 28; ++port)
        text += "interface " + std::to_string(port) + " \nip igmp max-groups " + std::to_string(28 - port) + "\nexit\n";
    return text;
}

std::string profileBlock(const std::string &list, const std::string &name) {
    return "interface " + list + " \nip igmp filter profile " + name + "\nexit\n";
}

/// An entry of both images alike, then a change of the current one.
auto groupChanged(std::function<void(MulticastEntry &)> change) {
    return [change](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults}) {
            MulticastEntry &entry = image->multicastTable[0];
            entry.valid = 1;
            entry.address = {{233, 252, 0, 7}};
            entry.port = 2;
            entry.vlan = 10;
        }
        change(current.multicastTable[0]);
    };
}

constexpr Ipv6 groupIpv6 = {{0xff, 0x0e, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xdb, 0x80, 0, 0x07}};

void useVlan(IgmpVlans &igmpVlans, unsigned vlan, u8 isSnooping, u8 isQuerier) {
    igmpVlans.inUse.set(vlan);
    igmpVlans.vlan[vlan].snooping = isSnooping;
    igmpVlans.vlan[vlan].querier = isQuerier;
}

void composeMulticast(ConfigImage &current, ConfigImage &defaults) {
    for (ConfigImage *image : {&current, &defaults}) {
        image->igmp.maxResponseTime = 10;
        image->igmp.queryInterval = 125;
        image->igmp.flooding = 1;
        for (PortFilter &filter : image->portFilters.port) {
            filter.maxGroups = 256;
            for (auto &profile : filter.profile) profile = " ";
        }
    }
    current.igmp.enabled = 1;
    current.igmp.maxResponseTime = 20;
    current.igmp.immediateLeave = 1;
    current.igmp.routerPorts.set(24).set(25).set(26);
    current.igmp.flooding = 0;
    current.igmp.version3 = 1;
    useVlan(current.igmpVlans, 10, 1, 0);
    useVlan(current.igmpVlans, 4094, 1, 1);
    current.igmpVlans.inUse.set(0).set(4095);

    setSegment(current.multicastSegments[0], 1, "news");
    setSegment(defaults.multicastSegments[0], 1, "news");
    setSegment(current.multicastSegments[1], 2, "training");
    setSegment(defaults.multicastSegments[1], 3, "training");
    current.multicastSegments[1].last = {{233, 252, 0, 63}};
    setSegment(current.multicastSegments[399], 65535, "last");

    MulticastProfile &staff = current.multicastProfiles[0];
    staff.valid = 1;
    staff.name = "staff";
    staff.segments[0] = 1;
    staff.segments[2] = 2;
    defaults.multicastProfiles[0].segments[0] = 1;

    current.portFilters.port[0].filterSwitch = 1;
    for (int port = 0; port < 4; ++port) {
        current.portFilters.port[port].profile[0] = "staff";
        current.portFilters.port[port].maxGroups = 8;
        current.portFilters.port[port].enabled = 1;
    }
    current.portFilters.port[0].profile[1] = "watch";
    current.portFilters.port[27].profile[3] = "watch";

    MulticastEntry &ipv4 = current.multicastTable[0];
    ipv4.valid = 1;
    ipv4.address = {{233, 252, 0, 7}};
    ipv4.addressIpv6 = groupIpv6;
    ipv4.port = 20;
    ipv4.vlan = 10;
    MulticastEntry &ipv6 = current.multicastTable[127];
    ipv6.valid = 1;
    ipv6.addressIpv6 = groupIpv6;
    ipv6.port = 27;
    ipv6.vlan = 4094;
    MulticastEntry &unset = current.multicastTable[64];
    unset.valid = 1;
    unset.vlan = -1;
}

std::string multicastText(Mode mode) {
    resetAll();
    composeMulticast(*gSysConfig, *gDefConfig);
    for (const char *step : {filterSwitch, segments, profiles, snooping, timers, portFilters, staticGroups, vlans})
        callStep(mode, step);
    return Temp_Configuration;
}

} // namespace

// ------------------------------------------------------------------------------------------------------ filter switch

ROWS(FilterSwitch, ({
                       {"off", Mode::full, filterSwitch, nothing, "no ip igmp filter\n"},
                       {"on", Mode::full, filterSwitch,
                        [](ConfigImage &current, ConfigImage &) { current.portFilters.port[0].filterSwitch = 0x80; },
                        "ip igmp filter\n"},
                       {"default does not matter", Mode::full, filterSwitch,
                        [](ConfigImage &, ConfigImage &defaults) { defaults.portFilters.port[0].filterSwitch = 1; },
                        "no ip igmp filter\n"},
                       {"same", Mode::delta, filterSwitch,
                        [](ConfigImage &current, ConfigImage &defaults) {
                            current.portFilters.port[0].filterSwitch = defaults.portFilters.port[0].filterSwitch = 1;
                        },
                        ""},
                       {"turned on", Mode::delta, filterSwitch,
                        [](ConfigImage &current, ConfigImage &) { current.portFilters.port[0].filterSwitch = 1; },
                        "ip igmp filter\n"},
                       {"turned off", Mode::delta, filterSwitch,
                        [](ConfigImage &, ConfigImage &defaults) { defaults.portFilters.port[0].filterSwitch = 1; },
                        "no ip igmp filter\n"},
                       {"1 against 2", Mode::delta, filterSwitch,
                        [](ConfigImage &current, ConfigImage &defaults) {
                            current.portFilters.port[0].filterSwitch = 1;
                            defaults.portFilters.port[0].filterSwitch = 2;
                        },
                        "ip igmp filter\n"},
                   }));

TEST(FilterSwitch, IsTheFirstByteOfPort1) {
    expectRead(filterSwitch, nothing, filtersAt - 4, filtersAt + 2860, {{filtersAt, filtersAt}});
    expectCounting(filterSwitch, nothing, filtersAt - 4, filtersAt + 2860,
                   {{filtersAt, filtersAt, "ip igmp filter\n"}});
}

// ------------------------------------------------------------------------------------------------ segments, profiles

ROWS(Segments,
     ({
         {"none valid", Mode::full, segments,
          [](ConfigImage &current, ConfigImage &) {
              setSegment(current.multicastSegments[3], 1, "gone");
              current.multicastSegments[3].valid = 0;
          },
          ""},
         {"first and last entry", Mode::full, segments,
          [](ConfigImage &current, ConfigImage &) {
              setSegment(current.multicastSegments[0], 65535, "news");
              setSegment(current.multicastSegments[399], 256, "last");
              current.multicastSegments[399].valid = 255;
              current.multicastSegments[399].first = {{255, 254, 253, 252}};
              current.multicastSegments[399].last = {{1, 2, 3, 4}};
          },
          "ip igmp segment 65535\nname news\nrange 233.252.0.1 233.252.0.31\nexit\n"
          "ip igmp segment 256\nname last\nrange 255.254.253.252 1.2.3.4\nexit\n"},
         {"full name", Mode::full, segments,
          [](ConfigImage &current, ConfigImage &) {
              current.multicastSegments[0].valid = 1;
              current.multicastSegments[0].name = letters(24).c_str();
              current.multicastSegments[0].first = {{'x', 'y', 'z', '!'}};
          },
          "ip igmp segment 0\nname " + letters(24) + "\nrange 120.121.122.33 0.0.0.0\nexit\n"},
         {"no name", Mode::full, segments,
          [](ConfigImage &current, ConfigImage &) { current.multicastSegments[0].valid = 1; },
          "ip igmp segment 0\nname \nrange 0.0.0.0 0.0.0.0\nexit\n"},

         {"same writes head and exit", Mode::delta, segments, segmentChanged([](MulticastSegment &) {}),
          "ip igmp segment 7\nexit\n"},
         {"id differs", Mode::delta, segments, segmentChanged([](MulticastSegment &s) { s.id = 8; }),
          "ip igmp segment 8\nexit\n"},
         {"valid 2 against 1", Mode::delta, segments, segmentChanged([](MulticastSegment &s) { s.valid = 2; }),
          "ip igmp segment 7\nexit\n"},
         {"not valid any more", Mode::delta, segments, segmentChanged([](MulticastSegment &s) { s.valid = 0; }), ""},
         {"name differs", Mode::delta, segments, segmentChanged([](MulticastSegment &s) { s.name = "New"; }),
          "ip igmp segment 7\nname New\nexit\n"},
         {"name differs behind its end", Mode::delta, segments,
          segmentChanged([](MulticastSegment &s) { s.name.characters[23] = 'x'; }), "ip igmp segment 7\nexit\n"},
         {"first address differs", Mode::delta, segments,
          segmentChanged([](MulticastSegment &s) { s.first.octets[0] = 239; }),
          "ip igmp segment 7\nrange 239.252.0.1 233.252.0.31\nexit\n"},
         {"last address differs", Mode::delta, segments,
          segmentChanged([](MulticastSegment &s) { s.last.octets[3] = 255; }),
          "ip igmp segment 7\nrange 233.252.0.1 233.252.0.255\nexit\n"},
         {"all differ", Mode::delta, segments, segmentChanged([](MulticastSegment &s) {
              s.name = "";
              s.first = s.last = {{0, 0, 0, 0}};
          }),
          "ip igmp segment 7\nname \nrange 0.0.0.0 0.0.0.0\nexit\n"},
         {"default entry counts though not valid", Mode::delta, segments,
          [](ConfigImage &current, ConfigImage &defaults) {
              setSegment(current.multicastSegments[399], 7, "last");
              setSegment(defaults.multicastSegments[399], 7, "last");
              defaults.multicastSegments[399].valid = 0;
          },
          "ip igmp segment 7\nexit\n"},
     }));

TEST(Segments, BytesThatCount) {
    const auto given = [](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults})
            for (const int entry : {0, 399}) {
                image->multicastSegments[entry].valid = 0x40;
                image->multicastSegments[entry].name = letters(24).c_str();
            }
    };
    const std::string unchanged = textOfStep(Mode::delta, segments, given);
    ASSERT_EQ("ip igmp segment 0\nexit\nip igmp segment 0\nexit\n", unchanged);
    for (const std::size_t at : {segmentsAt, segmentsAt + 399 * 44}) {
        expectRead(segments, given, at, at + 43, {{at, at}, {at + 2, at + 35}});
        for (std::size_t byte = 0; byte < 44; ++byte) {
            const std::string text = textOfStep(Mode::delta, segments, withByte(given, at + byte, 0x40));
            const bool isName = 4 <= byte && byte < 28;
            const bool isRange = 28 <= byte && byte < 36;
            EXPECT_EQ(isName, text.find("name ") != std::string::npos) << byte;
            EXPECT_EQ(isRange, text.find("range ") != std::string::npos) << byte;
            EXPECT_EQ(isName || isRange || byte == 0 || byte == 2 || byte == 3, text != unchanged) << byte;
        }
    }
    expectRead(segments, nothing, segmentsAt - 8, segmentsAt - 1, {});
    expectRead(segments, nothing, profilesAt, profilesAt + 60, {});
}

ROWS(Profiles,
     ({
         {"none valid", Mode::full, profiles,
          [](ConfigImage &current, ConfigImage &) { current.multicastProfiles[0].segments[0] = 1; }, ""},
         {"first and last entry", Mode::full, profiles,
          [](ConfigImage &current, ConfigImage &) {
              for (int entry : {0, 59}) {
                  current.multicastProfiles[entry].valid = 255;
                  current.multicastProfiles[entry].name = entry == 0 ? "first" : "last";
                  current.multicastProfiles[entry].segments[0] = 1;
                  current.multicastProfiles[entry].segments[4] = 256;
                  current.multicastProfiles[entry].segments[9] = 65535;
              }
          },
          "ip igmp profile first\nsegment 1\nsegment 256\nsegment 65535\nexit\n"
          "ip igmp profile last\nsegment 1\nsegment 256\nsegment 65535\nexit\n"},
         {"all slots", Mode::full, profiles,
          [](ConfigImage &current, ConfigImage &) {
              current.multicastProfiles[1].valid = 1;
              for (int slot = 0; slot < 10; ++slot)
                  current.multicastProfiles[1].segments[slot] = static_cast<std::uint16_t>(20 - slot);
          },
          "ip igmp profile \nsegment 20\nsegment 19\nsegment 18\nsegment 17\nsegment 16\nsegment 15\nsegment 14\n"
          "segment 13\nsegment 12\nsegment 11\nexit\n"},
         {"full name", Mode::full, profiles,
          [](ConfigImage &current, ConfigImage &) {
              current.multicastProfiles[0].valid = 1;
              current.multicastProfiles[0].name = letters(25).c_str();
              current.multicastProfiles[0].segments[0] = 0x4142;
          },
          "ip igmp profile " + letters(25) + "\nsegment 16706\nexit\n"},

         {"same writes head and exit", Mode::delta, profiles, profileChanged([](MulticastProfile &) {}),
          "ip igmp profile staff\nexit\n"},
         {"name differs", Mode::delta, profiles, profileChanged([](MulticastProfile &p) { p.name = "other"; }),
          "ip igmp profile other\nexit\n"},
         {"not valid any more", Mode::delta, profiles, profileChanged([](MulticastProfile &p) { p.valid = 0; }), ""},
         {"slots that differ", Mode::delta, profiles, profileChanged([](MulticastProfile &p) {
              p.segments[0] = 6;
              p.segments[1] = 5;
          }),
          "ip igmp profile staff\nsegment 6\nsegment 5\nexit\n"},
         {"slot emptied", Mode::delta, profiles, profileChanged([](MulticastProfile &p) { p.segments[9] = 0; }),
          "ip igmp profile staff\nexit\n"},
         {"last slot of the last entry", Mode::delta, profiles,
          [](ConfigImage &current, ConfigImage &defaults) {
              current.multicastProfiles[59].valid = 1;
              current.multicastProfiles[59].name = "last";
              current.multicastProfiles[59].segments[8] = defaults.multicastProfiles[59].segments[8] = 3;
              current.multicastProfiles[59].segments[9] = 0x0103;
              defaults.multicastProfiles[59].segments[9] = 0x0203;
          },
          "ip igmp profile last\nsegment 259\nexit\n"},
     }));

TEST(Profiles, BytesThatCount) {
    const auto given = [](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults})
            for (const int entry : {0, 59}) {
                image->multicastProfiles[entry].valid = 0x40;
                image->multicastProfiles[entry].name = letters(25).c_str();
            }
    };
    const std::string unchanged = textOfStep(Mode::delta, profiles, given);
    ASSERT_EQ("ip igmp profile " + letters(25) + "\nexit\nip igmp profile " + letters(25) + "\nexit\n", unchanged);
    for (const std::size_t at : {profilesAt, profilesAt + 59 * 52}) {
        expectRead(profiles, given, at, at + 51, {{at, at + 45}});
        for (std::size_t byte = 0; byte < 52; ++byte) {
            const std::string text = textOfStep(Mode::delta, profiles, withByte(given, at + byte, 0x40));
            EXPECT_EQ(26 <= byte && byte < 46, text.find("\nsegment ") != std::string::npos) << byte;
            EXPECT_EQ(byte < 46, text != unchanged) << byte;
        }
    }
    expectRead(profiles, nothing, profilesAt - 8, profilesAt - 1, {});
    expectRead(profiles, nothing, filtersAt, filtersAt + 60, {});
}

TEST(Segments, WholeTables) {
    std::string expectedSegments;
    std::string expectedProfiles;
    resetAll();
    for (int i = 0; i < 400; ++i) {
        setSegment(gSysConfig->multicastSegments[i], static_cast<std::uint16_t>(i + 1), "news");
        expectedSegments +=
            "ip igmp segment " + std::to_string(i + 1) + "\nname news\nrange 233.252.0.1 233.252.0.31\nexit\n";
    }
    for (int i = 0; i < 60; ++i) {
        MulticastProfile &profile = gSysConfig->multicastProfiles[i];
        profile.valid = 1;
        profile.name = ("profile-" + std::to_string(i)).c_str();
        expectedProfiles += "ip igmp profile profile-" + std::to_string(i) + "\n";
        for (int slot = 0; slot < 10; ++slot) {
            profile.segments[slot] = static_cast<std::uint16_t>(1 + i + slot);
            expectedProfiles += "segment " + std::to_string(1 + i + slot) + "\n";
        }
        expectedProfiles += "exit\n";
    }
    for (const Mode mode : {Mode::full, Mode::delta}) {
        clearText();
        callStep(mode, segments);
        EXPECT_EQ(expectedSegments, Temp_Configuration);
        clearText();
        callStep(mode, profiles);
        EXPECT_EQ(expectedProfiles, Temp_Configuration);
    }
}

// ----------------------------------------------------------------------------------------------------- IGMP snooping

ROWS(IgmpSnooping,
     ({
         {"off", Mode::full, snooping, nothing,
          "no ip igmp snooping\nno ip igmp snooping version-3\nno ip igmp snooping flooding\n"
          "no ip igmp snooping mcast-router 1-28 \n"},
         {"on", Mode::full, snooping, igmp(everythingOn),
          "ip igmp snooping\nip igmp snooping version-3\nip igmp snooping flooding\n"
          "ip igmp snooping mcast-router 1-28 \n"},
         {"flags beyond 1", Mode::full, snooping, igmp([](IgmpSnooping &i) {
              i.enabled = 0x80;
              i.version3 = 0x01000000;
              i.flooding = 2;
              i.routerPorts.set(0).set(27);
          }),
          "ip igmp snooping\nip igmp snooping version-3\nip igmp snooping flooding\n"
          "ip igmp snooping mcast-router 1,28 \nno ip igmp snooping mcast-router 2-27 \n"},
         {"board 5027", Mode::full, snooping, onBoard5027(igmp(everythingOn)), ""},
         {"another board", Mode::full, snooping, [](ConfigImage &, ConfigImage &) { g_EEPROM.boardType = 5028; },
          "no ip igmp snooping\nno ip igmp snooping version-3\nno ip igmp snooping flooding\n"
          "no ip igmp snooping mcast-router 1-28 \n"},

         {"same", Mode::delta, snooping,
          [](ConfigImage &current, ConfigImage &defaults) {
              everythingOn(current.igmp);
              everythingOn(defaults.igmp);
          },
          ""},
         {"turned on", Mode::delta, snooping, igmp(everythingOn),
          "ip igmp snooping\nip igmp snooping version-3\nip igmp snooping flooding\n"
          "ip igmp snooping mcast-router 1-28 \n"},
         {"turned off", Mode::delta, snooping, igmpDefault(everythingOn),
          "no ip igmp snooping\nno ip igmp snooping version-3\nno ip igmp snooping flooding\n"
          "no ip igmp snooping mcast-router 1-28 \n"},
         {"router ports", Mode::delta, snooping, igmp([](IgmpSnooping &i) { i.routerPorts.set(1); }),
          "ip igmp snooping mcast-router 2 \nno ip igmp snooping mcast-router 1,3-28 \n"},
         {"a bit of no port", Mode::delta, snooping, igmp([](IgmpSnooping &i) { i.routerPorts.set(31); }),
          "no ip igmp snooping mcast-router 1-28 \n"},
         {"board 5027", Mode::delta, snooping, onBoard5027(igmp(everythingOn)), ""},

         {"timers off", Mode::full, timers, nothing,
          "no ip igmp snooping immediate-leave\nip igmp snooping max-response-time 0\n"
          "ip igmp snooping query-interval 0\n"},
         {"timers on", Mode::full, timers, igmp(everythingOn),
          "ip igmp snooping immediate-leave\nip igmp snooping max-response-time 65535\n"
          "ip igmp snooping query-interval 256\n"},
         {"timers on board 5027", Mode::full, timers, onBoard5027(igmp(everythingOn)), ""},
         {"timers same", Mode::delta, timers,
          [](ConfigImage &current, ConfigImage &defaults) {
              everythingOn(current.igmp);
              everythingOn(defaults.igmp);
          },
          ""},
         {"timers turned off", Mode::delta, timers, igmpDefault(everythingOn),
          "no ip igmp snooping immediate-leave\nip igmp snooping max-response-time 0\n"
          "ip igmp snooping query-interval 0\n"},
         {"timers turned on", Mode::delta, timers, igmp(everythingOn),
          "ip igmp snooping immediate-leave\nip igmp snooping max-response-time 65535\n"
          "ip igmp snooping query-interval 256\n"},
         {"timers on board 5027", Mode::delta, timers, onBoard5027(igmp(everythingOn)), ""},
     }));

TEST(IgmpSnooping, Bytes) {
    // The last byte of the router ports is tried with a bit of no port, which counts but is not read.
    expectRead(snooping, nothing, igmpAt - 4, igmpAt + 36,
               {{igmpAt, igmpAt}, {igmpAt + 8, igmpAt + 10}, {igmpAt + 12, igmpAt + 12}, {igmpAt + 16, igmpAt + 19}});
    expectCounting(snooping, nothing, igmpAt - 4, igmpAt + 36,
                   {{igmpAt, igmpAt, "ip igmp snooping\n"},
                    {igmpAt + 8, igmpAt + 8, "ip igmp snooping mcast-router 7 \n"},
                    {igmpAt + 9, igmpAt + 9, "ip igmp snooping mcast-router 15 \n"},
                    {igmpAt + 10, igmpAt + 10, "ip igmp snooping mcast-router 23 \n"},
                    {igmpAt + 11, igmpAt + 11, "no ip igmp snooping mcast-router 1-28 \n"},
                    {igmpAt + 12, igmpAt + 12, "ip igmp snooping flooding\n"},
                    {igmpAt + 16, igmpAt + 19, "ip igmp snooping version-3\n"}});
    expectRead(timers, nothing, igmpAt - 4, igmpAt + 36, {{igmpAt + 2, igmpAt + 5}, {igmpAt + 7, igmpAt + 7}});
    expectCounting(timers, nothing, igmpAt - 4, igmpAt + 36,
                   {{igmpAt + 2, igmpAt + 2, "ip igmp snooping max-response-time 16384\n"},
                    {igmpAt + 3, igmpAt + 3, "ip igmp snooping max-response-time 64\n"},
                    {igmpAt + 4, igmpAt + 4, "ip igmp snooping query-interval 16384\n"},
                    {igmpAt + 5, igmpAt + 5, "ip igmp snooping query-interval 64\n"},
                    {igmpAt + 7, igmpAt + 7, "ip igmp snooping immediate-leave\n"}});
}

/// 1 against 2 is a difference of the stored values.
TEST(IgmpSnooping, FlagsAreComparedAsStored) {
    const auto given = [](ConfigImage &current, ConfigImage &defaults) {
        current.igmp.enabled = current.igmp.flooding = current.igmp.immediateLeave = 1;
        current.igmp.version3 = 1;
        defaults.igmp.enabled = defaults.igmp.flooding = defaults.igmp.immediateLeave = 2;
        defaults.igmp.version3 = 2;
    };
    EXPECT_EQ("ip igmp snooping\nip igmp snooping version-3\nip igmp snooping flooding\n",
              textOfStep(Mode::delta, snooping, given));
    EXPECT_EQ("ip igmp snooping immediate-leave\n", textOfStep(Mode::delta, timers, given));
}

// ------------------------------------------------------------------------------------------- IGMP snooping of a VLAN

ROWS(IgmpVlans, ({
                    {"a VLAN of one digit", Mode::delta, vlans,
                     [](ConfigImage &current, ConfigImage &defaults) {
                         useVlan(current.igmpVlans, 2, 0, 1);
                         defaults.igmpVlans.vlan[2].snooping = 1;
                     },
                     "no ip igmp snooping vlan 2\nip igmp snooping vlan 2 query\n"},
                    {"none in use", Mode::full, vlans,
                     [](ConfigImage &current, ConfigImage &) { current.igmpVlans.vlan[10].snooping = 1; }, ""},
                    {"0 and 4095 are none", Mode::full, vlans,
                     [](ConfigImage &current, ConfigImage &) { current.igmpVlans.inUse.set(0).set(4095); }, ""},
                    {"first and last", Mode::full, vlans,
                     [](ConfigImage &current, ConfigImage &) {
                         useVlan(current.igmpVlans, 1, 1, 0);
                         useVlan(current.igmpVlans, 2, 0, 1);
                         useVlan(current.igmpVlans, 4094, 0, 255);
                     },
                     "ip igmp snooping vlan 1\nno ip igmp snooping vlan 1 query\n"
                     "no ip igmp snooping vlan 2\nip igmp snooping vlan 2 query\n"
                     "no ip igmp snooping vlan 4094\nip igmp snooping vlan 4094 query\n"},
                    {"board 5027", Mode::full, vlans, onBoard5027([](ConfigImage &current, ConfigImage &) {
                         useVlan(current.igmpVlans, 10, 0x80, 0x80);
                     }),
                     "ip igmp snooping vlan 10\nip igmp snooping vlan 10 query\n"},

                    {"same", Mode::delta, vlans,
                     [](ConfigImage &current, ConfigImage &defaults) {
                         useVlan(current.igmpVlans, 10, 1, 1);
                         defaults.igmpVlans.vlan[10] = current.igmpVlans.vlan[10];
                     },
                     ""},
                    {"default alone in use", Mode::delta, vlans,
                     [](ConfigImage &, ConfigImage &defaults) { useVlan(defaults.igmpVlans, 10, 1, 1); }, ""},
                    {"snooping turned on", Mode::delta, vlans,
                     [](ConfigImage &current, ConfigImage &) { useVlan(current.igmpVlans, 4094, 1, 0); },
                     "ip igmp snooping vlan 4094\n"},
                    {"query turned on", Mode::delta, vlans,
                     [](ConfigImage &current, ConfigImage &) { useVlan(current.igmpVlans, 1, 0, 1); },
                     "ip igmp snooping vlan 1 query\n"},
                    {"both turned off", Mode::delta, vlans,
                     [](ConfigImage &current, ConfigImage &defaults) {
                         useVlan(current.igmpVlans, 10, 0, 0);
                         useVlan(defaults.igmpVlans, 10, 1, 1);
                     },
                     "no ip igmp snooping vlan 10\nno ip igmp snooping vlan 10 query\n"},
                    {"1 against 2", Mode::delta, vlans,
                     [](ConfigImage &current, ConfigImage &defaults) {
                         useVlan(current.igmpVlans, 10, 1, 1);
                         useVlan(defaults.igmpVlans, 10, 2, 2);
                     },
                     "ip igmp snooping vlan 10\nip igmp snooping vlan 10 query\n"},
                    {"0 and 4095 are none", Mode::delta, vlans,
                     [](ConfigImage &current, ConfigImage &defaults) {
                         useVlan(current.igmpVlans, 0, 1, 1);
                         current.igmpVlans.inUse.set(4095);
                         defaults.log.enabled = 1;
                     },
                     ""},
                    {"board 5027", Mode::delta, vlans,
                     onBoard5027([](ConfigImage &current, ConfigImage &) { useVlan(current.igmpVlans, 10, 1, 1); }),
                     "ip igmp snooping vlan 10\nip igmp snooping vlan 10 query\n"},
                }));

TEST(IgmpVlans, Bytes) {
    // The byte of the last eight VLANs also holds VLAN 4095, whose bit is none of those changed here.
    expectRead(vlans, nothing, vlansAt - 2, vlansAt + 540, {{vlansAt + 1, vlansAt + 512}});

    const auto edges = [](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults})
            for (const int byte : {0, 511}) image->igmpVlans.inUse.bytes[byte] = 0xff;
    };
    std::vector<std::pair<std::size_t, std::size_t>> read;
    std::vector<Counting> counting;
    for (std::size_t vlan = 1; vlan <= 4094; ++vlan) {
        if (vlan >= 8 && vlan < 4088) continue;
        const std::size_t record = vlansAt + 514 + 4 * vlan;
        read.push_back({record + 2, record + 3});
        counting.push_back({record + 2, record + 2, "ip igmp snooping vlan " + std::to_string(vlan) + "\n"});
        counting.push_back({record + 3, record + 3, "ip igmp snooping vlan " + std::to_string(vlan) + " query\n"});
    }
    // The first records, then the last ones and what follows the section.
    const std::size_t first = vlansAt + 513;
    const std::size_t last = vlansAt + 514 + 4 * 4086;
    expectRead(vlans, edges, first, first + 40, read);
    expectRead(vlans, edges, last, last + 48, read);
    expectCounting(vlans, edges, first, first + 40, counting);
    expectCounting(vlans, edges, last, last + 48, counting);
}

TEST(IgmpVlans, EachBitIsItsVlan) {
    for (unsigned vlan = 0; vlan < 4096; vlan += vlan < 20 || vlan > 4080 ? 1 : 97) {
        const std::string number = std::to_string(vlan);
        const bool isWritten = vlan != 0 && vlan != 4095;
        EXPECT_EQ(isWritten ? "no ip igmp snooping vlan " + number + "\nno ip igmp snooping vlan " + number + " query\n"
                            : std::string(),
                  textOfStep(Mode::full, vlans,
                             [vlan](ConfigImage &current, ConfigImage &) { current.igmpVlans.inUse.set(vlan); }));
    }
}

TEST(IgmpVlans, Thousand) {
    std::string expected;
    const auto given = [](ConfigImage &current, ConfigImage &) {
        for (unsigned vlan = 1000; vlan < 2000; ++vlan) useVlan(current.igmpVlans, vlan, 1, 1);
    };
    for (int vlan = 1000; vlan < 2000; ++vlan)
        expected += "ip igmp snooping vlan " + std::to_string(vlan) + "\nip igmp snooping vlan " +
                    std::to_string(vlan) + " query\n";
    EXPECT_EQ(expected, textOfStep(Mode::full, vlans, given));
    EXPECT_EQ(expected, textOfStep(Mode::delta, vlans, given));
}

// --------------------------------------------------------------------------------------------------- filters of ports

ROWS(PortFilters,
     ({
         {"zero image", Mode::full, portFilters, nothing,
          "interface 1-28 \nno ip igmp filter\nexit\n" + noMaxima + profileBlock("1-28", "") +
              profileBlock("1-28", "") + profileBlock("1-28", "") + profileBlock("1-28", "")},
         {"quiet ports", Mode::full, portFilters, filters([](PortFilter *) {}), noMaxima},
         {"off before on", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].enabled = 1;
              port[1].enabled = 0;
              port[2].enabled = 255;
              port[27].enabled = 1;
              port[26].enabled = 0;
          }),
          "interface 2,27 \nno ip igmp filter\nexit\n"
          "interface 1,28 \nip igmp filter\nexit\n" +
              noMaxima},
         {"all on", Mode::full, portFilters, filters([](PortFilter *port) {
              for (int i = 0; i < 28; ++i) port[i].enabled = 1;
          }),
          "interface 1-28 \nip igmp filter\nexit\n" + noMaxima},
         {"by equal maximum", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].maxGroups = 65535;
              port[1].maxGroups = 1;
              port[2].maxGroups = 65535;
              port[27].maxGroups = 1;
              port[26].maxGroups = 256;
          }),
          "interface 1,3 \nip igmp max-groups 65535\nexit\n"
          "interface 2,28 \nip igmp max-groups 1\nexit\n"
          "interface 4-26 \nip igmp max-groups 0\nexit\n"
          "interface 27 \nip igmp max-groups 256\nexit\n"},
         {"28 maxima", Mode::full, portFilters, filters([](PortFilter *port) {
              for (int i = 0; i < 28; ++i) port[i].maxGroups = static_cast<std::uint16_t>(27 - i);
          }),
          maximumOfEachPort()},
         {"profiles by equal name in any slot", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[0] = "a";
              port[2].profile[1] = "b";
              port[4].profile[3] = "a";
              port[27].profile[2] = "b";
          }),
          noMaxima + profileBlock("1,5", "a") + profileBlock("3,28", "b")},
         {"marks of one port carry over to its later slots", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[0] = "a";
              port[0].profile[1] = "b";
              port[1].profile[0] = "a";
          }),
          noMaxima + profileBlock("1,2", "a") + profileBlock("1,2", "b")},
         {"marks grow over four slots", Mode::full, portFilters, filters([](PortFilter *port) {
              port[3].profile[0] = "d";
              port[3].profile[1] = "c";
              port[3].profile[2] = "b";
              port[3].profile[3] = "a";
              port[7].profile[1] = "a";
              port[9].profile[2] = "b";
              port[11].profile[3] = "c";
              port[27].profile[3] = "d";
          }),
          noMaxima + profileBlock("4,28", "d") + profileBlock("4,12,28", "c") + profileBlock("4,10,12,28", "b") +
              profileBlock("4,8,10,12,28", "a")},
         {"marks do not carry over to the next port", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[3] = "a";
              port[1].profile[0] = "b";
              port[5].profile[0] = "a";
          }),
          noMaxima + profileBlock("1,6", "a") + profileBlock("2", "b")},
         {"a name twice on one port", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[0] = port[0].profile[2] = "a";
              port[1].profile[1] = port[1].profile[3] = "a";
          }),
          noMaxima + profileBlock("1,2", "a") + profileBlock("1,2", "a")},
         {"joined slots are not written again", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[0] = "a";
              port[1].profile[0] = "a";
              port[1].profile[1] = "b";
              port[27].profile[3] = "b";
          }),
          noMaxima + profileBlock("1,2", "a") + profileBlock("2,28", "b")},
         {"only one blank is empty", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[0] = "  ";
              port[1].profile[0] = "";
              port[2].profile[0] = " a";
              port[3].profile[0] = "a ";
              port[4].profile[0].characters[2] = 'x'; // behind the end of a blank
          }),
          noMaxima + profileBlock("1", "  ") + profileBlock("2", "") + profileBlock("3", " a") +
              profileBlock("4", "a ")},
         {"full names", Mode::full, portFilters, filters([](PortFilter *port) {
              for (auto &profile : port[0].profile) profile = letters(24).c_str();
              port[1].profile[0] = letters(23).c_str();
              port[27].profile[3] = letters(24).c_str();
              port[27].maxGroups = 0x4100;
          }),
          "interface 1-27 \nip igmp max-groups 0\nexit\ninterface 28 \nip igmp max-groups 16640\nexit\n" +
              profileBlock("1,28", letters(24)) + profileBlock("1,28", letters(24)) +
              profileBlock("1,28", letters(24)) + profileBlock("1,28", letters(24)) + profileBlock("2", letters(23))},
         {"nothing counts behind the end of a name", Mode::full, portFilters, filters([](PortFilter *port) {
              port[0].profile[0] = port[1].profile[0] = "a";
              port[1].profile[0].characters[2] = 'b';
          }),
          noMaxima + profileBlock("1,2", "a")},
     }));

ROWS(PortFilterDifferences,
     ({
         {"same", Mode::delta, portFilters,
          [](ConfigImage &current, ConfigImage &defaults) {
              composeMulticast(current, defaults);
              defaults = current;
          },
          ""},
         {"zero image", Mode::delta, portFilters, nothing, ""},
         {"filtering of one port", Mode::delta, portFilters, filters([](PortFilter *port) {
              port[3].enabled = 1;
              port[4].enabled = 0;
          }),
          "interface 5 \nno ip igmp filter\nexit\ninterface 4 \nip igmp filter\nexit\n"},
         {"all ports stand in the blocks", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  for (int i = 0; i < 28; ++i) port[i].enabled = i >= 26;
              },
              [](PortFilter *port) {
                  for (int i = 0; i < 28; ++i) port[i].enabled = i == 27;
              }),
          "interface 1-26 \nno ip igmp filter\nexit\ninterface 27,28 \nip igmp filter\nexit\n"},

         {"maximum of one port", Mode::delta, portFilters, filters([](PortFilter *port) { port[27].maxGroups = 5; }),
          "interface 1-27 \nip igmp max-groups 0\nexit\ninterface 28 \nip igmp max-groups 5\nexit\n"},
         {"maximum of one port in the default", Mode::delta, portFilters,
          filters([](PortFilter *) {}, [](PortFilter *port) { port[1].maxGroups = 5; }), noMaxima},
         {"same ports with another maximum", Mode::delta, portFilters, filters([](PortFilter *port) {
              for (int i = 0; i < 28; ++i) port[i].maxGroups = 7;
          }),
          "interface 1-28 \nip igmp max-groups 7\nexit\n"},
         {"groups that stand alike are left out", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  for (int i = 0; i < 28; ++i) port[i].maxGroups = i < 14 ? 10 : 20;
              },
              [](PortFilter *port) {
                  for (int i = 0; i < 28; ++i) port[i].maxGroups = i < 14 ? 10 : 30;
              }),
          "interface 15-28 \nip igmp max-groups 20\nexit\n"},
         {"each port is led by its own image's groups", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  for (int i = 0; i < 28; ++i) port[i].maxGroups = 6;
                  port[0].maxGroups = 5;
              },
              [](PortFilter *port) {
                  for (int i = 0; i < 28; ++i) port[i].maxGroups = 6;
                  port[0].maxGroups = 7;
              }),
          "interface 1 \nip igmp max-groups 5\nexit\n"},
         {"group that the default leads at another port", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  port[0].maxGroups = 4;
                  port[1].maxGroups = 3;
                  port[2].maxGroups = 3;
              },
              [](PortFilter *port) {
                  port[0].maxGroups = 3;
                  port[1].maxGroups = 3;
                  port[2].maxGroups = 4;
              }),
          // Ports 2 and 3 lead nothing and port 3 in the default; from port 4 on both images agree.
          "interface 1 \nip igmp max-groups 4\nexit\ninterface 2,3 \nip igmp max-groups 3\nexit\n"},

         {"new profile", Mode::delta, portFilters, filters([](PortFilter *port) { port[27].profile[3] = "a"; }),
          profileBlock("28", "a")},
         {"removed profile", Mode::delta, portFilters,
          filters([](PortFilter *) {}, [](PortFilter *port) { port[0].profile[0] = "a"; }), ""},
         {"another name", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[0] = "a"; },
                  [](PortFilter *port) { port[0].profile[0] = "b"; }),
          profileBlock("1", "a")},
         {"another last character", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[0] = letters(24).c_str(); },
                  [](PortFilter *port) {
                      port[0].profile[0] = letters(24).c_str();
                      port[0].profile[0].characters[23] = '.';
                  }),
          profileBlock("1", letters(24))},
         {"one more port", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[0] = port[5].profile[2] = "a"; },
                  [](PortFilter *port) { port[0].profile[0] = "a"; }),
          profileBlock("1,6", "a")},
         {"the same port by another slot", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[0] = port[5].profile[2] = "a"; },
                  [](PortFilter *port) { port[0].profile[0] = port[5].profile[3] = "a"; }),
          ""},
         {"one port less", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[0] = "a"; },
                  [](PortFilter *port) { port[0].profile[0] = port[5].profile[2] = "a"; }),
          profileBlock("1", "a")},
         {"led by another slot of the default", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[1] = "a"; },
                  [](PortFilter *port) { port[0].profile[0] = "a"; }),
          profileBlock("1", "a")},
         {"led by another port of the default", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[1].profile[0] = port[2].profile[0] = "a"; },
                  [](PortFilter *port) { port[0].profile[0] = port[1].profile[0] = port[2].profile[0] = "a"; }),
          profileBlock("2,3", "a")},
         {"marks of the default carry over too", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  port[0].profile[0] = "a";
                  port[0].profile[1] = port[1].profile[0] = "b";
              },
              [](PortFilter *port) {
                  port[0].profile[0] = port[1].profile[0] = "a";
                  port[0].profile[1] = "b";
              }),
          profileBlock("1", "a")},
         {"marks of the default as they were left", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  port[1].profile[0] = "a";
                  port[1].profile[1] = "b";
              },
              [](PortFilter *port) {
                  // Port 2's "b" joins port 1's, so that at port 2 the default forms the group of "a" alone.
                  port[0].profile[0] = "b";
                  port[1].profile[0] = "a";
                  port[1].profile[1] = "b";
              }),
          ""},
         {"no marks of the default were left", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  port[1].profile[0] = "a";
                  port[1].profile[1] = "b";
              },
              [](PortFilter *port) {
                  port[0].profile[0] = "b";
                  port[1].profile[1] = "b";
              }),
          profileBlock("2", "a") + profileBlock("2", "b")},
         {"marks of the default do not carry over to the next port", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[1].profile[0] = port[27].profile[0] = "b"; },
                  [](PortFilter *port) {
                      port[0].profile[0] = "a";
                      port[1].profile[0] = port[27].profile[0] = "b";
                  }),
          ""},
         {"the default's group forms though the current forms none", Mode::delta, portFilters,
          filters(
              [](PortFilter *port) {
                  port[0].profile[1] = "b";
                  port[1].profile[0] = "b";
              },
              [](PortFilter *port) {
                  port[0].profile[0] = port[1].profile[0] = "a";
                  port[0].profile[1] = "b";
              }),
          ""},
         {"empty name against empty slot", Mode::delta, portFilters,
          filters([](PortFilter *port) { port[0].profile[0] = ""; }), profileBlock("1", "")},
         {"empty slot against empty name", Mode::delta, portFilters,
          filters([](PortFilter *) {}, [](PortFilter *port) { port[0].profile[0] = ""; }), ""},
     }));

TEST(PortFilters, Bytes) {
    const auto given = [](ConfigImage &current, ConfigImage &defaults) {
        for (ConfigImage *image : {&current, &defaults})
            for (PortFilter &filter : image->portFilters.port)
                for (auto &profile : filter.profile) profile = letters(24).c_str();
    };
    std::vector<std::pair<std::size_t, std::size_t>> read;
    std::vector<Counting> counting;
    for (std::size_t port = 0; port < 28; ++port) {
        const std::size_t at = filtersAt + 102 * port;
        read.push_back({at + 2, at + 100});
        counting.push_back({at + 2, at + 97, "interface "});
        counting.push_back({at + 98, at + 99, "interface "});
        counting.push_back({at + 100, at + 100, "interface "});
    }
    expectRead(portFilters, given, filtersAt - 4, filtersAt + 28 * 102 + 4, read);
    expectCounting(portFilters, given, filtersAt - 4, filtersAt + 28 * 102 + 4, counting);
}

// -------------------------------------------------------------------------------------------------- static multicast

ROWS(StaticMulticast,
     ({
         {"none valid", Mode::full, staticGroups, groupChanged([](MulticastEntry &e) { e.valid = 0; }), ""},
         {"ipv4", Mode::full, staticGroups, groupChanged([](MulticastEntry &) {}),
          "interface 3\nip igmp static-multicast-ip 233.252.0.7 vlan 10\nexit\n"},
         {"valid is a word", Mode::full, staticGroups, groupChanged([](MulticastEntry &e) { e.valid = 0x01000000; }),
          "interface 3\nip igmp static-multicast-ip 233.252.0.7 vlan 10\nexit\n"},
         {"ipv4 before ipv6", Mode::full, staticGroups,
          groupChanged([](MulticastEntry &e) { e.addressIpv6 = groupIpv6; }),
          "interface 3\nip igmp static-multicast-ip 233.252.0.7 vlan 10\nexit\n"},
         {"ipv6", Mode::full, staticGroups, groupChanged([](MulticastEntry &e) {
              e.address = {};
              e.addressIpv6 = groupIpv6;
          }),
          "interface 3\nip igmp static-multicast-ip ff0e::db80:7 vlan 10\nexit\n"},
         {"no address", Mode::full, staticGroups, groupChanged([](MulticastEntry &e) { e.address = {}; }),
          "interface 3\nip igmp static-multicast-ip 0.0.0.0 vlan 10\nexit\n"},
         {"port 256", Mode::full, staticGroups, groupChanged([](MulticastEntry &e) { e.port = 255; }),
          "interface 256\nip igmp static-multicast-ip 233.252.0.7 vlan 10\nexit\n"},
         {"vlan is a signed word", Mode::full, staticGroups, groupChanged([](MulticastEntry &e) { e.vlan = -65536; }),
          "interface 3\nip igmp static-multicast-ip 233.252.0.7 vlan -65536\nexit\n"},
         {"last entry", Mode::full, staticGroups,
          [](ConfigImage &current, ConfigImage &) {
              current.multicastTable[127].valid = 1;
              current.multicastTable[127].address = {{239, 255, 255, 250}};
              current.multicastTable[127].vlan = 4094;
          },
          "interface 1\nip igmp static-multicast-ip 239.255.255.250 vlan 4094\nexit\n"},
         {"neither sorted nor grouped", Mode::full, staticGroups,
          [](ConfigImage &current, ConfigImage &) {
              for (int i = 0; i < 3; ++i) {
                  current.multicastTable[i].valid = 1;
                  current.multicastTable[i].address = {{233, 252, 0, 7}};
                  current.multicastTable[i].port = static_cast<u8>(i == 1 ? 9 : 1);
              }
          },
          "interface 2\nip igmp static-multicast-ip 233.252.0.7 vlan 0\nexit\n"
          "interface 10\nip igmp static-multicast-ip 233.252.0.7 vlan 0\nexit\n"
          "interface 2\nip igmp static-multicast-ip 233.252.0.7 vlan 0\nexit\n"},

         {"same", Mode::delta, staticGroups, groupChanged([](MulticastEntry &) {}), ""},
         {"address differs", Mode::delta, staticGroups, groupChanged([](MulticastEntry &e) {
              e.address = {{233, 252, 0, 8}};
          }),
          "interface 3\nip igmp static-multicast-ip 233.252.0.8 vlan 10\nexit\n"},
         {"not valid any more", Mode::delta, staticGroups, groupChanged([](MulticastEntry &e) {
              e.address = {{233, 252, 0, 8}};
              e.valid = 0;
          }),
          ""},
         {"port and vlan do not count", Mode::delta, staticGroups, groupChanged([](MulticastEntry &e) {
              e.port = 5;
              e.vlan = 6;
          }),
          ""},
         {"ipv6 against ipv4", Mode::delta, staticGroups, groupChanged([](MulticastEntry &e) {
              e.address = {};
              e.addressIpv6 = groupIpv6;
              e.port = 255;
              e.vlan = -1;
          }),
          "interface 256\nip igmp static-multicast-ip ff0e::db80:7 vlan -1\nexit\n"},
         {"unset against unset", Mode::delta, staticGroups,
          [](ConfigImage &current, ConfigImage &) { current.multicastTable[5].valid = 1; }, ""},
         {"unset against set", Mode::delta, staticGroups, groupChanged([](MulticastEntry &e) { e.address = {}; }),
          "interface 3\nip igmp static-multicast-ip 0.0.0.0 vlan 10\nexit\n"},
         {"default entry counts though not valid", Mode::delta, staticGroups,
          [](ConfigImage &current, ConfigImage &defaults) {
              current.multicastTable[127].valid = 1;
              current.multicastTable[127].address = defaults.multicastTable[127].address = {{233, 252, 0, 7}};
          },
          ""},
         {"last entry", Mode::delta, staticGroups,
          [](ConfigImage &current, ConfigImage &defaults) {
              current.multicastTable[127].valid = 256;
              current.multicastTable[127].address = {{233, 252, 0, 7}};
              defaults.multicastTable[126].address = {{233, 252, 0, 7}};
          },
          "interface 1\nip igmp static-multicast-ip 233.252.0.7 vlan 0\nexit\n"},
     }));

TEST(StaticMulticast, Bytes) {
    for (const std::size_t entry : {std::size_t{0}, std::size_t{127}}) {
        const std::size_t at = staticAt + 40 * entry;
        const auto ipv4 = [entry](ConfigImage &current, ConfigImage &defaults) {
            for (ConfigImage *image : {&current, &defaults}) {
                image->multicastTable[entry].valid = 0x40;
                image->multicastTable[entry].address = {{1, 2, 3, 4}};
            }
        };
        // Of the valid word only its last byte is changed to 0.
        const std::vector<std::pair<std::size_t, std::size_t>> ipv4Read = {{at + 3, at + 8}, {at + 12, at + 15}};
        expectRead(staticGroups, ipv4, at, at + 39, ipv4Read);
        expectCounting(staticGroups, ipv4, at, at + 39, {{at + 4, at + 7, "interface 1\n"}});

        const auto ipv6 = [entry](ConfigImage &current, ConfigImage &defaults) {
            for (ConfigImage *image : {&current, &defaults}) {
                image->multicastTable[entry].valid = 0x40;
                image->multicastTable[entry].addressIpv6 = groupIpv6;
            }
        };
        expectRead(staticGroups, ipv6, at, at + 39, {{at + 3, at + 8}, {at + 12, at + 31}});
        expectCounting(staticGroups, ipv6, at, at + 39,
                       {{at + 4, at + 7, "interface 1\n"}, {at + 16, at + 31, "interface 1\n"}});
    }
    expectRead(staticGroups, nothing, staticAt - 8, staticAt - 1, {});
    expectRead(staticGroups, nothing, segmentsAt, segmentsAt + 48, {});
}

// ---------------------------------------------------------------------------------------------------------- the whole

TEST(Multicast, Traces) {
    resetAll();
    for (const std::int32_t board : {0, 5027})
        for (const std::int32_t debug : {1, 0}) {
            g_EEPROM.boardType = static_cast<std::uint32_t>(board);
            gCfgDebug = debug;
            const auto traced = [debug](const char *step) {
                return debug != 0 ? "[" + std::string(step) + "]\n" : std::string();
            };
            for (const char *step : {segments, profiles, snooping, timers, staticGroups, vlans})
                for (const Mode mode : {Mode::full, Mode::delta})
                    EXPECT_EQ(traced(step), printedBy([=] { callStep(mode, step); }));
            for (const char *step : {filterSwitch, portFilters}) {
                EXPECT_EQ("", printedBy([=] { callStep(Mode::full, step); }));
                EXPECT_EQ(traced(step), printedBy([=] { callStep(Mode::delta, step); }));
            }
        }
}

TEST(Multicast, ReturnsZero) {
    resetAll();
    for (const std::uint32_t board : {0U, 5027U}) {
        g_EEPROM.boardType = board;
        const ConfigImage &now = *gSysConfig;
        const ConfigImage &standard = *gDefConfig;
        EXPECT_EQ(0, full::IGMPFilterFunc_configure_ip_igmp_filter());
        EXPECT_EQ(0, delta::IGMPFilterFunc_configure_ip_igmp_filter(now.portFilters, standard.portFilters));
        EXPECT_EQ(0, full::convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(now.multicastSegments));
        EXPECT_EQ(0, delta::convConfigIPMCSegment_IPMCSegment_configure_ip_igmp_segment(now.multicastSegments,
                                                                                        standard.multicastSegments));
        EXPECT_EQ(0, full::convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(now.multicastProfiles));
        EXPECT_EQ(0, delta::convConfigIPMCProfile_IPMCProfile_configure_ip_igmp_profile(now.multicastProfiles,
                                                                                        standard.multicastProfiles));
        EXPECT_EQ(0, full::convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(now.igmp));
        EXPECT_EQ(0, delta::convConfigIGMPConfig_IGMPConfig_configure_ip_igmp(now.igmp, standard.igmp));
        EXPECT_EQ(0, full::convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(now.igmp));
        EXPECT_EQ(0, delta::convConfigIGMPSetting_IGMPSetting_configure_ip_igmp_snooping(now.igmp, standard.igmp));
        EXPECT_EQ(0, full::IGMPFilterFunc_configure_interface_ip_igmp_filter());
        EXPECT_EQ(0, delta::IGMPFilterFunc_configure_interface_ip_igmp_filter());
        EXPECT_EQ(0, full::convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
                         now.multicastTable));
        EXPECT_EQ(0, delta::convConfigMulticastTable_MulticastTable_configure_interface_ip_igmp_static_multicast_ip(
                         now.multicastTable, standard.multicastTable));
        EXPECT_EQ(0, full::convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(now.igmpVlans));
        EXPECT_EQ(0,
                  delta::convConfigIGMPVIDSetting_IGMPVIDSetting_configure_ip_igmp(now.igmpVlans, standard.igmpVlans));
    }
}

TEST(Multicast, Golden) {
    EXPECT_EQ(golden("multicast_full.txt"), multicastText(Mode::full));
    EXPECT_EQ(golden("multicast_delta.txt"), multicastText(Mode::delta));
}

TEST(Multicast, BuiltInStore) {
    const auto store = [](ConfigImage &current, ConfigImage &defaults) {
        factory::composeRunning(current);
        factory::composeDefault(defaults);
        factory::composeBoard(g_EEPROM);
    };
    for (const char *step : {filterSwitch, segments, profiles, snooping, timers, portFilters, staticGroups, vlans})
        for (const Mode mode : {Mode::full, Mode::delta}) EXPECT_NE("", textOfStep(mode, step, store)) << step;
}
