// The reports in their windows, on paper and on the clipboard.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "agreement/comparison.h"
#include "agreement/study_tables.h"
#include "support/desk.h"
#include "support/faulty_storage.h"
#include "support/test_folder.h"
#include "ui/forms/frmQuestionPlot.h"
#include "ui/forms/frmQuestionStats.h"
#include "ui/forms/frmTimeSummary.h"
#include "ui/keys.h"
#include "ui/print/PrintedAgreement.h"
#include "ui/print/PrintedAgreementStudy.h"
#include "ui/print/PrintedPlot.h"
#include "ui/print/PrintedStatistics.h"
#include "ui/print/PrintedTimeSummary.h"
#include "ui/print/ReportPrinter.h"
#include "ui/text.h"
#include "ui/widgets/BarRow.h"
#include "ui/widgets/PlotArea.h"
#include "ui/widgets/ReportTable.h"

namespace orvex {
namespace {

using namespace test;

const Identity kIdentity = {"AB", "7", "12", "3", "25"};

/// A quarter of an hour of questions. Every third is a student's, every fifth gets no response, and
/// every twentieth is of a higher level.
Episode Lesson(int questions) {
  Episode episode;
  episode.segments.emplace_back().SetData(kQuestionAnswer, 900);
  episode.offtask = 0.08F;
  for (int i = 1; i <= questions; ++i) {
    const bool student = i % 3 == 0;
    episode.questions.emplace_back().SetValue(
        "?",
        {student ? "S" : "T", i % 5 == 0 ? "N" : "Y", "N", "N", i % 20 == 0 ? "H" : "R", "", "N",
         student ? "A" : "", "U"},
        1, 1);
  }
  return episode;
}

QuestionStatistics Statistics(int questions) {
  return MakeQuestionStatistics(kIdentity, 2, Lesson(questions));
}
QuestionPlot Plot(int questions) {
  return MakeQuestionPlot(kIdentity, 2, Lesson(questions));
}
EpsHeader Header() {
  EpsHeader header;
  header.identity = kIdentity;
  header.ObservDate = "03-14-2001";
  return header;
}
TimeSummary Times() {
  return MakeTimeSummary(Header(), {Lesson(4), Lesson(2)});
}
EpisodeOrigin Origin() {
  Episode episode = Lesson(0);
  episode.Descript = "Warm-up, scene 2";
  return OriginOf(Header(), episode);
}

TEST(QuestionStatsForm, KeepsTheProportionsOfItsBars) {
  Desk desk;
  frmQuestionStats form({{2, Statistics(60), Origin()}}, 2, {},
                        Printing{desk.prompter, desk.storage});
  Activate(form);
  EXPECT_EQ(Find<QLabel>(form, "Label31")->text(),
            QLatin1String("Teacher 40 / Student Questions 20"));
  EXPECT_EQ(Find<QLabel>(form, "Label1_11")->text(), QLatin1String("8"));
  for (const int width : {760, 1300}) {
    SCOPED_TRACE(width);
    form.resize(width, 600);
    Settle();
    const int whole = Find<QLabel>(form, "NoRespT_1")->width();
    const auto* teacher = Find<QLabel>(form, "Source_0");
    const auto* student = Find<QLabel>(form, "Source_1");
    EXPECT_NEAR(teacher->width(), whole * 2 / 3.0, 1);
    EXPECT_EQ(student->x(), teacher->x() + teacher->width());
    EXPECT_EQ(student->x() + student->width(), whole);
    EXPECT_NEAR(Find<QLabel>(form, "NoRespT_0")->width(), whole / 5.0, 1);
    // The teacher's answered questions are drawn in yellow behind the nonresponses.
    const QImage bar = Find(form, "NoRespT")->grab().toImage();
    EXPECT_EQ(bar.pixelColor(whole / 2, 4), QColor(255, 255, 0));
    EXPECT_NE(bar.pixelColor(whole / 10, 10), QColor(255, 255, 0));
  }
}

TEST(QuestionStatsForm, TellsOnceWhatKeptItFromBeingFilled) {
  Desk desk;
  Episode episode = Lesson(3);
  episode.segments.clear();
  frmQuestionStats form({{2, MakeQuestionStatistics(kIdentity, 2, episode), Origin()}}, 2, {},
                        Printing{desk.prompter, desk.storage});
  Activate(form);
  desk.prompter.Expect("Questions need to be cleaned up first.", Answer::ok);
  form.Refresh();
  form.Refresh();
  Settle();
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(Find<QLabel>(form, "Label1_0")->text(), QLatin1String("3"));
  EXPECT_EQ(Find<QLabel>(form, "Label13")->text(), QLatin1String(""));
}

TEST(QuestionStatsForm, LeadsOnByKeyAndButton) {
  Desk desk;
  frmQuestionStats form({{2, Statistics(3), Origin()}}, 2, {},
                        Printing{desk.prompter, desk.storage});
  Activate(form);
  const QSignalSpy menu(&form, &frmQuestionStats::Menu);
  const QSignalSpy edit(&form, &frmQuestionStats::EditQuestions);
  const QSignalSpy plot(&form, &frmQuestionStats::Plot);
  Keys("{Alt+M}{Esc}{Alt+E}\n");
  Click(Find(form, "Command6"));
  EXPECT_FALSE(form.close());
  EXPECT_EQ(menu.count(), 3);
  EXPECT_EQ(edit.count(), 1);
  EXPECT_EQ(plot.count(), 1);
  Keys("{Ctrl+C}");
  EXPECT_EQ(FromQt(QApplication::clipboard()->text()), TextOf(Statistics(3)));
}

TEST(QuestionStatsForm, GoesThroughTheEpisodesAndShowsTheWholeClass) {
  Desk desk;
  const EpsObservation whole = {Header(), {Lesson(3), Lesson(0), Lesson(5)}};
  std::vector<StatisticsPage> pages;
  for (const int number : {1, 3}) {
    const Episode& episode = whole.Episodes[static_cast<std::size_t>(number - 1)];
    pages.push_back({number, MakeQuestionStatistics(kIdentity, number, episode), Origin()});
  }
  const QuestionStatistics ofAll = MakeQuestionStatistics({&whole, 1});
  frmQuestionStats form(pages, 3, {0, ofAll, {}}, Printing{desk.prompter, desk.storage});
  Activate(form);
  const auto shown = [&form] {
    return FromQt(Find<QLabel>(form, "Label14")->text() + QLatin1Char(' ') +
                  Find<QLabel>(form, "Label1_0")->text());
  };
  EXPECT_EQ(shown(), "7-12-3 Episode 3 5");
  Keys("{PgDown}");
  EXPECT_EQ(shown(), "7-12-3 Episode 3 5");
  Keys("{PgUp}{PgUp}");
  EXPECT_EQ(shown(), "7-12-3 Episode 1 3");
  Keys("{Alt+W}");
  EXPECT_EQ(shown(), "7-12-3 8");
  EXPECT_EQ(form.Episode(), 1);
  Keys("{Ctrl+C}");
  EXPECT_EQ(FromQt(QApplication::clipboard()->text()), TextOf(ofAll));
  Keys("{PgDown}");  // back to the episode
  EXPECT_EQ(shown(), "7-12-3 Episode 1 3");
  Keys("{Alt+W}{Alt+T}");
  EXPECT_EQ(shown(), "7-12-3 Episode 1 3");

  frmQuestionPlot plot({{1, Plot(3), {}}, {3, Plot(5), {}}}, 1,
                       Printing{desk.prompter, desk.storage});
  Activate(plot);
  Keys("{PgDown}");
  EXPECT_EQ(FromQt(Find<QLabel>(plot, "Label7")->text()), "Total Number of Questions: 5");

  // Of several classes there is nothing but the whole.
  frmQuestionStats several({}, 0, {0, ofAll, {}}, Printing{desk.prompter, desk.storage});
  Activate(several);
  for (const char* name : {"optEpisode", "optClass", "Command2", "Command6", "cmdPrintAll"}) {
    EXPECT_FALSE(Find(several, name)->isVisible()) << name;
  }
}

TEST(TimeSummaryForm, ShowsItsTablesWhole) {
  Desk desk;
  frmTimeSummary form(Times(), Printing{desk.prompter, desk.storage});
  Activate(form);
  EXPECT_EQ(Find<QLabel>(form, "Label52")->text(), QLatin1String("30:00"));
  for (const int width : {1300, 820, 480}) {
    form.resize(width, 430);
    Settle();
    EXPECT_FALSE(Find<QScrollArea>(form, "scrollArea")->horizontalScrollBar()->isVisible());
    for (const char* name : {"ListView1", "ListView2", "ListView3", "ListView4"}) {
      SCOPED_TRACE(testing::Message() << name << " at " << width);
      const auto* table = Find<ReportTable>(form, name);
      for (int column = 0; column < 3; ++column) {
        EXPECT_GE(table->columnWidth(column), table->header()->sectionSizeHint(column));
        for (int i = 0; i < table->topLevelItemCount(); ++i) {
          const QString text = table->topLevelItem(i)->text(column);
          EXPECT_GT(table->columnWidth(column), table->fontMetrics().horizontalAdvance(text) + 4);
        }
      }
      const auto* last = table->topLevelItem(table->topLevelItemCount() - 1);
      EXPECT_LE(table->visualItemRect(last).bottom(), table->viewport()->height());
      EXPECT_LE(table->header()->length(), table->viewport()->width());
    }
  }
  const QSignalSpy menu(&form, &frmTimeSummary::Menu);
  Keys("{Alt+M}{Esc}{Ctrl+C}");
  EXPECT_EQ(menu.count(), 2);
  EXPECT_EQ(FromQt(QApplication::clipboard()->text()), TextOf(Times()));
}

/// The first column of pixels in `row` that is clearly darker than the background.
int FirstInk(QLabel& row) {
  const QImage image = row.grab().toImage().convertToFormat(QImage::Format_Grayscale8);
  const int ground = qGray(image.pixel(image.width() - 1, 0));
  for (int x = 0; x < image.width(); ++x) {
    for (int y = 0; y < image.height(); ++y) {
      if (qGray(image.pixel(x, y)) < ground / 2) return x;
    }
  }
  return -1;
}

TEST(QuestionPlotForm, ScrollsItsRowsAndKeepsTheirHeadings) {
  Desk desk;
  frmQuestionPlot form({{2, Plot(600), Origin()}}, 2, Printing{desk.prompter, desk.storage});
  Activate(form);
  form.resize(700, 300);
  Settle();
  auto* ruler = Find<QLabel>(form, "Label2_17");
  const double cell = (ruler->width() - 1) / 600.0;
  // Question 20 is the first of a higher level; question 3 is the first by a student.
  EXPECT_NEAR(FirstInk(*Find<QLabel>(form, "Label2_0")), 19 * cell, 2);
  EXPECT_NEAR(FirstInk(*Find<QLabel>(form, "Label2_7")), 2 * cell, 2);
  EXPECT_NEAR(FirstInk(*Find<QLabel>(form, "Label2_10")), 4 * cell, 2);

  const auto place = [&form](const char* name) {
    return Find(form, name)->mapTo(&form, QPoint(0, 0));
  };
  const auto* bar = Find<PlotArea>(form, "plotArea")->horizontalScrollBar();
  const QPoint heading = place("Label3_3");
  const std::pair<const char*, double> keys[] = {{"{End}", bar->maximum()},
                                                 {"{Home}", 0},
                                                 {"{Right}{Right}", 2 * std::ceil(cell)},
                                                 {"{Left}", std::ceil(cell)},
                                                 {"{Home}{PgDown}", bar->pageStep()},
                                                 {"{PgUp}", 0}};
  for (const auto& [key, value] : keys) {
    Keys(key);
    EXPECT_EQ(bar->value(), value) << key;
    EXPECT_EQ(place("Label3_3"), heading);
    EXPECT_EQ(place("Label2_7").y(), heading.y()) << "beside its row";
  }
  Keys("{Down}{Down}");
  EXPECT_LT(place("Label3_3").y(), heading.y());
  EXPECT_EQ(place("Label2_7").y(), place("Label3_3").y());
  EXPECT_EQ(place("Label2_17").y(), place("Label3_9").y());

  const QSignalSpy back(&form, &frmQuestionPlot::Back);
  Keys("{Alt+B}{Esc}");
  EXPECT_EQ(back.count(), 2);
  Keys("{Ctrl+C}");
  EXPECT_EQ(FromQt(QApplication::clipboard()->text()), TextOf(Plot(600)));
}

TEST(ReportForms, ShowHowTheyWillLookOnPaper) {
  Desk desk;
  frmQuestionStats statistics({{2, Statistics(5), Origin()}}, 2, {},
                              Printing{desk.prompter, desk.storage});
  frmTimeSummary times(Times(), Printing{desk.prompter, desk.storage});
  frmQuestionPlot plot({{2, Plot(5), Origin()}}, 2, Printing{desk.prompter, desk.storage});
  for (QWidget* form : std::initializer_list<QWidget*>{&statistics, &times, &plot}) {
    for (const char* key : {"{Alt+P}", "{Ctrl+P}"}) {
      // In the statistics, "&Print" shares its letter with "Q &Plot".
      if (form == &statistics && std::string(key) == "{Alt+P}") continue;
      Activate(*form);
      bool shown = false;
      QTimer::singleShot(0, [&shown] {
        auto* preview = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
        shown = preview != nullptr;
        if (preview) preview->reject();
      });
      Keys(key);
      EXPECT_TRUE(shown) << key;
    }
    form->hide();
  }
}

class PaperTest : public testing::Test {
 protected:
  /// Prints into a PDF file and returns its text, as `pdftotext` extracts it with option `mode`.
  QString Printed(const PrintedReport& report, const char* mode) {
    const QString file = QString::fromStdString(Pdf().string());
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(report.Orientation());
    SavePdf(report, printer, {desk_.prompter, storage_});
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"), {QLatin1String(mode), file, QStringLiteral("-")});
    EXPECT_TRUE(reader.waitForFinished()) << "pdftotext is of the package poppler-utils";
    return QString::fromUtf8(reader.readAllStandardOutput());
  }

  std::filesystem::path Pdf() const { return desk_.folder / "report.pdf"; }

  Desk desk_;
  FaultyStorage storage_;
};

TEST_F(PaperTest, OnAFullDiskKeepsTheOlderFileAndCanBeTriedAgain) {
  const std::string old = "an older report";
  const std::string failed = "The PDF file could not be written.";
  PutFile(Pdf(), old);
  const auto names = [this] {
    return std::distance(std::filesystem::directory_iterator(desk_.folder.Path()), {});
  };
  const auto before = names();
  storage_.Fail(1, ENOSPC, "write");
  desk_.prompter.Expect(failed, Answer::cancel);
  Printed(PrintedTimeSummary(Times()), "-layout");
  EXPECT_EQ(desk_.prompter.asked.back().details, Pdf().string() + ": No space left on device");
  EXPECT_EQ(FileBytes(Pdf()), old);
  EXPECT_EQ(names(), before);

  storage_.Fail(1, ENOSPC, "write");
  desk_.prompter.Expect(failed, Answer::yes);
  EXPECT_TRUE(Printed(PrintedTimeSummary(Times()), "-layout").contains(QLatin1String("30:00")));
  EXPECT_EQ(names(), before);
}

TEST_F(PaperTest, SaysWhatTheFormsSay) {
  const auto expect = [](const QString& text, std::initializer_list<const char*> parts) {
    const QString simple = text.simplified();
    for (const char* part : parts) {
      EXPECT_TRUE(simple.contains(QString::fromUtf8(part))) << part << "\n" << text.toStdString();
    }
  };
  expect(Printed(PrintedStatistics(Statistics(60), Origin()), "-layout"),
         {"Questions/Answer Statistics", "Page 1 of 1", "7-12-3 Episode 2",
          "Date of Observation: 03-14-2001", "Observer: AB", "Warm-up, scene 2",
          "Total Number of Questions 60", "Teacher 40 / Student Questions 20 40 20",
          "Nonresponses to Teacher Questions 8 8 32", "PACE (questions per minute) 4.",
          "STUDENT OFFTASK 8.%", "Coded \"no\""});
  expect(Printed(PrintedTimeSummary(Times()), "-layout"),
         {"Time Summary for School 7, Class 12, Observation 3", "Page 1 of 1", "Observer: AB",
          "Question/Answer 30:00 0.000", "Discussion 0:00 Student", "TOTAL TIME: 30:00"});
  expect(Printed(PrintedPlot(Plot(1), Origin()), "-layout"),
         {"Question Plot", "Page 1 of 1", "Total Number of Questions: 1",
          "Date of Observation: 03-14-2001", "Observer: AB", "Warm-up, scene 2", "E elaborated",
          "QUESTIONS"});
  expect(Printed(PrintedPlot(Plot(0), Origin()), "-layout"),
         {"Page 1 of 1", "Relation to Prev Q Y related to previous responses"});

  QPrinter nowhere;
  nowhere.setOutputFormat(QPrinter::PdfFormat);
  nowhere.setOutputFileName(QString::fromStdString((desk_.folder / "no/such.pdf").string()));
  EXPECT_FALSE(PrintReport(PrintedPlot(Plot(1), Origin()), nowhere));
}

TEST_F(PaperTest, WrapsALongPlotAndKeepsItsColumnsUnderTheRuler) {
  const QuestionPlot plot = Plot(600);
  const QString text = Printed(PrintedPlot(plot, Origin()), "-bbox");
  // Words with their positions: each row of a band starts with a heading or letter left of the
  // plot.
  static const QRegularExpression word(QStringLiteral(
      "<page|<word xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\" xMax=\"([0-9.]+)\"[^>]*>([^<]*)</word>"));
  struct Word {
    double left;
    double width;
    double top;
    QString text;
  };
  std::vector<Word> words;
  int pages = 0;
  for (auto match = word.globalMatch(text); match.hasNext();) {
    const auto found = match.next();
    if (found.captured(4).isEmpty()) {
      ++pages;
      continue;
    }
    const double left = found.captured(1).toDouble();
    words.push_back({left, found.captured(3).toDouble() - left,
                     pages * 10000 + found.captured(2).toDouble(), found.captured(4)});
  }
  EXPECT_EQ(pages, 3);
  std::vector<Word> rulers;
  qsizetype columns = 0;
  for (const Word& found : words) {
    if (found.text.size() < 10 || !found.text.startsWith(QStringLiteral("1234567890"))) continue;
    rulers.push_back(found);
    columns += found.text.size();
  }
  EXPECT_EQ(columns, 600);
  for (const char* number : {"10", "100", "600"}) {
    EXPECT_TRUE(std::ranges::any_of(words, [&](const Word& found) {
      return found.text == QLatin1String(number);
    })) << number;
  }
  // Each run of marks lines up with its questions on the ruler of its band.
  std::map<char16_t, int> marks;
  for (const Word& found : words) {
    const char16_t mark = found.text.at(0).unicode();
    if (mark != u'\u2588' && mark != u'\u2591' && mark != u'\u255A') continue;
    const auto ruler =
        std::ranges::find_if(rulers, [&found](const Word& below) { return below.top > found.top; });
    ASSERT_NE(ruler, rulers.end());
    const double cell = ruler->width / static_cast<double>(ruler->text.size());
    const double column = (found.left - ruler->left) / cell;
    EXPECT_NEAR(column, std::round(column), 0.1);
    EXPECT_NEAR(found.width / cell, static_cast<double>(found.text.size()), 0.1);
    marks[mark] += static_cast<int>(found.text.size());
  }
  for (const auto& [mark, count] : marks) {
    qsizetype expected = 0;
    for (const std::string& row : plot.PlotRows) expected += ToQt(row).count(QChar(mark));
    EXPECT_EQ(count, expected);
  }
  EXPECT_EQ(marks.size(), 3U);
}

/// The words of a text as it was printed, without the marks of its pages.
QStringList WordsOf(const QString& text) {
  return text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

TEST_F(PaperTest, PrintsAnAgreementOverAsManyPagesAsItsTextsNeed) {
  const std::filesystem::path pairs = TestData("pairs/EPS/34/9");
  ObservedClass first = ReadObservedClass(pairs / "34-9-1.eps");
  ObservedClass second = ReadObservedClass(pairs / "34-9-2.eps");
  // A question as long as three pages, which nobody else wrote down.
  std::string longText;
  for (int i = 0; i < 2500; ++i) longText += "word" + std::to_string(i) + " ";
  EpisodeList& episodes = first.observation.Episodes;
  std::ranges::find_if(episodes, [](const Episode& episode) { return !episode.questions.empty(); })
      ->questions.front()
      .question = longText;
  Comparison comparison(std::move(first), std::move(second));
  comparison.SetMaster(Master::second);
  const QString text = Printed(PrintedAgreement(comparison), "-raw");
  EXPECT_GT(text.count(QStringLiteral("Agreement of Two Observers")), 4);
  const QStringList words = WordsOf(text);
  const QSet<QString> printed(words.begin(), words.end());
  int missing = 0;
  for (int i = 0; i < 2500; ++i)
    missing += printed.contains(QStringLiteral("word%1").arg(i)) ? 0 : 1;
  EXPECT_EQ(missing, 0);
  for (const char* part : {"Codes of the questions of both", "Authenticity", "For a paper",
                           "Measured by the master", "Disagreements", "in rows,"}) {
    EXPECT_TRUE(text.contains(QLatin1String(part))) << part;
  }
}

TEST_F(PaperTest, PrintsTheAgreementOfAStudyWhole) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(TestData("pairs/EPS"))) {
    if (entry.path().extension() == ".eps") files.push_back(entry.path());
  }
  const AgreementStudy study = CompareAll(files, {});
  const QString text = Printed(PrintedAgreementStudy(study, 0), "-raw");
  const QStringList words = WordsOf(text);
  for (const StudyPair& pair : study.pairs) {
    EXPECT_TRUE(words.contains(ToQt(ClassText(pair.agreement.first.identity))));
  }
  for (const auto& [key, observer] : study.observers) {
    EXPECT_TRUE(text.contains(ToQt(observer.name + ": "))) << key;
  }
  for (const char* part : {"Page 1 of ", "One part of multiple response", "ICC(A,1)", "kappa",
                           "Questions per minute", "For a paper"}) {
    EXPECT_TRUE(text.contains(QLatin1String(part))) << part << "\n" << text.toStdString();
  }
}

}  // namespace
}  // namespace orvex
