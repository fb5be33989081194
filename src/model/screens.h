#pragma once

namespace orvex {

/// The forms, by the part they play.
enum class Screen { mainMenu, setUp, liveObservation, aboutText, questionEntry };

/// How the logic moves between forms without knowing them.
class Screens {
 public:
  virtual ~Screens() = default;

  /// Brings the form to the front, loading it if it is not loaded. `aboutText` is modal: the call
  /// returns when it is hidden again.
  virtual void Show(Screen screen) = 0;
  /// Takes the form off the screen; it stays loaded and its timers go on.
  virtual void Hide(Screen screen) = 0;
  /// Unloads the form. An operation may close the form it was called from: the form goes after the
  /// operation has returned.
  virtual void Close(Screen screen) = 0;
  /// Closes every form and file in order and ends the program, after the running operation has
  /// returned.
  virtual void EndProgram() = 0;
};

}  // namespace orvex
