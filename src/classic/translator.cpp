#include "classic/translator.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/run_time_error.h"
#include "classic/areas.h"
#include "classic/curves.h"
#include "classic/lines.h"
#include "classic/quirks.h"
#include "classic/text.h"
#include "dxf/entity_marks.h"
#include "dxf/entity_values.h"
#include "dxf/placed_values.h"
#include "dxf/polyline_values.h"
#include "dxf/polyline_vertices.h"
#include "dxf/spline_points.h"

namespace quillon::classic {

using dxf::DxfEntity;
using dxf::EntityKind;

namespace {

constexpr std::size_t kDeepestNesting = 1000;

/// How many bytes of an entity's texts, and of groups that are read again, count as one step.
constexpr std::size_t kTextBytesPerStep = 64;
constexpr std::size_t kGroupBytesPerStep = 16;

/// Extra steps for an entity that is longer than usual.
std::size_t stepsOfLength(const DxfEntity& entity) {
  if (dxf::hasSideRecord(entity.kind)) {
    return static_cast<std::size_t>(entity.groupsEnd - entity.groups) / kGroupBytesPerStep;
  }
  return entity.textSize() / kTextBytesPerStep;
}

}  // namespace

const std::array<Translator::Handler, dxf::kEntityKindCount> Translator::kHandlers = [] {
  std::array<Handler, dxf::kEntityKindCount> handlers;
  handlers.fill(&Translator::nothing);
  const auto set = [&handlers](EntityKind kind, Handler handler) {
    handlers[static_cast<std::size_t>(kind)] = handler;
  };
  set(EntityKind::Line, &Translator::line);
  set(EntityKind::Line3d, &Translator::line);
  set(EntityKind::Arc, &Translator::arc);
  set(EntityKind::Circle, &Translator::circle);
  set(EntityKind::Polyline, &Translator::polyline);
  set(EntityKind::Vertex, &Translator::vertex);
  set(EntityKind::Spline, &Translator::spline);
  set(EntityKind::LwPolyline, &Translator::lwPolyline);
  set(EntityKind::Leader, &Translator::lwPolyline);
  set(EntityKind::Text, &Translator::text);
  set(EntityKind::Attrib, &Translator::text);
  set(EntityKind::Attdef, &Translator::text);
  set(EntityKind::Mtext, &Translator::text);
  set(EntityKind::Insert, &Translator::insert);
  set(EntityKind::Trace, &Translator::area);
  set(EntityKind::Solid, &Translator::area);
  set(EntityKind::Face3d, &Translator::area);
  set(EntityKind::Ellipse, &Translator::ellipse);
  set(EntityKind::Point, &Translator::point);
  set(EntityKind::Dimension, &Translator::dimension);
  return handlers;
}();

Translator::Translator(const Context& context, dxf::Drawing& drawing, rules::LayerNumbers& layers,
                       const Placement& placement)
    : context_(context),
      drawing_(drawing),
      layers_(layers),
      placement_(placement),
      reader_(drawing),
      dashPatterns_(drawing),
      polyline_(context_),
      expanding_(drawing.blocks.size(), 0) {}

void Translator::takeEntity(DxfEntity& entity) {
  const std::size_t enclosing = expansions_.size();
  handle(entity, placement_);
  if (expansions_.size() != enclosing) writeBlocks(enclosing);
}

void Translator::translateBlock(std::size_t blockIndex, const Placement& placement) {
  const std::size_t enclosing = expansions_.size();
  beginBlock(blockIndex, placement, partLosses_);
  writeBlocks(enclosing);
}

void Translator::handle(DxfEntity& entity, const Placement& placement) {
  reader_.complete(entity);
  // Finish a pending POLYLINE first, while the position is still that of its own entities.
  if (entity.kind != EntityKind::Vertex) polyline_.finish();
  currentPosition_ = entity.groups;
  ++counts_[static_cast<std::size_t>(countedAs(entity.kind))];
  (this->*kHandlers[static_cast<std::size_t>(entity.kind)])(entity, placement);
}

void Translator::beginBlock(std::size_t blockIndex, const Placement& placement,
                            const LossNotes::Block& losses) {
  if (expanding_[blockIndex] != 0) return;
  const dxf::BlockRec& block = drawing_.blocks[blockIndex];
  if (expansions_.size() == kDeepestNesting) {
    throw base::RunTimeError(base::Fault::NestingTooDeep, block.name);
  }
  expansions_.push_back(
      {blockIndex, dxf::EntityCursor(drawing_.store, block.items), placement, currentPosition_,
       losses, dxf::LineCounter(block.text.begin, block.firstLine, drawing_.lineEnds.eolChar)});
  expanding_[blockIndex] = 1;
  if (!drawing_.otherEntities.all().empty()) {
    losses_.noteDrawn(losses, blockIndex, drawing_.blocks.size());
  }
}

void Translator::endBlock() {
  polyline_.finish();
  currentPosition_ = expansions_.back().insertedAt;
  expanding_[expansions_.back().blockIndex] = 0;
  expansions_.pop_back();
}

/// Writes the blocks nested within the `enclosing` outermost ones. Nested blocks wait in a list, so
/// that a drawing cannot exhaust the stack.
void Translator::writeBlocks(std::size_t enclosing) {
  DxfEntity item;
  while (expansions_.size() > enclosing) {
    if (!expansions_.back().items.next(item) || context_.cancelled()) {
      endBlock();
      continue;
    }
    context_.cancelled.addSteps(stepsOfLength(item));
    const Placement placement = expansions_.back().placement;  // a copy, as the list may reallocate
    handle(item, placement);
  }
}

const DashPattern* Translator::dashesOf(const DxfEntity& entity) {
  if (!context_.settings.dotted) return nullptr;
  return dashPatterns_.find(dxf::lineTypeOf(entity));
}

void Translator::line(const DxfEntity& entity, const Placement& placement) {
  const int layer = layerOf(entity);
  if (layer == kNotConverted) return;
  const dxf::LineValues line = dxf::lineOf(entity);
  const Mirror mirror = mirrorOf(entity);
  Point start = placePoint(line.start.x, line.start.y, mirror, placement);
  const Point end = placePoint(line.end.x, line.end.y, mirror, placement);
  checkWorld(losses_, mirror, start);
  writeLine(context_, start.x, start.y, end.x, end.y, layer, dashesOf(entity), 0.0);
}

void Translator::arc(const DxfEntity& entity, const Placement& placement) {
  const Mirror mirror = mirrorOf(entity);
  dxf::ArcValues arc = dxf::arcOf(entity);
  const int layer = layerOf(entity);
  if (isOblique_ || !isPlain(placement) || context_.settings.angDir == 1.0) {
    checkArc(losses_, {entity, mirror, placement, isOblique_}, arc, context_.settings);
  }
  mirrorArc(mirror, arc.startAngle, arc.endAngle);
  writeArcEntity(context_, arc.centre.x * mirror.x, arc.centre.y * mirror.y, arc.radius,
                 arc.startAngle, arc.endAngle, placement, layer, dashesOf(entity));
}

void Translator::circle(const DxfEntity& entity, const Placement& placement) {
  const Mirror mirror = mirrorOf(entity);
  const dxf::CircleValues circle = dxf::circleOf(entity);
  const int layer = layerOf(entity);
  if (isOblique_ || !isPlain(placement)) {
    checkCircle(losses_, {entity, mirror, placement, isOblique_}, circle);
  }
  writeCircle(context_, circle.centre.x * mirror.x, circle.centre.y * mirror.y, circle.radius,
              placement, layer, dashesOf(entity));
}

void Translator::ellipse(const DxfEntity& entity, const Placement& placement) {
  const Mirror mirror = mirrorOf(entity);
  const dxf::EllipseValues ellipse = dxf::ellipseOf(entity);
  const Point centre = placePoint(ellipse.centre.x, ellipse.centre.y, mirror, placement);
  const Point major = turnPoint(ellipse.majorAxis.x, ellipse.majorAxis.y, mirror, placement);
  const int layer = layerOf(entity);
  if (losses_.isOn()) {
    checkWorld(losses_, mirror, centre);
    checkEllipse(losses_, ellipse, context_.settings.ellipses, centre);
  }
  if (!context_.settings.ellipses) {
    // The circle in place of an ellipse has the placed half major axis as its radius.
    writeCircle(context_, centre.x, centre.y, std::sqrt(major.x * major.x + major.y * major.y),
                Placement{}, layer, dashesOf(entity));
    return;
  }
  const EllipseArc shape{centre.x,
                         centre.y,
                         major.x,
                         major.y,
                         ellipse.ratio,
                         ellipse.startParameter,
                         ellipse.endParameter};
  writeEllipse(context_, shape, kEllipseSegments, layer, dashesOf(entity));
}

void Translator::polyline(const DxfEntity& entity, const Placement& placement) {
  const dxf::PolylineValues polyline = dxf::polylineOf(entity);
  PolylineStyle style;
  style.layer = layerOf(entity);
  style.dashes = dashesOf(entity);
  style.closed = base::isOddNumber(polyline.flags);
  style.closesItself = true;
  style.width = polyline.startWidth;
  style.placement = placement;
  polyline_.begin(style, polyline.startWidth != 0.0 || polyline.endWidth != 0.0);
  polylineLosses_.begin({entity, Mirror{}, placement, false}, polyline_.isPolygon(),
                        isWithoutWidth());
  if (!losses_.isOn()) return;
  losses_.keep(LossRule::Filled);
  const Mirror mirror = mirrorOf(entity);
  polylineLosses_.checkKind({entity, mirror, placement, isOblique_}, polyline);
}

void Translator::vertex(const DxfEntity& entity, const Placement& placement) {
  if (!polyline_.running()) return;
  const dxf::VertexValues vertex = dxf::vertexOf(entity);
  // Mirroring does not negate the bulge; kept so that scripts stay the same.
  const Point at = placePoint(vertex.at.x, vertex.at.y, mirrorOf(entity), placement);
  losses_.follow(entity);
  polylineLosses_.add(at, vertex.bulge, (entity.marks & dxf::mark::kTapered) != 0);
  polyline_.add({at, vertex.startWidth, vertex.bulge});
}

void Translator::lwPolyline(const DxfEntity& entity, const Placement& placement) {
  const Mirror mirror = mirrorOf(entity);
  PolylineStyle style;
  style.layer = layerOf(entity);
  if (style.layer == kNotConverted) return;
  style.dashes = dashesOf(entity);
  const dxf::LwPolylineValues polyline = dxf::lwPolylineOf(entity);
  const bool mayClose = entity.kind != EntityKind::Leader;
  style.closed = mayClose && base::isOddNumber(polyline.flags);
  style.width = base::numberValue(polyline.width);
  style.placement = placement;
  polyline_.begin(style, style.width != 0.0);
  polylineLosses_.begin({entity, mirror, placement, isOblique_}, polyline_.isPolygon(),
                        isWithoutWidth());
  bool watches = losses_.isOn();
  dxf::PolyVertexWalk walk(reader_.groups(entity), polyline.width, mayClose);
  for (dxf::PolyVertex vertex; walk.next(vertex) && !context_.cancelled();) {
    const Point at =
        placePoint(base::numberValue(vertex.x), base::numberValue(vertex.y), mirror, placement);
    const double bulge = base::numberValue(vertex.bulge);
    // Mostly, both are the same text: the width of the whole polyline.
    const bool hasEndWidth = vertex.startWidth.data() != vertex.endWidth.data();
    if (watches || hasEndWidth) {
      watches = polylineLosses_.add(at, bulge, hasEndWidth && vertex.startWidth != vertex.endWidth);
    }
    const bool hasOwnWidth = vertex.startWidth.data() != polyline.width.data();
    polyline_.add({at, hasOwnWidth ? base::numberValue(vertex.startWidth) : style.width, bulge});
  }
  polyline_.finish();
  if (losses_.isOn()) polylineLosses_.checkKind({entity, mirror, placement, isOblique_});
}

void Translator::spline(const DxfEntity& entity, const Placement& placement) {
  const int layer = layerOf(entity);
  if (layer == kNotConverted) return;
  const std::vector<dxf::SplinePoint> texts = dxf::readControlPoints(reader_.groups(entity));
  if (texts.size() < 2) {
    if (losses_.isOn()) checkShortSpline(losses_, reader_.groups(entity));
    return;
  }
  std::vector<Point> controlPoints;
  controlPoints.reserve(texts.size());
  for (const dxf::SplinePoint& point : texts) {
    controlPoints.push_back({base::numberValue(point.x), base::numberValue(point.y)});
  }
  const std::size_t upperBound = controlPoints.size() - 1;
  const Mirror mirror = mirrorOf(entity);
  const Point start = placePoint(controlPoints[0].x, controlPoints[0].y, mirror, placement);
  if (upperBound > 1) losses_.note(LossRule::SplineUniform, start);
  checkWorld(losses_, mirror, start);
  const DashPattern* const dashes = dashesOf(entity);
  Point last;
  bool first = true;
  splines_.evaluate(controlPoints, splineOrder(upperBound), splineSamples(upperBound),
                    [&](Point sample) {
                      const Point next = placePoint(sample.x, sample.y, mirror, placement);
                      if (!first)
                        writeLine(context_, last.x, last.y, next.x, next.y, layer, dashes, 0.0);
                      first = false;
                      last = next;
                      return !context_.cancelled();
                    });
}

void Translator::text(const DxfEntity& entity, const Placement& placement) {
  const int layer = layerOf(entity);
  if (layer == kNotConverted) return;
  const dxf::TextValues text = dxf::textOf(entity);
  const Mirror mirror = mirrorOf(entity);
  const Point at = textPosition(text.at.x, text.at.y, mirror, placement);
  if (losses_.isOn()) {
    checkText(losses_, {entity, mirror, placement, isOblique_}, text,
              {!expansions_.empty(), drawing_.encoding, context_.settings.quarterTurns}, at);
  }
  const double height =
      text.height * std::min(std::fabs(placement.scaleX), std::fabs(placement.scaleY));
  std::string content(text.content);
  writeText(context_, at.x, at.y, textRotation(text.angle, placement), height, content,
            drawing_.encoding, layer);
}

void Translator::insert(const DxfEntity& entity, const Placement& placement) {
  if (layerOf(entity) == kNotConverted) return;
  const dxf::InsertValues insert = dxf::insertOf(entity);
  Placement inner = placement;
  inner.scaleX = insert.scaleX * placement.scaleX;
  inner.scaleY = insert.scaleY * placement.scaleY;
  inner.rotation = radians(insert.angle) + placement.rotation;
  const Mirror mirror = mirrorOf(entity);
  const Point at = placePoint(insert.at.x, insert.at.y, mirror, placement);
  const std::optional<std::size_t> block = blockNamed(insert.block);
  if (!block) return;
  if (losses_.isOn()) checkInsert(losses_, {entity, mirror, placement, isOblique_}, insert, at);
  insertBlock(*block, at, inner);
}

void Translator::dimension(const DxfEntity& entity, const Placement& placement) {
  if (layerOf(entity) == kNotConverted) return;
  const dxf::DimensionValues dimension = dxf::dimensionOf(entity);
  const dxf::Position& definition = dimension.definition;
  const Point at = placePoint(definition.x, definition.y, mirrorOf(entity), placement);
  const std::optional<std::size_t> block = blockNamed(dimension.block);
  if (!block) return losses_.note(LossRule::DimensionWithoutBlock, at);
  // Its block has been drawn where it belongs.
  if (definition.x != 0.0 || definition.y != 0.0) losses_.note(LossRule::DimensionMoved, at);
  insertBlock(*block, at, placement);
}

std::optional<std::size_t> Translator::blockNamed(std::string_view upperName) const {
  const std::size_t index = dxf::findBlock(drawing_, upperName);
  // An unknown name also gives index 0, so compare the name.
  if (drawing_.blocks.empty() || drawing_.blocks[index].name != upperName) return {};
  return index;
}

void Translator::insertBlock(std::size_t index, Point insertion, const Placement& placement) {
  const dxf::BlockRec& block = drawing_.blocks[index];
  const Point base{base::numberValue(block.baseX), base::numberValue(block.baseY)};
  // Within a part, blocks are drawn in place.
  const bool asPart = parts_ != nullptr && expansions_.empty();
  checkBlock(losses_, base, placement, asPart, insertion);
  const LossNotes::Block inside = losses_.within();
  partLosses_ = inside;
  const bool isPart = parts_ != nullptr && parts_->insertPart(index, insertion, placement);
  partLosses_ = {};
  if (isPart) return;
  const Point translation = blockTranslation(insertion, base, placement);
  Placement inner = placement;
  inner.dx = translation.x;
  inner.dy = translation.y;
  beginBlock(index, inner, inside);
}

void Translator::area(const DxfEntity& entity, const Placement& placement) {
  const int layer = layerOf(entity);
  if (layer == kNotConverted) return;
  const Mirror mirror = mirrorOf(entity);
  std::array<Point, 4> corners;
  std::size_t i = 0;
  for (const dxf::Position& corner : dxf::cornersOf(entity)) {
    corners[i++] = placePoint(corner.x, corner.y, mirror, placement);
  }
  if (losses_.isOn()) {
    checkArea(losses_, {entity, mirror, placement, isOblique_}, corners, drawing_.fillMode != 0.0);
  }
  writeSolid(context_, corners, layer);
}

void Translator::point(const DxfEntity& entity, const Placement& placement) {
  const dxf::Position position = dxf::pointOf(entity);
  const Mirror mirror = mirrorOf(entity);
  const Point at = placePoint(position.x, position.y, mirror, placement);
  const int layer = layerOf(entity);
  checkWorld(losses_, mirror, at);
  writePoint(context_, at.x, at.y, layer);
}

void Translator::nothing(const DxfEntity&, const Placement&) {}

}  // namespace quillon::classic
