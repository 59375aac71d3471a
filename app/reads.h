/// What an emitter reads besides its arguments, as data for the rows of the order table.
///
/// Only tests and tools look at it. The switch's program takes nothing from it.
#pragma once

#include "platform/board.h"
#include "platform/image.h"
#include "platform/mapi.h"

#include <cstddef>
#include <iterator>
#include <string_view>

namespace order {

/// Bytes of the images or of the board record, or an operation of the platform.
struct Read {
    enum class From { current, defaults, bothImages, board, platform };

    From from = From::current;
    std::string_view name = {};
    std::size_t offset = 0;
    std::size_t size = 0;
    std::size_t count = 1;  ///< entries of the table, where a field of each entry is read
    std::size_t stride = 0; ///< bytes from one entry to the next
};

#define READ_BYTES(image, member)                                                                                      \
    order::Read { order::Read::From::image, #member, offsetof(ConfigImage, member), sizeof(ConfigImage::member) }
// NOLINTBEGIN(bugprone-macro-parentheses): the names of members cannot be in parentheses
#define READ_EACH(image, table, field)                                                                                 \
    order::Read {                                                                                                      \
        order::Read::From::image, #table "[]." #field, offsetof(ConfigImage, table[0].field),                          \
            sizeof(ConfigImage::table[0].field), sizeof(ConfigImage::table) / sizeof(ConfigImage::table[0]),           \
            sizeof(ConfigImage::table[0])                                                                              \
    }
// NOLINTEND(bugprone-macro-parentheses)

/// A section or one of its fields, such as CURRENT(console.webTimeout).
#define CURRENT(member) READ_BYTES(current, member)
#define DEFAULTS(member) READ_BYTES(defaults, member)
#define BOTH(member) READ_BYTES(bothImages, member)
/// A field of every entry of a table, such as CURRENT_EACH(tagVlans, id).
#define CURRENT_EACH(table, field) READ_EACH(current, table, field)
#define DEFAULTS_EACH(table, field) READ_EACH(defaults, table, field)
#define BOTH_EACH(table, field) READ_EACH(bothImages, table, field)
/// A field of the board record.
#define BOARD(field)                                                                                                   \
    order::Read { order::Read::From::board, #field, offsetof(BoardRecord, field), sizeof(BoardRecord::field) }
/// An operation of the platform. The address is taken so that the name has to exist.
#define PLATFORM(operation) order::readOfPlatform(#operation, &::operation)

template <class Operation> consteval Read readOfPlatform(std::string_view name, Operation *) {
    return {Read::From::platform, name};
}

/// `ConfigImage::descriptionAndBeyond` of the default image. The last port has no later port that could join its
/// block, so its description is not read.
inline constexpr Read defaultDescriptionsAndBeyond = {Read::From::defaults,
                                                      "ports[].description and beyond",
                                                      offsetof(ConfigImage, ports[0].description),
                                                      sizeof(CircuitId),
                                                      portCount - 1,
                                                      sizeof(PortSettings)};

} // namespace order
