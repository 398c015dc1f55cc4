#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "geometry/box.h"
#include "geometry/point.h"

namespace quillon::eagle {

// What the commands are about; see Commands.

using geometry::Point;

/// What a wire represents. Scripts spell the width differently for wires in place of arcs.
enum class WireKind : std::uint8_t {
  Line,
  FlatArc,  ///< an arc too flat to draw as one
  FarArc,   ///< an arc that extends beyond the drawing area
};

struct Wire {
  double width = 0.0;  ///< not used for wires in place of arcs
  Point from{};
  Point to{};
  double curve = 0.0;  ///< degrees of arc, counter-clockwise when positive; 0: straight
  WireKind kind = WireKind::Line;
};

enum class Sense : std::uint8_t { Clockwise, CounterClockwise };

/// An arc from its start; `opposite` is the other end of the diameter from the start, `end` only
/// gives the direction in which the arc ends.
struct Arc {
  Sense sense = Sense::CounterClockwise;
  std::optional<double> width{};  ///< absent: a hairline
  Point start{};
  Point opposite{};
  Point end{};
};

enum class CircleKind : std::uint8_t {
  Ring,          ///< with its own width
  RingAsBefore,  ///< with the width that EAGLE used last
  Disc,          ///< filled
};

struct Circle {
  CircleKind kind = CircleKind::Ring;
  double width = 0.0;  ///< of a Ring
  Point centre{};
  Point onCircle{};
};

/// A corner of an area; the edge to the next corner is an arc of `curve` degrees (0: straight).
struct Corner {
  Point at{};
  double curve = 0.0;
};

/// A filled area with all its corners. An outline closes when its first corner is repeated, which
/// is up to the caller.
struct Area {
  double width = 0.0;  ///< of its outline
  std::span<const Corner> corners{};
};

/// The start of a polygon whose corners follow one by one.
struct PolygonStart {
  double width = 0.0;
  std::uint64_t number = 0;  ///< used as its name
  Point first{};
  Point second{};
};

/// Lines and arcs that follow each other as one command, or the outline of a filled area. The last
/// corner ends it; an outline repeats its first corner there.
struct Polyline {
  bool filled = false;
  double width = 0.0;
  std::string_view signal{};  ///< its name on layers of copper; "" for none
  std::span<const Corner> corners{};
};

struct Orientation {
  int degrees = 0;
};

/// A text at a point. `content` is plain: nothing is quoted or escaped yet.
struct Text {
  Orientation orientation{};
  std::string_view content{};  ///< in the encoding of the script
  Point at{};
};

/// A text as EAGLE 4.1 and later can turn it. `content` is plain, as with Text.
struct Label {
  double degrees = 0.0;  ///< written with one decimal at most
  bool mirrored = false;
  bool spin = false;  ///< not turned to be readable
  std::string_view content{};
  Point at{};
};

/// A library part placed in the drawing.
struct Part {
  std::string_view name{};
  std::string_view library{};
  Point at{};
  double degrees = 0.0;  ///< written with one decimal at most
  bool spin = false;     ///< its texts are not turned to be readable
  bool quoted = false;   ///< the names are quoted where EAGLE needs that
  /// Where its content is in the drawing, if that is known: this, and not the point, then counts
  /// for the size of the drawing.
  geometry::Box covers{};
};

struct Hole {
  double drill = 0.0;
  Point centre{};
};

/// What Change sets for all subsequent commands.
enum class Property : std::uint8_t { Size, Pour, Style, Cap, Font, Ratio, Align };

}  // namespace quillon::eagle
