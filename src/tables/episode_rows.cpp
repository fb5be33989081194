#include "tables/episode_rows.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "model/duration_text.h"
#include "store/file_error.h"
#include "store/numbers.h"

namespace orvex {
namespace {

constexpr int kActivityCells = 13;
constexpr int kSeatworkCells = 6;
constexpr int kGroupCells = 5;

/// Seconds by activity, then by seatwork and by group-work cell, in the order of the row.
using Times = std::array<double, kActivityCells + kSeatworkCells + kGroupCells>;

/// The place of a segment's time in the row; behind the end for one that has none.
std::size_t CellOf(const SegmentData& segment) {
  const int activity = segment.activityNum;
  const auto cell = [](int first, int index, int cells) {
    return index >= 1 && index <= cells ? static_cast<std::size_t>(first + index - 1)
                                        : Times{}.size();
  };
  if (IsSeatwork(activity)) {
    return cell(kActivityCells, (activity - kFirstSeatwork) * 2 + segment.fSubCat + 1,
                kSeatworkCells);
  }
  if (IsGroupWork(activity)) {
    return cell(kActivityCells + kSeatworkCells, segment.fSubCat + 1, kGroupCells);
  }
  return cell(0, activity, kActivityCells);
}

void AppendNumber(std::int64_t number, std::string& text) {
  std::array<char, 20> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  text.append(digits.data(), end.ptr);
}

void AppendSeconds(double seconds, std::string& text) {
  if (seconds == 0) {
    text += '0';  // as most of a row are
    return;
  }
  constexpr double kAnyClass = 1e15;  // far below what an integer holds
  if (seconds > -kAnyClass && seconds < kAnyClass) {
    AppendNumber(static_cast<std::int64_t>(seconds), text);  // segments have whole seconds
  } else {
    text += WholeSecondsText(seconds);
  }
}

class RowsOfFile : public ReadOn {
 public:
  RowsOfFile(const std::filesystem::path& path, const FileNumbers& numbers, const Warn& warn,
             std::string& rows)
      : ReadOn(warn), path_(path), numbers_(numbers), rows_(rows) {}

  void EpisodesToCome(int count) override {
    if (count > kMostEpisodes) {
      throw FileError(path_, std::to_string(count) + " episodes; no more than " +
                                 std::to_string(kMostEpisodes) + " can be exported");
    }
  }
  bool WantsCounts() const override { return true; }
  void EpisodeRead(int ep, const Episode& episode, const QuestionCounts& stated) override {
    AppendEpisodeRow(numbers_, ep, episode, stated, rows_);
  }

 private:
  const std::filesystem::path& path_;
  const FileNumbers& numbers_;
  std::string& rows_;
};

}  // namespace

bool ReadOn::ContinueWithEarlierVersion() {
  if (warn_) warn_(kEarlierVersionText);
  return true;
}

void ReadOn::FirstSegmentRepaired(int ep) {
  if (warn_) warn_(InconsistentText(ep) + " The episode's activity is taken.");
}

void ReadOn::TextAfterLastQuestion(int line, std::string_view /*text*/) {
  if (warn_) warn_("text after the last question, line " + std::to_string(line));
}

void AppendEpisodeRow(const FileNumbers& file, int number, const Episode& episode,
                      const QuestionCounts& stated, std::string& rows) {
  Times times{};
  for (const SegmentData& segment : episode.segments) {
    const std::size_t cell = CellOf(segment);
    if (cell < times.size()) times[cell] += static_cast<double>(segment.duration);
  }
  const auto higherOrder = std::ranges::count_if(
      episode.questions, [](const questionInfo& question) { return question.strCogLev() == "H"; });

  rows.append(file.school).append(",").append(file.classNum).append(",");
  rows.append(file.observation).append(",");
  AppendNumber(number, rows);
  rows += ',';
  for (const double time : times) {
    AppendSeconds(time, rows);
    rows += ',';
  }
  for (const int count :
       {stated.authenticTeacher, stated.authenticStudent, stated.teacher, stated.student,
        stated.unanswered, stated.uptakeTest, stated.allDefault}) {
    rows += ',';
    AppendNumber(count, rows);
  }
  rows.append(",").append(FormatPattern(episode.offtask, "0.#######")).append(", ");
  AppendNumber(higherOrder, rows);
  rows += " \r\n";
}

void AppendEpisodeRows(const std::filesystem::path& path, const Warn& warn, const Warn& warnOfName,
                       std::string& rows) {
  const FileNumbers numbers = NumbersOf(path);
  RowsOfFile events(path, numbers, warn, rows);
  WarnOfOtherNumbers(path, ReadEpsFile(path, events).header.identity, warnOfName);
}

}  // namespace orvex
