#pragma once

#include <filesystem>
#include <string>

namespace quillon::files {

/// A path in the form that has no limit of length. Short ones stay as they are: names of devices
/// mean nothing in the other form.
std::wstring unlimited(const std::filesystem::path& path);

/// A name in upper case, as the system compares names of files.
std::wstring upperCased(std::wstring text);

}  // namespace quillon::files
