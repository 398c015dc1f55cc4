#pragma once

#include <map>
#include <string_view>
#include <utility>

#include "base/encoding.h"
#include "dxf/line_cursor.h"
#include "dxf/text_arena.h"

namespace quillon::dxf {

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

  using Key = std::pair<std::string_view, std::string_view>;
  const std::map<Key, LineRange>& all() const { return entries_; }

 private:
  std::map<Key, LineRange> entries_;
};

}  // namespace quillon::dxf
