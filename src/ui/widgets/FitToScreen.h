#pragma once

class QWidget;

namespace orvex {

/// Limits `window` to the size of the screen; its contents scroll.
void FitToScreen(QWidget& window);

/// Makes `window`, which has not been shown yet, open in the place of `other`, as far as it fits.
void PlaceOver(QWidget& window, const QWidget& other);

}  // namespace orvex
