#include "store/content_kind.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

namespace orvex {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
/// How many bytes of a text most checks look at: the beginning is enough.
constexpr std::size_t kBeginning = 4096;

std::string_view FirstLine(std::string_view text) {
  return text.substr(0, text.find_first_of("\r\n"));
}

bool Holds(std::string_view text, std::string_view part) {
  return text.find(part) != kNone;
}

/// True for a byte order mark of UTF-16, which Decode takes for two letters of Windows-1252, or for
/// zeros between the letters.
bool IsUtf16(std::string_view text) {
  if (text.starts_with("\u00FF\u00FE") || text.starts_with("\u00FE\u00FF")) return true;
  return text.size() > 3 && ((text[0] == '\0' && text[2] == '\0' && text[1] != '\0') ||
                             (text[1] == '\0' && text[3] == '\0' && text[0] != '\0'));
}

/// True for zipped office documents, older binary ones, rich text and PDF.
bool IsDocument(std::string_view text) {
  constexpr std::array<std::string_view, 4> kStarts = {"PK\x03\x04", "\u00D0\u00CF\u0011\u00E0",
                                                       "{\\rtf", "%PDF-"};
  return std::ranges::any_of(kStarts, [&](auto start) { return text.starts_with(start); });
}

bool IsWebPage(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\r\n");
  if (start == kNone || text[start] != '<') return false;
  return text.size() > start + 1 &&
         (text[start + 1] == '!' || text[start + 1] == '?' || (text[start + 1] | 0x20) == 'h');
}

/// True for a name such as "5-12-3", with or without a folder before it.
bool IsName(std::string_view line) {
  const std::size_t last = line.find_last_not_of("0123456789-");
  const std::string_view name = last == kNone ? line : line.substr(last + 1);
  const bool folder = last == kNone || line[last] == '/' || line[last] == '\\';
  return folder && std::ranges::count(name, '-') == 2 && !name.starts_with('-') &&
         !name.ends_with('-') && !Holds(name, "--");
}

bool IsList(std::string_view text) {
  bool any = false;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    line = line.substr(0, line.find_last_not_of(" \t\r") + 1);
    if (!line.empty() && !IsName(line)) return false;
    any = any || !line.empty();
  }
  return any;
}

/// True when lines end with CR alone. A CR at the very end does not count: it may be half of a CR
/// LF.
bool EndsOfCr(std::string_view text) {
  return text.substr(0, text.size() - 1).find('\r') != kNone && !Holds(text, "\n");
}

/// True when there are control characters that no text has.
bool IsBinary(std::string_view text) {
  constexpr std::string_view kOfTexts = "\t\n\v\f\r\x1A\x1B";
  return std::ranges::any_of(text, [&](char c) {
    return static_cast<unsigned char>(c) < ' ' && kOfTexts.find(c) == kNone;
  });
}

/// Goes by the banner or, in a file without one, by a heading.
ContentKind KindOfOurs(std::string_view text) {
  const std::string_view banner = FirstLine(text);
  if (Holds(banner, "Orvex")) {
    constexpr std::array<std::pair<std::string_view, ContentKind>, 5> kBanners = {{
        {"EPS file", ContentKind::episodes},
        {"SUR file", ContentKind::survey},
        {"BAK file", ContentKind::sessionLog},
        {"Orvex recovery", ContentKind::keptClass},
        {"Orvex unsaved changes", ContentKind::keptClass},
    }};
    for (const auto& [words, kind] : kBanners) {
      if (Holds(banner, words)) return kind;
    }
  }
  if (Holds(text, "\nMATRICES")) return ContentKind::survey;
  if (Holds(text, "\nLOG ON: ")) return ContentKind::sessionLog;
  return Holds(text, "*** EPISODE ") ? ContentKind::episodes : ContentKind::other;
}

/// The words for a kind, to follow "this is".
std::string_view NameOf(ContentKind kind) {
  switch (kind) {
    case ContentKind::episodes:
      return "an episode file";
    case ContentKind::survey:
      return "a survey file";
    case ContentKind::sessionLog:
      return "a session log";
    case ContentKind::keptClass:
      return "a recovery file";
    case ContentKind::list:
      return "a list of observations";
    case ContentKind::document:
      return "a spreadsheet or another office document";
    case ContentKind::webPage:
      return "a web page";
    case ContentKind::utf16:
      return "a text in UTF-16";
    case ContentKind::endsOfCr:
      return "a text whose lines end with CR alone";
    case ContentKind::empty:
      return "an empty file";
    case ContentKind::binary:
      return "a binary file";
    case ContentKind::other:
      break;
  }
  return "not a file of Orvex";
}

std::string IsNot(ContentKind kind, ContentKind wanted) {
  const std::string what = "this is " + std::string(NameOf(kind)) + ", not ";
  if (kind == ContentKind::utf16) return what + "in UTF-8 or Windows-1252";
  if (kind == ContentKind::endsOfCr) return what + "with CR LF or LF";
  return what + std::string(NameOf(wanted));
}

/// True at the line break within a survey's double heading, which may be an LF alone.
bool IsDoubleHeading(std::string_view text, std::size_t end) {
  return text[end] == '\n' && text.substr(end + 1).starts_with("INFORMATIONAL:");
}

/// "; line 5 ends with LF alone, others end with CR LF": names the first line that ends differently
/// from the other lines of the file. Empty when there is none.
std::string MixedEnds(std::string_view text) {
  const bool crLf = Holds(text, "\r\n");
  for (std::size_t at = text.find_first_of("\r\n"); at != kNone && at + 1 < text.size();
       at = text.find_first_of("\r\n", at + 1)) {
    if (text.substr(at).starts_with("\r\n")) {
      ++at;
      continue;
    }
    if ((text[at] == '\n' && !crLf) || IsDoubleHeading(text, at)) continue;
    const auto lines = std::ranges::count(text.substr(0, at), '\n');
    return "; line " + std::to_string(lines + 1) +
           (text[at] == '\r' ? " holds a CR" : " ends with LF") + " alone, others end with " +
           (crLf ? "CR LF" : "LF");
  }
  return "";
}

}  // namespace

ContentKind KindOfContent(std::string_view text) {
  const std::string_view beginning = text.substr(0, kBeginning);
  if (text.empty()) return ContentKind::empty;
  if (IsUtf16(beginning)) return ContentKind::utf16;
  if (IsDocument(beginning)) return ContentKind::document;
  if (IsWebPage(beginning)) return ContentKind::webPage;
  if (EndsOfCr(text)) return ContentKind::endsOfCr;
  const ContentKind ours = KindOfOurs(beginning);
  if (ours != ContentKind::other) return ours;
  if (IsBinary(beginning)) return ContentKind::binary;
  return IsList(text) ? ContentKind::list : ContentKind::other;
}

void RequireList(std::string_view text) {
  const ContentKind kind = KindOfContent(text);
  constexpr std::array kAccepted = {ContentKind::list, ContentKind::empty, ContentKind::binary,
                                    ContentKind::other};
  if (std::ranges::find(kAccepted, kind) != kAccepted.end()) return;
  throw FormatError(FilePlace{}, IsNot(kind, ContentKind::list));
}

void FailAs(ContentKind wanted, std::string_view text, const FormatError& error) {
  const ContentKind kind = KindOfContent(text);
  if (kind == ContentKind::other) {
    throw FormatError(error.Place(), error.Text() + "; this does not look like a file of Orvex");
  }
  if (kind != wanted) throw FormatError(FilePlace{}, IsNot(kind, wanted));
  throw FormatError(error.Place(), error.Text() + MixedEnds(text));
}

}  // namespace orvex
