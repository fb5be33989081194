// The dialogs of a class, and how the keyboard works in them.

#include <gtest/gtest.h>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSlider>
#include <QTextBlock>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "model/episode.h"
#include "support/fake_clock.h"
#include "support/scripted_prompter.h"
#include "ui/QtPrompter.h"
#include "ui/forms/dlgFieldNote.h"
#include "ui/forms/dlgLog.h"
#include "ui/forms/dlgTimer.h"
#include "ui/keys.h"
#include "ui/text.h"
#include "ui/widgets/NotesBox.h"

namespace orvex {
namespace {

using namespace test;

/// Presses `keys` in the next dialog that opens, then calls `then` if it is still open.
void PressInTheNext(const std::string& keys, std::function<void(QDialog&)> then = {}) {
  QTimer::singleShot(0, [keys, then = std::move(then)] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    Keys(keys);
    if (!dialog->isVisible()) return;
    if (then) then(*dialog);
    if (dialog->isVisible()) dialog->reject();
  });
}

TEST(OfftaskForm, TakesAnEstimateWithEnterFromBoxToBox) {
  const std::tuple<const char*, bool, const char*, const char*> cases[] = {
      {"5\n\n\n", true, "5", "25"},
      {"5{Down}{Down} ", true, "5", "25"},
      {"\n4{Backtab}3{Up}\n", true, "3", "254"},
      {"{Up}\n", true, "0", "25"},
      {"\t24{Up}7\n\n ", true, "07", "24"},
      {"5{Alt+O}", true, "5", "25"},
      {"5\n24\n\t\n", false, "5", "2524"},
      {"5{Alt+S}", false, "5", "25"},
      {"5{Esc}", false, "5", "25"},
      {"x{Esc}", false, "0", "25"},
      {"x\n{Alt+O}", true, "0", "25"},  // "0" and the focus come back; the second try works
      {"\t0\n{Alt+O}", true, "0", "25"},
  };
  for (const auto& [keys, accepted, offtask, students] : cases) {
    SCOPED_TRACE(keys);
    OfftaskPrompt prompt = {.students = "25"};
    PressInTheNext(keys, [](const QDialog&) { ADD_FAILURE() << "still open"; });
    EXPECT_EQ(QtPrompter().AskOfftask(prompt), accepted);
    EXPECT_EQ(prompt.offtask, offtask);
    EXPECT_EQ(prompt.students, students);
  }
}

TEST(OfftaskForm, KeepsTheFocusInABoxThatIsNoNumber) {
  for (const char* keys : {"x\n", "x{Up}", "x\t", "x{Alt+S}", "x{Alt+O}"}) {
    SCOPED_TRACE(keys);
    OfftaskPrompt prompt = {.students = "25"};
    PressInTheNext(keys, [](const QDialog& dialog) {
      EXPECT_EQ(FocusedName(), "Text1");
      EXPECT_EQ(Find<QLineEdit>(dialog, "Text1")->selectedText(), QStringLiteral("0"));
    });
    EXPECT_FALSE(QtPrompter().AskOfftask(prompt));
  }
}

TEST(AdjustForm, SetsTheSecondsWithSliderOrNumber) {
  const std::tuple<const char*, std::optional<int>> cases[] = {
      {"{Right}{Right}\n\n", 92}, {"{PgUp} {Alt+O}", 99},         {"{Home}\n ", 0},
      {"\t120\n\n", 120},         {"{End}{Alt+C}", std::nullopt}, {"{End}{Esc}", std::nullopt},
      {"\t{End}9\n\n", 180},  // 909 would be too many
  };
  for (const auto& [keys, seconds] : cases) {
    SCOPED_TRACE(keys);
    PressInTheNext(keys, [](const QDialog&) { ADD_FAILURE() << "still open"; });
    EXPECT_EQ(QtPrompter().AskSeconds({.maximum = 180, .seconds = 90}), seconds);
  }
  PressInTheNext("{Right}", [](const QDialog& dialog) {
    EXPECT_EQ(Find<QLineEdit>(dialog, "Text1")->text(), QStringLiteral("91"));
    EXPECT_EQ(Find<QSlider>(dialog, "Slider1")->tickInterval(), 9);
  });
  EXPECT_EQ(QtPrompter().AskSeconds({.maximum = 180, .seconds = 90}), std::nullopt);
}

TEST(LogForm, FindsATextForwardsAndBackwardsAndAroundTheEnd) {
  const std::string log = "LOG ON: 09:00:00\r\nEp. 1 Sg. 1\r\nEp. 1 Sg. 2\r\nLOG OFF: 09:41:00";
  const std::tuple<const char*, int, const char*> cases[] = {
      {"{Ctrl+F}ep. 1", 17, ""},
      {"{Ctrl+F}ep. 1\n", 29, ""},
      {"{Ctrl+F}ep. 1{F3}{F3}", 17, "Again from the start"},
      {"{Alt+F}log{Shift+F3}", 41, "Again from the end"},
      {"{Ctrl+F}log\n{Alt+P}", 0, ""},
      {"{Ctrl+F}LOG OFF", 41, ""},  // with each letter, the first place from where it was
      {"{Ctrl+F}nothing", 0, "Not found"},
      {"{Ctrl+F}nothing{Ctrl+F}sg{Alt+N}", 35, ""},
      {"x{Del}", 0, ""},
  };
  for (const auto& [keys, position, outcome] : cases) {
    SCOPED_TRACE(keys);
    dlgLog dialog("5-12-3.bak", log);
    PressInTheNext(keys, [&](const QDialog& open) {
      const auto* text = Find<NotesBox>(open, "txtLog");
      EXPECT_EQ(text->textCursor().selectionStart(), position);
      EXPECT_EQ(Find<QLabel>(open, "lblFound")->text(), QLatin1String(outcome));
      EXPECT_EQ(FromQt(text->Notes()), log);
    });
    dialog.exec();
  }
  for (const char* keys : {"{Esc}", "{Alt+C}", "{Ctrl+F}log{Esc}"}) {
    dlgLog dialog("5-12-3.bak", log);
    PressInTheNext(keys, [](const QDialog&) { ADD_FAILURE() << "still open"; });
    dialog.exec();
  }
}

TEST(FieldNoteForm, KeepsWhatIsTypedUnlessItIsCancelled) {
  const std::string notes = "One\r\nTwo\nlines";  // the program never writes a lone line feed
  const std::tuple<const char*, std::optional<std::string>> cases[] = {
      {"{Alt+S}", notes},
      {"!\n?{Alt+S}", "One\r\nTwo\r\nlines!\r\n?"},
      {"{Alt+Z}!{Backspace}{Alt+S}", "One\r\nTwo\r\nlines"},
      {"!\t ", "One\r\nTwo\r\nlines!"},
      {"!{Alt+C}", std::nullopt},
      {"{Esc}", std::nullopt},  // nothing has changed, so nothing is asked
  };
  for (const auto& [keys, expected] : cases) {
    SCOPED_TRACE(keys);
    PressInTheNext(keys, [](const QDialog&) { ADD_FAILURE() << "still open"; });
    EXPECT_EQ(QtPrompter().AskNotes({.notes = notes}), expected);
  }
  PressInTheNext("!{Alt+S}");
  EXPECT_EQ(QtPrompter().AskNotes({.notes = "a\u00A0b"}), "a\u00A0b!")
      << "a no-break space is none to change";
  // Closing the window does the same.
  PressInTheNext("!", [](QDialog& dialog) { dialog.close(); });
  EXPECT_EQ(QtPrompter().AskNotes({.notes = "A"}), "A!");
}

TEST(FieldNoteForm, AsksWhatEscapeMeansForWhatWasTyped) {
  const std::tuple<Answer, std::optional<std::string>, std::vector<std::string>> cases[] = {
      {Answer::yes, "A!", {"A!"}},
      {Answer::no, std::nullopt, {"A!", "A"}},
      {Answer::cancel, "A!?", {"A!", "A!?"}},  // back to the notes
  };
  for (const auto& [answer, expected, told] : cases) {
    ScriptedPrompter prompter;
    prompter.Expect("Save changes?", answer);
    std::vector<std::string> typed;
    dlgFieldNote dialog(
        {.notes = "A", .typed = [&](const std::string& text) { typed.push_back(text); }}, prompter);
    PressInTheNext("!{Esc}", [](QDialog& open) {
      Keys("?");
      open.close();
    });
    dialog.exec();
    EXPECT_EQ(dialog.Notes(), expected);
    EXPECT_EQ(typed, told);
    EXPECT_EQ(prompter.asked.at(0).defaultAnswer, Answer::yes) << "Enter loses nothing";
  }
  // Text typed before the program ended counts as typed.
  PressInTheNext("?{Alt+S}");
  EXPECT_EQ(QtPrompter().AskNotes({.notes = "A", .draft = "A\r\nB"}), "A\r\nB?");
}

/// Editing a line that is shown in several pieces has the same result as editing any other.
TEST(FieldNoteForm, TakesEditsOfALongLineAsOfAnyOther) {
  NotesBox box;
  QString notes;
  for (int i = 0; i < 1500; ++i) notes += QStringLiteral("word %1, ").arg(i);
  notes += QString(5000, QLatin1Char('x')) + QStringLiteral("\r\nend");
  box.SetNotes(notes);
  EXPECT_EQ(box.Notes(), notes);
  EXPECT_GT(box.document()->blockCount(), 6);
  EXPECT_FALSE(box.document()->isModified() || box.document()->isUndoAvailable());

  const QTextBlock second = box.document()->findBlockByNumber(1);
  const qsizetype at = second.position() - 1;  // without the break before it
  const auto to = [&](int position) {
    QTextCursor cursor = box.textCursor();
    cursor.setPosition(position);
    box.setTextCursor(cursor);
  };
  const std::tuple<int, Qt::Key, QString> cases[] = {
      {0, Qt::Key_Backspace, notes.left(at - 1) + notes.mid(at)},
      {-1, Qt::Key_Delete, notes.left(at) + notes.mid(at + 1)},
      {0, Qt::Key_Return, notes.left(at) + QStringLiteral("\r\n") + notes.mid(at)},
      {-1, Qt::Key_Return, notes.left(at) + QStringLiteral("\r\n") + notes.mid(at)},
  };
  for (const auto& [from, key, expected] : cases) {
    to(second.position() + from);
    QTest::keyClick(&box, key);
    EXPECT_EQ(box.Notes(), expected) << key;
    box.undo();
    EXPECT_EQ(box.Notes(), notes) << key;
  }
  // Cut everything, and paste it twice.
  box.selectAll();
  box.cut();
  EXPECT_EQ(box.Notes(), QString());
  box.paste();
  box.paste();
  EXPECT_EQ(box.Notes(), notes + notes);
  EXPECT_GT(box.document()->blockCount(), 12);
  box.undo();
  box.undo();
  box.undo();
  EXPECT_EQ(box.Notes(), notes);
}

TEST(DivideTimeForm, TakesTheSecondPart) {
  const std::tuple<const char*, std::optional<int>> cases[] = {
      {"30\n\n", 30},
      {"{Up}{Up}{Down}\n ", 1},
      {"150\t ", 15},
      {"\n\n", 0},
      {"100{Alt+O}", 100},
      {"100{Up}{Down}\n ", 99},
      {"30\t\t\n", std::nullopt},
      {"30{Esc}", std::nullopt},
      {"30{Alt+C}", std::nullopt},
  };
  for (const auto& [keys, seconds] : cases) {
    SCOPED_TRACE(keys);
    PressInTheNext(keys, [](const QDialog&) { ADD_FAILURE() << "still open"; });
    EXPECT_EQ(QtPrompter().AskDivision(100), seconds);
  }
  PressInTheNext("3x0", [](const QDialog& dialog) {
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtFirstSg")->text(), QStringLiteral("70"));
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtSecondSg")->text(), QStringLiteral("30"));
  });
  EXPECT_EQ(QtPrompter().AskDivision(100), std::nullopt);
}

TEST(ChooseQuestionsForm, MovesRowsBetweenTheEpisodes) {
  Episode episode;
  episode.questions.resize(5);
  using Numbers = std::optional<std::vector<int>>;
  const std::tuple<const char*, Numbers> cases[] = {
      {"\n\n\t\t\t\n", Numbers(std::vector<int>{1})},
      {"{Down}{Shift+Down}\t {Tab}{Tab}\n\n", Numbers(std::vector<int>{2, 3})},
      {"{Down}{Shift+Down}\n\n\t\t{Home} {Backtab}\n{Tab}\n\n", Numbers(std::vector<int>{3})},
      {"{Ctrl+A}\t \t\t\n\n", Numbers(std::vector<int>{1, 2, 3, 4, 5})},
      {"\t\t\t\t\n", Numbers(std::vector<int>{})},
      {"\n\n\t\t\t\t\n", std::nullopt},
      {"\n\n{Esc}", std::nullopt},
  };
  for (const auto& [keys, numbers] : cases) {
    SCOPED_TRACE(keys);
    PressInTheNext(keys, [](const QDialog&) { ADD_FAILURE() << "still open"; });
    EXPECT_EQ(QtPrompter().AskQuestions(episode), numbers);
  }
}

TEST(TimerForm, StartsALapOnAnyKey) {
  FakeClock clock(23, 59, 0);
  dlgTimer form(clock);
  Activate(form);
  const auto text = [&form](const char* label) {
    return Find<QLabel>(form, label)->text().toStdString();
  };
  Keys("\n");
  clock.Advance(5);
  TickForms();
  EXPECT_EQ(text("Label2"), "Time elapsed: ") << "Enter starts nothing";
  for (const char* key : {"x", " ", "\t", "{Alt+S}", "{Ctrl+X}", "c"}) {
    SCOPED_TRACE(key);
    Keys(key);
    clock.Advance(6.5);
    TickForms();
    EXPECT_EQ(text("Label2"), "Time elapsed: 6 sec.");
  }
  EXPECT_EQ(text("Label3"), "Total time: 39 sec.");
  EXPECT_EQ(text("Label4"), "PREVIOUS TIME SEGMENT = 6 sec.");
  clock.Advance(60);
  Keys("x");
  EXPECT_EQ(text("Label4"), "PREVIOUS TIME SEGMENT = -86334 sec.") << "it knows no midnight";
  form.close();
  for (const char* key : {"{Ctrl+C}", "{Alt+C}"}) {
    Activate(form);
    EXPECT_EQ(text("Label3") + text("Label4"), "Total time: PREVIOUS TIME SEGMENT = ") << "afresh";
    Keys("xx");
    TickForms();
    Keys(key);
    EXPECT_FALSE(form.isVisible());
  }
}

}  // namespace
}  // namespace orvex
