#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "editor/observation_edits.h"
#include "model/episode.h"

namespace orvex {

/// One change, as it is undone and redone: what it is called, and what was shown before and after.
struct EditStep {
  std::string name;
  Place before;
  Place after;
};

/// Every state that the episodes have been in since they were read, to go back and forth between.
/// The states share the episodes that did not change between them, so each costs what changed.
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
  std::size_t Steps() const { return current_; }
  /// Turn `episodes` into the state before or after. Nothing happens when there is no such step.
  void Undo(EpisodeList& episodes);
  void Redo(EpisodeList& episodes);

  /// The current state is the one in the file from here on.
  void MarkSaved();
  bool IsSaved() const { return isSaved_; }

 private:
  using State = std::vector<std::shared_ptr<const Episode>>;
  /// A state and the step that led to it; the first one has none.
  struct Version {
    State state;
    EditStep step;
  };

  static State Share(const EpisodeList& episodes, const State& with);
  static bool AreEqual(const State& a, const State& b);
  void GoTo(std::size_t version, EpisodeList& episodes);
  void CompareWithSaved();

  std::vector<Version> versions_;
  std::size_t current_ = 0;
  std::size_t changes_ = 0;
  State saved_;
  bool everSaved_ = false;
  bool isSaved_ = false;
  std::string typing_;
};

}  // namespace orvex
