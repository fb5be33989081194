#include "ui/keys/FormKeys.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

/// A form with one control of each kind; the last one is scrolled out of view.
class FormKeysTest : public testing::Test {
 protected:
  FormKeysTest() {
    auto* contents = new QWidget;
    auto* rows = new QVBoxLayout(contents);
    for (QWidget* control : std::initializer_list<QWidget*>{box_, button_, list_, number_}) {
      rows->addWidget(control);
    }
    rows->addSpacing(400);
    rows->addWidget(option_);
    list_->addItems({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    area_->setWidget(contents);
    (new QVBoxLayout(&form_))->addWidget(area_);
    form_.resize(300, 250);
  }

  void Open() {
    Activate(form_);
    box_->setFocus();
  }

  QWidget form_;
  QScrollArea* area_ = new QScrollArea;
  QLineEdit* box_ = new QLineEdit;
  QPushButton* button_ = new QPushButton(QStringLiteral("&Go"));
  QComboBox* list_ = new QComboBox;
  QSpinBox* number_ = new QSpinBox;
  QRadioButton* option_ = new QRadioButton(QStringLiteral("Last"));
};

TEST_F(FormKeysTest, HoldInAFormThatSaysNothingOfItsOwn) {
  new FormKeys(&form_);
  Open();
  const QSignalSpy pressed(button_, &QPushButton::clicked);
  Keys("a{Alt+X}\nb");
  EXPECT_EQ(box_->text(), QStringLiteral("ab"));
  button_->setFocus();
  Keys("\n");
  EXPECT_EQ(pressed.count(), 0);

  const auto turnWheel = [](QWidget* over) {
    QWheelEvent wheel({5, 5}, over->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(over, &wheel);
  };
  turnWheel(list_);
  EXPECT_EQ(list_->currentIndex(), 0);
  number_->setValue(50);
  turnWheel(number_);
  EXPECT_EQ(number_->value(), 50);
  EXPECT_FALSE(number_->hasFocus());
  number_->setFocus();
  turnWheel(number_);
  EXPECT_EQ(number_->value(), 49);

  QScrollBar* bar = area_->verticalScrollBar();
  option_->setFocus();
  EXPECT_GT(bar->value(), 0);
  // A click on a half-visible option must not scroll it away from under the mouse.
  box_->setFocus();
  bar->setValue(option_->y() - area_->viewport()->height() + option_->height() / 2);
  QTest::mouseClick(form_.windowHandle(), Qt::LeftButton, {}, option_->mapTo(&form_, QPoint(8, 4)));
  EXPECT_TRUE(option_->isChecked());
}

TEST_F(FormKeysTest, LetEnterDoWhatTheFormSays) {
  new FormKeys(&form_,
               {.pressedByEnter = {button_},
                .next = [this](const QWidget*) { return button_; },
                .own = [this](const QWidget* control,
                              const QKeyEvent& key) { return control == list_ && IsEnter(key); }});
  Open();
  const QSignalSpy pressed(button_, &QPushButton::clicked);
  list_->setFocus();
  Keys("\n");
  EXPECT_TRUE(list_->hasFocus()) << "the form has its own use for it";
  box_->setFocus();
  Keys("\n");
  EXPECT_TRUE(button_->hasFocus());
  EXPECT_EQ(pressed.count(), 0);
  Keys("\n");
  EXPECT_EQ(pressed.count(), 1);
}

}  // namespace
}  // namespace orvex
