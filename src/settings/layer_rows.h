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

/// The table of the layer editor: assignments of DXF layers to EAGLE layers, as displayed.
class LayerRows {
 public:
  static constexpr std::size_t kMostRows = 490;

  explicit LayerRows(const texts::Texts& texts);

  /// The EAGLE layers to choose from.
  const std::vector<std::string>& entries() const { return entries_; }
  /// A row as displayed.
  const convert::LayerRow& row(std::size_t index) const { return rows_[index]; }
  /// True when there are unsaved changes.
  bool modified() const { return modified_; }
  /// Number of assignments in the file that did not fit in the table.
  std::size_t leftOut() const { return leftOut_; }

  void clear();
  /// Loads the assignments of a file.
  void load(const std::vector<convert::LayerRow>& rows);
  /// All rows, for saving.
  std::vector<convert::LayerRow> rows() const;
  void setSaved() {
    modified_ = false;
    leftOut_ = 0;
  }

  /// Names the DXF layer of a row. For another layer, closed polylines no longer become areas.
  void setName(std::size_t index, const std::string& name);
  /// Sets the layer: an entry, or a text that starts with a number, which becomes the entry of that
  /// number if there is one; "" clears it. False, without a change, for any other text.
  bool setLayer(std::size_t index, const std::string& layer);
  /// True for a text that setLayer() accepts.
  bool isLayer(const std::string& text) const { return typedLayer(text).has_value(); }
  void clearRow(std::size_t index);
  /// Adds names that the table lacks, each in the first row without a name.
  void take(const std::vector<std::string>& names);

  /// True when another row has the same name, ignoring case.
  bool isDuplicate(std::size_t index) const;
  using Names = std::unordered_set<std::string, base::TextHash>;
  /// The names in the table, case-folded.
  Names assignedNames() const;
  static std::string foldedName(const std::string& name);

  /// Marks the state that undo() returns to.
  void beginChange();
  bool canUndo() const { return !history_.empty(); }
  /// Undoes the last change. False when there is none.
  bool undo();

 private:
  struct Row : convert::LayerRow {
    std::string number;  ///< from the file, until the layer is edited
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
