#pragma once

#include <QScrollArea>

namespace quillon::windows {

/// The contents of a window above its buttons. They scroll on a small screen and otherwise look
/// like part of the window.
class ContentArea : public QScrollArea {
 public:
  /// Takes ownership of `content`, whose layout must be set.
  ContentArea(QWidget* content, QWidget* parent);

  static constexpr int kGap = 6;  ///< beside a visible scroll bar

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  /// The height that the contents need at a given width.
  int heightNeeded(int width) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quillon::windows
