#include "sections/interface.h"

#include "app/text.h"
#include "format/blocks.h"

// ------------------------------------------------------------------------------------------------- physical ports

namespace {

/// An attribute of a port and the lines of its values. The lines have no blank in front, and whether the "no" form
/// comes first differs between attributes: both are the format.
struct PortAttribute {
    be32 PortSettings::*field;
    std::initializer_list<ValueLine> lines;
};

/// Calls `render` for each attribute, in output order.
template <class Render> void forEachPortAttribute(Render render) {
    render({&PortSettings::administrativeState, {{1, "shutdown\n"}, {0, "no shutdown\n"}}});
    render({&PortSettings::mediaType, {{0, "no media-type\n"}, {1, "media-type sfp\n"}}});
    render({&PortSettings::autoNegotiation, {{1, "auto-negotiation\n"}, {0, "no auto-negotiation\n"}}});
    render({&PortSettings::speed,
            {{0, "speed 10\n"}, {1, "speed 100\n"}, {2, "speed 1000\n"}, {3, "speed auto_sense\n"}}});
    render({&PortSettings::duplex, {{0, "no duplex\n"}, {1, "duplex full\n"}}});
    render({&PortSettings::flowControl, {{0, "no flowcontrol\n"}, {1, "flowcontrol\n"}}});
}

/// Descriptions that differ from the default, in both modes alike. A joined port is marked with the default description
/// of the port that leads the block, not with its own: where those differ it is written once more.
void appendDescriptions() {
    const auto defaultOf = [](std::size_t port) { return gDefConfig->ports[port].description; };
    appendNameBlocks(textsOf(gSysConfig->ports, &PortSettings::description), defaultOf, defaultOf, "description %s \n");
}

} // namespace

int full::PortConfigFunc_configure_interface() {
    // Does not trace in this mode.
    forEachPortAttribute([](const PortAttribute &attribute) {
        appendValueBlocks(wordsOf(gSysConfig->ports, attribute.field), attribute.lines);
    });
    appendDescriptions();
    return 0;
}

int delta::PortConfigFunc_configure_interface() {
    trace(__func__);
    forEachPortAttribute([](const PortAttribute &attribute) {
        const PortWords current = wordsOf(gSysConfig->ports, attribute.field);
        if (current != wordsOf(gDefConfig->ports, attribute.field)) appendValueBlocks(current, attribute.lines);
    });
    appendDescriptions();
    return 0;
}

int full::PortConfigFunc_configure_interface_lan() { return 0; }
int full::PortConfigFunc_configure_interface_wan() { return 0; }
int full::InterfaceGroup_configure_ip_group() { return 0; }

int full::WifiConfigFunc_configure_interface() { return trace(__func__); }

// --------------------------------------------------------------------------------------------- Power over Ethernet

int full::convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &) { return trace(__func__); }
int delta::convConfigPOEConfig_POEConfig_configure_poe(const PoeConfig &, const PoeConfig &) { return trace(__func__); }

int full::convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &, const PoePortTable &) {
    return trace(__func__);
}
int delta::convConfigPOEConfig_POEConfig_configure_interface_poe(const PoePortTable &, const PoePortTable &) {
    return trace(__func__);
}
