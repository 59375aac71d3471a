#include "format/port_set.h"

#include "platform/util.h"

PortSet portsIn(const u8 *bitmap) {
    PortSet ports;
    for (int port = 0; port < portCount; ++port)
        ports.bits |= static_cast<std::uint32_t>(utilBitmapCheck(bitmap, port) == 1) << port;
    return ports;
}

PortValues<portCount> valuesOfBits(const u8 *bitmap) {
    PortValues<portCount> values;
    const PortSet ports = portsIn(bitmap);
    for (std::size_t i = 0; i < portCount; ++i) values[i] = ports.bits >> i & 1;
    return values;
}
