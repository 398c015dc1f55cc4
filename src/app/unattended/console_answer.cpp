#include "app/unattended/console_answer.h"

#include <algorithm>

#include "app/console/console.h"
#include "app/unattended/unattended_run.h"
#include "errors/program.h"

namespace quillon::unattended {

using texts::TextId;

std::string consoleAnswer(const std::vector<std::string>& arguments, const texts::Texts& texts) {
  const auto asks = [&arguments](const char* option) {
    return std::find(arguments.begin(), arguments.end(), option) != arguments.end();
  };
  if (asks("--help")) return std::string(texts(TextId::WindowProgramUsage)) + "\n";
  if (asks("--version")) return std::string(errors::programVersion()) + "\n";
  return {};
}

int printAnswer(const std::string& answer) {
  return console::Console(false).printOutput(answer) ? kAllConverted : kSomeNotConverted;
}

}  // namespace quillon::unattended
