/// Rendering, over any bytes: the six drivers on images, a board record, a bank state and passwords that the input
/// chooses.
#include "target.h"

#include "guarded_images.h"
#include "platform.h"
#include "render_input.h"

#include "app/drivers.h"
#include "app/header.h"
#include "app/order.h"
#include "app/text/text.h"
#include "platform/host/factory.h"
#include "tests/emitter_lists.h"

#include <array>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <string_view>

using fuzz::platform;

namespace {

constexpr std::size_t stepCount = std::size(order::steps);

/// Whether each step may write, by mode.
constexpr auto writers = [] {
    std::array<std::array<bool, stepCount>, 2> all = {};
    for (std::size_t i = 0; i < stepCount; ++i)
        for (const bool delta : {false, true}) all[delta][i] = emitter_lists::mayWrite(order::steps[i].emitter, delta);
    return all;
}();

/// What the inputs have reached so far.
struct Reached {
    bool wrote[2][stepCount]; ///< by mode
    bool driver[fuzz::drivers];
    bool base[fuzz::bases];
    bool bank[3]; ///< the first, the second, another
    bool md5[4];  ///< was asked for a password
    bool refusedHeader;
    bool overflow[2];
} reached;

constexpr Section usersSection = sectionOf<&ConfigImage::users>;
constexpr Section remarkingSection = sectionOf<&ConfigImage::remarking>;

/// One of the two images that are rendered. It goes from the store of one input to that of the next by copying no more
/// than what differs, as most of an image is the same in all of them. Rendering sees it through a view that can be
/// written only in the pages of the sections that rendering may change; those pages are kept as they are before.
class Image {
public:
    Image(ConfigImage *rendered, std::initializer_list<Section> changed)
        : bytes_(reinterpret_cast<std::uint8_t *>(fuzz::writableView(rendered))) {
        for (const Section &section : changed) {
            Section &pages = changed_[changedCount_++];
            pages = fuzz::pagesOf(section);
            DEMAND(pages.offset % blockSize == 0 && pages.size % blockSize == 0);
        }
        fuzz::protectAllBut(rendered, changed_, changedCount_);
        std::memset(holds_, touchedBlock, sizeof holds_);
    }

    /// The image in a base store, to be filled before `become`.
    ConfigImage &base(int which) { return bases_[which]; }
    /// The bases are filled: finds out in which blocks they are the same.
    void compareBases() {
        for (int base = 0; base < fuzz::bases; ++base)
            for (std::size_t block = 0; block < blockCount; ++block) {
                int same = 0;
                while (std::memcmp(blockOf(same, block), blockOf(base, block), blockSize) != 0) ++same;
                first_[base][block] = static_cast<std::uint8_t>(same);
            }
    }
    void become(std::size_t base) {
        for (std::size_t block = 0; block < blockCount; ++block) {
            if (holds_[block] == first_[base][block]) continue;
            std::memcpy(bytes_ + block * blockSize, blockOf(static_cast<int>(base), block), blockSize);
            holds_[block] = first_[base][block];
        }
    }

    std::uint8_t *bytes() { return bytes_; }
    void touched(std::size_t from, std::size_t size) {
        if (size == 0) return;
        const std::size_t first = from / blockSize;
        std::memset(holds_ + first, touchedBlock, (from + size - 1) / blockSize - first + 1);
    }

    /// Keeps what rendering may change. To be called after the last patch.
    void keep() {
        for (const Section &pages : pagesThatChange()) {
            std::memcpy(reinterpret_cast<std::uint8_t *>(&kept_) + pages.offset, bytes_ + pages.offset, pages.size);
            touched(pages.offset, pages.size);
        }
    }
    void restore() {
        for (const Section &pages : pagesThatChange())
            std::memcpy(bytes_ + pages.offset, bytesOf(kept_, pages.offset), pages.size);
    }
    /// Demands that the pages that can be written are as they were kept, once `change` has been applied to that.
    template <class Change> void demandNoOtherChange(Change change) {
        for (const Section &pages : pagesThatChange())
            std::memcpy(reinterpret_cast<std::uint8_t *>(&allowed_) + pages.offset, bytesOf(kept_, pages.offset),
                        pages.size);
        change(allowed_);
        for (const Section &pages : pagesThatChange())
            DEMAND(std::memcmp(bytes_ + pages.offset, bytesOf(allowed_, pages.offset), pages.size) == 0);
    }

private:
    static constexpr std::size_t blockSize = 512;
    static constexpr std::size_t blockCount = sizeof(ConfigImage) / blockSize;
    static constexpr std::uint8_t touchedBlock = 0xff;
    static_assert(sizeof(ConfigImage) % blockSize == 0);

    struct Range {
        const Section *first;
        const Section *last;
        const Section *begin() const { return first; }
        const Section *end() const { return last; }
    };
    Range pagesThatChange() const { return {changed_, changed_ + changedCount_}; }
    const unsigned char *blockOf(int base, std::size_t block) const { return bytesOf(bases_[base], block * blockSize); }

    std::uint8_t *bytes_; ///< of what is rendered
    Section changed_[2] = {};
    std::size_t changedCount_ = 0;
    ConfigImage bases_[fuzz::bases];
    std::uint8_t first_[fuzz::bases][blockCount]; ///< the first base that holds the same bytes
    std::uint8_t holds_[blockCount]; ///< what each block holds: the first base that does, or `touchedBlock`
    // Of these, only the pages that can be written are in use.
    ConfigImage kept_;
    ConfigImage allowed_;
};

struct Given {
    Image current{gSysConfig, {usersSection, remarkingSection}};
    Image defaults{gDefConfig, {remarkingSection}};
    BoardRecord factoryBoard;
    BoardRecord board;

    Given() {
        for (int base = 0; base < fuzz::bases; ++base)
            fuzz::composeBase(static_cast<fuzz::Base>(base), current.base(base), defaults.base(base));
        current.compareBases();
        defaults.compareBases();
        factory::composeBoard(factoryBoard);
    }
    Image &image(bool isDefault) { return isDefault ? defaults : current; }
};

Given &given() {
    static Given all;
    return all;
}

/// Bytes that look random, as many as an image has; others for each seed and record.
const std::uint8_t *noiseOf(std::size_t seed, int record) {
    constexpr std::size_t apart = 331;
    static std::uint8_t bytes[sizeof(ConfigImage) + 256 * 3 * apart];
    static std::uint32_t noise = 0;
    if (noise == 0) {
        noise = 2654435761U;
        for (std::uint8_t &byte : bytes) {
            noise ^= noise << 13;
            noise ^= noise >> 17;
            noise ^= noise << 5;
            byte = static_cast<std::uint8_t>(noise >> 11);
        }
    }
    return bytes + (seed * 3 + static_cast<std::size_t>(record)) * apart;
}

void patch(Input &input) {
    const std::uint8_t what = input.byte();
    const Section &section = fuzz::sections[input.byte() % std::size(fuzz::sections)];
    std::size_t place = input.number(3) % section.size + section.offset;

    const int kind = what >> 2 & 3;
    std::size_t count = 1;
    std::size_t step = 0;
    std::size_t length = 0;
    const std::uint8_t *bytes = nullptr;
    std::uint32_t seed = 0;
    switch (kind) {
    case fuzz::bytesKind:
        length = input.byte();
        bytes = input.bytes(length);
        break;
    case fuzz::repeatKind:
        length = input.byte();
        step = input.number(2);
        count = input.number(2);
        bytes = input.bytes(length);
        break;
    case fuzz::noiseKind:
        length = input.number(3);
        seed = input.byte();
        break;
    default: length = input.number(3);
    }

    for (int record = 0; record < 3; ++record) { // current, default, board
        const int chosen = what & 3;
        const bool board = chosen == fuzz::boardRecord;
        if (board != (record == 2) || (!board && chosen != fuzz::bothRecords && chosen != record)) continue;
        const std::size_t size = board ? sizeof(BoardRecord) : sizeof(ConfigImage);
        std::uint8_t *const to =
            board ? reinterpret_cast<std::uint8_t *>(&given().board) : given().image(record == 1).bytes();
        std::size_t at = place % size;
        if (!board && count != 0) {
            const std::size_t whole = (count - 1) * step + length;
            given().image(record == 1).touched(at, whole < size - at ? whole : size - at);
        }
        for (std::size_t i = 0; i < count && at < size; ++i, at += step) {
            const std::size_t most = length < size - at ? length : size - at;
            if (bytes != nullptr) std::memcpy(to + at, bytes, most);
            else if (kind == fuzz::noiseKind) std::memcpy(to + at, noiseOf(seed, record), most);
            else if (kind == fuzz::copyKind && !board)
                std::memmove(to + at, given().image(record == 0).bytes() + at, most);
        }
    }
}

/// The text as it is. Demands what holds of every text.
std::string_view text() {
    const std::size_t length = strnlen(Temp_Configuration, textBufferSize);
    DEMAND(length < textBufferSize);
    static constexpr char zeros[textBufferSize] = {};
    DEMAND(std::memcmp(Temp_Configuration + length, zeros, textBufferSize - length) == 0);
    DEMAND(LineBuffer[0] == '\0');
    // A line may be appended in pieces, and the last piece that fits need not be its end.
    DEMAND(length == 0 || Temp_Configuration[length - 1] == '\n' || textOverflowed());
    return {Temp_Configuration, length};
}

/// Sets everything up as the input has it; the text is empty.
void prepare(bool refused) {
    given().current.restore();
    given().defaults.restore();
    g_EEPROM = given().board;
    clearText();
    fuzz::forgetCalls();
    platform.failingCall = refused ? 0 : -1;
}

/// Of what rendering was given it may change the markers of remarking, when it compares, and the MD5 forms of current
/// passwords, when they are on.
void demandUnchanged(bool delta) {
    DEMAND(sameBytes(g_EEPROM, given().board));
    const auto mark = [delta](ConfigImage &image) {
        if (!delta) return;
        for (RemarkPriority &entry : image.remarking.priority) entry.marker = 1;
        for (RemarkDscp &entry : image.remarking.dscp) entry.marker = 1;
    };
    given().current.demandNoOtherChange([mark](ConfigImage &image) {
        mark(image);
        if (platform.method == 0) return;
        for (std::size_t i = 0; i < std::size(image.users); ++i)
            if (image.users[i].passwordMd5.empty()) image.users[i].passwordMd5 = gSysConfig->users[i].passwordMd5;
    });
    given().defaults.demandNoOtherChange(mark);
    DEMAND(platform.open == 0);
}

void demandPrefix(std::string_view &text, std::string_view prefix) {
    DEMAND(text.substr(0, prefix.size()) == prefix);
    text.remove_prefix(prefix.size());
}

/// The lines before the first step. A version may hold a newline of its own.
void renderHeader(std::size_t driver, bool refused) {
    const bool page = driver == fuzz::fullPage || driver == fuzz::deltaPage;
    if (page) initHtmlConfig();
    else if (driver == fuzz::fullDefault || driver == fuzz::deltaDefault) initDefConfig();
    else initTempConfig();

    std::string_view header(Temp_Configuration, strnlen(Temp_Configuration, textBufferSize));
    DEMAND(LineBuffer[0] == '\0');
    DEMAND(platform.starts == (page || refused ? 0 : 1));
    if (!page && !refused) {
        demandPrefix(header, "# VERSION 5036 6000 ");
        const char *shown = platform.bank == 1   ? given().board.versionOfBank1.characters
                            : platform.bank == 2 ? given().board.versionOfBank2.characters
                                                 : "";
        demandPrefix(header, {shown, strnlen(shown, sizeof given().board.versionOfBank1.characters)});
        demandPrefix(header, " MAC ");
        DEMAND(header.size() > std::size("00:11:22:33:44:55") - 1);
        header.remove_prefix(std::size("00:11:22:33:44:55") - 1);
        demandPrefix(header, "\n");
    }
    DEMAND(header == (refused ? "" : "configure\n"));
}

/// Runs the steps of one mode singly, after the header.
void renderInSteps(bool delta) {
    std::size_t length = strnlen(Temp_Configuration, textBufferSize);
    for (std::size_t i = 0; i < stepCount; ++i) {
        const order::Step &step = order::steps[i];
        const auto call = delta ? step.delta : step.full;
        if (!call) continue;
        call();
        DEMAND(LineBuffer[0] == '\0');
        const std::size_t added = strnlen(Temp_Configuration + length, textBufferSize - length);
        if (added == 0) continue;
        DEMAND(writers[delta][i]);
        reached.wrote[delta][i] = true;
        length += added;
        DEMAND(Temp_Configuration[length - 1] == '\n' || textOverflowed());
    }
}

/// Whether an input is rendered a second time, by its driver. A driver is its header and its steps whatever the images
/// hold, so that a part of the inputs is enough; the same ones each time. A replay tries all.
bool isRenderedTwice(const std::uint8_t *data, std::size_t size) {
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < size; ++i) sum = sum * 31 + data[i];
    return thorough || (sum * 2654435761U) >> 28 == 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static constexpr void (*calls[])() = {convConfig,      convDefConfig,      convHtmlConfig,
                                          convDeltaConfig, convDeltaDefConfig, convDeltaHtmlConfig};

    Input input(data, size);
    const std::size_t driver = input.byte() % fuzz::drivers;
    const std::size_t base = input.byte() % fuzz::bases;
    platform.bank = static_cast<std::int8_t>(input.byte());
    const std::uint8_t flags = input.byte();
    platform.method = (flags & fuzz::md5Passwords) != 0 ? 1 : 0;
    platform.md5 = static_cast<fuzz::Md5>(flags & 3);
    const bool page = driver == fuzz::fullPage || driver == fuzz::deltaPage;
    const bool refused = (flags & fuzz::headerRefused) != 0 && !page;
    const bool delta = driver >= fuzz::deltaRunning;

    given().current.become(base);
    given().defaults.become(base);
    given().board = base == fuzz::zeroBase ? BoardRecord{} : given().factoryBoard;
    while (!input.empty()) patch(input);
    given().current.keep();
    given().defaults.keep();

    prepare(refused);
    renderHeader(driver, refused);
    renderInSteps(delta);
    const std::string_view steps = text();
    demandUnchanged(delta);
    const bool overflowed = textOverflowed();
    reached.md5[flags & 3] = reached.md5[flags & 3] || platform.md5Calls != 0;

    // As a run renders it.
    if (isRenderedTwice(data, size)) {
        static char kept[textBufferSize];
        steps.copy(kept, steps.size());
        prepare(refused);
        calls[driver]();
        DEMAND(text() == std::string_view(kept, steps.size()));
        DEMAND(textOverflowed() == overflowed);
        DEMAND(platform.starts == (page || refused ? 0 : 1));
        demandUnchanged(delta);
        reached.driver[driver] = true;
    }

    reached.base[base] = true;
    reached.bank[platform.bank == 1 ? 0 : platform.bank == 2 ? 1 : 2] = true;
    reached.refusedHeader = reached.refusedHeader || refused;
    reached.overflow[delta] = reached.overflow[delta] || overflowed;
    return 0;
}

bool everythingReached() {
    bool everything = true;
    const auto need = [&everything](bool isReached, const char *what, int which) {
        if (!isReached) std::printf("not reached: %s %d\n", what, which);
        everything = everything && isReached;
    };
    for (const bool delta : {false, true})
        for (std::size_t i = 0; i < stepCount; ++i) {
            const order::Step &step = order::steps[i];
            if (!(delta ? step.delta : step.full) || !writers[delta][i] || reached.wrote[delta][i]) continue;
            std::printf("wrote nothing in %s mode: %s\n", delta ? "delta" : "full", step.emitter.data());
            everything = false;
        }
    for (int i = 0; i < fuzz::drivers; ++i) need(reached.driver[i], "driver", i);
    for (int i = 0; i < fuzz::bases; ++i) need(reached.base[i], "base", i);
    for (int i = 0; i < 3; ++i) need(reached.bank[i], "bank", i);
    for (int i = 0; i < 4; ++i) need(reached.md5[i], "MD5 form of a password", i);
    for (int i = 0; i < 2; ++i) need(reached.overflow[i], "text that is too long, mode", i);
    need(reached.refusedHeader, "header that is refused a transaction", 0);
    return everything;
}
