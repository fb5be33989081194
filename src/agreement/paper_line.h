#pragma once

#include <string>

#include "agreement/agreement_study.h"

namespace orvex {

/// What was compared and what came of it, in sentences that can go into a paper.
std::string PaperLine(const Agreement& agreement);
std::string PaperLine(const AgreementStudy& study);

}  // namespace orvex
