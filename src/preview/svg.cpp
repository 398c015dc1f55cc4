#include "preview/svg.h"

#include <cmath>
#include <map>
#include <string>
#include <utility>

#include "base/encoding.h"
#include "base/units.h"
#include "geometry/arc.h"
#include "preview/figure.h"
#include "preview/lettering.h"
#include "preview/svg_text.h"
#include "preview/view.h"

namespace quillon::preview {
namespace {

using eagle::RecordedLayer;
using eagle::RecordedSheet;
using geometry::Box;
using geometry::Point;

constexpr double kMillimetresOfInch = 25.4;

Box scaled(const Box& box, double factor) {
  if (box.empty()) return box;
  return {box.low * factor, box.high * factor};
}

class Svg {
 public:
  Svg(const eagle::Recording& recording, Theme theme, base::ByteSink& sink)
      : figure_(recording),
        theme_(theme),
        millimetres_(base::unitRecord(recording.unit).millimetres),
        limit_(recording.limit * millimetres_),
        size_(scaled(figure_.bounds(), millimetres_)),
        view_(viewOf(size_)),
        text_(sink, view_.hairline / kFineness) {}

  void write() {
    putHead();
    putLimits();
    putOrigin();
    putSheet(figure_.sheet(), "layer-");
    putParts();
    putHoles(figure_.sheet());
    putNotes();
    text_.text("</svg>\n");
    text_.flush();
  }

 private:
  /// Parts of the thinnest line that places are exact to.
  static constexpr double kFineness = 50.0;

  Point inMillimetres(Point point) const { return point * millimetres_; }
  double widthOf(double width) const { return std::max(width * millimetres_, view_.hairline); }
  std::string colourOf(int layer) const { return hexText(colourOfLayer(layer, theme_)); }
  std::string noteColourText() const { return hexText(noteColour(theme_)); }

  void putHead() {
    constexpr double kPixels = 1000.0;  // of the longer side
    const double pixels = kPixels / std::max(view_.width(), view_.height());
    text_.text("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"");
    text_.number(std::round(view_.width() * pixels)).text("\" height=\"");
    text_.number(std::round(view_.height() * pixels)).text("\" viewBox=\"");
    putRectangle(view_.frame, " ", " ", " ");
    text_.text("\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n");
    text_.text("<title>").text(xmlText(figure_.sheet().name)).text("</title>\n<desc>");
    text_.text(sizeText()).text("</desc>\n<rect x=\"");
    putRectangle(view_.frame, "\" y=\"", "\" width=\"", "\" height=\"");
    text_.text("\" fill=\"").text(hexText(backgroundColour(theme_))).text("\"/>\n");
  }

  /// x, y, width and height, with these texts between.
  void putRectangle(const Box& box, std::string_view one, std::string_view two,
                    std::string_view three) {
    text_.number(box.low.x).text(one).number(-box.high.y).text(two);
    text_.number(box.high.x - box.low.x).text(three).number(box.high.y - box.low.y);
  }

  std::string sizeText() const {
    if (size_.empty()) return "0 x 0 mm";
    const double width = size_.high.x - size_.low.x;
    const double height = size_.high.y - size_.low.y;
    return fixedText(width, 1) + " x " + fixedText(height, 1) + " mm (" +
           fixedText(width / kMillimetresOfInch, 3) + " x " +
           fixedText(height / kMillimetresOfInch, 3) + " in)";
  }

  /// The edge of EAGLE's drawing area, where something is near it or beyond.
  void putLimits() {
    if (limit_ <= 0.0) return;
    const double limit = limit_;
    const Box& frame = view_.frame;
    const bool inside = frame.low.x > -limit && frame.low.y > -limit && frame.high.x < limit &&
                        frame.high.y < limit;
    if (inside) return;
    text_.text("<rect id=\"limits\" x=\"");
    putRectangle({{-limit, -limit}, {limit, limit}}, "\" y=\"", "\" width=\"", "\" height=\"");
    text_.text("\" fill=\"none\" stroke=\"").text(noteColourText()).text("\" stroke-dasharray=\"");
    text_.number(view_.hairline * 8).text("\" stroke-width=\"").number(view_.hairline);
    text_.text("\"/>\n");
  }

  void putOrigin() {
    const Box& frame = view_.frame;
    if (frame.low.x > 0.0 || frame.low.y > 0.0 || frame.high.x < 0.0 || frame.high.y < 0.0) return;
    const double arm = view_.noteHeight;
    text_.text("<path id=\"origin\" fill=\"none\" stroke=\"").text(noteColourText());
    text_.text("\" stroke-width=\"").number(view_.hairline).text("\" d=\"M").point({-arm, 0.0});
    text_.text("L").point({arm, 0.0}).text("M").point({0.0, -arm}).text("L").point({0.0, arm});
    text_.text("\"/>\n");
  }

  void putSheet(const RecordedSheet& sheet, std::string_view idOfLayer) {
    for (const auto& [number, layer] : sheet.layers) {
      const std::string colour = colourOf(number);
      text_.text("<g");
      if (!idOfLayer.empty()) {
        text_.text(" id=\"").text(idOfLayer).text(std::to_string(number)).text("\"");
      }
      text_.text(" fill=\"none\" stroke=\"").text(colour).text("\">\n");
      putAreas(layer, colour);
      putWires(layer);
      putCircles(layer, colour);
      for (const eagle::RecordedText& text : layer.texts) putText(text);
      text_.text("</g>\n");
    }
  }

  void openPath(double width) { text_.text("<path stroke-width=\"").number(width).text("\" d=\""); }
  void closePath() { text_.text("\"/>\n"); }

  /// A line or an arc to a point. The pen is where it starts.
  void putEdge(Point from, Point to, double curve) {
    const double radius = curve == 0.0 ? 0.0 : geometry::radius({from, to, curve});
    if (!geometry::usable(radius) || radius <= 0.0) {
      text_.text("L").point(to);
      return;
    }
    text_.text("A").number(radius).text(" ").number(radius).text(" 0 ");
    text_.text(std::fabs(curve) > 180.0 ? "1 " : "0 ").text(curve > 0.0 ? "0 " : "1 ").point(to);
  }

  /// Wires of one width that follow each other are one path.
  void putWires(const RecordedLayer& layer) {
    bool open = false;
    float width = 0.0F;
    Point at;
    for (const eagle::RecordedWire& wire : layer.wires) {
      if (!isInSight(wire.from) || !isInSight(wire.to)) continue;
      if (open && wire.width != width) {
        closePath();
        open = false;
      }
      if (!open) openPath(widthOf(width = wire.width));
      if (!open || !(at == wire.from)) text_.text("M").point(inMillimetres(wire.from));
      open = true;
      putEdge(inMillimetres(wire.from), inMillimetres(wire.to), wire.curve);
      at = wire.to;
    }
    if (open) closePath();
  }

  static bool isAreaInSight(const RecordedLayer& layer, const eagle::RecordedArea& area) {
    for (std::size_t i = 0; i < area.count; ++i) {
      if (!isInSight(layer.corners[area.first + i].at)) return false;
    }
    return true;
  }

  void putAreas(const RecordedLayer& layer, const std::string& colour) {
    for (const eagle::RecordedArea& area : layer.areas) {
      if (area.count == 0 || !isAreaInSight(layer, area)) continue;
      text_.text("<path fill=\"").text(colour).text("\" stroke-width=\"");
      // The area of a polygon without width is the polygon itself.
      text_.number(area.width * millimetres_).text("\" d=\"M");
      const auto corner = [&](std::size_t i) -> const eagle::RecordedCorner& {
        return layer.corners[area.first + i % area.count];
      };
      text_.point(inMillimetres(corner(0).at));
      for (std::size_t i = 0; i < area.count; ++i) {
        putEdge(inMillimetres(corner(i).at), inMillimetres(corner(i + 1).at), corner(i).curve);
      }
      text_.text("Z");
      closePath();
    }
  }

  void putCircles(const RecordedLayer& layer, const std::string& colour) {
    for (const eagle::RecordedCircle& circle : layer.circles) {
      if (!isInSight(circle.centre) || !isInSight(circle.radius)) continue;
      const Point centre = inMillimetres(circle.centre);
      text_.text("<circle cx=\"").number(centre.x).text("\" cy=\"").number(-centre.y);
      text_.text("\" r=\"").number(circle.radius * millimetres_).text("\" ");
      if (circle.filled) {
        text_.text("stroke=\"none\" fill=\"").text(colour).text("\"/>\n");
      } else {
        text_.text("stroke-width=\"").number(widthOf(circle.width)).text("\"/>\n");
      }
    }
  }

  void putText(const eagle::RecordedText& text) {
    if (!isInSight(text.at) || !isInSight(text.size)) return;
    const std::string letters = base::toUtf8(text.content, figure_.encoding());
    text_.text("<g aria-label=\"").text(xmlText(letters)).text("\">");
    putStrokes(letteringOf(text, letters), millimetres_, widthOf(text.size * kPenWidth));
    text_.text("</g>\n");
  }

  void putStrokes(const Strokes& strokes, double factor, double width) {
    openPath(width);
    std::size_t i = 0;
    for (const std::size_t end : strokes.ends) {
      text_.text("M").point(strokes.points[i] * factor);
      if (i + 1 == end) text_.text("h0");
      for (++i; i < end; ++i) text_.text("L").point(strokes.points[i] * factor);
    }
    text_.text("\"/>");
  }

  /// Each part once, and then where it is placed.
  void putParts() {
    std::map<std::string_view, std::size_t> ids;
    for (const eagle::RecordedPart& part : figure_.sheet().parts) {
      const RecordedSheet* const content = figure_.partNamed(part.name);
      if (content == nullptr || !isInSight(part.at)) continue;
      const auto [id, isNew] = ids.try_emplace(part.name, ids.size() + 1);
      if (isNew) {
        text_.text("<defs><g id=\"part-").text(std::to_string(id->second)).text("\">\n");
        putSheet(*content, "");
        putHoles(*content);
        text_.text("</g></defs>\n");
      }
      putPlaced(part, id->second);
    }
  }

  void putPlaced(const eagle::RecordedPart& part, std::size_t id) {
    text_.text("<use href=\"#part-").text(std::to_string(id)).text("\" transform=\"translate(");
    text_.point(inMillimetres(part.at)).text(")");
    // Angles in SVG are clockwise.
    if (part.degrees != 0.0) text_.text(" rotate(").text(shortText(-part.degrees, 1)).text(")");
    text_.text("\"/>\n");
  }

  /// EAGLE draws the edge of a hole in the layer of outlines.
  void putHoles(const RecordedSheet& sheet) {
    constexpr int kDimensionLayer = 20;
    for (const eagle::RecordedHole& hole : sheet.holes) {
      if (!isInSight(hole.centre) || !isInSight(hole.drill)) continue;
      const Point centre = inMillimetres(hole.centre);
      text_.text("<circle fill=\"none\" stroke=\"").text(colourOf(kDimensionLayer));
      text_.text("\" stroke-width=\"").number(view_.hairline).text("\" cx=\"").number(centre.x);
      text_.text("\" cy=\"").number(-centre.y).text("\" r=\"");
      text_.number(hole.drill * millimetres_ / 2.0).text("\"/>\n");
    }
  }

  /// A scale bar on the left and the size on the right, below the drawing.
  void putNotes() {
    const double length = scaleBarLength(view_.width());
    const double margin = view_.drawing.low.y - view_.frame.low.y - view_.noteHeight;
    const Point start{view_.frame.low.x + margin / 2.0, view_.frame.low.y + margin / 2.0};
    const double tick = view_.noteHeight / 2.0;
    text_.text("<g id=\"scale\" fill=\"none\" stroke=\"").text(noteColourText()).text("\">");
    openPath(view_.hairline);
    text_.text("M").point({start.x, start.y + tick}).text("L").point(start).text("L");
    text_.point({start.x + length, start.y}).text("L").point({start.x + length, start.y + tick});
    closePath();
    const std::string label = shortText(length, 3) + " mm";
    putNote({start.x + length + view_.noteHeight, start.y}, label);
    const std::string size = sizeText();
    const double room = preview::widthOf(size) * view_.noteHeight;
    putNote({view_.frame.high.x - margin / 2.0 - room, start.y}, size);
    text_.text("</g>\n");
  }

  void putNote(Point at, const std::string& words) {
    eagle::RecordedText note;
    note.at = at;
    note.size = view_.noteHeight;
    putStrokes(letteringOf(note, words), 1.0, view_.hairline);
  }

  Figure figure_;
  Theme theme_;
  double millimetres_;  ///< in a unit of the script
  double limit_;        ///< of EAGLE's drawing area, in millimetres
  Box size_;            ///< of the drawing, in millimetres
  View view_;
  SvgText text_;
};

}  // namespace

void writeSvg(const eagle::Recording& recording, Theme theme, base::ByteSink& sink) {
  Svg(recording, theme, sink).write();
}

}  // namespace quillon::preview
