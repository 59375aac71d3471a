/// The text of a configuration, rendered by the same objects as textcfg.
///
/// textcfg's images, board record and text buffer are single ones, and so is this: one `Renderer` at a time. It holds
/// copies of what it renders, which may be changed between two calls. Emitters change the images that they read (MD5
/// forms of passwords, marks of remarking entries); that is undone after each call, so that equal images give equal
/// texts however often they are rendered.
#pragma once

#include "app/order.h"
#include "inspect/record_source.h"
#include "platform/board.h"
#include "platform/image.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace inspect {

/// What a platform would answer besides the records.
struct RenderSettings {
    std::int32_t bank = 1;
    bool md5Passwords = false;
};

/// A text that textcfg would not write: it does not fit, or a password has no MD5 form.
class RenderError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class Renderer {
public:
    Renderer(const ConfigImage &current, const ConfigImage &defaults, const BoardRecord &board,
             const RenderSettings &settings);
    /// Of an input that has all that a text needs.
    explicit Renderer(const Input &input);
    ~Renderer();
    Renderer(const Renderer &) = delete;
    Renderer &operator=(const Renderer &) = delete;

    /// The copies, to be changed in place.
    ConfigImage &current() { return *gSysConfig; }
    ConfigImage &defaults() { return *gDefConfig; }
    BoardRecord &board() { return g_EEPROM; }
    RenderSettings &settings();

    /// The text that a driver of `app/drivers.h` writes. It is valid until the next call. Throws a RenderError.
    std::string_view text(void (*driver)());
    /// The lines that one step writes in one mode; nothing where the mode has no such step.
    std::string_view lines(const order::Call &call);

private:
    template <class Work> std::string_view run(Work work);
};

/// The driver that textcfg uses.
using Driver = void (*)();
Driver driverOf(bool isDelta, bool isPage, bool isDefaultKind);

} // namespace inspect
