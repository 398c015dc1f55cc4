#pragma once

#include <deque>
#include <string_view>
#include <unordered_map>

#include "base/text_hash.h"
#include "dxf/drawing.h"
#include "exact/recent_texts.h"
#include "rules/translation.h"

namespace quillon::exact {

/// A layer of the drawing, as its table has it; one that the table does not have shows everything.
struct Layer {
  dxf::LayerUse use;
  bool isOff = false;
  bool isFrozen = false;
  int lineWeight = -3;    ///< hundredths of a millimetre, or -3 for the default
  int number = 0;         ///< of EAGLE, or kNotConverted
  bool hasAreas = false;  ///< closed polylines become areas
};

/// The layers that entities are on, each looked up once.
class Layers {
 public:
  Layers(const dxf::Drawing& drawing, rules::LayerNumbers& numbers)
      : drawing_(drawing), numbers_(numbers) {}

  /// By a name in upper case that is kept as long as the drawing.
  const Layer& find(std::string_view upperName) {
    const Layer* const* const recent = recent_.find(upperName);
    return recent != nullptr ? **recent : search(upperName);
  }

 private:
  const Layer& search(std::string_view upperName);
  Layer make(std::string_view upperName) const;

  const dxf::Drawing& drawing_;
  rules::LayerNumbers& numbers_;
  std::deque<Layer> layers_;
  std::unordered_map<std::string_view, const Layer*, base::TextHash> index_;
  RecentTexts<const Layer*> recent_;
};

}  // namespace quillon::exact
