#include "ui/windows/result_panel.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QVBoxLayout>

#include "convert/messages.h"
#include "convert/summary.h"
#include "ui/windows/shell.h"
#include "ui/windows/trap.h"

namespace quillon::ui {
namespace {

constexpr std::string_view kModule = "fraResult";

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
    QMessageBox::warning(this, context_.text(2811), toQt(error.what()));
  }
}

void ResultPanel::loadResources() {
  openFolder_->setText(context_.text(3144));
  copyCommand_->setText(context_.text(3145));
  refresh();
}

void ResultPanel::showResult(const convert::ConversionResult& result) {
  result_.reset();
  if (result.outcome != convert::Outcome::Ended) {
    result_ = result;
    result_->report.clear();  // it has a window of its own
    folder_ = QFileInfo(toQt(result.scriptFile)).absolutePath();
    const std::string argument = convert::scriptArgument(result);
    command_ = argument.empty() ? QString() : toQt("SCRIPT '" + argument + "'");
  }
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
  text_->setText(text());
  openFolder_->setVisible(result_.has_value());
  copyCommand_->setVisible(result_.has_value() && !command_.isEmpty());
  setVisible(!text_->text().isEmpty());
  // The window asks at once how high the text is; a pending layout would answer for the old one.
  layout()->activate();
  updateGeometry();
}

QString ResultPanel::text() const {
  QStringList lines;
  if (result_) lines = resultLines(*result_);
  if (!keptLayers_.isEmpty()) lines << context_.text(3210, {fromQt(keptLayers_)});
  return lines.join('\n');
}

QStringList ResultPanel::resultLines(const convert::ConversionResult& result) const {
  const std::string drawing = convert::quotable(result.dxfFile);
  const std::string script = convert::quotable(result.scriptFile);
  QStringList lines;
  lines << context_.text(3140, {std::to_string(convert::entityCount(result)), drawing})
        << context_.text(3141, {std::to_string(result.commandCount), script});
  const std::string unknown = convert::unknownKindsText(result);
  if (!unknown.empty()) lines << context_.text(3142, {unknown});
  for (const std::string& line : convert::leftOutTexts(result, context_.texts())) {
    lines << toQt(line);
  }
  if (result.outcome == convert::Outcome::Cancelled) lines << context_.text(3146);
  if (result.rangeWarning) lines << context_.text(3147);
  if (!command_.isEmpty()) lines << context_.text(3143, {fromQt(command_)});
  return lines;
}

}  // namespace quillon::ui
