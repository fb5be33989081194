#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "study/study_columns.h"
#include "study/study_filter.h"
#include "study/study_questions.h"
#include "study/study_reader.h"
#include "study/study_row.h"

namespace orvex {

/// The observations that are shown, added up.
struct StudyTotals {
  std::size_t observations = 0;
  std::size_t all = 0;  ///< how many there are, shown or not
  /// The length of all segments. A class that is longer than a year, or shorter than nothing, is in
  /// a damaged file and adds nothing.
  double seconds = 0;
  std::size_t episodes = 0;
  std::size_t questions = 0;
  std::size_t notFullyCoded = 0;
  std::size_t spells = 0;
  std::size_t withoutSurvey = 0;
  std::size_t withProblems = 0;
  std::size_t putAside = 0;  ///< earlier classes of the same numbers, which count like the others
};
/// The line below the table.
std::string TextOf(const StudyTotals& totals);

/// The observations in a folder, as a table that can be sorted and filtered. Reads the folder in
/// the background on all cores. What has been read is taken over by Tick, a portion at a time, so
/// that nobody waits; between two ticks nothing changes by itself. Rows and StudyRow references
/// hold until the next Tick, or until another filter or order is set.
class Study {
 public:
  explicit Study(const std::filesystem::path& folder);
  ~Study();
  Study(const Study&) = delete;
  Study& operator=(const Study&) = delete;

  const std::filesystem::path& Folder() const { return folder_; }

  /// True when Tick would change rows.
  bool HasChanges() const { return reader_.HasChanges(); }
  /// Takes over some of what has been read. True when the rows have changed.
  bool Tick();
  /// How many milliseconds to wait between two ticks.
  int TickInterval() const;
  /// Looks in the background for what has changed on the disk since, unless a look is going on.
  /// To be called every now and then: not every folder tells of changes by itself.
  void LookForChanges() { reader_.LookForChanges(); }
  bool IsLooking() const { return reader_.IsBusy(); }
  /// How many milliseconds to wait from the end of a look to the next one, so that they are a small
  /// part of the work.
  int LookInterval() const;
  /// Ends the reading. What has been read is still followed; nothing else is read until Reload.
  void Stop() { reader_.Stop(); }
  /// Reads everything anew. The rows stay until they have been read again.
  void Reload() { reader_.Reload(); }
  /// True until everything there is to read has been read and taken over.
  bool IsReading() const { return reader_.IsReading(); }
  bool IsStopped() const { return reader_.IsStopped(); }
  /// How many observations are to be read this time, and how many of them have been read; both 0
  /// while the folder is still being searched.
  std::size_t Found() const { return reader_.Found(); }
  std::size_t Read() const { return reader_.Read(); }
  std::string ProgressText() const;
  /// Why the folder, or one beneath it, could not be read the last time; "" when all could.
  std::string Trouble() const { return reader_.Trouble(); }
  /// Waits until everything has been read, and takes it over.
  void AwaitQuiet();

  /// The number of rows shown, and the row at a position, counted from 0.
  std::size_t Count() const { return shown_.size(); }
  const StudyRow& Row(std::size_t position) const;
  /// Where the observation `name` is shown; nothing when it is not.
  std::optional<std::size_t> Find(const std::string& name) const;

  const StudyFilter& Filter() const { return filter_; }
  void SetFilter(StudyFilter filter);
  StudyColumn SortedBy() const { return sortedBy_; }
  bool IsDescending() const { return descending_; }
  /// Sorts by a column. Rows that are equal there are in the order of their names.
  void SortBy(StudyColumn column, bool descending);
  StudyTotals Totals() const;
  /// The rows at `positions`, as lines of tab-separated cells under the columns' headings.
  std::string TextOf(const std::vector<std::size_t>& positions,
                     const std::vector<StudyColumn>& columns) const;

  /// The questions of all observations. They are read in the background from the first call on.
  StudyQuestions& Questions();

 private:
  struct Entry;
  using Entries = std::map<std::string, std::unique_ptr<Entry>>;

  void TakeOver(StudyChange change);
  void Put(const std::string& key, ReadObservation read);
  void Drop(const std::string& key);
  void SetNumbers(Entry& entry, std::string numbers);
  void TellOfTwins(const std::string& numbers);
  void Touch(Entry& entry);
  void Merge();
  void FilterRows();
  bool IsBefore(const Entry* a, const Entry* b) const;

  const std::filesystem::path folder_;
  Entries entries_;  ///< by ObservationFiles::key
  std::unordered_map<std::string, std::vector<Entry*>> byNumbers_;
  std::vector<Entry*> ordered_;  ///< all entries, sorted
  std::vector<Entry*> shown_;    ///< those of `ordered_` that pass the filter
  // What a tick has taken over, until it is in place.
  std::vector<Entry*> touched_;
  std::vector<std::unique_ptr<Entry>> dropped_;
  std::set<std::string> touchedNumbers_;
  StudyFilter filter_;
  StudyColumn sortedBy_ = StudyColumn::school;
  bool descending_ = false;
  StudyQuestions questions_;
  StudyReader reader_;
};

}  // namespace orvex
