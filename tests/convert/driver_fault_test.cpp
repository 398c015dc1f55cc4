// Faults of the program itself: they leave a conversion, for whoever files a protocol of them.
#include <functional>
#include <stdexcept>

#include "convert/driver_fixture.h"

namespace quillon::convert {
namespace {

/// Fails while the layers are read, when the script has been opened.
class FailingHost : public testing::RecordingHost {
 public:
  void setStatus(std::string_view) override { fail(); }

  std::function<void()> fail;
};

class FaultTest : public DriverTest {
 protected:
  FaultTest() { job.overwriteScript = true; }

  void convertFailing(std::function<void()> fail) {
    folder.write("drawing.scr", "old");
    entries = folder.entries();
    failing.fail = [this, fail = std::move(fail)] {
      EXPECT_GT(folder.entries(), entries);  // the temporary file has been made
      fail();
    };
    result = convertDXF(job, failing, surroundings);
  }
  void expectNothingLeft() const {
    EXPECT_EQ(script(), "old");
    EXPECT_EQ(folder.entries(), entries);
  }

  FailingHost failing;
  std::size_t entries = 0;
};

TEST_F(FaultTest, AnErrorThatNobodyForesawLeavesTheConversion) {
  EXPECT_THROW(convertFailing([] { throw std::out_of_range("injected"); }), std::out_of_range);
  expectNothingLeft();
  EXPECT_TRUE(failing.messages.empty());
  EXPECT_THROW(convertFailing([] { throw std::logic_error("injected"); }), std::logic_error);
  expectNothingLeft();
}

TEST_F(FaultTest, SoDoesWhatIsNoException) {
  EXPECT_THROW(convertFailing([] { throw 42; }), int);
  expectNothingLeft();
  EXPECT_TRUE(failing.messages.empty());
}

TEST_F(FaultTest, BeforeTheScriptIsOpenedThereIsNone) {
  host.cancelWhen = []() -> bool { throw std::runtime_error("out of luck"); };
  EXPECT_THROW(convert(), std::runtime_error);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_FALSE(hasScript());
}

}  // namespace
}  // namespace quillon::convert
