#pragma once

#include <QString>
#include <string>

namespace orvex {

/// The caption of a button in a message box, with "&" before the letter that is its access key.
QString WithAccessKey(const std::string& caption);

}  // namespace orvex
