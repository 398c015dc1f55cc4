#include "windows/shell.h"

#include <array>

#include "windows/system_shell.h"

namespace quillon::windows {
namespace {

struct ResultText {
  int result;
  int id;
};

constexpr std::array<ResultText, 13> kResultTexts = {{{0, 4000},
                                                      {2, 4001},
                                                      {3, 4002},
                                                      {5, 4004},
                                                      {8, 4012},
                                                      {11, 4003},
                                                      {26, 4014},
                                                      {27, 4005},
                                                      {28, 4008},
                                                      {29, 4007},
                                                      {30, 4006},
                                                      {31, 4011},
                                                      {32, 4009}}};
constexpr int kAnyOther = 4015;
constexpr int kLastFailure = 32;

}  // namespace

std::string_view shellErrorText(int result, const texts::Texts& texts) {
  for (const auto& [known, id] : kResultTexts) {
    if (known == result) return texts(id);
  }
  return texts(kAnyOther);
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
