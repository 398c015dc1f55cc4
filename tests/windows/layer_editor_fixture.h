#pragma once

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>

#include "windows/layer_editor.h"
#include "windows/window_fixture.h"

namespace quillon::windows {

/// A layer editor operated by mouse and keyboard.
class LayerEditorTest : public WindowTest {
 protected:
  LayerEditor& open(const QString& file = {}) {
    editor = std::make_unique<LayerEditor>(
        context, file, [this](const QString& path) { accepted << path; }, nullptr);
    editor->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    return *editor;
  }
  LayerGrid& grid() { return *static_cast<LayerGrid*>(&find<QTableWidget>(*editor, "grdLayers")); }
  QString cell(int row, int column) { return grid().item(row, column)->text(); }
  QListWidget& scanned() { return find<QListWidget>(*editor, "lstScanDXF"); }
  QLineEdit& pathField() { return find<QLineEdit>(*editor, "txtLayerDatei"); }
  /// Processes events and deletes closed editors.
  static void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  QPoint placeOf(int row, int column) {
    QTableWidgetItem* const item = grid().item(row, column);
    grid().scrollToItem(item);
    return grid().visualItemRect(item).center();
  }
  void clickCell(int row, int column, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, keys, placeOf(row, column));
  }
  /// Opens the editor of a cell.
  void doubleClick(int row, int column) {
    const QPoint place = placeOf(row, column);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, place);
  }
  QComboBox& openedList() {
    auto* const list = qobject_cast<QComboBox*>(grid().indexWidget(grid().currentIndex()));
    if (list == nullptr) throw std::runtime_error("no list is open");
    return *list;
  }
  /// Chooses an item from a cell's menu.
  void chooseInMenu(int row, int column, const QString& entry) {
    QTimer::singleShot(20, &timers, [this, entry] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      menuTexts.clear();
      for (QAction* const action : menu->actions()) {
        const QString text = action->text().remove('&');
        if (!text.isEmpty()) menuTexts << text;
        if (text == entry) menu->setActiveAction(action);
      }
      QTest::keyClick(menu, entry.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    });
    const QPoint place = placeOf(row, column);
    QTest::mousePress(grid().viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, grid().viewport()->mapToGlobal(place));
    QApplication::sendEvent(grid().viewport(), &event);
  }
  /// Types like a user: each key goes to the widget that then has the focus.
  static void typeWhereTheFocusIs(const QString& text) {
    for (const QChar c : text) QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
  }
  /// Types into a cell and confirms with Enter.
  void type(int row, int column, const QString& text) {
    doubleClick(row, column);
    auto* const field = grid().findChild<QLineEdit*>("txtDXFLay");
    ASSERT_NE(field, nullptr);
    field->selectAll();
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Return);
    settle();
  }
  std::string writeLayers(int count) const {
    std::string text;
    for (int i = 1; i <= count; ++i) {
      const std::string n = std::to_string(i);
      text += "[" + n + "]\r\nlayername=L" + n + "\r\nlayernr=20\r\n";
    }
    return folder.write("a.lay", text);
  }
  std::string drawingWithLayers(int count) const {
    testing::DxfBuilder dxf;
    for (int i = 1; i <= count; ++i) dxf.layer("L" + std::to_string(i));
    return folder.write("a.dxf", dxf.text());
  }

  std::unique_ptr<LayerEditor> editor;
  QStringList accepted;
  QStringList menuTexts;
};

}  // namespace quillon::windows
