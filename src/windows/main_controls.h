#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <array>

#include "windows/app_context.h"
#include "windows/content_area.h"
#include "windows/path_edit.h"
#include "windows/path_label.h"
#include "windows/preview_panel.h"
#include "windows/result_panel.h"
#include "windows/rules_group.h"

namespace quillon::windows {

/// The controls of the main window by name.
struct MainControls {
  explicit MainControls(QWidget& window, AppContext& context);

  QLabel* labDXF;
  PathEdit* txtDXFDatei;
  QPushButton* btnDXFbrowse;
  QLabel* labScript;
  PathEdit* txtScriptdatei;
  QPushButton* btnSCRbrowse;

  QGroupBox* frmOpt;
  std::array<QRadioButton*, 4> chkBRDSCH;
  QButtonGroup* targets;
  QLabel* labBRDSCH;
  QLineEdit* txtBRDname;
  QPushButton* btnBRDbrowse;

  QGroupBox* fraOpt2;
  QLabel* labScale;
  QLineEdit* txtmasst;
  QLabel* labUnit;
  QComboBox* cboUnit;
  QLabel* labLayer;
  QComboBox* komStandartlayer;
  QLabel* labVersion;
  QComboBox* cboVersion;
  QLabel* labPoly;
  QComboBox* cboPoly;
  QLabel* labBlocks;
  QComboBox* cboBlocks;
  QLabel* labOffsetX;
  QLineEdit* txtOffsetX;
  QLabel* labOffsetY;
  QLineEdit* txtOffsetY;
  QCheckBox* chkEllipses;
  QCheckBox* chkDotLines;
  QCheckBox* chkArc;
  QCheckBox* chkReport;
  QCheckBox* chkStartSCR;
  QLabel* labLayers;
  PathLabel* labLayerDatei;
  QPushButton* befLayeredit;

  RulesGroup* rules;

  QLabel* labViewDesc;
  QLabel* labViewer;
  ResultPanel* result;

  PreviewPanel* preview;

  QPushButton* befStart;
  QToolButton* btnUndo;
  QToolButton* btnPreview;  ///< shows and hides the preview
  QPushButton* befSave;
  QPushButton* befLanguage;
  QPushButton* befHilfe;
  QPushButton* befEnde;

  ContentArea* content = nullptr;  ///< the column of all controls but the buttons at the bottom
  QSplitter* splitter = nullptr;   ///< between it and the preview

  /// The width of both halves, or of the one that is shown, without scrolling.
  int widthNeeded() const;
  /// The width of the column where both have so much.
  int columnWidth(int whole) const;
  /// Gives the column what it needs, unless the user has moved the border.
  void shareWidth(int whole) const;
  bool isBorderMoved = false;

 private:
  void layOut(QWidget& window);
  void layOutTarget() const;
  void layOutOptions() const;
  void orderTabs() const;
  int columnNeeded() const;
};

}  // namespace quillon::windows
