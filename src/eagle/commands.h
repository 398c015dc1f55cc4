#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "geometry/point.h"

namespace quillon::eagle {

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

struct Orientation {
  int degrees = 0;
};

/// A text at a point. `content` is plain: nothing is quoted or escaped yet.
struct Text {
  Orientation orientation{};
  std::string_view content{};  ///< in the encoding of the script
  Point at{};
};

/// A library part placed in the drawing.
struct Part {
  std::string_view name{};
  std::string_view library{};
  Point at{};
};

struct Hole {
  double drill = 0.0;
  Point centre{};
};

/// What Change sets for all subsequent commands.
enum class Property : std::uint8_t { Size, Pour };

/// Commands for EAGLE, one call each. Anything that needs to know what a script draws implements
/// this interface.
///
/// Coordinates are those of the drawing in the script's unit; implementations add the conversion's
/// offsets. Texts are valid only during the call. Implementations may throw RunTimeError for a
/// number that is not finite, and whatever their output throws.
class Commands {
 public:
  virtual ~Commands() = default;

  /// Everything that follows goes on this layer.
  virtual void layer(int number) = 0;
  virtual void wire(const Wire& wire) = 0;
  virtual void arc(const Arc& arc) = 0;
  virtual void circle(const Circle& circle) = 0;
  virtual void area(const Area& area) = 0;

  /// A polygon of any length: opened with two corners, then one corner at a time, and no other
  /// command until it is closed. A corner equal to the previous one is skipped.
  virtual void openPolygon(const PolygonStart& start) = 0;
  virtual void addToPolygon(Point corner) = 0;
  virtual void closePolygon() = 0;

  virtual void text(const Text& text) = 0;
  virtual void part(const Part& part) = 0;
  virtual void hole(const Hole& hole) = 0;

  virtual void change(Property property, double value) = 0;
  virtual void change(Property property, std::string_view word) = 0;

  /// Subsequent commands are for another drawing or library part: `name` and its extension.
  virtual void edit(std::string_view name, std::string_view extension) = 0;
  /// A comment, which EAGLE ignores; without line ends.
  virtual void comment(std::string_view text) = 0;
  /// Any other complete command, written as it is, such as a line of the user's frame.
  virtual void command(std::string_view line) = 0;
};

}  // namespace quillon::eagle
