#pragma once

#include <string_view>

#include "store/format_error.h"

namespace orvex {

/// What a file holds, by its content.
enum class ContentKind {
  episodes,
  survey,
  sessionLog,
  keptClass,
  list,
  document,  ///< of an office program: a package or a format of its own
  webPage,
  utf16,
  endsOfCr,  ///< whose lines end with CR alone
  empty,
  binary,
  other,
};

/// The kind of a text as Decode gives it.
ContentKind KindOfContent(std::string_view text);

/// Throws when `text`, which is to be a list, is a file of another kind: it is taken for one where
/// every line is a name.
void RequireList(std::string_view text);

/// Throws what is to be told of `text`, which was to be of the kind `wanted`, when `error` was met
/// in reading it: that it is of another kind; otherwise `error`, with what may have led to it.
[[noreturn]] void FailAs(ContentKind wanted, std::string_view text, const FormatError& error);

}  // namespace orvex
