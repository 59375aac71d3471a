#include "app/version.h"

[[gnu::used]] const char textcfgVersion[] = "textcfg " TEXTCFG_VERSION;
