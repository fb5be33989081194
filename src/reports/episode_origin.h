#pragma once

#include <string>

#include "model/episode.h"
#include "store/eps_file.h"

namespace orvex {

/// "Date of Observation: 03-14-2001" and "Observer: AB".
std::string DateText(const EpsHeader& header);
std::string ObserverText(const EpsHeader& header);

/// "7-12-3 Episode 2": heads the reports of a single episode, which counts from 1.
std::string EpisodeTitle(const Identity& identity, int episode);

/// What a report of a single episode says on paper, where no form stands behind it: whose it is.
struct EpisodeOrigin {
  std::string date;
  std::string observer;
  std::string description;  ///< of the episode

  /// The date and the observer on one line, and the description, if there is one, on the next.
  std::string Text() const;
};
EpisodeOrigin OriginOf(const EpsHeader& header, const Episode& episode);

}  // namespace orvex
