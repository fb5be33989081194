#pragma once

#include <QWidget>

#include "ui/widgets/AgreementChart.h"

namespace orvex {

/// The chart of agreement in a form. It is as high as its lines, and as wide as its form.
class AgreementBars : public QWidget {
  Q_OBJECT

 public:
  explicit AgreementBars(QWidget* parent = nullptr);

  void Show(std::vector<AgreementLine> lines);

  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  AgreementChart chart_;
};

}  // namespace orvex
