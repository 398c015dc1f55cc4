#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace quillon::files {

/// File operations of the system. Paths may have any length and any characters; reasons are errno
/// values, 0 for success.

enum class FileKind : std::uint8_t {
  Missing,
  Regular,
  Folder,
  Other,    ///< a device, a pipe
  Unknown,  ///< cannot be determined
};

/// What exists at a path; links are followed.
FileKind fileKind(const std::filesystem::path& path);

/// True when both paths lead to the same existing file.
bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b);

/// One spelling for all paths to the same file or folder, which need not exist.
std::filesystem::path uniquePath(const std::filesystem::path& path);

/// The paths of everything in a folder, in the system's order. `reason` says why it could not be
/// listed; what was found before that is returned.
std::vector<std::filesystem::path> listFolder(const std::filesystem::path& folder, int& reason);

/// Something in a folder.
struct FolderEntry {
  std::string name;  ///< UTF-8
  /// Unknown for a link, and wherever the listing does not tell.
  FileKind kind = FileKind::Unknown;
};

/// The same, by name. Takes a part of the time, also as most entries need not be looked at.
std::vector<FolderEntry> listNames(const std::filesystem::path& folder, int& reason);

/// True for a link, wherever it leads. The path is in UTF-8: with many files, making one of another
/// kind takes longer than the look.
bool isLink(const std::string& path);

/// Creates a folder and its parents. True when it exists afterwards.
bool makeFolders(const std::filesystem::path& folder);

/// Where a write to this path ends up: the target of a link, which need not exist. `reason` is 0,
/// or says why the system does not let this user follow the link; the path itself is returned then.
std::filesystem::path followLinks(const std::filesystem::path& path, int& reason);

/// True when there is certainly nothing at the path itself, not even a link that leads nowhere: a
/// new file with it replaces nothing.
bool isVacant(const std::filesystem::path& path);

/// True when a new file would replace something at the path, or when that cannot be determined. A
/// link counts, wherever it leads; folders, devices and pipes do not, as they are never replaced.
bool isInTheWay(const std::filesystem::path& path);

/// Replaces a file with a new one from the same folder atomically: at any moment one or the other
/// is there, complete. Where the system can, the new file gets the old one's permissions. Returns
/// the reason of a failure; both files are then unchanged.
int replaceWith(const std::filesystem::path& target, const std::filesystem::path& newFile);

/// Removes a file; failure does not matter.
void removeFile(const std::filesystem::path& path);

/// True for the reason with which a call fails when Ctrl-C interrupts it.
bool isBrokenWait(int reason);

/// Reserves space for an open file of this size, as far as the system can. Returns the reason of a
/// failure; the file is then unchanged.
int makeRoom(std::FILE* file, std::uint64_t size);

/// Truncates an open file to this size. Returns the reason of a failure.
int cutOff(std::FILE* file, std::uint64_t size);

/// Flushes everything written to a stream to the disk. Returns the reason of a failure.
int putOnDisk(std::FILE* stream);

}  // namespace quillon::files
