#include "study/logged_class.h"

#include <utility>

#include "store/eps_reader.h"
#include "study/file_kind.h"
#include "study/log_facts.h"
#include "study/reading_with_warnings.h"

namespace orvex {
namespace {

std::optional<ClassLog> LogOf(const std::filesystem::path& file, const Warn& warn) {
  const std::filesystem::path path = Companion(file, FileKind::sessionLog);
  if (path.empty()) return std::nullopt;
  auto log = ReadClassLog(path);
  if (const auto trouble = TroubleOf(log); warn && !trouble.empty()) warn(std::string(trouble));
  return log;
}

}  // namespace

ClassPicture LoggedClass::Picture() const {
  return MakeClassPicture(observation.header, observation.Episodes, log ? &*log : nullptr);
}

LoggedClass LoggedClassOf(EpsObservation observation, const std::filesystem::path& file,
                          const Warn& warn) {
  return {std::move(observation), LogOf(file, warn)};
}

LoggedClass ReadLoggedClass(const std::filesystem::path& file, const Warn& warn) {
  ReadingWithWarnings events(warn);
  EpsObservation observation = ReadEpsFile(file, events);
  WarnOfOtherNumbers(file, observation.header.identity, warn);
  return LoggedClassOf(std::move(observation), file, warn);
}

}  // namespace orvex
