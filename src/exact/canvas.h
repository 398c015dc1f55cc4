#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "dxf/drawing.h"
#include "exact/entity.h"
#include "exact/options.h"
#include "exact/shapes.h"
#include "exact/text_style.h"
#include "geometry/curve.h"
#include "geometry/ellipse.h"
#include "geometry/fit_spline.h"
#include "geometry/loops.h"
#include "geometry/spline.h"
#include "rules/cancel_poll.h"
#include "rules/losses.h"

namespace quillon::exact {

using rules::LossList;
using rules::LossRule;

/// The text that a block shows in the place of one of its attribute definitions.
struct AttributeText {
  std::uint64_t definition = 0;  ///< its handle
  std::string_view text;         ///< a view into the drawing
};

/// Draws blocks. They are drawn after the function that asks for it has returned.
class BlockDrawer {
 public:
  virtual ~BlockDrawer() = default;
  /// Draws the content of a block, whose base point goes to the origin of `map`'s coordinates, as
  /// part of an item: its layer "0" is the item's layer. False for an unknown block.
  bool drawBlock(const Item& item, std::string_view upperName, const Affine& map) {
    return drawBlock(item, upperName, std::vector<Affine>{map});
  }
  /// The same with texts for its attribute definitions. Those that it does not show are named.
  virtual bool drawBlock(const Item& item, std::string_view upperName, const Affine& map,
                         std::vector<AttributeText> attributes) = 0;
  /// The same for several places, the last of which is drawn first.
  virtual bool drawBlock(const Item& item, std::string_view upperName,
                         std::vector<Affine> maps) = 0;
};

/// What the rules for each kind draw with: takes lines, curves and areas in an entity's own
/// coordinates, maps them, and makes shapes of what has a size. Everything left out or simplified
/// on the way is added to the losses.
class Canvas {
 public:
  Canvas(const Options& options, const dxf::Drawing& drawing, ShapeSink& sink, LossList& losses,
         rules::CancelPoll& poll)
      : options_(options),
        measures_(options),
        drawing_(drawing),
        textStyles_(drawing),
        sink_(&sink),
        losses_(losses),
        poll_(poll) {}

  const Options& options() const { return options_; }
  const Measures& measures() const { return measures_; }
  const dxf::Drawing& drawing() const { return drawing_; }
  const TextStyle& textStyle(std::string_view name) { return textStyles_.find(name); }
  /// False where $FILLMODE is 0: areas become their outlines.
  bool fills() const { return options_.fillAlways || drawing_.fillMode != 0.0; }

  /// From now on shapes go there. Where they went before.
  ShapeSink& drawInto(ShapeSink& sink) { return *std::exchange(sink_, &sink); }

  /// What is drawn from now on is of the next item.
  void beginItem() { saidPattern_ = false; }

  EntityGroups groupsOf(const Item& item) const { return item.entity.groupsBy(drawing_.lineEnds); }
  /// Counts a step of work; true when the work is to end.
  bool step() { return poll_(); }

  /// Tolerances for a curve in units of the script whose bounding box has this diagonal.
  geometry::CurveSettings curveSettings(double diagonal) const;

  // Curves under a map, with the item's pen or a width of their own. A path that closes ends on its
  // first point. Dashes are drawn where the options say so.

  struct Stroke {
    std::optional<double> width{};  ///< in units of the script; else that of the pen
    bool cleanable = true;
    bool isArc = false;
    bool dashesAlongWhole = false;  ///< else each segment has a pattern of its own
    bool solid = false;             ///< never dashed
  };
  void stroke(const Item& item, const Path& path, const Affine& map, const Stroke& how);
  void stroke(const Item& item, const Path& path, const Affine& map) {
    stroke(item, path, map, Stroke{});
  }
  void stroke(const Item& item, const geometry::Ellipse& ellipse, const Affine& map);
  /// The control points are in units of the script already.
  void stroke(const Item& item, const geometry::Spline& spline);
  void stroke(const Item& item, const geometry::FitSpline& spline, const Affine& map);
  /// The ends are in units of the script already.
  void segment(const Item& item, Point start, Point end);

  // The same curves as paths in units of the script, for the edges of areas.

  Path mapped(const Item& item, const Path& path, const Affine& map);
  Path mapped(const Item& item, const geometry::Ellipse& ellipse, const Affine& map);
  Path mapped(const Item& item, const geometry::Spline& spline);
  Path mapped(const Item& item, const geometry::FitSpline& spline, const Affine& map);

  // Shapes in units of the script.

  /// A filled area by its outline, which may cross itself: then it is cut into areas that do not.
  void area(const Item& item, Path outline);
  /// The area inside of closed loops by the even-odd rule, wherever they cross each other.
  void evenOddArea(const Item& item, std::span<const Path> loops);
  /// An area with holes, whose loops do not cross.
  void region(const Item& item, const geometry::Region& region);
  void text(const Item& item, TextLine line);
  void dot(const Item& item, Point centre, double diameter);
  void hole(const Item& item, Point centre, double drill);
  void endless(const Item& item, Point start, Point direction, bool bothWays);

  /// Whether a path in units of the script is so long that the line type's pattern shows on it.
  static bool showsPattern(const Item& item, const Path& path, bool alongWhole);
  /// Names what is lost of the line type's pattern, once for each item.
  void losePattern(const Item& item);
  /// Notes a loss of an item; `at` in units of the script.
  void lose(const Item& item, LossRule rule, std::optional<Point> at = {}, double measure = 0.0,
            std::uint64_t count = 1);
  /// The same of something that is missing: a block, or a drawing with its path.
  void loseNamed(const Item& item, LossRule rule, std::string_view name);

 private:
  geometry::CurveSettings curveSettingsOf(const geometry::Ellipse& ellipse) const;
  Path pathOf(const Item& item, const geometry::Ellipse& ellipse, bool isCircle);
  /// The path as EAGLE can draw it: no points too close, no arcs too flat or too wide.
  void tidy(Path& path) const;
  void strokeMapped(const Item& item, Path path, const Stroke& how, bool isCircle);
  void strokeDashed(const Item& item, const Path& path, const Stroke& how);
  void take(const Item& item, Path path, const Stroke& how, bool isCircle);
  static ChainLook lookOf(const Item& item, const Stroke& how);
  void takeArea(const Item& item, Path outline);
  /// Makes room for the width of the edge, and says what the width does to the area.
  void fitToFillWidth(const Item& item, Path& outline);
  void note(const Item& item, const geometry::CurveReport& report);

  const Options& options_;
  Measures measures_;
  const dxf::Drawing& drawing_;
  TextStyles textStyles_;
  ShapeSink* sink_;
  LossList& losses_;
  rules::CancelPoll& poll_;
  bool hasFineFill_ = false;  ///< that was said already
  bool saidPattern_ = false;  ///< likewise, of the present item
};

}  // namespace quillon::exact
