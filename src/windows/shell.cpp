#include "windows/shell.h"

#include <array>

#include "windows/system_shell.h"

namespace quillon::windows {
namespace {

using texts::TextId;

struct ResultText {
  int result;
  TextId id;
};

constexpr std::array<ResultText, 13> kResultTexts = {{{0, TextId::OpenOutOfMemory},
                                                      {2, TextId::OpenFileNotFound},
                                                      {3, TextId::OpenPathNotFound},
                                                      {5, TextId::OpenAccessDenied},
                                                      {8, TextId::OpenNoMemory},
                                                      {11, TextId::OpenBadProgram},
                                                      {26, TextId::OpenSharingViolation},
                                                      {27, TextId::OpenBadAssociation},
                                                      {28, TextId::OpenTimedOut},
                                                      {29, TextId::OpenDdeFailed},
                                                      {30, TextId::OpenProgramBusy},
                                                      {31, TextId::OpenNoAssociation},
                                                      {32, TextId::OpenDllMissing}}};
constexpr int kLastFailure = 32;

}  // namespace

std::string_view shellErrorText(int result, const texts::Texts& texts) {
  for (const auto& [known, id] : kResultTexts) {
    if (known == result) return texts(id);
  }
  return texts(TextId::OpenFailed);
}

bool ShellEx(const AppContext& context, const ShellRequest& request, QWidget* owner) {
  const bool program = request.file.toUpper().contains(".EXE");
  const bool whole = program || !request.parameters.isEmpty();
  const ShellRequest fileOnly{request.file, kShowNormal, {}, {}, request.operation};
  const int result = runSystemShell(whole ? request : fileOnly, owner);
  if (result >= 0 && result <= kLastFailure) {
    throw ShellError(result, std::string(shellErrorText(result, context.texts())));
  }
  return true;
}

}  // namespace quillon::windows
