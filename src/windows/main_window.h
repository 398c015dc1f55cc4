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

/// The program's main window: shows the settings, and starts what its buttons name.
class MainWindow : public QDialog {
 public:
  explicit MainWindow(AppContext& context);
  ~MainWindow() override;
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  /// Sets captions, lists and tool tips in the present language.
  void loadResources();
  /// Loads the settings and shows them.
  void LoadSettings();

  /// What the controls show.
  settings::Settings settings() const;
  void showSettings(const settings::Settings& settings);
  /// Puts a drawing into its field, and a script beside it into the script's, as long as the user
  /// has chosen no script in this window.
  void setDrawing(const QString& path);
  /// Tells of a path on the command line that a "/" in it has cut off.
  void warnOfSplitPath();

  /// Grows until the contents need not scroll, as far as the screen has room. Showing does so, too.
  void makeRoom();

  /// Converts with what the controls show. What came out is shown and returned.
  convert::ConversionResult befStart_Click();

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void reject() override {}  // Esc does not end the program

 private:
  class ConversionInProgress;

  void connectControls();
  void chooseTarget(int kind);
  void fillLayers(int kind);
  /// Lets a script that came from the drawing that was shown before go beside a typed one.
  void followDrawing();
  void putScriptBeside();
  /// Puts a drawing into its field, whatever that means for the result and the layer file.
  void showDrawing(const QString& path);
  void drawingChanged();
  /// The layer file in use if it was chosen for another drawing than the one shown, else "".
  QString keptLayers() const;
  void takeLayerFile(const QString& path);
  convert::ConversionJob jobShown() const;
  convert::ConversionResult convertShown();
  void showResult(const convert::ConversionResult& result);
  /// Says something below what came out last.
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
  /// Shows the window in the language just chosen, with the same choices in its lists.
  void applyLanguage();

  AppContext& context_;
  MainControls controls_;
  ToolTipTable toolTips_;
  QPointer<LayerEditor> layerEditor_;  ///< while it is open
  bool scriptChosen_ = false;          ///< by the user, in this window or for it
  QString followedScript_;             ///< the path that putScriptBeside last set
  QString drawingOfLayers_;            ///< the drawing that the layer file was chosen for
  double polyWidth_ = 0.0;
  ProgressDialog* progress_ = nullptr;  ///< while a conversion runs
};

}  // namespace quillon::windows
