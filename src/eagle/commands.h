#pragma once

#include <string_view>

#include "eagle/command_values.h"

namespace quillon::eagle {

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
  /// Names a layer that EAGLE may not have; before it is used.
  virtual void defineLayer(int number, std::string_view name) = 0;
  virtual void wire(const Wire& wire) = 0;
  virtual void arc(const Arc& arc) = 0;
  virtual void circle(const Circle& circle) = 0;
  virtual void area(const Area& area) = 0;

  virtual void polyline(const Polyline& polyline) = 0;

  /// A polygon of any length: opened with two corners, then one corner at a time, and no other
  /// command until it is closed. A corner equal to the previous one is skipped.
  virtual void openPolygon(const PolygonStart& start) = 0;
  virtual void addToPolygon(Point corner) = 0;
  virtual void closePolygon() = 0;

  virtual void text(const Text& text) = 0;
  virtual void label(const Label& label) = 0;
  virtual void part(const Part& part) = 0;
  virtual void hole(const Hole& hole) = 0;

  virtual void change(Property property, double value) = 0;
  virtual void change(Property property, std::string_view word) = 0;

  /// Subsequent commands are for another drawing or library part: `name` and its extension.
  virtual void edit(std::string_view name, std::string_view extension) = 0;
  /// Up to the next edit(), points are those of a library part: the conversion's offsets are not
  /// added, and they do not count for the size of the drawing.
  virtual void beginPart() = 0;
  /// A comment, which EAGLE ignores; without line ends.
  virtual void comment(std::string_view text) = 0;
  /// Any other complete command, written as it is, such as a line of the user's frame.
  virtual void command(std::string_view line) = 0;
};

}  // namespace quillon::eagle
