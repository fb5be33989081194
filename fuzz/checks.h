#pragma once

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "store/format_error.h"

namespace orvex::fuzz {

/// Each check feeds one reader with `bytes`, whatever they are, and holds it to what it promises.
/// It returns the file that comes of writing again what was read, or nothing when the reader
/// refused the bytes as it should. A promise that is not kept throws Broken.
using Check = std::optional<std::string>(std::string_view bytes);

Check CheckEps;
Check CheckFieldNotes;
Check CheckFileList;
Check CheckKeptClass;
Check CheckNumbers;
Check CheckOptions;
Check CheckRecoveryFile;
Check CheckReports;
Check CheckSur;
Check CheckTextEncoding;

struct Broken : std::logic_error {
  using std::logic_error::logic_error;
};

inline void Require(bool kept, const char* promise) {
  if (!kept) throw Broken(std::string("broken promise: ") + promise);
}

/// What `read` makes of `bytes`; nothing when it refuses them. It then names the place.
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
