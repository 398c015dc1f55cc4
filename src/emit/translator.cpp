#include "emit/translator.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "dxf/polyline_vertices.h"
#include "dxf/run_time_error.h"
#include "dxf/spline_points.h"
#include "emit/curves.h"
#include "emit/lines.h"
#include "emit/splines.h"
#include "emit/text.h"

namespace quillon::emit {

using dxf::DxfEntity;
using dxf::EntityKind;

namespace {

constexpr std::size_t kDeepestNesting = 1000;

/// How much of an entity's texts, and of groups that have to be read once more, can be worked
/// through in a step.
constexpr std::size_t kTextBytesPerStep = 64;
constexpr std::size_t kGroupBytesPerStep = 16;

/// The counter that a kind adds to.
constexpr EntityKind countedAs(EntityKind kind) {
  switch (kind) {
    case EntityKind::Mtext:
      return EntityKind::Text;
    case EntityKind::Leader:
      return EntityKind::LwPolyline;
    default:
      return kind;
  }
}

/// What an entity costs that is longer than usual.
std::size_t stepsOfLength(const DxfEntity& entity) {
  if (dxf::hasSideRecord(entity.kind)) {
    return static_cast<std::size_t>(entity.groupsEnd - entity.groups) / kGroupBytesPerStep;
  }
  std::size_t size = 0;
  const std::size_t slots = entity.slotCount();
  for (std::size_t i = 0; i < slots; ++i) size += entity.value(i).size();
  return size / kTextBytesPerStep;
}

/// The translator, not the text emitter, keeps a text from ending its own quotes.
std::string doubleApostrophes(std::string_view text) {
  std::string out;
  out.reserve(text.size() + 8);
  for (const char c : text) {
    out += c;
    if (c == '\'') out += c;
  }
  return out;
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
  set(EntityKind::Mtext, &Translator::mtext);
  set(EntityKind::Insert, &Translator::insert);
  set(EntityKind::Trace, &Translator::area);
  set(EntityKind::Solid, &Translator::area);
  set(EntityKind::Face3d, &Translator::area);
  set(EntityKind::Ellipse, &Translator::ellipse);
  set(EntityKind::Point, &Translator::point);
  set(EntityKind::Dimension, &Translator::dimension);
  return handlers;
}();

Translator::Translator(EmitContext& context, dxf::Drawing& drawing, LayerNumbers& layers,
                       const TranslationRules& rules)
    : context_(context),
      drawing_(drawing),
      layers_(layers),
      rules_(rules),
      reader_(drawing),
      dashPatterns_(drawing),
      polyline_(context),
      expanding_(drawing.blocks.size(), 0) {}

void Translator::translateEntity(DxfEntity& entity, const Placement& placement) {
  const std::size_t enclosing = expansions_.size();
  handle(entity, placement);
  writeBlocks(enclosing);
}

void Translator::translateBlock(std::size_t blockIndex, const Placement& placement) {
  const std::size_t enclosing = expansions_.size();
  beginBlock(blockIndex, placement);
  writeBlocks(enclosing);
}

void Translator::handle(DxfEntity& entity, const Placement& placement) {
  reader_.complete(entity);
  // What is left of a POLYLINE belongs to the entity before this one.
  if (entity.kind != EntityKind::Vertex) polyline_.finish();
  currentPosition_ = entity.groups;
  ++counts_[static_cast<std::size_t>(countedAs(entity.kind))];
  (this->*kHandlers[static_cast<std::size_t>(entity.kind)])(entity, placement);
}

void Translator::beginBlock(std::size_t blockIndex, const Placement& placement) {
  if (expanding_[blockIndex] != 0) return;
  const dxf::BlockRec& block = drawing_.blocks[blockIndex];
  if (expansions_.size() == kDeepestNesting) {
    throw dxf::RunTimeError(dxf::Fault::NestingTooDeep, block.name);
  }
  expansions_.push_back(
      {blockIndex, dxf::EntityCursor(drawing_.store, block.items), placement, currentPosition_});
  expanding_[blockIndex] = 1;
}

void Translator::endBlock() {
  finishList();
  currentPosition_ = expansions_.back().insertedAt;
  expanding_[expansions_.back().blockIndex] = 0;
  expansions_.pop_back();
}

/// Writes the blocks inside the `enclosing` outermost ones. Blocks within blocks wait in a list
/// instead of on the stack, so that no drawing decides how much of the stack is needed.
void Translator::writeBlocks(std::size_t enclosing) {
  if (expansions_.size() == enclosing) return;
  DxfEntity item;
  while (expansions_.size() > enclosing) {
    if (!expansions_.back().items.next(item) || context_.cancelled()) {
      endBlock();
      continue;
    }
    context_.cancelled.addSteps(stepsOfLength(item));
    const Placement placement = expansions_.back().placement;  // the list may move
    handle(item, placement);
  }
}

int Translator::layerOf(const DxfEntity& entity) {
  const int layer = layers_.layerNumber(*entity.layer);
  if (layer == kNotConverted) ++leftOut_[static_cast<std::size_t>(countedAs(entity.kind))];
  return layer;
}

const DashPattern* Translator::dashesOf(const DxfEntity& entity) {
  if (!context_.settings.dotted) return nullptr;
  return dashPatterns_.find(entity.value(dxf::slotLayout(entity.kind).lineType));
}

Mirror Translator::mirrorOf(const DxfEntity& entity) const {
  const dxf::SlotLayout& layout = dxf::slotLayout(entity.kind);
  return {rules_.isNegativeText(entity.value(layout.extrusionX)) ? -1.0 : 1.0,
          rules_.isNegativeText(entity.value(layout.extrusionY)) ? -1.0 : 1.0};
}

Corner Translator::pointAt(const DxfEntity& entity, std::size_t slot,
                           const Placement& placement) const {
  return placePoint(entity.number(slot), entity.number(slot + 1), mirrorOf(entity), placement);
}

void Translator::line(const DxfEntity& entity, const Placement& placement) {
  const int layer = layerOf(entity);
  if (layer == kNotConverted) return;
  Corner start = pointAt(entity, 0, placement);
  const Corner end = pointAt(entity, 2, placement);
  writeLine(context_, start.x, start.y, end.x, end.y, layer, dashesOf(entity), 0.0);
}

void Translator::arc(const DxfEntity& entity, const Placement& placement) {
  const Mirror mirror = mirrorOf(entity);
  double startAngle = entity.number(3);
  double endAngle = entity.number(4);
  rules_.mirrorArc(mirror, startAngle, endAngle);
  writeArcEntity(context_, entity.number(0) * mirror.x, entity.number(1) * mirror.y,
                 entity.number(2), startAngle, endAngle, placement, layerOf(entity),
                 dashesOf(entity));
}

void Translator::circle(const DxfEntity& entity, const Placement& placement) {
  const Mirror mirror = mirrorOf(entity);
  writeCircle(context_, entity.number(0) * mirror.x, entity.number(1) * mirror.y, entity.number(2),
              placement, layerOf(entity), dashesOf(entity));
}

void Translator::ellipse(const DxfEntity& entity, const Placement& placement) {
  const Corner centre = pointAt(entity, 0, placement);
  const Corner major = turnPoint(entity.number(2), entity.number(3), mirrorOf(entity), placement);
  const int layer = layerOf(entity);
  if (!context_.settings.ellipses) {
    writeCircle(context_, centre.x, centre.y, rules_.ellipseAsCircleRadius(major), Placement{},
                layer, dashesOf(entity));
    return;
  }
  const EllipseArc shape{centre.x,         centre.y,         major.x,         major.y,
                         entity.number(4), entity.number(5), entity.number(6)};
  writeEllipse(context_, shape, kEllipseSegments, layer, dashesOf(entity));
}

void Translator::polyline(const DxfEntity& entity, const Placement& placement) {
  const double startWidth = entity.number(0);
  PolylineStyle style;
  style.layer = layerOf(entity);
  style.dashes = dashesOf(entity);
  style.closed = dxf::isOddNumber(entity.value(2));
  style.closesItself = true;
  style.width = startWidth;
  style.placement = placement;
  polyline_.begin(style, startWidth != 0.0 || entity.number(1) != 0.0);
}

void Translator::vertex(const DxfEntity& entity, const Placement& placement) {
  if (!polyline_.running()) return;
  const Mirror mirror = mirrorOf(entity);
  polyline_.add({placePoint(entity.number(0), entity.number(1), mirror, placement),
                 entity.number(2), rules_.placedBulge(entity.number(4), mirror, placement)});
}

void Translator::lwPolyline(const DxfEntity& entity, const Placement& placement) {
  const Mirror mirror = mirrorOf(entity);
  PolylineStyle style;
  style.layer = layerOf(entity);
  if (style.layer == kNotConverted) return;
  style.dashes = dashesOf(entity);
  const bool mayClose = entity.kind != EntityKind::Leader;
  style.closed = mayClose && dxf::isOddNumber(entity.value(2));
  style.width = entity.number(1);
  style.placement = placement;
  polyline_.begin(style, style.width != 0.0);
  dxf::PolyVertexWalk walk(reader_.groups(entity), entity.value(1), mayClose);
  for (dxf::PolyVertex vertex; walk.next(vertex) && !context_.cancelled();) {
    polyline_.add(
        {placePoint(dxf::numberValue(vertex.x), dxf::numberValue(vertex.y), mirror, placement),
         dxf::numberValue(vertex.startWidth),
         rules_.placedBulge(dxf::numberValue(vertex.bulge), mirror, placement)});
  }
  polyline_.finish();
}

void Translator::spline(const DxfEntity& entity, const Placement& placement) {
  const int layer = layerOf(entity);
  if (layer == kNotConverted) return;
  const dxf::SplineRec spline = dxf::readSpline(reader_.groups(entity));
  if (spline.controlPoints.size() < 2) return;
  std::vector<ControlPoint> controlPoints;
  controlPoints.reserve(spline.controlPoints.size());
  for (const dxf::SplinePoint& point : spline.controlPoints) {
    controlPoints.push_back({dxf::numberValue(point.x), dxf::numberValue(point.y)});
  }
  const std::size_t upperBound = controlPoints.size() - 1;
  const Mirror mirror = mirrorOf(entity);
  const DashPattern* const dashes = dashesOf(entity);
  Corner last;
  bool first = true;
  evaluateSpline(controlPoints, rules_.splineOrder(upperBound), rules_.splineSamples(upperBound),
                 [&](ControlPoint sample) {
                   const Corner next = placePoint(sample.x, sample.y, mirror, placement);
                   if (!first) {
                     writeLine(context_, last.x, last.y, next.x, next.y, layer, dashes, 0.0);
                   }
                   first = false;
                   last = next;
                   return !context_.cancelled();
                 });
}

void Translator::text(const DxfEntity& entity, const Placement& placement) {
  writeTextEntity(entity, placement, 2, 4, 6);
}

void Translator::mtext(const DxfEntity& entity, const Placement& placement) {
  writeTextEntity(entity, placement, 4, 6, 8);
}

void Translator::writeTextEntity(const DxfEntity& entity, const Placement& placement,
                                 std::size_t heightSlot, std::size_t angleSlot,
                                 std::size_t textSlot) {
  const int layer = layerOf(entity);
  if (layer == kNotConverted) return;
  const Corner at =
      rules_.textPosition(entity.number(0), entity.number(1), mirrorOf(entity), placement);
  const double height = entity.number(heightSlot) *
                        std::min(std::fabs(placement.scaleX), std::fabs(placement.scaleY));
  std::string content = doubleApostrophes(entity.value(textSlot));
  writeText(context_, at.x, at.y, rules_.textRotation(entity.number(angleSlot), placement), height,
            content, drawing_.encoding, layer);
}

void Translator::insert(const DxfEntity& entity, const Placement& placement) {
  if (layerOf(entity) == kNotConverted) return;
  const auto scale = [&entity](std::size_t slot) {
    return entity.value(slot).empty() ? 1.0 : entity.number(slot);
  };
  Placement inner = placement;
  inner.scaleX = scale(3) * placement.scaleX;
  inner.scaleY = scale(4) * placement.scaleY;
  inner.rotation = radians(entity.number(5)) + placement.rotation;
  insertBlock(entity.value(0), pointAt(entity, 1, placement), inner);
}

void Translator::dimension(const DxfEntity& entity, const Placement& placement) {
  if (layerOf(entity) == kNotConverted) return;
  insertBlock(entity.value(0), pointAt(entity, 1, placement), placement);
}

void Translator::insertBlock(std::string_view name, Corner insertion, const Placement& placement) {
  const std::size_t index = dxf::findBlock(drawing_, name);
  // An unknown name finds the first block as well, so the name decides.
  if (drawing_.blocks.empty() || drawing_.blocks[index].name != name) return;
  if (parts_ != nullptr && parts_->insertPart(index, insertion, placement)) return;
  const dxf::BlockRec& block = drawing_.blocks[index];
  const Corner base{dxf::numberValue(block.baseX), dxf::numberValue(block.baseY)};
  const Corner translation = rules_.blockTranslation(insertion, base, placement);
  Placement inner = placement;
  inner.dx = translation.x;
  inner.dy = translation.y;
  beginBlock(index, inner);
}

void Translator::area(const DxfEntity& entity, const Placement& placement) {
  const int layer = layerOf(entity);
  if (layer == kNotConverted) return;
  const std::array<Corner, 4> corners = {
      pointAt(entity, 0, placement), pointAt(entity, 2, placement), pointAt(entity, 4, placement),
      pointAt(entity, 6, placement)};
  writeSolid(context_, rules_.areaCorners(corners), layer);
}

void Translator::point(const DxfEntity& entity, const Placement& placement) {
  const Corner at = pointAt(entity, 0, placement);
  writePoint(context_, at.x, at.y, layerOf(entity));
}

void Translator::nothing(const DxfEntity&, const Placement&) {}

}  // namespace quillon::emit
