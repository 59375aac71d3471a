/// The shapes in which the text groups ports: a block for each value of an attribute, a block for each distinct number,
/// a block for each distinct name. The caller gives the head of the block as the user sees it.
#pragma once

#include "app/text/text.h"
#include "format/port_set.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

/// A value and the line that sets it.
struct ValueLine {
    std::uint32_t value;
    Line line;
};

/// Appends the line of `value`. Returns whether there is one.
bool appendValueLine(std::uint32_t value, std::initializer_list<ValueLine> lines);

/// Appends a block for each value of `lines` that some port has, in their order. Ports with another value are in none.
void appendValueBlocks(Format<PortSet> head, const std::uint32_t *values, std::size_t ports,
                       std::initializer_list<ValueLine> lines);
template <std::size_t Ports>
void appendValueBlocks(Format<PortSet> head, const PortValues<Ports> &values, std::initializer_list<ValueLine> lines) {
    appendValueBlocks(head, values.data(), Ports, lines);
}

/// The ports that have one value.
struct PortGroup {
    std::uint32_t value;
    PortSet ports;
};

/// Groups of ports with equal values, in the order of the lowest port.
struct PortGroups {
    PortGroup groups[portCount];
    std::size_t count = 0;

    /// From the least value to the largest.
    void sortByValue();

    const PortGroup *begin() const { return groups; }
    const PortGroup *end() const { return groups + count; }
};

/// The groups of `values`. A port that holds `marker` counts as already written, so it is in no group.
PortGroups groupsOf(const std::uint32_t *values, std::size_t ports, std::uint32_t marker);
template <std::size_t Ports> PortGroups groupsOf(const PortValues<Ports> &values, std::uint32_t marker) {
    static_assert(Ports <= portCount);
    return groupsOf(values.data(), Ports, marker);
}

/// Appends a block for each distinct name in `names` that is not its port's default, in the order of the lowest port.
///
/// A later port of the same name joins, and `markOf(i)`, i being the port that leads the block, overwrites its name.
/// That is the only mark of a port already written: where it differs from the joined port's own default, that port is
/// written once more, with the overwritten name.
template <std::size_t Ports, std::size_t Width, class DefaultOf, class MarkOf>
void appendNameBlocks(Format<EachPort> head, std::array<Text<Width>, Ports> names, DefaultOf defaultOf, MarkOf markOf,
                      std::type_identity_t<Format<Text<Width>>> line) {
    for (std::size_t i = 0; i < Ports; ++i) {
        if (sameText(names[i], defaultOf(i))) continue;
        EachPort members;
        members.ports.add(i);
        for (std::size_t j = i + 1; j < Ports; ++j) {
            if (!sameText(names[j], names[i])) continue;
            members.ports.add(j);
            names[j] = markOf(i);
        }
        append(head, members);
        append(line, names[i]);
        append("exit\n");
    }
}

/// The texts of one field of all ports.
template <class Record, std::size_t Ports, std::size_t Width>
std::array<Text<Width>, Ports> textsOf(const Record (&records)[Ports], Text<Width> Record::*field) {
    std::array<Text<Width>, Ports> texts;
    for (std::size_t i = 0; i < Ports; ++i) texts[i] = records[i].*field;
    return texts;
}
