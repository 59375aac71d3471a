/// Where records come from: image files, store folders, standard input and the built-in example.
#pragma once

#include "platform/board.h"
#include "platform/host/store.h"
#include "platform/image.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace inspect {

/// Input that cannot be used. The message names the file, what was found and what was expected.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What the command line says about the input.
struct InputOptions {
    std::string record = {};                  ///< FILE, FOLDER, FOLDER:NAME, "-" or builtin:NAME
    std::optional<std::string> defaults = {}; ///< the same for the default image
    std::optional<std::string> board = {};    ///< a board record, a store folder or builtin:board
    std::optional<std::int32_t> bank = {};    ///< instead of active_bank
    std::optional<bool> md5 = {};             ///< instead of password_encryption
    std::optional<std::uint64_t> offset = {}; ///< where the image begins in what RECORD names
};

/// A record or a setting that may be missing.
template <class Type> struct Found {
    std::shared_ptr<Type> value; ///< null: missing
    std::string from;            ///< the file, or what was asked for
    std::string problem;         ///< why a file that is there could not be used
    bool isExample = false;      ///< of the built-in example

    explicit operator bool() const { return value != nullptr; }
    const Type &operator*() const { return *value; }
    const Type *operator->() const { return value.get(); }
};
using ImagePart = Found<ConfigImage>;
using BoardPart = Found<BoardRecord>;

/// The image that a command works on, and what was found next to it.
struct Input {
    std::string name; ///< RECORD as it was given
    ImagePart image;  ///< always there
    ImagePart defaults;
    BoardPart board;
    std::optional<std::int32_t> bank;
    std::optional<bool> md5;
    bool isSettingsExample = false; ///< bank and md5 are the built-in example's
    std::string settingsProblem;    ///< why a platform.conf could not be used
    /// The image is the default or the customer default: its text has the header of those.
    bool isDefaultKind = false;
    /// The folder whose image this is; empty: there is none.
    std::string folder;
    bool isBuiltin = false;

    /// Throws an InputError that names what is missing for a text: the default image, the board record, settings.
    void requireAllOfText() const;
    /// Throws an InputError without a default image.
    void requireDefaults() const;
    /// Another image of the same store, by its selector; missing if there is no store or no such file.
    ImagePart sibling(std::int32_t selector) const;
    /// What is the built-in example's: "record", "default", "board", "settings".
    std::vector<std::string> examples() const;
};

/// Reads an image and what belongs to it. Throws an InputError.
Input loadInput(const InputOptions &options);

/// One image, as RECORD or --default names it. `fallback` is the image of a folder without a name.
ImagePart loadImage(const std::string &record, std::int32_t fallback, std::optional<std::uint64_t> offset = {});

/// "running", "default", "startup" or "customer_default", in the order of the selectors.
std::string imageName(std::int32_t selector);

/// Links are followed.
bool isFolder(const std::string &path);
/// A link that leads nowhere is there too.
bool isThere(const std::string &path);

} // namespace inspect
