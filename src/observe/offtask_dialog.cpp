#include "observe/offtask_dialog.h"

#include <cmath>
#include <limits>

#include "store/numbers.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

/// True for a number that fits a single-precision float.
bool IsSingle(const std::string& text) {
  const auto number = TypedNumber(text);
  return number && std::abs(*number) <= static_cast<double>(std::numeric_limits<float>::max());
}

}  // namespace

const std::string& OfftaskDialog::Text(Control box) const {
  return box == Control::offtask ? prompt_.offtask : prompt_.students;
}

std::string& OfftaskDialog::TextOf(Control box) {
  return box == Control::offtask ? prompt_.offtask : prompt_.students;
}

void OfftaskDialog::Type(Control box, const std::string& text) {
  TextOf(box) = OneLine(text);
}

void OfftaskDialog::Enter(Control box) {
  remembered_ = Text(box);
}

bool OfftaskDialog::Leave(Control box) {
  std::string& text = TextOf(box);
  if (box == Control::offtask ? IsSingle(text) : StudentCount(text).has_value()) return true;
  text = remembered_;
  focus_.Set(box, Caret::selectAll);
  return false;
}

void OfftaskDialog::EnterOrDown(Control box) {
  if (box == Control::offtask) {
    focus_.Set(Control::students);
  } else {
    focus_.Set(Control::ok, Caret::stay);
  }
}

void OfftaskDialog::Up(Control box) {
  if (box == Control::offtask) {
    focus_.Set(Control::ok, Caret::stay);
  } else {
    focus_.Set(Control::offtask);
  }
}

float ProportionOf(const OfftaskPrompt& estimate) {
  const auto single = [](const std::string& text) {
    return static_cast<float>(TypedNumber(text).value());
  };
  return single(estimate.offtask) / single(estimate.students);
}

}  // namespace orvex
