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

/// Drags the selected rows of a list with the mouse onto a row of one of several lists. Marks the
/// row under the pointer, scrolls a list near its edges, and stops on Escape.
class SegmentDrag : public QObject {
  Q_OBJECT

 public:
  /// Drags rows of `source`, which owns this object.
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
  std::optional<QPoint> pressedAt_;  // in screen coordinates, like pointer_
  QPoint pointer_;
  QPointer<QLabel> image_;  // shows what is being dragged
  QTimer scrolling_;
};

}  // namespace orvex
