#pragma once

class QLabel;

namespace orvex {

class OfftaskButton;
class OfftaskIndicator;

/// Shows the off-task prompt in a form. The button's key works even while its caption is blank.
void ShowOfftask(const OfftaskIndicator& indicator, QLabel* countdown, OfftaskButton* button);

}  // namespace orvex
