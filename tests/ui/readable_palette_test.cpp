#include <gtest/gtest.h>

#include <QStyle>
#include <QStyleFactory>
#include <memory>
#include <utility>

#include "ui/widgets/ReadablePalette.h"

namespace orvex {
namespace {

TEST(ReadablePaletteTest, CountsContrastAsTheStandardDoes) {
  EXPECT_DOUBLE_EQ(ContrastOf(Qt::black, Qt::white), 21);
  EXPECT_DOUBLE_EQ(ContrastOf(Qt::red, Qt::red), 1);
  EXPECT_NEAR(ContrastOf(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
  EXPECT_NEAR(ContrastOf(Qt::white, QColor(0x30, 0x8C, 0xC6)), 3.69, 0.005);
}

TEST(ReadablePaletteTest, EveryTextIsReadInLightDarkAndHighContrast) {
  const std::unique_ptr<QStyle> fusion(QStyleFactory::create(QStringLiteral("fusion")));
  const QPalette light = fusion->standardPalette();
  QPalette dark(QColor(50, 50, 50), QColor(42, 42, 42));
  dark.setColor(QPalette::Highlight, QColor(21, 83, 158));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::Disabled, QPalette::Text, QColor(90, 90, 90));
  QPalette strong(Qt::black, Qt::black);
  strong.setColor(QPalette::WindowText, Qt::yellow);
  strong.setColor(QPalette::Highlight, Qt::green);
  strong.setColor(QPalette::HighlightedText, Qt::black);
  for (const QPalette& theirs : {light, dark, strong}) {
    const QPalette palette = ReadablePalette(theirs);
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::PlaceholderText, QPalette::Base},
        {QPalette::Link, QPalette::Base},
        {QPalette::ToolTipText, QPalette::ToolTipBase}};
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
      for (const auto& [ink, ground] : pairs) {
        EXPECT_GE(ContrastOf(palette.color(group, ink), palette.color(group, ground)),
                  group == QPalette::Disabled ? 3 : 4.5)
            << group << " " << ink;
      }
    }
    EXPECT_EQ(palette.color(QPalette::Window), theirs.color(QPalette::Window));
    EXPECT_EQ(ReadablePalette(palette), palette);
  }
  EXPECT_EQ(ReadablePalette(strong).color(QPalette::WindowText), QColor(Qt::yellow))
      << "what is good enough stays";
}

}  // namespace
}  // namespace orvex
