#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "dxf/entity_store.h"
#include "dxf/line_cursor.h"

namespace quillon::dxf {

// What a drawing's definitions hold. All texts are views into the drawing's arena.

struct LineTypeRec {
  std::string_view name;         ///< upper-cased
  std::string_view totalLength;  ///< of its dashes and gaps
  std::string_view dashes;       ///< their lengths, each with ";"
  std::size_t number = 0;        ///< among the drawing's line types
};

struct LayerRec {
  std::string_view name;  ///< upper-cased
  /// As a number; negative for a layer that is off. Kept for rules that leave such layers out; the
  /// classic ones draw them.
  std::string_view colour;
  std::string_view lineType;  ///< as found
  std::string_view flags{};   ///< as a number; odd for a frozen layer, which the classic rules draw
};

/// A block definition. Texts as found, the name upper-cased.
struct BlockRec {
  std::string_view name;
  std::string_view baseX;
  std::string_view baseY;
  EntityList items;
  LineRange text;               ///< its lines; see BlockText for rules that read slots
  std::uint64_t firstLine = 0;  ///< the file's line number of the first of them

  /// Line number (from 1) in the file of a position in the text; 0 for any other position.
  std::uint64_t lineAt(const char* position, char eol) const;

  /// True for blocks that hold a layout and are not parts. Judged by the beginning of the name
  /// alone, so that scripts stay the same.
  bool isLayout() const;
};

}  // namespace quillon::dxf
