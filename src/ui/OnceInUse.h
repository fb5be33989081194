#pragma once

#include <functional>

class QObject;

namespace orvex {

/// Runs `act` once a window of the program is active, so that a question appears in front of it. If
/// the window manager reports no active window, runs it after a short wait. Does nothing if
/// `context` is destroyed first.
void OnceInUse(QObject& context, std::function<void()> act);

}  // namespace orvex
