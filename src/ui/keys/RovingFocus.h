#pragma once

#include <QAbstractButton>
#include <QObject>
#include <vector>

namespace orvex {

/// Makes a set of buttons a single stop of the Tab key. The arrow keys, Home, End and the first
/// letter of a caption move the focus within the set. Tab always enters the set at the same button,
/// so that Tab and Space do the same thing every time.
class RovingFocus : public QObject {
  Q_OBJECT

 public:
  /// Right and Left move by `across` buttons, which leads to the next column when the buttons stand
  /// in columns.
  RovingFocus(std::vector<QAbstractButton*> buttons, QObject* parent, int across = 1);

  /// Gives the button at `position` the focus.
  void Focus(int position);
  /// Makes Tab enter the set at the button at `position`; the default is the first.
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
