#include "files/paths.h"

#include <array>
#include <cerrno>

#include "base/read_error.h"
#include "files/file_system.h"

namespace quillon::files {

namespace fs = std::filesystem;

namespace {

/// A path with its last extension replaced.
std::string withExtension(std::string_view path, std::string_view extension) {
  const std::string_view name = lastComponent(path);
  const std::size_t dot = name.rfind('.');
  const std::size_t length = dot == std::string_view::npos ? 0 : name.size() - dot;
  return std::string(path.substr(0, path.size() - length)).append(extension);
}

}  // namespace

fs::path toPath(std::string_view utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

std::string fromPath(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::string readFile(const std::string& path) {
  constexpr std::size_t kLongestSmallFile = std::size_t{1} << 26;  // a device may be endless
  std::string bytes;
  const FileHandle file = openFile(findExisting(path), "rb");
  if (file == nullptr) throw base::ReadError(errno);
  std::array<char, 1U << 14> block{};
  for (std::size_t got = 0; (got = std::fread(block.data(), 1, block.size(), file.get())) > 0;) {
    bytes.append(block.data(), got);
    if (bytes.size() > kLongestSmallFile) throw base::ReadError(EFBIG);
  }
  if (std::ferror(file.get()) != 0) throw base::ReadError(errno);
  return bytes;
}

std::string readWholeFile(const std::string& path) {
  if (!namesFile(findExisting(path))) return {};
  try {
    return readFile(path);
  } catch (const base::ReadError&) {
    return {};  // a file that cannot be read counts as missing here
  }
}

bool namesFile(const fs::path& path) {
  const FileKind kind = fileKind(path);
  return kind == FileKind::Regular || kind == FileKind::Other;
}

bool namesFolder(const fs::path& path) { return fileKind(path) == FileKind::Folder; }

bool isMissing(const fs::path& path) { return fileKind(path) == FileKind::Missing; }

bool isInMissingFolder(const fs::path& file) {
  const fs::path folder = file.parent_path();
  return !folder.empty() && isMissing(folder);
}

std::string_view lastComponent(std::string_view name) {
  const std::size_t separator = name.find_last_of(kSeparators);
  return separator == std::string_view::npos ? name : name.substr(separator + 1);
}

std::string_view folderPart(std::string_view path) {
  const std::size_t separator = path.find_last_of(kSeparators);
  const bool hasDrive = path.size() > 1 && path[1] == ':';
  if (separator == std::string_view::npos) return path.substr(0, hasDrive ? 2 : 0);
  const std::size_t last = path.find_last_not_of(kSeparators, separator);
  return path.substr(0, last == std::string_view::npos ? 1 : last + 1);
}

std::string scriptBeside(std::string_view drawing) { return withExtension(drawing, ".scr"); }

std::string layerFileBeside(std::string_view drawing) { return withExtension(drawing, ".lay"); }

}  // namespace quillon::files
