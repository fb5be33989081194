// The page of a class, in its window and as a picture, driven by keys and the mouse.

#include "ui/forms/frmClassPicture.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QImage>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QWheelEvent>
#include <filesystem>
#include <set>

#include "model/texts.h"
#include "study/logged_class.h"
#include "support/desk.h"
#include "support/test_folder.h"
#include "ui/Forms.h"
#include "ui/keys.h"
#include "ui/picture/ClassPageView.h"
#include "ui/picture/PictureFile.h"
#include "ui/text.h"

namespace orvex {
namespace {

using namespace test;
namespace fs = std::filesystem;

/// A class of 40 minutes with six questions, and the form of its page.
class ClassPictureTest : public testing::Test {
 protected:
  ClassPictureTest() { fs::copy(TestData("rehearsal"), data_, fs::copy_options::recursive); }

  static QWidget* Form(const char* name) {
    for (QWidget* form : QApplication::topLevelWidgets()) {
      if (form->objectName() == QLatin1String(name) && form->isVisible()) return form;
    }
    return nullptr;
  }
  QWidget& Picture() {
    EXPECT_TRUE(forms_.ShowReport(file_, Screen::classPicture));
    Settle();
    return *Form("frmClassPicture");
  }
  static ClassPageView& ViewOf(const QWidget& form) { return *Find<ClassPageView>(form, "view"); }
  static std::string Question(const QWidget& form) {
    const QString text = Find<QPlainTextEdit>(form, "txtQuestion")->toPlainText();
    return FromQt(text.section(QLatin1Char('\n'), 0, 0));
  }

  Desk desk_;
  fs::path data_ = desk_.folder / "data";
  fs::path file_ = data_ / "EPS/7/12/7-12-3.eps";
  Forms forms_{desk_.program, desk_.log,      desk_.recovery,     desk_.storage,
               desk_.clock,   desk_.prompter, desk_.programFolder};
};

TEST_F(ClassPictureTest, GoesFromQuestionToQuestionAndOpensOne) {
  QWidget& form = Picture();
  ExpectAKeyForEachControl();
  EXPECT_FALSE(Find(form, "cmdOpen")->isEnabled());
  Keys("{Down}{Down}");
  EXPECT_EQ(Question(form), "1.2  Why does she keep it to herself?");
  Keys("{Up}{Up}{Up}");
  EXPECT_EQ(Question(form).substr(0, 3), "1.1");
  Keys("{Down}\n");
  Settle();
  ASSERT_TRUE(Form("frmQA"));
  EXPECT_EQ(FromQt(Find<QLineEdit>(*Form("frmQA"), "txtQuestion")->text()),
            "Why does she keep it to herself?");
  EXPECT_FALSE(Form("frmClassPicture"));
}

TEST_F(ClassPictureTest, LeadsBackToWhereItWasOpened) {
  Picture();
  Keys("{Esc}");
  Settle();
  EXPECT_TRUE(Form("frmSplash"));
  ASSERT_TRUE(forms_.ShowEpisodeEditor(file_, Kept::areOffered));
  Settle();
  // What is not saved yet is shown too.
  Find<QLineEdit>(*Form("frmClassEdit"), "txtEpisodeName")->setFocus();
  Keys("{Ctrl+A}A new beginning{Alt+A}");
  Settle();
  EXPECT_FALSE(Form("frmClassEdit"));
  QWidget* form = Form("frmClassPicture");
  ASSERT_TRUE(form);
  const ClassPicture& picture = ViewOf(*form).Page().Picture();
  EXPECT_EQ(picture.episodes.front().description, "A new beginning");
  EXPECT_FALSE(picture.estimates.empty());  // from the log beside the file
  Keys("{Alt+B}");
  Settle();
  EXPECT_TRUE(Form("frmClassEdit"));
}

TEST_F(ClassPictureTest, IsSavedInTheFormatOfItsName) {
  QWidget& form = Picture();
  desk_.prompter.ExpectSaveFile({.path = data_ / "page.jpg", .folder = data_});
  desk_.prompter.Expect(
      "The name of a picture must end with .svg, .pdf or .png, which says what it becomes.",
      Answer::ok);
  desk_.prompter.ExpectSaveFile({.path = data_ / "page.PDF", .folder = data_});
  Keys("{Ctrl+S}");
  const FilePrompt& asked = desk_.prompter.askedSaveFiles.front();
  EXPECT_EQ(asked.folder, file_.parent_path());
  EXPECT_EQ(asked.defaultName, "7-12-3");
  EXPECT_EQ(asked.filter.substr(0, 30), "SVG pictures (*.SVG)|*.SVG|PDF");
  EXPECT_EQ(FileBytes(data_ / "page.PDF").substr(0, 5), "%PDF-");
  desk_.prompter.ExpectSaveFile({.path = data_ / "page.svg", .folder = data_});
  Keys("{Alt+S}");
  const std::string svg = FileBytes(data_ / "page.svg");
  EXPECT_NE(svg.find(">1  Warm-up: journal entry on courage<"), std::string::npos);
  Keys("{Alt+E}");  // the episodes are hidden
  desk_.prompter.ExpectSaveFile({.path = data_ / "page.svg", .folder = data_});
  Keys("{Alt+S}");
  EXPECT_EQ(FileBytes(data_ / "page.svg").find("Warm-up"), std::string::npos);
  Keys("{Ctrl+C}");
  const QMimeData* copied = QApplication::clipboard()->mimeData();
  EXPECT_TRUE(copied->hasImage());
  EXPECT_TRUE(copied->hasFormat(QStringLiteral("image/svg+xml")));
  desk_.prompter.ExpectSaveFile({.path = data_ / "all.pdf", .folder = data_});
  Keys("{Alt+A}");
  EXPECT_EQ(FileBytes(data_ / "all.pdf").substr(0, 5), "%PDF-");
  EXPECT_EQ(desk_.prompter.askedSaveFiles.back().defaultName, "7-12-3.pdf");
  EXPECT_TRUE(form.isVisible());
}

TEST(ClassPageView, ZoomsAndMovesByKeysWheelAndDragging) {
  ClassPicture picture;
  picture.seconds = 1000;
  picture.questions = {{.second = 100, .text = "First?"}, {.second = 950, .text = "Last?"}};
  ClassPageView view;
  view.resize(1000, 560);
  view.Show(ClassPage(picture));
  Activate(view);
  view.setFocus();
  const auto shown = [&view] { return view.View().shown; };
  const auto isFrom = [&](double begin, double end) {
    EXPECT_NEAR(shown().begin, begin, 0.5);
    EXPECT_NEAR(shown().end, end, 0.5);
  };
  Keys("{Left}-");
  isFrom(0, 1000);
  Keys("++");
  isFrom(277.8, 722.2);
  Keys("{Right}");
  isFrom(322.2, 766.7);
  Keys("{End}");
  isFrom(555.6, 1000);
  Keys("{Home}");
  isFrom(0, 444.4);
  // A question that is marked comes into view.
  Keys("{Down}{Down}");
  EXPECT_EQ(view.Marked()->text, "Last?");
  EXPECT_LE(shown().begin, 950);
  EXPECT_GE(shown().end, 950);
  Keys("++++++++");
  EXPECT_NEAR(shown().Length(), 120, 0.01);  // no nearer
  Keys("0");
  isFrom(0, 1000);
  // The wheel keeps what is under the pointer in its place.
  const QPointF at(600, 300);
  const double under = view.Page().SecondAt(view.rect(), view.font(), view.View(), at.x());
  QWheelEvent turn(at, view.mapToGlobal(at), {}, {0, 240}, Qt::NoButton, Qt::NoModifier,
                   Qt::NoScrollPhase, false);
  QApplication::sendEvent(&view, &turn);
  EXPECT_NEAR(view.Page().SecondAt(view.rect(), view.font(), view.View(), at.x()), under, 0.5);
  EXPECT_NEAR(shown().Length(), 1000 / 2.25, 0.5);
  // So does dragging.
  QTest::mousePress(&view, Qt::LeftButton, {}, {600, 300});
  QTest::mouseMove(&view, {700, 300});
  QTest::mouseRelease(&view, Qt::LeftButton, {}, {700, 300});
  EXPECT_NEAR(view.Page().SecondAt(view.rect(), view.font(), view.View(), 700), under, 0.5);
}

TEST(ClassPageView, ShowsAllOfAShortClassAndOfNone) {
  for (const double seconds : {0.0, 50.0}) {
    ClassPicture picture;
    picture.seconds = seconds;
    ClassPageView view;
    view.resize(600, 300);
    view.Show(ClassPage(picture));
    Activate(view);
    view.setFocus();
    Keys("++{Right}-{End}{PgDown}{Down}0");
    EXPECT_EQ(view.View().shown, (Stretch{0, seconds}));
    view.grab();
  }
}

TEST(ClassPages, FindEveryQuestionUnderThePointer) {
  const LoggedClass shown = ReadLoggedClass(TestData("class/22-5-11.eps"), {});
  const ClassPage page(shown.Picture());
  const auto& questions = page.Picture().questions;
  ASSERT_GT(questions.size(), 60U);
  const QFont font;
  for (const QRectF& area : {QRectF(0, 0, 1000, 560), QRectF(30, 20, 2400, 1500)}) {
    const PageView view = page.Whole();
    const double begin = page.SecondAt(area, font, view, area.left());
    const double end = page.SecondAt(area, font, view, area.right());
    for (std::size_t i = 0; i < questions.size(); i += 7) {
      const ClassPicture::QuestionTick& question = questions[i];
      const double x = area.left() + (question.second - begin) / (end - begin) * area.width();
      bool isFound = false;
      for (double y = area.top(); y < area.bottom() && !isFound; y += 5) {
        const auto found = page.QuestionAt(area, font, view, {x, y});
        isFound = found && questions[*found].asker == question.asker &&
                  questions[*found].second == question.second;
      }
      EXPECT_TRUE(isFound) << question.text;
    }
    const double x = area.left() + (800 - begin) / (end - begin) * area.width();
    std::set<QString> texts;
    for (double y = area.top(); y < area.bottom(); y += 5) {
      texts.insert(page.TextAt(area, font, view, {x, y}));
    }
    EXPECT_TRUE(texts.contains(QLatin1String("2  Vocabulary: unit 23")));
    EXPECT_TRUE(texts.contains(QLatin1String("Procedures & directions, 4:51")));
  }
}

}  // namespace
}  // namespace orvex
