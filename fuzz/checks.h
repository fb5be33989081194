#pragma once

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "store/format_error.h"

namespace orvex::fuzz {

/// Each check gives `bytes`, whatever they are, to one reader and verifies what that reader
/// promises. Returns the file that results from writing again what was read, or nothing when the
/// reader refused the bytes as it should. Throws Broken when a promise is not kept.
using Check = std::optional<std::string>(std::string_view bytes);

Check CheckEps;
Check CheckFieldNotes;
Check CheckFileList;
Check CheckKeptClass;
Check CheckNumbers;
Check CheckOptions;
Check CheckRecoveryFile;
Check CheckReports;
Check CheckStudy;
Check CheckSur;
Check CheckTextEncoding;

struct Broken : std::logic_error {
  using std::logic_error::logic_error;
};

inline void Require(bool kept, const char* promise) {
  if (!kept) throw Broken(std::string("broken promise: ") + promise);
}

/// The result of `read`; nothing when it refuses `bytes` with an error that names a place in them.
template <typename Read>
auto Accepted(std::string_view bytes, Read read) -> std::optional<decltype(read(bytes))> try {
  return read(bytes);
} catch (const FormatError& error) {
  Require(error.Line() >= 1 && error.Line() <= 1 + std::ranges::count(bytes, '\n'),
          "an error's line is one of the file");
  Require(error.Text().size() > 1, "an error says what is wrong");
  return std::nullopt;
}

}  // namespace orvex::fuzz
