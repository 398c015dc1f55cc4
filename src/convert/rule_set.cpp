#include "convert/rule_set.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/encoding.h"
#include "classic/translator.h"
#include "exact/rule_set.h"

namespace quillon::convert {
namespace {

classic::Settings classicSettings(const ConversionJob& job, const dxf::Drawing& drawing) {
  classic::Settings settings;
  settings.dotted = job.dotted;
  settings.ellipses = job.ellipses;
  settings.arcRangeCheck = job.arcToLine;
  settings.poly = job.poly;
  settings.polyWidth = job.polyWidth;
  settings.angDir = drawing.angDir;
  settings.ltScale = drawing.ltScale;
  settings.pointSize = drawing.pointSize;
  settings.quarterTurns = job.targetKind == kSchematic || job.targetKind == kSymbol;
  return settings;
}

/// A name given by the user, as the drawing has it in upper case.
std::string nameInDrawing(std::string_view name, const dxf::Drawing& drawing) {
  return base::upperCase(base::fromUtf8(name, drawing.encoding), drawing.encoding);
}

}  // namespace

exact::Options exactOptions(const ConversionJob& job, double drawingUnit) {
  exact::Options options = job.exact;
  options.version = job.version == kEagle6 ? exact::Version::Eagle6 : exact::Version::Eagle4;
  options.target =
      isTarget(job.targetKind) ? static_cast<exact::Target>(job.targetKind) : exact::Target::Board;
  options.unit = job.unit == base::Unit::None ? base::Unit::Mm : job.unit;
  options.factor = drawingUnit / base::unitRecord(options.unit).millimetres * job.scale;
  if (!job.report && !job.allGaps) options.mostGaps = std::min(options.mostGaps, kGapsShown);
  constexpr int kWireOfWidth0 = 0;
  options.parts =
      (job.blocks == kUsedBlocksAsParts || job.blocks == kAllBlocksAsParts) &&
      (options.target == exact::Target::Board || options.target == exact::Target::Schematic);
  options.widthless = job.poly == kWireOfWidth0;
  return options;
}

RuleSet makeTranslation(const ConversionJob& job, const TranslationOutput& output,
                        dxf::Drawing& drawing, rules::LayerNumbers& layers, double drawingUnit) {
  geometry::Placement placement;
  placement.scaleX = placement.scaleY = job.scale;
  switch (job.rules) {
    case Rules::Classic:
      return {std::make_unique<classic::Translator>(
          classic::Context{output.commands, output.area, classicSettings(job, drawing),
                           output.cancelled},
          drawing, layers, placement)};
    case Rules::Exact: {
      exact::Options options = exactOptions(job, drawingUnit);
      for (std::string& layer : options.holeLayers) layer = nameInDrawing(layer, drawing);
      auto rules = std::make_unique<exact::RuleSet>(
          options, output.commands, drawing, layers, output.cancelled,
          geometry::Affine::scaling(options.factor, options.factor));
      exact::RuleSet* const exactRules = rules.get();
      return {std::move(rules), exactRules, options.parts};
    }
  }
  throw std::invalid_argument("no such set of rules");
}

}  // namespace quillon::convert
