#include "questions/question_entry.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "desk/prompter.h"
#include "desk/proof.h"
#include "desk/screens.h"
#include "model/program.h"
#include "model/validation.h"
#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "questions/question_room.h"
#include "store/session_log.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

using Control = QuestionEntry::Control;

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

/// The activity to offer to return to.
int ActivityToOffer(int previous) {
  return previous == kQuestionAnswer ? kNoActivity : previous;
}

}  // namespace

QuestionEntry::QuestionEntry(const Services& services, LiveObservation& live,
                             const SessionClocks& liveClocks)
    : services_(services),
      live_(live),
      liveClocks_(liveClocks),
      steps_(services, live),
      tick_(services.prompter, "timer4"),
      offtask_(live) {
  // Within a segment it comes up when the class has been taken up again.
  Coding() ? BeginCoding() : AwaitNext();
}

// What the form shows.

const std::string& QuestionEntry::Question() const {
  return live_.Draft().question;
}

const EntryFields& QuestionEntry::Fields() const {
  return live_.Draft().fields;
}

EntryFields& QuestionEntry::Draft() {
  return live_.Draft().fields;
}

bool QuestionEntry::Coding() const {
  return Fields().Visible(Dimension::source);
}

std::string QuestionEntry::FrameCaption() const {
  const std::vector<questionInfo>& questions = live_.CurQuestions();
  const std::string caption = "Question #" + std::to_string(questions.size() + 1) + ":";
  if (questions.empty() || !IsBlank(questions.back().question)) return caption;
  return caption + " (" + std::to_string(questions.size()) + " is empty)";
}

std::string_view QuestionEntry::Caption3() const {
  return Coding() ? "Nor&mal" : "&Matrices";
}

std::string_view QuestionEntry::Caption5() const {
  if (Coding()) return "&Next Q";
  if (offeredActivity_ == kNoActivity) return "&Abort";
  return ActivityOf(offeredActivity_).shortName;
}

std::string_view QuestionEntry::Caption7() const {
  return Coding() ? "Scr&ap" : "E&PISODE";
}

bool QuestionEntry::Enabled(Command command) const {
  return enabled_[static_cast<std::size_t>(command)] && HasRoom(command);
}

/// A copy or a removal needs a question, a new segment or episode a number that is left.
bool QuestionEntry::HasRoom(Command command) const {
  switch (command) {
    case Command::Command4:
    case Command::Command8:
      return !live_.CurQuestions().empty();
    case Command::Command5:
      return Coding() || offeredActivity_ == kNoActivity || live_.RoomForSegment();
    case Command::Command6:
      return live_.RoomForSegment();
    case Command::Command7:
      return Coding() || live_.RoomForEpisode();
    default:
      return true;
  }
}

Control QuestionEntry::BoxOf(Dimension field) {
  return static_cast<Control>(static_cast<int>(Control::Text1) + static_cast<int>(field));
}

std::optional<Dimension> QuestionEntry::FieldOf(Control box) {
  if (box < Control::Text1 || box > Control::Text9) return std::nullopt;
  return static_cast<Dimension>(static_cast<int>(box) - static_cast<int>(Control::Text1));
}

Caret QuestionEntry::CaretOf(Control box) {
  const bool isCode = FieldOf(box) && box != Control::Text6;
  return isCode ? Caret::selectAll : Caret::atEnd;
}

// Typing.

void QuestionEntry::TypeQuestion(std::string_view text) {
  std::string question = OneLine(text);
  std::erase(question, '\t');
  live_.Draft().question = std::move(question);
}

void QuestionEntry::TypeField(Dimension field, std::string_view text) {
  Draft().Type(field, text);
  if (field <= Dimension::response) focus_.Set(BoxOf(field), Caret::selectAll);
}

void QuestionEntry::MoveTo(Control box) {
  focus_.Set(box, CaretOf(box));
}

void QuestionEntry::EnterOrDown(Control box) {
  if (asksReview_) return;
  const auto field = FieldOf(box);
  if (box == Control::txtQuestion) {
    StartCoding();
  } else if (!field) {
    return;
  } else if (Draft().Leave(*field)) {
    SaveQuestion();
    return;
  }
  if (const auto next = Fields().NextVisible(field)) MoveTo(BoxOf(*next));
}

void QuestionEntry::Up(Control box) {
  const auto field = FieldOf(box);
  if (!field || !Coding()) return;
  const auto previous = Fields().PreviousVisible(*field);
  MoveTo(previous ? BoxOf(*previous) : Control::txtQuestion);
}

void QuestionEntry::StartCoding() {
  const bool wasCoding = Coding();
  if (!wasCoding) Draft().ShowFirstFields();
  EnableCommands(wasCoding);
  EnableForCoding();
}

/// As after the first Enter, on what has been typed before.
void QuestionEntry::BeginCoding() {
  EnableCommands(false);
  EnableForCoding();
  MoveTo(Control::txtQuestion);
}

void QuestionEntry::EnableForCoding() {
  Enable(Command::Command3);
  Enable(Command::Command4);
  Enable(Command::Command5);
  Enable(Command::Command7);
}

void QuestionEntry::SaveQuestion() {
  if (asksReview_) return;
  if (StoreQuestion(live_.Running().DraftAsStored())) StartOver();
}

/// Logs and appends the question. False when the episode is full.
bool QuestionEntry::StoreQuestion(const questionInfo& question) {
  std::vector<questionInfo>& questions = live_.CurQuestions();
  if (!HasRoomForQuestion(questions, services_.prompter)) return false;
  const int number = static_cast<int>(questions.size()) + 1;
  services_.log.LogRevisedQuestion(live_.CurEpisode(), number, question);
  questions.push_back(question);
  live_.History().ForgetUndone();
  return true;
}

void QuestionEntry::StartOver() {
  live_.Draft().question.clear();
  Draft().HideCodeFields();
  offeredActivity_ = kNoActivity;
  if (live_.CurQuestions().empty()) {
    AwaitFirstQuestion();
  } else {
    AwaitQuestion();
  }
}

/// Idle, whatever has been stored before.
void QuestionEntry::AwaitNext() {
  if (live_.SegmentHasQuestions()) return AwaitQuestion();
  AwaitFirstQuestion();
  if (live_.CurQuestions().empty()) return;
  Enable(Command::Command1);
  Enable(Command::Command2);
}

/// Idle, with questions that have been stored.
void QuestionEntry::AwaitQuestion() {
  EnableCommands(true);
  Enable(Command::Command5, false);
  MoveTo(Control::txtQuestion);
}

/// Idle, with no more to do than to begin or to give the segment up.
void QuestionEntry::AwaitFirstQuestion() {
  EnableCommands(false);
  Enable(Command::Command5);
  Enable(Command::Command9);
  MoveTo(Control::txtQuestion);
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
    case Command::Command1:
      OpenEditor(false);
      break;
    case Command::Command2:
      Proof();
      break;
    case Command::Command3:
      Coding() ? FillNormal() : OpenSurvey();
      break;
    case Command::Command4:
      Ditto();
      break;
    case Command::Command5:
      LeaveOrNext();
      break;
    case Command::Command6:
      StartSegment();
      break;
    case Command::Command7:
      Coding() ? Scrap() : AskReview();
      break;
    case Command::Command8:
      DropLast();
      break;
    case Command::Command9:
      live_.Command1_Click();
      break;
    case Command::Command10:
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
  Draft().FillNormalCodes();
  MoveTo(Control::Text6);
}

void QuestionEntry::Ditto() {
  if (!DittoQuestion()) return;
  offeredActivity_ = ActivityToOffer(live_.PrevActivity());
  if (offeredActivity_ != kNoActivity) Enable(Command::Command5);
}

void QuestionEntry::LeaveOrNext() {
  if (Coding()) {
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
  live_.StartNewSeg();
  live_.ChooseActivity(activity);
  services_.screens.Show(Screen::liveObservation);
  services_.screens.Close(Screen::questionEntry);
}

void QuestionEntry::StartSegment() {
  if (!services_.prompter.AskYesNo("Start New Segment?")) {
    MoveTo(Control::txtQuestion);
    return;
  }
  live_.StartNewSeg();
  services_.screens.Show(Screen::liveObservation);
  services_.screens.Close(Screen::questionEntry);
}

void QuestionEntry::AskReview() {
  if (!services_.prompter.AskYesNo("Start New Episode?")) {
    MoveTo(Control::txtQuestion);
    return;
  }
  Draft().HideCodeFields();
  EnableCommands(false);
  asksReview_ = true;
  Activate();
}

void QuestionEntry::Command11_Click(int index) {
  if (!asksReview_) return;
  live_.CurrentEpisode().bReview = index == 0 ? "Y" : "N";
  live_.StartNewEpi();
  asksReview_ = false;
  services_.screens.Close(Screen::questionEntry);
}

void QuestionEntry::EndClass() {
  live_.cmdQuit_Click();
  if (live_.AwaitsSurvey()) {
    services_.screens.Show(Screen::liveObservation);
    services_.screens.Close(Screen::questionEntry);
  } else {
    MoveTo(Control::txtQuestion);
  }
}

// The window.

void QuestionEntry::Activate() {
  if (asksReview_) {
    focus_.Set(Control::Command11_0, Caret::stay);
  } else if (std::exchange(editorOpen_, false)) {
    // Questions may have come and gone meanwhile.
    Record();
    StartOver();
  } else {
    MoveTo(Control::txtQuestion);
  }
}

bool QuestionEntry::RequestClose() {
  if (services_.program.QuitRequested) return true;
  if (Enabled(Command::Command10)) {
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
