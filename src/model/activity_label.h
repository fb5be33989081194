#pragma once

#include <string>

#include "model/episode.h"

namespace orvex {

/// "Discussion: 12 Question(s)": an episode's first activity, as a caption, and how many questions
/// it holds; " (Review Session)" follows where it was one and `withReview` is set. Nothing for an
/// episode without segments; an activity without a name shows its number.
std::string ActivityLabel(const Episode& episode, bool withReview = true);

}  // namespace orvex
