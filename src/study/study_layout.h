#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "study/study_columns.h"
#include "study/study_filter.h"

namespace orvex {

class Storage;

/// How the table of observations was last set out.
struct StudyLayout {
  struct Column {
    StudyColumn column;
    int width = 0;  ///< in pixels; 0: as wide as its heading and cells need
    bool shown = true;

    bool operator==(const Column&) const = default;
  };
  /// Every column once, in the order shown. At first as in kStudyColumns, all shown.
  std::vector<Column> columns;
  StudyColumn sortedBy = StudyColumn::school;
  bool descending = false;
  StudyFilter filter;

  StudyLayout();
  bool operator==(const StudyLayout&) const = default;
};

/// The path of the layout's file in a program folder.
std::filesystem::path StudyLayoutPath(const std::filesystem::path& programFolder);

/// Reads the lines of a layout. What is missing, unknown or damaged is as in a new layout.
StudyLayout ParseStudyLayout(std::string_view bytes);
/// Reads the layout's file. A new layout when it cannot be read.
StudyLayout ReadStudyLayout(const std::filesystem::path& programFolder);

std::string FormatStudyLayout(const StudyLayout& layout);
/// Replaces the layout's file. Throws FileError.
void WriteStudyLayout(Storage& storage, const std::filesystem::path& programFolder,
                      const StudyLayout& layout);

}  // namespace orvex
