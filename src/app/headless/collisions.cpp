#include "app/headless/collisions.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/text_hash.h"
#include "files/file_name.h"
#include "files/file_system.h"
#include "files/output_file.h"
#include "files/paths.h"

namespace quillon::headless {
namespace {

namespace fs = std::filesystem;
using files::fromPath;
using files::toPath;

/// One spelling for all paths to a file. The system resolves each folder once; only links, and all
/// files where names ignore case, are resolved one by one.
class FileKeys {
 public:
  /// The key of a file; it need not be looked at if it certainly is no link.
  std::string of(const std::string& file, bool isNoLink = false) {
    const std::optional<files::FileName> cut =
        files::namesHaveCase() ? files::cutFileName(file) : std::nullopt;
    if (!cut) return keyOf(toPath(file));
    Folder& folder = folderAt(cut->folder);
    // What is in no folder is no link.
    if (!isNoLink && !folder.isMissing && files::isLink(file)) return keyOf(toPath(file));
    folder_ = &folder;
    return std::string(folder.prefix).append(cut->name);
  }

  /// Notes the folder that gets the last of these files when it is written.
  void noteFolder(std::set<fs::path::string_type>& folders) {
    if (folder_ == nullptr) {
      folders.insert(otherFolder_.native());
    } else if (!folder_->isNoted) {
      folders.insert(folder_->path.native());
      folder_->isNoted = true;
    }
  }

 private:
  struct Folder {
    fs::path path;
    std::string prefix;  ///< of the keys of its files
    bool isMissing = false;
    bool isNoted = false;
  };

  /// The key of any file, whatever its path is like.
  std::string keyOf(const fs::path& path) {
    const fs::path name = path.filename();
    std::error_code error;
    const bool isPlain = files::namesHaveCase() && !name.empty() && name != "." && name != ".." &&
                         !fs::is_symlink(path, error);
    folder_ = nullptr;
    otherFolder_ = isPlain ? path.parent_path() : files::folderOfTarget(path);
    if (!isPlain) return fromPath(files::uniquePath(path));
    return fromPath(uniqueFolder(otherFolder_) / name);
  }

  static fs::path uniqueFolder(const fs::path& folder) {
    return files::uniquePath(folder.empty() ? fs::path(".") : folder);
  }

  Folder& folderAt(std::string_view withSeparator) {
    constexpr std::size_t kMost = 10000;
    const auto known = folders_.find(withSeparator);
    if (known != folders_.end()) return known->second;
    if (folders_.size() > kMost) folders_.clear();
    Folder& folder = folders_[std::string(withSeparator)];
    if (!withSeparator.empty()) withSeparator.remove_suffix(1);
    folder.path = toPath(withSeparator);
    folder.prefix = files::prefixOf(uniqueFolder(folder.path));
    folder.isMissing = !folder.path.empty() && files::isMissing(folder.path);
    return folder;
  }

  std::unordered_map<std::string, Folder, base::TextHash, std::equal_to<>> folders_;
  Folder* folder_ = nullptr;  ///< of the last file; null for otherFolder_
  fs::path otherFolder_;
};

/// Only hashes of paths are kept; where two are equal, the paths are compared.
class Collisions {
 public:
  Collisions(const Options& options, Plan& plan) : plan_(plan) {
    const auto add = [this](const std::string& typed) {
      settings_.insert(fromPath(files::uniquePath(files::findExisting(typed))));
    };
    if (options.frame) add(*options.frame);
    if (!options.job.layerFile.empty()) add(options.job.layerFile);
    if (isAlone()) return;
    inputs_.reserve(plan.size());
    ownHashes_.reserve(plan.size());
    for (std::size_t i = 0; i < plan.size(); ++i) {
      const PlannedDrawing& drawing = plan.drawings[i];
      const bool isFile = !drawing.path.empty();
      ownHashes_.push_back(isFile ? hash(keys_.of(drawing.path, drawing.isRegular)) : 0);
      if (isFile) inputs_.emplace_back(ownHashes_.back(), i);
    }
    std::sort(inputs_.begin(), inputs_.end());
    written_.reserve(plan.size());
  }

  /// The usage error caused by a drawing's results, or "".
  std::string check(std::size_t index) {
    const std::string& dxf = plan_.drawings[index].path;
    const std::array<std::string, kKinds> results = resultsOf(index);
    if (!dxf.empty() && results.front() == dxf) return dxf + " is the drawing itself";
    if (isAlone()) {
      if (!results.front().empty()) {
        plan_.resultFolders.insert(files::folderOfTarget(toPath(results.front())).native());
      }
      return {};
    }
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
      const std::string& file = results[kind];
      if (file.empty()) continue;
      const std::string key = keys_.of(file);
      keys_.noteFolder(plan_.resultFolders);
      // A script that would replace its own drawing via another path is refused by the conversion.
      const bool mayReplaceOwn = kind == 0 && !dxf.empty() && hash(key) == ownHashes_[index];
      if (mayReplaceOwn && key == keys_.of(dxf)) continue;
      if (isInput(key)) return file + " would replace a file that is read";
      const Result* const before = find(key);
      if (before == nullptr) {
        written_.emplace(hash(key), Result{index, kind});
      } else if (isReplaced(file)) {
        return mark(index, before->drawing, file);
      }
    }
    return {};
  }

 private:
  static constexpr std::size_t kKinds = 3;
  struct Result {
    std::size_t drawing;
    std::size_t kind;
  };

  std::size_t hash(const std::string& key) const { return hash_(key); }

  /// One drawing and its script alone can only be in the way of each other, which the conversion
  /// refuses. Most runs are such, and looking at all folders on the way takes a part of their time.
  bool isAlone() const {
    if (plan_.size() != 1 || !settings_.empty()) return false;
    const std::array<std::string, kKinds> results = resultsOf(0);
    return results[1].empty() && results[2].empty();
  }

  std::array<std::string, kKinds> resultsOf(std::size_t index) const {
    const PlannedDrawing& drawing = plan_.drawings[index];
    return {plan_.scripts.of(drawing), plan_.reports.of(drawing), plan_.previews.of(drawing)};
  }

  bool isInput(const std::string& key) {
    if (settings_.contains(key)) return true;
    const std::size_t wanted = hash(key);
    auto found =
        std::lower_bound(inputs_.begin(), inputs_.end(), std::pair{wanted, std::size_t{0}});
    for (; found != inputs_.end() && found->first == wanted; ++found) {
      if (keys_.of(plan_.drawings[found->second].path) == key) return true;
    }
    return false;
  }

  const Result* find(const std::string& key) {
    const auto [begin, end] = written_.equal_range(hash(key));
    for (auto entry = begin; entry != end; ++entry) {
      const Result& result = entry->second;
      if (keys_.of(resultsOf(result.drawing)[result.kind]) == key) return &result;
    }
    return nullptr;
  }

  /// Devices and pipes take several results, one after the other.
  static bool isReplaced(const std::string& file) {
    const files::FileKind kind = files::fileKind(toPath(file));
    return kind != files::FileKind::Other && kind != files::FileKind::Folder;
  }

  std::string mark(std::size_t index, std::size_t before, const std::string& file) {
    const bool listed = plan_.drawings[before].listed || plan_.drawings[index].listed;
    if (!listed || before == index) return "two results would be written to " + file;
    plan_.sameResultAs[index] = before;
    return {};
  }

  Plan& plan_;
  base::TextHash hash_;
  FileKeys keys_;
  std::set<std::string> settings_;
  std::vector<std::pair<std::size_t, std::size_t>> inputs_;  ///< hashes and places in the plan
  std::vector<std::size_t> ownHashes_;                       ///< the same hashes by place
  std::unordered_multimap<std::size_t, Result> written_;
};

}  // namespace

std::string checkCollisions(const Options& options, Plan& plan) {
  Collisions collisions(options, plan);
  for (std::size_t i = 0; i < plan.size(); ++i) {
    std::string error = collisions.check(i);
    if (!error.empty()) return error;
  }
  return {};
}

}  // namespace quillon::headless
