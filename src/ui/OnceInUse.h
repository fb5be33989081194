#pragma once

#include <functional>

class QObject;

namespace orvex {

/// Runs `act` once a window of the program is in use, so that a question stands over it. Where no
/// window manager says so, a moment later all the same. Not when `context` has gone by then.
void OnceInUse(QObject& context, std::function<void()> act);

}  // namespace orvex
