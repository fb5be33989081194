#include <cstddef>

#include "fuzz/checks.h"
#include "store/text_encoding.h"
#include "study/folded_text.h"
#include "study/log_facts.h"
#include "study/question_search.h"
#include "study/study_layout.h"

namespace orvex::fuzz {

namespace {

/// As much as anybody types into a filter. A search takes time by its length times the text's.
constexpr std::size_t kTyped = 2000;

}  // namespace

std::optional<std::string> CheckStudy(std::string_view bytes) {
  const std::string written = FormatStudyLayout(ParseStudyLayout(bytes));
  Require(ParseStudyLayout(written).columns.size() == kStudyColumnCount, "no column is lost");
  Require(FormatStudyLayout(ParseStudyLayout(written)) == written, "a layout comes back as it was");

  const std::string text = Decode(std::string(bytes.substr(0, kTyped))).text;
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

  Require(FactsOfLog(std::string(bytes)).Estimates() >= 0, "estimates can be counted");
  return written;
}

}  // namespace orvex::fuzz
