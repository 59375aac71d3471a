#include "program.h"

#include "../file.h"
#include "../random_stores.h"

#include "inspect/command_line.h"
#include "platform/host/factory.h"
#include "platform/host/store.h"
#include "platform/mapi.h"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <unistd.h>

// What random_stores.h needs besides the images: here the platform is that of textcfg-inspect.
FakePlatform platform;
void resetAll() {
    std::memset(static_cast<void *>(gSysConfig), 0, sizeof *gSysConfig);
    std::memset(static_cast<void *>(gDefConfig), 0, sizeof *gDefConfig);
    std::memset(static_cast<void *>(&g_EEPROM), 0, sizeof g_EEPROM);
}

Ran runProgram(const std::vector<std::string> &words) {
    std::vector<std::string> copies = {"textcfg-inspect"};
    copies.insert(copies.end(), words.begin(), words.end());
    std::vector<char *> arguments;
    for (std::string &word : copies) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int status = inspect::commandLine(static_cast<int>(copies.size()), arguments.data());
    Ran ran = {status, testing::internal::GetCapturedStdout(), testing::internal::GetCapturedStderr()};
    return ran;
}

void composeStore(std::uint32_t seed, StoreRecords &store) {
    // The two further images are those of another seed.
    composeRandom(seed + 1000000);
    store.images[MAPI_CONFIG_STARTUP] = *gSysConfig;
    store.images[MAPI_CONFIG_CUSTOMER_DEFAULT] = *gDefConfig;
    composeRandom(seed);
    store.images[MAPI_CONFIG_RUNNING] = *gSysConfig;
    store.images[MAPI_CONFIG_DEFAULT] = *gDefConfig;
    store.board = g_EEPROM;
    store.bank = static_cast<std::int32_t>(seed % 3);
    store.md5 = false;
#ifdef TEXTCFG_HAS_CRYPT
    store.md5 = platform.passwordMethod != 0;
#endif
}

void composeBuiltInStore(StoreRecords &store) {
    for (std::int32_t selector = 0; selector < imageFileCount; ++selector)
        factory::composeImage(selector, store.images[selector]);
    factory::composeBoard(store.board);
    store.bank = 1;
    store.md5 = false;
}

ProgramTest::ProgramTest() {
    std::string pattern = (std::filesystem::temp_directory_path() / "textcfg-inspect-XXXXXX").string();
    EXPECT_NE(mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
}

ProgramTest::~ProgramTest() { std::filesystem::remove_all(folder_); }

void ProgramTest::write(const std::string &name, const void *bytes, std::size_t size) const {
    std::ofstream(folder_ / name, std::ios::binary)
        .write(static_cast<const char *>(bytes), static_cast<std::streamsize>(size));
}

std::string ProgramTest::writeStore(const std::string &name, const StoreRecords &store) const {
    std::filesystem::create_directories(folder_ / name);
    for (std::int32_t selector = 0; selector < imageFileCount; ++selector)
        write(name + '/' + imageFiles[selector], store.images[selector]);
    write(name + '/' + boardFile, &store.board, sizeof store.board);
    const std::string conf =
        "active_bank=" + std::to_string(store.bank) + "\npassword_encryption=" + (store.md5 ? "md5" : "none") + "\n";
    write(name + '/' + platformConfFile, conf.data(), conf.size());
    return path(name);
}

std::string ProgramTest::read(const std::string &name) const { return bytesOfFile(folder_ / name); }
