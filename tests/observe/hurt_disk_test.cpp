// A class whose data folder is damaged while it runs, through real system calls.

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <fstream>

#include "observe/live_observation.h"
#include "support/desk.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

struct HurtDisk : testing::Test {
  void TearDown() override { ::umount2(desk.folder.Path().c_str(), MNT_DETACH); }

  /// Starts a class and lets ten minutes pass.
  void Start() {
    desk.OpenLog();
    live.emplace(desk.services);
    live->KeyInDescription();
    live->TypeDescription("Poems");
    live->ChooseActivity(3);
    desk.clock.Advance(600);
  }
  /// Logs an entry that needs space on the disk. Returns the log's trouble, if any.
  std::string TroubleOfNextEntry() {
    live->EnterDescription();
    live->TypeDescription(std::string(9000, 'x'));
    live->LeaveDescription();
    return desk.log.File().Trouble();
  }
  /// Ends the class. Storing fails with `error` until the user does something about it.
  void End(int error, Answer act, const std::function<void()>& whileAsked = {}) {
    desk.prompter.Expect("Verify END OF CLASS", Answer::yes);
    desk.prompter.Expect("The data files could not be written. The class is still in memory.", act,
                         whileAsked);
    if (act == Answer::no) {
      desk.prompter.ExpectSaveFile({.path = other / "a.eps", .folder = other.Path()});
    }
    desk.prompter.Expect("Have you finished Matrices?", Answer::yes);
    live->EndClass();
    const std::string& told = desk.prompter.asked[1].details;
    EXPECT_TRUE(told.starts_with(desk.folder.Path().string())) << told;
    EXPECT_TRUE(told.ends_with(std::strerror(error))) << told;
    EXPECT_EQ(desk.screens.Take().back(), "end");
    for (const auto& entry : fs::recursive_directory_iterator(desk.folder.Path())) {
      EXPECT_NE(entry.path().extension(), ".tmp");
    }
  }
  void ExpectStored(const fs::path& eps, const fs::path& nte, const fs::path& sur) {
    EXPECT_NE(test::FileBytes(eps).find(" 3 , 600 ,"), std::string::npos);
    EXPECT_EQ(test::FileBytes(nte), "\r\n");
    EXPECT_NE(test::FileBytes(sur).find("MATRICES"), std::string::npos);
  }
  void ExpectStoredElsewhere() { ExpectStored(other / "a.eps", other / "a.nte", other / "a.sur"); }
  void ExpectStoredInPlace() {
    ExpectStored(desk.folder / "EPS/7/12/7-12-3.eps", desk.folder / "NTE/7/12/7-12-3.nte",
                 desk.folder / "SUR/7/12/7-12-3.sur");
    const std::string log = test::FileBytes(desk.folder / "BAK/7/12/7-12-3.bak");
    EXPECT_NE(log.find(std::string(9000, 'x')), std::string::npos);
    EXPECT_TRUE(log.ends_with("LOG OFF: 09:10:00\r\n"));
  }

  test::TestFolder other;
  test::Desk desk;
  std::optional<LiveObservation> live;
};

TEST_F(HurtDisk, AFolderThatMayOnlyBeRead) {
  Start();
  fs::permissions(desk.folder.Path(), fs::perms(0555));
  fs::permissions(other.Path(), fs::perms(0777));
  constexpr uid_t kNobody = 65534;
  const bool root = ::geteuid() == 0;  // permissions do not stop root
  if (root && ::seteuid(kNobody) != 0) GTEST_SKIP() << "root cannot become another user here";
  EXPECT_EQ(TroubleOfNextEntry(), "") << "the log was open before";
  End(EACCES, Answer::no);
  EXPECT_TRUE(!root || ::seteuid(0) == 0);
  fs::permissions(desk.folder.Path(), fs::perms(0755));
  ExpectStoredElsewhere();
}

TEST_F(HurtDisk, AFolderThatVanishes) {
  Start();
  for (const auto& entry : fs::directory_iterator(desk.folder.Path())) fs::remove_all(entry);
  fs::remove(desk.folder.Path());
  EXPECT_NE(TroubleOfNextEntry(), "");
  const auto comesBack = [this] { fs::create_directory(desk.folder.Path()); };
  End(ENOENT, Answer::no, comesBack);
  ExpectStoredElsewhere();
  EXPECT_TRUE(test::FileBytes(desk.folder / "BAK/7/12/7-12-3.bak").ends_with("09:10:00\r\n"));
}

TEST_F(HurtDisk, AFileSystemThatFillsUp) {
  constexpr const char* kSize = "size=64k";
  if (::mount("tmpfs", desk.folder.Path().c_str(), "tmpfs", 0, kSize) != 0) {
    GTEST_SKIP() << "a small file system cannot be mounted here";
  }
  Start();
  std::ofstream(desk.folder / "filler") << std::string(1 << 20, 'x') << std::flush;
  EXPECT_TRUE(TroubleOfNextEntry().ends_with(std::strerror(ENOSPC)));
  End(ENOSPC, Answer::yes, [this] { fs::remove(desk.folder / "filler"); });
  ExpectStoredInPlace();
}

TEST_F(HurtDisk, AnAccountWhoseFilesMayNotGrow) {
  Start();
  rlimit before = {};
  ::getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small = {.rlim_cur = 512, .rlim_max = before.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_TRUE(TroubleOfNextEntry().ends_with(std::strerror(EFBIG)));
  End(EFBIG, Answer::yes, [&] { ::setrlimit(RLIMIT_FSIZE, &before); });
  std::signal(SIGXFSZ, handler);
  ExpectStoredInPlace();
}

}  // namespace
}  // namespace orvex
