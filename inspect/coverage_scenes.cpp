#include "inspect/coverage_scenes.h"

#include "inspect/fields.h"
#include "platform/host/factory.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iterator>

namespace inspect {
namespace {

/// The two kinds of filled images: every row is in use in both, and their values differ. The addresses of the first one
/// are IPv4, those of the second one IPv6.
enum class Filling { first, second };

void putNumber(unsigned char *bytes, std::size_t size, std::uint64_t number) {
    for (; size != 0; number >>= 8) bytes[--size] = static_cast<unsigned char>(number);
}

/// A text that fills its field, another one for each number.
void putText(unsigned char *bytes, std::size_t size, std::size_t number, char pad) {
    char digits[24];
    std::snprintf(digits, sizeof digits, "%zu", number);
    const std::size_t length = std::strlen(digits);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<unsigned char>(i == 0        ? pad
                                              : i <= length ? digits[i - 1]
                                                            : static_cast<char>('a' + i % 26));
}

/// A value for a leaf that its number tells from all others.
void putValue(const Leaf &leaf, std::size_t number, Filling filling, unsigned char *bytes) {
    const Field &field = leaf.field();
    const bool second = filling == Filling::second;
    if (second) number += 37;
    const bool tellsUse = field.name == "inUse" || field.name == "valid";
    switch (field.kind) {
    case Kind::flag: return putNumber(bytes, field.size, tellsUse || !second ? 1 : 0);
    case Kind::code: {
        const std::size_t words = field.wordOf != nullptr ? field.wordCount - 1 : field.words.size();
        const std::size_t which = number % words;
        const std::int64_t code =
            field.wordOf != nullptr ? static_cast<std::int64_t>(which + 1) : field.words[which].code;
        return putNumber(bytes, field.size, static_cast<std::uint64_t>(code));
    }
    case Kind::number: return putNumber(bytes, field.size, field.size == 1 ? 10 + number % 110 : 1000 + number % 30000);
    case Kind::portNumber: return putNumber(bytes, field.size, number % portCount);
    case Kind::vlanId: return putNumber(bytes, field.size, 1 + number % 4000);
    case Kind::text:
    case Kind::secret: return putText(bytes, field.size, number, second ? 'q' : 'p');
    case Kind::mac:
    case Kind::bytes:
        for (std::size_t i = 0; i < field.size; ++i) bytes[i] = static_cast<unsigned char>(number >> i % 2 * 8);
        return;
    case Kind::ipv4:
        if (!second) putNumber(bytes, field.size, 0x0a000000U + number);
        return;
    case Kind::ipv6:
        if (second) putNumber(bytes, field.size, 0x0a000000U + number), bytes[0] = 0x20, bytes[1] = 0x01;
        return;
    case Kind::bits:
        for (const std::size_t bit : {number % 24, number % 24 + 3})
            if (bit / 8 < field.size) bytes[bit / 8] = static_cast<unsigned char>(bytes[bit / 8] | 1U << bit % 8);
        return;
    case Kind::reserved:
    case Kind::record: return;
    }
}

/// Fills every row, then what needs a certain form to show.
void fill(ConfigImage &image, Filling filling) {
    const bool second = filling == Filling::second;
    std::memset(static_cast<void *>(&image), 0, sizeof image);
    std::size_t number = 0;
    forEachLeaf(Part::image,
                [&](const Leaf &leaf) { putValue(leaf, ++number, filling, leaf.in(static_cast<void *>(&image))); });

    image.time.offset = second ? "MMMMMMMMMMMMMMM.2.0-M1111111.1.0" : "NNNNNNNNNNNNNNN.2.0-N1111111.1.0";
    for (TimeRange &range : image.timeRanges) {
        range.absoluteStart = second ? "08:00 and a long form x,1,5,2026" : "09:00 and a long form x,2,6,2027";
        range.absoluteEnd = second ? "18:00 and a long form x,1,2,2026" : "19:00 and a long form x,2,3,2027";
        for (TimeRange::Periodic &periodic : range.periodic) {
            periodic.start = second ? "1,08:00 and long" : "2,09:00 and long";
            periodic.end = second ? "3,18:00 and long" : "4,19:00 and long";
        }
    }
    // The bytes after the description of a port are read with it, as the mark of a circuit id that joined another.
    for (PortSettings &port : image.ports) std::memset(port.further.bytes, 'f', sizeof port.further.bytes);
    if (second)
        for (const std::size_t port : {std::size_t{0}, std::size_t{12}, std::size_t{13}, std::size_t{portCount - 2}})
            image.circuitIds.text[port + 1] = image.circuitIds.text[port];
    for (std::size_t i = 0; i < std::size(image.acl); ++i) {
        // Up to 128 a rule matches IPv4, from 129 on IPv6.
        image.acl[i].number = static_cast<std::int32_t>(second ? 200 + i : i % 128 + 1);
        image.acl[i].match.bytes[0] = 0xff;
        image.acl[i].match.bytes[1] = 0x1f;
    }
    for (u8 &queue : image.priority.queueOfDscp) queue %= 8;
    for (u8 &queue : image.priority.queueOf8021p) queue %= 8;
    // The text has room for some of the VLANs only.
    std::memset(image.igmpVlans.inUse.bytes, 0, sizeof image.igmpVlans.inUse);
    for (unsigned vlan = 0; vlan < 4096; ++vlan)
        if (vlan % 16 == 0 || vlan < 4 || vlan > 4090 || vlan == 2047) image.igmpVlans.inUse.set(vlan);
    constexpr std::size_t lastVlan = std::extent_v<TagVlanTable> - 1;
    for (std::size_t i = 0; i <= lastVlan; ++i)
        if (second && i > 2 && i < lastVlan - 2 && i != lastVlan / 2) image.tagVlans[i].inUse = 0;
    // The management VLAN has a port of each kind.
    TagVlan &management = image.tagVlans[second ? 0 : lastVlan];
    management.members.set(cpuPort).set(1).set(2);
    image.vlanPorts[0].mode = 0;
    image.vlanPorts[0].accessVlan = management.id.value();
    image.vlanPorts[1].mode = 1;
    image.vlanPorts[2].mode = 2;
    image.backup.serverIsIpv6 = second ? 1 : 0;
    // All ports but one have a rate limit.
    if (second)
        for (PortBitmap *const ports : {&image.rateLimits.ingressPorts, &image.rateLimits.egressPorts}) {
            std::memset(ports->bytes, 0xff, sizeof ports->bytes);
            ports->clear(5).clear(28).clear(29).clear(30).clear(31);
        }
}

void composeEqual(Store &store, Filling filling) {
    fill(store.current, filling);
    store.defaults = store.current;
}

constexpr Scene scenes[] = {
    {true, [](Store &store) { composeEqual(store, Filling::first); }},
    {true, [](Store &store) { composeEqual(store, Filling::second); }},
    {true,
     [](Store &store) {
         composeEqual(store, Filling::first);
         store.settings.md5Passwords = true;
         store.board.boardType = 5027;
         store.board.capabilities = 0;
     }},
    {true, [](Store &) {}},
    {true,
     [](Store &store) {
         factory::composeRunning(store.current);
         store.defaults = store.current;
     }},
    {false,
     [](Store &store) {
         factory::composeRunning(store.current);
         factory::composeDefault(store.defaults);
     }},
    {false,
     [](Store &store) {
         fill(store.current, Filling::first);
         fill(store.defaults, Filling::second);
     }},
    {false,
     [](Store &store) {
         fill(store.current, Filling::second);
         fill(store.defaults, Filling::first);
         store.settings.md5Passwords = true;
     }},
    {false, [](Store &store) { fill(store.current, Filling::first); }},
    {false, [](Store &store) { fill(store.current, Filling::second); }},
    {false, [](Store &store) { fill(store.defaults, Filling::second); }},
    {false,
     [](Store &store) {
         fill(store.current, Filling::second);
         fill(store.defaults, Filling::first);
         // What is read past a description ends with the first NUL, so that the next port's settings must have none.
         for (PortSettings &port : store.defaults.ports) std::memset(&port, 'f', offsetof(PortSettings, speed));
     }},
};

} // namespace

std::span<const Scene> coverageScenes() { return scenes; }

void show(const Scene &scene, Store &store, Renderer &renderer) {
    std::memset(static_cast<void *>(&store), 0, sizeof store);
    store.settings = {1, false};
    store.board.boardType = 5028;
    store.board.capabilities = 0x1ff;
    scene.compose(store);
    renderer.current() = store.current;
    renderer.defaults() = store.defaults;
    renderer.board() = store.board;
    renderer.settings() = store.settings;
}

} // namespace inspect
