// Permissions, owners and groups of replaced files.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "child_process.h"
#include "files/output_file.h"
#include "platform.h"
#include "shared_folder.h"
#include "support/temp_folder.h"

namespace quillon::files {
namespace {

namespace fs = std::filesystem;
using testing::inChildProcess;
using testing::kNobody;
using testing::kOther;

class RightsTest : public ::testing::Test {
 protected:
  RightsTest() { folder.write("a.scr", "old"); }

  std::string at(const char* name) const { return folder.file(name); }
  void write() const { replaceFile(at("a.scr"), "new"); }
  static struct stat statusOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(lstat(path.c_str(), &status), 0);
    return status;
  }
  struct stat status() const {
    return statusOf(at("a.scr"));
  }
  mode_t rights() const { return status().st_mode & 07777; }
  void give(uid_t owner, gid_t group, mode_t rights) const {
    ASSERT_EQ(chown(at("a.scr").c_str(), owner, group), 0);
    ASSERT_EQ(chmod(at("a.scr").c_str(), rights), 0);
  }

  testing::TempFolder folder;
};

#define SKIP_UNLESS_ROOT() \
  if (geteuid() != 0) GTEST_SKIP() << "only root can give files to others"

TEST_F(RightsTest, OfATemporaryFileAreNeverWiderThanThoseOfTheFileItReplaces) {
  fs::permissions(at("a.scr"), fs::perms(0600));
  constexpr int kNotAllowed = 100;
  const int rights = inChildProcess([this] {
    umask(0);
    if (!testing::forbidChangesOfRights()) return kNotAllowed;
    const OutputFile file(at("a.scr"));
    for (const auto& entry : fs::directory_iterator(folder.path())) {
      if (entry.path().extension() != ".tmp") continue;
      return static_cast<int>(statusOf(entry.path()).st_mode & (S_IRWXG | S_IRWXO));
    }
    return 1;
  });
  if (rights == kNotAllowed) GTEST_SKIP() << "no system calls can be forbidden here";
  EXPECT_EQ(rights, 0);
}

TEST_F(RightsTest, ToRunAsTheOwnerOrGroupAreNotKept) {
  fs::permissions(at("a.scr"), fs::perms(06755));
  ASSERT_EQ(rights(), 06755U);
  write();
  EXPECT_EQ(rights(), 0755U);
}

TEST_F(RightsTest, OwnerAndGroupAreKeptByRoot) {
  SKIP_UNLESS_ROOT();
  give(kNobody, kOther, 0640);
  write();
  EXPECT_EQ(status().st_uid, kNobody);
  EXPECT_EQ(status().st_gid, kOther);
  EXPECT_EQ(rights(), 0640U);
}

TEST_F(RightsTest, TheGroupIsKeptByItsMembers) {
  SKIP_UNLESS_ROOT();
  fs::permissions(folder.path(), fs::perms(0777));
  give(0, kOther, 0660);
  EXPECT_EQ(inChildProcess([this] {
              if (!testing::becomeMember(kOther, kNobody, kNobody)) return 1;
              write();
              return 0;
            }),
            0);
  EXPECT_EQ(folder.read("a.scr"), "new");
  EXPECT_EQ(status().st_uid, kNobody);
  EXPECT_EQ(status().st_gid, kOther);
  EXPECT_EQ(rights(), 0660U);
}

TEST_F(RightsTest, AGroupThatCannotBeKeptGivesNobodyItsRights) {
  SKIP_UNLESS_ROOT();
  fs::permissions(folder.path(), fs::perms(0777));
  give(0, kOther, 0676);
  EXPECT_EQ(inChildProcess([this] {
              if (!testing::becomeMember(kNobody, kNobody, kNobody)) return 1;
              write();
              return 0;
            }),
            0);
  EXPECT_EQ(folder.read("a.scr"), "new");
  EXPECT_EQ(status().st_gid, kNobody);
  EXPECT_EQ(rights(), 0666U);
}

}  // namespace
}  // namespace quillon::files
