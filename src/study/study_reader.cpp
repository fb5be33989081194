#include "study/study_reader.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

#include "model/texts.h"
#include "store/file_error.h"
#include "study/ordered_reading.h"

namespace orvex {
namespace {

/// Says which folders could not be read: the first of them, and how many there are besides.
std::string TroubleOf(const std::vector<FileError>& unread) {
  if (unread.empty()) return "";
  std::string text = unread.front().what();
  if (unread.size() > 1) text += "\n" + Say(Text::moreWarnings, {unread.size() - 1});
  return text;
}

}  // namespace

StudyReader::StudyReader(std::filesystem::path folder)
    : folder_(std::move(folder)), thread_([this] { Work(); }) {}

StudyReader::~StudyReader() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
    calledOff_ = true;
  }
  asked_.notify_one();
  thread_.join();
}

void StudyReader::LookForChanges() {
  {
    const std::lock_guard lock(mutex_);
    if (isBusy_) return;
    isAsked_ = true;
    isBusy_ = true;
  }
  asked_.notify_one();
}

void StudyReader::Stop() {
  const std::lock_guard lock(mutex_);
  stopped_ = true;
  calledOff_ = true;
}

void StudyReader::Reload() {
  {
    const std::lock_guard lock(mutex_);
    stopped_ = false;
    anew_ = true;
    isAsked_ = true;
    calledOff_ = true;
    isBusy_ = true;
    isReading_ = true;
  }
  asked_.notify_one();
}

void StudyReader::WantQuestions() {
  if (withQuestions_.exchange(true)) return;
  {
    const std::lock_guard lock(mutex_);
    if (stopped_) return;
    isAsked_ = true;
    isBusy_ = true;
    isReading_ = true;
  }
  asked_.notify_one();
}

bool StudyReader::IsReading() const {
  const std::lock_guard lock(mutex_);
  return isReading_ || !changes_.empty();
}

bool StudyReader::IsBusy() const {
  const std::lock_guard lock(mutex_);
  return isBusy_;
}

bool StudyReader::HasChanges() const {
  const std::lock_guard lock(mutex_);
  return !changes_.empty();
}

bool StudyReader::IsStopped() const {
  const std::lock_guard lock(mutex_);
  return stopped_;
}

std::string StudyReader::Trouble() const {
  const std::lock_guard lock(mutex_);
  return trouble_;
}

std::vector<StudyChange> StudyReader::Take(std::size_t most) {
  const std::lock_guard lock(mutex_);
  const auto end = changes_.begin() + static_cast<std::ptrdiff_t>(std::min(most, changes_.size()));
  std::vector<StudyChange> taken(std::make_move_iterator(changes_.begin()),
                                 std::make_move_iterator(end));
  changes_.erase(changes_.begin(), end);
  return taken;
}

bool StudyReader::Await() {
  std::unique_lock lock(mutex_);
  handed_.wait(lock, [this] { return !changes_.empty() || !isBusy_; });
  return !changes_.empty();
}

void StudyReader::Work() {
  std::unique_lock lock(mutex_);
  for (;;) {
    asked_.wait(lock, [this] { return isAsked_ || ends_; });
    if (ends_) return;
    isAsked_ = false;
    calledOff_ = false;
    const bool onlyKnown = stopped_;
    if (std::exchange(anew_, false)) {
      for (auto& [key, known] : known_) known.isStale = true;
    }
    lock.unlock();
    LookAndRead(onlyKnown);
    lock.lock();
    isBusy_ = isAsked_;
    isReading_ = isAsked_ && isReading_;
    if (!isBusy_) handed_.notify_all();
  }
}

void StudyReader::LookAndRead(bool onlyKnown) {
  std::string trouble;
  try {
    FoundObservations found = FindObservations(folder_, [this] { return IsCalledOff(); });
    if (IsCalledOff()) return;
    trouble = TroubleOf(found.unread);
    ReadAll(Changed(std::move(found.observations), onlyKnown));
  } catch (const std::exception& error) {
    trouble = error.what();
  }
  const std::lock_guard lock(mutex_);
  trouble_ = std::move(trouble);
}

bool StudyReader::IsSame(const Known& known, const ObservationFiles& files, bool onlyKnown) const {
  const bool isReadAnew = known.isStale || (withQuestions_ && !known.withQuestions);
  return known.paths == files.paths && known.further == files.further &&
         known.stamps == StampsOf(files) && (onlyKnown || !isReadAnew);
}

std::vector<ObservationFiles> StudyReader::Changed(std::vector<ObservationFiles> found,
                                                   bool onlyKnown) {
  std::vector<ObservationFiles> changed;
  auto known = known_.begin();
  const auto dropUpTo = [&](const std::string* key) {
    while (known != known_.end() && (!key || known->first < *key)) {
      HandOver({known->first, std::nullopt});
      known = known_.erase(known);
    }
  };
  for (ObservationFiles& files : found) {
    if (IsCalledOff()) return {};
    dropUpTo(&files.key);
    const bool isKnown = known != known_.end() && known->first == files.key;
    if (isKnown ? !IsSame(known->second, files, onlyKnown) : !onlyKnown) {
      changed.push_back(std::move(files));
    }
    if (isKnown) ++known;
  }
  dropUpTo(nullptr);
  return changed;
}

void StudyReader::ReadAll(const std::vector<ObservationFiles>& changed) {
  read_ = 0;
  found_ = changed.size();
  if (changed.empty()) return;
  isReading_ = true;
  const bool withQuestions = withQuestions_;
  OrderedReading<ReadObservation> reading(
      changed.size(), [&](std::size_t i) { return ReadTheObservation(changed[i], withQuestions); });
  for (const ObservationFiles& files : changed) {
    std::optional<ReadObservation> read = reading.Take();
    if (!read || IsCalledOff()) return;
    known_[files.key] = {.stamps = read->stamps,
                         .paths = files.paths,
                         .further = files.further,
                         .withQuestions = withQuestions};
    ++read_;
    HandOver({files.key, std::move(read)});
  }
}

void StudyReader::HandOver(StudyChange change) {
  {
    const std::lock_guard lock(mutex_);
    changes_.push_back(std::move(change));
  }
  handed_.notify_one();
}

}  // namespace orvex
