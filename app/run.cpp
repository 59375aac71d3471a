#include "app/run.h"

#include "app/text/text.h"
#include "app/verbs.h"
#include "platform/board.h"
#include "platform/image.h"
#include "platform/mapi.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <unistd.h>

char ConfigFile[configFileSize + 1];
pthread_mutex_t CfgFileMutex = PTHREAD_MUTEX_INITIALIZER;

static_assert(sizeof(ConfigImage) == MAPI_CONFIG_IMAGE_SIZE && sizeof(BoardRecord) == MAPI_EEPROM_INFO_SIZE);

namespace {

constexpr const char *usage = "\nUsage: \n"
                              "    default_config  [-f filename] [-F filename]\n"
                              "    running_config  [-f filename] [-F filename]\n"
                              "    startup_config  [-f filename] [-F filename]\n"
                              "    customer_def_config  [-f filename] [-F filename]";

/// Reads the words: sets the verb that is to be run (the last one wins, unknown ones are ignored) and `ConfigFile`.
/// Returns false, having told why, if they cannot be understood.
bool readWords(int argc, char **argv, const Verb *&verb) {
    const char *const program = argc > 0 ? argv[0] : "textcfg";
    if (argc < 2 || argc > 4) {
        std::printf("%s: Bad argument: %s\n", program, program); // the program's name twice, on purpose
        std::puts(usage);
        return false;
    }
    for (int i = 1; i < argc; ++i) {
        const char *const word = argv[i];
        if (word[0] != '-') {
            for (const Verb &candidate : verbs)
                if (std::strcmp(word, candidate.word) == 0) verb = &candidate;
            continue;
        }
        if (word[1] != 'F' && word[1] != 'f') { // nothing after the letter is looked at
            std::printf("%s: Invalid option: %s\n", program, word);
            std::puts(usage);
            return false;
        }
        if (++i == argc) {
            std::puts(usage);
            return false;
        }
        if (std::strlen(argv[i]) > configFileSize) {
            std::printf("%s: ConfigFile path too long (limit %d chars)\n", program, static_cast<int>(configFileSize));
            return false;
        }
        std::strncpy(ConfigFile, argv[i], configFileSize); // pads with NUL: no trace of an earlier path
    }
    return true;
}

/// Renders and writes the configuration of `verb` in the open transaction `handle`. Returns the status of the run.
int renderToFile(const char *program, std::int32_t handle, const Verb &verb) {
    if (mapi_sys_eeprom_info_get(handle, &g_EEPROM) != 0) return -1;
    if (ConfigFile[0] == '\0') std::strcpy(ConfigFile, "/tmp/config");

    std::memset(gSysConfig, 0, sizeof(std::uint32_t)); // the first word, in case the platform looks at it
    if (mapi_sys_config_getconfig(handle, verb.selector, gSysConfig) != 0) return -1;
    if (mapi_sys_config_getconfig(handle, MAPI_CONFIG_DEFAULT, gDefConfig) != 0) return -1;

    verb.driver();
    if (textOverflowed()) {
        std::printf("%s: text configuration too long (limit %d bytes)\n", program,
                    static_cast<int>(textBufferSize - 1));
        return -1;
    }
    TextCfg2file(ConfigFile); // a path that cannot be written does not fail the run
    return 0;
}

/// Empties the file: a part of a configuration must not be taken for a whole one. A pipe or a device stays as it is.
void makeEmpty(const char *path) {
    while (truncate(path, 0) != 0 && errno == EINTR) {
    }
}

} // namespace

int TextCfg2file(const char *path) {
    std::FILE *const file = std::fopen(path, "w+");
    if (file == nullptr) return -1;
    pthread_mutex_lock(&CfgFileMutex);
    // Without a buffer the kernel is given the whole text in one write: where it takes it whole, no signal can come
    // between two parts of it.
    std::setvbuf(file, nullptr, _IONBF, 0);
    const std::size_t length = strnlen(Temp_Configuration, textBufferSize);
    const bool written = std::fwrite(Temp_Configuration, 1, length, file) == length;
    const bool closed = std::fclose(file) == 0;
    const bool whole = written && closed;
    if (!whole) makeEmpty(path);
    pthread_mutex_unlock(&CfgFileMutex);
    return whole ? 0 : -1;
}

int textcfgMain(int argc, char **argv) {
    std::memset(ConfigFile, 0, configFileSize);
    const Verb *verb = &verbs[0];
    if (!readWords(argc, argv, verb)) return -1;

    std::memset(&g_EEPROM, 0, sizeof g_EEPROM);
    const std::int32_t handle = mapi_start_transc();
    if (handle == MAPI_NO_TRANSACTION) return -1;
    const int status = renderToFile(argv[0], handle, *verb);
    mapi_end_transc(handle);
    return status;
}
