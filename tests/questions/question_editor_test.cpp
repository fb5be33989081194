#include "questions/question_editor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "support/asked.h"
#include "support/desk.h"

namespace orvex::test {
namespace {

using Command = QuestionEditor::Command;
using Control = QuestionEditor::Control;

const questionInfo kTeacher = Asked("Why?", {"T", "Y", "N", "N", "R", "Ben", "N", "", "U"});
const questionInfo kStudent = Asked("How?", {"S", "Y", "A", "A", "H", "Ana", "", "O", "E"}, 1, 2);

struct EditorTest : testing::Test, Desk {
  EditorTest() { OpenLog(); }

  void Open(const QuestionEditorStart& start, bool duringClass = false) {
    editor.emplace(services, start, duringClass ? &live : nullptr, duringClass ? &clocks : nullptr);
  }
  /// Opens the editor on an episode with these questions, showing the last one.
  void OpenOn(const std::vector<questionInfo>& questions) {
    program.Episodes.assign(1, {});
    Questions() = questions;
    Open({.caller = EditorCaller::episodeEditor});
  }
  /// Opens the editor on `count` questions: "Q1" in segment 1, and so on.
  void OpenOnNumbered(int count) {
    std::vector<questionInfo> questions;
    for (int i = 1; i <= count; ++i) {
      questions.push_back(Asked("Q" + std::to_string(i), {}, 1, static_cast<std::int16_t>(i)));
    }
    OpenOn(questions);
  }

  std::vector<questionInfo>& Questions() { return program.Episodes.at(0).questions; }
  /// The numbers of the frames shown, "_" for a blank caption, then the heading.
  std::string Shown() const {
    std::string shown;
    char number = '1';
    for (const Dimension dimension : kDimensions) {
      const std::string caption(editor->Frame(dimension).caption);
      const bool blank = caption.find_first_not_of(' ') == std::string::npos;
      if (editor->Frame(dimension).visible) shown += blank ? '_' : number;
      ++number;
    }
    return editor->View().hasHeading ? shown + " " + std::string(editor->View().heading) : shown;
  }
  /// The position of the option selected in each frame, "-" for none: "0110--210".
  std::string Selected() const {
    std::string selected;
    for (const Dimension dimension : kDimensions) {
      const int option = editor->Frame(dimension).option;
      selected += option < 0 ? "-" : std::to_string(option);
    }
    return selected;
  }

  LiveObservation live{services};
  SessionClocks clocks{services, live};
  std::optional<QuestionEditor> editor;
};

TEST_F(EditorTest, BeginsWhereItsCallerSaysAndGoesBackToIt) {
  using enum EditorCaller;
  const std::tuple<QuestionEditorStart, int, int, int, std::string, std::string> cases[] = {
      {{liveObservation, false, 1}, 0, 0, 3, "Question #1 of 1:", "show liveObservation"},
      {{questionEntry, true, 1}, 1, 2, 1, "Question #2 of 4:", "show questionEntry"},
      {{episodeEditor, false, 1}, 3, 1, 1, "Question #4 of 4:", "show episodeEditor"},
      {{episodeEditor, true, 3}, 1, 9, 1, "Question #4 of 4:", "show episodeEditor"},
      {{episodeEditor, true, 3}, 0, 0, 1, "Question #1 of 4:", "show episodeEditor"},
      {{statistics, false, 2}, 1, 1, 2, "Question #0 of 0:", "show questionStats"},
      {{statistics, false, 9}, 1, 1, 3, "Question #1 of 1:", "show questionStats"},
  };
  program.Episodes.resize(3);
  program.Episodes[0].questions.assign(4, kTeacher);
  program.Episodes[2].questions.assign(1, kStudent);
  for (const auto& [start, proofEp, proofQ, shownEpisode, caption, firstMove] : cases) {
    SCOPED_TRACE(caption);
    const bool duringClass = start.caller <= questionEntry;
    program.ProofEp = proofEp;
    program.ProofQ = proofQ;
    Open(start, duringClass);
    EXPECT_EQ(editor->SelEp(), shownEpisode);
    EXPECT_EQ(editor->View().caption, caption);
    EXPECT_EQ(editor->Title(),
              duringClass ? "Question Editor -- Class ID  7-12-3" : "Question Editor");
    editor->Do(Command::leave);
    EXPECT_EQ(screens.moves.front(), firstMove);
    EXPECT_EQ(screens.Take().back(), "close questionEditor");
  }
  program.Episodes.clear();
  Open({.caller = episodeEditor});
  editor->Do(Command::insertAfter);
  editor->TypeDescription("none");
  EXPECT_EQ(editor->View().caption, "Question #0 of 0:") << "a file may hold no episode at all";
}

TEST_F(EditorTest, KeepsTheListAndItsNumbers) {
  // Among the keys, b and a insert, d drops, r numbers, t types a text, and a digit chooses a row.
  using Text = std::string;
  const Text typed = "\xC3\xA9t\xC3\xA9\r\n\xE2\x82\xAC 7890123456789012345678901";
  const Text thirty = "\xC3\xA9t\xC3\xA9 \xE2\x82\xAC 789012345678901234567890";
  const std::tuple<int, Text, Text, Text, Text, bool> cases[] = {
      {5, "3b", "1. Q1|2. Q2|#. |3. Q3|4. Q4|5. Q5|", "123345", "Question #3:", true},
      {5, "3br", "1. Q1|2. Q2|3. |4. Q3|5. Q4|6. Q5|", "123345", "Question #3:", true},
      {5, "3br1", "1. Q1|2. Q2|3. |4. Q3|5. Q4|6. Q5|", "123345", "Question #1 of 6:", false},
      {3, "aar2t", "1. Q1|2. " + thirty + "|3. Q3|4. |5. |", "12333", "Question #2 of 5:", false},
      {0, "b", "#. |", "1", "Question #1:", true},
      {0, "a", "#. |", "1", "Question #1:", true},
      {5, "d", "1. Q1|2. Q2|3. Q3|4. Q4|", "1234", "Question #4 of 4:", false},
      {5, "2d2", "1. Q1|3. Q3|4. Q4|5. Q5|", "1345", "Question #2 of 4:", true},
      {5, "2dt", "1. Q1|3. " + thirty + "|4. Q4|5. Q5|", "1345", "Question #2 of 4:", false},
      {1, "dddt", "", "", "Question #0 of 0:", false},
      {3, "ddd1at", "#. " + thirty + "|", "1", "Question #1:", true},
  };
  const std::map<char, Command> commands = {{'b', Command::insertBefore},
                                            {'a', Command::insertAfter},
                                            {'d', Command::drop},
                                            {'r', Command::renumber}};
  for (const auto& [count, keys, rows, segments, caption, reseq] : cases) {
    SCOPED_TRACE(std::to_string(count) + keys);
    OpenOnNumbered(count);
    for (const char key : keys) {
      editor->TakeFocus();
      if (commands.contains(key)) editor->Do(commands.at(key));
      if (key == 't') editor->TypeQuestion(typed);
      if (key >= '1' && key <= '9') editor->ChooseQuestion(key - '0');
      if (key != 'a' && key != 'b') continue;
      EXPECT_EQ(editor->TakeFocus().value().control, Control::question);
      EXPECT_EQ(editor->View().question + Selected(), "---------");
    }
    std::string shownRows;
    std::string shownSegments;
    for (int i = 1; i <= editor->QuestionCount(); ++i) shownRows += editor->RowText(i) + "|";
    for (const auto& question : Questions()) shownSegments += std::to_string(question.iSgQ);
    EXPECT_EQ(shownRows, rows);
    EXPECT_EQ(shownSegments, segments);
    EXPECT_EQ(editor->View().caption, caption);
    EXPECT_EQ(editor->Enabled(Command::renumber), reseq);
    EXPECT_EQ(editor->Enabled(Command::ditto), editor->CurQ() >= 2);
  }
  OpenOnNumbered(32767);
  prompter.Expect("An episode holds at most 32767 questions. Start a new episode.", Answer::ok);
  editor->Do(Command::insertAfter);
  EXPECT_EQ(editor->View().caption, "Question #32767 of 32767:");
}

TEST_F(EditorTest, ShowsTheFramesThatSourceAndResponseAskFor) {
  const std::string teacher = "12345679 TEACHER EVAL./FOLLOWUP";
  const std::string student = "12345689 TEACHER RESPONSE";
  // Other codes, as files may hold them, count as the second letter and select no option.
  const std::tuple<std::int16_t, std::int16_t, std::string, std::string> cases[] = {
      {-1, 0, "12", "-0"},  {0, -1, "12", "0-"},   {0, 0, teacher, "00"},
      {0, 1, "12", "01"},   {1, 0, student, "10"}, {1, 1, "126", "11"},
      {1, -1, "126", "1-"}, {5, 0, student, "-0"}, {0, 7, "12", "0-"}};
  for (const auto& [source, response, shown, selected] : cases) {
    SCOPED_TRACE(selected);
    questionInfo question;
    question.codes[Dimension::source] = source;
    question.codes[Dimension::response] = response;
    question.codes[Dimension::uptake] = 9;
    question.codes[Dimension::elaborated] = -7;
    OpenOn({question});
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(editor->Frame(Dimension::respondName).caption,
              source == 0 ? "Who answers question?" : "Who asks question?");
    EXPECT_EQ(Selected(), selected + "-------");
    EXPECT_EQ(editor->TakeNameSelection(), source > 0);
  }
  OpenOn({kTeacher});
  for (const bool answered : {false, true}) {
    editor->ChooseOption(Dimension::response, answered ? 0 : 1);
    EXPECT_EQ(Shown(), answered ? teacher : "12");
    EXPECT_EQ(editor->View().isNormal, answered);
    EXPECT_EQ(editor->Enabled(Command::makeNormal), !answered);
  }
  EXPECT_EQ(Selected(), "00000-1-1") << "with the codes they held";
  EXPECT_EQ(Questions().back(), kTeacher);
}

TEST_F(EditorTest, TakesASegmentNumberForWhatItIs) {
  const std::tuple<const char*, int, const char*> cases[] = {
      {" 3 ", 0, "3"}, {"", 0, "0"},          {"12x", 0, "0"},   {"-2", 0, "-2"},
      {"2.5", 0, "2"}, {"32767", 0, "32767"}, {"32768", 0, "0"}, {"4", 1, "5"},
      {"4", -10, "0"}, {"32766", 9, "32767"}, {"0", -1, "0"},    {"abc", 1, "1"}};
  OpenOn({kTeacher});
  for (const auto& [typed, steps, left] : cases) {
    editor->TypeSegment(typed);
    EXPECT_EQ(editor->View().segment, typed) << "nothing changes under the typing hand";
    if (steps != 0) editor->StepSegment(steps);
    editor->LeaveSegment();
    EXPECT_EQ(editor->View().segment, left) << typed;
    EXPECT_EQ(std::to_string(Questions().back().iSgQ), left);
  }
}

TEST_F(EditorTest, DittoCopiesWhatTheAnswerSays) {
  questionInfo everything = kStudent;
  everything.iSgQ = 1;
  questionInfo codesOnly = everything;
  codesOnly.question = kTeacher.question;
  const std::pair<Answer, questionInfo> answers[] = {
      {Answer::yes, codesOnly}, {Answer::no, everything}, {Answer::cancel, kTeacher}};
  for (const auto& [answer, expected] : answers) {
    OpenOn({kStudent, kTeacher});
    editor->TakeFocus();
    prompter.Expect("Duplicate coding only?", answer);
    editor->Do(Command::ditto);
    EXPECT_EQ(prompter.asked.back().buttons, Buttons::yesNoCancel);
    EXPECT_EQ(Questions(), (std::vector{kStudent, expected}));
    EXPECT_EQ(editor->TakeFocus().value().control, Control::question);
  }
}

TEST_F(EditorTest, NormalLeadsOnToTheName) {
  OpenOn({kStudent});
  editor->Do(Command::makeNormal);
  EXPECT_EQ(Questions().back().question + Selected(), "How?00000-1-1");
  EXPECT_EQ(editor->TakeFocus().value().control, Control::respondName);
  EXPECT_FALSE(editor->Enabled(Command::makeNormal));
}

TEST_F(EditorTest, LogsTheDescriptionOnlyDuringAClass) {
  for (const bool duringClass : {true, false}) {
    program.Episodes.assign(1, {});
    Open({.caller = EditorCaller::statistics}, duringClass);
    NewLogText();
    editor->EnterDescription();
    for (const char* typed : {"", "Macbeth\r\nand Lear", "Macbeth and Lear"}) {
      editor->TypeDescription(typed);
      editor->LeaveDescription();
    }
    EXPECT_EQ(NewLogText(),
              duringClass ? "REVISED EP.Description: Macbeth and Lear 09:00:00\n" : "");
  }
}

TEST_F(EditorTest, StepsLeadBackAndForthThroughEveryEpisodeOfAClass) {
  live.ChooseActivity(1);
  live.StartEpisode();
  Questions() = {kTeacher, kStudent, kTeacher};
  const EpisodeList before = program.Episodes;
  Open({.caller = EditorCaller::questionEntry}, true);
  const auto rows = [this] {
    std::string shown = std::to_string(editor->SelEp()) + ":" + std::to_string(editor->CurQ());
    for (int i = 1; i <= editor->QuestionCount(); ++i) shown += " " + editor->RowText(i);
    return shown;
  };
  // Each change, and a record of what was shown after it.
  const std::function<void()> changes[] = {
      [&] { editor->Do(Command::insertAfter); },
      [&] { editor->TypeQuestion("Who?"); },
      [&] { editor->ChooseOption(Dimension::source, 1); },
      [&] { editor->ChooseEpisode(1), editor->ChooseQuestion(1), editor->Do(Command::drop); },
      [&] { editor->Do(Command::drop); },
      [&] { editor->Do(Command::renumber); },
      [&] { editor->Do(Command::insertBefore); },
      [&] { editor->TypeQuestion("Wh"), editor->TypeQuestion("Why"); },
      [&] { editor->Do(Command::makeNormal); },
      [&] { editor->ChooseQuestion(2), editor->Do(Command::ditto); },
  };
  prompter.Expect("Duplicate coding only?", Answer::no);
  std::vector<std::string> shown;
  for (const auto& change : changes) {
    change();
    shown.push_back(rows());
  }
  const EpisodeList after = program.Episodes;
  NewLogText();
  for (std::size_t i = shown.size(); i-- > 3;) {
    editor->TakeStep(Way::undo);
    EXPECT_EQ(rows().substr(3), i == 3 ? " 1. Why? 2. How? 3. Why?" : shown[i - 1].substr(3)) << i;
  }
  EXPECT_EQ(NewLogText(),
            "***** RESTORED QUESTION 2 OF EP. 1 ***** 09:00:00\n"
            "***** RESTORED QUESTION 1 OF EP. 1 ***** 09:00:00\n"
            "***** DROPPED QUESTION 1 OF EP. 1 ***** 09:00:00\n"
            "***** RESTORED QUESTION 1 OF EP. 1 ***** 09:00:00\n"
            "***** RESTORED QUESTION 1 OF EP. 1 ***** 09:00:00\n");
  EXPECT_EQ(editor->NextStep(Way::undo), "changes question 1 back");
  for (int i = 0; i < 9; ++i) editor->TakeStep(Way::undo);
  EXPECT_EQ(program.Episodes, before);
  EXPECT_EQ(rows(), "2:0");
  for (int i = 0; i < 19; ++i) editor->TakeStep(Way::redo);
  EXPECT_EQ(program.Episodes, after);
  EXPECT_EQ(editor->Enabled(Command::renumber), true);
  editor->Do(Command::leave);
  for (int i = 0; i < 9; ++i) editor->TakeStep(Way::undo);
  EXPECT_EQ(rows(), "2:0");
  EXPECT_EQ(Questions().size(), 3U) << "what came and went can still come and go";
}

TEST_F(EditorTest, ProofWalksThroughEveryGapAndMakesItBlink) {
  const questionInfo kinds[] = {
      Asked("Why?", {"T", "Y", "N", "A", "H", "Ben", "Y", "", "E"}),
      Asked("How?", {"S", "Y", "A", "T", "R", "Ana", "", "O", "U"}),
      Asked("Who?", {"T", "N"}),
      Asked("May I?", {"S", "N", "", "", "", "Ana"}),
  };
  struct Gap {
    int episode;
    int question;
    std::optional<Dimension> missing;  ///< none for the text
    std::string text;                  ///< that is missing
  };
  std::vector<Gap> gaps;
  program.Episodes.resize(1);
  for (const questionInfo& kind : kinds) {
    auto& questions = program.Episodes.emplace_back().questions;
    const auto add = [&](std::optional<Dimension> missing, std::string_view text) {
      if (text.empty()) return;
      DimensionTexts coded = kind.Texts();
      if (missing) coded[*missing] = "";
      questions.push_back(kind);
      questions.push_back(Asked(missing ? kind.question : "", coded));
      gaps.push_back({static_cast<int>(program.Episodes.size()), static_cast<int>(questions.size()),
                      missing, std::string(text)});
    };
    add(std::nullopt, kind.question);
    for (const Dimension dimension : kDimensions) add(dimension, kind.Text(dimension));
  }
  ASSERT_EQ(gaps.size(), 25U);
  // A walk that begins in the middle comes round to the start.
  std::rotate(gaps.begin(), gaps.begin() + 15, gaps.end());
  program.ProofEp = gaps.front().episode;
  program.ProofQ = gaps.front().question;
  Open({.caller = EditorCaller::episodeEditor, .proofMode = true});
  prompter.Expect("Everything coded; no invalid codes found", Answer::ok);
  for (const Gap& gap : gaps) {
    SCOPED_TRACE(std::to_string(gap.episode) + ":" + std::to_string(gap.question));
    ASSERT_EQ(editor->SelEp(), gap.episode);
    ASSERT_EQ(editor->CurQ(), gap.question);
    const bool name = gap.missing == Dimension::respondName;
    std::string blinking = Shown();  // the text has no caption that could
    if (gap.missing) {
      std::ranges::replace(blinking, static_cast<char>('1' + static_cast<int>(*gap.missing)), '_');
    }
    editor->BlinkTick();
    EXPECT_EQ(Shown(), blinking);
    if (!gap.missing) {
      editor->TypeQuestion(gap.text);
    } else if (name) {
      editor->TypeRespondName(gap.text);
    } else {
      editor->ChooseOption(*gap.missing, CodeOf(*gap.missing, gap.text));
    }
    EXPECT_EQ(Shown().find('_'), std::string::npos);
    editor->BlinkTick();
    if (const auto focus = editor->TakeFocus(); &gap != &gaps.front()) {
      EXPECT_EQ(focus.value().control, !gap.missing ? Control::question
                                       : name       ? Control::respondName
                                                    : Control::gap);
    }
    editor->Do(Command::nextGap);
  }
  EXPECT_EQ(editor->CurQ(), gaps.back().question) << "it stays where it was";
  editor->ChooseEpisode(1);
  editor->BlinkTick();
  EXPECT_EQ(Shown(), "12") << "there is no question to code";
}

}  // namespace
}  // namespace orvex::test
