#include "windows/live_preview.h"

#include <exception>
#include <new>
#include <utility>

#include "base/read_error.h"
#include "base/run_time_error.h"
#include "convert/layer_scan.h"
#include "convert/messages.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "texts/error_texts.h"
#include "windows/conversion_stack.h"
#include "workbench/differing.h"

namespace quillon::windows {
namespace {

/// Larger drawings are not held in memory.
constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 30;

}  // namespace

LivePreview::LivePreview(std::function<void(const LivePicture&)> show) : show_(std::move(show)) {
  debounce_.setSingleShot(true);
  debounce_.setInterval(kDebounceMilliseconds);
  connect(&debounce_, &QTimer::timeout, &debounce_, [this] { send(); });
  setStackSize(kConversionStack);
  start(QThread::LowPriority);
}

LivePreview::~LivePreview() {
  {
    const QMutexLocker lock(&mutex_);
    isEnding_ = true;
    ++newest_;
    changed_.wakeAll();
  }
  wait();
}

void LivePreview::want(const convert::ConversionJob& job,
                       const convert::Surroundings& surroundings) {
  if (waiting_ && waiting_->isSame(job, surroundings)) return;
  // What is being worked on is out of date from now on.
  waiting_ = Request{job, surroundings, ++newest_};
  debounce_.start();
}

void LivePreview::wantNothing() {
  debounce_.stop();
  if (std::exchange(waiting_, std::nullopt)) settled_ = ++newest_;
  const QMutexLocker lock(&mutex_);
  requested_ = Request{};
  changed_.wakeAll();
}

void LivePreview::again() {
  if (!waiting_) return;
  waiting_->number = ++newest_;
  debounce_.start();
}

void LivePreview::send() {
  if (!waiting_) return;
  const QMutexLocker lock(&mutex_);
  requested_ = waiting_;
  changed_.wakeAll();
}

LivePreview::FileStates LivePreview::statesOf(const convert::ConversionJob& job) {
  return {files::fileStateOf(files::toPath(job.dxfFile)),
          files::fileStateOf(files::findExisting(job.layerFile))};
}

bool LivePreview::haveFilesChanged() {
  const FileStates now = statesOf(request_.job);
  const bool isSettled = std::exchange(looked_, now) == now;
  return isSettled && now != read_;
}

bool LivePreview::waitForWork() {
  QMutexLocker lock(&mutex_);
  while (!requested_ && !isEnding_) {
    const bool isWoken = changed_.wait(&mutex_, kLookMilliseconds);
    if (isWoken || request_.job.dxfFile.empty()) continue;
    lock.unlock();  // files may be slow to look at
    const bool changed = haveFilesChanged();
    lock.relock();
    if (changed && !requested_) return !isEnding_;
  }
  if (isEnding_) return false;
  request_ = *std::exchange(requested_, std::nullopt);
  return true;
}

void LivePreview::run() {
  bool isOn = true;
  while (isOn) {
    try {
      isOn = waitForWork();
      if (isOn) work();
    } catch (...) {
      // Not even a message was possible. The picture stays as it is until something changes.
      held_.reset();
      layerNames_.reset();
      givenUp_ = request_.number;
    }
  }
}

void LivePreview::work() {
  if (request_.job.dxfFile.empty()) {
    held_.reset();
    layerNames_.reset();
    return;
  }
  LivePicture picture;
  picture.path = request_.job.dxfFile;
  const texts::Texts texts(request_.surroundings.languageOffset);
  try {
    // To open a pipe is to wait for its writer, and to take what a conversion is to get.
    if (files::fileKind(files::toPath(picture.path)) != files::FileKind::Other) {
      serve(picture);
      return;
    }
    picture.failure = texts(texts::TextId::PictureNotRegularFile);
  } catch (const base::ReadError& error) {
    picture.failure = convert::Messages(texts)
                          .fileUnreadable(picture.path, texts::reasonText(error.reason(), texts))
                          .text;
  } catch (const dxf::InputTooLarge&) {
    picture.failure = texts(texts::TextId::PictureTooLarge);
  } catch (const std::bad_alloc&) {
    held_.reset();
    picture.failure = texts::outOfMemoryText(texts);
  } catch (const std::exception& fault) {
    // A picture is not worth ending anything; the conversion itself reports what is wrong.
    picture.failure = std::string(texts(texts::TextId::UnknownError)) + ": " + fault.what();
  }
  picture.isComplete = true;
  post(picture);
}

void LivePreview::readFile() {
  const int number = request_.number;
  const std::string& path = request_.job.dxfFile;
  read_ = looked_ = statesOf(request_.job);
  if (held_ != nullptr && held_->path() == path && heldState_ == read_.drawing) return;
  held_.reset();
  layerNames_.reset();
  held_ = std::make_unique<convert::HeldDrawing>(
      path, [this, number] { return isStale(number); }, dxf::InputLimits{kMostBytes, kMostBytes});
  heldState_ = read_.drawing;
  // A cancel leaves a part of the file.
  if (isStale(number)) held_.reset();
}

void LivePreview::findLayers() {
  if (layerNames_ != nullptr) return;
  std::vector<std::string> names;
  try {
    if (held_->kind() == convert::InputKind::Text) {
      const int number = request_.number;
      names = convert::layersOfText(held_->text(), [this, number] { return isStale(number); });
    }
  } catch (const base::RunTimeError&) {
    // What is wrong with the drawing, the result says.
  }
  if (isStale(request_.number)) return;
  layerNames_ = std::make_shared<const std::vector<std::string>>(std::move(names));
}

void LivePreview::serve(LivePicture& picture) {
  const int number = request_.number;
  const workbench::Cancelled stale = [this, number] { return isStale(number); };
  const convert::Surroundings& surroundings = request_.surroundings;
  readFile();
  if (stale()) return;
  findLayers();
  if (stale()) return;
  picture.layerNames = layerNames_;
  picture.result = std::make_shared<const workbench::Reading>(
      workbench::readResult(*held_, request_.job, surroundings, stale));
  if (stale()) return;
  picture.isComplete = picture.result->scene == nullptr;
  post(picture);
  if (picture.isComplete) return;
  picture.drawing = std::make_shared<const workbench::Reading>(
      workbench::readDrawing(*held_, *picture.result, surroundings, stale));
  if (stale()) return;
  picture.isComplete = picture.drawing->scene == nullptr;
  post(picture);
  if (picture.isComplete) return;
  picture.differences = workbench::differencesOf(*picture.drawing, *picture.result, stale);
  picture.isComplete = true;
  post(picture);
}

void LivePreview::post(const LivePicture& picture) {
  QMetaObject::invokeMethod(
      &debounce_,  // lives in the owner's thread, and not longer than this
      [this, picture, number = request_.number] {
        if (isStale(number)) return;
        if (picture.isComplete) settled_ = number;
        show_(picture);
      },
      Qt::QueuedConnection);
}

}  // namespace quillon::windows
