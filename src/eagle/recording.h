#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <string>
#include <vector>

#include "base/encoding.h"
#include "base/units.h"
#include "geometry/point.h"

namespace quillon::eagle {

/// A wire or arc: ends, degrees of arc between them (0: straight), and width.
struct RecordedWire {
  geometry::Point from;
  geometry::Point to;
  float curve = 0.0F;
  float width = 0.0F;
};

struct RecordedCircle {
  geometry::Point centre;
  double radius = 0.0;
  float width = 0.0F;
  bool filled = false;
};

/// A filled area: `count` of the layer's corners starting at `first`. A curve belongs to the edge
/// that starts at its corner.
struct RecordedArea {
  std::size_t first = 0;
  std::size_t count = 0;
  float width = 0.0F;
};
struct RecordedCorner {
  geometry::Point at;
  float curve = 0.0F;
};

struct RecordedText {
  geometry::Point at;
  double size = 0.0;
  double degrees = 0.0;
  bool mirrored = false;
  bool spin = false;    ///< may stand upside down
  std::string align;    ///< as in "Change Align"; "": bottom left
  std::string content;  ///< in the encoding of the script
};

/// What was drawn on one layer, in order for each kind.
struct RecordedLayer {
  std::vector<RecordedWire> wires;
  std::vector<RecordedCircle> circles;
  std::vector<RecordedArea> areas;
  std::vector<RecordedCorner> corners;  ///< of all areas
  std::vector<RecordedText> texts;
};

struct RecordedPart {
  std::string name;
  geometry::Point at;
  double degrees = 0.0;
  bool spin = false;  ///< its texts may stand upside down
};

struct RecordedHole {
  geometry::Point centre;
  double drill = 0.0;
};

/// A drawing or library part that a script draws into.
struct RecordedSheet {
  std::string name;                     ///< without its extension; "" for whatever is open
  std::map<int, RecordedLayer> layers;  ///< by number; only layers with something on them
  std::vector<RecordedPart> parts;
  std::vector<RecordedHole> holes;
};

/// What a script draws, offsets included, in the script's unit. The first sheet is the one open
/// when the script starts.
struct Recording {
  std::deque<RecordedSheet> sheets;
  base::Encoding encoding = base::Encoding::Utf8;  ///< of its texts
  base::Unit unit = base::Unit::Mm;                ///< of its lengths
  double limit = 0.0;                              ///< EAGLE's largest coordinate, in this unit
};

}  // namespace quillon::eagle
