#include "ui/forms/frmListOfFiles.h"

#include <QCloseEvent>
#include <QElapsedTimer>
#include <algorithm>

#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui_frmListOfFiles.h"

namespace orvex {
namespace {

constexpr qint64 kBetweenRefreshes = 30;  // milliseconds

}  // namespace

frmListOfFiles::frmListOfFiles(const Services& services, ExportKind kind,
                               const std::filesystem::path& listFile, QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::frmListOfFiles>()),
      export_(services, kind, listFile) {
  ui_->setupUi(this);
  if (kind == ExportKind::surData) setObjectName(QStringLiteral("frmListOfFilesSUR"));
  QStringList names;
  for (std::size_t i = 0; i < export_.Count(); ++i) names.append(ToQt(export_.NameOf(i)));
  ui_->lstFiles->addItems(names);
  // An empty list counts as finished from the start.
  ui_->prgFiles->setMaximum(std::max(1, static_cast<int>(export_.Count())));
  connect(ui_->cmdStop, &QPushButton::clicked, this, [this] {
    export_.Stop();
    Refresh();
  });
  new FormKeys(this);
  // A few files each time the window has nothing else to do.
  connect(&work_, &QTimer::timeout, this, &frmListOfFiles::Tick);
  work_.start(0);
  FocusVisibly(ui_->cmdStop);
  Refresh();
}

frmListOfFiles::~frmListOfFiles() = default;

void frmListOfFiles::Tick() {
  if (export_.Working()) {
    QElapsedTimer sinceShown;
    sinceShown.start();
    while (export_.Working() && sinceShown.elapsed() < kBetweenRefreshes) export_.Work();
    return Refresh();
  }
  work_.stop();  // timers keep running while a message box is open
  export_.Finish();
  Q_EMIT Finished();
}

void frmListOfFiles::Refresh() {
  const bool none = export_.Count() == 0;
  if (!none) {
    const std::size_t row = std::min(export_.InWork(), export_.Count() - 1);
    ui_->lstFiles->setCurrentRow(static_cast<int>(row));
  }
  ui_->prgFiles->setValue(none ? 1 : static_cast<int>(export_.Done()));
  ShowText(ui_->lblCount, export_.CountText());
  ui_->cmdStop->setEnabled(export_.Working());
}

void frmListOfFiles::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form closes once the user has been told
  export_.Stop();
  Refresh();
}

}  // namespace orvex
