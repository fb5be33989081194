#include "fuzz/checks.h"
#include "store/options_file.h"

namespace orvex::fuzz {

std::optional<std::string> CheckOptions(std::string_view bytes) {
  const auto path = ParseOptions(bytes);
  if (!path) return std::nullopt;
  Require(path->find('\n') == std::string::npos, "the path is on one line");
  const std::string written = FormatOptions(*path);
  Require(ParseOptions(written) == path, "the path comes back as it was");
  return written;
}

}  // namespace orvex::fuzz
