#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "agreement/agreement_study.h"

namespace orvex {

/// A table that is made of a study.
struct AgreementTable {
  std::string_view fileName;  ///< "agreement_pairs.csv"
  /// Makes the table: comma-separated, with a line of names; CR LF.
  std::string (*textOf)(const AgreementStudy& study);
};
inline constexpr std::size_t kAgreementTables = 6;
/// The tables of a study, for statistics programs: its pairs, observers, pooled figures, intraclass
/// correlations, confusion tables and disagreements.
const std::array<AgreementTable, kAgreementTables>& AgreementTables();

}  // namespace orvex
