#include "windows/tool_tips.h"

#include "texts/tool_tip.h"
#include "windows/app_context.h"

namespace quillon::windows {
namespace {

/// The control itself, or all elements of the control array with that name.
QList<QWidget*> findControls(QWidget& window, const QString& name, std::optional<int> index) {
  const QString wanted = index ? name + "_" + QString::number(*index) : name;
  QList<QWidget*> controls = window.findChildren<QWidget*>(wanted);
  if (!controls.isEmpty() || index) return controls;
  QList<QWidget*> elements;
  for (int i = 0;; ++i) {
    QWidget* const element = window.findChild<QWidget*>(name + "_" + QString::number(i));
    if (element == nullptr) return elements;
    elements.push_back(element);
  }
}

}  // namespace

void ToolTipTable::clear() { rows_.clear(); }

void ToolTipTable::add(QWidget& window, std::string_view entry) {
  const std::optional<texts::ToolTip> tip = texts::parseToolTip(entry);
  if (!tip) return;
  const QString text = toQt(tip->text);
  for (QWidget* const control : findControls(window, toQt(tip->control), tip->index)) {
    control->setToolTip(QString(text).remove('\r'));
    rows_.push_back({window.objectName(), control->objectName(), text});
  }
}

}  // namespace quillon::windows
