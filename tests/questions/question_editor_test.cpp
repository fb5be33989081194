#include "questions/question_editor.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "support/desk.h"

namespace orvex::test {
namespace {

using Command = QuestionEditor::Command;
using Control = QuestionEditor::Control;

constexpr EditorOpening kFromEpisodeEditor = {.caller = EditorCaller::episodeEditor};
const std::string kEverythingCoded = "Everything coded; no invalid codes found";

const questionInfo kTeacher = {"Why?", 0, 0, 0, 0, 0, "Ben", 1, -1, 1, 1, 1};
const questionInfo kStudent = {"How?", 1, 0, 1, 2, 1, "Ana", -1, 2, 0, 1, 2};

Episode EpisodeOf(const std::string& description, std::vector<questionInfo> questions) {
  Episode episode;
  episode.Descript = description;
  episode.questions = std::move(questions);
  return episode;
}

struct EditorTest : testing::Test, Desk {
  EditorTest() { OpenLog(); }

  void Open(const EditorOpening& opening, bool duringClass = false) {
    editor.emplace(services, opening, duringClass ? &live : nullptr,
                   duringClass ? &clocks : nullptr);
  }
  /// Opens on an episode of `count` questions, "Q1" in segment 1 and so on, with question `shown`
  /// shown.
  void OpenOn(int count, int shown) {
    program.Episodes.assign(1, {});
    for (int i = 1; i <= count; ++i) {
      questionInfo question;
      question.question = "Q" + std::to_string(i);
      question.iSgQ = static_cast<std::int16_t>(i);
      Questions().push_back(question);
    }
    Open(kFromEpisodeEditor);
    editor->ClickRow(shown);
  }
  /// Opens on these questions, with the last one shown.
  void OpenOn(const std::vector<questionInfo>& questions) {
    program.Episodes = {EpisodeOf("", questions)};
    Open(kFromEpisodeEditor);
  }

  std::vector<questionInfo>& Questions(std::size_t episode = 0) {
    return program.Episodes.at(episode).questions;
  }
  std::string Rows() const {
    std::string rows;
    for (int i = 1; i <= editor->QuestionCount(); ++i) rows += editor->RowText(i) + "|";
    return rows;
  }
  std::string Segments() {
    std::string segments;
    for (const questionInfo& question : Questions()) segments += std::to_string(question.iSgQ);
    return segments;
  }
  /// The numbers of the dimensions whose frames are shown, and the heading.
  std::string Shown() const {
    std::string shown;
    for (int i = 0; i < kDimensionCount; ++i) {
      if (editor->FrameVisible(static_cast<Dimension>(i))) shown += static_cast<char>('1' + i);
    }
    return editor->HeadingVisible() ? shown + " " + std::string(editor->Heading()) : shown;
  }
  /// The options selected, "-" for none: "0110--210".
  std::string Selected() const {
    std::string selected;
    for (int i = 0; i < kDimensionCount; ++i) {
      const int option = editor->SelectedOption(static_cast<Dimension>(i));
      selected += option < 0 ? "-" : std::to_string(option);
    }
    return selected;
  }
  std::optional<Control> Focus() {
    const auto wish = editor->TakeFocus();
    return wish ? std::optional(wish->control) : std::nullopt;
  }

  LiveObservation live{services};
  SessionClocks clocks{services, live};
  std::optional<QuestionEditor> editor;
};

TEST_F(EditorTest, BeginsWhereItsCallerSays) {
  struct Case {
    EditorCaller caller;
    bool proofMode;
    int episode;
    int proofEp;
    int proofQ;
    int shownEpisode;
    std::string caption;
  };
  using enum EditorCaller;
  const Case cases[] = {
      {liveObservation, false, 1, 0, 0, 3, "Question #1 of 1:"},
      {questionEntry, false, 1, 1, 1, 3, "Question #1 of 1:"},
      {questionEntry, true, 1, 1, 2, 1, "Question #2 of 4:"},
      {episodeEditor, false, 1, 3, 1, 1, "Question #4 of 4:"},
      {episodeEditor, true, 3, 1, 9, 1, "Question #4 of 4:"},
      {episodeEditor, true, 3, 0, 0, 1, "Question #1 of 4:"},
      {statistics, false, 2, 1, 1, 2, "Question #0 of 0:"},
      {statistics, false, 9, 1, 1, 3, "Question #1 of 1:"},
  };
  program.Episodes = {
      EpisodeOf("", std::vector(4, kTeacher)), {}, EpisodeOf("", std::vector(1, kStudent))};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.caption);
    const bool duringClass = c.caller <= questionEntry;
    program.ProofEp = c.proofEp;
    program.ProofQ = c.proofQ;
    Open({.caller = c.caller, .proofMode = c.proofMode, .episode = c.episode}, duringClass);
    EXPECT_EQ(editor->SelEp(), c.shownEpisode);
    EXPECT_EQ(editor->QuestionCaption(), c.caption);
    EXPECT_EQ(editor->Title(),
              duringClass ? "Question Editor -- Class ID  7-12-3" : "Question Editor");
    EXPECT_EQ(editor->Enabled(Command::cmdNxt), c.proofMode);
  }
  program.Episodes.clear();
  Open(kFromEpisodeEditor);
  editor->Click(Command::cmdInsA);
  editor->TypeDescription("none");
  EXPECT_EQ(editor->QuestionCaption(), "Question #0 of 0:") << "a file may hold no episode at all";
}

TEST_F(EditorTest, KeepsTheListAndItsNumbers) {
  struct Case {
    int count;
    int shown;
    std::string
        keys;  ///< b and a insert, d drops, r numbers, t types "Why", "1" to "9" click a row
    std::string rows;
    std::string segments;
    std::string caption;
    bool reseq;
  };
  const Case cases[] = {
      {5, 3, "b", "1. Q1|2. Q2|#. |3. Q3|4. Q4|5. Q5|", "123345", "Question #3:", true},
      {5, 3, "br", "1. Q1|2. Q2|3. |4. Q3|5. Q4|6. Q5|", "123345", "Question #3:", true},
      {5, 3, "br1", "1. Q1|2. Q2|3. |4. Q3|5. Q4|6. Q5|", "123345", "Question #1 of 6:", false},
      {3, 1, "at", "1. Q1|#. Why|2. Q2|3. Q3|", "1123", "Question #2:", true},
      {3, 3, "aar2t", "1. Q1|2. Why|3. Q3|4. |5. |", "12333", "Question #2 of 5:", false},
      {0, 0, "b", "#. |", "1", "Question #1:", true},
      {0, 0, "a", "#. |", "1", "Question #1:", true},
      {5, 5, "d", "1. Q1|2. Q2|3. Q3|4. Q4|", "1234", "Question #4 of 4:", false},
      {5, 2, "d", "1. Q1|3. Q3|4. Q4|5. Q5|", "1345", "Question #2 of 4:", false},
      {5, 2, "d2", "1. Q1|3. Q3|4. Q4|5. Q5|", "1345", "Question #2 of 4:", true},
      {5, 2, "dd1t", "1. Why|4. Q4|5. Q5|", "145", "Question #1 of 3:", true},
      {1, 1, "d", "", "", "Question #0 of 0:", false},
      {1, 1, "dddt", "", "", "Question #0 of 0:", false},
      {1, 1, "dat", "#. Why|", "1", "Question #1:", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.count) + c.keys);
    OpenOn(c.count, c.shown);
    for (const char key : c.keys) {
      Focus();
      if (key == 'b') editor->Click(Command::cmdInsB);
      if (key == 'a') editor->Click(Command::cmdInsA);
      if (key == 'd') editor->Click(Command::cmdDrop);
      if (key == 'r') editor->Click(Command::cmdReseq);
      if (key == 't') editor->TypeQuestion("Why");
      if (key >= '1' && key <= '9') editor->ClickRow(key - '0');
      if (key == 'a' || key == 'b') {
        EXPECT_EQ(Focus(), Control::txtQuestion);
        EXPECT_EQ(editor->Question() + Selected(), "---------");
      }
    }
    EXPECT_EQ(Rows(), c.rows);
    EXPECT_EQ(Segments(), c.segments);
    EXPECT_EQ(editor->QuestionCaption(), c.caption);
    EXPECT_EQ(editor->Enabled(Command::cmdReseq), c.reseq);
    EXPECT_EQ(editor->CanEdit(), !c.rows.empty());
    EXPECT_EQ(editor->Enabled(Command::cmdDitto), editor->CurQ() >= 2);
  }
}

TEST_F(EditorTest, ShowsThirtyCharactersOfWhatIsTypedOnOneLine) {
  OpenOn(12, 12);
  const std::pair<std::string, std::string> cases[] = {
      {"Why", "12. Why"},
      {"What did the author mean by it?", "12. What did the author mean by it"},
      {"\xC3\xA9t\xC3\xA9 \xE2\x82\xAC 7890123456789012345678901",
       "12. \xC3\xA9t\xC3\xA9 \xE2\x82\xAC 789012345678901234567890"},
      {"1. e.g.\r\ntwo", "12. 1. e.g. two"},
      {"", "12. "}};
  for (const auto& [typed, row] : cases) {
    editor->TypeQuestion(typed);
    EXPECT_EQ(editor->RowText(12), row);
  }
  editor->TypeRespondName("Ben\nor Anna");
  EXPECT_EQ(Questions().back().respondName, "Ben or Anna");
}

TEST_F(EditorTest, ShowsTheFramesThatSourceAndResponseAskFor) {
  struct Case {
    std::int16_t source;
    std::int16_t response;
    std::string shown;
    std::string nameCaption;
    std::string selected;
  };
  const std::string teacher = "12345679 TEACHER EVAL./FOLLOWUP";
  const std::string student = "12345689 TEACHER RESPONSE";
  const Case cases[] = {
      {-1, -1, "12", "Who asks question?", "--"},
      {0, -1, "12", "Who answers question?", "0-"},
      {-1, 0, "12", "Who asks question?", "-0"},
      {0, 0, teacher, "Who answers question?", "00"},
      {0, 1, "12", "Who answers question?", "01"},
      {1, 0, student, "Who asks question?", "10"},
      {1, 1, "126", "Who asks question?", "11"},
      {1, -1, "126", "Who asks question?", "1-"},
      // Files may hold other codes: they count as the second letter, and no option stands for them.
      {5, 0, student, "Who asks question?", "-0"},
      {0, 7, "12", "Who answers question?", "0-"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.selected);
    OpenOn({{.question = "Q",
             .Source = c.source,
             .Response = c.response,
             .uptake = 9,
             .respondName = {},
             .elaborated = -7}});
    EXPECT_EQ(Shown(), c.shown);
    EXPECT_EQ(editor->FrameCaption(Dimension::respondName), c.nameCaption);
    EXPECT_EQ(Selected(), c.selected + "-------");
    EXPECT_EQ(editor->TakeNameSelection(), c.shown.find('6') != std::string::npos && c.source != 0);
  }
  OpenOn({kTeacher});
  EXPECT_TRUE(editor->NormalVisible());
  EXPECT_FALSE(editor->Enabled(Command::cmdNormal));
  editor->ClickOption(Dimension::response, 1);
  EXPECT_EQ(Shown(), "12");
  EXPECT_FALSE(editor->NormalVisible());
  EXPECT_TRUE(editor->Enabled(Command::cmdNormal));
  editor->ClickOption(Dimension::response, 0);
  EXPECT_EQ(Shown(), teacher);
  EXPECT_EQ(Selected(), "00000-1-1") << "with the codes they held";
  EXPECT_EQ(Questions().back(), kTeacher);
}

TEST_F(EditorTest, TakesASegmentNumberForWhatItIs) {
  const std::tuple<const char*, int, const char*> typed[] = {
      {"7", 7, "7"},    {"", 0, "0"},     {"abc", 0, "0"}, {"12x", 0, "0"},
      {" 3 ", 3, "3"},  {"-2", -2, "-2"}, {"2.5", 2, "2"}, {"32767", 32767, "32767"},
      {"32768", 0, "0"}};
  OpenOn({kTeacher});
  for (const auto& [text, number, left] : typed) {
    editor->TypeSegment(text);
    EXPECT_EQ(Questions().back().iSgQ, number) << text;
    EXPECT_EQ(editor->SegmentText(), text) << "nothing changes under the typing hand";
    editor->LeaveSegment();
    EXPECT_EQ(editor->SegmentText(), left);
  }
  const std::tuple<const char*, int, const char*> steps[] = {
      {"4", 1, "5"},          {"4", -1, "3"},  {"0", -1, "0"},        {"4", 10, "14"},
      {"32766", 10, "32767"}, {"4", -10, "0"}, {"32767", 1, "32767"}, {"abc", 1, "1"}};
  for (const auto& [text, by, shown] : steps) {
    editor->TypeSegment(text);
    editor->StepSegment(by);
    editor->LeaveSegment();
    EXPECT_EQ(editor->SegmentText(), shown) << text << " and " << by;
  }
  editor->Click(Command::cmdDrop);
  editor->TypeSegment("3");
  EXPECT_EQ(editor->SegmentText(), "");
}

TEST_F(EditorTest, DittoCopiesWhatTheAnswerSays) {
  questionInfo codesOnly = kStudent;
  codesOnly.question = kTeacher.question;
  codesOnly.iSgQ = 1;
  questionInfo everything = kStudent;
  everything.iSgQ = 1;
  const std::pair<Answer, questionInfo> answers[] = {
      {Answer::yes, codesOnly}, {Answer::no, everything}, {Answer::cancel, kTeacher}};
  for (const auto& [answer, expected] : answers) {
    OpenOn({kStudent, kTeacher});
    Focus();
    prompter.Expect("Duplicate coding only?", answer);
    editor->Click(Command::cmdDitto);
    EXPECT_EQ(prompter.asked.back().title, "Ditto");
    EXPECT_EQ(prompter.asked.back().buttons, Buttons::yesNoCancel);
    EXPECT_EQ(Questions()[1], expected);
    EXPECT_EQ(Questions()[0], kStudent);
    EXPECT_EQ(Rows(), "1. How?|2. " + expected.question + "|");
    EXPECT_EQ(Focus(), Control::txtQuestion);
  }
}

TEST_F(EditorTest, NormalSetsTheCodesAndLeavesTheRest) {
  OpenOn({kStudent});
  editor->Click(Command::cmdNormal);
  questionInfo normal = kTeacher;
  normal.question = "How?";
  normal.respondName = "Ana";
  normal.iSgQ = 2;
  EXPECT_EQ(Questions().back(), normal);
  EXPECT_EQ(Focus(), Control::txtRespondName);
  EXPECT_FALSE(editor->Enabled(Command::cmdNormal));
}

TEST_F(EditorTest, AFullEpisodeTakesNoMoreQuestions) {
  OpenOn(32767, 5);
  for (const Command insert : {Command::cmdInsA, Command::cmdInsB}) {
    prompter.Expect("An episode holds at most 32767 questions. Start a new episode.", Answer::ok);
    editor->Click(insert);
    EXPECT_EQ(editor->QuestionCaption(), "Question #5 of 32767:");
  }
}

TEST_F(EditorTest, ChoosingAnEpisodeLoadsIt) {
  program.Episodes = {EpisodeOf("Macbeth", std::vector(2, kTeacher)),
                      EpisodeOf("Lear", std::vector(3, kStudent))};
  Open(kFromEpisodeEditor);
  editor->Click(Command::cmdInsB);
  editor->ChooseEpisode(1);
  EXPECT_EQ(Rows(), "1. Why?|2. |3. Why?|");
  EXPECT_EQ(editor->QuestionCaption(), "Question #3 of 3:");
  editor->ChooseEpisode(2);
  EXPECT_EQ(editor->Description() + Rows(), "Lear1. How?|2. How?|3. How?|");
  EXPECT_EQ(editor->SegmentText(), "2");
}

TEST_F(EditorTest, LogsTheDescriptionOnlyDuringAClass) {
  for (const bool duringClass : {true, false}) {
    program.Episodes = {EpisodeOf("Macbeth", {})};
    Open(duringClass ? EditorOpening{} : kFromEpisodeEditor, duringClass);
    NewLogText();
    editor->EnterDescription();
    editor->TypeDescription("Macbeth");
    editor->LeaveDescription();
    EXPECT_EQ(NewLogText(), "");
    editor->TypeDescription("Macbeth\r\nand Lear");
    editor->LeaveDescription();
    editor->LeaveDescription();
    EXPECT_EQ(NewLogText(),
              duringClass ? "REVISED EP.Description: Macbeth and Lear 09:00:00\n" : "");
    EXPECT_EQ(program.Episodes[0].Descript, "Macbeth and Lear");
  }
}

TEST_F(EditorTest, GoesBackToItsCaller) {
  using enum EditorCaller;
  const std::string close = "close questionEditor";
  const std::pair<EditorCaller, std::vector<std::string>> callers[] = {
      {liveObservation, {"show liveObservation", close}},
      {questionEntry, {"show questionEntry", close}},
      {episodeEditor, {close}},
      {statistics, {close}}};
  for (const auto& [caller, moves] : callers) {
    Open({.caller = caller}, caller <= questionEntry);
    screens.Take();
    editor->Click(Command::cmdReturn);
    EXPECT_EQ(screens.Take(), moves);
  }
}

TEST_F(EditorTest, TakesFieldNotesAndEstimatesForTheClass) {
  Open({}, true);
  prompter.ExpectNotes("Quiet today");
  editor->Click(Command::Command1);
  EXPECT_EQ(live.FieldNotes(), "Quiet today");
  editor->ClockTick();
  EXPECT_FALSE(editor->Offtask()->ButtonVisible());
  live.KeyInDescription();
  live.TypeDescription("Macbeth");
  live.ChooseActivity(kQuestionAnswer);
  while (live.Schedule().OfftaskPending() == 0) {
    ASSERT_LT(clock.SecondsSinceMidnight(), 12 * 3600) << "no estimate falls due";
    clock.Advance(0.5);
    live.OfftaskTick();
  }
  editor->ClockTick();
  EXPECT_TRUE(editor->Offtask()->ButtonVisible());
  prompter.ExpectEstimate({.offtask = "5", .students = "25"});
  editor->Offtask()->cmdOfftaskActive_Click();
  EXPECT_FALSE(editor->Offtask()->ButtonVisible());
  EXPECT_EQ(live.Schedule().OfftaskPending(), 0);
}

}  // namespace
}  // namespace orvex::test
