#include "windows/picture_bar.h"

#include <algorithm>

namespace quillon::windows {

PictureBar::PictureBar(QWidget* parent)
    : QWidget(parent),
      left_(new QHBoxLayout),
      right_(new QHBoxLayout),
      groups_(new QBoxLayout(QBoxLayout::LeftToRight, this)) {
  setObjectName("fraPictureBar");
  groups_->setContentsMargins(0, 0, 0, 0);
  groups_->addLayout(left_);
  groups_->addStretch();
  groups_->addLayout(right_);
  // One above the other, buttons stay together.
  groups_->setAlignment(left_, Qt::AlignLeft);
  groups_->setAlignment(right_, Qt::AlignLeft);
}

int PictureBar::wholeWidth() const {
  return left_->minimumSize().width() + right_->minimumSize().width() + 2 * groups_->spacing();
}

QSize PictureBar::minimumSizeHint() const {
  const QSize least = left_->minimumSize().expandedTo(right_->minimumSize());
  return {least.width(), groups_->totalMinimumSize().height()};
}

void PictureBar::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const auto wanted = width() < wholeWidth() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
  if (groups_->direction() == wanted) return;
  groups_->setDirection(wanted);
  updateGeometry();
}

}  // namespace quillon::windows
