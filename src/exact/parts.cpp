#include "exact/parts.h"

#include <cmath>
#include <utility>

#include "base/number_text.h"
#include "geometry/mapped_box.h"

namespace quillon::exact {
namespace {

/// Scales that differ by rounding alone are the same.
double roundedScale(double scale) {
  constexpr double kSteps = 1 << 30;
  int exponent = 0;
  const double mantissa = std::frexp(scale, &exponent);
  return std::ldexp(std::round(mantissa * kSteps) / kSteps, exponent);
}

bool isAsItIs(const PartTurn& turn) { return !turn.mirrored && roundedScale(turn.scale) == 1.0; }

}  // namespace

bool Parts::take(const PartInsertion& insertion, Translator& translator) {
  frame_.noteInsertion(insertion.blockIndex);
  const std::optional<PartTurn> turn =
      partTurnOf(insertion.array.outer * insertion.array.content, options_);
  const Point at = insertion.array.outer(Point{});
  if (!turn || !geometry::usable(at) || facts()[insertion.blockIndex].hasEndless) return false;
  const auto [found, isNew] = parts_.try_emplace(keyOf(insertion, *turn));
  Part& part = found->second;
  if (isNew) {
    if (isAsItIs(*turn)) asTheyAre_.insert(insertion.blockIndex);
    const Affine content = partContent(*turn, baseOf(insertion.blockIndex), options_);
    makePart(
        insertion.blockIndex, partPlace(*turn, at),
        [&](ShapeSink& sink) {
          translator.drawPart(insertion.item, insertion.blockIndex, content, sink);
        },
        part);
  }
  if (part.name.empty()) return true;
  BlockArray cells = insertion.array;
  cells.content = {};
  const Placing placing{&part, *turn, BlockPlaces(cells), insertion.item.origin};
  output_.drawing.surround(boundsOf(placing, cells));
  placings_.push_back(placing);
  return true;
}

Parts::Key Parts::keyOf(const PartInsertion& insertion, const PartTurn& turn) {
  const BlockFacts& facts = this->facts()[insertion.blockIndex];
  const bool takesType = facts.takesPen && options_.lineTypes != LineTypes::Solid;
  const bool takesWeight = facts.takesPen && options_.lineWeights;
  const Inherited& inherited = insertion.inherited;
  return {insertion.blockIndex,
          turn.mirrored,
          roundedScale(turn.scale),
          facts.takesLayer ? inherited.layer : nullptr,
          takesType ? inherited.lineType : std::string_view{},
          takesWeight ? inherited.lineWeight : 0};
}

const std::vector<BlockFacts>& Parts::facts() {
  if (facts_.empty()) facts_ = blockFactsOf(drawing_, output_.poll);
  return facts_;
}

Point Parts::baseOf(std::size_t blockIndex) const {
  const dxf::BlockRec& block = drawing_.blocks[blockIndex];
  return {base::numberValue(block.baseX), base::numberValue(block.baseY)};
}

/// Draws a part and writes it, unless it is empty. `place`: where it is seen first, for what is
/// said about it.
template <typename Draw>
void Parts::makePart(std::size_t blockIndex, const Affine& place, const Draw& draw, Part& part) {
  output_.losses.setPlace(place);
  Cleaning content(options_, output_.losses, output_.writer, &output_.poll);
  draw(content);
  content.cutEndless();
  if (!content.empty()) {
    part.bounds = content.bounds();
    part.hasTexts = content.hasTexts();
    part.name = frame_.openPart(blockIndex);
    output_.writer.beginPart();
    content.finish();
    output_.writer.end();
    frame_.closePart(part.name);
    output_.drawing.addReport(content.report(), place);
    wroteParts_ = true;
  }
  output_.losses.setPlace({});
}

void Parts::addUnused(Translator& translator) {
  for (std::size_t i = 0; i < drawing_.blocks.size(); ++i) {
    if (output_.poll()) return;
    const dxf::BlockRec& block = drawing_.blocks[i];
    const bool isFirst = dxf::findBlock(drawing_, block.name) == i;
    if (!isFirst || block.isLayout() || asTheyAre_.contains(i)) continue;
    Part part;
    const Affine content = partContent({}, baseOf(i), options_);
    makePart(
        i, {}, [&](ShapeSink& sink) { translator.drawPart(i, content, sink); }, part);
  }
}

void Parts::returnToDrawing() {
  if (wroteParts_) frame_.returnToDrawing();
}

/// Around all cells of an array: the four at its corners are enough. What is turned by an odd angle
/// is less than its turned box.
geometry::Box Parts::boundsOf(const Placing& placing, const BlockArray& array) const {
  geometry::Box box;
  for (const std::size_t column : {std::size_t{0}, array.columns - 1}) {
    for (const std::size_t row : {std::size_t{0}, array.rows - 1}) {
      const Point step{static_cast<double>(column) * array.columnStep,
                       static_cast<double>(row) * array.rowStep};
      const Point at = array.outer(step);
      if (geometry::usable(at))
        geometry::addMapped(box, placing.part->bounds, partPlace(placing.turn, at));
    }
  }
  return box;
}

void Parts::writePlaces() {
  for (Placing& placing : placings_) {
    const bool spins = options_.turnsFreely() && placing.part->hasTexts && placing.turn.tenths != 0;
    for (; !placing.places.empty(); placing.places.next()) {
      if (output_.poll()) return;
      const Point at = placing.places.map()(Point{});
      if (!geometry::usable(at)) {
        const Origin& origin = placing.origin;
        output_.losses.add(
            {LossRule::UnusableNumbers, origin.kind, origin.dxfLayer, origin.line, at});
        continue;
      }
      geometry::Box covers;
      geometry::addMapped(covers, placing.part->bounds, partPlace(placing.turn, at));
      output_.writer.place({placing.part->name, frame_.libraryName(), at,
                            placing.turn.tenths / 10.0, spins, true, covers});
    }
  }
}

}  // namespace quillon::exact
