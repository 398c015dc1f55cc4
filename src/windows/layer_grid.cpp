#include "windows/layer_grid.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <set>
#include <utility>

#include "windows/layer_colours.h"
#include "windows/layer_delegate.h"
#include "windows/trap.h"

namespace quillon::windows {
namespace {

using texts::TextId;

constexpr int kRowCount = static_cast<int>(settings::LayerRows::kMostRows);

/// An entry of the menus that Qt gives its text fields, in the language of the windows.
QString qtText(const char* entry) {
  return QCoreApplication::translate("QWidgetTextControl", entry);
}

std::size_t at(int row) { return static_cast<std::size_t>(row); }

/// The captions in a header format, in which "^" centres a column and "|" separates columns.
QStringList headerCaptions(QString format) {
  QStringList captions;
  for (const QString& part : format.remove('^').split('|')) captions << part.trimmed();
  return captions;
}

}  // namespace

LayerGrid::LayerGrid(AppContext& context, settings::LayerRows& rows, QWidget* parent)
    : QTableWidget(kRowCount, 2, parent), context_(context), rows_(rows) {
  setObjectName("grdLayers");
  setItemDelegate(new LayerDelegate(rows, this));
  for (int row = 0; row < kRowCount; ++row) {
    for (const int column : {kName, kLayer}) setItem(row, column, new QTableWidgetItem);
  }
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  setTabKeyNavigation(false);
  connect(this, &QTableWidget::cellChanged, this, [this](int row, int column) {
    attempt(context_, kModule, "cellEdited", [this, row, column] { cellEdited(row, column); });
  });
}

void LayerGrid::loadResources() {
  setHorizontalHeaderLabels(headerCaptions(context_.text(TextId::EditorHeader)));
}

void LayerGrid::refresh() {
  refreshing_ = true;
  for (int row = 0; row < kRowCount; ++row) {
    const convert::LayerRow& shown = rows_.row(at(row));
    const QString layer = toQt(shown.layer);
    if (item(row, kName)->text() != toQt(shown.name)) item(row, kName)->setText(toQt(shown.name));
    QTableWidgetItem* const cell = item(row, kLayer);
    if (cell->text() != layer) cell->setText(layer);
    // A typed or chosen text is already in the cell, but its swatch is not.
    if (cell->data(Qt::UserRole).toString() == layer) continue;
    cell->setData(Qt::UserRole, layer);
    cell->setIcon(layerSwatch(layer));
  }
  refreshing_ = false;
}

void LayerGrid::commit() {
  if (state() == EditingState) {
    // Moving the current cell commits the edit.
    const int column = currentColumn();
    setCurrentCell(currentRow(), column == kName ? kLayer : kName);
    setCurrentCell(currentRow(), column);
  }
  warnOfDuplicate();
}

void LayerGrid::cellEdited(int row, int column) {
  if (refreshing_) return;
  const std::string text = fromQt(item(row, column)->text());
  rows_.beginChange();
  if (column == kName) {
    rows_.setName(at(row), text);
    // Warn after the cell has been left, unless commit() does so first.
    uncheckedRow_ = row;
    QMetaObject::invokeMethod(
        this, trapped(context_, kModule, "warnOfDuplicate", [this] { warnOfDuplicate(); }),
        Qt::QueuedConnection);
  } else {
    // All selected rows get the layer.
    const QList<int> selected = selectedRows();
    const bool taken = rows_.setLayer(at(row), text);
    if (!taken) QApplication::beep();
    if (taken && selected.contains(row)) {
      for (const int other : selected) rows_.setLayer(at(other), text);
    }
  }
  changed();
}

void LayerGrid::warnOfDuplicate() {
  const int row = std::exchange(uncheckedRow_, -1);
  if (row < 0 || !rows_.isDuplicate(at(row))) return;
  QMessageBox::critical(this, context_.text(TextId::EditorErrorTitle),
                        context_.text(TextId::EditorLayerNameTaken));
}

QList<int> LayerGrid::selectedRows() const {
  std::set<int> rows;
  for (const QModelIndex& index : selectedIndexes()) rows.insert(index.row());
  return {rows.begin(), rows.end()};
}

QString LayerGrid::selectedText() const {
  std::set<int> columns;
  for (const QModelIndex& index : selectedIndexes()) columns.insert(index.column());
  QString text;
  for (const int row : selectedRows()) {
    QStringList cells;
    for (const int column : columns) cells << item(row, column)->text();
    text += cells.join('\t') + '\n';
  }
  return text;
}

void LayerGrid::pasteText(const QString& text) {
  rows_.beginChange();
  const QList<int> selected = selectedRows();
  int row = selected.isEmpty() ? std::max(currentRow(), 0) : selected.front();
  QStringList lines = QString(text).remove('\r').split('\n');
  if (lines.back().isEmpty()) lines.pop_back();
  bool taken = true;
  for (const QString& line : lines) {
    if (row == kRowCount) break;
    const QStringList cells = line.split('\t');
    // A single column goes into the current one; two are names and layers.
    const bool layersOnly = cells.size() == 1 && currentColumn() == kLayer;
    if (!layersOnly) rows_.setName(at(row), fromQt(cells.front().trimmed()));
    if (layersOnly || cells.size() > 1) {
      taken = rows_.setLayer(at(row), fromQt(cells.last().trimmed())) && taken;
    }
    if (rows_.isDuplicate(at(row))) uncheckedRow_ = row;
    ++row;
  }
  if (!taken) QApplication::beep();
  changed();
  warnOfDuplicate();
}

void LayerGrid::clearSelectedRows() {
  rows_.beginChange();
  for (const int row : selectedRows()) rows_.clearRow(at(row));
  changed();
}

void LayerGrid::cut() {
  copy();
  clearSelectedRows();
}

void LayerGrid::copy() { QGuiApplication::clipboard()->setText(selectedText()); }

void LayerGrid::paste() { pasteText(QGuiApplication::clipboard()->text()); }

void LayerGrid::chooseLayer() {
  if (currentRow() < 0) return;
  // Moving the current cell must not change the selection.
  selectionModel()->setCurrentIndex(model()->index(currentRow(), kLayer),
                                    QItemSelectionModel::NoUpdate);
  edit(currentIndex());
  if (auto* const list = qobject_cast<QComboBox*>(indexWidget(currentIndex()))) list->showPopup();
}

void LayerGrid::undo() {
  if (rows_.undo()) changed();
}

void LayerGrid::changed() {
  refresh();
  if (onChanged) onChanged();
}

void LayerGrid::moveDown() {
  if (currentRow() + 1 < kRowCount) setCurrentCell(currentRow() + 1, currentColumn());
}

void LayerGrid::keyPressEvent(QKeyEvent* event) {
  attempt(context_, kModule, "keyPressEvent", [this, event] { pressKey(event); });
}

void LayerGrid::pressKey(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cut)) {
    cut();
  } else if (event->matches(QKeySequence::Copy)) {
    copy();
  } else if (event->matches(QKeySequence::Paste)) {
    paste();
  } else if (event->matches(QKeySequence::Undo)) {
    undo();
  } else if (event->key() == Qt::Key_Delete) {
    clearSelectedRows();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    // From an open editor, commit its text first.
    const auto how = state() == EditingState ? Qt::QueuedConnection : Qt::DirectConnection;
    QMetaObject::invokeMethod(
        this, [this] { moveDown(); }, how);
  } else if (event->key() == Qt::Key_Backtab || event->key() == Qt::Key_Tab) {
    event->ignore();  // leaves the table
  } else if (currentColumn() == kLayer && !isLayerKey(event->key(), event->text())) {
    QApplication::beep();
  } else {
    QTableWidget::keyPressEvent(event);
  }
}

/// True for a plain click on the layer of a row in a multiple selection.
bool LayerGrid::isChoiceForSelection(const QMouseEvent& event) const {
  if (event.button() != Qt::LeftButton || event.modifiers() != Qt::NoModifier) return false;
  const QModelIndex index = indexAt(event.position().toPoint());
  const QList<int> selected = selectedRows();
  return index.column() == kLayer && selected.size() > 1 && selected.contains(index.row());
}

void LayerGrid::mousePressEvent(QMouseEvent* event) {
  choosing_ = isChoiceForSelection(*event);
  QTableWidget::mousePressEvent(event);
}

void LayerGrid::mouseReleaseEvent(QMouseEvent* event) {
  QTableWidget::mouseReleaseEvent(event);
  if (!std::exchange(choosing_, false)) return;
  attempt(context_, kModule, "mouseReleaseEvent", [this] { chooseLayer(); });
}

QItemSelectionModel::SelectionFlags LayerGrid::selectionCommand(const QModelIndex& index,
                                                                const QEvent* event) const {
  return choosing_ ? QItemSelectionModel::NoUpdate : QTableWidget::selectionCommand(index, event);
}

void LayerGrid::contextMenuEvent(QContextMenuEvent* event) {
  attempt(context_, kModule, "contextMenuEvent", [this, event] { showMenu(*event); });
}

void LayerGrid::showMenu(const QContextMenuEvent& event) {
  const bool any = !selectedIndexes().isEmpty();
  QMenu menu(this);
  menu.setObjectName("mnuLayers");
  const auto add = [this, &menu](const QString& text, const QKeySequence& keys, bool enabled,
                                 void (LayerGrid::*action)()) {
    QAction* const entry = menu.addAction(
        text, this,
        trapped(context_, kModule, "mnuLayers_Click", [this, action] { (this->*action)(); }));
    entry->setShortcut(keys);
    entry->setEnabled(enabled);
  };
  add(qtText("&Undo"), QKeySequence::Undo, rows_.canUndo(), &LayerGrid::undo);
  menu.addSeparator();
  add(qtText("Cu&t"), QKeySequence::Cut, any, &LayerGrid::cut);
  add(qtText("&Copy"), QKeySequence::Copy, any, &LayerGrid::copy);
  add(qtText("&Paste"), QKeySequence::Paste, !QGuiApplication::clipboard()->text().isEmpty(),
      &LayerGrid::paste);
  add(context_.text(TextId::GridClearRows), QKeySequence(Qt::Key_Delete), any,
      &LayerGrid::clearSelectedRows);
  menu.addSeparator();
  add(context_.text(TextId::GridAssignLayer), {}, any, &LayerGrid::chooseLayer);
  const bool byKeyboard = event.reason() == QContextMenuEvent::Keyboard;
  menu.exec(byKeyboard ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft())
                       : event.globalPos());
}

}  // namespace quillon::windows
