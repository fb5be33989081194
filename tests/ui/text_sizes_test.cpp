// Every form at every size of text and of the screen: no text is cut off, nothing lies outside the
// screen, and what does not fit scrolls.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QStyleOptionButton>
#include <QTabBar>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "model/episode.h"
#include "start/about_program.h"
#include "support/desk.h"
#include "ui/Forms.h"
#include "ui/forms/dlgDivideTime.h"
#include "ui/forms/dlgFieldNote.h"
#include "ui/forms/dlgLog.h"
#include "ui/forms/dlgTables.h"
#include "ui/forms/dlgTimer.h"
#include "ui/forms/dlgUnfinished.h"
#include "ui/forms/frmAdjust.h"
#include "ui/forms/frmChooseQAs.h"
#include "ui/forms/frmOfftask.h"
#include "ui/keys.h"
#include "ui/manual/dlgAbout.h"
#include "ui/manual/dlgManual.h"
#include "ui/print/ReportPrinter.h"
#include "ui/widgets/ElidedLabel.h"
#include "ui/widgets/FitToScreen.h"
#include "ui/widgets/OfftaskButton.h"
#include "ui/widgets/PlotArea.h"

namespace orvex {
namespace {

using namespace test;

/// The room that each screen leaves to a window at a scaling.
std::vector<QSize> Rooms(double scale) {
  constexpr QSize kFrame(16, 40);
  std::vector<QSize> rooms;
  for (const QSize screen : {QSize(1366, 768), QSize(1024, 600), QSize(800, 600)}) {
    rooms.push_back(screen / scale - kFrame);
  }
  return rooms;
}

/// The size that the text of `control` takes; empty for controls that scroll or elide theirs.
QSize SizeOfText(const QWidget& control) {
  const QFontMetrics metrics = control.fontMetrics();
  if (const auto* label = qobject_cast<const QLabel*>(&control)) {
    if (label->text().isEmpty() || qobject_cast<const ElidedLabel*>(label)) return {};
    if (label->wordWrap()) {
      const int height = label->heightForWidth(label->width());
      return {0, height};
    }
    return label->minimumSizeHint();
  }
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
    if (button->text().isEmpty()) return {};
    return metrics.size(Qt::TextShowMnemonic, button->text());
  }
  if (qobject_cast<const QLineEdit*>(&control)) return {0, metrics.height()};
  if (const auto* list = qobject_cast<const QComboBox*>(&control)) {
    return {0, list->fontMetrics().height()};
  }
  if (const auto* group = qobject_cast<const QGroupBox*>(&control)) {
    if (group->title().isEmpty()) return {};
    return {metrics.horizontalAdvance(group->title()), metrics.height()};
  }
  return {};
}

template <typename Around>
bool IsIn(const QWidget* control) {
  for (; control; control = control->parentWidget()) {
    if (qobject_cast<const Around*>(control)) return true;
  }
  return false;
}

/// What of `control` is seen in its window, or could be scrolled into it.
bool CanBeSeen(const QWidget& control) {
  QRect shown = control.rect();
  for (const QWidget* child = &control; !child->isWindow(); child = child->parentWidget()) {
    const QWidget* parent = child->parentWidget();
    shown.moveTopLeft(child->mapTo(parent, shown.topLeft()));
    const auto* area = qobject_cast<const QAbstractScrollArea*>(parent->parentWidget());
    if (area && area->viewport() == parent) {
      const auto* scrolled = qobject_cast<const QScrollArea*>(area);
      if (!scrolled) return true;  // a list scrolls to its rows by itself
      const bool wide = scrolled->widget()->width() > parent->width();
      const bool high = scrolled->widget()->height() > parent->height();
      if (wide && area->horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff) return false;
      if (high && area->verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOff) return false;
      shown = parent->rect();
      continue;
    }
    if (!parent->rect().contains(shown)) return false;
  }
  return true;
}

/// True when an off-task button is wholly in sight.
bool IsAPromptSeen(const QWidget& form) {
  for (const auto* button : form.findChildren<OfftaskButton*>()) {
    if (button->isVisible() && button->visibleRegion().boundingRect() == button->rect())
      return true;
  }
  return false;
}

class TextSizes : public testing::Test, protected Desk {
 protected:
  ~TextSizes() override { QApplication::setFont(font_); }

  /// The complaints about what is on the screen now.
  void Check(const QWidget& form, const std::string& at) {
    for (const QWidget* control : form.findChildren<QWidget*>()) {
      if (!control->isVisible() || control->window() != &form) continue;
      // The plot lays out its rows itself; only its headings are texts like others.
      const bool inPlot = IsIn<PlotArea>(control);
      if (inPlot && !control->objectName().startsWith(QLatin1String("Label3_"))) continue;
      const QSize text = SizeOfText(*control);
      const bool cut = text.width() > control->width() || text.height() > control->height();
      const std::string name = form.objectName().toStdString() + " " +
                               control->metaObject()->className() + " " +
                               control->objectName().toStdString();
      if (cut) {
        complaints_[name + " cut"] +=
            " " + at + ":" + std::to_string(text.width()) + "x" + std::to_string(text.height()) +
            ">" + std::to_string(control->width()) + "x" + std::to_string(control->height());
      }
      if (text.isValid() && !inPlot && !CanBeSeen(*control)) complaints_[name + " out"] += " " + at;
    }
  }

  /// Shows `form` in all rooms and notes what is wrong. `prompt`, the off-task button, must be seen
  /// without scrolling.
  void CheckInAllRooms(QWidget& form, const QWidget* prompt = nullptr) {
    for (const QSize room : Rooms(scale_)) {
      form.setMaximumSize(room);
      FitInto(form, room);
      form.show();
      // What the new size brings about may need more room, in turn.
      for (int round = 0; round < 3; ++round) QCoreApplication::processEvents();
      const std::string at = std::to_string(points_) + "pt/" + std::to_string(room.width()) + "x" +
                             std::to_string(room.height());
      const QSize least = form.minimumSizeHint().expandedTo(form.minimumSize());
      if (least.width() > room.width() || least.height() > room.height()) {
        complaints_[form.objectName().toStdString() + " large"] +=
            " " + at + ":" + std::to_string(least.width()) + "x" + std::to_string(least.height());
      }
      Check(form, at);
      if (prompt && !IsAPromptSeen(form)) {
        complaints_[form.objectName().toStdString() + " prompt"] += " " + at;
      }
    }
    form.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    Settle();
  }
  void CheckForm(const char* name, const char* prompt = nullptr) {
    Settle();
    if (prompt) TickForms();
    for (QWidget* form : QApplication::topLevelWidgets()) {
      if (form->objectName() != QLatin1String(name)) continue;
      return CheckInAllRooms(*form, prompt ? Find(*form, prompt) : nullptr);
    }
    ADD_FAILURE() << "no " << name;
  }
  template <typename Dialog, typename... Arguments>
  void CheckDialog(Arguments&&... arguments) {
    Dialog dialog(std::forward<Arguments>(arguments)...);
    CheckInAllRooms(dialog);
  }

  /// Does `work` with each size of text.
  void WithEachSize(const std::function<void()>& work) {
    // As large as three times the smallest text, by its size, the scaling, or both.
    const std::pair<int, double> sizes[] = {{9, 1}, {20, 1}, {13, 1.5}, {9, 2}, {13, 2}, {9, 3}};
    for (const auto& [points, scale] : sizes) {
      points_ = points;
      scale_ = scale;
      QFont font = font_;
      font.setPointSize(points);
      QApplication::setFont(font);
      work();
    }
    ExpectNoComplaint();
  }
  int points_ = 9;
  double scale_ = 1;

  void ExpectNoComplaint() {
    for (const auto& [what, where] : complaints_) ADD_FAILURE() << what << ":" << where;
  }

  const QFont font_ = QApplication::font();
  std::map<std::string, std::string> complaints_;
};

/// Makes estimates fall due until one is pending.
void AwaitEstimate(Desk& desk) {
  for (int second = 0; second < 200; ++second) {
    desk.clock.Advance(1);
    TickForms();
  }
}

TEST_F(TextSizes, FormsOfAClass) {
  WithEachSize([this] {
    Desk desk;
    desk.prompter.cancelsDialogs = true;
    Forms forms(desk.program, desk.log, desk.recovery, desk.storage, desk.clock, desk.prompter,
                desk.programFolder);
    forms.Show(Screen::mainMenu);
    CheckForm("frmSplash");
    Keys("{Alt+N}");
    CheckForm("frmInput1");
    Keys("AB\n7\n12\n3\n25\n ");
    CheckForm("frmClassAct");
    Keys("Reading aloud of chapter 3\tsu/h ");
    AwaitEstimate(desk);
    CheckForm("frmClassAct", "cmdOfftaskActive");
    Keys("{Alt+M}");
    CheckForm("frmMatrices", "cmdOfftaskActive");
    Keys("{Alt+R}");
    Keys("{Alt+Q}");
    AwaitEstimate(desk);
    AwaitEstimate(desk);
    Keys("Why does he leave the farm?\n");
    CheckForm("frmEnterQA", "cmdOfftaskActive");
    Keys("{Alt+M}{Ctrl+N}{Alt+R}");
    CheckForm("frmQA", "cmdOfftaskActive");
  });
}

TEST_F(TextSizes, FormsOfAFile) {
  WithEachSize([this] {
    Desk desk;
    desk.prompter.cancelsDialogs = true;
    Forms forms(desk.program, desk.log, desk.recovery, desk.storage, desk.clock, desk.prompter,
                desk.programFolder);
    const auto file = desk.folder / "11-4-2.eps";
    PutFile(file, FileBytes(TestData("class") / "11-4-2.eps"));
    PutFile(desk.folder / "11-4-2.sur", FileBytes(TestData("class") / "11-4-2.sur"));
    PutFile(desk.folder / "LIST.TXT", "11-4-2\r\n");
    ASSERT_TRUE(forms.ShowEpisodeEditor(file, Kept::areOffered));
    CheckForm("frmClassEdit");
    const std::pair<Screen, const char*> reports[] = {{Screen::questionStats, "frmQuestionStats"},
                                                      {Screen::questionPlot, "frmQuestionPlot"},
                                                      {Screen::timeSummary, "frmTimeSummary"},
                                                      {Screen::classPicture, "frmClassPicture"}};
    for (const auto& [screen, name] : reports) {
      forms.Show(screen);
      CheckForm(name);
      forms.Close(screen);
    }
    forms.ShowQuestionEditor(EditorCaller::episodeEditor, false);
    CheckForm("frmQA");
    forms.Close(Screen::questionEditor);
    forms.Close(Screen::episodeEditor);
    ASSERT_TRUE(forms.ShowSurveyFile(desk.folder / "11-4-2.sur", Kept::areOffered));
    CheckForm("frmMatrices");
    forms.Close(Screen::survey);
    ASSERT_TRUE(forms.ShowStudyPicture({file}));
    CheckForm("frmStudyPicture");
    forms.Close(Screen::studyPicture);
    ASSERT_TRUE(forms.ShowAgreement(file, file, {}));
    CheckForm("frmAgreement");
    forms.Close(Screen::agreement);
    forms.ShowAgreements({file});
    CheckForm("frmAgreementStudy");
    forms.Close(Screen::agreementStudy);
    forms.Show(Screen::study);
    CheckForm("frmStudy");
  });
}

TEST_F(TextSizes, Dialogs) {
  WithEachSize([this] {
    OfftaskPrompt prompt = {.students = "25"};
    CheckDialog<frmOfftask>(prompt);
    CheckDialog<frmAdjust>(SecondsPrompt{.maximum = 180, .seconds = 90});
    Episode episode;
    episode.questions.resize(5);
    CheckDialog<frmChooseQAs>(episode);
    CheckDialog<dlgDivideTime>(100);
    CheckDialog<dlgFieldNote>(NotesPrompt{.notes = "They share the book."}, prompter);
    CheckDialog<dlgTimer>(clock);
    CheckDialog<dlgLog>("5-12-3.bak", "LOG ON: 09:00:00\r\n");
    TablesChoice choice;
    CheckDialog<dlgTables>(services, StudySelection{folder.Path(), {}, {}}, choice);
    CheckDialog<dlgAbout>(AboutProgram(services, folder / "manual"));
    const Printing printing = {prompter, storage};
    CheckDialog<dlgManual>(folder.Path(), printing);
    const UnfinishedItem item = {
        .what = "Class 7-12-3 of 03-14-2001 was not ended",
        .extent = "09:00:00 to 09:41:10, 2 episodes",
        .place = "/home/observer/study",
        .question = {.text = "?",
                     .buttons = Buttons::yesNoCancel,
                     .captions = {{Answer::yes, "Go on observing"},
                                  {Answer::no, "Close it as it stands"},
                                  {Answer::cancel, "Leave it for later"}}}};
    CheckDialog<dlgUnfinished>(std::vector<UnfinishedItem>(3, item));
  });
}

}  // namespace
}  // namespace orvex
