#include "running/question_history.h"

#include <cstdint>
#include <utility>

#include "model/limits.h"

namespace orvex {
namespace {

/// True when the step's place exists in `episodes`, or the step concerns no question of theirs.
bool HasPlace(const QuestionStep& step, const EpisodeList& episodes) {
  const auto [number, position] = step.place;
  if (position == 0) return true;
  if (number < 1 || static_cast<std::size_t>(number) > episodes.size() || position < 1)
    return false;
  const std::size_t count = episodes[static_cast<std::size_t>(number - 1)].questions.size();
  const bool fits = step.present || count < kMostNumber;
  return fits && static_cast<std::size_t>(position) <= count + (step.present ? 0 : 1);
}

bool HasRoom(const QuestionStep& step, const QuestionDraft& draft) {
  return !step.draft || step.draft->IsEmpty() || draft.IsBeginningOf(*step.draft);
}

void ExchangeQuestion(QuestionStep& step, std::vector<questionInfo>& questions) {
  const auto at = questions.begin() + (step.place.question - 1);
  if (step.Revises()) {
    std::swap(*at, *step.question);
  } else if (step.Brings()) {
    questions.insert(at, *std::exchange(step.question, std::nullopt));
    step.present = true;
  } else if (step.Takes()) {
    step.question = std::move(*at);
    questions.erase(at);
    step.present = false;
  }
}

}  // namespace

void QuestionHistory::Record(QuestionStep step, const EpisodeList& episodes) {
  undone_.clear();
  const bool goesOn = typingGoesOn_ && !done_.empty() && done_.back().typing == step.typing;
  typingGoesOn_ = !step.typing.empty();
  if (!goesOn) {
    done_.push_back(std::move(step));
    return;
  }
  const QuestionPlace place = step.place;
  const questionInfo& now = episodes.at(static_cast<std::size_t>(place.episode - 1))
                                .questions.at(static_cast<std::size_t>(place.question - 1));
  if (done_.back().question != now) return;
  // The user has retyped the original by hand, so there is nothing left to undo.
  done_.pop_back();
  typingGoesOn_ = false;
}

const QuestionStep* QuestionHistory::Next(Way way, const EpisodeList& episodes,
                                          const QuestionDraft& draft) const {
  const std::vector<QuestionStep>& steps = way == Way::undo ? done_ : undone_;
  if (steps.empty()) return nullptr;
  const QuestionStep& next = steps.back();
  return HasPlace(next, episodes) && HasRoom(next, draft) ? &next : nullptr;
}

const QuestionStep* QuestionHistory::Take(Way way, EpisodeList& episodes, QuestionDraft& draft) {
  if (!Next(way, episodes, draft)) return nullptr;
  std::vector<QuestionStep>& from = way == Way::undo ? done_ : undone_;
  std::vector<QuestionStep>& to = way == Way::undo ? undone_ : done_;
  QuestionStep& step = to.emplace_back(std::move(from.back()));
  from.pop_back();
  typingGoesOn_ = false;
  if (step.place.question != 0) {
    ExchangeQuestion(step, episodes[static_cast<std::size_t>(step.place.episode - 1)].questions);
  }
  if (step.draft) std::swap(*step.draft, draft);
  return &step;
}

template <typename Condition>
void QuestionHistory::Forget(Condition condition) {
  std::erase_if(done_, condition);
  std::erase_if(undone_, condition);
  typingGoesOn_ = false;
}

void QuestionHistory::ForgetRevisions() {
  Forget([](const QuestionStep& step) { return step.Revises(); });
}

void QuestionHistory::ForgetDrafts() {
  Forget([](const QuestionStep& step) { return step.place.question == 0; });
  for (auto* steps : {&done_, &undone_}) {
    for (QuestionStep& step : *steps) step.draft.reset();
  }
}

void QuestionHistory::ForgetEpisode(int episode) {
  Forget([episode](const QuestionStep& step) { return step.place.episode == episode; });
}

}  // namespace orvex
