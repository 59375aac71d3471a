#include "format/section_lines.h"

#include <cstring>

void appendChangedOnOff(bool full, std::uint32_t current, std::uint32_t defaults, const char *on, std::size_t onLength,
                        const char *off, std::size_t offLength) {
    if (!full && current == defaults) return;
    if (current != 0) appendBytes(on, onLength);
    else appendBytes(off, offLength);
}

void appendChangedNumber(bool full, std::uint32_t current, std::uint32_t defaults, Format<std::uint32_t> line) {
    if (full || current != defaults) append(line, current);
}

void appendChangedText(bool full, const char *current, const char *defaults, std::size_t width,
                       Format<FieldText> line) {
    if (full || std::strncmp(current, defaults, width) != 0) append(line, FieldText{current, width});
}

void appendChangedCode(bool full, std::uint32_t current, std::uint32_t defaults, std::initializer_list<ValueLine> lines,
                       Line otherwise) {
    if (!full && current == defaults) return;
    if (!appendValueLine(current, lines) && otherwise.length() != 0) append(otherwise);
}
