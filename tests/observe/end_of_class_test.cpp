#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <string_view>

#include "observe/live_observation.h"
#include "support/desk.h"

namespace orvex {
namespace {

using test::FileBytes;

/// A disk that is full while `full` is set, for everything or for the session log alone.
class FullDisk : public Storage {
 public:
  enum class Full { nothing, log, everything };

  int Open(const char* path, int flags, mode_t mode) override {
    const int descriptor = Storage::Open(path, flags, mode);
    if (std::string_view(path).ends_with(".bak")) log_ = descriptor;
    return descriptor;
  }
  ssize_t Write(int descriptor, const void* bytes, std::size_t count) override {
    if (full == Full::nothing || (full == Full::log && descriptor != log_)) {
      return Storage::Write(descriptor, bytes, count);
    }
    errno = ENOSPC;
    return -1;
  }
  Full full = Full::nothing;

 private:
  int log_ = -1;
};

struct EndOfClassTest : testing::Test {
  void TeachOneSegment() {
    live.KeyInDescription();
    live.TypeDescription("Poems");
    live.ChooseActivity(3);
    desk.clock.Advance(600);
  }

  FullDisk disk;
  test::Desk desk;
  SessionLog log{disk, desk.clock};
  Services services{desk.program, log, disk, desk.clock, desk.prompter, desk.screens};
  LiveObservation live = [this] {
    desk.OpenLog();
    log.File().Open(desk.folder / "BAK/7/12/7-12-3.bak");
    return LiveObservation(services);
  }();
};

const std::string kNotWritten =
    "The data files could not be written. The class is still in memory. Try again?";

TEST_F(EndOfClassTest, AFullDiskKeepsTheClassUntilItIsStored) {
  TeachOneSegment();
  disk.full = FullDisk::Full::everything;
  desk.prompter.Expect("Verify END OF CLASS", Answer::yes);
  desk.prompter.Expect(kNotWritten, Answer::yes);
  desk.prompter.Expect(kNotWritten, Answer::no);
  live.cmdQuit_Click();
  EXPECT_EQ(desk.prompter.asked[0].defaultAnswer, Answer::no);
  EXPECT_NE(desk.prompter.asked.back().details.find("7-12-3.eps: No space left on device"),
            std::string::npos);
  EXPECT_FALSE(desk.program.QuitRequested);
  EXPECT_TRUE(log.File().IsOpen());
  EXPECT_FALSE(std::filesystem::exists(desk.folder / "EPS/7/12/7-12-3.eps"));
  EXPECT_NE(live.LogTrouble(), "");

  // The class has gone on as if its end had not been asked for.
  desk.clock.Advance(60);
  desk.prompter.Expect("Verify END OF CLASS", Answer::yes);
  desk.prompter.Expect(kNotWritten, Answer::yes, [this] { disk.full = FullDisk::Full::nothing; });
  live.cmdQuit_Click();
  EXPECT_NE(FileBytes(desk.folder / "EPS/7/12/7-12-3.eps").find(" 3 , 660 ,"), std::string::npos);
}

TEST_F(EndOfClassTest, ALogThatCannotBeCompletedDoesNotKeepTheObserver) {
  TeachOneSegment();
  disk.full = FullDisk::Full::log;
  const std::string question =
      "The class is stored, but the session log could not be completed. Try again?";
  desk.prompter.Expect("Verify END OF CLASS", Answer::yes);
  desk.prompter.Expect(question, Answer::yes);
  desk.prompter.Expect(question, Answer::no);
  live.cmdQuit_Click();
  EXPECT_NE(FileBytes(desk.folder / "EPS/7/12/7-12-3.eps").find(" 3 , 600 ,"), std::string::npos);
  EXPECT_TRUE(desk.program.QuitRequested);
  EXPECT_EQ(desk.screens.Take().back(), "end");
}

TEST_F(EndOfClassTest, AHeaderThatNamesNoFilesIsToldBeforeAnythingEnds) {
  TeachOneSegment();
  live.TypeHeader(HeaderBox::classNum, "12x");
  desk.prompter.Expect("School, class and observation must be numbers from 0 to 32767.",
                       Answer::ok);
  live.cmdQuit_Click();
  EXPECT_EQ(live.TakeFocus()->control.box, HeaderBox::classNum);
  EXPECT_TRUE(live.CurrentEpisode().segments.empty());
}

TEST_F(EndOfClassTest, ARefusedEndLeavesNoTraceInTheEpisodeBefore) {
  TeachOneSegment();
  desk.prompter.Expect("Start New Episode?", Answer::yes);
  live.cmdStartNewEp_Click();
  live.KeyInDescription();
  live.TypeDescription("More poems");
  disk.full = FullDisk::Full::everything;
  live.ChooseActivity(9);
  desk.prompter.Expect("Verify END OF CLASS", Answer::yes);
  desk.prompter.Expect(kNotWritten, Answer::no);
  live.cmdQuit_Click();
  disk.full = FullDisk::Full::nothing;
  live.UpdateActivityControls();
  live.cmdBailout_Click();
  EXPECT_EQ(live.CurSegment(), 2);
  EXPECT_EQ(live.CurActivity(), "9");
  EXPECT_EQ(live.LogTrouble(), "");
  EXPECT_NE(FileBytes(log.File().Path()).find("***** CLASS NOT ENDED, IT GOES ON *****"),
            std::string::npos);
}

}  // namespace
}  // namespace orvex
