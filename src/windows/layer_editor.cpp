#include "windows/layer_editor.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "base/quotable.h"
#include "base/read_error.h"
#include "base/run_time_error.h"
#include "convert/layer_file.h"
#include "convert/layer_scan.h"
#include "convert/messages.h"
#include "files/paths.h"
#include "texts/error_texts.h"
#include "windows/enter_key.h"
#include "windows/file_dialog.h"
#include "windows/help_viewer.h"
#include "windows/layer_failure.h"
#include "windows/named_widget.h"
#include "windows/question.h"
#include "windows/trap.h"
#include "windows/whole_text_delegate.h"

namespace quillon::windows {
namespace {

using texts::TextId;

constexpr texts::TextRow kEditorToolTips =
    texts::textRow(TextId::EditorTipBrowse, TextId::EditorTipAssignments);

}  // namespace

LayerEditor::LayerEditor(AppContext& context, const QString& path,
                         std::function<void(QString)> accepted, QWidget* parent)
    : QDialog(parent), context_(context), accepted_(std::move(accepted)), rows_(context.texts()) {
  setObjectName("frmLayers");
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  makeControls();
  layOut();
  connectControls();
  loadResources();
  path_->setText(path);
  // A bare drive or folder is not a file.
  const bool bare = path.indexOf(':') == path.size() - 1 || path.indexOf('\\') == path.size() - 1;
  if (namesFile() && !bare) {
    btnScan_Click();
  } else {
    btnNew_Click();
  }
}

void LayerEditor::makeControls() {
  labLay_ = makeNamed<QLabel>(*this, "labLay");
  path_ = makeNamed<QLineEdit>(*this, "txtLayerDatei");
  path_->setText("C:\\*.lay");
  browse_ = makeNamed<QPushButton>(*this, "btnLayerbrowse");
  scan_ = makeNamed<QPushButton>(*this, "btnScan");
  new_ = makeNamed<QPushButton>(*this, "btnNew");
  save_ = makeNamed<QPushButton>(*this, "btnSave");
  saveAs_ = makeNamed<QPushButton>(*this, "btnSaveAs");
  labScan_ = makeNamed<QLabel>(*this, "labScan");
  scanned_ = makeNamed<QListWidget>(*this, "lstScanDXF");
  scanned_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  scanned_->setUniformItemSizes(true);
  scanned_->setItemDelegate(new WholeTextDelegate(scanned_));
  take_ = makeNamed<QPushButton>(*this, "btnTake");
  take_->setText("==>");
  labLayer_ = makeNamed<QLabel>(*this, "labLayer");
  grid_ = new LayerGrid(context_, rows_, this);
  labCheck_ = makeNamed<QLabel>(*this, "labCheck");
  labDelHint_ = makeNamed<QLabel>(*this, "labDelHint");
  ok_ = makeNamed<QPushButton>(*this, "OKButton");
  cancel_ = makeNamed<QPushButton>(*this, "CancelButton");
  help_ = makeNamed<QPushButton>(*this, "befHilfe");
  labLay_->setBuddy(path_);
  labScan_->setBuddy(scanned_);
  labLayer_->setBuddy(grid_);
}

void LayerEditor::layOut() {
  auto* const file = new QGridLayout;
  file->addWidget(labLay_, 0, 0);
  file->addWidget(path_, 0, 1);
  file->addWidget(browse_, 0, 2);
  auto* const actions = new QHBoxLayout;
  for (QPushButton* const button : {scan_, new_, save_, saveAs_}) actions->addWidget(button);
  actions->addStretch();
  auto* const tables = new QGridLayout;
  tables->addWidget(labScan_, 0, 0);
  tables->addWidget(scanned_, 1, 0);
  tables->addWidget(labCheck_, 2, 0);
  tables->addWidget(take_, 1, 1);
  tables->addWidget(labLayer_, 0, 2);
  tables->addWidget(grid_, 1, 2);
  tables->addWidget(labDelHint_, 2, 2);
  tables->setColumnStretch(0, 2);
  tables->setColumnStretch(2, 5);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(help_);
  buttons->addStretch();
  buttons->addWidget(ok_);
  buttons->addWidget(cancel_);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(file);
  layout->addLayout(actions);
  layout->addLayout(tables, 1);
  layout->addLayout(buttons);
  constexpr int kColumns = 110;
  constexpr int kRows = 36;
  const QSize wanted(fontMetrics().averageCharWidth() * kColumns, fontMetrics().height() * kRows);
  const QSize frame(fontMetrics().height(), 3 * fontMetrics().height());
  resize(wanted.boundedTo(screen()->availableSize() - frame));
}

void LayerEditor::connectControls() {
  const auto slot = [this](std::string_view procedure, std::function<void()> action) {
    return trapped(context_, kModule, procedure, std::move(action));
  };
  const auto onClick = [this, &slot](QPushButton* button, std::string_view procedure,
                                     std::function<void()> action) {
    pressOnEnter(*button);
    connect(button, &QPushButton::clicked, this, slot(procedure, std::move(action)));
  };
  onClick(browse_, "btnLayerbrowse_Click", [this] { btnLayerbrowse_Click(); });
  onClick(scan_, "btnScan_Click", [this] {
    if (mayDiscard()) btnScan_Click();
  });
  onClick(new_, "btnNew_Click", [this] {
    if (mayDiscard()) btnNew_Click();
  });
  onClick(save_, "btnSave_Click", [this] { saveLayers(path_->text()); });
  onClick(saveAs_, "btnSaveAs_Click", [this] { saveLayers({}); });
  onClick(take_, "btnTake_Click", [this] { btnTake_Click(); });
  onClick(help_, "befHilfe_Click", [this] { befHilfe_Click(); });
  onClick(ok_, "OKButton_Click", [this] { OKButton_Click(); });
  onClick(cancel_, "CancelButton_Click", [this] { QDialog::reject(); });
  connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
          slot("befHilfe_Click", [this] { befHilfe_Click(); }));
  connect(scanned_, &QListWidget::itemDoubleClicked, this,
          slot("lstScanDXF_DblClick", [this] { btnTake_Click(); }));
  grid_->onChanged = [this] { markAssigned(); };
}

/// For Esc and closing the window; the Cancel button does not ask.
void LayerEditor::reject() {
  attempt(context_, kModule, "reject", [this] {
    if (mayDiscard()) QDialog::reject();
  });
}

void LayerEditor::loadResources() {
  setWindowTitle(context_.text(TextId::EditorTitle));
  const auto caption = [this](auto* control, TextId id) { control->setText(context_.text(id)); };
  caption(cancel_, TextId::EditorCancel);
  caption(ok_, TextId::EditorOk);
  caption(browse_, TextId::EditorBrowse);
  caption(scan_, TextId::EditorRead);
  caption(save_, TextId::EditorSave);
  caption(labLay_, TextId::EditorFile);
  caption(help_, TextId::EditorHelp);
  caption(new_, TextId::EditorNew);
  caption(saveAs_, TextId::EditorSaveAs);
  caption(labScan_, TextId::EditorScannedLayers);
  caption(labLayer_, TextId::EditorAssignments);
  caption(labCheck_, TextId::EditorCheckedHint);
  caption(labDelHint_, TextId::EditorDeleteHint);
  grid_->loadResources();
  toolTips_.clear();
  for (const TextId id : kEditorToolTips) toolTips_.add(*this, context_.texts()(id));
}

void LayerEditor::layerScanDXF(const QString& drawing) {
  drawing_ = drawing;
  scanned_->clear();
  const texts::Texts texts = context_.texts();
  const convert::Messages messages(texts);
  try {
    for (const std::string& name : convert::layerScanDXF(fromQt(drawing))) {
      auto* const item = new QListWidgetItem(toQt(name), scanned_);
      item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
    }
  } catch (const base::RunTimeError& error) {
    QMessageBox::warning(this, context_.text(TextId::FileErrorTitle),
                         toQt(texts::faultText(error, fromQt(drawing), texts)));
  } catch (const base::ReadError& error) {
    const std::string reason = texts::reasonText(error.reason(), texts);
    QMessageBox::warning(this, context_.text(TextId::FileErrorTitle),
                         toQt(messages.unreadableText(fromQt(drawing), reason)));
  }
  markAssigned();
}

/// Ticks the scanned layers that the table contains.
void LayerEditor::markAssigned() {
  const settings::LayerRows::Names assigned = rows_.assignedNames();
  for (int i = 0; i < scanned_->count(); ++i) {
    QListWidgetItem* const item = scanned_->item(i);
    const bool found = assigned.count(settings::LayerRows::foldedName(fromQt(item->text()))) > 0;
    item->setCheckState(found ? Qt::Checked : Qt::Unchecked);
  }
}

bool LayerEditor::namesFile() const {
  const std::string path = fromQt(path_->text());
  return !path.empty() && files::namesFile(files::findExisting(path));
}

void LayerEditor::btnScan_Click() {
  grid_->commit();
  if (!namesFile()) {
    QApplication::beep();
    btnNew_Click();
    return;
  }
  const std::vector<convert::LayerRow> rows = convert::readLayerRows(fromQt(path_->text()));
  rows_.load(rows);
  grid_->loadResources();
  grid_->refresh();
  markAssigned();
  ok_->setFocus();
  tellOfAnotherKind();
  if (rows_.leftOut() == 0) return;
  QMessageBox::information(
      this, context_.text(TextId::EditorWarningTitle),
      context_.text(TextId::EditorShowsFirstRows, {std::to_string(rows.size())}));
}

/// Warns about a file of another kind, which loads as empty.
void LayerEditor::tellOfAnotherKind() {
  const std::string path = fromQt(path_->text());
  const convert::LayerFileKind kind = convert::layerFileKind(path, files::readWholeFile(path));
  if (kind == convert::LayerFileKind::LayerFile) return;
  const texts::Texts texts = context_.texts();
  QMessageBox::warning(this, context_.text(TextId::EditorErrorTitle),
                       toQt(convert::Messages(texts).notALayerFileText(path, kind)));
}

void LayerEditor::btnNew_Click() {
  grid_->commit();
  rows_.clear();
  grid_->loadResources();
  grid_->refresh();
  markAssigned();
  ok_->setFocus();
  path_->clear();
}

void LayerEditor::btnTake_Click() {
  grid_->commit();
  std::vector<std::string> names;
  for (int i = 0; i < scanned_->count(); ++i) {
    if (scanned_->item(i)->isSelected()) names.push_back(fromQt(scanned_->item(i)->text()));
  }
  rows_.beginChange();
  rows_.take(names);
  grid_->refresh();
  markAssigned();
}

void LayerEditor::btnLayerbrowse_Click() {
  ObjFiledialog dialog(context_);
  dialog.Filter = QStringLiteral("*.LAY") + QChar(u'\0') + "*.LAY";
  dialog.DefaultExt = "LAY";
  dialog.DialogTitle = "Layer Definition File open";
  dialog.Flags = kOpenFlags;
  dialog.InitDir = toQt(context_.store.GetDirectory(fromQt(path_->text())));
  const QString path = dialog.ShowOpen(this);
  if (!path.isEmpty()) path_->setText(path);
}

/// The suggested path for a new layer file; "" without a drawing.
QString LayerEditor::newFileBesideDrawing() const {
  const std::filesystem::path drawing = files::findExisting(fromQt(drawing_));
  if (drawing_.isEmpty() || !files::namesFile(drawing)) return {};
  return toQt(files::layerFileBeside(files::fromPath(std::filesystem::absolute(drawing))));
}

QString LayerEditor::askForPath() {
  const QString offered = path_->text().isEmpty() ? newFileBesideDrawing() : QString();
  ObjFiledialog dialog(context_);
  dialog.Filter = QStringLiteral("*.LAY") + QChar(u'\0') + "*.LAY";
  dialog.setFilename(offered.isEmpty() ? "*.LAY" : toQt(files::lastComponent(fromQt(offered))));
  dialog.DefaultExt = "LAY";
  dialog.DialogTitle = context_.text(TextId::EditorSaveDialogTitle);
  const QString startPath = offered.isEmpty() ? path_->text() : offered;
  dialog.InitDir = toQt(context_.store.GetDirectory(fromQt(startPath)));
  return dialog.ShowSave(this);
}

bool LayerEditor::saveLayers(QString path) {
  grid_->commit();
  if (path.isEmpty()) path = askForPath();
  if (path.isEmpty()) {
    QApplication::beep();
    return false;
  }
  // Rows that did not fit in the table would be lost, from this file or from the one it replaces.
  const std::size_t inFile = convert::readLayerRows(fromQt(path)).size();
  const std::size_t unseen = inFile > settings::LayerRows::kMostRows
                                 ? inFile - settings::LayerRows::kMostRows
                                 : rows_.leftOut();
  if (unseen > 0 &&
      askQuestion(context_, this, context_.text(TextId::EditorWarningTitle),
                  context_.text(TextId::EditorLosesRows, {std::to_string(unseen)}),
                  QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes) {
    return false;
  }
  const std::string failure = layerFailure(
      context_, fromQt(path), [&] { convert::saveLayerRows(fromQt(path), rows_.rows()); });
  if (!failure.empty()) {
    QMessageBox::critical(this, context_.text(TextId::EditorErrorTitle), toQt(failure));
    return false;
  }
  rows_.setSaved();
  path_->setText(path);
  tellWhatIsMissing();
  return true;
}

/// Lists the rows that the file does not have as the table shows them.
void LayerEditor::tellWhatIsMissing() {
  constexpr int kMostNames = 10;
  // A long name cannot wrap, so a message box would cut it off.
  const int widest = fontMetrics().averageCharWidth() * 50;
  QStringList names;
  for (const convert::LayerRow& row : rows_.rows()) {
    if (row.name.empty() || (convert::isSaved(row) && convert::fitsLayerFile(row.name))) continue;
    if (names.size() == kMostNames) {
      names << QStringLiteral("…");
      break;
    }
    // Escaping makes a name several times as long, so shorten it first.
    const QString name = fontMetrics().elidedText(toQt(row.name), Qt::ElideMiddle, widest);
    names << toQt(base::quotable(fromQt(name)));
  }
  if (names.isEmpty()) return;
  QMessageBox::information(this, context_.text(TextId::EditorWarningTitle),
                           context_.text(TextId::EditorRowsNotSaved, {fromQt(names.join(", "))}));
}

/// Asks a string-table question about unsaved rows and acts on the answer.
LayerEditor::Unsaved LayerEditor::askAboutUnsaved(TextId question) {
  grid_->commit();
  if (!rows_.modified()) return Unsaved::Nothing;
  const auto answer = askQuestion(
      context_, this, context_.text(TextId::EditorWarningTitle), context_.text(question),
      QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
  if (answer == QMessageBox::No) return Unsaved::Left;
  // If saving failed or was cancelled, the changes are kept.
  const bool saved = answer == QMessageBox::Yes && saveLayers(path_->text());
  return saved ? Unsaved::Saved : Unsaved::Kept;
}

bool LayerEditor::mayDiscard() { return askAboutUnsaved(TextId::EditorUnsaved) != Unsaved::Kept; }

bool LayerEditor::offerToSave() {
  const Unsaved rows = askAboutUnsaved(TextId::EditorUnsavedBeforeOk);
  if (rows == Unsaved::Saved) accepted_(path_->text());
  return rows != Unsaved::Kept;
}

void LayerEditor::OKButton_Click() {
  if (!mayDiscard()) return;
  accepted_(path_->text());
  accept();
}

void LayerEditor::befHilfe_Click() {
  if (!openHelp(context_, kLayerEditorHelp, this)) {
    QMessageBox::warning(this, context_.text(TextId::HelpErrorTitle),
                         context_.text(TextId::HelpMissing));
  }
}

}  // namespace quillon::windows
