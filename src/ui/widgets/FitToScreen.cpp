#include "ui/widgets/FitToScreen.h"

#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace orvex {
namespace {

/// The room a window manager may need around a window.
constexpr QSize kFrame(16, 40);

}  // namespace

void FitToScreen(QWidget& window) {
  window.resize(window.size().boundedTo(window.screen()->availableSize() - kFrame));
}

void PlaceOver(QWidget& window, const QWidget& other) {
  FitToScreen(window);
  const QRect screen = other.screen()->availableGeometry();
  const QSize room = screen.size() - window.size() - kFrame;
  const QPoint most =
      screen.topLeft() + QPoint(std::max(0, room.width()), std::max(0, room.height()));
  window.move(std::min(other.x(), most.x()), std::min(other.y(), most.y()));
}

}  // namespace orvex
