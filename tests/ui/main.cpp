#include <gtest/gtest.h>

#include <QApplication>

#include "ui/keys/HeldKeys.h"

int main(int argc, char* argv[]) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  orvex::HeldKeys heldKeys;
  qApp->installEventFilter(&heldKeys);
  return RUN_ALL_TESTS();
}
