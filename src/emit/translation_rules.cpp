#include "emit/translation_rules.h"

#include "dxf/number_text.h"

namespace quillon::emit {

bool TranslationRules::isNegativeText(std::string_view text) const {
  constexpr double kSmallest = 1e-5;
  return text.find('-') != std::string_view::npos && std::fabs(dxf::numberValue(text)) >= kSmallest;
}

}  // namespace quillon::emit
