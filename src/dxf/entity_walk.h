#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "dxf/drawing.h"
#include "dxf/group_cursor.h"
#include "dxf/line_counter.h"
#include "dxf/line_cursor.h"
#include "dxf/short_code.h"

namespace quillon::dxf {

/// Walks the lines of a block or of the ENTITIES section in pairs and finds the entities.
class EntityWalk {
 public:
  /// So many groups of an entity of the ENTITIES section are kept, in some 6 MB, if they will be
  /// read again: all of nearly every polyline.
  static constexpr std::size_t kMostKept = std::size_t{1} << 18;

  /// A walk over a block, up to the end of its lines.
  EntityWalk(Drawing& drawing, LineCursor lines) : drawing_(drawing), lines_(lines) {}
  /// A walk over a section, up to the end of the lines or the first line equal to `endMarker`.
  /// Numbers and empty lines in place of an entity's name are errors here. `goesOn`: the section
  /// may have more lines than these. Groups that will be read again are kept in `kept`, whose
  /// memory the next walk may use.
  EntityWalk(Drawing& drawing, LineCursor lines, std::string_view endMarker, bool goesOn,
             std::vector<Group>& kept)
      : drawing_(drawing), lines_(lines), endMarker_(endMarker), goesOn_(goesOn), kept_(&kept) {}

  /// Counts lines by this counter, for a block with this index or for none, so that places of
  /// entities that are not read are known.
  void countBy(LineCounter& counter, std::size_t block = OtherEntities::kNoBlock) {
    counter_ = &counter;
    block_ = block;
  }

  /// True after the end marker.
  bool ended() const { return ended_; }
  bool atEnd() const { return ended_ || lines_.atEnd(); }
  const char* position() const { return lines_.position(); }

  /// Reads one entity, or skips one pair and returns false. Throws RunTimeError when a group code
  /// is invalid, the lines end too early, or an entity of a section has no name.
  bool step(DxfEntity& entity);

  /// After an error: whether it occurred in an entity, or where an entity's name should be.
  bool failedInEntity() const { return inEntity_; }
  /// After an error: continues after the name of the failed entity, or after the place where its
  /// name should be.
  void skipFailedName() {
    lines_.seek(afterName_);
    afterZero_ = nullptr;
    ended_ = false;
  }
  /// Goes to the next "0" line that is followed by an entity name. False when the lines end first;
  /// the position is then the last line that might be such a "0".
  bool findNextEntity();

 private:
  struct Start {
    std::string_view code;
    const char* nameLine;
    std::string_view name;
  };

  inline Start takeStart();
  std::string_view nextCode();
  ShortCodeLine shortCode() const;
  std::string_view nextLine();
  bool isEndMarker(std::string_view line) const {
    return line.size() == endMarker_.size() && !line.empty() &&
           line.front() == endMarker_.front() && line == endMarker_;
  }
  bool isSection() const { return !endMarker_.empty(); }
  bool isOtherEntity(std::string_view name) const;
  void readGroups(DxfEntity& entity);
  void fillUsual(DxfEntity& entity);
  [[noreturn]] void failAtEndMarker(std::string_view value);
  template <bool kAreReadAgain>
  void fillSlots(DxfEntity& entity);
  void skipGroups(DxfEntity& entity);
  void checkEnd();
  void checkName();
  void noteUnknown(std::string_view name);

  Drawing& drawing_;
  LineCursor lines_;
  std::string_view endMarker_;  ///< "" in a block
  bool goesOn_ = false;
  std::array<Group, 64> split_;  ///< the groups of the last entity
  /// The first groups of the last entity whose groups are read twice; null in a block.
  std::vector<Group>* kept_ = nullptr;
  /// Where the line after the "0" line that comes next starts, if that is known; else null.
  const char* afterZero_ = nullptr;
  const char* afterName_ = nullptr;
  bool inEntity_ = false;
  bool ended_ = false;
  LineCounter* counter_ = nullptr;
  std::size_t block_ = OtherEntities::kNoBlock;
};

}  // namespace quillon::dxf
