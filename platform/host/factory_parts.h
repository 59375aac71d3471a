/// What the files that compose the built-in store share.
#pragma once

#include "platform/host/factory.h"

namespace factory {

/// The VLAN of the switch's own management.
inline constexpr std::uint16_t managementVlan = 99;

/// The value of a setting that is on.
inline constexpr u8 on = 1;

inline constexpr int firstUplink = 25;
inline constexpr int lastUplink = 28;

constexpr Ipv4 ipv4(u8 a, u8 b, u8 c, u8 d) { return {{a, b, c, d}}; }

/// 2001:db8:`network`::`host`.
constexpr Ipv6 ipv6(std::uint16_t network, std::uint16_t host) {
    const be16 net = be16{{static_cast<u8>(network >> 8), static_cast<u8>(network)}};
    const be16 end = be16{{static_cast<u8>(host >> 8), static_cast<u8>(host)}};
    return {{0x20, 0x01, 0x0d, 0xb8, net.bytes[0], net.bytes[1], 0, 0, 0, 0, 0, 0, 0, 0, end.bytes[0], end.bytes[1]}};
}

/// ::ffff:`address`.
constexpr Ipv6 mapped(Ipv4 address) {
    return {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, address.octets[0], address.octets[1], address.octets[2],
             address.octets[3]}};
}

constexpr Mac documentationMac(u8 last) { return {{0x00, 0x00, 0x5e, 0x00, 0x53, last}}; }
inline constexpr Mac wholeMac = {{0xff, 0xff, 0xff, 0xff, 0xff, 0xff}};

/// Numbers of the ports from `first` to `last`, both included, as indices of the per-port arrays.
struct Ports {
    int first;
    int last;

    struct Index {
        int value;
        constexpr int operator*() const { return value; }
        constexpr Index &operator++() {
            ++value;
            return *this;
        }
        friend constexpr bool operator==(const Index &a, const Index &b) { return a.value == b.value; }
    };
    constexpr Index begin() const { return {first - 1}; }
    constexpr Index end() const { return {last}; }
};
inline constexpr Ports allPorts = {1, portCount};
inline constexpr Ports accessPorts = {1, firstUplink - 1};
inline constexpr Ports uplinks = {firstUplink, lastUplink};

template <std::size_t Bytes> void add(Bitmap<Bytes> &set, Ports ports) {
    for (int index : ports) set.set(static_cast<unsigned>(index));
}
template <std::size_t Bytes> void remove(Bitmap<Bytes> &set, Ports ports) {
    for (int index : ports) set.clear(static_cast<unsigned>(index));
}
template <std::size_t Bytes> void addCpu(Bitmap<Bytes> &set) { set.set(cpuPort); }

/// Gives `value` to the ports' entries of a per-port array.
template <class Entry, std::size_t Count, class Value> void give(Entry (&array)[Count], Ports ports, Value value) {
    for (int index : ports) array[index] = value;
}

inline void bindVlan(TagVlan &vlan, std::uint16_t id, const char *name) {
    vlan.inUse = on;
    vlan.id = id;
    vlan.name = name;
}

inline void setUser(User &user, const char *name, const char *password, u8 level, const char *description) {
    user.active = on;
    user.inUse = on;
    user.name = name;
    user.password = password;
    user.level = level;
    user.description = description;
}

inline void setCommunity(Community &community, const char *name, u8 level, const char *description) {
    community.inUse = on;
    community.active = on;
    community.name = name;
    community.level = level;
    community.description = description;
}

} // namespace factory
