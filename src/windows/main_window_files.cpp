// How the main window gets its files: from dialogs, by drag and drop, or derived from the drawing.
#include <QDir>
#include <QDropEvent>
#include <QMessageBox>
#include <optional>

#include "base/quotable.h"
#include "convert/messages.h"
#include "files/paths.h"
#include "windows/dragged_files.h"
#include "windows/file_dialog.h"
#include "windows/main_window.h"
#include "windows/trap.h"
#include "windows/window_host.h"

namespace quillon::windows {
namespace {

using texts::TextId;

bool isFolder(const QString& path) { return files::namesFolder(files::toPath(fromQt(path))); }

}  // namespace

void MainWindow::setDrawing(const QString& path) {
  showDrawing(path);
  putScriptBeside();
  rememberDrawing(path);
}

void MainWindow::showDrawing(const QString& path) {
  const bool another = !isSamePath(path, controls_.txtDXFDatei->path());
  controls_.txtDXFDatei->setPath(path);
  if (another) drawingChanged();
}

void MainWindow::drawingChanged() {
  controls_.result->forgetResult();
  controls_.result->nameKeptLayers(keptLayers());
}

QString MainWindow::keptLayers() const {
  const QString& last = drawingOfLayers_;
  const bool any = !last.isEmpty() && fromQt(last) != settings::Settings{}.dxfFile;
  const bool kept = any && !isSamePath(last, controls_.txtDXFDatei->path());
  return kept ? controls_.labLayerDatei->text() : QString();
}

void MainWindow::takeLayerFile(const QString& path) {
  controls_.labLayerDatei->setPath(path);
  drawingOfLayers_ = controls_.txtDXFDatei->path();
  controls_.result->nameKeptLayers({});
}

convert::ConversionJob MainWindow::jobShown() const {
  convert::ConversionJob job = settings::jobOf(settings(), context_.line);
  // If the drawing does not exist, Start asks for one; a script derived from it must wait until
  // then.
  const bool asked = !files::namesFile(files::findExisting(job.dxfFile));
  const bool follows = toQt(job.scriptFile) == followedScript_ && !scriptChosen_;
  if (asked && follows && !settings::pathsHaveDrives()) job.scriptBesideDrawing = true;
  // A script derived from an existing drawing has exactly its name.
  job.literalPaths = files::namesHaveCase() && toQt(job.scriptFile) == followedScript_ &&
                     files::namesFile(files::toPath(job.dxfFile));
  return job;
}

void MainWindow::warnOfSplitPath() {
  if (context_.line.splitPath.empty()) return;
  QMessageBox::warning(
      this, context_.text(TextId::WarningTitle),
      context_.text(TextId::PathSplitBySlash, {base::quotable(context_.line.splitPath)}));
}

void MainWindow::followDrawing() {
  const QString script = controls_.txtScriptdatei->path();
  const bool initial = fromQt(script) == settings::Settings{}.scriptFile;
  if (initial || script == followedScript_) putScriptBeside();
}

void MainWindow::putScriptBeside() {
  const std::string drawing = fromQt(controls_.txtDXFDatei->path());
  if (scriptChosen_ || drawing.empty() || drawing == settings::Settings{}.dxfFile) return;
  followedScript_ = toQt(files::scriptBeside(drawing));
  controls_.txtScriptdatei->setPath(followedScript_);
}

void MainWindow::browseForDrawing() {
  ObjFiledialog dialog(context_);
  dialog.setFilename("*.*");
  dialog.Filter1Text = context_.text(TextId::DrawingFiles);
  // All files, as drawings may have any extension.
  dialog.Filter1Suffix = "*.*";
  dialog.DialogTitle = context_.text(TextId::DrawingDialogTitle);
  dialog.Flags = kOpenFlags;
  dialog.InitDir = toQt(context_.store.GetDirectory(fromQt(controls_.txtDXFDatei->path())));
  const QString path = dialog.ShowOpen(this);
  if (!path.isEmpty()) setDrawing(path);
}

void MainWindow::browseForScript() {
  ObjFiledialog dialog(context_);
  dialog.setFilename("*.SCR");
  dialog.Filter1Text = context_.text(TextId::ScriptFiles);
  dialog.Filter1Suffix = "*.scr";
  dialog.Filter2Text = context_.text(TextId::AllFiles);
  dialog.Filter2Suffix = "*.*";
  dialog.DialogTitle = context_.text(TextId::ScriptDialogTitle);
  dialog.Flags = kNameFlags;
  dialog.InitDir = toQt(context_.store.GetDirectory(fromQt(controls_.txtScriptdatei->path())));
  const QString path = dialog.ShowOpen(this);
  if (path.isEmpty()) return;
  controls_.txtScriptdatei->setPath(path);
  scriptChosen_ = true;
}

void MainWindow::browseForName() {
  ObjFiledialog dialog(context_);
  dialog.setFilename("*");
  dialog.Filter1Text = "BRD_SCH_LBR_Name";
  dialog.Filter1Suffix = "*";
  dialog.DialogTitle = context_.text(TextId::DrawingNameDialogTitle);
  dialog.Flags = kNameFlags;
  dialog.InitDir = toQt(context_.store.GetDirectory(fromQt(controls_.txtBRDname->text())));
  const QString path = dialog.ShowOpen(this);
  // The name ends before the first dot of the whole path; kept so that scripts stay the same.
  if (!path.isEmpty()) controls_.txtBRDname->setText(path.left(path.indexOf('.')));
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  attempt(context_, kModule, "dragEnterEvent", [event] {
    if (!draggedFiles(*event->mimeData()).isEmpty()) event->acceptProposedAction();
  });
}

void MainWindow::dropEvent(QDropEvent* event) {
  attempt(context_, kModule, "dropEvent", [this, event] {
    takeFiles(draggedFiles(*event->mimeData()));
    event->acceptProposedAction();
  });
}

void MainWindow::takeFiles(const QStringList& paths) {
  QString layers;
  QStringList drawings;
  for (const QString& path : paths) {
    if (isLayerFile(path)) {
      layers = path;
    } else {
      drawings << path;
    }
  }
  const bool isOne = drawings.size() == 1 && !isFolder(drawings.front());
  if (isOne) setDrawing(drawings.front());
  // The layer file belongs to the drawing that came with it.
  if (!layers.isEmpty()) takeLayerFile(layers);
  if (!isOne && !drawings.isEmpty()) shownQueue().add(drawings);
}

/// Asks and warns as Start does.
std::optional<convert::ConversionJob> MainWindow::jobForQueue() {
  if (layerEditor_ != nullptr && !layerEditor_->offerToSave()) return std::nullopt;
  for (const convert::Message& warning : settings::fieldWarnings(settings(), context_.texts())) {
    QMessageBox::warning(queue_, toQt(warning.title), boxText(warning.text));
  }
  return jobShown();
}

QueueWindow& MainWindow::shownQueue() {
  if (queue_ == nullptr) {
    queue_ = new QueueWindow(
        context_, [this] { return jobForQueue(); }, this);
    queue_->onLayerFile = [this](const QString& path) { takeLayerFile(path); };
    queue_->setAttribute(Qt::WA_DeleteOnClose);
  }
  queue_->show();
  queue_->raise();
  queue_->activateWindow();
  return *queue_;
}

}  // namespace quillon::windows
