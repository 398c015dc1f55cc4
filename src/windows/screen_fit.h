#pragma once

#include <QLabel>
#include <QObject>
#include <QWidget>

namespace quillon::windows {

/// The size that a window may have so that it and its frame lie on the screen.
QSize roomOnScreen(const QWidget& window);

/// Moves a window that has grown back onto its screen.
void keepOnScreen(QWidget& window);

/// The tool tip of a text that is not shown whole; what looks like markup stays text.
QString wholeToolTip(const QString& text);

/// A path elided in its middle, where no line ends.
QString elidedPath(const QString& path, const QFontMetrics& metrics, int width);

/// Elides the words of a label that are longer than a line, such as paths, in their middle, and
/// whole paragraphs that are longer than some lines; its tool tip then has the whole text.
void elideToLines(QLabel& label);

/// Keeps all windows of an application on the screen: windows that open larger are shrunk, and
/// message boxes elide what has no room in a line. Installed as
/// the application's event filter.
class ScreenFit : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quillon::windows
