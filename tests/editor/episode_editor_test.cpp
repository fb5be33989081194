#include "editor/episode_editor.h"

#include <gtest/gtest.h>

#include <string>

#include "editor/editor_desk.h"
#include "model/wording.h"
#include "questions/question_editor.h"

namespace orvex {
namespace {

using test::ClickEpisode;
using test::ClickSegment;
using test::Question;
using test::Segment;
using Rows = std::vector<std::string>;

/// Warm-up (a review of directions, seatwork and presentation, with six questions, three of them
/// students'), Talk (a discussion) and Empty.
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
  const auto shown = [this] {
    const EpisodeView view = editor.View();
    return view.activity + "|" + view.duration + "|" + view.segmentCount + "|" +
           view.segmentDurationLabel + "|" + view.segmentDuration;
  };
  EXPECT_EQ(editor.SegmentRows(), (Rows{"1. Procedures & directions", "2. Supervised/Monitoring",
                                        "3. Student presentation"}));
  EXPECT_EQ(editor.View().spells, "1 dialogic spell(s)");
  const std::string first = "Procedures & directions: 6 Question(s)";
  const std::string times = "|2 minutes, 5 seconds|3 Segments|Duration of segment ";
  EXPECT_EQ(shown(), first + " (Review Session)" + times + "1:|60");
  editor.ShowSegment(2);
  EXPECT_EQ(shown(), first + times + "2:|65");
  editor.ShowEpisode(3);
  EXPECT_EQ(shown(), "|0 second|0 Segment|N/A|N/A");
  EXPECT_FALSE(editor.View().hasQuestions || editor.Modified());
}

TEST_F(EpisodeEditorTest, AnUnknownActivityShowsItsNumberAndStays) {
  EpisodeList odd(1);
  odd[0].segments = {Segment(40, 7)};
  desk.Open(odd);
  EXPECT_EQ(desk.editor->SegmentRows(), (Rows{"1. 40"}));
  EXPECT_EQ(desk.editor->View().activity, "40: 0 Question(s)");
  EXPECT_EQ(desk.editor->Coding().activity, SegmentCodingView::kNoChoice);
  EXPECT_EQ(desk.editor->View().segmentDuration, "7");
  desk.editor->ChooseActivity(SegmentCodingView::kNoChoice);
  EXPECT_EQ(episodes, odd);
  EXPECT_EQ(desk.editor->View().total, "Total: 1 Episode");
}

TEST_F(EpisodeEditorTest, CodesGoStraightIntoTheSegment) {
  ClickSegment(editor, 2);
  EXPECT_EQ(editor.Coding().Chosen(SubCode::seatworkSource), 3);
  EXPECT_EQ(editor.Coding().Chosen(SubCode::writing), SegmentCodingView::kNoChoice);
  editor.Recode(SubCode::seatworkSource, 2);
  editor.Recode(SubCode::seatworkLevel, 1);
  editor.Recode(SubCode::seatworkOrganization, 1);
  editor.Recode(SubCode::writing, 1);
  editor.Recode(SubCode::groupSolo, 0);  // it is hidden, so nothing changes
  SegmentData coded = Segment(15, 65);
  coded.src = 2;
  coded.coglvl = 1;
  coded.org = 1;
  coded.fSubCat = 1;
  coded.grpSolo = 1;
  EXPECT_EQ(episodes[0].segments[1], coded);
  editor.Recode(SubCode::seatworkSource, SegmentCodingView::kNoChoice);
  editor.Recode(SubCode::seatworkOrganization, SegmentCodingView::kNoChoice);
  EXPECT_EQ(editor.Coding().Chosen(SubCode::seatworkSource), SegmentCodingView::kNoChoice);
  EXPECT_EQ(editor.Coding().Chosen(SubCode::seatworkOrganization), 0);

  ClickSegment(editor, 3);
  EXPECT_EQ(editor.Coding().Chosen(SubCode::preparation), SegmentCodingView::kNoChoice);
  editor.Recode(SubCode::groupSolo, 0);
  editor.Recode(SubCode::organization, 1);
  editor.Recode(SubCode::preparation, 1);
  EXPECT_EQ(editor.Coding().Chosen(SubCode::groupSolo), 0);
  EXPECT_EQ(editor.Coding().Chosen(SubCode::organization), 1);
  EXPECT_EQ(episodes[0].segments[2].prep, 1);
}

TEST_F(EpisodeEditorTest, AnAboutTextGoesWithItsActivityButNotByLooking) {
  editor.ShowEpisode(2);
  EXPECT_EQ(editor.Coding().about, "the sea");
  editor.ShowEpisode(1);
  editor.ShowEpisode(2);
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

TEST_F(EpisodeEditorTest, AnEpisodeIsOnlySplitWhereItCanBe) {
  const EpisodeList before = episodes;
  ClickEpisode(editor, 1);
  editor.SplitEpisode();  // no segment would move
  editor.SelectSegments({1, 2, 3});
  editor.SplitEpisode();  // no segment would stay
  editor.SelectSegments({2});
  editor.SelectEpisodes({2});
  editor.SplitEpisode();  // another episode is shown
  editor.SelectEpisodes({1});
  desk.prompter.ExpectQuestions(std::nullopt);
  editor.SplitEpisode();
  desk.prompter.ExpectDivision(std::nullopt);
  editor.SplitSegment();
  EXPECT_EQ(desk.prompter.askedDivisions, std::vector{60});
  editor.MoveSegments(1);
  editor.ReorderSegments(1);  // it is the shown episode itself
  EXPECT_EQ(episodes, before);
  EXPECT_EQ(editor.StepName(Way::undo), "");

  desk.prompter.ExpectQuestions(Positions{6, 2});
  editor.SplitEpisode();
  EXPECT_EQ(editor.EpisodeRows(), (Rows{"1. Warm-up", "2. Warm-up", "3. Talk", "4. Empty"}));
  EXPECT_EQ(editor.Selection().episodes, Positions{1});
  EXPECT_EQ(episodes[1].questions, (std::vector{before[0].questions[1], before[0].questions[5]}));
}

TEST_F(EpisodeEditorTest, TypingIsUndoneBoxByBox) {
  const EpisodeList first = episodes;
  for (const char* text : {"T", "Ta", "Tal"}) editor.TypeDescription(text);
  editor.TypeSegmentDuration("1");
  editor.TypeSegmentDuration("12");
  editor.LeaveBox();
  editor.TypeSegmentDuration("9");
  editor.ShowEpisode(2);
  editor.TypeDescription("Other");
  editor.TypeDescription("Talk");  // the original text
  EXPECT_EQ(editor.StepName(Way::undo), "Change duration");
  editor.TakeStep(Way::undo);
  EXPECT_EQ(editor.CurrentEpisode(), 1);
  EXPECT_EQ(editor.View().segmentDuration, "12");
  editor.TakeStep(Way::undo);
  EXPECT_EQ(editor.View().segmentDuration, "60");
  EXPECT_EQ(editor.StepName(Way::undo), "Edit description");
  EXPECT_EQ(editor.StepName(Way::redo), "Change duration");
  editor.TakeStep(Way::undo);
  EXPECT_EQ(episodes, first);
  EXPECT_EQ(editor.StepName(Way::undo), "");
  EXPECT_FALSE(editor.Modified());
  editor.TakeStep(Way::redo);
  EXPECT_EQ(editor.View().description, "Tal");
  editor.TypeDescription("Tall");  // a separate step after a redo
  EXPECT_EQ(editor.StepName(Way::redo), "");
  editor.TakeStep(Way::undo);
  EXPECT_EQ(editor.View().description, "Tal");
  EXPECT_TRUE(editor.Modified());
  editor.TypeDescription("Warm-up");
  EXPECT_FALSE(editor.Modified()) << "as it was, by another way";
}

TEST_F(EpisodeEditorTest, AStepIsOneBoxOfOneQuestion) {
  for (const int episode : {1, 2})
    episodes[static_cast<std::size_t>(episode)].questions = {Question(1), Question(2)};
  editor.Activate();
  QuestionEditor questions(desk.services, {.caller = EditorCaller::episodeEditor, .episode = 2},
                           nullptr, nullptr);
  questions.KeepStepsWith(editor.Steps());
  const auto shown = [this] {
    return episodes[1].questions[1].question + "|" + episodes[2].questions[1].question;
  };
  questions.TypeQuestion("a");
  questions.ChooseQuestion(1);  // just looking at another question
  questions.ChooseQuestion(2);
  for (const char* text : {"abc", "ab"}) questions.TypeQuestion(text);
  questions.ChooseEpisode(3);  // it has a question with the same number
  questions.TypeQuestion("c");
  questions.LeaveBox();
  questions.TypeQuestion("cd");
  for (const char* before : {"ab|c", "ab|q2", "a|q2", "q2|q2"}) {
    editor.TakeStep(Way::undo);
    EXPECT_EQ(shown(), before);
  }
  EXPECT_EQ(editor.StepName(Way::undo), "Edit questions");
}

TEST_F(EpisodeEditorTest, WhatWouldNotFitIntoTheFileIsRefused) {
  constexpr std::size_t kMany = 20000;
  for (const std::size_t ep : {0U, 1U}) {
    episodes[ep].segments.assign(kMany, Segment(1, 1));
    episodes[ep].questions.assign(kMany, Question(1));
  }
  episodes[2].segments.assign(32767, Segment(1, 1));
  episodes[2].segments[0].duration = episodes[2].segments[1].duration = 3e38F;
  editor.Activate();
  const EpisodeList before = episodes;
  const std::string end = " fit into one episode. Nothing has been changed.";
  const auto refuses = [&](const std::string& message, const auto& edit) {
    desk.prompter.Expect(message, Answer::ok);
    edit();
    EXPECT_TRUE(episodes == before);
  };
  editor.SelectEpisodes({1, 2});
  refuses("No more than 32767 segments" + end, [&] { editor.MergeEpisodes(); });
  ClickEpisode(editor, 3);
  ClickSegment(editor, 1);
  desk.prompter.ExpectDivision(1);
  refuses("No more than 32767 segments" + end, [&] { editor.SplitSegment(); });
  editor.SelectSegments({1, 2});
  refuses("The numbers are too large to be added up. Nothing has been changed.",
          [&] { editor.MergeSegments(); });
  ClickEpisode(editor, 1);
  editor.SelectSegments({1});
  refuses("No more than 32767 segments" + end, [&] { editor.MoveSegments(3); });

  // An episode that loses its last segment is removed, and its questions move along.
  episodes[0].segments.resize(1);
  episodes[1].segments.resize(1);
  editor.Activate();
  ClickEpisode(editor, 1);
  editor.SelectSegments({1});
  desk.prompter.Expect("No more than 32767 questions" + end, Answer::ok);
  editor.MoveSegments(2);
  EXPECT_EQ(episodes.size(), 3U);
}

TEST_F(EpisodeEditorTest, QuestionsEditedElsewhereAreOneStep) {
  editor.EditQuestions();
  EXPECT_EQ(desk.screens.Take(), (Rows{"show questionEditor for 2", "hide episodeEditor"}));
  episodes[0].questions.pop_back();
  episodes[0].Descript = "Start";
  editor.Activate();
  EXPECT_EQ(editor.View().activity, "Procedures & directions: 5 Question(s)");
  EXPECT_EQ(editor.StepName(Way::undo), "Edit questions");
  editor.TakeStep(Way::undo);
  EXPECT_EQ(episodes[0].nQAs(), 6);
  EXPECT_EQ(editor.View().description, "Warm-up");

  editor.Proof();
  EXPECT_EQ(desk.screens.Take(),
            (Rows{"show questionEditor for 2 to proof", "hide episodeEditor"}));
  EXPECT_EQ(desk.program.ProofEp, 1);
}

TEST_F(EpisodeEditorTest, ProofStaysWhereNothingIsMissing) {
  for (questionInfo& question : episodes[0].questions) {
    question.respondName = "Ann";
    question.codes[Dimension::tResponse] = 0;
  }
  desk.prompter.Expect("Everything coded; no invalid codes found", Answer::ok);
  editor.Proof();
  EXPECT_TRUE(desk.screens.Take().empty());
}

TEST_F(EpisodeEditorTest, TheQuestionEditorWorksOnTheSameSteps) {
  using Command = QuestionEditor::Command;
  editor.TypeDescription("Start");
  const EpisodeList before = episodes;
  QuestionEditor questions(desk.services, {.caller = EditorCaller::episodeEditor}, nullptr,
                           nullptr);
  questions.KeepStepsWith(editor.Steps());
  EXPECT_EQ(questions.NextStep(Way::undo), "") << "the description is not seen there";
  questions.ChooseQuestion(2);
  questions.Do(Command::drop);
  questions.ChooseEpisode(2);
  questions.Do(Command::insertAfter);
  questions.TypeQuestion("Wh");
  questions.TypeQuestion("Why?");
  const EpisodeList after = episodes;
  EXPECT_EQ(editor.StepName(Way::undo) + "|" + questions.NextStep(Way::undo),
            "Type question|undoes \"Type question\"");
  for (const char* shown : {"2:Question #1 of 1:", "2:Question #0 of 0:", "1:Question #2 of 6:"}) {
    questions.TakeStep(Way::undo);
    EXPECT_EQ(std::to_string(questions.SelEp()) + ":" + questions.View().caption, shown);
  }
  questions.TakeStep(Way::undo);
  EXPECT_EQ(episodes, before);
  EXPECT_EQ(editor.StepName(Way::redo), "Drop question");
  questions.TakeStep(Way::redo);
  editor.TakeStep(Way::redo);
  questions.TakeStep(Way::redo);
  EXPECT_EQ(episodes, after);
  EXPECT_EQ(questions.View().caption + questions.View().question, "Question #1 of 1:Why?");
  for (int i = 0; i < 4; ++i) editor.TakeStep(Way::undo);
  EXPECT_EQ(editor.View().description + editor.StepName(Way::undo), "Warm-up");
}

TEST(EpisodeEditor, WorksWithoutAnyEpisode) {
  test::EditorDesk desk;
  EpisodeEditor& editor = desk.Open(EpisodeList{});
  EXPECT_EQ(editor.View().total, "Total: 0 Episode");
  EXPECT_EQ(editor.View().duration, "0 second");
  EXPECT_FALSE(editor.View().hasEpisode);
  editor.TypeDescription("x");
  editor.TypeSegmentDuration("5");
  editor.ChooseActivity(3);
  editor.EditQuestions();
  editor.SplitEpisode();
  editor.MergeEpisodes();
  editor.MergeSegments();
  editor.TakeStep(Way::undo);
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

}  // namespace
}  // namespace orvex
