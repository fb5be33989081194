#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "store/eps_file.h"
#include "store/sur_file.h"

namespace orvex {

/// An observation and its reports as a JSON object on one line. `file` appears in it unchanged.
std::string ObservationJson(const std::filesystem::path& file, const EpsObservation& observation,
                            const std::optional<SurFile>& survey);

}  // namespace orvex
