#pragma once

#include <QBoxLayout>
#include <QWidget>

namespace quillon::windows {

/// Two groups of buttons: side by side, or one above the other where there is too little room.
class PictureBar : public QWidget {
 public:
  explicit PictureBar(QWidget* parent);

  void addLeft(QWidget* button) { left_->addWidget(button); }
  void addRight(QWidget* button) { right_->addWidget(button); }

  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  int wholeWidth() const;

  QHBoxLayout* left_;
  QHBoxLayout* right_;
  QBoxLayout* groups_;
};

}  // namespace quillon::windows
