#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <utility>

#include "base/encoding.h"
#include "dxf/line_cursor.h"
#include "dxf/text_arena.h"

namespace quillon::dxf {

/// The number of a handle; 0 for what is none.
std::uint64_t handleValue(std::string_view text);

/// The groups of named entries of tables, such as layers and dimension styles, to be read on
/// demand.
class TableEntries {
 public:
  /// Keeps the entries of one TABLE, from the line after "TABLE" up to and including "ENDTAB". The
  /// first one of a name counts. What is no group ends the table without an error: the parsers of
  /// the tables that matter name it.
  void add(LineRange table, const LineEnds& ends, base::Encoding encoding, TextArena& arena);

  /// The groups of an entry, up to and including the "0" line after them; empty when there is none.
  /// `type` as in the drawing ("LAYER"), `name` in upper case.
  LineRange find(std::string_view type, std::string_view name) const;

  /// The name of the entry of this type with a handle, a hexadecimal number; empty when there is
  /// none.
  std::string_view nameOf(std::string_view type, std::string_view handle) const;

  using Key = std::pair<std::string_view, std::string_view>;
  const std::map<Key, LineRange>& all() const { return entries_; }

 private:
  std::map<Key, LineRange> entries_;
  std::map<std::pair<std::string_view, std::uint64_t>, std::string_view> names_;
};

}  // namespace quillon::dxf
