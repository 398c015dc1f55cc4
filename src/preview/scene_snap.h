#pragma once

#include <functional>
#include <optional>

#include "preview/scene.h"

namespace quillon::preview {

/// The end, corner or centre of a thing that is nearest to a point, at most `reach` away, all in
/// millimetres. Only of layers for which `isShown` is true.
std::optional<geometry::Point> nearestPlace(const Scene& scene, geometry::Point to, double reach,
                                            const std::function<bool(int)>& isShown);

}  // namespace quillon::preview
