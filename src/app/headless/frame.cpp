#include "app/headless/frame.h"

#include <memory>
#include <string>

#include "base/read_error.h"
#include "files/paths.h"
#include "files/program_folder.h"

namespace quillon::headless {

convert::FrameSource frameOf(const Options& options) {
  convert::FrameSource frame;
  frame.mustExist = options.frame.has_value();
  if (options.frame) {
    frame.path = *options.frame;
  } else {
    const std::string own = files::fromPath(files::frameFilePath());
    if (files::namesFile(files::findExisting(own))) frame.path = own;
  }
  try {
    frame.loaded = std::make_shared<convert::ScriptFrame>(convert::loadFrame(frame));
  } catch (const base::ReadError&) {
    frame.loaded = nullptr;
  }
  return frame;
}

}  // namespace quillon::headless
