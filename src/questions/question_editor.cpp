#include "questions/question_editor.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "desk/prompter.h"
#include "desk/proof.h"
#include "model/limits.h"
#include "model/program.h"
#include "model/texts.h"
#include "model/validation.h"
#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "questions/question_entry.h"
#include "start/field_notes_file.h"
#include "store/numbers.h"
#include "store/session_log.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

using Control = QuestionEditor::Control;

}  // namespace

QuestionEditor::QuestionEditor(const Services& services, const QuestionEditorStart& start,
                               LiveObservation* live, const SessionClocks* liveClocks)
    : services_(services),
      start_(start),
      live_(live),
      liveClocks_(liveClocks),
      tick_(services.prompter, "timer1") {
  if (live_) {
    offtask_.emplace(*live_);
    steps_ = &classSteps_.emplace(services, *live_);
  }
  const int first = live_ ? EpisodeCount() : start.episode;
  ChooseEpisode(start.proofMode ? services.program.ProofEp : first);
  focus_.Set(WhereToGoOn());
}

Episode& QuestionEditor::SelectedEpisode() const {
  return services_.program.Episodes.at(static_cast<std::size_t>(selEp_ - 1));
}

questionInfo& QuestionEditor::CurrentQuestion() const {
  return SelectedEpisode().questions.at(static_cast<std::size_t>(curQ_ - 1));
}

/// The control that gets the focus when there is no better one.
Control QuestionEditor::WhereToGoOn() const {
  return CanEdit() ? Control::question : Control::insertAfter;
}

// What the form shows.

std::string QuestionEditor::Title() const {
  return live_ ? Say(Text::liveEditorTitle, {live_->Header().ClassIdText()})
               : Say(Text::editorTitle);
}

int QuestionEditor::EpisodeCount() const {
  return static_cast<int>(services_.program.Episodes.size());
}

int QuestionEditor::QuestionCount() const {
  return HasEpisode() ? SelectedEpisode().nQAs() : 0;
}

std::string QuestionEditor::RowText(int i) const {
  return rowNumbers_.RowText(i, QuestionText(i));
}

const std::string& QuestionEditor::QuestionText(int i) const {
  return SelectedEpisode().questions.at(static_cast<std::size_t>(i - 1)).question;
}

QuestionView QuestionEditor::View() const {
  QuestionView view;
  view.caption = inserted_ ? Say(Text::questionNumber, {curQ_})
                           : Say(Text::questionOfSeveral, {curQ_, QuestionCount()});
  view.segment = segmentText_;
  view.heading = Say(SourceIs("S") ? Text::teacherResponse : Text::teacherEvalShort);
  if (HasEpisode()) view.description = SelectedEpisode().Descript;
  if (!CanEdit()) return view;
  const questionInfo& question = CurrentQuestion();
  view.question = question.question;
  view.respondName = question.respondName;
  view.canStepUp = question.iSgQ < kMostNumber;
  view.canStepDown = question.iSgQ > 0;
  view.isNormal = question.IsNormal();
  view.hasHeading = question.AsksFor(Dimension::elaborated);
  return view;
}

FrameView QuestionEditor::Frame(Dimension dimension) const {
  static const questionInfo kNone{};
  const questionInfo& question = CanEdit() ? CurrentQuestion() : kNone;
  const DimensionScheme& scheme = SchemeOf(dimension);
  const bool isName = dimension == Dimension::respondName;
  FrameView frame = {.visible = question.AsksFor(dimension), .caption = scheme.label};
  const int code = question.codes[dimension];
  if (IsCodeOf(dimension, code)) frame.option = code;
  const bool coded = isName ? !question.respondName.empty() : frame.option >= 0;
  if (isName && !SourceIs("T")) frame.caption = Say(Text::whoAsks);
  if (captionPhase_ && CanEdit() && !coded) frame.caption = scheme.Blank();
  return frame;
}

std::optional<Dimension> QuestionEditor::FirstGap() const {
  if (!ProofMode() || !CanEdit()) return std::nullopt;
  const std::vector<Dimension> missing = FindMissingCodes(CurrentQuestion()).dimensions;
  return missing.empty() ? std::nullopt : std::optional(missing.front());
}

bool QuestionEditor::SourceIs(std::string_view letter) const {
  return CanEdit() && CurrentQuestion().strSrc() == letter;
}

bool QuestionEditor::Enabled(Command command) const {
  switch (command) {
    case Command::insertBefore:
    case Command::insertAfter:
      return HasEpisode();
    case Command::drop:
      return CanEdit();
    case Command::ditto:
      return curQ_ >= 2;
    case Command::makeNormal:
      return canMakeNormal_;
    case Command::renumber:
      return canRenumber_;
    case Command::nextGap:
      return ProofMode();
    case Command::leave:
    case Command::editFieldNotes:
      return true;
  }
  return false;
}

bool QuestionEditor::TakeNameSelection() {
  return std::exchange(nameSelection_, false);
}

// Showing.

void QuestionEditor::ChooseEpisode(int number) {
  LeaveBox();
  selEp_ = std::min(std::max(number, 1), EpisodeCount());
  rowNumbers_.Start(static_cast<std::size_t>(QuestionCount()));
  curQ_ = 0;
  inserted_ = false;
  const int count = QuestionCount();
  if (count > 0) {
    ShowQuestion(ProofMode() ? std::clamp(services_.program.ProofQ, 1, count) : count);
  }
  UpdateEditState();
}

void QuestionEditor::ShowQuestion(int i) {
  curQ_ = i;
  inserted_ = false;
  LayoutFrames();
  ShowSegment();
}

/// Shows the question at `place`, in any episode, or the nearest one that exists.
void QuestionEditor::ShowPlace(const QuestionPlace& place) {
  if (place.episode != selEp_) ChooseEpisode(place.episode);
  const int count = QuestionCount();
  curQ_ = std::clamp(place.question, std::min(1, count), count);
  inserted_ = false;
  if (CanEdit()) return ShowQuestion(curQ_);
  UpdateEditState();
  focus_.Set(WhereToGoOn());
}

void QuestionEditor::LayoutFrames() {
  if (!CanEdit()) return;
  if (SourceIs("S")) nameSelection_ = true;
  UpdateEditState();
}

/// Updates the state that is not derived from the current question. Two commands keep their state
/// when the list becomes empty, and `canRenumber_` changes only here.
void QuestionEditor::UpdateEditState() {
  if (!CanEdit()) {
    segmentText_.clear();
    return;
  }
  canMakeNormal_ = !CurrentQuestion().IsNormal();
  canRenumber_ = rowNumbers_.LagBehind();
}

void QuestionEditor::ShowSegment() {
  segmentText_ = std::to_string(CurrentQuestion().iSgQ);
}

void QuestionEditor::ChooseQuestion(int i) {
  LeaveBox();
  if (i >= 1 && i <= QuestionCount()) ShowQuestion(i);
}

void QuestionEditor::EnterDescription() {
  oldDescript_ = View().description;
}

void QuestionEditor::LeaveDescription() {
  const std::string description = View().description;
  if (description == oldDescript_) return;
  if (live_) services_.log.LogRevisedDescription(description);
  oldDescript_ = description;
}

// The commands.

void QuestionEditor::Do(Command command) {
  if (!Enabled(command)) return;
  switch (command) {
    case Command::insertBefore:
      return Insert(std::max(curQ_, 1));
    case Command::insertAfter:
      return Insert(curQ_ + 1);
    case Command::drop:
      return Drop();
    case Command::ditto:
      return Ditto();
    case Command::makeNormal:
      return MakeNormal();
    case Command::renumber:
      return rowNumbers_.Renumber(StepsTaken());
    case Command::nextGap:
      return ShowNextGap();
    case Command::leave:
      return Leave();
    case Command::editFieldNotes:
      return EditFieldNotes();
  }
}

void QuestionEditor::ShowNextGap() {
  Program& program = services_.program;
  program.ProofEp = selEp_;
  program.ProofQ = curQ_ + 1;
  if (!FindNextGap(program, services_.prompter)) return;
  ChooseEpisode(program.ProofEp);
  FocusGap();
}

/// Focuses the first thing that the current question lacks.
void QuestionEditor::FocusGap() {
  if (!CanEdit()) return;
  const MissingCodes missing = FindMissingCodes(CurrentQuestion());
  if (missing.text) {
    focus_.Set(Control::question);
  } else if (!missing.dimensions.empty()) {
    const bool name = missing.dimensions.front() == Dimension::respondName;
    focus_.Set(name ? Control::respondName : Control::gap);
  }
}

void QuestionEditor::EditFieldNotes() {
  if (live_) {
    live_->EditFieldNotes();
  } else {
    EditChosenNotes(services_);
  }
}

/// Shows the caller first, since it is hidden and no form would be left, then closes this one.
void QuestionEditor::Leave() {
  if (live_) live_->Questions().ForgetRevisions();
  services_.screens.Show(CallersScreen());
  services_.screens.Close(Screen::questionEditor);
}

Screen QuestionEditor::CallersScreen() const {
  switch (start_.caller) {
    case EditorCaller::liveObservation:
      break;
    case EditorCaller::questionEntry:
      return Screen::questionEntry;
    case EditorCaller::episodeEditor:
      return Screen::episodeEditor;
    case EditorCaller::statistics:
      return Screen::questionStats;
  }
  return Screen::liveObservation;
}

/// Changes the current question, if there is one. Continued typing in the same box of the same
/// question is one step.
template <typename Change>
void QuestionEditor::Revise(Text name, bool typing, Change change) {
  if (!CanEdit()) return;
  questionInfo before = CurrentQuestion();
  change(CurrentQuestion());
  if (CurrentQuestion() == before) return;
  const std::string place = std::to_string(selEp_) + " " + std::to_string(curQ_);
  Record({.name = Say(name),
          .typing = typing ? Say(name) + (" " + place) : "",
          .place = {selEp_, curQ_},
          .present = true,
          .before = std::move(before)});
}

void QuestionEditor::Record(const QuestionChange& change) {
  rowNumbers_.ForgetUndone();
  if (steps_) steps_->RecordQuestionChange(change);
}

// Typing and coding.

void QuestionEditor::ChooseOption(Dimension dimension, int option) {
  if (IsCodeOf(dimension, option)) {
    Revise(Text::codeQuestion, false, [&](questionInfo& question) {
      question.codes[dimension] = static_cast<std::int16_t>(option);
    });
  }
  LayoutFrames();
}

void QuestionEditor::TypeQuestion(std::string_view text) {
  Revise(Text::typeQuestion, true,
         [text](questionInfo& question) { question.question = OneLine(text); });
}

void QuestionEditor::TypeRespondName(std::string_view text) {
  Revise(Text::typeName, true,
         [text](questionInfo& question) { question.respondName = OneLine(text); });
}

void QuestionEditor::TypeSegment(std::string_view text) {
  if (!CanEdit()) return;
  segmentText_ = OneLine(text);
  const auto number = TypedNumber(segmentText_);
  SetSegment(number ? ToInt16(*number).value_or(0) : std::int16_t{0});
}

void QuestionEditor::StepSegment(int steps) {
  const QuestionView view = View();
  if (!(steps < 0 ? view.canStepDown : view.canStepUp)) return;
  const int stepped = std::clamp(CurrentQuestion().iSgQ + steps, 0, kMostNumber);
  SetSegment(static_cast<std::int16_t>(stepped));
  ShowSegment();
}

void QuestionEditor::SetSegment(std::int16_t number) {
  Revise(Text::typeSegmentNumber, true,
         [number](questionInfo& question) { question.iSgQ = number; });
}

void QuestionEditor::LeaveSegment() {
  if (CanEdit()) ShowSegment();
}

void QuestionEditor::TypeDescription(std::string_view text) {
  if (!HasEpisode()) return;
  SelectedEpisode().Descript = OneLine(text);
  Record({.name = Say(Text::typeDescription),
          .typing = Say(Text::typeDescription) + (" " + std::to_string(selEp_)),
          .place = {selEp_, curQ_}});
}

void QuestionEditor::LeaveBox() {
  if (steps_) steps_->EndTyping();
}

/// The new question gets the segment of the current one.
void QuestionEditor::Insert(int position) {
  const std::int16_t segment = CanEdit() ? CurrentQuestion().iSgQ : std::int16_t{1};
  std::vector<questionInfo>& questions = SelectedEpisode().questions;
  if (!HasRoomForQuestion(questions, services_.prompter)) return;
  questionInfo question;
  question.iSgQ = segment;
  questions.insert(questions.begin() + (position - 1), std::move(question));
  rowNumbers_.Insert(position, StepsTaken());
  ShowQuestion(position);
  focus_.Set(Control::question);
  inserted_ = true;
  Record({.name = Say(Text::insertQuestion), .place = {selEp_, position}, .present = true});
}

void QuestionEditor::Drop() {
  QuestionChange change = {.name = Say(Text::dropQuestion),
                           .place = {selEp_, curQ_},
                           .before = std::move(CurrentQuestion())};
  std::vector<questionInfo>& questions = SelectedEpisode().questions;
  questions.erase(questions.begin() + (curQ_ - 1));
  ShowPlace(change.place);
  // Not before ShowPlace: the renumber command is only updated when another question is shown.
  rowNumbers_.Remove(change.place.question, StepsTaken());
  Record(change);
}

void QuestionEditor::Ditto() {
  const Answer answer = services_.prompter.Ask({.text = Say(Text::askDuplicateCoding),
                                                .buttons = Buttons::yesNoCancel,
                                                .defaultAnswer = Answer::yes,
                                                .title = Say(Text::ditto)});
  if (answer != Answer::cancel) {
    const questionInfo& previous =
        SelectedEpisode().questions.at(static_cast<std::size_t>(curQ_ - 2));
    Revise(Text::ditto, false,
           [&](questionInfo& question) { question.Copy(previous, answer == Answer::no); });
    ShowQuestion(curQ_);
  }
  focus_.Set(Control::question);
}

void QuestionEditor::MakeNormal() {
  if (!CanEdit()) return;
  Revise(Text::normalQuestion, false, [](questionInfo& question) { question.SetNormal(); });
  ShowQuestion(curQ_);
  focus_.Set(Control::respondName);
}

// Undo and redo.

std::string QuestionEditor::NextStep(Way way) const {
  if (rowNumbers_.NextIsRenumbering(way, StepsTaken())) {
    return Say(way == Way::undo ? Text::bringsRowNumbersBack : Text::numbersRowsAgain);
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

// The timers.

void QuestionEditor::BlinkTick() {
  if (ProofMode()) captionPhase_ = !captionPhase_;
}

void QuestionEditor::ClockTick() {
  tick_.Run([this] {
    if (offtask_) offtask_->Tick();
  });
}

}  // namespace orvex
