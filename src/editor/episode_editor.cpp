#include "editor/episode_editor.h"

#include <algorithm>
#include <utility>

#include "desk/prompter.h"
#include "desk/proof.h"
#include "desk/selected_rows.h"
#include "editor/segment_recoding.h"
#include "model/activities.h"
#include "model/program.h"
#include "model/texts.h"
#include "store/text_encoding.h"

namespace orvex {

EpisodeEditor::EpisodeEditor(const Services& services, LoadedEpisodes loaded)
    : services_(services), file_(std::move(loaded.file)) {
  Start(std::move(loaded.episodes), loaded.repaired);
}

EpisodeList& EpisodeEditor::Episodes() const {
  return services_.program.Episodes;
}

/// The current episode; null if there is none.
Episode* EpisodeEditor::FindEpisode() const {
  return ItemAt(Episodes(), selection_.episode);
}

/// The current segment; null if there is none.
SegmentData* EpisodeEditor::FindSegment() const {
  Episode* const episode = FindEpisode();
  return episode ? ItemAt(episode->segments, selection_.segment) : nullptr;
}

// What is shown.

std::vector<std::string> EpisodeEditor::EpisodeRows() const {
  return EpisodeRowsOf(Episodes());
}

std::vector<std::string> EpisodeEditor::SegmentRows() const {
  const Episode* const episode = FindEpisode();
  return episode ? SegmentRowsOf(*episode) : std::vector<std::string>();
}

EpisodeView EpisodeEditor::View() const {
  EpisodeView view = ViewOf(Episodes(), selection_.Current(), saysReview_);
  if (typedDuration_) view.segmentDuration = *typedDuration_;
  return view;
}

SegmentCodingView EpisodeEditor::Coding() const {
  const SegmentData* const segment = FindSegment();
  return segment ? CodingViewOf(*segment) : SegmentCodingView{};
}

PossibleEdits EpisodeEditor::Possible() const {
  return PossibleEditsOf(Episodes(), selection_);
}

bool EpisodeEditor::IsCut(int segment) const {
  return cut_ && cut_->episode == selection_.episode &&
         std::ranges::binary_search(cut_->segments, segment);
}

// Showing.

void EpisodeEditor::SelectEpisodes(Positions episodes) {
  selection_.episodes = SelectedRows(std::move(episodes), Episodes().size());
}

void EpisodeEditor::SelectSegments(Positions segments) {
  const Episode* const episode = FindEpisode();
  selection_.segments = SelectedRows(std::move(segments), episode ? episode->segments.size() : 0);
}

void EpisodeEditor::ShowEpisode(int episode) {
  if (episode == selection_.episode || !ItemAt(Episodes(), episode)) return;
  selection_.episode = episode;
  SelectNoSegment();
  saysReview_ = true;
}

bool EpisodeEditor::HasQuestion(int episode, int question, std::string_view text) const {
  const Episode* const asked = ItemAt(Episodes(), episode);
  const questionInfo* const found = asked ? ItemAt(asked->questions, question) : nullptr;
  return found && found->question == text;
}

/// After the list of segments was refilled: nothing is selected, and the first one is shown.
void EpisodeEditor::SelectNoSegment() {
  selection_.segments.clear();
  selection_.segment = ListSelection::kNothing;
  ShowSegment(1);
}

/// After the list of episodes was refilled: nothing is selected, and none is shown.
void EpisodeEditor::SelectNoEpisode() {
  selection_.episodes.clear();
  selection_.episode = ListSelection::kNothing;
  SelectNoSegment();
}

void EpisodeEditor::ShowSegment(int segment) {
  const Episode* const episode = FindEpisode();
  const bool isThere = episode && ItemAt(episode->segments, segment);
  if (segment == selection_.segment || (!isThere && segment != 1)) return;
  selection_.segment = segment;
  LeaveBox();
  saysReview_ = false;
}

void EpisodeEditor::SelectEpisode(int episode) {
  SelectEpisodes({episode});
  selection_.episode = ListSelection::kNothing;
  ShowEpisode(episode);
}

void EpisodeEditor::SelectSegment(int segment) {
  SelectSegments({segment});
  selection_.segment = ListSelection::kNothing;
  ShowSegment(segment);
}

/// Refills both lists and shows `place`, or the nearest place that exists.
void EpisodeEditor::ShowPlace(Place place) {
  SelectNoEpisode();
  SelectEpisode(std::min(place.episode, static_cast<int>(Episodes().size())));
  const Episode* const episode = FindEpisode();
  if (episode && ItemAt(episode->segments, place.segment)) SelectSegment(place.segment);
}

void EpisodeEditor::Activate() {
  RecordOutsideChanges();
  saysReview_ = false;
}

// Typing and coding.

void EpisodeEditor::TypeDescription(std::string_view text) {
  Episode* const episode = FindEpisode();
  if (!episode) return;
  episode->Descript = OneLine(text);
  RecordHere(Text::editDescription, Typing::goesOn);
}

void EpisodeEditor::TypeAbout(std::string_view text) {
  SegmentData* const segment = FindSegment();
  if (!segment || !ActivityOf(segment->activityNum).carriesAbout) return;
  segment->aboutdata = OneLine(text);
  RecordHere(Text::editAbout, Typing::goesOn);
}

void EpisodeEditor::TypeSegmentDuration(std::string_view text) {
  SegmentData* const segment = FindSegment();
  if (!segment) return;
  typedDuration_ = text;
  SetSegmentDuration(*segment, text);
  RecordHere(Text::changeDuration, Typing::goesOn);
}

void EpisodeEditor::LeaveBox() {
  history_.EndTyping();
  typedDuration_.reset();
}

void EpisodeEditor::ChooseActivity(int position) {
  SegmentData* const segment = FindSegment();
  if (segment && IsActivity(position + 1)) {
    RecodeSegment(*segment, position + 1);
    RecordHere(Text::changeActivity);
  }
  if (selection_.segment == 1) saysReview_ = true;
}

void EpisodeEditor::Recode(SubCode code, int position) {
  SegmentData* const segment = FindSegment();
  if (segment && orvex::Recode(*segment, code, position)) RecordHere(RecodingName(code));
}

/// Records a change of the current episode or segment. With `Typing::goesOn`, it joins the step of
/// what was typed into the same box before.
void EpisodeEditor::RecordHere(Text name, Typing typing) {
  const Place place = selection_.Current();
  history_.Record(Episodes(), {.name = Say(name), .before = place, .after = place},
                  typing == Typing::goesOn ? Say(name) : "");
}

// Structure.

/// Changes the structure. Returns nothing if nothing changed or the change would not fit.
template <typename Edit>
std::optional<Place> EpisodeEditor::TryEdit(Edit edit) {
  try {
    return edit(Episodes());
  } catch (const DoesNotFit& refused) {
    services_.prompter.Tell(refused.what());
    return std::nullopt;
  }
}

void EpisodeEditor::SplitSegment() {
  const SegmentData* const segment = FindSegment();
  if (!segment || !Possible().splitSegment) return;
  const auto seconds = services_.prompter.AskDivision(DivisibleSeconds(*segment));
  if (!seconds) return;
  const auto next = TryEdit([&](EpisodeList& episodes) {
    return orvex::SplitSegment(episodes, selection_.Current(), *seconds);
  });
  Restructured(Text::splitSegment, next, Refill::segments);
}

void EpisodeEditor::MergeSegments() {
  const auto next = TryEdit([this](EpisodeList& episodes) {
    return orvex::MergeSegments(episodes, selection_.episode, selection_.segments);
  });
  Restructured(Text::mergeSegments, next, Refill::segments);
}

void EpisodeEditor::SplitEpisode() {
  const Episode* const episode = FindEpisode();
  const Positions& segments = selection_.segments;
  if (!episode || selection_.episodes != Positions{selection_.episode}) return;
  // Ask for the questions only if the episode can be split.
  if (segments.empty() || segments.size() == episode->segments.size()) return;
  Positions questions;
  if (!episode->questions.empty()) {
    auto chosen = services_.prompter.AskQuestions(*episode);
    if (!chosen) return;
    questions = std::move(*chosen);
  }
  const auto next = TryEdit([&](EpisodeList& episodes) {
    return orvex::SplitEpisode(episodes, selection_.episode, segments, std::move(questions));
  });
  Restructured(Text::splitEpisode, next, Refill::episodes);
}

void EpisodeEditor::MergeEpisodes() {
  const auto next = TryEdit([this](EpisodeList& episodes) {
    return orvex::MergeEpisodes(episodes, selection_.episodes);
  });
  Restructured(Text::mergeEpisodes, next, Refill::episodes);
}

void EpisodeEditor::MoveSegments(int toEpisode) {
  const std::size_t count = Episodes().size();
  const auto next = TryEdit([this, toEpisode](EpisodeList& episodes) {
    return orvex::MoveSegments(episodes, selection_.episode, selection_.segments, toEpisode);
  });
  Restructured(Text::moveSegments, next,
               Episodes().size() == count ? Refill::segments : Refill::episodes);
}

void EpisodeEditor::ReorderSegments(int target) {
  if (target == selection_.segment) return;
  const auto next =
      orvex::ReorderSegments(Episodes(), selection_.episode, selection_.segments, target);
  Restructured(Text::reorderSegments, next, Refill::segments);
}

void EpisodeEditor::Cut() {
  if (!selection_.segments.empty()) cut_ = {selection_.episode, selection_.segments};
}

void EpisodeEditor::PasteOntoEpisode(int episode) {
  const Episode* const receiving = ItemAt(Episodes(), episode);
  if (!cut_ || !receiving) return;
  const int end = static_cast<int>(receiving->segments.size()) + 1;
  if (episode == cut_->episode) {
    Restructured(Text::pasteSegments,
                 InsertSegments(Episodes(), episode, cut_->segments, {episode, end}),
                 Refill::segments);
    return;
  }
  const bool laterEpisode = episode > cut_->episode;
  Place pasted = {episode, laterEpisode ? 1 : end};
  const std::size_t count = Episodes().size();
  const auto next = TryEdit([this, episode](EpisodeList& episodes) {
    return orvex::MoveSegments(episodes, cut_->episode, cut_->segments, episode);
  });
  if (!next) return;
  if (laterEpisode && Episodes().size() < count) --pasted.episode;
  Restructured(Text::pasteSegments, pasted, Refill::episodes);
}

void EpisodeEditor::PasteBeforeSegment(int segment) {
  if (!cut_) return;
  const auto next = TryEdit([this, segment](EpisodeList& episodes) {
    return InsertSegments(episodes, cut_->episode, cut_->segments, {selection_.episode, segment});
  });
  Restructured(Text::pasteSegments, next, Refill::episodes);
}

/// Shows and records a change of structure. Does nothing without `next`, as then nothing changed.
/// `refill` says whether both lists are refilled or only that of the segments.
void EpisodeEditor::Restructured(Text name, const std::optional<Place>& next, Refill refill) {
  if (!next) return;
  const Place before = selection_.Current();
  cut_.reset();
  if (refill == Refill::episodes) {
    ShowPlace(*next);
  } else {
    SelectNoSegment();
    if (next->segment >= 1) SelectSegment(next->segment);
  }
  history_.Record(Episodes(), {.name = Say(name), .before = before, .after = selection_.Current()});
}

// Undo and redo.

const EditStep* EpisodeEditor::NextStep(Way way) const {
  return way == Way::undo ? history_.NextUndo() : history_.NextRedo();
}

std::string EpisodeEditor::StepName(Way way) const {
  const EditStep* const step = NextStep(way);
  return step ? step->name : "";
}

void EpisodeEditor::TakeStep(Way way) {
  RecordOutsideChanges();
  const EditStep* const step = NextStep(way);
  if (!step) return;
  const Place place = way == Way::undo ? step->before : step->after;
  way == Way::undo ? history_.Undo(Episodes()) : history_.Redo(Episodes());
  cut_.reset();
  ShowPlace(place);
}

/// Records what other forms have changed in the same episodes.
void EpisodeEditor::RecordOutsideChanges() {
  RecordHere(Text::editQuestions);
}

void EpisodeEditor::RecordQuestionChange(const QuestionChange& change) {
  const auto [episode, question] = change.place;
  const Place place = {episode, 1, std::max(question, 1)};
  history_.Record(Episodes(), {.name = change.name, .before = place, .after = place},
                  change.typing);
}

/// The next step if it is one of the question editor's; null otherwise.
const EditStep* EpisodeEditor::NextStepOfQuestions(Way way) const {
  const EditStep* const step = NextStep(way);
  return step && step->before.question != 0 ? step : nullptr;
}

std::string EpisodeEditor::NextQuestionStep(Way way) const {
  const EditStep* const step = NextStepOfQuestions(way);
  return step ? Say(way == Way::undo ? Text::undoes : Text::redoes, {step->name}) : "";
}

std::optional<QuestionPlace> EpisodeEditor::TakeQuestionStep(Way way) {
  const EditStep* const step = NextStepOfQuestions(way);
  if (!step) return std::nullopt;
  const QuestionPlace place = {step->before.episode, step->before.question};
  TakeStep(way);
  return place;
}

// The file, and the other forms.

/// Starts editing the episodes just loaded.
void EpisodeEditor::Start(EpisodeList episodes, bool repaired) {
  services_.program.Episodes = std::move(episodes);
  services_.program.ProofEp = 0;
  services_.program.ProofQ = 0;
  history_.Start(Episodes(), !repaired);
  kept_ = history_.Changes();
  cut_.reset();
  SelectNoEpisode();
  ShowEpisode(1);
}

void EpisodeEditor::Keep() {
  if (std::exchange(kept_, history_.Changes()) == history_.Changes()) return file_.RetryKeeping();
  file_.Keep(Modified() ? &Episodes() : nullptr);
}

void EpisodeEditor::AwaitKept() {
  Keep();
  file_.AwaitKept();
}

bool EpisodeEditor::Save() {
  RecordOutsideChanges();
  LeaveBox();
  if (!file_.Save(services_, Episodes())) return false;
  history_.MarkSaved();
  return true;
}

/// Leaves the screen to a form that has just been shown.
void EpisodeEditor::GiveWay() {
  hasBeenLeft_ = true;
  services_.screens.Hide(Screen::episodeEditor);
}

void EpisodeEditor::EditQuestions() {
  if (!FindEpisode()) return;
  LeaveBox();
  services_.screens.ShowQuestionEditor(EditorCaller::episodeEditor, false);
  GiveWay();
}

void EpisodeEditor::Proof() {
  LeaveBox();
  if (!FindNextGap(services_.program, services_.prompter)) return;
  services_.screens.ShowQuestionEditor(EditorCaller::episodeEditor, true);
  GiveWay();
}

void EpisodeEditor::ShowReport(Screen report) {
  const bool isOfQuestions = report == Screen::questionStats || report == Screen::questionPlot;
  if (isOfQuestions && !View().hasQuestions) return;
  LeaveBox();
  services_.screens.Show(report);
  GiveWay();
}

void EpisodeEditor::Quit() {
  LeaveBox();
  const Answer save =
      services_.prompter.Ask({.text = Say(Text::askSaveData),
                              .buttons = Buttons::yesNo,
                              .defaultAnswer = Modified() ? Answer::yes : Answer::no,
                              .dismissed = Answer::cancel});
  // Dismissing the question means staying. If saving fails, stay too, so that no changes are lost.
  if (save == Answer::cancel || (save == Answer::yes && !Save())) return;
  Answer another = Answer::no;
  if (!services_.screens.LeadsBack()) {
    another = services_.prompter.Ask({.text = Say(Text::askAnotherFile),
                                      .buttons = Buttons::yesNo,
                                      .defaultAnswer = Answer::no,
                                      .dismissed = Answer::cancel});
  }
  if (another == Answer::cancel) return;
  file_.StopKeeping();
  if (another != Answer::yes) return services_.screens.EndActivity();
  Forget();
  LoadAnother();
}

/// Clears everything, so that nothing of the old file shows while the user chooses another.
void EpisodeEditor::Forget() {
  Episodes().clear();
  history_.Start(Episodes(), true);
  cut_.reset();
  SelectNoEpisode();
}

void EpisodeEditor::LoadAnother() {
  for (;;) {
    const auto path = ChooseEpisodeFile(services_);
    if (path.empty()) return services_.screens.EndProgram();
    LoadOutcome outcome = LoadEpisodes(services_, path);
    if (outcome.loaded) {
      file_ = std::move(outcome.loaded->file);
      return Start(std::move(outcome.loaded->episodes), outcome.loaded->repaired);
    }
    if (outcome.isRefused) return;
  }
}

}  // namespace orvex
