#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "agreement/comparison.h"

namespace orvex {

/// How a trainee coded the questions to which the master gave a code.
struct TrainedCode {
  std::size_t dimension = 0;  ///< a position in ComparedDimensions()
  std::size_t code = 0;       ///< a position in its letters
  std::size_t ofMaster = 0;   ///< questions that the master gave the code
  std::size_t missed = 0;     ///< of these, those that the trainee did not write down
  std::size_t found = 0;      ///< of these, those that the trainee gave it
  std::size_t added = 0;      ///< questions that only the trainee gave the code

  /// The master's that the trainee wrote down and gave another code, or none.
  std::size_t CodedOtherwise() const { return ofMaster - missed - found; }
};

/// How a trainee did, measured by a master.
struct Training {
  std::size_t ofMaster = 0;        ///< the master's questions
  std::size_t found = 0;           ///< those of them that the trainee wrote down
  std::size_t missed = 0;          ///< those that the trainee did not
  std::size_t added = 0;           ///< questions that only the trainee wrote down
  std::size_t codedOtherwise = 0;  ///< of the found ones, in a dimension or more
  /// The codes that either of the two gave, by dimension and code.
  std::vector<TrainedCode> codes;
};
/// What of a comparison speaks of the trainee; there must be a master.
Training TrainingOf(const Comparison& comparison);

/// "Uptake: A (Authentic)".
std::string NameOf(const TrainedCode& code);
/// As lines of tab-separated fields.
std::string TextOf(const Training& training);

}  // namespace orvex
