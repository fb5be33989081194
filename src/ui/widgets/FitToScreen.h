#pragma once

class QWidget;

namespace orvex {

/// No window opens larger than the screen: what does not fit scrolls.
void FitToScreen(QWidget& window);

/// Lets `window`, which has not been shown yet, open where `other` stands, as far as it fits there.
void PlaceOver(QWidget& window, const QWidget& other);

}  // namespace orvex
