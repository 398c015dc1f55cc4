#pragma once

#include <emscripten/val.h>

#include <string>
#include <vector>

#include "preview/differences.h"
#include "workbench/hints.h"
#include "workbench/reading.h"

namespace quillon::web {

/// What was read so far; null for what was not.
struct ReadSoFar {
  const workbench::Reading* result = nullptr;
  const workbench::Reading* drawing = nullptr;
  const preview::Differences* differences = nullptr;
  std::string failure;  ///< why there is no result
};

/// `Facts` of engine.d.ts.
emscripten::val factsValue(const ReadSoFar& read, const texts::Texts& texts);

/// `Message[]` and `Loss[]` of engine.d.ts.
emscripten::val messageList(const std::vector<convert::Message>& messages);
emscripten::val lossList(const workbench::Reading& reading, const texts::Texts& texts);

/// The offer with this word; ShowPlaces, which changes nothing, for any other text.
workbench::Offer offerNamed(const std::string& word);

}  // namespace quillon::web
