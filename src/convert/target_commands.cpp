#include "convert/target_commands.h"

#include "convert/paths.h"

namespace quillon::convert {
namespace {

std::string_view gridLine(int unit) {
  switch (unit) {
    case 0:
      return "Grid mic;";
    case -1:
    case 1:
      return "Grid mm;";
    case 2:
      return "Grid mil;";
    default:
      return "Grid inch;";
  }
}

}  // namespace

TargetCommands::TargetCommands(emit::ScriptWriter& script, const ConversionJob& job,
                               const ScriptFrame& frame, const dxf::Drawing& drawing)
    : script_(script),
      frame_(frame),
      drawing_(drawing),
      targetKind_(job.targetKind),
      version_(job.version),
      unit_(job.unit),
      drawingName_(dxf::fromUtf8(job.drawingName, drawing.encoding)),
      partName_(lastComponent(drawingName_)) {}

void TargetCommands::writeTargetOpen() {
  if (drawingName_.empty()) return;
  switch (targetKind_) {
    case kBoard:
      script_.line("Write;");
      line("Edit '", drawingName_, ".brd';");
      break;
    case kSchematic:
      script_.line("Write;");
      line("Edit '", drawingName_, ".sch';");
      break;
    case kPackage:
      line("Open '", drawingName_, ".lbr';");
      line("Edit '", partName_, ".pac';");
      break;
    default:
      line("Open '", drawingName_, ".lbr';");
      line("Edit '", partName_, ".sym';");
      break;
  }
}

void TargetCommands::writeScriptHeader() {
  script_.line(version_ == 1 ? "Set Wire_Bend 2;" : "Set Wire_Style 2;");
  script_.line(drawing_.fillMode == 1.0 ? "Change Pour Solid;" : "Change Pour Hatch;");
  script_.line(gridLine(unit_));
  for (const std::string& userLine : frame_.startBlock) script_.line(userLine);
}

void TargetCommands::writeScriptTrailer() {
  for (const std::string& userLine : frame_.endBlock) script_.line(userLine);
}

void TargetCommands::writeBlockLibraryOpen(std::string_view partName) {
  script_.line("Write;");
  line("Open '", drawingName_, "';");
  line("Edit '", partName, targetKind_ == kBoard ? ".pac';" : ".sym';");
  writeScriptHeader();
}

void TargetCommands::writeBlockDevice(std::string_view partName) {
  line("Edit '", partName, ".dev';");
  line("Add '", partName, ".sym' (0 0);");
}

void TargetCommands::writeUseLibrary() {
  writeTargetOpen();
  writeScriptHeader();
  line("Use '", drawingName_, "';");
}

void TargetCommands::line(std::string_view a, std::string_view b, std::string_view c) {
  script_.text(a).text(b).text(c).endLine();
  script_.count(1);
}

}  // namespace quillon::convert
