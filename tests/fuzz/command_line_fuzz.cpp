// Any text is a valid command line; case does not matter.
#include <cstdlib>
#include <string_view>

#include "base/encoding.h"
#include "convert/command_line.h"
#include "run_once.h"

namespace {

using quillon::convert::CommandLine;

bool equal(const CommandLine& a, const CommandLine& b) {
  // A scale may be infinite, but never NaN.
  return a.CmdLineGiven == b.CmdLineGiven && a.dxfFile == b.dxfFile &&
         a.scriptFile == b.scriptFile && a.drawingName == b.drawingName &&
         a.layerFile == b.layerFile && a.layer == b.layer && a.unit == b.unit &&
         a.targetKind == b.targetKind && a.version == b.version && a.poly == b.poly &&
         a.blocks == b.blocks && a.scale == b.scale && a.dotted == b.dotted &&
         a.ellipses == b.ellipses && a.report == b.report && a.arcToLine == b.arcToLine &&
         a.autoRun == b.autoRun && a.autoRunExit == b.autoRunExit &&
         a.overwriteScript == b.overwriteScript;
}

}  // namespace

void quillon::fuzz::runOnce(std::string_view text) {
  const CommandLine line = quillon::convert::parseCommandLine(text);
  if (!equal(line, quillon::convert::parseCommandLine(quillon::base::lowerCase(text))))
    std::abort();
}
