#include "lines.h"

#include "app/order.h"

#include <ostream>

namespace {

/// Which value each line's field holds.
using Choice = std::vector<std::size_t>;

order::Call callOf(Mode mode, const char *emitter) {
    for (const order::Step &step : order::steps)
        if (step.emitter == emitter) return mode == Mode::full ? step.full : step.delta;
    return order::nothing;
}

void store(ConfigImage &image, const std::vector<FieldLine> &lines, const Choice &choice) {
    for (std::size_t i = 0; i < lines.size(); ++i) lines[i].values[choice[i]].store(image);
}

std::string rendered(const order::Call &call) {
    restartText();
    call();
    return Temp_Configuration;
}

std::string fullText(const FieldLineSet &section, const Choice &current) {
    std::string text = section.frame.removal + section.frame.head;
    for (std::size_t i = 0; i < current.size(); ++i) text += section.lines[i].values[current[i]].full;
    return text + section.frame.tail;
}

std::string deltaText(const FieldLineSet &section, const Choice &current, const Choice &defaults) {
    std::string text;
    bool open = section.frame.always;
    for (std::size_t i = 0; i < current.size(); ++i) {
        if (current[i] == defaults[i]) continue;
        open = open || section.lines[i].opensEntry;
        text += section.lines[i].values[current[i]].delta;
    }
    return open ? section.frame.head + text + section.frame.deltaTail : "";
}

std::string shown(const Choice &choice) {
    std::string text;
    for (const std::size_t value : choice) text += " " + std::to_string(value);
    return text;
}

/// All fields hold their first value, or all their last.
std::vector<Choice> settings(const std::vector<FieldLine> &lines) {
    Choice first;
    Choice last;
    for (const FieldLine &line : lines) {
        first.push_back(0);
        last.push_back(line.values.size() - 1);
    }
    return {first, last};
}

void prepare(const FieldLineSet &section) {
    resetAll();
    if (!section.given) return;
    section.given(*gSysConfig);
    section.given(*gDefConfig);
}

void followInFullMode(const FieldLineSet &section) {
    const order::Call call = callOf(Mode::full, section.emitter);
    ASSERT_TRUE(static_cast<bool>(call)) << section.emitter;
    prepare(section);
    for (const Choice &others : settings(section.lines)) {
        for (std::size_t i = 0; i < section.lines.size(); ++i) {
            Choice current = others;
            for (current[i] = 0; current[i] < section.lines[i].values.size(); ++current[i]) {
                store(*gSysConfig, section.lines, current);
                ASSERT_EQ(fullText(section, current), rendered(call)) << "values" << shown(current);
            }
        }
    }
    EXPECT_FALSE(textOverflowed());
    holdLines(Mode::full, section.emitter, section.frame.removal + section.frame.head + section.frame.tail);
    for (const FieldLine &line : section.lines)
        for (const LineValue &value : line.values) holdLines(Mode::full, section.emitter, value.full);
}

void followInDeltaMode(const FieldLineSet &section) {
    const order::Call call = callOf(Mode::delta, section.emitter);
    ASSERT_TRUE(static_cast<bool>(call)) << section.emitter;
    prepare(section);
    const auto hold = [&](const Choice &current, const Choice &defaults) {
        store(*gSysConfig, section.lines, current);
        store(*gDefConfig, section.lines, defaults);
        ASSERT_EQ(deltaText(section, current, defaults), rendered(call))
            << "values" << shown(current) << ", of the default image" << shown(defaults);
    };
    const auto both = settings(section.lines);
    for (std::size_t s = 0; s < 2; ++s) {
        for (std::size_t i = 0; i < section.lines.size(); ++i) {
            Choice current = both[s];
            Choice defaults = both[s];
            Choice otherDefaults = both[1 - s];
            for (current[i] = 0; current[i] < section.lines[i].values.size(); ++current[i]) {
                for (defaults[i] = 0; defaults[i] < section.lines[i].values.size(); ++defaults[i])
                    hold(current, defaults); // this field alone differs, or none
                otherDefaults[i] = current[i];
                hold(current, otherDefaults); // all others differ
                if (testing::Test::HasFatalFailure()) return;
            }
        }
    }
    EXPECT_FALSE(textOverflowed());
    holdLines(Mode::delta, section.emitter, section.frame.head + section.frame.deltaTail);
    for (const FieldLine &line : section.lines)
        for (const LineValue &value : line.values) holdLines(Mode::delta, section.emitter, value.delta);
}

class FieldLineTest : public testing::Test {
public:
    FieldLineTest(const FieldLineSet &section, void (*follow)(const FieldLineSet &))
        : section_(section), follow_(follow) {}

private:
    void TestBody() override { follow_(section_); }

    const FieldLineSet section_;
    void (*follow_)(const FieldLineSet &);
};

} // namespace

void PrintTo(const FieldLineSet &set, std::ostream *out) { *out << set.emitter << ", " << set.name; }

FieldLineSets::FieldLineSets(const char *area, const char *file, int line, const std::vector<FieldLineSet> &sets) {
    const std::string suite = std::string(area) + "/FieldLines";
    for (const FieldLineSet &set : sets) {
        const auto add = [&](const std::string &name, void (*follow)(const FieldLineSet &)) {
            registerTest(suite, name + "/" + set.name, testing::PrintToString(set), file, line,
                         [set, follow] { return new FieldLineTest(set, follow); });
        };
        add("FollowTheirOwnFieldInFullMode", followInFullMode);
        add("FollowTheirOwnFieldInDeltaMode", followInDeltaMode);
    }
}
