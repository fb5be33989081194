#include "ui/widgets/MeaningsLine.h"

#include <QApplication>
#include <QShortcut>
#include <utility>

#include "model/letter_meanings.h"
#include "store/preferences.h"
#include "ui/show.h"
#include "ui/text.h"

namespace orvex {
namespace {

constexpr int kSide = 12;  // the margin of the forms
constexpr int kBelow = 6;

}  // namespace

void MeaningsLine::Follow(const Services& services, DimensionOf dimensionOf) {
  dimensionOf_ = std::move(dimensionOf);
  setContentsMargins(kSide, 0, kSide, kBelow);
  setVisible(ReadPreferences(services.programFolder).meanings);
  connect(qApp, &QApplication::focusChanged, this,
          [this](const QWidget*, const QWidget* now) { ShowFor(now); });
  connect(new QShortcut(QKeySequence(Qt::Key_F4), window()), &QShortcut::activated, this,
          [this, services] { Switch(services); });
}

/// The line of the field that had the focus stays while the focus is at a button.
void MeaningsLine::ShowFor(const QWidget* control) {
  if (!control || control->window() != window()) return;
  if (const auto dimension = dimensionOf_(control))
    ShowText(this, ToQt(LetterMeanings(*dimension)));
}

void MeaningsLine::Switch(const Services& services) {
  setHidden(!isHidden());
  Preferences preferences = ReadPreferences(services.programFolder);
  preferences.meanings = !isHidden();
  RememberPreferences(services.storage, services.programFolder, preferences);
}

}  // namespace orvex
