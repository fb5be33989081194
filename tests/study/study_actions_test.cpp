#include "study/study_actions.h"

#include <gtest/gtest.h>

#include <functional>

#include "study/study_questions.h"
#include "study/study_row.h"
#include "support/desk.h"

namespace orvex {
namespace {

using Moves = std::vector<std::string>;

/// An observation with a file of each of these kinds, in its folder.
StudyRow Row(const std::filesystem::path& folder, const std::vector<FileKind>& kinds) {
  constexpr const char* kExtensions[] = {".eps", ".sur", ".nte", ".bak"};
  StudyRow row;
  for (const FileKind kind : kinds) {
    const auto i = static_cast<std::size_t>(kind);
    row.files[i] = folder / ("5-12-3" + std::string(kExtensions[i]));
    if (kind == FileKind::episodes) row.summary.emplace();
  }
  return row;
}

TEST(StudyActions, LetAFormTakeTheStudysPlaceIfThereIsOneToShow) {
  test::Desk desk;
  StudyActions actions(desk.services);
  const auto folder = desk.folder / "EPS/5/12";
  StudyRow row = Row(folder, {FileKind::episodes, FileKind::survey});
  row.summary->counts.Total = 4;
  row.summary->notFullyCoded = 1;
  const auto act = [&](StudyAction action) { return [&, action] { actions.Do(action, row); }; };
  const std::pair<std::function<void()>, std::string> cases[] = {
      {act(StudyAction::open), "show episode editor for 5-12-3.eps"},
      {act(StudyAction::proof), "show the first gap of 5-12-3.eps"},
      {act(StudyAction::showStatistics), "show questionStats of 5-12-3.eps"},
      {act(StudyAction::showTimeSummary), "show timeSummary of 5-12-3.eps"},
      {act(StudyAction::editSurvey), "show survey file 5-12-3.sur"},
      {[&] {
         QuestionRow question;
         question.observation = &row;
         question.text = "Why?";
         question.episode = 2;
         question.number = 7;
         actions.EditQuestion(question);
       },
       "show question 2.7, Why?, of 5-12-3.eps"},
  };
  for (const bool isGood : {true, false}) {
    desk.screens.episodeFileIsGood = desk.screens.surveyFileIsGood = isGood;
    for (const auto& [work, shown] : cases) {
      work();
      EXPECT_EQ(desk.screens.Take(), isGood ? (Moves{shown, "hide study"}) : Moves{shown});
      EXPECT_EQ(desk.program.DataPath, folder) << "a survey is saved there";
    }
  }
}

TEST(StudyActions, OpenWhatIsThereAndDoNothingWithWhatIsNot) {
  test::Desk desk;
  StudyActions actions(desk.services);
  using Kinds = std::vector<FileKind>;
  const std::pair<Kinds, Moves> cases[] = {
      {{FileKind::sessionLog, FileKind::survey},
       {"show survey file 5-12-3.sur", "hide study", "show log 5-12-3.bak"}},
      {{FileKind::sessionLog, FileKind::fieldNotes},
       {"show field notes 5-12-3.nte", "show field notes 5-12-3.nte", "show log 5-12-3.bak"}},
      {{FileKind::sessionLog}, {"show log 5-12-3.bak", "show log 5-12-3.bak"}},
      {{FileKind::episodes}, {"show episode editor for 5-12-3.eps", "hide study"}},
      {{}, {}},
  };
  for (const auto& [kinds, moves] : cases) {
    const StudyRow row = Row(desk.folder.Path(), kinds);
    for (const StudyAction action :
         {StudyAction::open, StudyAction::takeUpClass, StudyAction::editNotes, StudyAction::showLog,
          StudyAction::showStatistics, StudyAction::proof}) {
      actions.Do(action, row);
    }
    EXPECT_EQ(desk.screens.Take(), moves);
  }
}

TEST(StudyActions, LeaveNothingOfAnObservationToTheNextClass) {
  test::Desk desk;
  StudyActions actions(desk.services);
  actions.Do(StudyAction::open, Row(desk.folder / "EPS/5/12", {FileKind::episodes}));
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
