#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QTimer>
#include <optional>
#include <vector>

class QLabel;
class QMouseEvent;

namespace orvex {

class RowList;

/// Drags the selected rows of a list with the mouse onto a row of one of several lists. The row
/// under the pointer is marked, a list whose edge is reached scrolls, and Escape gives up.
class SegmentDrag : public QObject {
  Q_OBJECT

 public:
  /// For rows of `source`, which owns it.
  SegmentDrag(RowList* source, std::vector<RowList*> targets);
  ~SegmentDrag() override;

 Q_SIGNALS:
  void Dropped(RowList* target, int row);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Press(const QMouseEvent& mouse);
  bool Move(const QMouseEvent& mouse);
  bool Release(const QMouseEvent& mouse);
  void Begin();
  void Follow();
  void Scroll();
  void End();
  bool IsDragging() const { return image_ != nullptr; }

  RowList* source_;
  std::vector<RowList*> targets_;
  std::optional<QPoint> pressedAt_;  // on the screen, like pointer_
  QPoint pointer_;
  QPointer<QLabel> image_;  // of what is dragged
  QTimer scrolling_;
};

}  // namespace orvex
