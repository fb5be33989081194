#pragma once

#include <cstdint>
#include <string>

#include "store/services.h"

namespace orvex {

struct RunningClass;

/// Has the running class kept in the recovery file whenever it has changed.
class ClassKeeper {
 public:
  /// Hands the class over if it is not the one handed over last. Even then once in ten seconds, so
  /// that it is known until when the class ran.
  void Keep(const Services& services, const RunningClass& running);

 private:
  std::string kept_;
  std::int64_t keptAt_ = 0;  ///< in seconds since 1970
};

}  // namespace orvex
