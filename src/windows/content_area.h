#pragma once

#include <QScrollArea>

namespace quillon::windows {

/// The contents of a window above its buttons. They scroll where the screen is too small for them;
/// elsewhere they look as if they stood in the window itself.
class ContentArea : public QScrollArea {
 public:
  /// Takes `content`, whose layout has been set.
  ContentArea(QWidget* content, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  /// The height that the contents need at a width.
  int heightNeeded(int width) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quillon::windows
