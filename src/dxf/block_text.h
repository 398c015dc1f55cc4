#pragma once

#include <string_view>

#include "dxf/entity_store.h"
#include "dxf/line_cursor.h"
#include "dxf/text_arena.h"

namespace quillon::dxf {

/// Keeps what entities need of a block's text: the texts of their slots, or all groups of those
/// with a side record. Of the rest, which is more than half of most blocks, line ends remain, so
/// that an entity's number of the line stays right.
class BlockText {
 public:
  /// `lines` must stay as they are until the end.
  BlockText(TextArena& arena, LineRange lines, char eol);

  /// Copies the texts of an entity, after those of the one before it, and points it to the copies.
  void keep(DxfEntity& entity);
  /// What has been kept, followed by the margin that a LineCursor needs.
  LineRange finish();

 private:
  /// Goes on at a position of the original, after the line ends before it.
  void leaveOutUpTo(const char* position);
  /// Where the copy starts.
  const char* copy(std::string_view text);

  TextArena& arena_;
  LineRange lines_;
  char eol_;
  const char* next_;  ///< in the original
  char* start_;
  char* out_;
};

}  // namespace quillon::dxf
