/// Multicast: the filter switch, segments, profiles and IGMP snooping.
#include "multicast_area.h"

#include <cstdio>

using namespace multicast;

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

/// Delta mode writes the texts that it has compared, full mode the bytes.
TEST(Segments, AreRangesOfTextsInDeltaMode) {
    const auto store = [](ConfigImage &current, ConfigImage &) {
        platform.addressText = [](const unsigned char *octets) {
            char text[16];
            std::snprintf(text, sizeof text, "%03d.%03d.%03d.%03d", octets[0], octets[1], octets[2], octets[3]);
            return std::string(text);
        };
        MulticastSegment &segment = current.multicastSegments[0];
        segment.valid = 1;
        segment.id = 7;
        segment.first = Ipv4{{233, 252, 0, 1}};
        segment.last = Ipv4{{233, 252, 0, 31}};
    };
    EXPECT_EQ("ip igmp segment 7\nname \nrange 233.252.0.1 233.252.0.31\nexit\n",
              textOfStep(Mode::full, segments, store));
    EXPECT_EQ("ip igmp segment 7\nrange 233.252.000.001 233.252.000.031\nexit\n",
              textOfStep(Mode::delta, segments, store));
}

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
         {"name differs after its end", Mode::delta, segments,
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
        const ChangedTexts texts = changedTexts(Mode::delta, segments, given, Image::current, span(at, 44), oneBit);
        EXPECT_EQ((Places{at, {at + 2, at + 35}}), placesOf(texts));
        for (const auto &[offset, text] : texts) {
            const std::size_t byte = offset - at;
            EXPECT_EQ(4 <= byte && byte < 28, text.find("name ") != std::string::npos) << byte;
            EXPECT_EQ(28 <= byte && byte < 36, text.find("range ") != std::string::npos) << byte;
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
        const ChangedTexts texts = changedTexts(Mode::delta, profiles, given, Image::current, span(at, 52), oneBit);
        EXPECT_EQ(span(at, 46), placesOf(texts));
        for (const auto &[offset, text] : texts)
            EXPECT_EQ(26 <= offset - at, text.find("\nsegment ") != std::string::npos) << offset;
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
        restartText();
        callStep(mode, segments);
        EXPECT_EQ(expectedSegments, Temp_Configuration);
        restartText();
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
    Places read;
    std::vector<Counting> counting;
    for (std::size_t vlan = 1; vlan <= 4094; ++vlan) {
        if (vlan >= 8 && vlan < 4088) continue;
        const std::size_t record = vlansAt + 514 + 4 * vlan;
        read.add(record + 2, record + 3);
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

// ---------------------------------------------------------------------------------------------------------- the whole

TEST(Multicast, Golden) {
    EXPECT_EQ(golden("multicast_full.txt"), multicastText(Mode::full));
    EXPECT_EQ(golden("multicast_delta.txt"), multicastText(Mode::delta));
}
