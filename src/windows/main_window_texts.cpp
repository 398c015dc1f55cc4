// The texts of the main window in the current language.
#include <array>
#include <utility>

#include "base/number_text.h"
#include "windows/main_window.h"

namespace quillon::windows {
namespace {

using texts::TextId;

constexpr texts::TextRow kToolTips = texts::textRow(TextId::TipSave, TextId::TipBlocks);

}  // namespace

/// Some layers are named in the language of the window; their numbers stay.
void MainWindow::translateHistory() {
  for (settings::Settings& former : history_) {
    for (std::string& entry : settings::layersOf(former.targetKind, context_.texts())) {
      if (base::numberValue(entry) != base::numberValue(former.layer)) continue;
      former.layer = std::move(entry);
      break;
    }
  }
  known_ = optionsShown();
}

void MainWindow::applyLanguage() {
  if (optionTimer_.isActive()) takeOptions();
  const std::array<QComboBox*, 5> lists = {controls_.cboUnit, controls_.cboVersion,
                                           controls_.cboPoly, controls_.cboBlocks,
                                           controls_.komStandartlayer};
  std::array<int, lists.size()> chosen{};
  for (std::size_t i = 0; i < lists.size(); ++i) chosen[i] = lists[i]->currentIndex();
  loadResources();
  if (queue_ != nullptr) queue_->loadResources();
  fillLayers(settings().targetKind);
  for (std::size_t i = 0; i < lists.size(); ++i) lists[i]->setCurrentIndex(chosen[i]);
  translateHistory();
  refreshPreview();
  makeRoom();
}

void MainWindow::loadResources() {
  const auto caption = [this](auto* control, TextId id) { control->setText(context_.text(id)); };
  setWindowTitle(context_.text(TextId::CaptionProgram));
  caption(controls_.befSave, TextId::CaptionSave);
  caption(controls_.befHilfe, TextId::CaptionHelp);
  caption(controls_.befStart, TextId::CaptionStart);
  caption(controls_.befEnde, TextId::CaptionExit);
  caption(controls_.labDXF, TextId::CaptionDrawing);
  caption(controls_.labScript, TextId::CaptionScript);
  caption(controls_.btnDXFbrowse, TextId::CaptionBrowseDrawing);
  caption(controls_.btnSCRbrowse, TextId::CaptionBrowseScript);
  caption(controls_.labBRDSCH, TextId::CaptionDrawingName);
  controls_.frmOpt->setTitle(context_.text(TextId::CaptionTarget));
  caption(controls_.labScale, TextId::CaptionScale);
  caption(controls_.labLayer, TextId::CaptionStandardLayer);
  caption(controls_.labUnit, TextId::CaptionUnit);
  controls_.fraOpt2->setTitle(context_.text(TextId::CaptionOptions));
  caption(controls_.chkBRDSCH[0], TextId::CaptionBoard);
  caption(controls_.chkBRDSCH[1], TextId::CaptionSchematic);
  caption(controls_.chkBRDSCH[2], TextId::CaptionPackage);
  caption(controls_.chkBRDSCH[3], TextId::CaptionSymbol);
  caption(controls_.chkEllipses, TextId::CaptionEllipses);
  caption(controls_.chkDotLines, TextId::CaptionDottedLines);
  caption(controls_.chkReport, TextId::CaptionShowReport);
  caption(controls_.labLayers, TextId::CaptionLayerFile);
  caption(controls_.befLayeredit, TextId::CaptionLayers);
  caption(controls_.befLayeredit,
          TextId::CaptionAssignLayers);  // the second caption is the one shown
  caption(controls_.labVersion, TextId::CaptionVersion);
  caption(controls_.labPoly, TextId::CaptionPolylines);
  caption(controls_.labBlocks, TextId::CaptionBlocks);
  caption(controls_.btnBRDbrowse, TextId::CaptionBrowseName);
  caption(controls_.chkArc, TextId::CaptionLargeArcs);
  caption(controls_.labViewDesc, TextId::CaptionViewer);
  caption(controls_.labOffsetX, TextId::CaptionOffsetX);
  caption(controls_.labOffsetY, TextId::CaptionOffsetY);
  caption(controls_.chkStartSCR, TextId::CaptionStartScript);
  caption(controls_.befLanguage, TextId::CaptionLanguage);
  controls_.labViewer->setText("<a href=\"viewer\">free DXF Viewer</a>");
  controls_.result->loadResources();
  controls_.rules->loadResources();
  controls_.preview->loadResources();
  caption(controls_.btnUndo, TextId::CaptionUndo);
  caption(controls_.btnPreview, TextId::CaptionPreview);
  nameForReaders();
  const auto refill = [this](QComboBox* list, texts::TextRow entries, int index) {
    list->clear();
    for (const TextId id : entries) list->addItem(context_.text(id));
    list->setCurrentIndex(index);
  };
  refill(controls_.cboPoly,
         texts::textRow(TextId::PolylinesWithoutWidth, TextId::PolylinesAsPolygons), 2);
  refill(controls_.cboBlocks, texts::textRow(TextId::BlocksDrawn, TextId::BlocksAll), 0);
  controls_.cboUnit->setCurrentIndex(static_cast<int>(base::Unit::Mil));
  controls_.cboVersion->setCurrentIndex(1);
  toolTips_.clear();
  for (const TextId id : kToolTips) toolTips_.add(*this, context_.texts()(id));
}

void MainWindow::nameForReaders() {
  for (QLabel* const label : findChildren<QLabel*>()) {
    if (label->buddy() == nullptr || label->text().isEmpty()) continue;
    label->buddy()->setAccessibleName(toQt(texts::captionName(fromQt(label->text()))));
  }
  const auto browses = [this](QPushButton* button, TextId what) {
    button->setAccessibleName(toQt(texts::captionName(fromQt(context_.text(what)))) + " " +
                              button->text());
  };
  browses(controls_.btnDXFbrowse, TextId::CaptionDrawing);
  browses(controls_.btnSCRbrowse, TextId::CaptionScript);
  browses(controls_.btnBRDbrowse, TextId::CaptionDrawingName);
  for (QToolButton* const tool : {controls_.btnUndo, controls_.btnPreview}) {
    tool->setToolTip(tool->text());
    tool->setAccessibleName(tool->text());
  }
  recent_->setText(context_.text(TextId::CaptionRecent));
}

}  // namespace quillon::windows
