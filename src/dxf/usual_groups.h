#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "dxf/entity_kinds.h"
#include "dxf/line_cursor.h"

namespace quillon::dxf {

/// A code line that is expected, and where the value after it goes.
struct UsualGroup {
  /// As it is loaded from memory: what the end of the line before it has left, blanks, digits and
  /// the character that ends the line. Without a mask, nothing is equal to this.
  std::uint64_t text = 1;
  std::uint64_t mask = 0;    ///< of the characters that count; none where nothing is expected
  std::uint32_t filled = 0;  ///< as DxfEntity::filled, by the groups before this one
  std::uint8_t length = 0;   ///< in characters
  std::uint8_t place = 0;    ///< a slot, or UsualGroups::kNoPlace

  /// Whether this line is at a position, from which kUsualRoom characters are left.
  [[gnu::always_inline]] bool isAt(const char* position) const {
    std::uint64_t word = 0;
    std::memcpy(&word, position, sizeof word);
    return (word & mask) == text;
  }
  bool isNothing() const { return mask == 0; }
};
inline constexpr std::size_t kUsualRoom = sizeof(UsualGroup::text);

/// The groups that entities of one kind start with. Programs write those of a kind in the same
/// order again and again, so that code lines need not be read but only compared.
class UsualGroups {
 public:
  /// Where values without a slot go: behind the slots.
  static constexpr std::size_t kNoPlace = kMaxSlots;

  /// The first one. After the usual ones there is one that is at no position.
  const UsualGroup* begin() const { return groups_.data(); }
  /// The code line after them, if it is known.
  const UsualGroup& next() const { return next_; }
  /// Whether that is the "0" line that ends the entity.
  bool areAll() const { return areAll_; }

  /// To be called for an entity that had the usual groups and the code line after them.
  void noteHit() { misses_ = 0; }
  /// For any other one: true if it is time to learn().
  bool noteMiss() { return ++misses_ >= kMostMisses; }
  /// Expects from now on what the entity with these lines has: up to a group that gives marks or
  /// whose code line is unusual, and not too many.
  void learn(LineCursor lines, const SlotLayout& layout);

 private:
  static constexpr std::size_t kMost = 24;
  static constexpr unsigned kMostMisses = 8;

  std::array<UsualGroup, kMost + 1> groups_;
  UsualGroup next_;
  bool areAll_ = false;
  unsigned misses_ = kMostMisses - 1;  ///< in a row; the first entity is learned from
};

}  // namespace quillon::dxf
