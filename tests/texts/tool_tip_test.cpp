#include "texts/tool_tip.h"

#include <gtest/gtest.h>

#include "texts/string_table.h"

namespace quillon::texts {
namespace {

TEST(ToolTip, IsTheNameOfAControlAndAText) {
  const auto tip = parseToolTip("befStart|Reads the file.");
  ASSERT_TRUE(tip);
  EXPECT_EQ(tip->control, "befStart");
  EXPECT_EQ(tip->index, std::nullopt);
  EXPECT_EQ(tip->text, "Reads the file.");
}

TEST(ToolTip, BreaksLinesAtTildes) {
  EXPECT_EQ(parseToolTip("a|one~two~~four")->text, "one\r\ntwo\r\n\r\nfour");
}

TEST(ToolTip, NamesAnElementOfAControlArray) {
  const auto tip = parseToolTip("chkBRDSCH_2|Package");
  EXPECT_EQ(tip->control, "chkBRDSCH");
  EXPECT_EQ(tip->index, 2);
}

TEST(ToolTip, KeepsUnderscoresWithoutANumber) {
  EXPECT_EQ(parseToolTip("frm_opt|x")->control, "frm_opt");
  EXPECT_EQ(parseToolTip("frm_|x")->control, "frm_");
  EXPECT_EQ(parseToolTip("frm_2x|x")->control, "frm_2x");
  EXPECT_EQ(parseToolTip("frm_-1|x")->control, "frm_-1");
  EXPECT_EQ(parseToolTip("frm_99999999999|x")->index, std::nullopt);
}

TEST(ToolTip, SplitsAtTheFirstBarOnly) { EXPECT_EQ(parseToolTip("a|b|c")->text, "b|c"); }

TEST(ToolTip, IsNoneWithoutABar) {
  EXPECT_FALSE(parseToolTip("no tip"));
  EXPECT_FALSE(parseToolTip(""));
}

TEST(ToolTip, EntriesOfBothLanguagesNameTheSameControls) {
  const auto expectControls = [](int firstId, std::initializer_list<std::string_view> controls) {
    int id = firstId;
    for (const std::string_view control : controls) {
      while (loadString(id).empty()) ++id;  // a few ids are unused
      for (const int language : {kGerman, kEnglish}) {
        const auto tip = parseToolTip(Texts(language)(id));
        ASSERT_TRUE(tip) << id;
        EXPECT_EQ(tip->control, control) << id;
        EXPECT_FALSE(tip->text.empty()) << id;
      }
      ++id;
    }
  };
  expectControls(971,
                 {"befSave",     "befHilfe",       "befLayeredit",     "befStart",     "befEnde",
                  "txtDXFDatei", "txtScriptdatei", "btnDXFbrowse",     "btnSCRbrowse", "txtBRDname",
                  "frmOpt",      "txtmasst",       "komStandartlayer", "btnBRDbrowse", "chkBRDSCH",
                  "chkReport",   "chkEllipses",    "chkDotLines",      "chkStartSCR",  "cboUnit",
                  "cboVersion",  "cboPoly",        "cboBlocks"});
  expectControls(
      1151, {"btnLayerbrowse", "txtLayerDatei", "btnScan", "btnSave", "OKButton", "CancelButton",
             "lstScanDXF", "befHilfe", "btnNew", "btnSaveAs", "grdLayers"});
}

}  // namespace
}  // namespace quillon::texts
