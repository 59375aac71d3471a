/// The words of textcfg-inspect.
#pragma once

namespace inspect {

/// Runs the program; returns its status: 0, or 2 for words, input or output that cannot be used.
int commandLine(int argc, char **argv);

} // namespace inspect
