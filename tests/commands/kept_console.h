#pragma once

#include <filesystem>
#include <sstream>
#include <string>

#include "commands/console.h"

namespace orvex::test {

/// A console that keeps what is written to its streams.
struct KeptConsole {
  std::ostringstream out;
  std::ostringstream err;
  std::istringstream in;
  Console console{.out = out, .err = err, .in = in, .interrupted = {}};

  /// What was written to `stream` since the last call, with the test's folder removed.
  std::string Take(std::ostringstream& stream, const std::filesystem::path& folder) {
    std::string text = stream.str();
    stream.str("");
    const std::string prefix = folder.string() + "/";
    for (auto at = text.find(prefix); at != std::string::npos; at = text.find(prefix)) {
      text.erase(at, prefix.size());
    }
    return text;
  }
};

}  // namespace orvex::test
