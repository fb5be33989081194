// The study of the sample observations in its window, driven by keys.

#include "ui/forms/frmStudy.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <filesystem>

#include "faults/played_class.h"
#include "support/desk.h"
#include "ui/Forms.h"
#include "ui/keys.h"
#include "ui/picture/StudyPageView.h"
#include "ui/text.h"
#include "ui/widgets/StudyTable.h"

namespace orvex {
namespace {

using namespace test;
namespace fs = std::filesystem;

/// A data folder with the sample observations. Of one the episode file is cut off, one is there
/// twice, one has lost its survey, one has field notes and a log, and a class was not ended.
class StudyTest : public testing::Test {
 protected:
  StudyTest() {
    for (const char* set : {"class", "odd"}) {
      for (const auto& file : fs::directory_iterator(TestData(set))) {
        const fs::path extension = file.path().extension();
        if (extension != ".eps" && extension != ".sur") continue;
        PutFile(data_ / file.path().filename(), FileBytes(file.path()));
      }
    }
    const std::string whole = FileBytes(data_ / "39-10-19.eps");
    PutFile(data_ / "39-10-19.eps", whole.substr(0, whole.size() / 2));
    PutFile(data_ / "again/11-4-2.eps", FileBytes(data_ / "11-4-2.eps"));
    fs::remove(data_ / "17-17-7.sur");
    PutFile(data_ / "22-5-11.nte", "They share the book.\r\n");
    PutFile(data_ / "22-5-11.bak", FileBytes(TestData("recorded/7-13-3.bak")));
    PlayedClass played(desk_.storage, data_);
    for (std::size_t i = 0; i < 15; ++i) played.Play(i);
    desk_.program.DataPath = data_;
  }

  static QWidget* Form(const char* name) {
    for (QWidget* form : QApplication::topLevelWidgets()) {
      if (form->objectName() == QLatin1String(name)) return form;
    }
    return nullptr;
  }
  static bool Shown(const char* name) { return Form(name) && Form(name)->isVisible(); }

  void Open() {
    forms_.Show(Screen::mainMenu);
    Settle();
    Keys("{Alt+Y}");
    ASSERT_TRUE(Shown("frmStudy"));
    EXPECT_EQ(Form("frmSplash"), nullptr);
    Await();
    EXPECT_EQ(FocusedName(), "tblObservations");
    EXPECT_TRUE(Study().isActiveWindow());
  }
  static QWidget& Study() { return *Form("frmStudy"); }
  /// Waits until everything has been read and is shown.
  static void Await() {
    ASSERT_TRUE(QTest::qWaitFor(
        [] {
          const bool hasBeenRead = !Find(Study(), "cmdStop")->isEnabled();
          const int rows = Rows();
          TickForms();
          return hasBeenRead && Rows() == rows;
        },
        60000));
    Settle();
  }
  /// Lets the form notice what has happened to the files, until `holds`.
  static bool Noticed(const std::function<bool()>& holds) {
    return QTest::qWaitFor(
        [&holds] {
          TickForms();
          return holds();
        },
        60000);
  }

  static StudyTable& Table() { return *Find<StudyTable>(Study(), "tblObservations"); }
  static StudyTable& Questions() { return *Find<StudyTable>(Study(), "tblQuestions"); }
  static int Rows() { return Table().model()->rowCount(); }
  static std::string Cell(const StudyTable& table, int row, const char* heading) {
    const QAbstractItemModel& model = *table.model();
    for (int column = 0; column < model.columnCount(); ++column) {
      if (model.headerData(column, Qt::Horizontal).toString() != QLatin1String(heading)) continue;
      return model.index(row, column).data().toString().toStdString();
    }
    ADD_FAILURE() << "no column " << heading;
    return "";
  }
  /// The row of this observation; -1 when it is not shown.
  static int RowOf(const std::string& name) {
    const auto row = static_cast<const StudyModel*>(Table().model())->RowOf(name);
    return row ? static_cast<int>(*row) : -1;
  }
  static std::string Of(const std::string& name, const char* heading) {
    const int row = RowOf(name);
    return row < 0 ? "not shown" : Cell(Table(), row, heading);
  }
  /// The name of the current observation.
  static std::string Current() {
    const auto row = Table().CurrentRow();
    return row ? static_cast<const StudyModel*>(Table().model())->KeyOf(*row) : "none";
  }
  /// Makes the observation `name` current, by keys.
  static void GoTo(const std::string& name) {
    ASSERT_GE(RowOf(name), 0) << name;
    Keys("{Ctrl+Home}");
    for (int i = 0; i < Rows() && Current() != name; ++i) Keys("{Down}");
    ASSERT_EQ(Current(), name);
  }
  /// Opens a menu with `keys` and chooses in it.
  static void ChooseInMenu(const std::string& keys, const std::vector<Qt::Key>& pressed) {
    QTimer::singleShot(0, [pressed] {
      for (const Qt::Key key : pressed) {
        QWidget* menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr);
        QTest::keyClick(menu, key);
      }
    });
    Keys(keys);
    Settle();
    // Unlike a desktop, the platform of the tests leaves the hidden menu active.
    QApplication::setActiveWindow(&Study());
  }
  /// Presses the key of a check box, which checks it after a moment.
  static void Check(const char* box, const std::string& keys, bool checked = true) {
    Keys(keys);
    ASSERT_TRUE(QTest::qWaitFor(
        [=] { return Find<QCheckBox>(Study(), box)->isChecked() == checked; }, 60000));
  }
  static std::string Text(const char* name) {
    return Find<QLabel>(Study(), name)->text().toStdString();
  }
  /// Presses `keys` in the next dialog that opens.
  static void PressInTheNext(const std::string& keys) {
    QTimer::singleShot(0, [keys] {
      QWidget* dialog = QApplication::activeModalWidget();
      ASSERT_NE(dialog, nullptr);
      ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
      Keys(keys);
    });
  }

  Desk desk_;
  fs::path data_ = desk_.folder / "data";
  Forms forms_{desk_.program, desk_.log,      desk_.recovery,     desk_.storage,
               desk_.clock,   desk_.prompter, desk_.programFolder};
};

TEST_F(StudyTest, ShowsEveryObservationAndWhatIsWrongWithIt) {
  Open();
  EXPECT_EQ(Rows(), 46);
  const std::tuple<const char*, const char*, const char*> cells[] = {
      {"11-4-2", "Survey", "4 open"},    {"17-17-7", "Survey", "none"},
      {"22-5-11", "Notes", "yes"},       {"22-5-11", "Start", "09:01:00"},
      {"7/12/7-12-3", "Observer", "AB"}, {"39-10-19", "Episodes", ""},
  };
  for (const auto& [name, heading, cell] : cells) EXPECT_EQ(Of(name, heading), cell) << name;
  const std::pair<const char*, const char*> problems[] = {
      {"39-10-19", "39-10-19.eps, line"}, {"11-4-2", "again/11-4-2"}, {"again/11-4-2", "11-4-2"},
      {"7/12/7-12-3", "not ended"},       {"17-17-7", "survey"},
  };
  for (const auto& [name, problem] : problems) {
    EXPECT_NE(Of(name, "Problems").find(problem), std::string::npos)
        << name << ": " << Of(name, "Problems");
    GoTo(name);
    const QString shown = Find<QPlainTextEdit>(Study(), "txtProblems")->toPlainText();
    EXPECT_TRUE(shown.contains(QLatin1String(problem))) << shown.toStdString();
  }
}

TEST_F(StudyTest, FiltersSortsAndLeadsBackToTheSameRow) {
  Open();
  Check("chkNoSurvey", "{Alt+V}");
  EXPECT_EQ(Of("11-4-2", "Survey"), "not shown");
  EXPECT_EQ(Of("17-17-7", "Survey"), "none");
  Check("chkNoSurvey", "{Alt+V}", false);
  Keys("{Ctrl+F}lr 2001\n");
  const int rows = Rows();
  ASSERT_GT(rows, 3);
  ASSERT_LT(rows, 46);
  EXPECT_EQ(FocusedName(), "tblObservations") << "Enter leads to what was found";
  // By the number of questions, the other way round.
  for (int i = 0; i < 10; ++i) Keys("{Right}");
  Keys("{Ctrl+B}{Ctrl+B}");
  for (int row = 1; row < rows; ++row) {
    const std::string more = Cell(Table(), row - 1, "Questions");
    const std::string less = Cell(Table(), row, "Questions");
    if (less.empty()) continue;
    EXPECT_GE(std::stoi(more), std::stoi(less));
  }
  Keys("{Ctrl+Home}{Down}{Down}");
  const std::string name = Current();
  Keys("\n");
  ASSERT_TRUE(Shown("frmClassEdit"));
  EXPECT_FALSE(Shown("frmStudy"));
  EXPECT_TRUE(Find<QLabel>(*Form("frmClassEdit"), "Label8")->text().contains(ToQt(name + ".eps")));
  desk_.prompter.Expect("Save Data?", Answer::no);
  Keys("{Alt+Q}");
  ASSERT_TRUE(Shown("frmStudy"));
  EXPECT_EQ(Form("frmClassEdit"), nullptr);
  EXPECT_EQ(Current(), name);
  EXPECT_EQ(Rows(), rows);
  EXPECT_EQ(Find<QLineEdit>(Study(), "txtFilter")->text(), QStringLiteral("lr 2001"));
  EXPECT_EQ(FocusedName(), "tblObservations");
  Keys("{Ctrl+F}{Esc}");
  EXPECT_EQ(Rows(), 46);
  Find(Study(), "txtInitials")->setFocus();
  Keys("LR");  // checks the box as well
  EXPECT_TRUE(Find<QCheckBox>(Study(), "chkMine")->isChecked());
  for (int row = 0; row < Rows(); ++row) EXPECT_EQ(Cell(Table(), row, "Observer"), "LR");
  EXPECT_GT(Rows(), 1);
}

TEST_F(StudyTest, OpensWhatAnObservationHasAndLeadsBack) {
  Open();
  GoTo("22-5-11");
  const std::tuple<const char*, const char*, const char*> moves[] = {
      {"{Ctrl+T}", "frmTimeSummary", "{Alt+M}"},
      {"{Ctrl+P}", "frmClassPicture", "{Esc}"},
      {"{Ctrl+S}", "frmQuestionStats", "{Alt+M}"},
      {"{Ctrl+S}", "frmQuestionStats", "{Alt+P}{Alt+B}{Alt+M}"},
  };
  for (const auto& [keys, form, back] : moves) {
    Keys(keys);
    EXPECT_TRUE(Shown(form)) << keys;
    EXPECT_FALSE(Shown("frmStudy")) << keys;
    Keys(back);
    EXPECT_TRUE(Shown("frmStudy")) << keys;
    EXPECT_EQ(Form(form), nullptr) << keys;
  }
  Keys("{Shift+Down}{Ctrl+S}");
  EXPECT_EQ(FromQt(Find<QLabel>(*Form("frmQuestionStats"), "Label14")->text()), "2 classes");
  Keys("{Alt+M}{Ctrl+P}");
  const QWidget* pictures = Form("frmStudyPicture");
  ASSERT_TRUE(pictures);
  const auto& study = Find<StudyPageView>(*pictures, "view")->Study().Picture();
  EXPECT_EQ(study.rows.size(), 2U);
  Keys("{End}");  // of what they can be sorted by
  EXPECT_EQ(study.order, kRowOrders.back().order);
  desk_.prompter.ExpectSaveFile({.path = data_ / "study.pdf", .folder = data_});
  Keys("{Alt+S}");
  EXPECT_EQ(FileBytes(data_ / "study.pdf").substr(0, 5), "%PDF-");
  Keys("{Esc}");
  EXPECT_TRUE(Shown("frmStudy"));
  GoTo("22-5-11");
  // From the statistics on to the questions, which need the editor.
  Keys("{Ctrl+S}{PgDown}");
  const QString episode = Find<QLabel>(*Form("frmQuestionStats"), "Label14")->text();
  Keys("{Alt+P}");
  EXPECT_EQ(Find<QLabel>(*Form("frmQuestionPlot"), "Label1")->text(), episode);
  Keys("{Alt+B}{Alt+E}");
  ASSERT_TRUE(Shown("frmQA"));
  EXPECT_TRUE(episode.endsWith(QLatin1String("Episode ") +
                               Find<QComboBox>(*Form("frmQA"), "Combo1")->currentText()));
  EXPECT_EQ(Form("frmQuestionStats"), nullptr);
  Keys("{Alt+R}");
  ASSERT_TRUE(Shown("frmClassEdit"));
  desk_.prompter.Expect("Save Data?", Answer::no);
  Form("frmClassEdit")->close();
  Settle();
  EXPECT_TRUE(Shown("frmStudy"));

  Keys("{Ctrl+U}");
  ASSERT_TRUE(Shown("frmMatrices"));
  desk_.prompter.Expect("Save changes?", Answer::no);
  Form("frmMatrices")->close();
  Settle();
  EXPECT_TRUE(Shown("frmStudy"));
  EXPECT_EQ(Current(), "22-5-11");

  desk_.prompter.ExpectNotes("They read aloud.");
  Keys("{Ctrl+N}");
  EXPECT_EQ(FileBytes(data_ / "22-5-11.nte"), "They read aloud.\r\n");
  PressInTheNext("{Ctrl+F}why{Esc}");
  Keys("{Ctrl+L}");
  EXPECT_EQ(FocusedName(), "tblObservations");

  GoTo("17-17-7");
  Keys("{Ctrl+U}{Ctrl+N}{Ctrl+L}");  // there are none
  EXPECT_TRUE(Shown("frmStudy"));
  GoTo("39-10-19");
  desk_.prompter.Expect("Invalid file format.", Answer::ok);
  Keys("\n");
  EXPECT_TRUE(Shown("frmStudy")) << "a broken file leads back, too";
  EXPECT_EQ(Current(), "39-10-19");
}

TEST_F(StudyTest, ProofsFromTheFirstGap) {
  Open();
  Check("chkNotFullyCoded", "{Alt+N}");
  Keys("{Ctrl+F}\n");
  ASSERT_GT(Rows(), 0);
  const std::string name = Current();
  const int gaps = std::stoi(Of(name, "To code"));
  EXPECT_GT(gaps, 0);
  Keys("{F7}");
  ASSERT_TRUE(Shown("frmQA"));
  EXPECT_TRUE(Find(*Form("frmQA"), "cmdNxt")->isVisible()) << "in proof mode";
  Keys("{Alt+R}");
  ASSERT_TRUE(Shown("frmClassEdit"));
  EXPECT_FALSE(Shown("frmQA"));
  desk_.prompter.Expect("Save Data?", Answer::no);
  Keys("{Alt+Q}");
  EXPECT_EQ(Current(), name);
}

TEST_F(StudyTest, CopiesTheSelectedRowsAsTheyAreShown) {
  Open();
  Keys("{Ctrl+Home}{Shift+Down}{Ctrl+C}");
  const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
  ASSERT_GE(lines.size(), 3);
  EXPECT_TRUE(lines[0].startsWith(QStringLiteral("School\tClass\t")));
  EXPECT_TRUE(lines[1].startsWith(ToQt(Cell(Table(), 0, "School")) + QLatin1Char('\t')));
  EXPECT_TRUE(lines[2].startsWith(ToQt(Cell(Table(), 1, "School")) + QLatin1Char('\t')));
}

TEST_F(StudyTest, MakesTablesOfWhatIsSelected) {
  Open();
  GoTo("22-5-11");
  Keys("{Shift+Down}");
  QTimer::singleShot(0, [] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    QString captions;
    for (const auto* button : dialog->findChildren<QAbstractButton*>()) captions += button->text();
    EXPECT_TRUE(captions.contains(QStringLiteral("(2)"))) << captions.toStdString();
    EXPECT_TRUE(captions.contains(QStringLiteral("(46)"))) << captions.toStdString();
    dialog->reject();
  });
  Keys("{Alt+T}");
}

TEST_F(StudyTest, RemembersItsColumnsOrderAndFilter) {
  Open();
  // Hides the third column by the menu and sorts by the second.
  ChooseInMenu("{Alt+U}", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
  Table().horizontalHeader()->moveSection(0, 2);
  Table().horizontalHeader()->resizeSection(3, 123);
  Keys("{Ctrl+F}\n{Home}{Ctrl+B}");
  Check("chkProblems", "{Alt+P}");
  const int rows = Rows();
  EXPECT_LT(rows, 46);
  Keys("{Alt+C}");
  ASSERT_TRUE(Shown("frmSplash"));
  EXPECT_EQ(Form("frmStudy"), nullptr);
  Keys("{Alt+Y}");
  Await();
  const QHeaderView& headings = *Table().horizontalHeader();
  EXPECT_TRUE(headings.isSectionHidden(2));
  EXPECT_EQ(headings.visualIndex(0), 2);
  EXPECT_EQ(headings.sectionSize(3), 123);
  EXPECT_EQ(headings.sortIndicatorSection(), 1);
  EXPECT_EQ(Rows(), rows);
  EXPECT_TRUE(Find<QCheckBox>(Study(), "chkProblems")->isChecked());
}

TEST_F(StudyTest, FindsQuestionsByWordsAndCodesAndOpensThem) {
  Open();
  Keys("{Alt+Q}");
  ASSERT_TRUE(QTest::qWaitFor(
      [] {
        TickForms();
        return Questions().model()->rowCount() > 0 && !Find(Study(), "cmdStop")->isEnabled();
      },
      60000));
  const int all = Questions().model()->rowCount();
  Keys("{Ctrl+F}source S");
  const int ofStudents = Questions().model()->rowCount();
  EXPECT_GT(ofStudents, 0);
  EXPECT_LT(ofStudents, all);
  for (int row = 0; row < ofStudents; ++row) EXPECT_EQ(Cell(Questions(), row, "Source"), "S");
  Keys(" what\n{Down}");
  ASSERT_LT(Questions().model()->rowCount(), ofStudents);
  const int row = static_cast<int>(*Questions().CurrentRow());
  const QString text = ToQt(Cell(Questions(), row, "Text"));
  Keys("\n");
  ASSERT_TRUE(Shown("frmQA"));
  EXPECT_EQ(Find<QLineEdit>(*Form("frmQA"), "txtQuestion")->text(), text);
  Keys("{Alt+R}");
  ASSERT_TRUE(Shown("frmClassEdit"));
  desk_.prompter.Expect("Save Data?", Answer::no);
  Keys("{Alt+Q}");
  ASSERT_TRUE(Shown("frmStudy"));
  EXPECT_EQ(Questions().CurrentRow(), static_cast<std::size_t>(row));
  EXPECT_EQ(FocusedName(), "tblQuestions");
  // A code can also be chosen from a menu; a wrong one is told.
  Keys("{Ctrl+F}{Esc}");
  ChooseInMenu("{Alt+I}", {Qt::Key_Down, Qt::Key_Right, Qt::Key_Return});
  EXPECT_EQ(Find<QLineEdit>(Study(), "txtSearch")->text(), QStringLiteral("source T"));
  Keys("{Backspace}x");
  EXPECT_NE(Text("lblSearchTrouble"), "");
  EXPECT_TRUE(Find(Study(), "lblSearchTrouble")->isVisible());
}

TEST_F(StudyTest, SaysWhyThereIsNoQuestion) {
  Open();
  Find<QPushButton>(Study(), "cmdReload")->click();
  Find<QPushButton>(Study(), "cmdStop")->click();
  Await();
  EXPECT_EQ(Text("lblProgress"), "Reading stopped");
  Keys("{Alt+Q}");
  EXPECT_NE(Text("lblQuestions").find("Reload (F5) reads the questions."), std::string::npos);
  Keys("{F5}");
  Await();
  EXPECT_GT(Questions().model()->rowCount(), 0);

  desk_.prompter.Expect(
      "The question is not in its place any more. It may have been changed or deleted meanwhile.",
      Answer::ok);
  EXPECT_TRUE(forms_.ShowQuestion(data_ / "22-5-11.eps", 1, 1, "another one"));
  EXPECT_TRUE(Shown("frmClassEdit"));
  EXPECT_FALSE(Shown("frmQA"));
}

TEST_F(StudyTest, FollowsWhatHappensToTheFiles) {
  Open();
  GoTo("22-5-11");
  Keys("{Shift+Down}");
  const std::string current = Current();
  const std::string before = Of("33-5-15", "Survey");
  PutFile(data_ / "33-5-15.sur", "not a survey");
  PutFile(data_ / "17-17-7.sur", FileBytes(data_ / "22-5-11.sur"));
  PutFile(data_ / "1-1-1.eps", FileBytes(data_ / "11-4-2.eps"));
  fs::remove(data_ / "11-4-2.eps");
  fs::remove(data_ / "11-4-2.sur");
  fs::remove_all(data_ / "again");
  EXPECT_TRUE(Noticed([] { return RowOf("11-4-2") < 0 && RowOf("1-1-1") >= 0; }));
  EXPECT_TRUE(Noticed([&] { return Of("33-5-15", "Survey") != before; }));
  EXPECT_TRUE(Noticed([] { return Of("17-17-7", "Survey") != "none"; }));
  EXPECT_EQ(Current(), current);
  EXPECT_EQ(Table().SelectedRows().size(), 2U);
  fs::remove_all(data_);
  EXPECT_TRUE(Noticed([] { return !Text("lblTrouble").empty(); }));
}

TEST_F(StudyTest, TakesUpAClassThatWasNotEnded) {
  Open();
  GoTo("7/12/7-12-3");
  const std::string offered =
      "Class 7-12-3 of 03-14-2001 was not ended.\n\n"
      "It was observed from 09:00:00 to 09:01:00: 1 episode, 3 questions.";
  desk_.prompter.Expect(offered, Answer::cancel);
  Keys("\n");
  EXPECT_TRUE(Shown("frmStudy"));
  desk_.prompter.Expect(offered, Answer::yes);
  Keys("\n");
  Settle();
  EXPECT_TRUE(Shown("frmClassAct") || Shown("frmEnterQA"));
  EXPECT_EQ(Form("frmStudy"), nullptr);
}

TEST_F(StudyTest, IsPointedAtAnotherFolderAndLeadsBackToTheMenu) {
  Open();
  desk_.prompter.ExpectFolder(data_ / "again");
  Keys("{Alt+F}");
  Await();
  EXPECT_EQ(Rows(), 1);
  EXPECT_EQ(desk_.program.DataPath, data_) << "the next class goes where it went before";
  Keys("{F5}");
  Await();
  EXPECT_EQ(Rows(), 1);
  Study().close();
  Settle();
  EXPECT_TRUE(Shown("frmSplash"));
}

}  // namespace
}  // namespace orvex
