#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "files/output_file.h"
#include "platform.h"
#include "support/temp_folder.h"

namespace quillon::testing {

/// A user and group that tests never run with.
inline constexpr uid_t kOther = 4711;

/// A world-writable folder owned by root, like /tmp, beside one of our own.
class SharedFolderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (geteuid() != 0) GTEST_SKIP() << "only root can make links of other users";
    std::filesystem::create_directory(at("shared"));
    std::filesystem::permissions(at("shared"),
                                 std::filesystem::perms::all | std::filesystem::perms::sticky_bit);
    folder.write("mine.scr", "mine");
  }

  std::filesystem::path at(std::string_view name) const { return folder.path() / name; }
  void link(const std::filesystem::path& target, std::string_view name, uid_t owner) const {
    std::filesystem::create_symlink(target, at(name));
    ASSERT_EQ(lchown(at(name).c_str(), owner, owner), 0);
  }
  std::string written(std::string_view name) const {
    try {
      files::OutputFile file(at(name));
      file.write("new");
      file.commit();
    } catch (const files::WriteError& error) {
      return error.what();
    }
    return "written";
  }
  /// Writes as a user who owns neither the folder nor the link.
  std::string writtenByNobody(std::string_view name) const {
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    std::filesystem::permissions(at("mine.scr"), std::filesystem::perms(0666));
    const Unprivileged user;
    return written(name);
  }

  TempFolder folder;
};

}  // namespace quillon::testing
