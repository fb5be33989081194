#include "questions/question_entry.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "desk/prompter.h"
#include "desk/proof.h"
#include "desk/screens.h"
#include "model/limits.h"
#include "model/program.h"
#include "model/texts.h"
#include "model/validation.h"
#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "store/session_log.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

/// The activity that the observer is offered to return to; kNoActivity for none.
int ActivityToOffer(int previous) {
  return previous == kQuestionAnswer ? kNoActivity : previous;
}

}  // namespace

bool HasRoomForQuestion(const std::vector<questionInfo>& questions, Prompter& prompter) {
  if (questions.size() < kMostNumber) return true;
  prompter.Tell(Say(Text::episodeIsFull, {kMostNumber}));
  return false;
}

QuestionEntry::QuestionEntry(const Services& services, LiveObservation& live,
                             const SessionClocks& liveClocks)
    : services_(services),
      live_(live),
      questions_(live.Questions()),
      liveClocks_(liveClocks),
      steps_(services, live),
      tick_(services.prompter, "timer4"),
      offtask_(live) {
  // After a class was taken up again, a question may already be half coded.
  IsCoding() ? BeginCoding() : AwaitNext();
}

// What the form shows.

const std::string& QuestionEntry::Question() const {
  return questions_.Draft().question;
}

const EntryFields& QuestionEntry::Fields() const {
  return questions_.Draft().fields;
}

bool QuestionEntry::IsCoding() const {
  return Fields().Visible(Dimension::source);
}

std::string QuestionEntry::FrameCaption() const {
  const std::vector<questionInfo>& questions = questions_.Filed();
  const std::size_t count = questions.size();
  const bool followsEmpty = count > 0 && IsBlank(questions.back().question);
  return followsEmpty ? Say(Text::questionAfterEmpty, {count + 1, count})
                      : Say(Text::questionNumber, {count + 1});
}

bool QuestionEntry::Enabled(Command command) const {
  return enabled_[static_cast<std::size_t>(command)] && HasRoom(command);
}

/// Copying or dropping needs a question; a new segment or episode needs a free number.
bool QuestionEntry::HasRoom(Command command) const {
  const RunningClass& running = live_.Running();
  switch (command) {
    case Command::ditto:
    case Command::dropLast:
      return !questions_.Filed().empty();
    case Command::nextOrLeave:
      return IsCoding() || offeredActivity_ == kNoActivity || running.RoomForSegment();
    case Command::startSegment:
      return running.RoomForSegment();
    case Command::scrapOrStartEpisode:
      return IsCoding() || running.RoomForEpisode();
    default:
      return true;
  }
}

Caret QuestionEntry::CaretOf(Box box) {
  const bool isCode = box && box != Dimension::respondName;
  return isCode ? Caret::selectAll : Caret::atEnd;
}

// Typing.

void QuestionEntry::TypeQuestion(std::string_view text) {
  std::string question = OneLine(text);
  std::erase(question, '\t');
  questions_.TypeQuestion(std::move(question));
}

void QuestionEntry::TypeField(Dimension field, std::string_view text) {
  questions_.TypeCode(field, text);
  if (field <= Dimension::response) focus_.Set({field}, Caret::selectAll);
}

void QuestionEntry::MoveTo(Box box) {
  focus_.Set({box}, CaretOf(box));
}

void QuestionEntry::EnterOrDown(Box box) {
  if (asksReview_) return;
  if (box == kText) {
    StartCoding();
  } else if (questions_.LeaveCode(*box)) {
    SaveQuestion();
    return;
  }
  if (const auto next = Fields().NextVisible(box)) MoveTo(next);
}

void QuestionEntry::Up(Box box) {
  if (box != kText && IsCoding()) MoveTo(Fields().PreviousVisible(*box));
}

void QuestionEntry::StartCoding() {
  const bool wasCoding = IsCoding();
  if (!wasCoding) questions_.ShowFirstCodes();
  EnableCommands(wasCoding);
  EnableForCoding();
}

/// Goes on coding what was typed before, as if Enter had just been pressed for the first time.
void QuestionEntry::BeginCoding() {
  EnableCommands(false);
  EnableForCoding();
  MoveTo(kText);
}

void QuestionEntry::EnableForCoding() {
  Enable(Command::fillNormalOrSurvey);
  Enable(Command::ditto);
  Enable(Command::nextOrLeave);
  Enable(Command::scrapOrStartEpisode);
}

void QuestionEntry::SaveQuestion() {
  if (asksReview_) return;
  if (StoreQuestion(live_.Running().DraftAsStored())) StartOver();
}

/// Returns false if the episode is full.
bool QuestionEntry::StoreQuestion(const questionInfo& question) {
  if (!HasRoomForQuestion(questions_.Filed(), services_.prompter)) return false;
  questions_.File(question);
  return true;
}

void QuestionEntry::StartOver() {
  questions_.TypeQuestion("");
  questions_.DropCodes();
  offeredActivity_ = kNoActivity;
  if (questions_.Filed().empty()) {
    AwaitFirstQuestion();
  } else {
    AwaitQuestion();
  }
}

/// Waits for the next question, with the commands that fit what has been filed so far.
void QuestionEntry::AwaitNext() {
  if (questions_.SegmentHasQuestions()) return AwaitQuestion();
  AwaitFirstQuestion();
  if (questions_.Filed().empty()) return;
  Enable(Command::review);
  Enable(Command::proof);
}

/// Waits for the next question, with all commands but leaving.
void QuestionEntry::AwaitQuestion() {
  EnableCommands(true);
  Enable(Command::nextOrLeave, false);
  MoveTo(kText);
}

/// Waits for the first question: only typing, giving up and correcting the time are possible.
void QuestionEntry::AwaitFirstQuestion() {
  EnableCommands(false);
  Enable(Command::nextOrLeave);
  Enable(Command::correctTime);
  MoveTo(kText);
}

void QuestionEntry::Enable(Command command, bool enabled) {
  enabled_[static_cast<std::size_t>(command)] = enabled;
}

void QuestionEntry::EnableCommands(bool enabled) {
  enabled_.fill(enabled);
}

// The buttons.

void QuestionEntry::Click(Command command) {
  if (!Enabled(command)) return;
  switch (command) {
    case Command::review:
      OpenEditor(false);
      break;
    case Command::proof:
      Proof();
      break;
    case Command::fillNormalOrSurvey:
      IsCoding() ? FillNormal() : OpenSurvey();
      break;
    case Command::ditto:
      Ditto();
      break;
    case Command::nextOrLeave:
      LeaveOrNext();
      break;
    case Command::startSegment:
      StartSegment();
      break;
    case Command::scrapOrStartEpisode:
      IsCoding() ? Scrap() : AskReview();
      break;
    case Command::dropLast:
      DropLast();
      break;
    case Command::correctTime:
      live_.CorrectTime();
      break;
    case Command::endClass:
      EndClass();
      break;
  }
}

void QuestionEntry::OpenEditor(bool proofMode) {
  editorOpen_ = true;
  services_.screens.ShowQuestionEditor(EditorCaller::questionEntry, proofMode);
  services_.screens.Hide(Screen::questionEntry);
}

void QuestionEntry::Proof() {
  if (FindNextGap(services_.program, services_.prompter)) OpenEditor(true);
}

void QuestionEntry::OpenSurvey() {
  services_.screens.ShowSurvey(SurveyCaller::questionEntry);
  services_.screens.Hide(Screen::questionEntry);
}

void QuestionEntry::FillNormal() {
  questions_.FillNormalCodes();
  MoveTo(Dimension::respondName);
}

/// Files the last question again, because the teacher has repeated it.
void QuestionEntry::Ditto() {
  const questionInfo& last = questions_.Filed().back();
  questionInfo copy;
  copy.SetValue(last.question, last.Texts(), last.iEpQ, last.iSgQ);
  if (!StoreQuestion(copy)) return;
  steps_.RecordInEntry({.place = {.question = live_.CurrentEpisode().nQAs()}, .present = true});
  StartOver();
  offeredActivity_ = ActivityToOffer(live_.Running().prevActivity);
  if (offeredActivity_ != kNoActivity) Enable(Command::nextOrLeave);
}

void QuestionEntry::LeaveOrNext() {
  if (IsCoding()) {
    SaveQuestion();
  } else if (offeredActivity_ == kNoActivity) {
    AbandonSegment();
  } else {
    ReturnToPreviousActivity();
  }
}

void QuestionEntry::AbandonSegment() {
  live_.AbandonQuestionAnswer();
  services_.screens.Show(Screen::liveObservation);
  services_.screens.Close(Screen::questionEntry);
}

void QuestionEntry::ReturnToPreviousActivity() {
  const int activity = offeredActivity_;
  live_.StartSegment();
  live_.ChooseActivity(activity);
  services_.screens.Show(Screen::liveObservation);
  services_.screens.Close(Screen::questionEntry);
}

void QuestionEntry::StartSegment() {
  if (!services_.prompter.AskYesNo(Say(Text::askNewSegment))) {
    MoveTo(kText);
    return;
  }
  live_.StartSegment();
  services_.screens.Show(Screen::liveObservation);
  services_.screens.Close(Screen::questionEntry);
}

void QuestionEntry::AskReview() {
  if (!services_.prompter.AskYesNo(Say(Text::askNewEpisode))) {
    MoveTo(kText);
    return;
  }
  questions_.DropCodes();
  EnableCommands(false);
  asksReview_ = true;
  Activate();
}

void QuestionEntry::AnswerReview(bool wasReview) {
  if (!asksReview_) return;
  live_.StartEpisode(wasReview);
  asksReview_ = false;
  services_.screens.Close(Screen::questionEntry);
}

/// Drops what is being typed. Before the first question, the text stays and only the codes go.
void QuestionEntry::Scrap() {
  steps_.RecordInEntry();
  if (!questions_.Filed().empty()) return StartOver();
  questions_.DropCodes();
  AwaitFirstQuestion();
}

void QuestionEntry::DropLast() {
  QuestionStep step = {.place = {.question = live_.CurrentEpisode().nQAs()}};
  step.question = questions_.DropLast();
  steps_.RecordInEntry(std::move(step));
  StartOver();
}

void QuestionEntry::EndClass() {
  live_.EndClass();
  if (live_.Running().awaitsSurvey) {
    services_.screens.Show(Screen::liveObservation);
    services_.screens.Close(Screen::questionEntry);
  } else {
    MoveTo(kText);
  }
}

// Undo and redo.

std::string QuestionEntry::NextStep(Way way) const {
  const QuestionStep* step = asksReview_ ? nullptr : steps_.NextInEntry(way);
  return step ? steps_.Text(*step, way) : "";
}

void QuestionEntry::TakeStep(Way way) {
  const QuestionStep* step = asksReview_ ? nullptr : steps_.NextInEntry(way);
  if (!step) return;
  const bool draftChanges = step->draft.has_value();
  steps_.Take(way);
  offeredActivity_ = kNoActivity;
  if (!IsCoding()) {
    AwaitNext();
  } else if (draftChanges) {
    BeginCoding();
  }
}

// The window.

void QuestionEntry::Activate() {
  if (asksReview_) {
    focus_.Set({.review = true}, Caret::stay);
  } else if (std::exchange(editorOpen_, false)) {
    // The question editor may have added or dropped questions.
    steps_.RecordInEntry();
    StartOver();
  } else {
    MoveTo(kText);
  }
}

bool QuestionEntry::RequestClose() {
  if (live_.ClassStored()) return true;
  if (Enabled(Command::endClass)) {
    EndClass();
  } else {
    Activate();
  }
  return false;
}

void QuestionEntry::Tick() {
  tick_.Run([this] { offtask_.Tick(); });
}

}  // namespace orvex
