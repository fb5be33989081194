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

/// The set-up form, which identifies the observation to be started.
class frmInput1 : public QWidget {
  Q_OBJECT

 public:
  explicit frmInput1(const Services& services, QWidget* parent = nullptr);
  ~frmInput1() override;

  /// Updates the controls from the set-up.
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
  std::unique_ptr<BoxFocus> boxFocus_;  // last, so it is destroyed first
};

}  // namespace orvex
