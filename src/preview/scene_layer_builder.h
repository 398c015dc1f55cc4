#pragma once

#include <vector>

#include "geometry/affine.h"
#include "preview/scene.h"

namespace quillon::preview {

/// Where a sheet is placed, in units of the script.
struct ScenePlace {
  geometry::Affine map;
  double degrees = 0.0;
  bool spin = false;  ///< texts may be upside down
};

/// Gathers the things of one layer, from all sheets that have it.
class SceneLayerBuilder {
 public:
  /// `millimetres`: in a unit of the script.
  SceneLayerBuilder(int number, double millimetres) : layer_(number), millimetres_(millimetres) {}

  /// Adds what is in sight. False when stopped.
  bool add(const eagle::RecordedLayer& layer, const ScenePlace& place, base::Encoding encoding,
           const geometry::StopCheck& stop);
  void addHole(const eagle::RecordedHole& hole, const ScenePlace& place);

  /// The layer, once everything is there. Means nothing when stopped.
  SceneLayer finish(const geometry::StopCheck& stop);

 private:
  void addWire(const eagle::RecordedWire& wire, const ScenePlace& place);
  void addCircle(const eagle::RecordedCircle& circle, const ScenePlace& place);
  void addArea(const eagle::RecordedLayer& layer, const eagle::RecordedArea& area,
               const ScenePlace& place);
  void addText(const eagle::RecordedText& text, const ScenePlace& place, base::Encoding encoding);
  /// In millimetres: a width that can be drawn.
  float widthOf(double width) const;
  void finishLines(const geometry::StopCheck& stop);

  SceneLayer layer_;
  double millimetres_;
  std::vector<geometry::Box> textBoxes_;
};

}  // namespace quillon::preview
