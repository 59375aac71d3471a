/// Writes stores whose text has a chosen size: `bench_stores DIR zero|factory|busy|random|largest`. The folder must be
/// there.
///
/// zero: all records zero but for the board. factory: the built-in store. busy and largest: the built-in store with the
/// large tables filled as in fill.h. random: the built-in store with ports and tables filled at random, the same each
/// time, to about 63 KB of text.
#include "fill.h"

#include "platform/host/factory.h"
#include "platform/image.h"
#include "platform/mapi.h"

#include <cstdio>
#include <cstring>

namespace {

ConfigImage image;
BoardRecord board;

bool write(const char *folder, const char *name, const void *bytes, std::size_t size) {
    char path[4096];
    std::snprintf(path, sizeof path, "%s/%s", folder, name);
    std::FILE *const file = std::fopen(path, "w");
    if (file == nullptr) return false;
    const bool whole = std::fwrite(bytes, 1, size, file) == size;
    return std::fclose(file) == 0 && whole;
}

/// The next of a fixed sequence of numbers that look random, from 0 to `count` - 1.
unsigned draw(unsigned count) {
    static std::uint32_t state = 2463534242U;
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return (state >> 3) % count;
}

template <std::size_t Width> void drawName(Text<Width> &text) {
    char buffer[Width + 1] = {};
    const unsigned length = 1 + draw(Width < 20 ? Width : 20);
    for (unsigned i = 0; i < length; ++i) buffer[i] = "abcdefghijklmnopqrstuvwxyz0123456789-._"[draw(39)];
    text = buffer;
}

void drawPorts(PortBitmap &ports) {
    for (unsigned port = 0; port < portCount; ++port)
        if (draw(3) == 0) ports.set(port);
}

/// Few ports and few entries of a table are the same, and entries lie anywhere in their tables.
void fillAtRandom() {
    for (PortSettings &port : image.ports) {
        drawName(port.description);
        port.speed = static_cast<u8>(draw(4));
        port.duplex = static_cast<u8>(draw(2));
        port.autoNegotiation = static_cast<u8>(draw(2));
        port.flowControl = static_cast<u8>(draw(2));
    }
    for (TagVlan &vlan : image.tagVlans) {
        if (draw(100) >= 13) continue;
        vlan.inUse = 1;
        vlan.id = static_cast<std::uint16_t>(1 + draw(4094));
        drawName(vlan.name);
        drawPorts(vlan.members);
    }
    for (std::size_t i = 0; i < std::size(image.acl); ++i) {
        if (draw(100) >= 15) continue;
        AclRule &rule = image.acl[i];
        rule.valid = 1;
        rule.number = static_cast<std::int32_t>(i + 1);
        rule.action = static_cast<u8>(draw(4));
        for (unsigned condition = 0; condition < 13; ++condition)
            if (draw(4) == 0) rule.match.set(condition);
        rule.source = {{static_cast<u8>(draw(224)), static_cast<u8>(draw(256)), static_cast<u8>(draw(256)), 1}};
        rule.sourceMask = {{255, 255, 255, static_cast<u8>(draw(256))}};
        drawPorts(rule.ingressPorts);
    }
    for (std::size_t i = 0; i < std::size(image.multicastSegments); ++i) {
        if (draw(100) >= 12) continue;
        MulticastSegment &segment = image.multicastSegments[i];
        segment.valid = 1;
        segment.id = static_cast<std::uint16_t>(i + 1);
        drawName(segment.name);
        segment.first = {{239, static_cast<u8>(draw(256)), static_cast<u8>(draw(256)), 0}};
        segment.last = {{239, 255, static_cast<u8>(draw(256)), 255}};
    }
    for (MacEntry &entry : image.macTable) {
        if (draw(100) >= 55) continue;
        entry.inUse = 1;
        entry.address = {{0, 0, 0x5e, 0, 0x53, static_cast<u8>(draw(256))}};
        entry.port = static_cast<u8>(draw(portCount));
        entry.vlan = 1 + draw(4094);
    }
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 3) return 2;
    const char *const folder = argv[1];
    const char *const kind = argv[2];
    const std::size_t percent = std::strcmp(kind, "busy") == 0      ? percentOfBusy
                                : std::strcmp(kind, "largest") == 0 ? percentOfLargest
                                                                    : 0;
    const bool zero = std::strcmp(kind, "zero") == 0;
    const struct {
        const char *file;
        std::int32_t selector;
    } images[] = {{"running.img", MAPI_CONFIG_RUNNING}, {"default.img", MAPI_CONFIG_DEFAULT}};
    for (const auto &[file, selector] : images) {
        std::memset(&image, 0, sizeof image);
        if (!zero) factory::composeImage(selector, image);
        if (selector == MAPI_CONFIG_RUNNING && percent != 0) fill(image, percent);
        if (selector == MAPI_CONFIG_RUNNING && std::strcmp(kind, "random") == 0) fillAtRandom();
        if (!write(folder, file, &image, sizeof image)) return 1;
    }
    factory::composeBoard(board);
    return write(folder, "board.img", &board, sizeof board) ? 0 : 1;
}
