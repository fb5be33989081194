#include "editor/edit_history.h"

#include <utility>

namespace orvex {

void EditHistory::Start(const EpisodeList& episodes, bool saved) {
  now_ = Flat(episodes);
  steps_.clear();
  done_ = 0;
  ++changes_;
  typing_.clear();
  everSaved_ = false;
  isSaved_ = false;
  if (saved) MarkSaved();
}

bool EditHistory::Record(const EpisodeList& episodes, EditStep step, std::string typing) {
  EpisodeChange change = ChangeBetween(now_, episodes);
  if (change.None()) return false;
  ++changes_;
  steps_.resize(done_);
  const bool goesOn = !typing.empty() && typing == typing_ && done_ > 0;
  typing_ = std::move(typing);
  if (goesOn) {
    TypeOn(episodes, step);
  } else {
    Apply(change, now_);
    steps_.push_back({std::move(step), std::move(change)});
    ++done_;
  }
  CompareWithSaved();
  return true;
}

/// Extends the last step by what has been typed since.
void EditHistory::TypeOn(const EpisodeList& episodes, const EditStep& step) {
  Step& last = steps_.back();
  TakeBack(last.change, now_);
  last.change = ChangeBetween(now_, episodes);
  last.step.after = step.after;
  Apply(last.change, now_);
  if (!last.change.None()) return;
  // The user has deleted everything again, so nothing is left to undo.
  steps_.pop_back();
  --done_;
  typing_.clear();
}

const EditStep* EditHistory::NextUndo() const {
  return done_ == 0 ? nullptr : &steps_[done_ - 1].step;
}

const EditStep* EditHistory::NextRedo() const {
  return done_ == steps_.size() ? nullptr : &steps_[done_].step;
}

void EditHistory::Undo(EpisodeList& episodes) {
  if (done_ == 0) return;
  TakeBack(steps_[--done_].change, now_);
  GoTo(episodes);
}

void EditHistory::Redo(EpisodeList& episodes) {
  if (done_ == steps_.size()) return;
  Apply(steps_[done_++].change, now_);
  GoTo(episodes);
}

void EditHistory::MarkSaved() {
  typing_.clear();
  saved_ = now_;
  everSaved_ = true;
  isSaved_ = true;
}

void EditHistory::GoTo(EpisodeList& episodes) {
  ++changes_;
  typing_.clear();
  episodes = Unflattened(now_);
  CompareWithSaved();
}

void EditHistory::CompareWithSaved() {
  isSaved_ = everSaved_ && now_ == saved_;
}

}  // namespace orvex
