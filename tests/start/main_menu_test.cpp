#include "start/main_menu.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "model/program.h"
#include "start/start_up.h"
#include "store/session_log.h"
#include "store/storage.h"
#include "support/fake_clock.h"
#include "support/recording_screens.h"
#include "support/scripted_prompter.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;
using test::FileBytes;
using test::PutFile;

class FullDisk : public Storage {
 public:
  ssize_t Write(int, const void*, std::size_t) override {
    errno = ENOSPC;
    return -1;
  }
};

class MainMenuTest : public testing::Test {
 protected:
  MainMenu Load() { return {services_, disk_.Path()}; }

  void ChangeDataPath(std::optional<std::string> answer) {
    prompter_.ExpectText(std::move(answer));
    Load().ChangeDataPath();
  }

  const test::TestFolder disk_;
  Program program_;
  Storage storage_;
  test::FakeClock clock_{8, 5, 9};
  test::ScriptedPrompter prompter_;
  test::RecordingScreens screens_;
  SessionLog log_{storage_, clock_};
  Services services_{program_, log_, storage_, clock_, prompter_, screens_};
};

TEST_F(MainMenuTest, ShowsTheVersionAndTheMomentItWasLoadedAt) {
  MainMenu menu = Load();
  EXPECT_EQ(menu.ProductName(), "Orvex 4.10");
  EXPECT_EQ(menu.Copyright(), "Copyright \xC2\xA9 2026 The Orvex developers");
  EXPECT_EQ(menu.DateText(), "03-14-01");
  EXPECT_EQ(menu.TimeText(), "08:05:09");

  clock_.Advance(1.5);
  menu.Tick();
  EXPECT_EQ(menu.TimeText(), "08:05:10");
  EXPECT_EQ(program_.StartTimeText, "08:05:09") << "the clock goes on, the start time does not";

  clock_.Advance(86400);
  const MainMenu again = Load();
  EXPECT_EQ(again.DateText(), "03-15-01");
  EXPECT_EQ(program_.StartTimeText, "08:05:10");
}

TEST_F(MainMenuTest, HandsOverBeforeItCloses) {
  Load().NewObservation();
  EXPECT_EQ(screens_.Take(), (std::vector<std::string>{"show setUp", "close mainMenu"}));
  Load().Cancel();
  EXPECT_EQ(screens_.Take(), std::vector<std::string>{"end"});
}

TEST_F(MainMenuTest, RemembersTheFolderForTheNextStart) {
  program_.DataPath = disk_.Path();
  fs::create_directory(disk_ / "obs");
  const std::string folder = (disk_ / "obs").string();

  ChangeDataPath(folder);
  EXPECT_EQ(prompter_.askedTexts.back().text, "Enter a new path");
  EXPECT_EQ(prompter_.askedTexts.back().title, "Default path");
  EXPECT_EQ(prompter_.askedTexts.back().defaultText, disk_.Path().string());
  EXPECT_EQ(program_.DataPath.string(), folder);
  EXPECT_EQ(FileBytes(disk_ / "options"), folder + "\r\n");

  Program nextRun;
  SettleDataPath(nextRun, disk_.Path());
  EXPECT_EQ(nextRun.DataPath.string(), folder);

  // A file dialog has moved on since; what is offered is what was stored.
  program_.DataPath = "/elsewhere";
  ChangeDataPath("/not/there");
  EXPECT_EQ(prompter_.askedTexts.back().defaultText, folder);
  EXPECT_EQ(program_.DataPath.string(), "/not/there") << "not checked";
  EXPECT_EQ(FileBytes(disk_ / "options"), "/not/there\r\n");

  program_.DataPath = "/elsewhere";
  ChangeDataPath("one\ntwo");
  EXPECT_EQ(prompter_.askedTexts.back().defaultText, "/elsewhere") << "the stored one is missing";
  EXPECT_EQ(FileBytes(disk_ / "options"), "one two\r\n") << "exactly one line";
}

TEST_F(MainMenuTest, ChangesNothingWithoutAnAnswer) {
  program_.DataPath = "/data";
  PutFile(disk_ / "options", "/stored\r\nsecond line\r\n");
  for (const auto& answer : {std::optional<std::string>(), std::optional<std::string>("")}) {
    ChangeDataPath(answer);
    EXPECT_EQ(program_.DataPath.string(), "/data");
    EXPECT_EQ(FileBytes(disk_ / "options"), "/stored\r\nsecond line\r\n");
  }
}

TEST_F(MainMenuTest, TellsThatTheFolderCouldNotBeStoredAndUsesItAllTheSame) {
  PutFile(disk_ / "options", "/stored\r\n");
  FullDisk full;
  MainMenu menu({program_, log_, full, clock_, prompter_, screens_}, disk_.Path());
  prompter_.ExpectText("/data");
  prompter_.Expect("The data folder could not be stored.", Answer::ok);
  menu.ChangeDataPath();
  EXPECT_NE(prompter_.asked.back().details.find("options"), std::string::npos);
  EXPECT_EQ(program_.DataPath.string(), "/data");
  EXPECT_EQ(FileBytes(disk_ / "options"), "/stored\r\n");
}

}  // namespace
}  // namespace orvex
