/// The version, for whoever looks into the program with `strings`.
#pragma once

/// "textcfg" and the number. The linker is told to keep it.
extern const char textcfgVersion[];
