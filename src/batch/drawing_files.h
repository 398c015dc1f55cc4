#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::batch {

/// The drawings of a folder: its ".dxf" files, whatever the case of the suffix, in the order of
/// their names.
struct FolderDrawings {
  struct Drawing {
    std::string path;        ///< exact, in UTF-8
    bool isRegular = false;  ///< certainly neither a link nor anything else
  };
  std::vector<Drawing> drawings;
  std::vector<std::string> others;  ///< pipes and devices that are named like drawings
  std::vector<std::filesystem::path> unreadable;  ///< folders that cannot be listed
  int reason = 0;  ///< why the first of them cannot be listed (errno), or 0
};

/// Lists a folder; `recursive` includes its subfolders, but none that a link leads to.
FolderDrawings drawingsIn(const std::filesystem::path& folder, bool recursive = false);

/// A drawing's name made fit for a script: characters other than letters, digits, "_", "-" and "."
/// become "_".
std::string nameFromFile(std::string_view stem);

}  // namespace quillon::batch
