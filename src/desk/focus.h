#pragma once

#include <optional>
#include <utility>

namespace orvex {

/// Where the caret goes in a box that gets the focus.
enum class Caret { stay, atEnd, selectAll };

/// The logic's wish that a control should get the focus. The form takes it when it refreshes.
template <typename Control>
class FocusWish {
 public:
  struct Target {
    Control control;
    Caret caret;

    bool operator==(const Target&) const = default;
  };

  void Set(Control control, Caret caret = Caret::atEnd) { target_ = Target{control, caret}; }
  std::optional<Target> Take() { return std::exchange(target_, std::nullopt); }

 private:
  std::optional<Target> target_;
};

}  // namespace orvex
