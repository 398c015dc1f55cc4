#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::files {

/// What users put between the folders of a path, whatever the system.
inline constexpr std::string_view kSeparators = "\\/";

/// Converts between UTF-8 texts and paths of this system.
std::filesystem::path toPath(std::string_view utf8);
std::string fromPath(const std::filesystem::path& path);

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a file in mode "rb", "r+b", "wb", or "wbx" (must be new); null, with errno set, on
/// failure. The path may have any length.
FileHandle openFile(const std::filesystem::path& path, const char* mode);

/// The bytes of a small file, such as settings. Throws ReadError, also above 64 MiB.
std::string readFile(const std::string& path);
/// The bytes of a file; "" when it is missing or cannot be read.
std::string readWholeFile(const std::string& path);

/// The path of an existing file or folder, in the spelling stored on this machine. Where file names
/// are case-sensitive, a path that does not exist as written is looked up component by component,
/// ignoring case and taking both "\" and "/" as separators; if nothing is found it is returned as
/// written.
std::filesystem::path findExisting(std::string_view path);

/// The path of a file to be created: its folder is looked up as by findExisting, its name stays. If
/// that folder does not exist, neither does the folder of the returned path. A drive counts as a
/// missing folder on systems without drives.
std::filesystem::path findForCreation(std::string_view path);

/// True when the file's folder certainly does not exist.
bool isInMissingFolder(const std::filesystem::path& file);

/// The absolute path, as the system would complete it, without "." and "..".
std::filesystem::path wholePath(const std::filesystem::path& path);

/// On systems where programs expand wildcards themselves: the files and folders that match a path
/// with "*" or "?" in its last component, sorted without regard to case. On other systems, and when
/// nothing matches, the path as it is.
std::vector<std::string> expandWildcards(const std::string& path);

/// A path as the user meant it. On Windows "C:\work\" may arrive with a quote instead of its last
/// backslash, because a backslash before a quote counts as an escape.
std::string pathArgument(std::string path);

/// True when the path exists and is not a folder.
bool namesFile(const std::filesystem::path& path);

/// True when the path is an existing folder.
bool namesFolder(const std::filesystem::path& path);

/// True when there is certainly nothing at the path; false also when that cannot be determined.
bool isMissing(const std::filesystem::path& path);

/// True where file names are case-sensitive.
bool namesHaveCase();

/// The last component of a name, after the last "\" or "/".
std::string_view lastComponent(std::string_view name);

/// What precedes the last component, without a trailing separator; for a name after a bare drive,
/// the drive.
std::string_view folderPart(std::string_view path);

/// The path of the script with the drawing's folder and name.
std::string scriptBeside(std::string_view drawing);

/// The path of the layer file with the drawing's folder and name.
std::string layerFileBeside(std::string_view drawing);

}  // namespace quillon::files
