#include "reports/episode_origin.h"

#include "model/texts.h"

namespace orvex {

std::string DateText(const EpsHeader& header) {
  return Say(Text::dateOfObservation, {header.ObservDate});
}

std::string ObserverText(const EpsHeader& header) {
  return Say(Text::observer, {header.identity.Initials});
}

std::string EpisodeTitle(const Identity& identity, int episode) {
  return Say(Text::episodeTitle, {identity.ClassId(), episode});
}

std::string EpisodeOrigin::Text() const {
  if (date.empty() && observer.empty()) return description;
  const std::string text = date + "      " + observer;
  return description.empty() ? text : text + "\n" + description;
}

EpisodeOrigin OriginOf(const EpsHeader& header, const Episode& episode) {
  return {DateText(header), ObserverText(header), episode.Descript};
}

EpisodeOrigin OriginOf(std::span<const EpsObservation> classes) {
  if (classes.size() == 1) {
    const EpsHeader& header = classes.front().header;
    return {DateText(header), ObserverText(header), {}};
  }
  EpisodeOrigin origin;
  for (const EpsObservation& observation : classes) {
    if (!origin.description.empty()) origin.description += ", ";
    origin.description += observation.header.identity.ClassId();
  }
  return origin;
}

}  // namespace orvex
