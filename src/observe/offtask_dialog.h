#pragma once

#include <string>

#include "desk/focus.h"
#include "desk/prompter.h"

namespace orvex {

/// The dialog for an off-task estimate: how many students are off task, of how many.
class OfftaskDialog {
 public:
  enum class Control { offtask, students, ok };
  using Focus = FocusWish<Control>;

  /// Works on the texts of `prompt`.
  explicit OfftaskDialog(OfftaskPrompt& prompt) : prompt_(prompt) {}

  const std::string& Text(Control box) const;
  void Type(Control box, const std::string& text);
  /// The box gets the focus.
  void Enter(Control box);
  /// The box loses the focus. False when it gets its earlier text back and must keep the focus.
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

/// Students off task by students present, as a single. Both texts of `estimate` are numbers.
float ProportionOf(const OfftaskPrompt& estimate);

}  // namespace orvex
