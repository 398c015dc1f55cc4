// One JSON object per conversion.
#include "app/json_value.h"
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

using testing::DxfBuilder;
using testing::JsonValue;

class JsonTest : public ProgramTest {
 protected:
  /// The objects that the program printed, one per line.
  std::vector<JsonValue> objects(Strings arguments, int exitCode = 0) {
    arguments.push_back("--json");
    const testing::ProgramResult result = run(std::move(arguments));
    EXPECT_EQ(result.exitCode, exitCode) << result.error;
    EXPECT_TRUE(result.output.empty() || result.output.ends_with('\n'));
    std::vector<JsonValue> out;
    for (std::string_view rest = result.output; !rest.empty();) {
      const std::size_t stop = rest.find('\n');
      out.push_back(JsonValue::parse(rest.substr(0, stop)));
      rest.remove_prefix(stop + 1);
    }
    return out;
  }
  JsonValue object(Strings arguments, int exitCode = 0) {
    std::vector<JsonValue> all = objects(std::move(arguments), exitCode);
    EXPECT_EQ(all.size(), 1U);
    return all.empty() ? JsonValue() : all.front();
  }
  static std::string messageText(const JsonValue& value, std::size_t index = 0) {
    return value.at("messages").items().at(index).at("text").text();
  }
};

TEST_F(JsonTest, TellsAllAboutAConversion) {
  DxfBuilder dxf = oneLine();
  dxf.entity("POINT", {{8, "0"}, {10, "-3"}, {20, "4"}});
  dxf.entity("MTEXT", {{8, "0"}, {10, "0"}, {20, "0"}, {40, "1"}, {1, "a"}});
  dxf.entity("POINT", {{8, "0"}, {10, "5"}, {20, "0"}});
  dxf.entity("HATCH", {{8, "0"}}).entity("HATCH", {{8, "0"}}).entity("IMAGE", {{8, "0"}});
  dxf.entity("SEQEND", {{8, "0"}}).entity("VERTEX", {{8, "0"}});
  write("part.dxf", dxf);
  const JsonValue value = object({"part.dxf", "--report", "r.txt", "--unit", "mm"});
  EXPECT_EQ(value.names(), (Strings{"damaged", "dxf", "entities", "extents", "leftOut", "linesRead",
                                    "linesWritten", "losses", "messages", "notRecognised",
                                    "outcome", "preview", "rangeWarning", "report", "script"}));
  EXPECT_EQ(value.at("dxf").text(), "part.dxf");
  EXPECT_EQ(value.at("script").text(), "part.scr");
  EXPECT_EQ(value.at("report").text(), "r.txt");
  EXPECT_EQ(value.at("outcome").text(), "converted");
  // Lines: the sections' 14, LINE 12, POINT 8 twice, MTEXT 12, the others 4 each.
  EXPECT_EQ(value.at("linesRead").number(), 14 + 12 + 16 + 12 + 20);
  EXPECT_EQ(value.at("linesWritten").number(), 2 + 5 + 2 + 2 + 3 + 2 + 2);
  EXPECT_EQ(value.at("entities").names(), (Strings{"LINE", "POINT", "TEXT"}));
  EXPECT_EQ(value.at("entities").at("LINE").number(), 1);
  EXPECT_EQ(value.at("entities").at("POINT").number(), 2);
  EXPECT_EQ(value.at("entities").at("TEXT").number(), 1);
  EXPECT_EQ(value.at("notRecognised").names(), (Strings{"HATCH", "IMAGE"}));
  EXPECT_EQ(value.at("notRecognised").at("HATCH").number(), 2);
  ASSERT_EQ(value.at("losses").items().size(), 2U);
  const JsonValue& loss = value.at("losses").items().at(1);
  EXPECT_EQ(loss.at("rule").text(), "unknown-kind");
  EXPECT_EQ(loss.at("kind").text(), "HATCH");
  EXPECT_EQ(loss.at("count").number(), 2);
  EXPECT_EQ(loss.at("line").number(), 14 - 7 + 12 + 16 + 12);
  EXPECT_EQ(loss.at("layer").text(), "0");
  EXPECT_TRUE(value.at("leftOut").names().empty());
  EXPECT_TRUE(value.at("damaged").isNull());
  EXPECT_EQ(value.at("extents").at("minX").number(), -3.0);
  EXPECT_EQ(value.at("extents").at("minY").number(), 0.0);
  EXPECT_EQ(value.at("extents").at("maxX").number(), 5.0);
  EXPECT_EQ(value.at("extents").at("maxY").number(), 4.1);
  EXPECT_FALSE(value.at("rangeWarning").boolean());
  ASSERT_EQ(value.at("messages").items().size(), 1U);
  EXPECT_EQ(value.at("messages").items().at(0).at("kind").text(), "warning");
  EXPECT_EQ(messageText(value), "part.dxf: Not recognised and left out: HATCH 2, IMAGE 1");
}

TEST_F(JsonTest, CountsTheLinesReadUnlikeTheReport) {
  folder.write("part.dxf", "0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\n0\n0\nENDSEC\n0\nEOF\n");
  EXPECT_EQ(object({"part.dxf", "--report", "r.txt"}).at("linesRead").number(), 12);
  EXPECT_NE(folder.read("r.txt").find("\n0 Lines read in DXF\r\n"), std::string::npos);
  EXPECT_TRUE(run({"part.dxf", "--force"})
                  .error.starts_with("part.dxf: 1 entities converted from 12 lines\n"));
  EXPECT_TRUE(run({"part.dxf", "--force", "--language", "de"})
                  .error.starts_with("part.dxf: 1 Elemente aus 12 Zeilen konvertiert\n"));
}

TEST_F(JsonTest, CountsWhatIsLeftOutApart) {
  DxfBuilder dxf = oneLine();
  dxf.entity("LINE", {{8, "hidden"}}).entity("CIRCLE", {{8, "hidden"}});
  dxf.entity("LINE", {{8, "0\nbroken\n1"}});
  folder.write("a.lay", "[1]\nlayername=HIDDEN\nlayernr=999\n");
  const std::string text = dxf.text();
  const auto broken = text.begin() + static_cast<std::ptrdiff_t>(text.find("broken"));
  const auto line = std::count(text.begin(), broken, '\n') + 1;
  folder.write("part.dxf", text);
  const JsonValue value = object({"part.dxf", "--layers", "a.lay"});
  EXPECT_EQ(value.at("entities").names(), Strings{"LINE"});
  EXPECT_EQ(value.at("entities").at("LINE").number(), 1);
  EXPECT_EQ(value.at("leftOut").names(), (Strings{"CIRCLE", "LINE"}));
  EXPECT_EQ(value.at("leftOut").at("LINE").number(), 1);
  EXPECT_EQ(value.at("damaged").at("count").number(), 1);
  EXPECT_EQ(value.at("damaged").at("firstLine").number(), static_cast<double>(line));
  const std::string damage =
      "part.dxf: Left out because the drawing is damaged: 1 (first damage in "
      "line " +
      std::to_string(line) + ")";
  EXPECT_EQ(messageText(value), damage);
  const std::string summary = run({"part.dxf", "--layers", "a.lay", "--force"}).error;
  EXPECT_TRUE(summary.starts_with(
      "quillon-convert: warning: " + damage + "\npart.dxf: 1 entities converted from " +
      std::to_string(std::count(text.begin(), text.end(), '\n')) +
      " lines\n"
      "Left out because their layer is assigned to 999 or to no EAGLE layer: 2\npart.scr: "))
      << summary;
}

TEST_F(JsonTest, APathThatIsNotUtf8CanBeFoundAgain) {
  write("T\xFCr.dxf", oneLine());
  const JsonValue value = object({"T\xFCr.dxf"});
  EXPECT_EQ(value.at("dxf").text(), "Tür.dxf");
  EXPECT_EQ(value.at("pathBytes").names(), (Strings{"dxf", "script"}));
  EXPECT_EQ(value.at("pathBytes").at("dxf").text(), "VPxyLmR4Zg==");
  EXPECT_EQ(value.at("pathBytes").at("script").text(), "VPxyLnNjcg==");
  EXPECT_TRUE(folder.has("T\xFCr.scr"));
}

TEST_F(JsonTest, IsOneLineAndTheSummaryStays) {
  write("part.dxf", oneLine());
  const testing::ProgramResult result = run({"part.dxf", "--json"});
  EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 1);
  EXPECT_EQ(result.error, summary("part.dxf", 1, "part.scr", 11));
  EXPECT_EQ(run({"part.dxf", "--json", "--quiet", "--force"}).error, "");
}

TEST_F(JsonTest, HasNoExtentsWithoutACoordinateAndNoReportWithoutOne) {
  write("part.dxf", DxfBuilder());
  const JsonValue value = object({"part.dxf"});
  EXPECT_TRUE(value.at("extents").isNull());
  EXPECT_TRUE(value.at("report").isNull());
  EXPECT_TRUE(value.at("entities").names().empty());
  EXPECT_TRUE(value.at("notRecognised").names().empty());
}

TEST_F(JsonTest, HoldsTheRangeWarningAndItsMessage) {
  write("part.dxf", oneLine());
  const JsonValue value = object({"part.dxf", "--scale", "50000"});
  EXPECT_TRUE(value.at("rangeWarning").boolean());
  ASSERT_EQ(value.at("messages").items().size(), 1U);
  EXPECT_EQ(value.at("messages").items()[0].at("kind").text(), "warning");
  EXPECT_TRUE(messageText(value).starts_with("part.dxf: The Coordinates are out of range"));
}

TEST_F(JsonTest, TellsOfAConversionThatFailed) {
  folder.write("part.dxf", "");
  const JsonValue value = object({"part.dxf", "--report", "r.txt"}, 1);
  EXPECT_EQ(value.at("dxf").text(), "part.dxf");
  EXPECT_EQ(value.at("outcome").text(), "failed");
  EXPECT_TRUE(value.at("script").isNull());
  EXPECT_TRUE(value.at("report").isNull());
  EXPECT_EQ(value.at("messages").items().at(0).at("kind").text(), "error");
  EXPECT_EQ(messageText(value), "part.dxf is empty. Please export the drawing again.");
}

TEST_F(JsonTest, TellsOfAnExistingScriptAndAnExistingReport) {
  write("part.dxf", oneLine());
  folder.write("part.scr", "old");
  EXPECT_EQ(messageText(object({"part.dxf"}, 1)),
            "part.scr exists already. Use --force to replace it.");
  folder.write("r.txt", "old");
  const JsonValue value = object({"part.dxf", "-o", "new.scr", "--report", "r.txt"}, 1);
  EXPECT_EQ(messageText(value), "The report r.txt exists already. Use --force to replace it.");
  EXPECT_EQ(value.at("outcome").text(), "failed");
}

TEST_F(JsonTest, ListsAScriptWhoseReportCouldNotBeWritten) {
  write("part.dxf", oneLine());
  const JsonValue value = object({"part.dxf", "--report", "none/r.txt"}, 1);
  EXPECT_TRUE(folder.has("part.scr"));
  ASSERT_FALSE(value.at("script").isNull());
  EXPECT_EQ(value.at("script").text(), "part.scr");
  EXPECT_TRUE(value.at("report").isNull());
}

TEST_F(JsonTest, PrintsOneObjectForEachDrawingInOrder) {
  for (const char* const name : {"a.dxf", "b.dxf"}) write(name, oneLine());
  const std::vector<JsonValue> all = objects({"b.dxf", "none.dxf", "a.dxf", "--jobs", "3"}, 1);
  ASSERT_EQ(all.size(), 3U);
  EXPECT_EQ(all[0].at("dxf").text(), "b.dxf");
  EXPECT_EQ(all[1].at("dxf").text(), "none.dxf");
  EXPECT_EQ(all[1].at("outcome").text(), "failed");
  EXPECT_EQ(all[2].at("dxf").text(), "a.dxf");
}

TEST_F(JsonTest, SpeaksTheLanguageOfTheMessages) {
  folder.write("part.dxf", "");
  EXPECT_EQ(messageText(object({"part.dxf", "--language", "de"}, 1)),
            "part.dxf ist leer. Bitte die Zeichnung noch einmal exportieren.");
}

TEST_F(JsonTest, IsValidUtf8WhateverTheDrawingHolds) {
  DxfBuilder dxf = oneLine();
  dxf.entity("K\xE4se\x81\"\\", {{8, "0"}});
  dxf.entity("\xFF\xFE\xC3", {{8, "0"}});
  dxf.entity("A\tB\x7F", {{8, "0"}});
  dxf.entity("TEXT", {{8, "\xE4"}, {1, "\xFF\xC0\x80 \x01"}, {40, "1"}});
  write("part.dxf", dxf);
  const JsonValue value = object({"part.dxf"});
  EXPECT_EQ(value.at("notRecognised").names(), (Strings{"A\tB\x7F", "Käse\xC2\x81\"\\", "ÿþÃ"}));
}

TEST_F(JsonTest, IsValidUtf8WhateverAUtf8DrawingHolds) {
  DxfBuilder dxf = oneLine();
  dxf.header("$ACADVER", 1, "AC1021");
  dxf.entity("KÄSE→", {{8, "0"}});
  write("part.dxf", dxf);
  EXPECT_EQ(object({"part.dxf"}).at("notRecognised").names(), Strings{"KÄSE→"});
}

TEST_F(JsonTest, IsValidUtf8WhateverAFileIsNamed) {
  const std::string name = "a\xFF\"b\\c\n\xC3.dxf";
  write(name, oneLine());
  const JsonValue value = object({name});
  EXPECT_EQ(value.at("outcome").text(), "converted");
  EXPECT_EQ(value.at("dxf").text(), "aÿ\"b\\c\nÃ.dxf");
}

TEST_F(JsonTest, IsValidUtf8WhateverAMessageQuotes) {
  folder.write("part.dxf",
               "  0\nSECTION\n  2\nBLOCKS\n  0\nBLOCK\n  2\nA\n  0\nLINE\n\xFF\xC3\x1b\x80\n5\n"
               "  0\nENDBLK\n  0\nENDSEC\n  0\nEOF\n");
  EXPECT_EQ(messageText(object({"part.dxf"}, 1)),
            "part.dxf:11: The line \"ÿÃ\\x1b€\" is not a group code. The file is damaged; please "
            "export the drawing again.");
}

TEST(JsonCheck, RefusesInvalidJson) {
  for (const char* const text :
       {"", "{", "{\"a\":1,}", "[1 2]", "01", "1.", "\"\x01\"", "\"\xFF\"", "\"\xC0\x80\"", "nul",
        "{\"a\":1,\"a\":2}", "1 2", "\"\\x\"", "\"\xED\xA0\x80\""}) {
    EXPECT_THROW(JsonValue::parse(text), std::runtime_error) << text;
  }
  EXPECT_EQ(JsonValue::parse(" {\"a\" : [ -1.5e3 , true , null ] } ").at("a").items().size(), 3U);
}

}  // namespace
}  // namespace quillon::headless
