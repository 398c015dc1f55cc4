#include "preview/differences_shapes.h"

#include <cmath>
#include <utility>
#include <vector>

#include "preview/lettering.h"
#include "preview/scene_flat.h"

namespace quillon::preview {
namespace {

using geometry::Point;
using Kind = DifferenceStroke::Kind;

/// Collects the strokes and areas of a scene.
class Collector final : public SceneVisitor {
 public:
  Collector(double tolerance, const geometry::StopCheck& stop)
      : flatness_(0.25 * tolerance), keys_(tolerance), stop_(stop) {}

  bool lines(std::span<const SceneLine> lines, std::span<const float> widths) override {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      strokes.push_back({lines[i].from, lines[i].to, widths[i] / 2.0F, Kind::Line});
    }
    return goesOn();
  }
  bool arc(const SceneArc& arc) override {
    points_.assign(1, arc.arc.start);
    flatten(arc.arc, flatness_, everywhere(), points_);
    return add(arc.width / 2.0F, Kind::Line, false);
  }
  bool circle(const SceneCircle& circle) override {
    points_.clear();
    flatten(circle, flatness_, everywhere(), points_);
    if (!circle.filled) return add(circle.width / 2.0F, Kind::Line, true);
    const bool goOn = add(0.0F, Kind::Edge, true);
    areas.emplace_back(std::exchange(points_, {}), keys_);
    return goOn;
  }
  bool area(std::span<const SceneCorner> corners, float width) override {
    if (corners.empty()) return true;
    points_.assign(1, corners.front().at);
    for (std::size_t i = 0; i < corners.size(); ++i) {
      flattenEdge(corners, i, flatness_, everywhere(), points_);
      if (!goesOn()) return false;
    }
    points_.pop_back();  // the first corner again
    const bool goOn = add(width / 2.0F, Kind::Edge, true);
    areas.emplace_back(std::exchange(points_, {}), keys_);
    return goOn;
  }
  bool text(const eagle::RecordedText& text) override {
    const Strokes letters = letteringOf(text, text.content);
    const auto half = static_cast<float>(std::fabs(text.size) * kPenWidth / 2.0);
    std::size_t i = 0;
    for (const std::size_t end : letters.ends) {
      points_.assign(letters.points.begin() + static_cast<std::ptrdiff_t>(i),
                     letters.points.begin() + static_cast<std::ptrdiff_t>(end));
      if (!add(half, Kind::Text, false)) return false;
      i = end;
    }
    return true;
  }

  std::vector<DifferenceStroke> strokes;
  std::vector<DifferenceArea> areas;

 private:
  bool goesOn() {
    constexpr std::size_t kUnasked = 1U << 14U;
    const std::size_t there = strokes.size() + points_.size();
    if (there < askAt_) return true;
    askAt_ = there + kUnasked;
    return !stop_();
  }

  bool add(float half, Kind kind, bool isClosed) {
    if (points_.size() == 1) strokes.push_back({points_[0], points_[0], half, kind});
    for (std::size_t i = 1; i < points_.size(); ++i) {
      strokes.push_back({points_[i - 1], points_[i], half, kind});
    }
    if (isClosed && points_.size() > 1 && !(points_.front() == points_.back())) {
      strokes.push_back({points_.back(), points_.front(), half, kind});
    }
    return goesOn();
  }

  double flatness_;
  DifferenceKeys keys_;
  const geometry::StopCheck& stop_;
  std::vector<Point> points_;
  std::size_t askAt_ = 0;
};

}  // namespace

DifferenceShapes::DifferenceShapes(const Scene& scene, double tolerance,
                                   const geometry::StopCheck& stop) {
  Collector collector(tolerance, stop);
  collector.strokes.reserve(scene.segmentCount());
  for (const SceneLayer& layer : scene.layers()) {
    if (stop()) return;
    layer.visit(everywhere(), collector);
  }
  if (stop()) return;
  strokes = DifferenceStrokes(std::move(collector.strokes), tolerance, stop);
  fills = DifferenceFills(std::move(collector.areas), stop);
}

}  // namespace quillon::preview
