#include "questions/class_steps.h"

#include <utility>

#include "model/program.h"
#include "model/texts.h"
#include "observe/live_observation.h"
#include "store/session_log.h"

namespace orvex {

void ClassSteps::RecordQuestionChange(const QuestionChange& change) {
  // A change without a question is to an episode's description.
  if (!change.present && !change.before) return;
  live_.Questions().Record({.place = change.place,
                            .present = change.present,
                            .question = change.before,
                            .typing = change.typing});
}

void ClassSteps::EndTyping() {
  live_.Questions().EndTyping();
}

std::size_t ClassSteps::StepsTaken() const {
  return live_.Questions().Steps();
}

std::string ClassSteps::NextQuestionStep(Way way) const {
  const QuestionStep* step = live_.Questions().Next(way);
  return step && step->place.question != 0 ? Text(*step, way) : "";
}

std::optional<QuestionPlace> ClassSteps::TakeQuestionStep(Way way) {
  if (NextQuestionStep(way).empty()) return std::nullopt;
  const QuestionPlace place = live_.Questions().Next(way)->place;
  Take(way);
  return place;
}

void ClassSteps::RecordInEntry(QuestionStep step) {
  const QuestionDraft& draft = live_.Questions().Draft();
  if (!draft.IsEmpty()) step.draft = draft;
  if (step.place.question == 0 && !step.draft) return;
  step.place.episode = live_.Running().curEpisode;
  live_.Questions().Record(std::move(step));
}

const QuestionStep* ClassSteps::NextInEntry(Way way) const {
  const QuestionStep* step = live_.Questions().Next(way);
  const bool isSeen = step && step->place.episode == live_.Running().curEpisode && !step->Revises();
  if (!isSeen) return nullptr;
  // Someone who undoes a letter of the question being typed means no other question. So none is
  // dropped while one is being typed, and none comes back while one is being coded.
  const QuestionDraft& typed = live_.Questions().Draft();
  const bool isAnother = step->place.question != 0 && !step->draft && !typed.IsEmpty();
  return isAnother && (step->present || !typed.fields.AreEmpty()) ? nullptr : step;
}

void ClassSteps::Take(Way way) {
  const QuestionStep* step = live_.Questions().Take(way);
  if (step) Log(*step, way);
}

/// Logs what `step`, just taken, has brought back or taken away. Typing in a box is not logged, as
/// the box's own undo would not log it either.
void ClassSteps::Log(const QuestionStep& step, Way way) {
  if (!step.typing.empty()) return;
  const QuestionPlace& place = step.place;
  const bool isThere = place.question == 0 ? !live_.Questions().Draft().IsEmpty() : step.present;
  if (step.Revises() && way == Way::redo) {
    services_.log.LogRevisedQuestion(place.episode, place.question, At(place));
  } else if (isThere) {
    services_.log.LogRestoredQuestion(Name(place, " OF EP. "));
  } else {
    services_.log.LogDroppedQuestion(Name(place, " OF EP. "));
  }
}

const questionInfo& ClassSteps::At(const QuestionPlace& place) const {
  const Episode& episode =
      services_.program.Episodes.at(static_cast<std::size_t>(place.episode - 1));
  return episode.questions.at(static_cast<std::size_t>(place.question - 1));
}

std::string ClassSteps::Text(const QuestionStep& step, Way way) const {
  if (step.place.question == 0) {
    return Say(way == Way::undo ? Text::bringsTypingBack : Text::takesTypingAway);
  }
  const std::string name = Name(step.place, Say(Text::ofEpisode));
  if (step.Revises()) {
    return Say(way == Way::undo ? Text::changesQuestionBack : Text::changesQuestionAgain, {name});
  }
  return Say(step.present ? Text::takesQuestionAway : Text::bringsQuestionBack, {name});
}

/// The number of a question, or of the one being entered, and that of its episode unless it is the
/// running one.
std::string ClassSteps::Name(const QuestionPlace& place, const char* ofEpisode) const {
  const std::size_t next = live_.Questions().Filed().size() + 1;
  std::string number = place.question == 0 ? std::to_string(next) : std::to_string(place.question);
  if (place.episode == live_.Running().curEpisode) return number;
  return number + ofEpisode + std::to_string(place.episode);
}

}  // namespace orvex
