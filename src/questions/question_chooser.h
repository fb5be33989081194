#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvex {

struct Episode;

/// Divides the questions of an episode between two: they begin in the list of the first episode and
/// are moved over and back.
class QuestionChooser {
 public:
  /// A list box: its rows, and the positions (from 1, ascending) of those that are selected.
  struct List {
    std::vector<std::string> rows;
    std::vector<int> selected;

    void Select(std::vector<int> positions);
  };

  explicit QuestionChooser(const Episode& episode);

  const List& First() const { return first_; }
  const List& Second() const { return second_; }

  /// The user selects rows, by their positions in any order.
  void SelectFirst(std::vector<int> rows) { first_.Select(std::move(rows)); }
  void SelectSecond(std::vector<int> rows) { second_.Select(std::move(rows)); }

  /// The selected rows go to the end of the other list, in their order.
  void MoveToSecond() { Move(first_, second_); }
  void MoveToFirst() { Move(second_, first_); }

  /// The numbers of the questions in the second list, in its order.
  std::vector<int> SecondNumbers() const;

 private:
  static void Move(List& from, List& to);

  List first_;
  List second_;
};

/// The question number that a row of the chooser begins with: 7 for "07.What is".
std::int16_t ListboxItemIndex(std::string_view row);

}  // namespace orvex
