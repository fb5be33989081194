#include "store/paths.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "store/field_notes.h"
#include "store/file_error.h"
#include "store/options_file.h"
#include "support/faulty_storage.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;
using test::FaultyStorage;
using test::FileBytes;
using test::PutFile;
using test::TestFolder;

TEST(Paths, NumbersAreNormalisedAndFoldersMade) {
  const TestFolder folder;
  FaultyStorage storage;
  Identity identity{"AB", "05", " 012", "3.5", "28"};
  EXPECT_EQ(EpsPathToLookFor(folder.Path(), identity), folder / "EPS/05/ 012/05- 012-3.5.eps");
  EXPECT_TRUE(fs::is_empty(folder.Path()));

  EXPECT_EQ(EpsPath(storage, folder.Path(), identity), folder / "EPS/5/12/5-12-4.eps");
  EXPECT_EQ(identity, (Identity{"AB", "5", "12", "4", "28"}));
  EXPECT_TRUE(fs::is_directory(folder / "EPS/5/12"));
  EXPECT_EQ(NtePath(storage, folder.Path(), identity), folder / "NTE/5/12/5-12-4.nte");
  EXPECT_TRUE(fs::is_directory(folder / "NTE/5/12"));

  identity.ClassNum = "013";  // the log's name is as typed
  MakeBakFolders(storage, folder.Path(), identity);
  EXPECT_TRUE(fs::is_directory(folder / "BAK/5/013"));
  EXPECT_EQ(BakPath(folder.Path(), identity), folder / "BAK/5/013/5-013-4.bak");
}

TEST(Paths, WhatIsNoNumberIsNamedAndNothingChanges) {
  const TestFolder folder;
  FaultyStorage storage;
  const std::pair<Identity, const char*> cases[] = {
      {{"", "x", "012", "3", ""}, "school"},
      {{"", "05", "", "3", ""}, "class"},
      {{"", "05", "012", "32768", ""}, "observation"},
  };
  for (const auto& [identity, number] : cases) {
    Identity given = identity;
    try {
      EpsPath(storage, folder.Path(), given);
      ADD_FAILURE() << number;
    } catch (const std::invalid_argument& error) {
      EXPECT_NE(std::string(error.what()).find(number), std::string::npos) << error.what();
    }
    EXPECT_EQ(given, identity);
    EXPECT_TRUE(fs::is_empty(folder.Path()));
  }
}

TEST(Paths, AFolderThatCannotBeMadeIsNamed) {
  for (int failing = 1; failing <= 3; ++failing) {
    const TestFolder folder;
    FaultyStorage storage;
    storage.Fail(failing, EROFS, "makeFolder");
    Identity identity{"", "5", "12", "3", ""};
    const fs::path folders[] = {folder / "NTE", folder / "NTE/5", folder / "NTE/5/12"};
    try {
      NtePath(storage, folder.Path(), identity);
      ADD_FAILURE() << failing;
    } catch (const FileError& error) {
      EXPECT_EQ(error.Path(), folders[failing - 1]);
    }
  }
}

TEST(OptionsFile, TheFirstLineIsTheDataFolder) {
  const TestFolder folder;
  FaultyStorage storage;
  EXPECT_EQ(ReadOptionsFile(folder.Path()), std::nullopt);
  const std::pair<std::string, std::optional<std::string>> cases[] = {
      {"", std::nullopt},
      {"/data", "/data"},
      {"/data\n", "/data"},
      {" /d \xE9/\r\nmore\r\n", " /d \xE9/"},
      {"\r\n/data", ""},
      {"/a\rb\n", "/a\rb"},
      {"\xEF\xBB\xBF/data\r\n", "/data"},
      {"\xEF\xBB\xBF", std::nullopt},
      {"/data\n" + std::string(9000, 'x'), "/data"},
      {std::string(9000, 'x') + "\n", std::nullopt},
  };
  for (const auto& [bytes, line] : cases) {
    PutFile(folder / "options", bytes);
    EXPECT_EQ(ReadOptionsFile(folder.Path()), line) << bytes;
  }
  WriteOptionsFile(storage, folder.Path(), "/media/stick/obs");
  EXPECT_EQ(FileBytes(folder / "options"), "/media/stick/obs\r\n");
  storage.Fail(1, ENOSPC, "write");
  EXPECT_THROW(WriteOptionsFile(storage, folder.Path(), "/home"), FileError);
  EXPECT_EQ(ReadOptionsFile(folder.Path()), "/media/stick/obs");
}

TEST(FieldNotes, EndWithOneLineEnd) {
  const TestFolder folder;
  FaultyStorage storage;
  for (const std::string notes : {"", "quiet today", "one\r\ntwo\r\n"}) {
    WriteFieldNotes(storage, folder / "5-12-3.nte", notes);
    EXPECT_EQ(FileBytes(folder / "5-12-3.nte"), notes + "\r\n");
  }
}

}  // namespace
}  // namespace orvex
