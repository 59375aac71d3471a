/// The stores that the coverage of fields is found in.
#pragma once

#include "inspect/render.h"

#include <span>

namespace inspect {

/// Two images, a board and the form of passwords.
struct Store {
    ConfigImage current;
    ConfigImage defaults;
    BoardRecord board;
    RenderSettings settings;
};

/// A store to try fields in.
struct Scene {
    bool isEqual; ///< both images are the same
    void (*compose)(Store &store);
};
std::span<const Scene> coverageScenes();

/// Puts a scene into a renderer.
void show(const Scene &scene, Store &store, Renderer &renderer);

} // namespace inspect
