#include "ui/forms/frmClassEdit.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRadioButton>
#include <map>
#include <memory>

#include "editor/editor_desk.h"
#include "support/sample_manifest.h"
#include "ui/edit_sequences.h"
#include "ui/keys.h"
#include "ui/widgets/FitToScreen.h"
#include "ui/widgets/RowList.h"

namespace orvex {
namespace {

using namespace test;

Episode EpisodeOf(const char* description, std::vector<SegmentData> segments,
                  std::vector<questionInfo> questions = {}) {
  Episode episode;
  episode.Descript = description;
  episode.segments = std::move(segments);
  episode.questions = std::move(questions);
  return episode;
}

/// Three episodes of 5, 2 and 1 segments.
EpisodeList Lesson() {
  return {
      EpisodeOf("Warm-up",
                {Segment(5, 10), Segment(2, 20), Segment(3, 30), Segment(8, 40), Segment(9, 50)},
                {Question(1), Question(2)}),
      EpisodeOf("Macbeth", {Segment(6, 60), Segment(14, 70)}), EpisodeOf("End", {Segment(1, 80)})};
}

class frmClassEditTest : public testing::Test, protected Desk {
 protected:
  void Open(const std::filesystem::path& path) {
    form_.reset();
    LoadOutcome outcome = LoadEpisodes(services, path);
    form_ = std::make_unique<frmClassEdit>(services, std::move(*outcome.loaded));
    Activate(*form_);
  }
  void Open() {
    PutFile(file_, FileOf(Lesson()));
    Open(file_);
  }

  template <typename Control = QWidget>
  Control* The(const char* name) const {
    return Find<Control>(*form_, name);
  }
  std::string Text(const char* label) const { return The<QLabel>(label)->text().toStdString(); }
  void GoTo(const char* name) { The(name)->setFocus(); }

  /// All episodes with the times of their segments: "Warm-up 10 20 30 40 50 | Macbeth 60 70 | End
  /// 80".
  std::string Episodes() const {
    std::string all;
    for (const Episode& episode : program.Episodes) {
      all += (all.empty() ? "" : " | ") + episode.Descript;
      for (const SegmentData& segment : episode.segments) {
        all += " " + std::to_string(static_cast<int>(segment.duration));
      }
    }
    return all;
  }

  /// Scrolls to a row and returns the middle of its visible part.
  static QPoint Middle(RowList* list, int row) {
    list->scrollTo(list->model()->index(row - 1, 0));
    const QRect place = list->visualRect(list->model()->index(row - 1, 0));
    return list->viewport()->mapToGlobal(place.intersected(list->viewport()->rect()).center());
  }
  void Mouse(QEvent::Type type, const QPoint& at, Qt::KeyboardModifiers keys = {}) {
    QWidget* rows = The<RowList>("listViewSg")->viewport();
    const bool moves = type == QEvent::MouseMove;
    const bool ends = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, rows->mapFromGlobal(at), at, moves ? Qt::NoButton : Qt::LeftButton,
                      ends ? Qt::NoButton : Qt::LeftButton, keys);
    QApplication::sendEvent(rows, &event);
  }
  void ClickSegment(int row, Qt::KeyboardModifiers keys = {}) {
    RowList* segments = The<RowList>("listViewSg");
    segments->setFocus();
    QTest::mouseClick(segments->viewport(), Qt::LeftButton, keys,
                      segments->viewport()->mapFromGlobal(Middle(segments, row)));
  }
  void ClickEpisode(int row, Qt::KeyboardModifiers keys = {}) {
    RowList* episodes = The<RowList>("listViewEp");
    QTest::mouseClick(episodes->viewport(), Qt::LeftButton, keys,
                      episodes->viewport()->mapFromGlobal(Middle(episodes, row)));
  }
  /// Presses the mouse button on a segment and moves to a row of a list.
  void DragTo(int segment, const char* list, int row) {
    Mouse(QEvent::MouseButtonPress, Middle(The<RowList>("listViewSg"), segment));
    const QPoint target = Middle(The<RowList>(list), row);
    Mouse(QEvent::MouseMove, target - QPoint(0, 2));
    Mouse(QEvent::MouseMove, target);
  }
  void Drop(const char* list, int row) {
    Mouse(QEvent::MouseButtonRelease, Middle(The<RowList>(list), row));
  }
  void Drag(int segment, const char* list, int row) {
    DragTo(segment, list, row);
    Drop(list, row);
  }
  /// Performs one operation of the samples.
  void Perform(const EditOperation& operation) {
    const auto& arguments = operation.arguments;
    const auto number = [&arguments](std::size_t i) { return arguments.at(i).at(0); };
    const auto select = [](const std::vector<int>& rows, const auto& click) {
      for (const int row : rows) {
        click(row, row == rows.front() ? Qt::NoModifier : Qt::ControlModifier);
      }
    };
    if (operation.name == "merge_episodes") {
      select(arguments.at(0), [this](int row, auto keys) { ClickEpisode(row, keys); });
      return Click(The("cmdMergeEp"));
    }
    ClickEpisode(number(0));
    select(arguments.at(1), [this](int row, auto keys) { ClickSegment(row, keys); });
    if (operation.name == "split_episode") {
      if (!program.Episodes.at(static_cast<std::size_t>(number(0) - 1)).questions.empty()) {
        prompter.ExpectQuestions(arguments.at(2));
      }
      Click(The("cmdSplitEp"));
    } else if (operation.name == "merge_segments") {
      Click(The("cmdMergeSg"));
    } else if (operation.name == "move_segments") {
      Drag(number(1), "listViewEp", number(2));
    } else if (operation.name == "reorder_segments") {
      Drag(number(1), "listViewSg", number(2));
    } else if (operation.name == "split_segment") {
      prompter.ExpectDivision(number(2));
      Click(The("cmdSplitSg"));
    } else if (operation.name == "recode_segment") {
      The<QComboBox>("cmbActivityCoding")->setCurrentIndex(number(2) - 1);
    } else if (operation.name == "set_segment_duration") {
      GoTo("Text1");
      Keys("{Ctrl+A}" + operation.text + "\t");
    } else {
      FAIL() << operation.name;
    }
  }

  bool IsMarked(const char* list, int row) const {
    RowList* rows = The<RowList>(list);
    const QRect place = rows->visualRect(rows->model()->index(row - 1, 0));
    const QImage marked = rows->viewport()->grab(place).toImage();
    rows->ShowDropTarget(0);
    return marked != rows->viewport()->grab(place).toImage();
  }

  std::filesystem::path file_ = folder / "EPS/7-12-3.eps";
  std::unique_ptr<frmClassEdit> form_;
};

TEST_F(frmClassEditTest, LeavesATextAloneThatNoBoxHolds) {
  EpisodeList lesson = Lesson();
  const std::string longText(100'000, 'a');
  lesson[0].Descript = longText;
  PutFile(file_, FileOf(lesson));
  Open(file_);
  GoTo("txtEpisodeName");
  Keys("!{Backspace}{Ctrl+A}{Delete}");
  EXPECT_EQ(program.Episodes[0].Descript, longText);
  GoTo("listViewEp");
  Keys("{Down}");
  GoTo("txtEpisodeName");
  Keys("{End}!");
  EXPECT_EQ(program.Episodes[1].Descript, "Macbeth!");
}

TEST_F(frmClassEditTest, ShowsTheFileAndFitsTheSmallestScreen) {
  Open();
  FitInto(*form_, kSmallestScreen);
  EXPECT_EQ(form_->size(), kSmallestScreen);
  EXPECT_EQ(form_->windowTitle(), QStringLiteral("Orvex 4.10 Episode Editor[*]"));
  EXPECT_EQ(Text("Label7") + "|" + Text("Label11"), "Observer: AB|Date of Observation: 03-14-2001");
  EXPECT_EQ(Text("Label8"), "File: " + file_.string());
  EXPECT_EQ(Text("Label12"), "Total: 3 Episodes");
  EXPECT_EQ(Text("Label10"), "Question/Answer: 2 Question(s)");
  EXPECT_EQ(Text("Label1"), "2 minutes, 30 seconds");
  EXPECT_EQ(FocusedName(), "listViewEp");
  Keys("{End}");
  EXPECT_EQ(Text("Label10"), "Procedures & directions: 0 Question(s)");
  EXPECT_EQ(Text("Label2"), "1 Segment");
  EXPECT_EQ(The<QLineEdit>("Text1")->text(), QStringLiteral("80"));
  EXPECT_EQ(The<QComboBox>("cmbActivityCoding")->currentText(),
            QStringLiteral("Procedures & directions"));
}

TEST_F(frmClassEditTest, ButtonsFollowWhatIsSelected) {
  const auto enabled = [this] {
    std::string names;
    for (const char* name : {"cmdSplitEp", "cmdMergeEp", "cmdSplitSg", "cmdMergeSg"}) {
      if (The(name)->isEnabled()) names += std::string(name + 3) + " ";
    }
    return names;
  };
  Open();
  EXPECT_EQ(enabled(), "MergeEp MergeSg ");
  const std::pair<const char*, const char*> steps[] = {
      {" ", "SplitEp MergeSg "},
      {"{Shift+Down}", "MergeEp MergeSg "},
      {"{End}", "MergeSg "},
      {"{Home}", "SplitEp MergeSg "},
      {"", "SplitEp MergeSg "},
      {" ", "SplitEp SplitSg "},
      {"{Shift+Down}", "SplitEp MergeSg "},
      {"{Ctrl+A}", "SplitEp MergeSg "},
      {"{Down}", "SplitEp SplitSg "},
  };
  for (const auto& [keys, names] : steps) {
    if (!*keys) GoTo("listViewSg");
    Keys(keys);
    EXPECT_EQ(enabled(), names) << keys;
  }
  ClickSegment(1);
  ClickSegment(3, Qt::ControlModifier);
  EXPECT_EQ(enabled(), "SplitEp MergeSg ");
  EXPECT_TRUE(The("Command2")->isEnabled());
  for (const char* name : {"Command3", "Command6"}) {
    for (Episode& episode : program.Episodes) episode.questions.clear();
    TickForms();
    EXPECT_FALSE(The(name)->isEnabled()) << "no questions, no report of them: " << name;
  }
}

TEST_F(frmClassEditTest, KeysMoveMergeSplitAndTakeItBack) {
  Open();
  const std::string before = FileBytes(file_);
  GoTo("listViewSg");
  Keys("{Down}{Shift+Down}{Alt+M}");
  const std::string merged = "Warm-up 10 50 40 50 | Macbeth 60 70 | End 80";
  EXPECT_EQ(Episodes(), merged);
  EXPECT_EQ(FocusedName(), "listViewSg");
  EXPECT_EQ(The<QPushButton>("cmdUndo")->text(), QStringLiteral("&Undo Merge segments"));
  prompter.ExpectDivision(4);
  Keys("{Alt+L}");
  EXPECT_EQ(Episodes(), "Warm-up 10 46 4 40 50 | Macbeth 60 70 | End 80");
  EXPECT_EQ(FocusedName(), "listViewSg");
  EXPECT_TRUE(form_->isWindowModified());
  Keys("{Ctrl+Z}{Ctrl+Z}{Ctrl+Z}");
  EXPECT_EQ(Episodes(), "Warm-up 10 20 30 40 50 | Macbeth 60 70 | End 80");
  Keys("{Ctrl+Shift+Z}");
  EXPECT_EQ(Episodes(), merged);
  Keys("{Ctrl+S}");
  EXPECT_FALSE(form_->isWindowModified());
  Keys("{Alt+U}");
  EXPECT_TRUE(form_->isWindowModified());
  EXPECT_EQ(FocusedName(), "listViewSg");
  Keys("{Ctrl+S}");
  EXPECT_EQ(FileBytes(file_), before);
}

TEST_F(frmClassEditTest, CutSegmentsArePastedByKeys) {
  struct Case {
    const char* episode;  ///< keys in the list of episodes
    const char* cut;      ///< then in the list of segments
    const char* onto;     ///< then in the list of episodes again
    const char* before;   ///< and in the list of segments
    const char* episodes;
  };
  const Case cases[] = {
      {"", "{Home} {Shift+Down}", "{Down}{Ctrl+V}", "",
       "Warm-up 30 40 50 | Macbeth 10 20 60 70 | End 80"},
      {"{End}", "{Ctrl+A}", "{Home}{Ctrl+V}", "", "Warm-up 10 20 30 40 50 80 | Macbeth 60 70"},
      {"", "{End}", "", "{Home}{Ctrl+V}", "Warm-up 50 10 20 30 40 | Macbeth 60 70 | End 80"},
      {"", "{Home}{Down}", "{Down}", "{Down}{Ctrl+V}",
       "Warm-up 10 30 40 50 | Macbeth 60 20 70 | End 80"},
  };
  for (const Case& c : cases) {
    Open();
    Keys(c.episode);
    GoTo("listViewSg");
    Keys(c.cut);
    const QModelIndex row = The<RowList>("listViewSg")->currentIndex();
    EXPECT_FALSE(row.data(Qt::ForegroundRole).isValid());
    Keys("{Ctrl+X}");
    EXPECT_TRUE(row.data(Qt::ForegroundRole).isValid()) << "cut rows look cut";
    EXPECT_FALSE(form_->isWindowModified());
    GoTo("listViewEp");
    Keys(c.onto);
    GoTo("listViewSg");
    if (*c.onto != '\0' && *c.before != '\0') {
      const auto* shown = The<RowList>("listViewSg")->model();
      EXPECT_FALSE(shown->index(1, 0).data(Qt::ForegroundRole).isValid()) << "of another episode";
    }
    Keys(c.before);
    EXPECT_EQ(Episodes(), c.episodes);
    EXPECT_TRUE(form_->isWindowModified());
    Keys("{Ctrl+V}");
    EXPECT_EQ(Episodes(), c.episodes) << "they are pasted once";
    Keys("{Ctrl+Z}");
    EXPECT_EQ(program.Episodes, Lesson());
  }
}

TEST_F(frmClassEditTest, TheMouseDragsSegments) {
  struct Case {
    std::vector<int> selected;
    int pressed;
    const char* list;
    int row;
    const char* episodes;
  };
  const Case cases[] = {
      {{2, 4}, 4, "listViewEp", 2, "Warm-up 10 30 50 | Macbeth 20 40 60 70 | End 80"},
      {{2, 3}, 2, "listViewSg", 5, "Warm-up 10 40 50 20 30 | Macbeth 60 70 | End 80"},
      {{3}, 5, "listViewSg", 1, "Warm-up 50 10 20 30 40 | Macbeth 60 70 | End 80"},
      {{1, 4}, 1, "listViewSg", 2, "Warm-up 10 20 30 40 50 | Macbeth 60 70 | End 80"},
      {{2}, 2, "listViewEp", 1, "Warm-up 10 20 30 40 50 | Macbeth 60 70 | End 80"},
      {{1, 2, 3, 4, 5}, 3, "listViewEp", 3, "Macbeth 60 70 | End 10 20 30 40 50 80"},
  };
  for (const Case& c : cases) {
    Open();
    for (const int row : c.selected) {
      ClickSegment(row, row == c.selected.front() ? Qt::NoModifier : Qt::ControlModifier);
    }
    DragTo(c.pressed, c.list, c.row);
    EXPECT_TRUE(IsMarked(c.list, c.row));
    Drop(c.list, c.row);
    EXPECT_EQ(Episodes(), c.episodes);
    EXPECT_FALSE(IsMarked(c.list, std::min(c.row, 2)));
  }
  // Escape cancels a drag, and keys that would change the lists do nothing until it ends.
  Open();
  ClickSegment(2);
  DragTo(2, "listViewEp", 2);
  Keys("{Ctrl+X}{Escape}");
  Drop("listViewEp", 2);
  EXPECT_EQ(Episodes(), "Warm-up 10 20 30 40 50 | Macbeth 60 70 | End 80");
  // A click on one of several selected rows is not a drag; it selects just that row.
  ClickSegment(4, Qt::ShiftModifier);
  ClickSegment(3);
  EXPECT_EQ(The<RowList>("listViewSg")->SelectedRows(), std::vector{3});
}

TEST_F(frmClassEditTest, BoxesAreUndoneByTheEditor) {
  Open();
  GoTo("txtEpisodeName");
  Keys("{End}!\n?");
  EXPECT_EQ(program.Episodes[0].Descript, "Warm-up!?") << "Enter does nothing";
  EXPECT_EQ(The<RowList>("listViewEp")->model()->index(0, 0).data(),
            QStringLiteral("1. Warm-up!?"));
  Keys("\tx{Backspace}{Delete}{Ctrl+A}20005{Ctrl+V}");
  EXPECT_EQ(program.Episodes[0].segments[0].duration, 5.0F);
  Keys("\t");
  EXPECT_EQ(The<QLineEdit>("Text1")->text(), QStringLiteral("5"));
  GoTo("txtEpisodeName");
  Keys("{Ctrl+Z}");
  EXPECT_EQ(program.Episodes[0].segments[0].duration, 10.0F);
  EXPECT_EQ(program.Episodes[0].Descript, "Warm-up!?");
  Keys("{Ctrl+Z}");
  EXPECT_EQ(The<QLineEdit>("txtEpisodeName")->text(), QStringLiteral("Warm-up"));
  EXPECT_FALSE(form_->isWindowModified());
  Keys("{Ctrl+Z}{Ctrl+Y}");
  EXPECT_EQ(The<QLineEdit>("txtEpisodeName")->text(), QStringLiteral("Warm-up!?"));
}

TEST_F(frmClassEditTest, ABoxKeepsCaretAndSelectionWhileAnotherWindowIsUsed) {
  Open();
  const auto lookAway = [this] {
    QWidget other;
    test::Activate(other);
    form_->Refresh();  // like the form's timer
    other.hide();
    test::Activate(*form_);
  };
  GoTo("txtEpisodeName");
  Keys("{Ctrl+A}Reading chapter");
  lookAway();
  Keys(" two");
  EXPECT_EQ(program.Episodes[0].Descript, "Reading chapter two");
  Keys("{Alt+S}!");
  EXPECT_EQ(program.Episodes[0].Descript, "Reading chapter two!");
  ClickEpisode(2);
  EXPECT_EQ(The<QLineEdit>("txtEpisodeName")->cursorPosition(), 0) << "another text";
  auto* about = The<QLineEdit>("txtAboutData");
  GoTo("txtAboutData");
  Keys("the moors");
  about->setSelection(4, 5);
  lookAway();
  EXPECT_EQ(about->selectedText(), QStringLiteral("moors"));
}

TEST_F(frmClassEditTest, EachActivityShowsItsCodes) {
  Open();
  auto* activities = The<QComboBox>("cmbActivityCoding");
  const std::map<int, std::string> layouts = {
      {4, "txtAboutData "},       {6, "txtAboutData "},       {7, "frGrpSolo frOrg frPrep "},
      {12, "txtAboutData "},      {14, "cmboSubCat frSeat "}, {15, "cmboSubCat frSeat "},
      {16, "cmboSubCat frSeat "}, {17, "cmboSubCat "},
  };
  const QRect place = The("codingStack")->geometry();
  for (int activity = 1; activity <= kActivityCount; ++activity) {
    activities->setCurrentIndex(activity - 1);
    std::string shown;
    for (const char* name :
         {"txtAboutData", "cmboSubCat", "frSeat", "frGrpSolo", "frOrg", "frPrep"}) {
      if (The(name)->isVisible()) shown += std::string(name) + " ";
    }
    EXPECT_EQ(shown, layouts.contains(activity) ? layouts.at(activity) : "") << activity;
    if (activity >= 14) {
      EXPECT_EQ(The<QComboBox>("cmboSubCat")->count(), activity == 17 ? 5 : 2);
    }
    ASSERT_EQ(The("codingStack")->geometry(), place) << activity;
  }
  const auto segment = [this] { return program.Episodes[0].segments[0]; };
  Keys("{Ctrl+Z}");  // back to activity 16
  EXPECT_EQ(segment().activityNum, 16);
  GoTo("cmbSrc");
  EXPECT_EQ(The<QComboBox>("cmbSrc")->currentText(), QStringLiteral("no coding"));
  Keys("h");
  EXPECT_EQ(segment().src, 2);
  Keys("{Down}{Down}");
  EXPECT_EQ(segment().src, -1);
  GoTo("cmboSubCat");
  Keys("{Down}");
  EXPECT_EQ(segment().fSubCat, 0);
  Keys("{Delete}");
  EXPECT_EQ(segment().fSubCat, -1);
  activities->setCurrentIndex(6);
  Click(The("optPrep_1"));
  EXPECT_EQ(segment().prep, 1);
  EXPECT_TRUE(The<QRadioButton>("optPrep_1")->isChecked());
  EXPECT_FALSE(The<QRadioButton>("optPrep_0")->isChecked());
}

TEST_F(frmClassEditTest, MouseAndKeysMakeTheSampleEdits) {
  const auto samples = SamplesFolder() / "edits";
  int files = 0;
  for (const EditSequence& sequence : ReadEditSequences(samples / "operations.json")) {
    SCOPED_TRACE(sequence.file);
    PutFile(file_, FileBytes(samples / sequence.file));
    Open(file_);
    const EpisodeList first = program.Episodes;
    for (const EditOperation& operation : sequence.operations) Perform(operation);
    const EpisodeList last = program.Episodes;
    Keys("{Ctrl+S}");
    EXPECT_TRUE(FileBytes(file_) == FileBytes(samples / "results" / sequence.file));
    while (The("cmdUndo")->isEnabled()) Keys("{Ctrl+Z}");
    EXPECT_EQ(program.Episodes, first);
    EXPECT_TRUE(form_->isWindowModified());
    for (std::size_t i = 0; i < sequence.operations.size(); ++i) Keys("{Ctrl+Y}");
    EXPECT_EQ(program.Episodes, last);
    EXPECT_FALSE(form_->isWindowModified());
    ++files;
  }
  EXPECT_GE(files, 7);
}

TEST_F(frmClassEditTest, SavesFilesAsTheyWereRead) {
  for (const char* name : {"edits/7-24-2.eps", "edits/22-4-8.eps", "class/17-17-7.eps"}) {
    const std::string bytes = FileBytes(TestData(name));
    PutFile(file_, bytes);
    Open(file_);
    for (std::size_t k = 0; k < program.Episodes.size(); ++k)
      Keys("{Down}\t\t\t{End}{Home}{Backtab}{Backtab}{Backtab}");
    EXPECT_FALSE(form_->isWindowModified()) << name;
    Keys("{Ctrl+S}");
    EXPECT_TRUE(FileBytes(file_) == bytes) << name;
  }
}

TEST_F(frmClassEditTest, QuitAsksAndTheFrameDoesTheSame) {
  Open();
  for (const bool byFrame : {false, true}) {
    prompter.Expect("Save Data?", Answer::no);
    prompter.Expect("Edit Another File?", Answer::no);
    screens.Take();
    if (byFrame) {
      form_->close();
    } else {
      Keys("{Alt+Q}");
    }
    EXPECT_EQ(screens.Take(), std::vector<std::string>{"end"});
    EXPECT_TRUE(form_->isVisible()) << "it goes when the program ends";
  }
}

}  // namespace
}  // namespace orvex
