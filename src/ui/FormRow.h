#pragma once

#include <functional>
#include <vector>

#include "ui/Forms.h"

namespace orvex {

/// What is particular to one form.
struct Forms::Row {
  /// Builds the form. Empty if that takes more than Forms has; a Show function then loads it.
  std::function<LoadedForm(Forms&)> make = {};
  /// The form appears in the place of the first of these that is loaded.
  std::vector<Screen> over = {};
  /// The forms that close together with it.
  std::vector<Screen> closes = {};
};

}  // namespace orvex
