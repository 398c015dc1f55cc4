#include "convert/target_commands.h"

#include <gtest/gtest.h>

#include "support/script_capture.h"

namespace quillon::convert {
namespace {

using testing::ScriptCapture;

/// The commands of one job; the frame has one line in each block.
struct Commands {
  explicit Commands(const ConversionJob& job, double fillMode = 1.0,
                    base::Encoding encoding = base::Encoding::Windows1252)
      : frame{{"# first"}, {"# last"}} {
    drawing.fillMode = fillMode;
    drawing.encoding = encoding;
    commands.emplace(capture.commands, job, frame, drawing);
  }

  std::string take() { return capture.take(); }
  std::uint64_t count() const { return capture.script.commandCount(); }
  TargetCommands* operator->() { return &*commands; }

  ScriptCapture capture;
  dxf::Drawing drawing;
  ScriptFrame frame;
  std::optional<TargetCommands> commands;
};

ConversionJob named(std::string name, int targetKind) {
  ConversionJob job;
  job.drawingName = std::move(name);
  job.targetKind = targetKind;
  return job;
}

std::string targetOpen(const std::string& name, int targetKind) {
  Commands commands(named(name, targetKind));
  commands->writeTargetOpen();
  EXPECT_EQ(commands.count(), name.empty() ? 0U : 2U);
  return commands.take();
}

TEST(TargetOpen, SavesAndEditsABoard) {
  EXPECT_EQ(targetOpen("PART", kBoard), "Write;\nEdit 'PART.brd';\n");
}

TEST(TargetOpen, SavesAndEditsASchematic) {
  EXPECT_EQ(targetOpen("PART", kSchematic), "Write;\nEdit 'PART.sch';\n");
}

TEST(TargetOpen, OpensTheLibraryOfAPackageOrSymbolWithoutSaving) {
  EXPECT_EQ(targetOpen("PART", kPackage), "Open 'PART.lbr';\nEdit 'PART.pac';\n");
  EXPECT_EQ(targetOpen("PART", kSymbol), "Open 'PART.lbr';\nEdit 'PART.sym';\n");
}

TEST(TargetOpen, NamesTheLibraryPartLikeTheLastComponentOfTheDrawingName) {
  EXPECT_EQ(targetOpen("C:\\lib\\PART", kPackage), "Open 'C:\\lib\\PART.lbr';\nEdit 'PART.pac';\n");
  EXPECT_EQ(targetOpen("/lib/my\\sub/PART", kSymbol),
            "Open '/lib/my\\sub/PART.lbr';\nEdit 'PART.sym';\n");
  EXPECT_EQ(targetOpen("lib/PART", kBoard), "Write;\nEdit 'lib/PART.brd';\n");
}

TEST(TargetOpen, IsLeftOutWithoutADrawingName) {
  for (const int kind : {kBoard, kSchematic, kPackage, kSymbol}) {
    EXPECT_EQ(targetOpen("", kind), "") << kind;
  }
}

TEST(TargetOpen, WritesTheNameInTheEncodingOfTheDrawing) {
  Commands latin(named("Gerät", kBoard));
  latin->writeTargetOpen();
  EXPECT_EQ(latin.take(), "Write;\nEdit 'Ger\xE4t.brd';\n");
  Commands utf8(named("Gerät", kBoard), 1.0, base::Encoding::Utf8);
  utf8->writeTargetOpen();
  EXPECT_EQ(utf8.take(), "Write;\nEdit 'Gerät.brd';\n");
}

TEST(TargetOpen, WritesCharactersThatTheEncodingLacksAsQuestionMarks) {
  Commands commands(named("Teil→λ", kBoard));
  commands->writeTargetOpen();
  EXPECT_EQ(commands.take(), "Write;\nEdit 'Teil??.brd';\n");
}

std::string header(int version, base::Unit unit, double fillMode) {
  ConversionJob job;
  job.version = version;
  job.unit = unit;
  Commands commands(job, fillMode);
  commands->writeScriptHeader();
  EXPECT_EQ(commands.count(), 4U);
  return commands.take();
}

TEST(ScriptHeader, SetsTheWireStyleByTheEagleVersion) {
  const std::string rest = "Change Pour Solid;\nGrid mm;\n# first\n";
  EXPECT_EQ(header(1, base::Unit::Mm, 1.0), "Set Wire_Bend 2;\n" + rest);
  EXPECT_EQ(header(0, base::Unit::Mm, 1.0), "Set Wire_Style 2;\n" + rest);
  EXPECT_EQ(header(2, base::Unit::Mm, 1.0), "Set Wire_Bend 2;\n" + rest);
  EXPECT_EQ(header(-1, base::Unit::Mm, 1.0), "Set Wire_Style 2;\n" + rest);
}

TEST(ScriptHeader, PoursSolidOnlyWhenTheFillModeIsExactlyOne) {
  const std::string hatch = "Set Wire_Bend 2;\nChange Pour Hatch;\nGrid mm;\n# first\n";
  EXPECT_EQ(header(1, base::Unit::Mm, 0.0), hatch);
  EXPECT_EQ(header(1, base::Unit::Mm, 2.0), hatch);
  EXPECT_EQ(header(1, base::Unit::Mm, 1.0000001), hatch);
}

TEST(ScriptHeader, SetsTheGridByTheUnit) {
  const auto grid = [](base::Unit unit, std::string_view line) {
    EXPECT_EQ(header(1, unit, 1.0),
              "Set Wire_Bend 2;\nChange Pour Solid;\n" + std::string(line) + "\n# first\n")
        << line;
  };
  grid(base::Unit::Mic, "Grid mic;");
  grid(base::Unit::Mm, "Grid mm;");
  grid(base::Unit::Mil, "Grid mil;");
  grid(base::Unit::Inch, "Grid inch;");
  grid(base::Unit::None, "Grid mm;");
}

TEST(ScriptHeader, CopiesTheStartBlockAndCountsItsLines) {
  Commands commands(ConversionJob{});
  commands.frame.startBlock = {"Set Optimizing off;", "Grid mm;"};
  commands->writeScriptHeader();
  EXPECT_EQ(commands.take(),
            "Set Wire_Bend 2;\nChange Pour Solid;\nGrid mil;\nSet Optimizing off;\nGrid mm;\n");
  EXPECT_EQ(commands.count(), 5U);
}

TEST(ScriptTrailer, CopiesTheEndBlockAndCountsItsLines) {
  Commands commands(ConversionJob{});
  commands.frame.endBlock = {"Set Undo_Log on;", "", "Window Fit;"};
  commands->writeScriptTrailer();
  EXPECT_EQ(commands.take(), "Set Undo_Log on;\n\nWindow Fit;\n");
  EXPECT_EQ(commands.count(), 3U);
}

TEST(BlockLibraryOpen, OpensAPackageForABoard) {
  Commands commands(named("PART", kBoard));
  commands->writeBlockLibraryOpen("DOOR_1");
  EXPECT_EQ(commands.take(),
            "Write;\nOpen 'PART';\nEdit 'DOOR_1.pac';\n"
            "Set Wire_Bend 2;\nChange Pour Solid;\nGrid mil;\n# first\n");
  EXPECT_EQ(commands.count(), 7U);
}

TEST(BlockLibraryOpen, OpensASymbolForEveryOtherTarget) {
  for (const int kind : {kSchematic, kPackage, kSymbol}) {
    Commands commands(named("PART", kind));
    commands->writeBlockLibraryOpen("DOOR_1");
    EXPECT_TRUE(commands.take().starts_with("Write;\nOpen 'PART';\nEdit 'DOOR_1.sym';\n")) << kind;
  }
}

TEST(BlockDevice, AddsTheSymbolAtTheOrigin) {
  Commands commands(named("PART", kSchematic));
  commands->writeBlockDevice("DOOR_1");
  EXPECT_EQ(commands.take(), "Edit 'DOOR_1.dev';\nAdd 'DOOR_1.sym' (0 0);\n");
  EXPECT_EQ(commands.count(), 2U);
}

TEST(UseLibrary, OpensTheTargetWritesTheHeaderAndUsesTheLibrary) {
  Commands commands(named("PART", kSchematic));
  commands->writeUseLibrary();
  EXPECT_EQ(commands.take(),
            "Write;\nEdit 'PART.sch';\n"
            "Set Wire_Bend 2;\nChange Pour Solid;\nGrid mil;\n# first\n"
            "Use 'PART';\n");
  EXPECT_EQ(commands.count(), 7U);
}

}  // namespace
}  // namespace quillon::convert
