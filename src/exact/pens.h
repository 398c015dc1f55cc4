#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text_hash.h"
#include "dxf/drawing.h"
#include "exact/entity.h"
#include "exact/layers.h"
#include "exact/options.h"
#include "exact/recent_texts.h"

namespace quillon::exact {

/// What the content of a block takes from its reference.
struct Inherited {
  const Layer* layer = nullptr;  ///< for content on layer 0; null outside of blocks
  std::string_view lineType{};   ///< for BYBLOCK, as a name; "" outside of blocks
  int lineWeight = -3;           ///< likewise; never by layer or block
};

/// Works out how the lines of entities look.
class Pens {
 public:
  Pens(const Options& options, const dxf::Drawing& drawing)
      : options_(options), measures_(options), drawing_(drawing) {}

  /// `map` is that of the entity; it enlarges dashes.
  Pen penOf(const Entity& entity, const Layer& layer, const Inherited& inherited,
            const Affine& map);
  /// What the content of a block takes over from a reference on this layer.
  Inherited inheritedFrom(const Entity& reference, const Layer& layer,
                          const Inherited& inherited) const;

 private:
  std::string_view lineTypeOf(const Entity& entity, const Layer& layer,
                              const Inherited& inherited) const;
  int lineWeightOf(const Entity& entity, const Layer& layer, const Inherited& inherited) const;
  double ltScale() const;
  /// A line type of the drawing.
  struct Pattern {
    std::vector<double> lengths;
    double total = 0.0;      ///< of scaled lengths without their signs; 0 where all is solid
    bool hasShapes = false;  ///< letters or symbols between the dashes
  };

  const Pattern& patternOf(std::string_view lineType) {
    const Pattern* const* const recent = recent_.find(lineType);
    return recent != nullptr ? **recent : searchedPatternOf(lineType);
  }
  const Pattern& searchedPatternOf(std::string_view lineType);

  const Options& options_;
  Measures measures_;
  const dxf::Drawing& drawing_;
  std::unordered_map<std::string_view, Pattern, base::TextHash> patterns_;
  RecentTexts<const Pattern*> recent_;
};

}  // namespace quillon::exact
