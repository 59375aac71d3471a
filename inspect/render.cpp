#include "inspect/render.h"

#include "app/drivers.h"
#include "app/text/text.h"
#include "platform/host/password_md5.h"
#include "platform/mapi.h"

#include <cstring>

namespace inspect {
namespace {

/// What the operations below answer.
struct Platform {
    RenderSettings settings;
    const char *problem = nullptr;
};
Platform platform;
bool isTaken = false;

constexpr std::int32_t theTransaction = 1;

/// The sections that emitters write to, in one image.
struct Touched {
    UserTable users;
    Remarking remarking;

    explicit Touched(const ConfigImage &image) : remarking(image.remarking) {
        std::memcpy(users, image.users, sizeof users);
    }
    void restore(ConfigImage &image) const {
        std::memcpy(image.users, users, sizeof users);
        image.remarking = remarking;
    }
};

/// As `clearText`, but only as far as there is text: to look at the whole buffer takes longer than most steps.
void clearWhatIsThere() {
    if (textOverflowed()) clearText();
    else std::memset(Temp_Configuration, 0, strnlen(Temp_Configuration, textBufferSize));
}

} // namespace

Renderer::Renderer(const ConfigImage &current, const ConfigImage &defaults, const BoardRecord &board,
                   const RenderSettings &settings) {
    if (isTaken) throw std::logic_error("there is one text buffer, and another Renderer has it");
    isTaken = true;
    platform.settings = settings;
    *gSysConfig = current;
    *gDefConfig = defaults;
    g_EEPROM = board;
}

Renderer::Renderer(const Input &input)
    : Renderer((input.requireAllOfText(), *input.image), *input.defaults, *input.board, {*input.bank, *input.md5}) {}

Renderer::~Renderer() { isTaken = false; }

RenderSettings &Renderer::settings() { return platform.settings; }

template <class Work> std::string_view Renderer::run(Work work) {
    const Touched current(*gSysConfig);
    const Touched defaults(*gDefConfig);
    platform.problem = nullptr;
    clearWhatIsThere();
    work();
    current.restore(*gSysConfig);
    defaults.restore(*gDefConfig);
    if (platform.problem != nullptr) throw RenderError(platform.problem);
    if (textOverflowed())
        throw RenderError("text configuration too long (limit " + std::to_string(textBufferSize - 1) + " bytes)");
    return {Temp_Configuration, strnlen(Temp_Configuration, textBufferSize)};
}

std::string_view Renderer::text(void (*driver)()) { return run(driver); }

std::string_view Renderer::lines(const order::Call &call) {
    if (!call) return {};
    return run(call);
}

Driver driverOf(bool isDelta, bool isPage, bool isDefaultKind) {
    if (isPage) return isDelta ? convDeltaHtmlConfig : convHtmlConfig;
    if (isDefaultKind) return isDelta ? convDeltaDefConfig : convDefConfig;
    return isDelta ? convDeltaConfig : convConfig;
}

} // namespace inspect

// The management API over the settings in memory. Images and board record are put in their place beforehand, so nothing
// fetches them.

std::int32_t mapi_start_transc(void) { return inspect::theTransaction; }

std::int32_t mapi_end_transc(std::int32_t) { return 0; }

std::int32_t mapi_sys_eeprom_info_get(std::int32_t, void *) { return 0; }

std::int32_t mapi_sys_config_getconfig(std::int32_t, std::int32_t, void *) { return 0; }

std::int32_t mapi_sys_dualimage_state_get(std::int32_t) { return inspect::platform.settings.bank; }

std::int32_t mapi_sys_userauth_method_get(std::int32_t) { return inspect::platform.settings.md5Passwords ? 1 : 0; }

std::int32_t mapi_sys_userauth_password_md5_get(std::int32_t, const char *password, char *md5) {
    const char *const problem = makePasswordMd5(password, md5);
    if (problem == nullptr) return 0;
    inspect::platform.problem = problem;
    return -1;
}
