#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "desk/services.h"
#include "model/survey.h"
#include "running/running_class.h"
#include "store/eps_file.h"

namespace orvex {

class Prompter;

// A class replaces its own files, and no others: what else lies in their place, another class of
// the same numbers or its own files after they were edited, is kept beside them under the time of
// its last change, and the user is told.

/// Saves the episode file of a class and its field notes. They go to the folders of the class,
/// whose numbers are normalised, or where the user, who is told of a failure with `failure`, wants
/// them: `running` then says where the episodes are. False when the user gave up.
bool StoreClass(const Services& services, const std::string& failure, EpsHeader& header,
                const EpisodeList& episodes, RunningClass& running);

/// Saves the survey of a class, in the folder of the class or, when its episodes are elsewhere,
/// beside them. False when the user gave up.
bool StoreSurvey(const Services& services, Identity& identity, RunningClass& running);

/// Saves nothing but the field notes of the class in the header. False when the user gave up.
bool StoreNotes(const Services& services, RunningClass& running);

/// Tells of the files that were kept under these names; nothing when there are none.
void TellOfOlder(Prompter& prompter, const std::vector<std::string>& names);

}  // namespace orvex
