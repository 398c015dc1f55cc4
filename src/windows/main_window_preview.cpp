// How the main window keeps the preview of what its settings come to.
#include <QKeyEvent>
#include <QMessageBox>
#include <QShortcut>

#include "base/quotable.h"
#include "files/paths.h"
#include "windows/layer_failure.h"
#include "windows/live_preview.h"
#include "windows/main_window.h"
#include "windows/question.h"
#include "windows/trap.h"

namespace quillon::windows {
namespace {

using texts::TextId;

/// Changes that follow each other so quickly, such as typed digits, are undone as one.
constexpr int kOneChange = 800;  // milliseconds
constexpr std::size_t kMostUndone = 100;

/// A field takes the keys of Undo even where it has nothing to undo.
class UndoFilter : public QObject {
 public:
  explicit UndoFilter(QLineEdit& field) : QObject(&field), field_(field) {
    field.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::ShortcutOverride || field_.isUndoAvailable()) {
      return QObject::eventFilter(watched, event);
    }
    if (!static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) return false;
    event->ignore();
    return true;
  }

 private:
  QLineEdit& field_;
};

void passOnUndo(QLineEdit& field) { new UndoFilter(field); }

}  // namespace

void MainWindow::connectPreview() {
  live_ = std::make_unique<LivePreview>([this](const LivePicture& picture) {
    attempt(context_, kModule, "showPicture", [this, &picture] { showPicture(picture); });
  });
  optionTimer_.setSingleShot(true);
  optionTimer_.setInterval(0);
  connect(&optionTimer_, &QTimer::timeout, this,
          trapped(context_, kModule, "takeOptions", [this] { takeOptions(); }));
  const auto changed = [this] { optionChanged(); };
  for (QComboBox* const list : controls_.content->findChildren<QComboBox*>()) {
    connect(list, &QComboBox::currentIndexChanged, this, changed);
  }
  for (QLineEdit* const field : controls_.content->findChildren<QLineEdit*>()) {
    connect(field, &QLineEdit::textChanged, this, changed);
    passOnUndo(*field);
  }
  for (QAbstractButton* const button : controls_.content->findChildren<QAbstractButton*>()) {
    if (button->isCheckable()) connect(button, &QAbstractButton::toggled, this, changed);
  }
  controls_.rules->onChanged = changed;
  controls_.labLayerDatei->onChanged = changed;
  controls_.preview->onOffer = [this](workbench::Offer offer) { takeOffer(offer); };
  controls_.preview->onAssigned = [this](const std::string& name, const std::string& entry) {
    changeLayerFile(
        [&](const std::string& path) { return workbench::assignLayer(path, name, entry); });
  };
  controls_.preview->onAreas = [this](const std::string& name, bool areas) {
    changeLayerFile(
        [&](const std::string& path) { return workbench::setAreas(path, name, areas); });
  };
  connect(controls_.btnUndo, &QToolButton::clicked, this,
          trapped(context_, kModule, "btnUndo_Click", [this] { undo(); }));
  connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, this,
          trapped(context_, kModule, "btnUndo_Click", [this] { undo(); }));
  connect(controls_.btnPreview, &QToolButton::clicked, this,
          [this](bool shown) { isFoldedByUser_ = !shown; });
  connect(controls_.btnPreview, &QToolButton::toggled, this, [this](bool shown) {
    attempt(context_, kModule, "btnPreview_Click", [this, shown] { foldPreview(!shown); });
  });
  connect(controls_.splitter, &QSplitter::splitterMoved, this,
          [this] { controls_.isBorderMoved = true; });
  known_ = optionsShown();
}

settings::Settings MainWindow::optionsShown() const {
  settings::Settings options = settings();
  options.dxfFile.clear();
  options.scriptFile.clear();
  options.layerFile.clear();
  return options;
}

bool MainWindow::isPreviewCurrent() const { return !optionTimer_.isActive() && !live_->isBusy(); }

void MainWindow::optionChanged() {
  if (!optionTimer_.isActive()) optionTimer_.start();
}

void MainWindow::takeOptions() {
  settings::Settings options = optionsShown();
  if (options != known_) {
    const bool isTyped = qobject_cast<QLineEdit*>(focusWidget()) != nullptr;
    const bool isSameChange =
        isTyped && sinceChange_.isValid() && sinceChange_.elapsed() < kOneChange;
    if (!isSameChange || history_.empty()) history_.push_back(known_);
    if (history_.size() > kMostUndone) history_.erase(history_.begin());
    known_ = std::move(options);
    sinceChange_.start();
  }
  controls_.btnUndo->setEnabled(!history_.empty());
  refreshPreview();
}

void MainWindow::undo() {
  optionTimer_.stop();
  takeOptions();
  if (history_.empty()) return;
  settings::Settings former = history_.back();
  history_.pop_back();
  const settings::Settings shown = settings();
  former.dxfFile = shown.dxfFile;
  former.scriptFile = shown.scriptFile;
  former.layerFile = shown.layerFile;
  showSettings(former);
  known_ = optionsShown();
  sinceChange_.invalidate();
  controls_.btnUndo->setEnabled(!history_.empty());
}

void MainWindow::refreshPreview() {
  if (live_ == nullptr || controls_.preview->isHidden()) return;
  convert::ConversionJob job = jobShown();
  const std::filesystem::path drawing =
      job.literalPaths ? files::toPath(job.dxfFile) : files::findExisting(job.dxfFile);
  // A drawing that is shown may be missing for a moment, while it is replaced.
  const bool isShown = files::fromPath(drawing) == controls_.preview->picture().path;
  if (job.dxfFile.empty() || !(isShown || files::namesFile(drawing))) {
    live_->wantNothing();
    controls_.preview->showNothing();
    return;
  }
  job.dxfFile = files::fromPath(drawing);
  // What has no influence on the picture must not start it again.
  job.literalPaths = true;
  job.scriptFile.clear();
  job.report = false;
  if (job.dxfFile != controls_.preview->picture().path) controls_.preview->showWorking();
  live_->want(job, settings::surroundingsOf(context_.store, context_.LanguageOffset));
}

void MainWindow::showPicture(const LivePicture& picture) {
  controls_.preview->showPicture(picture);
  controls_.preview->showAssignments(controls_.labLayerDatei->text());
}

void MainWindow::takeOffer(workbench::Offer offer) {
  const LivePicture& picture = controls_.preview->picture();
  if (picture.result == nullptr) return;
  sinceChange_.invalidate();  // one change, whatever was typed before
  showSettings(workbench::taken(offer, settings(), *picture.result, picture.drawing.get()));
  optionChanged();
}

/// A layer file beside the drawing may be the work of somebody else.
bool MainWindow::mayTakeFound(const std::string& path) {
  if (files::isMissing(files::toPath(path))) return true;
  return askQuestion(context_, this, context_.text(TextId::WarningTitle),
                     context_.text(TextId::LayerFileFound, {base::quotable(path)}),
                     QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

/// False where the file stays as it is, after a message.
bool MainWindow::changeFile(const std::string& path, const LayerFileChange& change) {
  bool kept = true;
  const std::string failure = layerFailure(context_, path, [&] { kept = change(path); });
  if (!failure.empty()) {
    QMessageBox::critical(this, context_.text(TextId::ErrorTitle), toQt(failure));
  } else if (!kept) {
    QMessageBox::warning(this, context_.text(TextId::WarningTitle),
                         context_.text(TextId::AssignmentNotKept, {base::quotable(path)}));
  }
  return kept && failure.empty();
}

/// Changes the layer file, or makes one beside the drawing.
void MainWindow::changeLayerFile(const LayerFileChange& change) {
  const QString chosen = controls_.labLayerDatei->text();
  std::string path = fromQt(chosen);
  if (path.empty()) {
    const std::string beside = files::layerFileBeside(controls_.preview->picture().path);
    path = files::fromPath(files::findExisting(beside));  // it may be there in another case
  }
  if ((!chosen.isEmpty() || mayTakeFound(path)) && changeFile(path, change)) {
    takeLayerFile(toQt(path));
  } else {
    controls_.preview->showAssignments(chosen);
    return;
  }
  live_->again();
  refreshPreview();
  controls_.preview->showAssignments(toQt(path));
}

void MainWindow::foldPreview(bool folded) {
  controls_.preview->setVisible(!folded);
  if (folded) {
    live_->wantNothing();
  } else {
    refreshPreview();
  }
  makeRoom();
}

}  // namespace quillon::windows
