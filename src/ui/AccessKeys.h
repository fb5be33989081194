#pragma once

#include <QString>
#include <string>

namespace orvex {

/// The caption of a button that answers a question of the core, with its access key.
QString WithAccessKey(const std::string& caption);

}  // namespace orvex
