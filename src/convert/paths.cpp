#include "convert/paths.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <vector>

#include "dxf/encoding.h"
#include "dxf/text_source.h"

namespace quillon::convert {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kSeparators = "\\/";

std::vector<std::string> splitComponents(std::string_view path) {
  std::vector<std::string> parts;
  while (!path.empty()) {
    const std::size_t stop = std::min(path.find_first_of(kSeparators), path.size());
    if (stop > 0) parts.emplace_back(path.substr(0, stop));
    path.remove_prefix(std::min(stop + 1, path.size()));
  }
  return parts;
}

std::string folded(std::string_view name) { return dxf::upperCase(name, dxf::Encoding::Utf8); }

/// The entry of a folder with this name, exact case first; empty when there is none.
fs::path findEntry(const fs::path& folder, const std::string& name) {
  std::error_code error;
  fs::path exact = folder / toPath(name);
  if (fs::exists(exact, error)) return exact;
  const std::string wanted = folded(name);
  fs::path found;
  for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error), end;
       !error && entry != end; entry.increment(error)) {
    const fs::path candidate = entry->path().filename();
    // The first one in the order of names, whatever order the folder lists them in.
    if (folded(fromPath(candidate)) == wanted && (found.empty() || candidate < found)) {
      found = candidate;
    }
  }
  return found.empty() ? found : folder / found;
}

/// Walks existing folders as far as `count` components; empty when one is missing.
fs::path walk(std::string_view path, const std::vector<std::string>& parts, std::size_t count) {
  const bool rooted = !path.empty() && kSeparators.find(path.front()) != std::string_view::npos;
  fs::path found = rooted ? fs::path("/") : fs::path();
  for (std::size_t i = 0; i < count; ++i) {
    found = findEntry(found, parts[i]);
    if (found.empty()) return {};
  }
  return found;
}

}  // namespace

fs::path toPath(std::string_view utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

std::string fromPath(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

FileHandle openFile(const fs::path& path, const char* mode) {
#ifdef _WIN32
  const std::wstring wideMode(mode, mode + std::char_traits<char>::length(mode));
  return FileHandle(_wfopen(path.c_str(), wideMode.c_str()));
#else
  return FileHandle(std::fopen(path.c_str(), mode));
#endif
}

std::string readFile(const std::string& path) {
  constexpr std::size_t kLongestSmallFile = std::size_t{1} << 26;  // a device may have no end
  std::string bytes;
  const FileHandle file = openFile(findExisting(path), "rb");
  if (file == nullptr) throw dxf::ReadError(errno);
  std::array<char, 1U << 14> block{};
  for (std::size_t got = 0; (got = std::fread(block.data(), 1, block.size(), file.get())) > 0;) {
    bytes.append(block.data(), got);
    if (bytes.size() > kLongestSmallFile) throw dxf::ReadError(EFBIG);
  }
  if (std::ferror(file.get()) != 0) throw dxf::ReadError(errno);
  return bytes;
}

std::string readWholeFile(const std::string& path) {
  if (!namesFile(findExisting(path))) return {};
  try {
    return readFile(path);
  } catch (const dxf::ReadError&) {
    return {};  // a file that cannot be read counts as missing here
  }
}

fs::path findExisting(std::string_view path) {
  fs::path asWritten = toPath(path);
  std::error_code error;
  if (path.empty() || fs::exists(asWritten, error)) return asWritten;
  const std::vector<std::string> parts = splitComponents(path);
  fs::path found = walk(path, parts, parts.size());
  return found.empty() ? asWritten : found;
}

fs::path findForCreation(std::string_view path) {
  fs::path asWritten = toPath(path);
  std::error_code error;
  if (path.empty() || fs::exists(asWritten, error)) return asWritten;
  const bool oneSeparator = path.find('\\') == std::string_view::npos;
  if (oneSeparator && fs::is_directory(asWritten.parent_path(), error)) return asWritten;
  const std::vector<std::string> parts = splitComponents(path);
  if (parts.size() < 2) return asWritten;
  const fs::path folder = walk(path, parts, parts.size() - 1);
  return folder.empty() ? asWritten : folder / toPath(parts.back());
}

bool namesFile(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  return fs::exists(status) && !fs::is_directory(status);
}

bool isMissing(const fs::path& path) {
  std::error_code error;
  return fs::status(path, error).type() == fs::file_type::not_found;
}

std::string_view lastComponent(std::string_view name) {
  const std::size_t separator = name.find_last_of(kSeparators);
  return separator == std::string_view::npos ? name : name.substr(separator + 1);
}

std::string scriptBeside(std::string_view drawing) {
  const std::string_view name = lastComponent(drawing);
  const std::size_t dot = name.rfind('.');
  const std::size_t extension = dot == std::string_view::npos ? 0 : name.size() - dot;
  return std::string(drawing.substr(0, drawing.size() - extension)) + ".scr";
}

}  // namespace quillon::convert
