#include "windows/queue_window.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "errors/continuation.h"
#include "errors/fault_info.h"
#include "files/paths.h"
#include "settings/settings.h"
#include "windows/conversion_stack.h"
#include "windows/dragged_files.h"
#include "windows/named_widget.h"
#include "windows/question.h"
#include "windows/shell.h"
#include "windows/trap.h"

namespace quillon::windows {
namespace {

using texts::TextId;

constexpr int kPercent = 100;
constexpr int kProgressMilliseconds = 100;
/// A cancelled conversion usually ends at once.
constexpr int kPatienceMilliseconds = 2000;

}  // namespace

QueueWindow::QueueWindow(AppContext& context,
                         std::function<std::optional<convert::ConversionJob>()> job,
                         QWidget* parent)
    : QDialog(parent),
      context_(context),
      job_(std::move(job)),
      model_(new QueueModel(context, queue_, this)),
      table_(makeNamed<QTableView>(*this, "tabQueue")),
      progress_(makeNamed<QProgressBar>(*this, "barQueue")),
      summary_(makeNamed<QLabel>(*this, "labSummary")),
      replace_(makeNamed<QCheckBox>(*this, "chkReplace")),
      start_(makeNamed<QPushButton>(*this, "btnStart")),
      stop_(makeNamed<QPushButton>(*this, "btnStop")),
      remove_(makeNamed<QPushButton>(*this, "btnRemove")),
      openFolder_(makeNamed<QPushButton>(*this, "btnOpenFolder")),
      close_(makeNamed<QPushButton>(*this, "btnClose")) {
  setObjectName("frmQueue");
  setAcceptDrops(true);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  worker_.setMaxThreadCount(1);
  worker_.setStackSize(kConversionStack);
  progressTimer_.setInterval(kProgressMilliseconds);
  layOut();
  connectControls();
  loadResources();
}

QueueWindow::~QueueWindow() {
  cancel_ = true;
  worker_.waitForDone();
}

void QueueWindow::layOut() {
  table_->setModel(model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->verticalHeader()->hide();
  QHeaderView& header = *table_->horizontalHeader();
  header.setObjectName("hdrQueue");
  header.setHighlightSections(false);
  header.setStretchLastSection(true);
  constexpr int kCharacters[] = {26, 12, 18, 10};
  const int character = fontMetrics().averageCharWidth();
  for (int column = 0; column < QueueModel::kResult; ++column) {
    header.resizeSection(column, kCharacters[column] * character);
  }
  summary_->setTextFormat(Qt::PlainText);
  summary_->setWordWrap(true);
  progress_->setTextVisible(false);
  start_->setDefault(true);
  auto* const buttons = new QHBoxLayout;
  for (QPushButton* const button : {start_, stop_, remove_, openFolder_})
    buttons->addWidget(button);
  buttons->addStretch();
  buttons->addWidget(close_);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(table_);
  layout->addWidget(progress_);
  layout->addWidget(summary_);
  layout->addWidget(replace_);
  layout->addLayout(buttons);
  constexpr int kColumns = 140;
  constexpr int kRows = 22;
  resize(character * kColumns, fontMetrics().lineSpacing() * kRows);
}

void QueueWindow::connectControls() {
  const auto onClick = [this](QPushButton* button, std::string_view procedure,
                              void (QueueWindow::*action)()) {
    connect(button, &QPushButton::clicked, this,
            trapped(context_, kModule, procedure, [this, action] { (this->*action)(); }));
  };
  onClick(start_, "btnStart_Click", &QueueWindow::start);
  onClick(stop_, "btnStop_Click", &QueueWindow::stop);
  onClick(remove_, "btnRemove_Click", &QueueWindow::removeSelected);
  onClick(openFolder_, "btnOpenFolder_Click", &QueueWindow::openFolder);
  connect(close_, &QPushButton::clicked, this, &QDialog::reject);
  auto* const deleteKey = new QShortcut(QKeySequence::Delete, table_);
  deleteKey->setContext(Qt::WidgetShortcut);
  connect(deleteKey, &QShortcut::activated, this,
          trapped(context_, kModule, "tabQueue_Delete", [this] { removeSelected(); }));
  connect(&progressTimer_, &QTimer::timeout, this,
          trapped(context_, kModule, "progressTimer", [this] { showProgress(); }));
}

void QueueWindow::loadResources() {
  setWindowTitle(context_.text(TextId::QueueTitle));
  table_->setAccessibleName(context_.text(TextId::QueueTable));
  progress_->setAccessibleName(context_.text(TextId::QueueProgress));
  replace_->setText(context_.text(TextId::QueueReplace));
  remove_->setText(context_.text(TextId::QueueRemove));
  openFolder_->setText(context_.text(TextId::ResultOpenFolder));
  close_->setText(context_.text(TextId::QueueClose));
  refresh();
}

void QueueWindow::add(const QStringList& pathsOrFolders) {
  model_->reset([&] {
    for (const QString& path : pathsOrFolders) queue_.add(fromQt(path));
  });
  refresh();
}

void QueueWindow::start() {
  if (running_) return;
  std::optional<convert::ConversionJob> job = job_();
  if (!job) return;
  if (queue_.counts().waiting == 0) queue_.retry();
  settings_ = *std::move(job);
  surroundings_ = settings::surroundingsOf(context_.store, context_.LanguageOffset);
  clearedFolders_.clear();
  stopping_ = false;
  cancel_ = false;
  convertNext();
}

void QueueWindow::stop() {
  if (!running_) return;
  if (stopping_) cancel_ = true;
  stopping_ = true;
  refresh();
}

/// Hands the next drawing to the worker, which never touches this window: its result comes back as
/// an event.
void QueueWindow::convertNext() {
  running_ = false;
  std::optional<convert::ConversionJob> job;
  if (!stopping_) job = queue_.begin(settings_, replace_->isChecked(), context_.texts());
  running_ = job.has_value();
  percent_ = 0;
  refresh();
  if (!job) return;
  convert::Surroundings surroundings = surroundings_;
  const std::string folder(files::folderPart(job->scriptFile));
  surroundings.clearAbandoned = clearedFolders_.insert(folder).second;
  worker_.start([this, job = *job, surroundings] {
    const batch::QueueWatch watch{[this] { return cancel_.load(); },
                                  [this](int percent) { percent_ = percent; }};
    batch::QueueResult result;
    std::exception_ptr fault;
    try {
      result = batch::convertQueued(job, surroundings, watch);
    } catch (...) {
      fault = std::current_exception();
    }
    QMetaObject::invokeMethod(
        this, [this, result, fault] { converted(result, fault); }, Qt::QueuedConnection);
  });
}

void QueueWindow::converted(batch::QueueResult result, const std::exception_ptr& fault) {
  if (fault) result = batch::faultResult(errors::describe(fault, context_.texts()).description);
  queue_.finish(std::move(result));
  // A fault in one drawing does not end the others.
  if (fault) {
    attempt(
        context_, kModule, "convert", [&fault] { std::rethrow_exception(fault); },
        errors::kMayLeave);
  }
  attempt(
      context_, kModule, "convertNext", [this] { convertNext(); }, errors::kMayLeave);
}

void QueueWindow::cancelAndWait(int milliseconds) {
  if (!running_) return;
  stopping_ = true;
  cancel_ = true;
  worker_.waitForDone(milliseconds);
  QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

void QueueWindow::reject() {
  bool wanted = true;
  attempt(context_, kModule, "Close", [this, &wanted] {
    if (!running_) return;
    const auto answer = askQuestion(context_, this, context_.text(TextId::WarningTitle),
                                    context_.text(TextId::QueueStillRunning),
                                    QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    wanted = answer == QMessageBox::Yes;
  });
  if (wanted) QDialog::reject();
}

void QueueWindow::done(int result) {
  attempt(context_, kModule, "Close", [this] { cancelAndWait(kPatienceMilliseconds); });
  QDialog::done(result);
}

void QueueWindow::removeSelected() {
  std::vector<std::size_t> rows;
  for (const QModelIndex& index : table_->selectionModel()->selectedRows()) {
    rows.push_back(static_cast<std::size_t>(index.row()));
  }
  std::sort(rows.rbegin(), rows.rend());
  model_->reset([&] {
    for (const std::size_t row : rows) queue_.remove(row);
  });
  refresh();
}

void QueueWindow::openFolder() {
  const int row = std::max(table_->currentIndex().row(), 0);
  if (row >= model_->rowCount()) return;
  const std::string& path = queue_.entries()[static_cast<std::size_t>(row)].path;
  try {
    ShellRequest request;
    request.file = toQt(files::folderPart(path));
    ShellEx(context_, request, this);
  } catch (const ShellError& error) {
    QMessageBox::warning(this, context_.text(TextId::ErrorTitle), toQt(error.what()));
  }
}

void QueueWindow::refresh() {
  model_->refresh();
  const batch::QueueCounts counts = queue_.counts();
  const bool any = !queue_.entries().empty();
  start_->setText(startCaption(counts));
  start_->setEnabled(!running_ && counts.waiting + counts.repeatable() > 0);
  stop_->setText(
      context_.text(stopping_ && running_ ? TextId::QueueCancelDrawing : TextId::QueueStop));
  stop_->setEnabled(running_ && !cancel_);
  remove_->setEnabled(any);
  openFolder_->setEnabled(any);
  replace_->setEnabled(!running_);
  summary_->setText(running_ ? QString() : summary(counts));
  if (running_) {
    progressTimer_.start();
  } else {
    progressTimer_.stop();
  }
  showProgress();
}

void QueueWindow::showProgress() {
  const auto all = static_cast<int>(queue_.entries().size());
  const auto over = all - static_cast<int>(queue_.counts().waiting);
  progress_->setRange(0, std::max(all, 1) * kPercent);
  progress_->setValue(over * kPercent + (running_ ? percent_.load() : 0));
}

QString QueueWindow::startCaption(const batch::QueueCounts& counts) const {
  if (counts.waiting == 0 && counts.repeatable() > 0) return context_.text(TextId::QueueAgain);
  const bool begun = counts.waiting < queue_.entries().size();
  return context_.text(begun && counts.waiting > 0 ? TextId::QueueResume : TextId::CaptionStart);
}

QString QueueWindow::summary(const batch::QueueCounts& counts) const {
  if (counts.converted + counts.repeatable() == 0) return {};
  const auto number = [](auto value) { return std::to_string(value); };
  if (counts.cancelled + counts.waiting == 0) {
    return context_.text(TextId::QueueSummary, {number(counts.converted), number(counts.failed),
                                                number(counts.skipped), number(counts.losses)});
  }
  return context_.text(TextId::QueueSummaryCancelled,
                       {number(counts.converted), number(counts.failed), number(counts.skipped),
                        number(counts.cancelled), number(counts.waiting), number(counts.losses)});
}

void QueueWindow::dragEnterEvent(QDragEnterEvent* event) {
  attempt(context_, kModule, "dragEnterEvent", [event] {
    if (!draggedFiles(*event->mimeData()).isEmpty()) event->acceptProposedAction();
  });
}

void QueueWindow::dropEvent(QDropEvent* event) {
  attempt(context_, kModule, "dropEvent", [this, event] {
    QStringList drawings;
    for (const QString& path : draggedFiles(*event->mimeData())) {
      if (!isLayerFile(path)) {
        drawings << path;
      } else if (onLayerFile) {
        onLayerFile(path);
      }
    }
    add(drawings);
    event->acceptProposedAction();
  });
}

}  // namespace quillon::windows
