#include "windows/splash.h"

#include <QLabel>
#include <QVBoxLayout>

#include "windows/app_icon.h"

namespace quillon::windows {
namespace {

constexpr int kMilliseconds = 1200;
constexpr int kPicture = 128;

QLabel* makeLabel(QWidget* parent, const char* name, const QString& text) {
  auto* const label = new QLabel(text, parent);
  label->setObjectName(name);
  label->setAlignment(Qt::AlignHCenter);
  return label;
}

}  // namespace

Splash::Splash(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), timer_(new QTimer(this)) {
  setObjectName("frmSplash");
  timer_->setObjectName("Timer1");
  QLabel* const picture = makeLabel(this, "Image1", {});
  picture->setPixmap(appIcon().pixmap(kPicture, kPicture));
  QLabel* const caption = makeLabel(this, "labCaption", "Quillon");
  QFont large = caption->font();
  large.setPointSizeF(large.pointSizeF() * 2);
  large.setBold(true);
  caption->setFont(large);
  auto* const layout = new QVBoxLayout(this);
  constexpr int kMargin = 32;
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->addWidget(picture);
  layout->addWidget(caption);
  layout->addWidget(makeLabel(this, "labVersion", "Version " QUILLON_VERSION));
  layout->addWidget(makeLabel(this, "labAuthor", "The Quillon developers"));
  timer_->setSingleShot(true);
  connect(timer_, &QTimer::timeout, this, &QDialog::accept);
  timer_->start(kMilliseconds);
}

// Labels pass clicks on to the window.
void Splash::mousePressEvent(QMouseEvent*) { accept(); }

}  // namespace quillon::windows
