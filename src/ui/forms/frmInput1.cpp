#include "ui/forms/frmInput1.h"

#include <QTimer>
#include <utility>
#include <vector>

#include "ui/keys/BoxFocus.h"
#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui_frmInput1.h"

namespace orvex {
namespace {

constexpr int kTenthOfASecond = 100;

}  // namespace

frmInput1::frmInput1(const Services& services, QWidget* parent)
    : QWidget(parent),
      setUp_(services),
      ui_(std::make_unique<Ui::frmInput1>()),
      timer1_(new QTimer(this)) {
  ui_->setupUi(this);
  timer1_->setObjectName(QStringLiteral("Timer1"));
  boxes_ = {{{HeaderBox::initials, ui_->txtInitials},
             {HeaderBox::schoolNum, ui_->txtSchoolNum},
             {HeaderBox::classNum, ui_->txtClassNum},
             {HeaderBox::observNum, ui_->txtObservNum},
             {HeaderBox::numStudents, ui_->txtNumStudents}}};
  for (const Box& box : boxes_) ConnectBox(box);
  connect(ui_->Command1, &QPushButton::clicked, this, &frmInput1::Start);
  connect(ui_->Command2, &QPushButton::clicked, this, [this] {
    setUp_.Reset();
    Refresh();
  });
  new FormKeys(this, {.pressedByEnter = {ui_->Command1},
                      .own = [this](const QWidget* control, const QKeyEvent& key) {
                        return TakeKey(control, key);
                      }});
  std::vector<QWidget*> boxes;
  for (const Box& box : boxes_) boxes.push_back(box.edit);
  const auto tryLeave = [this](const QWidget* leaving) {
    bool mayLeave = true;
    for (const Box& box : boxes_) {
      if (leaving == box.edit) mayLeave = setUp_.Leave(box.name);
    }
    Refresh();
    return mayLeave;
  };
  boxFocus_ = std::make_unique<BoxFocus>(
      this, std::move(boxes), [](QWidget*) {}, tryLeave);
  connect(timer1_, &QTimer::timeout, this, &frmInput1::Refresh);
  timer1_->start(kTenthOfASecond);
  Refresh();
}

frmInput1::~frmInput1() = default;

void frmInput1::ConnectBox(const Box& box) {
  connect(box.edit, &QLineEdit::textEdited, this, [this, name = box.name](const QString& text) {
    setUp_.Type(name, FromQt(text));
    Refresh();
  });
}

void frmInput1::Start() {
  setUp_.Start();
  Refresh();
  if (isHidden()) timer1_->stop();
}

void frmInput1::Refresh() {
  for (const Box& box : boxes_) ShowText(box.edit, setUp_.Text(box.name));
  ShowText(ui_->Label6, setUp_.Warning());
  ShowText(ui_->lblDataFolder, setUp_.DataFolder());
  ui_->Command1->setEnabled(setUp_.CanStart());
  if (const auto wish = setUp_.TakeFocus()) Focus(*wish);
}

void frmInput1::Focus(const SetUp::Focus::Target& wish) {
  switch (wish.control) {
    case SetUp::Control::initials:
      return FocusBox(ui_->txtInitials, wish.caret);
    case SetUp::Control::schoolNum:
      return FocusBox(ui_->txtSchoolNum, wish.caret);
    case SetUp::Control::classNum:
      return FocusBox(ui_->txtClassNum, wish.caret);
    case SetUp::Control::observNum:
      return FocusBox(ui_->txtObservNum, wish.caret);
    case SetUp::Control::numStudents:
      return FocusBox(ui_->txtNumStudents, wish.caret);
    case SetUp::Control::start:
      return FocusVisibly(ui_->Command1);
  }
}

bool frmInput1::TakeKey(const QWidget* control, const QKeyEvent& key) {
  const bool up = key.key() == Qt::Key_Up;
  const bool down = key.key() == Qt::Key_Down;
  if (control == ui_->Command2 && (up || down)) {
    if (down) setUp_.DownOnReset();
    Refresh();
    return true;
  }
  for (const Box& box : boxes_) {
    if (control != box.edit || (!up && !down && !IsEnter(key))) continue;
    if (up) {
      setUp_.Up(box.name);
    } else {
      setUp_.EnterOrDown(box.name);
    }
    Refresh();
    return true;
  }
  return false;
}

}  // namespace orvex
