#include <windows.h>

#include <array>

#include "dxf/encoding.h"
#include "ui/settings/profile.h"

namespace quillon::settings {
namespace {

std::string ansi(std::string_view utf8) { return dxf::fromUtf8(utf8, dxf::Encoding::Windows1252); }

/// The path for functions that take ANSI text: the short form where the long one has other
/// characters.
std::string ansiPath(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  const std::string text(utf8.begin(), utf8.end());
  if (dxf::windows1252ToUtf8(ansi(text)) == text) return ansi(text);
  std::array<wchar_t, MAX_PATH> shortPath{};
  const DWORD length = GetShortPathNameW(path.c_str(), shortPath.data(), MAX_PATH);
  const std::u8string found =
      length > 0 && length < MAX_PATH ? std::filesystem::path(shortPath.data()).u8string() : utf8;
  return ansi(std::string(found.begin(), found.end()));
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
  std::error_code ignored;  // a folder that cannot be made is noticed when the file is written
  std::filesystem::create_directories(file.parent_path(), ignored);
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
