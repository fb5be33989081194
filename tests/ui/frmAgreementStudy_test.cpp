// The agreement of a study in its window, from the study and back, driven by keys.

#include "ui/forms/frmAgreementStudy.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QSpinBox>
#include <QTabWidget>
#include <filesystem>

#include "support/desk.h"
#include "ui/Forms.h"
#include "ui/keys.h"
#include "ui/text.h"
#include "ui/widgets/CourseArea.h"
#include "ui/widgets/StudyTable.h"

namespace orvex {
namespace {

using namespace test;
namespace fs = std::filesystem;

/// A data folder with sample pairs, and its study.
class AgreementStudyTest : public testing::Test {
 protected:
  AgreementStudyTest() {
    fs::copy(TestData("pairs"), data_, fs::copy_options::recursive);
    desk_.program.DataPath = data_;
    forms_.Show(Screen::study);
    Settle();
    EXPECT_TRUE(Await("frmStudy", "tblObservations", 2));
    Keys("{Ctrl+Home}");
  }

  static QWidget* Form(const char* name) {
    for (QWidget* form : QApplication::topLevelWidgets()) {
      if (form->objectName() == QLatin1String(name)) return form;
    }
    return nullptr;
  }
  static bool Shown(const char* name) { return Form(name) && Form(name)->isVisible(); }
  static StudyTable& Table(const char* form, const char* table) {
    return *Find<StudyTable>(*Form(form), table);
  }
  /// Waits until the form has read everything, and shows at least so many rows.
  static bool Await(const char* form, const char* table, int rows) {
    return QTest::qWaitFor(
        [=] {
          TickForms();
          return !Find(*Form(form), "cmdStop")->isEnabled() &&
                 Table(form, table).model()->rowCount() >= rows;
        },
        60000);
  }
  /// The agreement of all pairs, when all have been compared.
  QWidget& Agreements() {
    Keys("{Down}{Ctrl+G}");  // a single row is selected
    EXPECT_TRUE(Shown("frmAgreementStudy"));
    EXPECT_FALSE(Shown("frmStudy"));
    EXPECT_TRUE(Await("frmAgreementStudy", "tblPairs", 2));
    Settle();
    return *Form("frmAgreementStudy");
  }
  static std::string Cell(int row, int column) {
    const QAbstractItemModel& model = *Table("frmAgreementStudy", "tblPairs").model();
    return FromQt(model.index(row, column).data().toString());
  }
  static int Pairs() { return Table("frmAgreementStudy", "tblPairs").model()->rowCount(); }

  Desk desk_;
  fs::path data_ = desk_.folder / "data";
  Forms forms_{desk_.program, desk_.log,      desk_.recovery,     desk_.storage,
               desk_.clock,   desk_.prompter, desk_.programFolder};
};

TEST_F(AgreementStudyTest, OpensAPairFromTheStudyOrFromItsRowAndLeadsBack) {
  Keys("{Shift+Down}{Ctrl+G}");
  ASSERT_TRUE(Shown("frmAgreement"));
  EXPECT_FALSE(Shown("frmStudy"));
  Keys("{Esc}");
  ASSERT_TRUE(Shown("frmStudy"));
  EXPECT_EQ(Form("frmAgreement"), nullptr);

  Agreements();
  EXPECT_EQ(FocusedName(), "tblPairs");
  Keys("{Down}\n");
  ASSERT_TRUE(Shown("frmAgreement"));
  EXPECT_FALSE(Shown("frmAgreementStudy"));
  Keys("{Esc}");
  ASSERT_TRUE(Shown("frmAgreementStudy")) << "the pair leads back to its study";
  ASSERT_TRUE(Await("frmAgreementStudy", "tblPairs", 2));
  EXPECT_EQ(Table("frmAgreementStudy", "tblPairs").CurrentRow(), 1U);
  Keys("{Esc}");
  EXPECT_TRUE(Shown("frmStudy"));
  EXPECT_EQ(Form("frmAgreementStudy"), nullptr);
}

TEST_F(AgreementStudyTest, ComparesTheSelectedAndTellsWhatMakesAPair) {
  Keys("{Shift+Down}{Shift+Down}{Ctrl+G}");
  ASSERT_TRUE(Shown("frmAgreementStudy"));
  ASSERT_TRUE(Await("frmAgreementStudy", "tblPairs", 1));
  EXPECT_EQ(Pairs(), 1);
  const auto* leftOut = Find<QPlainTextEdit>(*Form("frmAgreementStudy"), "txtLeftOut");
  EXPECT_TRUE(leftOut->toPlainText().contains(QLatin1String("no other observation")))
      << "the third has no partner";
  Keys("{Esc}{Ctrl+F}2-13-1 no such observation\n");
  desk_.prompter.Expect(Say(Text::noPairAmong), Answer::ok);
  Keys("{Alt+G}");
  EXPECT_TRUE(Shown("frmStudy"));
}

TEST_F(AgreementStudyTest, SortsAndCopiesAndComparesWithAnotherTolerance) {
  QWidget& form = Agreements();
  constexpr int kActivities = 6;
  for (int i = 0; i < kActivities; ++i) Keys("{Right}");
  Keys("{Ctrl+B}{Ctrl+B}{PgUp}{PgUp}");
  for (int row = 1; row < Pairs(); ++row) {
    if (!Cell(row, kActivities).starts_with("n/a")) {
      EXPECT_GE(std::stod(Cell(row - 1, kActivities)), std::stod(Cell(row, kActivities)));
    }
  }
  const std::string best = Cell(0, 0);
  Keys("{Ctrl+C}");
  const QStringList copied = QApplication::clipboard()->text().split(QLatin1Char('\n'));
  EXPECT_TRUE(copied.value(0).startsWith(QLatin1String("Class\tDate\t")));
  EXPECT_TRUE(copied.value(1).startsWith(ToQt(best + "\t")));

  const QString before = Find<QLabel>(form, "lblActivities")->text();
  Keys("{Alt+T}");
  Find<QSpinBox>(form, "spnTolerance")->selectAll();
  Keys("0");
  ASSERT_TRUE(Await("frmAgreementStudy", "tblPairs", 2));
  const QString after = Find<QLabel>(form, "lblActivities")->text();
  EXPECT_NE(after, before);
  EXPECT_TRUE(after.contains(QLatin1String("tolerance of 0 seconds"))) << after.toStdString();
  EXPECT_EQ(Cell(0, 0), best) << "the order stays";

  Keys("{Alt+Y}");
  const QString line = QApplication::clipboard()->text();
  EXPECT_TRUE(line.contains(QLatin1String("tolerance"))) << line.toStdString();
}

TEST_F(AgreementStudyTest, ShowsEveryPageAndItsPlotsByKeys) {
  QWidget& form = Agreements();
  auto& pages = *Find<QTabWidget>(form, "pages");
  const auto text = [&form] { return Find<CourseArea>(form, "coursePlots")->Chart().Text(); };
  const std::pair<const char*, const char*> firsts[] = {
      {"{Alt+B}", "tblObservers"}, {"{Ctrl+PgDown}", "cboDimension"}, {"{Alt+I}", "tblIcc"},
      {"{Alt+L}", "pooledScroll"}, {"{Alt+U}", "txtLeftOut"},         {"{Alt+A}", "tblPairs"}};
  for (const auto& [key, first] : firsts) {
    Keys(key);
    EXPECT_EQ(FocusedName(), first) << key;
  }
  Keys("{Alt+D}");
  EXPECT_EQ(pages.currentWidget()->objectName(), QLatin1String("datesPage"));
  const QString ofSource = text();
  Keys("{Down}{Down}");
  EXPECT_NE(text(), ofSource);
  EXPECT_TRUE(text().contains(QLatin1String("AB: "))) << text().toStdString();
  Keys("{Tab}{Ctrl+C}");
  EXPECT_EQ(QApplication::clipboard()->text(), text());
  Keys("{Alt+L}{Ctrl+C}");
  EXPECT_TRUE(QApplication::clipboard()->text().startsWith(QLatin1String("Dimension\tn\t")));
}

}  // namespace
}  // namespace orvex
