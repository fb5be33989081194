#pragma once

#include <string>

#include "agreement/agreement.h"
#include "agreement/agreement_study.h"

namespace orvex {

/// The agreement of two observers as a JSON object, on one line without its end. Figures that are
/// not defined are null, and a member "undefined" beside kappa says why.
std::string AgreementJson(const Agreement& agreement);
/// What is pooled of a study, the same way.
std::string AgreementStudyJson(const AgreementStudy& study);

}  // namespace orvex
