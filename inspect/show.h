/// The fields of a record, for people and as JSON.
#pragma once

#include "inspect/output.h"
#include "inspect/record_source.h"
#include "inspect/values.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace inspect {

struct ShowOptions {
    std::vector<std::string> patterns; ///< over paths; none: everything
    bool changed = false;              ///< only what differs from the default image
    bool all = false;                  ///< unused entries and reserved bytes too
    bool json = false;
    bool secrets = false;            ///< as they are
    std::optional<std::uint64_t> at; ///< the field that holds this byte of the image
};

/// Version of the JSON that every command prints.
inline constexpr int jsonSchema = 1;

/// The beginning of the JSON of a command: schema, record, whether secrets are masked, what is the example's.
Json jsonHead(const Input &input, bool secrets);

/// Fields as JSON, by section: those for which `chosen` is true, with the value that `value` gives. Entries of a table
/// of records have their number as "index"; a table of plain values has null for what was not chosen. Null if nothing
/// is.
Json jsonFields(Part part, const std::function<bool(const Leaf &)> &chosen,
                const std::function<Json(const Leaf &)> &value);

/// Prints what `options` ask for. Throws an InputError for a pattern or an offset that nothing has, or a default image
/// that is missing.
void show(const Input &input, const ShowOptions &options, Output &output);

/// One line of fields as `show` prints them: path, value, unit, offset.
std::string fieldLine(const Leaf &leaf, const std::string &value);

} // namespace inspect
