#include "web/arrays.h"

namespace quillon::web {

emscripten::val textList(const std::vector<std::string>& texts) {
  return listOf(texts, [](const std::string& text) { return emscripten::val(text); });
}

emscripten::val colourValue(preview::Colour colour) {
  return emscripten::val(preview::hexText(colour));
}

}  // namespace quillon::web
