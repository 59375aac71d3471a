/// The rules that a record is checked by, and the search for what breaks them.
#pragma once

#include "inspect/record_source.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inspect {

enum class Severity { warning, error };
/// "warning" or "error".
std::string_view nameOf(Severity severity);

struct Rule {
    std::string_view name;
    Severity severity;
    std::string_view description;
};

/// All rules, in the order in which `check --list` prints them.
std::span<const Rule> rules();
/// The rule of this name, or null.
const Rule *findRule(std::string_view name);

/// A problem of a record.
struct Finding {
    const Rule *rule;
    std::string file;                  ///< what the record was read from
    std::string path;                  ///< of a field, or the name of the record
    std::optional<std::size_t> offset; ///< in the record; none where the whole record is meant, and for a setting
    std::string found;                 ///< nothing in it is a control character
    std::string expected;
};

struct RuleOptions {
    std::set<std::string_view> ignored = {}; ///< names of rules
    bool secrets = false;                    ///< findings show secrets as they are
};

/// Calls `report` for each finding: the image first, then the board record, the settings of the platform and the text.
/// Unused entries of tables are not looked into. Returns why rules could not be applied, one sentence for each reason;
/// empty if all were.
std::vector<std::string> applyRules(const Input &input, const RuleOptions &options,
                                    const std::function<void(const Finding &)> &report);

} // namespace inspect
