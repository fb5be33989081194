#pragma once

class QLabel;
class QPushButton;

namespace orvex {

class OfftaskIndicator;

/// Shows the off-task prompt of a form. The button's key works also while its caption is blank.
void ShowOfftask(const OfftaskIndicator& indicator, QLabel* countdown, QPushButton* button);

}  // namespace orvex
