#pragma once

#include <filesystem>
#include <string>

namespace quillon::files {

/// A path in the form without a length limit. Short ones stay as they are, because device names
/// mean nothing in that form.
std::wstring unlimited(const std::filesystem::path& path);

/// A name in upper case, as the system compares file names.
std::wstring upperCased(std::wstring text);

}  // namespace quillon::files
