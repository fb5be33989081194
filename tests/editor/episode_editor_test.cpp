#include "editor/episode_editor.h"

#include <gtest/gtest.h>

#include <string>

#include "editor/divide_time.h"
#include "editor/editor_desk.h"
#include "model/duration_text.h"

namespace orvex {
namespace {

using test::Question;
using test::Segment;
using Rows = std::vector<std::string>;

/// Warm-up (review): directions, seatwork, presentation, with six questions, three of them
/// students'; Talk: a discussion; Empty: nothing.
EpisodeList ThreeEpisodes() {
  EpisodeList episodes(3);
  episodes[0].Descript = "Warm-up";
  episodes[0].bReview = "Y";
  episodes[0].segments = {Segment(1, 60), Segment(15, 65), Segment(7, 0)};
  episodes[0].segments[1].src = 3;
  for (int i = 1; i <= 6; ++i) episodes[0].questions.push_back(Question(i, i < 4 ? "S" : "T"));
  episodes[1].Descript = "Talk";
  episodes[1].segments = {Segment(6, 100)};
  episodes[1].segments[0].aboutdata = "the sea";
  episodes[2].Descript = "Empty";
  return episodes;
}

struct EpisodeEditorTest : testing::Test {
  test::EditorDesk desk;
  EpisodeEditor& editor = desk.Open(ThreeEpisodes());
  EpisodeList& episodes = desk.program.Episodes;
};

TEST_F(EpisodeEditorTest, ShowsTheFileTheEpisodeAndTheSegment) {
  EXPECT_EQ(editor.Caption(), "Orvex 4.10 Episode Editor");
  EXPECT_EQ(editor.ObserverText(), "Observer: AB");
  EXPECT_EQ(editor.DateText(), "Date of Observation: 03-14-2001");
  EXPECT_EQ(editor.TotalText(), "Total: 3 Episodes");
  EXPECT_EQ(editor.FileText(), "File: " + desk.file.string());
  EXPECT_EQ(editor.EpisodeRows(), (Rows{"1. Warm-up", "2. Talk", "3. Empty"}));
  EXPECT_EQ(editor.SegmentRows(), (Rows{"1. Procedures & directions", "2. Supervised/Monitoring",
                                        "3. Student presentation"}));
  EXPECT_EQ(editor.ActivityText(), "Procedures && directions: 6 Question(s) (Review Session)");
  EXPECT_EQ(editor.SpellsText(), "1 dialogic spell(s)");
  EXPECT_EQ(editor.DurationText(), "2 minutes, 5 seconds");
  EXPECT_EQ(editor.SegmentCountText(), "3 Segments");
  EXPECT_EQ(editor.SegmentDurationLabel(), "Duration of segment 1:");
  EXPECT_EQ(editor.SegmentDuration(), "60");

  editor.ShowSegment(2);
  EXPECT_EQ(editor.SegmentDurationLabel(), "Duration of segment 2:");
  EXPECT_EQ(editor.SegmentDuration(), "65");
  EXPECT_EQ(editor.ActivityText(), "Procedures && directions: 6 Question(s)");
  editor.GetEpisode(2);
  EXPECT_EQ(editor.SegmentCountText(), "1 Segment");
  EXPECT_EQ(editor.DurationText(), "1 minute, 40 seconds");
  editor.GetEpisode(3);
  EXPECT_EQ(editor.ActivityText(), "");
  EXPECT_EQ(editor.SegmentCountText(), "0 Segment");
  EXPECT_EQ(editor.SegmentDurationLabel(), "N/A");
  EXPECT_EQ(editor.SegmentDuration(), "N/A");
  EXPECT_FALSE(editor.HasQuestions());
  EXPECT_FALSE(editor.Modified());
}

TEST_F(EpisodeEditorTest, AnUnknownActivityShowsItsNumberAndStays) {
  EpisodeList odd(1);
  odd[0].segments = {Segment(40, 7)};
  desk.Open(odd);
  EXPECT_EQ(desk.editor->SegmentRows(), (Rows{"1. 40"}));
  EXPECT_EQ(desk.editor->ActivityText(), "40: 0 Question(s)");
  EXPECT_EQ(desk.editor->Coding().activity, SegmentCodingView::kNoChoice);
  EXPECT_EQ(desk.editor->SegmentDuration(), "7");
  desk.editor->ChooseActivity(SegmentCodingView::kNoChoice);
  EXPECT_EQ(episodes, odd);
  EXPECT_EQ(desk.editor->TotalText(), "Total: 1 Episode");
}

TEST_F(EpisodeEditorTest, ButtonsFollowTheSelections) {
  struct Case {
    Positions episodes, segments;
    bool splitEp, mergeEp, splitSg, mergeSg;
  };
  const Case cases[] = {
      {{}, {}, false, true, false, true},
      {{1}, {2}, true, false, true, false},
      {{2, 1, 1}, {3, 2}, false, true, false, true},
      {{2, 9}, {0, 1}, true, false, true, false},
  };
  for (const Case& c : cases) {
    editor.SetSelectedEpisodes(c.episodes);
    editor.SetSelectedSegments(c.segments);
    EXPECT_EQ(editor.CanSplitEpisode(), c.splitEp);
    EXPECT_EQ(editor.CanMergeEpisodes(), c.mergeEp);
    EXPECT_EQ(editor.CanSplitSegment(), c.splitSg);
    EXPECT_EQ(editor.CanMergeSegments(), c.mergeSg);
  }
  editor.SelectEpisode(2);
  EXPECT_FALSE(editor.CanSplitEpisode());
}

TEST_F(EpisodeEditorTest, LaysTheCodesOutByActivity) {
  struct Case {
    int activity;
    bool about, subCategory, seatwork, presentation;
    std::size_t subCategories;
  };
  const Case cases[] = {
      {4, true, false, false, false, 0}, {5, false, false, false, false, 0},
      {7, false, false, false, true, 0}, {12, true, false, false, false, 0},
      {16, false, true, true, false, 2}, {17, false, true, false, false, 5},
  };
  for (const Case& c : cases) {
    editor.ChooseActivity(c.activity - 1);
    const SegmentCodingView view = editor.Coding();
    EXPECT_EQ(view.activity, c.activity - 1);
    EXPECT_EQ(view.showsAbout, c.about) << c.activity;
    EXPECT_EQ(view.showsSubCategory, c.subCategory) << c.activity;
    EXPECT_EQ(view.showsSeatwork, c.seatwork) << c.activity;
    EXPECT_EQ(view.showsPresentation, c.presentation) << c.activity;
    EXPECT_EQ(view.subCategories.size(), c.subCategories) << c.activity;
  }
  EXPECT_EQ(editor.ActivityText(), "Small group and pairwork: 6 Question(s) (Review Session)");
}

TEST_F(EpisodeEditorTest, CodesGoStraightIntoTheSegment) {
  editor.SelectSegment(2);
  EXPECT_EQ(editor.Coding().source, 3);
  EXPECT_EQ(editor.Coding().subCategory, SegmentCodingView::kNoChoice);
  editor.ChooseSource(2);
  editor.ChooseCognitiveLevel(1);
  editor.ChooseSeatOrganization(1);
  editor.ChooseSubCategory(1);
  editor.ChooseGroup(0);  // not shown, so not changed
  SegmentData coded = Segment(15, 65);
  coded.src = 2;
  coded.coglvl = 1;
  coded.org = 1;
  coded.fSubCat = 1;
  coded.grpSolo = 1;
  EXPECT_EQ(episodes[0].segments[1], coded);
  editor.ChooseSource(SegmentCodingView::kNoChoice);
  editor.ChooseSeatOrganization(SegmentCodingView::kNoChoice);
  EXPECT_EQ(editor.Coding().source, SegmentCodingView::kNoChoice);
  EXPECT_EQ(editor.Coding().seatOrganization, 0);

  editor.SelectSegment(3);
  EXPECT_EQ(editor.Coding().preparation, SegmentCodingView::kNoChoice);
  editor.ChooseGroup(0);
  editor.ChooseOrganization(1);
  editor.ChoosePreparation(1);
  EXPECT_EQ(editor.Coding().group, 0);
  EXPECT_EQ(editor.Coding().organization, 1);
  EXPECT_EQ(episodes[0].segments[2].prep, 1);
}

TEST_F(EpisodeEditorTest, AnAboutTextGoesWithItsActivityButNotByLooking) {
  editor.GetEpisode(2);
  EXPECT_EQ(editor.Coding().about, "the sea");
  editor.GetEpisode(1);
  editor.GetEpisode(2);
  EXPECT_FALSE(editor.Modified());
  editor.ChooseActivity(3);
  EXPECT_EQ(editor.Coding().about, "the sea");
  editor.ChooseActivity(10);
  editor.TypeAbout("lost");
  editor.ChooseActivity(5);
  EXPECT_EQ(editor.Coding().about, "");
  editor.TypeAbout("two\r\nlines");
  EXPECT_EQ(episodes[1].segments[0].aboutdata, "two lines");
}

TEST_F(EpisodeEditorTest, ADurationIsShownAsTypedUntilItsBoxIsLeft) {
  editor.TypeSegmentDuration("20005");
  EXPECT_EQ(editor.SegmentDuration(), "20005");
  EXPECT_EQ(editor.DurationText(), "1 minute, 10 seconds");
  editor.TypeSegmentDuration("");
  EXPECT_EQ(editor.SegmentDuration(), "");
  editor.LeaveBox();
  EXPECT_EQ(editor.SegmentDuration(), "5");
}

TEST_F(EpisodeEditorTest, AnEpisodeIsOnlySplitWhereItCanBe) {
  const EpisodeList before = episodes;
  editor.SelectEpisode(1);
  editor.cmdSplitEp_Click();  // no segment goes
  editor.SetSelectedSegments({1, 2, 3});
  editor.cmdSplitEp_Click();  // no segment stays
  editor.SetSelectedSegments({2});
  editor.SetSelectedEpisodes({2});
  editor.cmdSplitEp_Click();  // another one is shown
  editor.SetSelectedEpisodes({1});
  desk.prompter.ExpectQuestions(std::nullopt);
  editor.cmdSplitEp_Click();
  desk.prompter.ExpectDivision(std::nullopt);
  editor.cmdSplitSg_Click();
  EXPECT_EQ(desk.prompter.askedDivisions, std::vector{60});
  editor.DropOnEpisode(1);
  editor.DropOnSegment(1);  // it is the shown one
  EXPECT_EQ(episodes, before);
  EXPECT_EQ(editor.UndoName(), "");

  desk.prompter.ExpectQuestions(Positions{6, 2});
  editor.cmdSplitEp_Click();
  EXPECT_EQ(editor.EpisodeRows(), (Rows{"1. Warm-up", "2. Warm-up", "3. Talk", "4. Empty"}));
  EXPECT_EQ(editor.SelectedEpisodes(), Positions{1});
  EXPECT_EQ(episodes[1].questions, (std::vector{before[0].questions[1], before[0].questions[5]}));
}

TEST_F(EpisodeEditorTest, TypingIsUndoneBoxByBox) {
  const EpisodeList first = episodes;
  for (const char* text : {"T", "Ta", "Tal"}) editor.TypeDescription(text);
  editor.TypeSegmentDuration("1");
  editor.TypeSegmentDuration("12");
  editor.LeaveBox();
  editor.TypeSegmentDuration("9");
  editor.GetEpisode(2);
  editor.TypeDescription("Other");
  editor.TypeDescription("Talk");  // as it was
  EXPECT_EQ(editor.UndoName(), "Change duration");
  editor.Undo();
  EXPECT_EQ(editor.CurrentEpisode(), 1);
  EXPECT_EQ(editor.SegmentDuration(), "12");
  editor.Undo();
  EXPECT_EQ(editor.SegmentDuration(), "60");
  EXPECT_EQ(editor.UndoName(), "Edit description");
  EXPECT_EQ(editor.RedoName(), "Change duration");
  editor.Undo();
  EXPECT_EQ(episodes, first);
  EXPECT_EQ(editor.UndoName(), "");
  EXPECT_FALSE(editor.Modified());
  editor.Redo();
  EXPECT_EQ(editor.Description(), "Tal");
  editor.TypeDescription("Tall");  // after a redo it is a step of its own
  EXPECT_EQ(editor.RedoName(), "");
  editor.Undo();
  EXPECT_EQ(editor.Description(), "Tal");
}

TEST_F(EpisodeEditorTest, QuestionsEditedElsewhereAreOneStep) {
  editor.EditQuestions();
  EXPECT_EQ(desk.screens.Take(), (Rows{"show questionEditor for 2", "hide episodeEditor"}));
  episodes[0].questions.pop_back();
  episodes[0].Descript = "Start";
  editor.Activate();
  EXPECT_EQ(editor.ActivityText(), "Procedures && directions: 5 Question(s)");
  EXPECT_EQ(editor.UndoName(), "Edit questions");
  editor.Undo();
  EXPECT_EQ(episodes[0].nQAs(), 6);
  EXPECT_EQ(editor.Description(), "Warm-up");

  editor.Proof();
  EXPECT_EQ(desk.screens.Take(),
            (Rows{"show questionEditor for 2 to proof", "hide episodeEditor"}));
  EXPECT_EQ(desk.program.ProofEp, 1);
}

TEST_F(EpisodeEditorTest, ProofStaysWhereNothingIsMissing) {
  for (questionInfo& question : episodes[0].questions) {
    question.respondName = "Ann";
    question.tResponse = 0;
  }
  desk.prompter.Expect("Everything coded; no invalid codes found", Answer::ok);
  editor.Proof();
  EXPECT_TRUE(desk.screens.Take().empty());
}

TEST_F(EpisodeEditorTest, CutSegmentsArePastedOntoEpisodesAndBeforeSegments) {
  const EpisodeList first = episodes;
  editor.SetSelectedSegments({1, 3});
  editor.Cut();
  EXPECT_TRUE(editor.IsCut(3));
  EXPECT_FALSE(editor.IsCut(2));
  EXPECT_EQ(episodes, first);
  editor.GetEpisode(2);
  EXPECT_FALSE(editor.IsCut(1));
  editor.PasteBeforeSegment(1);
  EXPECT_EQ(editor.SegmentRows(),
            (Rows{"1. Procedures & directions", "2. Student presentation", "3. Discussion"}));
  EXPECT_EQ(editor.SelectedSegments(), Positions{1});
  EXPECT_FALSE(editor.CanPaste());

  editor.SetSelectedSegments({1, 2, 3});
  editor.Cut();
  editor.PasteOntoEpisode(2);  // they are there
  EXPECT_TRUE(editor.CanPaste());
  editor.PasteOntoEpisode(1);
  EXPECT_EQ(editor.EpisodeRows(), (Rows{"1. Warm-up", "2. Empty"}));
  EXPECT_EQ(editor.CurrentEpisode(), 1);
  EXPECT_EQ(editor.CurrentSegment(), 2);
  editor.Cut();
  editor.PasteBeforeSegment(1);
  EXPECT_EQ(editor.SegmentRows()[0], "1. Procedures & directions");
  EXPECT_EQ(editor.UndoName(), "Paste segments");
  for (int i = 0; i < 3; ++i) editor.Undo();
  EXPECT_EQ(episodes, first);
  EXPECT_FALSE(editor.Modified());
}

TEST(EpisodeEditor, WorksWithoutAnyEpisode) {
  test::EditorDesk desk;
  EpisodeEditor& editor = desk.Open(EpisodeList{});
  EXPECT_EQ(editor.TotalText(), "Total: 0 Episode");
  EXPECT_EQ(editor.DurationText(), "0 second");
  EXPECT_FALSE(editor.HasEpisode());
  editor.TypeDescription("x");
  editor.TypeSegmentDuration("5");
  editor.ChooseActivity(3);
  editor.EditQuestions();
  editor.cmdSplitEp_Click();
  editor.cmdMergeEp_Click();
  editor.cmdMergeSg_Click();
  editor.Undo();
  EXPECT_FALSE(editor.Modified());
  EXPECT_TRUE(desk.screens.Take().empty());
}

TEST(DurationInWords, SpellsMinutesAndSeconds) {
  const std::pair<double, const char*> cases[] = {
      {0, "0 second"},
      {1, "1 second"},
      {59, "59 seconds"},
      {60, "1 minute, 0 second"},
      {61, "1 minute, 1 second"},
      {120, "2 minutes, 0 second"},
      {125, "2 minutes, 5 seconds"},
      {6e9, "100000000 minutes, 0 second"},
  };
  for (const auto& [seconds, words] : cases) EXPECT_EQ(DurationInWords(seconds), words);
}

TEST(DivideTime, KeepsWhatIsLeftForTheFirstPart) {
  DivideTime dialog(100);
  EXPECT_EQ(dialog.FirstText() + "/" + dialog.SecondText(), "100/0");
  const std::pair<const char*, const char*> cases[] = {
      {"30", "70/30"}, {"150", "70/30"}, {"", "70/30"},   {"-1", "70/30"},
      {"x", "70/30"},  {"0", "100/0"},   {"100", "0/100"}};
  for (const auto& [typed, shown] : cases) {
    dialog.TypeSecond(typed);
    EXPECT_EQ(dialog.FirstText() + "/" + dialog.SecondText(), shown) << typed;
  }
  dialog.Step(1);
  EXPECT_EQ(dialog.SecondSeconds(), 100);
  dialog.Step(-1);
  EXPECT_EQ(dialog.SecondText(), "99");
}

}  // namespace
}  // namespace orvex
