#pragma once

#include <string>

#include "desk/focus.h"
#include "desk/prompter.h"

namespace orvex {

/// The dialog for an off-task estimate: the number of students off task and of those present.
class OfftaskDialog {
 public:
  enum class Control { offtask, students, ok };
  using Focus = FocusWish<Control>;

  /// Edits the texts of `prompt`, which must outlive the dialog.
  explicit OfftaskDialog(OfftaskPrompt& prompt) : prompt_(prompt) {}

  const std::string& Text(Control box) const;
  void Type(Control box, const std::string& text);
  /// Call it when the box gets the focus.
  void Enter(Control box);
  /// The box loses the focus. False if it is restored to its earlier text and must keep the focus.
  bool Leave(Control box);
  void EnterOrDown(Control box);
  void Up(Control box);
  std::optional<Focus::Target> TakeFocus() { return focus_.Take(); }

 private:
  std::string& TextOf(Control box);

  OfftaskPrompt& prompt_;
  std::string remembered_;
  Focus focus_;
};

/// Students off task divided by students present. Both texts of `estimate` must be numbers.
float ProportionOf(const OfftaskPrompt& estimate);

}  // namespace orvex
