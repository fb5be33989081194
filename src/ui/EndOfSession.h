#pragma once

#include <QObject>
#include <functional>

namespace orvex {

/// Hears when the system wants the program to end: by SIGTERM, SIGHUP or SIGINT, or with the user's
/// session. Nobody is asked anything then. There is one of these at most.
class EndOfSession : public QObject {
 public:
  /// `keep` brings what is not saved into the system's hands; `end` ends the program in order.
  EndOfSession(std::function<void()> keep, std::function<void()> end);
  ~EndOfSession() override;

 protected:
  /// Ends the program where its windows would be closed, with a question each.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void End();

  std::function<void()> keep_;
  std::function<void()> end_;
};

}  // namespace orvex
