#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "geometry/path.h"

namespace quillon::exact {

using geometry::Path;
using geometry::Point;

// What entities are drawn as, in units of the script. Shapes know neither DXF nor EAGLE.

/// Where a shape comes from, and where it goes.
struct Origin {
  int layer = 0;              ///< of EAGLE
  std::string_view kind;      ///< DXF name of the entity; lives as long as the translation
  std::string_view dxfLayer;  ///< upper-cased; likewise
  std::uint64_t line = 0;     ///< in the drawing
};

/// How lines look that are not solid.
enum class Style : std::uint8_t { Continuous, LongDash, ShortDash, DashDot };

/// How lines and arcs are drawn, and what cleaning may do to them.
struct ChainLook {
  double width = 0.0;
  Style style = Style::Continuous;
  /// A line, arc, circle, open polyline or the like, whose ends may have been meant to meet others
  /// and which may have been drawn twice; not hatches, glyphs and dimensions.
  bool cleanable = true;
  bool isArc = false;     ///< an ARC or the like, whose ends give way to those of lines
  bool isCircle = false;  ///< a whole circle of two halves

  bool operator==(const ChainLook&) const = default;

  /// Of what has more than this.
  ChainLook& look() { return *this; }
  const ChainLook& look() const { return *this; }
};

/// Lines and arcs that follow each other, drawn with a pen.
struct Chain : ChainLook {
  Path path;
};

/// A chain of one line or arc, which most chains of most drawings are. It is no circle.
struct Segment : ChainLook {
  Point from;
  Point to;
  double curve = 0.0;
};

/// A filled area: a closed outline that does not cross itself.
struct Area {
  Path outline;
};

enum class Columns : std::uint8_t { Left, Centre, Right };
enum class Rows : std::uint8_t { Bottom, Centre, Top };

/// One line of text.
struct TextLine {
  std::string content;  ///< in the encoding of the script; nothing is quoted or escaped
  Point at;
  double height = 0.0;
  double angle = 0.0;  ///< degrees, a multiple of 0.1 in 0..359.9
  bool mirrored = false;
  bool spin = false;  ///< may stand upside down
  Columns columns = Columns::Left;
  Rows rows = Rows::Bottom;
};

/// A filled disc.
struct Dot {
  Point centre;
  double diameter = 0.0;
};

struct Hole {
  Point centre;
  double drill = 0.0;
};

/// A line that ends nowhere, or at its start alone.
struct EndlessLine {
  Point start;
  Point direction;
  bool bothWays = false;
  double width = 0.0;
  Style style = Style::Continuous;
  std::vector<double> dashes{};  ///< as those of a pen
  bool hasSolidInstead = false;  ///< likewise
};

/// Takes shapes in the order of the drawing.
class ShapeSink {
 public:
  virtual ~ShapeSink() = default;
  virtual void take(const Origin& origin, Chain&& chain) = 0;
  /// A sink that has no quicker way for segments gets a chain.
  virtual void takeSegment(const Origin& origin, const Segment& segment) {
    Chain chain;
    chain.look() = segment.look();
    chain.path = {{{segment.from, segment.curve}, {segment.to}}, false};
    take(origin, std::move(chain));
  }
  virtual void take(const Origin& origin, Area&& area) = 0;
  virtual void take(const Origin& origin, TextLine&& text) = 0;
  virtual void take(const Origin& origin, const Dot& dot) = 0;
  virtual void take(const Origin& origin, const Hole& hole) = 0;
  virtual void take(const Origin& origin, const EndlessLine& line) = 0;
};

}  // namespace quillon::exact
