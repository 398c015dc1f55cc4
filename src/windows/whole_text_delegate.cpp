#include "windows/whole_text_delegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

namespace quillon::windows {

bool WholeTextDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                  const QStyleOptionViewItem& option, const QModelIndex& index) {
  const QString text = index.data().toString();
  const int room = option.rect.intersected(view->viewport()->rect()).width();
  if (event->type() != QEvent::ToolTip || sizeHint(option, index).width() <= room) {
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  }
  // Names may look like markup.
  QToolTip::showText(event->globalPos(),
                     Qt::mightBeRichText(text) ? "<qt>" + text.toHtmlEscaped() + "</qt>" : text,
                     view);
  return true;
}

}  // namespace quillon::windows
