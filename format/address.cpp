#include "format/address.h"

bool AddressText::isUnset() const { return std::strcmp(text, "0.0.0.0") == 0; }

bool isZero(const Ipv4 &address) { return utilIpIsZero(address.value()) != 0; }

bool isZero(const Ipv6 &address) { return utilIpv6AddrIsZero(address.octets) != 0; }

AddressText textOf(const Ipv4 &address) {
    AddressText text;
    utilIp2IpStr(address.octets, text.text);
    return text;
}

AddressText textOf(const Ipv6 &address) {
    AddressText text;
    utilIPv6Addr2Str(text.text, address.octets);
    return text;
}

void writeIpv4First(const Ipv4 &ipv4, const Ipv6 &ipv6, AddressText &text) {
    if (isZero(ipv4) && !isZero(ipv6)) utilIPv6Addr2Str(text.text, ipv6.octets);
    else utilIp2IpStr(ipv4.octets, text.text);
}

AddressText ipv4First(const Ipv4 &ipv4, const Ipv6 &ipv6) {
    AddressText text;
    writeIpv4First(ipv4, ipv6, text);
    return text;
}

AddressText ipv6First(const Ipv4 &ipv4, const Ipv6 &ipv6) { return isZero(ipv6) ? textOf(ipv4) : textOf(ipv6); }

void appendServer(const AddressText &server, Format<AddressText> line, Line none) {
    if (server.isUnset()) append(none);
    else append<AddressText>(line, server);
}

AddressText mappedOrIpv6(const Ipv6 &address) {
    if (utilIpv6AddrIsIpv4(address.octets) == 0 && !isZero(address)) return textOf(address);
    AddressText text;
    utilIp2IpStr(address.lastFour(), text.text);
    return text;
}

HexText hexOf(const u8 (&bytes)[2]) {
    HexText text;
    utilAry2Str(bytes, 2, text.text);
    return text;
}

void writePorts(const PortBitmap &ports, PortSetText &text) {
    utilPortBitmap2str(text.text, ports.bytes, portCount, portCount);
}

PortSetText textOf(const PortBitmap &ports) {
    PortSetText text;
    writePorts(ports, text);
    return text;
}

bool noPort(const PortBitmap &ports) { return utilBitmapIsAllClear(ports.bytes, portCount) == 1; }

WorkingPorts complementOf(const PortBitmap &ports) {
    WorkingPorts complement = {};
    utilBitmapSetAll(complement.bytes, portCount);
    utilBitmapNand(complement.bytes, ports.bytes, portCount + 1);
    return complement;
}
