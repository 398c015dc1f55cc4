#pragma once

#include <filesystem>

#include "errors/fault_scribe.h"

namespace quillon::errors {

/// This program under its title, with the support address that it was built with. `fileName` is
/// that of its executable without an extension; its protocols go to `folder`.
ProgramIdentity thisProgram(const char* fileName, const std::filesystem::path& folder);

/// The program's name and version, for the protocol.
const char* programVersion();

}  // namespace quillon::errors
