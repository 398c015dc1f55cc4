#pragma once

#include <array>
#include <string_view>
#include <unordered_map>

#include "base/text_hash.h"
#include "dxf/drawing.h"
#include "exact/entity.h"
#include "exact/recent_texts.h"

namespace quillon::exact {

/// Reads what all kinds of entities have in common, and keeps their names.
class EntityReader {
 public:
  explicit EntityReader(dxf::Drawing& drawing);

  Entity read(const dxf::DxfEntity& found);

  /// The name in upper case, kept as long as the drawing.
  std::string_view upperName(std::string_view name) {
    const std::string_view* const recent = recentUpperNames_.find(name);
    return recent != nullptr ? *recent : searchedUpperName(name);
  }

 private:
  struct Name {
    std::string_view text;  ///< kept
    Kind kind;
  };
  std::string_view searchedUpperName(std::string_view name);
  Name nameOf(const dxf::DxfEntity& found);
  Name keptName(std::string_view name);
  /// A group that all kinds have in common; `classes` are those of the entity's data so far.
  void take(const dxf::Group& group, int& classes, Entity& entity);

  dxf::Drawing& drawing_;
  std::unordered_map<std::string_view, std::string_view, base::TextHash> upperNames_;
  std::array<Name, dxf::kEntityKindCount> namesOfKinds_;
  std::unordered_map<std::string_view, Name, base::TextHash> names_;  ///< of no such kind
  RecentTexts<std::string_view> recentUpperNames_;
  RecentTexts<Name> recentNames_;
};

}  // namespace quillon::exact
