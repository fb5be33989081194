#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "agreement/comparison.h"
#include "agreement/observer_name.h"
#include "desk/services.h"
#include "model/program.h"
#include "recovery/kept_changes.h"

namespace orvex {

/// Two observations of a class that have been read.
struct LoadedComparison {
  LoadedComparison(std::unique_ptr<Comparison> made)  // NOLINT: a comparison alone is enough
      : comparison(std::move(made)) {}

  std::unique_ptr<Comparison> comparison;
  std::unique_ptr<FileKeeper> keeper = {};  ///< of the table of pairs, until that is saved
};
/// Reads two observations of a class, given by their episode files, and compares them. Offers the
/// pairs made by hand that an earlier run of the program has left unsaved. Nothing when an
/// observation could not be read (the user has been told) or the user leaves the pairs for later.
std::optional<LoadedComparison> LoadComparison(const Services& services,
                                               const std::filesystem::path& first,
                                               const std::filesystem::path& second);

/// What a person does with a comparison and its files. What is opened leads back to the agreement,
/// which gives way to it on the screen, and leaves the state that the activities share as it was.
class AgreementActions {
 public:
  /// `comparison` outlives the actions. Without a `keeper`, unsaved pairs are not kept.
  AgreementActions(const Services& services, Comparison& comparison,
                   std::unique_ptr<FileKeeper> keeper)
      : services_(services),
        before_(services.program),
        comparison_(comparison),
        keeper_(std::move(keeper)) {}

  /// True when the observer wrote down the question of the row.
  bool CanOpen(std::size_t row, Side side) const { return Asked(row, side) != nullptr; }
  /// Opens the question of a row in the observer's file.
  void Open(std::size_t row, Side side);
  /// To be called when the agreement is shown again: reads the files anew if one was opened. The
  /// user is told of pairs made by hand that are gone with a question, and when a file cannot be
  /// read; the comparison then stays as it was.
  void ComeBack();

  /// True when the `selected` rows can be paired: two of them with each other, a single one with
  /// the nearest row that it can make a pair with.
  bool CanPair(std::span<const std::size_t> selected) const { return RowsOf(selected).has_value(); }
  /// Pairs them; returns the row of the pair. Nothing when that is not possible.
  std::optional<std::size_t> Pair(std::span<const std::size_t> selected);

  /// Lets the user choose where to save the pairs. False when they were not saved.
  bool SavePairs();
  /// Lets the user choose pairs that were saved. True when they were read.
  bool LoadPairs();

  /// Keeps pairs made by hand while they are not saved, so that they survive however the program
  /// ends. To be called after changes; costs next to nothing when there are none.
  void Keep();
  /// Keeps them and waits until they are on the disk, or have failed to get there.
  void AwaitKept();
  /// Why they cannot be kept; empty while all is well.
  std::string KeepTrouble() const { return keeper_ ? keeper_->Trouble() : ""; }

  /// Goes back to where the agreement was opened, or to the main menu. Asks first whether to save
  /// pairs that were changed by hand; does nothing when the user would rather stay.
  void Leave();

 private:
  const AskedQuestion* Asked(std::size_t row, Side side) const;
  std::optional<std::pair<std::size_t, std::size_t>> RowsOf(
      std::span<const std::size_t> selected) const;

  Services services_;
  const Program before_;
  Comparison& comparison_;
  std::unique_ptr<FileKeeper> keeper_;
  std::optional<QuestionPairs> kept_;  ///< the unsaved pairs, as they were handed over last
  bool hasOpened_ = false;
};

}  // namespace orvex
