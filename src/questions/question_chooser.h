#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvex {

struct Episode;

/// Divides the questions of an episode between two episodes. They all start in the first one's list
/// and can be moved to the second one's and back.
class QuestionChooser {
 public:
  /// A list box: its rows, and the positions (from 1, ascending) of the selected ones.
  struct List {
    std::vector<std::string> rows;
    std::vector<int> selected;

    void Select(std::vector<int> positions);
  };

  explicit QuestionChooser(const Episode& episode);

  const List& First() const { return first_; }
  const List& Second() const { return second_; }

  /// Selects rows, by their positions in any order.
  void SelectFirst(std::vector<int> rows) { first_.Select(std::move(rows)); }
  void SelectSecond(std::vector<int> rows) { second_.Select(std::move(rows)); }

  /// Move the selected rows, in their order, to the end of the other list.
  void MoveToSecond() { Move(first_, second_); }
  void MoveToFirst() { Move(second_, first_); }

  /// The numbers of the questions in the second list, in its order.
  std::vector<int> SecondNumbers() const;

 private:
  static void Move(List& from, List& to);

  List first_;
  List second_;
};

/// The question number at the start of a chooser's row: 7 for "07.What is".
std::int16_t ListboxItemIndex(std::string_view row);

}  // namespace orvex
