#include "store/preferences.h"

#include <gtest/gtest.h>

#include <tuple>

#include "store/storage.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

using namespace test;

TEST(PreferencesTest, AreReadWhateverElseTheFileHolds) {
  const std::tuple<const char*, bool, bool> cases[] = {
      {"", true, false},
      {"meanings = off\r\nofftask sound = on\r\n", false, true},
      {"offtask sound = on", true, true},
      {"meanings = off\nmeanings = on\n", true, false},
      {"meanings=off\nMEANINGS = off\nfont = 12\n\xFF\n", true, false},
  };
  for (const auto& [bytes, meanings, sound] : cases) {
    SCOPED_TRACE(bytes);
    EXPECT_EQ(ParsePreferences(bytes), (Preferences{meanings, sound}));
  }
}

TEST(PreferencesTest, AreRememberedWhereTheFolderCanBeWritten) {
  const TestFolder folder;
  Storage storage;
  EXPECT_EQ(ReadPreferences(folder.Path()), Preferences());
  const Preferences chosen = {.meanings = false, .offtaskSound = true};
  RememberPreferences(storage, folder.Path(), chosen);
  EXPECT_EQ(ReadPreferences(folder.Path()), chosen);
  RememberPreferences(storage, folder / "missing", {});
  EXPECT_EQ(ReadPreferences(folder.Path()), chosen);
}

}  // namespace
}  // namespace orvex
