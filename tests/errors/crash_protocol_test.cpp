#include "errors/crash_protocol.h"

#include "errors/scribe_fixture.h"
#include "platform.h"

namespace quillon::errors {
namespace {

using CrashProtocolTest = ScribeTest;

TEST_F(CrashProtocolTest, HasDateAndTimeOfTheCrash) {
  testing::useUniversalTime();
  const CrashProtocol protocol(faults, "");
  FixedSink sink;
  protocol.write("SIGBUS", 7, 1795274433, sink);
  EXPECT_NE(sink.text().find("Datum/Uhrzeit:\t2026-11-21 / 15:20:33\r\n"), std::string_view::npos)
      << sink.text();
  EXPECT_NE(sink.text().find("Zeilen-Nr.:\t0\r\n"), std::string_view::npos);
}

TEST(FixedText, PadsNumbersAndCutsWhatIsTooLong) {
  EXPECT_EQ(FixedText().number(7, 2).text(":").number(1234567890123U).view(), "07:1234567890123");
  EXPECT_EQ(FixedText().text(std::string(100, 'x')).view(), std::string(64, 'x'));
}

TEST(FixedSink, CutsWhatIsTooLong) {
  FixedSink sink;
  for (int i = 0; i < 1000; ++i) sink.append(std::string(100, 'x'));
  EXPECT_EQ(sink.text().size(), 32768U);
}

}  // namespace
}  // namespace quillon::errors
