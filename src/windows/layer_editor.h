#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <functional>

#include "settings/layer_rows.h"
#include "windows/app_context.h"
#include "windows/layer_grid.h"
#include "windows/tool_tips.h"

namespace quillon::windows {

/// Assigns a drawing's layers to EAGLE's layers and keeps the assignments in a file.
class LayerEditor : public QDialog {
 public:
  /// `path` is the current layer assignment file; OK passes the confirmed one to `accepted`.
  LayerEditor(AppContext& context, const QString& path, std::function<void(QString)> accepted,
              QWidget* parent);

  ~LayerEditor() override { delete grid_; }  // the grid refers to the rows
  LayerEditor(const LayerEditor&) = delete;
  LayerEditor& operator=(const LayerEditor&) = delete;

  void loadResources();
  /// Lists the layers of a drawing; the list stays empty without one.
  void layerScanDXF(const QString& drawing);
  /// Saves the table; asks for a file when the path is empty. False when nothing was saved.
  bool saveLayers(QString path);
  /// Before a conversion, offers to save and use a table with unsaved changes. False to start no
  /// conversion.
  bool offerToSave();

 protected:
  void reject() override;

 private:
  /// What faults of this window are reported as.
  static constexpr std::string_view kModule = "frmLayers";

  /// Asks what to do with unsaved changes. False to continue editing.
  bool mayDiscard();
  enum class Unsaved { Nothing, Saved, Left, Kept };
  Unsaved askAboutUnsaved(texts::TextId question);
  void makeControls();
  void layOut();
  void connectControls();
  void btnScan_Click();
  void btnNew_Click();
  void btnTake_Click();
  void btnLayerbrowse_Click();
  void befHilfe_Click();
  void OKButton_Click();
  void markAssigned();
  void tellWhatIsMissing();
  void tellOfAnotherKind();
  bool namesFile() const;
  QString askForPath();
  QString newFileBesideDrawing() const;

  AppContext& context_;
  std::function<void(QString)> accepted_;
  settings::LayerRows rows_;
  QString drawing_;  ///< the drawing whose layers are listed
  ToolTipTable toolTips_;
  QLabel* labLay_;
  QLineEdit* path_;
  QPushButton* browse_;
  QPushButton* scan_;
  QPushButton* save_;
  QPushButton* saveAs_;
  QPushButton* new_;
  QLabel* labScan_;
  QListWidget* scanned_;
  QPushButton* take_;
  QLabel* labLayer_;
  LayerGrid* grid_;
  QLabel* labCheck_;
  QLabel* labDelHint_;
  QPushButton* ok_;
  QPushButton* cancel_;
  QPushButton* help_;
};

}  // namespace quillon::windows
