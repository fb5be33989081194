#pragma once

#include <cstdint>
#include <string>

#include "desk/services.h"

namespace orvex {

struct RunningClass;

/// Has the running class kept in the recovery file whenever it has changed, and what was logged of
/// it written behind that: whenever the program ends, the class has all that its log has.
class ClassKeeper {
 public:
  /// Hands the class over if it is not the one handed over last. Even then once in ten seconds, so
  /// that it is known until when the class ran.
  void Keep(const Services& services, const RunningClass& running);
  /// True once the class was handed over.
  bool HasBegun() const { return !kept_.empty(); }

 private:
  void HandOver(const Services& services, const RunningClass& running);

  std::string kept_;
  std::int64_t keptAt_ = 0;  ///< in seconds since 1970
};

/// All of the class is stored: removes what was kept of it while it ran.
void ForgetKept(const Services& services);

}  // namespace orvex
