#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "desk/services.h"
#include "running/header_box.h"

namespace orvex {

/// The header of the running observation. Its numbers name the open session log, which is renamed
/// when they change; a changed number of students is logged.
class ObservationHeader {
 public:
  /// What is typed over the numbers goes into `typed`, which outlives the header, until it is
  /// accepted.
  ObservationHeader(const Services& services, TypedNumbers& typed);

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
  /// The box loses the focus. False when it must get it back: a number that is declined is asked
  /// about again until the box and the log agree.
  bool Leave(HeaderBox box);
  /// The box whose text is not the number that was accepted; nothing when all of them agree.
  std::optional<HeaderBox> Disagreeing() const;

 private:
  bool LeaveStudents();
  bool LeaveNumber(HeaderBox box);
  bool RenameSessionLog();
  void RenameFiles(const Identity& renamed);
  bool MayTake(const std::filesystem::path& log) const;
  void Accept(const Identity& renamed);

  Services services_;
  Identity& identity_;
  TypedNumbers& typed_;
  std::string lastStudents_;  ///< the last number there was
  bool studentsVisited_ = false;
  std::optional<std::string> rememberedStudents_;
};

}  // namespace orvex
