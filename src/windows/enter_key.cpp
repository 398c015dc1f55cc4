#include "windows/enter_key.h"

#include <QKeyEvent>

namespace quillon::windows {
namespace {

class EnterFilter : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    static_cast<QPushButton*>(watched)->click();
    return true;
  }
};

}  // namespace

void pressOnEnter(QPushButton& button) {
  button.setAutoDefault(false);
  button.installEventFilter(new EnterFilter(&button));
}

}  // namespace quillon::windows
