#include "app/headless/path_list.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <string_view>
#include <system_error>

#include "app/console/interrupt.h"
#include "files/paths.h"

namespace quillon::headless {
namespace {

/// Cuts the bytes of a list into paths.
class PathSplitter {
 public:
  PathSplitter(bool nulSeparated, const std::function<void(const std::string&)>& take)
      : end_(nulSeparated ? '\0' : '\n'), take_(take) {}

  /// Takes the next bytes of the list; false when it cannot be a list of paths.
  bool add(std::string_view bytes) {
    while (!bytes.empty()) {
      const std::size_t end = bytes.find(end_);
      path_.append(bytes.substr(0, end));
      if (path_.size() > kLongest) return fail(" has more than 65536 bytes: this is not a path");
      if (end == std::string_view::npos) return true;
      if (!finishPath()) return false;
      bytes.remove_prefix(end + 1);
    }
    return true;
  }

  /// Ends the last path, which may lack its end.
  bool finishPath() {
    if (number_ == 1 && path_.starts_with("\xEF\xBB\xBF")) path_.erase(0, 3);  // a byte order mark
    if (end_ == '\n') {
      if (path_.ends_with('\r')) path_.pop_back();
      if (path_.starts_with("\xFF\xFE") || path_.starts_with("\xFE\xFF")) {
        return fail(" is UTF-16: save the list as UTF-8");
      }
      if (path_.find('\0') != std::string::npos) {
        return fail(" contains a NUL character: use --null for names that end with one");
      }
      if (path_.find_first_not_of(" \t") == std::string::npos) path_.clear();
    }
    if (!path_.empty()) take_(path_);
    path_.clear();
    ++number_;
    return true;
  }

  const std::string& error() const { return error_; }

 private:
  static constexpr std::size_t kLongest = 1U << 16;

  bool fail(const char* what) {
    error_ = (end_ == '\n' ? "line " : "name ") + std::to_string(number_) + what;
    return false;
  }

  char end_;
  const std::function<void(const std::string&)>& take_;
  std::string path_;
  std::string error_;
  std::size_t number_ = 1;
};

std::string unreadable(const std::string& file, int reason) {
  return "the list of drawings " + file +
         " could not be read: " + std::generic_category().message(reason);
}

}  // namespace

std::string readPathList(const std::string& file, bool nulSeparated,
                         const std::function<void(const std::string&)>& take) {
  files::FileHandle opened;
  std::FILE* input = stdin;
  if (file != "-") {
    const std::filesystem::path path = files::findExisting(file);
    if (files::namesFolder(path)) return unreadable(file, EISDIR);
    opened = files::openFile(path, "rb");
    if (opened == nullptr) return unreadable(file, errno);
    input = opened.get();
  }
  PathSplitter paths(nulSeparated, take);
  std::array<char, 1U << 16> block{};
  errno = 0;
  bool isGood = true;
  for (std::size_t got = block.size(); isGood && got == block.size() && !console::interrupted();) {
    got = std::fread(block.data(), 1, block.size(), input);
    if (std::ferror(input) != 0 && !console::interrupted()) return unreadable(file, errno);
    isGood = paths.add({block.data(), got});
  }
  if (isGood) isGood = paths.finishPath();
  return isGood ? "" : "the list of drawings " + file + ": " + paths.error();
}

}  // namespace quillon::headless
