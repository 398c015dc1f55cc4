#include <optional>

#include "app/console/terminal.h"
#include "app/headless/options.h"
#include "app/headless/runner.h"
#include "files/system_folders.h"

int main(int argc, char** argv) {
  quillon::console::prepareStreams();
  std::optional<int> exitCode;
  const quillon::headless::Options options =
      quillon::headless::parseOptions(quillon::console::processArguments(argc, argv), exitCode,
                                      quillon::files::configurationFolder());
  return exitCode ? *exitCode : quillon::headless::run(options);
}
