/// The images and the board record in place of the program's own, with pages before and behind each image that cannot
/// be touched, so that every step over its ends is noticed on every host.
#include "target.h"

#include "platform/board.h"
#include "platform/image.h"

#include <sys/mman.h>
#include <unistd.h>

namespace {

ConfigImage *guarded() {
    const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    DEMAND(sizeof(ConfigImage) % page == 0);
    void *const memory = mmap(nullptr, sizeof(ConfigImage) + 2 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    DEMAND(memory != MAP_FAILED);
    char *const image = static_cast<char *>(memory) + page;
    DEMAND(mprotect(image, sizeof(ConfigImage), PROT_READ | PROT_WRITE) == 0);
    return reinterpret_cast<ConfigImage *>(image);
}

} // namespace

ConfigImage *const gSysConfig = guarded();
ConfigImage *const gDefConfig = guarded();
BoardRecord g_EEPROM;
