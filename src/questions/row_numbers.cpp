#include "questions/row_numbers.h"

#include <numeric>
#include <utility>

namespace orvex {
namespace {

constexpr std::size_t kRowCharacters = 30;

/// The first `count` characters of a UTF-8 text.
std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    const bool startsCharacter = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (startsCharacter && count-- == 0) break;
  }
  return text.substr(0, end);
}

}  // namespace

void RowNumbers::Start(std::size_t count) {
  done_.clear();
  undone_.clear();
  now_.numbers.resize(count);
  std::iota(now_.numbers.begin(), now_.numbers.end(), 1);
}

std::string RowNumbers::RowText(int position, std::string_view question) const {
  const int number = now_.numbers.at(static_cast<std::size_t>(position - 1));
  std::string row = number == 0 ? "#" : std::to_string(number);
  row += ". ";
  row += FirstCharacters(question, kRowCharacters);
  return row;
}

void RowNumbers::Keep(std::size_t steps, bool renumbering) {
  undone_.clear();
  done_.push_back({.steps = steps, .renumbering = renumbering, .other = now_});
}

void RowNumbers::Insert(int position, std::size_t steps) {
  Keep(steps, false);
  now_.numbers.insert(now_.numbers.begin() + (position - 1), 0);
  now_.lag = true;
}

void RowNumbers::Remove(int position, std::size_t steps) {
  Keep(steps, false);
  now_.numbers.erase(now_.numbers.begin() + (position - 1));
  now_.lag = true;
}

void RowNumbers::Renumber(std::size_t steps) {
  Keep(steps, true);
  std::iota(now_.numbers.begin(), now_.numbers.end(), 1);
  now_.lag = false;
}

bool RowNumbers::NextIsRenumbering(Way way, std::size_t steps) const {
  const std::vector<Change>& changes = To(way);
  return !changes.empty() && changes.back().renumbering && changes.back().steps == steps;
}

void RowNumbers::Take(Way way) {
  Change change = std::move(To(way).back());
  To(way).pop_back();
  std::swap(now_, change.other);
  To(way == Way::undo ? Way::redo : Way::undo).push_back(std::move(change));
}

void RowNumbers::Follow(Way way, std::size_t steps, std::size_t count) {
  const std::vector<Change>& changes = To(way);
  if (!changes.empty() && !changes.back().renumbering && changes.back().steps == steps) Take(way);
  if (Count() != count) Start(count);
}

}  // namespace orvex
