#pragma once

class QSize;
class QWidget;

namespace orvex {

/// Makes `window` large enough for what it shows, as far as the screen has room; the rest scrolls.
/// Call it before the window is shown.
void FitToScreen(QWidget& window);
/// The same for a screen that leaves `room` to a window.
void FitInto(QWidget& window, const QSize& room);

/// The largest size that `window` can have on its screen, without its frame.
QSize RoomFor(const QWidget& window);

/// Makes `window`, which has not been shown yet, open in the place of `other`, as far as it fits.
void PlaceOver(QWidget& window, const QWidget& other);

}  // namespace orvex
