#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <utility>

#include "agreement/comparison.h"
#include "agreement/observer_name.h"
#include "desk/services.h"
#include "model/program.h"

namespace orvex {

/// Reads two observations of a class, given by their episode files, and compares them. Null when
/// one of them could not be read; the user has been told.
std::unique_ptr<Comparison> LoadComparison(const Services& services,
                                           const std::filesystem::path& first,
                                           const std::filesystem::path& second);

/// What a person does with a comparison and its files. What is opened leads back to the agreement,
/// which gives way to it on the screen, and leaves the state that the activities share as it was.
class AgreementActions {
 public:
  /// `comparison` outlives the actions.
  AgreementActions(const Services& services, Comparison& comparison)
      : services_(services), before_(services.program), comparison_(comparison) {}

  /// True when the observer wrote down the question of the row.
  bool CanOpen(std::size_t row, Side side) const { return Asked(row, side) != nullptr; }
  /// Opens the question of a row in the observer's file.
  void Open(std::size_t row, Side side);
  /// To be called when the agreement is shown again: reads the files anew if one was opened. The
  /// user is told when that fails; the comparison then stays as it was.
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
  bool hasOpened_ = false;
};

}  // namespace orvex
