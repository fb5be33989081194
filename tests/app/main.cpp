#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int argc, char* argv[]) {
  testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("orvex"));
  return RUN_ALL_TESTS();
}
