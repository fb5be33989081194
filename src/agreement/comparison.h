#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "agreement/agreement.h"

namespace orvex {

class Storage;

/// Which observer the other is measured by.
enum class Master { none, first, second };

/// A line of the paired list: what both observers made of a question.
struct PairRow {
  QuestionPair pair;
  const AskedQuestion* first = nullptr;   ///< null where only the second has it
  const AskedQuestion* second = nullptr;  ///< null where only the first has it
  /// The positions in ComparedDimensions(), "normal" aside, in which the two differ or exactly one
  /// left the code out.
  std::vector<std::size_t> differing;

  /// Only one has it, or a code differs.
  bool IsDisagreement() const { return !pair.IsOfBoth() || !differing.empty(); }
};

/// Two observations of a class that a person compares: options, pairs corrected by hand, and the
/// agreement that follows from them.
class Comparison {
 public:
  Comparison(ObservedClass first, ObservedClass second, const ComparisonOptions& options = {});
  Comparison(const Comparison&) = delete;
  Comparison& operator=(const Comparison&) = delete;

  const ObservedClass& First() const { return first_; }
  const ObservedClass& Second() const { return second_; }
  const Agreement& Result() const { return result_; }
  const ComparisonOptions& Options() const { return options_; }
  Master MasterIs() const { return master_; }

  /// Nothing: as the logs say. Questions that nobody paired by hand are paired anew.
  void SetOffset(std::optional<int> seconds);
  /// From 0 to kMostTolerance.
  void SetTolerance(int seconds);
  void SetMaster(Master master) { master_ = master; }

  /// The paired list in the order of the class. References hold until the next change.
  const std::vector<PairRow>& Rows() const { return rows_; }
  /// True when the two do not agree on a row: in `dimension`, a position in ComparedDimensions(),
  /// or at all.
  bool IsDisagreement(std::size_t row, std::optional<std::size_t> dimension) const;
  /// Positions in Rows(): the disagreements, or all that are to be seen. With a dimension, only
  /// questions of both that at least one of them coded on it.
  std::vector<std::size_t> Shown(bool disagreementsOnly,
                                 std::optional<std::size_t> dimension) const;
  /// The rows whose questions were coded `first` by the first observer and `second` by the second
  /// in a dimension: a cell of its table.
  std::vector<std::size_t> RowsOfCell(std::size_t dimension, std::size_t first,
                                      std::size_t second) const;
  /// The next disagreement after `row`, or the one before it; nothing when there is none.
  std::optional<std::size_t> NextDisagreement(std::size_t row, bool forward,
                                              std::optional<std::size_t> dimension = {}) const;

  /// True when the questions of two rows, of which one has only the first's and the other only the
  /// second's, can become a pair: no pair of both stands between them.
  bool CanPair(std::size_t row, std::size_t other) const;
  /// Of the rows with which `row` can become a pair, the one that was asked nearest to it.
  std::optional<std::size_t> NearestPartner(std::size_t row) const;
  /// Makes a pair of two rows, which CanPair; returns its row.
  std::size_t Pair(std::size_t row, std::size_t other);
  bool CanUnpair(std::size_t row) const { return rows_[row].pair.IsOfBoth(); }
  /// Parts a row that CanUnpair; returns the row of the first observer's question.
  std::size_t Unpair(std::size_t row);
  /// Goes back to the pairs that are made from the words; can be undone.
  void PairByWords() { Take(std::nullopt); }
  bool CanUndo() const { return !earlier_.empty(); }
  /// Takes the last change of the pairs back. Only when CanUndo.
  void Undo();
  bool CanRedo() const { return !later_.empty(); }
  /// Makes the change again that was taken back last. Only when CanRedo.
  void Redo();
  /// The pairs that a person made, where that is not what was saved or loaded last; otherwise null.
  const QuestionPairs* UnsavedPairs() const {
    return given_ && given_ != saved_ ? &*given_ : nullptr;
  }

  /// Writes the pairs as a table. Throws FileError.
  void SavePairs(const std::filesystem::path& file, Storage& storage);
  /// Takes the pairs of a table; can be undone. Throws FileError and FormatError.
  void LoadPairs(const std::filesystem::path& file);
  /// Takes the pairs of a table that was not saved, given as its text; can be undone. Throws
  /// FormatError.
  void TakePairs(const std::string& table);
  /// Takes both observations as they were read again, after one was edited. Pairs made by hand stay
  /// with their questions, wherever these stand now; returns how many of them are gone with a
  /// question.
  std::size_t Reload(ObservedClass first, ObservedClass second);

 private:
  /// The pairs that a person gave or changed; nothing while they are made from the words.
  using GivenPairs = std::optional<QuestionPairs>;

  /// The second's question for each of the first's.
  std::vector<std::optional<std::size_t>> Partners() const;
  std::size_t RowOfFirst(std::size_t question) const;
  void Take(GivenPairs pairs);
  void Renew();

  ObservedClass first_;
  ObservedClass second_;
  ComparisonOptions options_;
  Master master_ = Master::none;
  AskedQuestions questions_;
  GivenPairs given_;
  GivenPairs saved_;                 ///< what the table holds that was saved or loaded last
  std::vector<GivenPairs> earlier_;  ///< before each change that can be undone
  std::vector<GivenPairs> later_;    ///< before each change that was undone
  Agreement result_;
  std::vector<PairRow> rows_;
};

}  // namespace orvex
