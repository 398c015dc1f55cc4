#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "dxf/entities.h"
#include "rules/losses.h"

namespace quillon::exact {

using rules::LossList;
using rules::LossRule;

/// Finds insertions that a CAD program shows only within a boundary. The extension dictionary of
/// such an INSERT has an entry ACAD_FILTER: a dictionary with an entry SPATIAL. Dictionaries come
/// after all entities, in any order.
class ClipFilters final : public dxf::ObjectSink {
 public:
  explicit ClipFilters(LossList& losses) : losses_(losses) {}

  /// An insertion with an extension dictionary of this handle was drawn.
  void note(std::string_view dictionary, const LossList::Event& insertion);
  /// Nothing has to be looked up.
  bool empty() const { return insertions_.empty(); }

  void takeGroup(int code, std::string_view value) override;
  /// Names the insertions that are clipped.
  void endOfObjects() override;

 private:
  struct Insertions {
    LossList::Event first;
    std::uint64_t count = 0;
  };

  LossList& losses_;
  std::map<std::string, Insertions, std::less<>> insertions_;  ///< by handle of the dictionary

  // The object being read.
  bool isDictionary_ = false;
  std::string handle_;
  std::string entry_;

  std::map<std::string, std::string> filters_;  ///< handle of a dictionary, and of its filters
  std::set<std::string> clipping_;              ///< handles of dictionaries with an entry SPATIAL
};

}  // namespace quillon::exact
