/// The images and the board record in place of the program's own, with pages before and after each image that cannot be
/// touched, so that every step over its ends is noticed on every host.
#include "guarded_images.h"

#include "target.h"

#include "platform/board.h"

#include <sys/mman.h>
#include <unistd.h>

namespace {

struct Views {
    ConfigImage *guarded;
    ConfigImage *writable;
};

std::size_t pageSize() { return static_cast<std::size_t>(sysconf(_SC_PAGESIZE)); }

/// The same memory twice: once between the pages that cannot be touched, once by itself.
Views makeViews() {
    const std::size_t page = pageSize();
    DEMAND(sizeof(ConfigImage) % page == 0);
    const int memory = memfd_create("image", MFD_CLOEXEC);
    DEMAND(memory != -1 && ftruncate(memory, sizeof(ConfigImage)) == 0);
    void *const around = mmap(nullptr, sizeof(ConfigImage) + 2 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    DEMAND(around != MAP_FAILED);
    char *const inside = static_cast<char *>(around) + page;
    void *const guarded = mmap(inside, sizeof(ConfigImage), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, memory, 0);
    void *const writable = mmap(nullptr, sizeof(ConfigImage), PROT_READ | PROT_WRITE, MAP_SHARED, memory, 0);
    DEMAND(guarded == inside && writable != MAP_FAILED);
    close(memory);
    return {static_cast<ConfigImage *>(guarded), static_cast<ConfigImage *>(writable)};
}

const Views current = makeViews();
const Views defaults = makeViews();

} // namespace

ConfigImage *const gSysConfig = current.guarded;
ConfigImage *const gDefConfig = defaults.guarded;
BoardRecord g_EEPROM;

ConfigImage *fuzz::writableView(const ConfigImage *image) {
    return image == current.guarded ? current.writable : defaults.writable;
}

Section fuzz::pagesOf(const Section &section) {
    const std::size_t page = pageSize();
    const std::size_t first = section.offset / page * page;
    return {section.name, first, (section.end() + page - 1) / page * page - first};
}

void fuzz::protectAllBut(ConfigImage *image, const Section *pages, std::size_t count) {
    DEMAND(mprotect(image, sizeof *image, PROT_READ) == 0);
    for (const Section *open = pages; open != pages + count; ++open)
        DEMAND(mprotect(reinterpret_cast<char *>(image) + open->offset, open->size, PROT_READ | PROT_WRITE) == 0);
}
