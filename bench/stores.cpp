/// Writes stores whose text has a chosen size: `bench_stores DIR zero|factory|busy|largest`. The folder must be there.
///
/// zero: all records zero but for the board. factory: the built-in store. busy and largest: the built-in store with as
/// many named VLANs, with members, as make about 60 KiB of text and as just fit the text buffer.
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

void addVlans(int count) {
    for (int i = 0; i < count; ++i) {
        TagVlan &vlan = image.tagVlans[static_cast<std::size_t>(i) + 100];
        vlan.inUse = 1;
        vlan.id = static_cast<std::uint16_t>(1000 + i);
        char name[sizeof vlan.name];
        std::snprintf(name, sizeof name, "customer-network-%d", 1000 + i);
        vlan.name = name;
        // The uplinks, a run of access ports, and one of its own.
        for (unsigned port = 24; port < 28; ++port) vlan.members.set(port);
        for (unsigned port = 0; port < 6; ++port) vlan.members.set(port + static_cast<unsigned>(i) % 7);
        vlan.members.set(15 + static_cast<unsigned>(i) % 8);
    }
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 3) return 2;
    const char *const folder = argv[1];
    const char *const kind = argv[2];
    const int vlans = std::strcmp(kind, "busy") == 0 ? 255 : std::strcmp(kind, "largest") == 0 ? 1473 : 0;
    const bool zero = std::strcmp(kind, "zero") == 0;
    const struct {
        const char *file;
        std::int32_t selector;
    } images[] = {{"running.img", MAPI_CONFIG_RUNNING}, {"default.img", MAPI_CONFIG_DEFAULT}};
    for (const auto &[file, selector] : images) {
        std::memset(&image, 0, sizeof image);
        if (!zero) factory::composeImage(selector, image);
        if (selector == MAPI_CONFIG_RUNNING) addVlans(vlans);
        if (!write(folder, file, &image, sizeof image)) return 1;
    }
    factory::composeBoard(board);
    return write(folder, "board.img", &board, sizeof board) ? 0 : 1;
}
