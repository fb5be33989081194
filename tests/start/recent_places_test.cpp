// The files and folders used last.

#include "desk/recent_places.h"

#include <gtest/gtest.h>

#include <string>

#include "start/main_menu.h"
#include "support/desk.h"

namespace orvex {
namespace {

using namespace test;

class RecentPlacesTest : public testing::Test, protected Desk {
 protected:
  std::string Names() const {
    std::string names;
    for (const RecentPlace& place : RecentPlaces(programFolder)) {
      names += (names.empty() ? "" : " ") + place.path.filename().string();
    }
    return names;
  }
  void Use(const std::string& name) {
    PutFile(folder / name, "x");
    RememberRecent(services, {RecentKind::episodes, folder / name});
  }
};

TEST_F(RecentPlacesTest, TheNewestComesFirstAndTheOldestIsForgotten) {
  EXPECT_EQ(Names(), "");
  for (const char* name : {"a.eps", "b.eps", "a.eps"}) Use(name);
  EXPECT_EQ(Names(), "a.eps b.eps");
  RememberRecent(services, {RecentKind::folder, folder.Path()});
  for (char name = 'c'; name <= 'k'; ++name) Use({name});
  EXPECT_EQ(Names(), "k j i h g f e d c " + folder.Path().filename().string());
  std::filesystem::remove(folder / "j");
  EXPECT_EQ(Names(), "k i h g f e d c " + folder.Path().filename().string());
}

TEST_F(RecentPlacesTest, WhatIsNoLineOfTheFileIsPassedOver) {
  PutFile(folder / "a.eps", "x");
  const std::string path = (folder / "a.eps").string();
  PutFile(RecentPlacesPath(programFolder),
          "\r\ne\r\nx " + path + "\r\ne a.eps\r\ne " + path + "\r\ns " + path);
  EXPECT_EQ(RecentPlaces(programFolder),
            (std::vector<RecentPlace>{{RecentKind::episodes, folder / "a.eps"}}));
  RememberRecent(services, {RecentKind::survey, folder / "two\r\nlines"});
  EXPECT_EQ(Names(), "a.eps");
}

TEST_F(RecentPlacesTest, OpenInTheirFormsFromTheMenu) {
  MainMenu menu(services);
  PutFile(folder / "NTE/7.nte", "They share the book.\r\n");
  prompter.cancelsDialogs = true;
  prompter.ExpectFile({.path = folder / "NTE/7.nte", .folder = folder / "NTE"});
  menu.EditFieldNotes();
  ASSERT_EQ(menu.Recent().size(), 1U);
  program.DataPath = ownFolder.Path();
  menu.OpenRecent(menu.Recent().front());
  EXPECT_EQ(screens.Take(), std::vector<std::string>{"show field notes 7.nte"});
  EXPECT_EQ(program.DataPath, folder / "NTE");
  menu.OpenRecent({RecentKind::episodes, folder / "EPS/7.eps"});
  EXPECT_EQ(screens.Take().back(), "close mainMenu");
  screens.surveyFileIsGood = false;
  menu.OpenRecent({RecentKind::survey, folder / "SUR/7.sur"});
  EXPECT_EQ(screens.Take().size(), 1U) << "the menu stays";
  menu.OpenRecent({RecentKind::folder, folder.Path()});
  EXPECT_EQ(screens.Take().front(), "show study");
  EXPECT_EQ(program.DataPath, folder.Path());
}

}  // namespace
}  // namespace orvex
