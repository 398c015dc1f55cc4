#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "base/units.h"

namespace quillon::exact {

/// The EAGLE that the script is for.
enum class Version : std::uint8_t {
  Eagle4,  ///< 4.1 to 5.x
  Eagle6,  ///< 6.0 and later, Fusion
};

enum class Target : std::uint8_t { Board, Schematic, Package, Symbol };

enum class Space : std::uint8_t { Model, Paper, Both };
enum class HatchStyle : std::uint8_t { Lines, Border, Solid, None };
enum class LineTypes : std::uint8_t { Solid, Style, Dashes };
enum class WideLines : std::uint8_t { Auto, Wires, Areas };
enum class Place : std::uint8_t { Keep, LowerLeft, Centre };
enum class PointStyle : std::uint8_t { Glyph, Dot, None, Hole };

/// What the user chooses for the exact rules. The defaults need no thought.
struct Options {
  Version version = Version::Eagle6;
  Target target = Target::Board;
  base::Unit unit = base::Unit::Mm;  ///< of the script
  /// Target units for one unit of the drawing, the job's scale included.
  double factor = 1.0;

  // Lengths in units of the script.
  double lineWidth = 0.0;   ///< of lines without a width
  double fillWidth = 0.0;   ///< of the edges of areas
  double pointDrill = 0.0;  ///< of PointStyle::Hole

  // Lengths in millimetres.
  double curveTolerance = 0.001;  ///< between a curve and its arcs; 0.0001 to 1
  double joinTolerance = 0.01;    ///< ends closer than this are one point; 0 to 1, 0: none

  /// How many of the open ends with the nearest next ones are told; others are only counted.
  std::size_t mostGaps = std::numeric_limits<std::size_t>::max();

  bool chains = true;          ///< what follows each other becomes one wire command
  bool dropDuplicates = true;  ///< what is drawn twice is drawn once
  Place place = Place::Keep;   ///< where the drawing goes before the job's offsets are added

  Space space = Space::Model;
  bool hiddenLayers = false;
  HatchStyle hatch = HatchStyle::Lines;
  LineTypes lineTypes = LineTypes::Solid;
  bool lineWeights = false;
  WideLines wideLines = WideLines::Auto;
  bool widthless = false;  ///< polylines lose their widths
  bool closedAsAreas = false;
  bool fillAlways = false;  ///< areas even where $FILLMODE is 0
  PointStyle points = PointStyle::Glyph;
  bool plainLetters = false;
  bool parts = false;  ///< inserted blocks become library parts where EAGLE can place them so
  /// DXF layers whose circles are holes: in a job as UTF-8, for a drawing upper-cased and in its
  /// encoding.
  std::vector<std::string> holeLayers;
  double holeLeast = 0.2;  ///< diameters in millimetres
  double holeMost = 6.5;

  bool operator==(const Options&) const = default;

  /// Shapes have to be held until all of them are known, or until library parts are written.
  bool holdsShapes() const {
    return chains || dropDuplicates || joinTolerance > 0.0 || place != Place::Keep ||
           !holeLayers.empty() || parts;
  }
  /// Texts may have any angle.
  bool turnsFreely() const { return target == Target::Board || target == Target::Package; }
};

/// Lengths in units of the script that follow from the options.
struct Measures {
  explicit Measures(const Options& options);

  double millimetre;  ///< units of the script in a millimetre
  double resolution;  ///< points closer than this are the same point for EAGLE
  double tolerance;   ///< of curves, unless that is less than 1e-5 of the curve's size
  double join;
  double widestWire;
  double tallestText;
  double leastHatchSpacing;
  double dot;  ///< least diameter of the dot in a dotted line
};

}  // namespace quillon::exact
