#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QThreadPool>
#include <QTimer>
#include <atomic>
#include <exception>
#include <functional>
#include <optional>
#include <set>
#include <string>

#include "batch/drawing_queue.h"
#include "convert/driver.h"
#include "windows/app_context.h"
#include "windows/queue_model.h"

namespace quillon::windows {

/// Converts several drawings one after the other while the other windows stay usable.
class QueueWindow : public QDialog {
 public:
  /// `job` returns the settings with which a start converts, or none where the user does not want
  /// to start; paths and name in it do not count.
  QueueWindow(AppContext& context, std::function<std::optional<convert::ConversionJob>()> job,
              QWidget* parent);
  ~QueueWindow() override;
  QueueWindow(const QueueWindow&) = delete;
  QueueWindow& operator=(const QueueWindow&) = delete;

  void loadResources();
  /// Adds drawings, and those of folders.
  void add(const QStringList& pathsOrFolders);
  /// Converts what waits; if nothing does, tries again what was not converted.
  void start();
  /// Ends after the running drawing; when called again, the running drawing is cancelled too.
  void stop();
  bool isRunning() const { return running_; }

  std::function<void(const QString&)> onLayerFile;  ///< dropped here

 protected:
  /// Asks whether to cancel what is running.
  void reject() override;
  /// Cancels what is running, and waits a moment for it.
  void done(int result) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  /// What faults of this window are reported as.
  static constexpr std::string_view kModule = "frmQueue";

  void layOut();
  void connectControls();
  void convertNext();
  void converted(batch::QueueResult result, const std::exception_ptr& fault);
  void cancelAndWait(int milliseconds);
  void removeSelected();
  void openFolder();
  /// Shows the state of the queue.
  void refresh();
  void showProgress();
  QString startCaption(const batch::QueueCounts& counts) const;
  QString summary(const batch::QueueCounts& counts) const;

  AppContext& context_;
  std::function<std::optional<convert::ConversionJob>()> job_;
  batch::DrawingQueue queue_;
  QueueModel* model_;
  QTableView* table_;
  QProgressBar* progress_;
  QLabel* summary_;
  QCheckBox* replace_;
  QPushButton* start_;
  QPushButton* stop_;
  QPushButton* remove_;
  QPushButton* openFolder_;
  QPushButton* close_;
  QTimer progressTimer_;

  convert::ConversionJob settings_;       ///< of the last start
  convert::Surroundings surroundings_;    ///< likewise
  std::set<std::string> clearedFolders_;  ///< from what killed runs left, since the last start
  bool running_ = false;
  bool stopping_ = false;
  std::atomic<bool> cancel_ = false;
  std::atomic<int> percent_ = 0;
  QThreadPool worker_;  ///< destroyed first: it uses the members above
};

}  // namespace quillon::windows
