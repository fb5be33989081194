#include "ui/forms/SegmentCodingPanel.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <algorithm>
#include <initializer_list>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "editor/episode_editor.h"
#include "model/activities.h"
#include "ui/ReadFromStart.h"
#include "ui/show.h"
#include "ui/widgets/ChoiceGroup.h"
#include "ui_frmClassEdit.h"

namespace orvex {
namespace {

/// True for the keys that leave the text of the duration unchanged, such as those that move the
/// caret.
bool IsForMoving(const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
      return true;
    default:
      return key.matches(QKeySequence::SelectAll) || key.matches(QKeySequence::Copy);
  }
}

bool IsTypedInto(const QKeyEvent& key) {
  const QString text = key.text();
  if (key.matches(QKeySequence::Paste) || key.matches(QKeySequence::Cut)) return false;
  if (text.isEmpty() && key.key() != Qt::Key_Delete) return true;  // such a key types nothing
  return IsForMoving(key) || (text.size() == 1 && IsDurationKey(text.at(0).unicode()));
}

void Fill(QComboBox* list, std::span<const std::string_view> rows) {
  const QSignalBlocker notChosen(list);
  list->clear();
  for (const std::string_view row : rows) list->addItem(ToQt(row));
  // Rows too long for the box can be read in the list it opens.
  QAbstractItemView* opened = list->view();
  opened->setMinimumWidth(opened->sizeHintForColumn(0) +
                          opened->verticalScrollBar()->sizeHint().width());
}

void ShowChoice(QComboBox* list, int position) {
  if (list->currentIndex() == position) return;
  const QSignalBlocker notChosen(list);
  list->setCurrentIndex(position);
}

}  // namespace

SegmentCodingPanel::SegmentCodingPanel(Ui::frmClassEdit& ui, EpisodeEditor& editor,
                                       std::function<void()> changed, QObject* parent)
    : QObject(parent), ui_(ui), editor_(editor), changed_(std::move(changed)) {
  AddPair(SubCode::groupSolo, ui.optGrp_0, ui.optGrp_1);
  AddPair(SubCode::organization, ui.optOrg_0, ui.optOrg_1);
  AddPair(SubCode::preparation, ui.optPrep_0, ui.optPrep_1);
  BuildLists();
  KeepPlace(ui.frSeat);
  connect(ui.Text1, &QLineEdit::textEdited, this, [this](const QString& text) {
    editor_.TypeSegmentDuration(FromQt(text));
    changed_();
  });
  connect(ui.txtAboutData, &QLineEdit::textEdited, this, [this](const QString& text) {
    editor_.TypeAbout(FromQt(text));
    changed_();
  });
}

void SegmentCodingPanel::BuildLists() {
  std::vector<std::string_view> activities;
  for (const Activity& activity : kActivities) activities.push_back(activity.name);
  AddList(ui_.cmbActivityCoding, activities,
          [this](int position) { editor_.ChooseActivity(position); });
  AddList(ui_.cmboSubCat, {}, [this](int position) {
    const SubCodeScheme* shown = editor_.Coding().subCategory;
    if (shown) editor_.Recode(shown->code, position);
  });
  seatwork_ = {{SubCode::seatworkSource, ui_.cmbSrc},
               {SubCode::seatworkLevel, ui_.cmbCog},
               {SubCode::seatworkOrganization, ui_.cmbSeatOrg}};
  for (const auto& [code, list] : seatwork_) {
    AddList(list, SchemeOf(code).values,
            [this, code = code](int position) { editor_.Recode(code, position); });
  }
  // The row behind the codes takes a code back; it is also what is shown without one.
  for (QComboBox* box : {ui_.cmbSrc, ui_.cmbCog}) box->addItem(NoCoding());
}

void SegmentCodingPanel::AddList(QComboBox* list, std::span<const std::string_view> rows,
                                 const std::function<void(int)>& choose) {
  Fill(list, rows);
  connect(list, &QComboBox::currentIndexChanged, this, [this, choose](int position) {
    choose(position);
    changed_();
  });
}

void SegmentCodingPanel::AddPair(SubCode code, QRadioButton* first, QRadioButton* second) {
  auto* pair = new ChoiceGroup({first, second}, this);
  connect(pair, &ChoiceGroup::Chosen, this, [this, code](int position) {
    editor_.Recode(code, position);
    changed_();
  });
  pairs_.emplace_back(code, pair);
}

void SegmentCodingPanel::Arrange() {
  // Pages not shown yet would not have their final fonts.
  for (QWidget* child : ui_.scrollContents->findChildren<QWidget*>()) child->ensurePolished();
  // One column of labels for all groups of codes, wide enough for as many segments as there are.
  int width = ui_.Label13->fontMetrics().horizontalAdvance(tr("Duration of segment 00:"));
  const auto labels = {ui_.Label6,     ui_.Label13, ui_.Label9, ui_.Label5,
                       ui_.lblSubCats, ui_.lblSrc,  ui_.lblCog, ui_.lblSeatOrg};
  for (const QLabel* label : labels) width = std::max(width, label->sizeHint().width());
  for (QLabel* label : labels) label->setMinimumWidth(width);
  for (QLayout* layout : ui_.scrollContents->findChildren<QLayout*>()) layout->invalidate();
  int height = 0;
  for (int i = 0; i < ui_.codingStack->count(); ++i) {
    height = std::max(height, ui_.codingStack->widget(i)->sizeHint().height());
  }
  ui_.codingStack->setFixedHeight(height);
}

void SegmentCodingPanel::Refresh() {
  const SegmentCodingView coding = editor_.Coding();
  const EpisodeView view = editor_.View();
  ShowText(ui_.Label13, view.segmentDurationLabel);
  ShowText(ui_.Text1, view.segmentDuration);
  for (QWidget* control :
       std::initializer_list<QWidget*>{ui_.Text1, ui_.Label9, ui_.cmbActivityCoding}) {
    control->setEnabled(view.hasSegment);
  }
  ShowChoice(ui_.cmbActivityCoding, coding.activity);

  RefreshPage(coding);
  ReadFromStart(ui_.txtAboutData, coding.about);
  RefreshSubCategories(coding);

  ui_.frSeat->setVisible(coding.showsSeatwork);
  for (const auto& [code, list] : seatwork_) {
    const int chosen = coding.Chosen(code);
    ShowChoice(list, chosen == SegmentCodingView::kNoChoice ? list->findText(NoCoding()) : chosen);
  }
  for (const auto& [code, pair] : pairs_) pair->ShowSelected(coding.Chosen(code));
}

/// Shows the group of codes for the activity. All groups use the same place, so nothing around them
/// moves.
void SegmentCodingPanel::RefreshPage(const SegmentCodingView& coding) {
  QWidget* page = ui_.pageNone;
  if (coding.showsAbout) page = ui_.pageAbout;
  if (coding.subCategory) page = ui_.pageSubCategory;
  if (coding.showsPresentation) page = ui_.pagePresentation;
  ui_.codingStack->setCurrentWidget(page);
}

void SegmentCodingPanel::RefreshSubCategories(const SegmentCodingView& coding) {
  QComboBox* list = ui_.cmboSubCat;
  const SubCodeScheme* shown = coding.subCategory;
  const auto values = shown ? shown->values : std::span<const std::string_view>();
  const auto count = static_cast<int>(values.size());
  const bool isFilled =
      list->count() == count && (count == 0 || list->itemText(0) == ToQt(values.front()));
  if (!isFilled) {
    Fill(list, values);
    const QSignalBlocker notChosen(list);
    list->setCurrentIndex(SegmentCodingView::kNoChoice);
  }
  ShowChoice(list, shown ? coding.Chosen(shown->code) : SegmentCodingView::kNoChoice);
  list->setToolTip(Qt::convertFromPlainText(list->currentText()));
}

bool SegmentCodingPanel::TakeKey(const QWidget* control, const QKeyEvent& key) {
  if (control == ui_.Text1) return !IsTypedInto(key);
  if (key.key() != Qt::Key_Delete || !qobject_cast<const QComboBox*>(control)) return false;
  for (QComboBox* list : {ui_.cmboSubCat, ui_.cmbSrc, ui_.cmbCog}) {
    if (control == list) list->setCurrentIndex(SegmentCodingView::kNoChoice);
  }
  return true;
}

}  // namespace orvex
