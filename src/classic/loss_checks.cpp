#include "classic/loss_checks.h"

#include <cmath>
#include <string_view>

#include "base/number_text.h"
#include "dxf/entity_marks.h"

namespace quillon::classic {
namespace {

using dxf::EntityKind;

constexpr double kSameNumber = 1e-9;

bool isUneven(const Placement& placement) { return placement.scaleX != placement.scaleY; }

Point placed(const PlacedEntity& what, double x, double y) {
  return geometry::placePoint(x, y, what.mirror, what.placement);
}

/// What happens to circles and arcs alike.
void checkRound(LossNotes& notes, const PlacedEntity& what, const dxf::Position& centre) {
  const bool uneven = isUneven(what.placement);
  const bool oblique = what.isOblique;
  if (!uneven && !oblique) return;
  const Point at = placed(what, centre.x, centre.y);
  if (oblique) notes.note(LossRule::ExtrusionIgnored, at);
  if (uneven) notes.note(LossRule::CurveAsLines, at);
}

}  // namespace

bool isExtrusion(std::string_view text) {
  const bool isZero = text.find_first_not_of("0. ") == std::string_view::npos;
  return !isZero && std::fabs(base::numberValue(text)) > kSameNumber;
}

void checkArc(LossNotes& notes, const PlacedEntity& what, const dxf::ArcValues& arc,
              const Settings& settings) {
  checkRound(notes, what, arc.centre);
  const auto note = [&](LossRule rule) {
    notes.note(rule, placed(what, arc.centre.x, arc.centre.y));
  };
  const bool isFull = arc.startAngle == arc.endAngle;
  if (settings.angDir == 1.0 && !isFull) note(LossRule::ArcClockwise);
  // Half a turn, written as two scales, is taken for a mirroring.
  if (!isUneven(what.placement) && what.placement.scaleX < 0.0 && !isFull) {
    note(LossRule::BulgeInBlock);
  }
}

void checkCircle(LossNotes& notes, const PlacedEntity& what, const dxf::CircleValues& circle) {
  checkRound(notes, what, circle.centre);
}

void checkEllipse(LossNotes& notes, const dxf::EllipseValues& ellipse, bool asWires, Point centre) {
  if (asWires) return notes.note(LossRule::CurveAsLines, centre);
  const double sweep = ellipse.endParameter - ellipse.startParameter;
  const double turns = sweep / kTwoPi;
  if (std::fabs(std::fabs(ellipse.ratio) - 1.0) > kSameNumber) {
    notes.note(LossRule::EllipseAsCircle, centre);
  }
  if (std::fabs(turns - std::nearbyint(turns)) > kSameNumber) {
    notes.note(LossRule::EllipseClosed, centre);
  }
}

void checkShortSpline(LossNotes& notes, dxf::GroupReplay groups) {
  int fitPoints = 0;
  for (dxf::Group group; fitPoints < 2 && groups.next(group);) {
    if (group.code == 11) ++fitPoints;
  }
  if (fitPoints == 2) notes.note(LossRule::SplineNotDrawn);
}

void checkArea(LossNotes& notes, const PlacedEntity& what, const std::array<Point, 4>& corners,
               bool isFilled) {
  const auto& [c1, c2, c3, c4] = corners;
  const bool isFace = what.entity.kind == EntityKind::Face3d;
  if (isFace) {
    checkWorld(notes, what.mirror, c1);
  } else if (what.isOblique) {
    notes.note(LossRule::ExtrusionIgnored, c1);
  }
  const bool isWritten = c2 != c1 && c3 != c2 && c4 != c3;
  if (!isWritten) {
    const double area = (c2.x - c1.x) * (c3.y - c1.y) - (c3.x - c1.x) * (c2.y - c1.y);
    if (c4 == c3 && area != 0.0) notes.note(LossRule::TriangleNotDrawn, c1);
    return;
  }
  if (isFace || !isFilled) notes.note(LossRule::Filled, c1);
  // With corners that meet crosswise, both orders give the same triangle.
  if (!isFace && c4 != c2 && c3 != c1) notes.note(LossRule::AreaCorners, c1);
}

void checkInsert(LossNotes& notes, const PlacedEntity& what, const dxf::InsertValues& insert,
                 Point at) {
  if ((what.entity.marks & dxf::mark::kArray) != 0) notes.note(LossRule::ArrayDrawnOnce, at);
  if (what.mirror.x < 0.0 || what.isOblique) notes.note(LossRule::ExtrusionIgnored, at);
  constexpr double kHalfTurn = 180.0;
  const bool isTurned = std::fabs(std::remainder(insert.angle, kHalfTurn)) > kSameNumber;
  if (isUneven(what.placement) && isTurned) notes.note(LossRule::BlockNotStretched, at);
}

void checkBlock(LossNotes& notes, Point base, const Placement& placement, bool asPart, Point at) {
  const bool isScaled = placement.scaleX != 1.0 || placement.scaleY != 1.0;
  if (base == Point{} || !(placement.rotation != 0.0 || (asPart && isScaled))) return;
  notes.note(LossRule::BasePointNotTurned, at);
}

void PolylineLosses::begin(const PlacedEntity& what, bool asPolygon, bool withoutWidth) {
  watched_ = 0;
  watchesWidths_ = notes_.isOn() && !withoutWidth;
  first_ = {what.placement.dx, what.placement.dy};
  if (!notes_.isOn()) return;
  asPolygon_ = asPolygon;
  const auto& [dx, dy, scaleX, scaleY, rotation] = what.placement;
  const double sense = scaleX * scaleY * what.mirror.x * what.mirror.y;
  const bool isDistorted = std::fabs(scaleX) != std::fabs(scaleY) || sense < 0.0;
  watched_ = kFirst;
  afterFirst_ = (asPolygon ? kSecond : 0U) | (asPolygon || isDistorted ? kArcs : 0U);
}

void PolylineLosses::checkKind(const PlacedEntity& what) {
  if (what.entity.kind != EntityKind::Leader) {
    if (what.isOblique) notes_.note(LossRule::ExtrusionIgnored, first_);
    return;
  }
  checkWorld(notes_, what.mirror, first_);
  const bool hasArrow = (what.entity.marks & dxf::mark::kArrowless) == 0;
  if (hasArrow || (what.entity.marks & dxf::mark::kCurved) != 0) {
    notes_.note(LossRule::LeaderAsLine, first_);
  }
}

void PolylineLosses::checkKind(const PlacedEntity& what, const dxf::PolylineValues& polyline) {
  constexpr unsigned kSplineFit = 4;
  constexpr unsigned kMeshes = 16 | 64;
  constexpr double kMost = 255.0;
  const double number = base::numberValue(polyline.flags);
  const unsigned flags = number >= 0.0 && number <= kMost ? static_cast<unsigned>(number) : 0;
  const Point at{what.placement.dx, what.placement.dy};
  if ((flags & kMeshes) != 0) {
    watched_ = 0;
    watchesWidths_ = false;
    return notes_.note(LossRule::MeshAsPolyline, at);
  }
  if ((flags & kSplineFit) != 0) notes_.note(LossRule::SplineFrame, at);
  if (what.mirror.x < 0.0 || what.isOblique) notes_.note(LossRule::ExtrusionIgnored, at);
}

void PolylineLosses::take(Point at, double bulge, bool isTapered) {
  if ((watched_ & kTapered) != 0) {
    watched_ &= ~kTapered;
    watchesWidths_ = false;
    notes_.note(LossRule::WidthTapered, at);
  }
  if ((watched_ & kSecond) != 0) {
    watched_ &= ~kSecond;
    notes_.note(LossRule::Filled, first_);
  }
  if ((watched_ & kArcs) != 0 && std::fabs(bulge) >= kSmallestBulge) {
    watched_ &= ~kArcs;
    notes_.note(asPolygon_ ? LossRule::AreaArcs : LossRule::BulgeInBlock, at);
  }
  if (isTapered && watchesWidths_) watched_ |= kTapered;
}

}  // namespace quillon::classic
