#include "reports/episode_origin.h"

namespace orvex {

std::string DateText(const EpsHeader& header) {
  return "Date of Observation: " + header.ObservDate;
}

std::string ObserverText(const EpsHeader& header) {
  return "Observer: " + header.identity.Initials;
}

std::string EpisodeTitle(const Identity& identity, int episode) {
  return identity.ClassId() + " Episode " + std::to_string(episode);
}

std::string EpisodeOrigin::Text() const {
  const std::string text = date + "      " + observer;
  return description.empty() ? text : text + "\n" + description;
}

EpisodeOrigin OriginOf(const EpsHeader& header, const Episode& episode) {
  return {DateText(header), ObserverText(header), episode.Descript};
}

}  // namespace orvex
