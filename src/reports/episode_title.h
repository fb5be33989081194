#pragma once

#include <string>

#include "model/program.h"

namespace orvex {

/// "7-12-3 Episode 2": heads the reports of a single episode, which counts from 1.
inline std::string EpisodeTitle(const Identity& identity, int episode) {
  return identity.ClassId() + " Episode " + std::to_string(episode);
}

}  // namespace orvex
