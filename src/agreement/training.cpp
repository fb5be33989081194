#include "agreement/training.h"

#include "study/tabbed_text.h"

namespace orvex {
namespace {

/// All codes of all dimensions, the whether-normal aside: that follows from the others.
std::vector<TrainedCode> AllCodes() {
  std::vector<TrainedCode> codes;
  const auto& dimensions = ComparedDimensions();
  for (std::size_t i = 0; i < dimensions.size(); ++i) {
    if (!dimensions[i].dimension) continue;
    for (std::size_t code = 0; code < dimensions[i].letters.size(); ++code) {
      codes.push_back({.dimension = i, .code = code});
    }
  }
  return codes;
}

/// Counts the codes of a question; null for the one who did not write it down.
void CountQuestion(const AskedQuestion* ofMaster, const AskedQuestion* ofTrainee,
                   std::vector<TrainedCode>& codes) {
  for (TrainedCode& counted : codes) {
    const ComparedDimension& dimension = ComparedDimensions()[counted.dimension];
    const auto gave = [&](const AskedQuestion* asked) {
      return asked != nullptr && dimension.CodeOf(*asked->question) == counted.code;
    };
    const bool masterGave = gave(ofMaster);
    const bool traineeGave = gave(ofTrainee);
    if (masterGave) ++counted.ofMaster;
    if (masterGave && ofTrainee == nullptr) ++counted.missed;
    if (masterGave && traineeGave) ++counted.found;
    if (!masterGave && traineeGave) ++counted.added;
  }
}

}  // namespace

Training TrainingOf(const Comparison& comparison) {
  Training training;
  training.codes = AllCodes();
  const bool isFirst = comparison.MasterIs() == Master::first;
  for (const PairRow& row : comparison.Rows()) {
    const AskedQuestion* ofMaster = isFirst ? row.first : row.second;
    const AskedQuestion* ofTrainee = isFirst ? row.second : row.first;
    if (ofMaster != nullptr) ++training.ofMaster;
    if (ofTrainee == nullptr) {
      ++training.missed;
    } else if (ofMaster == nullptr) {
      ++training.added;
    } else {
      ++training.found;
      if (row.IsDisagreement()) ++training.codedOtherwise;
    }
    CountQuestion(ofMaster, ofTrainee, training.codes);
  }
  std::erase_if(training.codes,
                [](const TrainedCode& code) { return code.ofMaster + code.added == 0; });
  return training;
}

std::string NameOf(const TrainedCode& code) {
  const ComparedDimension& dimension = ComparedDimensions()[code.dimension];
  return std::string(dimension.label) + ": " + dimension.letters[code.code] + " (" +
         std::string(SchemeOf(*dimension.dimension).meanings[code.code]) + ")";
}

std::string TextOf(const Training& training) {
  std::string text;
  AddTabbedLine(text,
                {"TRAINEE", "Of the master's", "Found", "Missed", "Added", "Coded otherwise"});
  AddTabbedLine(text, {"Questions", std::to_string(training.ofMaster),
                       std::to_string(training.found), std::to_string(training.missed),
                       std::to_string(training.added), std::to_string(training.codedOtherwise)});
  for (const TrainedCode& code : training.codes) {
    AddTabbedLine(text, {NameOf(code), std::to_string(code.ofMaster), std::to_string(code.found),
                         std::to_string(code.missed), std::to_string(code.added),
                         std::to_string(code.CodedOtherwise())});
  }
  return text;
}

}  // namespace orvex
