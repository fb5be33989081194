#pragma once

#include <QAbstractButton>
#include <QObject>
#include <vector>

namespace orvex {

/// Makes a set of buttons one stop of the Tab key: the arrow keys, Home, End and the first letter
/// of a caption move the focus within the set. Tab enters it always at the same button, wherever
/// the focus has been in it: so Tab and Space do what they did before.
class RovingFocus : public QObject {
  Q_OBJECT

 public:
  /// Right and Left lead `across` buttons on and back: where the buttons stand in columns, to the
  /// column beside.
  RovingFocus(std::vector<QAbstractButton*> buttons, QObject* parent, int across = 1);

  /// Gives the button at `position` the focus.
  void Focus(int position);
  /// Tab is to enter the set at the button at `position`; by itself it does at the first.
  void SetEntry(int position);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int Count() const { return static_cast<int>(buttons_.size()); }
  QAbstractButton* Button(int position) const;
  int PositionOf(const QObject* button) const;
  bool HasFocus() const;
  void SetTabStop(int position);
  bool MoveBy(int from, int steps);
  bool MoveOnKey(int from, int key, const QString& text);

  std::vector<QAbstractButton*> buttons_;
  int across_;
  int entry_ = 0;
};

}  // namespace orvex
