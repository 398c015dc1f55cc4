#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <vector>

namespace quillon::files {

/// What the program asks of the system's files. Paths may have any length and any characters;
/// reasons are numbers of errno, 0 for success.

enum class FileKind : std::uint8_t {
  Missing,
  Regular,
  Folder,
  Other,    ///< a device, a pipe
  Unknown,  ///< cannot be found out
};

/// What stands at a path; links are followed.
FileKind fileKind(const std::filesystem::path& path);

/// True when both paths lead to the same file, which exists.
bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b);

/// One spelling for all paths of a file or folder, which need not exist.
std::filesystem::path uniquePath(const std::filesystem::path& path);

/// The paths of all that is in a folder, in the order of the system. `reason` says why it could not
/// be listed; what was found until then is returned.
std::vector<std::filesystem::path> listFolder(const std::filesystem::path& folder, int& reason);

/// Makes a folder and those above it. True when it is there afterwards.
bool makeFolders(const std::filesystem::path& folder);

/// Where writing to this path really ends up: the target of a link, which need not exist. `reason`
/// is 0, or says why the system does not let this user follow the link; the path is returned then.
std::filesystem::path followLinks(const std::filesystem::path& path, int& reason);

/// True when something is at the path that a new file would replace, or when that cannot be found
/// out. A link counts, wherever it leads; folders, devices and pipes do not, as nothing replaces
/// them.
bool isInTheWay(const std::filesystem::path& path);

/// Puts a new file in the place of another one of the same folder, in one step: at any moment one
/// or the other is there as a whole. Where the system can, the new file gets the rights of the old
/// one. The result is the reason of a failure; both files are then as they were.
int replaceWith(const std::filesystem::path& target, const std::filesystem::path& newFile);

/// Removes a file; that it cannot be removed does not matter.
void removeFile(const std::filesystem::path& path);

/// True for the reason with which a call fails when Ctrl-C ends its waiting.
bool isBrokenWait(int reason);

/// Reserves the space for an open file of so many bytes, as far as the system can. The result is
/// the reason of a failure; the file is then as it was.
int makeRoom(std::FILE* file, std::uint64_t size);

/// Ends an open file after so many bytes. The result is the reason of a failure.
int cutOff(std::FILE* file, std::uint64_t size);

/// Has all that was written to a stream put on the disk. The result is the reason of a failure.
int putOnDisk(std::FILE* stream);

}  // namespace quillon::files
