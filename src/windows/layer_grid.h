#pragma once

#include <QTableWidget>
#include <functional>

#include "settings/layer_rows.h"
#include "windows/app_context.h"

namespace quillon::windows {

/// The table of the layer editor: DXF layers and their EAGLE layers, with as many rows as a file
/// can have. Displays LayerRows and applies edits to it.
class LayerGrid : public QTableWidget {
 public:
  static constexpr int kName = 0;
  static constexpr int kLayer = 1;

  LayerGrid(AppContext& context, settings::LayerRows& rows, QWidget* parent);

  /// Sets the header from the string table.
  void loadResources();
  /// Updates all rows.
  void refresh();
  /// Commits an open edit.
  void commit();
  /// Pastes lines into the rows from the selection on: name, tab, layer; or a single column.
  void pasteText(const QString& text);
  QString selectedText() const;
  void cut();
  void copy();
  void paste();
  void clearSelectedRows();
  /// Opens the list of EAGLE layers in the current row; the choice applies to all selected rows.
  void chooseLayer();
  void undo();

  std::function<void()> onChanged;  ///< after the table has changed

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;

 private:
  /// What faults of this window are reported as.
  static constexpr std::string_view kModule = "grdLayers";

  void pressKey(QKeyEvent* event);
  void showMenu(const QContextMenuEvent& event);
  bool isChoiceForSelection(const QMouseEvent& event) const;
  void cellEdited(int row, int column);
  void warnOfDuplicate();
  QList<int> selectedRows() const;
  void changed();
  void moveDown();

  AppContext& context_;
  settings::LayerRows& rows_;
  bool refreshing_ = false;
  bool choosing_ = false;  ///< a click opens the list for the selected rows and keeps the selection
  int uncheckedRow_ = -1;  ///< row whose name may be a duplicate, or -1
};

}  // namespace quillon::windows
