#pragma once

#include <QLabel>
#include <QObject>
#include <QWidget>

namespace quillon::windows {

/// The largest size at which a window and its frame fit on the screen.
QSize roomOnScreen(const QWidget& window);

/// Moves a window that has grown back onto its screen.
void keepOnScreen(QWidget& window);

/// The tool tip for a text that is not shown in full; markup in it is shown literally.
QString wholeToolTip(const QString& text);

/// A path elided in the middle, without line breaks.
QString elidedPath(const QString& path, const QFontMetrics& metrics, int width);

/// Elides words of a label that are longer than a line, such as paths, in the middle, and shortens
/// paragraphs of many lines; the tool tip then shows the whole text.
void elideToLines(QLabel& label);

/// Keeps an application's windows on the screen: shrinks windows that open too large, and elides
/// what does not fit on a line in message boxes. Install as the application's event filter.
class ScreenFit : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quillon::windows
