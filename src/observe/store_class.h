#pragma once

#include <filesystem>
#include <string>

#include "store/eps_file.h"
#include "store/services.h"
#include "survey/survey.h"

namespace orvex {

/// What becomes of other files that have the place of a class's.
enum class OlderFile { isReplaced, isAskedAbout };

/// Saves the episode file of a class and its field notes. They go to the folders of the class,
/// whose numbers are normalised, or where the user, who is told of a failure with `failure`, wants
/// them: `elsewhere` is then where the episodes are, else empty. False when the user gave up.
bool StoreClass(const Services& services, const std::string& failure, EpsHeader& header,
                const EpisodeList& episodes, const std::string& notes,
                std::filesystem::path& elsewhere, OlderFile older = OlderFile::isReplaced);

/// Saves the survey of a class, in the folder of the class or, when its episodes are `elsewhere`,
/// beside them. False when the user gave up.
bool StoreSurvey(const Services& services, Identity& identity, const Survey& answers,
                 const std::filesystem::path& elsewhere, OlderFile older = OlderFile::isReplaced);

/// Saves nothing but the field notes of the class in the header. False when the user gave up.
bool StoreNotes(const Services& services, const std::string& notes);

/// All of the class is stored: removes what was kept of it while it ran.
void ForgetKept(const Services& services);

}  // namespace orvex
