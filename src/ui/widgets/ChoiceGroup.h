#pragma once

#include <QObject>
#include <QRadioButton>
#include <vector>

namespace orvex {

class RovingFocus;

/// A set of radio buttons of which at most one is selected, for users who do not look at the
/// keyboard. The arrow keys and the first letters of a caption move the focus without selecting
/// anything; Space selects; Tab skips the rest of the group. The focus enters at the selected
/// button, or else at the first. The logic decides what is selected.
class ChoiceGroup : public QObject {
  Q_OBJECT

 public:
  ChoiceGroup(std::vector<QRadioButton*> buttons, QObject* parent);

  /// Shows the button at `position` as selected; -1 for none.
  void ShowSelected(int position);
  /// Makes the selected button stand out, for a choice that is looked for from afar.
  void MarkSelected() { marked_ = true; }
  /// Lets the digits of a button's number, counted from 1, move the focus there.
  void CountButtons();
  void SetVisible(bool visible);
  void SetEnabled(bool enabled);
  /// Gives the button at `position` the focus.
  void Focus(int position);
  QRadioButton* Button(int position) const;
  int Count() const { return static_cast<int>(buttons_.size()); }

 Q_SIGNALS:
  /// The user clicked the button at `position`, or pressed Space on it.
  void Chosen(int position);

 private:
  std::vector<QRadioButton*> buttons_;
  RovingFocus* focus_;
  int selected_ = -1;
  bool marked_ = false;
};

}  // namespace orvex
