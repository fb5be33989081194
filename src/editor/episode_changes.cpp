#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "desk/prompter.h"
#include "editor/episode_editor.h"
#include "model/program.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

/// A position among `count` as a code; anything else is no coding.
std::int16_t CodeAt(int position, std::size_t count) {
  const bool isThere = position >= 0 && position < static_cast<int>(count);
  return isThere ? static_cast<std::int16_t>(position) : kUncoded;
}

}  // namespace

void EpisodeEditor::TypeDescription(std::string_view text) {
  Episode* const episode = Shown();
  if (!episode) return;
  episode->Descript = OneLine(text);
  RecordTyping("Edit description");
}

void EpisodeEditor::TypeAbout(std::string_view text) {
  SegmentData* const segment = ShownSegment();
  if (!segment || !ActivityOf(segment->activityNum).carriesAbout) return;
  segment->aboutdata = OneLine(text);
  RecordTyping("Edit about text");
}

void EpisodeEditor::TypeSegmentDuration(std::string_view text) {
  SegmentData* const segment = ShownSegment();
  if (!segment) return;
  segmentDuration_ = text;
  SetSegmentDuration(*segment, text);
  RecordTyping("Change duration");
}

void EpisodeEditor::RecordTyping(const char* name) {
  history_.Record(Episodes(), {.name = name, .before = ShownPlace(), .after = ShownPlace()}, name);
}

void EpisodeEditor::ChooseActivity(int position) {
  const int activity = position + 1;
  Recode("Change activity", IsActivity(activity),
         [activity](SegmentData& segment) { RecodeSegment(segment, activity); });
  if (currentSegment_ == 1) reviewShown_ = true;
}

void EpisodeEditor::ChooseSubCategory(int position) {
  const SegmentCodingView shown = Coding();
  Recode("Change subcategory", shown.showsSubCategory, [&](SegmentData& segment) {
    segment.fSubCat = CodeAt(position, shown.subCategories.size());
  });
}

void EpisodeEditor::ChooseSource(int position) {
  Recode("Change source", Coding().showsSeatwork, [position](SegmentData& segment) {
    segment.src = CodeAt(position, SchemeOf(SubCode::seatworkSource).values.size());
  });
}

void EpisodeEditor::ChooseCognitiveLevel(int position) {
  Recode("Change cognitive level", Coding().showsSeatwork, [position](SegmentData& segment) {
    segment.coglvl = CodeAt(position, SchemeOf(SubCode::seatworkLevel).values.size());
  });
}

void EpisodeEditor::ChooseSeatOrganization(int position) {
  Recode("Change organization", Coding().showsSeatwork,
         [position](SegmentData& segment) { segment.org = position == 1 ? 1 : 0; });
}

void EpisodeEditor::ChooseGroup(int position) {
  Recode("Change group or solo", Coding().showsPresentation,
         [position](SegmentData& segment) { segment.grpSolo = position == 0 ? 0 : 1; });
}

void EpisodeEditor::ChooseOrganization(int position) {
  Recode("Change organization", Coding().showsPresentation,
         [position](SegmentData& segment) { segment.org = position == 0 ? 0 : 1; });
}

void EpisodeEditor::ChoosePreparation(int position) {
  constexpr std::size_t kOptions = 2;
  Recode("Change preparation", Coding().showsPresentation,
         [position](SegmentData& segment) { segment.prep = CodeAt(position, kOptions); });
}

template <typename Change>
void EpisodeEditor::Recode(const char* name, bool shown, Change change) {
  SegmentData* const segment = ShownSegment();
  if (!segment || !shown) return;
  change(*segment);
  history_.Record(Episodes(), {.name = name, .before = ShownPlace(), .after = ShownPlace()});
}

/// Changes the structure; nothing when there was no change, or none that fits.
template <typename Edit>
std::optional<Place> EpisodeEditor::TryEdit(Edit edit) {
  try {
    return edit(Episodes());
  } catch (const DoesNotFit& refused) {
    services_.prompter.Tell(refused.what());
    return std::nullopt;
  }
}

void EpisodeEditor::cmdSplitSg_Click() {
  const SegmentData* const segment = ShownSegment();
  if (!segment || !CanSplitSegment()) return;
  const auto seconds = services_.prompter.AskDivision(DivisibleSeconds(*segment));
  if (!seconds) return;
  const auto next = TryEdit(
      [&](EpisodeList& episodes) { return SplitSegment(episodes, ShownPlace(), *seconds); });
  Restructured("Split segment", next, Refill::segments);
}

void EpisodeEditor::cmdMergeSg_Click() {
  const auto next = TryEdit([this](EpisodeList& episodes) {
    return MergeSegments(episodes, currentEpisode_, selectedSegments_);
  });
  Restructured("Merge segments", next, Refill::segments);
}

void EpisodeEditor::cmdSplitEp_Click() {
  const Episode* const episode = Shown();
  if (!episode || selectedEpisodes_ != Positions{currentEpisode_}) return;
  // The questions are only asked for when the episode can be split.
  if (selectedSegments_.empty() || selectedSegments_.size() == episode->segments.size()) return;
  Positions questions;
  if (!episode->questions.empty()) {
    auto chosen = services_.prompter.AskQuestions(*episode);
    if (!chosen) return;
    questions = std::move(*chosen);
  }
  const auto next = TryEdit([&](EpisodeList& episodes) {
    return SplitEpisode(episodes, currentEpisode_, selectedSegments_, std::move(questions));
  });
  Restructured("Split episode", next, Refill::episodes);
}

void EpisodeEditor::cmdMergeEp_Click() {
  const auto next =
      TryEdit([this](EpisodeList& episodes) { return MergeEpisodes(episodes, selectedEpisodes_); });
  Restructured("Merge episodes", next, Refill::episodes);
}

void EpisodeEditor::DropOnEpisode(int k) {
  const std::size_t count = Episodes().size();
  const auto next = TryEdit([this, k](EpisodeList& episodes) {
    return MoveSegments(episodes, currentEpisode_, selectedSegments_, k);
  });
  Restructured("Move segments", next,
               Episodes().size() == count ? Refill::segments : Refill::episodes);
}

void EpisodeEditor::DropOnSegment(int j) {
  if (j == currentSegment_) return;
  Restructured("Reorder segments",
               ReorderSegments(Episodes(), currentEpisode_, selectedSegments_, j),
               Refill::segments);
}

void EpisodeEditor::Cut() {
  if (CanCut()) cut_ = {currentEpisode_, selectedSegments_};
}

bool EpisodeEditor::IsCut(int j) const {
  return cut_ && cut_->episode == currentEpisode_ && std::ranges::binary_search(cut_->segments, j);
}

void EpisodeEditor::PasteOntoEpisode(int k) {
  const Episode* const receiving = ItemAt(Episodes(), k);
  if (!cut_ || !receiving) return;
  if (k == cut_->episode) {
    const int end = static_cast<int>(receiving->segments.size()) + 1;
    Restructured("Paste segments", InsertSegments(Episodes(), k, cut_->segments, {k, end}),
                 Refill::segments);
    return;
  }
  const bool laterEpisode = k > cut_->episode;
  Place pasted = {k, laterEpisode ? 1 : static_cast<int>(receiving->segments.size()) + 1};
  const std::size_t count = Episodes().size();
  const auto next = TryEdit([this, k](EpisodeList& episodes) {
    return MoveSegments(episodes, cut_->episode, cut_->segments, k);
  });
  if (!next) return;
  if (laterEpisode && Episodes().size() < count) --pasted.episode;
  Restructured("Paste segments", pasted, Refill::episodes);
}

void EpisodeEditor::PasteBeforeSegment(int j) {
  if (!cut_) return;
  const auto next = TryEdit([this, j](EpisodeList& episodes) {
    return InsertSegments(episodes, cut_->episode, cut_->segments, {currentEpisode_, j});
  });
  Restructured("Paste segments", next, Refill::episodes);
}

/// Shows and records what a change of structure has made of the episodes; without `next` there was
/// none. The lists are filled anew, both or that of the segments.
void EpisodeEditor::Restructured(const char* name, const std::optional<Place>& next,
                                 Refill refill) {
  if (!next) return;
  const Place before = ShownPlace();
  cut_.reset();
  if (refill == Refill::episodes) {
    ShowEpisodes(*next);
  } else {
    FillSegmentList();
    if (next->segment >= 1) SelectSegment(next->segment);
  }
  history_.Record(Episodes(), {.name = name, .before = before, .after = ShownPlace()});
}

std::string EpisodeEditor::UndoName() const {
  const EditStep* const step = history_.NextUndo();
  return step ? step->name : "";
}

std::string EpisodeEditor::RedoName() const {
  const EditStep* const step = history_.NextRedo();
  return step ? step->name : "";
}

void EpisodeEditor::Undo() {
  RecordOutsideChanges();
  const EditStep* const step = history_.NextUndo();
  if (!step) return;
  const Place before = step->before;
  history_.Undo(Episodes());
  cut_.reset();
  ShowEpisodes(before);
}

void EpisodeEditor::Redo() {
  RecordOutsideChanges();
  const EditStep* const step = history_.NextRedo();
  if (!step) return;
  const Place after = step->after;
  history_.Redo(Episodes());
  cut_.reset();
  ShowEpisodes(after);
}

void EpisodeEditor::RecordQuestionChange(const QuestionChange& change) {
  const auto [episode, question] = change.place;
  const Place place = {episode, 1, std::max(question, 1)};
  history_.Record(Episodes(), {.name = change.name, .before = place, .after = place},
                  change.typing);
}

/// The step that is next, where it is one of the question editor's; null otherwise.
const EditStep* EpisodeEditor::NextOfQuestions(Way way) const {
  const EditStep* step = way == Way::undo ? history_.NextUndo() : history_.NextRedo();
  return step && step->before.question != 0 ? step : nullptr;
}

std::string EpisodeEditor::NextQuestionStep(Way way) const {
  const EditStep* step = NextOfQuestions(way);
  const char* verb = way == Way::undo ? "undoes \"" : "redoes \"";
  return step ? verb + step->name + "\"" : "";
}

std::optional<QuestionPlace> EpisodeEditor::TakeQuestionStep(Way way) {
  const EditStep* step = NextOfQuestions(way);
  if (!step) return std::nullopt;
  const QuestionPlace place = {step->before.episode, step->before.question};
  way == Way::undo ? Undo() : Redo();
  return place;
}

/// Whatever else works on the same episodes.
void EpisodeEditor::RecordOutsideChanges() {
  history_.Record(Episodes(),
                  {.name = "Edit questions", .before = ShownPlace(), .after = ShownPlace()});
}

}  // namespace orvex
