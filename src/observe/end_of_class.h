#pragma once

#include "desk/services.h"
#include "running/running_class.h"

namespace orvex {

// What is stored when a class ends. The notes and the survey go where its episodes went.

/// Stores the episodes and the notes of the class. False when the user gave up.
bool StoreEpisodes(const Services& services, RunningClass& running);

/// Completes the log of a class that is stored. A log that cannot be completed does not keep the
/// observer in it.
void CompleteLog(const Services& services);

/// Stores the survey and ends the program. What cannot be written waits for another try.
void LeaveWithSurvey(const Services& services, RunningClass& running);

/// Leaves a class in which nothing was entered: nothing of it is stored but its notes, if there are
/// any. False when the user gave up.
bool LeaveWithNotes(const Services& services, RunningClass& running);

}  // namespace orvex
