#include "app/headless/json_output.h"

#include <gtest/gtest.h>

namespace quillon::headless {
namespace {

TEST(JsonString, QuotesAndEscapes) {
  EXPECT_EQ(jsonString(""), "\"\"");
  EXPECT_EQ(jsonString("C:\\a \"b\""), "\"C:\\\\a \\\"b\\\"\"");
  EXPECT_EQ(jsonString("a\nb\x01\x1f\x7f"), "\"a\\u000ab\\u0001\\u001f\\u007f\"");
  EXPECT_EQ(jsonString("\u0080\u009bx\u00a0\u0100"), "\"\\u0080\\u009bx\u00a0\u0100\"");
}

TEST(JsonString, KeepsUtf8AndRepairsOtherBytes) {
  EXPECT_EQ(jsonString("Käse→𝄞"), "\"Käse→𝄞\"");
  EXPECT_EQ(jsonString("a\xE4"
                       "b\x80"),
            "\"aäb€\"");
}

TEST(ToJson, IsOneLineWithEveryMember) {
  convert::ConversionResult result;
  result.outcome = convert::Outcome::Cancelled;
  result.dxfFile = "a.dxf";
  result.scriptFile = "a.scr";
  result.fileLinesRead = 12;
  result.commandCount = 34;
  result.counts[static_cast<std::size_t>(dxf::EntityKind::Line)] = 5;
  result.leftOut[static_cast<std::size_t>(dxf::EntityKind::Line)] = 2;
  result.counts[static_cast<std::size_t>(dxf::EntityKind::Arc)] = 1;
  result.leftOut[static_cast<std::size_t>(dxf::EntityKind::Arc)] = 1;
  result.counts[static_cast<std::size_t>(dxf::EntityKind::Vertex)] = 9;
  result.counts[static_cast<std::size_t>(dxf::EntityKind::Seqend)] = 9;
  result.unknownKinds = {{"HATCH", 2}};
  result.dropped = {3, 12};
  result.extents = {-1.0, 0.5, 2.0, 1e21};
  result.rangeWarning = true;
  result.losses = {{rules::LossRule::Filled, "LWPOLYLINE", "A", "", 7, 19, {1.5, 2.0}, 0.0}};
  const convert::Message message{convert::MessageKind::Warning, "title", "text", "detail"};
  EXPECT_EQ(toJson(result, {"r.txt", "r.svg", false}, {message}),
            "{\"dxf\":\"a.dxf\",\"script\":\"a.scr\",\"report\":\"r.txt\","
            "\"preview\":\"r.svg\",\"outcome\":\"cancelled\",\"linesRead\":12,\"linesWritten\":34,"
            "\"entities\":{\"LINE\":3},\"leftOut\":{\"LINE\":2,\"ARC\":1},"
            "\"notRecognised\":{\"HATCH\":2},\"damaged\":{\"count\":3,\"firstLine\":12},"
            "\"extents\":{\"minX\":-1,\"minY\":0.5,\"maxX\":2,\"maxY\":1e+21},"
            "\"rangeWarning\":true,\"losses\":[{\"rule\":\"filled\",\"kind\":\"LWPOLYLINE\","
            "\"count\":7,\"line\":19,\"layer\":\"A\",\"x\":1.5,\"y\":2}],"
            "\"messages\":[{\"kind\":\"warning\",\"text\":\"detail\"}]}\n");
}

TEST(ToJson, HasTheBytesOfPathsThatAreNotUtf8) {
  convert::ConversionResult result;
  result.outcome = convert::Outcome::Converted;
  result.scriptFile = "ä.scr";
  const auto json = [&](const std::string& drawing, const std::string& report) {
    result.dxfFile = drawing;
    const std::string all = toJson(result, {report, "", false}, {});
    return all.substr(0, all.find(",\"outcome\""));
  };
  EXPECT_EQ(json("T\xFCr.dxf", "\xE4.txt"),
            "{\"dxf\":\"Tür.dxf\",\"script\":\"ä.scr\",\"report\":\"ä.txt\",\"preview\":null,"
            "\"pathBytes\":{\"dxf\":\"VPxyLmR4Zg==\",\"report\":\"5C50eHQ=\"}");
  EXPECT_EQ(json("\xFF\xFF\xFF", "r.txt"),
            "{\"dxf\":\"ÿÿÿ\",\"script\":\"ä.scr\",\"report\":\"r.txt\",\"preview\":null,"
            "\"pathBytes\":{\"dxf\":\"////\"}");
  EXPECT_EQ(json("Tür.dxf", "r.txt"),
            "{\"dxf\":\"Tür.dxf\",\"script\":\"ä.scr\",\"report\":\"r.txt\",\"preview\":null");
}

TEST(ToJson, NamesNoFileThatWasNotWritten) {
  convert::ConversionResult result;
  result.dxfFile = "a.dxf";
  result.scriptFile = "a.scr";
  EXPECT_EQ(
      toJson(result, {"r.txt", "r.svg", false}, {}),
      "{\"dxf\":\"a.dxf\",\"script\":null,\"report\":null,\"preview\":null,\"outcome\":\"failed\","
      "\"linesRead\":0,\"linesWritten\":0,\"entities\":{},\"leftOut\":{},\"notRecognised\":{},"
      "\"damaged\":null,\"extents\":null,\"rangeWarning\":false,\"messages\":[]}\n");
}

}  // namespace
}  // namespace quillon::headless
