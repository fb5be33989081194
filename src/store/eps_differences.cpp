#include "store/eps_differences.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

#include "model/dimensions.h"
#include "model/wording.h"
#include "store/eps_reader.h"
#include "store/eps_trace.h"
#include "store/eps_writer.h"
#include "store/numbers.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kBanner = "the banner";
constexpr std::string_view kHeading = "the heading of an episode";
constexpr std::string_view kQuestion = "the text of a question";
constexpr std::string_view kLetter = "a code letter";
constexpr std::string_view kSpell = "the length of a dialogic spell";

/// A text from a file between quotes, on one line and not too long for a message.
std::string InQuotes(std::string_view text) {
  constexpr std::size_t kMostBytes = 60;
  std::string line = OneLine(text);
  if (line.size() > kMostBytes) {
    std::size_t end = kMostBytes;
    while ((static_cast<unsigned char>(line[end]) & 0xC0U) == 0x80U) --end;  // whole characters
    line.replace(end, std::string::npos, "...");
  }
  return "\"" + line + "\"";
}

bool AreEqualNumbers(std::string_view a, std::string_view b) {
  const auto one = ParseNumber(a);
  const auto other = ParseNumber(b);
  if (!one || !other) return false;
  constexpr double kSevenDigits = 1e-6;
  return std::abs(*one - *other) <= kSevenDigits * std::abs(*one);
}

bool AreEqualLetters(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](unsigned char one, unsigned char other) {
    return std::toupper(one) == std::toupper(other);
  });
}

/// The parts of a question's line.
struct QuestionLine {
  explicit QuestionLine(std::string_view line) : text(line) {
    constexpr std::string_view kClose = "----->)";
    ParseQuestionMarker(text, ep, sg);
    std::string_view marker = line.substr(text.size());
    marked = !marker.empty();
    if (marked) tail = WithoutBlanks(marker.substr(marker.find(kClose) + kClose.size()));
  }
  std::string Place() const { return std::to_string(ep) + " ; " + std::to_string(sg); }

  std::string text;
  std::int16_t ep = 0;
  std::int16_t sg = 0;
  bool marked = false;
  std::string_view tail;  ///< what follows the marker
};

/// An episode file, and what the reader takes from it.
struct TracedFile : EpsReadEvents {
  explicit TracedFile(const std::string& bytes)
      : file(Decode(bytes)), marked(WithoutByteOrderMark(bytes).size() < bytes.size()) {
    fields = TraceEps(file, *this);
    const bool hasBanner = !ParseNumber(fields.front().value);
    fields.front().what = hasBanner ? kBanner : "the school number";
  }
  bool ContinueWithEarlierVersion() override { return true; }
  void FirstSegmentRepaired(int /*ep*/) override {}
  void TextAfterLastQuestion(int line, std::string_view text) override {
    lineAfter = line;
    textAfter = text;
  }

  DecodedText file;
  bool marked;  ///< begins with a byte order mark
  std::vector<ReadField> fields;
  std::string_view textAfter;  ///< text after the last question, and the line where it begins
  int lineAfter = 0;
};

class Comparison {
 public:
  Comparison(const std::string& bytes, const std::string& rewritten)
      : old_(bytes), new_(rewritten) {}

  EpsDifferences Compare() {
    CompareTextAfter();
    CompareFields();
    if (old_.file.text.find("\r\n") == kNone) TellForm("the line ends");
    if (old_.marked) TellForm("the byte order mark");
    if (found_.None()) TellForm("blanks, quotes, and the spelling of numbers and codes");
    return std::move(found_);
  }

 private:
  using Fields = std::vector<ReadField>;

  /// Both files have the same fields in the same order, except for a few that only one of them
  /// states.
  void CompareFields() {
    auto field = old_.fields.begin();
    auto rewritten = new_.fields.begin();
    while (field != old_.fields.end() && rewritten != new_.fields.end()) {
      if (field->what == rewritten->what) {
        CompareField(*field++, *rewritten++);
      } else {
        Synchronize(field, rewritten);
      }
    }
  }

  /// Moves both on to the next fields of the same kind.
  void Synchronize(Fields::iterator& field, Fields::iterator& rewritten) {
    // No record has more fields that may be left out than a question has codes.
    constexpr auto kMost = std::ssize(kLetteredDimensions);
    if (rewritten->what == kBanner) TellForm(kBanner);
    // Skip the lengths of spells: the number of spells has already been compared.
    const auto isSpell = [](const ReadField& one) { return one.what == kSpell; };
    field = std::find_if_not(field, old_.fields.end(), isSpell);
    rewritten = std::find_if_not(rewritten, new_.fields.end(), isSpell);
    for (std::ptrdiff_t apart = 0; apart <= kMost; ++apart) {
      for (std::ptrdiff_t dropped = 0; dropped <= apart; ++dropped) {
        if (!Meet(field, dropped, rewritten, apart - dropped)) continue;
        rewritten += apart - dropped;
        for (; dropped > 0; --dropped) TellDropped(*field++);
        return;
      }
    }
    Tell(field->position, "what follows is written anew");
    field = old_.fields.end();
  }

  bool Meet(Fields::iterator field, std::ptrdiff_t dropped, Fields::iterator rewritten,
            std::ptrdiff_t added) const {
    return dropped < old_.fields.end() - field && added < new_.fields.end() - rewritten &&
           field[dropped].what == rewritten[added].what;
  }

  void CompareField(const ReadField& field, const ReadField& rewritten) {
    if (!field.dropped.empty()) {
      Tell(field.position, "behind the quotes: " + InQuotes(field.dropped) + " is left out");
    }
    if (field.value == rewritten.value) return;
    if (field.what == kQuestion) return CompareQuestions(field, rewritten);
    if (field.what == kBanner) return TellForm(kBanner);
    if (field.what == kLetter && AreEqualLetters(field.value, rewritten.value)) return;
    if (field.what == kHeading && IsHeading(field.value)) return;
    if (AreEqualNumbers(field.value, rewritten.value)) return;
    TellChange(field.position, field.what, field.value, rewritten.value);
  }

  /// True for a heading that says no more than the one this program writes.
  static bool IsHeading(std::string_view line) {
    return line.find_first_not_of("* ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789") == kNone;
  }

  void CompareQuestions(const ReadField& field, const ReadField& rewritten) {
    const QuestionLine before(field.value);
    const QuestionLine after(rewritten.value);
    TellChange(field.position, field.what, before.text, after.text);
    constexpr std::string_view kPlace = "the question's episode and segment";
    if (!before.marked) {
      Tell(field.position, std::string(kPlace) + ": " + after.Place() + " are added");
    } else {
      TellChange(field.position, kPlace, before.Place(), after.Place());
    }
    TellChange(field.position, "behind the question's episode and segment", before.tail, "");
  }

  void CompareTextAfter() {
    const std::string_view text = old_.textAfter;
    if (text.empty()) return;
    constexpr std::string_view kMarker = "(<-----";
    std::size_t questions = 0;
    for (std::size_t at = text.find(kMarker); at != kNone; at = text.find(kMarker, at + 1)) {
      ++questions;
    }
    const std::string which =
        questions == 0 ? "" : ", with " + Counted(questions, "question") + " in it,";
    found_.contents.push_back(
        {old_.lineAfter, "text after the last question" + which + " is left out: " +
                             InQuotes(text.substr(0, text.find_first_of("\r\n")))});
  }

  void TellForm(std::string_view what) { found_.form.emplace_back(what); }

  void TellDropped(const ReadField& field) {
    TellChange(field.position, field.what, field.value, "");
  }

  void TellChange(std::size_t position, std::string_view what, std::string_view before,
                  std::string_view after) {
    if (before == after) return;
    std::string text = std::string(what) + ": ";
    if (OneLine(before) == after) {
      text += "a line end within " + InQuotes(before) + " becomes a blank";
    } else if (after.empty()) {
      text += InQuotes(before) + " is left out";
    } else {
      text += InQuotes(before) + " becomes " + InQuotes(after);
    }
    Tell(position, std::move(text));
  }

  void Tell(std::size_t position, std::string text) {
    const std::string_view file = old_.file.text;
    const auto begin = file.begin() + static_cast<std::ptrdiff_t>(counted_);
    const auto end = file.begin() + static_cast<std::ptrdiff_t>(position);
    line_ += static_cast<int>(std::count(begin, end, '\n'));
    counted_ = position;
    found_.contents.push_back({line_, std::move(text)});
  }

  TracedFile old_;
  TracedFile new_;
  EpsDifferences found_;
  std::size_t counted_ = 0;  ///< how far line ends have been counted
  int line_ = 1;
};

}  // namespace

bool EpsDifferences::OnlyBanner() const {
  return contents.empty() && form.size() == 1 && form.front() == kBanner;
}

EpsDifferences DifferencesOf(const std::string& bytes, const EpsObservation& read) {
  const std::string rewritten = FormatEps(read.header, read.Episodes);
  if (bytes == rewritten) return {};
  return Comparison(bytes, rewritten).Compare();
}

}  // namespace orvex
