#include "windows/main_window.h"

#include <QCloseEvent>
#include <QDir>
#include <QLayout>
#include <QMessageBox>
#include <QShortcut>
#include <memory>

#include "base/quotable.h"
#include "convert/messages.h"
#include "files/paths.h"
#include "windows/app_icon.h"
#include "windows/help_viewer.h"
#include "windows/language_dialog.h"
#include "windows/layer_editor.h"
#include "windows/save_failure.h"
#include "windows/screen_fit.h"
#include "windows/shell.h"
#include "windows/trap.h"
#include "windows/window_host.h"

namespace quillon::windows {
namespace {

using texts::TextId;

/// Shows the busy cursor.
class BusyCursor {
 public:
  explicit BusyCursor(QWidget& window) : window_(window) { window_.setCursor(Qt::WaitCursor); }
  ~BusyCursor() { window_.unsetCursor(); }
  BusyCursor(const BusyCursor&) = delete;
  BusyCursor& operator=(const BusyCursor&) = delete;

 private:
  QWidget& window_;
};

}  // namespace

/// Switches the window to converting and back, however the conversion ends.
class MainWindow::ConversionInProgress {
 public:
  explicit ConversionInProgress(MainWindow& window)
      : window_(window),
        busy_(window),
        focused_(window.focusWidget()),
        progress_(window.context_, &window) {
    window_.progress_ = &progress_;
    progress_.show();
    window_.setEnabled(false);
    progress_.setEnabled(true);
    progress_.setFocus();  // its button got the focus while the rest was disabled
  }
  ~ConversionInProgress() {
    progress_.hide();
    window_.progress_ = nullptr;
    window_.setEnabled(true);
    if (focused_ != nullptr) focused_->setFocus();
  }
  ConversionInProgress(const ConversionInProgress&) = delete;
  ConversionInProgress& operator=(const ConversionInProgress&) = delete;

 private:
  MainWindow& window_;
  BusyCursor busy_;
  QPointer<QWidget> focused_;
  ProgressDialog progress_;
};

MainWindow::MainWindow(AppContext& context)
    : QDialog(nullptr, Qt::Window | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      context_(context),
      controls_(*this, context) {
  setObjectName("frmDXF");
  setWindowIcon(appIcon());
  setAcceptDrops(true);
  connectControls();
  addRecentMenu();
  loadResources();
  showSettings({});
  connectPreview();
}

MainWindow::~MainWindow() {
  live_.reset();
  // A focused field loses the focus during destruction, when this window can no longer react.
  controls_.txtDXFDatei->disconnect(this);
}

void MainWindow::connectControls() {
  const auto slot = [this](std::string_view procedure, void (MainWindow::*action)()) {
    return trapped(context_, kModule, procedure, [this, action] { (this->*action)(); });
  };
  const auto onClick = [this, &slot](QPushButton* button, std::string_view procedure,
                                     void (MainWindow::*action)()) {
    connect(button, &QPushButton::clicked, this, slot(procedure, action));
  };
  onClick(controls_.btnDXFbrowse, "btnDXFbrowse_Click", &MainWindow::browseForDrawing);
  onClick(controls_.btnSCRbrowse, "btnSCRbrowse_Click", &MainWindow::browseForScript);
  onClick(controls_.btnBRDbrowse, "btnBRDbrowse_Click", &MainWindow::browseForName);
  onClick(controls_.befLayeredit, "befLayeredit_Click", &MainWindow::befLayeredit_Click);
  onClick(controls_.befSave, "befSave_Click", &MainWindow::befSave_Click);
  onClick(controls_.befLanguage, "befLanguage_Click", &MainWindow::chooseLanguage);
  onClick(controls_.befHilfe, "befHilfe_Click", &MainWindow::befHilfe_Click);
  onClick(controls_.befEnde, "befEnde_Click", &MainWindow::befEnde_Click);
  // Where the initial script path is meaningless, a typed drawing gets its script at once.
  connect(controls_.txtDXFDatei, &QLineEdit::editingFinished, this,
          trapped(context_, kModule, "txtDXFDatei_LostFocus", [this] {
            if (!settings::pathsHaveDrives()) followDrawing();
          }));
  controls_.txtDXFDatei->onTyped = [this] { drawingChanged(); };
  controls_.txtScriptdatei->onTyped = [this] {
    scriptChosen_ = !controls_.txtScriptdatei->path().isEmpty();
  };
  connect(controls_.befStart, &QPushButton::clicked, this, [this] { befStart_Click(); });
  connect(controls_.targets, &QButtonGroup::idClicked, this, [this](int kind) {
    attempt(context_, kModule, "chkBRDSCH_Click", [this, kind] { chooseTarget(kind); });
  });
  connect(controls_.labViewer, &QLabel::linkActivated, this,
          slot("labViewer_Click", &MainWindow::labViewer_Click));
  connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
          slot("befHilfe_Click", &MainWindow::befHilfe_Click));
}

void MainWindow::LoadSettings() {
  // If the settings cannot be loaded, the window shows the defaults.
  attempt(
      context_, kModule, "LoadSettings",
      [this] {
        const texts::Texts texts = context_.texts();
        showSettings(settings::LoadSettings(context_.store, context_.line, texts));
        QStringList warnings;
        for (const auto& warning :
             settings::loadingWarnings(context_.store, context_.line, texts)) {
          warnings << toQt(warning.text);
        }
        if (!warnings.isEmpty()) showNotice(warnings.join('\n'));
        scriptChosen_ = context_.line.given(convert::CommandLineOption::ScriptFile);
        drawingOfLayers_ = controls_.txtDXFDatei->path();
        known_ = optionsShown();
        history_.clear();
      },
      errors::kMayRetry | errors::kMayResume | errors::kMayEnd);
}

settings::Settings MainWindow::settings() const {
  settings::Settings settings;
  settings.dxfFile = fromQt(controls_.txtDXFDatei->path());
  settings.scriptFile = fromQt(controls_.txtScriptdatei->path());
  settings.layerFile = fromQt(controls_.labLayerDatei->text());
  settings.drawingName = fromQt(controls_.txtBRDname->text());
  const int kind = controls_.targets->checkedId();
  settings.targetKind = kind < 0 ? settings::kNoTarget : kind;
  settings.version = controls_.cboVersion->currentIndex();
  settings.unit = base::unitAt(controls_.cboUnit->currentIndex());
  settings.scale = fromQt(controls_.txtmasst->text());
  settings.layer = fromQt(controls_.komStandartlayer->currentText());
  settings.dotted = controls_.chkDotLines->isChecked();
  settings.report = controls_.chkReport->isChecked();
  settings.ellipses = controls_.chkEllipses->isChecked();
  settings.arcToLine = controls_.chkArc->isChecked();
  settings.poly = controls_.cboPoly->currentIndex();
  settings.blocks = controls_.cboBlocks->currentIndex();
  settings.blocksEnabled = controls_.cboBlocks->isEnabled();
  settings.PolyWidth = polyWidth_;
  controls_.rules->read(settings);
  settings.offsetX = fromQt(controls_.txtOffsetX->text());
  settings.offsetY = fromQt(controls_.txtOffsetY->text());
  return settings;
}

void MainWindow::showSettings(const settings::Settings& settings) {
  controls_.txtDXFDatei->setPath(toQt(settings.dxfFile));
  controls_.txtScriptdatei->setPath(toQt(settings.scriptFile));
  controls_.labLayerDatei->setPath(toQt(settings.layerFile));
  controls_.txtBRDname->setText(toQt(settings.drawingName));
  controls_.targets->setExclusive(false);
  for (QAbstractButton* const kind : controls_.targets->buttons()) {
    kind->setChecked(controls_.targets->id(kind) == settings.targetKind);
  }
  controls_.targets->setExclusive(true);
  fillLayers(settings.targetKind);
  controls_.komStandartlayer->setCurrentIndex(
      controls_.komStandartlayer->findText(toQt(settings.layer), Qt::MatchExactly));
  controls_.cboVersion->setCurrentIndex(settings.version);
  controls_.cboUnit->setCurrentIndex(static_cast<int>(settings.unit));
  controls_.txtmasst->setText(toQt(settings.scale));
  controls_.chkDotLines->setChecked(settings.dotted);
  controls_.chkReport->setChecked(settings.report);
  controls_.chkEllipses->setChecked(settings.ellipses);
  controls_.chkArc->setChecked(settings.arcToLine);
  controls_.cboPoly->setCurrentIndex(settings.poly);
  controls_.cboBlocks->setCurrentIndex(settings.blocks);
  controls_.cboBlocks->setEnabled(settings.blocksEnabled);
  polyWidth_ = settings.PolyWidth;
  controls_.rules->showSettings(settings);
  controls_.txtOffsetX->setText(toQt(settings.offsetX));
  controls_.txtOffsetY->setText(toQt(settings.offsetY));
}

void MainWindow::chooseTarget(int kind) {
  settings::Settings chosen = settings();
  settings::selectTarget(chosen, kind, context_.texts());
  showSettings(chosen);
}

void MainWindow::fillLayers(int kind) {
  controls_.komStandartlayer->clear();
  for (const std::string& entry : settings::layersOf(kind, context_.texts())) {
    controls_.komStandartlayer->addItem(toQt(entry));
  }
}

convert::ConversionResult MainWindow::befStart_Click() {
  convert::ConversionResult result;
  if (progress_ != nullptr) return result;
  const auto step = [this](const std::function<void()>& action) {
    return attempt(context_, kModule, "befStart_Click", action, errors::kEveryContinuation);
  };
  bool wanted = false;
  if (!step([&] { wanted = layerEditor_ == nullptr || layerEditor_->offerToSave(); }))
    return result;
  if (!wanted) return result;
  if (step([&] { result = convertShown(); })) step([&] { showResult(result); });
  return result;
}

/// Converts while showing the progress dialog, with this window disabled.
convert::ConversionResult MainWindow::convertShown() {
  const ConversionInProgress running(*this);
  const convert::Surroundings surroundings =
      settings::surroundingsOf(context_.store, context_.LanguageOffset);
  WindowHost host(context_, *progress_, this);
  host.onDrawingChosen = [this](const QString& path) {
    showDrawing(path);
    if (!settings::pathsHaveDrives()) followDrawing();
  };
  for (const convert::Message& warning : settings::fieldWarnings(settings(), context_.texts())) {
    host.tell(warning);
  }
  const convert::ConversionJob job = jobShown();
  if (context_.faults != nullptr) {
    using errors::parameterRecord;
    context_.faults->CallStack(parameterRecord("dxfFile", errors::rendered(job.dxfFile)));
    context_.faults->CallStack(parameterRecord("scriptFile", errors::rendered(job.scriptFile)));
  }
  return convert::convertDXF(job, host, surroundings);
}

void MainWindow::showResult(const convert::ConversionResult& result) {
  controls_.result->nameKeptLayers(keptLayers());
  controls_.result->showResult(result);
  // From now on the layer file belongs to this drawing as well.
  if (result.outcome != convert::Outcome::Ended) {
    drawingOfLayers_ = controls_.txtDXFDatei->path();
    rememberDrawing(drawingOfLayers_);
  }
  makeRoom();
  activateWindow();
  // Once it is laid out, below options that may be longer than the window is high.
  QTimer::singleShot(0, this, [this] { controls_.content->ensureWidgetVisible(controls_.result); });
}

void MainWindow::showNotice(const QString& notice) {
  controls_.result->showNotice(notice);
  makeRoom();
}

void MainWindow::makeRoom() {
  if (isMaximized() || isFullScreen()) return;
  controls_.content->updateGeometry();  // its contents may have changed while hidden
  layout()->invalidate();
  const QMargins margins = layout()->contentsMargins();
  const int buttons = layout()->totalSizeHint().height() - controls_.splitter->sizeHint().height();
  const int around = margins.left() + margins.right();
  const int wide = std::max(width(), around + controls_.widthNeeded());
  // The height of wrapped text depends on the width.
  const int column = controls_.columnWidth(wide - around);
  const int high = buttons + controls_.content->heightNeeded(column);
  resize(QSize(wide, std::max(height(), high)).boundedTo(roomOnScreen(*this)));
  controls_.shareWidth(width() - around);
  if (isVisible()) keepOnScreen(*this);
}

void MainWindow::befLayeredit_Click() {
  if (layerEditor_ != nullptr) {
    layerEditor_->loadResources();
    layerEditor_->layerScanDXF(controls_.txtDXFDatei->path());
    layerEditor_->raise();
    layerEditor_->activateWindow();
    return;
  }
  const BusyCursor busy(*this);
  auto editor = std::make_unique<LayerEditor>(
      context_, controls_.labLayerDatei->text(),
      [this](const QString& path) { takeLayerFile(path); }, this);
  editor->layerScanDXF(controls_.txtDXFDatei->path());
  editor->setAttribute(Qt::WA_DeleteOnClose);
  layerEditor_ = editor.release();
  layerEditor_->show();
}

void MainWindow::befSave_Click() {
  const settings::Settings shown = settings();
  if (!settings::SaveSettings(context_.store, shown)) {
    showSaveFailure(context_, this);
    return;
  }
  QStringList notices{context_.text(TextId::SettingsSaved,
                                    {base::quotable(files::fromPath(context_.store.file()))})};
  for (const auto& warning : settings::savingWarnings(shown, context_.texts())) {
    notices << toQt(warning.text);
  }
  showNotice(notices.join('\n'));
}

void MainWindow::befHilfe_Click() { showHelp(kMainWindowHelp); }

void MainWindow::showHelp(int page) {
  if (openHelp(context_, page, this)) return;
  const QString program = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
  QMessageBox::warning(this, context_.text(TextId::HelpErrorTitle),
                       context_.text(TextId::HelpNotInstalled, {base::quotable(fromQt(program))}));
}

void MainWindow::befEnde_Click() {
  // Relative paths stay what they are while the user may still save something, or go on.
  if (close()) QDir::setCurrent(toQt(files::fromPath(context_.store.programFolder())));
}

void MainWindow::labViewer_Click() {
  if (context_.viewerPage.isEmpty()) {
    showHelp(kPreviewHelp);
    return;
  }
  try {
    ShellEx(context_, {context_.viewerPage, kShowDefault, {}, {}, "open"}, this);
  } catch (const ShellError& error) {
    QMessageBox::critical(this, context_.text(TextId::ErrorTitle), toQt(error.what()));
  }
}

void MainWindow::chooseLanguage() {
  LanguageDialog dialog(
      context_, [this] { applyLanguage(); }, this);
  dialog.exec();
}

void MainWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) {
    restoreState();
    makeRoom();
  }
  QDialog::showEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // until we know that closing is allowed
  attempt(context_, kModule, "closeEvent", [this, event] {
    if (progress_ == nullptr) {
      // The user may go on with the queue, or with unsaved changes in the editor.
      const bool closed = (queue_ == nullptr || queue_->close()) &&
                          (layerEditor_ == nullptr || layerEditor_->close());
      event->setAccepted(closed);
      if (closed) saveState();
      return;
    }
    progress_->cancel();  // the conversion has to end first
  });
}

}  // namespace quillon::windows
