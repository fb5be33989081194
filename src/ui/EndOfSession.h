#pragma once

#include <QObject>
#include <functional>

namespace orvex {

/// Notices when the system wants the program to end: by SIGTERM, SIGHUP or SIGINT, or because the
/// user's session ends. The program then ends without questions. Only one instance may exist.
class EndOfSession : public QObject {
 public:
  /// `keep` passes unsaved work on to the system; `end` ends the program in the usual way.
  EndOfSession(std::function<void()> keep, std::function<void()> end);
  ~EndOfSession() override;

 protected:
  /// Ends the program on a quit event, which would otherwise close its windows, each with a
  /// question.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void End();

  std::function<void()> keep_;
  std::function<void()> end_;
};

}  // namespace orvex
