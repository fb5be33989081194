#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "running/question_history.h"

namespace orvex {

/// The numbers shown in the rows of the question editor. After an insertion or removal, the others
/// keep their numbers until they are renumbered; undo and redo restore earlier numbers. `steps` is
/// always the number of question steps that could be undone before the change.
class RowNumbers {
 public:
  /// Numbers `count` rows from 1 and forgets all earlier numberings.
  void Start(std::size_t count);

  std::size_t Count() const { return now_.numbers.size(); }
  /// The row at a position from 1: its number ("#" if none yet) and the start of `question`.
  std::string RowText(int position, std::string_view question) const;
  bool LagBehind() const { return now_.lag; }

  void Insert(int position, std::size_t steps);
  void Remove(int position, std::size_t steps);
  void Renumber(std::size_t steps);
  /// Drops the numberings to redo; call it after any other change.
  void ForgetUndone() { undone_.clear(); }

  /// True if the next step to undo or redo is a renumbering.
  bool NextIsRenumbering(Way way, std::size_t steps) const;
  /// Undoes or redoes the last change of the numbers, which must exist.
  void Take(Way way);
  /// Follows an undone or redone step of the questions, of which there are now `count`.
  void Follow(Way way, std::size_t steps, std::size_t count);

 private:
  struct Numbering {
    std::vector<int> numbers;
    bool lag = false;
  };
  struct Change {
    std::size_t steps = 0;
    bool renumbering = false;
    Numbering other;  ///< the one before; once undone, the one after
  };

  std::vector<Change>& To(Way way) { return way == Way::undo ? done_ : undone_; }
  const std::vector<Change>& To(Way way) const { return way == Way::undo ? done_ : undone_; }
  void Keep(std::size_t steps, bool renumbering);

  Numbering now_;
  std::vector<Change> done_;
  std::vector<Change> undone_;
};

}  // namespace orvex
