#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "editor/flat_episodes.h"
#include "editor/observation_edits.h"
#include "model/episode.h"

namespace orvex {

/// One change, as it is undone and redone: what it is called, and what was shown before and after.
struct EditStep {
  std::string name;
  Place before;
  Place after;
};

/// What was done to the episodes since they were read, to go back and forth. A step keeps what it
/// changed, and no more: a key typed into a question of six thousand costs that question.
class EditHistory {
 public:
  /// Begins anew with `episodes`; `saved` when a file holds them like this.
  void Start(const EpisodeList& episodes, bool saved);

  /// Takes `episodes` as the next state, unless they are the current one. Steps in a row with the
  /// same `typing` count as one, unless it is empty. True when there was a change.
  bool Record(const EpisodeList& episodes, EditStep step, std::string typing = {});
  /// What is typed from here on is a step of its own.
  void EndTyping() { typing_.clear(); }

  /// Counts up with every change of the state.
  std::size_t Changes() const { return changes_; }

  /// The step that `Undo` or `Redo` takes next; null when there is none.
  const EditStep* NextUndo() const;
  const EditStep* NextRedo() const;
  /// How many steps can be undone.
  std::size_t Steps() const { return done_; }
  /// Turn `episodes` into the state before or after. Nothing happens when there is no such step.
  void Undo(EpisodeList& episodes);
  void Redo(EpisodeList& episodes);

  /// The current state is the one in the file from here on.
  void MarkSaved();
  bool IsSaved() const { return isSaved_; }

 private:
  struct Step {
    EditStep step;
    EpisodeChange change;
  };

  void TypeOn(const EpisodeList& episodes, const EditStep& step);
  void GoTo(EpisodeList& episodes);
  void CompareWithSaved();

  FlatEpisodes now_;         ///< the episodes as they were last recorded
  std::vector<Step> steps_;  ///< oldest first
  std::size_t done_ = 0;     ///< how many of them have not been undone
  std::size_t changes_ = 0;
  FlatEpisodes saved_;
  bool everSaved_ = false;
  bool isSaved_ = false;
  std::string typing_;
};

}  // namespace orvex
