#pragma once

#include <QIcon>
#include <QWidget>

class QPainter;

namespace orvex {

/// The program's mark: what is said in a class, divided along the time it takes. Drawn in the
/// palette's colours at any size.
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
