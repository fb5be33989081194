#include "questions/question_editor.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "model/program.h"
#include "model/prompter.h"
#include "model/validation.h"
#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "questions/question_layout.h"
#include "questions/question_room.h"
#include "start/field_notes_file.h"
#include "store/numbers.h"
#include "store/session_log.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

using Control = QuestionEditor::Control;

constexpr std::size_t kRowCharacters = 30;

const std::string kNothing;

/// The first `count` characters of a UTF-8 text.
std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    const bool startsCharacter = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (startsCharacter && count-- == 0) break;
  }
  return text.substr(0, end);
}

}  // namespace

QuestionEditor::QuestionEditor(const Services& services, const EditorOpening& opening,
                               LiveObservation* live, const SessionClocks* liveClocks)
    : services_(services),
      opening_(opening),
      live_(live),
      liveClocks_(liveClocks),
      tick_(services.prompter, "timer1") {
  if (live_) offtask_.emplace(*live_);
  const int first = live_ ? EpisodeCount() : opening.episode;
  ChooseEpisode(opening.proofMode ? services.program.ProofEp : first);
  focus_.Set(EditStart());
}

Episode& QuestionEditor::SelectedEpisode() const {
  return services_.program.Episodes.at(static_cast<std::size_t>(selEp_ - 1));
}

questionInfo& QuestionEditor::Shown() const {
  return SelectedEpisode().questions.at(static_cast<std::size_t>(curQ_ - 1));
}

/// Where the keyboard goes on when it has lost its place.
Control QuestionEditor::EditStart() const {
  return CanEdit() ? Control::txtQuestion : Control::cmdInsA;
}

// What the form shows.

std::string QuestionEditor::Title() const {
  const std::string title = "Question Editor";
  return live_ ? title + " -- " + live_->Header().ClassIdText() : title;
}

int QuestionEditor::EpisodeCount() const {
  return static_cast<int>(services_.program.Episodes.size());
}

int QuestionEditor::QuestionCount() const {
  return HasEpisode() ? SelectedEpisode().nQAs() : 0;
}

const std::string& QuestionEditor::Description() const {
  return HasEpisode() ? SelectedEpisode().Descript : kNothing;
}

std::string QuestionEditor::RowText(int i) const {
  const int number = rowNumbers_.at(static_cast<std::size_t>(i - 1));
  std::string row = number == 0 ? "#" : std::to_string(number);
  row += ". ";
  row += FirstCharacters(QuestionText(i), kRowCharacters);
  return row;
}

const std::string& QuestionEditor::QuestionText(int i) const {
  return SelectedEpisode().questions.at(static_cast<std::size_t>(i - 1)).question;
}

std::string QuestionEditor::QuestionCaption() const {
  const std::string caption = "Question #" + std::to_string(curQ_);
  return inserted_ ? caption + ":" : caption + " of " + std::to_string(QuestionCount()) + ":";
}

const std::string& QuestionEditor::Question() const {
  return CanEdit() ? Shown().question : kNothing;
}

const std::string& QuestionEditor::RespondName() const {
  return CanEdit() ? Shown().respondName : kNothing;
}

bool QuestionEditor::CanStepSegment(int steps) const {
  return CanEdit() && (steps < 0 ? Shown().iSgQ > 0 : Shown().iSgQ < kMostSegment);
}

int QuestionEditor::SelectedOption(Dimension dimension) const {
  return CanEdit() ? OptionOf(Shown(), dimension) : -1;
}

std::optional<Dimension> QuestionEditor::FirstGap() const {
  if (!ProofMode() || !CanEdit()) return std::nullopt;
  const std::vector<Dimension> missing = FindMissingCodes(Shown()).dimensions;
  return missing.empty() ? std::nullopt : std::optional(missing.front());
}

bool QuestionEditor::SourceIs(std::string_view letter) const {
  return CanEdit() && Shown().strSrc() == letter;
}

bool QuestionEditor::FrameVisible(Dimension dimension) const {
  return AsksFor(CanEdit() ? Shown() : questionInfo{}, dimension);
}

std::string_view QuestionEditor::FrameCaption(Dimension dimension) const {
  const DimensionLabel& label = DimensionLabels[static_cast<std::size_t>(dimension)];
  const bool isName = dimension == Dimension::respondName;
  const bool coded = isName ? !RespondName().empty() : SelectedOption(dimension) >= 0;
  if (captionPhase_ && CanEdit() && !coded) return label.Blank;
  return isName && !SourceIs("T") ? "Who asks question?" : label.Label;
}

std::string_view QuestionEditor::Heading() const {
  return SourceIs("S") ? "TEACHER RESPONSE" : "TEACHER EVAL./FOLLOWUP";
}

bool QuestionEditor::NormalVisible() const {
  return CanEdit() && Shown().IsNormal();
}

bool QuestionEditor::Enabled(Command command) const {
  switch (command) {
    case Command::cmdInsB:
    case Command::cmdInsA:
      return HasEpisode();
    case Command::cmdDrop:
      return CanEdit();
    case Command::cmdDitto:
      return curQ_ >= 2;
    case Command::cmdNormal:
      return normalEnabled_;
    case Command::cmdReseq:
      return reseqEnabled_;
    case Command::cmdNxt:
      return ProofMode();
    case Command::cmdReturn:
    case Command::Command1:
      return true;
  }
  return false;
}

bool QuestionEditor::TakeNameSelection() {
  return std::exchange(nameSelection_, false);
}

// Showing.

void QuestionEditor::ChooseEpisode(int number) {
  selEp_ = std::min(std::max(number, 1), EpisodeCount());
  FillQuestionList();
  curQ_ = 0;
  inserted_ = false;
  const int count = QuestionCount();
  if (count > 0) {
    ShowQuestion(ProofMode() ? std::clamp(services_.program.ProofQ, 1, count) : count);
  }
  UpdateEditState();
}

void QuestionEditor::FillQuestionList() {
  rowNumbers_.resize(static_cast<std::size_t>(QuestionCount()));
  std::iota(rowNumbers_.begin(), rowNumbers_.end(), 1);
}

void QuestionEditor::ShowQuestion(int i) {
  curQ_ = i;
  inserted_ = false;
  LayoutFrames();
  ShowSegment();
}

void QuestionEditor::LayoutFrames() {
  if (!CanEdit()) return;
  if (SourceIs("S")) nameSelection_ = true;
  UpdateEditState();
}

/// What is not derived from the question shown: two buttons that an emptied list leaves as they
/// are, and of which "Reseq" follows only here.
void QuestionEditor::UpdateEditState() {
  if (!CanEdit()) {
    segmentText_.clear();
    return;
  }
  normalEnabled_ = !Shown().IsNormal();
  reseqEnabled_ = reseqNeeded_;
}

void QuestionEditor::ShowSegment() {
  segmentText_ = std::to_string(Shown().iSgQ);
}

// Choosing and typing.

void QuestionEditor::ClickRow(int i) {
  if (i >= 1 && i <= QuestionCount()) ShowQuestion(i);
}

void QuestionEditor::ClickOption(Dimension dimension, int option) {
  if (!CanEdit()) return;
  SetOption(Shown(), dimension, option);
  LayoutFrames();
  Changed("Code question");
}

void QuestionEditor::TypeQuestion(std::string_view text) {
  if (!CanEdit()) return;
  Shown().question = OneLine(text);
  Typed("Type question");
}

void QuestionEditor::TypeRespondName(std::string_view text) {
  if (!CanEdit()) return;
  Shown().respondName = OneLine(text);
  Typed("Type name");
}

void QuestionEditor::TypeSegment(std::string_view text) {
  if (!CanEdit()) return;
  segmentText_ = OneLine(text);
  const auto number = TypedNumber(segmentText_);
  Shown().iSgQ = number ? ToInt16(*number).value_or(0) : std::int16_t{0};
  Typed("Type segment number");
}

void QuestionEditor::StepSegment(int steps) {
  if (!CanStepSegment(steps)) return;
  const int stepped = std::clamp(Shown().iSgQ + steps, 0, kMostSegment);
  Shown().iSgQ = static_cast<std::int16_t>(stepped);
  ShowSegment();
  Typed("Type segment number");
}

void QuestionEditor::LeaveSegment() {
  if (CanEdit()) ShowSegment();
}

void QuestionEditor::TypeDescription(std::string_view text) {
  if (!HasEpisode()) return;
  SelectedEpisode().Descript = OneLine(text);
  Typed("Type description");
}

void QuestionEditor::Changed(const char* name) const {
  if (told_) told_({.name = name, .typing = "", .episode = selEp_});
}

/// The same box of the same question is typed in on and on.
void QuestionEditor::Typed(const char* name) const {
  if (told_) told_({.name = name, .typing = name + std::to_string(curQ_), .episode = selEp_});
}

void QuestionEditor::LeaveDescription() {
  if (Description() == oldDescript_) return;
  if (live_) services_.log.LogRevisedDescription(Description());
  oldDescript_ = Description();
}

// The buttons.

void QuestionEditor::Click(Command command) {
  if (!Enabled(command)) return;
  switch (command) {
    case Command::cmdInsB:
      return InsertBefore();
    case Command::cmdInsA:
      return InsertAfter();
    case Command::cmdDrop:
      return Drop();
    case Command::cmdDitto:
      return Ditto();
    case Command::cmdNormal:
      return Normal();
    case Command::cmdReseq:
      return Reseq();
    case Command::cmdNxt:
      return Next();
    case Command::cmdReturn:
      return Return();
    case Command::Command1:
      return FieldNotes();
  }
}

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
  rowNumbers_.insert(rowNumbers_.begin() + (position - 1), 0);
  ShowQuestion(position);
  focus_.Set(Control::txtQuestion);
  reseqNeeded_ = true;
  UpdateEditState();
  inserted_ = true;
  Changed("Insert question");
}

void QuestionEditor::Drop() {
  std::vector<questionInfo>& questions = SelectedEpisode().questions;
  questions.erase(questions.begin() + (curQ_ - 1));
  rowNumbers_.erase(rowNumbers_.begin() + (curQ_ - 1));
  curQ_ = std::min(curQ_, QuestionCount());
  inserted_ = false;
  if (CanEdit()) {
    ShowQuestion(curQ_);
  } else {
    UpdateEditState();
    focus_.Set(EditStart());
  }
  reseqNeeded_ = true;
  Changed("Drop question");
}

void QuestionEditor::Ditto() {
  const Answer answer = services_.prompter.Ask({.text = "Duplicate coding only?",
                                                .buttons = Buttons::yesNoCancel,
                                                .defaultAnswer = Answer::yes,
                                                .title = "Ditto"});
  if (answer != Answer::cancel) {
    const questionInfo& previous =
        SelectedEpisode().questions.at(static_cast<std::size_t>(curQ_ - 2));
    Shown().Copy(previous, answer == Answer::no);
    ShowQuestion(curQ_);
    Changed("Ditto");
  }
  focus_.Set(Control::txtQuestion);
}

void QuestionEditor::Normal() {
  if (!CanEdit()) return;
  Shown().SetNormal();
  ShowQuestion(curQ_);
  focus_.Set(Control::txtRespondName);
  Changed("Normal question");
}

void QuestionEditor::Reseq() {
  FillQuestionList();
  reseqNeeded_ = false;
}

void QuestionEditor::Next() {
  Program& program = services_.program;
  program.ProofEp = selEp_;
  program.ProofQ = curQ_ + 1;
  const int found =
      FindUncodedQuestion(program.Episodes, program.ProofEp, program.ProofQ, services_.prompter);
  if (found != -1) ChooseEpisode(program.ProofEp);
}

void QuestionEditor::FieldNotes() {
  if (live_) {
    live_->cmdFieldNote_Click();
  } else {
    EditFieldNotesFile(services_);
  }
}

void QuestionEditor::Return() {
  ShowCaller();
  services_.screens.Close(Screen::questionEditor);
}

void QuestionEditor::ShowCaller() {
  switch (opening_.caller) {
    case EditorCaller::liveObservation:
      return services_.screens.Show(Screen::liveObservation);
    case EditorCaller::questionEntry:
      return services_.screens.Show(Screen::questionEntry);
    case EditorCaller::episodeEditor:
      return services_.screens.Show(Screen::episodeEditor);
    case EditorCaller::statistics:
      return services_.screens.Show(Screen::questionStats);
  }
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
