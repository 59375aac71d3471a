#include "format/port_set.h"

#include "platform/util.h"

PortSet portsIn(const u8 *bitmap) {
    PortSet ports;
    for (int port = portCount; port-- != 0;) // it answers 1 or 0
        ports.bits = ports.bits << 1 | static_cast<std::uint32_t>(utilBitmapCheck(bitmap, port));
    return ports;
}

PortValues<portCount> valuesOfBits(const u8 *bitmap) {
    PortValues<portCount> values;
    const PortSet ports = portsIn(bitmap);
    for (std::size_t i = 0; i < portCount; ++i) values[i] = ports.bits >> i & 1;
    return values;
}
