#include "windows/dark_style.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>

#include "windows/layer_colours.h"

namespace quillon::windows {
namespace {

constexpr QColor kLightBlue(110, 170, 240);
constexpr QColor kGrey(80, 80, 80);

/// Qt's dark colours for this system have dark links, and boxes and buttons to be ticked that look
/// ticked when they are not.
void mendColours(bool dark) {
  QPalette colours = QGuiApplication::palette();
  const QColor link =
      dark ? kLightBlue : QApplication::style()->standardPalette().color(QPalette::Link);
  colours.setColor(QPalette::Link, link);
  colours.setColor(QPalette::LinkVisited, link);
  QApplication::setPalette(colours);
  QPalette boxes;
  boxes.setColor(QPalette::Base, dark ? kGrey : colours.color(QPalette::Base));
  for (const char* const kind : {"QCheckBox", "QRadioButton"})
    QApplication::setPalette(boxes, kind);
}

}  // namespace

DarkStyle::DarkStyle() : light_(QApplication::style()->name()) {
  follow();
  qApp->installEventFilter(this);
}

bool DarkStyle::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange && !following_) {
    // Later, as Qt goes on to set the colours of boxes and buttons.
    QMetaObject::invokeMethod(
        this, [this] { follow(); }, Qt::QueuedConnection);
  }
  return QObject::eventFilter(watched, event);
}

void DarkStyle::follow() {
  following_ = true;  // what is set here changes colours too
  const bool dark = themeOf(QGuiApplication::palette()) == preview::Theme::Dark;
  const QString wanted = dark ? QStringLiteral("fusion") : light_;
  if (QApplication::style()->name().compare(wanted, Qt::CaseInsensitive) != 0) {
    QApplication::setStyle(wanted);
  }
  if (dark || wasDark_) mendColours(dark);
  wasDark_ = dark;
  following_ = false;
}

}  // namespace quillon::windows
