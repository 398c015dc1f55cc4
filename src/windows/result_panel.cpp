#include "windows/result_panel.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QStyle>
#include <QVBoxLayout>
#include <cstdlib>

#include "windows/screen_fit.h"
#include "windows/shell.h"
#include "windows/trap.h"
#include "workbench/result_text.h"

namespace quillon::windows {
namespace {

using texts::TextId;

constexpr int kLeastLength = 32;   ///< of a line, and of a path within it, in characters
constexpr int kScrollBarGap = 16;  ///< beside a possible scroll bar

}  // namespace

ResultPanel::ResultPanel(AppContext& context, QWidget* parent)
    : QFrame(parent),
      context_(context),
      text_(new QLabel(this)),
      openFolder_(new QPushButton(this)),
      copyCommand_(new QPushButton(this)) {
  setObjectName("fraResult");
  setFrameShape(QFrame::StyledPanel);
  text_->setObjectName("labResult");
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  text_->setMinimumWidth(fontMetrics().averageCharWidth() * kLeastLength);
  text_->installEventFilter(this);
  openFolder_->setObjectName("btnOpenFolder");
  copyCommand_->setObjectName("btnCopyCommand");
  auto* const buttons = new QVBoxLayout;
  buttons->addWidget(copyCommand_);
  buttons->addWidget(openFolder_);
  buttons->addStretch();
  auto* const layout = new QHBoxLayout(this);
  layout->addWidget(text_, 1);
  layout->addLayout(buttons);
  connect(copyCommand_, &QPushButton::clicked, this,
          trapped(context_, kModule, "btnCopyCommand_Click",
                  [this] { QGuiApplication::clipboard()->setText(command_); }));
  connect(openFolder_, &QPushButton::clicked, this,
          trapped(context_, kModule, "btnOpenFolder_Click", [this] { openFolder(); }));
  loadResources();
}

void ResultPanel::openFolder() {
  try {
    ShellRequest request;
    request.file = folder_;
    ShellEx(context_, request, this);
  } catch (const ShellError& error) {
    QMessageBox::warning(this, context_.text(TextId::ErrorTitle), toQt(error.what()));
  }
}

void ResultPanel::loadResources() {
  openFolder_->setText(context_.text(TextId::ResultOpenFolder));
  copyCommand_->setText(context_.text(TextId::ResultCopyCommand));
  notice_.clear();  // it is in the previous language
  refresh();
}

void ResultPanel::showResult(const convert::ConversionResult& result) {
  notice_.clear();
  result_.reset();
  if (result.outcome != convert::Outcome::Ended) {
    result_ = result;
    result_->report.clear();  // it has its own window
    folder_ = QFileInfo(toQt(result.scriptFile)).absolutePath();
    command_ = toQt(workbench::scriptCommand(result));
  }
  refresh();
}

void ResultPanel::showNotice(const QString& notice) {
  notice_ = notice;
  refresh();
}

void ResultPanel::forgetResult() {
  result_.reset();
  refresh();
}

void ResultPanel::nameKeptLayers(const QString& path) {
  keptLayers_ = path;
  refresh();
}

void ResultPanel::refresh() {
  openFolder_->setVisible(result_.has_value());
  copyCommand_->setVisible(result_.has_value() && !command_.isEmpty());
  setVisible(result_.has_value() || !keptLayers_.isEmpty() || !notice_.isEmpty());
  // The window asks for the height at once; a pending layout would still give the old one.
  layout()->activate();
  fitTo(text_->contentsRect().width());
  layout()->activate();
  updateGeometry();
}

/// Reserves room for a scroll bar: otherwise its appearance would change the line breaks, and with
/// them the height that shows or hides it, without end.
int ResultPanel::slack() const {
  return style()->pixelMetric(QStyle::PM_ScrollBarExtent) + kScrollBarGap;
}

void ResultPanel::fitTo(int room) {
  room_ = room;
  showText();
}

void ResultPanel::showText() {
  const QString whole = text();
  QStringList lines = whole.split('\n');
  // The width of a hidden label is unknown.
  if (text_->isVisible()) {
    for (QString& line : lines) line = elided(line);
  }
  const QString shown = lines.join('\n');
  text_->setToolTip(shown == whole ? QString() : wholeToolTip(whole));
  if (shown != text_->text()) text_->setText(shown);
}

QString ResultPanel::elided(const QString& line) const {
  const QFontMetrics metrics = text_->fontMetrics();
  const int room = room_ - slack();
  if (metrics.horizontalAdvance(line) <= room) return line;
  QStringList paths{keptLayers_};
  if (result_) {
    paths << command_ << toQt(workbench::resultPath(result_->dxfFile))
          << toQt(workbench::resultPath(result_->scriptFile));
  }
  for (const QString& path : paths) {
    if (path.isEmpty() || !line.contains(path)) continue;
    const int rest = metrics.horizontalAdvance(QString(line).remove(path));
    const int least = metrics.averageCharWidth() * kLeastLength;
    return QString(line).replace(path, elidedPath(path, metrics, std::max(room - rest, least)));
  }
  return line;
}

bool ResultPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == text_) {
    const int room = text_->contentsRect().width();
    const bool resized = event->type() == QEvent::Resize && std::abs(room - room_) > slack();
    if (resized || event->type() == QEvent::Show) fitTo(room);
  }
  return QFrame::eventFilter(watched, event);
}

QString ResultPanel::text() const {
  QStringList lines;
  if (result_) {
    for (const std::string& line :
         workbench::resultLines(*result_, fromQt(command_), context_.texts())) {
      lines << toQt(line);
    }
  }
  if (!keptLayers_.isEmpty())
    lines << context_.text(TextId::LayerFileStillInUse, {fromQt(keptLayers_)});
  if (!notice_.isEmpty()) lines << notice_;
  return lines.join('\n');
}

}  // namespace quillon::windows
