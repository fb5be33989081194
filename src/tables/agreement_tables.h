#pragma once

#include <string>
#include <vector>

#include "agreement/agreement_study.h"

namespace orvex {

/// A finished table.
struct AgreementTable {
  std::string fileName;  ///< "agreement_pairs.csv"
  std::string text;      ///< comma-separated, with a line of names; CR LF
};

/// The tables of a study, for statistics programs: its pairs, observers, pooled figures, intraclass
/// correlations, confusion tables and disagreements.
std::vector<AgreementTable> AgreementTables(const AgreementStudy& study);

}  // namespace orvex
