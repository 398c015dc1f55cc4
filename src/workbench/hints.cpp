#include "workbench/hints.h"

#include <cmath>
#include <numeric>
#include <optional>

#include "base/number_text.h"
#include "convert/join_offer.h"
#include "eagle/drawing_area.h"
#include "workbench/picture_text.h"

namespace quillon::workbench {
namespace {

using rules::LossRule;
using texts::TextId;

std::uint64_t countOf(const Reading& reading, LossRule rule) {
  std::uint64_t count = 0;
  for (const convert::NamedLoss& loss : reading.result.losses) {
    if (loss.rule == rule) count += loss.count;
  }
  return count;
}

bool isClassic(const Reading& reading) { return reading.job.rules == convert::Rules::Classic; }

/// Whether two lengths are the same unit.
bool isSameUnit(double a, double b) { return std::fabs(a - b) <= 1e-9 * std::fabs(a); }

/// Who knows what the drawing says of itself: only the exact rules read that. Null while nobody
/// does.
const Reading* knowing(const Reading& result, const Reading* drawing) {
  return result.result.exact ? &result : drawing;
}

/// Millimetres in the unit that the drawing names; none when it names none.
std::optional<double> namedUnit(const Reading& result, const Reading* drawing) {
  const Reading* const source = knowing(result, drawing);
  return source == nullptr ? std::nullopt : convert::unitNamed(source->result.insUnits);
}

/// Millimetres that one in the drawing becomes. By the classic rules, the scale is the only way to
/// take a unit that EAGLE has not.
double lengthTaken(const Reading& result) {
  const double scale = result.result.exact ? 1.0 : std::fabs(result.job.scale);
  return unitTaken(result) * scale;
}

/// What the drawing names, where that can be believed. Its size is known once it has been read.
std::optional<double> believedUnit(const Reading& result, const Reading* drawing) {
  const std::optional<double> named = namedUnit(result, drawing);
  if (!named || drawing == nullptr || !drawing->result.exact) return named;
  const convert::ExactFindings& findings = *drawing->result.exact;
  const double taken = unitTaken(*drawing);
  const geometry::Box& box = findings.bounds;  // in millimetres
  if (box.empty()) return named;
  const geometry::Box own{box.low * (1.0 / taken), box.high * (1.0 / taken)};
  if (convert::unitOf(drawing->result.insUnits, own).isDoubted) return std::nullopt;
  return named;
}

/// The hint about one rule, with its number of shapes.
void addCounted(std::vector<Hint>& hints, Offer offer, std::uint64_t count, TextId one, TextId many,
                TextId button, const texts::Texts& texts) {
  if (count == 0) return;
  hints.push_back({offer,
                   count == 1 ? std::string(texts(one)) : texts(many, {std::to_string(count)}),
                   std::string(texts(button)),
                   {}});
}

/// What the exact rules would keep of a classic result, by what stands out most.
void addExact(std::vector<Hint>& hints, const Reading& result, const texts::Texts& texts) {
  if (!isClassic(result) || result.result.losses.empty()) return;
  const std::uint64_t outlines =
      countOf(result, LossRule::AreaArcs) + countOf(result, LossRule::BulgeInBlock);
  if (outlines > 0) {
    addCounted(hints, Offer::UseExact, outlines, TextId::HintArcsOfOutline,
               TextId::HintArcsOfOutlines, TextId::HintUseExact, texts);
    return;
  }
  const std::uint64_t all = std::accumulate(
      result.result.losses.begin(), result.result.losses.end(), std::uint64_t{0},
      [](std::uint64_t sum, const convert::NamedLoss& loss) { return sum + loss.count; });
  addCounted(hints, Offer::UseExact, all, TextId::HintThingKept, TextId::HintThingsKept,
             TextId::HintUseExact, texts);
}

/// Where outlines are open. The result's own findings count; classic ones have none.
void addGaps(std::vector<Hint>& hints, const Reading& result, const Reading* drawing,
             const texts::Texts& texts) {
  const Reading* const source = knowing(result, drawing);
  if (source == nullptr || !source->result.exact) return;
  const exact::OutlineReport& outlines = source->result.exact->outlines;
  if (outlines.gapCount == 0) return;
  addCounted(hints, Offer::ShowPlaces, outlines.gapCount, TextId::HintOpenEnd, TextId::HintOpenEnds,
             TextId::HintShow, texts);
  for (const exact::OpenEnd& gap : outlines.gaps) {
    hints.back().places.push_back(source->frame(gap.at));
  }
}

/// The tolerance with which open ends would meet; only the exact rules join any.
std::optional<convert::JoinOffer> joinOf(const Reading& result) {
  if (!result.result.exact) return std::nullopt;
  return convert::joinOfferOf(*result.result.exact);
}

void addJoin(std::vector<Hint>& hints, const Reading& result, const texts::Texts& texts) {
  const std::optional<convert::JoinOffer> offer = joinOf(result);
  if (!offer) return;
  hints.push_back(
      {Offer::JoinEnds,
       texts(TextId::HintJoin, {millimetreText(offer->millimetres), std::to_string(offer->ends)}),
       std::string(texts(TextId::HintJoinThem)),
       {}});
}

/// Around everything that the result draws, in units of its script.
geometry::Box boundsOf(const Reading& result) {
  const eagle::Extents& extents = result.result.extents;
  if (extents.empty()) return {};
  return {{extents.minX, extents.minY}, {extents.maxX, extents.maxY}};
}

double limitOf(const Reading& result) {
  if (result.result.exact) return result.result.exact->limit;
  return eagle::DrawingArea({result.job.unit}).limit();
}

/// Offsets with which everything is within EAGLE's area; none when it is too large, or when it is
/// within already.
std::optional<geometry::Point> offsetsInto(const Reading& result) {
  const geometry::Box box = boundsOf(result);
  const double limit = limitOf(result);
  if (!result.result.rangeWarning || box.empty()) return std::nullopt;
  const geometry::Point size = box.high - box.low;
  if (!(size.x <= 2.0 * limit && size.y <= 2.0 * limit)) return std::nullopt;
  const geometry::Point offsets{result.job.offsetX, result.job.offsetY};
  // A drawing that fits there starts at the origin, where boards do.
  const bool fits = size.x <= limit && size.y <= limit;
  return offsets - (fits ? box.low : geometry::middle(box.low, box.high));
}

void addOutside(std::vector<Hint>& hints, const Reading& result, const texts::Texts& texts) {
  if (!offsetsInto(result)) return;
  hints.push_back({Offer::MoveIntoArea,
                   std::string(texts(TextId::HintOutsideArea)),
                   std::string(texts(TextId::HintMove)),
                   {}});
}

std::string offsetText(double value) {
  return base::numberText(std::round(value * 10000.0) / 10000.0);
}

/// A scale that changes no size, but turns the drawing as the former one does.
std::string scaleWithoutSize(double former) {
  return (former < 0.0 ? "-" : "") + std::string(settings::kScaleInPlaceOfZero);
}

/// Takes a unit for the classic rules, which take a drawing's numbers as those of the script.
void takeForClassic(settings::Settings& settings, double millimetres, double formerScale) {
  settings.scale = scaleWithoutSize(formerScale);
  for (int i = 0; i < base::kUnitCount; ++i) {
    settings.unit = base::unitAt(i);
    if (isSameUnit(base::unitRecord(settings.unit).millimetres, millimetres)) return;
  }
  // EAGLE has no such unit.
  settings.unit = base::Unit::Mm;
  settings.scale = base::numberText(std::copysign(millimetres, formerScale));
}

void takeUnit(settings::Settings& settings, const Reading& result, const Reading* drawing) {
  const std::optional<double> unit = believedUnit(result, drawing);
  if (!unit) return;
  if (isClassic(result)) {
    takeForClassic(settings, *unit, result.job.scale);
  } else {
    settings.drawingUnit = convert::DrawingUnit::Auto;
  }
}

void useExact(settings::Settings& settings, const Reading& result, const Reading* drawing) {
  settings.rules = settings::kExactRules;
  const std::optional<double> unit = believedUnit(result, drawing);
  // These rules take the drawing's unit by themselves.
  if (unit && isSameUnit(*unit, lengthTaken(result))) {
    settings.scale = scaleWithoutSize(result.job.scale);
  }
  if (settings.version == convert::kEagle3) settings.version = convert::kEagle4;
}

}  // namespace

std::string unitText(const Reading& result, const Reading* drawing, const texts::Texts& texts) {
  if (knowing(result, drawing) == nullptr) return {};
  const std::optional<double> named = namedUnit(result, drawing);
  if (!named) return std::string(texts(TextId::UnitNotNamed));
  const std::string word(convert::wordOfUnit(*named));
  const bool believed = believedUnit(result, drawing).has_value();
  return texts(believed ? TextId::UnitNamed : TextId::UnitNamedHardly,
               {word.empty() ? base::numberText(*named) + " mm" : word});
}

bool namesAnotherUnit(const Reading& result, const Reading* drawing) {
  const std::optional<double> named = believedUnit(result, drawing);
  return named && !isSameUnit(*named, lengthTaken(result));
}

std::vector<Hint> hintsOf(const Reading& result, const Reading* drawing,
                          const texts::Texts& texts) {
  std::vector<Hint> hints;
  if (namesAnotherUnit(result, drawing)) {
    hints.push_back({Offer::TakeUnit,
                     unitText(result, drawing, texts),
                     std::string(texts(TextId::HintTakeUnit)),
                     {}});
  }
  addOutside(hints, result, texts);
  if (isClassic(result)) {
    addCounted(hints, Offer::DrawAsLines, countOf(result, LossRule::Filled),
               TextId::HintFilledOutline, TextId::HintFilledOutlines, TextId::HintDrawAsLines,
               texts);
  }
  addExact(hints, result, texts);
  addGaps(hints, result, drawing, texts);
  addJoin(hints, result, texts);
  return hints;
}

settings::Settings taken(Offer offer, const settings::Settings& settings, const Reading& result,
                         const Reading* drawing) {
  settings::Settings changed = settings;
  switch (offer) {
    case Offer::TakeUnit:
      takeUnit(changed, result, drawing);
      break;
    case Offer::DrawAsLines:
      changed.poly = 1;
      break;
    case Offer::UseExact:
      useExact(changed, result, drawing);
      break;
    case Offer::MoveIntoArea:
      if (const std::optional<geometry::Point> offsets = offsetsInto(result)) {
        changed.offsetX = offsetText(offsets->x);
        changed.offsetY = offsetText(offsets->y);
      }
      break;
    case Offer::JoinEnds:
      if (const std::optional<convert::JoinOffer> join = joinOf(result)) {
        changed.exact.joinTolerance = join->millimetres;
      }
      break;
    case Offer::ShowPlaces:
      break;
  }
  return changed;
}

}  // namespace quillon::workbench
