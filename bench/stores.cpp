/// Writes stores whose text has a chosen size: `bench_stores DIR zero|factory|busy|largest`. The folder must be there.
///
/// zero: all records zero but for the board. factory: the built-in store. busy and largest: the built-in store with the
/// large tables filled evenly, so far as makes about 60 KiB of text and as just fits the text buffer.
#include "platform/host/factory.h"
#include "platform/image.h"
#include "platform/mapi.h"

#include <cstdio>
#include <cstring>
#include <iterator>

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

template <std::size_t Width> void name(Text<Width> &text, const char *what, std::size_t number) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%s-%zu", what, number);
    text = buffer;
}

void fillVlans(std::size_t count) {
    for (std::size_t i = 100; i < 100 + count; ++i) {
        TagVlan &vlan = image.tagVlans[i];
        vlan.inUse = 1;
        vlan.id = static_cast<std::uint16_t>(1000 + i);
        name(vlan.name, "customer-network", i);
        // The uplinks, a run of access ports, and one by itself.
        for (unsigned port = 24; port < 28; ++port) vlan.members.set(port);
        for (unsigned port = 0; port < 6; ++port) vlan.members.set(port + static_cast<unsigned>(i % 7));
        vlan.members.set(15 + static_cast<unsigned>(i % 8));
    }
}

void fillRules(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        AclRule &rule = image.acl[i];
        rule.valid = 1;
        rule.number = static_cast<std::int32_t>(i + 1);
        rule.action = static_cast<u8>(i % 4);
        rule.match.set(static_cast<unsigned>(i % 13)).set(static_cast<unsigned>(i * 5 % 13));
        rule.source = {{192, 0, 2, static_cast<u8>(i)}};
        rule.sourceMask = {{255, 255, 255, 255}};
        rule.destinationIpv6 = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, static_cast<u8>(i)}};
        rule.ingressPorts.set(static_cast<unsigned>(i % 28));
    }
}

void fillMulticast(std::size_t percent) {
    for (std::size_t i = 0; i < std::size(image.multicastSegments) * percent / 100; ++i) {
        MulticastSegment &segment = image.multicastSegments[i];
        segment.valid = 1;
        segment.id = static_cast<std::uint16_t>(i + 1);
        name(segment.name, "channel-group", i);
        segment.first = {{239, 1, static_cast<u8>(i), 0}};
        segment.last = {{239, 1, static_cast<u8>(i), 255}};
    }
    for (std::size_t i = 1; i < 4094 * percent / 100; ++i) {
        image.igmpVlans.inUse.set(static_cast<unsigned>(i));
        image.igmpVlans.vlan[i].snooping = i % 2;
    }
}

void fillMacTable(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        MacEntry &entry = image.macTable[i];
        entry.inUse = 1;
        entry.address = {{0, 0, 0x5e, 0, 0x53, static_cast<u8>(i)}};
        entry.port = static_cast<u8>(i % 28);
        entry.vlan = static_cast<std::uint32_t>(1000 + i);
    }
}

/// Fills the large tables to so many hundredths.
void fill(std::size_t percent) {
    fillVlans((std::size(image.tagVlans) - 100) * percent / 100);
    fillRules(std::size(image.acl) * percent / 100);
    fillMulticast(percent);
    fillMacTable(std::size(image.macTable) * percent / 100);
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 3) return 2;
    const char *const folder = argv[1];
    const char *const kind = argv[2];
    const std::size_t percent = std::strcmp(kind, "busy") == 0 ? 8 : std::strcmp(kind, "largest") == 0 ? 42 : 0;
    const bool zero = std::strcmp(kind, "zero") == 0;
    const struct {
        const char *file;
        std::int32_t selector;
    } images[] = {{"running.img", MAPI_CONFIG_RUNNING}, {"default.img", MAPI_CONFIG_DEFAULT}};
    for (const auto &[file, selector] : images) {
        std::memset(&image, 0, sizeof image);
        if (!zero) factory::composeImage(selector, image);
        if (selector == MAPI_CONFIG_RUNNING && percent != 0) fill(percent);
        if (!write(folder, file, &image, sizeof image)) return 1;
    }
    factory::composeBoard(board);
    return write(folder, "board.img", &board, sizeof board) ? 0 : 1;
}
