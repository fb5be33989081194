#pragma once

#include "desk/services.h"
#include "running/running_class.h"

namespace orvex {

// Stores a class at its end. The notes and the survey go where the episodes went.

/// Stores the episodes and the field notes. False when the user gave up.
bool StoreEpisodes(const Services& services, RunningClass& running);

/// Completes the log of a stored class. If that fails, the observer is told but can still leave.
void CompleteLog(const Services& services);

/// Stores the survey and ends the program. If the survey is not stored, the program goes on and it
/// can be tried again.
void LeaveWithSurvey(const Services& services, RunningClass& running);

/// Leaves a class in which nothing was entered. Only its field notes are stored, if there are any.
/// False when the user gave up.
bool LeaveWithNotes(const Services& services, RunningClass& running);

}  // namespace orvex
