#pragma once

#include <string>

#include "agreement/agreement_study.h"
#include "agreement/figure_grid.h"

namespace orvex {

/// "5-12", of the two numbers that name a class.
std::string ClassText(const Identity& identity);

/// The tables of a study, as they are shown, copied and printed.
/// A row a pair, in the study's order. The key of a row is the pair's position in the study.
FigureGrid PairsTable(const AgreementStudy& study);
/// A row an observer, the one who agrees least first.
FigureGrid ObserversTable(const AgreementStudy& study);
/// A row for each figure that is analysed class by class.
FigureGrid IccTable(const AgreementStudy& study);
/// A row for each dimension, and one for the activities, of all pairs together.
FigureGrid PooledTable(const PooledAgreement& pooled);
/// The activities of all pairs together, in a sentence.
std::string ActivitiesText(const PooledAgreement& pooled);

}  // namespace orvex
