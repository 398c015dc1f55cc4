#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "eagle/recorder.h"
#include "preview/scene.h"

namespace quillon::preview {

/// Collects what it visits.
struct SceneParts : SceneVisitor {
  bool lines(std::span<const SceneLine> run, std::span<const float> runWidths) override {
    straight.insert(straight.end(), run.begin(), run.end());
    widths.insert(widths.end(), runWidths.begin(), runWidths.end());
    return true;
  }
  bool arc(const SceneArc& arc) override { return arcs.push_back(arc), true; }
  bool circle(const SceneCircle& circle) override { return circles.push_back(circle), true; }
  bool area(std::span<const SceneCorner> corners, float) override {
    return areas.emplace_back(corners.begin(), corners.end()), true;
  }
  bool text(const eagle::RecordedText& text) override { return texts.push_back(text), true; }

  std::vector<SceneLine> straight;
  std::vector<float> widths;
  std::vector<SceneArc> arcs;
  std::vector<SceneCircle> circles;
  std::vector<std::vector<SceneCorner>> areas;
  std::vector<eagle::RecordedText> texts;
};

/// What touches a box, on all layers.
inline SceneParts partsOf(const Scene& scene, const geometry::Box& box = everywhere()) {
  SceneParts parts;
  for (const SceneLayer& layer : scene.layers()) layer.visit(box, parts);
  return parts;
}

/// A script to be drawn, on layer 20 at first.
struct SceneTest : ::testing::Test {
  explicit SceneTest(base::Unit unit = base::Unit::Mm) : recorder(eagle::Coordinates{unit}) {
    recorder.layer(20);
  }

  void line(geometry::Point from, geometry::Point to, double curve = 0.0, double width = 0.0) {
    eagle::Wire wire;
    wire.width = width;
    wire.from = from;
    wire.to = to;
    wire.curve = curve;
    recorder.wire(wire);
  }
  void square(geometry::Point low, double side) {
    const geometry::Point high{low.x + side, low.y + side};
    const eagle::Corner corners[] = {{low}, {{high.x, low.y}}, {high}, {{low.x, high.y}}, {low}};
    recorder.area({0.0, corners});
  }
  void part(const std::string& name, geometry::Point at, double degrees = 0.0) {
    eagle::Part part;
    part.name = name;
    part.library = "library";
    part.at = at;
    part.degrees = degrees;
    recorder.part(part);
  }
  std::shared_ptr<const Scene> scene() const { return makeScene(recorder.recording()); }

  eagle::Recorder recorder;
};

}  // namespace quillon::preview
