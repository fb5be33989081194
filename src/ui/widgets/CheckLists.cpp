#include "ui/widgets/CheckLists.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <algorithm>
#include <limits>

#include "survey/survey_form.h"
#include "ui/keys/FormKeys.h"
#include "ui/keys/RovingFocus.h"
#include "ui/show.h"
#include "ui/text.h"

namespace orvex {

CheckLists::CheckLists(QWidget* parent)
    : QWidget(parent),
      layout_(new QGridLayout(this)),
      frames_{BuildGroup(0, 1), BuildGroup(1, 2), BuildGroup(2, 1), BuildTypesOfWriting()} {
  layout_->setHorizontalSpacing(12);
  layout_->setVerticalSpacing(10);
  Arrange(1);
}

QGroupBox* CheckLists::BuildGroup(int group, int columns) {
  const auto index = static_cast<std::size_t>(group);
  const SurveyGroup& scheme = SurveyGroups()[index];
  auto* frame = new QGroupBox(ToQt(scheme.caption));
  frame->setObjectName(QStringLiteral("Frame%1").arg(group + 1));
  auto* items = new QGridLayout(frame);
  items->setVerticalSpacing(4);
  items->setHorizontalSpacing(16);
  const int count = static_cast<int>(scheme.items.size());
  const int rows = (count + columns - 1) / columns;
  for (int item = 0; item < count; ++item) {
    auto* box = new QCheckBox(ToQt(scheme.items[static_cast<std::size_t>(item)].text));
    box->setObjectName(QStringLiteral("Check%1_%2").arg(group + 1).arg(item));
    box->setAccessibleDescription(frame->title());
    items->addWidget(box, item % rows, item / rows);
    boxes_[index].push_back(box);
    connect(box, &QCheckBox::clicked, this, [this, group, item](bool checked) {
      Q_EMIT Checked(group, item, checked);
      // After checking "other:" the user will want to type.
      if (checked && boxes_[0].at(kOtherItem) == sender()) FocusBox(other_, Caret::atEnd);
    });
  }
  if (group == 0) AddOtherBox(*items, rows - 1);
  items->setRowStretch(rows, 1);
  new RovingFocus({boxes_[index].begin(), boxes_[index].end()}, this, columns > 1 ? rows : 1);
  return frame;
}

void CheckLists::AddOtherBox(QGridLayout& items, int row) {
  QCheckBox* check = boxes_[0].at(kOtherItem);
  other_ = new QLineEdit;
  other_->setObjectName(QStringLiteral("Text5"));
  other_->setMaxLength(std::numeric_limits<int>::max());  // a file's text is never cut
  other_->setAccessibleName(tr("Other evidence of student success"));
  connect(other_, &QLineEdit::textEdited, this, &CheckLists::OtherTyped);
  items.removeWidget(check);
  auto* line = new QHBoxLayout;
  line->addWidget(check);
  line->addWidget(other_, 1);
  items.addLayout(line, row, 0);
}

/// A frame around three of the groups.
QGroupBox* CheckLists::BuildTypesOfWriting() {
  auto* frame = new QGroupBox(ToQt(kTypesOfWriting));
  auto* kinds = new QHBoxLayout(frame);
  for (int group = kTypesOfWritingGroup; group < kCheckGroups; ++group) {
    kinds->addWidget(BuildGroup(group, 1), 1);
  }
  return frame;
}

void CheckLists::Show(const SurveyForm& form) {
  for (std::size_t group = 0; group < boxes_.size(); ++group) {
    for (std::size_t item = 0; item < boxes_[group].size(); ++item) {
      boxes_[group][item]->setChecked(form.Answers().checks[group].test(item));
    }
  }
  ShowText(other_, form.Answers().other);
  other_->setEnabled(form.OtherEnabled());
}

void CheckLists::FocusFirst() {
  FocusVisibly(boxes_[0].front());
}

bool CheckLists::TakeKey(const QWidget* control, const QKeyEvent& key) {
  if (!isAncestorOf(control)) return false;
  if (control == other_ && key.key() == Qt::Key_Up) {
    FocusVisibly(boxes_[0].at(kOtherItem));
    return true;
  }
  if (control == other_ && key.key() == Qt::Key_Down) {
    focusNextChild();
    return true;
  }
  if (IsEnter(key)) GoOn(control);
  return IsEnter(key);
}

void CheckLists::GoOn(const QWidget* from) {
  const auto& last = boxes_.back();
  if (std::find(last.begin(), last.end(), from) == last.end()) {
    focusNextChild();
  } else {
    Q_EMIT Passed();
  }
}

int CheckLists::WidthOf(int columns) const {
  const auto widest = [this](std::size_t first, std::size_t step) {
    int width = 0;
    for (std::size_t i = first; i < frames_.size(); i += step) {
      width = std::max(width, frames_[i]->minimumSizeHint().width());
    }
    return width;
  };
  const QMargins margins = layout_->contentsMargins();
  const int around = margins.left() + margins.right();
  if (columns == 1) return around + widest(0, 1);
  return around + widest(0, 2) + layout_->horizontalSpacing() + widest(1, 2);
}

QSize CheckLists::minimumSizeHint() const {
  return {WidthOf(1), layout_->totalMinimumSize().height()};
}

void CheckLists::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Arrange(width() >= WidthOf(2) ? 2 : 1);
}

void CheckLists::Arrange(int columns) {
  if (columns == columns_) return;
  columns_ = columns;
  for (int i = 0; i < static_cast<int>(frames_.size()); ++i) {
    QGroupBox* frame = frames_[static_cast<std::size_t>(i)];
    layout_->removeWidget(frame);
    layout_->addWidget(frame, i / columns, i % columns);
  }
  layout_->setRowStretch(static_cast<int>(frames_.size()), 1);
}

}  // namespace orvex
