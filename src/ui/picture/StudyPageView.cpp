#include "ui/picture/StudyPageView.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "ui/picture/PictureFile.h"

namespace orvex {
namespace {

constexpr QSize kUsualSize = {1180, 700};
constexpr QSize kLeastSize = {480, 200};
constexpr double kMargin = 8;  // in points

}  // namespace

StudyPageView::StudyPageView(QWidget* parent) : QWidget(parent), study_({}) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void StudyPageView::Show(StudyPage study) {
  study_ = std::move(study);
  page_ = 0;
  update();
}

int StudyPageView::Pages() const {
  const PictureSheet sheet;
  return study_.Pages(sheet.area, sheet.font);
}

void StudyPageView::Turn(int step) {
  page_ = std::clamp(page_ + step, 0, Pages() - 1);
  update();
}

QSize StudyPageView::sizeHint() const {
  return kUsualSize;
}

QSize StudyPageView::minimumSizeHint() const {
  return kLeastSize;
}

void StudyPageView::paintEvent(QPaintEvent*) {
  // Laid out as on paper, with less of a margin.
  const PictureSheet sheet;
  const QRectF shown = sheet.area.adjusted(-kMargin, -kMargin, kMargin, kMargin);
  const double scale = std::min(width() / shown.width(), height() / shown.height());
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  painter.translate((width() - scale * shown.width()) / 2, 0);
  painter.scale(scale, scale);
  painter.translate(-shown.topLeft());
  study_.Paint(painter, sheet.area, sheet.font, palette(), page_);
}

}  // namespace orvex
