// What the question editor changes, and how it is undone.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desk/prompter.h"
#include "questions/question_editor.h"
#include "questions/question_layout.h"
#include "questions/question_room.h"
#include "store/numbers.h"
#include "store/text_encoding.h"

namespace orvex {

/// Changes the question shown, where there is one. What is typed in the same box of the same
/// question on and on is one step.
template <typename Change>
void QuestionEditor::Revise(const char* name, bool typing, Change change) {
  if (!CanEdit()) return;
  questionInfo before = Shown();
  change(Shown());
  if (Shown() == before) return;
  const std::string place = std::to_string(selEp_) + " " + std::to_string(curQ_);
  Tell({.name = name,
        .typing = typing ? name + (" " + place) : "",
        .place = {selEp_, curQ_},
        .present = true,
        .before = std::move(before)});
}

void QuestionEditor::Tell(QuestionChange change) {
  rowNumbers_.ForgetUndone();
  if (steps_) steps_->RecordQuestionChange(change);
}

// Choosing and typing.

void QuestionEditor::ClickOption(Dimension dimension, int option) {
  Revise("Code question", false,
         [&](questionInfo& question) { SetOption(question, dimension, option); });
  LayoutFrames();
}

void QuestionEditor::TypeQuestion(std::string_view text) {
  Revise("Type question", true,
         [text](questionInfo& question) { question.question = OneLine(text); });
}

void QuestionEditor::TypeRespondName(std::string_view text) {
  Revise("Type name", true,
         [text](questionInfo& question) { question.respondName = OneLine(text); });
}

void QuestionEditor::TypeSegment(std::string_view text) {
  if (!CanEdit()) return;
  segmentText_ = OneLine(text);
  const auto number = TypedNumber(segmentText_);
  SetSegment(number ? ToInt16(*number).value_or(0) : std::int16_t{0});
}

void QuestionEditor::StepSegment(int steps) {
  if (!CanStepSegment(steps)) return;
  const int stepped = std::clamp(Shown().iSgQ + steps, 0, kMostSegment);
  SetSegment(static_cast<std::int16_t>(stepped));
  ShowSegment();
}

void QuestionEditor::SetSegment(std::int16_t number) {
  Revise("Type segment number", true, [number](questionInfo& question) { question.iSgQ = number; });
}

void QuestionEditor::LeaveSegment() {
  if (CanEdit()) ShowSegment();
}

void QuestionEditor::TypeDescription(std::string_view text) {
  if (!HasEpisode()) return;
  SelectedEpisode().Descript = OneLine(text);
  Tell({.name = "Type description",
        .typing = "Type description " + std::to_string(selEp_),
        .place = {selEp_, curQ_}});
}

void QuestionEditor::LeaveBox() {
  if (steps_) steps_->EndTyping();
}

// The buttons.

void QuestionEditor::InsertBefore() {
  if (CanEdit()) {
    Insert(curQ_, Shown().iSgQ);
  } else {
    Insert(1, 1);
  }
}

void QuestionEditor::InsertAfter() {
  Insert(curQ_ + 1, CanEdit() ? Shown().iSgQ : std::int16_t{1});
}

void QuestionEditor::Insert(int position, std::int16_t segment) {
  std::vector<questionInfo>& questions = SelectedEpisode().questions;
  if (!HasRoomForQuestion(questions, services_.prompter)) return;
  questionInfo question;
  question.iSgQ = segment;
  questions.insert(questions.begin() + (position - 1), std::move(question));
  rowNumbers_.Insert(position, StepsTaken());
  ShowQuestion(position);
  focus_.Set(Control::txtQuestion);
  inserted_ = true;
  Tell({.name = "Insert question", .place = {selEp_, position}, .present = true});
}

void QuestionEditor::Drop() {
  QuestionChange change = {
      .name = "Drop question", .place = {selEp_, curQ_}, .before = std::move(Shown())};
  std::vector<questionInfo>& questions = SelectedEpisode().questions;
  questions.erase(questions.begin() + (curQ_ - 1));
  ShowPlace(change.place);
  // Only now: "Reseq" follows with the next question that is shown.
  rowNumbers_.Remove(change.place.question, StepsTaken());
  Tell(std::move(change));
}

void QuestionEditor::Ditto() {
  const Answer answer = services_.prompter.Ask({.text = "Duplicate coding only?",
                                                .buttons = Buttons::yesNoCancel,
                                                .defaultAnswer = Answer::yes,
                                                .title = "Ditto"});
  if (answer != Answer::cancel) {
    const questionInfo& previous =
        SelectedEpisode().questions.at(static_cast<std::size_t>(curQ_ - 2));
    Revise("Ditto", false,
           [&](questionInfo& question) { question.Copy(previous, answer == Answer::no); });
    ShowQuestion(curQ_);
  }
  focus_.Set(Control::txtQuestion);
}

void QuestionEditor::Normal() {
  if (!CanEdit()) return;
  Revise("Normal question", false, [](questionInfo& question) { question.SetNormal(); });
  ShowQuestion(curQ_);
  focus_.Set(Control::txtRespondName);
}

void QuestionEditor::Reseq() {
  rowNumbers_.Renumber(StepsTaken());
}

// The steps back and forth.

std::string QuestionEditor::NextStep(Way way) const {
  if (rowNumbers_.NextIsRenumbering(way, StepsTaken())) {
    return way == Way::undo ? "brings the old row numbers back" : "numbers the rows again";
  }
  return steps_ ? steps_->NextQuestionStep(way) : "";
}

void QuestionEditor::TakeStep(Way way) {
  const std::size_t before = StepsTaken();
  if (rowNumbers_.NextIsRenumbering(way, before)) {
    rowNumbers_.Take(way);
    return UpdateEditState();
  }
  const auto place = steps_ ? steps_->TakeQuestionStep(way) : std::nullopt;
  if (!place) return;
  const auto count = static_cast<std::size_t>(QuestionCount());
  if (place->episode == selEp_) rowNumbers_.Follow(way, std::min(before, StepsTaken()), count);
  ShowPlace(*place);
}

}  // namespace orvex
