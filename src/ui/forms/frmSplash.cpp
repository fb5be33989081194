#include "ui/forms/frmSplash.h"

#include <QFont>
#include <QTimer>

#include "editor/load_episodes.h"
#include "start/start_up.h"
#include "tables/export_form.h"
#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui_frmSplash.h"

namespace orvex {
namespace {

constexpr int kSecond = 1000;
constexpr qreal kTitleSize = 2.0;
constexpr qreal kSmallPrintSize = 0.85;

void ScaleFont(QWidget* control, qreal factor) {
  QFont font = control->font();
  font.setPointSizeF(font.pointSizeF() * factor);
  control->setFont(font);
}

}  // namespace

frmSplash::frmSplash(const Services& services, QWidget* parent)
    : QWidget(parent), menu_(services), ui_(std::make_unique<Ui::frmSplash>()) {
  ui_->setupUi(this);
  ScaleFont(ui_->lblProductName, kTitleSize);
  ScaleFont(ui_->lblCopyright, kSmallPrintSize);

  const auto button = [this](QPushButton* source, void (MainMenu::*click)()) {
    connect(source, &QPushButton::clicked, this, [this, click] {
      (menu_.*click)();
      Refresh();
    });
  };
  button(ui_->cmdStart, &MainMenu::NewObservation);
  button(ui_->Command3, &MainMenu::EditSurvey);
  button(ui_->Command7, &MainMenu::EditFieldNotes);
  button(ui_->cmdStudy, &MainMenu::OpenStudy);
  button(ui_->cmdManual, &MainMenu::OpenManual);
  button(ui_->cmdAbout, &MainMenu::ShowAbout);
  button(ui_->Command2, &MainMenu::EndProgram);
  connect(ui_->Command1, &QPushButton::clicked, this, [services] { EditChosenEpisodes(services); });
  connect(ui_->Command6, &QPushButton::clicked, this, [this, services] {
    menu_.ChangeDataPath();
    Refresh();
    OfferAllUnfinished(services);
  });
  connect(ui_->Command4, &QPushButton::clicked, this,
          [services] { ExportChosenList(services, ExportKind::epsData); });
  connect(ui_->Command5, &QPushButton::clicked, this,
          [services] { ExportChosenList(services, ExportKind::surData); });

  new FormKeys(this);

  auto* timer1 = new QTimer(this);
  timer1->setObjectName(QStringLiteral("Timer1"));
  connect(timer1, &QTimer::timeout, this, [this] {
    menu_.Tick();
    Refresh();
  });
  timer1->start(kSecond);
  Refresh();
}

frmSplash::~frmSplash() = default;

void frmSplash::Refresh() {
  ShowText(ui_->lblProductName, menu_.ProductName());
  ShowText(ui_->lblCompanyProduct, menu_.CompanyProduct());
  ShowText(ui_->lblCopyright, menu_.Copyright());
  ShowText(ui_->Label3, menu_.DateText());
  ShowText(ui_->Label2, menu_.TimeText());
  ShowText(ui_->lblDataFolder, menu_.DataFolder());
}

}  // namespace orvex
