// The manual: that it names what there is, leads nowhere else, and is shown where it is asked for.

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTimer>
#include <QXmlStreamReader>
#include <filesystem>
#include <map>

#include "support/desk.h"
#include "support/test_paths.h"
#include "ui/Forms.h"
#include "ui/QtPrompter.h"
#include "ui/keys.h"
#include "ui/manual/ManualFolder.h"
#include "ui/manual/ManualPlaces.h"
#include "ui/manual/dlgKeys.h"
#include "ui/print/PrintedReport.h"
#include "ui/print/ReportPrinter.h"

namespace orvex {
namespace {

using namespace test;

const QString kSource = QString::fromStdString(SourceFolder().string());
const QString kManual = kSource + QStringLiteral("/docs/manual/");

QString TextOfFile(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

QStringList ChapterFiles() {
  QStringList files;
  for (QDirIterator all(kManual, {QStringLiteral("*.md")}); all.hasNext();) files << all.next();
  return files;
}

/// The manual's words, with every line break a blank.
QString WholeManual() {
  QString text;
  for (const QString& file : ChapterFiles()) text += TextOfFile(file);
  return text.simplified();
}

QStringList HeadingNamesOf(const QString& file) {
  static const QRegularExpression heading(QStringLiteral("^#+ (.*)$"),
                                          QRegularExpression::MultilineOption);
  QStringList names;
  for (auto found = heading.globalMatch(TextOfFile(file)); found.hasNext();) {
    names << HeadingName(found.next().captured(1));
  }
  return names;
}

/// Expects `place`, seen from the folder of `from`, to be a file and, behind "#", a heading in it.
void ExpectPlace(const QString& from, const QString& place) {
  const QString file = QFileInfo(from).path() + QLatin1Char('/') + place.section(u'#', 0, 0);
  const QString path = place.startsWith(u'#') ? from : file;
  EXPECT_TRUE(QFileInfo::exists(path)) << from.toStdString() << ": " << place.toStdString();
  if (!place.contains(u'#')) return;
  EXPECT_TRUE(HeadingNamesOf(path).contains(place.section(u'#', 1)))
      << from.toStdString() << ": " << place.toStdString();
}

/// A form's name and the captions of its buttons, as they are drawn.
struct DrawnForm {
  QString name;
  QStringList captions;
};

DrawnForm ReadForm(const QString& path) {
  DrawnForm form;
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  QXmlStreamReader xml(&file);
  bool inButton = false;
  while (!xml.atEnd()) {
    xml.readNext();
    if (!xml.isStartElement()) continue;
    const QString value = xml.attributes().value(QStringLiteral("name")).toString();
    if (xml.name() == QStringLiteral("widget")) {
      if (form.name.isEmpty()) form.name = value;
      const auto widget = xml.attributes().value(QStringLiteral("class"));
      inButton = widget == QStringLiteral("orvex::CommandButton");
    } else if (inButton && xml.name() == QStringLiteral("property") &&
               value == QStringLiteral("text")) {
      xml.readNextStartElement();
      form.captions << xml.readElementText();
    }
  }
  return form;
}

std::vector<DrawnForm> DrawnForms() {
  std::vector<DrawnForm> forms;
  const auto below = QDirIterator::Subdirectories;
  for (QDirIterator all(kSource + QStringLiteral("/src/ui"), {QStringLiteral("*.ui")}, QDir::Files,
                        below);
       all.hasNext();) {
    forms.push_back(ReadForm(all.next()));
  }
  return forms;
}

TEST(Manual, NamesEveryFormAndTheCaptionOfEveryButton) {
  const QString manual = WholeManual();
  const std::vector<DrawnForm> forms = DrawnForms();
  ASSERT_GT(forms.size(), 20U);
  for (const DrawnForm& form : forms) {
    EXPECT_TRUE(ExplainedForms().contains(form.name)) << form.name.toStdString();
    for (QString caption : form.captions) {
      caption.remove(u'&');
      if (caption.endsWith(QStringLiteral("..."))) caption.chop(3);
      EXPECT_TRUE(manual.contains(QStringLiteral("\"%1\"").arg(caption)))
          << form.name.toStdString() << ": " << caption.toStdString();
    }
  }
}

TEST(Manual, HasAPlaceForEveryFormAndNoDeadLink) {
  const QString first = kManual + QStringLiteral("index.md");
  for (const QString& form : ExplainedForms()) {
    const ManualPlace place = ManualPlaceOf(form);
    ExpectPlace(first, place.chapter);
    const QString page = TextOfFile(kManual + QStringLiteral("keys.md"));
    EXPECT_EQ(place.keys.isEmpty(), SectionOf(page, place.keys).isEmpty()) << form.toStdString();
  }
  static const QRegularExpression link(QStringLiteral(R"(\]\(([^)]+)\))"));
  QStringList reached = {first};
  for (const QString& file : ChapterFiles()) {
    int links = 0;
    for (auto found = link.globalMatch(TextOfFile(file)); found.hasNext(); ++links) {
      const QString place = found.next().captured(1);
      ExpectPlace(file, place);
      if (file == first) reached << kManual + place.section(u'#', 0, 0);
    }
  }
  for (const QString& file : ChapterFiles()) {
    EXPECT_TRUE(reached.contains(file)) << "not on the first page: " << file.toStdString();
  }
}

TEST(Manual, IsFoundBesideTheInstalledProgramAndInTheSources) {
  const TestFolder folder;
  namespace fs = std::filesystem;
  EXPECT_EQ(ManualFolder(folder / "usr/bin"), fs::path());
  fs::create_directories(folder / "docs/manual");
  PutFile(folder / "docs/manual/index.md", "# The manual");
  EXPECT_EQ(ManualFolder(folder / "build/release/bin"), folder / "docs/manual");
  fs::create_directories(folder / "build/release/share/doc/orvex/manual");
  PutFile(folder / "build/release/share/doc/orvex/manual/index.md", "# The manual");
  EXPECT_EQ(ManualFolder(folder / "build/release/bin"),
            folder / "build/release/share/doc/orvex/manual");
}

class ManualWindow : public testing::Test {
 protected:
  static QWidget* Window(const char* name) {
    for (QWidget* form : QApplication::topLevelWidgets()) {
      if (form->objectName() == QLatin1String(name) && form->isVisible()) return form;
    }
    return nullptr;
  }
  static const QTextBrowser& Chapter() {
    return *Find<QTextBrowser>(*Window("dlgManual"), "txtChapter");
  }
  static std::string ShownFile() { return Chapter().source().fileName().toStdString(); }
  static std::string Selected() { return Chapter().textCursor().selectedText().toStdString(); }

  Desk desk_;
  Forms forms_{desk_.program, desk_.log,      desk_.recovery,     desk_.storage,
               desk_.clock,   desk_.prompter, desk_.folder.Path()};
};

TEST_F(ManualWindow, OpensAtTheFormAndLeadsBackToIt) {
  forms_.Show(Screen::mainMenu);
  Settle();
  Keys("{F1}");
  ASSERT_NE(Window("dlgManual"), nullptr);
  EXPECT_EQ(ShownFile(), "first-class.md");
  EXPECT_EQ(Window("dlgManual")->windowTitle(),
            QStringLiteral("Manual - A first class, step by step"));
  Keys("{Esc}");
  EXPECT_EQ(Window("dlgManual"), nullptr);
  EXPECT_EQ(QApplication::activeWindow(), Window("frmSplash"));

  Keys("{Alt+N}{F1}");
  EXPECT_EQ(Chapter().source().fragment(), QStringLiteral("2-start-the-class"));
  EXPECT_EQ(Chapter().textCursor().block().text(), QStringLiteral("2. Start the class"));
  EXPECT_GT(Chapter().verticalScrollBar()->value(), 0);
  Keys("{Alt+C}");
  Keys("AB\n7");
  EXPECT_EQ(Find<QLineEdit>(*Window("frmInput1"), "txtSchoolNum")->text(), QStringLiteral("7"));
}

TEST_F(ManualWindow, OpensAboveADialogThatWaits) {
  forms_.Show(Screen::mainMenu);
  Settle();
  Keys("{F1}{Esc}");
  QTimer::singleShot(0, [] {
    QWidget* asking = QApplication::activeModalWidget();
    Find(*asking, "Text1")->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([asking] {
      asking->activateWindow();
      return QApplication::activeWindow() == asking;
    }));
    Keys("{F1}");
    EXPECT_EQ(ShownFile(), "offtask.md");
    Keys("{Ctrl+F}blinks");
    EXPECT_EQ(Selected(), "blinks") << "it takes keys although the dialog waits";
    Keys("{Esc}");
    EXPECT_TRUE(asking->isVisible());
    asking->close();
  });
  OfftaskPrompt prompt;
  EXPECT_FALSE(QtPrompter().AskOfftask(prompt));
  Settle();
  Keys("{Alt+U}");
  EXPECT_EQ(ShownFile(), "index.md");
}

TEST_F(ManualWindow, FollowsLinksAndGoesBackByKeys) {
  forms_.Show(Screen::mainMenu);
  Settle();
  Keys("{Alt+U}");
  EXPECT_FALSE(Find(*Window("dlgManual"), "cmdBack")->isEnabled());
  Keys("\t\n");
  EXPECT_EQ(ShownFile(), "first-class.md");
  Keys("{Alt+B}");
  EXPECT_EQ(ShownFile(), "index.md");
  Keys("{Alt+N}");
  EXPECT_EQ(ShownFile(), "index.md") << "there is nothing to look for yet";
  Keys("{Ctrl+F}seating plan");
  EXPECT_EQ(ShownFile(), "coding.md") << "it looks in the other chapters, too";
  EXPECT_EQ(Selected(), "seating plan");
  Keys("\n");
  EXPECT_EQ(Selected(), "seating plan") << "the only place is found again";
  Keys("{Alt+O}{Ctrl+F}xyzzy");
  EXPECT_EQ(Find<QLabel>(*Window("dlgManual"), "lblFound")->text(), QStringLiteral("Not found"));
  Keys("{Ctrl+F}stick{F3}{F3}");
  const QString place = Chapter().source().fileName();
  const int position = Chapter().textCursor().position();
  Keys("{F3}{Shift+F3}");
  EXPECT_EQ(Chapter().source().fileName(), place);
  EXPECT_EQ(Chapter().textCursor().position(), position);
}

TEST_F(ManualWindow, ShowsTheKeysOfTheForm) {
  forms_.Show(Screen::mainMenu);
  Settle();
  Keys("{F2}");
  ASSERT_NE(Window("dlgKeys"), nullptr);
  const QString keys = Find<QTextBrowser>(*Window("dlgKeys"), "txtKeys")->toPlainText();
  EXPECT_TRUE(keys.contains(QStringLiteral("EPSDATA\nAlt+D"))) << keys.toStdString();
  EXPECT_TRUE(keys.contains(QStringLiteral("open the study\nAlt+Y"))) << keys.toStdString();
  EXPECT_FALSE(keys.contains(QStringLiteral("Ctrl+X"))) << "those of another form";
  Keys("{F2}");
  EXPECT_EQ(Window("dlgKeys"), nullptr);
  EXPECT_EQ(QApplication::activeWindow(), Window("frmSplash"));
}

}  // namespace
}  // namespace orvex
