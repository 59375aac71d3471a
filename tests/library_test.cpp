/// textcfg as a library: its functions hand out the program's own buffers and results.
#include "output_file.h"
#include "rows.h"

#include "app/drivers.h"
#include "app/textcfg.h"

#include <cstring>

namespace {

TEST(Library, SaysItsVersion) { EXPECT_STREQ("textcfg " TEXTCFG_VERSION, textcfg_version()); }

TEST(Library, HandsOutTheRecords) {
    EXPECT_EQ(static_cast<void *>(gSysConfig), textcfg_current_image());
    EXPECT_EQ(static_cast<void *>(gDefConfig), textcfg_default_image());
    EXPECT_EQ(static_cast<void *>(&g_EEPROM), textcfg_board_record());
}

TEST(Library, RendersClearsAndWrites) {
    resetAll();
    std::strcpy(gSysConfig->company.hostName.characters, "hall");
    textcfg_clear();
    convHtmlConfig();
    const std::string page = renderPage(Mode::full, [](ConfigImage &current, ConfigImage &) {
        std::strcpy(current.company.hostName.characters, "hall");
    });
    EXPECT_EQ("configure\n", page.substr(0, 10));
    EXPECT_EQ(page, textcfg_text());
    EXPECT_EQ(page.size(), textcfg_length());
    EXPECT_EQ(0, textcfg_overflowed());

    outputFile = {};
    outputFile.recorded = true;
    EXPECT_EQ(0, textcfg_write("a path"));
    EXPECT_EQ(page, outputFile.contents);
    outputFile.cannotBeOpened = true;
    EXPECT_EQ(-1, textcfg_write("a path"));
    EXPECT_EQ((std::vector<std::string>{"a path", "a path"}), outputFile.opened);
    outputFile = {};

    textcfg_clear();
    EXPECT_STREQ("", textcfg_text());
    EXPECT_EQ(0U, textcfg_length());
}

TEST(Library, ReportsATextThatDoesNotFit) {
    resetAll();
    for (std::size_t bytes = 0; bytes < 262144; bytes += 8) append("8 bytes\n");
    EXPECT_EQ(1, textcfg_overflowed());
    textcfg_clear();
    EXPECT_EQ(0, textcfg_overflowed());
}

} // namespace
