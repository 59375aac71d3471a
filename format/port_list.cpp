#include "format/port_list.h"

#include "app/text/line_writer.h"
#include "platform/util.h"

#include <iterator>

namespace {

/// The rule by which every list is compressed. Walks `count` elements and calls `print(separator, index)` for each that
/// is printed: the first and the last of a run. The separator is 0 for the very first one, "," before the first of a
/// run and before the second of two neighbours, "-" before the last of three and more.
template <class Matches, class Print> void walkRuns(std::int32_t count, Matches matches, Print print) {
    char separator = '\0';
    for (std::int32_t i = 0; i < count; ++i) {
        if (!matches(i)) continue;
        const std::int32_t first = i;
        while (i + 1 < count && matches(i + 1)) ++i;
        print(separator, first);
        separator = ',';
        if (i != first) print(i == first + 1 ? ',' : '-', i);
    }
}

template <class Value> void appendList(Line head, const Value *values, Value match, std::int32_t count, Line tail) {
    LineWriter line;
    line.put(head.literal(), head.length());
    walkRuns(
        count, [=](std::int32_t i) { return values[i] == match; },
        [&line](char separator, std::int32_t index)
            __attribute__((always_inline)) { line.putEntry(separator, static_cast<std::uint32_t>(index) + 1); });
    line.put(tail.literal(), tail.length());
    line.finish();
}

template <class Value> int hasMember(const Value *values, Value match, std::int32_t count) {
    for (std::int32_t i = 0; i < count; ++i)
        if (values[i] == match) return 1;
    return 0;
}

constexpr const char *_storm_rate[] = {
    "disable", "1",  "2",  "4",  "8",   "16",  "32",  "64",   "128",  "256",  "512",
    "1k",      "2k", "4k", "8k", "16k", "32k", "64k", "128k", "256k", "512k", "1024k",
};
static_assert(std::size(_storm_rate) == 22);

} // namespace

void appendPortLine(Line head, const std::uint32_t *values, std::uint32_t match, std::int32_t count, Line tail) {
    appendList(head, values, match, count, tail);
}

void appendPortLine(Line head, const u8 *values, std::uint32_t match, std::int32_t count, Line tail) {
    appendList(head, values, static_cast<u8>(match), count, tail);
}

int APPEND_PORT_MEMBER_INT_NUM(const std::uint32_t *values, std::uint32_t match, std::int32_t count) {
    appendPortLine("", values, match, count, " ");
    return 0;
}

int APPEND_PORT_MEMBER_INT(const std::uint32_t *values, std::uint32_t match) {
    return APPEND_PORT_MEMBER_INT_NUM(values, match, portCount);
}

int APPEND_PORT_MEMBER_NUM(const u8 *values, std::uint32_t match, std::int32_t count) {
    appendPortLine("", values, match, count, "\n");
    return 0;
}

int APPEND_PORT_MEMBER(const u8 *values, std::uint32_t match) {
    return APPEND_PORT_MEMBER_NUM(values, match, portCount);
}

int APPEND_PORT_MEMBER_24(const u8 *values, std::uint32_t match) { return APPEND_PORT_MEMBER_NUM(values, match, 24); }

int APPEND_PORT_MEMBER_29(const u8 *values, std::uint32_t match) { return APPEND_PORT_MEMBER_NUM(values, match, 29); }

int APPEND_PORT_MEMBER_NUM_U8BMP(const u8 *bitmap, std::int32_t byteCount, std::int32_t ports) {
    const auto isSet = [=](std::int32_t i) { return (bitmap[i / 8] >> i % 8 & 1) != 0; };
    const std::int32_t bits = byteCount > INT32_MAX / 8 ? INT32_MAX : byteCount * 8;
    const std::int32_t count = bits < ports ? bits : ports;
    LineWriter line;
    std::int32_t listed = 0;
    walkRuns(count, isSet, [&](char separator, std::int32_t index) {
        osPrintfConsole("%s: L%d idx=%d\n", "APPEND_PORT_MEMBER_NUM_U8BMP", __LINE__, index);
        if (separator != '\0') line.put(separator);
        line.putDecimal(static_cast<std::uint32_t>(index) + 1);
        osPrintfConsole("%s: L%d count=%d\n", "APPEND_PORT_MEMBER_NUM_U8BMP", __LINE__, ++listed);
    });
    line.put('\n');
    line.finish();
    return 0;
}

int CHECK_HAS_MEMBER(const u8 *values, std::uint32_t match) {
    return hasMember(values, static_cast<u8>(match), portCount);
}

int CHECK_HAS_MEMBER_24(const u8 *values, std::uint32_t match) { return hasMember(values, static_cast<u8>(match), 24); }

int CHECK_HAS_MEMBER_INT(const std::uint32_t *values, std::uint32_t match) {
    return hasMember(values, match, portCount);
}

int CHECK_HAS_MEMBER_INT_NUM(const std::uint32_t *values, std::uint32_t match, std::int32_t count) {
    return hasMember(values, match, count);
}

char *Array2Str(char *text, const u8 *flags, int first, int last) {
    char *end = text;
    walkRuns(
        last + 1, [=](std::int32_t i) { return flags[i] != 0; },
        [&](char separator, std::int32_t index) {
            if (separator != '\0') *end++ = separator;
            char digits[11];
            int count = 0;
            const int number = first + index;
            std::uint32_t rest =
                number < 0 ? 0U - static_cast<std::uint32_t>(number) : static_cast<std::uint32_t>(number);
            do digits[count++] = static_cast<char>('0' + rest % 10);
            while ((rest /= 10) != 0);
            if (number < 0) digits[count++] = '-';
            while (count != 0) *end++ = digits[--count];
            *end = '\0';
        });
    return text;
}

const char *GET_STORM_RATE_STR(std::uint32_t code) {
    return code < std::size(_storm_rate) ? _storm_rate[code] : "unknown";
}
