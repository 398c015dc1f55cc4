#pragma once

#include <QDialog>
#include <QPointer>

#include "convert/driver.h"
#include "settings/settings.h"
#include "windows/app_context.h"
#include "windows/layer_editor.h"
#include "windows/main_controls.h"
#include "windows/progress_dialog.h"
#include "windows/tool_tips.h"

namespace quillon::windows {

/// The main window: shows the settings and starts the actions of its buttons.
class MainWindow : public QDialog {
 public:
  explicit MainWindow(AppContext& context);
  ~MainWindow() override;
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  /// Sets captions, lists and tool tips in the current language.
  void loadResources();
  /// Loads the settings and shows them.
  void LoadSettings();

  /// The state of the controls.
  settings::Settings settings() const;
  void showSettings(const settings::Settings& settings);
  /// Enters a drawing, and a script beside it unless the user has already chosen a script in this
  /// window.
  void setDrawing(const QString& path);
  /// Warns about a path on the command line that was cut off at a "/".
  void warnOfSplitPath();

  /// Grows until the contents fit without scrolling, as far as the screen allows. Also done when
  /// shown.
  void makeRoom();

  /// Converts with the displayed settings; shows and returns the result.
  convert::ConversionResult befStart_Click();

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void reject() override {}  // Esc does not close the window

 private:
  /// What faults of this window are reported as.
  static constexpr std::string_view kModule = "frmDXF";

  class ConversionInProgress;

  void connectControls();
  void chooseTarget(int kind);
  void fillLayers(int kind);
  /// Replaces a script that was derived from the previous drawing by one beside the typed drawing.
  void followDrawing();
  void putScriptBeside();
  /// Enters a drawing; a different one clears the result and updates the note about the layer file.
  void showDrawing(const QString& path);
  void drawingChanged();
  /// The layer file in use if it was chosen for a different drawing, else "".
  QString keptLayers() const;
  void takeLayerFile(const QString& path);
  convert::ConversionJob jobShown() const;
  convert::ConversionResult convertShown();
  void showResult(const convert::ConversionResult& result);
  /// Shows a text below the last result.
  void showNotice(const QString& notice);
  void browseForDrawing();
  void browseForScript();
  void browseForName();
  void befLayeredit_Click();
  void befSave_Click();
  void befHilfe_Click();
  void befEnde_Click();
  void labViewer_Click();
  void chooseLanguage();
  /// Updates the window to the selected language; selections in the lists stay.
  void applyLanguage();

  AppContext& context_;
  MainControls controls_;
  ToolTipTable toolTips_;
  QPointer<LayerEditor> layerEditor_;  ///< while it is open
  bool scriptChosen_ = false;          ///< by the user, in this window or beforehand
  QString followedScript_;             ///< the path last set by putScriptBeside
  QString drawingOfLayers_;            ///< the drawing for which the layer file was chosen
  double polyWidth_ = 0.0;
  std::string rules_;                   ///< likewise
  ProgressDialog* progress_ = nullptr;  ///< while a conversion runs
};

}  // namespace quillon::windows
