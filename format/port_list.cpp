#include "format/port_list.h"

#include "app/text/line_writer.h"
#include "platform/image.h"
#include "platform/util.h"

#include <cstring>
#include <iterator>

namespace {

/// Walks `count` elements and calls `run(separator, first, last)` for each run of those that match. The separator is
/// NUL before the first run.
template <class Matches, class Run> void walkRuns(std::int32_t count, Matches matches, Run run) {
    char separator = '\0';
    for (std::int32_t i = 0; i < count; ++i) {
        if (!matches(i)) continue;
        const std::int32_t first = i;
        while (i + 1 < count && matches(i + 1)) ++i;
        run(separator, first, i);
        separator = ',';
    }
}

template <class Value> int appendList(const Value *values, Value match, std::int32_t count, char end) {
    LineWriter line;
    walkRuns(
        count, [=](std::int32_t i) { return values[i] == match; },
        [&line](char separator, std::int32_t first, std::int32_t last) {
            line.putRun(separator, static_cast<std::uint32_t>(first) + 1, static_cast<std::uint32_t>(last) + 1);
        });
    line.put(end);
    line.finish();
    return 0;
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

int APPEND_PORT_MEMBER_INT_NUM(const std::uint32_t *values, std::uint32_t match, std::int32_t count) {
    return appendList(values, match, count, ' ');
}

int APPEND_PORT_MEMBER_INT(const std::uint32_t *values, std::uint32_t match) {
    return APPEND_PORT_MEMBER_INT_NUM(values, match, portCount);
}

int APPEND_PORT_MEMBER_NUM(const u8 *values, std::uint32_t match, std::int32_t count) {
    return appendList(values, static_cast<u8>(match), count, '\n');
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
    const auto put = [&](char separator, std::int32_t index) {
        osPrintfConsole("%s: L%d idx=%d\n", "APPEND_PORT_MEMBER_NUM_U8BMP", __LINE__, index);
        line.putEntry(separator, static_cast<std::uint32_t>(index) + 1);
        osPrintfConsole("%s: L%d count=%d\n", "APPEND_PORT_MEMBER_NUM_U8BMP", __LINE__, ++listed);
    };
    walkRuns(count, isSet,
             [&](char separator, std::int32_t first, std::int32_t last) { listRun(separator, first, last, put); });
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
    const auto put = [&](char separator, std::int32_t number) {
        if (separator != '\0') *end++ = separator;
        char digits[10];
        const std::uint32_t magnitude =
            number < 0 ? 0U - static_cast<std::uint32_t>(number) : static_cast<std::uint32_t>(number);
        const char *const begin = decimal(magnitude, digits);
        const std::size_t length = static_cast<std::size_t>(digits + sizeof digits - begin);
        if (number < 0) *end++ = '-';
        std::memcpy(end, begin, length);
        end += length;
        *end = '\0';
    };
    walkRuns(
        last + 1, [=](std::int32_t i) { return flags[i] != 0; },
        [&](char separator, std::int32_t from, std::int32_t to) { listRun(separator, first + from, first + to, put); });
    return text;
}

const char *GET_STORM_RATE_STR(std::uint32_t code) {
    return code < std::size(_storm_rate) ? _storm_rate[code] : "unknown";
}
