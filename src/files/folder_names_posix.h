#pragma once

#include <dirent.h>

#include <filesystem>
#include <memory>
#include <string_view>

namespace quillon::files {

/// Hands on the names of what is in a folder, in the system's order; the empty path is the current
/// folder. What cannot be listed has none. Takes a part of the time of a directory_iterator, which
/// makes a path of each name.
template <typename Visit>
void forEachName(const std::filesystem::path& folder, const Visit& visit) {
  const auto close = [](DIR* open) { closedir(open); };
  const std::unique_ptr<DIR, decltype(close)> open(opendir(folder.empty() ? "." : folder.c_str()),
                                                   close);
  if (open == nullptr) return;
  while (const dirent* const entry = readdir(open.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") visit(name);
  }
}

}  // namespace quillon::files
