#pragma once

#include "model/episode.h"
#include "reports/asked_question.h"

namespace orvex {

struct ClassLog;

/// When the questions of a class were asked, as far as its session log tells: each is paired with
/// the line that was logged when it was filed. Questions may have been changed, moved, added and
/// dropped since. Pairs do not cross, and as many as can be have equal texts. What stands between
/// two such pairs in the file is paired in its order with what stands between them in the log: it
/// was reworded. A log that has no text in common with the file tells of another class.
QuestionTimes LoggedTimes(const EpisodeList& episodes, const ClassLog& log);

}  // namespace orvex
