#include "format/blocks.h"

#include <utility>

bool appendValueLine(std::uint32_t value, std::initializer_list<ValueLine> lines) {
    for (const ValueLine &row : lines) {
        if (row.value != value) continue;
        append(row.line);
        return true;
    }
    return false;
}

void appendValueBlocks(Format<PortSet> head, const std::uint32_t *values, std::size_t ports,
                       std::initializer_list<ValueLine> lines) {
    for (const ValueLine &row : lines) {
        PortSet members;
        for (std::size_t i = 0; i < ports; ++i) members.bits |= std::uint32_t{values[i] == row.value} << i;
        if (members.empty()) continue;
        append(head, members);
        append(row.line);
        append("exit\n");
    }
}

void PortGroups::sortByValue() {
    for (std::size_t i = 1; i < count; ++i)
        for (std::size_t j = i; j != 0 && groups[j].value < groups[j - 1].value; --j)
            std::swap(groups[j], groups[j - 1]);
}

PortGroups groupsOf(const std::uint32_t *values, std::size_t ports, std::uint32_t marker) {
    PortGroups groups;
    for (std::size_t i = 0; i < ports; ++i) {
        if (values[i] == marker) continue;
        std::size_t of = 0;
        while (of < groups.count && groups.groups[of].value != values[i]) ++of;
        if (of == groups.count) groups.groups[groups.count++] = {values[i], {}};
        groups.groups[of].ports.add(i);
    }
    return groups;
}
