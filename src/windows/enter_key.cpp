#include "windows/enter_key.h"

#include <QKeyEvent>
#include <functional>
#include <utility>

namespace quillon::windows {
namespace {

class EnterFilter : public QObject {
 public:
  EnterFilter(QObject& watched, std::function<void()> action)
      : QObject(&watched), action_(std::move(action)) {
    watched.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    action_();
    return true;
  }

 private:
  std::function<void()> action_;
};

}  // namespace

void pressOnEnter(QPushButton& button) {
  button.setAutoDefault(false);
  new EnterFilter(button, [&button] { button.click(); });
}

void keepEnter(QAbstractItemView& list) {
  new EnterFilter(list, [&list] {
    const QModelIndex current = list.currentIndex();
    if (current.isValid()) Q_EMIT list.activated(current);
  });
}

}  // namespace quillon::windows
