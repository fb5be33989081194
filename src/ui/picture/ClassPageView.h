#pragma once

#include <QPointF>
#include <QWidget>
#include <cstddef>
#include <optional>

#include "ui/picture/ClassPage.h"

namespace orvex {

/// The page of a class on the screen. Plus, minus and the wheel zoom its time, 0 shows all of it;
/// Left, Right, Home, End and dragging move it, the Page keys go from episode to episode. Up, Down
/// and a click mark a question, a double click opens it. A tooltip says what there was no room for.
class ClassPageView : public QWidget {
  Q_OBJECT

 public:
  explicit ClassPageView(QWidget* parent = nullptr);

  void Show(ClassPage page);
  const ClassPage& Page() const { return page_; }
  const PageView& View() const { return view_; }
  void ShowEpisodes(bool shown);
  /// The question that is marked; null if there is none.
  const ClassPicture::QuestionTick* Marked() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// Another question is marked.
  void Moved();
  /// The marked question is to be opened.
  void Opened();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QRectF Area() const;
  /// Shows so many seconds from `begin` on, or as near to it as the class allows.
  void ShowTime(double begin, double seconds);
  /// Zooms while `second` stays where it is.
  void Zoom(double factor, double second);
  /// Moves by a share of what is shown.
  void Pan(double share);
  /// Shows the episode so many episodes on; of the whole class, the first or the last.
  void ShowEpisode(int step);
  void Mark(std::optional<std::size_t> question);
  void MarkNext(int step);
  /// The second that keys zoom about: of the marked question where it can be seen.
  double Centre() const;

  ClassPage page_;
  PageView view_;
  std::optional<QPointF> dragged_;  ///< where the pointer was last while it moves the page
  bool hasMoved_ = false;           ///< the pointer did, since it was pressed
};

}  // namespace orvex
