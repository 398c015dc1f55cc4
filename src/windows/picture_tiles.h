#pragma once

#include <QImage>
#include <QObject>
#include <QPointF>
#include <QRect>
#include <QThreadPool>
#include <atomic>
#include <compare>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <tuple>
#include <vector>

#include "windows/picture_content.h"
#include "windows/picture_viewport.h"

namespace quillon::windows {

/// A square of the plane at one scale: number x and y to the right and down from the origin.
struct PictureTile {
  int step = 0;
  std::int64_t x = 0;
  std::int64_t y = 0;

  bool operator==(const PictureTile&) const = default;
  bool operator<(const PictureTile& other) const {
    return std::tie(step, x, y) < std::tie(other.step, other.x, other.y);
  }
};

/// The squares that a picture is shown from. Workers of its own paint them; those that were painted
/// are kept as long as there is room.
class PictureTiles : public QObject {
 public:
  static constexpr int kSide = 256;  ///< pixels of the screen
  static constexpr std::size_t kMostBytes = std::size_t{128} << 20U;

  explicit PictureTiles(QObject* parent = nullptr);
  ~PictureTiles() override;

  /// What is to be painted from now on. What was painted before serves until then if `keep`.
  void setContent(std::shared_ptr<const PictureContent> content, bool keep);
  /// Starts painting what is lacking for this view, from its middle outwards. Nothing else that is
  /// still waiting is painted.
  void want(const PictureViewport& view);
  /// True when everything is there that was wanted last.
  bool isComplete() const;
  /// Draws what there is of the view, in pixels of the screen. Where a tile is lacking, those of
  /// other scales serve.
  void draw(QPainter& painter, const PictureViewport& view);

  /// After some were painted or given up, in the thread of the window; want() has to be called for
  /// those that are still lacking.
  std::function<void()> onPainted;
  std::size_t bytes() const { return bytes_; }

 private:
  struct Entry {
    QImage image;  ///< null where memory was lacking
    std::uint64_t content = 0;
    std::uint64_t used = 0;
  };
  struct Job {
    PictureTile tile;
    std::uint64_t content = 0;
  };
  struct Done {
    Job job;
    QImage image;
    bool isOver = false;  ///< given up
  };

  static QRectF placeOf(const PictureTile& tile, const PictureViewport& view);
  bool isSharp(const Entry& entry) const { return entry.content == contentNumber_; }
  std::vector<PictureTile> tilesOf(const PictureViewport& view) const;
  void drawOthers(QPainter& painter, const PictureViewport& view);
  void startWorkers();
  void work() noexcept;
  bool takeJob(Job& job, std::shared_ptr<const PictureContent>& content);
  Done paint(const Job& job, const PictureContent& content) const;
  void hand(Done done);
  void forget(const Job& job);
  void collect() noexcept;
  void takeOver();
  void makeRoom();

  // Of the window's thread.
  std::map<PictureTile, Entry> tiles_;
  std::size_t bytes_ = 0;
  std::uint64_t clock_ = 0;
  std::vector<PictureTile> wanted_;

  // Shared, under the lock.
  mutable std::mutex lock_;
  std::shared_ptr<const PictureContent> content_;
  std::vector<Job> waiting_;  ///< the next one last
  std::vector<Job> busy_;
  std::vector<Done> done_;
  bool isTold_ = false;  ///< that something is done
  int workers_ = 0;

  // Shared; only the window's thread changes them.
  std::atomic<std::uint64_t> contentNumber_ = 0;
  std::atomic<int> step_ = 0;
  std::atomic<bool> isClosing_ = false;

  QThreadPool pool_;
};

}  // namespace quillon::windows
