#include "editor/edit_history.h"

#include <algorithm>
#include <utility>

namespace orvex {

void EditHistory::Start(const EpisodeList& episodes, bool saved) {
  versions_.clear();
  versions_.push_back({.state = Share(episodes, {}), .step = {}});
  current_ = 0;
  ++changes_;
  typing_.clear();
  everSaved_ = false;
  isSaved_ = false;
  if (saved) MarkSaved();
}

bool EditHistory::Record(const EpisodeList& episodes, EditStep step, std::string typing) {
  State state = Share(episodes, versions_[current_].state);
  if (state == versions_[current_].state) return false;
  ++changes_;
  versions_.resize(current_ + 1);
  const bool goesOn = !typing.empty() && typing == typing_ && current_ > 0;
  typing_ = std::move(typing);
  if (!goesOn) {
    versions_.push_back({std::move(state), std::move(step)});
    ++current_;
  } else if (AreEqual(state, versions_[current_ - 1].state)) {
    // All that was typed has been taken back by hand.
    versions_.pop_back();
    --current_;
    typing_.clear();
  } else {
    versions_[current_].state = std::move(state);
    versions_[current_].step.after = step.after;
  }
  CompareWithSaved();
  return true;
}

const EditStep* EditHistory::NextUndo() const {
  return current_ == 0 ? nullptr : &versions_[current_].step;
}

const EditStep* EditHistory::NextRedo() const {
  return current_ + 1 >= versions_.size() ? nullptr : &versions_[current_ + 1].step;
}

void EditHistory::Undo(EpisodeList& episodes) {
  if (NextUndo()) GoTo(current_ - 1, episodes);
}

void EditHistory::Redo(EpisodeList& episodes) {
  if (NextRedo()) GoTo(current_ + 1, episodes);
}

void EditHistory::MarkSaved() {
  typing_.clear();
  saved_ = versions_[current_].state;
  everSaved_ = true;
  isSaved_ = true;
}

/// `episodes` as a state that shares with another one what is equal, also where it stands elsewhere
/// now.
EditHistory::State EditHistory::Share(const EpisodeList& episodes, const State& with) {
  State state;
  state.reserve(episodes.size());
  std::size_t next = 0;  // the one behind the last that was shared
  for (const Episode& episode : episodes) {
    const auto equal = [&episode](const auto& other) { return *other == episode; };
    const auto from = with.begin() + static_cast<std::ptrdiff_t>(next);
    auto found = std::find_if(from, with.end(), equal);
    if (found == with.end()) {
      found = std::find_if(with.begin(), from, equal);
      if (found == from) found = with.end();
    }
    if (found == with.end()) {
      state.push_back(std::make_shared<const Episode>(episode));
    } else {
      next = static_cast<std::size_t>(found - with.begin()) + 1;
      state.push_back(*found);
    }
  }
  return state;
}

bool EditHistory::AreEqual(const State& a, const State& b) {
  return std::ranges::equal(
      a, b, [](const auto& one, const auto& other) { return one == other || *one == *other; });
}

void EditHistory::GoTo(std::size_t version, EpisodeList& episodes) {
  current_ = version;
  ++changes_;
  typing_.clear();
  episodes.clear();
  for (const auto& episode : versions_[current_].state) episodes.push_back(*episode);
  CompareWithSaved();
}

void EditHistory::CompareWithSaved() {
  isSaved_ = everSaved_ && AreEqual(versions_[current_].state, saved_);
}

}  // namespace orvex
