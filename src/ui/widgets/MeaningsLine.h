#pragma once

#include <functional>
#include <optional>

#include "desk/services.h"
#include "model/dimensions.h"
#include "ui/widgets/ElidedLabel.h"

namespace orvex {

/// A quiet line that says what the letters of the field with the focus mean. F4 switches it off and
/// on again, for good.
class MeaningsLine : public ElidedLabel {
  Q_OBJECT

 public:
  using ElidedLabel::ElidedLabel;

  /// Which dimension a control is for; nothing for other controls.
  using DimensionOf = std::function<std::optional<Dimension>(const QWidget* control)>;

  /// Follows the focus in the form that holds the line.
  void Follow(const Services& services, DimensionOf dimensionOf);

 private:
  void Switch(const Services& services);
  void ShowFor(const QWidget* control);

  DimensionOf dimensionOf_;
};

}  // namespace orvex
