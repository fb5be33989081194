#pragma once

#include <QString>

#include "model/question_info.h"

namespace orvex {

/// What a question was coded as: "Source: Teacher question   Response: ...". What is not coded is
/// left out.
QString CodesText(const DimensionTexts& codes);

}  // namespace orvex
