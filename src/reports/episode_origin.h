#pragma once

#include <span>
#include <string>

#include "model/episode.h"
#include "store/eps_file.h"

namespace orvex {

/// "Date of Observation: 03-14-2001" and "Observer: AB".
std::string DateText(const EpsHeader& header);
std::string ObserverText(const EpsHeader& header);

/// "7-12-3 Episode 2", the heading of a report on one episode; episodes count from 1.
std::string EpisodeTitle(const Identity& identity, int episode);

/// What identifies an episode, or whole classes, in its printed reports, where no form shows it.
struct EpisodeOrigin {
  std::string date;
  std::string observer;
  std::string description;  ///< the episode's; the names of several classes

  /// The date and the observer on one line, and the description, if there is one, on the next.
  std::string Text() const;
};
EpisodeOrigin OriginOf(const EpsHeader& header, const Episode& episode);
/// The date and the observer of one class, the names of several.
EpisodeOrigin OriginOf(std::span<const EpsObservation> classes);

}  // namespace orvex
