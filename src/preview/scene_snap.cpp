#include "preview/scene_snap.h"

#include "geometry/arc.h"
#include "geometry/vectors.h"

namespace quillon::preview {
namespace {

using geometry::Point;

class Nearest final : public SceneVisitor {
 public:
  Nearest(Point to, double reach) : to_(to), reach_(reach) {}

  bool lines(std::span<const SceneLine> lines, std::span<const float>) override {
    for (const SceneLine& line : lines) {
      look(line.from);
      look(line.to);
    }
    return true;
  }
  bool arc(const SceneArc& arc) override {
    look(arc.arc.start);
    look(arc.arc.end);
    look(geometry::centre(arc.arc));
    return true;
  }
  bool circle(const SceneCircle& circle) override {
    look(circle.centre);
    return true;
  }
  bool area(std::span<const SceneCorner> corners, float) override {
    for (const SceneCorner& corner : corners) look(corner.at);
    return true;
  }
  bool text(const eagle::RecordedText& text) override {
    look(text.at);
    return true;
  }

  const std::optional<Point>& found() const { return found_; }

 private:
  void look(Point place) {
    const double distance = geometry::distance(place, to_);
    if (!(distance <= reach_)) return;
    reach_ = distance;
    found_ = place;
  }

  Point to_;
  double reach_;
  std::optional<Point> found_;
};

}  // namespace

std::optional<Point> nearestPlace(const Scene& scene, Point to, double reach,
                                  const std::function<bool(int)>& isShown) {
  Nearest nearest(to, reach);
  for (const SceneLayer& layer : scene.layers()) {
    if (isShown(layer.number())) layer.visit(widened({to, to}, reach), nearest);
  }
  return nearest.found();
}

}  // namespace quillon::preview
