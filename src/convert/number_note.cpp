#include "convert/number_note.h"

#include "dxf/number_text.h"

namespace quillon::convert {

std::optional<NumberNote> noteOn(std::string_view name, std::string_view text) {
  if (dxf::textAfterNumber(text).empty()) return std::nullopt;
  return NumberNote{std::string(name), std::string(text), dxf::numberText(dxf::numberValue(text))};
}

}  // namespace quillon::convert
