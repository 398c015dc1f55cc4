#include "dxf/file_text.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>

#include "dxf/byte_scan.h"

namespace quillon::dxf {
namespace {

constexpr std::size_t kBlock = std::size_t{4} << 20;

LineEnds detectLineEnds(std::string_view bytes) {
  const std::size_t lf = bytes.find('\n');
  const std::size_t cr = bytes.substr(0, lf).find('\r');
  LineEnds ends;
  ends.eolDetected = lf != std::string_view::npos || cr != std::string_view::npos;
  if (cr != std::string_view::npos) std::swap(ends.eolChar, ends.eolOther);
  return ends;
}

}  // namespace

FileText::FileText(std::string_view bytes) {
  grow(bytes.size());
  std::copy(bytes.begin(), bytes.end(), data_.get());
  size_ = bytes.size();
  finish();
}

FileText FileText::read(std::FILE* stream, std::string_view head, std::size_t expectedSize,
                        const std::function<bool()>& cancelled) {
  FileText text;
  // One byte more than expected shows the end of the file without growing.
  text.grow(std::max({expectedSize + 1, head.size() * 2, std::size_t{1} << 16}));
  std::copy(head.begin(), head.end(), text.data_.get());
  text.size_ = head.size();
  while (!cancelled()) {
    if (text.size_ == text.capacity_) text.grow(text.capacity_ * 2);
    const std::size_t wanted = std::min(kBlock, text.capacity_ - text.size_);
    const std::size_t got = std::fread(text.data_.get() + text.size_, 1, wanted, stream);
    text.size_ += got;
    if (got < wanted) {
      if (std::ferror(stream) != 0) throw ReadError(std::strerror(errno));
      break;
    }
  }
  text.finish();
  return text;
}

std::size_t FileText::lineOf(const char* position) const {
  if (position == nullptr || position < begin() || position > end()) return 0;
  return 1 + countByte({begin(), static_cast<std::size_t>(position - begin())}, lineEnds_.eolChar);
}

void FileText::grow(std::size_t capacity) {
  void* const grown = std::realloc(data_.get(), capacity + kMargin);
  if (grown == nullptr) throw std::bad_alloc();
  static_cast<void>(data_.release());
  data_.reset(static_cast<char*>(grown));
  capacity_ = capacity;
}

void FileText::finish() {
  lineEnds_ = detectLineEnds(bytes());
  regulariseLineEnds();
  for (std::size_t i = 0; i < kMargin; ++i) data_.get()[size_ + i] = i % 2 == 0 ? '\n' : '\r';
}

void FileText::regulariseLineEnds() {
  const auto [eol, other, detected] = lineEnds_;
  if (!detected || bytes().find(other) == std::string_view::npos) return;
  if (!hasWithoutBefore(bytes(), other, eol)) return;
  char* out = data_.get();
  char previous = other;  // the first character of a file cannot be a stray that counts
  for (const char c : bytes()) {
    if (c != other || previous == eol) *out++ = c;
    previous = c;
  }
  size_ = static_cast<std::size_t>(out - data_.get());
}

}  // namespace quillon::dxf
