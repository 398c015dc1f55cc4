#include "windows/main_controls.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "convert/job.h"
#include "windows/named_widget.h"
#include "windows/number_edit.h"

namespace quillon::windows {
namespace {

/// Lets a list be narrower than its longest entry.
void letShrink(QComboBox& list) {
  constexpr int kLeastCharacters = 16;
  list.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list.setMinimumContentsLength(kLeastCharacters);
}

}  // namespace

MainControls::MainControls(QWidget& window, AppContext& context)
    : labDXF(makeNamed<QLabel>(window, "labDXF")),
      txtDXFDatei(makeNamed<PathEdit>(window, "txtDXFDatei")),
      btnDXFbrowse(makeNamed<QPushButton>(window, "btnDXFbrowse")),
      labScript(makeNamed<QLabel>(window, "labScript")),
      txtScriptdatei(makeNamed<PathEdit>(window, "txtScriptdatei")),
      btnSCRbrowse(makeNamed<QPushButton>(window, "btnSCRbrowse")),
      frmOpt(makeNamed<QGroupBox>(window, "frmOpt")),
      chkBRDSCH{makeNamed<QRadioButton>(*frmOpt, "chkBRDSCH_0"),
                makeNamed<QRadioButton>(*frmOpt, "chkBRDSCH_1"),
                makeNamed<QRadioButton>(*frmOpt, "chkBRDSCH_2"),
                makeNamed<QRadioButton>(*frmOpt, "chkBRDSCH_3")},
      targets(new QButtonGroup(&window)),
      labBRDSCH(makeNamed<QLabel>(*frmOpt, "labBRDSCH")),
      txtBRDname(makeNamed<QLineEdit>(*frmOpt, "txtBRDname")),
      btnBRDbrowse(makeNamed<QPushButton>(*frmOpt, "btnBRDbrowse")),
      fraOpt2(makeNamed<QGroupBox>(window, "fraOpt2")),
      labScale(makeNamed<QLabel>(*fraOpt2, "labScale")),
      txtmasst(makeNamed<NumberEdit>(*fraOpt2, "txtmasst")),
      labUnit(makeNamed<QLabel>(*fraOpt2, "labUnit")),
      cboUnit(makeNamed<QComboBox>(*fraOpt2, "cboUnit")),
      labLayer(makeNamed<QLabel>(*fraOpt2, "labLayer")),
      komStandartlayer(makeNamed<QComboBox>(*fraOpt2, "komStandartlayer")),
      labVersion(makeNamed<QLabel>(*fraOpt2, "labVersion")),
      cboVersion(makeNamed<QComboBox>(*fraOpt2, "cboVersion")),
      labPoly(makeNamed<QLabel>(*fraOpt2, "labPoly")),
      cboPoly(makeNamed<QComboBox>(*fraOpt2, "cboPoly")),
      labBlocks(makeNamed<QLabel>(*fraOpt2, "labBlocks")),
      cboBlocks(makeNamed<QComboBox>(*fraOpt2, "cboBlocks")),
      labOffsetX(makeNamed<QLabel>(*fraOpt2, "labOffsetX")),
      txtOffsetX(makeNamed<NumberEdit>(*fraOpt2, "txtOffsetX")),
      labOffsetY(makeNamed<QLabel>(*fraOpt2, "labOffsetY")),
      txtOffsetY(makeNamed<NumberEdit>(*fraOpt2, "txtOffsetY")),
      chkEllipses(makeNamed<QCheckBox>(*fraOpt2, "chkEllipses")),
      chkDotLines(makeNamed<QCheckBox>(*fraOpt2, "chkDotLines")),
      chkArc(makeNamed<QCheckBox>(*fraOpt2, "chkArc")),
      chkReport(makeNamed<QCheckBox>(*fraOpt2, "chkReport")),
      chkStartSCR(makeNamed<QCheckBox>(*fraOpt2, "chkStartSCR")),
      labLayers(makeNamed<QLabel>(*fraOpt2, "labLayers")),
      labLayerDatei(makeNamed<PathLabel>(*fraOpt2, "labLayerDatei")),
      befLayeredit(makeNamed<QPushButton>(*fraOpt2, "befLayeredit")),
      rules(new RulesGroup(context, &window)),
      labViewDesc(makeNamed<QLabel>(window, "labViewDesc")),
      labViewer(makeNamed<QLabel>(window, "labViewer")),
      result(new ResultPanel(context, &window)),
      preview(new PreviewPanel(context, &window)),
      befStart(makeNamed<QPushButton>(window, "befStart")),
      btnUndo(makeNamed<QToolButton>(window, "btnUndo")),
      btnPreview(makeNamed<QToolButton>(window, "btnPreview")),
      befSave(makeNamed<QPushButton>(window, "befSave")),
      befLanguage(makeNamed<QPushButton>(window, "befLanguage")),
      befHilfe(makeNamed<QPushButton>(window, "befHilfe")),
      befEnde(makeNamed<QPushButton>(window, "befEnde")) {
  for (std::size_t i = 0; i < chkBRDSCH.size(); ++i) {
    targets->addButton(chkBRDSCH[i], static_cast<int>(i));
  }
  for (const base::UnitRecord& unit : base::kUnits) cboUnit->addItem(toQt(unit.word));
  for (int version = convert::kEagle3; version <= convert::kEagle6; ++version) {
    cboVersion->addItem(toQt(convert::versionText(version)));
  }
  for (QComboBox* const list : {komStandartlayer, cboPoly}) letShrink(*list);
  labViewer->setTextFormat(Qt::RichText);
  labViewer->setTextInteractionFlags(Qt::TextBrowserInteraction);
  befStart->setDefault(true);
  for (QToolButton* const tool : {btnUndo, btnPreview}) {
    tool->setFocusPolicy(Qt::StrongFocus);
    tool->setAutoRaise(true);
  }
  btnUndo->setIcon(window.style()->standardIcon(QStyle::SP_ArrowBack));
  btnPreview->setIcon(window.style()->standardIcon(QStyle::SP_FileDialogContentsView));
  btnUndo->setEnabled(false);
  btnPreview->setCheckable(true);
  btnPreview->setChecked(true);
  chkStartSCR->setEnabled(false);
  labDXF->setBuddy(txtDXFDatei);
  labScript->setBuddy(txtScriptdatei);
  labBRDSCH->setBuddy(txtBRDname);
  labScale->setBuddy(txtmasst);
  labUnit->setBuddy(cboUnit);
  labLayer->setBuddy(komStandartlayer);
  labVersion->setBuddy(cboVersion);
  labPoly->setBuddy(cboPoly);
  labBlocks->setBuddy(cboBlocks);
  labOffsetX->setBuddy(txtOffsetX);
  labOffsetY->setBuddy(txtOffsetY);
  layOutTarget();
  layOutOptions();
  layOut(window);
  orderTabs();
}

/// From top to bottom.
void MainControls::orderTabs() const {
  QWidget* previous = txtDXFDatei;
  const auto follow = [&previous](QWidget* next) {
    QWidget::setTabOrder(previous, next);
    previous = next;
  };
  const std::initializer_list<QWidget*> order = {
      btnDXFbrowse, txtScriptdatei,   btnSCRbrowse, chkBRDSCH[0], chkBRDSCH[1], chkBRDSCH[2],
      chkBRDSCH[3], txtBRDname,       btnBRDbrowse, txtmasst,     cboUnit,      txtOffsetX,
      txtOffsetY,   cboVersion,       chkEllipses,  chkDotLines,  chkArc,       chkReport,
      chkStartSCR,  komStandartlayer, cboPoly,      cboBlocks,    befLayeredit};
  for (QWidget* const next : order) follow(next);
  for (QWidget* const next : rules->controls()) follow(next);
  follow(labViewer);
  for (QWidget* const next : preview->controls()) follow(next);
  for (QWidget* const next : std::initializer_list<QWidget*>{befStart, btnUndo, btnPreview, befSave,
                                                             befLanguage, befHilfe, befEnde}) {
    follow(next);
  }
}

void MainControls::layOutTarget() const {
  auto* const kinds = new QHBoxLayout;
  for (QRadioButton* const kind : chkBRDSCH) kinds->addWidget(kind);
  kinds->addStretch();
  auto* const name = new QHBoxLayout;
  name->addWidget(labBRDSCH);
  name->addWidget(txtBRDname, 1);
  name->addWidget(btnBRDbrowse);
  auto* const layout = new QVBoxLayout(frmOpt);
  layout->addLayout(kinds);
  layout->addLayout(name);
}

void MainControls::layOutOptions() const {
  auto* const layout = new QGridLayout(fraOpt2);
  auto addRow = [layout, row = 0](QLabel* label, QWidget* field, int columns) mutable {
    layout->addWidget(label, row, 0);
    layout->addWidget(field, row++, 1, 1, columns);
  };
  addRow(labScale, txtmasst, 1);
  addRow(labUnit, cboUnit, 1);
  addRow(labOffsetX, txtOffsetX, 1);
  addRow(labOffsetY, txtOffsetY, 1);
  addRow(labVersion, cboVersion, 1);
  // These lists have long entries.
  addRow(labLayer, komStandartlayer, 2);
  addRow(labPoly, cboPoly, 2);
  addRow(labBlocks, cboBlocks, 2);
  auto* const layers = new QHBoxLayout;
  layers->addWidget(labLayerDatei, 1);
  layers->addWidget(befLayeredit);
  layout->addWidget(labLayers, layout->rowCount(), 0);
  layout->addLayout(layers, layout->rowCount() - 1, 1, 1, 2);
  int row = 0;
  for (QCheckBox* const box : {chkEllipses, chkDotLines, chkArc, chkReport, chkStartSCR}) {
    layout->addWidget(box, row++, 2);
  }
  constexpr int kGap = 12;
  layout->setHorizontalSpacing(kGap);
  layout->setColumnStretch(1, 1);
  layout->setColumnStretch(2, 1);
}

void MainControls::layOut(QWidget& window) {
  auto* const paths = new QGridLayout;
  paths->addWidget(labDXF, 0, 0);
  paths->addWidget(txtDXFDatei, 0, 1);
  paths->addWidget(btnDXFbrowse, 0, 2);
  paths->addWidget(labScript, 1, 0);
  paths->addWidget(txtScriptdatei, 1, 1);
  paths->addWidget(btnSCRbrowse, 1, 2);
  auto* const viewer = new QHBoxLayout;
  viewer->addWidget(labViewDesc);
  viewer->addWidget(labViewer);
  viewer->addStretch();
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(befStart);
  buttons->addWidget(btnUndo);
  buttons->addStretch();
  buttons->addWidget(btnPreview);
  for (QPushButton* const button : {befSave, befLanguage, befHilfe, befEnde}) {
    buttons->addWidget(button);
  }
  auto* const body = new QWidget(&window);
  auto* const rows = new QVBoxLayout(body);
  rows->addLayout(paths);
  rows->addWidget(frmOpt);
  rows->addWidget(fraOpt2);
  rows->addWidget(rules);
  rows->addWidget(result);
  rows->addLayout(viewer);
  rows->addStretch();
  content = new ContentArea(body, &window);
  auto* const layout = new QVBoxLayout(&window);
  splitter = new QSplitter(Qt::Horizontal, &window);
  splitter->setObjectName("splMain");
  splitter->addWidget(content);
  splitter->addWidget(preview);
  splitter->setStretchFactor(0, 0);
  splitter->setStretchFactor(1, 1);
  splitter->setChildrenCollapsible(false);
  layout->addWidget(splitter, 1);
  layout->addLayout(buttons);
}

int MainControls::widthNeeded() const {
  if (preview->isHidden()) return content->sizeHint().width();
  return columnNeeded() + splitter->handleWidth() + preview->sizeHint().width();
}

/// The contents, and a scroll bar beside them where the screen is low.
int MainControls::columnNeeded() const {
  return content->sizeHint().width() + content->style()->pixelMetric(QStyle::PM_ScrollBarExtent) +
         ContentArea::kGap;
}

int MainControls::columnWidth(int whole) const {
  if (preview->isHidden()) return whole;
  if (isBorderMoved) return splitter->sizes().front();
  // The picture keeps a part of a small screen.
  return std::min(columnNeeded(), whole - PreviewPanel::kLeastWidth);
}

void MainControls::shareWidth(int whole) const {
  if (preview->isHidden() || isBorderMoved) return;
  const int column = columnWidth(whole);
  splitter->setSizes({column, whole - column});
}

}  // namespace quillon::windows
