#include "ui/widgets/FitToScreen.h"

#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "ui/widgets/ScrollingContent.h"

namespace orvex {
namespace {

/// The room a window manager may need around a window.
constexpr QSize kFrame(16, 40);

}  // namespace

QSize RoomFor(const QWidget& window) {
  return window.screen()->availableSize() - kFrame;
}

void FitInto(QWidget& window, const QSize& room) {
  QSize wanted = window.size();
  // Qt's own dialogs have their own ways.
  const bool isOurs = QByteArrayView(window.metaObject()->className()).startsWith("orvex::");
  if (isOurs && window.layout())
    wanted = wanted.expandedTo(ScrollingContent::Of(window).LeastSize());
  window.resize(wanted.boundedTo(room));
}

void FitToScreen(QWidget& window) {
  FitInto(window, RoomFor(window));
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
