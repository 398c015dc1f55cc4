#pragma once

#include <bitset>
#include <cstdint>
#include <memory>

#include "preview/differences.h"
#include "preview/palette.h"
#include "preview/scene.h"

namespace quillon::windows {

/// What a picture is made of; any of them may be null. They do not change.
struct PictureScenes {
  std::shared_ptr<const preview::Scene> result;
  std::shared_ptr<const preview::Scene> drawing;
  std::shared_ptr<const preview::Differences> differences;

  bool operator==(const PictureScenes&) const = default;
};

enum class PictureMode : std::uint8_t {
  Result,   ///< in the colours of EAGLE's layers
  Drawing,  ///< in one colour
  Both,     ///< the result over the pale drawing, and the differences over both
};

struct PictureStyle {
  PictureMode mode = PictureMode::Result;
  preview::Theme theme = preview::Theme::Light;
  std::bitset<256> hidden{};  ///< layers of the result
  double hairline = 1.0;      ///< pixels of the width of lines without one
};

/// All that decides what a picture looks like. Workers share it; each change makes a new one.
struct PictureContent {
  PictureScenes scenes;
  PictureStyle style;

  /// Null where the mode does not show it.
  const preview::Scene* shownResult() const {
    return style.mode == PictureMode::Drawing ? nullptr : scenes.result.get();
  }
  const preview::Scene* shownDrawing() const {
    return style.mode == PictureMode::Result ? nullptr : scenes.drawing.get();
  }
  const preview::Differences* shownDifferences() const {
    return style.mode == PictureMode::Both ? scenes.differences.get() : nullptr;
  }
  bool isHidden(int layer) const {
    return layer >= 0 && layer < static_cast<int>(style.hidden.size()) &&
           style.hidden[static_cast<std::size_t>(layer)];
  }
};

}  // namespace quillon::windows
