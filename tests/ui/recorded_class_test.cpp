// Whole classes, played on the real forms from the main menu to the end, with the keyboard alone.
// The expected files were written by hand from the format and the steps below.

#include <gtest/gtest.h>

#include <QDateTime>
#include <QLabel>
#include <optional>

#include "store/eps_reader.h"
#include "support/desk.h"
#include "ui/Forms.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

struct Asked {
  std::string text;
  Answer answer;
  std::optional<Answer> surveyFinished = {};  ///< answers a second question, at the end of a class
};
const Asked kSegment = {"Start New Segment?", Answer::yes};
const Asked kEpisode = {"Start New Episode?", Answer::yes};
const Asked kEnd = {"Verify END OF CLASS", Answer::yes, Answer::yes};
const Asked kRevise = {"Revise activity # ?", Answer::ok};

Asked Declined(const Asked& asked) {
  return {asked.text, asked.answer == Answer::ok ? Answer::cancel : Answer::no};
}

/// What the observer enters into a dialog when it opens.
struct Entered {
  std::optional<OfftaskPrompt> estimate = {};
  std::optional<int> seconds = {};
  std::optional<std::string> notes = {};
};
Entered Estimate(const char* offtask, const char* students) {
  return {.estimate = OfftaskPrompt{.offtask = offtask, .students = students}};
}

/// One action of the observer.
struct Step {
  const char* time;  ///< when it happens; "" for the time of the previous step
  std::string keys;
  const char* focus;  ///< where the focus is afterwards
  std::optional<Asked> asked = {};
  Entered entered = {};     ///< dialogs without an entry are cancelled
  const char* clocks = "";  ///< what the clocks show before the keys are pressed
};

class RecordedClass : public testing::Test {
 protected:
  /// Plays the steps in the running program. The last one must end it.
  void Play(const std::vector<Step>& steps) {
    desk_.prompter.cancelsDialogs = true;
    QTimer::singleShot(0, [&] {
      forms_.Show(Screen::mainMenu);
      Settle();
      for (const Step& step : steps) Do(step);
      if (HasFailure()) QCoreApplication::exit(1);
    });
    EXPECT_EQ(QApplication::exec(), 0);
  }

  void Do(const Step& step) {
    SCOPED_TRACE(step.keys);
    if (*step.time) SetTime(step.time);
    if (*step.clocks) {
      EXPECT_EQ(Clocks(), step.clocks);
    }
    if (step.asked) desk_.prompter.Expect(step.asked->text, step.asked->answer);
    if (step.asked && step.asked->surveyFinished) {
      desk_.prompter.Expect("Have you finished Matrices?", *step.asked->surveyFinished);
    }
    if (step.entered.estimate) desk_.prompter.ExpectEstimate(*step.entered.estimate);
    if (step.entered.seconds) desk_.prompter.ExpectSeconds(step.entered.seconds);
    if (step.entered.notes) desk_.prompter.ExpectNotes(step.entered.notes);
    const std::string about = "{Alt+A}";
    if (step.keys.starts_with(about) && step.keys.ends_with("{Alt+O}")) {
      QTimer::singleShot(0, [&] {
        Settle();
        Keys(step.keys.substr(about.size()));
      });
      Keys(about);
    } else {
      Keys(step.keys);
    }
    Settle();
    EXPECT_EQ(FocusedName(), step.focus);
  }

  /// Advances the clock to `time`, today or tomorrow.
  void SetTime(const char* time) {
    const QTime then = QTime::fromString(QLatin1String(time), Qt::ISODateWithMs);
    const double ahead = then.msecsSinceStartOfDay() / 1000.0 - desk_.clock.SecondsSinceMidnight();
    desk_.clock.Advance(ahead < 0 ? ahead + 86400 : ahead);
    TickForms();
    TickForms();  // one form copies from the other
  }

  static std::string Clocks() {
    std::string text;
    for (const char* label : {"lblEpiTime", "lblSegTime", "lblCurrTime"}) {
      text += Find<QLabel>(*QApplication::activeWindow(), label)->text().toStdString() + ";";
    }
    return text;
  }

  void ExpectFiles(const std::string& folder, const std::string& name) {
    for (const std::string extension : {"eps", "bak", "nte", "sur"}) {
      const QString kind = QString::fromStdString(extension).toUpper();
      EXPECT_EQ(
          FileBytes(desk_.folder / (kind.toStdString() + "/" + folder + name + "." + extension)),
          FileBytes(TestData("recorded/" + name + "." + extension)));
    }
    struct : EpsReadEvents {
      bool ContinueWithEarlierVersion() override { return false; }
      void FirstSegmentRepaired(int ep) override { ADD_FAILURE() << ep; }
    } events;
    const auto read = ReadEpsFile(desk_.folder / ("EPS/" + folder + name + ".eps"), events);
    EXPECT_TRUE(read.Episodes == desk_.program.Episodes);
    EXPECT_EQ(read.header.identity, desk_.program.identity);
  }

  Desk desk_;
  Forms forms_{desk_.program, desk_.log,      desk_.recovery,     desk_.storage,
               desk_.clock,   desk_.prompter, desk_.folder.Path()};
};

TEST_F(RecordedClass, LeavesTheFilesOfAMorning) {
  PutFile(desk_.folder / "BAK/7/13/7-13-3.bak", "an older class\r\n");
  const Asked overwrite = {"7-13-3.bak already exists. Overwrite it?", Answer::ok};
  const char* text = "txtQuestion";
  Play({
      {"", "{Alt+N}M. \"Zé\"\n007\n 12\n3\n25\n", "Command1"},
      {"09:01:00", "\n", "txtEpisodeName"},

      // A question/answer segment that is begun and abandoned; another activity, revised.
      {"09:01:10", "Whole class\t", "Option0_0"},
      {"09:01:20", "q ", text},
      {"", "Whe\n{Alt+A}", text},
      {"09:01:30", "{Alt+A}", "txtEpisodeName"},
      {"09:01:40", "  Warm-up: \"courage\", joy & café \t", "Option0_0"},
      {"09:01:45", "p ", "Option0_0"},
      {"09:01:50", "d ", "Option0_0", Declined(kRevise)},
      {"09:02:00", "d ", "Option0_1", kRevise},

      // The header: one more student, then class 13, then another student.
      {"09:02:30", "{Backtab}{Backtab}26{Up}{Up}{Up}{Backspace}3\n", "txtObservNum", overwrite},
      {"09:03:00", "\n\n{Backspace}7\n", "txtSchoolNum"},
      {"09:04:30", "{Alt+S}l ", "Option0_3", kSegment},
      {"", "{Alt+A}Atticus, \"before the jail\"{Alt+O}", "Option0_3"},
      {"09:05:30",
       "{Alt+F}",
       "Option0_3",
       {},
       {.notes = "Late start – fire drill.\r\n\r\n\"Boo\" on the board"}},
      {"09:06:30", "{Alt+O}", "Option0_3", {}, Estimate("3", "27")},

      {"09:10:00", "{Alt+Q}", text},
      {"09:10:30", "Whe\n{Alt+A}re is Boo, exactly?\n\n\n\n\n\nAna\n\n\n", text},
      {"", "dropped\ns\n{Alt+A}Who said \"no\", then?\nt\ny\na\nt\nh\nRosa, M.\ny\ne\n", text},
      {"", "Pourquoi si tôt ?\ns\ny\nn\na\nr\nZoë\nc\ne\n", text},
      {"", "Is (<----- 9 ; 9 ----->) a number\nt\nn\n  two blanks, and behind  \ns\nn\n Luis \n",
       text},
      {"09:12:00", "Which word tells you?\n{Alt+M}Ben\n\n\n", text},
      {"", "a slip\nt\nn\n{Alt+L}", text},
      {"", "Does it matter?\nt\ny\na\na\nh\n\ny\nu\n", text},
      {"", "Can we stop?\ns\n\n\n\n\n\n\n\n", text},
      {"", "What next?\nx\nq\nzz\nb\nm\nAl\np\nk\n", text},
      {"", "left half way\ns\ny\n{Ctrl+N}{Ctrl+N}", text},
      {"", "Is it Kim's?\ns\ny\n\n\n\nKim\no{Up}{Up}{Up}{Up}{Up}{Up}t\n\n\n\n\n\n\n\n", text},
      {"09:13:00", "half way in\ns{Alt+O}", "Text1", {}, Estimate("6", "24")},
      {"", "\n{Alt+A}", text},
      {"", "{Alt+S}", text, Declined(kSegment)},
      {"09:14:00", "{Alt+S}", "Option0_4", kSegment},

      // A segment that turns out to be an episode of its own.
      {"", "d ", "Option0_5"},
      {"", "{Alt+A}who is \"brave\"?{Alt+O}", "Option0_5"},
      {"09:16:00", "{Alt+T}", "txtEpisodeName"},
      {"09:16:10", "Second: drafting\t", "Option0_5"},
      {"09:20:00", "{Alt+S}r ", "Option0_7", kSegment},
      {"09:21:00.500", "{Alt+S}s ", "Option0_8", kSegment, Estimate("1", "24")},
      {"09:22:02", "{Alt+S}", "Option0_8", kSegment},
      {"", "ssss \t{Up} \t{Down} \t{Down} ", "Option5_1"},
      {"", "{Alt+P}", "Option5_1", Declined(kEpisode)},
      {"09:25:02", "{Alt+P}", "txtEpisodeName", kEpisode},

      // An episode that turns out to be only a segment.
      {"09:25:10", "Too early\t", "Option0_0"},
      {"09:25:15", "g ", "Option0_10"},
      {"09:26:00", "{Alt+T}", "txtEpisodeName"},
      {"09:26:10", "\trr ", "Option0_9", kRevise},
      {"09:27:02", "{Alt+S}q ", text, kSegment},
      {"09:28:00", "{Alt+C}", text, {}, {.seconds = 88}},
      {"", "May I read?\ns\nn\nAna\nWho's next?\nt\nn\n", text},
      {"", "Same again\ns\ny\n{Alt+M}Eva\n\n\n", text},
      {"", "How would you put it?\nt\ny\na\n\nh\n\"Max\", twice\n\ne\n", text},
      {"", "unfinished\nt\ny\n{Alt+N}But why?\ns\ny\na\nt\nh\nMia\no\ne\n", text},
      {"", "{Alt+D}\t\t\t\t\t", "Command5"},
      {"09:33:02", " ", "Option0_9"},
      {"09:34:02", "{Alt+S}c ", "Option0_2", kSegment},
      {"09:35:02", "{Alt+P}", "txtEpisodeName", kEpisode},

      // The activities that have codes of their own.
      {"09:35:10", "Grammar – “who” or “whom”\t", "Option0_0"},
      {"09:35:15", "t ", "Option0_12"},
      {"09:38:02", "{Alt+S}", "Option0_12", kSegment},
      {"", "s \t \t{Down}\t{Down}\t{Down}", "Combo3"},
      {"09:41:02", "{Alt+S}", "Option0_13", kSegment, Estimate("2", "24")},
      {"", " \t {Backtab}", "Option0_13"},
      {"09:41:30", "s ", "Option0_14", kRevise},
      {"", "\t\tworkbook\thigher order\t?", "Combo3"},
      {"09:43:02", "{Alt+S}", "Option0_14", kSegment},
      {"", "u \t{Down} \tother", "Combo1"},
      {"09:44:02", "{Alt+S}", "Option0_15", kSegment, Estimate("12", "24")},
      {"", "s \t{Down}{Down}{Down} ", "Option2_3"},
      {"09:46:02", "{Alt+S} ", "Option0_16", kSegment, Estimate("24", "24")},
      {"09:46:32", "{Alt+S}o ", "Option0_11", kSegment, Estimate("0", "24")},
      {"", "{Alt+A} assembly, gym {Alt+O}", "Option0_11"},
      {"09:47:32", "{Alt+Q}", text},
      {"09:48:00", "“Who” – and why?\n\n\n\n\n\nNoé\n\n\n", text},
      {"", "I changed my mind\nt\ny\na\nt\nh\nLea\n{Up}{Up}{Up}{Up}{Up}n\n", text},
      {"", "May we? No. Yes.\ns\nn\nTom{Up}y\na\n\nh\nas\nc\n\n", text},
      {"", "dropped too\nt{Alt+D}", text},
      {"", "{Alt+P}", text, Declined(kEpisode)},
      {"", "{Alt+P}", "Command11_0", kEpisode},
      {"09:50:32", "n", "txtEpisodeName"},

      // Students ask questions.
      {"09:50:40", "Students ask\t", "Option0_0"},
      {"09:50:45", "q ", text},
      {"09:52:00", "Is it long?\ns\nn\nA\nIs it due?\ns\nn\nB\n", text},
      {"", "Can we work together?\ns\ny\n\n\n\nC\n\n\nReally?\ns\nn\n\n", text},
      {"", "Who has it?\nt\nn\nWho else?\nt\nn\nAnd you?\n{Alt+M}\n\n\n", text},
      {"", "What for?\ns\nn\nD\nunheard{Ctrl+N}", text},
      {"", "Now?\ns\nn\nE\nAnybody?\nt\nn\n", text},
      {"", "{Alt+P}", "Command11_0", kEpisode},
      {"09:54:32", " ", "txtEpisodeName"},

      {"09:54:40", "Wrap-up, at last\t", "Option0_0"},
      {"09:54:45", "g ", "Option0_10"},
      {"09:56:32", "{Alt+S}p ", "Option0_0", kSegment},
      {"10:00:00", "{Alt+E}", "Option0_0", Declined(kEnd)},
      {"", "{Alt+E}", "Command7", {{kEnd.text, Answer::yes, Answer::no}}},

      // The survey is filled in after the class has been stored.
      {"10:02:00", "{Alt+M}", "Check1_0"},
      {"", " {Up} other things{Ctrl+PgDown}12n{Down}3", "Option6_0"},
      {"", "{Alt+R}", "Command7"},
      {"10:03:00", "{Alt+M}{Ctrl+PgUp}", "Text5"},
      {"", "{End}{Backspace}{Alt+R}", "Command7"},
      {"", "{Alt+X}", "Command7"},
  });
  ExpectFiles("7/13/", "7-13-3");
  EXPECT_FALSE(std::filesystem::exists(desk_.folder / "BAK/7/12/7-12-3.bak"));
}

TEST_F(RecordedClass, RunsOnAcrossMidnight) {
  desk_.clock.Set(23, 49, 30);
  Play({
      {"", "{Alt+N}\n1\n2\n3\n30\n", "Command1"},
      {"23:50:00", "\n", "txtEpisodeName"},
      {"", "Night class\tss ", "Option0_8"},
      {"23:59:30", "{Alt+Q}", "txtQuestion", {}, {}, "09 : 30;09 : 30; 23 : 59 : 30;"},
      {"", "Still awake?\nt\nn\n", "txtQuestion"},
      {"00:00:15", "", "txtQuestion", {}, {}, "10 : 15;00 : 45; 00 : 00 : 15;"},
      {"", "What day is it?\n{Alt+M}Ana\n\n\n", "txtQuestion"},
      {"00:05:00", "{Alt+P}", "Command11_0", kEpisode},
      {"", "{Alt+Y}Home\to ", "Option0_11"},
      {"", "{Alt+A}ghosts{Alt+O}", "Option0_11"},
      {"00:20:00", "{Alt+E}", "Option0_11", kEnd, {}, "15 : 00;15 : 00; 00 : 20 : 00;"},
  });
  ExpectFiles("1/2/", "1-2-3");
}

}  // namespace
}  // namespace orvex
