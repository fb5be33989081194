#pragma once

#include "model/question_info.h"

namespace orvex {

/// The option that shows the code of `dimension`, counted from 0; -1 for none. A file may hold
/// codes that no option stands for.
int OptionOf(const questionInfo& question, Dimension dimension);
/// Codes `dimension` with an option of its; the name is no option.
void SetOption(questionInfo& question, Dimension dimension, int option);

/// True when the Source and Response of the question ask for a code of `dimension`.
bool AsksFor(const questionInfo& question, Dimension dimension);

}  // namespace orvex
