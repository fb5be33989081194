#pragma once

#include <optional>
#include <string>

#include "desk/focus.h"
#include "desk/services.h"
#include "running/header_box.h"
#include "store/background_writer.h"

namespace orvex {

/// Identifies an observation before it starts, and opens its session log.
class SetUp {
 public:
  enum class Control { initials, schoolNum, classNum, observNum, numStudents, start };
  using Focus = FocusWish<Control>;

  /// Begins with empty boxes.
  explicit SetUp(const Services& services);

  const std::string& Text(HeaderBox box) const;
  void Type(HeaderBox box, const std::string& text);
  /// That an episode file of this name is there already; "" when it is not.
  const std::string& Warning() const { return warning_; }
  /// In which folder the class goes.
  const std::string& DataFolder() const { return dataFolder_; }
  /// True when the four numbers are numbers and at least one student is present.
  bool CanStart() const;

  void EnterOrDown(HeaderBox box);
  void Up(HeaderBox box);
  /// Down on the Reset button.
  void DownOnReset();
  /// The box loses the focus: a text that is no number is emptied and the focus comes back; the
  /// result is then false.
  bool Leave(HeaderBox box);
  void Reset();
  /// Opens the log and the live observation, once there is a data folder. When the log cannot be
  /// opened the user is told, and the form stays.
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
  BackgroundWriter writer_;  ///< brings to the disk that the folder is remembered
};

}  // namespace orvex
