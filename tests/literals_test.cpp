/// Every line of the text is a literal that appears whole in the source of its emitter, and every literal of the
/// sources is a line of some text.
#include "random_stores.h"
#include "stores.h"

#include "app/order.h"
#include "bench/fill.h"
#include "inspect/literals.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <sstream>

namespace {

const inspect::SectionSources &sources() {
    static const inspect::SectionSources all(TEXTCFG_SECTIONS);
    return all;
}

const char *nameOf(Mode mode) { return mode == Mode::full ? "full" : "delta"; }

/// The common code of blocks ends them.
constexpr const char *writtenByBlocks = "exit\n";

/// Literals that several emitters write, because a block of each has such a line, or because one emitter creates what
/// another one fills.
const std::set<std::string> shared = {
    "exit\n",
    "interface %s \n",
    "interface %s\n",
    "interface %d\n",
    "active\n",
    "no active\n",
    "description %s\n",
    "name %s\n",
    "level ro\n",
    "level rw\n",
    "level admin\n",
    "ip dhcp snooping option\n",
    "no ip dhcp snooping option\n",
    "ip igmp filter\n",
    "no ip igmp filter\n",
    "loop-detection\n",
    "no loop-detection\n",
    "poe\n",
    "no poe\n",
    "security mac-limit\n",
    "no security mac-limit\n",
    "channel-group trunking %s\n",
    "vlan port-based %s\n",
    "spanning-tree priority %d\n",
};

std::vector<std::string> linesOf(const std::string &text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line + "\n");
    return lines;
}

/// The literals that were written, by mode and emitter.
class Reached {
public:
    /// Takes the text that an emitter wrote.
    void take(Mode mode, std::string_view emitter) {
        const auto literals = sources().literalsOf(nameOf(mode), emitter);
        auto &texts = reached_[mode];
        for (const std::string &line : linesOf(Temp_Configuration)) {
            const inspect::Literal *const writer = inspect::writerOf(literals, line);
            if (writer == nullptr) {
                EXPECT_EQ(writtenByBlocks, line) << emitter;
                continue;
            }
            texts.insert(writer);
            // After such a beginning its pieces follow, if there are any.
            if (writer->text.back() != '\n' && std::count(line.begin(), line.end(), ' ') > 5)
                for (const inspect::Literal *const piece : literals)
                    if (piece->text.front() == '%') texts.insert(piece);
        }
    }
    bool has(Mode mode, const inspect::Literal *literal) const {
        const auto texts = reached_.find(mode);
        return texts != reached_.end() && texts->second.count(literal) != 0;
    }

private:
    std::map<Mode, std::set<const inspect::Literal *>> reached_;
};

constexpr Mode modes[] = {Mode::full, Mode::delta};

/// Emitters that no driver calls, or not with two images.
struct Direct {
    Mode mode;
    const char *emitter;
    int (*call)();
};
const ServerTrust someTrusted = [] {
    ServerTrust trust = {};
    trust.ports.set(1);
    return trust;
}();
const ServerTrust noneTrusted = {};
constexpr Direct directCalls[] = {
    {Mode::full, "convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust",
     [] { return full::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(someTrusted); }},
    {Mode::delta, "convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust",
     [] {
         return delta::convConfigSKAConfig2_SKAConfig2_configure_interface_ip_dhcp_server_trust(someTrusted,
                                                                                                noneTrusted);
     }},
    {Mode::delta, "convConfigMacLimit_MacLimit_configure_interface_security_mac_limit",
     [] {
         return delta::convConfigMacLimit_MacLimit_configure_interface_security_mac_limit(gSysConfig->macLimit,
                                                                                          gDefConfig->macLimit);
     }},
};

/// Calls every emitter of both modes for one store. `compose` makes it from zero records.
template <class Compose> void takeAll(Reached &reached, Compose compose) {
    for (const Mode mode : modes) {
        resetAll();
        compose();
        for (const Direct &direct : directCalls) {
            if (direct.mode != mode) continue;
            restartText();
            direct.call();
            reached.take(mode, direct.emitter);
        }
        for (const order::Step &step : order::steps) {
            const order::Call &call = mode == Mode::full ? step.full : step.delta;
            if (!call) continue;
            restartText();
            call();
            reached.take(mode, step.emitter);
        }
    }
}

void composeLargest() {
    composeBuiltIn();
    fill(*gSysConfig, percentOfLargest);
}

/// Records with small numbers here and there, so that settings and codes have all of their values and differ from the
/// default image: on top of the built-in store or of zeros, many or few.
void composeVariant(std::uint32_t seed) {
    if (seed % 2 == 0) composeBuiltIn();
    g_EEPROM.capabilities = 0x150;
    Numbers numbers(seed);
    for (ConfigImage *const image : {gSysConfig, gDefConfig}) {
        auto *const bytes = reinterpret_cast<unsigned char *>(image);
        for (std::size_t i = 0; i < sizeof *image; ++i)
            if (bytes[i] < 5 && numbers.oneIn(seed % 4 < 2 ? 6 : 30))
                bytes[i] = static_cast<unsigned char>(numbers.below(5));
    }
    platform.passwordMethod = numbers.oneIn(2) ? 1 : 0;
}

/// Everything is off that is on by default, but for one trap: there is one line for all of them if they agree.
void composeCleared() {
    composeBuiltIn();
    std::memset(static_cast<void *>(gSysConfig), 0, sizeof *gSysConfig);
    gSysConfig->traps.coldStart = 1;
    std::memset(static_cast<void *>(gDefConfig), 1, sizeof *gDefConfig);
}

/// Codes of four bytes, which few variants have. The default image has others.
void composeCodes(u8 code) {
    composeBuiltIn();
    std::memset(static_cast<void *>(gDefConfig), 9, sizeof *gDefConfig);
    gSysConfig->stp.version = code;
    gSysConfig->stp.aggregatedPointToPoint = code;
    gSysConfig->vlanMode = code;
    gSysConfig->backup.protocol = code;
    gSysConfig->backup.password = "";
}

/// Every trap is on, by default none.
void composeTraps() {
    composeBuiltIn();
    std::memset(static_cast<void *>(&gSysConfig->traps), 1, sizeof gSysConfig->traps);
    gSysConfig->poe.traps = 1;
}

void expectWholeLiterals(const std::string &store, void (*compose)()) {
    for (const Mode mode : modes) {
        resetAll();
        compose();
        std::size_t lines = 0;
        for (const order::Step &step : order::steps) {
            const order::Call &call = mode == Mode::full ? step.full : step.delta;
            if (!call) continue;
            restartText();
            call();
            const auto literals = sources().literalsOf(nameOf(mode), step.emitter);
            for (const std::string &line : linesOf(Temp_Configuration)) {
                ++lines;
                EXPECT_TRUE(line == writtenByBlocks || inspect::writerOf(literals, line) != nullptr)
                    << store << ", " << nameOf(mode) << " mode: " << step.emitter << " wrote " << line
                    << "which no literal of its source gives";
            }
            EXPECT_FALSE(textOverflowed());
        }
        EXPECT_GT(lines, 100U);
    }
}

using HeldLines = std::map<std::pair<Mode, std::string>, std::set<std::string>>;

/// The lines of rows, by mode and emitter.
HeldLines &heldLines() {
    static HeldLines lines;
    return lines;
}

/// Rows call an emitter as the drivers do. What that does not reach is tested by direct calls.
bool isReachedByRows(Mode mode, const std::string &emitter) {
    return std::none_of(std::begin(directCalls), std::end(directCalls),
                        [&](const Direct &direct) { return direct.mode == mode && direct.emitter == emitter; });
}

/// At the end of a run of all tests.
class EachLiteralHasARow : public testing::Environment {
public:
    void TearDown() override {
        if (testing::GTEST_FLAG(filter) != "*" || std::getenv("GTEST_TOTAL_SHARDS") != nullptr) return;
        for (const std::string &emitter : sources().emitters())
            for (const Mode mode : modes) {
                if (!isReachedByRows(mode, emitter)) continue;
                const auto literals = sources().literalsOf(nameOf(mode), emitter);
                std::set<const inspect::Literal *> held;
                for (const std::string &line : heldLines()[{mode, emitter}])
                    held.insert(inspect::writerOf(literals, line));
                for (const inspect::Literal *const literal : literals)
                    if (held.count(literal) == 0 && literal->text.front() != '%') // no piece of a line
                        ADD_FAILURE() << literal->file << ":" << literal->sourceLine << ": no row has the "
                                      << nameOf(mode) << " mode's line " << literal->text;
            }
    }
};
const testing::Environment *const atTheEnd = testing::AddGlobalTestEnvironment(new EachLiteralHasARow);

} // namespace

void holdLines(Mode mode, const char *emitter, const std::string &text) {
    for (const std::string &line : linesOf(text)) heldLines()[{mode, emitter}].insert(line);
}

TEST(Literals, AreWholeInTheSourceOfTheirEmitter) {
    expectWholeLiterals("built-in store", composeBuiltIn);
    expectWholeLiterals("largest store", composeLargest);
}

TEST(Literals, OfSeveralEmittersAreDeclared) {
    std::map<std::string, std::set<std::string>> emittersOf;
    for (const std::string &emitter : sources().emitters())
        for (const Mode mode : modes)
            for (const inspect::Literal *const literal : sources().literalsOf(nameOf(mode), emitter))
                emittersOf[literal->text].insert(emitter);
    std::set<std::string> found;
    for (const auto &[text, emitters] : emittersOf)
        if (emitters.size() > 1) found.insert(text);
    EXPECT_EQ(shared, found);
}

TEST(Literals, BelongToAnEmitter) {
    std::set<std::string> used;
    for (const std::string &emitter : sources().emitters())
        for (const Mode mode : modes)
            for (const inspect::Literal *const literal : sources().literalsOf(nameOf(mode), emitter))
                used.insert(literal->file + literal->text);
    EXPECT_GT(used.size(), 400U);
    for (const inspect::Literal &literal : sources().literals())
        EXPECT_EQ(1U, used.count(literal.file + literal.text)) << literal.file << ":" << literal.sourceLine;
}

TEST(Literals, AreAllWrittenInEveryModeThatHasThem) {
    Reached reached;
    takeAll(reached, composeBuiltIn);
    takeAll(reached, composeCleared);
    takeAll(reached, composeTraps);
    for (u8 code = 0; code < 5; ++code) takeAll(reached, [=] { composeCodes(code); });
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        takeAll(reached, [=] { composeRandom(seed); });
        takeAll(reached, [=] { composeVariant(seed); });
    }

    std::size_t written = 0;
    for (const std::string &emitter : sources().emitters())
        for (const Mode mode : modes)
            for (const inspect::Literal *const literal : sources().literalsOf(nameOf(mode), emitter)) {
                EXPECT_TRUE(reached.has(mode, literal)) << literal->file << ":" << literal->sourceLine << ": "
                                                        << nameOf(mode) << " mode never writes " << literal->text;
                written += reached.has(mode, literal) ? 1U : 0U;
            }
    RecordProperty("written", static_cast<int>(written));
}
