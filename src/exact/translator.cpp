#include "exact/translator.h"

#include <cmath>
#include <string>
#include <utility>

#include "base/layer_number.h"
#include "base/number_text.h"
#include "base/run_time_error.h"
#include "exact/annotations.h"
#include "exact/curves.h"
#include "exact/hatch.h"
#include "exact/insert_values.h"
#include "exact/multilines.h"
#include "exact/points.h"
#include "exact/texts.h"
#include "exact/whole_numbers.h"
#include "geometry/degrees.h"

namespace quillon::exact {
namespace {

constexpr std::size_t kDeepestNesting = 1000;

/// Kinds that vanish as a whole on a frozen layer, and that show what their blocks have on other
/// layers on one that is off.
bool hasContent(Kind kind) {
  switch (kind) {
    case Kind::Insert:
    case Kind::Dimension:
    case Kind::ArcDimension:
    case Kind::LargeRadialDimension:
    case Kind::AcadTable:
    case Kind::MultiLeader:
      return true;
    default:
      return false;
  }
}

Point baseOf(const dxf::BlockRec& block) {
  return {base::numberValue(block.baseX), base::numberValue(block.baseY)};
}

/// The first value of a group of the block itself, before its entities; "" without one.
std::string_view valueOf(const dxf::BlockRec& block, const dxf::LineEnds& ends,
                         std::string_view wanted) {
  dxf::LineCursor lines(block.text, ends);
  while (!lines.atEnd()) {
    const std::string_view code = base::trimBlanks(lines.next());
    if (code == "0" || lines.atEnd()) return {};
    const std::string_view value = lines.next();
    if (code == wanted) return value;
  }
  return {};
}

double numberOf(const dxf::BlockRec& block, const dxf::LineEnds& ends, std::string_view wanted) {
  return base::numberValue(valueOf(block, ends, wanted));
}

/// Whether a block stands for a drawing of its own, of which there is nothing here.
bool isExternalReference(const dxf::BlockRec& block, const dxf::LineEnds& ends) {
  constexpr int kExternal = 4 | 8;
  return (cutInteger(numberOf(block, ends, "70")) & kExternal) != 0;
}

Affine turn(double degrees) {
  const Point way = geometry::unitVector(degrees);
  return {way.x, -way.y, way.y, way.x, 0.0, 0.0};
}

}  // namespace

Translator::Translator(const Options& options, dxf::Drawing& drawing, rules::LayerNumbers& numbers,
                       ShapeSink& sink, LossList& losses, rules::CancelPoll& poll,
                       const Affine& top)
    : options_(options),
      drawing_(drawing),
      losses_(losses),
      poll_(poll),
      canvas_(options, drawing, sink, losses, poll),
      top_(top),
      objectNeeds_(drawing.encoding, sink, losses),
      reader_(drawing),
      layers_(drawing, numbers),
      pens_(options, drawing),
      space_(options.space),
      contents_(drawing.blocks.size()),
      expanding_(drawing.blocks.size(), 0) {
  for (const dxf::BlockRec& block : drawing.blocks) {
    isExternal_.push_back(isExternalReference(block, drawing.lineEnds) ? 1 : 0);
  }
}

void Translator::takeEntity(dxf::DxfEntity& entity) {
  draw(entity, {top_, {}, false, false});
  if (!expansions_.empty()) drawExpansions(0);
}

void Translator::draw(const dxf::DxfEntity& found, const Surroundings& around) {
  const Entity entity = reader_.read(found);
  currentPosition_ = entity.groups.begin;
  if (entity.kind == Kind::Vertex) {
    if (polyline_.isOpen()) polyline_.add(entity, canvas_);
    return;
  }
  polyline_.finish(canvas_);
  if (entity.kind != Kind::Face3d) faces_.end();
  if (entity.kind == Kind::Seqend) return;
  if (entity.kind != Kind::Attrib) attributesAreHidden_ = false;
  const bool takesLayer = entity.layer == "0" && around.inherited.layer != nullptr;
  const Layer& layer = takesLayer ? *around.inherited.layer : layers_.find(entity.layer);
  const Origin origin{layer.number, entity.name, layer.use.name, entity.line};
  if (!isInSpace(entity, around) || !isShown(entity, layer, origin)) {
    attributesAreHidden_ = attributesAreHidden_ || entity.kind == Kind::Insert;
    return;
  }
  const Pen pen = pens_.penOf(entity, layer, around.inherited, around.map);
  const bool isUnseen =
      layer.number == base::kNotConverted || (layer.isOff && !options_.hiddenLayers);
  const Item item{entity, around.map, origin, pen, around.isInDimension, isUnseen, around.depth};
  canvas_.beginItem();
  dispatch(item, around);
}

/// Content of blocks is where the block is.
bool Translator::isInSpace(const Entity& entity, const Surroundings& around) {
  if (around.isInBlock || isInLayout_) return true;
  if (!entity.isInPaperSpace) {
    sawModel_ = true;
    return space_ != Space::Paper;
  }
  sawPaper_ = sawPaper_ || entity.kind != Kind::Viewport;
  return space_ != Space::Model;
}

bool Translator::isShown(const Entity& entity, const Layer& layer, const Origin& origin) {
  const auto hide = [&](LossRule rule) {
    losses_.add({rule, origin.kind, origin.dxfLayer, origin.line});
    return false;
  };
  if (entity.kind == Kind::Attrib && attributesAreHidden_) return false;
  if (entity.isInvisible) return hide(LossRule::Invisible);
  const bool shows = options_.hiddenLayers;
  if (layer.isFrozen && !shows) return hide(LossRule::LayerFrozen);
  const bool isLeftOut = layer.number == base::kNotConverted;
  count(entity, isLeftOut);
  if (hasContent(entity.kind)) return true;
  if (layer.isOff && !shows) return hide(LossRule::LayerOff);
  return !isLeftOut;
}

/// Kinds that are not drawn are losses and do not count.
void Translator::count(const Entity& entity, bool isLeftOut) {
  if (entity.kind == Kind::Other || entity.kind == Kind::Wipeout || entity.kind == Kind::Viewport) {
    return;
  }
  dxf::EntityKind kind = entity.countedAs;
  if (kind == dxf::EntityKind::Mtext) kind = dxf::EntityKind::Text;
  if (kind == dxf::EntityKind::Leader) kind = dxf::EntityKind::LwPolyline;
  if (kind == dxf::EntityKind::None) ++(isLeftOut ? otherLeftOut_ : otherCounts_)[entity.name];
  ++counts_[static_cast<std::size_t>(kind)];
  if (isLeftOut) ++leftOut_[static_cast<std::size_t>(kind)];
}

void Translator::dispatch(const Item& item, const Surroundings& around) {
  switch (item.entity.kind) {
    case Kind::Line:
      return drawLine(item, canvas_);
    case Kind::Arc:
      return drawArc(item, canvas_);
    case Kind::Circle:
      return drawCircle(item, canvas_);
    case Kind::Ellipse:
      return drawEllipse(item, canvas_);
    case Kind::Spline:
    case Kind::Helix:
      return drawSpline(item, canvas_);
    case Kind::LwPolyline:
      return drawLwPolyline(item, canvas_);
    case Kind::Polyline:
      return polyline_.begin(item, canvas_);
    case Kind::Solid:
    case Kind::Trace:
      return drawSolid(item, canvas_);
    case Kind::Face3d:
      return faces_.draw(item, canvas_);
    case Kind::Hatch:
    case Kind::MPolygon:
      return drawHatch(item, canvas_);
    case Kind::Mline:
      return drawMline(item, canvas_, isInPart_ ? nullptr : &objectNeeds_.mlineStyles);
    case Kind::Mesh:
      return drawMesh(item, canvas_);
    case Kind::Text:
      return drawText(item, canvas_);
    case Kind::Attrib:
      return drawAttribute(item, canvas_);
    case Kind::Attdef:
      return drawDefinition(item, around.isInBlock);
    case Kind::Mtext:
      return drawMtext(item, canvas_);
    case Kind::Insert:
      return insert(item);
    case Kind::Dimension:
    case Kind::ArcDimension:
    case Kind::LargeRadialDimension:
      return drawDimension(item, canvas_, *this);
    case Kind::Leader:
      return drawLeader(item, canvas_, *this);
    case Kind::MultiLeader:
      return drawMultiLeader(item, canvas_, *this);
    case Kind::Tolerance:
      return drawTolerance(item, canvas_);
    case Kind::AcadTable:
      return drawTable(item, canvas_, *this);
    case Kind::Point:
      return drawPoint(item, canvas_);
    case Kind::Ray:
    case Kind::Xline:
      return drawEndless(item, canvas_);
    case Kind::Viewport:
      if (space_ != Space::Model) canvas_.lose(item, LossRule::ViewportNotDrawn);
      return;
    case Kind::Vertex:
    case Kind::Seqend:
      return;
    case Kind::Wipeout:
    case Kind::Other:
      return canvas_.lose(item, LossRule::UnknownKind);
  }
}

void Translator::insert(const Item& item) {
  const InsertValues values = readInsert(item, canvas_);
  const std::string_view name = reader_.upperName(values.block);
  const std::size_t index = dxf::findBlock(drawing_, name);
  if (drawing_.blocks.empty() || drawing_.blocks[index].name != name) {
    return canvas_.loseNamed(item, LossRule::MissingBlock, name);
  }
  if (isExternal_[index] != 0) {
    const std::string_view path = valueOf(drawing_.blocks[index], drawing_.lineEnds, "1");
    return canvas_.loseNamed(item, LossRule::ExternalReference, path);
  }
  const Affine object = item.objectMap(values.elevation);
  const Affine rotation = turn(values.angle);
  const Affine content = Affine::scaling(values.scaleX, values.scaleY) *
                         Affine::shift(-baseOf(drawing_.blocks[index]));
  const Point rise = item.objectMap(1.0)(Point{}) - item.objectMap(0.0)(Point{});
  const Point depth = rise == Point{} ? rise : rise * values.scaleZ;
  const Affine toPlace =
      fromBaseHeight(index, depth) * object * Affine::shift(values.at) * rotation;
  if (!values.dictionary.empty()) {
    const Origin& origin = item.origin;
    objectNeeds_.clipFilters.note(
        values.dictionary,
        {LossRule::ClippedInsert, origin.kind, origin.dxfLayer, origin.line, toPlace(Point{})});
  }
  const BlockArray array{.outer = toPlace,
                         .content = content,
                         .columns = values.columns,
                         .rows = values.rows,
                         .columnStep = values.columnStep,
                         .rowStep = values.rowStep};
  const bool mayBePart = partMaker_ != nullptr && expansions_.empty() && depth == Point{};
  if (mayBePart && partMaker_->take({item, index, array, inheritedFrom(item)}, *this)) return;
  expand(item, index, BlockPlaces(array), depth);
}

void Translator::drawPart(const Item& insertion, std::size_t blockIndex, const Affine& map,
                          ShapeSink& sink) {
  ShapeSink& before = canvas_.drawInto(sink);
  isInPart_ = true;
  expand(insertion, blockIndex, BlockPlaces(std::vector{map}), {});
  drawExpansions(0);
  isInPart_ = false;
  canvas_.drawInto(before);
}

void Translator::drawPart(std::size_t blockIndex, const Affine& map, ShapeSink& sink) {
  if (isExternal_[blockIndex] != 0) return;
  const dxf::BlockRec& block = drawing_.blocks[blockIndex];
  Entity entity;
  entity.kind = Kind::Insert;
  entity.name = "BLOCK";
  entity.layer = "0";
  entity.line = block.firstLine;
  currentPosition_ = block.text.begin;
  const Layer& layer = layers_.find(entity.layer);
  const Pen pen;
  drawPart({entity, map, {layer.number, entity.name, entity.layer, entity.line}, pen}, blockIndex,
           map, sink);
}

/// Shows the height of the block's base point where a height of 0 would be shown.
Affine Translator::fromBaseHeight(std::size_t blockIndex, Point depth) const {
  if (depth == Point{}) return {};
  return Affine::shift(depth * -numberOf(drawing_.blocks[blockIndex], drawing_.lineEnds, "30"));
}

bool Translator::drawBlock(const Item& item, std::string_view upperName, std::vector<Affine> maps) {
  const std::size_t index = dxf::findBlock(drawing_, upperName);
  if (drawing_.blocks.empty() || drawing_.blocks[index].name != upperName) return false;
  const Affine toOrigin = Affine::shift(-baseOf(drawing_.blocks[index]));
  for (Affine& map : maps) map = map * toOrigin;
  expand(item, index, BlockPlaces(std::move(maps)), item.depth);
  return true;
}

bool Translator::drawBlock(const Item& item, std::string_view upperName, const Affine& map,
                           std::vector<AttributeText> attributes) {
  const std::size_t count = expansions_.size();
  if (!drawBlock(item, upperName, std::vector{map})) return false;
  if (expansions_.size() > count) {
    expansions_.back().attributes = std::move(attributes);
    expansions_.back().origin = item.origin;
  }
  return true;
}

void Translator::expand(const Item& item, std::size_t blockIndex, BlockPlaces places, Point depth) {
  if (expanding_[blockIndex] != 0) return canvas_.lose(item, LossRule::BlockInItself);
  const dxf::BlockRec& block = drawing_.blocks[blockIndex];
  if (expansions_.size() == kDeepestNesting) {
    throw base::RunTimeError(base::Fault::NestingTooDeep, block.name);
  }
  const bool isPartOfDimension = item.isInDimension || item.entity.kind != Kind::Insert;
  expansions_.push_back({blockIndex,
                         std::move(places),
                         {{}, inheritedFrom(item), isPartOfDimension, true, depth},
                         currentPosition_});
}

/// What the content of a block takes from the item that shows it.
Inherited Translator::inheritedFrom(const Item& item) {
  const Layer& layer = layers_.find(item.origin.dxfLayer);
  const Inherited outer = expansions_.empty() ? Inherited{} : expansions_.back().inside.inherited;
  return pens_.inheritedFrom(item.entity, layer, outer);
}

}  // namespace quillon::exact
