#pragma once

#include <optional>
#include <string>

#include "observe/header_box.h"
#include "store/services.h"

namespace orvex {

/// The header of the running observation. Its numbers name the open session log, which is renamed
/// when they change; a changed number of students is logged.
class ObservationHeader {
 public:
  explicit ObservationHeader(const Services& services);

  const std::string& Text(HeaderBox box) const;
  void Type(HeaderBox box, const std::string& text);
  /// "Class ID  7-12-3".
  std::string ClassIdText() const;

  /// The box that Enter or Down moves to, and the one that Up moves to.
  static HeaderBox Next(HeaderBox box);
  static HeaderBox Previous(HeaderBox box);

  /// An off-task estimate was made with another number of students than the box says.
  void CorrectStudents(const std::string& text);

  void Enter(HeaderBox box);
  /// The box loses the focus. False when it must get it back.
  bool Leave(HeaderBox box);

 private:
  bool LeaveNumber(HeaderBox box);
  bool RenameSessionLog();

  Services services_;
  Identity& identity_;
  Identity logged_;           ///< the numbers that the log is named by
  std::string lastStudents_;  ///< the last number there was
  bool studentsVisited_ = false;
  std::optional<std::string> rememberedStudents_;
};

}  // namespace orvex
