#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "base/text_hash.h"
#include "convert/layer_file.h"
#include "texts/string_table.h"

namespace quillon::settings {

/// The table of the layer editor: assignments of DXF layers to EAGLE layers, as they are shown.
class LayerRows {
 public:
  static constexpr std::size_t kMostRows = 490;

  explicit LayerRows(const texts::Texts& texts);

  /// The entries of EAGLE's layers to choose from.
  const std::vector<std::string>& entries() const { return entries_; }
  /// A row as it is shown.
  const convert::LayerRow& row(std::size_t index) const { return rows_[index]; }
  /// True once something was changed that is not saved.
  bool modified() const { return modified_; }
  /// Number of assignments of the file that find no room in the table.
  std::size_t leftOut() const { return leftOut_; }

  void clear();
  /// Shows the assignments of a file.
  void load(const std::vector<convert::LayerRow>& rows);
  /// All rows, for saving.
  std::vector<convert::LayerRow> rows() const;
  void setSaved() {
    modified_ = false;
    leftOut_ = 0;
  }

  void setName(std::size_t index, const std::string& name);
  /// Sets the layer: an entry, or a text that begins with a number, which becomes its entry where
  /// there is one; "" clears it. False, and nothing changes, for any other text.
  bool setLayer(std::size_t index, const std::string& layer);
  /// True for a text that setLayer() takes in any row.
  bool isLayer(const std::string& text) const { return typedLayer(text).has_value(); }
  void clearRow(std::size_t index);
  /// Adds names that are not in the table yet, each in the first row without a name.
  void take(const std::vector<std::string>& names);

  /// True when another row has the name of this one, in any case.
  bool isDuplicate(std::size_t index) const;
  using Names = std::unordered_set<std::string, base::TextHash>;
  /// The names in the table, in the form that ignores their case.
  Names assignedNames() const;
  static std::string foldedName(const std::string& name);

  /// Marks the state that undo goes back to.
  void beginChange();
  bool canUndo() const { return !history_.empty(); }
  /// Goes back before the last change. False when there is none.
  bool undo();

 private:
  struct Row : convert::LayerRow {
    std::string number;  ///< of the file, as long as the layer is not edited
  };
  using Rows = std::array<Row, kMostRows>;

  std::string entryOf(const std::string& layer) const;
  std::optional<std::string> typedLayer(const std::string& text) const;
  std::vector<std::string> entries_;
  Rows rows_;
  std::vector<Rows> history_;
  bool modified_ = false;
  std::size_t leftOut_ = 0;
};

}  // namespace quillon::settings
