#include "rows.h"

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
auto onlyCurrent(std::function<void(PortTable &)> set) {
    return [set](ConfigImage &current, ConfigImage &defaults) {
        quiet(current, defaults);
        set(current.ports);
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
         {"values are words", Mode::full, ports, onlyCurrent([](PortTable &port) { port[0].speed = 256; }), ""},
     }));
