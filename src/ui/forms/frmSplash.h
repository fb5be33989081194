#pragma once

#include <QWidget>
#include <memory>

#include "desk/services.h"
#include "start/main_menu.h"

namespace Ui {
class frmSplash;
}

namespace orvex {

/// The main menu.
class frmSplash : public QWidget {
  Q_OBJECT

 public:
  explicit frmSplash(const Services& services, QWidget* parent = nullptr);
  ~frmSplash() override;

  /// Updates the controls from the menu.
  void Refresh();

 private:
  void OfferRecent();
  void OfferOptions();

  MainMenu menu_;
  std::unique_ptr<Ui::frmSplash> ui_;
};

}  // namespace orvex
