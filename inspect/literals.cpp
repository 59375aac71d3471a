#include "inspect/literals.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <stdexcept>

namespace inspect {
namespace {

/// Lines that a body of both modes writes in one mode alone.
constexpr struct {
    bool isFull;
    std::string_view text;
} ofOneMode[] = {
    {true, "qos 802.1p-map %s %d\n"},           {false, "no switch-info company-name\n"},
    {false, "no switch-info dhcp-vendor-id\n"}, {false, "no switch-info host-name\n"},
    {false, "no switch-info system-contact\n"}, {false, "no switch-info system-location\n"},
    {false, "no switch-info system-name\n"},
};

/// A word, a string literal or a single character of C++.
struct Token {
    enum class Kind { word, string, sign };
    Kind kind = Kind::sign;
    std::string text;
    std::size_t line = 0;

    bool is(std::string_view what) const { return kind != Kind::string && text == what; }
};

bool isWordCharacter(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

/// The tokens of a source without comments and preprocessor lines. String literals that follow each other are one.
std::vector<Token> tokensOf(const std::string &source) {
    std::vector<Token> tokens;
    std::size_t line = 1;
    const auto skipLine = [&](std::size_t at) {
        while (at < source.size() && source[at] != '\n') ++at;
        return at;
    };
    for (std::size_t at = 0; at < source.size();) {
        const char character = source[at];
        if (character == '\n') ++line;
        if (std::isspace(static_cast<unsigned char>(character)) != 0) {
            ++at;
        } else if (character == '#' || source.compare(at, 2, "//") == 0) {
            at = skipLine(at);
        } else if (character == '"' || character == '\'') {
            std::string text;
            for (++at; source.at(at) != character; ++at) {
                if (source[at] != '\\') text += source[at];
                else text += source.at(++at) == 'n' ? '\n' : source[at];
            }
            ++at;
            if (character == '\'') tokens.push_back({Token::Kind::word, "'", line});
            else if (!tokens.empty() && tokens.back().kind == Token::Kind::string) tokens.back().text += text;
            else tokens.push_back({Token::Kind::string, text, line});
        } else if (isWordCharacter(character)) {
            std::size_t end = at;
            while (end < source.size() && isWordCharacter(source[end])) ++end;
            tokens.push_back({Token::Kind::word, source.substr(at, end - at), line});
            at = end;
        } else {
            tokens.push_back({Token::Kind::sign, std::string(1, character), line});
            ++at;
        }
    }
    return tokens;
}

/// The tokens of a function, from its name to the brace that ends it.
struct Definition {
    std::string name;
    std::size_t body = 0; ///< the brace that begins it
    std::size_t end = 0;
};

/// The token after the brace that closes the one at `open`.
std::size_t afterBlock(const std::vector<Token> &tokens, std::size_t open) {
    std::size_t depth = 0;
    for (std::size_t at = open; at < tokens.size(); ++at) {
        if (tokens[at].is("{")) ++depth;
        if (tokens[at].is("}") && --depth == 0) return at + 1;
    }
    throw std::runtime_error("a brace is not closed");
}

/// Adds the functions that are defined from `at` to `end`, those of namespaces and classes too.
void findDefinitions(const std::vector<Token> &tokens, std::size_t at, std::size_t end,
                     std::vector<Definition> &definitions) {
    while (at < end) {
        // A declaration goes up to its semicolon or its block.
        std::size_t open = at;
        std::size_t depth = 0;
        std::size_t name = 0;
        bool isScope = false;
        bool isValue = false;
        for (; open < end && (depth != 0 || !(tokens[open].is(";") || tokens[open].is("{"))); ++open) {
            const Token &token = tokens[open];
            if (token.is("(") && depth == 0 && name == 0) name = open - 1;
            if (token.is("(")) ++depth;
            if (token.is(")")) --depth;
            // "class" is also a word of template parameters.
            const bool isFirst = open == at || tokens[open - 1].is(">");
            if (isFirst && (token.is("namespace") || token.is("struct") || token.is("class"))) isScope = true;
            if (depth == 0 && token.is("=")) isValue = true;
        }
        if (open >= end || tokens[open].is(";")) {
            at = open + 1;
            continue;
        }
        const std::size_t after = afterBlock(tokens, open);
        if (isScope) {
            findDefinitions(tokens, open + 1, after - 1, definitions);
        } else if (!isValue && name != 0) {
            std::string whole = tokens[name].text;
            if (tokens[name - 1].is(":") && tokens[name - 2].is(":")) whole.insert(0, tokens[name - 3].text + "::");
            definitions.push_back({std::move(whole), open, after});
        }
        at = after;
    }
}

/// The text without blanks and a newline at its end.
std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.remove_suffix(1);
    return text;
}

bool isForm(const Token &a, const Token &b) {
    return a.kind == Token::Kind::string && b.kind == Token::Kind::string && a.text != b.text &&
           trimmed(a.text) == trimmed(b.text);
}

bool isOfMode(const Literal &literal, bool isFull) {
    return std::none_of(std::begin(ofOneMode), std::end(ofOneMode),
                        [&](const auto &one) { return one.isFull != isFull && one.text == literal.text; });
}

/// How long the conversion at the beginning of `format` is.
std::size_t conversionLength(std::string_view format) { return format.find_first_of("dusXx") + 1; }

/// Whether a conversion that ends with `letter` can write `character`.
bool canWrite(char letter, char character) {
    const auto byte = static_cast<unsigned char>(character);
    switch (letter) {
    case 'd': return std::isdigit(byte) != 0 || character == '-';
    case 'u': return std::isdigit(byte) != 0;
    case 'X': return std::isdigit(byte) != 0 || (character >= 'A' && character <= 'F');
    case 'x': return std::isdigit(byte) != 0 || (character >= 'a' && character <= 'f');
    default: return character != '\n';
    }
}

bool matchesFrom(std::string_view format, std::string_view line) {
    while (!format.empty() && format.front() != '%') {
        if (line.empty() || line.front() != format.front()) return false;
        format.remove_prefix(1);
        line.remove_prefix(1);
    }
    if (format.empty()) return line.empty();
    const std::size_t length = conversionLength(format);
    const char letter = format[length - 1];
    format.remove_prefix(length);
    if (letter != 's') {
        if (line.empty() || !canWrite(letter, line.front())) return false;
        line.remove_prefix(1);
    }
    while (true) {
        if (matchesFrom(format, line)) return true;
        if (line.empty() || !canWrite(letter, line.front())) return false;
        line.remove_prefix(1);
    }
}

} // namespace

std::string_view Literal::command() const { return trimmed(text); }

bool Literal::matches(std::string_view line) const {
    if (!text.empty() && text.back() == '\n') return matchesFrom(text, line);
    // Pieces follow the beginning of a line.
    return text.front() != '%' && matchesFrom(text + "%s\n", line);
}

std::size_t Literal::fixedCharacters() const {
    std::size_t fixed = 0;
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] == '%') {
            at += conversionLength(std::string_view(text).substr(at));
        } else {
            ++fixed;
            ++at;
        }
    }
    return fixed;
}

bool Literal::isFrame() const { return command() == "exit" || command().substr(0, 10) == "interface "; }

const Literal *writerOf(const std::vector<const Literal *> &literals, std::string_view line) {
    const Literal *writer = nullptr;
    for (const Literal *const literal : literals)
        if (literal->matches(line) && (writer == nullptr || literal->fixedCharacters() > writer->fixedCharacters()))
            writer = literal;
    return writer;
}

SectionSources::SectionSources(const std::string &folder) {
    std::vector<std::filesystem::path> paths;
    std::error_code problem;
    for (const auto &entry : std::filesystem::directory_iterator(folder, problem))
        if (entry.path().extension() == ".cpp") paths.push_back(entry.path());
    if (paths.empty()) throw std::runtime_error(folder + ": no sources of sections");
    std::sort(paths.begin(), paths.end());
    for (const std::filesystem::path &path : paths) addFile(path.string(), path.filename().string());
    markRepeats();
}

void SectionSources::addFile(const std::string &path, const std::string &name) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path + ": cannot be read");
    const std::vector<Token> tokens = tokensOf({std::istreambuf_iterator<char>(file), {}});
    std::vector<Definition> definitions;
    findDefinitions(tokens, 0, tokens.size(), definitions);
    const std::size_t first = functions_.size();
    for (const Definition &definition : definitions) functions_.push_back({name, definition.name, {}});

    for (std::size_t number = 0; number < definitions.size(); ++number) {
        const Definition &definition = definitions[number];
        Function &function = functions_[first + number];
        for (std::size_t at = definition.body; at < definition.end; ++at) {
            const Token &token = tokens[at];
            if (token.kind == Token::Kind::string) {
                const bool isWritten = tokens[at - 1].is("(") && tokens[at - 2].is("append");
                if (token.text.empty() || (token.text.back() != '\n' && !isWritten)) continue;
                Literal literal;
                literal.text = token.text;
                literal.file = name;
                literal.sourceLine = token.line;
                // {"full form", "delta form"}
                if (tokens[at - 1].is("{") && tokens[at + 1].is(",") && isForm(token, tokens[at + 2]))
                    literal.inDelta = false;
                if (tokens[at - 1].is(",") && tokens[at - 3].is("{") && tokens[at + 1].is("}") &&
                    isForm(tokens[at - 2], token))
                    literal.inFull = false;
                function.steps.push_back({false, literals_.size()});
                literals_.push_back(std::move(literal));
            } else if (token.kind == Token::Kind::word && !tokens[at - 1].is(".") && !tokens[at - 1].is(":")) {
                // Of functions of one name the last one before the call is meant: a body is directly above its
                // emitters.
                for (std::size_t other = number; other-- > 0;) {
                    if (definitions[other].name != token.text) continue;
                    function.steps.push_back({true, first + other});
                    break;
                }
            }
        }
    }
}

void SectionSources::collect(std::size_t function, bool isFull, std::vector<bool> &seen,
                             std::vector<const Literal *> &into) const {
    if (seen[function]) return;
    seen[function] = true;
    for (const Step &step : functions_[function].steps) {
        if (step.isCall) {
            collect(step.index, isFull, seen, into);
        } else if (const Literal &literal = literals_[step.index];
                   (isFull ? literal.inFull : literal.inDelta) && isOfMode(literal, isFull)) {
            const bool isNew = std::none_of(into.begin(), into.end(),
                                            [&](const Literal *other) { return other->text == literal.text; });
            if (isNew) into.push_back(&literal);
        }
    }
}

std::vector<const Literal *> SectionSources::literalsOf(std::string_view mode, std::string_view emitter) const {
    for (const std::string_view prefix : {mode, std::string_view("full")}) {
        const std::string whole = std::string(prefix) + "::" + std::string(emitter);
        for (std::size_t function = 0; function < functions_.size(); ++function) {
            if (functions_[function].name != whole) continue;
            std::vector<bool> seen(functions_.size());
            std::vector<const Literal *> found;
            collect(function, mode == "full", seen, found);
            return found;
        }
    }
    throw std::runtime_error("no such emitter: " + std::string(emitter));
}

std::vector<std::string> SectionSources::emitters() const {
    std::vector<std::string> names;
    for (const Function &function : functions_)
        if (const std::size_t mode = function.name.find("::"); mode != std::string::npos)
            if (const std::string name = function.name.substr(mode + 2);
                std::find(names.begin(), names.end(), name) == names.end())
                names.push_back(name);
    return names;
}

void SectionSources::markRepeats() {
    std::set<std::string_view> commands;
    for (Literal &literal : literals_) {
        if (!literal.inFull) continue; // the second of a pair
        literal.isRepeat = !commands.insert(literal.command()).second;
    }
}

} // namespace inspect
