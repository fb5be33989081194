#pragma once

#include <optional>
#include <string>

#include "desk/focus.h"
#include "desk/services.h"
#include "running/header_box.h"
#include "store/background_writer.h"

namespace orvex {

/// The form for the numbers and initials of an observation before it starts. Opens its log.
class SetUp {
 public:
  enum class Control { initials, schoolNum, classNum, observNum, numStudents, start };
  using Focus = FocusWish<Control>;

  /// Begins with empty boxes.
  explicit SetUp(const Services& services);

  const std::string& Text(HeaderBox box) const;
  void Type(HeaderBox box, const std::string& text);
  /// The warning that an episode file of this name already exists; "" if it does not.
  const std::string& Warning() const { return warning_; }
  /// The text that says in which folder the class is stored.
  const std::string& DataFolder() const { return dataFolder_; }
  /// True when all four numbers are valid and at least one student is present.
  bool CanStart() const;

  void EnterOrDown(HeaderBox box);
  void Up(HeaderBox box);
  /// Handles Down on the Reset button.
  void DownOnReset();
  /// Call it when the box loses the focus. If its text is not valid, clears the text, moves the
  /// focus back and returns false.
  bool Leave(HeaderBox box);
  void Reset();
  /// Opens the log and the live observation, once there is a data folder. If the log cannot be
  /// opened, tells the user and stays on the form.
  void Start();

  std::optional<Focus::Target> TakeFocus() { return focus_.Take(); }

 private:
  void MoveTo(HeaderBox box, Caret caret = Caret::atEnd);
  void CheckForEpisodeFile();
  bool OfferUnfinishedClass();

  Services services_;
  Identity& identity_;
  std::string warning_;
  std::string dataFolder_;
  Focus focus_;
  BackgroundWriter writer_;  ///< writes down the data folder so that it is remembered
};

}  // namespace orvex
