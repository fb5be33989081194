#include "ui/EndOfSession.h"

#include <fcntl.h>
#include <unistd.h>

#include <QEvent>
#include <QGuiApplication>
#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace orvex {
namespace {

constexpr std::array<int, 3> kSignals = {SIGTERM, SIGHUP, SIGINT};

/// The pipe through which a signal handler reaches the event loop; a handler can safely do little
/// more than write.
int ends[2] = {-1, -1};

void Tell(int /*signal*/) {
  const int before = errno;
  const char byte = 1;
  [[maybe_unused]] const ssize_t written = ::write(ends[1], &byte, 1);
  errno = before;
}

}  // namespace

EndOfSession::EndOfSession(std::function<void()> keep, std::function<void()> end)
    : keep_(std::move(keep)), end_(std::move(end)) {
  connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { keep_(); });
  qApp->installEventFilter(this);
  if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  auto* told = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
  connect(told, &QSocketNotifier::activated, this, [this, told] {
    told->setEnabled(false);
    End();
  });
  struct sigaction action = {};
  action.sa_handler = Tell;
  // A second signal kills the program at once, without waiting for the disk.
  action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
  for (const int signal : kSignals) ::sigaction(signal, &action, nullptr);
}

EndOfSession::~EndOfSession() {
  struct sigaction usual = {};
  usual.sa_handler = SIG_DFL;
  for (const int signal : kSignals) ::sigaction(signal, &usual, nullptr);
  for (int& descriptor : ends) {
    if (descriptor >= 0) ::close(std::exchange(descriptor, -1));
  }
}

void EndOfSession::End() {
  keep_();
  end_();
}

bool EndOfSession::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Quit || watched != qApp) return false;
  End();
  return true;
}

}  // namespace orvex
