#pragma once

#include <emscripten/val.h>

#include <cstddef>
#include <string>
#include <vector>

#include "preview/palette.h"

namespace quillon::web {

/// A typed array with a buffer of its own.
template <typename Number>
emscripten::val typedArray(const std::vector<Number>& numbers) {
  return emscripten::val(emscripten::typed_memory_view(numbers.size(), numbers.data()))
      .template call<emscripten::val>("slice");
}

/// A list of what `valueOf` makes of each item.
template <typename Items, typename ValueOf>
emscripten::val listOf(const Items& items, const ValueOf& valueOf) {
  emscripten::val list = emscripten::val::array();
  std::size_t count = 0;
  for (const auto& item : items) list.set(count++, valueOf(item));
  return list;
}

emscripten::val textList(const std::vector<std::string>& texts);

/// "#rrggbb"
emscripten::val colourValue(preview::Colour colour);

}  // namespace quillon::web
