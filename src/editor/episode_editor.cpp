#include "editor/episode_editor.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "model/activity_label.h"
#include "model/coding_scheme.h"
#include "model/duration_text.h"
#include "model/program.h"
#include "model/shortened.h"
#include "model/version.h"

namespace orvex {
namespace {

/// `selected` as a list holds it: each of its rows once, in ascending order.
Positions Selection(Positions selected, std::size_t rows) {
  std::ranges::sort(selected);
  const auto doubled = std::ranges::unique(selected);
  selected.erase(doubled.begin(), doubled.end());
  const int count = static_cast<int>(rows);
  std::erase_if(selected, [count](int row) { return row < 1 || row > count; });
  return selected;
}

}  // namespace

EpisodeEditor::EpisodeEditor(const Services& services, OpenedFile opened)
    : services_(services), file_(opened.file) {
  Load(std::move(opened));
}

void EpisodeEditor::Load(OpenedFile opened) {
  services_.program.Episodes = std::move(opened.episodes);
  services_.program.ProofEp = 0;
  services_.program.ProofQ = 0;
  file_ = std::move(opened.file);
  history_.Start(Episodes(), !opened.repaired);
  keeper_ = std::move(opened.keeper);
  kept_ = history_.Changes();
  cut_.reset();
  FillEpisodeList();
  currentEpisode_ = -1;
  FillSegmentList();
  GetEpisode(1);
}

std::string EpisodeEditor::Caption() const {
  return "Orvex " + VersionText() + " Episode Editor";
}

std::string EpisodeEditor::ObserverText() const {
  return "Observer: " + file_.Header().identity.Initials;
}

std::string EpisodeEditor::DateText() const {
  return "Date of Observation: " + file_.Header().ObservDate;
}

std::string EpisodeEditor::TotalText() const {
  const std::size_t count = Episodes().size();
  return "Total: " + std::to_string(count) + (count > 1 ? " Episodes" : " Episode");
}

std::string EpisodeEditor::FileText() const {
  return "File: " + file_.Path().string();
}

EpisodeList& EpisodeEditor::Episodes() const {
  return services_.program.Episodes;
}

Episode* EpisodeEditor::Shown() const {
  return ItemAt(Episodes(), currentEpisode_);
}

SegmentData* EpisodeEditor::ShownSegment() const {
  Episode* const episode = Shown();
  return episode ? ItemAt(episode->segments, currentSegment_) : nullptr;
}

std::vector<std::string> EpisodeEditor::EpisodeRows() const {
  std::vector<std::string> rows;
  rows.reserve(Episodes().size());
  for (const Episode& episode : Episodes()) {
    rows.push_back(std::to_string(rows.size() + 1) + ". " + Shortened(episode.Descript));
  }
  return rows;
}

std::vector<std::string> EpisodeEditor::SegmentRows() const {
  std::vector<std::string> rows;
  const Episode* const episode = Shown();
  if (!episode) return rows;
  rows.reserve(episode->segments.size());
  for (const SegmentData& segment : episode->segments) {
    rows.push_back(std::to_string(rows.size() + 1) + ". " + ActivityName(segment.activityNum));
  }
  return rows;
}

const std::string& EpisodeEditor::Description() const {
  static const std::string kNone;
  const Episode* const episode = Shown();
  return episode ? episode->Descript : kNone;
}

std::string EpisodeEditor::ActivityText() const {
  const Episode* const episode = Shown();
  return episode ? ActivityLabel(*episode, reviewShown_) : "";
}

std::string EpisodeEditor::SpellsText() const {
  const Episode* const episode = Shown();
  const std::size_t spells = episode ? FindDialogicSpells(episode->questions).size() : 0;
  return std::to_string(spells) + " dialogic spell(s)";
}

std::string EpisodeEditor::DurationText() const {
  const Episode* const episode = Shown();
  return DurationInWords(episode ? episode->duration() : 0);
}

std::string EpisodeEditor::SegmentCountText() const {
  const Episode* const episode = Shown();
  const std::size_t count = episode ? episode->segments.size() : 0;
  return std::to_string(count) + (count > 1 ? " Segments" : " Segment");
}

std::string EpisodeEditor::SegmentDurationLabel() const {
  if (!HasSegment()) return "N/A";
  return "Duration of segment " + std::to_string(currentSegment_) + ":";
}

SegmentCodingView EpisodeEditor::Coding() const {
  const SegmentData* const segment = ShownSegment();
  return segment ? CodingViewOf(*segment) : SegmentCodingView{};
}

bool EpisodeEditor::CanSplitSegment() const {
  return selectedSegments_.size() == 1;
}

std::string EpisodeEditor::SplitSegmentHint() const {
  const SegmentData* const segment = ShownSegment();
  if (!segment || !CanSplitSegment()) return "";
  return "Splits segment " + std::to_string(currentSegment_) + ". " +
         ActivityName(segment->activityNum);
}

bool EpisodeEditor::CanMergeSegments() const {
  return !CanSplitSegment();
}

bool EpisodeEditor::CanSplitEpisode() const {
  const Episode* const episode = Shown();
  return !CanMergeEpisodes() && episode && episode->segments.size() >= 2;
}

bool EpisodeEditor::CanMergeEpisodes() const {
  return selectedEpisodes_.size() != 1;
}

bool EpisodeEditor::HasQuestions() const {
  const Episode* const episode = Shown();
  return episode && !episode->questions.empty();
}

void EpisodeEditor::SetSelectedEpisodes(Positions selected) {
  selectedEpisodes_ = Selection(std::move(selected), Episodes().size());
}

void EpisodeEditor::SetSelectedSegments(Positions selected) {
  const Episode* const episode = Shown();
  selectedSegments_ = Selection(std::move(selected), episode ? episode->segments.size() : 0);
}

void EpisodeEditor::GetEpisode(int k) {
  if (k == currentEpisode_ || !ItemAt(Episodes(), k)) return;
  currentEpisode_ = k;
  FillSegmentList();
  reviewShown_ = true;
}

void EpisodeEditor::SelectEpisode(int k) {
  SetSelectedEpisodes({k});
  currentEpisode_ = -1;
  GetEpisode(k);
}

void EpisodeEditor::FillSegmentList() {
  selectedSegments_.clear();
  currentSegment_ = -1;
  ShowSegment(1);
}

void EpisodeEditor::ShowSegment(int j) {
  const Episode* const episode = Shown();
  const bool isThere = episode && ItemAt(episode->segments, j);
  if (j == currentSegment_ || (!isThere && j != 1)) return;
  currentSegment_ = j;
  LeaveBox();
  UpdateCmdButtonStatus();
}

void EpisodeEditor::SelectSegment(int j) {
  SetSelectedSegments({j});
  currentSegment_ = -1;
  ShowSegment(j);
}

void EpisodeEditor::ShowDuration() {
  const SegmentData* const segment = ShownSegment();
  segmentDuration_ = segment ? WholeSecondsText(static_cast<double>(segment->duration)) : "N/A";
}

/// Fills both lists anew and shows `place`, or what is nearest to it.
void EpisodeEditor::ShowEpisodes(Place place) {
  FillEpisodeList();
  currentEpisode_ = -1;
  FillSegmentList();
  SelectEpisode(std::min(place.episode, static_cast<int>(Episodes().size())));
  const Episode* const episode = Shown();
  if (episode && ItemAt(episode->segments, place.segment)) SelectSegment(place.segment);
}

void EpisodeEditor::LeaveBox() {
  history_.EndTyping();
  ShowDuration();
}

}  // namespace orvex
