#pragma once

#include <string_view>

#include "store/format_error.h"

namespace orvex {

/// The kind of a file, judged by its content.
enum class ContentKind {
  episodes,
  survey,
  sessionLog,
  keptClass,
  list,      ///< every line names an observation
  document,  ///< an office document, rich text or PDF
  webPage,
  utf16,
  endsOfCr,  ///< a text whose lines end with CR alone
  empty,
  binary,
  other,
};

/// The kind of a text that Decode has returned.
ContentKind KindOfContent(std::string_view text);

/// Throws FormatError when `text`, which should be a list of files, is clearly a file of another
/// kind.
void RequireList(std::string_view text);

/// Throws the FormatError to report when reading `text` as a file of the kind `wanted` met `error`:
/// that it is a file of another kind, or else `error` with a likely cause added.
[[noreturn]] void FailAs(ContentKind wanted, std::string_view text, const FormatError& error);

}  // namespace orvex
