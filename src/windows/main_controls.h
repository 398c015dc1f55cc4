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
#include "windows/result_panel.h"

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

  QLabel* labViewDesc;
  QLabel* labViewer;
  ResultPanel* result;

  QPushButton* befStart;
  QPushButton* befSave;
  QPushButton* befLanguage;
  QPushButton* befHilfe;
  QPushButton* befEnde;

  ContentArea* content = nullptr;  ///< all but the buttons at the bottom

 private:
  void layOut(QWidget& window);
  void layOutTarget() const;
  void layOutOptions() const;
  void orderTabs() const;
};

}  // namespace quillon::windows
