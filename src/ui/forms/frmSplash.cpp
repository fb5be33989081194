#include "ui/forms/frmSplash.h"

#include <QFont>
#include <QMenu>
#include <QTimer>

#include "editor/load_episodes.h"
#include "start/start_up.h"
#include "store/printable_text.h"
#include "tables/export_form.h"
#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui/text.h"
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

  connect(ui_->cmdRecent, &QPushButton::clicked, this, &frmSplash::OfferRecent);
  connect(ui_->cmdOptions, &QPushButton::clicked, this, &frmSplash::OfferOptions);

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

void frmSplash::OfferRecent() {
  QMenu menu(this);
  QMenu* folders = menu.addMenu(tr("&Study of"));
  int files = 0;
  for (const RecentPlace& place : menu_.Recent()) {
    const bool isFolder = place.kind == RecentKind::folder;
    QString shown =
        ToQt(Printable(isFolder ? place.path.string() : place.path.filename().string()));
    shown.replace(QLatin1Char('&'), QStringLiteral("&&"));
    const QString caption = isFolder ? shown : QStringLiteral("&%1  %2").arg(++files).arg(shown);
    QAction* action = (isFolder ? folders : &menu)->addAction(caption);
    action->setToolTip(ToQt(Printable(place.path.string())));
    connect(action, &QAction::triggered, this, [this, place] {
      menu_.OpenRecent(place);
      Refresh();
    });
  }
  menu.setToolTipsVisible(true);
  folders->setEnabled(!folders->isEmpty());
  if (files == 0) menu.addAction(tr("No file yet"))->setEnabled(false);
  menu.exec(ui_->cmdRecent->mapToGlobal(ui_->cmdRecent->rect().bottomLeft()));
}

void frmSplash::OfferOptions() {
  QMenu menu(this);
  const auto option = [this, &menu](const QString& caption, bool Preferences::*field) {
    QAction* action = menu.addAction(caption);
    action->setCheckable(true);
    action->setChecked(menu_.Chosen().*field);
    connect(action, &QAction::toggled, this, [this, field](bool chosen) {
      Preferences preferences = menu_.Chosen();
      preferences.*field = chosen;
      menu_.Choose(preferences);
    });
  };
  option(tr("Show the &meaning of the letters (F4)"), &Preferences::meanings);
  option(tr("&Sound when an off-task estimate is due"), &Preferences::offtaskSound);
  menu.exec(ui_->cmdOptions->mapToGlobal(ui_->cmdOptions->rect().bottomLeft()));
}

void frmSplash::Refresh() {
  ShowText(ui_->lblProductName, menu_.ProductName());
  ShowText(ui_->lblCompanyProduct, menu_.CompanyProduct());
  ShowText(ui_->lblCopyright, menu_.Copyright());
  ShowText(ui_->Label3, menu_.DateText());
  ShowText(ui_->Label2, menu_.TimeText());
  ShowText(ui_->lblDataFolder, menu_.DataFolder());
}

}  // namespace orvex
