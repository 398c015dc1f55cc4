#include "exact/pens.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <string>

#include "base/encoding.h"
#include "base/number_text.h"
#include "dxf/group_cursor.h"

namespace quillon::exact {
namespace {

constexpr int kByLayer = -1;
constexpr int kByBlock = -2;
constexpr double kDefaultWeight = 0.25;  // millimetres

/// The length of a pattern; 0 for one of dashes and dots, or of gaps, alone, which is solid.
double totalOf(const std::vector<double>& pattern, bool hasShapes) {
  const auto isGap = [](double length) { return length < 0.0; };
  const auto gaps = std::count_if(pattern.begin(), pattern.end(), isGap);
  if (!hasShapes && (gaps == 0 || gaps == std::ssize(pattern))) return 0.0;
  return std::accumulate(pattern.begin(), pattern.end(), 0.0,
                         [](double sum, double length) { return sum + std::fabs(length); });
}

/// EAGLE's style nearest to a pattern: dots make it DashDot, else the length of the first dash
/// decides.
Style styleOf(const std::vector<double>& pattern, double longest) {
  if (pattern.empty()) return Style::Continuous;
  if (std::find(pattern.begin(), pattern.end(), 0.0) != pattern.end()) return Style::DashDot;
  const auto dash =
      std::find_if(pattern.begin(), pattern.end(), [](double length) { return length > 0.0; });
  if (dash == pattern.end()) return Style::Continuous;
  return *dash > longest ? Style::LongDash : Style::ShortDash;
}

}  // namespace

Pen Pens::penOf(const Entity& entity, const Layer& layer, const Inherited& inherited,
                const Affine& map) {
  Pen pen;
  pen.width = options_.lineWidth;
  pen.fillsClosed = options_.closedAsAreas || layer.hasAreas;
  if (options_.lineWeights) {
    const int weight = lineWeightOf(entity, layer, inherited);
    const double millimetres = weight >= 0 ? weight / 100.0 : kDefaultWeight;
    pen.width = millimetres * measures_.millimetre;
  }
  const Pattern& pattern = patternOf(lineTypeOf(entity, layer, inherited));
  if (pattern.lengths.empty()) return pen;
  pen.patternLength = pattern.total * std::fabs(entity.lineTypeScale) * map.scale();
  if (options_.lineTypes == LineTypes::Solid) {
    pen.hasSolidInstead = pen.patternLength > 0.0;
    return pen;
  }
  // Shorter dashes than this look like EAGLE's short ones.
  constexpr double kLongDash = 3.0;  // millimetres
  const double factor = ltScale() * entity.lineTypeScale * map.scale();
  std::vector<double> dashes;
  dashes.reserve(pattern.lengths.size());
  for (const double length : pattern.lengths) dashes.push_back(length * factor);
  pen.lacksShapes = pattern.hasShapes;
  switch (options_.lineTypes) {
    case LineTypes::Solid:
      break;
    case LineTypes::Style:
      pen.style = styleOf(dashes, kLongDash * measures_.millimetre);
      break;
    case LineTypes::Dashes:
      pen.dashes = std::move(dashes);
      break;
  }
  return pen;
}

double Pens::ltScale() const { return drawing_.ltScale == dxf::kNotGiven ? 1.0 : drawing_.ltScale; }

Inherited Pens::inheritedFrom(const Entity& reference, const Layer& layer,
                              const Inherited& inherited) const {
  return {&layer, lineTypeOf(reference, layer, inherited),
          lineWeightOf(reference, layer, inherited)};
}

std::string_view Pens::lineTypeOf(const Entity& entity, const Layer& layer,
                                  const Inherited& inherited) const {
  if (entity.lineType.empty() || entity.lineType == "BYLAYER") return layer.use.lineType;
  return entity.lineType == "BYBLOCK" ? inherited.lineType : entity.lineType;
}

int Pens::lineWeightOf(const Entity& entity, const Layer& layer, const Inherited& inherited) const {
  if (entity.lineWeight == kByLayer) return layer.lineWeight;
  return entity.lineWeight == kByBlock ? inherited.lineWeight : entity.lineWeight;
}

const Pens::Pattern& Pens::searchedPatternOf(std::string_view lineType) {
  const auto found = patterns_.find(lineType);
  if (found != patterns_.end()) return *recent_.keep(found->first, &found->second);
  const std::string upper = base::upperCase(lineType, drawing_.encoding);
  const dxf::LineRange range = drawing_.tableEntries.find("LTYPE", upper);
  Pattern& pattern = patterns_[lineType];
  if (range.begin == nullptr) return pattern;
  dxf::GroupCursor groups(dxf::LineCursor(range, drawing_.lineEnds));
  for (dxf::Group group; groups.next(group);) {
    const double number = base::numberValue(group.value);
    if (group.code == 49) pattern.lengths.push_back(number);
    if (group.code == 74) pattern.hasShapes = pattern.hasShapes || number != 0.0;
  }
  pattern.total = totalOf(pattern.lengths, pattern.hasShapes) * std::fabs(ltScale());
  return pattern;
}

}  // namespace quillon::exact
