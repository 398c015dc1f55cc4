#include "exact/command_writer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include "base/layer_number.h"
#include "base/utf8_check.h"
#include "geometry/path_tools.h"

namespace quillon::exact {
namespace {

constexpr int kLastCopperLayer = 16;

/// EAGLE has these layers in every new drawing; others have to be defined before they are used.
bool isKnownToEagle(int layer) {
  constexpr int kLastOfBoards = 52;
  constexpr int kFirstOfSchematics = 88;
  constexpr int kLastOfSchematics = 98;
  constexpr int kUnused = 50;
  const bool board = layer >= 1 && layer <= kLastOfBoards && layer != kUnused;
  return board || (layer >= kFirstOfSchematics && layer <= kLastOfSchematics);
}

/// A name for a layer of EAGLE: each character that might not be allowed is an underscore.
std::string layerName(std::string_view dxfLayer, int number) {
  std::string name;
  while (!dxfLayer.empty()) {
    const char c = dxfLayer.front();
    const bool fits = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
                      c == '_' || c == '-';
    name += fits ? c : '_';
    const char* const begin = dxfLayer.data();
    const std::size_t bytes = base::utf8SequenceLength(begin, begin + dxfLayer.size());
    dxfLayer.remove_prefix(std::max<std::size_t>(bytes, 1));
  }
  return name.empty() ? "DXF_" + std::to_string(number) : name;
}

std::string_view wordOf(Style style) {
  static constexpr std::array<std::string_view, 4> kWords = {"Continuous", "LongDash", "ShortDash",
                                                             "DashDot"};
  return kWords[static_cast<std::size_t>(style)];
}

std::string_view wordOf(Columns columns, Rows rows) {
  static constexpr std::array<std::array<std::string_view, 3>, 3> kWords = {
      {{"Bottom Left", "Bottom Center", "Bottom Right"},
       {"Center Left", "Center", "Center Right"},
       {"Top Left", "Top Center", "Top Right"}}};
  return kWords[static_cast<std::size_t>(rows)][static_cast<std::size_t>(columns)];
}

}  // namespace

void CommandWriter::begin() {
  inPart_ = false;
  setAll();
}

void CommandWriter::beginPart() {
  inPart_ = true;
  commands_.beginPart();
  setAll();
}

void CommandWriter::setAll() {
  layer_.reset();
  size_.reset();
  definedLayers_.clear();
  commands_.change(eagle::Property::Style, wordOf(Style::Continuous));
  style_ = Style::Continuous;
  commands_.change(eagle::Property::Cap, "Round");
  commands_.change(eagle::Property::Font, "Vector");
  commands_.change(eagle::Property::Ratio, "8");
  align_.reset();
  setAlign(Columns::Left, Rows::Bottom);
}

void CommandWriter::end() {
  setStyle(Style::Continuous);
  setAlign(Columns::Left, Rows::Bottom);
}

void CommandWriter::place(eagle::Part part) {
  part.at = placed(part.at);
  part.covers = {placed(part.covers.low), placed(part.covers.high)};
  extend(part.covers);
  commands_.part(part);
}

void CommandWriter::take(const Origin& origin, Chain&& chain) {
  setLayer(origin);
  setStyle(chain.style);
  if (chain.isCircle && chain.width > 0.0) return putCircle(chain);
  collect(chain.path);
  commands_.polyline({.filled = false,
                      .width = chain.width,
                      .signal = signalOn(origin.layer),
                      .corners = corners_});
}

/// Most shapes of most drawings are these.
void CommandWriter::takeSegment(const Origin& origin, const Segment& segment) {
  setLayer(origin);
  setStyle(segment.style);
  const std::array<eagle::Corner, 2> corners = {
      {{placed(segment.from), segment.curve}, {placed(segment.to), 0.0}}};
  if (!inPart_) {
    for (const eagle::Corner& corner : corners) bounds_.add(corner.at);
    if (segment.curve != 0.0) extendByArc({segment.from, segment.to, segment.curve});
  }
  commands_.polyline({.filled = false,
                      .width = segment.width,
                      .signal = signalOn(origin.layer),
                      .corners = corners});
}

/// A circle of width 0 would be a disc: only those with a width are circles to EAGLE.
void CommandWriter::putCircle(const Chain& chain) {
  const Point left = placed(chain.path.vertices[0].at);
  const Point right = placed(chain.path.vertices[1].at);
  const Point centre{(left.x + right.x) / 2.0, (left.y + right.y) / 2.0};
  addDisc(centre, right.x - left.x);
  commands_.circle(
      {.kind = eagle::CircleKind::Ring, .width = chain.width, .centre = centre, .onCircle = right});
}

void CommandWriter::take(const Origin& origin, Area&& area) {
  setLayer(origin);
  collect(area.outline);
  commands_.polyline({.filled = true,
                      .width = options_.fillWidth,
                      .signal = signalOn(origin.layer),
                      .corners = corners_});
}

void CommandWriter::take(const Origin& origin, TextLine&& text) {
  setLayer(origin);
  geometry::Box at;
  at.add(placed(text.at));
  extend(at);
  setSize(text.height);
  setAlign(text.columns, text.rows);
  commands_.label({.degrees = text.angle,
                   .mirrored = text.mirrored,
                   .spin = text.spin,
                   .content = text.content,
                   .at = placed(text.at)});
}

void CommandWriter::take(const Origin& origin, const Dot& dot) {
  setLayer(origin);
  const Point centre = placed(dot.centre);
  addDisc(centre, dot.diameter);
  commands_.circle({.kind = eagle::CircleKind::Disc,
                    .centre = centre,
                    .onCircle = {centre.x + dot.diameter / 2.0, centre.y}});
}

void CommandWriter::take(const Origin&, const Hole& hole) {
  addDisc(placed(hole.centre), hole.drill);
  commands_.hole({.drill = hole.drill, .centre = placed(hole.centre)});
}

void CommandWriter::changeLayer(const Origin& origin) {
  layer_ = origin.layer;
  if (!isKnownToEagle(origin.layer) && definedLayers_.insert(origin.layer).second) {
    commands_.defineLayer(origin.layer, layerName(origin.dxfLayer, origin.layer));
  }
  commands_.layer(origin.layer);
}

void CommandWriter::changeStyle(Style style) {
  style_ = style;
  commands_.change(eagle::Property::Style, wordOf(style));
}

void CommandWriter::setSize(double height) {
  if (size_ == height) return;
  size_ = height;
  commands_.change(eagle::Property::Size, height);
}

/// Versions before 6 know no alignment.
void CommandWriter::setAlign(Columns columns, Rows rows) {
  if (options_.version == Version::Eagle4 || align_ == std::pair(columns, rows)) return;
  align_ = std::pair(columns, rows);
  commands_.change(eagle::Property::Align, wordOf(columns, rows));
}

/// On copper a wire without a name may join the signals that it touches.
std::string_view CommandWriter::signalOn(int layer) {
  const bool isCopper = layer >= 1 && layer <= kLastCopperLayer;
  if (options_.target != Target::Board || inPart_ || !isCopper) return {};
  namedSignals_ = true;
  return "DXF";
}

void CommandWriter::collect(const Path& path) {
  const std::size_t count = path.vertices.size();
  const bool closes = path.closed && count > 0;
  corners_.resize(closes ? count + 1 : count);
  geometry::Box points;
  double mostCurve = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    const geometry::Vertex& vertex = path.vertices[i];
    corners_[i] = {placed(vertex.at), vertex.curve};
    points.add(corners_[i].at);
    mostCurve = std::max(mostCurve, std::fabs(vertex.curve));
  }
  if (closes) corners_[count] = {corners_.front().at, 0.0};
  if (inPart_) return;
  bounds_.addPointsOf(points);
  if (mostCurve == 0.0 || geometry::areSurelyWithin(points, mostCurve, bounds_)) return;
  const std::size_t arcs = geometry::arcCount(path);
  for (std::size_t i = 0; i < arcs; ++i) {
    if (path.vertices[i].curve != 0.0) extendByArc(geometry::arcAt(path, i));
  }
}

/// By more than its ends, which have been added.
void CommandWriter::extendByArc(const geometry::Arc& arc) {
  if (geometry::isSurelyWithin({placed(arc.start), placed(arc.end), arc.curve}, bounds_)) return;
  const geometry::Box box = geometry::bounds(arc);
  extend({placed(box.low), placed(box.high)});
}

void CommandWriter::addDisc(Point centre, double diameter) {
  const Point radius{diameter / 2.0, diameter / 2.0};
  extend({centre - radius, centre + radius});
}

/// The content of a part counts where the part is placed.
void CommandWriter::extend(const geometry::Box& to) {
  if (!inPart_) bounds_.add(to);
}

}  // namespace quillon::exact
