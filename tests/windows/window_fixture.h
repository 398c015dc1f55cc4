#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <functional>

#include "errors/program.h"
#include "support/dxf_builder.h"
#include "support/temp_folder.h"
#include "support/timing.h"
#include "windows/main_window.h"
#include "windows/qt_texts.h"
#include "windows/screen_fit.h"
#include "windows/window_fault_view.h"

namespace quillon::windows {

/// Windows of a program with an empty folder, in English.
class WindowTest : public ::testing::Test {
 protected:
  WindowTest() {
    QCoreApplication::installTranslator(&qtTexts);
    qApp->installEventFilter(&screenFit);
    context.faults = &faults;
    endForgottenWindows();
  }

  template <typename Widget>
  static Widget& find(QWidget& window, const char* name) {
    auto* const widget = window.findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error(std::string("no control named ") + name);
    return *widget;
  }
  static void click(QWidget& window, const char* name) {
    QTest::mouseClick(&find<QAbstractButton>(window, name), Qt::LeftButton);
  }

  /// The texts of labels and message boxes that may be elided.
  static QString wholeText(const QLabel& label) {
    return label.toolTip().isEmpty() ? label.text() : label.toolTip();
  }
  static QString wholeText(const QMessageBox& box) {
    const auto* const label = box.findChild<QLabel*>("qt_msgbox_label");
    return label == nullptr ? box.text() : wholeText(*label);
  }
  static QString wholeDetail(const QMessageBox& box) {
    const auto* const label = box.findChild<QLabel*>("qt_msgbox_informativelabel");
    return label == nullptr ? box.informativeText() : wholeText(*label);
  }
  /// Chooses an entry of a list with the mouse, once its window is visible.
  static void choose(QComboBox& list, int index) {
    QTest::keyClick(&list, Qt::Key_Down, Qt::AltModifier);
    clickEntry(list, index);
  }
  /// Clicks an entry of an opened list.
  static void clickEntry(QComboBox& list, int index) {
    QAbstractItemView& view = *list.view();
    ASSERT_TRUE(view.isVisible());
    const QModelIndex entry = view.model()->index(index, 0);
    // A list that has just opened may be laid out again and scroll until it is exposed.
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view.window()));
    view.scrollTo(entry);
    QTest::mouseMove(view.viewport(), view.visualRect(entry).center());
    view.scrollTo(entry);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(entry).center());
  }
  /// Types a file name into a dialog and confirms with Enter.
  static void enterName(QFileDialog& dialog, const QString& name) {
    auto& field = find<QLineEdit>(dialog, "fileNameEdit");
    field.setText(name);
    QTest::keyClick(&field, Qt::Key_Return);
  }

  /// Acts on the next modal window like a user; must close it.
  template <typename Window = QWidget>
  void whenModal(std::function<void(Window&)> action) {
    auto* const timer = new QTimer(&timers);
    QObject::connect(timer, &QTimer::timeout, timer, [this, timer, action = std::move(action)] {
      auto* const window = dynamic_cast<Window*>(QApplication::activeModalWidget());
      if (window == nullptr) return;
      timer->stop();
      timer->deleteLater();
      ++modalWindows;
      action(*window);
    });
    timer->start(5);
  }
  /// Answers the next message box and keeps its text.
  void whenAsked(QMessageBox::StandardButton answer) {
    whenModal<QMessageBox>([this, answer](QMessageBox& box) {
      boxTitle = box.windowTitle();
      boxText = wholeText(box);
      boxDetail = wholeDetail(box);
      box.button(answer)->click();
    });
  }

  std::string writeDrawing(const std::string& name) const {
    testing::DxfBuilder dxf;
    dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
    dxf.entity("HATCH", {{8, "0"}});
    return folder.write(name, dxf.text());
  }
  QString path(const std::string& name) const { return toQt(folder.file(name)); }

  /// A modal window that nobody answers would keep the test from ending: it fails instead.
  void endForgottenWindows() {
    const std::chrono::seconds longest(60 * testing::patience());
    auto* const timer = new QTimer(&timers);
    QObject::connect(timer, &QTimer::timeout, timer, [] {
      QWidget* const window = QApplication::activeModalWidget();
      if (window == nullptr) return;
      const auto* const box = qobject_cast<QMessageBox*>(window);
      ADD_FAILURE() << "Nobody answers the window \"" << fromQt(window->windowTitle()) << "\" "
                    << (box != nullptr ? fromQt(box->text()) : "");
      if (auto* const dialog = qobject_cast<QDialog*>(window)) {
        dialog->reject();  // a box of questions alone takes no request to close
      } else {
        window->close();
      }
    });
    timer->start(longest);
  }

  testing::TempFolder folder;
  AppContext context{settings::SettingsStore(folder.path() / "program"), {}, texts::kEnglish};
  QtTexts qtTexts{context};
  ScreenFit screenFit;
  errors::ProgramIdentity program = errors::thisProgram("quillon", folder.path() / "program");
  WindowFaultView view{context, program};
  errors::FaultScribe faults{program, context.LanguageOffset, view};
  QObject timers;  ///< owns pending actions, so that none outlives its test
  int modalWindows = 0;
  QString boxTitle;
  QString boxText;
  QString boxDetail;
};

}  // namespace quillon::windows
