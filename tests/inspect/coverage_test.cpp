/// What the text has of each byte of the image is what the list of exceptions and docs/text.md say.
///
/// TEXTCFG_COVERAGE_SAMPLE=N tries one field and one step in N, for a slow machine.
#include "inspect/coverage.h"
#include "inspect/fields.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

namespace {

using namespace inspect;

std::size_t sampled() {
    const char *const every = std::getenv("TEXTCFG_COVERAGE_SAMPLE");
    return every == nullptr ? 1 : std::max(1UL, std::strtoul(every, nullptr, 10));
}

/// A path without the numbers of entries.
std::string generic(std::string_view path) {
    std::string result;
    bool isNumber = false;
    for (const char character : path) {
        isNumber = isNumber && character != ']';
        if (!isNumber) result += character;
        isNumber = isNumber || character == '[';
    }
    return result;
}

TEST(Coverage, EachFieldIsWhatTheListSays) {
    std::map<std::string_view, const CoverageException *> missing;
    for (const CoverageException &exception : coverageExceptions()) {
        EXPECT_TRUE(missing.emplace(exception.path, &exception).second) << exception.path << " is listed twice";
        EXPECT_FALSE(exception.reason.empty()) << exception.path;
        EXPECT_FALSE(exception.full == "written" && exception.delta == "written") << exception.path;
    }
    const std::vector<FieldCoverage> rows = coverageOfImage(sampled());
    EXPECT_GT(rows.size(), 250 / sampled());
    std::set<std::string> tried;
    for (const FieldCoverage &row : rows) {
        tried.insert(generic(row.path));
        const auto found = missing.find(row.path);
        const bool isListed = found != missing.end();
        EXPECT_EQ(row.full, isListed ? found->second->full : "written") << row.path << ", full mode";
        EXPECT_EQ(row.delta, isListed ? found->second->delta : "written") << row.path << ", delta mode";
        if (isListed) missing.erase(found);
    }
    for (const auto &[path, exception] : missing)
        if (sampled() == 1 || tried.contains(generic(path)))
            ADD_FAILURE() << path << " is listed as an exception; what was found is not one";
}

TEST(Coverage, ReservedBytesShowWhereTheyAreDeclared) {
    for (const std::string &byte : reservedBytesThatShow(sampled())) ADD_FAILURE() << byte;
}

/// The paths that the points of a list of docs/text.md name. `heading` begins its first line.
std::set<std::string> namedIn(const std::string &text, const std::string &heading) {
    const std::size_t begin = text.find("\n" + heading);
    EXPECT_NE(begin, std::string::npos) << heading;
    if (begin == std::string::npos) return {};
    std::set<std::string> paths;
    std::istringstream lines(text.substr(begin + 1));
    std::string point;
    const auto finish = [&] {
        constexpr std::string_view opening = "<!-- fields: ";
        const std::size_t first = point.find(opening);
        const std::size_t last = point.find(" -->");
        if (point.empty()) return;
        if (first == std::string::npos || last == std::string::npos) {
            ADD_FAILURE() << "a point names no fields:\n" << point;
            return;
        }
        std::istringstream names(point.substr(first + opening.size(), last - first - opening.size()));
        for (std::string name; names >> name;) paths.insert(name.substr(0, name.find(',')));
    };
    bool isInList = false;
    for (std::string line; std::getline(lines, line);) {
        const bool isPoint = line.starts_with("- ");
        if (isInList && line.empty()) break;
        if (isPoint) finish(), point.clear();
        isInList = isInList || isPoint;
        if (isInList) point += line + "\n";
    }
    finish();
    return paths;
}

TEST(Coverage, ThePointsOfTheTextDocumentNameTheExceptions) {
    std::ifstream file(TEXTCFG_DOCS "/text.md");
    std::stringstream content;
    content << file.rdbuf();
    const std::set<std::string> unseen = namedIn(content.str(), "It does not see everything.");
    const std::set<std::string> unexpected = namedIn(content.str(), "And it writes more than expected:");

    std::set<std::string> known;
    forEachLeaf(Part::image, [&](const Leaf &leaf) { known.insert(generic(leaf.path())); });
    for (const std::set<std::string> *const names : {&unseen, &unexpected})
        for (const std::string &name : *names) EXPECT_TRUE(known.contains(name)) << name << " is no field";

    std::set<std::string> compared;
    for (const CoverageException &exception : coverageExceptions()) {
        const std::string field = generic(exception.path);
        const auto has = [&](const char *word) { return exception.delta.find(word) != std::string_view::npos; };
        const bool isCompared = has("compared") || has("default");
        if (isCompared) {
            compared.insert(field);
            EXPECT_TRUE(unexpected.contains(field)) << field << " is in no point of what is written besides";
        }
        // A hyphen of a range of bytes is no word.
        const bool isSilent = exception.delta == "-" || has("- (");
        if (has("partly") || has("with others") || isSilent) {
            EXPECT_TRUE(unseen.contains(field)) << field << " is in no point of what has no line";
        }
    }
    for (const std::string &name : unexpected)
        if (name.find("reserved") != std::string::npos) {
            EXPECT_TRUE(compared.contains(name)) << name << " is named and does not count";
        }
}

} // namespace
