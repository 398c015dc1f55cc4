#include "app/unattended/start_up.h"

#include "files/paths.h"

namespace quillon::unattended {

StartUp readArguments(const std::vector<std::string>& arguments) {
  StartUp start;
  // A single argument that is an existing file is a drawing, although its path may start with "/".
  if (arguments.size() == 1 && files::namesFile(files::toPath(arguments.front()))) {
    start.drawing = arguments.front();
  } else {
    start.line = convert::parseCommandLine(convert::joinArguments(arguments));
  }
  return start;
}

}  // namespace quillon::unattended
