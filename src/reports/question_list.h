#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/episode.h"

namespace orvex {

struct ClassPicture;

/// All questions of a class with their codes, a row each, in the order in which they were asked.
struct QuestionList {
  struct Column {
    std::string_view heading;
    bool isNarrow = false;  ///< its cells are a letter or a number
  };
  std::vector<Column> columns;
  std::vector<std::vector<std::string>> rows;  ///< a cell for each column
};

/// `picture` is the one of the same episodes. It tells when the questions were asked, where the
/// session log says; without any time there is no column for it.
QuestionList MakeQuestionList(const EpisodeList& episodes, const ClassPicture& picture);

}  // namespace orvex
