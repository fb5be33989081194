#pragma once

#include <string>
#include <vector>

#include "store/eps_file.h"

namespace orvex {

/// A place where writing an episode file again drops or changes what it says.
struct EpsDifference {
  int line = 0;      ///< of the file, counted from 1 as an editor would
  std::string text;  ///< "the number of questions: \"-1\" becomes \"0\""

  bool operator==(const EpsDifference&) const = default;
};

/// What writing an episode file again does to its bytes.
struct EpsDifferences {
  std::vector<EpsDifference>
      contents;                   ///< to what it says, text after the last question, then in order
  std::vector<std::string> form;  ///< to how it says it: "the line ends"

  bool None() const { return contents.empty() && form.empty(); }
  /// The only difference is the program's version in the first line.
  bool OnlyBanner() const;
};

/// Compares the bytes of an episode file with those of `read`, which was read from them.
EpsDifferences DifferencesOf(const std::string& bytes, const EpsObservation& read);

}  // namespace orvex
