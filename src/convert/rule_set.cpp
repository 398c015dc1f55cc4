#include "convert/rule_set.h"

#include <stdexcept>

#include "classic/translator.h"

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
  return settings;
}

}  // namespace

std::unique_ptr<rules::Translation> makeTranslation(const ConversionJob& job,
                                                    const TranslationOutput& output,
                                                    dxf::Drawing& drawing,
                                                    rules::LayerNumbers& layers) {
  geometry::Placement placement;
  placement.scaleX = placement.scaleY = job.scale;
  switch (job.rules) {
    case Rules::Classic:
      return std::make_unique<classic::Translator>(
          classic::Context{output.commands, output.area, classicSettings(job, drawing),
                           output.cancelled},
          drawing, layers, placement);
  }
  throw std::invalid_argument("no such set of rules");
}

}  // namespace quillon::convert
