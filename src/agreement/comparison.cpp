#include "agreement/comparison.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "agreement/pair_table.h"
#include "agreement/same_questions.h"

namespace orvex {
namespace {

std::optional<std::size_t> CodeOf(const AskedQuestion* asked, std::size_t dimension) {
  if (asked == nullptr) return std::nullopt;
  return ComparedDimensions()[dimension].CodeOf(*asked->question);
}

std::vector<std::size_t> DifferingDimensions(const PairRow& row) {
  std::vector<std::size_t> differing;
  if (!row.pair.IsOfBoth()) return differing;
  const auto& dimensions = ComparedDimensions();
  for (std::size_t i = 0; i < dimensions.size(); ++i) {
    if (!dimensions[i].dimension) continue;
    if (CodeOf(row.first, i) != CodeOf(row.second, i)) differing.push_back(i);
  }
  return differing;
}

}  // namespace

Comparison::Comparison(ObservedClass first, ObservedClass second, const ComparisonOptions& options)
    : first_(std::move(first)),
      second_(std::move(second)),
      options_(options),
      questions_(QuestionsOf(first_, second_)) {
  Renew();
}

void Comparison::SetOffset(std::optional<int> seconds) {
  options_.offset = seconds;
  Renew();
}

void Comparison::SetTolerance(int seconds) {
  options_.tolerance = seconds;
  Renew();
}

bool Comparison::IsDisagreement(std::size_t row, std::optional<std::size_t> dimension) const {
  const PairRow& of = rows_[row];
  if (!dimension) return of.IsDisagreement();
  return of.pair.IsOfBoth() && CodeOf(of.first, *dimension) != CodeOf(of.second, *dimension);
}

std::vector<std::size_t> Comparison::Shown(bool disagreementsOnly,
                                           std::optional<std::size_t> dimension) const {
  std::vector<std::size_t> shown;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    const PairRow& of = rows_[row];
    const bool isOfDimension =
        !dimension ||
        (of.pair.IsOfBoth() && (CodeOf(of.first, *dimension) || CodeOf(of.second, *dimension)));
    if (isOfDimension && (!disagreementsOnly || IsDisagreement(row, dimension))) {
      shown.push_back(row);
    }
  }
  return shown;
}

std::vector<std::size_t> Comparison::RowsOfCell(std::size_t dimension, std::size_t first,
                                                std::size_t second) const {
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (CodeOf(rows_[row].first, dimension) == first &&
        CodeOf(rows_[row].second, dimension) == second) {
      rows.push_back(row);
    }
  }
  return rows;
}

std::optional<std::size_t> Comparison::NextDisagreement(
    std::size_t row, bool forward, std::optional<std::size_t> dimension) const {
  const std::vector<std::size_t> all = Shown(true, dimension);
  if (forward) {
    const auto next = std::ranges::upper_bound(all, row);
    return next == all.end() ? std::nullopt : std::optional(*next);
  }
  const auto next = std::ranges::lower_bound(all, row);
  return next == all.begin() ? std::nullopt : std::optional(*std::prev(next));
}

bool Comparison::CanPair(std::size_t row, std::size_t other) const {
  const auto [before, after] = std::minmax(row, other);
  const PairRow& one = rows_[before];
  const PairRow& two = rows_[after];
  if (one.pair.IsOfBoth() || two.pair.IsOfBoth()) return false;
  if (one.pair.first.has_value() == two.pair.first.has_value()) return false;
  const auto begin = rows_.begin() + static_cast<std::ptrdiff_t>(before);
  const auto end = rows_.begin() + static_cast<std::ptrdiff_t>(after);
  return std::none_of(begin, end, [](const PairRow& of) { return of.pair.IsOfBoth(); });
}

std::optional<std::size_t> Comparison::NearestPartner(std::size_t row) const {
  const auto placeOf = [&](const PairRow& of) {
    return of.first != nullptr ? of.first->second : of.second->second + result_.offset.seconds;
  };
  std::optional<std::size_t> nearest;
  double leastDistance = 0;
  for (std::size_t other = 0; other < rows_.size(); ++other) {
    if (!CanPair(row, other)) continue;
    const double distance = std::abs(placeOf(rows_[row]) - placeOf(rows_[other]));
    if (nearest && distance >= leastDistance) continue;
    nearest = other;
    leastDistance = distance;
  }
  return nearest;
}

std::size_t Comparison::Pair(std::size_t row, std::size_t other) {
  const QuestionPair& one = rows_[row].pair;
  const QuestionPair& two = rows_[other].pair;
  const QuestionPair made = {one.first ? one.first : two.first,
                             one.second ? one.second : two.second};
  auto partners = Partners();
  partners[*made.first] = made.second;
  Take(PairsFrom(partners, result_.secondQuestions));
  return RowOfFirst(*made.first);
}

std::size_t Comparison::Unpair(std::size_t row) {
  const std::size_t parted = *rows_[row].pair.first;
  auto partners = Partners();
  partners[parted].reset();
  Take(PairsFrom(partners, result_.secondQuestions));
  return RowOfFirst(parted);
}

void Comparison::Undo() {
  later_.push_back(std::exchange(given_, std::move(earlier_.back())));
  earlier_.pop_back();
  Renew();
}

void Comparison::Redo() {
  earlier_.push_back(std::exchange(given_, std::move(later_.back())));
  later_.pop_back();
  Renew();
}

void Comparison::SavePairs(const std::filesystem::path& file, Storage& storage) {
  WritePairTable(file, result_.pairs, storage);
  saved_ = result_.pairs;
}

void Comparison::LoadPairs(const std::filesystem::path& file) {
  Take(ReadPairTable(file, result_.firstQuestions, result_.secondQuestions));
  saved_ = given_;
}

void Comparison::TakePairs(const std::string& table) {
  Take(ParsePairTable(table, result_.firstQuestions, result_.secondQuestions));
}

std::size_t Comparison::Reload(ObservedClass first, ObservedClass second) {
  const auto firstNow = QuestionsOf(first.observation.Episodes);
  const auto secondNow = QuestionsOf(second.observation.Episodes);
  const EditedQuestions edited = {.first = SameQuestions(questions_.first, firstNow),
                                  .second = SameQuestions(questions_.second, secondNow),
                                  .firstCount = firstNow.size(),
                                  .secondCount = secondNow.size()};
  const auto follow = [&edited](GivenPairs& pairs) {
    if (pairs) pairs = PairsAfter(*pairs, edited);
  };
  const std::size_t before = given_ ? result_.BothQuestions() : 0;
  follow(given_);
  // The table that was saved goes on counting the questions as they were.
  std::ranges::for_each(earlier_, follow);
  std::ranges::for_each(later_, follow);
  first_ = std::move(first);
  second_ = std::move(second);
  questions_ = QuestionsOf(first_, second_);
  Renew();
  return given_ ? before - result_.BothQuestions() : 0;
}

std::vector<std::optional<std::size_t>> Comparison::Partners() const {
  std::vector<std::optional<std::size_t>> partners;
  for (const PairRow& row : rows_) {
    if (row.pair.first) partners.push_back(row.pair.second);
  }
  return partners;
}

std::size_t Comparison::RowOfFirst(std::size_t question) const {
  const auto row =
      std::ranges::find(rows_, question, [](const PairRow& of) { return of.pair.first; });
  return static_cast<std::size_t>(row - rows_.begin());
}

void Comparison::Take(GivenPairs pairs) {
  earlier_.push_back(std::exchange(given_, std::move(pairs)));
  later_.clear();
  Renew();
}

void Comparison::Renew() {
  result_ = Compare(first_, second_, questions_, options_, given_);
  rows_.clear();
  for (const QuestionPair& pair : result_.pairs) {
    PairRow& row = rows_.emplace_back(PairRow{.pair = pair, .differing = {}});
    if (pair.first) row.first = &questions_.first[*pair.first];
    if (pair.second) row.second = &questions_.second[*pair.second];
    row.differing = DifferingDimensions(row);
  }
}

}  // namespace orvex
