/// Physical ports.
#include "rows.h"

#include "app/order.h"
#include "sections/interface.h"

namespace {

constexpr const char *ports = "PortConfigFunc_configure_interface";

/// Values that none of the port attributes has a line for, in both images.
void quiet(ConfigImage &current, ConfigImage &defaults) {
    for (ConfigImage *image : {&current, &defaults})
        for (PortSettings &port : image->ports)
            port.administrativeState = port.mediaType = port.autoNegotiation = port.speed = port.duplex =
                port.flowControl = 7;
}

/// The text of a store whose ports hold nothing but what `set` sets in the current image.
auto onlyCurrent(Setter<void(PortTable &)> set) {
    return [set](ConfigImage &current, ConfigImage &defaults) {
        quiet(current, defaults);
        set(current.ports);
    };
}

/// Zero images whose port 28 differs by what `set` sets in the current one.
auto onlyOne(Setter<void(PortSettings &)> set) {
    return [set](ConfigImage &current, ConfigImage &) { set(current.ports[27]); };
}

/// Ports of which nothing but the descriptions is written.
auto described(Setter<void(PortTable &current, PortTable &defaults)> set) {
    return [set](ConfigImage &current, ConfigImage &defaults) {
        quiet(current, defaults);
        set(current.ports, defaults.ports);
    };
}

} // namespace

ROWS(PhysicalPorts,
     ({
         {"zero image", Mode::full, ports, [](ConfigImage &, ConfigImage &) {},
          "interface 1-28 \nno shutdown\nexit\n"
          "interface 1-28 \nno media-type\nexit\n"
          "interface 1-28 \nno auto-negotiation\nexit\n"
          "interface 1-28 \nspeed 10\nexit\n"
          "interface 1-28 \nno duplex\nexit\n"
          "interface 1-28 \nno flowcontrol\nexit\n"},
         {"values without a line", Mode::full, ports, quiet, ""},
         {"shut down ports before the others", Mode::full, ports, onlyCurrent([](PortTable &port) {
              for (int i = 0; i < 28; ++i) port[i].administrativeState = i >= 24;
          }),
          "interface 25-28 \nshutdown\nexit\n"
          "interface 1-24 \nno shutdown\nexit\n"},
         {"media types", Mode::full, ports, onlyCurrent([](PortTable &port) {
              for (int i = 0; i < 28; ++i) port[i].mediaType = i >= 26;
          }),
          "interface 1-26 \nno media-type\nexit\n"
          "interface 27,28 \nmedia-type sfp\nexit\n"},
         {"auto-negotiation", Mode::full, ports, onlyCurrent([](PortTable &port) {
              port[0].autoNegotiation = 0;
              port[1].autoNegotiation = 1;
          }),
          "interface 2 \nauto-negotiation\nexit\n"
          "interface 1 \nno auto-negotiation\nexit\n"},
         {"speeds", Mode::full, ports, onlyCurrent([](PortTable &port) {
              port[0].speed = 3;
              port[1].speed = 2;
              port[2].speed = 1;
              port[3].speed = 0;
              port[4].speed = 4;
          }),
          "interface 4 \nspeed 10\nexit\n"
          "interface 3 \nspeed 100\nexit\n"
          "interface 2 \nspeed 1000\nexit\n"
          "interface 1 \nspeed auto_sense\nexit\n"},
         {"duplex", Mode::full, ports, onlyCurrent([](PortTable &port) {
              port[0].duplex = 1;
              port[1].duplex = 0;
              port[2].duplex = 2;
          }),
          "interface 2 \nno duplex\nexit\n"
          "interface 1 \nduplex full\nexit\n"},
         {"flow control", Mode::full, ports, onlyCurrent([](PortTable &port) {
              port[0].flowControl = 1;
              port[27].flowControl = 0;
          }),
          "interface 28 \nno flowcontrol\nexit\n"
          "interface 1 \nflowcontrol\nexit\n"},
         {"values are words", Mode::full, ports, onlyCurrent([](PortTable &port) {
              port[0].administrativeState = 256;
              port[1].administrativeState = 0x01000000;
              port[2].mediaType = 256;
              port[3].autoNegotiation = 0x10001;
              port[4].speed = 0x103;
              port[5].duplex = 0x01000001;
              port[6].flowControl = 0x80000000;
          }),
          ""},
         {"attributes in their order", Mode::full, ports, onlyCurrent([](PortTable &port) {
              port[0].flowControl = 1;
              port[1].duplex = 1;
              port[2].speed = 2;
              port[3].autoNegotiation = 1;
              port[4].mediaType = 1;
              port[5].administrativeState = 1;
              port[6].description = "last";
          }),
          "interface 6 \nshutdown\nexit\n"
          "interface 5 \nmedia-type sfp\nexit\n"
          "interface 4 \nauto-negotiation\nexit\n"
          "interface 3 \nspeed 1000\nexit\n"
          "interface 2 \nduplex full\nexit\n"
          "interface 1 \nflowcontrol\nexit\n"
          "interface 7\ndescription last \nexit\n"},
         {"every port", Mode::full, ports, onlyCurrent([](PortTable &port) {
              for (PortSettings &settings : port) settings.speed = 3;
          }),
          "interface 1-28 \nspeed auto_sense\nexit\n"},
         {"neighbours", Mode::full, ports, onlyCurrent([](PortTable &port) { port[0].speed = port[1].speed = 1; }),
          "interface 1,2 \nspeed 100\nexit\n"},
         {"the default image does not count", Mode::full, ports,
          [](ConfigImage &current, ConfigImage &defaults) {
              quiet(current, defaults);
              current.ports[0].speed = defaults.ports[0].speed = 1;
              defaults.ports[1].speed = 1;
          },
          "interface 1 \nspeed 100\nexit\n"},
     }));

ROWS(PhysicalPortsThatDiffer,
     ({
         {"zero images", Mode::delta, ports, [](ConfigImage &, ConfigImage &) {}, ""},
         {"equal images", Mode::delta, ports,
          [](ConfigImage &current, ConfigImage &defaults) {
              for (ConfigImage *image : {&current, &defaults}) {
                  image->ports[3].administrativeState = image->ports[3].mediaType = image->ports[3].autoNegotiation = 1;
                  image->ports[3].speed = image->ports[3].duplex = image->ports[3].flowControl = 1;
                  image->ports[3].description = "same";
              }
          },
          ""},
         {"administrative state", Mode::delta, ports, onlyOne([](PortSettings &port) { port.administrativeState = 1; }),
          "interface 28 \nshutdown\nexit\n"
          "interface 1-27 \nno shutdown\nexit\n"},
         {"media type", Mode::delta, ports, onlyOne([](PortSettings &port) { port.mediaType = 1; }),
          "interface 1-27 \nno media-type\nexit\n"
          "interface 28 \nmedia-type sfp\nexit\n"},
         {"auto-negotiation", Mode::delta, ports, onlyOne([](PortSettings &port) { port.autoNegotiation = 1; }),
          "interface 28 \nauto-negotiation\nexit\n"
          "interface 1-27 \nno auto-negotiation\nexit\n"},
         {"speed 100", Mode::delta, ports, onlyOne([](PortSettings &port) { port.speed = 1; }),
          "interface 1-27 \nspeed 10\nexit\n"
          "interface 28 \nspeed 100\nexit\n"},
         {"speed 1000", Mode::delta, ports, onlyOne([](PortSettings &port) { port.speed = 2; }),
          "interface 1-27 \nspeed 10\nexit\n"
          "interface 28 \nspeed 1000\nexit\n"},
         {"speed automatic", Mode::delta, ports, onlyOne([](PortSettings &port) { port.speed = 3; }),
          "interface 1-27 \nspeed 10\nexit\n"
          "interface 28 \nspeed auto_sense\nexit\n"},
         {"duplex", Mode::delta, ports, onlyOne([](PortSettings &port) { port.duplex = 1; }),
          "interface 1-27 \nno duplex\nexit\n"
          "interface 28 \nduplex full\nexit\n"},
         {"flow control", Mode::delta, ports, onlyOne([](PortSettings &port) { port.flowControl = 1; }),
          "interface 1-27 \nno flowcontrol\nexit\n"
          "interface 28 \nflowcontrol\nexit\n"},
         {"port 1 alone differs", Mode::delta, ports,
          [](ConfigImage &, ConfigImage &defaults) { defaults.ports[0].duplex = 1; },
          "interface 1-28 \nno duplex\nexit\n"},
         {"values without a line differ too", Mode::delta, ports,
          [](ConfigImage &current, ConfigImage &defaults) {
              current.ports[4].speed = 0x01000000;
              defaults.ports[4].speed = 0x02000000;
          },
          "interface 1-4,6-28 \nspeed 10\nexit\n"},
         {"the further settings do not count", Mode::delta, ports, onlyOne([](PortSettings &port) {
              for (u8 &byte : port.further.bytes) byte = 1;
          }),
          ""},
     }));

namespace {

/// Descriptions are written the same in both modes.
std::vector<Row> descriptions(Mode mode) {
    return {

        {"one", mode, ports, described([](PortTable &port, PortTable &) { port[27].description = "a b"; }),
         "interface 28\ndescription a b \nexit\n"},
        {"shared, never ranges", mode, ports, described([](PortTable &port, PortTable &) {
             port[2].description = port[6].description = "uplink";
             port[0].description = port[1].description = port[3].description = "desk";
         }),
         "interface 1,2,4\ndescription desk \nexit\n"
         "interface 3,7\ndescription uplink \nexit\n"},
        {"all ports", mode, ports, described([](PortTable &port, PortTable &) {
             for (PortSettings &settings : port) settings.description = "x";
         }),
         "interface 1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28\n"
         "description x \nexit\n"},
        {"equal to the default", mode, ports, described([](PortTable &port, PortTable &defaults) {
             for (PortTable *table : {&port, &defaults}) (*table)[4].description = "same";
         }),
         ""},
        {"emptied", mode, ports, described([](PortTable &, PortTable &defaults) { defaults[4].description = "was"; }),
         "interface 5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28\n"
         "description  \nexit\n"
         "interface 6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28\n"
         "description was \nexit\n"},
        {"full field", mode, ports, described([](PortTable &port, PortTable &) {
             port[0].description = letters(36).c_str();
             port[0].further.bytes[0] = 'X';
         }),
         "interface 1\ndescription abcdefghijklmnopqrstuvwxyzabcdefghij \nexit\n"},
        {"differs in the last character", mode, ports, described([](PortTable &port, PortTable &defaults) {
             port[0].description = letters(36).c_str();
             defaults[0].description = letters(35).c_str();
             port[1].description = defaults[0].description;
         }),
         "interface 1\ndescription abcdefghijklmnopqrstuvwxyzabcdefghij \nexit\n"
         "interface 2\ndescription abcdefghijklmnopqrstuvwxyzabcdefghi \nexit\n"},
        {"bytes after the NUL do not count", mode, ports, described([](PortTable &port, PortTable &) {
             port[0].description.characters[1] = 'x';
             port[1].description = port[2].description = "a";
             port[2].description.characters[2] = 'x';
         }),
         "interface 2,3\ndescription a \nexit\n"},
        {"odd characters", mode, ports,
         described([](PortTable &port, PortTable &) { port[0].description = "%s\t\xff"; }),
         "interface 1\ndescription %s\t\xff \nexit\n"},
        {"joined port whose own default is another", mode, ports, described([](PortTable &port, PortTable &defaults) {
             port[0].description = port[2].description = "shared";
             defaults[0].description = "first";
             port[1].description = defaults[1].description = "other";
         }),
         "interface 1,3\ndescription shared \nexit\n"
         "interface 3\ndescription first \nexit\n"},
        {"port marked with its own default", mode, ports, described([](PortTable &port, PortTable &defaults) {
             port[0].description = port[2].description = "shared";
             defaults[0].description = defaults[2].description = "first";
             port[3].description = "shared";
             defaults[3].description = "shared";
         }),
         "interface 1,3,4\ndescription shared \nexit\n"
         "interface 4\ndescription first \nexit\n"},
    };
}

} // namespace

ROWS(Descriptions, (descriptions(Mode::full)));
ROWS(DescriptionsThatDiffer, (descriptions(Mode::delta)));

TEST(PhysicalPorts, EmittersThatWriteNothing) {
    resetAll();
    gSysConfig->ports[0].description = "x";
    gCfgDebug = 1;
    EXPECT_EQ("", printedBy([] {
                  EXPECT_EQ(0, full::PortConfigFunc_configure_interface_lan());
                  EXPECT_EQ(0, full::PortConfigFunc_configure_interface_wan());
                  EXPECT_EQ(0, full::InterfaceGroup_configure_ip_group());
              }));
    EXPECT_EQ("[WifiConfigFunc_configure_interface]\n[WifiConfigFunc_configure_interface]\n", printedBy([] {
                  EXPECT_EQ(0, full::WifiConfigFunc_configure_interface());
                  EXPECT_EQ(0, delta::WifiConfigFunc_configure_interface());
              }));
    EXPECT_STREQ("", Temp_Configuration);
    for (const order::Step &step : order::steps) EXPECT_NE("WifiConfigFunc_configure_interface", step.emitter);
    gCfgDebug = 0;
}
