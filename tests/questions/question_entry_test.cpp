#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "questions/typist.h"

namespace orvex::test {
namespace {

using Control = QuestionEntry::Control;

TEST_F(QuestionEntryTest, ShowsTheFieldsThatSourceAndResponseAskFor) {
  struct Case {
    std::string keys;
    std::string visible;
    std::string nameCaption;
    std::string heading;
  };
  const std::string answers = "Who answers question?";
  const std::string asks = "Who asks question?";
  const std::vector<Case> cases = {
      {"Why?\n", "12345", answers, ""},
      {"Why?\nt", "12345", answers, ""},
      {"Why?\nx", "12345", answers, ""},
      {"Why?\ns", "1234568", asks, ""},
      {"Why?\nt\ny", "12345679", answers, "TEACHER EVALUATION/FOLLOWUP"},
      {"Why?\n\n\n", "12345679", answers, "TEACHER EVALUATION/FOLLOWUP"},
      {"Why?\ns\ny", "12345689", asks, "TEACHER RESPONSE"},
      {"Why?\nt\nn", "12", answers, ""},
      {"Why?\ns\nn", "126", asks, ""},
      {"Why?\ns\nn\n", "126", asks, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.keys);
    OpenEntry();
    Keys(c.keys);
    EXPECT_EQ(Visible(), c.visible);
    EXPECT_EQ(entry->Fields().Caption(Dimension::respondName), c.nameCaption);
    EXPECT_EQ(Heading(), c.heading);
    EXPECT_TRUE(Questions().empty());
  }
}

TEST_F(QuestionEntryTest, StoresAndLogsWhatAnObserverTypes) {
  OpenEntry();
  NewLogText();
  Keys("Why did he go?\n\n\n\n\n\nBen\n\n\n");
  Keys("Can I go?\ns\ny\na\nt\nh\nAnna\nc\ne\n");
  clock.Advance(65);
  Keys("Who else?\nT\nN\n");
  Keys("What is a thane?\nS\nN\nZo\xC3\xAB\n");
  Keys("Wrong letters\nq\nq\nq\nq\nq\n\nq\nq\n");
  Keys("Wrong letters of a student\ns\ny\nNA\n?\nTT\n\nq\nq\n");
  CtrlN();

  const std::vector<questionInfo> expected = {
      {"Why did he go?", 0, 0, 0, 0, 0, "Ben", 1, -1, 1, 1, 1},
      {"Can I go?", 1, 0, 1, 1, 1, "Anna", -1, 0, 0, 1, 1},
      {"Who else?", 0, 1, -1, -1, -1, "", -1, -1, -1, 1, 1},
      {"What is a thane?", 1, 1, -1, -1, -1, "Zo\xC3\xAB", -1, -1, -1, 1, 1},
      {"Wrong letters", 0, 0, 0, 0, 0, "", 1, -1, 1, 1, 1},
      {"Wrong letters of a student", 1, 0, 0, 0, 0, "", -1, 1, 1, 1, 1},
      {"", -1, -1, -1, -1, -1, "", -1, -1, -1, 1, 1},
  };
  EXPECT_EQ(Questions(), expected);
  EXPECT_EQ(entry->FrameCaption(), "Question #8:");
  EXPECT_EQ(NewLogText(),
            "REVISE ? 1 : 1 = Why did he go?\n SRC: T; RSP: Y; AUTH: N; UP: N; COG: R; "
            "RSPNAME: Ben; MANY: N; TRSP: ; COG: U; 09:00:00\n"
            "REVISE ? 1 : 2 = Can I go?\n SRC: S; RSP: Y; AUTH: A; UP: T; COG: H; "
            "RSPNAME: Anna; MANY: ; TRSP: C; COG: E; 09:00:00\n"
            "REVISE ? 1 : 3 = Who else?\n SRC: T; RSP: N; AUTH: ; UP: ; COG: ; "
            "RSPNAME: ; MANY: ; TRSP: ; COG: ; 09:01:05\n"
            "REVISE ? 1 : 4 = What is a thane?\n SRC: S; RSP: N; AUTH: ; UP: ; COG: ; "
            "RSPNAME: Zo\xC3\xAB; MANY: ; TRSP: ; COG: ; 09:01:05\n"
            "REVISE ? 1 : 5 = Wrong letters\n SRC: T; RSP: Y; AUTH: N; UP: N; COG: R; "
            "RSPNAME: ; MANY: N; TRSP: ; COG: U; 09:01:05\n"
            "REVISE ? 1 : 6 = Wrong letters of a student\n SRC: S; RSP: Y; AUTH: N; UP: N; COG: R; "
            "RSPNAME: ; MANY: ; TRSP: A; COG: U; 09:01:05\n"
            "REVISE ? 1 : 7 = \n SRC: ; RSP: ; AUTH: ; UP: ; COG: ; "
            "RSPNAME: ; MANY: ; TRSP: ; COG: ; 09:01:05\n");
}

TEST_F(QuestionEntryTest, EveryStoredQuestionLeavesTheFormReadyForTheNext) {
  OpenEntry();
  const std::vector<std::string> endings = {"One\nt\nn\n", "Two\ns\nn\nAnna\n",
                                            "Three\n\n\n\n\n\n\n\n\n"};
  for (std::size_t i = 0; i < endings.size(); ++i) {
    SCOPED_TRACE(endings[i]);
    Keys(endings[i]);
    ASSERT_EQ(Questions().size(), i + 1);
    EXPECT_EQ(entry->FrameCaption(), "Question #" + std::to_string(i + 2) + ":");
    EXPECT_EQ(entry->Question(), "");
    EXPECT_EQ(Contents(), "||||||||");
    EXPECT_EQ(Visible(), "");
    EXPECT_EQ(focus, Control::txtQuestion);
  }
  Keys("Next Q by its button\n\n");
  Click(Command::Command5);
  ASSERT_EQ(Questions().size(), 4U);
  EXPECT_EQ(Questions().back(),
            (questionInfo{"Next Q by its button", 0, -1, -1, -1, -1, "", -1, -1, -1, 1, 1}));
  EXPECT_EQ(focus, Control::txtQuestion);
}

TEST_F(QuestionEntryTest, SourceAndResponseAreReducedToTheirLetter) {
  OpenEntry();
  entry->TypeField(Dimension::source, "tx");
  entry->TypeField(Dimension::response, "nY");
  entry->TypeField(Dimension::authenticity, "ax");
  EXPECT_EQ(Contents(), "T|N|ax||||||");
  entry->TypeField(Dimension::source, " t");
  entry->TypeField(Dimension::response, "");
  EXPECT_EQ(Contents(), " t||ax||||||");
}

TEST_F(QuestionEntryTest, EnterAndUpWalkTheVisibleFields) {
  OpenEntry();
  Up();
  EXPECT_EQ(focus, Control::txtQuestion);
  Keys("Why?\ns\ny\n\n\n\n");
  EXPECT_EQ(focus, Control::Text6);
  EXPECT_FALSE(selected);
  Keys("Anna\n");
  EXPECT_EQ(focus, Control::Text8);
  EXPECT_TRUE(selected);
  Keys("\n");
  EXPECT_EQ(focus, Control::Text9);
  Up(2);
  EXPECT_EQ(focus, Control::Text6);
  Keys("!");
  EXPECT_EQ(Contents(), "S|Y|N|N|R|Anna!||A|");
  Up(4);
  EXPECT_EQ(focus, Control::Text2);
  EXPECT_TRUE(selected);
  Up(3);
  EXPECT_EQ(focus, Control::txtQuestion);
  Keys(" So.\n");
  EXPECT_EQ(entry->Question(), "Why? So.");
  EXPECT_EQ(focus, Control::Text1);
  EXPECT_EQ(Contents(), "S|Y|N|N|R|Anna!||A|");
}

TEST_F(QuestionEntryTest, ResponseChangedToNoAndBackEmptiesTheFieldsBehindIt) {
  OpenEntry();
  Keys("Why?\nt\ny\na\nt\nh\nBen\ny\ne");
  EXPECT_EQ(Contents(), "T|Y|a|t|h|Ben|y||e");
  Up(6);
  ASSERT_EQ(focus, Control::Text2);
  Keys("n");
  EXPECT_EQ(Contents(), "T|N|||||||");
  EXPECT_EQ(Visible(), "12");
  EXPECT_EQ(Heading(), "");
  Keys("y");
  EXPECT_EQ(Contents(), "T|Y|||||||");
  EXPECT_EQ(Visible(), "12345679");
}

TEST_F(QuestionEntryTest, StudentQuestionChangedToNoResponseAsksForItsNameAfresh) {
  OpenEntry();
  Keys("Why?\ns\ny\na\nt\nh\nAnna\no");
  Up(5);
  ASSERT_EQ(focus, Control::Text2);
  Keys("n");
  EXPECT_EQ(Contents(), "S|N||||Anna|||");
  EXPECT_EQ(Visible(), "126");
  Keys("\n");
  EXPECT_EQ(focus, Control::Text6);
  Keys("Zoe\n");
  EXPECT_EQ(Questions(),
            (std::vector<questionInfo>{{"Why?", 1, 1, -1, -1, -1, "Zoe", -1, -1, -1, 1, 1}}));
}

TEST_F(QuestionEntryTest, AHiddenFieldKeepsItsCodeAndIsStoredWithIt) {
  OpenEntry();
  Keys("Why?\ns\ny\na\nt\nh\nAnna\nc");
  Up(6);
  ASSERT_EQ(focus, Control::Text1);
  Keys("t");
  EXPECT_EQ(Visible(), "12345679");
  Keys("\n\n\n\n\n\n\n\n");
  EXPECT_EQ(Questions(),
            (std::vector<questionInfo>{{"Why?", 0, 0, 1, 1, 1, "Anna", 1, 0, 1, 1, 1}}));

  // The other way round: the part of a multiple response stays behind a student question.
  Keys("How?\nt\ny\n\n\n\nBen\ny");
  Up(6);
  Keys("s");
  EXPECT_EQ(Visible(), "12345689");
  Keys("\n\n\n\n\n\no\ne\n");
  EXPECT_EQ(Questions().back(), (questionInfo{"How?", 1, 0, 0, 0, 0, "Ben", 0, 2, 0, 1, 1}));
}

TEST_F(QuestionEntryTest, AFieldThatTheLayoutBringsBackIsEmpty) {
  OpenEntry();
  Keys("Why?\nt\ny\n\n\n\nBen\ny");
  Up(6);
  Keys("st");
  EXPECT_EQ(Contents(), "T|Y|N|N|R|Ben|||");
  EXPECT_EQ(Visible(), "12345679");

  Keys("s");
  ClickMouseIn(Control::Text8);
  Keys("c");
  ClickMouseIn(Control::Text1);
  Keys("t\n");
  EXPECT_EQ(Contents(), "T|Y|N|N|R|Ben||c|");
  Keys("Y");
  EXPECT_EQ(Contents(), "T|Y|N|N|R|Ben|||");
}

TEST_F(QuestionEntryTest, SourceChangedWithoutResponseShowsNoFollowUp) {
  OpenEntry();
  Keys("Why?\ns");
  ClickMouseIn(Control::Text8);
  Keys("c");
  ClickMouseIn(Control::Text1);
  Keys("t\nn");
  EXPECT_EQ(Visible(), "12");
  Up();
  Keys("s");
  EXPECT_EQ(Visible(), "126");
  EXPECT_EQ(Heading(), "");
  ClickMouseIn(Control::Text6);
  Keys("Anna");
  ClickMouseIn(Control::Text1);
  Keys("t");
  EXPECT_EQ(Visible(), "12");
  EXPECT_EQ(Contents(), "T|N|||||||");
  Keys("s\n\nAnna\n");
  EXPECT_EQ(Questions(),
            (std::vector<questionInfo>{{"Why?", 1, 1, -1, -1, -1, "Anna", -1, -1, -1, 1, 1}}));
}

TEST_F(QuestionEntryTest, NoResponseWithoutASourceWaitsAtTheName) {
  OpenEntry();
  Keys("One of a student\ns\nn\nAnna\n");
  Keys("Why?\n");
  ClickMouseIn(Control::Text2);
  Keys("n\n");
  EXPECT_EQ(Visible(), "126");
  EXPECT_EQ(entry->Fields().Caption(Dimension::respondName), "Who answers question?");
  EXPECT_EQ(focus, Control::Text6);
  Keys("Ben\n");
  EXPECT_EQ(focus, Control::Text6);
  EXPECT_EQ(Questions().size(), 1U);
}

TEST_F(QuestionEntryTest, TextIsOneLineWithoutTabs) {
  OpenEntry();
  entry->TypeQuestion("pasted\r\nfrom\n\na\tpage");
  entry->TypeField(Dimension::respondName, "Ben\nor Anna");
  CtrlN();
  EXPECT_EQ(Questions(), (std::vector<questionInfo>{{"pasted from apage", -1, -1, -1, -1, -1,
                                                     "Ben or Anna", -1, -1, -1, 1, 1}}));
}

TEST_F(QuestionEntryTest, NormalFillsTheCodesWhateverWasThere) {
  const std::vector<std::string> before = {
      "Why?\n", "Why?\nt\nn", "Why?\ns\ny\na\nt\nh\nAnna\nc\ne", "Why?\ns\nn\nAnna", "Why?\nx"};
  for (const std::string& keys : before) {
    SCOPED_TRACE(keys);
    OpenEntry();
    Keys(keys);
    Click(Command::Command3);
    EXPECT_EQ(Contents(), "T|Y|N|N|R||N||U");
    EXPECT_EQ(Visible(), "12345679");
    EXPECT_EQ(Heading(), "TEACHER EVALUATION/FOLLOWUP");
    EXPECT_EQ(focus, Control::Text6);
  }
  Keys("Ben\n\n\n");
  EXPECT_EQ(Questions(),
            (std::vector<questionInfo>{{"Why?", 0, 0, 0, 0, 0, "Ben", 1, -1, 1, 1, 1}}));
}

TEST_F(QuestionEntryTest, DittoFilesTheLastQuestionAgainUnderItsOwnNumbers) {
  OpenEntry();
  Keys("Can I go?\ns\ny\na\nt\nh\nAnna\nc\ne\n");
  prompter.Expect("Start New Segment?", Answer::yes);
  Click(Command::Command6);
  OpenEntry();
  NewLogText();
  Keys("half typed\nt\ny\n");
  Click(Command::Command4);
  const questionInfo asked = {"Can I go?", 1, 0, 1, 1, 1, "Anna", -1, 0, 0, 1, 1};
  EXPECT_EQ(Questions(), (std::vector<questionInfo>{asked, asked}));
  EXPECT_EQ(NewLogText(),
            "REVISE ? 1 : 2 = Can I go?\n SRC: S; RSP: Y; AUTH: A; UP: T; COG: H; "
            "RSPNAME: Anna; MANY: ; TRSP: C; COG: E; 09:00:00\n");
  EXPECT_EQ(entry->Question(), "");
  EXPECT_EQ(Visible(), "");
  EXPECT_EQ(focus, Control::txtQuestion);

  Keys("Who else?\nt\nn\n");
  EXPECT_EQ(Questions().back(),
            (questionInfo{"Who else?", 0, 1, -1, -1, -1, "", -1, -1, -1, 1, 2}));
}

TEST_F(QuestionEntryTest, LastDropsTheLastQuestionSilently) {
  OpenEntry();
  Keys("One\nt\nn\nTwo\nt\nn\nThree\nt\nn\n");
  NewLogText();
  Click(Command::Command8);
  ASSERT_EQ(Questions().size(), 2U);
  EXPECT_EQ(Questions().back().question, "Two");
  EXPECT_EQ(entry->FrameCaption(), "Question #3:");
  Click(Command::Command8);
  Click(Command::Command8);
  EXPECT_TRUE(Questions().empty());
  EXPECT_EQ(Buttons(), "&Abort");
  Click(Command::Command8);
  Click(Command::Command4);
  EXPECT_TRUE(Questions().empty());
  EXPECT_EQ(NewLogText(), "");
}

TEST_F(QuestionEntryTest, ScrapDropsWhatIsTypedButLeavesTheTextOfTheFirstQuestion) {
  OpenEntry();
  Keys("One\ns\ny\na");
  Click(Command::Command7);
  EXPECT_EQ(entry->Question(), "One");
  EXPECT_EQ(Contents(), "||||||||");
  EXPECT_EQ(Visible(), "");
  EXPECT_EQ(Buttons(), "&Abort");
  EXPECT_EQ(focus, Control::txtQuestion);
  Keys(" more\nt\nn\n");
  EXPECT_EQ(Questions().back().question, "One more");

  Keys("Two\ns");
  Click(Command::Command7);
  EXPECT_EQ(entry->Question(), "");
  EXPECT_EQ(Visible(), "");
  EXPECT_EQ(Questions().size(), 1U);
}

TEST_F(QuestionEntryTest, ButtonsFollowWhatTheObserverIsDoing) {
  OpenEntry();
  const std::string idle = "&Ditto, &SEGMENT, E&PISODE, &Last, &End Class";
  EXPECT_EQ(Buttons(), "&Abort");
  Keys("One\n");
  EXPECT_EQ(Buttons(), "Nor&mal, &Next Q, Scr&ap");
  ClickMouseIn(Control::txtQuestion);
  Keys("\n");
  EXPECT_EQ(Buttons(), "Nor&mal, &Next Q, &SEGMENT, Scr&ap, &End Class");
  Click(Command::Command7);
  EXPECT_EQ(Buttons(), "&Abort");
  Keys("\nt\nn\n");
  EXPECT_EQ(Buttons(), idle);
  Keys("Two\n");
  EXPECT_EQ(Buttons(), "Nor&mal, &Ditto, &Next Q, Scr&ap");
  Keys("t\nn");
  EXPECT_EQ(Buttons(), "Nor&mal, &Ditto, &Next Q, Scr&ap");
  ClickMouseIn(Control::txtQuestion);
  Keys("\n");
  EXPECT_EQ(Buttons(), "Nor&mal, &Ditto, &Next Q, &SEGMENT, Scr&ap, &Last, &End Class");
  CtrlN();
  EXPECT_EQ(Buttons(), idle);

  // A later segment of the episode opens the form anew.
  OpenEntry();
  EXPECT_EQ(Buttons(), "&Abort");
  EXPECT_EQ(entry->FrameCaption(), "Question #3:");
}

TEST_F(QuestionEntryTest, AButtonThatIsDisabledDoesNothing) {
  OpenEntry();
  for (int i = 0; i <= static_cast<int>(Command::cmdOfftaskActive); ++i) {
    const auto command = static_cast<Command>(i);
    if (command != Command::Command5) Click(command);
  }
  entry->Command11_Click(0);
  EXPECT_TRUE(screens.Take().empty());
  EXPECT_EQ(Visible(), "");
  EXPECT_EQ(live->CurEpisode(), 1);
  EXPECT_EQ(live->CurSegment(), 1);
  EXPECT_EQ(live->CurrentEpisode().bReview, "");
}

TEST_F(QuestionEntryTest, AFullEpisodeTakesNoMoreQuestions) {
  const std::string message = "An episode holds at most 32767 questions. Start a new episode.";
  OpenEntry();
  Questions().resize(32766);
  Keys("The last one\nt\nn\n");
  ASSERT_EQ(Questions().size(), 32767U);
  NewLogText();
  Keys("One too many\ns\nn\nAnna");
  prompter.Expect(message, Answer::ok);
  Keys("\n");
  EXPECT_EQ(entry->Question(), "One too many");
  EXPECT_EQ(Contents(), "S|N||||Anna|||");
  EXPECT_EQ(focus, Control::Text6);
  prompter.Expect(message, Answer::ok);
  CtrlN();
  prompter.Expect(message, Answer::ok);
  Click(Command::Command4);
  EXPECT_EQ(entry->Question(), "One too many");
  EXPECT_EQ(Questions().size(), 32767U);
  EXPECT_EQ(NewLogText(), "");
}

}  // namespace
}  // namespace orvex::test
