#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::files {

/// A UTF-8 text as a path of this system, and back.
std::filesystem::path toPath(std::string_view utf8);
std::string fromPath(const std::filesystem::path& path);

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a file of any path in mode "rb", "r+b", "wb", or "wbx" for one that must be new; null with
/// errno set when that fails.
FileHandle openFile(const std::filesystem::path& path, const char* mode);

/// The bytes of a small file, such as settings. Throws ReadError, also for one beyond 64 MiB.
std::string readFile(const std::string& path);
/// The bytes of a file; "" when it is missing or cannot be read.
std::string readWholeFile(const std::string& path);

/// The path of an existing file or folder, spelt as this machine keeps it. Where names of files
/// have case, one that does not exist as written is looked up component by component without regard
/// to case, with "\" and "/" both as separators; what is not found is returned as written.
std::filesystem::path findExisting(std::string_view path);

/// The path of a file that is to be created: its folder is looked up like that, its name stays.
/// Where there is no such folder, neither is there one of the path that is returned; a drive is
/// such a folder on systems that have none.
std::filesystem::path findForCreation(std::string_view path);

/// True when there is surely no folder for a file of this path.
bool isInMissingFolder(const std::filesystem::path& file);

/// The path as the system itself would complete it, from the root on and without "." and "..".
std::filesystem::path wholePath(const std::filesystem::path& path);

/// The files and folders that a path with "*" or "?" in its last component stands for, sorted
/// without regard to case, where programs look them up themselves; on other systems, and where
/// there are none, the path as it is.
std::vector<std::string> expandWildcards(const std::string& path);

/// A path as the user meant it. On Windows "C:\work\" may arrive with a quote instead of the last
/// backslash, where a backslash before a quote was taken for an escape.
std::string pathArgument(std::string path);

/// True when the path names something that exists and is no folder.
bool namesFile(const std::filesystem::path& path);

/// True when the path names a folder that exists.
bool namesFolder(const std::filesystem::path& path);

/// True when there is surely nothing at the path; false also where that cannot be found out.
bool isMissing(const std::filesystem::path& path);

/// True where names of files that differ in case are different names.
bool namesHaveCase();

/// The last component of a name, after the last "\" or "/".
std::string_view lastComponent(std::string_view name);

/// What stands before the last component, without a separator at its end; of a path that has but a
/// drive before its name, the drive.
std::string_view folderPart(std::string_view path);

/// The path of a script in the folder of a drawing, with the drawing's name.
std::string scriptBeside(std::string_view drawing);

/// The path of a layer file in the folder of a drawing, with the drawing's name.
std::string layerFileBeside(std::string_view drawing);

}  // namespace quillon::files
