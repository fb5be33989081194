#include "study/class_key.h"

#include "store/paths.h"
#include "study/found_files.h"
#include "study/observation_day.h"

namespace orvex {

ClassKey ClassKeyOf(Identity identity, const std::string& date) {
  NormaliseNumbers(identity);
  // A day may be written in several ways; what is no day is told apart by its text.
  const auto day = DayOf(date);
  return {NameKey(identity.SchoolNum), NameKey(identity.ClassNum),
          day ? std::to_string(day->time_since_epoch().count()) : date};
}

}  // namespace orvex
