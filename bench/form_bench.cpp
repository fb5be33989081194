// What our forms cost beyond Qt's own widgets: each is compared, in one run, with a plain window
// of the same widgets in the same nesting. Prints the two ratios; fails when one is above 1.10.

#include <malloc.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "model/program.h"
#include "recovery/recovery_file.h"
#include "store/session_log.h"
#include "store/storage.h"
#include "support/agreeing_prompter.h"
#include "support/fake_clock.h"
#include "support/recording_screens.h"
#include "ui/forms/frmClassAct.h"
#include "ui/forms/frmSplash.h"
#include "ui/widgets/FitToScreen.h"

namespace orvex {
namespace {

constexpr int kRounds = 41;
constexpr double kMost = 1.10;

template <typename Qts>
QWidget* TwinAs(const QWidget& of) {
  const auto* like = qobject_cast<const Qts*>(&of);
  if (!like) return nullptr;
  if constexpr (requires { new Qts(like->text()); }) return new Qts(like->text());
  return new Qts;
}

/// A plain widget like `of`, with plain ones like its children.
QWidget* PlainTwin(const QWidget& of) {
  if (qobject_cast<const QComboBox*>(&of)) {
    auto* list = new QComboBox;
    list->setEditable(true);
    return list;
  }
  for (QWidget* made : {TwinAs<QPushButton>(of), TwinAs<QRadioButton>(of), TwinAs<QCheckBox>(of),
                        TwinAs<QLabel>(of), TwinAs<QLineEdit>(of)}) {
    if (made) return made;
  }
  QWidget* twin = nullptr;
  QWidget* inside = nullptr;
  if (const auto* area = qobject_cast<const QScrollArea*>(&of)) {
    auto* plain = new QScrollArea;
    plain->setWidgetResizable(true);
    if (area->widget()) plain->setWidget(PlainTwin(*area->widget()));
    return plain;
  }
  twin = qobject_cast<const QGroupBox*>(&of) ? new QGroupBox : new QWidget;
  inside = twin;
  auto* layout = new QVBoxLayout(inside);
  for (const QObject* child : of.children()) {
    const auto* widget = qobject_cast<const QWidget*>(child);
    if (widget && !widget->isWindow()) layout->addWidget(PlainTwin(*widget));
  }
  return twin;
}

using Make = std::function<std::unique_ptr<QWidget>()>;

void ShowWhole(QWidget& window) {
  window.show();
  QCoreApplication::processEvents();
  window.grab();
}

double MillisecondsToShow(const Make& make) {
  QElapsedTimer timer;
  timer.start();
  const auto window = make();
  ShowWhole(*window);
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double BytesShown(const Make& make) {
  const auto before = mallinfo2().uordblks;
  const auto window = make();
  ShowWhole(*window);
  return static_cast<double>(mallinfo2().uordblks - before);
}

/// The median of the ratios of `one` to `other`, measured in turn.
double Ratio(const std::function<double(const Make&)>& measure, const Make& one,
             const Make& other) {
  std::vector<double> ratios;
  measure(one);
  measure(other);
  for (int round = 0; round < kRounds; ++round) ratios.push_back(measure(one) / measure(other));
  std::ranges::nth_element(ratios, ratios.begin() + kRounds / 2);
  return ratios[kRounds / 2];
}

bool Told(const char* what, double ratio) {
  std::printf("%s: %.2f times a plain window of the same widgets\n", what, ratio);
  return ratio <= kMost;
}

int Main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  const QTemporaryDir folder;
  Program program;
  program.DataPath = folder.path().toStdString();
  Storage storage;
  const test::FakeClock clock;
  test::AgreeingPrompter prompter;
  test::RecordingScreens screens;
  SessionLog log(storage, clock);
  RecoveryFile recovery(storage);
  const std::filesystem::path programFolder(folder.path().toStdString());
  const Services services = {program, log,      recovery, storage,
                             clock,   prompter, screens,  programFolder};
  const auto ours = [](std::unique_ptr<QWidget> form) {
    FitToScreen(*form);
    return form;
  };
  const Make menu = [&] { return ours(std::make_unique<frmSplash>(services)); };
  const Make live = [&] { return ours(std::make_unique<frmClassAct>(services)); };
  const auto menuForm = menu();
  const auto liveForm = live();
  const auto plain = [](const QWidget& of) {
    auto* twin = PlainTwin(of);
    twin->resize(of.size());  // what is painted on takes the most
    return std::unique_ptr<QWidget>(twin);
  };
  const Make plainMenu = [&] { return plain(*menuForm); };
  const Make plainLive = [&] { return plain(*liveForm); };
  const bool isQuick =
      Told("Main menu, time to be shown", Ratio(MillisecondsToShow, menu, plainMenu));
  const bool isSmall = Told("Live form, memory", Ratio(BytesShown, live, plainLive));
  return isQuick && isSmall ? 0 : 1;
}

}  // namespace
}  // namespace orvex

int main(int argc, char* argv[]) {
  return orvex::Main(argc, argv);
}
