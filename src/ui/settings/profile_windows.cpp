#include <windows.h>

#include <array>

#include "convert/file_system.h"
#include "convert/paths.h"
#include "dxf/encoding.h"
#include "ui/settings/profile.h"

namespace quillon::settings {
namespace {

std::string ansi(std::string_view utf8) { return dxf::fromUtf8(utf8, dxf::Encoding::Windows1252); }

/// A path in the system's own code page; empty when that lacks some of its characters.
std::string ansiText(const std::wstring& path) {
  BOOL lacking = FALSE;
  const int length = static_cast<int>(path.size());
  const int size = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, path.c_str(), length, nullptr,
                                       0, nullptr, &lacking);
  if (lacking != FALSE) return {};
  std::string text(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, path.c_str(), length, text.data(), size, nullptr, nullptr);
  return text;
}

/// The path for functions that take ANSI text of limited length: where need be, the short form.
std::string ansiPath(const std::filesystem::path& path) {
  std::string text = ansiText(path.native());
  if (!text.empty() && text.size() < MAX_PATH) return text;
  constexpr DWORD kLongestPath = 32768;
  std::wstring shortPath(kLongestPath, L'\0');
  shortPath.resize(GetShortPathNameW(path.c_str(), shortPath.data(), kLongestPath));
  return ansiText(shortPath);
}

}  // namespace

std::string readProfile(const std::filesystem::path& file, std::string_view section,
                        std::string_view key) {
  std::array<char, 255> buffer{};
  const DWORD length =
      GetPrivateProfileStringA(ansi(section).c_str(), ansi(key).c_str(), "", buffer.data(),
                               static_cast<DWORD>(buffer.size()), ansiPath(file).c_str());
  return dxf::windows1252ToUtf8({buffer.data(), length});
}

bool writeProfile(const std::filesystem::path& file, std::string_view section,
                  const std::vector<ProfileEntry>& entries) {
  convert::makeFolders(file.parent_path());  // one that cannot be made is noticed at once
  // The short form of a name is that of a file which exists.
  if (convert::isMissing(file)) convert::openFile(file, "wbx");
  const std::string path = ansiPath(file);
  bool written = true;
  for (const auto& [key, value] : entries) {
    written = WritePrivateProfileStringA(ansi(section).c_str(), ansi(key).c_str(),
                                         ansi(value).c_str(), path.c_str()) != 0 &&
              written;
  }
  return written;
}

}  // namespace quillon::settings
