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
  /// `typed` holds the numbers being typed until they are accepted. It must outlive the header.
  ObservationHeader(const Services& services, TypedNumbers& typed);

  const std::string& Text(HeaderBox box) const;
  void Type(HeaderBox box, const std::string& text);
  /// The class ID as the form shows it: "Class ID  7-12-3".
  std::string ClassIdText() const;

  /// The box that Enter or Down moves to, and the one that Up moves to.
  static HeaderBox Next(HeaderBox box);
  static HeaderBox Previous(HeaderBox box);

  /// Sets and logs the number of students, after an estimate was made with another one.
  void CorrectStudents(const std::string& text);

  void Enter(HeaderBox box);
  /// Call it when the box loses the focus. False when the box must get the focus back. The
  /// observer cannot leave a declined number until the box and the log agree.
  bool Leave(HeaderBox box);
  /// The first box whose text is not the accepted number; empty when all agree.
  std::optional<HeaderBox> Disagreeing() const;

 private:
  bool LeaveStudents();
  bool LeaveNumber(HeaderBox box);
  enum class Renaming {
    done,
    declined,  ///< by the observer
    failed,    ///< on the disk; the numbers stay as typed, to be tried again
  };
  Renaming RenameSessionLog();
  void RenameFiles(const Identity& renamed);
  bool MayTake(const std::filesystem::path& log) const;
  void Accept(const Identity& renamed);

  Services services_;
  Identity& identity_;
  TypedNumbers& typed_;
  std::string lastStudents_;  ///< the last accepted number, restored when the box is left empty
  bool studentsVisited_ = false;
  std::optional<std::string> rememberedStudents_;
};

}  // namespace orvex
