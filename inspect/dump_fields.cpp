/// Prints the list of fields as JSON, with what the text has of each, for script/image-table.
#include "inspect/coverage.h"
#include "inspect/values.h"

#include <nlohmann/json.hpp>

#include <cstdio>
#include <map>
#include <string>

namespace {

using inspect::Field;
using inspect::Json;
using inspect::Kind;
using inspect::Record;

const char *nameOf(Kind kind) {
    switch (kind) {
    case Kind::flag: return "flag";
    case Kind::number: return "number";
    case Kind::code: return "code";
    case Kind::portNumber: return "port";
    case Kind::vlanId: return "vlan";
    case Kind::text: return "text";
    case Kind::secret: return "secret";
    case Kind::mac: return "mac";
    case Kind::ipv4: return "ipv4";
    case Kind::ipv6: return "ipv6";
    case Kind::bits: return "bits";
    case Kind::bytes: return "bytes";
    case Kind::reserved: return "reserved";
    case Kind::record: break;
    }
    return "record";
}

Json wordsOf(const Field &field) {
    Json words = Json::array();
    for (const inspect::Word &word : field.words) words.push_back({word.code, word.word});
    for (std::uint32_t code = 0; code < field.wordCount; ++code) words.push_back({code, field.wordOf(code)});
    return words;
}

/// What was found by experiment, by the path of the field without the numbers of entries.
using Coverage = std::map<std::string, std::vector<inspect::FieldCoverage>>;

std::string genericPath(const std::string &path) {
    std::string generic;
    bool isNumber = false;
    for (const char character : path) {
        isNumber = isNumber && character != ']';
        if (!isNumber) generic += character;
        isNumber = isNumber || character == '[';
    }
    return generic;
}

/// What one mode has of a field; entry by entry where they differ.
Json cellOf(const Coverage &coverage, const std::string &path, std::string inspect::FieldCoverage::*mode) {
    const auto found = coverage.find(path);
    if (found == coverage.end()) return "-";
    const std::vector<inspect::FieldCoverage> &rows = found->second;
    bool agree = true;
    for (const inspect::FieldCoverage &row : rows) agree = agree && row.*mode == rows.front().*mode;
    if (agree) return rows.front().*mode;
    std::string cell;
    for (const inspect::FieldCoverage &row : rows) cell += (cell.empty() ? "`" : ", `") + row.path + "`: " + row.*mode;
    return cell;
}

Json listOf(const Record &record, const Coverage &coverage, const std::string &prefix) {
    Json fields = Json::array();
    for (const Field &field : record.fields) {
        Json entry;
        entry["name"] = field.name;
        entry["offset"] = field.offset;
        entry["size"] = field.bytes();
        entry["count"] = field.count;
        entry["type"] = field.type;
        entry["kind"] = nameOf(field.kind);
        entry["first"] = field.firstIndex;
        entry["words"] = wordsOf(field);
        entry["otherwise"] = field.otherwise != nullptr ? Json(field.otherwise) : Json();
        entry["unit"] = field.unit != nullptr ? Json(field.unit) : Json();
        entry["note"] = field.note != nullptr ? Json(field.note) : Json();
        entry["members"] = field.members == inspect::Members::ports   ? "ports"
                           : field.members == inspect::Members::vlans ? "vlans"
                                                                      : "bits";
        const std::string path = prefix + std::string(field.name) + (field.count != 0 ? "[]" : "");
        entry["full"] = cellOf(coverage, path, &inspect::FieldCoverage::full);
        entry["delta"] = cellOf(coverage, path, &inspect::FieldCoverage::delta);
        if (field.record != nullptr) {
            entry["record"] = listOf(*field.record, coverage, path + ".");
            entry["inUse"] = field.record->inUse != nullptr ? field.record->inUse->name : field.inUse;
        }
        fields.push_back(entry);
    }
    return fields;
}

} // namespace

int main() { // NOLINT(bugprone-exception-escape): a generator that fails may end like that
    Coverage coverage;
    for (const inspect::FieldCoverage &row : inspect::coverageOfImage()) coverage[genericPath(row.path)].push_back(row);
    Json document;
    for (const inspect::Part part : inspect::parts)
        document[std::string(inspect::nameOf(part))] =
            listOf(inspect::recordOf(part), coverage, part == inspect::Part::image ? "" : "other.");
    return std::puts(document.dump(1).c_str()) < 0 || std::fflush(stdout) != 0 ? 1 : 0;
}
