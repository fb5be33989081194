#include "agreement/row_text.h"

#include "agreement/comparison.h"
#include "agreement/observer_name.h"

namespace orvex {
namespace {

constexpr std::string_view kLeftOut = "-";

/// The letter of a question; "-" where it was left out.
std::string_view LetterOf(const ComparedDimension& compared, const questionInfo& question) {
  const auto code = compared.CodeOf(question);
  return code ? compared.letters.substr(*code, 1) : kLeftOut;
}

/// The letter with what it stands for: "T (Test)".
std::string MeaningOf(const ComparedDimension& compared, const questionInfo& question) {
  const auto code = compared.CodeOf(question);
  if (!code) return "left out";
  std::string meaning(compared.letters.substr(*code, 1));
  if (!compared.dimension) return meaning;
  return meaning.append(" (").append(SchemeOf(*compared.dimension).meanings[*code]).append(")");
}

std::string LineOf(const std::string& name, const AskedQuestion& asked) {
  return name + ", episode " + std::to_string(asked.episode) + ", question " +
         std::to_string(asked.number) + ": " + asked.question->question + "\n";
}

}  // namespace

std::string MarkOf(const Comparison& comparison, const PairRow& row) {
  if (row.pair.IsOfBoth()) return row.differing.empty() ? "" : "\u2260 coded otherwise";
  const Side side = row.first ? Side::first : Side::second;
  if (comparison.MasterIs() == Master::none) {
    return "only " + NameOfObserver(comparison.Result(), side);
  }
  const bool isMasters = (comparison.MasterIs() == Master::first) == (side == Side::first);
  return isMasters ? "missed" : "added";
}

std::string DifferenceText(const PairRow& row) {
  std::string text;
  if (!row.pair.IsOfBoth()) return text;
  for (const std::size_t position : row.differing) {
    const ComparedDimension& compared = ComparedDimensions()[position];
    text.append(text.empty() ? "" : ", ").append(compared.label).append(" ");
    text.append(LetterOf(compared, *row.first->question)).append(" / ");
    text.append(LetterOf(compared, *row.second->question));
  }
  return text;
}

std::string DetailsOf(const Comparison& comparison, const PairRow& row) {
  const std::string first = NameOfObserver(comparison.Result(), Side::first);
  const std::string second = NameOfObserver(comparison.Result(), Side::second);
  std::string text;
  if (row.first) text += LineOf(first, *row.first);
  if (row.second) text += LineOf(second, *row.second);
  if (!row.pair.IsOfBoth()) return text;
  for (const std::size_t position : row.differing) {
    const ComparedDimension& compared = ComparedDimensions()[position];
    text.append(compared.label).append(": ").append(first).append(" ");
    text.append(MeaningOf(compared, *row.first->question)).append(", ").append(second);
    text.append(" ").append(MeaningOf(compared, *row.second->question)).append("\n");
  }
  return text;
}

}  // namespace orvex
