// Drawings that change while they are read.
#include <chrono>

#include "convert/driver_fixture.h"

namespace quillon::convert {
namespace {

namespace fs = std::filesystem;

class ChangeTest : public DriverTest {
 protected:
  ChangeTest() {
    testing::DxfBuilder dxf;
    for (int i = 0; i < 40000; ++i) {
      dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
    }
    draw(dxf);
    datePast();
    folder.write("drawing.scr", "old");
    job.overwriteScript = true;
    surroundings.refuseWithoutSections = true;
  }

  /// Sets the drawing's time back: file system clocks are coarse, so a change right after its
  /// creation might go unnoticed.
  void datePast() const {
    fs::last_write_time(job.dxfFile, fs::file_time_type::clock::now() - std::chrono::hours(1));
  }
  /// Changes the drawing once part of it has been read.
  void whileReading(const std::function<void(const fs::path&)>& change) {
    host.cancelWhen = [this, change] {
      const bool underWay = !host.progress.empty() && host.progress.back().second >= 20;
      if (underWay && !changed_) {
        changed_ = true;
        change(job.dxfFile);
      }
      return false;
    };
  }
  void expectRefusal() {
    EXPECT_EQ(convert(), Outcome::Ended);
    EXPECT_TRUE(changed_);
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0].detail,
              job.dxfFile + " was changed while it was read. Please convert it again.");
    EXPECT_EQ(script(), "old");
    EXPECT_EQ(folder.entries(), 2U);
  }

  bool changed_ = false;
};

TEST_F(ChangeTest, ThatShrinkAreRefused) {
  whileReading(
      [](const fs::path& drawing) { fs::resize_file(drawing, fs::file_size(drawing) / 2); });
  expectRefusal();
}

TEST_F(ChangeTest, ThatBecomeEmptyAreRefused) {
  whileReading([](const fs::path& drawing) { fs::resize_file(drawing, 0); });
  expectRefusal();
}

TEST_F(ChangeTest, ThatGrowAreRefused) {
  whileReading([](const fs::path& drawing) {
    std::ofstream(drawing, std::ios::binary | std::ios::app) << "  0\nEOF\n";
  });
  expectRefusal();
}

TEST_F(ChangeTest, ThatAreRewrittenInTheirSizeAreRefused) {
  whileReading([](const fs::path& drawing) {
    std::fstream file(drawing, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(static_cast<std::streamoff>(fs::file_size(drawing) / 2));
    file << "9";
  });
  const auto size = fs::file_size(job.dxfFile);
  expectRefusal();
  EXPECT_EQ(fs::file_size(job.dxfFile), size);
}

TEST_F(ChangeTest, ThatAreOnlyReadAndRenamedAreConverted) {
  whileReading([this](const fs::path& drawing) {
    EXPECT_FALSE(folder.read("drawing.dxf").empty());
    fs::rename(drawing, folder.path() / "other.dxf");
  });
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_TRUE(changed_);
}

TEST_F(ChangeTest, ThatVanishAreConvertedAsTheyWere) {
  whileReading([](const fs::path& drawing) { fs::remove(drawing); });
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_TRUE(changed_);
  EXPECT_EQ(result.commandCount, 80007U);
}

TEST_F(ChangeTest, ThatAreReplacedAreConvertedAsTheyWere) {
  whileReading([this](const fs::path& drawing) {
    folder.write("new.dxf", "");
    fs::rename(folder.path() / "new.dxf", drawing);
  });
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_TRUE(changed_);
  EXPECT_EQ(result.commandCount, 80007U);
}

TEST_F(ChangeTest, ThatShrinkInsideABlockAreRefusedForThat) {
  testing::DxfBuilder dxf;
  dxf.beginBlock("A");
  for (int i = 0; i < 40000; ++i) {
    dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
  }
  dxf.endBlock();
  draw(dxf);
  datePast();
  whileReading(
      [](const fs::path& drawing) { fs::resize_file(drawing, fs::file_size(drawing) / 2); });
  EXPECT_EQ(convert(), Outcome::Ended);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].detail,
            job.dxfFile + " was changed while it was read. Please convert it again.");
  EXPECT_EQ(script(), "old");
}

TEST_F(ChangeTest, AreReportedInGerman) {
  speakGerman();
  whileReading([](const fs::path& drawing) { fs::resize_file(drawing, 0); });
  EXPECT_EQ(convert(), Outcome::Ended);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].text,
            job.dxfFile +
                " wurde geändert, während die Datei gelesen wurde. Bitte die Konvertierung "
                "wiederholen.");
}

}  // namespace
}  // namespace quillon::convert
