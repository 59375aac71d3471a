/// Problems of records, for people and as JSON.
#pragma once

#include "inspect/output.h"
#include "inspect/record_source.h"

#include <string>
#include <vector>

namespace inspect {

struct CheckOptions {
    std::vector<std::string> records; ///< as many RECORDs as there are
    InputOptions input;               ///< of each of them
    std::vector<std::string> ignored; ///< names of rules
    bool list = false;                ///< print the rules
    bool json = false;
    bool secrets = false; ///< as they are
};

/// Prints the problems of each record in turn and keeps nothing of it. Returns 0 if there is none, 1 if there is one,
/// warnings included, and 2 if a record or a file next to it could not be read; that is said on standard error, and the
/// other records are checked all the same. Throws an InputError for a rule that does not exist and for no RECORD.
int check(const CheckOptions &options, Output &output);

} // namespace inspect
