#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "editor/flat_episodes.h"
#include "editor/observation_edits.h"
#include "model/episode.h"

namespace orvex {

/// One change that can be undone and redone: its name, and the place shown before and after it.
struct EditStep {
  std::string name;
  Place before;
  Place after;
};

/// The undo and redo history of the episodes since they were read. Each step keeps only what it
/// changed, so a key typed into one of six thousand questions costs one question, not all of them.
class EditHistory {
 public:
  /// Starts over with `episodes`. `saved` says that the file holds exactly these.
  void Start(const EpisodeList& episodes, bool saved);

  /// Records `episodes` as the next state. Returns false if they equal the current one. Consecutive
  /// steps with the same `typing` become one step, unless it is empty.
  bool Record(const EpisodeList& episodes, EditStep step, std::string typing = {});
  /// Makes whatever is typed next a new step.
  void EndTyping() { typing_.clear(); }

  /// Goes up with every change of the state.
  std::size_t Changes() const { return changes_; }

  /// The step that `Undo` or `Redo` would take; null if there is none.
  const EditStep* NextUndo() const;
  const EditStep* NextRedo() const;
  /// How many steps can be undone.
  std::size_t Steps() const { return done_; }
  /// Set `episodes` to the previous or next state, or do nothing if there is none.
  void Undo(EpisodeList& episodes);
  void Redo(EpisodeList& episodes);

  /// Notes that the file now holds the current state.
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
  std::size_t done_ = 0;     ///< how many of `steps_` are not undone
  std::size_t changes_ = 0;
  FlatEpisodes saved_;
  bool everSaved_ = false;
  bool isSaved_ = false;
  std::string typing_;
};

}  // namespace orvex
