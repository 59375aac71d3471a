#include "rows.h"

#include "file.h"

#include "app/drivers.h"

#include <cctype>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <set>
#include <stdexcept>
#include <unistd.h>
#include <utility>

void resetAll() {
    std::memset(static_cast<void *>(gSysConfig), 0, sizeof *gSysConfig);
    std::memset(static_cast<void *>(gDefConfig), 0, sizeof *gDefConfig);
    std::memset(static_cast<void *>(&g_EEPROM), 0, sizeof g_EEPROM);
    std::memset(LineBuffer, 0, sizeof LineBuffer);
    clearText();
    gCfgDebug = 0;
    platform.reset();
}

void restartText() {
    if (textOverflowed()) clearText();
    Temp_Configuration[0] = '\0';
}

order::Call stepOf(Mode mode, const char *emitter) {
    for (const order::Step &step : order::steps) {
        if (step.emitter != emitter) continue;
        const auto call = mode == Mode::full ? step.full : step.delta;
        if (!call) throw std::invalid_argument(std::string("no such step in this mode: ") + emitter);
        return call;
    }
    throw std::invalid_argument(std::string("no such step: ") + emitter);
}

void callStep(Mode mode, const char *emitter) { stepOf(mode, emitter)(); }

std::string renderPage(Mode mode, const Setter<void(ConfigImage &, ConfigImage &)> &given) {
    resetAll();
    given(*gSysConfig, *gDefConfig);
    if (mode == Mode::full) convHtmlConfig();
    else convDeltaHtmlConfig();
    return Temp_Configuration;
}

std::string golden(const std::string &name) {
    const std::string text = bytesOfFile(std::filesystem::path(TEXTCFG_GOLDEN) / name);
    if (text.empty()) throw std::runtime_error("no golden text " + name);
    return text;
}

std::string printedBy(const std::function<void()> &body) {
    testing::internal::CaptureStdout();
    body();
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

std::string letters(std::size_t width) {
    std::string text;
    for (std::size_t i = 0; i < width; ++i) text += static_cast<char>('a' + i % 26);
    return text;
}

void PrintTo(const Row &row, std::ostream *out) {
    *out << row.emitter << ", " << (row.mode == Mode::full ? "full" : "delta") << " mode: " << row.name;
}

namespace {

std::string rowName(const Row &row) {
    std::string name = row.name;
    for (char &character : name)
        if (std::isalnum(static_cast<unsigned char>(character)) == 0) character = '_';
    return name + (row.mode == Mode::full ? "_full" : "_delta");
}

class RowTest : public testing::Test {
public:
    explicit RowTest(const Row &row) : row_(row) {}

private:
    void TestBody() override {
        resetAll();
        row_.given(*gSysConfig, *gDefConfig);
        callStep(row_.mode, row_.emitter);
        EXPECT_EQ(row_.text, Temp_Configuration);
        holdLines(row_.mode, row_.emitter, row_.text);
        EXPECT_EQ('\0', LineBuffer[0]);
        EXPECT_FALSE(textOverflowed());
    }

    const Row row_;
};

} // namespace

void registerTest(const std::string &suite, const std::string &name, const std::string &parameter, const char *file,
                  int line, std::function<testing::Test *()> make) {
    static std::set<std::string> names;
    if (!names.insert(suite + "." + name).second) throw std::invalid_argument("two tests are " + suite + "." + name);
    testing::RegisterTest(suite.c_str(), name.c_str(), nullptr, parameter.c_str(), file, line, std::move(make));
}

RowSet::RowSet(const char *area, const char *file, int line, const std::vector<Row> &rows) {
    for (const Row &row : rows)
        registerTest(std::string(area) + "/Rows", "Renders/" + rowName(row), testing::PrintToString(row), file, line,
                     [row] { return new RowTest(row); });
}
