#include "windows/content_area.h"

#include <QComboBox>
#include <QEvent>
#include <QLayout>
#include <QScrollBar>

namespace quillon::windows {

ContentArea::ContentArea(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setObjectName("content");
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  content->layout()->setContentsMargins(0, 0, 0, 0);
  setWidget(content);
  for (QComboBox* const list : content->findChildren<QComboBox*>()) list->installEventFilter(this);
  // Keep a gap to a visible scroll bar.
  connect(verticalScrollBar(), &QScrollBar::rangeChanged, content, [content](int, int last) {
    content->layout()->setContentsMargins(0, 0, last > 0 ? kGap : 0, 0);
  });
  // Use the window's background, not that of a list.
  viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
}

QSize ContentArea::sizeHint() const { return widget()->sizeHint(); }

QSize ContentArea::minimumSizeHint() const {
  constexpr int kLeastColumns = 40;
  constexpr int kLeastRows = 6;
  const QSize least(fontMetrics().averageCharWidth() * kLeastColumns,
                    fontMetrics().height() * kLeastRows);
  return least.boundedTo(widget()->minimumSizeHint());
}

int ContentArea::heightNeeded(int width) const {
  const QLayout* const layout = widget()->layout();
  return layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                     : layout->totalSizeHint().height();
}

bool ContentArea::eventFilter(QObject* watched, QEvent* event) {
  // Scrolling with the wheel must not change the lists under the cursor.
  auto* const list = qobject_cast<QComboBox*>(watched);
  if (list != nullptr && event->type() == QEvent::Wheel && !list->hasFocus()) {
    event->ignore();
    return true;
  }
  if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
  return QScrollArea::eventFilter(watched, event);
}

}  // namespace quillon::windows
