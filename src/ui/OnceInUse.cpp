#include "ui/OnceInUse.h"

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>
#include <utility>

namespace orvex {
namespace {

constexpr int kMoment = 500;

}  // namespace

void OnceInUse(QObject& context, std::function<void()> act) {
  auto* wait = new QTimer(&context);
  wait->setSingleShot(true);
  QObject::connect(wait, &QTimer::timeout, wait, [wait, act = std::move(act)] {
    wait->deleteLater();
    act();
  });
  // Do not act within the event itself, as a question would run an event loop there.
  QObject::connect(qApp, &QGuiApplication::focusWindowChanged, wait, [wait](const QWindow* window) {
    if (window != nullptr && wait->isActive()) wait->start(0);
  });
  wait->start(kMoment);
}

}  // namespace orvex
