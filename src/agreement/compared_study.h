#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "agreement/agreement_reading.h"
#include "agreement/agreement_study.h"
#include "agreement/figure_grid.h"

namespace orvex {

/// The tables of a study's agreement.
enum class StudyFigures { pairs, observers, icc, pooled };
inline constexpr std::size_t kStudyFigures = 4;

/// The agreement of all pairs of a study, as a person looks at it: compared in the background, as
/// tables that can be sorted. What has been compared is taken over by Tick; between two ticks
/// nothing changes by itself.
class ComparedStudy {
 public:
  /// Begins to compare the pairs among `files`.
  explicit ComparedStudy(std::vector<std::filesystem::path> files);

  /// Compares anew, with another tolerance. The figures stay until then.
  void SetTolerance(int seconds);
  int Tolerance() const { return options_.tolerance; }
  /// Reads all files anew. The figures stay until then.
  void Reload();
  void Stop() { reading_->Stop(); }
  bool IsReading() const { return isReading_; }
  const AgreementReading& Reading() const { return *reading_; }
  /// "3 of 14 pairs compared"; "" when all have been.
  std::string ProgressText() const;

  /// Takes over what has been compared. True when the figures have changed.
  bool Tick();

  const AgreementStudy& Result() const { return study_; }
  /// The episode files of a row of the table of pairs.
  const StudyPair& PairOf(std::size_t row) const;
  const FigureGrid& Table(StudyFigures which) const;
  void SortBy(StudyFigures which, std::size_t column, bool descending);
  /// "14 pairs of 28 observations, 652 questions of both observers, 0 left out".
  std::string TotalsText() const;
  /// How many files could not be read.
  std::string TroubleText() const;
  /// What could not be read or has no partner, a line each.
  std::string LeftOutText() const;

 private:
  struct Order {
    std::size_t column = 0;
    bool descending = false;
  };
  struct Shown {
    FigureGrid table;
    std::optional<Order> order;  ///< nothing: as the table comes
  };

  void Begin();
  void Show(StudyFigures which, FigureGrid table);

  const std::vector<std::filesystem::path> files_;
  ComparisonOptions options_;
  std::unique_ptr<AgreementReading> reading_;
  bool isReading_ = true;
  AgreementStudy study_;
  std::array<Shown, kStudyFigures> shown_;
};

}  // namespace orvex
