#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "model/survey_scheme.h"

class QCheckBox;
class QGridLayout;
class QGroupBox;
class QKeyEvent;
class QLineEdit;

namespace orvex {

class SurveyForm;

/// The survey's check boxes, in groups. Tab and Enter move from group to group. The groups stand
/// side by side if there is room, and otherwise one beneath the other.
class CheckLists : public QWidget {
  Q_OBJECT

 public:
  explicit CheckLists(QWidget* parent = nullptr);

  /// Shows which boxes are checked, and the text of "other:".
  void Show(const SurveyForm& form);
  void FocusFirst();
  /// What a key does on one of the boxes. True when it is done with.
  bool TakeKey(const QWidget* control, const QKeyEvent& key);

  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void Checked(int group, int item, bool checked);
  void OtherTyped(const QString& text);
  /// Enter leads out of the last group.
  void Passed();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QGroupBox* BuildGroup(int group, int columns);
  QGroupBox* BuildTypesOfWriting();
  void AddOtherBox(QGridLayout& items, int row);
  void Arrange(int columns);
  int WidthOf(int columns) const;
  void GoOn(const QWidget* from);

  std::array<std::vector<QCheckBox*>, kCheckGroups> boxes_;
  QLineEdit* other_ = nullptr;  // Text5
  QGridLayout* layout_;
  std::array<QGroupBox*, 4> frames_;  ///< in reading order
  int columns_ = 0;
};

}  // namespace orvex
