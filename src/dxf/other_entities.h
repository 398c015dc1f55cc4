#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <set>
#include <span>
#include <string_view>
#include <tuple>
#include <vector>

#include "dxf/text_arena.h"

namespace quillon::dxf {

/// Where entities are of chosen kinds that are not read. They are counted by kind, layer and place.
class OtherEntities {
 public:
  static constexpr std::size_t kNoBlock = std::numeric_limits<std::size_t>::max();

  struct Group {
    std::string_view name;
    std::string_view layer;  ///< as found
    std::size_t block = kNoBlock;
    bool isInPaperSpace = false;
    std::uint64_t count = 0;
    std::uint64_t line = 0;  ///< of the first one
  };

  explicit OtherEntities(TextArena& arena) : arena_(arena) {}

  /// The names to be looked for, which have to outlive this. Without any, nothing is counted.
  void want(std::span<const std::string_view> names) { wanted_ = names; }

  /// At the name after a group 0, which ends the entity before; true when it is wanted: then its
  /// place has to follow.
  bool begin(std::string_view name);
  void place(std::size_t block, std::uint64_t line);
  /// One of its groups.
  void visit(std::string_view code, std::string_view value) {
    if (isOpen_) take(code, value);
  }
  /// Ends the last one.
  void finish();

  /// In the order of first occurrence.
  const std::vector<Group>& all() const { return groups_; }

 private:
  using Key = std::tuple<std::size_t, std::string_view, std::string_view, bool>;

  void take(std::string_view code, std::string_view value);

  TextArena& arena_;
  std::span<const std::string_view> wanted_;
  std::vector<Group> groups_;
  std::map<Key, std::size_t> index_;
  std::set<std::string_view> layers_;
  Group open_;
  bool isOpen_ = false;
  bool isInvisible_ = false;
};

}  // namespace quillon::dxf
