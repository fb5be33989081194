#pragma once

#include <QScrollArea>

namespace orvex {

class OfftaskButton;

/// Lets a window be smaller than what it shows, which scrolls then. While there is room on the
/// screen, the window grows with what it shows. An off-task prompt that has been scrolled out of
/// sight is shown beneath.
class ScrollingContent : public QScrollArea {
  Q_OBJECT

 public:
  /// That of `window`, which gets one the first time. Call it before the window is first shown.
  static ScrollingContent& Of(QWidget& window);

  /// The least size of the window at which nothing has to scroll.
  QSize LeastSize() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  explicit ScrollingContent(QWidget& window);

  void Grow();
  void KeepPromptInSight();

  OfftaskButton* prompt_ = nullptr;
  OfftaskButton* standIn_ = nullptr;
};

}  // namespace orvex
