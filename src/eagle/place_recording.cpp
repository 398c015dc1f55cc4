#include "eagle/place_recording.h"

#include "geometry/vectors.h"

namespace quillon::eagle {
namespace {

/// Places the things of one sheet.
class Placing {
 public:
  Placing(double factor, geometry::Point shift) : factor_(factor), shift_(shift) {}

  void operator()(RecordedLayer& layer) const {
    for (RecordedWire& wire : layer.wires) {
      place(wire.from);
      place(wire.to);
      grow(wire.width);
    }
    for (RecordedCircle& circle : layer.circles) {
      place(circle.centre);
      circle.radius *= factor_;
      grow(circle.width);
    }
    for (RecordedArea& area : layer.areas) grow(area.width);
    for (RecordedCorner& corner : layer.corners) place(corner.at);
    for (RecordedText& text : layer.texts) {
      place(text.at);
      text.size *= factor_;
    }
  }
  void place(geometry::Point& point) const { point = point * factor_ + shift_; }
  double grown(double length) const { return length * factor_; }

 private:
  void grow(float& width) const { width = static_cast<float>(width * factor_); }

  double factor_;
  geometry::Point shift_;
};

}  // namespace

void placeRecording(Recording& recording, double factor, geometry::Point shift) {
  // Library parts have names; what is open when the script starts has none.
  for (RecordedSheet& sheet : recording.sheets) {
    const bool isPart = &sheet != &recording.sheets.front() && !sheet.name.empty();
    const Placing placing(factor, isPart ? geometry::Point{} : shift);
    for (auto& [number, layer] : sheet.layers) placing(layer);
    for (RecordedPart& part : sheet.parts) placing.place(part.at);
    for (RecordedHole& hole : sheet.holes) {
      placing.place(hole.centre);
      hole.drill = placing.grown(hole.drill);
    }
  }
}

}  // namespace quillon::eagle
