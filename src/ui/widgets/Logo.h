#pragma once

#include <QIcon>
#include <QWidget>

class QPainter;

namespace orvex {

/// The program's mark: what is said in a class, divided along its time. Uses the palette's colours
/// and scales to any size.
class Logo : public QWidget {
  Q_OBJECT

 public:
  explicit Logo(QWidget* parent = nullptr);

  QSize sizeHint() const override;
  static QIcon Icon();

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvex
