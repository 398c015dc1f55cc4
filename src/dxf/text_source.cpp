#include "dxf/text_source.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <string>
#include <system_error>
#include <utility>

#include "base/byte_scan.h"
#include "base/uninitialized.h"
#include "dxf/stream_position.h"

namespace quillon::dxf {
namespace {

[[noreturn]] void failReading() { throw base::ReadError(errno); }

void seekToStart(std::FILE* stream) {
  if (!seekTo(stream, 0)) failReading();
}

}  // namespace

TextSource::TextSource(std::string_view bytes) : fileSize_(bytes.size()) {
  grow(bytes.size());
  std::copy(bytes.begin(), bytes.end(), data_.get());
  utf8_.add(bytes);
  addBytes(bytes.size());
  atFileEnd_ = true;
  finishWindow();
}

TextSource::TextSource(std::FILE* stream, std::string_view head,
                       const std::function<bool()>& cancelled, const InputLimits& limits,
                       std::size_t window, const FileStamp* beforeHead)
    : stream_(stream) {
  const StreamState state = stateOf(stream);
  if (state.size >= 0) {
    stamp_ = state.stamp;
    fileSize_ = static_cast<std::uint64_t>(state.size);
    if (fileSize_ > limits.file) throw InputTooLarge(limits.file);
    // A small file needs no large block, which the system would have to hand out and take back.
    const std::uint64_t enough = std::max(fileSize_ + 1, std::uint64_t{4} * head.size());
    grow(static_cast<std::size_t>(std::min(std::uint64_t{window}, enough)));
    const bool headHolds = beforeHead != nullptr && stamp_ != FileStamp{} &&
                           *beforeHead == stamp_ && head.size() <= window / 4;
    if (headHolds) {
      takeHead(head);
      atFileEnd_ = std::feof(stream) != 0;  // whoever read the head has met it
      if (atFileEnd_) {
        finishWindow();
      } else {
        refill(begin());
      }
    } else {
      rewind();
    }
    return;
  }
  grow(std::max(window, 2 * head.size()));
  readToEnd(head, cancelled, limits.pipe);
}

TextSource::TextSource(Whole, std::FILE* stream, std::string_view head,
                       const std::function<bool()>& cancelled, const InputLimits& limits)
    : stream_(stream) {
  const long long size = stateOf(stream).size;
  const std::uint64_t known = size < 0 ? 0 : static_cast<std::uint64_t>(size);
  if (known > limits.file) throw InputTooLarge(limits.file);
  // One byte more, so that the end is met without growing.
  grow(std::max(static_cast<std::size_t>(known) + 1, std::max(kWindow, 2 * head.size())));
  readToEnd(head, cancelled, size < 0 ? limits.pipe : limits.file);
}

TextSource TextSource::whole(std::FILE* stream, std::string_view head,
                             const std::function<bool()>& cancelled, const InputLimits& limits) {
  return {Whole{}, stream, head, cancelled, limits};
}

void TextSource::readToEnd(std::string_view head, const std::function<bool()>& cancelled,
                           std::uint64_t most) {
  std::clearerr(stream_);
  utf8_.add(head);
  takeHead(head);
  keepsAll_ = true;
  while (!cancelled() && readMore()) {
    if (bytesRead_ > most) throw InputTooLarge(most);
    if (size_ == capacity_) grow(2 * capacity_);
  }
  if (bytesRead_ > most) throw InputTooLarge(most);
  atFileEnd_ = true;
  fileSize_ = bytesRead_;
  stream_ = nullptr;
  finishWindow();
}

void TextSource::takeHead(std::string_view head) {
  std::copy(head.begin(), head.end(), data_.get());
  addBytes(head.size());
}

const char* TextSource::refill(const char* keep) {
  const auto dropped = static_cast<std::size_t>(keep - begin());
  const std::size_t kept = size_ - dropped;
  if (atFileEnd_) return keep;
  std::memmove(data_.get(), keep, kept);
  const std::size_t known = wholeLines_ - dropped;
  size_ = kept;
  do {
    // Leave ample room after the kept part: an entity that did not fit is read again from its
    // start.
    if (size_ > capacity_ / 4) grow(2 * capacity_);
    readMore();
    finishWindow();
  } while (!atFileEnd_ && wholeLines_ <= known);
  return begin();
}

void TextSource::rewind() {
  if (stream_ == nullptr) return;
  seekToStart(stream_);
  size_ = wholeLines_ = 0;
  bytesRead_ = 0;
  lastByte_ = '\0';
  atFileEnd_ = false;
  refill(begin());
}

std::uint64_t TextSource::offsetOf(const char* position) const {
  return bytesRead_ - static_cast<std::uint64_t>(end() - position);
}

bool TextSource::hasChanged() const { return stream_ != nullptr && stampOf(stream_) != stamp_; }

bool TextSource::isUtf8(const std::function<bool()>& cancelled) {
  if (stream_ == nullptr) return utf8_.complete();
  base::Utf8Check check;
  if (atFileEnd_ && size_ == bytesRead_) {  // the window has every byte, none was normalised away
    check.add({begin(), size_});
    return !cancelled() && check.complete();
  }
  const auto block = base::uninitialized<char>(kWindow);
  seekToStart(stream_);
  while (check.valid() && !cancelled()) {
    const std::size_t got = std::fread(block.get(), 1, kWindow, stream_);
    if (std::ferror(stream_) != 0) failReading();
    if (got == 0) break;
    check.add({block.get(), got});
  }
  const bool whole = std::feof(stream_) != 0 && check.complete();
  if (!seekTo(stream_, bytesRead_)) failReading();
  return whole;
}

void TextSource::grow(std::size_t capacity) {
  void* const grown = std::realloc(data_.get(), capacity + kMargin);
  if (grown == nullptr) throw std::bad_alloc();
  static_cast<void>(data_.release());
  data_.reset(static_cast<char*>(grown));
  capacity_ = capacity;
}

bool TextSource::readMore() {
  const std::size_t wanted = capacity_ - size_;
  const std::size_t got = std::fread(data_.get() + size_, 1, wanted, stream_);
  if (got < wanted) {
    const bool interrupted = std::ferror(stream_) != 0 && readWasInterrupted();
    if (std::ferror(stream_) != 0 && !interrupted) failReading();
    if (interrupted) std::clearerr(stream_);
    atFileEnd_ = !interrupted;
  }
  if (keepsAll_) utf8_.add({data_.get() + size_, got});
  addBytes(got);
  return !atFileEnd_;
}

/// Appends raw bytes from after the window to it, with normalised line ends.
void TextSource::addBytes(std::size_t count) {
  char* const start = data_.get() + size_;
  const std::string_view bytes(start, count);
  bytesRead_ += count;
  if (!lineEnds_.eolDetected) {
    const std::size_t first = bytes.find_first_of("\r\n");
    lineEnds_.eolDetected = first != std::string_view::npos;
    if (lineEnds_.eolDetected && bytes[first] == '\r') {
      std::swap(lineEnds_.eolChar, lineEnds_.eolOther);
    }
  }
  const auto [eol, other, detected] = lineEnds_;
  char* out = start + count;
  if (detected && count > 0 &&
      ((bytes.front() == other && lastByte_ != eol) || base::hasWithoutBefore(bytes, other, eol))) {
    out = start;
    char previous = lastByte_;
    for (const char c : bytes) {
      const char current = c;  // the place of c may be overwritten
      if (current != other || previous == eol) *out++ = current;
      previous = current;
    }
    lastByte_ = previous;
  } else if (count > 0) {
    lastByte_ = bytes.back();
  }
  size_ = static_cast<std::size_t>(out - data_.get());
}

void TextSource::finishWindow() {
  wholeLines_ = size_;
  if (!atFileEnd_) {
    const std::size_t last = std::string_view(begin(), size_).rfind(lineEnds_.eolChar);
    wholeLines_ = last == std::string_view::npos ? 0 : last + 1;
  }
  for (std::size_t i = 0; i < kMargin; ++i) data_.get()[size_ + i] = i % 2 == 0 ? '\n' : '\r';
}

}  // namespace quillon::dxf
