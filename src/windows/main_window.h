#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "convert/driver.h"
#include "settings/settings.h"
#include "windows/app_context.h"
#include "windows/layer_editor.h"
#include "windows/main_controls.h"
#include "windows/progress_dialog.h"
#include "windows/queue_window.h"
#include "windows/tool_tips.h"

namespace quillon::windows {

class LivePreview;
struct LivePicture;

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

  /// True when the preview shows all about the present settings.
  bool isPreviewCurrent() const;

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
  /// Takes dropped files: a drawing, a layer file, and several drawings or folders for the queue.
  void takeFiles(const QStringList& paths);
  QueueWindow& shownQueue();
  std::optional<convert::ConversionJob> jobForQueue();
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
  /// Opens a page of the help, or says how to get it.
  void showHelp(int page);
  void befEnde_Click();
  void labViewer_Click();
  /// Names the controls for screen readers.
  void nameForReaders();
  void chooseLanguage();
  /// Updates the window to the selected language; selections in the lists stay.
  void applyLanguage();
  void translateHistory();

  // The preview, see main_window_preview.cpp.
  void connectPreview();
  /// Some control shows something else than before.
  void optionChanged();
  void takeOptions();
  void refreshPreview();
  void showPicture(const LivePicture& picture);
  void takeOffer(workbench::Offer offer);
  /// False where a file cannot be saved as it is.
  using LayerFileChange = std::function<bool(const std::string& path)>;
  void changeLayerFile(const LayerFileChange& change);
  bool changeFile(const std::string& path, const LayerFileChange& change);
  bool mayTakeFound(const std::string& path);
  void undo();
  void foldPreview(bool folded);
  /// The settings without the paths, which are not undone.
  settings::Settings optionsShown() const;

  // What the window remembers, see main_window_state.cpp.
  void restoreState();
  void saveState();
  void addRecentMenu();
  void showRecentMenu();
  void rememberDrawing(const QString& path);
  /// The recent drawings that are still there.
  QStringList recentDrawings() const;

  AppContext& context_;
  MainControls controls_;
  ToolTipTable toolTips_;
  QPointer<LayerEditor> layerEditor_;  ///< while it is open
  QPointer<QueueWindow> queue_;        ///< likewise
  bool scriptChosen_ = false;          ///< by the user, in this window or beforehand
  QString followedScript_;             ///< the path last set by putScriptBeside
  QString drawingOfLayers_;            ///< the drawing for which the layer file was chosen
  double polyWidth_ = 0.0;
  std::unique_ptr<LivePreview> live_;
  QTimer optionTimer_;        ///< changes of one moment are one
  settings::Settings known_;  ///< the options when they were last looked at
  std::vector<settings::Settings> history_;
  QElapsedTimer sinceChange_;
  QAction* recent_ = nullptr;
  bool isFoldedByUser_ = false;         ///< the preview
  bool isPlaced_ = false;               ///< it has been shown before
  ProgressDialog* progress_ = nullptr;  ///< while a conversion runs
};

}  // namespace quillon::windows
