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
  const std::string text = date + "      " + observer;
  return description.empty() ? text : text + "\n" + description;
}

EpisodeOrigin OriginOf(const EpsHeader& header, const Episode& episode) {
  return {DateText(header), ObserverText(header), episode.Descript};
}

}  // namespace orvex
