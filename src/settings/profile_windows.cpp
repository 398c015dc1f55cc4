#include <windows.h>

#include <array>
#include <string>

#include "base/encoding.h"
#include "files/file_system.h"
#include "files/ini_file.h"
#include "files/paths.h"
#include "settings/profile.h"

namespace quillon::settings {
namespace {

/// Converts Windows-1252 bytes for the wide functions. Those convert texts from and to the system's
/// code page; decoding our bytes with that same code page makes them reach the file unchanged,
/// whatever the system's language.
std::wstring wide(std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  std::wstring text(bytes.size(), L'\0');
  const int length = static_cast<int>(text.size());
  text.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), length)));
  return text;
}

std::wstring profileText(std::string_view utf8) {
  return wide(base::fromUtf8(utf8, base::Encoding::Windows1252));
}

std::string utf8Text(const wchar_t* text, DWORD length) {
  std::string bytes(std::size_t{length} * 2, '\0');
  bytes.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_ACP, 0, text, static_cast<int>(length), bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr)));
  return base::windows1252ToUtf8(bytes);
}

/// A path for functions limited to MAX_PATH: the short form if necessary.
std::wstring limited(const std::filesystem::path& path) {
  if (path.native().size() < MAX_PATH) return path.native();
  constexpr DWORD kLongestPath = 32768;
  std::wstring shortPath(kLongestPath, L'\0');
  shortPath.resize(GetShortPathNameW(path.c_str(), shortPath.data(), kLongestPath));
  return shortPath;
}

}  // namespace

std::string readProfile(const std::filesystem::path& file, std::string_view section,
                        std::string_view key) {
  std::array<wchar_t, files::IniFile::kLongestValue + 1> buffer{};
  const DWORD length = GetPrivateProfileStringW(
      profileText(section).c_str(), profileText(key).c_str(), L"", buffer.data(),
      static_cast<DWORD>(buffer.size()), limited(file).c_str());
  return utf8Text(buffer.data(), length);
}

std::string keptByProfile(std::string_view value) {
  const std::string stored = base::fromUtf8(value, base::Encoding::Windows1252);
  return base::windows1252ToUtf8(stored.substr(0, files::IniFile::kLongestValue));
}

bool writeProfile(const std::filesystem::path& file, std::string_view section,
                  const std::vector<ProfileEntry>& entries) {
  files::makeFolders(file.parent_path());  // a folder that cannot be created shows at once
  // A short name exists only for an existing file.
  if (files::isMissing(file)) files::openFile(file, "wbx");
  const std::wstring path = limited(file);
  bool written = true;
  for (const auto& [key, value] : entries) {
    written = WritePrivateProfileStringW(profileText(section).c_str(), profileText(key).c_str(),
                                         profileText(value).c_str(), path.c_str()) != 0 &&
              written;
  }
  return written;
}

}  // namespace quillon::settings
