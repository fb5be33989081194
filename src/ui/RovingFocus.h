#pragma once

#include <QAbstractButton>
#include <QObject>
#include <vector>

namespace orvex {

/// Makes a set of buttons one stop of the Tab key: the arrow keys, Home, End and the first letter
/// of a caption move the focus within the set.
class RovingFocus : public QObject {
  Q_OBJECT

 public:
  /// Right and Left lead `across` buttons on and back: where the buttons stand in columns, to the
  /// column beside.
  RovingFocus(std::vector<QAbstractButton*> buttons, QObject* parent, int across = 1);

  /// Gives the button at `position` the focus.
  void Focus(int position);
  /// Tab is to find the button at `position`.
  void SetTabStop(int position);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int Count() const { return static_cast<int>(buttons_.size()); }
  QAbstractButton* Button(int position) const;
  int PositionOf(const QObject* button) const;
  bool MoveBy(int from, int steps);
  bool MoveOnKey(int from, int key, const QString& text);

  std::vector<QAbstractButton*> buttons_;
  int across_;
};

}  // namespace orvex
