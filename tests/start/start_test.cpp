#include <gtest/gtest.h>

#include <optional>
#include <tuple>

#include "start/field_notes_file.h"
#include "start/main_menu.h"
#include "start/start_up.h"
#include "support/desk.h"
#include "support/save_faults.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

TEST(ProgramFolder, IsTheExecutablesOrElseTheUsers) {
  const test::TestFolder disk;
  Storage storage;
  const fs::path user = disk / ".local/share/orvex";
  EXPECT_EQ(ProgramFolder(storage, {disk.Path(), true, user}), disk.Path());
  EXPECT_FALSE(fs::exists(disk / ".local")) << "nothing is made that is not needed";
  EXPECT_EQ(ProgramFolder(storage, {"/usr/bin", false, user}), user);
  EXPECT_TRUE(fs::is_directory(user));
  test::PutFile(disk / "file", "in the way");
  EXPECT_EQ(ProgramFolder(storage, {"/usr/bin", false, disk / "file/orvex"}), disk / "file/orvex");
}

TEST(DataPath, IsTheFirstLineOfTheOptionsFileWhereThatNamesAFolder) {
  const test::TestFolder disk;
  const std::string folder = (disk / "my obs").string();
  fs::create_directories(folder);
  const std::pair<std::string, std::string> cases[] = {
      {"\xEF\xBB\xBF" + folder + "/\r\nmore\r\n", folder + "/"},
      {"\r\n" + folder, disk.Path()},
      {folder + "\r", folder},
      {folder + std::string("\0more\n", 6), disk.Path()},
      {std::string(9000, '/') + "\n", disk.Path()},
      {(disk / "options").string() + "\r\n", disk.Path()},
  };
  for (const auto& [options, path] : cases) {
    test::PutFile(disk / "options", options);
    Program program;
    SettleDataPath(program, disk.Path());
    EXPECT_EQ(program.DataPath.string(), path) << options;
  }
}

TEST(MainMenu, RemembersTheFolderForTheNextStart) {
  test::Desk desk;
  const std::string folder = (desk.folder / "obs").string();
  fs::create_directory(folder);
  MainMenu menu(desk.services);
  const std::tuple<std::optional<std::string>, std::string, std::string, std::string> steps[] = {
      {std::nullopt, desk.folder.Path(), desk.folder.Path(), ""},
      {folder, desk.folder.Path(), folder, folder + "\r\n"},
      {"", folder, folder, folder + "\r\n"},
      {"/not/there", folder, "/not/there", "/not/there\r\n"},
      {"one\ntwo", "/not/there", "one two", "one two\r\n"},
  };
  for (const auto& [answer, offered, path, stored] : steps) {
    desk.prompter.ExpectText(answer);
    if (path == "/not/there" || path == "one two") {
      desk.prompter.Expect("There is no folder " + path + ".", Answer::no);
    }
    menu.ChangeDataPath();
    EXPECT_EQ(desk.prompter.askedTexts.back().defaultText, offered);
    EXPECT_EQ(desk.program.DataPath, path);
    EXPECT_EQ(test::FileBytes(desk.ownFolder / "options"), stored);
  }
}

TEST(MainMenu, SettlesTheFolderOfAClassBeforeItCanBeginAndSaysWhichItIs) {
  test::Desk desk;
  const fs::path stick = desk.folder / "stick/obs";
  test::PutFile(desk.ownFolder / "options", stick.string() + "\r\n");
  MainMenu menu(desk.services);
  SettleDataPath(desk.program, desk.ownFolder.Path());
  EXPECT_EQ(menu.DataFolder(), "Data folder: " + desk.ownFolder.Path().string() +
                                   "  (not the usual one, " + stick.string() + ")");
  const std::string missing = "The data folder is not there:\n\n" + stick.string();
  desk.prompter.Expect(missing, Answer::cancel);
  menu.NewObservation();
  EXPECT_TRUE(desk.screens.Take().empty());

  desk.prompter.Expect(missing, Answer::ok);
  desk.prompter.Expect(missing, Answer::yes);
  desk.prompter.ExpectFolder("");
  desk.prompter.Expect(missing, Answer::no);
  menu.NewObservation();
  EXPECT_EQ(desk.program.DataPath, desk.ownFolder.Path());
  desk.prompter.Expect(missing, Answer::ok, [&] { fs::create_directories(stick); });
  menu.NewObservation();
  EXPECT_EQ(menu.DataFolder(), "Data folder: " + stick.string());

  // The user can have a typed folder made, or type another one.
  const std::string made = desk.folder / "a/b";
  desk.prompter.ExpectText(stick / "file/x");
  test::PutFile(stick / "file", "in the way");
  desk.prompter.Expect("There is no folder " + (stick / "file/x").string() + ".", Answer::yes);
  desk.prompter.Expect("The folder could not be made.", Answer::ok);
  desk.prompter.ExpectText(made);
  desk.prompter.Expect("There is no folder " + made + ".", Answer::yes);
  menu.ChangeDataPath();
  EXPECT_TRUE(fs::is_directory(made));
  EXPECT_EQ(desk.prompter.askedTexts.back().defaultText, (stick / "file/x").string());
}

struct OptionsScene : test::SaveScene {
  explicit OptionsScene(bool older) {
    prompter.typed = "/";
    desk.programFolder = desk.folder.Path();
    if (older) test::PutFile(desk.folder / "options", "/old\r\n");
  }
  void Save() override {
    menu.ChangeDataPath();
    EXPECT_EQ(desk.program.DataPath, "/");
  }
  MainMenu menu{services};
};

TEST(MainMenu, RemembersTheFolderOrTellsThatItCannotAndUsesItAllTheSame) {
  test::FailEveryCallOf<OptionsScene>("the options file", false);
}

TEST(FieldNotesFile, IsEditedAsLinesAndSpelledAsItWas) {
  const std::tuple<const char*, const char*, std::optional<std::string>, const char*> cases[] = {
      {"a\r\nb\r\nc\r\n", "a\r\nb\r\nc", "a\r\nb\r\nc", "a\r\nb\r\nc\r\n"},
      {"a\nb", "a\r\nb", "a\r\nb", "a\r\nb\r\n"},
      {"a\r\n\r\n", "a\r\n", "a\r\nb", "a\r\nb\r\n"},
      {"", "", "new", "new\r\n"},
      {"caf\xE9\r\n", "caf\u00E9", "caf\u00E9!", "caf\xE9!\r\n"},
      {"caf\xE9\r\n", "caf\u00E9", "\u2192", "\u2192\r\n"},
      {"as it was", "as it was", std::nullopt, "as it was"},
  };
  for (const auto& [before, shown, edited, after] : cases) {
    test::Desk desk;
    const fs::path file = desk.folder / "obs/1-2-3.nte";
    test::PutFile(file, before);
    desk.prompter.ExpectFile({.path = file, .folder = desk.folder / "obs"});
    desk.prompter.ExpectNotes(edited);
    EditChosenNotes(desk.services);
    EXPECT_EQ(desk.prompter.askedFiles[0].filter, "NOTE files (*.NTE)|*.NTE");
    EXPECT_EQ(desk.prompter.askedNotes[0], shown);
    EXPECT_EQ(test::FileBytes(file), after);
    EXPECT_EQ(desk.program.DataPath, desk.folder / "obs");
  }
}

TEST(FieldNotesFile, IsNotEditedWhenItCannotBeRead) {
  test::Desk desk;
  desk.prompter.ExpectFile({.path = {}, .folder = "/"});
  EditChosenNotes(desk.services);
  EXPECT_EQ(desk.program.DataPath, desk.folder.Path()) << "a cancelled dialog leaves it";
  desk.prompter.ExpectFile({.path = desk.folder / "gone.nte", .folder = desk.folder.Path()});
  desk.prompter.Expect("The field notes could not be read.", Answer::ok);
  EditChosenNotes(desk.services);
}

struct FieldNotesScene : test::SaveScene {
  explicit FieldNotesScene(bool older) {
    prompter.typed = "new\r\nand more";
    test::PutFile(desk.folder / "a.nte", older ? "old\r\n" : "");
  }
  void Save() override {
    prompter.askedNotes.clear();
    EditFieldNotes(services, desk.folder / "a.nte");
    // After giving up, the user finds the typed text in the dialog again.
    if (prompter.askedNotes.size() > 1) {
      EXPECT_EQ(prompter.askedNotes[1], prompter.typed);
    }
  }
};

TEST(FieldNotesFile, IsSavedWholeOrToldOf) {
  test::FailEveryCallOf<FieldNotesScene>("the field notes file");
}

}  // namespace
}  // namespace orvex
