#pragma once

#include <QAbstractButton>
#include <QObject>
#include <QString>
#include <vector>

class QKeyEvent;

namespace orvex {

/// Makes a set of buttons a single stop of the Tab key. The arrow keys, Home, End and the first
/// letters of a caption, typed within a second of each other, move the focus within the set. Tab
/// always enters the set at the same button, so that Tab and Space do the same thing every time.
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
  /// Lets the digits of a button's number, counted from 1, move the focus there, too.
  void CountButtons() { counted_ = true; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int Count() const { return static_cast<int>(buttons_.size()); }
  QAbstractButton* Button(int position) const;
  int PositionOf(const QObject* button) const;
  bool HasFocus() const;
  void SetTabStop(int position);
  bool MoveBy(int from, int steps);
  bool MoveOnKey(int from, const QKeyEvent& key);
  bool MoveToTyped(int from, const QKeyEvent& key);
  int Typed(const QString& text, int first) const;

  std::vector<QAbstractButton*> buttons_;
  int across_;
  int entry_ = 0;
  bool counted_ = false;
  QString typed_;  ///< what has led to `typedTo_`
  int typedTo_ = 0;
  quint64 typedAt_ = 0;  ///< when its last letter was typed, in the system's milliseconds
};

}  // namespace orvex
