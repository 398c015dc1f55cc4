#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

#include "dxf/line_reader.h"
#include "dxf/text_source.h"
#include "support/temp_folder.h"
#include "support/test_monitor.h"

namespace quillon::testing {

/// Size of a window in bytes, so that texts of several windows are quickly made and read.
inline constexpr std::size_t kSmallWindow = 4096;

/// A reader for the lines of a text, with everything that it needs. A file is read through a small
/// window.
struct TextWalk {
  explicit TextWalk(std::string_view bytes) : source(bytes), reader(source, monitor) {}
  explicit TextWalk(std::FILE* file)
      : source(
            file, {}, [] { return false; }, {}, kSmallWindow),
        reader(source, monitor) {}

  dxf::TextSource source;
  TestMonitor monitor;
  dxf::LineReader reader;
};

/// A file with these bytes, open for reading.
class OpenFile {
 public:
  explicit OpenFile(std::string_view bytes)
      : path_(folder_.write("drawing.dxf", bytes)), file_(std::fopen(path_.c_str(), "rb")) {}
  ~OpenFile() {
    if (file_ != nullptr) std::fclose(file_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  std::FILE* get() const { return file_; }
  const std::string& path() const { return path_; }

 private:
  TempFolder folder_;
  std::string path_;
  std::FILE* file_;
};

/// A straightforward line reader, one character at a time.
class PlainLineReader {
 public:
  explicit PlainLineReader(std::string_view bytes) : bytes_(bytes) {}

  bool atEnd() const { return position_ == bytes_.size(); }

  std::string next() {
    std::string line;
    while (!atEnd()) {
      const char c = bytes_[position_++];
      if (!detected_ && (c == '\n' || c == '\r')) {
        eol_ = c;
        other_ = c == '\n' ? '\r' : '\n';
        detected_ = true;
      }
      if (detected_ && c == eol_) break;
      if (!detected_ || c != other_) line += c;
    }
    return line;
  }

 private:
  std::string_view bytes_;
  std::size_t position_ = 0;
  bool detected_ = false;
  char eol_ = '\0';
  char other_ = '\0';
};

}  // namespace quillon::testing
