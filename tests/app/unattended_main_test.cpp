#include <gtest/gtest.h>

#include "app/unattended/main.h"
#include "support/temp_folder.h"

namespace quillon::unattended {
namespace {

std::string errorOfMain(const std::string& settings) {
  const testing::TempFolder folder;
  folder.write("larkspur.ini", settings);
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(Main({}, folder.path()), 2);
  return ::testing::internal::GetCapturedStderr();
}

TEST(UnattendedMain, WithoutARunSaysThatThereIsNoWindow) {
  EXPECT_EQ(errorOfMain("[global]\nlanguage=10000\n"),
            "quillon: This program was built without its window. With /ru it converts one drawing, "
            "with /rx all drawings of a folder.\n");
  EXPECT_EQ(errorOfMain(""),
            "quillon: Dieses Programm wurde ohne sein Fenster gebaut. Mit /ru konvertiert es eine "
            "Zeichnung, mit /rx alle eines Ordners.\n");
}

TEST(UnattendedMain, AnswersWithoutItsWindow) {
  const testing::TempFolder folder;
  folder.write("larkspur.ini", "[global]\nlanguage=10000\n");
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(Main({"--version"}, folder.path()), 0);
  EXPECT_EQ(Main({"/ru", "--help"}, folder.path()), 0);
  const std::string output = ::testing::internal::GetCapturedStdout();
  EXPECT_TRUE(output.starts_with("Quillon " QUILLON_VERSION "\nUsage: quillon [DRAWING.dxf]\n"))
      << output;
}

}  // namespace
}  // namespace quillon::unattended
