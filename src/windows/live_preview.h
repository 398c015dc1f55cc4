#pragma once

#include <QMutex>
#include <QThread>
#include <QTimer>
#include <QWaitCondition>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "convert/driver.h"
#include "files/file_state.h"
#include "preview/differences.h"
#include "workbench/reading.h"

namespace quillon::windows {

/// What is known of a drawing so far; null where it is still being worked out.
struct LivePicture {
  std::string path;
  std::shared_ptr<const workbench::Reading> result;
  std::shared_ptr<const workbench::Reading> drawing;
  std::shared_ptr<const preview::Differences> differences;
  std::shared_ptr<const std::vector<std::string>> layerNames;  ///< of the drawing, UTF-8
  std::string failure;                                         ///< why there is no reading, UTF-8
  bool isComplete = false;                                     ///< nothing more will come
};

/// Converts a drawing again and again in a thread of its own, as the settings or its files change:
/// first what the job comes to, then the whole drawing, then how they differ. Only the latest job
/// counts; what is out of date is dropped, or cancelled where it is being worked on. The drawing is
/// read once each time that it is written.
class LivePreview : private QThread {
 public:
  /// Changes that follow each other so quickly are one.
  static constexpr int kDebounceMilliseconds = 120;
  /// The drawing and the layer file are looked at this often. Notices of the system do not come
  /// from network drives, and end with a file that is replaced.
  static constexpr int kLookMilliseconds = 400;

  /// `show` is called in the thread that makes this, a few times for each job and again whenever
  /// the drawing or the layer file was written.
  explicit LivePreview(std::function<void(const LivePicture&)> show);
  ~LivePreview() override;
  LivePreview(const LivePreview&) = delete;
  LivePreview& operator=(const LivePreview&) = delete;

  /// Wants a picture of this job, soon; the same job as before changes nothing.
  void want(const convert::ConversionJob& job, const convert::Surroundings& surroundings);
  /// Wants none, and forgets the drawing.
  void wantNothing();
  /// Works the picture out again since the layer file has changed.
  void again();
  /// True while there is something to work out.
  bool isBusy() const { return isStale(settled_) && isStale(givenUp_); }

 private:
  struct Request {
    convert::ConversionJob job;
    convert::Surroundings surroundings;
    int number = 0;
    bool isSame(const convert::ConversionJob& other, const convert::Surroundings& others) const {
      return job == other && surroundings.languageOffset == others.languageOffset;
    }
  };

  /// What is in the files of a job.
  struct FileStates {
    std::optional<files::FileState> drawing;
    std::optional<files::FileState> layerFile;
    bool operator==(const FileStates&) const = default;
  };
  static FileStates statesOf(const convert::ConversionJob& job);

  void run() override;
  void send();
  /// Waits until there is something to do: a request, or files that were written; false at the end.
  bool waitForWork();
  /// True when the files of the job are other ones than those that were read, and nobody is writing
  /// to them any more.
  bool haveFilesChanged();
  void work();
  void serve(LivePicture& picture);
  void readFile();
  void findLayers();
  void post(const LivePicture& picture);
  bool isStale(int number) const { return newest_.load() != number; }

  std::function<void(const LivePicture&)> show_;
  QTimer debounce_;
  std::optional<Request> waiting_;  ///< for the timer, in the owner's thread
  int settled_ = 0;                 ///< number of the last request that was answered wholly

  QMutex mutex_;
  QWaitCondition changed_;
  std::optional<Request> requested_;  ///< guarded by the mutex
  bool isEnding_ = false;             ///< likewise
  std::atomic<int> newest_{0};        ///< number of the last request
  std::atomic<int> givenUp_{0};       ///< number of the last one that came to nothing

  // Of the thread.
  Request request_;    ///< being worked on, or the last one; no drawing: nothing is wanted
  FileStates read_;    ///< when the request's files were read
  FileStates looked_;  ///< when they were last looked at
  std::unique_ptr<convert::HeldDrawing> held_;
  std::optional<files::FileState> heldState_;
  std::shared_ptr<const std::vector<std::string>> layerNames_;
};

}  // namespace quillon::windows
