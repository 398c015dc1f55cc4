#pragma once

#include <QStyledItemDelegate>

namespace quillon::windows {

/// Shows a text that its view cuts off as a tool tip; otherwise the view's own tool tip appears.
class WholeTextDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

}  // namespace quillon::windows
