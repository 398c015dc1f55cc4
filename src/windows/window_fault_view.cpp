#include "windows/window_fault_view.h"

#include <QApplication>

#include "windows/error_window.h"

namespace quillon::windows {

errors::Continuation WindowFaultView::show(const errors::FaultReport& report) {
  QApplication::setOverrideCursor(Qt::ArrowCursor);  // the procedure may have set a busy one
  ErrorWindow window(context_, program_, report, QApplication::activeWindow());
  window.setEnabled(true);  // also usable above a disabled window
  window.exec();
  QApplication::restoreOverrideCursor();
  return window.choice();
}

void WindowFaultView::endProgram() { QCoreApplication::exit(kEndedByError); }

}  // namespace quillon::windows
