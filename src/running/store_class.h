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

// A class replaces only its own files. If there is something else in their place (another class
// with the same numbers, or its own files after they were edited), that is kept beside them under
// the time of its last change, and the user is told.

/// Saves the episode file of a class and its field notes in the class's folders, and normalises the
/// identity in `header`. If that fails, the user is told so with `failure` and may choose another
/// place, which `running` then remembers. False when the user gave up.
bool StoreClass(const Services& services, const std::string& failure, EpsHeader& header,
                const EpisodeList& episodes, RunningClass& running);

/// Saves the survey of a class in the class's folder or, when its episodes are stored elsewhere,
/// beside them. False when the user gave up.
bool StoreSurvey(const Services& services, Identity& identity, RunningClass& running);

/// Saves only the field notes, under the program's identity. False when the user gave up.
bool StoreNotes(const Services& services, RunningClass& running);

/// Tells the user that older files were kept under these names. Empty names are left out.
void TellOfOlder(Prompter& prompter, const std::vector<std::string>& names);

}  // namespace orvex
