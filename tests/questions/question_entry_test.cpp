#include "questions/question_entry.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "support/asked.h"
#include "support/desk.h"

namespace orvex::test {
namespace {

using Box = QuestionEntry::Box;
using EntryCommand = QuestionEntry::Command;
const std::vector<std::string> kLeave = {"show liveObservation", "close questionEntry"};
const std::map<char, EntryCommand> kButtons = {{'-', EntryCommand::dropLast},
                                               {'+', EntryCommand::ditto},
                                               {'!', EntryCommand::scrapOrStartEpisode}};
const std::string kFilled = "12345679 TEACHER EVALUATION/FOLLOWUP";

/// A class in progress, and an observer who works the question entry from the keyboard: a key goes
/// to the box with the focus, and replaces its content while that is selected.
struct Observer : Desk {
  Observer() {
    prompter.cancelsDialogs = true;
    OpenLog();
    live.KeyInDescription();
    live.TypeDescription("Macbeth");
  }

  /// Starts a question/answer segment, after a segment of `previousActivity` if there is one.
  void Open(const std::string& keys, int previousActivity = 0) {
    if (previousActivity != 0) {
      live.ChooseActivity(previousActivity);
      live.StartSegment();
    }
    live.ChooseActivity(kQuestionAnswer);
    screens.Take();
    live.Questions().TypeQuestion("");
    live.Questions().DropCodes();
    entry.emplace(services, live, clocks);
    focus = QuestionEntry::kText;
    selected = false;
    NewLogText();
    Keys(keys);
  }
  /// Types `keys`: '\n' is Enter, '^' Up, '@6' a click into box 6; '-', '+' and '!' press "&Last",
  /// "&Ditto" and "Scr&ap"; '<' and '>' undo and redo.
  void Keys(std::string_view keys) {
    for (std::size_t i = 0; i < keys.size(); ++i) {
      if (keys[i] == '\n') {
        entry->EnterOrDown(focus);
      } else if (keys[i] == '^') {
        entry->Up(focus);
      } else if (kButtons.contains(keys[i])) {
        entry->Click(kButtons.at(keys[i]));
      } else if (keys[i] == '<' || keys[i] == '>') {
        entry->TakeStep(keys[i] == '<' ? Way::undo : Way::redo);
      } else if (keys[i] == '@') {
        focus = static_cast<Dimension>(keys[++i] - '1');
        selected = QuestionEntry::CaretOf(focus) == Caret::selectAll;
      } else {
        if (focus)
          entry->TypeField(*focus, (selected ? "" : entry->Fields().Text(*focus)) + keys[i]);
        if (!focus) entry->TypeQuestion(entry->Question() + keys[i]);
        selected = false;
      }
      Follow();
      if (keys[i] == '\n') road += Focus();
    }
  }
  void Click(EntryCommand command) {
    entry->Click(command);
    Follow();
  }
  void Follow() {
    if (const auto wish = entry->TakeFocus()) {
      focus = wish->control.box;
      selected = wish->caret == Caret::selectAll;
    }
  }

  /// The number of the box with the focus; 0 for the text of the question.
  char Focus() const { return focus ? static_cast<char>('1' + static_cast<int>(*focus)) : '0'; }
  /// The numbers of the visible fields and the heading over the last ones.
  std::string Shown() const {
    std::string shown;
    char number = '1';
    for (const Dimension field : kDimensions) {
      if (entry->Fields().Visible(field)) shown += number;
      ++number;
    }
    return entry->Fields().HeadingVisible() ? shown + " " + std::string(entry->Fields().Heading())
                                            : shown;
  }
  /// The contents of all fields, visible or not: "T|Y|N|N|R||N||U|".
  std::string Contents() const {
    std::string contents;
    for (const Dimension field : kDimensions) contents += entry->Fields().Text(field) + "|";
    return contents;
  }
  std::vector<questionInfo>& Questions() { return program.Episodes.back().questions; }
  std::string RestoredAndDropped() {
    std::string found;
    std::istringstream lines(NewLogText());
    for (std::string line; std::getline(lines, line);) {
      const std::string_view ends = " ***** 09:00:00";
      for (const std::string_view begins :
           {"***** RESTORED QUESTION ", "***** DROPPED QUESTION "}) {
        if (!line.starts_with(begins) || !line.ends_with(ends)) continue;
        found += line.substr(6, 1);
        found += line.substr(begins.size(), line.size() - begins.size() - ends.size());
      }
    }
    return found;
  }

  LiveObservation live{services};
  SessionClocks clocks{services, live};
  std::optional<QuestionEntry> entry;
  Box focus;
  bool selected = false;
  std::string road;  ///< the focus after each Enter
};

struct EntryTest : testing::Test, Observer {};

TEST_F(EntryTest, ShowsTheFieldsThatSourceAndResponseAskForWhateverWasThere) {
  struct Case {
    std::string keys;
    std::string shown;
    std::string contents;
  };
  const std::string ofStudent = "12345689 TEACHER RESPONSE";
  const std::string ben = "Why?\nt\ny\n\n\n\nBen\ny^^^^^^";
  const Case cases[] = {
      {"Why?\n", "12345", "|||||||||"},
      {"Why?\ns", "1234568", "S|||||||||"},
      {"Why?\nt\ny", kFilled, "T|Y||||||||"},
      {"Why?\ns\ny", ofStudent, "S|Y||||||||"},
      {"Why?\nt\nn", "12", "T|N||||||||"},
      {"Why?\ns\nn", "126", "S|N||||||||"},
      {"One\ns\nn\nAnna\nWhy?\n@2n\n", "126", "|N||||||||"},
      // The response is withdrawn and given again.
      {"Why?\nt\ny\na\nt\nh\nBen\ny\ne^^^^^^n", "12", "T|N||||||||"},
      {"Why?\nt\ny\na\nt\nh\nBen\ny\ne^^^^^^ny", kFilled, "T|Y||||||||"},
      {"Why?\ns\ny\na\nt\nh\nAnna\no^^^^^n", "126", "S|N||||Anna||||"},
      // The source is changed: hidden fields keep their codes, and fields that come back are empty.
      {"Why?\ns\ny\na\nt\nh\nAnna\nc^^^^^^t", kFilled, "T|Y|a|t|h|Anna||c||"},
      {ben + "st", kFilled, "T|Y|N|N|R|Ben||||"},
      {ben + "sts@8c@1t\nY", kFilled, "T|Y|N|N|R|Ben||||"},
      {"Why?\ns@8c@1t\nn^s", "126", "S|N||||||||"},
      {"Why?\ns@8c@1t\nn^s@6Anna@1t", "12", "T|N||||||||"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.keys);
    Open(c.keys);
    EXPECT_EQ(Shown(), c.shown);
    EXPECT_EQ(Contents(), c.contents);
    Click(EntryCommand::fillNormalOrSurvey);
    EXPECT_EQ(Shown(), kFilled);
    EXPECT_TRUE(Contents().starts_with("T|Y|N|N|R|")) << "Normal fills in the codes";
    EXPECT_EQ(Focus(), '6');
  }
}

TEST_F(EntryTest, NormalOnceMoreIsANormalStudentQuestion) {
  Open("Why?\nt\ny\n\n\n\n\ny");
  const std::string teacher = "T|Y|N|N|R||N||U|";
  const std::string student = "S|Y|N|N|R|Ann||A|U|";
  Click(EntryCommand::fillNormalOrSurvey);
  EXPECT_EQ(Contents(), teacher);
  Keys("Ann");
  Click(EntryCommand::fillNormalOrSurvey);
  EXPECT_EQ(Contents(), student);
  EXPECT_EQ(Shown(), "12345689 TEACHER RESPONSE");
  EXPECT_EQ(Focus(), '6');
  Click(EntryCommand::fillNormalOrSurvey);
  EXPECT_EQ(Contents(), teacher);
  EXPECT_EQ(Shown(), kFilled);
}

TEST_F(EntryTest, EnterLeadsFromBoxToBoxAndFilesTheQuestion) {
  struct Case {
    std::string keys;
    std::string road;
    DimensionTexts filed;
  };
  const Case cases[] = {
      {"Q\n\n\n\n\n\nBen\n\n\n", "123456790", {"T", "Y", "N", "N", "R", "Ben", "N", "", "U"}},
      {"Q\ns\ny\na\nt\nh\nAna\nc\ne\n",
       "123456890",
       {"S", "Y", "A", "T", "H", "Ana", "", "C", "E"}},
      {"Q\nT\nN\n", "120", {"T", "N"}},
      {"Q\ns\ny\nNA\n?\nTT\n\nq\nq\n", "123456890", {"S", "Y", "N", "N", "R", "", "", "A", "U"}},
      // A code that was hidden is filed with the question.
      {"Q\nt\ny\n\n\n\nBen\ny^^^^^^s\n\n\n\n\n\no\ne\n",
       "123456723456890",
       {"S", "Y", "N", "N", "R", "Ben", "Y", "O", "E"}},
      {"Q\ns\ny\na\nt\nh\nAna\no^^^^^n\nZoe\n", "123456860", {"S", "N", "", "", "", "Zoe"}},
  };
  Open("");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.keys);
    road.clear();
    Keys(c.keys);
    EXPECT_EQ(road, c.road);
    ASSERT_FALSE(Questions().empty());
    EXPECT_EQ(Questions().back(), Asked("Q", c.filed));
    EXPECT_EQ(entry->FrameCaption(), "Question #" + std::to_string(Questions().size() + 1) + ":");
    EXPECT_EQ(entry->Question() + Contents() + Shown(), "|||||||||");
  }
  entry->TypeQuestion("pasted\r\nfrom\n\na\tpage");
  entry->TypeField(Dimension::respondName, "Ben\nor Anna");
  entry->SaveQuestion();
  EXPECT_EQ(Questions().back(), (Asked("pasted from apage", {"", "", "", "", "", "Ben or Anna"})));
}

TEST_F(EntryTest, TheFrameSaysWhenTheQuestionBeforeIsEmpty) {
  Open("Why?\nt\nn\nHow?");
  entry->SaveQuestion();
  EXPECT_EQ(entry->FrameCaption(), "Question #3:");
  entry->SaveQuestion();
  EXPECT_EQ(entry->FrameCaption(), "Question #4: (3 is empty)");
  Keys("What?\nt");
  EXPECT_EQ(entry->FrameCaption(), "Question #4: (3 is empty)");
  Questions()[2].question = "found again";  // as the question editor would do
  EXPECT_EQ(entry->FrameCaption(), "Question #4:");
  Keys("\nn\n \n\nn\n");
  EXPECT_EQ(entry->FrameCaption(), "Question #6: (5 is empty)");
  Click(EntryCommand::dropLast);
  EXPECT_EQ(entry->FrameCaption(), "Question #5:");
}

TEST_F(EntryTest, AbortGivesTheSegmentItsPreviousActivityBack) {
  Open("", 8);
  Click(EntryCommand::nextOrLeave);
  EXPECT_EQ(NewLogText(), "REVISED ACTIVITY # for Ep. 1 Sg. 2 :  8 09:00:00\n");
  EXPECT_EQ(live.Running().curActivity, 8);
  EXPECT_EQ(live.Running().choice, ActivityChoice::abandoned);
  EXPECT_EQ(live.Running().ChosenActivity(), 0);
  EXPECT_EQ(live.CurrentEpisode().Descript, "Macbeth");
  EXPECT_EQ(screens.Take(), kLeave);
}

TEST_F(EntryTest, AFullEpisodeTakesNoMoreQuestions) {
  Open("");
  Questions().resize(32766);
  Keys("The last one\nt\nn\nOne too many\ns\nn\nAnna");
  ASSERT_EQ(Questions().size(), 32767U);
  const std::function<void()> ways[] = {[&] { Keys("\n"); }, [&] { entry->SaveQuestion(); },
                                        [&] { Click(EntryCommand::ditto); }};
  NewLogText();
  for (const auto& file : ways) {
    prompter.Expect("An episode holds at most 32767 questions. Start a new episode.", Answer::ok);
    file();
    EXPECT_EQ(entry->Question(), "One too many");
    EXPECT_EQ(Contents(), "S|N||||Anna||||");
    EXPECT_EQ(Questions().size(), 32767U);
  }
  EXPECT_EQ(NewLogText(), "");
  entry->Click(EntryCommand::scrapOrStartEpisode);
  Keys("-");
  entry->SaveQuestion();
  Keys("<");
  EXPECT_EQ(Questions().size(), 32767U) << "what was dropped waits until there is room";
}

TEST(EntryHistory, WhatWasDroppedOrFiledByMistakeIsUndone) {
  struct Case {
    std::string keys;
    std::string questions;
    std::string draft;
    std::string log;  ///< "R2D1": question 2 was restored, question 1 dropped
    std::string offered;
  };
  const std::string one = "One\nt\nn\n";
  const std::string two = one + "Two\nt\nn\n";
  const std::string back2 = "brings question 2 back";
  const std::string away2 = "takes question 2 away";
  const std::string typing = "brings what you were typing back";
  const Case cases[] = {
      {two + "-", "One|", "", "", back2},
      {two + "-<", "One|Two|", "", "R2", ""},
      {two + "-<>", "One|", "", "R2D2", back2},
      {two + "--<<", "One|Two|", "", "R1R2", ""},
      {two + "Th-<", "One|Two|", "Th", "R2", ""},
      {two + "-Th<", "One|Two|", "Th", "R2", ""},
      {two + "-Three\nt\nn\n<", "One|Two|Three|", "", "R2", ""},
      {two + "-<Three\nt\nn\n>", "One|Two|Three|", "", "R2", ""},
      {two + "-Th\ns<", "One|", "ThS", "", ""},
      {one + "+", "One|One|", "", "", away2},
      {one + "+Why<", "One|One|", "Why", "", ""},
      {one + "Tw+<", "One|", "Tw", "D2", ""},
      {one + "Two\ns+<>", "One|One|", "", "D2R2", away2},
      {one + "Two\ns!", "One|", "", "", typing},
      {one + "Two\ns!<", "One|", "TwoS", "R2", ""},
      {one + "Two\ns!<>", "One|", "", "R2D2", typing},
      {one + "Two\ns!Three<", "One|", "Three", "", ""},
      {one + "Two\ns!Three\ns!<<", "One|", "ThreeS", "R2", ""},
      {"One\ns!", "", "One", "", typing},
      {"One\ns!<", "", "OneS", "R1", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.keys);
    Observer observer;
    observer.Open(c.keys);
    std::string texts;
    for (const questionInfo& question : observer.Questions()) texts += question.question + "|";
    const QuestionEntry& entry = *observer.entry;
    EXPECT_EQ(texts, c.questions);
    EXPECT_EQ(entry.Question() + entry.Fields().Text(Dimension::source), c.draft);
    EXPECT_EQ(entry.FrameCaption(),
              "Question #" + std::to_string(observer.Questions().size() + 1) + ":");
    EXPECT_EQ(entry.NextStep(Way::undo), c.offered);
    EXPECT_EQ(observer.RestoredAndDropped(), c.log);
  }
}

TEST_F(EntryTest, WhatComesBackGoesToItsOwnEpisode) {
  Open("One\nt\nn\nTwo\nt\nn\n-Three\ns!");
  live.StartSegment();
  Open("");
  EXPECT_EQ(entry->NextStep(Way::undo), "brings question 2 back") << "what was typed was there";
  live.StartEpisode();
  live.TypeDescription("Lear");
  Open("Four\nt\nn\n<");
  EXPECT_EQ(Questions().size(), 1U) << "the form does not show the other episode";
  Keys("-");
  live.Convert();
  live.StartSegment();
  Open("<");
  ASSERT_EQ(Questions().size(), 2U) << "the episode of question 4 is gone";
  EXPECT_EQ(Questions()[1].question + std::to_string(Questions()[1].iSgQ), "Two1");
}

}  // namespace
}  // namespace orvex::test
