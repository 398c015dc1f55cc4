#pragma once

class QWidget;

namespace quillon::windows {

/// A new widget under the name by which style sheets and tests find it.
template <typename Widget>
Widget* makeNamed(QWidget& parent, const char* name) {
  auto* const widget = new Widget(&parent);
  widget->setObjectName(name);
  return widget;
}

}  // namespace quillon::windows
