/// The running configuration: what changed since the last saving.
#include "platform/host/factory_parts.h"

namespace factory {
namespace {

/// A desk became a meeting room, with a screen that listens to its own VLAN.
namespace notSavedYet {

void meetingRoom(ConfigImage &image) {
    PortSettings &port = image.ports[7];
    port.description = "meeting room 3.08";
    image.vlanPorts[7].accessVlan = 40;
    remove(image.tagVlans[1].members, {8, 8});

    TagVlan &screens = image.tagVlans[6];
    bindVlan(screens, 40, "screens");
    add(screens.members, {8, 8});
    add(screens.members, uplinks);

    image.poePorts[7].deviceName = "screen";
    image.poePorts[7].budget = 60;
    image.macLimit.portMaximum[7] = 8;
    image.priority.userPriority[7] = 5;
}

void operations(ConfigImage &image) {
    setUser(image.users[3], "trainee", "first-week", 1, "until autumn");
    image.time.server2 = ipv4(198, 51, 100, 11);
    image.acl[2].rateLimit = 2048;
    image.stpPorts.cost[27] = 8000;
    image.console.timeout = 20;
}

} // namespace notSavedYet

} // namespace

void composeRunning(ConfigImage &image) {
    composeStartup(image);
    notSavedYet::meetingRoom(image);
    notSavedYet::operations(image);
}

} // namespace factory
