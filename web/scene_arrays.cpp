#include "web/scene_arrays.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

#include "geometry/degrees.h"
#include "preview/lettering.h"
#include "preview/palette.h"
#include "preview/scene_flat.h"
#include "preview/stroke_font.h"
#include "web/arrays.h"
#include "workbench/layer_list.h"

namespace quillon::web {
namespace {

using emscripten::val;
using geometry::Box;
using geometry::Point;

/// Lines that share a box.
constexpr std::size_t kLinesPerBox = 1024;

/// How far the edges of areas may be from their arcs: nothing that a picture shows before its
/// points are too coarse as well.
double flatness(const Box& bounds) { return std::max(0.002, 1e-6 * bounds.diagonal()); }

Point middleOf(const Box& bounds) {
  return bounds.empty() ? Point{} : geometry::middle(bounds.low, bounds.high);
}

val pointValue(Point point) {
  val value = val::object();
  value.set("x", point.x);
  value.set("y", point.y);
  return value;
}

/// Lines relative to an origin, as four numbers each, with boxes around runs of them.
class LineArrays {
 public:
  explicit LineArrays(Point origin) : origin_(origin) {}

  void add(Point from, Point to, float width) {
    if (count_ % kLinesPerBox == 0) closeBox();
    ++count_;
    for (const Point point : {from - origin_, to - origin_}) {
      numbers_.push_back(static_cast<float>(point.x));
      numbers_.push_back(static_cast<float>(point.y));
      const double reach = width / 2.0;
      box_.add({{point.x - reach, point.y - reach}, {point.x + reach, point.y + reach}});
    }
  }
  val numbers() const { return typedArray(numbers_); }
  val boxes() {
    closeBox();
    return typedArray(boxes_);
  }

 private:
  void closeBox() {
    if (box_.empty()) return;
    for (const double side : {box_.low.x, box_.low.y, box_.high.x, box_.high.y}) {
      boxes_.push_back(static_cast<float>(side));
    }
    box_ = {};
  }

  Point origin_;
  std::size_t count_ = 0;
  Box box_;
  std::vector<float> numbers_;
  std::vector<float> boxes_;
};

/// Takes down what is on one layer.
class LayerArrays final : public preview::SceneVisitor {
 public:
  LayerArrays(Point origin, double tolerance)
      : origin_(origin), tolerance_(tolerance), lines_(origin), textLines_(origin) {}

  bool lines(std::span<const preview::SceneLine> lines, std::span<const float> widths) override {
    for (std::size_t i = 0; i < lines.size(); ++i)
      lines_.add(lines[i].from, lines[i].to, widths[i]);
    widths_.insert(widths_.end(), widths.begin(), widths.end());
    return true;
  }

  bool arc(const preview::SceneArc& arc) override {
    const Point centre = geometry::centre(arc.arc);
    const Point out = arc.arc.start - centre;
    addNumbers(arcs_, {arc.arc.start - origin_, arc.arc.end - origin_, centre - origin_});
    arcs_.insert(arcs_.end(), {geometry::radius(arc.arc), std::atan2(out.y, out.x),
                               geometry::radiansOf(arc.arc.curve), double{arc.width}});
    return true;
  }

  bool circle(const preview::SceneCircle& circle) override {
    addNumbers(circles_, {circle.centre - origin_});
    circles_.insert(circles_.end(),
                    {circle.radius, double{circle.width}, circle.filled ? 1.0 : 0.0});
    return true;
  }

  bool area(std::span<const preview::SceneCorner> corners, float width) override {
    std::vector<Point> points;
    constexpr double kFar = 1e18;  // all of it is nearby
    preview::flatten(corners, tolerance_, {{-kFar, -kFar}, {kFar, kFar}}, points);
    for (const Point point : points) {
      areaPoints_.push_back(static_cast<float>(point.x - origin_.x));
      areaPoints_.push_back(static_cast<float>(point.y - origin_.y));
    }
    areaEnds_.push_back(static_cast<std::uint32_t>(areaPoints_.size() / 2));
    areaWidths_.push_back(width);
    return true;
  }

  bool text(const eagle::RecordedText& text) override {
    const preview::Strokes strokes = preview::letteringOf(text, text.content);
    const auto width = static_cast<float>(std::fabs(text.size) * preview::kPenWidth);
    std::size_t first = 0;
    for (const std::size_t end : strokes.ends) {
      if (end - first == 1) addTextLine(strokes.points[first], strokes.points[first], width);
      for (; first + 1 < end; ++first) {
        addTextLine(strokes.points[first], strokes.points[first + 1], width);
      }
      first = end;
    }
    return true;
  }

  void putInto(val& layer) {
    layer.set("areaPoints", typedArray(areaPoints_));
    layer.set("areaEnds", typedArray(areaEnds_));
    layer.set("areaWidths", typedArray(areaWidths_));
    layer.set("lines", lines_.numbers());
    layer.set("lineWidths", typedArray(widths_));
    layer.set("lineBoxes", lines_.boxes());
    layer.set("arcs", typedArray(arcs_));
    layer.set("circles", typedArray(circles_));
    layer.set("textLines", textLines_.numbers());
    layer.set("textWidths", typedArray(textWidths_));
  }

 private:
  static void addNumbers(std::vector<double>& numbers, std::initializer_list<Point> points) {
    for (const Point point : points) numbers.insert(numbers.end(), {point.x, point.y});
  }
  void addTextLine(Point from, Point to, float width) {
    textLines_.add(from, to, width);
    textWidths_.push_back(width);
  }

  Point origin_;
  double tolerance_;
  std::vector<float> areaPoints_;
  std::vector<std::uint32_t> areaEnds_;
  std::vector<float> areaWidths_;
  LineArrays lines_;
  std::vector<float> widths_;
  std::vector<double> arcs_;
  std::vector<double> circles_;
  LineArrays textLines_;
  std::vector<float> textWidths_;
};

val sideValue(const preview::DifferenceSide& side, Point origin) {
  LineArrays lines(origin);
  for (const preview::SceneLine& piece : side.pieces()) lines.add(piece.from, piece.to, 0.0F);
  val value = val::object();
  value.set("lines", lines.numbers());
  value.set("lineBoxes", lines.boxes());
  value.set("length", side.length());
  value.set("areas", static_cast<double>(side.areas()));
  return value;
}

}  // namespace

val boxValue(const Box& box) {
  if (box.empty()) return val::null();
  val value = val::object();
  value.set("x0", box.low.x);
  value.set("y0", box.low.y);
  value.set("x1", box.high.x);
  value.set("y1", box.high.y);
  return value;
}

val sceneValue(const preview::Scene& scene, int target, const texts::Texts& texts) {
  const Point origin = middleOf(scene.bounds());
  const double tolerance = flatness(scene.bounds());
  val value = val::object();
  value.set("origin", pointValue(origin));
  value.set("bounds", boxValue(scene.bounds()));
  value.set("limit", scene.limit());
  value.set("layers", listOf(scene.layers(), [&](const preview::SceneLayer& layer) {
              const Box& bounds = layer.bounds();
              val one = val::object();
              one.set("number", layer.number());
              one.set("name", workbench::layerName(layer.number(), target, texts));
              const auto colourIn = [&layer](preview::Theme theme) {
                return colourValue(preview::colourOfLayer(layer.number(), theme));
              };
              one.set("light", colourIn(preview::Theme::Light));
              one.set("dark", colourIn(preview::Theme::Dark));
              one.set("count", static_cast<double>(layer.objectCount()));
              one.set("bounds", boxValue({bounds.low - origin, bounds.high - origin}));
              LayerArrays arrays(origin, tolerance);
              layer.visit(bounds, arrays);
              arrays.putInto(one);
              return one;
            }));
  return value;
}

val differencesValue(const preview::Differences& differences) {
  Box bounds = differences.onlyDrawing.bounds();
  bounds.add(differences.onlyResult.bounds());
  const Point origin = middleOf(bounds);
  val value = val::object();
  value.set("origin", pointValue(origin));
  value.set("onlyDrawing", sideValue(differences.onlyDrawing, origin));
  value.set("onlyResult", sideValue(differences.onlyResult, origin));
  value.set("isCut", differences.isCut);
  return value;
}

}  // namespace quillon::web
