#pragma once

#include <QButtonGroup>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QToolButton>
#include <functional>

#include "windows/app_context.h"
#include "windows/assignment_list.h"
#include "windows/hint_list.h"
#include "windows/live_preview.h"
#include "windows/loss_list.h"
#include "windows/path_label.h"
#include "windows/picture_view.h"
#include "windows/scene_layers.h"

namespace quillon::windows {

/// The right half of the main window: the picture of what EAGLE will draw, what stands out in it,
/// its layers, and what is lost.
class PreviewPanel : public QWidget {
 public:
  /// A narrower picture is of no use.
  static constexpr int kLeastWidth = 330;

  PreviewPanel(AppContext& context, QWidget* parent);

  void loadResources();
  /// Shows what is known so far.
  void showPicture(const LivePicture& picture);
  /// There is no drawing to show.
  void showNothing();
  /// Another drawing is being worked on; the present picture stays until there is one of it, but
  /// nothing can be taken from it.
  void showWorking();
  /// What the layer file says of the drawing's layers.
  void showAssignments(const QString& layerFile);

  /// In the order in which Tab goes through them.
  std::vector<QWidget*> controls() const;

  QSize sizeHint() const override { return {560, 480}; }

  const LivePicture& picture() const { return picture_; }
  PictureView& view() { return *view_; }
  QSplitter& splitter() { return *splitter_; }

  std::function<void(workbench::Offer)> onOffer;  ///< taken, for those that change settings
  std::function<void(const std::string& name, const std::string& entry)> onAssigned;
  std::function<void(const std::string& name, bool areas)> onAreas;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  /// What faults of this window are reported as.
  static constexpr std::string_view kModule = "fraPreview";

  /// A dark picture in a dark window.
  void followPalette();
  void makeBar();
  void layOut();
  void connectParts();
  void connectPicture();
  void addShortcuts();
  QToolButton* addTool(const char* name, void (PreviewPanel::*action)());
  void chooseMode(int mode);
  void measure();
  void fit() { view_->fit(); }
  void savePicture();
  void printPicture();
  void takeHint(const workbench::Hint& hint);
  void showLoss(const workbench::LossRow& loss);
  void showFacts();
  void fillAssignments();
  void letTake(bool isAllowed);
  /// What a picture lacks that would be too large.
  QString noteOf() const;
  void showPointer(QPointF place);

  AppContext& context_;
  LivePicture picture_;
  QString assignmentFile_;
  std::vector<geometry::Point> places_;  ///< that the last hint showed
  std::size_t nextPlace_ = 0;
  QButtonGroup* modes_;
  QToolButton* fit_ = nullptr;
  QToolButton* measure_ = nullptr;
  QToolButton* save_ = nullptr;
  QToolButton* print_ = nullptr;
  PictureView* view_;
  QLabel* message_;
  QLabel* size_;
  QLabel* pointer_;
  QLabel* unit_;
  HintList* hints_;
  QTabWidget* tabs_;
  SceneLayers* layers_;
  QWidget* assignmentPage_;
  PathLabel* layerFile_;
  AssignmentList* assignment_;
  LossList* losses_;
  std::vector<int> markedRows_;  ///< of the list of losses, for each mark
  QSplitter* splitter_;
};

}  // namespace quillon::windows
