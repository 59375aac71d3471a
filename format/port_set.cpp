#include "format/port_set.h"

#include "platform/util.h"

PortSet portsIn(const u8 *bitmap) {
    PortSet ports;
    for (int port = 0; port < portCount; ++port) // an answer that is neither 0 nor 1 changes no other port
        ports.bits = ports.bits >> 1 | static_cast<std::uint32_t>(utilBitmapCheck(bitmap, port)) << 31;
    ports.bits >>= 32 - portCount;
    return ports;
}

PortValues<portCount> valuesOfBits(const u8 *bitmap) {
    PortValues<portCount> values;
    const PortSet ports = portsIn(bitmap);
    for (std::size_t i = 0; i < portCount; ++i) values[i] = ports.bits >> i & 1;
    return values;
}
