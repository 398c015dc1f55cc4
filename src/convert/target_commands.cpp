#include "convert/target_commands.h"

#include "base/units.h"
#include "files/paths.h"

namespace quillon::convert {
TargetCommands::TargetCommands(eagle::Commands& commands, const ConversionJob& job,
                               const ScriptFrame& frame, const dxf::Drawing& drawing)
    : commands_(commands),
      frame_(frame),
      targetKind_(job.targetKind),
      version_(job.version),
      // The exact rules draw what is not filled as outlines themselves.
      fills_(job.rules == Rules::Exact || drawing.fillMode == 1.0),
      unit_(job.unit),
      drawingName_(base::fromUtf8(job.drawingName, drawing.encoding)),
      partName_(files::lastComponent(drawingName_)) {}

void TargetCommands::writeTargetOpen() {
  if (drawingName_.empty()) return;
  switch (targetKind_) {
    case kBoard:
      commands_.command("Write;");
      commands_.edit(drawingName_, ".brd");
      break;
    case kSchematic:
      commands_.command("Write;");
      commands_.edit(drawingName_, ".sch");
      break;
    case kPackage:
      line("Open '", drawingName_, ".lbr';");
      commands_.edit(partName_, ".pac");
      break;
    default:
      line("Open '", drawingName_, ".lbr';");
      commands_.edit(partName_, ".sym");
      break;
  }
}

void TargetCommands::writeScriptHeader() {
  commands_.command(version_ >= kEagle4 ? "Set Wire_Bend 2;" : "Set Wire_Style 2;");
  commands_.change(eagle::Property::Pour, fills_ ? "Solid" : "Hatch");
  line("Grid ", base::unitRecord(unit_).word, ";");
  for (const std::string& userLine : frame_.startBlock) commands_.command(userLine);
}

void TargetCommands::writeScriptTrailer() {
  for (const std::string& userLine : frame_.endBlock) commands_.command(userLine);
}

void TargetCommands::writeBlockLibraryOpen(std::string_view partName) {
  commands_.command("Write;");
  line("Open '", drawingName_, "';");
  commands_.edit(partName, targetKind_ == kBoard ? ".pac" : ".sym");
  writeScriptHeader();
}

void TargetCommands::writeBlockDevice(std::string_view partName) {
  commands_.edit(partName, ".dev");
  line("Add '", partName, ".sym' (0 0);");
}

void TargetCommands::writeUseLibrary() {
  writeTargetOpen();
  writeScriptHeader();
  line("Use '", drawingName_, "';");
}

void TargetCommands::line(std::string_view a, std::string_view b, std::string_view c) {
  std::string text(a);
  text.append(b).append(c);
  commands_.command(text);
}

}  // namespace quillon::convert
