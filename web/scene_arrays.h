#pragma once

#include <emscripten/val.h>

#include "preview/differences.h"
#include "preview/scene.h"
#include "texts/string_table.h"

namespace quillon::web {

/// `Box` of engine.d.ts; null for an empty one.
emscripten::val boxValue(const geometry::Box& box);

/// `Scene` of engine.d.ts. `target`: of the script, for the names of layers.
emscripten::val sceneValue(const preview::Scene& scene, int target, const texts::Texts& texts);

/// `Differences` of engine.d.ts.
emscripten::val differencesValue(const preview::Differences& differences);

}  // namespace quillon::web
