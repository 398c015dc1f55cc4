#pragma once

#include "geometry/stop_check.h"
#include "preview/differences_fills.h"
#include "preview/differences_strokes.h"
#include "preview/scene.h"

namespace quillon::preview {

/// What a scene shows, prepared for a comparison. Nothing when stopped.
struct DifferenceShapes {
  /// Curves are flattened and like shapes recognised by this tolerance, in millimetres.
  DifferenceShapes(const Scene& scene, double tolerance, const geometry::StopCheck& stop);

  DifferenceStrokes strokes;
  DifferenceFills fills;
};

}  // namespace quillon::preview
