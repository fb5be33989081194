#include "ui/manual/dlgAbout.h"

#include <QFont>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "start/about_program.h"
#include "ui/keys/FormKeys.h"
#include "ui/text.h"
#include "ui/widgets/CommandButton.h"
#include "ui/widgets/FitToScreen.h"
#include "ui/widgets/Logo.h"

namespace orvex {
namespace {

constexpr int kMargin = 20;
constexpr int kSpacing = 14;
constexpr int kTextWidth = 420;
constexpr qreal kTitleSize = 1.6;

QLabel* Shown(const std::string& text) {
  auto* label = new QLabel(ToQt(text));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setMinimumWidth(kTextWidth);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QLayout* TitleOf(const ProgramFacts& facts) {
  auto* name = new QLabel(ToQt(facts.product));
  QFont font = name->font();
  font.setPointSizeF(font.pointSizeF() * kTitleSize);
  font.setBold(true);
  name->setFont(font);
  auto* texts = new QVBoxLayout;
  texts->addStretch();
  texts->addWidget(name);
  texts->addWidget(new QLabel(ToQt(facts.purpose)));
  texts->addStretch();
  auto* title = new QHBoxLayout;
  title->setSpacing(kSpacing);
  title->addWidget(new Logo);
  title->addLayout(texts, 1);
  return title;
}

}  // namespace

dlgAbout::dlgAbout(const ProgramFacts& facts, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("dlgAbout"));
  setAttribute(Qt::WA_QuitOnClose, false);
  setWindowTitle(tr("About Orvex"));
  auto* rows = new QGridLayout;
  rows->setHorizontalSpacing(kSpacing);
  rows->setColumnStretch(1, 1);
  const auto row = [rows](const QString& caption, const std::string& text) {
    const int line = rows->rowCount();
    rows->addWidget(new QLabel(caption), line, 0, Qt::AlignTop);
    rows->addWidget(Shown(text), line, 1);
  };
  row(tr("Version:"), facts.version);
  row(tr("Licence:"), facts.licence);
  row(tr("Data folder:"), facts.dataFolder);
  row(tr("Program folder:"), facts.programFolder);
  row(tr("Manual:"), facts.manual);
  auto* ok = new CommandButton;
  ok->setObjectName(QStringLiteral("cmdOk"));
  ok->setText(tr("&OK"));
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(kSpacing);
  layout->addLayout(TitleOf(facts));
  layout->addLayout(rows);
  layout->addWidget(Shown(facts.copyright));
  layout->addLayout(buttons);
  ok->setFocus();
  new FormKeys(this, {.pressedByEnter = {ok}});
  adjustSize();  // with the lines that are broken at this width
  FitToScreen(*this);
}

}  // namespace orvex
