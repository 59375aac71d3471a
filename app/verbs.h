/// The words of the command line that name what to write.
#pragma once

#include "app/drivers.h"
#include "platform/mapi.h"

#include <cstdint>

/// A word of the command line: which image it renders, and how.
struct Verb {
    const char *word;
    std::int32_t selector;
    void (*driver)();
};

inline constexpr Verb verbs[] = {
    {"default_config", MAPI_CONFIG_DEFAULT, convDefConfig},
    {"running_config", MAPI_CONFIG_RUNNING, convConfig},
    {"startup_config", MAPI_CONFIG_STARTUP, convConfig},
    {"customer_def_config", MAPI_CONFIG_CUSTOMER_DEFAULT, convDefConfig},

    {"default_config_delta", MAPI_CONFIG_DEFAULT, convDeltaDefConfig},
    {"running_config_delta", MAPI_CONFIG_RUNNING, convDeltaConfig},
    {"startup_config_delta", MAPI_CONFIG_STARTUP, convDeltaConfig},
    {"customer_def_config_delta", MAPI_CONFIG_CUSTOMER_DEFAULT, convDeltaDefConfig},

    {"default_config_page", MAPI_CONFIG_DEFAULT, convHtmlConfig},
    {"running_config_page", MAPI_CONFIG_RUNNING, convHtmlConfig},
    {"startup_config_page", MAPI_CONFIG_STARTUP, convHtmlConfig},
    {"customer_def_config_page", MAPI_CONFIG_CUSTOMER_DEFAULT, convHtmlConfig},

    {"default_config_delta_page", MAPI_CONFIG_DEFAULT, convDeltaHtmlConfig},
    {"running_config_delta_page", MAPI_CONFIG_RUNNING, convDeltaHtmlConfig},
    {"startup_config_delta_page", MAPI_CONFIG_STARTUP, convDeltaHtmlConfig},
    {"customer_def_config_delta_page", MAPI_CONFIG_CUSTOMER_DEFAULT, convDeltaHtmlConfig},
};
