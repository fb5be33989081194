#pragma once

#include <QWidget>
#include <array>
#include <memory>

#include "desk/services.h"
#include "observe/set_up.h"

class QKeyEvent;
class QLineEdit;
class QTimer;
namespace Ui {
class frmInput1;
}

namespace orvex {

class BoxFocus;

/// The set-up form, which identifies the observation that is to start.
class frmInput1 : public QWidget {
  Q_OBJECT

 public:
  explicit frmInput1(const Services& services, QWidget* parent = nullptr);
  ~frmInput1() override;

  /// Copies what the set-up says is shown into the controls.
  void Refresh();

 private:
  struct Box {
    HeaderBox name;
    QLineEdit* edit;
  };

  void ConnectBox(const Box& box);
  void Start();
  bool TakeKey(const QWidget* control, const QKeyEvent& key);
  void Focus(const SetUp::Focus::Target& wish);

  SetUp setUp_;
  std::unique_ptr<Ui::frmInput1> ui_;
  std::array<Box, kHeaderBoxes.size()> boxes_;
  QTimer* timer1_;
  std::unique_ptr<BoxFocus> boxFocus_;  // last: it must not see the form go down
};

}  // namespace orvex
