/// Where a line of the text comes from, and which lines a field has.
#pragma once

#include "inspect/output.h"
#include "inspect/record_source.h"

#include <string>
#include <vector>

namespace inspect {

struct ExplainOptions {
    std::vector<std::string> lines; ///< numbers, lines, or /pattern/
    std::string field;              ///< a path: the lines of this field instead
    bool delta = false;
    bool secrets = false; ///< as they are
};

/// Prints each line that matches with its emitter and its fields, or the lines that change with a field in both modes.
/// Lines are matched as they are printed. Throws an InputError for a line or a field that is not there.
void explain(const Input &input, const ExplainOptions &options, Output &output);

} // namespace inspect
