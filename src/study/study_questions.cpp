#include "study/study_questions.h"

#include <algorithm>
#include <utility>

#include "model/texts.h"
#include "study/all_cores.h"
#include "study/found_files.h"
#include "study/grouped_number.h"

namespace orvex {

void StudyQuestions::Search(Source& source) const {
  source.found.clear();
  for (std::size_t i = 0; i < source.questions.Count(); ++i) {
    if (search_.Passes(source.questions, i)) source.found.push_back(static_cast<std::uint32_t>(i));
  }
}

void StudyQuestions::Put(const std::string& key, const StudyRow& row, QuestionBlock questions) {
  Drop(key);
  const auto at = sources_.try_emplace(key, Source{key, &row, std::move(questions), {}}).first;
  all_ += at->second.questions.Count();
  Search(at->second);
  NoteChange(key);
}

void StudyQuestions::Drop(const std::string& key) {
  const auto at = sources_.find(key);
  if (at == sources_.end()) return;
  all_ -= at->second.questions.Count();
  dropped_.push_back(sources_.extract(at));
  NoteChange(key);
}

void StudyQuestions::NoteChange(const std::string& key) {
  if (!changedFrom_ || key < *changedFrom_) changedFrom_ = key;
}

void StudyQuestions::Arrange() {
  if (!changedFrom_) return;
  const std::string from = *std::exchange(changedFrom_, std::nullopt);
  const auto stay = std::ranges::lower_bound(shown_, from, {}, &Source::key) - shown_.begin();
  shown_.resize(static_cast<std::size_t>(stay));
  starts_.resize(shown_.size());
  std::size_t end = Count();
  for (auto at = sources_.lower_bound(from); at != sources_.end(); ++at) {
    const Source& source = at->second;
    if (source.found.empty()) continue;
    end += source.found.size();
    shown_.push_back(&source);
    starts_.push_back(end);
  }
  dropped_.clear();
}

void StudyQuestions::SetFilter(std::string filter) {
  filter_ = std::move(filter);
  search_ = QuestionSearch(filter_);
  std::vector<Source*> sources;
  sources.reserve(sources_.size());
  for (auto& [key, source] : sources_) sources.push_back(&source);
  OnAllCores(sources.size(), [&](std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end; ++i) Search(*sources[i]);
  });
  changedFrom_ = "";
  Arrange();
}

QuestionRow StudyQuestions::Row(std::size_t position) const {
  const auto end = std::ranges::upper_bound(starts_, position);
  const Source& source = *shown_[static_cast<std::size_t>(end - starts_.begin())];
  const QuestionBlock& questions = source.questions;
  const std::size_t i = source.found[source.found.size() - (*end - position)];
  QuestionRow row{.observation = source.row,
                  .text = questions.Text(i),
                  .codes = {},
                  .episode = questions.At(i).episode,
                  .number = questions.At(i).number,
                  .activity = questions.At(i).activity};
  for (const Dimension dimension : kDimensions) {
    row.codes[dimension] = questions.LetterOf(i, dimension);
  }
  row.codes[Dimension::respondName] = questions.Respondent(i);
  return row;
}

std::optional<std::size_t> StudyQuestions::Find(const std::string& observation, int episode,
                                                int number) const {
  const auto source = sources_.find(NameKey(observation));
  if (source == sources_.end()) return std::nullopt;
  if (source->second.found.empty()) return std::nullopt;
  const auto shown = std::ranges::lower_bound(shown_, source->first, {}, &Source::key);
  const auto& found = source->second.found;
  const auto at = std::ranges::find_if(found, [&](std::uint32_t i) {
    const QuestionBlock::Question& question = source->second.questions.At(i);
    return question.episode == episode && question.number == number;
  });
  if (at == found.end()) return std::nullopt;
  const std::size_t end = starts_[static_cast<std::size_t>(shown - shown_.begin())];
  return end - static_cast<std::size_t>(found.end() - at);
}

std::string StudyQuestions::CountText() const {
  return Say(Text::questionsShown, {Grouped(Count()), Grouped(all_)});
}

}  // namespace orvex
