#include "agreement/question_words.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <utility>

#include "store/text_encoding.h"
#include "study/folded_text.h"

namespace orvex {
namespace {

/// The small letters from U+00DF to U+00FF and, of those from U+0100 to U+017F,
/// in pairs of a capital and a small one, without their accents.
constexpr std::string_view kLatin1 = "saaaaaaaceeeeiiiidnooooo ouuuuyty";
constexpr std::string_view kLatinExtended =
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkklllllllllln"
    "nnnnnnnnoooooooorrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";

/// The letter without its accent, of those that Latin languages use.
constexpr char32_t Unaccented(char32_t letter) {
  if (letter >= 0xDF && letter <= 0xFF) return static_cast<char32_t>(kLatin1[letter - 0xDF]);
  if (letter >= 0x100 && letter <= 0x17F) {
    return static_cast<char32_t>(kLatinExtended[letter - 0x100]);
  }
  return letter;
}
static_assert(kLatin1.size() == 0xFF - 0xDF + 1 && kLatinExtended.size() == 0x80);

constexpr bool IsBetween(char32_t character, char32_t first, char32_t last) {
  return character >= first && character <= last;
}
constexpr bool IsFigure(char32_t character) {
  return IsBetween(character, '0', '9');
}
/// Everything beyond ASCII counts as a letter that is no known sign.
constexpr bool IsOfWord(char32_t character) {
  if (character < 0x80) return IsFigure(character) || IsBetween(character, 'a', 'z');
  const bool isSign = character < 0xC0 || character == 0xD7 || character == 0xF7 ||
                      IsBetween(character, 0x2000, 0x2BFF) || IsBetween(character, 0x3000, 0x303F);
  return !isSign;
}
/// Part of a word, but left out: apostrophes, and accents that follow their
/// letter.
constexpr bool IsDropped(char32_t character) {
  return character == '\'' || character == 0x2019 || IsBetween(character, 0x300, 0x36F);
}
/// Written without blanks between words: each counts as a word.
constexpr bool IsIdeograph(char32_t character) {
  return IsBetween(character, 0x3040, 0x9FFF) || IsBetween(character, 0xF900, 0xFAFF) ||
         IsBetween(character, 0x20000, 0x3FFFF);
}

/// The edits that make one word of another: letters added, dropped, replaced,
/// or swapped with the next. The words may not be longer than kLongestWord.
constexpr std::size_t kLongestWord = 40;
std::size_t EditsBetween(std::u32string_view one, std::u32string_view other) {
  using Row = std::array<std::size_t, kLongestWord + 1>;
  Row beforeLast{};
  Row last{};
  Row row{};
  for (std::size_t j = 0; j <= other.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= one.size(); ++i) {
    beforeLast = std::exchange(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= other.size(); ++j) {
      const bool equal = one[i - 1] == other[j - 1];
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (equal ? 0U : 1U)});
      const bool swapped =
          i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1];
      if (swapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return row[other.size()];
}

/// True when `shorter` may stand for `longer`: it is made of some of its
/// letters in their order, the first or the last among them. A single letter
/// stands for nothing longer than "why" and "you".
bool IsShortFor(std::u32string_view shorter, std::u32string_view longer) {
  constexpr std::size_t kMostForOneLetter = 3;
  if (shorter.size() >= longer.size()) return false;
  if (shorter.size() == 1 && longer.size() > kMostForOneLetter) return false;
  if (shorter.front() != longer.front() && shorter.back() != longer.back()) return false;
  std::size_t found = 0;
  for (const char32_t letter : longer) {
    if (found < shorter.size() && shorter[found] == letter) ++found;
  }
  return found == shorter.size();
}

}  // namespace

std::vector<std::u32string> QuestionWords(std::string_view text) {
  std::vector<std::u32string> words;
  std::u32string word;
  const auto endWord = [&] {
    if (!word.empty()) words.push_back(std::exchange(word, {}));
  };
  const std::string folded = Folded(text);
  std::string_view rest = folded;
  while (!rest.empty() && words.size() < kMostQuestionWords) {
    const char32_t character = TakeCharacter(rest);
    if (character == kNotUtf8) {
      rest.remove_prefix(1);
      endWord();
    } else if (IsIdeograph(character)) {
      endWord();
      words.emplace_back(1, character);
    } else if (character == '&') {
      endWord();
      words.emplace_back(U"and");
    } else if (IsOfWord(character) && !IsDropped(character)) {
      word += Unaccented(character);
    } else if (!IsDropped(character)) {
      endWord();
    }
  }
  endWord();
  if (words.empty()) words.emplace_back(text.begin(), text.end());
  return words;
}

ComparedWord::ComparedWord(std::u32string_view text)
    : text_(text), hasFigure_(std::ranges::any_of(text, IsFigure)) {
  constexpr char32_t kBits = 64;
  for (const char32_t letter : text) letters_ |= std::uint64_t{1} << letter % kBits;
}

double ComparedWord::LikenessTo(const ComparedWord& other) const {
  if (text_ == other.text_) return 1;
  const auto [shorter, longer] =
      text_.size() < other.text_.size() ? std::pair(this, &other) : std::pair(&other, this);
  const std::size_t length = longer->text_.size();
  // A number is right or wrong.
  if (hasFigure_ || other.hasFigure_ || length > kLongestWord) return 0;
  const double share = static_cast<double>(shorter->text_.size()) / static_cast<double>(length);
  const bool hasAllLetters = (shorter->letters_ & ~longer->letters_) == 0;
  if (hasAllLetters && IsShortFor(shorter->text_, longer->text_)) return (1 + share) / 2;

  // Of short words too many are one letter apart: "why" and "who". An edit
  // changes two letters at most.
  constexpr std::size_t kLettersToAnEdit = 4;
  const std::size_t mostEdits = length / kLettersToAnEdit;
  if (length - shorter->text_.size() > mostEdits) return 0;
  const auto otherLetters = static_cast<std::size_t>(std::popcount(letters_ ^ other.letters_));
  if (otherLetters > 2 * mostEdits) return 0;
  const std::size_t edits = EditsBetween(shorter->text_, longer->text_);
  if (edits > mostEdits) return 0;
  return 1 - static_cast<double>(edits) / static_cast<double>(length);
}

}  // namespace orvex
