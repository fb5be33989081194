// Whole classes, played from the main menu to the end on the real forms with the keyboard alone.
// The files they must leave were written by hand from the format.

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "store/eps_file.h"
#include "support/desk.h"
#include "ui/Forms.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

struct NoEvents : EpsReadEvents {
  bool ContinueWithEarlierVersion() override {
    ADD_FAILURE() << "an earlier version";
    return true;
  }
  void FirstSegmentRepaired(int ep) override { ADD_FAILURE() << "repaired episode " << ep; }
};

class RecordedClass : public testing::Test {
 protected:
  /// Does `work` in the running program, which must have ended by itself afterwards.
  static void RunUntilTheEnd(const std::function<void()>& work) {
    QTimer::singleShot(0, [&work] {
      work();
      if (HasFailure()) QCoreApplication::exit(1);
    });
    EXPECT_EQ(QApplication::exec(), 0);
  }

  /// It is `time` now, on this day or the next.
  void At(const char* time) {
    const int seconds = QTime::fromString(QLatin1String(time)).msecsSinceStartOfDay() / 1000;
    const auto ahead = static_cast<double>(seconds) - desk_.clock.SecondsSinceMidnight();
    desk_.clock.Advance(ahead < 0 ? ahead + 86400 : ahead);
    TickForms();
    TickForms();  // what one form copies from another
  }

  static QWidget& Front() {
    if (!QApplication::activeWindow()) throw std::runtime_error("no form in front");
    return *QApplication::activeWindow();
  }
  static void ExpectFront(const char* form) { EXPECT_EQ(Front().objectName().toStdString(), form); }
  static std::string Shown(const char* label) {
    return Find<QLabel>(Front(), label)->text().toStdString();
  }
  void Answer(const char* question, orvex::Answer answer) {
    desk_.prompter.Expect(question, answer);
  }

  /// The first letter of the activity until the focus is there, then Space.
  static void Choose(int activity) {
    const std::string name = "Option0_" + std::to_string(activity - 1);
    const QString letter = Find<QRadioButton>(Front(), name.c_str())->text().left(1).toLower();
    for (int presses = 0; presses < 5 && FocusedName() != name; ++presses) {
      Keys(letter.toStdString());
    }
    ASSERT_EQ(FocusedName(), name);
    Keys(" ");
    Settle();
  }

  static void About(const std::string& text) {
    QTimer::singleShot(0, [&text] {
      Settle();
      ExpectFront("frmAboutInputBox");
      Keys(text + "{Alt+O}");
    });
    Keys("{Alt+A}");
    ExpectFront("frmClassAct");
  }

  /// Ends the segment with "&SEGMENT".
  void EndSegment(const char* time) {
    At(time);
    Answer("Start New Segment?", Answer::yes);
    Keys("{Alt+S}");
    ExpectFront("frmClassAct");
  }

  /// Types and codes the questions that become number `first` and those after it.
  static void Ask(int first, const std::vector<std::string>& questions) {
    ExpectFront("frmEnterQA");
    for (const std::string& keys : questions) {
      EXPECT_EQ(Find<QGroupBox>(Front(), "Frame1")->title().toStdString(),
                "Question #" + std::to_string(first++) + ":");
      Keys(keys);
      EXPECT_EQ(FocusedName(), "txtQuestion") << keys;
    }
  }

  void StartClass(const std::string& setUp, const char* time) {
    desk_.program.QuitRequested = false;
    forms_.Show(Screen::mainMenu);
    Settle();
    Keys("{Alt+N}");
    ExpectFront("frmInput1");
    Keys(setUp);
    At(time);
    Keys("\n");
    ExpectFront("frmClassAct");
  }

  void ExpectFiles(const std::string& folder, const std::string& name) {
    for (const auto& [kind, extension] :
         {std::pair("EPS/", ".eps"), {"BAK/", ".bak"}, {"NTE/", ".nte"}}) {
      EXPECT_EQ(FileBytes(desk_.folder / (kind + folder + name + extension)),
                FileBytes(TestData("recorded/" + name + extension)));
    }
    NoEvents events;
    const auto read = ReadEpsFile(desk_.folder / ("EPS/" + folder + name + ".eps"), events);
    EXPECT_TRUE(read.Episodes == desk_.program.Episodes);
    EXPECT_EQ(read.header.identity, desk_.program.identity);
  }

  Desk desk_;
  Forms forms_{desk_.program, desk_.log,      desk_.storage,
               desk_.clock,   desk_.prompter, desk_.folder.Path()};
};

TEST_F(RecordedClass, LeavesTheFilesOfAMorning) {
  RunUntilTheEnd([this] {
    StartClass("M. \"Zé\"\n007\n 12\n3\n25\n", "09:01:00");

    // A question/answer segment begun and abandoned, the first activity, and its revision.
    At("09:01:10");
    Keys("Whole class\t");
    At("09:01:20");
    Choose(5);
    ExpectFront("frmEnterQA");
    Keys("Whe\n{Alt+A}");
    EXPECT_EQ(Find<QLineEdit>(Front(), "txtQuestion")->text(), QStringLiteral("Whe"));
    At("09:01:30");
    Keys("{Alt+A}");
    ExpectFront("frmClassAct");
    At("09:01:40");
    Keys("  Warm-up: \"courage\", joy & café \t");
    At("09:01:45");
    Choose(1);
    Answer("Revise activity # ?", Answer::cancel);
    Choose(2);
    EXPECT_EQ(FocusedName(), "Option0_0");
    At("09:02:00");
    Answer("Revise activity # ?", Answer::ok);
    Choose(2);

    // The header: one more student, then the class number, then once more the students.
    At("09:02:30");
    PutFile(desk_.folder / "BAK/7/13/7-13-3.bak", "an older class\r\n");
    Answer("7-13-3.bak already exists. Overwrite it?", Answer::ok);
    Keys("{Backtab}{Backtab}26{Up}{Up}{Up}{Backspace}3\n");
    EXPECT_EQ(Shown("lblClassID"), "Class ID  7-13-3");
    EXPECT_FALSE(std::filesystem::exists(desk_.folder / "BAK/7/12/7-12-3.bak"));
    At("09:03:00");
    Keys("\n\n{Backspace}7\n");
    EndSegment("09:04:30");

    Choose(4);
    About("Atticus, \"before the jail\"");
    At("09:10:00");
    Keys("{Alt+Q}");
    At("09:10:30");
    Ask(1, {"Whe\n{Alt+A}re is Boo, exactly?\n\n\n\n\n\nAna\n\n\n",
            "dropped\ns\n{Alt+A}Who said \"no\", then?\nt\ny\na\nt\nh\nRosa, M.\ny\ne\n",
            "Pourquoi si tôt ?\ns\ny\nn\na\nr\nZoë\nc\ne\n",
            "Is (<----- 9 ; 9 ----->) a number\nt\nn\n",
            "  two blanks, and behind  \ns\nn\n Luis \n"});
    At("09:12:00");
    Ask(6, {"Which word tells you?\n{Alt+M}Ben\n\n\n", "a slip\nt\nn\n"});
    Keys("{Alt+L}");
    Ask(7, {"Does it matter?\nt\ny\na\na\nh\n\ny\nu\n", "Can we stop?\ns\n\n\n\n\n\n\n\n",
            "What next?\nx\nq\nzz\nb\nm\nAl\np\nk\n", "left half way\ns\ny\n{Ctrl+N}", "{Ctrl+N}",
            "Is it Kim's?\ns\ny\n\n\n\nKim\no{Up}{Up}{Up}{Up}{Up}{Up}t\n\n\n\n\n\n\n\n"});
    Answer("Start New Segment?", Answer::no);
    Keys("{Alt+S}");
    EXPECT_EQ(FocusedName(), "txtQuestion");
    EndSegment("09:14:00");

    Choose(6);
    About("who is \"brave\"?");
    At("09:16:00");
    Keys("{Alt+T}");
    EXPECT_EQ(Shown("lblEpisode"), "Episode 2 Time: ");

    At("09:16:10");
    Keys("Second: drafting\t");
    EndSegment("09:20:00");
    Choose(8);
    desk_.clock.Advance(0.5);
    EndSegment("09:21:00");
    Choose(9);
    EndSegment("09:22:02");
    Choose(7);
    Keys("\t{Up} \t{Down} \t{Down} ");
    At("09:25:02");
    Answer("Start New Episode?", Answer::no);
    Keys("{Alt+P}");
    Answer("Start New Episode?", Answer::yes);
    Keys("{Alt+P}");

    // An episode that was none.
    At("09:25:10");
    Keys("Too early\t");
    At("09:25:15");
    Choose(11);
    At("09:26:00");
    Keys("{Alt+T}");
    EXPECT_EQ(FocusedName(), "txtEpisodeName");
    At("09:26:10");
    Keys("\t");
    Answer("Revise activity # ?", Answer::ok);
    Choose(10);
    EndSegment("09:27:02");

    Choose(5);
    At("09:28:00");
    Ask(1, {"May I read?\ns\nn\nAna\n", "Who's next?\nt\nn\n", "Same again\ns\ny\n{Alt+M}Eva\n\n\n",
            "How would you put it?\nt\ny\na\n\nh\n\"Max\", twice\n\ne\n",
            "unfinished\nt\ny\n{Alt+N}", "But why?\ns\ny\na\nt\nh\nMia\no\ne\n", "{Alt+D}"});
    At("09:33:02");
    Keys("\t\t");
    EXPECT_EQ(Find<QPushButton>(Front(), "Command5")->text(),
              QStringLiteral("Role-play or simulation"));
    EXPECT_EQ(FocusedName(), "Command5");
    Keys(" ");
    Settle();
    EndSegment("09:34:02");
    Choose(3);
    At("09:35:02");
    Answer("Start New Episode?", Answer::yes);
    Keys("{Alt+P}");

    // The activities with codes of their own.
    At("09:35:10");
    Keys("Grammar – “who” or “whom”\t");
    At("09:35:15");
    Choose(13);
    EndSegment("09:38:02");
    Choose(14);
    Keys("\t \t{Down}\t{Down}\t{Down}");
    EndSegment("09:41:02");
    Choose(14);
    At("09:41:30");
    Keys("\t {Backtab}");
    Answer("Revise activity # ?", Answer::ok);
    Choose(15);
    Keys("\t\tworkbook\thigher order\t?");
    EndSegment("09:43:02");
    Choose(16);
    Keys("\t{Down} \tother");
    EndSegment("09:44:02");
    Choose(17);
    Keys("\t{Down}{Down}{Down} ");
    EndSegment("09:46:02");
    Choose(17);
    EndSegment("09:46:32");
    Choose(12);
    About(" assembly, gym ");
    At("09:47:32");
    Keys("{Alt+Q}");
    At("09:48:00");
    Ask(1, {"“Who” – and why?\n\n\n\n\n\nNoé\n\n\n",
            "I changed my mind\nt\ny\na\nt\nh\nLea\n{Up}{Up}{Up}{Up}{Up}n\n",
            "May we? No. Yes.\ns\nn\nTom{Up}y\na\n\nh\nas\nc\n\n", "dropped too\nt{Alt+D}"});
    At("09:50:32");
    Answer("Start New Episode?", Answer::no);
    Keys("{Alt+P}");
    EXPECT_EQ(FocusedName(), "txtQuestion");
    Answer("Start New Episode?", Answer::yes);
    Keys("{Alt+P}{Alt+N}");
    ExpectFront("frmClassAct");

    // The students ask.
    At("09:50:40");
    Keys("Students ask\t");
    At("09:50:45");
    Choose(5);
    At("09:52:00");
    Ask(1, {"Is it long?\ns\nn\nA\n", "Is it due?\ns\nn\nB\n",
            "Can we work together?\ns\ny\n\n\n\nC\n\n\n", "Really?\ns\nn\n\n",
            "Who has it?\nt\nn\n", "Who else?\nt\nn\n", "And you?\n{Alt+M}\n\n\n",
            "What for?\ns\nn\nD\n", "unheard{Ctrl+N}", "Now?\ns\nn\nE\n", "Anybody?\nt\nn\n"});
    At("09:54:32");
    Answer("Start New Episode?", Answer::yes);
    Keys("{Alt+P} ");
    Settle();

    At("09:54:40");
    Keys("Wrap-up, at last\t");
    At("09:54:45");
    Choose(11);
    EndSegment("09:56:32");
    Choose(1);
    At("10:00:00");
    Answer("Verify END OF CLASS", Answer::no);
    Keys("{Alt+E}");
    Answer("Verify END OF CLASS", Answer::yes);
    Keys("{Alt+E}");
  });
  ExpectFiles("7/13/", "7-13-3");
}

TEST_F(RecordedClass, RunsOnAcrossMidnight) {
  const auto expectClocks = [](const char* episode, const char* segment, const char* time) {
    EXPECT_EQ(Shown("lblEpiTime"), episode);
    EXPECT_EQ(Shown("lblSegTime"), segment);
    EXPECT_EQ(Shown("lblCurrTime"), time);
  };
  desk_.clock.Set(23, 49, 30);
  RunUntilTheEnd([&] {
    StartClass("\n1\n2\n3\n30\n", "23:50:00");
    Keys("Night class\t");
    Choose(9);
    At("23:59:30");
    expectClocks("09 : 30", "09 : 30", " 23 : 59 : 30");
    Keys("{Alt+Q}");
    Ask(1, {"Still awake?\nt\nn\n"});
    At("00:00:15");
    expectClocks("10 : 15", "00 : 45", " 00 : 00 : 15");
    Ask(2, {"What day is it?\n{Alt+M}Ana\n\n\n"});
    At("00:05:00");
    Answer("Start New Episode?", Answer::yes);
    Keys("{Alt+P}{Alt+Y}Home\t");
    Choose(12);
    About("ghosts");
    At("00:20:00");
    expectClocks("15 : 00", "15 : 00", " 00 : 20 : 00");
    Answer("Verify END OF CLASS", Answer::yes);
    Keys("{Alt+E}");
  });
  ExpectFiles("1/2/", "1-2-3");
}

}  // namespace
}  // namespace orvex
