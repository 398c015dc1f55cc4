#include "windows/picture_tiles.h"

#include <QPainter>
#include <QThread>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <new>

#include "windows/picture_painter.h"

namespace quillon::windows {

PictureTiles::PictureTiles(QObject* parent) : QObject(parent) {
  pool_.setMaxThreadCount(std::max(QThread::idealThreadCount() - 1, 1));
}

PictureTiles::~PictureTiles() {
  isClosing_ = true;
  pool_.waitForDone();
}

void PictureTiles::setContent(std::shared_ptr<const PictureContent> content, bool keep) {
  const std::lock_guard guard(lock_);
  content_ = std::move(content);
  ++contentNumber_;
  waiting_.clear();
  if (!keep) {
    tiles_.clear();
    bytes_ = 0;
  }
}

std::vector<PictureTile> PictureTiles::tilesOf(const PictureViewport& view) const {
  const PicturePlane plane = view.plane();
  const auto number = [](double pixel) {
    return static_cast<std::int64_t>(std::floor(pixel / kSide));
  };
  std::vector<PictureTile> tiles;
  for (std::int64_t y = number(plane.top); y <= number(plane.top + view.size().height() - 1); ++y) {
    for (std::int64_t x = number(plane.left); x <= number(plane.left + view.size().width() - 1);
         ++x) {
      tiles.push_back({view.step(), x, y});
    }
  }
  return tiles;
}

void PictureTiles::want(const PictureViewport& view) {
  const PicturePlane plane = view.plane();
  wanted_ = tilesOf(view);
  ++clock_;
  std::vector<PictureTile> lacking;
  for (const PictureTile& tile : wanted_) {
    const auto known = tiles_.find(tile);
    const bool isThere = known != tiles_.end() && isSharp(known->second);
    if (known != tiles_.end()) known->second.used = clock_;
    if (!isThere) lacking.push_back(tile);
  }
  const double x = (plane.left + view.size().width() / 2.0) / kSide - 0.5;
  const double y = (plane.top + view.size().height() / 2.0) / kSide - 0.5;
  const auto distance = [&](const PictureTile& tile) {
    return std::hypot(static_cast<double>(tile.x) - x, static_cast<double>(tile.y) - y);
  };
  std::ranges::sort(lacking, std::ranges::greater(), distance);
  step_ = view.step();
  {
    const std::lock_guard guard(lock_);
    waiting_.clear();
    if (content_ == nullptr) return;
    for (const PictureTile& tile : lacking) {
      const auto isSame = [&](const Job& job) {
        return job.tile == tile && job.content == contentNumber_;
      };
      if (std::ranges::none_of(busy_, isSame)) waiting_.push_back({tile, contentNumber_});
    }
  }
  startWorkers();
}

bool PictureTiles::isComplete() const {
  return std::ranges::all_of(wanted_, [this](const PictureTile& tile) {
    const auto known = tiles_.find(tile);
    return known != tiles_.end() && isSharp(known->second);
  });
}

void PictureTiles::startWorkers() {
  const std::lock_guard guard(lock_);
  while (workers_ < pool_.maxThreadCount() && workers_ < static_cast<int>(waiting_.size())) {
    pool_.start([this] { work(); });
    ++workers_;
  }
}

/// Paints until nothing is waiting. Where memory is lacking for a tile, it stays empty; where it is
/// lacking for the lists of tiles, the next view tries again.
void PictureTiles::work() noexcept {
  Job job;
  std::shared_ptr<const PictureContent> content;
  try {
    while (takeJob(job, content)) {
      Done done{job, {}};
      try {
        done = paint(job, *content);
      } catch (const std::bad_alloc&) {
        done.image = QImage();
      }
      hand(std::move(done));
    }
  } catch (const std::bad_alloc&) {
    const std::lock_guard guard(lock_);
    forget(job);
    --workers_;
  }
}

/// Nobody works on it any more.
void PictureTiles::forget(const Job& job) {
  std::erase_if(busy_, [&](const Job& other) {
    return other.tile == job.tile && other.content == job.content;
  });
}

bool PictureTiles::takeJob(Job& job, std::shared_ptr<const PictureContent>& content) {
  const std::lock_guard guard(lock_);
  if (waiting_.empty() || isClosing_) {
    --workers_;
    return false;
  }
  job = waiting_.back();
  content = content_;
  busy_.push_back(job);
  waiting_.pop_back();
  return true;
}

PictureTiles::Done PictureTiles::paint(const Job& job, const PictureContent& content) const {
  const PicturePlane plane{PictureViewport::scaleOf(job.tile.step),
                           static_cast<double>(job.tile.x * kSide),
                           static_cast<double>(job.tile.y * kSide)};
  Done done{job, {}};
  // Once true it stays true: the view may be back at this scale before the tile is given up.
  const auto isOver = [&] {
    done.isOver =
        done.isOver || isClosing_ || contentNumber_ != job.content || step_ != job.tile.step;
    return done.isOver;
  };
  done.image = pictureImage(content, plane, {kSide, kSide}, isOver);
  return done;
}

void PictureTiles::hand(Done done) {
  const std::lock_guard guard(lock_);
  forget(done.job);
  if (isClosing_) return;
  done_.push_back(std::move(done));
  if (isTold_) return;
  isTold_ = true;
  QMetaObject::invokeMethod(
      this, [this] { collect(); }, Qt::QueuedConnection);
}

/// Takes over what workers have painted. Called by Qt, through which no exception may pass; tiles
/// for which there is no memory are wanted again with the next view.
void PictureTiles::collect() noexcept {
  try {
    takeOver();
  } catch (const std::bad_alloc&) {
    return;
  }
}

void PictureTiles::takeOver() {
  std::vector<Done> done;
  {
    const std::lock_guard guard(lock_);
    done.swap(done_);
    isTold_ = false;
  }
  for (Done& one : done) {
    if (one.isOver || one.job.content != contentNumber_) continue;
    Entry& entry = tiles_[one.job.tile];
    bytes_ -= static_cast<std::size_t>(entry.image.sizeInBytes());
    entry = {std::move(one.image), one.job.content, clock_};
    bytes_ += static_cast<std::size_t>(entry.image.sizeInBytes());
  }
  makeRoom();
  if (onPainted) onPainted();
}

/// Forgets tiles that were not used for longest. Those in sight stay whatever they take.
void PictureTiles::makeRoom() {
  if (bytes_ <= kMostBytes) return;
  std::vector<std::pair<std::uint64_t, PictureTile>> old;
  for (const auto& [tile, entry] : tiles_) {
    if (entry.used < clock_) old.emplace_back(entry.used, tile);
  }
  std::ranges::sort(old);
  // Some more than necessary, so that this does not come with every tile.
  constexpr std::size_t kEnough = kMostBytes - kMostBytes / 8;
  for (const auto& [used, tile] : old) {
    if (bytes_ <= kEnough) return;
    const auto known = tiles_.find(tile);
    bytes_ -= static_cast<std::size_t>(known->second.image.sizeInBytes());
    tiles_.erase(known);
  }
}

QRectF PictureTiles::placeOf(const PictureTile& tile, const PictureViewport& view) {
  const PicturePlane plane = view.plane();
  const double factor = PictureViewport::scaleOf(view.step() - tile.step);
  const double side = kSide * factor;
  return {static_cast<double>(tile.x) * side - plane.left,
          static_cast<double>(tile.y) * side - plane.top, side, side};
}

/// Tiles of other scales, those nearest to the present one last and so above the others.
void PictureTiles::drawOthers(QPainter& painter, const PictureViewport& view) {
  // Nothing could be recognised in others.
  constexpr int kMostSteps = 6 * PictureViewport::kOctave;
  const QRectF seen(QPointF(), QSizeF(view.size()));
  std::vector<std::pair<int, const PictureTile*>> others;
  for (auto& [tile, entry] : tiles_) {
    if (entry.image.isNull() || (tile.step == view.step() && isSharp(entry))) continue;
    if (std::abs(tile.step - view.step()) > kMostSteps) continue;
    if (!placeOf(tile, view).intersects(seen)) continue;
    // Among those at one scale, stale ones come first.
    const int distance = 2 * std::abs(tile.step - view.step()) + (isSharp(entry) ? 0 : 1);
    others.emplace_back(-distance, &tile);
    entry.used = clock_;
  }
  constexpr std::size_t kMost = 256;
  std::ranges::sort(others, {}, [](const auto& other) { return other.first; });
  const std::size_t first = others.size() > kMost ? others.size() - kMost : 0;
  for (std::size_t i = first; i < others.size(); ++i) {
    const auto known = tiles_.find(*others[i].second);
    painter.drawImage(placeOf(known->first, view), known->second.image);
  }
}

void PictureTiles::draw(QPainter& painter, const PictureViewport& view) {
  if (!isComplete()) drawOthers(painter, view);
  for (const PictureTile& tile : tilesOf(view)) {
    const auto known = tiles_.find(tile);
    if (known == tiles_.end() || !isSharp(known->second) || known->second.image.isNull()) continue;
    painter.drawImage(placeOf(tile, view).topLeft(), known->second.image);
  }
}

}  // namespace quillon::windows
