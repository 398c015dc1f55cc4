#include "convert/number_note.h"

#include "base/number_text.h"

namespace quillon::convert {

std::optional<NumberNote> noteOn(std::string_view name, std::string_view text) {
  if (base::textAfterNumber(text).empty()) return std::nullopt;
  return NumberNote{std::string(name), std::string(text),
                    base::numberText(base::numberValue(text))};
}

}  // namespace quillon::convert
