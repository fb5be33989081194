#include "questions/question_editor.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "desk/prompter.h"
#include "desk/proof.h"
#include "model/program.h"
#include "model/validation.h"
#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "questions/question_layout.h"
#include "start/field_notes_file.h"
#include "store/session_log.h"

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
  if (live_) {
    offtask_.emplace(*live_);
    steps_ = &classSteps_.emplace(services, *live_);
  }
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
  const int number = rowNumbers_.At(i);
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

/// Shows a question of any episode, or the one that is nearest to its place.
void QuestionEditor::ShowPlace(const QuestionPlace& place) {
  if (place.episode != selEp_) ChooseEpisode(place.episode);
  const int count = QuestionCount();
  curQ_ = std::clamp(place.question, std::min(1, count), count);
  inserted_ = false;
  if (CanEdit()) return ShowQuestion(curQ_);
  UpdateEditState();
  focus_.Set(EditStart());
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
  reseqEnabled_ = rowNumbers_.LagBehind();
}

void QuestionEditor::ShowSegment() {
  segmentText_ = std::to_string(Shown().iSgQ);
}

void QuestionEditor::ClickRow(int i) {
  LeaveBox();
  if (i >= 1 && i <= QuestionCount()) ShowQuestion(i);
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

void QuestionEditor::Next() {
  Program& program = services_.program;
  program.ProofEp = selEp_;
  program.ProofQ = curQ_ + 1;
  if (!FindNextGap(program, services_.prompter)) return;
  ChooseEpisode(program.ProofEp);
  FocusGap();
}

/// The keyboard goes on where something is missing.
void QuestionEditor::FocusGap() {
  if (!CanEdit()) return;
  const MissingCodes missing = FindMissingCodes(Shown());
  if (missing.text) {
    focus_.Set(Control::txtQuestion);
  } else if (!missing.dimensions.empty()) {
    const bool name = missing.dimensions.front() == Dimension::respondName;
    focus_.Set(name ? Control::txtRespondName : Control::gap);
  }
}

void QuestionEditor::FieldNotes() {
  if (live_) {
    live_->cmdFieldNote_Click();
  } else {
    EditFieldNotesFile(services_);
  }
}

void QuestionEditor::Return() {
  if (live_) live_->History().ForgetRevisions();
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
