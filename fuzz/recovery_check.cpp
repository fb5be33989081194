#include "fuzz/checks.h"
#include "recovery/kept_class.h"
#include "recovery/kept_content.h"

namespace orvex::fuzz {
namespace {

std::string Content(const KeptClass& kept) {
  return FormatMoment(kept.moment) + FormatRunning(kept.program, kept.running);
}

KeptClass Parse(std::string_view content) {
  return ParseKept(std::string(content));
}

KeptContent Unseal(std::string_view bytes) {
  return Unsealed(std::string(bytes));
}

}  // namespace

std::optional<std::string> CheckKeptClass(std::string_view bytes) {
  // The samples end with a seal, which a made-up file would never match, so leave it out.
  bytes = bytes.substr(0, bytes.rfind("seal="));
  const auto kept = Accepted(bytes, Parse);
  if (!kept) return std::nullopt;
  const std::string written = Content(*kept);
  const auto again = Accepted(written, Parse);
  Require(again.has_value(), "what is kept can be read");
  Require(Content(*again) == written, "what is kept comes back as it was");
  return written;
}

std::optional<std::string> CheckRecoveryFile(std::string_view bytes) {
  const auto kept = Accepted(bytes, Unseal);
  if (!kept) return std::nullopt;
  Require(Sealed(kept->content, kept->number) == bytes, "only what was sealed is whole");
  return CheckKeptClass(kept->content);
}

}  // namespace orvex::fuzz
