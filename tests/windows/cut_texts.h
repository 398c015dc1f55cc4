#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QTextDocument>
#include <QToolButton>

#include "windows/path_label.h"

namespace quillon::windows {

/// The room for the text of a closed list.
inline int textRoom(const QComboBox& list) {
  QStyleOptionComboBox option;
  option.initFrom(&list);
  option.editable = list.isEditable();
  return list.style()
      ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &list)
      .width();
}

inline QSize textSize(const QWidget& control, QString text) {
  return control.fontMetrics().size(Qt::TextShowMnemonic, text);
}

/// True when the control shows its whole text. Measures the text itself, not the minimum size that
/// the control requests.
inline bool showsItsText(const QWidget& control) {
  if (const auto* label = qobject_cast<const QLabel*>(&control)) {
    const QRect room = label->contentsRect();
    if (label->textFormat() == Qt::RichText) {
      QTextDocument document;
      document.setDefaultFont(label->font());
      document.setHtml(label->text());
      return document.idealWidth() - 2 * document.documentMargin() <= room.width();
    }
    if (dynamic_cast<const PathLabel*>(label) != nullptr && label->toolTip() == label->text()) {
      return label->fontMetrics().height() <= room.height();
    }
    if (!label->wordWrap()) {
      const QSize size = textSize(*label, label->text());
      return size.width() <= room.width() && size.height() <= room.height();
    }
    const QRect text = label->fontMetrics().boundingRect(0, 0, room.width(), 1 << 20,
                                                         Qt::TextWordWrap, label->text());
    // At some scales, lines that were wrapped to fit come out a pixel wider or higher.
    constexpr int kRounding = 2;
    return text.height() <= room.height() + kRounding && text.width() <= room.width() + kRounding;
  }
  if (const auto* tool = qobject_cast<const QToolButton*>(&control)) {
    if (tool->toolButtonStyle() == Qt::ToolButtonIconOnly && !tool->icon().isNull()) return true;
  }
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
    const QSize text = textSize(*button, button->text());
    const int indicator = button->isCheckable() && !button->inherits("QPushButton") &&
                                  !button->inherits("QToolButton")
                              ? button->style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                                    button->style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing)
                              : 0;
    return text.width() + indicator <= button->width() && text.height() <= button->height();
  }
  if (const auto* list = qobject_cast<const QComboBox*>(&control)) {
    for (int i = 0; i < list->count(); ++i) {
      if (textSize(*list, list->itemText(i)).width() > textRoom(*list)) return false;
    }
    return list->fontMetrics().height() <= list->height();
  }
  if (const auto* group = qobject_cast<const QGroupBox*>(&control)) {
    return textSize(*group, group->title()).width() <= group->contentsRect().width();
  }
  if (const auto* header = qobject_cast<const QHeaderView*>(&control)) {
    for (int i = 0; i < header->count(); ++i) {
      const QString text = header->model()->headerData(i, header->orientation()).toString();
      const int room =
          header->orientation() == Qt::Horizontal ? header->sectionSize(i) : header->width();
      if (textSize(*header, text).width() > room) return false;
    }
  }
  return true;
}

/// The names of the visible controls with cut-off texts.
inline QStringList cutTexts(const QWidget& window) {
  QStringList cut;
  for (const QWidget* const control : window.findChildren<QWidget*>()) {
    if (control->isVisible() && !showsItsText(*control)) {
      const auto* const label = qobject_cast<const QLabel*>(control);
      const bool isNamed = label == nullptr || !control->objectName().isEmpty();
      const QString name = isNamed ? control->objectName() : label->text();
      cut << QString("%1 (%2, %3 x %4)")
                 .arg(name, control->metaObject()->className())
                 .arg(control->width())
                 .arg(control->height());
    }
  }
  return cut;
}

}  // namespace quillon::windows
