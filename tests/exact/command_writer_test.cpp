#include "exact/command_writer.h"

#include <gtest/gtest.h>

#include <string>

#include "eagle/script_commands.h"
#include "eagle/script_writer.h"
#include "support/script_capture.h"

namespace quillon::testing {
namespace {

class CommandWriterTest : public ::testing::Test {
 protected:
  exact::CommandWriter& writer() {
    if (!writer_) {
      writer_.emplace(options, commands_);
      writer_->begin();
      take();
    }
    return *writer_;
  }
  std::string take() {
    script_.flush();
    return std::move(sink_.text);
  }
  exact::Origin on(int layer, std::string_view dxfLayer = "0") {
    return {layer, "LINE", dxfLayer, 1};
  }
  static exact::Chain chain(exact::Path path, double width = 0.0) {
    exact::Chain result;
    result.path = std::move(path);
    result.width = width;
    return result;
  }

  exact::Options options;

 private:
  StringSink sink_;
  eagle::ScriptWriter script_{sink_, {base::Unit::Mm}, eagle::PointForm::Plain};
  eagle::ScriptCommands commands_{script_};
  std::optional<exact::CommandWriter> writer_;
};

TEST_F(CommandWriterTest, StartsWithTheSettingsThatShapesRelyOn) {
  writer().begin();
  EXPECT_EQ(take(),
            "Change Style Continuous;\r\nChange Cap Round;\r\nChange Font Vector;\r\n"
            "Change Ratio 8;\r\nChange Align Bottom Left;\r\n");
}

TEST_F(CommandWriterTest, Version4KnowsNoAlignment) {
  options.version = exact::Version::Eagle4;
  writer().begin();
  exact::TextLine text;
  text.content = "A";
  text.height = 2;
  text.columns = exact::Columns::Right;
  writer().take(on(21), std::move(text));
  EXPECT_EQ(take().find("Align"), std::string::npos);
}

TEST_F(CommandWriterTest, AChainIsOneWire) {
  writer().take(on(20), chain({{{{0, 0}}, {{1, 0}, 90}, {{2, 1}}}, true}));
  EXPECT_EQ(take(),
            "Layer  20 ;\r\n"
            "Wire 0.0000000 (0.0000000 0.0000000) (1.0000000 0.0000000) +90.0000000 "
            "(2.0000000 1.0000000) (0.0000000 0.0000000);\r\n");
}

TEST_F(CommandWriterTest, TwentyPointsAreALine) {
  exact::Path path;
  for (int i = 0; i < 41; ++i) path.vertices.push_back({{static_cast<double>(i), 0.0}});
  writer().take(on(20), chain(path));
  const std::string script = take();
  EXPECT_NE(script.find("(19.0000000 0.0000000) \\\r\n(20.0000000 0.0000000)"), std::string::npos);
  EXPECT_NE(script.find("(39.0000000 0.0000000) \\\r\n(40.0000000 0.0000000);\r\n"),
            std::string::npos);
}

TEST_F(CommandWriterTest, ACircleWithAWidthIsACircle) {
  exact::Chain circle = chain({{{{1, 2}, 180}, {{3, 2}, 180}}, true}, 0.5);
  circle.isCircle = true;
  writer().take(on(21), std::move(circle));
  EXPECT_EQ(take(),
            "Layer  21 ;\r\nCircle 0.5000000 (2.0000000 2.0000000) (3.0000000 2.0000000);\r\n");
}

TEST_F(CommandWriterTest, ALayerOfItsOwnIsDefinedOnce) {
  writer().take(on(140, "WÄRME 1"), chain({{{{0, 0}}, {{1, 0}}}, false}));
  writer().take(on(20), chain({{{{0, 0}}, {{1, 0}}}, false}));
  writer().take(on(140, "WÄRME 1"), chain({{{{0, 0}}, {{1, 0}}}, false}));
  const std::string script = take();
  EXPECT_TRUE(script.starts_with("Layer 140 W_RME_1;\r\nLayer  140 ;\r\n")) << script;
  EXPECT_EQ(script.find("Layer 140", 10), std::string::npos) << script;
}

TEST_F(CommandWriterTest, CopperOfABoardGetsASignal) {
  writer().take(on(1), chain({{{{0, 0}}, {{1, 0}}}, false}));
  EXPECT_NE(take().find("Wire 'DXF' 0.0000000 ("), std::string::npos);
}

TEST_F(CommandWriterTest, CopperOfAPackageGetsNone) {
  options.target = exact::Target::Package;
  writer().take(on(1), chain({{{{0, 0}}, {{1, 0}}}, false}));
  EXPECT_NE(take().find("Wire 0.0000000 ("), std::string::npos);
}

TEST_F(CommandWriterTest, AnAreaIsClosedByItsFirstPoint) {
  options.fillWidth = 0.1;
  writer().take(on(21), exact::Area{{{{{0, 0}}, {{1, 0}}, {{0, 1}}}, true}});
  EXPECT_EQ(take(),
            "Layer  21 ;\r\nPolygon 0.1000000 (0.0000000 0.0000000) (1.0000000 0.0000000) "
            "(0.0000000 1.0000000) (0.0000000 0.0000000);\r\n");
}

TEST_F(CommandWriterTest, TextsSetWhatDiffersFromTheLast) {
  exact::TextLine text;
  text.content = "it's 5!x \\ !";
  text.height = 2.5;
  text.angle = 33.3;
  text.mirrored = true;
  text.spin = true;
  text.rows = exact::Rows::Top;
  text.columns = exact::Columns::Centre;
  writer().take(on(21), exact::TextLine(text));
  EXPECT_EQ(take(),
            "Layer  21 ;\r\nChange Size 2.5000000;\r\nChange Align Top Center;\r\n"
            "Text 'it''s 5\\!x \\\\ !' SMR33.3 (0.0000000 0.0000000);\r\n");
  text.content = "B";
  text.angle = 90;
  text.mirrored = text.spin = false;
  writer().take(on(21), exact::TextLine(text));
  EXPECT_EQ(take(), "Text 'B' R90 (0.0000000 0.0000000);\r\n");
}

TEST_F(CommandWriterTest, WhatIsMovedIsMovedAsAWhole) {
  writer().moveBy({-10, 5});
  writer().take(on(20), exact::Hole{{12, 0}, 3.2});
  EXPECT_EQ(take(), "Hole 3.2000000 (2.0000000 5.0000000);\r\n");
}

}  // namespace
}  // namespace quillon::testing
