#pragma once

#include <string>

#include "exact_drawing.h"

namespace quillon::testing {

/// The losses of a drawing by their names, without that of all texts: "text-turned text-cut".
inline std::string textLosses(const ExactDrawing& drawing) {
  std::string names;
  for (const rules::Loss& loss : drawing.lossList().all()) {
    if (loss.rule == exact::LossRule::TextShapes) continue;
    if (!names.empty()) names += " ";
    names += rules::wordOf(loss.rule);
  }
  return names;
}

inline std::string textLosses(std::string_view name, const GroupPairs& groups,
                              const exact::Options& options = {}) {
  return textLosses(ExactDrawing(oneEntity(name, groups), options));
}

/// Options for an EAGLE without alignment of texts.
inline exact::Options forEagle4() {
  exact::Options options;
  options.version = exact::Version::Eagle4;
  return options;
}

inline exact::Options forSchematic() {
  exact::Options options;
  options.target = exact::Target::Schematic;
  return options;
}

}  // namespace quillon::testing
