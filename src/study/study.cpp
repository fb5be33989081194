#include "study/study.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>
#include <system_error>
#include <utility>

#include "model/texts.h"
#include "model/wording.h"
#include "store/older_file.h"
#include "store/paths.h"
#include "study/found_files.h"
#include "study/grouped_number.h"
#include "study/tabbed_text.h"

namespace orvex {
namespace {

/// How many changes a tick takes over, so that it never takes long.
constexpr std::size_t kMostAtOnce = 400;

/// In seconds. A longer one, which a damaged file may state, would bury all others in the total.
constexpr double kLongestClass = 365.0 * 24 * 60 * 60;

/// The numbers of an observation as a text, where one of its files says them; else "".
std::string NumbersIn(const StudyRow& row) {
  if (!row.summary && !row.openStatements) return "";
  Identity identity = row.identity;
  NormaliseNumbers(identity);
  return IsNamed(identity) ? identity.ClassId() : "";
}

/// The folder by a path that holds whatever folder the program works in.
std::filesystem::path Absolute(const std::filesystem::path& folder) {
  std::error_code unknown;
  std::filesystem::path whole = std::filesystem::absolute(folder, unknown);
  return unknown ? folder : whole;
}

}  // namespace

struct Study::Entry {
  const std::string* key = nullptr;  ///< its own in `entries_`
  StudyRow row;
  std::size_t ownProblems = 0;  ///< the first of the row's; the others are told of twins
  std::string numbers;          ///< see NumbersIn
  StudySortKey sortKey;
  std::string searched;
  bool isTouched = false;
  bool isPlaced = false;  ///< it is in `ordered_`, where its key says
  bool isShown = false;   ///< and in `shown_`
  bool isDropped = false;

  bool IsPutAside() const { return !NameBeforeOlder(row.name).empty(); }
};

Study::Study(const std::filesystem::path& folder) : folder_(Absolute(folder)), reader_(folder_) {}

Study::~Study() = default;

bool Study::Tick() {
  std::vector<StudyChange> changes = reader_.Take(kMostAtOnce);
  if (changes.empty()) return false;
  for (StudyChange& change : changes) TakeOver(std::move(change));
  for (const std::string& numbers : touchedNumbers_) TellOfTwins(numbers);
  touchedNumbers_.clear();
  questions_.Arrange();
  Merge();
  return true;
}

void Study::AwaitQuiet() {
  while (reader_.Await()) Tick();
}

int Study::TickInterval() const {
  constexpr int kWhileReading = 25;
  constexpr int kAtRest = 100;
  return IsReading() ? kWhileReading : kAtRest;
}

int Study::LookInterval() const {
  constexpr int kLeast = 2000;
  constexpr int kObservationsPerMillisecond = 5;
  return kLeast + static_cast<int>(entries_.size()) / kObservationsPerMillisecond;
}

std::string Study::ProgressText() const {
  if (IsStopped() && !IsReading()) return Say(Text::readingStopped);
  return Say(Text::readingProgress, {Grouped(Read()), Grouped(Found())});
}

void Study::TakeOver(StudyChange change) {
  if (change.read) {
    Put(change.key, *std::move(change.read));
  } else {
    Drop(change.key);
  }
}

void Study::Put(const std::string& key, ReadObservation read) {
  const auto [at, isNew] = entries_.try_emplace(key);
  if (isNew) at->second = std::make_unique<Entry>();
  Entry& entry = *at->second;
  entry.key = &at->first;
  entry.row = std::move(read.row);
  entry.ownProblems = entry.row.problems.size();
  SetNumbers(entry, NumbersIn(entry.row));
  if (read.questions)
    questions_.Put(key, entry.row, *std::move(read.questions));
  else
    questions_.Drop(key);
  Touch(entry);
}

void Study::Drop(const std::string& key) {
  const auto at = entries_.find(key);
  if (at == entries_.end()) return;
  SetNumbers(*at->second, "");
  questions_.Drop(key);
  at->second->isDropped = true;
  at->second->isPlaced = false;
  dropped_.push_back(std::move(at->second));
  entries_.erase(at);
}

void Study::SetNumbers(Entry& entry, std::string numbers) {
  if (entry.numbers != numbers) {
    if (const auto old = byNumbers_.find(entry.numbers); old != byNumbers_.end()) {
      std::erase(old->second, &entry);
      touchedNumbers_.insert(old->first);
      if (old->second.empty()) byNumbers_.erase(old);
    }
    entry.numbers = std::move(numbers);
    if (!entry.numbers.empty()) byNumbers_[entry.numbers].push_back(&entry);
  }
  touchedNumbers_.insert(entry.numbers);
}

/// Tells each of the observations of these numbers of another one: of one that is not put aside, if
/// there is any, and of the first of them by name.
void Study::TellOfTwins(const std::string& numbers) {
  const auto found = byNumbers_.find(numbers);
  if (found == byNumbers_.end()) return;
  std::ranges::sort(found->second, {}, [](const Entry* entry) {
    return std::pair(entry->IsPutAside(), std::string_view(*entry->key));
  });
  for (Entry* entry : found->second) {
    const auto twin = std::ranges::find_if(found->second, [&](Entry* one) { return one != entry; });
    std::vector<std::string> problems = entry->row.problems;
    problems.resize(entry->ownProblems);
    if (twin != found->second.end() && !entry->IsPutAside()) {
      problems.push_back(
          Say((*twin)->IsPutAside() ? Text::putAside : Text::sameNumbers, {(*twin)->row.name}));
    }
    if (problems == entry->row.problems) continue;
    entry->row.problems = std::move(problems);
    Touch(*entry);
  }
}

void Study::Touch(Entry& entry) {
  if (!std::exchange(entry.isTouched, true)) touched_.push_back(&entry);
}

/// Puts what was touched where it belongs now, and takes out what was dropped.
void Study::Merge() {
  const StudyFilterTest filter(filter_);
  std::vector<Entry*> moved;
  bool anyLeaves = !dropped_.empty();
  for (Entry* entry : touched_) {
    entry->isTouched = false;
    if (entry->isDropped) continue;
    entry->searched = SearchedText(entry->row);
    StudySortKey key = SortKeyOf(entry->row, sortedBy_);
    const bool isShown = filter.Passes(entry->row, entry->searched);
    if (entry->isPlaced && key == entry->sortKey && isShown == entry->isShown) continue;
    anyLeaves = anyLeaves || entry->isPlaced;
    entry->sortKey = std::move(key);
    entry->isShown = isShown;
    entry->isPlaced = false;
    moved.push_back(entry);
  }
  touched_.clear();
  const auto isBefore = [this](const Entry* a, const Entry* b) { return IsBefore(a, b); };
  std::ranges::sort(moved, isBefore);
  const auto mergeInto = [&](std::vector<Entry*>& rows, auto isWanted) {
    if (anyLeaves) std::erase_if(rows, [](const Entry* entry) { return !entry->isPlaced; });
    const auto old = static_cast<std::ptrdiff_t>(rows.size());
    std::ranges::copy_if(moved, std::back_inserter(rows), isWanted);
    const auto added = rows.begin() + old;
    if (added == rows.end()) return;
    // Most often all of it comes behind the rest.
    const auto first = std::upper_bound(rows.begin(), added, *added, isBefore);
    std::inplace_merge(first, added, rows.end(), isBefore);
  };
  mergeInto(ordered_, [](const Entry*) { return true; });
  mergeInto(shown_, [](const Entry* entry) { return entry->isShown; });
  for (Entry* entry : moved) entry->isPlaced = true;
  dropped_.clear();
}

bool Study::IsBefore(const Entry* a, const Entry* b) const {
  if (ComesBefore(a->sortKey, b->sortKey, descending_)) return true;
  if (ComesBefore(b->sortKey, a->sortKey, descending_)) return false;
  return *a->key < *b->key;
}

const StudyRow& Study::Row(std::size_t position) const {
  return shown_[position]->row;
}

std::optional<std::size_t> Study::Find(const std::string& name) const {
  const auto entry = entries_.find(NameKey(name));
  if (entry == entries_.end()) return std::nullopt;
  if (!entry->second->isShown) return std::nullopt;
  const auto at =
      std::lower_bound(shown_.begin(), shown_.end(), entry->second.get(),
                       [this](const Entry* a, const Entry* b) { return IsBefore(a, b); });
  return static_cast<std::size_t>(at - shown_.begin());
}

void Study::SetFilter(StudyFilter filter) {
  filter_ = std::move(filter);
  FilterRows();
}

void Study::SortBy(StudyColumn column, bool descending) {
  sortedBy_ = column;
  descending_ = descending;
  for (Entry* entry : ordered_) entry->sortKey = SortKeyOf(entry->row, column);
  // In the order of the names first, so that those need not be compared.
  std::ranges::transform(entries_, ordered_.begin(),
                         [](const auto& entry) { return entry.second.get(); });
  std::ranges::stable_sort(ordered_, [this](const Entry* a, const Entry* b) {
    return ComesBefore(a->sortKey, b->sortKey, descending_);
  });
  FilterRows();
}

/// Chooses the rows that are shown.
void Study::FilterRows() {
  const StudyFilterTest filter(filter_);
  shown_.clear();
  for (Entry* entry : ordered_) {
    entry->isShown = filter.Passes(entry->row, entry->searched);
    if (entry->isShown) shown_.push_back(entry);
  }
}

StudyTotals Study::Totals() const {
  StudyTotals totals;
  totals.observations = shown_.size();
  totals.all = entries_.size();
  for (const Entry* entry : shown_) {
    const StudyRow& row = entry->row;
    totals.withoutSurvey += !row.openStatements;
    totals.withProblems += !row.problems.empty();
    totals.putAside += entry->IsPutAside();
    if (!row.summary) continue;
    const double seconds = row.summary->seconds;
    if (seconds > 0 && seconds <= kLongestClass) totals.seconds += seconds;
    totals.episodes += static_cast<std::size_t>(row.summary->episodes);
    totals.questions += static_cast<std::size_t>(row.summary->counts.Total);
    totals.notFullyCoded += static_cast<std::size_t>(row.summary->notFullyCoded);
    totals.spells += static_cast<std::size_t>(row.summary->spells);
  }
  return totals;
}

std::string Study::TextOf(const std::vector<std::size_t>& positions,
                          const std::vector<StudyColumn>& columns) const {
  std::string text;
  const auto addLine = [&](auto cellOf) {
    std::vector<std::string> cells;
    cells.reserve(columns.size());
    for (const StudyColumn column : columns) cells.emplace_back(cellOf(column));
    AddTabbedLine(text, cells);
  };
  addLine([](StudyColumn column) { return SchemeOf(column).heading; });
  for (const std::size_t position : positions) {
    addLine([&](StudyColumn column) { return CellOf(Row(position), column); });
  }
  return text;
}

StudyQuestions& Study::Questions() {
  reader_.WantQuestions();
  return questions_;
}

std::string TextOf(const StudyTotals& totals) {
  constexpr double kMinute = 60;
  const bool all = totals.observations == totals.all;
  const std::string shown =
      all ? Say(totals.all == 1 ? Text::oneObservation : Text::observationsShown,
                {Grouped(totals.all)})
          : Say(Text::observationsOf, {Grouped(totals.observations), Grouped(totals.all)});
  const double minutes = std::floor(totals.seconds / kMinute);
  const std::string text =
      Say(Text::studyTotals,
          {shown, Grouped(WholeSecondsText(std::floor(minutes / kMinute))),
           WholeSecondsText(std::fmod(minutes, kMinute)), Grouped(totals.episodes),
           Grouped(totals.questions), Grouped(totals.notFullyCoded), Grouped(totals.spells),
           Grouped(totals.withoutSurvey), Grouped(totals.withProblems)});
  return totals.putAside == 0 ? text : text + Say(Text::andPutAside, {Grouped(totals.putAside)});
}

}  // namespace orvex
