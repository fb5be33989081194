#include "study/question_search.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

#include "model/texts.h"
#include "study/folded_text.h"

namespace orvex {
namespace {

/// A name as it can be typed: folded, with a blank for each underscore.
std::string AsTyped(std::string_view name) {
  std::string typed = Folded(name);
  std::ranges::replace(typed, '_', ' ');
  return typed;
}

/// The dimension that `name` names or begins the name of; nothing when there is none or several.
std::optional<Dimension> DimensionNamed(const std::string& name) {
  constexpr std::size_t kLeast = 2;
  if (name.size() < kLeast) return std::nullopt;
  std::optional<Dimension> found;
  for (const Dimension dimension : kLetteredDimensions) {
    const DimensionScheme& scheme = SchemeOf(dimension);
    for (const std::string_view own : {scheme.variable, scheme.label}) {
      const std::string typed = AsTyped(own);
      if (typed == name) return dimension;
      if (!typed.starts_with(name)) continue;
      if (found && *found != dimension) return std::nullopt;
      found = dimension;
    }
  }
  return found;
}

std::optional<int> NumberIn(std::string_view word) {
  int number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return number;
}

/// "T, S".
std::string LettersOf(Dimension dimension) {
  std::string letters;
  for (const char letter : SchemeOf(dimension).letters) {
    if (!letters.empty()) letters += ", ";
    letters += letter;
  }
  return letters;
}

}  // namespace

/// Takes the words one by one, and where several of them name something, these together.
class QuestionSearchParser {
 public:
  QuestionSearchParser(QuestionSearch& search, std::string_view typed)
      : search_(search), words_(WordsOf(typed)) {}

  void Parse() {
    while (at_ < words_.size()) {
      if (words_[at_].quoted || !(TakeCode() || TakeActivity() || TakeEpisode())) {
        search_.words_.push_back(std::move(words_[at_++].text));
      }
    }
  }

 private:
  /// The most words that a name has.
  static constexpr std::size_t kMostWords = 5;

  /// The next `count` words as one name; nothing when there are fewer.
  std::optional<std::string> Name(std::size_t from, std::size_t count) const {
    if (from + count > words_.size()) return std::nullopt;
    std::string name;
    for (std::size_t i = from; i < from + count; ++i) {
      if (words_[i].quoted) return std::nullopt;
      if (i > from) name += ' ';
      name += AsTyped(words_[i].text);
    }
    return name;
  }

  bool TakeCode() {
    for (std::size_t count = 1; count <= kMostWords; ++count) {
      const auto name = Name(at_, count);
      if (!name || at_ + count == words_.size()) return false;
      const Word& letter = words_[at_ + count];
      if (letter.quoted || letter.text.size() != 1) continue;
      const auto dimension = DimensionNamed(*name);
      if (!dimension) return false;
      AddCode(*dimension, letter.text);
      at_ += count + 1;
      return true;
    }
    return false;
  }

  void AddCode(Dimension dimension, const std::string& letter) {
    const std::int16_t code = CodeOf(dimension, letter);
    if (code == kUncoded && letter != "-") {
      Trouble(Say(Text::noSuchCode, {SchemeOf(dimension).label, letter, LettersOf(dimension)}));
    } else {
      search_.codes_.push_back(
          ConditionOf(dimension, code == kUncoded ? '-' : LetterOf(dimension, code)[0]));
    }
  }

  bool TakeActivity() {
    if (words_[at_].text != "activity" || at_ + 1 == words_.size()) return false;
    if (const auto number = NumberIn(words_[at_ + 1].text)) {
      if (!IsActivity(*number)) Trouble(Say(Text::noSuchActivity, {*number}));
      Choose([&](const Activity& activity) { return activity.number == *number; });
      at_ += 2;
      return true;
    }
    for (std::size_t count = kMostWords; count > 0; --count) {
      const auto name = Name(at_ + 1, count);
      if (!name || !Choose([&](const Activity& activity) {
            return AsTyped(activity.name).starts_with(*name);
          })) {
        continue;
      }
      at_ += count + 1;
      return true;
    }
    return false;
  }

  /// Allows the activities that `fits` says, besides those allowed before. False if there are none.
  template <typename Fits>
  bool Choose(Fits fits) {
    bool any = false;
    for (const Activity& activity : kActivities) {
      if (!fits(activity)) continue;
      any = true;
      if (!search_.activities_) search_.activities_.emplace();
      search_.activities_->set(static_cast<std::size_t>(activity.number));
    }
    return any;
  }

  bool TakeEpisode() {
    if (words_[at_].text != "episode" || at_ + 1 == words_.size()) return false;
    const auto number = NumberIn(words_[at_ + 1].text);
    if (!number) return false;
    search_.episode_ = *number;
    at_ += 2;
    return true;
  }

  void Trouble(std::string text) {
    if (search_.trouble_.empty()) search_.trouble_ = std::move(text);
  }

  QuestionSearch& search_;
  std::vector<Word> words_;
  std::size_t at_ = 0;
};

QuestionSearch::QuestionSearch(std::string_view typed) {
  QuestionSearchParser(*this, typed).Parse();
}

bool QuestionSearch::Passes(const QuestionBlock& questions, std::size_t i) const {
  const QuestionBlock::Question& question = questions.At(i);
  if (!trouble_.empty() || (episode_ && question.episode != *episode_)) return false;
  if (!std::ranges::all_of(codes_, [&](const auto& code) { return code.HoldsFor(question.codes); }))
    return false;
  if (activities_ && !(IsActivity(question.activity) &&
                       activities_->test(static_cast<std::size_t>(question.activity)))) {
    return false;
  }
  const std::string_view searched = questions.Searched(i);
  return std::ranges::all_of(words_, [&](const std::string& word) {
    return searched.find(word) != std::string_view::npos;
  });
}

}  // namespace orvex
