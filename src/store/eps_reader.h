#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "store/eps_file.h"

namespace orvex {

/// The messages for a file of an earlier version, for a first segment of episode `ep` that needs
/// repair, and for one that has been repaired.
inline constexpr const char* kEarlierVersionText =
    "EPS file created by an earlier version of ORVEX.";
std::string InconsistentText(int ep);
std::string RepairedText(int ep);

/// What the reader reports while it reads.
class EpsReadEvents {
 public:
  virtual ~EpsReadEvents() = default;
  /// The file is from an earlier version of the program. Return false to give up reading.
  virtual bool ContinueWithEarlierVersion() = 0;
  /// The first segment of episode `ep` had a different activity from the episode's; it has been
  /// repaired.
  virtual void FirstSegmentRepaired(int ep) = 0;

  /// The header announces `count` episodes. Useful with `EpisodeRead`.
  virtual void EpisodesToCome(int /*count*/) {}
  /// Return true to get the question counts that the file states. They must then fit 16 bits.
  virtual bool WantsCounts() const { return false; }
  /// Episode `ep` has been read, up to its last question. `stated` holds the counts that the file
  /// states, if WantsCounts.
  virtual void EpisodeRead(int /*ep*/, const Episode& /*episode*/,
                           const QuestionCounts& /*stated*/) {}
  /// Everything that the file announces has been read, but more `text` follows, starting in line
  /// `line`.
  virtual void TextAfterLastQuestion(int /*line*/, std::string_view /*text*/) {}
};

/// Thrown when the caller declines to go on with a file of an earlier version.
struct ReadingDeclined {};

/// Reads the bytes of an episode file. Throws FormatError, or ReadingDeclined.
EpsObservation ParseEps(std::string bytes, EpsReadEvents& events);
/// Reads an episode file. Throws FileError, FormatError or ReadingDeclined.
EpsObservation ReadEpsFile(const std::filesystem::path& path, EpsReadEvents& events);

/// Cuts the last marker "(<----- ep ; seg ----->)" and everything behind it off `text`, and stores
/// its numbers. Without a valid marker, changes nothing. False if a number does not fit 16 bits.
bool ParseQuestionMarker(std::string& text, std::int16_t& ep, std::int16_t& seg);

}  // namespace orvex
