#include "app/window/application.h"

namespace quillon::window {

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    if (faults_ == nullptr) throw;
    // The event may be half processed, so it is not sent again.
    faults_->OnError("Application", "notify", errors::kMayLeave | errors::kMayEnd);
  }
  return false;
}

}  // namespace quillon::window
