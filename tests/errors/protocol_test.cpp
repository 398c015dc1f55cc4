#include "errors/protocol.h"

#include <gtest/gtest.h>

namespace quillon::errors {
namespace {

ProtocolFields fields() {
  return {"Quillon - Fehlermeldung",
          {},
          {"53", "frmDXF", "befStart_Click", "214"},
          "21.11.2026",
          "15:20:33",
          "Windows NT",
          "10.0",
          "19045",
          "Service Pack 1"};
}

const std::string kDashes(70, '-');

TEST(Protocol, HasItsLinesInOrder) {
  CallStackList stack;
  stack.record("Main");
  stack.recordProcedure("frmDXF", "befStart_Click", 214);
  stack.record("path:\tC:\\A.DXF");
  const std::string indent(10, ' ');
  EXPECT_EQ(protocolText(fields(), stack),
            kDashes + "\r\nF E H L E R P R O T O K O L L vom FaultScribe\r\n" + kDashes +
                "\r\nQuillon - Fehlermeldung\r\n" + kDashes + "\r\nFEHLERBESCHREIBUNG:\r\n" +
                indent + "Fehler-Nr:\t53\r\n" + indent + "Modul:\tfrmDXF\r\n" + indent +
                "Prozedur:\tbefStart_Click\r\n" + indent + "Zeilen-Nr.:\t214\r\n" + indent +
                "Datum/Uhrzeit:\t21.11.2026 / 15:20:33\r\n" + kDashes + "\r\nCALLSTACK:\r\n" +
                indent + "Main\r\n" + indent + "path:\tC:\\A.DXF\r\n" + indent +
                "frmDXF.befStart_Click\r\n" + kDashes + "\r\nSYSTEMINFO:\r\n" + indent +
                "Plattform:\tWindows NT\r\n" + indent + "Version:\t10.0\r\n" + indent +
                "Build:\t19045   Service Pack 1\r\n" + kDashes + "\r\n");
}

TEST(Protocol, WithoutRecordsHasAnEmptyCallStack) {
  EXPECT_NE(protocolText(fields(), {}).find("\r\nCALLSTACK:\r\n" + kDashes + "\r\nSYSTEMINFO:"),
            std::string::npos);
}

TEST(Protocol, NamesTheProgramBehindTheCaption) {
  ProtocolFields named = fields();
  named.programInfo = "Quillon 1.0.0";
  EXPECT_NE(protocolText(named, {}).find("\r\nQuillon - Fehlermeldung\r\nQuillon 1.0.0\r\n" +
                                         kDashes + "\r\nFEHLERBESCHREIBUNG:"),
            std::string::npos);
}

TEST(Protocol, HasAllFortyRecords) {
  CallStackList stack;
  for (int i = 0; i < 60; ++i) stack.record("record " + std::to_string(i));
  const std::string text = protocolText(fields(), stack);
  std::size_t count = 0;
  for (std::size_t at = text.find("record"); at != std::string::npos;
       at = text.find("record", at + 1)) {
    ++count;
  }
  EXPECT_EQ(count, 40U);
}

class CollectedText : public ProtocolSink {
 public:
  void append(std::string_view piece) override { text.append(piece); }
  std::string text;
};

TEST(Backtrace, NamesFilesWithoutFoldersAndOffsets) {
  CollectedText sink;
  BacktraceWriter out(sink);
  out.frame("/usr/bin/quillon-convert", 0x1a2bU);
  out.frame("C:\\Programs\\quillon.exe", 0);
  out.frame("quillon", ~std::uint64_t{0});
  out.frame("", 0x10U);
  out.end();
  const std::string indent(10, ' ');
  EXPECT_EQ(sink.text, "BACKTRACE:\r\n" + indent + "quillon-convert+0x1a2b\r\n" + indent +
                           "quillon.exe+0x0\r\n" + indent + "quillon+0xffffffffffffffff\r\n" +
                           indent + "+0x10\r\n" + kDashes + "\r\n");
}

TEST(Backtrace, SaysThatASystemHasNone) {
  CollectedText sink;
  BacktraceWriter out(sink);
  out.unknown();
  EXPECT_EQ(sink.text, "BACKTRACE:\r\n          not available on this system\r\n");
}

}  // namespace
}  // namespace quillon::errors
