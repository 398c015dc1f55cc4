#include <clocale>
#include <optional>

#include "app/headless/options.h"
#include "app/headless/runner.h"

int main(int argc, char** argv) {
  std::setlocale(LC_TIME, "");  // dates of the report; numbers never follow the locale
  std::optional<int> exitCode;
  const quillon::headless::Options options = quillon::headless::parseOptions(argc, argv, exitCode);
  return exitCode ? *exitCode : quillon::headless::run(options);
}
