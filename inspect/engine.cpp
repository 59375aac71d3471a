#include "inspect/engine.h"

#include "app/header.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace inspect {
namespace {

// ---------------------------------------------------------------------------------------------------------- the stages

/// Bytes that a stage reads in one record: `count` times `size` bytes, `stride` apart.
struct Span {
    Origin origin;
    std::size_t offset;
    std::size_t size;
    std::size_t count = 1;
    std::size_t stride = 0;

    bool touches(std::size_t first, std::size_t length) const {
        const std::size_t end = first + length;
        std::size_t entry = 0;
        if (count > 1 && first >= offset + size) entry = (first - offset - size) / stride + 1;
        const std::size_t begin = offset + entry * stride;
        return entry < count && begin < end && first < begin + size;
    }
};

constexpr order::Call header = {[] {
    initTempConfig();
    return 0;
}};

const order::Call &callOf(Mode mode, std::size_t stage) {
    if (stage == 0) return header;
    const order::Step &step = order::steps[stage - 1];
    return mode == Mode::full ? step.full : step.delta;
}

Span spanOf(std::string_view path) {
    const Leaf leaf = *leafOf(path);
    return {leaf.part() == Part::board ? Origin::board : Origin::platform, leaf.offset(), leaf.size()};
}

std::vector<Span> spansOf(Mode mode, std::size_t stage) {
    if (stage == 0)
        return {spanOf("board.macAddress"), spanOf("board.versionOfBank1"), spanOf("board.versionOfBank2"),
                spanOf("platform.active_bank")};
    std::vector<Span> spans;
    const order::Call &call = callOf(mode, stage);
    if (!call) return spans;
    if (call.argument.size != 0) {
        spans.push_back({Origin::current, call.argument.offset, call.argument.size});
        if (call.withDefaults) spans.push_back({Origin::defaults, call.argument.offset, call.argument.size});
    }
    for (const order::Read &read : call.declaredReads()) {
        const auto add = [&](Origin origin) {
            spans.push_back({origin, read.offset, read.size, read.count, read.stride});
        };
        switch (read.from) {
        case order::Read::From::current: add(Origin::current); break;
        case order::Read::From::defaults: add(Origin::defaults); break;
        case order::Read::From::bothImages: add(Origin::current), add(Origin::defaults); break;
        case order::Read::From::board: add(Origin::board); break;
        // The operations ask for the form of passwords.
        case order::Read::From::platform: spans.push_back(spanOf("platform.password_encryption")); break;
        }
    }
    return spans;
}

/// The spans of all stages of a mode.
const std::vector<Span> &declared(Mode mode, std::size_t stage) {
    using Stages = std::array<std::vector<Span>, stageCount>;
    static const std::array<Stages, 2> all = [] {
        std::array<Stages, 2> made;
        for (const Mode of : modes)
            for (std::size_t i = 0; i < stageCount; ++i) made[static_cast<std::size_t>(of)][i] = spansOf(of, i);
        return made;
    }();
    return all[static_cast<std::size_t>(mode)][stage];
}

// ----------------------------------------------------------------------------------------------------------- the lines

bool opensBlock(std::string_view line) {
    constexpr std::string_view openers[] = {"interface ",
                                            "acl ",
                                            "ip igmp segment ",
                                            "ip igmp profile ",
                                            "qos remarking dscp-map ",
                                            "qos remarking 802.1p-map ",
                                            "snmp-server community ",
                                            "snmp-server trap-destination ",
                                            "time-range ",
                                            "user name "};
    for (const std::string_view opener : openers)
        if (line.starts_with(opener)) return true;
    constexpr std::string_view vlan = "vlan dot1q-vlan ";
    return line.starts_with(vlan) && line.size() > vlan.size() &&
           std::isdigit(static_cast<unsigned char>(line[vlan.size()])) != 0;
}

bool closesBlock(std::string_view line) { return line == "exit" || line == "exit "; }

constexpr std::size_t noLine = SIZE_MAX;

/// Adds the lines of `text`. The first one is in the block that line `opener` opened, or in none.
void addLines(std::string_view text, std::size_t opener, std::vector<StageLine> &lines) {
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string_view line = text.substr(begin, end - begin);
        const std::size_t number = lines.size();
        if (opensBlock(line)) opener = number;
        lines.push_back({line, begin, opener == noLine ? number : opener});
        if (closesBlock(line)) opener = noLine;
        begin = end + 1;
    }
}

/// How many bytes two texts have in common at their beginning.
std::size_t commonFront(std::string_view a, std::string_view b) {
    const std::size_t most = std::min(a.size(), b.size());
    constexpr std::size_t piece = 512;
    std::size_t count = 0;
    while (count + piece <= most && std::memcmp(a.data() + count, b.data() + count, piece) == 0) count += piece;
    while (count < most && a[count] == b[count]) ++count;
    return count;
}

std::size_t commonEnd(std::string_view a, std::string_view b, std::size_t most) {
    constexpr std::size_t piece = 512;
    std::size_t count = 0;
    while (count + piece <= most &&
           std::memcmp(a.data() + a.size() - count - piece, b.data() + b.size() - count - piece, piece) == 0)
        count += piece;
    while (count < most && a[a.size() - 1 - count] == b[b.size() - 1 - count]) ++count;
    return count;
}

/// Lines of two texts that are compared.
struct Compared {
    std::string_view opener;
    std::string_view text;
    friend bool operator==(const Compared &, const Compared &) = default;
};

/// The shortest way from one list to the other: which elements of `a` go and which of `b` come. If it is long, all do.
void compareLists(const std::vector<Compared> &a, const std::vector<Compared> &b, std::vector<std::size_t> &gone,
                  std::vector<std::size_t> &come) {
    constexpr int longest = 400;
    const int n = static_cast<int>(a.size());
    const int m = static_cast<int>(b.size());
    const auto same = [&](int x, int y) { return a[static_cast<std::size_t>(x)] == b[static_cast<std::size_t>(y)]; };
    // farthest[k + middle]: how far into `a` the best way with the present number of edits comes on diagonal k = x - y.
    constexpr int middle = longest + 1;
    std::vector<int> farthest(2 * middle + 1, 0);
    std::vector<std::vector<int>> history;
    const auto stepsDown = [](const std::vector<int> &of, int k, int edits) {
        const auto at = of.begin() + middle + k;
        return k == -edits || (k != edits && at[-1] < at[1]);
    };
    int edits = 0;
    for (bool arrived = false; !arrived; ++edits) {
        if (edits > longest) {
            for (std::size_t i = 0; i < a.size(); ++i) gone.push_back(i);
            for (std::size_t i = 0; i < b.size(); ++i) come.push_back(i);
            return;
        }
        history.push_back(farthest);
        for (int k = -edits; k <= edits && !arrived; k += 2) {
            const auto at = farthest.begin() + middle + k;
            int x = edits == 0 ? 0 : stepsDown(farthest, k, edits) ? at[1] : at[-1] + 1;
            while (x < n && x - k < m && x - k >= 0 && same(x, x - k)) ++x;
            *at = x;
            arrived = x >= n && x - k >= m;
        }
    }
    int x = n;
    int y = m;
    for (--edits; edits > 0; --edits) {
        const std::vector<int> &before = history[static_cast<std::size_t>(edits)];
        const int k = x - y;
        const bool down = stepsDown(before, k, edits);
        const int from = down ? k + 1 : k - 1;
        const int fromX = before.begin()[middle + from];
        if (down) come.push_back(static_cast<std::size_t>(fromX - from));
        else gone.push_back(static_cast<std::size_t>(fromX));
        x = fromX;
        y = fromX - from;
    }
    std::ranges::reverse(gone);
    std::ranges::reverse(come);
}

// ---------------------------------------------------------------------------------------------------------- the values

Bytes numberBytes(const Leaf &leaf, std::uint64_t number) {
    Bytes bytes(leaf.size());
    for (std::size_t i = bytes.size(); i != 0; number >>= 8) bytes[--i] = static_cast<unsigned char>(number);
    return bytes;
}

class Variations {
public:
    Variations(const Leaf &leaf, const unsigned char *now) : now_(now, now + leaf.size()) {}

    void add(Bytes bytes) {
        if (bytes != now_ && std::ranges::find(values_, bytes) == values_.end()) values_.push_back(std::move(bytes));
    }
    /// The value with one byte or bit changed.
    void flip(std::size_t byte, unsigned char bits) {
        Bytes bytes = now_;
        bytes[byte] = static_cast<unsigned char>(bytes[byte] ^ bits);
        add(std::move(bytes));
    }
    void fill(unsigned char byte) { add(Bytes(now_.size(), byte)); }
    const Bytes &now() const { return now_; }
    std::vector<Bytes> take() { return std::move(values_); }

private:
    Bytes now_;
    std::vector<Bytes> values_;
};

void addNumbers(const Leaf &leaf, Variations &values) {
    const Field &field = leaf.field();
    std::int64_t highest = -1;
    const auto add = [&](std::int64_t number) { values.add(numberBytes(leaf, static_cast<std::uint64_t>(number))); };
    for (const Word &word : field.words) add(word.code), highest = std::max(highest, word.code);
    for (std::uint32_t code = 0; code < field.wordCount; ++code)
        add(code), highest = std::max<std::int64_t>(highest, code);
    if (highest >= 0) add(highest + 1);
    add(0);
    add(1);
    if (field.kind == Kind::flag) add(2);
    values.fill(0xff);
    Bytes largest(leaf.size(), 0xff);
    largest[0] = 0x7f;
    values.add(largest);
    if (field.kind == Kind::flag) return;
    const std::int64_t number = numberOf(field, values.now().data());
    add(number + 1);
    add(number - 1);
}

void addTexts(Variations &values) {
    const Bytes &now = values.now();
    const std::size_t length = static_cast<std::size_t>(std::ranges::find(now, 0) - now.begin());
    values.fill(0);
    values.fill('x');
    const auto put = [&](std::size_t at) {
        Bytes bytes = now;
        bytes[at] = bytes[at] == 'x' ? 'y' : 'x';
        values.add(std::move(bytes));
    };
    put(0);
    if (length != 0) put(length - 1);
    if (length < now.size()) put(length);         // one character more
    if (length + 1 < now.size()) put(length + 1); // the first hidden one
}

void addBits(Variations &values, const unsigned char *other) {
    constexpr std::size_t small = 32;
    const std::size_t size = values.now().size();
    values.fill(0);
    values.fill(0xff);
    bool hasUnset = false;
    for (std::size_t byte = 0; byte < size; ++byte)
        for (unsigned bit = 0; bit < 8; ++bit) {
            const unsigned char mask = static_cast<unsigned char>(1U << bit);
            const bool isSet = (values.now()[byte] & mask) != 0 || (other != nullptr && (other[byte] & mask) != 0);
            // Of the bits of a large set that neither image has, the first and the last are enough.
            const bool isLast = byte == size - 1 && bit == 7;
            if (size <= small || isSet || !hasUnset || isLast) values.flip(byte, mask);
            hasUnset = hasUnset || !isSet;
        }
}

void addOctets(Variations &values) {
    constexpr std::size_t most = 64;
    const std::size_t size = values.now().size();
    for (std::size_t byte = 0; byte < size; ++byte)
        if (byte < most || byte == size - 1) values.flip(byte, 0xff);
    values.fill(0);
    values.fill(0xff);
}

} // namespace

std::string_view emitterOf(std::size_t stage) { return stage == 0 ? "header" : order::steps[stage - 1].emitter; }

bool hasStage(Mode mode, std::size_t stage) { return static_cast<bool>(callOf(mode, stage)); }

bool reads(Mode mode, std::size_t stage, Origin origin, std::size_t offset, std::size_t size) {
    return std::ranges::any_of(declared(mode, stage),
                               [&](const Span &span) { return span.origin == origin && span.touches(offset, size); });
}

std::vector<StageLine> linesOf(std::string_view text) {
    std::vector<StageLine> lines;
    addLines(text, noLine, lines);
    return lines;
}

Difference differenceOf(const StageText &before, std::string_view after) {
    Difference difference;
    const std::string_view text = before.text;
    if (text == after) return difference;
    const std::vector<StageLine> &lines = before.lines;
    const std::size_t front = commonFront(text, after);
    const std::size_t end = commonEnd(text, after, std::min(text.size(), after.size()) - front);

    // The lines from `first` to `last` are compared, those around them are the same.
    const auto lineAt = [&](std::size_t offset) {
        return static_cast<std::size_t>(std::ranges::upper_bound(lines, offset, {}, &StageLine::begin) - lines.begin());
    };
    std::size_t first = lineAt(front);
    if (first != 0) --first;
    std::size_t last = lineAt(text.size() - end);
    // The rest of a block that is opened by a line that is compared has to be compared too.
    while (last < lines.size() && lines[last].opener >= first && lines[last].opener < last) ++last;

    const std::size_t begin = first < lines.size() ? lines[first].begin : text.size();
    const std::size_t rest = text.size() - (last < lines.size() ? lines[last].begin : text.size());
    std::vector<StageLine> now;
    // The line that opened the block before is put in front, so that what follows has it.
    const bool isInBlock = first < lines.size() && lines[first].opener < first;
    if (isInBlock) now.push_back({lines[lines[first].opener].text, 0, 0});
    addLines(after.substr(begin, after.size() - rest - begin), isInBlock ? 0 : noLine, now);
    std::vector<Compared> a;
    std::vector<Compared> b;
    for (std::size_t i = first; i < last; ++i) a.push_back({lines[lines[i].opener].text, lines[i].text});
    for (std::size_t i = isInBlock ? 1 : 0; i < now.size(); ++i) b.push_back({now[now[i].opener].text, now[i].text});
    std::vector<std::size_t> come;
    compareLists(a, b, difference.gone, come);
    for (std::size_t &line : difference.gone) line += first;
    for (const std::size_t line : come) difference.come.emplace_back(b[line].text);
    return difference;
}

std::vector<Bytes> variationsOf(const Leaf &leaf, const unsigned char *now, const unsigned char *other) {
    Variations values(leaf, now);
    if (other != nullptr) values.add(Bytes(other, other + leaf.size()));
    switch (leaf.field().kind) {
    case Kind::flag:
    case Kind::number:
    case Kind::code:
    case Kind::portNumber:
    case Kind::vlanId: addNumbers(leaf, values); break;
    case Kind::text:
    case Kind::secret: addTexts(values); break;
    case Kind::bits: addBits(values, other); break;
    case Kind::mac:
    case Kind::ipv4:
    case Kind::ipv6:
    case Kind::bytes: addOctets(values); break;
    case Kind::reserved:
    case Kind::record: break;
    }
    return values.take();
}

Engine::Engine(Renderer &renderer) : renderer_(renderer) {
    platform_ = platformRecordOf({renderer.settings().bank, renderer.settings().md5Passwords});
}

unsigned char *Engine::recordOf(Origin origin) {
    switch (origin) {
    case Origin::current: return reinterpret_cast<unsigned char *>(&renderer_.current());
    case Origin::defaults: return reinterpret_cast<unsigned char *>(&renderer_.defaults());
    case Origin::board: return reinterpret_cast<unsigned char *>(&renderer_.board());
    case Origin::platform: break;
    }
    return reinterpret_cast<unsigned char *>(&platform_);
}

const unsigned char *Engine::bytesOf(const Source &source) { return recordOf(source.origin) + source.leaf.offset(); }

std::optional<Source> Engine::twinOf(const Source &source) {
    if (source.origin == Origin::current) return Source{Origin::defaults, source.leaf};
    if (source.origin == Origin::defaults) return Source{Origin::current, source.leaf};
    return std::nullopt;
}

std::optional<std::string_view> Engine::render(Mode mode, std::size_t stage) {
    try {
        return renderer_.lines(callOf(mode, stage));
    } catch (const RenderError &) {
        return std::nullopt;
    }
}

void Engine::store(Origin origin, std::size_t offset, std::span<const unsigned char> bytes) {
    std::ranges::copy(bytes, recordOf(origin) + offset);
    if (origin != Origin::platform) return;
    renderer_.settings() = {platform_.active_bank.value(), platform_.password_encryption != 0};
}

const StageText &Engine::text(Mode mode, std::size_t stage) {
    std::optional<StageText> &text = texts_[static_cast<std::size_t>(mode)][stage];
    if (!text) {
        text.emplace();
        text->text = renderer_.lines(callOf(mode, stage));
        text->lines = linesOf(text->text);
    }
    return *text;
}

Influence Engine::influence(const Source &source, Mode mode, std::size_t stage) {
    Influence found = {stage, {}, {}};
    if (!reads(mode, stage, source)) return found;
    const StageText &before = text(mode, stage);
    const std::optional<Source> twin = twinOf(source);
    const Bytes now(bytesOf(source), bytesOf(source) + source.leaf.size());
    std::vector<bool> isGone(before.lines.size());
    for (const Bytes &bytes : variationsOf(source.leaf, now.data(), twin ? bytesOf(*twin) : nullptr)) {
        store(source.origin, source.leaf.offset(), bytes);
        const std::optional<std::string_view> after = render(mode, stage);
        store(source.origin, source.leaf.offset(), now);
        if (!after) continue;
        const Difference difference = differenceOf(before, *after);
        for (const std::size_t line : difference.gone) isGone[line] = true;
        for (const std::string &line : difference.come)
            if (std::ranges::find(found.appearing, line) == found.appearing.end()) found.appearing.push_back(line);
    }
    for (std::size_t line = 0; line < isGone.size(); ++line)
        if (isGone[line]) found.lines.push_back(line);
    return found;
}

std::vector<Influence> Engine::influences(const Source &source, Mode mode) {
    std::vector<Influence> all;
    for (std::size_t stage = 0; stage < stageCount; ++stage)
        if (Influence found = influence(source, mode, stage)) all.push_back(std::move(found));
    return all;
}

} // namespace inspect
