#include "study/question_block.h"

#include <algorithm>

#include "study/folded_text.h"

namespace orvex {
namespace {

constexpr unsigned kBits = 2;
constexpr PackedCodes kOfOne = (1U << kBits) - 1;
static_assert(kLetteredDimensions.size() * kBits <= 8 * sizeof(PackedCodes));
static_assert(std::ranges::all_of(kDimensions, [](Dimension dimension) {
  return SchemeOf(dimension).letters.size() <= kOfOne;
}));

/// How far the bits of `dimension` are from the lowest.
unsigned ShiftOf(Dimension dimension) {
  const auto at = std::ranges::find(kLetteredDimensions, dimension);
  return kBits * static_cast<unsigned>(at - kLetteredDimensions.begin());
}

/// `letter` as packed; none of a dimension's counts as none.
PackedCodes Packed(Dimension dimension, std::string_view letter) {
  const std::size_t position =
      letter.empty() ? std::string_view::npos : SchemeOf(dimension).letters.find(letter);
  const std::size_t code = position == std::string_view::npos ? 0 : position + 1;
  return static_cast<PackedCodes>(code << ShiftOf(dimension));
}

}  // namespace

CodeCondition ConditionOf(Dimension dimension, char letter) {
  return {static_cast<PackedCodes>(kOfOne << ShiftOf(dimension)),
          Packed(dimension, std::string_view(&letter, 1))};
}

QuestionBlock::QuestionBlock(const EpisodeList& episodes) {
  for (std::size_t ep = 0; ep < episodes.size(); ++ep) {
    for (std::size_t q = 0; q < episodes[ep].questions.size(); ++q) Add(episodes[ep], ep, q);
  }
  questions_.push_back({.text = static_cast<std::uint32_t>(texts_.size())});
  questions_.shrink_to_fit();
  texts_.shrink_to_fit();
  folded_ = Folded(texts_);
}

void QuestionBlock::Add(const Episode& episode, std::size_t number, std::size_t question) {
  const questionInfo& asked = episode.questions[question];
  const SegmentData* segment = SegmentOf(episode, asked);
  Question& added = questions_.emplace_back();
  added.text = static_cast<std::uint32_t>(texts_.size());
  texts_ += asked.question;
  texts_ += '\n';
  added.respondent = static_cast<std::uint32_t>(texts_.size());
  texts_ += asked.respondName;
  added.episode = static_cast<std::uint16_t>(number + 1);
  added.number = static_cast<std::uint16_t>(question + 1);
  for (const Dimension dimension : kLetteredDimensions) {
    added.codes = static_cast<PackedCodes>(added.codes | Packed(dimension, asked.Text(dimension)));
  }
  if (segment) added.activity = segment->activityNum;
}

std::string_view QuestionBlock::Text(std::size_t i) const {
  const Question& question = questions_[i];
  return std::string_view(texts_).substr(question.text, question.respondent - 1 - question.text);
}

std::string_view QuestionBlock::Respondent(std::size_t i) const {
  const Question& question = questions_[i];
  return std::string_view(texts_).substr(question.respondent,
                                         questions_[i + 1].text - question.respondent);
}

std::string_view QuestionBlock::LetterOf(std::size_t i, Dimension dimension) const {
  if (!SchemeOf(dimension).HasLetters()) return {};
  const unsigned code = questions_[i].codes >> ShiftOf(dimension) & kOfOne;
  return code == 0 ? std::string_view() : SchemeOf(dimension).letters.substr(code - 1, 1);
}

std::string_view QuestionBlock::Searched(std::size_t i) const {
  return std::string_view(folded_).substr(questions_[i].text,
                                          questions_[i + 1].text - questions_[i].text);
}

}  // namespace orvex
