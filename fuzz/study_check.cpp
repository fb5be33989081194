#include <cstddef>

#include "fuzz/checks.h"
#include "reports/class_picture.h"
#include "store/numbers.h"
#include "store/text_encoding.h"
#include "study/folded_text.h"
#include "study/log_facts.h"
#include "study/question_search.h"
#include "study/study.h"
#include "study/study_layout.h"

namespace orvex::fuzz {
namespace {

/// Shows an observation of which the file says `text` wherever it says something, and lengths of
/// any size.
void ShowAnObservation(const std::string& text) {
  StudyRow row;
  row.name = row.date = row.start = text;
  row.identity = {text, text, text, text, text};
  row.problems = {text};
  row.summary.emplace();
  const auto seconds = ParseNumber(text.substr(0, text.find('\n')));
  row.summary->seconds = seconds.value_or(0);
  row.summary->offtask = seconds;
  const StudyRow empty;
  for (const StudyColumnScheme& scheme : kStudyColumns) {
    CellOf(row, scheme.column);
    const StudySortKey key = SortKeyOf(row, scheme.column);
    const StudySortKey other = SortKeyOf(empty, scheme.column);
    for (const bool descending : {false, true}) {
      Require(!ComesBefore(key, key, descending), "an observation does not come before itself");
      Require(!ComesBefore(key, other, descending) || !ComesBefore(other, key, descending),
              "one of two observations comes first");
    }
  }
  StudyTotals totals;
  totals.seconds = row.summary->seconds;
  Require(!TextOf(totals).empty(), "totals have a text");
}

/// As much as anybody types into a filter. A search takes time by its length times the text's.
constexpr std::size_t kTyped = 2000;

}  // namespace

std::optional<std::string> CheckStudy(std::string_view bytes) {
  const std::string written = FormatStudyLayout(ParseStudyLayout(bytes));
  Require(ParseStudyLayout(written).columns.size() == kStudyColumnCount, "no column is lost");
  Require(FormatStudyLayout(ParseStudyLayout(written)) == written, "a layout comes back as it was");

  const std::string text = Decode(std::string(bytes.substr(0, kTyped))).text;
  ShowAnObservation(text);
  const std::string folded = Folded(text);
  Require(folded.size() == text.size(), "folding changes no lengths");
  Require(Folded(folded) == folded, "what is folded stays as it is");
  for (const Word& word : WordsOf(text)) {
    Require(!word.text.empty() && folded.find(word.text) != std::string::npos,
            "words are parts of the text");
  }

  EpisodeList episodes(1);
  episodes[0].questions.emplace_back().question = text;
  const QuestionBlock questions(episodes);
  Require(questions.Text(0) == text && questions.Searched(0).starts_with(folded),
          "questions are kept whole");
  const QuestionSearch search(text);
  Require(search.Trouble().empty() || !search.Passes(questions, 0),
          "a search in trouble finds nothing");

  const ClassLog log = ClassLogOf(std::string(bytes));
  Require(FactsOf(log).Estimates() >= 0, "estimates can be counted");
  episodes[0].segments.emplace_back().SetData(kQuestionAnswer, 60);
  Require(MakeClassPicture({}, episodes, &log).questions.size() == 1, "a question is drawn once");
  return written;
}

}  // namespace orvex::fuzz
