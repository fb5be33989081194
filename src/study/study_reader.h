#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "study/observation_files.h"
#include "study/study_row.h"

namespace orvex {

/// What has become of an observation of a study.
struct StudyChange {
  std::string key;                      ///< ObservationFiles::key
  std::optional<ReadObservation> read;  ///< what it holds now; nothing when it is gone
};

/// Looks for the observations in a folder and reads those that are new or have changed, all of it
/// in the background.
class StudyReader {
 public:
  /// Begins to look and to read.
  explicit StudyReader(std::filesystem::path folder);
  ~StudyReader();
  StudyReader(const StudyReader&) = delete;
  StudyReader& operator=(const StudyReader&) = delete;

  /// Looks again, unless that is being done. After Stop only at what has been read already.
  void LookForChanges();
  /// Ends the reading. What has been read can still be taken.
  void Stop();
  /// Reads everything anew, also after Stop.
  void Reload();
  /// From now on reads the questions one by one, too, also of what has been read already.
  void WantQuestions();

  /// True while observations are being looked for the first time, or read, or wait to be taken.
  bool IsReading() const;
  /// True while the folder is being looked at, or observations are read.
  bool IsBusy() const;
  bool IsStopped() const;
  /// How many observations there were to read this time, and how many of them have been read.
  std::size_t Found() const { return found_; }
  std::size_t Read() const { return read_; }
  /// Why the folder, or one beneath it, could not be read the last time; "" when all could.
  std::string Trouble() const;

  /// True when there is something to take.
  bool HasChanges() const;
  /// Takes up to `most` of the changes, in their order.
  std::vector<StudyChange> Take(std::size_t most);
  /// Waits until there is something to take, or nothing more is going to come. False in the second
  /// case.
  bool Await();

 private:
  struct Known {
    ObservationStamps stamps;
    ObservationPaths paths;
    std::vector<std::string> further;
    bool withQuestions = false;
    bool isStale = false;  ///< it is to be read again in any case
  };
  using KnownByKey = std::map<std::string, Known>;

  void Work();
  void LookAndRead(bool onlyKnown);
  /// The observations that are to be read: those that are new or have changed, or only those that
  /// have changed. Hands over those that are gone.
  std::vector<ObservationFiles> Changed(std::vector<ObservationFiles> found, bool onlyKnown);
  /// True when what is known of an observation is still so, or is to be left at that.
  bool IsSame(const Known& known, const ObservationFiles& files, bool onlyKnown) const;
  void ReadAll(const std::vector<ObservationFiles>& changed);
  void HandOver(StudyChange change);
  bool IsCalledOff() const { return calledOff_; }

  const std::filesystem::path folder_;
  KnownByKey known_;  // the thread's own

  mutable std::mutex mutex_;
  std::condition_variable asked_;   ///< the thread is to do something
  std::condition_variable handed_;  ///< there is something to take, or the thread rests
  std::deque<StudyChange> changes_;
  std::string trouble_;
  bool isAsked_ = true;
  bool isBusy_ = true;
  bool anew_ = false;
  bool stopped_ = false;
  bool ends_ = false;
  std::atomic<bool> withQuestions_ = false;
  std::atomic<bool> calledOff_ = false;  ///< the thread is to end what it does
  std::atomic<bool> isReading_ = true;
  std::atomic<std::size_t> found_ = 0;
  std::atomic<std::size_t> read_ = 0;
  std::thread thread_;  // last: it uses all other members
};

}  // namespace orvex
