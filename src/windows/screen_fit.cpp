#include "windows/screen_fit.h"

#include <QEvent>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>
#include <QStyle>
#include <QTextDocument>
#include <QTimer>
#include <chrono>

namespace quillon::windows {
namespace {

constexpr const char* kJustShown = "justShown";
constexpr std::chrono::milliseconds kPlacing{100};
constexpr int kWidestWord = 400;      ///< in pixels
constexpr int kLinesOfParagraph = 6;  ///< of that width

}  // namespace

QString wholeToolTip(const QString& text) {
  return Qt::mightBeRichText(text) ? "<p>" + text.toHtmlEscaped() + "</p>" : text;
}

QString elidedPath(const QString& path, const QFontMetrics& metrics, int width) {
  QString shown = metrics.elidedText(path, Qt::ElideMiddle, width);
  if (shown != path) shown.replace(QChar(u'…'), QStringLiteral("…\u2060"));
  return shown;
}

namespace {

/// The size of a window's frame; a common size before it is shown.
QSize frameSize(const QWidget& window) {
  const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
  const int border = window.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
  const QSize known = window.frameGeometry().size() - window.size();
  return known.expandedTo({2 * border, title + 2 * border});
}

/// A paragraph shortened to a few lines, with words that fit on a line.
QString elidedParagraph(const QString& text, const QFontMetrics& metrics) {
  static const QRegularExpression word("\\S+");
  QString shown;
  qsizetype end = 0;
  for (auto found = word.globalMatch(text); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    shown += QStringView(text).mid(end, match.capturedStart() - end);
    shown += elidedPath(match.captured(), metrics, kWidestWord);
    end = match.capturedEnd();
  }
  shown += QStringView(text).mid(end);
  return metrics.elidedText(shown, Qt::ElideMiddle, kWidestWord * kLinesOfParagraph);
}

}  // namespace

void elideToLines(QLabel& label) {
  QStringList paragraphs = label.text().split('\n');
  for (QString& paragraph : paragraphs) {
    paragraph = elidedParagraph(paragraph, label.fontMetrics());
  }
  const QString shown = paragraphs.join('\n');
  if (shown == label.text()) return;
  label.setToolTip(wholeToolTip(label.text()));
  label.setText(shown);
}

QSize roomOnScreen(const QWidget& window) {
  return window.screen()->availableGeometry().size() - frameSize(window);
}

void keepOnScreen(QWidget& window) {
  const QRect screen = window.screen()->availableGeometry();
  QRect frame(window.pos(), window.size() + frameSize(window));
  if (screen.contains(frame)) return;
  frame.moveRight(std::min(frame.right(), screen.right()));
  frame.moveBottom(std::min(frame.bottom(), screen.bottom()));
  frame.moveLeft(std::max(frame.left(), screen.left()));
  frame.moveTop(std::max(frame.top(), screen.top()));
  window.move(frame.topLeft());
}

bool ScreenFit::eventFilter(QObject* watched, QEvent* event) {
  const bool shown = event->type() == QEvent::Show && !event->spontaneous();
  if (!watched->isWidgetType() || !(shown || event->type() == QEvent::WindowActivate)) return false;
  auto& window = *static_cast<QWidget*>(watched);
  const bool framed = window.windowType() == Qt::Window || window.windowType() == Qt::Dialog;
  if (!window.isWindow() || !framed) return false;
  if (!shown) {
    // The window manager positions and frames a window only a moment later.
    if (window.property(kJustShown).toBool()) {
      QTimer::singleShot(kPlacing, &window, [&window] { keepOnScreen(window); });
    }
    window.setProperty(kJustShown, false);
    return false;
  }
  if (qobject_cast<QMessageBox*>(&window) != nullptr) {
    for (QLabel* const label : window.findChildren<QLabel*>()) elideToLines(*label);
  }
  const QSize fitting = window.size().boundedTo(roomOnScreen(window));
  if (fitting != window.size()) window.resize(fitting);
  window.setProperty(kJustShown, true);
  return false;
}

}  // namespace quillon::windows
