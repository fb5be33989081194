#pragma once

#include <string>
#include <vector>

#include "study/folded_text.h"
#include "study/study_row.h"

namespace orvex {

/// Which observations are shown.
struct StudyFilter {
  std::string text = {};       ///< every word of it must occur in a cell, in any case
  bool notFullyCoded = false;  ///< only those with questions that are not fully coded
  bool noSurvey = false;       ///< only those without a survey that can be read
  bool problems = false;       ///< only those with problems
  bool mine = false;           ///< only those of the observer with these initials
  std::string initials = {};

  bool operator==(const StudyFilter&) const = default;
};

/// What `text` of a filter is searched in: all cells of the row, folded.
std::string SearchedText(const StudyRow& row);

/// A filter made ready for many rows.
class StudyFilterTest {
 public:
  explicit StudyFilterTest(const StudyFilter& filter);
  /// `searched` is the SearchedText of the row.
  bool Passes(const StudyRow& row, const std::string& searched) const;

 private:
  StudyFilter filter_;
  std::vector<Word> words_;
};

}  // namespace orvex
