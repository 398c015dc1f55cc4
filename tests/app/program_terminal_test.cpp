// What a terminal shows.
#include <fcntl.h>
#include <unistd.h>

#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

/// The master side of a pseudo terminal, which reads what a program shows there.
class Terminal {
 public:
  Terminal() : master_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) return;
    if (const char* const name = ptsname(master_)) {
      slave_ = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    }
  }
  ~Terminal() {
    if (slave_ >= 0) close(slave_);
    if (master_ >= 0) close(master_);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  /// False where the system has no pseudo terminals, as in a chroot without /dev/pts.
  bool isOpen() const { return slave_ >= 0; }
  int slave() const { return slave_; }
  /// Everything shown, once the program has ended.
  std::string shown() {
    close(slave_);
    slave_ = -1;
    std::string out;
    char block[4096];
    for (ssize_t got = 0; (got = read(master_, block, sizeof block)) > 0;) {
      out.append(block, static_cast<std::size_t>(got));
    }
    return out;
  }

 private:
  int master_;
  int slave_ = -1;
};

class TerminalTest : public ProgramTest {
 protected:
  void SetUp() override {
    if (!Terminal().isOpen()) GTEST_SKIP() << "there is no pseudo terminal here (/dev/pts)";
  }
  std::string shown(Strings arguments) {
    Terminal terminal;
    call.errorStream = terminal.slave();
    EXPECT_EQ(run(std::move(arguments)).exitCode, 0);
    return terminal.shown();
  }
};

TEST_F(TerminalTest, ShowsAProgressBarAndTakesItAwayAgain) {
  write("part.dxf", oneLine());
  const std::string text = shown({"part.dxf"});
  EXPECT_NE(text.find("\r[..............................] 0 % part.dxf\x1b[K"), std::string::npos)
      << text;
  const std::size_t erased = text.rfind("\r\x1b[K");
  ASSERT_NE(erased, std::string::npos);
  EXPECT_EQ(text.find("] ", erased), std::string::npos);
  EXPECT_NE(text.find("part.dxf: 1 entities converted", erased), std::string::npos);
}

TEST_F(TerminalTest, ShowsHowManyOfSeveralDrawingsAreDone) {
  write("a.dxf", oneLine());
  write("b.dxf", oneLine());
  EXPECT_NE(shown({"a.dxf", "b.dxf"}).find("[###############...............] 50 % 1/2\x1b[K"),
            std::string::npos);
}

TEST_F(TerminalTest, CutsALongNameBetweenCharacters) {
  const std::string name = std::string(39, 'x') + "äöü.dxf";
  write(name, oneLine());
  EXPECT_EQ(shown({name}).find("\xC3\x1b"), std::string::npos);
}

TEST_F(TerminalTest, EscapesControlCharactersOfTheNameBesideTheBar) {
  write("a\n\x1b[2J.dxf", oneLine());
  const std::string text = shown({"a\n\x1b[2J.dxf"});
  EXPECT_EQ(text.find("\x1b[2J"), std::string::npos);
}

TEST_F(TerminalTest, ShowsNoProgressBarWhenQuiet) {
  write("part.dxf", oneLine());
  EXPECT_EQ(shown({"part.dxf", "--quiet"}), "");
}

}  // namespace
}  // namespace quillon::headless
