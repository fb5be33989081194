#pragma once

#include <string>
#include <vector>

#include "store/eps_file.h"

namespace orvex {

/// A place where writing an episode file again would drop or change what it says.
struct EpsDifference {
  int line = 0;      ///< in the file, counted from 1 as in an editor
  std::string text;  ///< "the number of questions: \"-1\" becomes \"0\""

  bool operator==(const EpsDifference&) const = default;
};

/// What writing an episode file again would do to its bytes: changes to what the file says
/// (contents) and to how it says it (form).
struct EpsDifferences {
  std::vector<EpsDifference> contents;  ///< text after the last question first, then in order
  std::vector<std::string> form;        ///< "the line ends"

  bool None() const { return contents.empty() && form.empty(); }
  /// True when the banner in the first line is the only difference.
  bool OnlyBanner() const;
};

/// Compares the bytes of an episode file with those that would be written for `read`, which was
/// read from them.
EpsDifferences DifferencesOf(const std::string& bytes, const EpsObservation& read);

}  // namespace orvex
