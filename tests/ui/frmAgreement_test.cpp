// The agreement of two observers in its window, by its keys.

#include "ui/forms/frmAgreement.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableView>

#include "support/desk.h"
#include "support/faulty_storage.h"
#include "ui/Forms.h"
#include "ui/keys.h"
#include "ui/text.h"
#include "ui/widgets/ActivityStrips.h"
#include "ui/widgets/AgreementBars.h"
#include "ui/widgets/StudyTable.h"

namespace orvex {
namespace {

using namespace test;
namespace fs = std::filesystem;

struct Asked {
  const char* text;
  const char* authenticity = "N";
  const char* uptake = "N";
};

/// Ten minutes of questions after some of lecture, observed by `initials`.
ObservedClass Observed(const char* initials, const char* number, int lecture, int logStart,
                       const std::vector<Asked>& questions) {
  ObservedClass made;
  made.file = fs::path("/data") / (std::string("5-12-") + number + ".eps");
  made.logStart = logStart;
  made.observation.header.identity = {initials, "5", "12", number, "25"};
  made.observation.header.ObservDate = "03-14-2001";
  Episode& episode = made.observation.Episodes.emplace_back();
  episode.segments.emplace_back().SetData(4, static_cast<float>(lecture));
  episode.segments.emplace_back().SetData(kQuestionAnswer, 600);
  for (const Asked& asked : questions) {
    episode.questions.emplace_back().SetValue(
        asked.text, {"T", "Y", asked.authenticity, asked.uptake, "R", "", "N", "", "U"}, 1, 2);
  }
  return made;
}

/// Two observers. They agree on the first question, coded two otherwise, and each has one of their
/// own at the end.
struct Compared : Desk {
  Compared() {
    auto comparison =
        std::make_unique<Comparison>(Observed("AB", "3", 60, 36000,
                                              {{"Why does he leave the farm?"},
                                               {"Who wrote the second letter?"},
                                               {"Would anybody go back there?", "A"},
                                               {"What colour is the house?"}}),
                                     Observed("MN", "4", 70, 36020,
                                              {{"Why does he leave the farm"},
                                               {"who wrote the second letter", "N", "T"},
                                               {"would anybody go back there?"},
                                               {"Did everybody finish reading?"}}));
    form = std::make_unique<frmAgreement>(
        Services{program, log, recovery, faulty, clock, prompter, screens, programFolder},
        std::move(comparison));
    Activate(*form);
    Settle();
  }

  StudyTable& Pairs() const { return *Find<StudyTable>(*form, "tblPairs"); }
  int Rows() const { return Pairs().model()->rowCount(); }
  int Row() const { return Pairs().currentIndex().row(); }
  std::string Cell(int row, int column) const {
    return Pairs().model()->index(row, column).data().toString().toStdString();
  }
  std::string Marks() const {
    std::string marks;
    for (int row = 0; row < Rows(); ++row) marks += Cell(row, 0) + "|";
    return marks;
  }
  std::string Text(const char* label) const {
    return Find<QLabel>(*form, label)->text().toStdString();
  }
  std::string Details() const {
    return Find<QPlainTextEdit>(*form, "txtPair")->toPlainText().toStdString();
  }
  std::string Page() const {
    return Find<QTabWidget>(*form, "pages")->currentWidget()->objectName().toStdString();
  }
  std::string Figures() const {
    return Find(*form, "barsCodes")->accessibleDescription().toStdString();
  }

  FaultyStorage faulty;
  std::unique_ptr<frmAgreement> form;
};

constexpr const char* kAsMade = "|\u2260 coded otherwise|\u2260 coded otherwise|only AB|only MN|";

TEST(AgreementForm, PairsPartsAndUndoesByKeys) {
  Compared desk;
  Keys("{Alt+Q}");
  EXPECT_EQ(FocusedName(), "tblPairs");
  EXPECT_EQ(desk.Marks(), kAsMade);
  Keys("{Insert}");
  EXPECT_EQ(desk.Marks(), kAsMade) << "a pair of both cannot be paired again";
  Keys("{Down}{Down}{Down}{Insert}");  // the row of AB's own question, with the nearest
  EXPECT_EQ(desk.Rows(), 4);
  EXPECT_EQ(desk.Row(), 3);
  EXPECT_EQ(desk.Cell(3, 4), "Did everybody finish reading?");
  EXPECT_NE(desk.Figures().find("Source: n 4"), std::string::npos) << desk.Figures();
  Keys("{Delete}");
  EXPECT_EQ(desk.Marks(), kAsMade);
  EXPECT_EQ(desk.Row(), 3);
  EXPECT_EQ(FocusedName(), "tblPairs");
  Keys("{Ctrl+Home}{Ctrl+Z}");
  EXPECT_EQ(desk.Rows(), 4);
  EXPECT_EQ(Find<StudyTable>(*desk.form, "tblPairs")->SelectedRows(), std::vector<std::size_t>{3})
      << "what was undone is shown";
  Keys("{Ctrl+Z}{Ctrl+Z}");
  EXPECT_EQ(desk.Marks(), kAsMade);
  Keys("{Alt+O}{Ctrl+Y}{Alt+Q}");
  EXPECT_EQ(desk.Rows(), 4);
  Keys("{Alt+W}");
  EXPECT_EQ(desk.Marks(), kAsMade);
  // Two rows that are selected.
  Keys("{Ctrl+End}{Up}{Shift+Down}{Insert}");
  EXPECT_EQ(desk.Rows(), 4);
}

TEST(AgreementForm, GoesFromOneDisagreementToTheNext) {
  Compared desk;
  Keys("{Alt+Q}");
  for (const int row : {1, 2, 3, 4, 4}) {
    Keys("{F8}");
    EXPECT_EQ(desk.Row(), row);
  }
  Keys("{Shift+F8}");
  EXPECT_EQ(desk.Row(), 3);
  Keys("{Up}{Up}");
  EXPECT_NE(desk.Details().find("Uptake: AB N (None), MN T (Test)"), std::string::npos)
      << desk.Details();
  Keys("{Alt+Y}");
  EXPECT_EQ(desk.Rows(), 4);
  EXPECT_EQ(desk.Cell(desk.Row(), 2), "Who wrote the second letter?") << "the row stays";
  QComboBox& dimension = *Find<QComboBox>(*desk.form, "cboDimension");
  dimension.setCurrentIndex(dimension.findText(QStringLiteral("Authenticity")));
  ASSERT_EQ(desk.Rows(), 1);
  EXPECT_EQ(desk.Cell(0, 6), "Authenticity A / N");
  Find(*desk.form, "tblPairs")->setFocus();
  Keys("{Ctrl+C}");
  EXPECT_EQ(QApplication::clipboard()->text().count(QLatin1Char('\t')), 12);
}

TEST(AgreementForm, LeadsFromACellToItsQuestionsAndBack) {
  Compared desk;
  // The filter has nothing to say of the questions of a cell.
  Find<QComboBox>(*desk.form, "cboDimension")->setCurrentIndex(1);
  Keys("{Alt+T}");
  EXPECT_EQ(FocusedName(), "tblCodes");
  QComboBox& table = *Find<QComboBox>(*desk.form, "cboTable");
  table.setCurrentIndex(table.findText(QStringLiteral("Uptake")));
  Keys("{Right}");
  EXPECT_EQ(desk.Text("lblCell"), "AB: N (None), MN: T (Test): 1.  Enter shows these questions.");
  Keys("\n");
  EXPECT_EQ(desk.Page(), "questionsPage");
  ASSERT_EQ(desk.Rows(), 1);
  EXPECT_EQ(desk.Cell(0, 2), "Who wrote the second letter?");
  EXPECT_EQ(FocusedName(), "tblPairs");
  EXPECT_EQ(desk.Text("lblShown"), "AB: N (None), MN: T (Test).  1 of 5 rows, 1 disagreements");
  Keys("{Esc}");
  EXPECT_EQ(desk.Page(), "tablesPage");
  Find<QComboBox>(*desk.form, "cboDimension")->setCurrentIndex(0);
  EXPECT_EQ(desk.Rows(), 5);
  EXPECT_EQ(Find<QTableView>(*desk.form, "tblCodes")->currentIndex().column(), 1);
  Keys("{Ctrl+C}");
  EXPECT_TRUE(QApplication::clipboard()->text().contains(QLatin1Char('\t')));
  // A sum leads nowhere; the activities lead to where they are drawn.
  Keys("{Ctrl+End}\n");
  EXPECT_EQ(desk.Page(), "tablesPage");
  table.setCurrentIndex(table.count() - 1);
  Keys("{Ctrl+Home}{Down}\n");
  EXPECT_EQ(desk.Page(), "overviewPage");
  EXPECT_EQ(FocusedName(), "stripActivities");
  EXPECT_EQ(desk.Text("lblStretch"),
            Find<ActivityStrips>(*desk.form, "stripActivities")->Text().toStdString());
  EXPECT_EQ(desk.Text("lblStretch").find("Stretch 1 of 1, 1:00 to 1:30: AB"), 0U)
      << desk.Text("lblStretch");
}

TEST(AgreementForm, TakesOverWhatIsComparedAtOnce) {
  Compared desk;
  const auto figure = [&desk](const QString& name) {
    const auto labels = desk.form->findChildren<QLabel*>();
    for (qsizetype i = 0; i + 1 < labels.size(); ++i) {
      if (labels[i]->text() == name) return labels[i + 1]->text().toStdString();
    }
    return std::string("none");
  };
  EXPECT_EQ(desk.Text("lblOffsetFrom"), "from the session logs");
  EXPECT_EQ(Find<QSpinBox>(*desk.form, "spnOffset")->value(), 20);
  EXPECT_EQ(figure(QStringLiteral("Equal seconds")), "95.31 %");
  Keys("{Alt+F}{Ctrl+A}-10");
  EXPECT_EQ(desk.Text("lblOffsetFrom"), "as you stated");
  EXPECT_EQ(figure(QStringLiteral("Equal seconds")), "100.00 %");
  Keys("{Alt+G}");
  EXPECT_EQ(desk.Text("lblOffsetFrom"), "from the session logs");
  EXPECT_EQ(figure(QStringLiteral("Equal seconds")), "95.31 %");
  const std::string before = figure(QStringLiteral("Share of boundaries"));
  Keys("{Alt+L}{Ctrl+A}30");
  EXPECT_NE(figure(QStringLiteral("Share of boundaries")), before);
  EXPECT_NE(figure(QStringLiteral("Kappa within 30 s, AB first")), "none");
  // The words of a trainee, measured by the master.
  Find<QComboBox>(*desk.form, "cboMaster")->setCurrentIndex(1);
  Settle();
  EXPECT_EQ(desk.Marks(), "|\u2260 coded otherwise|\u2260 coded otherwise|missed|added|");
}

TEST(AgreementForm, OpensAQuestionInEitherFile) {
  Compared desk;
  Keys("{Alt+Q}{Down}\n");
  EXPECT_EQ(
      desk.screens.Take(),
      (std::vector<std::string>{"show question 1.2, Who wrote the second letter?, of 5-12-3.eps",
                                "hide agreement"}));
  EXPECT_EQ(desk.program.DataPath, fs::path("/data"));
  Keys("{Shift+Return}");
  EXPECT_EQ(desk.screens.Take().at(0),
            "show question 1.2, who wrote the second letter, of 5-12-4.eps");
  Keys("{Down}{Down}{Shift+Return}");
  EXPECT_TRUE(desk.screens.Take().empty()) << "MN has no such question";
  // A file that cannot be read leaves the agreement where it is.
  desk.screens.episodeFileIsGood = false;
  Keys("\n");
  EXPECT_EQ(desk.screens.Take().size(), 1U);
}

TEST(AgreementForm, LosesNoPairsThatWereMadeByHand) {
  Compared desk;
  const fs::path table = desk.folder / "pairs.csv";
  Keys("{Alt+Q}{Down}{Down}{Down}{Insert}");
  constexpr const char* kAsk = "Save the pairs that were changed by hand?";
  desk.prompter.Expect(kAsk, Answer::cancel);
  Keys("{Esc}");
  EXPECT_TRUE(desk.screens.Take().empty());
  EXPECT_EQ(desk.prompter.asked.back().defaultAnswer, Answer::yes);
  EXPECT_EQ(desk.prompter.asked.back().buttons, Buttons::yesNoCancel);
  // The first attempt to save them fails.
  desk.faulty.Fail(1, ENOSPC, "write");
  desk.prompter.Expect(kAsk, Answer::yes);
  desk.prompter.ExpectSaveFile({table, desk.folder.Path()});
  desk.prompter.Expect("The pairs could not be saved.", Answer::yes);
  Keys("{Esc}");
  EXPECT_EQ(desk.screens.Take(), (std::vector<std::string>{"show mainMenu", "close agreement"}));
  EXPECT_EQ(FileBytes(table), "first,second\r\n1,1\r\n2,2\r\n3,3\r\n4,4\r\n");
  // What is saved can be loaded; what is wrong in a table is told, and changes nothing.
  Keys("{Alt+W}");
  PutFile(desk.folder / "bad.csv", "first,second\r\n9,1\r\n");
  desk.prompter.ExpectFile({desk.folder / "bad.csv", desk.folder.Path()});
  desk.prompter.Expect("The pairs could not be read.", Answer::ok);
  Keys("{Alt+I}");
  EXPECT_NE(desk.prompter.asked.back().details.find("line 2"), std::string::npos);
  EXPECT_EQ(desk.Marks(), kAsMade);
  desk.prompter.ExpectFile({table, desk.folder.Path()});
  Keys("{Alt+I}");
  EXPECT_EQ(desk.Rows(), 4);
  Keys("{Alt+C}");
  EXPECT_EQ(desk.screens.Take().size(), 2U) << "nothing is unsaved";
}

/// A sample pair in a folder, in the windows of a program that ends however it ends.
struct SamplePair : Desk {
  SamplePair() {
    for (const char* name : {"35-6-1.eps", "35-6-2.eps"}) {
      PutFile(folder / name, FileBytes(TestData(std::string("pairs/EPS/35/6/") + name)));
    }
  }
  bool Open() {
    forms.emplace(program, log, recovery, storage, clock, prompter, programFolder);
    const bool shown = forms->ShowAgreement(folder / "35-6-1.eps", folder / "35-6-2.eps", 7);
    Settle();
    return shown;
  }
  std::optional<Forms> forms;
};

TEST(AgreementForm, KeepsPairsThatAreNotSavedWhenTheProgramEnds) {
  SamplePair desk;
  const fs::path kept = desk.folder / "35-6-1 35-6-2 pairs.csv.recovery";
  const auto marks = [] {
    return Find<StudyTable>(*QApplication::activeWindow(), "tblPairs")->model()->rowCount();
  };
  ASSERT_TRUE(desk.Open());
  const int asMade = marks();
  Keys("{Alt+Q}{Down}{Down}{Delete}");
  ASSERT_EQ(marks(), asMade + 1);
  desk.forms->KeepAll();
  desk.forms.reset();
  EXPECT_TRUE(fs::exists(kept));
  constexpr const char* kAsk =
      "35-6-1 35-6-2 pairs.csv was changed on 03-14-2001 at 09:00:00, and the changes were not "
      "saved.";
  desk.prompter.Expect(kAsk, Answer::cancel);
  EXPECT_FALSE(desk.Open()) << "left for later";
  desk.prompter.Expect(kAsk, Answer::yes);
  ASSERT_TRUE(desk.Open());
  EXPECT_EQ(marks(), asMade + 1);
  // Once taken up, they are the user's to save or to leave.
  desk.prompter.Expect("Save the pairs that were changed by hand?", Answer::no);
  Keys("{Esc}");
  EXPECT_FALSE(fs::exists(kept));
}

/// Opens a question of a sample pair in its file, changes a code, and comes back.
TEST(AgreementForm, ComesBackFromAFileToTheSameRow) {
  SamplePair desk;
  ASSERT_TRUE(desk.Open());
  QWidget& form = *QApplication::activeWindow();
  ASSERT_EQ(form.objectName(), QLatin1String("frmAgreement"));
  StudyTable& pairs = *Find<StudyTable>(form, "tblPairs");
  Keys("{Alt+Q}{Down}{Down}");
  const QString codes = pairs.model()->index(2, 3).data().toString();
  Keys("\n");
  ASSERT_EQ(QApplication::activeWindow()->objectName(), QLatin1String("frmQA"));
  EXPECT_FALSE(form.isVisible());
  Find(*QApplication::activeWindow(), "OptSrc_1")->setFocus();
  Keys(" ");
  Keys("{Alt+R}");
  ASSERT_EQ(QApplication::activeWindow()->objectName(), QLatin1String("frmClassEdit"));
  desk.prompter.Expect("Save Data?", Answer::yes);
  Keys("{Alt+Q}");
  ASSERT_TRUE(form.isVisible());
  EXPECT_EQ(FocusedName(), "tblPairs");
  EXPECT_EQ(pairs.currentIndex().row(), 2);
  EXPECT_NE(pairs.model()->index(2, 3).data().toString(), codes);
  // The other file is broken meanwhile: the message names it, and the agreement stays.
  PutFile(desk.folder / "35-6-2.eps", "1");
  Keys("\n");
  Keys("{Alt+R}");
  desk.prompter.Expect("Save Data?", Answer::no);
  desk.prompter.Expect("The file could not be read.", Answer::ok);
  Keys("{Alt+Q}");
  ASSERT_TRUE(form.isVisible());
  EXPECT_NE(desk.prompter.asked.back().details.find("35-6-2.eps"), std::string::npos);
  Keys("{Esc}");
  EXPECT_EQ(QApplication::activeWindow()->objectName(), QLatin1String("frmSplash"));
}

}  // namespace
}  // namespace orvex
