// Drawings and folders of a size that takes minutes.
#include <cstdio>
#include <memory>

#include "app/load_fixture.h"

namespace quillon::headless {
namespace {

namespace fs = std::filesystem;
using testing::ProgramResult;

TEST_F(FolderLoad, TenThousandDrawingsWithABadOneAmongThem) { convertWithABadFile(10000); }

TEST_F(FolderLoad, TenThousandDrawingsAreTakenUpWhereTheyWereLeft) { cancelAndTakeUp(10000); }

class LargeDrawing : public ProgramTest {
 protected:
  /// Writes a drawing piece by piece.
  class Writer {
   public:
    explicit Writer(const std::string& path) : file_(std::fopen(path.c_str(), "wb"), std::fclose) {
      put("  0\nSECTION\n  2\nENTITIES\n");
    }
    void put(const std::string& text) {
      ASSERT_EQ(std::fwrite(text.data(), 1, text.size(), file_.get()), text.size());
    }
    void finish() {
      put("  0\nENDSEC\n  0\nEOF\n");
      file_.reset();
    }

   private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
  };

  void expectLines(const std::string& drawing, std::size_t memory, std::uint64_t lines) {
    const ProgramResult result =
        run({drawing, "-o", "out.scr", "--name", "", "--dotted", "--max-lines", "100000000"});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_LT(result.peakBytes, memory);
    EXPECT_NE(result.error.find("out.scr: " + std::to_string(lines) + " lines written"),
              std::string::npos)
        << result.error;
  }
};

TEST_F(LargeDrawing, OfTenMillionEntitiesTakesNoMoreMemoryThanASmallOne) {
  constexpr int kEntities = 10000000;
  Writer writer(folder.file("part.dxf"));
  for (int i = 0; i < kEntities; i += 2) {
    writer.put("  0\nPOINT\n  8\n0\n 10\n" + std::to_string(i % 1000) + "\n 20\n7\n");
    writer.put("  0\nLINE\n  8\n1\n 10\n1\n 20\n2\n 11\n3\n 21\n4\n");
  }
  writer.finish();
  expectLines("part.dxf", flatMemory(), 2 * kEntities + 7);
}

TEST_F(LargeDrawing, WithPolylinesOfAMillionVertices) {
  constexpr int kVertices = 1000000;
  Writer writer(folder.file("part.dxf"));
  writer.put("  0\nLWPOLYLINE\n  8\n0\n 70\n0\n");
  for (int i = 0; i < kVertices; ++i) {
    writer.put(" 10\n" + std::to_string(i % 999) + "\n 20\n" + std::to_string(i % 7) + "\n");
  }
  writer.put("  0\nPOLYLINE\n  8\n0\n 70\n0\n");
  for (int i = 0; i < kVertices; ++i) {
    writer.put("  0\nVERTEX\n  8\n0\n 10\n" + std::to_string(i % 999) + "\n 20\n5\n");
  }
  writer.put("  0\nSEQEND\n");
  writer.finish();
  // One entity has to fit in memory as a whole, with room to read it.
  expectLines("part.dxf", flatMemory() + 4 * fs::file_size(folder.path() / "part.dxf"),
              4 * (kVertices - 1) + 7);
}

TEST_F(LargeDrawing, WithASplineOfAHundredThousandPoints) {
  constexpr int kPoints = 100000;
  Writer writer(folder.file("part.dxf"));
  writer.put("  0\nSPLINE\n  8\n0\n");
  for (int i = 0; i < kPoints; ++i) {
    writer.put(" 10\n" + std::to_string(i % 999) + "\n 20\n" + std::to_string(i % 7) + "\n");
  }
  writer.finish();
  expectLines("part.dxf", flatMemory() + 16 * fs::file_size(folder.path() / "part.dxf"),
              2 * (10 * (kPoints - 1) - 1) + 7);
}

TEST_F(LargeDrawing, OfOneLineIsRefusedAtOnce) {
  folder.write("part.dxf", std::string(5000, 'x'));
  fs::resize_file(folder.path() / "part.dxf", std::uintmax_t{1} << 30);
  const ProgramResult result = run({"part.dxf"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.error,
            errorLine("part.dxf is not a text file, so it cannot be an ASCII DXF file. Please "
                      "choose a DXF file."));
  EXPECT_LT(result.peakBytes, flatMemory());
}

TEST_F(LargeDrawing, WithALineOfAGigabyteDropsTheEntityThatHoldsIt) {
  // The line is one of NUL bytes, which make no drawing when they stand at its beginning.
  folder.write("part.dxf", std::string(8192, '\n') +
                               oneLine().text().substr(0, oneLine().text().find("  0\nENDSEC")) +
                               "  0\nTEXT\n  8\n0\n  1\n");
  fs::resize_file(folder.path() / "part.dxf", std::uintmax_t{1} << 30);
  const ProgramResult result = run({"part.dxf", "--name", ""});
  EXPECT_EQ(result.exitCode, 0) << result.error;
  EXPECT_LT(result.peakBytes, std::size_t{5} << 30);
  EXPECT_EQ(folder.read("part.scr"), lineScript(""));
}

}  // namespace
}  // namespace quillon::headless
