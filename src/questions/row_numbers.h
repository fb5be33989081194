#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "running/question_history.h"

namespace orvex {

/// The numbers that the rows of the question editor show. They lag behind what is inserted and
/// dropped until they are renumbered, and they go back and forth with the steps that undo and redo
/// it. `steps` is always how many steps could be undone before a change.
class RowNumbers {
 public:
  /// Numbers `count` rows from 1 on, and forgets how they were numbered before.
  void Start(std::size_t count);

  std::size_t Count() const { return now_.numbers.size(); }
  /// The row of `question` at a position from 1: its number, or "#" for none yet, and its start.
  std::string RowText(int position, std::string_view question) const;
  bool LagBehind() const { return now_.lag; }

  void Insert(int position, std::size_t steps);
  void Remove(int position, std::size_t steps);
  void Renumber(std::size_t steps);
  /// Something else has been changed: no numbering can be redone any longer.
  void ForgetUndone() { undone_.clear(); }

  /// True when a renumbering is what is to be undone or redone next.
  bool NextIsRenumbering(Way way, std::size_t steps) const;
  /// Undoes or redoes it.
  void Take(Way way);
  /// A step of the questions, of which there are `count` now, has been undone or redone.
  void Follow(Way way, std::size_t steps, std::size_t count);

 private:
  struct Numbering {
    std::vector<int> numbers;
    bool lag = false;
  };
  struct Change {
    std::size_t steps = 0;
    bool renumbering = false;
    Numbering other;  ///< before it, or after it once it has been undone
  };

  std::vector<Change>& To(Way way) { return way == Way::undo ? done_ : undone_; }
  const std::vector<Change>& To(Way way) const { return way == Way::undo ? done_ : undone_; }
  void Keep(std::size_t steps, bool renumbering);

  Numbering now_;
  std::vector<Change> done_;
  std::vector<Change> undone_;
};

}  // namespace orvex
