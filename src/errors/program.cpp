#include "errors/program.h"

namespace quillon::errors {

ProgramIdentity thisProgram(const char* fileName, const std::filesystem::path& folder) {
  return {"Quillon", folder, fileName, QUILLON_SUPPORT_ADDRESS};
}

const char* programVersion() { return "Quillon " QUILLON_VERSION; }

}  // namespace quillon::errors
