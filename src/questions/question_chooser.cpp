#include "questions/question_chooser.h"

#include <charconv>
#include <cstddef>
#include <utility>

#include "desk/selected_rows.h"
#include "model/episode.h"

namespace orvex {

QuestionChooser::QuestionChooser(const Episode& episode) {
  const std::size_t digits = std::to_string(episode.questions.size()).size();
  first_.rows.reserve(episode.questions.size());
  for (const questionInfo& question : episode.questions) {
    const std::string number = std::to_string(first_.rows.size() + 1);
    first_.rows.push_back(std::string(digits - number.size(), '0') + number + "." +
                          question.question);
  }
  first_.Select({1});
}

std::vector<int> QuestionChooser::SecondNumbers() const {
  std::vector<int> numbers;
  for (const std::string& row : second_.rows) numbers.push_back(ListboxItemIndex(row));
  return numbers;
}

void QuestionChooser::List::Select(std::vector<int> positions) {
  selected = SelectedRows(std::move(positions), rows.size());
}

void QuestionChooser::Move(List& from, List& to) {
  std::vector<std::string> left;
  auto next = from.selected.begin();
  for (std::size_t i = 0; i < from.rows.size(); ++i) {
    const bool moves = next != from.selected.end() && *next == static_cast<int>(i) + 1;
    if (moves) ++next;
    (moves ? to.rows : left).push_back(std::move(from.rows[i]));
  }
  from.rows = std::move(left);
  from.selected.clear();
}

std::int16_t ListboxItemIndex(std::string_view row) {
  std::int16_t number = 0;
  const std::string_view digits = row.substr(0, row.find('.'));
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

}  // namespace orvex
