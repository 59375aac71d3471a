#include "format/blocks.h"

void appendValueBlocks(const std::uint32_t *words, std::size_t ports, std::initializer_list<ValueLine> lines) {
    const std::int32_t count = static_cast<std::int32_t>(ports);
    for (const ValueLine &row : lines) {
        if (CHECK_HAS_MEMBER_INT_NUM(words, row.value, count) == 0) continue;
        appendPortLine("interface ", words, row.value, count, " \n");
        append(row.line);
        append("exit\n");
    }
}

void appendValueBlocks(const PortBytes &bytes, std::initializer_list<ValueLine> lines) {
    for (const ValueLine &row : lines) {
        if (CHECK_HAS_MEMBER(bytes.data(), row.value) == 0) continue;
        appendInterface(bytes, row.value);
        append(row.line);
        append("exit\n");
    }
}

void appendSwitch(bool isSet, Line on, Line off) { append(isSet ? on : off); }

PortWords wordsOfBitmap(const u8 *bitmap) {
    PortWords words;
    for (int port = 0; port < portCount; ++port)
        words[static_cast<std::size_t>(port)] = static_cast<std::uint32_t>(utilBitmapCheck(bitmap, port));
    return words;
}

PortBytes bytesOfBitmap(const u8 *bitmap) {
    PortBytes bytes;
    for (int port = 0; port < portCount; ++port)
        bytes[static_cast<std::size_t>(port)] = static_cast<u8>(utilBitmapCheck(bitmap, port));
    return bytes;
}
