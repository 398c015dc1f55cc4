#pragma once

#include <QTableWidget>
#include <functional>

#include "settings/layer_rows.h"
#include "windows/app_context.h"

namespace quillon::windows {

/// The table of the layer editor: the DXF layer and its EAGLE layer, in as many rows as a file can
/// have. Shows LayerRows and puts edits into it.
class LayerGrid : public QTableWidget {
 public:
  static constexpr int kName = 0;
  static constexpr int kLayer = 1;

  LayerGrid(AppContext& context, settings::LayerRows& rows, QWidget* parent);

  /// Sets the header from the string table.
  void loadResources();
  /// Shows all rows anew.
  void refresh();
  /// Ends an edit that is going on, with its text in the cell.
  void commit();
  /// Puts lines into the rows from the selection on: name, tab, layer; or one column.
  void pasteText(const QString& text);
  QString selectedText() const;
  void cut();
  void copy();
  void paste();
  void clearSelectedRows();
  /// Opens the list of EAGLE layers in the current row; the choice goes to all selected rows.
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
  bool choosing_ = false;  ///< a click opens the list for the selected rows, which stay
  int uncheckedRow_ = -1;  ///< whose name may be used already, or -1
};

}  // namespace quillon::windows
