#include "app/window/dialog_progress.h"

#include <QCoreApplication>

#include "app/console/interrupt.h"

namespace quillon::window {

void DialogProgress::begin(std::string_view file, bool inBatch) {
  dialog_.loadResources();
  if (inBatch) dialog_.setWindowTitle(windows::toQt(file));
  dialog_.show();
}

void DialogProgress::setProgress(bool writing, int percent) {
  dialog_.setProgress(writing, percent);
}

void DialogProgress::processEvents() { QCoreApplication::processEvents(); }

bool DialogProgress::cancelRequested() {
  return dialog_.cancelRequested() || console::interrupted();
}

}  // namespace quillon::window
