#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "commands/console.h"
#include "model/wording.h"

namespace orvex {

/// Shows "12 of 300 files" on one line of the terminal and clears that line afterwards.
class Progress {
 public:
  /// `things` says what is counted: "file".
  Progress(const Console& console, std::string things)
      : console_(console), things_(std::move(things)) {}
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Show(std::size_t done, std::size_t count) {
    constexpr std::size_t kSteps = 200;  // printing more often would slow the work down
    if (!console_.showsProgress || done < next_) return;
    next_ = done + count / kSteps + 1;
    console_.err << "\r" << done << " of " << Counted(count, things_) << std::flush;
    shown_ = true;
  }
  void Clear() {
    constexpr const char* kStartOfEmptyLine = "\r\033[K";
    if (std::exchange(shown_, false)) console_.err << kStartOfEmptyLine << std::flush;
  }

 private:
  const Console& console_;
  std::string things_;
  std::size_t next_ = 0;
  bool shown_ = false;
};

}  // namespace orvex
