#include "study/study_actions.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/desk.h"

namespace orvex {
namespace {

using Moves = std::vector<std::string>;

TEST(StudyActions, LetAFormTakeTheStudysPlaceIfThereIsOneToShow) {
  test::Desk desk;
  StudyActions actions(desk.services);
  const auto file = [&](const char* name) { return desk.folder / "EPS/5/12" / name; };
  const std::pair<std::function<void()>, std::string> cases[] = {
      {[&] { actions.EditEpisodes(file("5-12-3.eps")); }, "show episode editor for 5-12-3.eps"},
      {[&] { actions.EditQuestion(file("5-12-3.eps"), 2, 7); }, "show question 2.7 of 5-12-3.eps"},
      {[&] { actions.Proof(file("5-12-3.eps")); }, "show the first gap of 5-12-3.eps"},
      {[&] { actions.ShowStatistics(file("5-12-3.eps")); }, "show questionStats of 5-12-3.eps"},
      {[&] { actions.ShowTimeSummary(file("5-12-3.eps")); }, "show timeSummary of 5-12-3.eps"},
      {[&] { actions.EditSurvey(file("5-12-3.sur")); }, "show survey file 5-12-3.sur"},
  };
  for (const bool isGood : {true, false}) {
    desk.screens.episodeFileIsGood = desk.screens.surveyFileIsGood = isGood;
    for (const auto& [act, shown] : cases) {
      act();
      EXPECT_EQ(desk.screens.Take(), isGood ? (Moves{shown, "hide study"}) : Moves{shown});
      EXPECT_EQ(desk.program.DataPath, desk.folder / "EPS/5/12") << "a survey is saved there";
    }
  }
  actions.EditNotes(file("5-12-3.nte"));
  actions.ShowLog(file("5-12-3.bak"));
  EXPECT_EQ(desk.screens.Take(), (Moves{"show field notes 5-12-3.nte", "show log 5-12-3.bak"}));
}

TEST(StudyActions, LeaveNothingOfAnObservationToTheNextClass) {
  test::Desk desk;
  StudyActions actions(desk.services);
  actions.EditEpisodes(desk.folder / "EPS/5/12/5-12-3.eps");
  desk.program.Episodes.resize(3);
  desk.program.ProofEp = 2;
  desk.program.DataPath = "/elsewhere";
  actions.Close();
  EXPECT_EQ(desk.screens.Take().back(), "close study");
  EXPECT_TRUE(desk.program.Episodes.empty());
  EXPECT_EQ(desk.program.ProofEp, 0);
  EXPECT_EQ(desk.program.DataPath, desk.folder.Path());
}

}  // namespace
}  // namespace orvex
