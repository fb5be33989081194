#include "study/class_picture_file.h"

#include "store/eps_reader.h"
#include "study/file_kind.h"
#include "study/log_facts.h"
#include "study/reading_with_warnings.h"

namespace orvex {
namespace {

std::optional<ClassLog> LogOf(const std::filesystem::path& file, const Warn& warn) {
  const std::filesystem::path path = Companion(file, FileKind::sessionLog);
  if (path.empty()) return std::nullopt;
  const auto log = ReadClassLog(path);
  if (warn && !log) warn("the session log could not be read, or is none");
  if (warn && log && !log->begin) warn("the session log does not say when it began");
  return log;
}

}  // namespace

ClassPicture ReadClassPicture(const std::filesystem::path& file, const Warn& warn) {
  ReadingWithWarnings events(warn);
  const EpsObservation observation = ReadEpsFile(file, events);
  WarnOfOtherNumbers(file, observation.header.identity, warn);
  const auto log = LogOf(file, warn);
  return MakeClassPicture(observation.header, observation.Episodes, log ? &*log : nullptr);
}

}  // namespace orvex
