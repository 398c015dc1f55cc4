#pragma once

#include <array>
#include <string_view>

#include "base/encoding.h"
#include "classic/context.h"
#include "classic/loss_notes.h"
#include "dxf/entity_marks.h"
#include "dxf/entity_values.h"
#include "dxf/group_cursor.h"
#include "dxf/placed_values.h"
#include "dxf/polyline_values.h"
#include "geometry/placement.h"

namespace quillon::classic {

using geometry::Mirror;
using geometry::Placement;

// Each note what the classic rules do to an entity of a kind that the exact rules show in another
// way.

/// An entity and how it is placed.
struct PlacedEntity {
  const dxf::DxfEntity& entity;
  const Mirror& mirror;
  const Placement& placement;
  bool isOblique;  ///< neither seen from above nor from below
};

/// Neither stretched nor mirrored.
inline bool isPlain(const Placement& placement) {
  return placement.scaleX == placement.scaleY && placement.scaleX >= 0.0;
}

/// Whether a text is a number other than 0, or than what rounding leaves of it.
bool isExtrusion(std::string_view text);

/// Kinds in coordinates of the world: they are mirrored though they should not be.
inline void checkWorld(LossNotes& notes, const Mirror& mirror, Point at) {
  if (mirror.x + mirror.y < 2.0) notes.note(LossRule::ExtrusionIgnored, at);
}

void checkArc(LossNotes& notes, const PlacedEntity& placed, const dxf::ArcValues& arc,
              const Settings& settings);
void checkCircle(LossNotes& notes, const PlacedEntity& placed, const dxf::CircleValues& circle);
void checkEllipse(LossNotes& notes, const dxf::EllipseValues& ellipse, bool asWires, Point centre);
/// A SPLINE that has too few control points to be drawn.
void checkShortSpline(LossNotes& notes, dxf::GroupReplay groups);
/// SOLID, TRACE and 3DFACE.
void checkArea(LossNotes& notes, const PlacedEntity& placed, const std::array<Point, 4>& corners,
               bool isFilled);
void checkInsert(LossNotes& notes, const PlacedEntity& placed, const dxf::InsertValues& insert,
                 Point at);
struct TextSurroundings {
  bool isInBlock = false;
  base::Encoding encoding = base::Encoding::Windows1252;
  /// The exact rules turn texts by multiples of 90 degrees only, and mirror none.
  bool quarterTurns = false;
};
/// Texts of every kind; `at` is where the text is written.
void checkText(LossNotes& notes, const PlacedEntity& placed, const dxf::TextValues& text,
               const TextSurroundings& around, Point at);
/// A block that is inserted; `asPart`: as a part of a library.
void checkBlock(LossNotes& notes, Point base, const Placement& placement, bool asPart, Point at);

/// The losses of one polyline, each of which is noted once, however many vertices have it.
class PolylineLosses {
 public:
  explicit PolylineLosses(LossNotes& notes) : notes_(notes) {}

  /// `asPolygon`: it becomes an area.
  void begin(const PlacedEntity& placed, bool asPolygon, bool withoutWidth);
  /// An LWPOLYLINE or LEADER; after its vertices.
  void checkKind(const PlacedEntity& placed);
  /// A POLYLINE; before its vertices.
  void checkKind(const PlacedEntity& placed, const dxf::PolylineValues& polyline);
  /// The next vertex; `isTapered`: the width changes up to the vertex after it. Returns false when
  /// only a tapered one matters from now on.
  bool add(Point at, double bulge, bool isTapered) {
    const bool isFirst = watched_ == kFirst;
    if (isFirst) {
      watched_ = afterFirst_ & ~kSecond;
      first_ = at;
    }
    if (isTapered || (watched_ & kNextVertex) != 0 || (watched_ != 0 && bulge != 0.0)) {
      take(at, bulge, isTapered);
    }
    if (isFirst) watched_ |= afterFirst_ & kSecond;
    return watched_ != 0;
  }

 private:
  // What is looked for.
  static constexpr unsigned kFirst = 1;
  static constexpr unsigned kSecond = 2;  ///< makes an area of the polyline
  static constexpr unsigned kTapered = 4;
  static constexpr unsigned kNextVertex = kSecond | kTapered;
  static constexpr unsigned kArcs = 8;  ///< that are not shown as they should be

  void take(Point at, double bulge, bool isTapered);

  LossNotes& notes_;
  bool asPolygon_ = false;
  bool watchesWidths_ = false;
  unsigned watched_ = 0;
  unsigned afterFirst_ = 0;
  Point first_;
};

}  // namespace quillon::classic
