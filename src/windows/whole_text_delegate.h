#pragma once

#include <QStyledItemDelegate>

namespace quillon::windows {

/// Shows a text that its view cuts in full as a tool tip; elsewhere the view's own tip appears.
class WholeTextDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

}  // namespace quillon::windows
