/// The built-in store's whole texts, on each kind of board, and those of each of its images.
#include "rows.h"

#include "app/drivers.h"
#include "platform/host/factory.h"

#include <cstring>

namespace {

struct Page {
    const char *golden; ///< name below tests/golden
    void (*driver)();
    void (*board)(BoardRecord &board);
    bool md5;
    void (*current)(ConfigImage &image) = factory::composeRunning;
    void (*defaults)(ConfigImage &image) = factory::composeDefault;
};

void asItIs(BoardRecord &) {}
void withoutPoe(BoardRecord &board) { board.capabilities = 0; }
void withBattery(BoardRecord &board) { board.capabilities = 0x150; }
void withBatteryWithoutPoe(BoardRecord &board) { board.capabilities = 0x40; }
void type5027(BoardRecord &board) { board.boardType = 5027; }

class FactoryText : public testing::TestWithParam<Page> {};

} // namespace

TEST_P(FactoryText, IsAsWritten) {
    const Page &page = GetParam();
    resetAll();
    page.current(*gSysConfig);
    page.defaults(*gDefConfig);
    factory::composeBoard(g_EEPROM);
    page.board(g_EEPROM);
    platform.passwordMethod = page.md5 ? 1 : 0;
    platform.md5 = [](const char *, char *md5) { std::strcpy(md5, "9kQz1fZsT3uVw5xYy7aBc0"); };
    page.driver();
    EXPECT_EQ(golden(page.golden), Temp_Configuration);
}

INSTANTIATE_TEST_SUITE_P(
    All, FactoryText,
    testing::Values(Page{"factory_full.txt", convConfig, asItIs, false},
                    Page{"factory_page.txt", convHtmlConfig, asItIs, false},
                    Page{"factory_delta.txt", convDeltaConfig, asItIs, false},
                    Page{"factory_full_without_poe.txt", convConfig, withoutPoe, false},
                    Page{"factory_delta_without_poe.txt", convDeltaConfig, withoutPoe, false},
                    Page{"factory_full_battery.txt", convConfig, withBattery, false},
                    Page{"factory_delta_battery.txt", convDeltaConfig, withBattery, false},
                    Page{"factory_full_battery_without_poe.txt", convConfig, withBatteryWithoutPoe, false},
                    Page{"factory_delta_battery_without_poe.txt", convDeltaConfig, withBatteryWithoutPoe, false},
                    Page{"factory_full_5027.txt", convConfig, type5027, false},
                    Page{"factory_delta_5027.txt", convDeltaConfig, type5027, false},
                    Page{"factory_full_md5.txt", convConfig, asItIs, true},
                    Page{"factory_delta_md5.txt", convDeltaConfig, asItIs, true},
                    Page{"factory_default_full.txt", convDefConfig, asItIs, false, factory::composeDefault},
                    Page{"factory_customer_default_delta.txt", convDeltaConfig, asItIs, false,
                         factory::composeCustomerDefault},
                    // What saving would change, the other way round: the values that were saved.
                    Page{"factory_startup_since_running.txt", convDeltaConfig, asItIs, false, factory::composeStartup,
                         factory::composeRunning}),
    [](const auto &row) {
        const std::string name = row.param.golden;
        return name.substr(0, name.find('.'));
    });
