#include "tables/episode_rows.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "model/wording.h"
#include "store/eps_reader.h"
#include "store/file_error.h"
#include "store/numbers.h"
#include "study/reading_with_warnings.h"

namespace orvex {
namespace {

/// A block of cells, shared by consecutive activities with the same sub-categories. Each
/// activity has one cell or, where there are sub-categories, one for each of them.
struct Block {
  const SubCodeScheme* subCategory = nullptr;
  int firstActivity = 0;
  int activities = 0;
  std::size_t firstCell = 0;

  int CellsEach() const { return subCategory ? static_cast<int>(subCategory->values.size()) : 1; }
  std::size_t CellsEnd() const {
    return firstCell + static_cast<std::size_t>(activities * CellsEach());
  }
};

std::vector<Block> MakeBlocks() {
  std::vector<Block> blocks;
  for (const Activity& activity : kActivities) {
    const SubCodeScheme* const subCategory = SubCategoryOf(activity.number);
    if (blocks.empty() || blocks.back().subCategory != subCategory) {
      const std::size_t cells = blocks.empty() ? 0 : blocks.back().CellsEnd();
      blocks.push_back({subCategory, activity.number, 0, cells});
    }
    ++blocks.back().activities;
  }
  return blocks;
}

const std::vector<Block>& Blocks() {
  static const std::vector<Block> blocks = MakeBlocks();
  return blocks;
}

/// The index of the cell that takes a segment's time, if any. A sub-category that is out of
/// range for its activity lands in a neighbour's cell, but never outside the block.
std::optional<std::size_t> CellOf(const SegmentData& segment) {
  for (const Block& block : Blocks()) {
    const int activity = segment.activityNum - block.firstActivity;
    if (activity < 0 || activity >= block.activities) continue;
    const int cell = activity * block.CellsEach() + (block.subCategory ? segment.fSubCat : 0);
    if (cell < 0 || cell >= block.activities * block.CellsEach()) return std::nullopt;
    return block.firstCell + static_cast<std::size_t>(cell);
  }
  return std::nullopt;
}

void AppendNumber(std::int64_t number, std::string& text) {
  std::array<char, 20> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  text.append(digits.data(), end.ptr);
}

void AppendSeconds(double seconds, std::string& text) {
  if (seconds == 0) {
    text += '0';  // like most cells of a row
    return;
  }
  constexpr double kAnyClass = 1e15;  // far below the integer limit
  if (seconds > -kAnyClass && seconds < kAnyClass) {
    AppendNumber(static_cast<std::int64_t>(seconds), text);  // a segment lasts whole seconds
  } else {
    text += WholeSecondsText(seconds);
  }
}

class RowsOfFile : public ReadingWithWarnings {
 public:
  RowsOfFile(const std::filesystem::path& path, const FileNumbers& numbers, const Warn& warn,
             std::string& rows)
      : ReadingWithWarnings(warn), path_(path), numbers_(numbers), rows_(rows) {}

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

void AppendEpisodeRow(const FileNumbers& file, int number, const Episode& episode,
                      const QuestionCounts& stated, std::string& rows) {
  std::vector<double> times(Blocks().back().CellsEnd());
  for (const SegmentData& segment : episode.segments) {
    if (const auto cell = CellOf(segment)) times[*cell] += static_cast<double>(segment.duration);
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
  for (const auto count : kQuestionCounts) {
    rows += ',';
    AppendNumber(stated.*count, rows);
  }
  rows.append(",").append(FormatPattern(episode.offtask, "0.#######")).append(", ");
  AppendNumber(higherOrder, rows);
  rows += " \r\n";
}

void AppendEpisodeRows(const std::filesystem::path& path, FileRows& rows) {
  const FileNumbers numbers = NumbersOf(path);
  RowsOfFile events(path, numbers, rows.notes.WarnsOf(FileWarning::About::content), rows.text);
  WarnOfOtherNumbers(path, ReadEpsFile(path, events).header.identity,
                     rows.notes.WarnsOf(FileWarning::About::name));
}

}  // namespace orvex
