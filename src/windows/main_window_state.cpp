// What the main window remembers from one run to the next.
#include <QAction>
#include <QDir>
#include <QMenu>

#include "files/paths.h"
#include "windows/live_preview.h"
#include "windows/main_window.h"
#include "windows/screen_fit.h"
#include "windows/trap.h"
#include "windows/window_state.h"

namespace quillon::windows {
namespace {

using texts::TextId;

}  // namespace

void MainWindow::restoreState() {
  if (isPlaced_) return;
  isPlaced_ = true;
  const WindowState state = WindowState::load(context_.store);
  controls_.rules->setUnfolded(state.rulesUnfolded);
  const int room = roomOnScreen(*this).width();
  const bool isNarrow = room < controls_.content->sizeHint().width() + PreviewPanel::kLeastWidth;
  // Beside the other buttons there is no room for their texts.
  for (QToolButton* const tool : {controls_.btnUndo, controls_.btnPreview}) {
    tool->setToolButtonStyle(isNarrow ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
  }
  isFoldedByUser_ = state.previewFolded;
  controls_.btnPreview->setChecked(!state.previewFolded && !isNarrow);
  if (!state.geometry.isEmpty()) {
    restoreGeometry(state.geometry);
  } else if (controls_.btnPreview->isChecked()) {
    constexpr int kHighAtFirst = 660;  // a picture needs more height than the controls
    resize(width(), std::min(kHighAtFirst, roomOnScreen(*this).height()));
  }
  if (!state.splitter.isEmpty()) {
    controls_.isBorderMoved = controls_.splitter->restoreState(state.splitter);
  }
  if (!state.previewParts.isEmpty()) {
    controls_.preview->splitter().restoreState(state.previewParts);
  }
}

void MainWindow::saveState() {
  WindowState state = WindowState::load(context_.store);
  state.geometry = saveGeometry();
  if (controls_.isBorderMoved) state.splitter = controls_.splitter->saveState();
  state.previewParts = controls_.preview->splitter().saveState();
  state.previewFolded = isFoldedByUser_;
  state.rulesUnfolded = controls_.rules->isUnfolded();
  state.save(context_.store);
}

void MainWindow::addRecentMenu() {
  recent_ = controls_.txtDXFDatei->addAction(style()->standardIcon(QStyle::SP_ArrowDown),
                                             QLineEdit::TrailingPosition);
  recent_->setObjectName("actRecent");
  recent_->setShortcut(Qt::CTRL | Qt::Key_R);
  addAction(recent_);
  connect(recent_, &QAction::triggered, this,
          trapped(context_, kModule, "actRecent_Click", [this] { showRecentMenu(); }));
}

void MainWindow::showRecentMenu() {
  const QStringList drawings = recentDrawings();
  auto* const menu = new QMenu(this);
  menu->setObjectName("mnuRecent");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const QString& drawing : drawings) {
    QAction* const entry = menu->addAction(QDir::toNativeSeparators(drawing));
    connect(entry, &QAction::triggered, this,
            trapped(context_, kModule, "mnuRecent_Click",
                    [this, drawing] { setDrawing(QDir::toNativeSeparators(drawing)); }));
  }
  if (drawings.isEmpty()) {
    menu->addAction(context_.text(TextId::NoRecentDrawings))->setEnabled(false);
  }
  menu->popup(controls_.txtDXFDatei->mapToGlobal(controls_.txtDXFDatei->rect().bottomLeft()));
}

QStringList MainWindow::recentDrawings() const {
  QStringList drawings;
  for (const QString& drawing : WindowState::load(context_.store).recentDrawings) {
    if (files::namesFile(files::toPath(fromQt(drawing)))) drawings << drawing;
  }
  return drawings;
}

void MainWindow::rememberDrawing(const QString& path) {
  const std::filesystem::path file = files::findExisting(fromQt(path));
  if (!files::namesFile(file)) return;
  WindowState state = WindowState::load(context_.store);
  state.remember(toQt(files::fromPath(files::wholePath(file))));
  state.save(context_.store);
}

}  // namespace quillon::windows
